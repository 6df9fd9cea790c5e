// The tables a Vantrel object keeps for its whole life, filled once in the constructor.
// Private to the engine's source files.
#ifndef LUMIVAR_ENGINE_VANTRELSTATE_H
#define LUMIVAR_ENGINE_VANTRELSTATE_H

#include "Vantrel.h"

struct Vantrel::Tables {
    static constexpr int N = NUM_GRID_POINTS;

    // Observers [index][grid]: 0 CIE 1931 2°, 1 CIE 1964 10°, 2 CIE 2015 2°, 3 CIE 2015 10°.
    double xbar[NUM_OBSERVERS][N];
    double ybar[NUM_OBSERVERS][N];
    double zbar[NUM_OBSERVERS][N];
    double vPrime[N];  // CIE 1951 scotopic

    // Planck helpers of the CCT search: 14.388/λ and 1/λ⁵ with λ in nm.
    double c2OverLambda[N];
    double invLambda5[N];

    // Spectrum locus about the default white for the dominant wavelength, and about a user white.
    double ldomX[N], ldomY[N], ldomAngle[N];
    bool hasUserWhite = false;
    double userWhiteX = 0, userWhiteY = 0;
    double userLdomX[N], userLdomY[N], userLdomAngle[N];

    // Reference data.
    double tcs[NUM_SAMPLES][N];  // rows 1 to 15
    double vs[NUM_SAMPLES][N];   // rows 1 to 15
    double ces[NUM_CES][N];
    int cesTypes[NUM_CES];
    double fci[VantrelData::NUM_FCI][N];
    double S0[N], S1[N], S2[N];
    double cctUrd[VantrelData::NUM_CCT_TABLE];
    double cctU[VantrelData::NUM_CCT_TABLE];
    double cctV[VantrelData::NUM_CCT_TABLE];
    double q100[N], q50[N];
    double filmDaylight[3][N], film3200K[3][N];
    double wellMelanopic[N], wellVisual[N];
    double emlMelanopic[N], emlVisual[N];
    double eyeIR[NUM_GRID_POINTS_IR];

    // Work arrays of color(): normalized test and reference, a Planck spectrum.
    double normTest[N], normRef[N], planck[N];

    // CIELAB of the 99 CES under test and reference.
    double labCES_L[2][NUM_CES], labCES_a[2][NUM_CES], labCES_b[2][NUM_CES];
};

#endif  // LUMIVAR_ENGINE_VANTRELSTATE_H
