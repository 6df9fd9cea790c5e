// Vantrel: grid, observers, integration and the two orchestrators calcCCT and color.
#include "Vantrel.h"

#include <cmath>
#include <cstring>

#include "Grid.h"
#include "GridSum.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// Lumens from Y: 683 lm/W times the 2 nm step.
constexpr double LUMENS_PER_Y = 1366.0;
// Scotopic lumens: 1700 lm/W times the 2 nm step.
constexpr double SCOTOPIC_LM_PER_W = 1700.0;

// Default white of the dominant wavelength construction.
constexpr double LDOM_WHITE = 0.3333;
}  // namespace

const Vantrel::Reference& Vantrel::sharedReference() {
    // Built by the first engine of the process (C++11 makes this initialization thread-safe),
    // then only read. It is deliberately never freed: an engine living in another static object
    // or a worker still running at exit can never find it gone.
    static const Reference* const shared = buildReference().release();
    return *shared;
}

std::unique_ptr<Vantrel::Reference> Vantrel::buildReference() {
    std::unique_ptr<Reference> ref(new Reference());
    Reference& t = *ref;
    const VantrelData data;
    data.define_cie_1931_2deg_XYZ_bar(t.xbar[0], t.ybar[0], t.zbar[0]);
    data.define_cie_1960_10deg_XYZ_bar(t.xbar[1], t.ybar[1], t.zbar[1]);
    data.define_cie_2015_2deg_XYZ_bar(t.xbar[2], t.ybar[2], t.zbar[2]);
    data.define_cie_2015_10deg_XYZ_bar(t.xbar[3], t.ybar[3], t.zbar[3]);
    data.define_scotopic_XYZ_bar(t.vPrime);

    double* fciRows[VantrelData::NUM_FCI];
    for (int k = 0; k < VantrelData::NUM_FCI; ++k) fciRows[k] = t.fci[k];
    data.define_FCI_colors(VantrelData::NUM_FCI, fciRows);

    for (int i = 0; i < N; ++i) {
        const double nm = grid::nm(i);
        t.c2OverLambda[i] = 14.388 / nm;
        t.invLambda5[i] = 1.0 / (nm * nm * nm * nm * nm);
    }
    for (int o = 0; o < NUM_OBSERVERS; ++o) {
        locusAngles(t.xbar[o], t.ybar[o], t.zbar[o], LDOM_WHITE, LDOM_WHITE, t.ldomX[o], t.ldomY[o],
                    t.ldomAngle[o]);
    }
    for (int o = 0; o < NUM_OBSERVERS; ++o) {
        for (int k = 0; k < NUM_SEARCH_POINTS; ++k)
            exactLocusUV(t, o, CCT_SEARCH_URD[k], &t.searchU[o][k], &t.searchV[o][k]);
    }
    // defineCCTdata knows two tables: the 2015 10° one (type 3) and the 1931 one.
    data.defineCCTdata(0, t.cctUrd[0], t.cctU[0], t.cctV[0]);
    data.defineCCTdata(3, t.cctUrd[1], t.cctU[1], t.cctV[1]);

    data.make_kodak_daylight_colors(t.filmDaylight[0], t.filmDaylight[1], t.filmDaylight[2]);
    data.make_kodak_3200K_colors(t.film3200K[0], t.film3200K[1], t.film3200K[2]);
    data.define_Well_Buillding_Melanopic_and_Visual_curves(t.wellMelanopic, t.wellVisual);

    double* cesRows[NUM_CES];
    for (int k = 0; k < NUM_CES; ++k) cesRows[k] = t.ces[k];
    data.defineCESvalues(t.cesTypes, cesRows);

    std::memset(t.tcs, 0, sizeof(t.tcs));
    std::memset(t.vs, 0, sizeof(t.vs));
    double* tcsRows[NUM_SAMPLES];
    double* vsRows[NUM_SAMPLES];
    for (int k = 0; k < NUM_SAMPLES; ++k) {
        tcsRows[k] = t.tcs[k];
        vsRows[k] = t.vs[k];
    }
    data.defineTCSvalues(tcsRows);
    data.defineVSvalues(vsRows);

    data.getDaylightCoefficients(t.S0, t.S1, t.S2);
    data.define_Q100_Q50_COI(t.q100, t.q50);
    data.defineEyeSensitivityCurveIR(t.eyeIR);
    data.defineEMLcurves(t.emlMelanopic, t.emlVisual);
    buildTLCIReference(data, &t);
    return ref;
}

Vantrel::Vantrel() : ref(&sharedReference()), tab(new Tables()) {}

Vantrel::~Vantrel() = default;

// ---------------------------------------------------------------------------------------------
// Observer selection

void Vantrel::setCIE_XYZ_bar_type(int type) {
    // The locus and CCT tables of every observer are in the shared reference.
    observer = (type < 0 || type > 3) ? 0 : type;
}

const char* Vantrel::getCIE_XYZ_bar_type_name() const {
    switch (observer) {
        case 0:
            return "CIE 2 degree";
        case 1:
            return "CIE 10 degree";
        case 2:
            return "CIE 2015 2 degree";
        case 3:
            return "CIE 2015 10 degree";
        default:
            return "unknown";
    }
}

// ---------------------------------------------------------------------------------------------
// Integration

namespace {
using grid_sum::dot;

// The three-factor form: each element (a·b)·c, in the same partial sums as dot.
inline double dot3(const double* a, const double* b, const double* c) {
    double p0 = 0, p1 = 0, p2 = 0, p3 = 0;
    for (int i = 0; i < N; i += 4) {
        p0 += a[i] * b[i] * c[i];
        p1 += a[i + 1] * b[i + 1] * c[i + 1];
        p2 += a[i + 2] * b[i + 2] * c[i + 2];
        p3 += a[i + 3] * b[i + 3] * c[i + 3];
    }
    return (p0 + p1) + (p2 + p3);
}
}  // namespace

double Vantrel::sum2Products(const double* a, const double* b) {
    return 0.5 * (a[0] * b[0] + a[N - 1] * b[N - 1]) + dot(a, b);
}

double Vantrel::sum3Products(const double* a, const double* b, const double* c) {
    return 0.5 * (a[0] * b[0] * c[0] + a[N - 1] * b[N - 1] * c[N - 1]) + dot3(a, b, c);
}

bool Vantrel::hasChromaticity(double X, double Y, double Z) {
    const double sum = X + Y + Z;
    return std::isfinite(sum) && sum > MIN_XYZ_SUM;
}

void Vantrel::get_xy_XYZ(double X, double Y, double Z, double* x, double* y) {
    const double sum = X + Y + Z;
    if (sum > MIN_XYZ_SUM) {
        *x = X / sum;
        *y = Y / sum;
    } else {
        *x = 0;
        *y = 0;
    }
}

void Vantrel::cie_XYZ(int numFactors, const double* a, const double* b, double* X, double* Y,
                      double* Z, double* x, double* y) const {
    // With three factors the product a·b is formed once for the three sums; each element is
    // still (a·b)·c in the same partial sums, so the results are bit for bit sum3Products'.
    const Reference& t = *ref;
    const double* xb = t.xbar[observer];
    const double* yb = t.ybar[observer];
    const double* zb = t.zbar[observer];
    const double* s = a;
    double product[N];
    if (numFactors != 2) {
        for (int i = 0; i < N; ++i) product[i] = a[i] * b[i];
        s = product;
    }
    const int e = N - 1;
    *X = 0.5 * (s[0] * xb[0] + s[e] * xb[e]) + dot(s, xb);
    *Y = 0.5 * (s[0] * yb[0] + s[e] * yb[e]) + dot(s, yb);
    *Z = 0.5 * (s[0] * zb[0] + s[e] * zb[e]) + dot(s, zb);
    get_xy_XYZ(*X, *Y, *Z, x, y);
}

// ---------------------------------------------------------------------------------------------
// Orchestrators

void Vantrel::calcCCT(const double* spectrum, bool fast) {
    cie_XYZ(2, spectrum, nullptr, &sX[0][0], &sY[0][0], &sZ[0][0], &sx[0][0], &sy[0][0]);
    cie_1960_uvcd(sx[0][0], sy[0][0], &su[0][0], &sv[0][0], &sc[0][0], &sd[0][0]);
    getCCTdata(su[0][0], sv[0][0], &cct, fast);
    lumens = LUMENS_PER_Y * sY[0][0];
    xcoord = sx[0][0];
    ycoord = sy[0][0];
}

// Integrates the illuminant (column 0) and the 15 test colour samples of one row.
void Vantrel::integrateSamples(int row, const double* normalized) {
    const Reference& t = *ref;
    cie_XYZ(2, normalized, nullptr, &sX[row][0], &sY[row][0], &sZ[row][0], &sx[row][0],
            &sy[row][0]);
    for (int k = 1; k < NUM_SAMPLES; ++k) {
        cie_XYZ(3, normalized, t.tcs[k], &sX[row][k], &sY[row][k], &sZ[row][k], &sx[row][k],
                &sy[row][k]);
        cie_1960_uvcd(sx[row][k], sy[row][k], &su[row][k], &sv[row][k], &sc[row][k], &sd[row][k]);
    }
    whiteXYZ[row][0] = sX[row][0];
    whiteXYZ[row][1] = sY[row][0];
    whiteXYZ[row][2] = sZ[row][0];
}

void Vantrel::color(const double* spectrum, bool cieLabR, bool doQ, bool doGamut, bool doDomWL,
                    bool cieLabCES) {
    Tables& t = *tab;
    const double yTest = sum2Products(spectrum, ref->ybar[observer]);

    // Visible watts: 2 nm cells, with half of the end points taken off once (not twice for the
    // 2 nm step). Visible watts are defined by this rule.
    double watts = 0;
    for (int i = 0; i < N; ++i) {
        watts += (2e-9 * spectrum[i]) * 1e9;
        t.normTest[i] = 100.0 * spectrum[i] / yTest;
    }
    watts -= 0.5 * (spectrum[0] + spectrum[N - 1]);

    // Row 0 keeps the u, v, c, d of the illuminant from calcCCT.
    integrateSamples(0, t.normTest);
    if (doQ) integrateQSamples(0, t.normTest);
    referenceRow(doQ);
    colorFromSamples(watts, doQ, doGamut, doDomWL);

    if (cieLabR) defineCIELabForRValues(spectrum);
    if (cieLabCES) defineCIELABForCESColors(spectrum);

    // Overwrites row 1, column 0 with the Planck point at the CCT.
    calDeltaBlackBody(cct, xcoord, ycoord, false);
}

// Row 1: the reference illuminant of the current CCT at Y = 100 and the samples under it.
void Vantrel::referenceRow(bool doQ) {
    Tables& t = *tab;
    getReferenceSpectrum(cct, t.normRef);
    const double yRef = sum2Products(t.normRef, ref->ybar[observer]);
    for (int i = 0; i < N; ++i) t.normRef[i] *= 100.0 / yRef;
    integrateSamples(1, t.normRef);
    if (doQ) integrateQSamples(1, t.normRef);
}

// Everything of color() that follows from the sample tristimulus values of both rows.
void Vantrel::colorFromSamples(double watts, bool doQ, bool doGamut, bool doDomWL) {
    cie_1960_uvcd(sx[1][0], sy[1][0], &su[1][0], &sv[1][0], &sc[1][0], &sd[1][0]);
    getRvalues(rValues, sc[0], sd[0], sc[1][0], sd[1][0], sY[0], sY[1], su[1], sv[1]);
    if (doQ) qValuesFromSamples(qValues);

    deltaUV_cri = getSignedDistance(su[0][0], su[1][0], sv[0][0], sv[1][0]);

    if (doGamut) calcCRIGamutAreas();

    wattsVis = watts;
    xcoord = sx[0][0];
    ycoord = sy[0][0];
    ucoord = su[0][0];
    vcoord = sv[0][0];
    upcoord = ucoord;
    vpcoord = 1.5 * vcoord;

    if (doDomWL) calcDomWL_purity(xcoord, ycoord);
}

void Vantrel::color(const double* spectrum, bool cieLabR, bool cieLabCES) {
    color(spectrum, cieLabR, true, true, true, cieLabCES);
}

void Vantrel::color(const double* spectrum, bool cieLabR) { color(spectrum, cieLabR, false); }

void Vantrel::color(const double* spectrum, bool cieLabR, bool, bool, bool) {
    color(spectrum, cieLabR, true, true, true, false);
}

void Vantrel::calcAll(const double* spectrum, bool fast, bool cieLabR) {
    calcCCT(spectrum, fast);
    color(spectrum, cieLabR, false);
}

void Vantrel::calcAll(const double* spectrum, bool fast, bool cieLabR, bool cieLabCES) {
    calcCCT(spectrum, fast);
    color(spectrum, cieLabR, cieLabCES);
}

// ---------------------------------------------------------------------------------------------
// Photometry helpers

void Vantrel::getXYZ(double* X, double* Y, double* Z) const {
    getXYZ_from_xylm(xcoord, ycoord, lumens, X, Y, Z);
}

void Vantrel::getXYZ(int sample, double* X, double* Y, double* Z, int row, int qSet) const {
    if (qSet != 0) {
        *X = qX[row][sample];
        *Y = qY[row][sample];
        *Z = qZ[row][sample];
    } else {
        *X = sX[row][sample];
        *Y = sY[row][sample];
        *Z = sZ[row][sample];
    }
}

double Vantrel::getScotopicLumens(const double* spectrum) const {
    return sum2Products(spectrum, ref->vPrime) * grid::STEP_NM * SCOTOPIC_LM_PER_W;
}

void Vantrel::getWhiteXYZ(int type, const double* spectrum, double* X, double* Y, double* Z) {
    Tables& t = *tab;
    double flat[N];
    for (double& f : flat) f = 1.0;
    const double* source = spectrum;
    if (type == 1) {
        getBlackBody(t.planck, cct);
        source = t.planck;
    }
    double x, y;
    cie_XYZ(3, source, flat, X, Y, Z, &x, &y);
}

void Vantrel::get_illumination_XYZ(int row, double* xyz) const {
    for (int k = 0; k < 3; ++k) xyz[k] = whiteXYZ[row][k];
}

// ---------------------------------------------------------------------------------------------
// Stored metrics

void Vantrel::returnRvalues(double* values) const { std::memcpy(values, rValues, sizeof(rValues)); }

void Vantrel::returnQvalues(double* values) const { std::memcpy(values, qValues, sizeof(qValues)); }

void Vantrel::returnLabRvalues(double L[2][NUM_SAMPLES], double a[2][NUM_SAMPLES],
                               double b[2][NUM_SAMPLES]) const {
    std::memcpy(L, labR_L, sizeof(labR_L));
    std::memcpy(a, labR_a, sizeof(labR_a));
    std::memcpy(b, labR_b, sizeof(labR_b));
}

void Vantrel::returnLabQvalues(double L[2][NUM_SAMPLES], double a[2][NUM_SAMPLES],
                               double b[2][NUM_SAMPLES]) const {
    std::memcpy(L, labQ_L, sizeof(labQ_L));
    std::memcpy(a, labQ_a, sizeof(labQ_a));
    std::memcpy(b, labQ_b, sizeof(labQ_b));
}

void Vantrel::returnLabCESvalues(double L[2][NUM_CES], double a[2][NUM_CES],
                                 double b[2][NUM_CES]) const {
    std::memcpy(L, tab->labCES_L, sizeof(tab->labCES_L));
    std::memcpy(a, tab->labCES_a, sizeof(tab->labCES_a));
    std::memcpy(b, tab->labCES_b, sizeof(tab->labCES_b));
}

// Samples 1 to 15 of both rows, shifted down to positions 0 to 14.
void Vantrel::get_CRI_uv_prime(double** u, double** v) const {
    for (int row = 0; row < 2; ++row) {
        for (int k = 1; k < NUM_SAMPLES; ++k) {
            u[row][k - 1] = criU[row][k];
            v[row][k - 1] = criVp[row][k];
        }
    }
}

void Vantrel::get_CQS_uv_prime(double** u, double** v) const {
    for (int row = 0; row < 2; ++row) {
        for (int k = 1; k < NUM_SAMPLES; ++k) {
            u[row][k - 1] = cqsU[row][k];
            v[row][k - 1] = cqsVp[row][k];
        }
    }
}

// ---------------------------------------------------------------------------------------------
// Curve readers by grid index; 0 off the grid.

namespace {
double at(const double* curve, int i) { return (i >= 0 && i < N) ? curve[i] : 0.0; }
}  // namespace

double Vantrel::getPhotopicCurveData(int i) const {
    return at(ref->ybar[observer == 3 ? 3 : 0], i);
}
double Vantrel::getScotopicCurveData(int i) const { return at(ref->vPrime, i); }
double Vantrel::get_xbar_CurveData(int i) const { return at(ref->xbar[observer], i); }
double Vantrel::get_ybar_CurveData(int i) const { return at(ref->ybar[observer], i); }
double Vantrel::get_zbar_CurveData(int i) const { return at(ref->zbar[observer], i); }

double Vantrel::getPhotopicCurveData_1931_2_deg(int i) const { return at(ref->ybar[0], i); }
double Vantrel::get_xbar_CurveData_1931_2_deg(int i) const { return at(ref->xbar[0], i); }
double Vantrel::get_ybar_CurveData_1931_2_deg(int i) const { return at(ref->ybar[0], i); }
double Vantrel::get_zbar_CurveData_1931_2_deg(int i) const { return at(ref->zbar[0], i); }
double Vantrel::getPhotopicCurveData_1960_10_deg(int i) const { return at(ref->ybar[1], i); }
double Vantrel::get_xbar_CurveData_1960_10_deg(int i) const { return at(ref->xbar[1], i); }
double Vantrel::get_ybar_CurveData_1960_10_deg(int i) const { return at(ref->ybar[1], i); }
double Vantrel::get_zbar_CurveData_1960_10_deg(int i) const { return at(ref->zbar[1], i); }
double Vantrel::getPhotopicCurveData_2015_2_deg(int i) const { return at(ref->ybar[2], i); }
double Vantrel::get_xbar_CurveData_2015_2_deg(int i) const { return at(ref->xbar[2], i); }
double Vantrel::get_ybar_CurveData_2015_2_deg(int i) const { return at(ref->ybar[2], i); }
double Vantrel::get_zbar_CurveData_2015_2_deg(int i) const { return at(ref->zbar[2], i); }
double Vantrel::getPhotopicCurveData_2015_10_deg(int i) const { return at(ref->ybar[3], i); }
double Vantrel::get_xbar_CurveData_2015_10_deg(int i) const { return at(ref->xbar[3], i); }
double Vantrel::get_ybar_CurveData_2015_10_deg(int i) const { return at(ref->ybar[3], i); }
double Vantrel::get_zbar_CurveData_2015_10_deg(int i) const { return at(ref->zbar[3], i); }

// ---------------------------------------------------------------------------------------------
// Reference data access

void Vantrel::getTCSdata(double** rows) const {
    for (int k = 1; k < NUM_SAMPLES; ++k) std::memcpy(rows[k], ref->tcs[k], sizeof(ref->tcs[k]));
}

void Vantrel::getVSdata(double** rows) const {
    for (int k = 1; k < NUM_SAMPLES; ++k) std::memcpy(rows[k], ref->vs[k], sizeof(ref->vs[k]));
}

void Vantrel::getColorCheckerData(double** rows) const { data.defineCHvalues(rows); }

void Vantrel::defineCESvalues(int* types, double** rows) const {
    for (int k = 0; k < NUM_CES; ++k) {
        types[k] = ref->cesTypes[k];
        std::memcpy(rows[k], ref->ces[k], sizeof(ref->ces[k]));
    }
}

void Vantrel::defineColorNameIndicies(int* types) const {
    std::memcpy(types, ref->cesTypes, sizeof(ref->cesTypes));
}

void Vantrel::defineBlackBodyline(int* count4000K, int* count5000K, double* x, double* y) const {
    data.defineBlackBodyline(count4000K, count5000K, x, y);
}

void Vantrel::defineBlackBodyline_2015_10Deg(int* count4000K, int* count5000K, double* x,
                                             double* y) const {
    data.defineBlackBodyline_2015_10Deg(count4000K, count5000K, x, y);
}
