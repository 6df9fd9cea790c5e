// IES TM-30-18 colour rendition: the fidelity index Rf (identical to CIE 224:2017), the gamut
// index Rg, Rf,skin and the 16 hue bins behind the colour vector graphic, with the 99 colour
// evaluation samples (CES) or user reflectances. Colour appearance is CIECAM02 (Moroney et al.
// 2002) with the CAM02-UCS space of Luo, Cui and Li (2006), CIE 1964 10° observer throughout.
//
// This runs inside optimizers: nothing is allocated per call unless the colour count changes,
// and each spectrum's white and colour-matching products are prepared once per call.
#include <cmath>
#include <cstring>

#include "ColorMatrices.h"
#include "Grid.h"
#include "GridSum.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NB = Vantrel::TM30_NUM_BINS;
constexpr int NUM_ROWS = 2;  // 0 test, 1 reference
constexpr int OBSERVER_1931_2 = 0;
constexpr int OBSERVER_1964_10 = 1;

// IES TM-30-18: Planck up to 4000 K, CIE daylight from 5000 K, a linear blend of the two (each
// at Y = 1) between.
constexpr double PLANCK_ONLY_MAX_K = 4000.0;
constexpr double DAYLIGHT_ONLY_MIN_K = 5000.0;
constexpr double BLEND_SPAN_K = 1000.0;
// Beyond this |Duv| the source is not a white light and no reference is meaningful.
constexpr double MAX_DUV = 0.1;
// Rf = 10·ln(exp((100 − cf·ΔE)/10) + 1), cf = 6.73 in TM-30-18 and CIE 224:2017.
constexpr double FIDELITY_SCALE = 6.73;
// CES15 and CES18 (zero-based 14 and 17) are the two skin tones of Rf,skin.
constexpr int SKIN_CES_A = 14;
constexpr int SKIN_CES_B = 17;

// Hue bins: 16 of 22.5°; centre of bin j at (j + 0.5)·22.5°, written as −π/16 + (j + 1)·π/8.
constexpr double BIN_WIDTH_DEG = 22.5;
constexpr double BIN_CENTRE_OFFSET = -0.19634954084936188;
constexpr double BIN_WIDTH_RAD = 0.39269908169872375;
// Degrees to radians as the published TM-30 results were computed: 0.017453292519943278, one
// unit in the last place below pi / 180.
constexpr double DEG_TO_RAD_TM30 = 0.017453292519943278;
// A bin with fewer samples than this counts as empty.
constexpr double BIN_MIN_COUNT = 0.1;

// Columns of the bin table.
enum BinColumn {
    COL_COUNT = 0,
    COL_TEST_A = 1,        // mean test a'
    COL_TEST_B = 2,        // mean test b'
    COL_REF_A = 3,         // mean reference a'
    COL_REF_B = 4,         // mean reference b'
    COL_DELTA_E = 5,       // mean ΔE
    COL_REF_HUE = 6,       // mean reference hue, degrees while summing, radians after
    COL_SHIFT_A = 7,       // (test − reference) a' over the reference chroma
    COL_SHIFT_B = 8,       // (test − reference) b' over the reference chroma
    COL_REF_UNIT_A = 9,    // reference on the unit circle: cos h
    COL_REF_UNIT_B = 10,   // sin h
    COL_TEST_UNIT_A = 11,  // the test point of the distortion graphic
    COL_TEST_UNIT_B = 12,
    COL_RF_HUE = 13,        // Rf,hj
    COL_CHROMA_SHIFT = 14,  // Rcs,hj as a fraction
    // Columns 15 to 17 (a mean screen colour) are left at 0: the graphics colour the bins with
    // the fixed hue colours, and the per-sample colours are made on request.
};

// CIECAM02 under the fixed TM-30 viewing conditions: LA = 100 cd/m² (FL below), Yb = 20, average
// surround (c = 0.69, Nc = 1, F = 1) and complete adaptation, D = 1.
constexpr double FL = 0.7937005275461674;
constexpr double YB = 20.0;
constexpr double SURROUND_C = 0.69;
constexpr double ADAPTATION_D = 1.0;
// 50000/13 · Nc with Nc = 1; the eccentricity scale of the chroma correlate t.
constexpr double CHROMA_T_SCALE = 3846.153846153846;
constexpr double CAT02[3][3] = {
    {0.7328, 0.4296, -0.1624}, {-0.7036, 1.6975, 0.0061}, {0.0030, 0.0136, 0.9834}};
// Inverse of CAT02 to six digits, as published with CIECAM02 (Moroney et al. 2002).
constexpr double CAT02_INV[3][3] = {{1.096124, -0.278869, 0.182745},
                                    {0.454369, 0.473533, 0.072098},
                                    {-0.009628, -0.005698, 1.015326}};
// Hunt-Pointer-Estevez cone space.
constexpr double HPE[3][3] = {
    {0.38971, 0.68898, -0.07868}, {-0.22981, 1.18340, 0.04641}, {0.0, 0.0, 1.0}};

// CAM02-UCS (Luo et al. 2006): KL = 1, c1 = 0.007, c2 = 0.0228. J' = (1 + 100·c1)·J/(1 + c1·J)
// with the factor as computed in double; M' = ln(1 + c2·M)/c2.
constexpr double UCS_J_FACTOR = 1.7000000000000002;
constexpr double UCS_C1 = 0.007;
constexpr double UCS_C2 = 0.0228;
constexpr double UCS_INV_C2 = 43.859649122807014;

// Screen colours of the patches: CMCCAT2000 (Li et al. 2002) partial adaptation to D65 at a fixed
// degree D, the inverse at four digits, then sRGB primaries and a plain 2.2 display gamma.
constexpr double CMCCAT_INV[3][3] = {
    {1.0765, -0.2377, 0.1612}, {0.411, 0.5543, 0.0347}, {-0.011, -0.0134, 1.0243}};
constexpr double D65_WHITE[3] = {0.95048, 1.0, 1.0888};
constexpr double PATCH_D = 0.70633449968381;
constexpr double DISPLAY_GAMMA_INV = 0.45454545454545453;

// The 16 hue-bin colours of the TM-30-18 graphics.
constexpr double TM30_HUES_RED[NB] = {154, 173, 193, 206, 170, 135, 97,  85,
                                      109, 52,  67,  149, 130, 120, 155, 195};
constexpr double TM30_HUES_GREEN[NB] = {82,  102, 130, 171, 157, 154, 141, 186,
                                        169, 128, 121, 163, 128, 92,  128, 127};
constexpr double TM30_HUES_BLUE[NB] = {92,  87,  79,  102, 94,  93,  97,  158,
                                       161, 135, 151, 200, 157, 138, 148, 156};

using color_matrices::multiply;

// Rf, Rf,i and Rf,hj from a colour difference in CAM02-UCS.
double fidelityScore(double dE) {
    return 10.0 * std::log(std::exp((100.0 - FIDELITY_SCALE * dE) / 10.0) + 1.0);
}

// --- CIECAM02 -------------------------------------------------------------------------------

// n = Yb/Yw, background induction Nbb = Ncb = 0.725·(1/n)^0.2, base exponent z = 1.48 + √n.
double backgroundRatio(double Yw) { return YB / Yw; }
double inductionFactor(double n) { return 0.725 * std::pow(1.0 / n, 0.2); }
double baseExponent(double n) { return 1.48 + std::sqrt(n); }

// Post-adaptation compression of one cone response: 400·t/(27.13 + t) + 0.1, t = (FL·R'/100)^0.42.
// Negative responses are clipped first.
double compress(double R) {
    if (R < 0.0) R = 0.0;
    const double t = std::pow(0.01 * FL * R, 0.42);
    return 400.0 * t / (27.13 + t) + 0.1;
}

// Achromatic response A = (2Ra' + Ga' + Ba'/20 − 0.305)·Nbb.
double achromatic(const double* Ra, double Nbb) {
    return (2.0 * Ra[0] + Ra[1] + 0.05 * Ra[2] - 0.305) * Nbb;
}

// Eccentricity factor e_t = (cos(h + 2) + 3.8)/4, h in radians.
double eccentricity(double hDeg) { return 0.25 * (std::cos(hDeg * DEG_TO_RAD_TM30 + 2.0) + 3.8); }

// The white's part of CIECAM02, shared by every colour seen under it.
struct Cam02White {
    double gain[3];  // D·Yw/Rw + 1 − D per CAT02 channel
    double Nbb, cz, Aw, chromaTail, FL4;
};

Cam02White cam02White(double Xw, double Yw, double Zw) {
    Cam02White w;
    const double xyzW[3] = {Xw, Yw, Zw};
    double rgbW[3];
    multiply(CAT02, xyzW, rgbW);
    for (int c = 0; c < 3; ++c) w.gain[c] = Yw * ADAPTATION_D / rgbW[c] + 1.0 - ADAPTATION_D;
    const double n = backgroundRatio(Yw);
    w.Nbb = inductionFactor(n);
    w.cz = SURROUND_C * baseExponent(n);
    w.chromaTail = std::pow(1.64 - std::pow(0.29, n), 0.73);
    w.FL4 = std::pow(FL, 0.25);

    double adapted[3], cone[3], Ra[3];
    for (int c = 0; c < 3; ++c) adapted[c] = w.gain[c] * rgbW[c];
    double xyzAdapted[3];
    multiply(CAT02_INV, adapted, xyzAdapted);
    multiply(HPE, xyzAdapted, cone);
    for (int c = 0; c < 3; ++c) Ra[c] = compress(cone[c]);
    w.Aw = achromatic(Ra, w.Nbb);
    return w;
}

// CIECAM02 J, M, h and their CAM02-UCS J', a', b' for one colour.
void cam02Ucs(const Cam02White& w, double X, double Y, double Z, double* Jab) {
    const double xyz[3] = {X, Y, Z};
    double rgb[3], adapted[3], xyzAdapted[3], cone[3], Ra[3];
    multiply(CAT02, xyz, rgb);
    for (int c = 0; c < 3; ++c) adapted[c] = w.gain[c] * rgb[c];
    multiply(CAT02_INV, adapted, xyzAdapted);
    multiply(HPE, xyzAdapted, cone);
    for (int c = 0; c < 3; ++c) Ra[c] = compress(cone[c]);

    const double a = Ra[0] - 12.0 * Ra[1] / 11.0 + Ra[2] / 11.0;
    const double b = (Ra[0] + Ra[1] - 2.0 * Ra[2]) / 9.0;
    const double A = achromatic(Ra, w.Nbb);
    const double J = 100.0 * std::pow(A / w.Aw, w.cz);
    double h = std::atan2(b, a) * angle::RAD_TO_DEG;
    if (h < 0.0) h += 360.0;
    const double t = CHROMA_T_SCALE * w.Nbb * eccentricity(h) * std::sqrt(a * a + b * b) /
                     (Ra[0] + Ra[1] + 1.05 * Ra[2]);
    const double C = std::pow(t, 0.9) * std::sqrt(J / 100.0) * w.chromaTail;
    const double M = C * w.FL4;

    const double Mp = UCS_INV_C2 * std::log(1.0 + UCS_C2 * M);
    Jab[0] = UCS_J_FACTOR * J / (1.0 + UCS_C1 * J);
    Jab[1] = Mp * std::cos(h * DEG_TO_RAD_TM30);
    Jab[2] = Mp * std::sin(h * DEG_TO_RAD_TM30);
}

// --- Tristimulus values ---------------------------------------------------------------------

// One spectrum prepared for the samples: the products S·x̄, S·ȳ, S·z̄ are formed once, so each
// sample needs one product per point and channel; k is applied last, as in k·sum3Products.
struct Illumination {
    double product[3][N];  // S·x̄, S·ȳ, S·z̄ on the 1964 10° observer
    double k;              // 100/Y of the source
    double white[3];       // Xw, Yw = 100, Zw
};

void prepareIllumination(const double* s, const double* const* cmf, Illumination* il) {
    for (int c = 0; c < 3; ++c) {
        for (int i = 0; i < N; ++i) il->product[c][i] = s[i] * cmf[c][i];
    }
    il->k = 100.0 / Vantrel::sum2Products(s, cmf[1]);
    il->white[0] = il->k * Vantrel::sum2Products(s, cmf[0]);
    il->white[1] = 100.0;
    il->white[2] = il->k * Vantrel::sum2Products(s, cmf[2]);
}

// X, Y, Z of a reflectance: each channel summed exactly as sum3Products sums (S·cmf)·R, ends at
// half weight added last, so the values are bit for bit k·sum3Products(S, cmf, R).
void sampleXYZ(const Illumination& il, const double* r, double* XYZ) {
    for (int c = 0; c < 3; ++c) {
        const double* p = il.product[c];
        const double ends = 0.5 * (p[0] * r[0] + p[N - 1] * r[N - 1]);
        XYZ[c] = il.k * (ends + grid_sum::dot(p, r));
    }
}

// --- Screen colours -------------------------------------------------------------------------

// Display gamma, scaling and limits of one linear channel; NaN (a black sample) gives 0.
int displayChannel(double linear) {
    if (!(linear > 0.0)) linear = 0.0;
    double v = std::pow(linear, DISPLAY_GAMMA_INV) * 255.0;
    if (v > 255.0) v = 255.0;
    return static_cast<int>(v);
}

// --- Hue bins -------------------------------------------------------------------------------

// Hue angle of a', b' in degrees, 0 to 360.
double hueDegrees(double a, double b) {
    double h = std::atan2(b, a) * angle::RAD_TO_DEG;
    if (h < 0.0) h += 360.0;
    return h;
}

// A hue of −tiny can round to exactly 360 after the +360 and stays in the last bin.
int hueBin(double hDeg) {
    if (!(hDeg >= 0.0)) return 0;
    const int bin = static_cast<int>(hDeg / BIN_WIDTH_DEG);
    return bin < NB ? bin : NB - 1;
}

// Means of a filled bin, then its shifts relative to the reference: the normalized offsets,
// the unit-circle points of the distortion graphic, Rf,hj, and the chroma and hue shifts
// projected on the bin centre hm. Returns the hue shift (radians).
double finishBin(double* row, int bin) {
    const double count = row[COL_COUNT];
    for (int c = COL_TEST_A; c <= COL_REF_HUE; ++c) row[c] /= count;
    row[COL_REF_HUE] *= DEG_TO_RAD_TM30;

    const double Cr = std::sqrt(row[COL_REF_A] * row[COL_REF_A] + row[COL_REF_B] * row[COL_REF_B]);
    row[COL_SHIFT_A] = (row[COL_TEST_A] - row[COL_REF_A]) / Cr;
    row[COL_SHIFT_B] = (row[COL_TEST_B] - row[COL_REF_B]) / Cr;
    row[COL_REF_UNIT_A] = std::cos(row[COL_REF_HUE]);
    row[COL_REF_UNIT_B] = std::sin(row[COL_REF_HUE]);
    row[COL_TEST_UNIT_A] = row[COL_REF_UNIT_A] + row[COL_SHIFT_A];
    row[COL_TEST_UNIT_B] = row[COL_REF_UNIT_B] + row[COL_SHIFT_B];
    row[COL_RF_HUE] = fidelityScore(row[COL_DELTA_E]);

    const double hm = BIN_CENTRE_OFFSET + BIN_WIDTH_RAD * (bin + 1);
    const double da = row[COL_TEST_UNIT_A] - row[COL_REF_UNIT_A];
    const double db = row[COL_TEST_UNIT_B] - row[COL_REF_UNIT_B];
    row[COL_CHROMA_SHIFT] = da * std::cos(hm) + db * std::sin(hm);
    return -da * std::sin(hm) + db * std::cos(hm);
}

bool validBin(int bin) { return bin >= 0 && bin < NB; }
}  // namespace

// ---------------------------------------------------------------------------------------------
// Reference illuminant

void Vantrel::getTM30ReferenceSpectrum(double cctIn, double* s) const {
    if (cctIn <= PLANCK_ONLY_MAX_K) {
        std::memcpy(s, blackBodyAt(cctIn), sizeof(double) * N);
        return;
    }
    if (cctIn >= DAYLIGHT_ONLY_MIN_K) {
        getSyntheticDaylight(s, cctIn);
        return;
    }
    // Both parts at the same luminance (CIE 1931 2° Y = 1) before they are mixed.
    const double* planck = blackBodyAt(cctIn);
    double daylight[N];
    getSyntheticDaylight(daylight, cctIn);
    const double* ybar = ref->ybar[OBSERVER_1931_2];
    const double Yp = sum2Products(planck, ybar);
    const double Yd = sum2Products(daylight, ybar);
    const double f = (DAYLIGHT_ONLY_MIN_K - cctIn) / BLEND_SPAN_K;
    for (int i = 0; i < N; ++i) s[i] = f * planck[i] / Yp + (1.0 - f) * daylight[i] / Yd;
}

// ---------------------------------------------------------------------------------------------
// Colour appearance and colour difference

void Vantrel::CalcCAM02(double Xw, double Yw, double Zw, double X, double Y, double Z,
                        double* Jab) {
    cam02Ucs(cam02White(Xw, Yw, Zw), X, Y, Z, Jab);
}

void Vantrel::Calc_DeltaE(int n, const double (*Jab)[2][3], double* dE, double* sum) {
    if (Jab == nullptr || dE == nullptr || sum == nullptr) return;
    double total = 0.0;
    for (int j = 0; j < n; ++j) {
        const double dJ = Jab[j][0][0] - Jab[j][1][0];
        const double da = Jab[j][0][1] - Jab[j][1][1];
        const double db = Jab[j][0][2] - Jab[j][1][2];
        dE[j] = std::sqrt(dJ * dJ + da * da + db * db);
        total += dE[j];
    }
    *sum = total;
}

void Vantrel::XYZ2RGB(const double* XYZ, double Xw, double Yw, double Zw, int* r, int* g, int* b) {
    // CMCCAT2000 on chromaticities (each colour at Y = 1), partial adaptation to D65, and the
    // sample's own Y put back.
    const double Y = XYZ[1];
    const double sample[3] = {XYZ[0] / Y, 1.0, XYZ[2] / Y};
    const double white[3] = {Xw / Yw, 1.0, Zw / Yw};
    double Rs[3], Rw[3], Rd65[3], adapted[3], xyz[3], linear[3];
    multiply(color_matrices::CMCCAT2000, sample, Rs);
    multiply(color_matrices::CMCCAT2000, white, Rw);
    multiply(color_matrices::CMCCAT2000, D65_WHITE, Rd65);
    for (int c = 0; c < 3; ++c) {
        adapted[c] = (PATCH_D * Rd65[c] / Rw[c] + 1.0 - PATCH_D) * Rs[c] * Y;
    }
    multiply(CMCCAT_INV, adapted, xyz);
    for (double& v : xyz) v /= 100.0;
    multiply(color_matrices::XYZ_TO_SRGB, xyz, linear);
    *r = displayChannel(linear[0]);
    *g = displayChannel(linear[1]);
    *b = displayChannel(linear[2]);
}

double Vantrel::polygonArea(const double (*table)[TM30_BIN_COLUMNS], int xColumn, int yColumn,
                            int n) {
    if (table == nullptr || n < 1 || xColumn < 0 || xColumn >= TM30_BIN_COLUMNS || yColumn < 0 ||
        yColumn >= TM30_BIN_COLUMNS) {
        return 0.0;
    }
    double sum = 0.0;
    for (int i = 0; i < n; ++i) {
        const int next = (i + 1) % n;
        sum += table[i][xColumn] * table[next][yColumn] - table[next][xColumn] * table[i][yColumn];
    }
    return std::fabs(sum) / 2.0;
}

// ---------------------------------------------------------------------------------------------
// The run

void Vantrel::cleanUpTM30() {
    tm30Jab.clear();
    tm30Rfi.clear();
    tm30XYZ.clear();
    tm30Count = 0;
}

void Vantrel::calculate_TM30(double duv, double cctIn, const double* spectrum) {
    calculate_TM30(duv, cctIn, spectrum, 0, nullptr);
}

void Vantrel::calculate_TM30(double duv, double cctIn, const double* spectrum, int n,
                             const double* const* colors) {
    const bool user = colors != nullptr && n >= 1;
    if (!user) n = NUM_CES;
    if (!beginTM30(duv, n)) return;
    double reference[N];
    getTM30ReferenceSpectrum(cctIn, reference);
    tm30Row(0, spectrum, n, user ? colors : nullptr);
    tm30Row(1, reference, n, user ? colors : nullptr);
    finishTM30(n, user);
}

bool Vantrel::beginTM30(double duv, int n) {
    tm30Rf = TM30_REFUSED;
    tm30Rg = TM30_REFUSED;
    tm30RfSkin = TM30_REFUSED;
    if (std::fabs(duv) > MAX_DUV) {
        tm30Error = true;
        return false;
    }
    tm30Error = false;

    if (n != tm30Count) {
        cleanUpTM30();
        tm30Jab.resize(static_cast<size_t>(n) * NUM_ROWS * 3);
        tm30Rfi.resize(n);
        tm30XYZ.resize(static_cast<size_t>(n) * NUM_ROWS * 3);
        tm30Count = n;
    }
    std::memset(tm30Bins, 0, sizeof(tm30Bins));
    std::memset(tm30HueShift, 0, sizeof(tm30HueShift));
    return true;
}

// White and sample XYZ of one row, at Y = 100 on the 1964 10° observer whatever observer is
// chosen. colors null: the 99 CES.
void Vantrel::tm30Row(int row, const double* spectrum, int n, const double* const* colors) {
    const double* cmf[3] = {ref->xbar[OBSERVER_1964_10], ref->ybar[OBSERVER_1964_10],
                            ref->zbar[OBSERVER_1964_10]};
    Illumination il;
    prepareIllumination(spectrum, cmf, &il);
    std::memcpy(tm30White[row], il.white, sizeof(il.white));
    auto* xyz = reinterpret_cast<double(*)[NUM_ROWS][3]>(tm30XYZ.data());
    for (int j = 0; j < n; ++j)
        sampleXYZ(il, colors != nullptr ? colors[j] : ref->ces[j], xyz[j][row]);
}

void Vantrel::finishTM30(int n, bool user) {
    // CIECAM02 of every sample; the screen colours are made from the XYZ only when asked for.
    const Cam02White cam[NUM_ROWS] = {
        cam02White(tm30White[0][0], tm30White[0][1], tm30White[0][2]),
        cam02White(tm30White[1][0], tm30White[1][1], tm30White[1][2])};
    auto* jab = reinterpret_cast<double(*)[NUM_ROWS][3]>(tm30Jab.data());
    const auto* xyz = reinterpret_cast<const double(*)[NUM_ROWS][3]>(tm30XYZ.data());
    for (int j = 0; j < n; ++j) {
        for (int row = 0; row < NUM_ROWS; ++row) {
            const double* XYZ = xyz[j][row];
            cam02Ucs(cam[row], XYZ[0], XYZ[1], XYZ[2], jab[j][row]);
        }
    }

    // ΔE lands in the Rf,i array and is turned into Rf,i there once it has been binned.
    double sumDE = 0.0;
    Calc_DeltaE(n, jab, tm30Rfi.data(), &sumDE);
    for (int j = 0; j < n; ++j) {
        const double* test = jab[j][0];
        const double* ref = jab[j][1];
        const double hRef = hueDegrees(ref[1], ref[2]);
        double* row = tm30Bins[hueBin(hRef)];
        row[COL_COUNT] += 1.0;
        row[COL_TEST_A] += test[1];
        row[COL_TEST_B] += test[2];
        row[COL_REF_A] += ref[1];
        row[COL_REF_B] += ref[2];
        row[COL_DELTA_E] += tm30Rfi[j];
        row[COL_REF_HUE] += hRef;
        tm30Rfi[j] = fidelityScore(tm30Rfi[j]);
    }
    for (int bin = 0; bin < NB; ++bin) {
        if (tm30Bins[bin][COL_COUNT] > BIN_MIN_COUNT)
            tm30HueShift[bin] = finishBin(tm30Bins[bin], bin);
    }

    // Gamut of the 16 bin means, test against reference; an empty bin stays at the origin.
    tm30Rg = 100.0 * polygonArea(tm30Bins, COL_TEST_A, COL_TEST_B, NB) /
             polygonArea(tm30Bins, COL_REF_A, COL_REF_B, NB);
    if (!user) tm30RfSkin = 0.5 * (tm30Rfi[SKIN_CES_A] + tm30Rfi[SKIN_CES_B]);
    tm30Rf = fidelityScore(sumDE / n);
}

// ---------------------------------------------------------------------------------------------
// Results

double Vantrel::getTM30JabValues(int color, int row, int component) const {
    if (color < 0 || color >= tm30Count || row < 0 || row >= NUM_ROWS || component < 0 ||
        component >= 3) {
        return 0.0;
    }
    return tm30Jab[(static_cast<size_t>(color) * NUM_ROWS + row) * 3 + component];
}

double Vantrel::getTM30Rfi(int color) const {
    return color >= 0 && color < tm30Count ? tm30Rfi[color] : 0.0;
}

void Vantrel::getTM30PatchColors(int n, int (*rgb)[2][3]) const {
    if (rgb == nullptr) return;
    const int count = n < tm30Count ? n : tm30Count;
    const auto* xyz = reinterpret_cast<const double(*)[NUM_ROWS][3]>(tm30XYZ.data());
    for (int j = 0; j < count; ++j) {
        for (int row = 0; row < NUM_ROWS; ++row) {
            const double* w = tm30White[row];
            XYZ2RGB(xyz[j][row], w[0], w[1], w[2], &rgb[j][row][0], &rgb[j][row][1],
                    &rgb[j][row][2]);
        }
    }
}

void Vantrel::getTM30HueRGB(double* r, double* g, double* b) const {
    if (r != nullptr) std::memcpy(r, TM30_HUES_RED, sizeof(TM30_HUES_RED));
    if (g != nullptr) std::memcpy(g, TM30_HUES_GREEN, sizeof(TM30_HUES_GREEN));
    if (b != nullptr) std::memcpy(b, TM30_HUES_BLUE, sizeof(TM30_HUES_BLUE));
}

void Vantrel::getTM30ChromaShiftsAsPercent(double* out) const {
    if (out == nullptr) return;
    for (int bin = 0; bin < NB; ++bin) out[bin] = 100.0 * tm30Bins[bin][COL_CHROMA_SHIFT];
}

void Vantrel::getTM30HueShifts(double* out) const {
    if (out != nullptr) std::memcpy(out, tm30HueShift, sizeof(tm30HueShift));
}

int Vantrel::getTM30NumInHueBin(int bin) const {
    return validBin(bin) ? static_cast<int>(tm30Bins[bin][COL_COUNT]) : 0;
}

void Vantrel::getTM30NumInHueBins(int* out) const {
    if (out == nullptr) return;
    for (int bin = 0; bin < NB; ++bin) out[bin] = static_cast<int>(tm30Bins[bin][COL_COUNT]);
}

void Vantrel::getTM30RfByHue(double* out) const {
    if (out == nullptr) return;
    for (int bin = 0; bin < NB; ++bin) out[bin] = std::trunc(0.5 + tm30Bins[bin][COL_RF_HUE]);
}

void Vantrel::getTM30GamutAreaPolygonPoints(int which, double* x, double* y) const {
    if (x == nullptr || y == nullptr) return;
    const int cx = which != 0 ? COL_REF_A : COL_TEST_A;
    const int cy = which != 0 ? COL_REF_B : COL_TEST_B;
    for (int bin = 0; bin < NB; ++bin) {
        x[bin] = tm30Bins[bin][cx];
        y[bin] = tm30Bins[bin][cy];
    }
}

void Vantrel::getTM30DistortionIconPoints(int which, double* x, double* y) const {
    if (x == nullptr || y == nullptr) return;
    const int cx = which != 0 ? COL_REF_UNIT_A : COL_TEST_UNIT_A;
    const int cy = which != 0 ? COL_REF_UNIT_B : COL_TEST_UNIT_B;
    for (int bin = 0; bin < NB; ++bin) {
        x[bin] = tm30Bins[bin][cx];
        y[bin] = tm30Bins[bin][cy];
    }
}
