// The tables behind a Vantrel object. Private to the engine's source files.
//
// Reference holds the published tables on the engine's grids and what is derived from them alone:
// it is built once per process, on first use, and never written again, so every engine on every
// thread reads the same copy. Tables holds what one engine writes while it runs.
#ifndef LUMIVAR_ENGINE_VANTRELSTATE_H
#define LUMIVAR_ENGINE_VANTRELSTATE_H

#include "Vantrel.h"

struct Vantrel::Reference {
    static constexpr int N = NUM_GRID_POINTS;
    static constexpr int NT = VantrelData::NUM_TLCI;

    // Observers [index][grid]: 0 CIE 1931 2°, 1 CIE 1964 10°, 2 CIE 2015 2°, 3 CIE 2015 10°.
    double xbar[NUM_OBSERVERS][N];
    double ybar[NUM_OBSERVERS][N];
    double zbar[NUM_OBSERVERS][N];
    double vPrime[N];  // CIE 1951 scotopic

    // Planck helpers of the CCT search: 14.388/λ and 1/λ⁵ with λ in nm.
    double c2OverLambda[N];
    double invLambda5[N];

    // Spectrum locus about the default white for the dominant wavelength, per observer.
    double ldomX[NUM_OBSERVERS][N], ldomY[NUM_OBSERVERS][N], ldomAngle[NUM_OBSERVERS][N];

    // The 26-point Planck table of the old CCT walk: [1] for the 2015 10° observer, [0] for the
    // others (they share the 1931 table).
    double cctUrd[2][VantrelData::NUM_CCT_TABLE];
    double cctU[2][VantrelData::NUM_CCT_TABLE];
    double cctV[2][VantrelData::NUM_CCT_TABLE];

    // Exact Planck u, v at the fixed points of the CCT search, per observer.
    double searchU[NUM_OBSERVERS][NUM_SEARCH_POINTS], searchV[NUM_OBSERVERS][NUM_SEARCH_POINTS];

    // Reference data.
    double tcs[NUM_SAMPLES][N];  // rows 1 to 15, row 0 all zero
    double vs[NUM_SAMPLES][N];   // rows 1 to 15, row 0 all zero
    double ces[NUM_CES][N];
    int cesTypes[NUM_CES];
    double fci[VantrelData::NUM_FCI][N];
    double S0[N], S1[N], S2[N];
    double q100[N], q50[N];
    double filmDaylight[3][N], film3200K[3][N];
    double wellMelanopic[N], wellVisual[N];
    double emlMelanopic[N], emlVisual[N];
    double eyeIR[NUM_GRID_POINTS_IR];

    // TLCI-2012 on its own 5 nm grid: observer, daylight components, the EBU camera, the
    // ColorChecker with patch 19 at the 0.9 white the camera balances on, and the display white
    // (daylight at 6500 K) at Y = 1.
    double tlciXbar[NT], tlciYbar[NT], tlciZbar[NT];
    double tlciS0[NT], tlciS1[NT], tlciS2[NT];
    double tlciCamera[3][NT];
    double tlciPatch[VantrelData::NUM_COLOR_CHECKER][NT];
    double tlciXn, tlciYn, tlciZn;
};

struct Vantrel::Tables {
    static constexpr int N = NUM_GRID_POINTS;

    // Spectrum locus about a user white for the dominant wavelength.
    bool hasUserWhite = false;
    double userWhiteX = 0, userWhiteY = 0;
    double userLdomX[N], userLdomY[N], userLdomAngle[N];

    // Work arrays of color(): normalized test and reference, a Planck spectrum.
    double normTest[N], normRef[N], planck[N];

    // The last Planck spectrum asked for through blackBodyAt, and its temperature.
    double blackBodyT = -1.0;
    double blackBody[N];

    // CIELAB of the 99 CES under test and reference.
    double labCES_L[2][NUM_CES], labCES_a[2][NUM_CES], labCES_b[2][NUM_CES];
};

#endif  // LUMIVAR_ENGINE_VANTRELSTATE_H
