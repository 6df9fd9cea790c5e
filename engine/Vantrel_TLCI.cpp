// Television Lighting Consistency Index TLCI-2012 (EBU Tech 3355): the ColorChecker seen by the
// EBU standard camera under the test and the reference luminaire, shown on a BT.709 display and
// compared by CIEDE2000. Everything runs on the 77-point grid of the EBU tables (380 to 760 nm in
// 5 nm steps); spectra on the engine grid are box-averaged onto it first.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ColorMatrices.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int TLCI_POINTS = VantrelData::NUM_TLCI;
constexpr int PATCHES = VantrelData::NUM_COLOR_CHECKER;
constexpr int SECTORS = 12;
// Patches 1 to 18 are scored; patch 19 is the white the camera is balanced on, 20 to 24 the
// greys, computed for the displays but not scored.
constexpr int SCORED = 18;
constexpr int WHITE_PATCH = 18;
constexpr double WHITE_REFLECTANCE = 0.9;
constexpr int k560nm = 36;
constexpr double FIRST_NM = 380.0;
constexpr double STEP_NM = 5.0;
constexpr double LAST_NM = 760.0;
constexpr double ENGINE_FIRST_NM = 360.0;
constexpr double ENGINE_STEP_NM = 2.0;

// The display white of the colour difference: synthetic daylight at 6500 K.
constexpr double LAB_WHITE_CCT = 6500.0;
// Reference luminaire: Planck below 3400 K, CIE daylight above 5000 K, a mix between.
constexpr double PLANCK_BELOW = 3400.0;
constexpr double DAYLIGHT_ABOVE = 5000.0;

// Planck's law relative to 560 nm: c2 = 1.435e7 nm·K as EBU Tech 3355 writes it, and
// c2 / 560 nm = 25625 K.
constexpr double C2 = 1.435e7;
constexpr double C2_OVER560 = 25625.0;

// EBU standard camera linear matrix (EBU Tech 3355 1.3.2).
constexpr double CAMERA_MATRIX[3][3] = {
    {1.182, -0.209, 0.027}, {0.107, 0.89, 0.003}, {0.04, -0.134, 1.094}};
// Mild desaturation of the camera signals: each channel keeps 14/15 of itself and takes 1/30 of
// each of the others, written with the digits the published results were made with.
constexpr double SATURATION_SELF = 0.9333333333333;
constexpr double SATURATION_OTHER = 0.0333333333333;
// BT.709 opto-electronic transfer and the display's pure power law.
constexpr double OETF_BREAK = 0.018;
constexpr double OETF_LINEAR = 4.5;
constexpr double OETF_GAIN = 1.099;
constexpr double OETF_EXPONENT = 0.45;
constexpr double OETF_OFFSET = 0.099;
constexpr double DISPLAY_GAMMA = 2.4;
// BT.709 primaries with a D65 white, to XYZ (Y of the display white = 1).
constexpr double DISPLAY_TO_XYZ[3][3] = {
    {0.412391, 0.357584, 0.180481}, {0.212639, 0.715169, 0.072192}, {0.019331, 0.119195, 0.950532}};

// Qa = 100 / (1 + (ΔEa / 3.16)^2.4), ΔEa the fourth-power mean of the patches' CIEDE2000.
constexpr double DELTA_E_SCALE = 3.16;
constexpr double QA_EXPONENT = 2.4;
constexpr double CIEDE2000K = 1.0;

// Hue sectors of 30°, sector 0 centred on the display's red (BT.709 colour difference).
constexpr double LUMA_R = 0.2126;
constexpr double LUMA_G = 0.7152;
constexpr double LUMA_B = 0.0722;
constexpr double CR_SCALE = 0.635;
constexpr double CB_SCALE = 0.5389;
constexpr double RAD_TO_DEG_TLCI = 57.29577951308238;
constexpr double CB_TINY = 1e-6;
constexpr int SECTOR_HALF_WIDTH = 15;
constexpr int SECTOR_WIDTH = 30;
// Per-sector errors are scaled like ΔEa, shown within ±15 and otherwise marked unknown.
constexpr double SECTOR_GAIN = 6.0;
constexpr double SECTOR_EMPTY = 1000.0;
constexpr int SECTOR_LIMIT = 15;
constexpr int SECTOR_UNKNOWN = 1000;

// Colour offset D: Duv in units of 0.00541, with an allowance growing through 4000 to 5000 K.
constexpr double DUV_UNIT = 0.00541;
constexpr double ALLOWANCE_LOW = 4000.0;
constexpr double ALLOWANCE_HIGH = 5000.0;
constexpr double ALLOWANCE_PER_KK = 0.9;

// Trace columns: the camera stages of test [t] and reference [r], then what
// get_CIEDE2000_from_XYZ writes. The camera balances first and applies its matrix after, so the
// matrixed columns (m, clipped into 0..1) come later in the chain than the balanced ones (wb)
// that follow them in the table.
constexpr const char* COLOUR_HEADER =
    "color\t"
    "Rc[t]\tGc[t]\tBc[t]\tRc[r]\tGc[r]\tBc[r]\t"
    "Rm[t]\tGm[t]\tBm[t]\tRm[r]\tGm[r]\tBm[r]\t"
    "Rwb[t]\tGwb[t]\tBwb[t]\tRwb[r]\tGwb[r]\tBwb[r]\t"
    "Rs[t]\tGs[t]\tBs[t]\tRs[r]\tGs[r]\tBs[r]\t"
    "Rcp[t]\tGcp[t]\tBcp[t]\tRcp[r]\tGcp[r]\tBcp[r]\t"
    "Rd[t]\tGd[t]\tBd[t]\tRd[r]\tGd[r]\tBd[r]\t"
    "X[t]\tY[t]\tZ[t]\tx[t]\ty[t]\tX[r]\tY[r]\tZ[r]\tx[r]\ty[r]\t"
    "L*[t]\ta*[t]\tb*[t]\tC*[t]\tL*[r]\ta*[r]\tb*[r]\tC*[r]\tCp[t]\tCp[r]\tG\th[t]\th[r]\t"
    "ap[t]\tap[r]\tSl\tSc\tSh\tT\tRc\tRt\tdTheta\tdL/k/Sl\tdC/k/Sc\tdH/k/Sh\tdE*";

const char* const HUE_NAMES[SECTORS] = {"R", "R/Y", "Y", "Y/G", "G", "G/C",
                                        "C", "C/B", "B", "B/M", "M", "M/R"};

using color_matrices::multiply;

void scale(double* s, double factor) {
    for (int i = 0; i < TLCI_POINTS; ++i) s[i] *= factor;
}

// A spectrum relative to its value at 560 nm; one without light there is left as it is, since
// the white balance makes the score independent of scale anyway.
void normalizeAt560(double* s) {
    if (s[k560nm] != 0.0) scale(s, 1.0 / s[k560nm]);
}

// The three camera signals of one patch: three sum3Products_5nm, bit for bit, in one pass so
// the three running sums overlap instead of waiting on each other.
void cameraSignals(const double* s, const double* patch, const double (*camera)[TLCI_POINTS],
                   double* out) {
    double sum[3];
    const int e = TLCI_POINTS - 1;
    for (int c = 0; c < 3; ++c) {
        sum[c] = 0.5 * (s[0] * patch[0] * camera[c][0] + s[e] * patch[e] * camera[c][e]);
    }
    for (int i = 0; i < TLCI_POINTS; ++i) {
        const double lit = s[i] * patch[i];
        sum[0] += lit * camera[0][i];
        sum[1] += lit * camera[1][i];
        sum[2] += lit * camera[2][i];
    }
    for (int c = 0; c < 3; ++c) out[c] = sum[c];
}

double qualityOf(double dE) { return 100.0 / (1.0 + std::pow(dE / DELTA_E_SCALE, QA_EXPONENT)); }

// The camera, display and colour-difference stages of one patch under one luminaire.
struct Stages {
    double raw[3], matrixed[3], balanced[3], saturated[3], encoded[3], display[3], XYZ[3];
};
}  // namespace

// ---------------------------------------------------------------------------------------------
// Building blocks

double Vantrel::sum3Products_5nm(const double* a, const double* b, const double* c) {
    // The engine's integration rule on the 77-point grid: the two end points weigh 1.5.
    double sum =
        0.5 * (a[0] * b[0] * c[0] + a[TLCI_POINTS - 1] * b[TLCI_POINTS - 1] * c[TLCI_POINTS - 1]);
    for (int i = 0; i < TLCI_POINTS; ++i) sum += a[i] * b[i] * c[i];
    return sum;
}

void Vantrel::getXYZ_TLCI(const double* spectrum, const double* reflectance, const double* xbar,
                          const double* ybar, const double* zbar, double* X, double* Y, double* Z) {
    *X = sum3Products_5nm(spectrum, reflectance, xbar);
    *Y = sum3Products_5nm(spectrum, reflectance, ybar);
    *Z = sum3Products_5nm(spectrum, reflectance, zbar);
}

bool Vantrel::convert2nmTo5nm_TLCI(const double* in, double* out) {
    double wl[NUM_GRID_POINTS];
    for (int i = 0; i < NUM_GRID_POINTS; ++i) wl[i] = ENGINE_FIRST_NM + ENGINE_STEP_NM * i;
    return resampleSpectrum(NUM_GRID_POINTS, wl, in, FIRST_NM, LAST_NM, STEP_NM, nullptr, out);
}

void Vantrel::blackBody_TLCI(double T, double* s) {
    const double at560 = std::exp(C2_OVER560 / T) - 1.0;
    for (int i = 0; i < TLCI_POINTS; ++i) {
        const double nm = FIRST_NM + STEP_NM * i;
        s[i] = std::pow(560.0 / nm, 5.0) * at560 / (std::exp(C2 / nm / T) - 1.0);
    }
}

// CIE 15 daylight as getSyntheticDaylight computes it (x_D branch at 7000 K, unrounded M1, M2),
// on the EBU tables of S0, S1, S2.
void Vantrel::getSyntheticDaylight_TLCI(const double* S0, const double* S1, const double* S2,
                                        double* s, double T) {
    double M1, M2;
    daylightFactors(T, &M1, &M2);
    for (int i = 0; i < TLCI_POINTS; ++i) s[i] = S0[i] + M1 * S1[i] + M2 * S2[i];
}

void Vantrel::cameraMatrix(double R, double G, double B, double* Rm, double* Gm, double* Bm) {
    const double in[3] = {R, G, B};
    double out[3];
    multiply(CAMERA_MATRIX, in, out);
    *Rm = out[0];
    *Gm = out[1];
    *Bm = out[2];
}

void Vantrel::forceIntoGamut(double* v) {
    if (*v > 1.0) *v = 1.0;
    if (*v < 0.0) *v = 0.0;
}

void Vantrel::saturation_TLCI(double R, double G, double B, double* Rs, double* Gs, double* Bs) {
    *Rs = SATURATION_SELF * R + SATURATION_OTHER * G + SATURATION_OTHER * B;
    *Gs = SATURATION_OTHER * R + SATURATION_SELF * G + SATURATION_OTHER * B;
    *Bs = SATURATION_OTHER * R + SATURATION_OTHER * G + SATURATION_SELF * B;
}

void Vantrel::get_RpcGpcBpc_TLCI(double v, double* out) {
    *out = v > OETF_BREAK ? OETF_GAIN * std::pow(v, OETF_EXPONENT) - OETF_OFFSET : OETF_LINEAR * v;
}

void Vantrel::XYZ_from_display_TLCI(double R, double G, double B, double* X, double* Y, double* Z) {
    const double in[3] = {R, G, B};
    double out[3];
    multiply(DISPLAY_TO_XYZ, in, out);
    *X = out[0];
    *Y = out[1];
    *Z = out[2];
}

int Vantrel::getHueSector_TLCI_2012(double R, double G, double B, int* reference) {
    const double Y = LUMA_R * R + LUMA_G * G + LUMA_B * B;
    const double Cr = CR_SCALE * (R - Y);
    const double Cb = CB_SCALE * (B - Y);
    int hue = 0;
    // A colour without a number (a spectrum that overflowed) stays in the reference sector.
    if (std::fabs(Cb) >= CB_TINY && std::isfinite(Cr)) {
        hue = static_cast<int>(RAD_TO_DEG_TLCI * std::atan(Cr / Cb));
        if (Cb < 0.0) hue += 180;
        if (Cb > 0.0 && Cr < 0.0) hue += 360;
    }
    if (*reference == 0) *reference = hue;
    int h = (hue + SECTOR_HALF_WIDTH - *reference) % 360;
    if (h < 0) h += 360;
    return h / SECTOR_WIDTH;
}

double Vantrel::getD_TLCI_2012(double cct, double duv) {
    const double D = duv / DUV_UNIT;
    if (!(cct > ALLOWANCE_LOW && cct < ALLOWANCE_HIGH)) return D;
    if (D > 0.0) return ALLOWANCE_PER_KK * (ALLOWANCE_HIGH - cct) / 1000.0 + D;
    return D - ALLOWANCE_PER_KK * (cct - ALLOWANCE_LOW) / 1000.0;
}

void Vantrel::getTLCI_2012_hue_name_4_char(int sector, char* name) {
    std::memset(name, 0, 4);
    if (sector >= 0 && sector < SECTORS) std::strcpy(name, HUE_NAMES[sector]);
}

// ---------------------------------------------------------------------------------------------
// Shared tables

void Vantrel::buildTLCIReference(const VantrelData& data, Reference* r) {
    data.get_xyz_bar_TLCI(r->tlciXbar, r->tlciYbar, r->tlciZbar);
    data.getDaylightCoefficients_TLCI(r->tlciS0, r->tlciS1, r->tlciS2);
    data.defineEBUvalues(r->tlciCamera[0], r->tlciCamera[1], r->tlciCamera[2]);
    double* patchRows[PATCHES];
    for (int p = 0; p < PATCHES; ++p) patchRows[p] = r->tlciPatch[p];
    data.defineCHvalues(patchRows);
    for (int i = 0; i < TLCI_POINTS; ++i) r->tlciPatch[WHITE_PATCH][i] = WHITE_REFLECTANCE;

    // White of the colour difference: the display white, daylight at 6500 K, with Y = 1.
    double d6500[TLCI_POINTS], flat[TLCI_POINTS];
    getSyntheticDaylight_TLCI(r->tlciS0, r->tlciS1, r->tlciS2, d6500, LAB_WHITE_CCT);
    for (int i = 0; i < TLCI_POINTS; ++i) flat[i] = 1.0;
    double Xn, Yn, Zn;
    getXYZ_TLCI(d6500, flat, r->tlciXbar, r->tlciYbar, r->tlciZbar, &Xn, &Yn, &Zn);
    r->tlciXn = Xn / Yn;
    r->tlciYn = 1.0;
    r->tlciZn = Zn / Yn;
}

// ---------------------------------------------------------------------------------------------
// Qa, in steps: the two luminaires, the camera and display, the score, the hue sectors, and the
// trace written from what the steps kept.

namespace {
// The shared tables one evaluation reads.
struct TlciTables {
    const double* S0;
    const double* S1;
    const double* S2;
    const double (*camera)[TLCI_POINTS];
    const double (*patch)[TLCI_POINTS];
    double Xn, Yn, Zn;
};

// Everything one evaluation computes, for the score, the figures and the trace.
struct TlciRun {
    double s[2][TLCI_POINTS];  // test [0] and reference [1] luminaire on the 5 nm grid
    Stages st[PATCHES][2];
    double whiteMatrixed[2][3];  // each luminaire's colour as the camera sees it
    bool gamut[PATCHES];
    CIELab lab[SCORED][2];
    CIEDE2000Terms terms[SCORED];
    double Qa;
    int sectorOf[SCORED];
};

// The test luminaire and its reference (given, or by CCT: Planck below 3400 K, daylight above
// 5000 K, a mix in CCT between), each relative to 560 nm.
void luminaires(const TlciTables& t, const double* spectrum, const double* reference, double cct,
                double (&s)[2][TLCI_POINTS]) {
    bool blended = false;
    if (reference != nullptr) {
        Vantrel::convert2nmTo5nm_TLCI(reference, s[1]);
    } else if (cct < PLANCK_BELOW) {
        Vantrel::blackBody_TLCI(cct, s[1]);
    } else if (cct > DAYLIGHT_ABOVE) {
        Vantrel::getSyntheticDaylight_TLCI(t.S0, t.S1, t.S2, s[1], cct);
    } else {
        // Fixed end spectra, each relative to 560 nm, mixed linearly in CCT.
        double d5000[TLCI_POINTS], p3400[TLCI_POINTS];
        Vantrel::getSyntheticDaylight_TLCI(t.S0, t.S1, t.S2, d5000, DAYLIGHT_ABOVE);
        Vantrel::blackBody_TLCI(PLANCK_BELOW, p3400);
        const double f = (cct - PLANCK_BELOW) / (DAYLIGHT_ABOVE - PLANCK_BELOW);
        for (int i = 0; i < TLCI_POINTS; ++i) {
            s[1][i] = f * d5000[i] / d5000[k560nm] + (1.0 - f) * p3400[i] / p3400[k560nm];
        }
        blended = true;
    }
    Vantrel::convert2nmTo5nm_TLCI(spectrum, s[0]);
    if (!blended) {
        normalizeAt560(s[0]);
        normalizeAt560(s[1]);
    }
}

// The camera signals of every patch, balanced on the white patch, through the matrix (a patch
// outside 0..1 is clipped and, when scored, out of gamut), and on to the display and XYZ. The
// unscored patches go past the matrix only when displays are wanted.
void cameraAndDisplay(const TlciTables& t, bool wantsDisplays, TlciRun* run) {
    double white[2][3];
    for (int p = 0; p < PATCHES; ++p) {
        for (int j = 0; j < 2; ++j) {
            cameraSignals(run->s[j], t.patch[p], t.camera, run->st[p][j].raw);
            if (p == WHITE_PATCH) std::memcpy(white[j], run->st[p][j].raw, sizeof(white[j]));
        }
    }
    for (int j = 0; j < 2; ++j) {
        Vantrel::cameraMatrix(white[j][0], white[j][1], white[j][2], &run->whiteMatrixed[j][0],
                              &run->whiteMatrixed[j][1], &run->whiteMatrixed[j][2]);
    }
    for (int p = 0; p < PATCHES; ++p) {
        for (int j = 0; j < 2; ++j) {
            Stages& st = run->st[p][j];
            for (int c = 0; c < 3; ++c) st.balanced[c] = st.raw[c] / white[j][c];
            Vantrel::cameraMatrix(st.balanced[0], st.balanced[1], st.balanced[2], &st.matrixed[0],
                                  &st.matrixed[1], &st.matrixed[2]);
            // Set for each luminaire in turn, so the reference's verdict is the one kept: a
            // patch the reference itself cannot show is not held against the test.
            run->gamut[p] = true;
            bool outside = false;
            for (double v : st.matrixed) outside = outside || v > 1.0 || v < 0.0;
            if (outside) {
                if (p < SCORED) run->gamut[p] = false;
                for (int c = 0; c < 3; ++c) Vantrel::forceIntoGamut(&st.matrixed[c]);
            }
            if (p >= SCORED && !wantsDisplays) continue;
            Vantrel::saturation_TLCI(st.matrixed[0], st.matrixed[1], st.matrixed[2],
                                     &st.saturated[0], &st.saturated[1], &st.saturated[2]);
            for (int c = 0; c < 3; ++c) {
                Vantrel::get_RpcGpcBpc_TLCI(st.saturated[c], &st.encoded[c]);
                st.display[c] = std::pow(st.encoded[c], DISPLAY_GAMMA);
            }
            Vantrel::XYZ_from_display_TLCI(st.display[0], st.display[1], st.display[2], &st.XYZ[0],
                                           &st.XYZ[1], &st.XYZ[2]);
        }
    }
}

// CIEDE2000 of each scored patch against the display white, and Qa from the fourth-power mean
// of the patches in gamut (TLCI_FAILED when none is).
void score(const TlciTables& t, TlciRun* run) {
    double sum = 0.0;
    int count = 0;
    for (int p = 0; p < SCORED; ++p) {
        for (int j = 0; j < 2; ++j) {
            const double* XYZ = run->st[p][j].XYZ;
            CIELab& lab = run->lab[p][j];
            Vantrel::get_CIELab_from_XYZ(XYZ[0], XYZ[1], XYZ[2], t.Xn, t.Yn, t.Zn, &lab.L, &lab.a,
                                         &lab.b);
        }
        run->terms[p] = Vantrel::ciede2000(run->lab[p][0], run->lab[p][1],
                                           CIEDE2000Weights{CIEDE2000K, CIEDE2000K, CIEDE2000K});
        if (run->gamut[p]) {
            const double d2 = run->terms[p].dE * run->terms[p].dE;
            sum += d2 * d2;
            ++count;
        }
    }
    run->Qa = count > 0 ? qualityOf(std::pow(sum / count, 0.25)) : Vantrel::TLCI_FAILED;
}

// The correction each 30° hue sector of the test needs: the mean scaled dL, dC, dH of its
// patches in gamut, a gap between two filled sectors taking their mean, shown truncated within
// ±15 with the sign turned (reference minus test), otherwise unknown.
void hueSectors(TlciRun* run, int** sectors) {
    int redHue = 0;
    Vantrel::getHueSector_TLCI_2012(1.0, 0.0, 0.0, &redHue);
    int inSector[SECTORS] = {};
    double sums[SECTORS][3] = {};
    bool unknown = run->Qa == Vantrel::TLCI_FAILED;
    for (int p = 0; p < SCORED; ++p) {
        const double* d = run->st[p][0].display;
        const int sector = Vantrel::getHueSector_TLCI_2012(d[0], d[1], d[2], &redHue);
        run->sectorOf[p] = sector;
        if (sector < 0 || sector >= SECTORS) {
            unknown = true;
            continue;
        }
        if (!run->gamut[p]) continue;
        ++inSector[sector];
        sums[sector][0] += run->terms[p].tL;
        sums[sector][1] += run->terms[p].tC;
        sums[sector][2] += run->terms[p].tH;
    }
    double value[SECTORS][3];
    for (int k = 0; k < SECTORS; ++k) {
        for (int c = 0; c < 3; ++c) {
            value[k][c] = inSector[k] == 0 ? SECTOR_EMPTY
                                           : SECTOR_GAIN * sums[k][c] / inSector[k] / DELTA_E_SCALE;
        }
    }
    for (int k = 0; k < SECTORS; ++k) {
        const int before = (k + SECTORS - 1) % SECTORS;
        const int after = (k + 1) % SECTORS;
        if (inSector[k] != 0 || inSector[before] == 0 || inSector[after] == 0) continue;
        for (int c = 0; c < 3; ++c) value[k][c] = 0.5 * (value[before][c] + value[after][c]);
    }
    for (int k = 0; k < SECTORS; ++k) {
        for (int c = 0; c < 3; ++c) {
            // Outside ±15 (or not a number) the sector is unknown; the test comes before the
            // truncation to int so that it stays defined.
            const double d = value[k][c];
            const int v = std::fabs(d) < SECTOR_LIMIT + 1 ? static_cast<int>(d) : SECTOR_UNKNOWN;
            sectors[k][c] = unknown ? Vantrel::getUnknown_TLCI_2012() : -v;
        }
    }
}

// The tab-separated trace: both spectra, the white point and the white as the camera sees it
// under each luminaire, every stage and colour-difference term of each scored patch, Qa, and
// with the sectors each patch's sector and quality.
void writeTrace(FILE* trace, const TlciTables& t, const TlciRun& run, bool withSectors) {
    std::fprintf(trace,
                 "nm\tspectrum[t]\tspectrum[r]\t\tt = test spectrum\t\tr = reference spectrum\n");
    for (int i = 0; i < TLCI_POINTS; ++i) {
        std::fprintf(trace, "%d\t%.6le\t%.6le\n", static_cast<int>(FIRST_NM + STEP_NM * i),
                     run.s[0][i], run.s[1][i]);
    }
    std::fprintf(trace, "\nWhite point\tXw\tYw\tZw\tRm[t]\tGm[t]\tBm[t]\tRm[r]\tGm[r]\tBm[r]\n");
    std::fprintf(trace, "\t%.6le\t%.6le\t%.6le", t.Xn, t.Yn, t.Zn);
    for (int j = 0; j < 2; ++j) {
        for (int c = 0; c < 3; ++c) std::fprintf(trace, "\t%.6le", run.whiteMatrixed[j][c]);
    }
    std::fprintf(trace, "\n\n%s\n", COLOUR_HEADER);
    for (int p = 0; p < SCORED; ++p) {
        const Stages& te = run.st[p][0];
        const Stages& re = run.st[p][1];
        std::fprintf(trace, "%d\t", p + 1);
        const double* cells[] = {te.raw,      re.raw,      te.matrixed,  re.matrixed,
                                 te.balanced, re.balanced, te.saturated, re.saturated,
                                 te.encoded,  re.encoded,  te.display,   re.display};
        for (const double* v : cells) {
            for (int c = 0; c < 3; ++c) std::fprintf(trace, "%.6le\t", v[c]);
        }
        for (const Stages* st : {&te, &re}) {
            double x, y;
            Vantrel::get_xy_XYZ(st->XYZ[0], st->XYZ[1], st->XYZ[2], &x, &y);
            for (double v : {st->XYZ[0], st->XYZ[1], st->XYZ[2], x, y})
                std::fprintf(trace, "%.6le\t", v);
        }
        Vantrel::writeCIEDE2000Trace(trace, run.lab[p][0], run.lab[p][1], run.terms[p]);
    }
    std::fprintf(trace, "\n\nQa =\t%.6le", run.Qa);
    if (withSectors) {
        std::fprintf(trace, "\n\nColor\tSector\tdE*\tQ");
        for (int p = 0; p < SCORED; ++p) {
            std::fprintf(trace, "\n%d\t", p + 1);
            if (!run.gamut[p]) {
                std::fprintf(trace, "out of gamut\tout of gamut\tout of gamut");
                continue;
            }
            char name[4];
            Vantrel::getTLCI_2012_hue_name_4_char(run.sectorOf[p], name);
            std::fprintf(trace, "%c%c%c\t%.6le\t%.4lf", name[0], name[1], name[2], run.terms[p].dE,
                         qualityOf(run.terms[p].dE));
        }
    }
    std::fprintf(trace, "\n");
}
}  // namespace

double Vantrel::getQa_TLCI_2012(const double* spectrum, const double* reference,
                                double cctIn) const {
    return getQa_TLCI_2012(spectrum, reference, cctIn, nullptr, nullptr, nullptr, nullptr, nullptr,
                           nullptr, nullptr);
}

double Vantrel::getQa_TLCI_2012(const double* spectrum, const double* reference, double cctIn,
                                double** R, double** G, double** B, double* referenceOut,
                                int** sectors, bool* inGamut, FILE* trace) const {
    const Reference& shared = *ref;
    const TlciTables tables{shared.tlciS0,    shared.tlciS1, shared.tlciS2, shared.tlciCamera,
                            shared.tlciPatch, shared.tlciXn, shared.tlciYn, shared.tlciZn};
    TlciRun run;
    luminaires(tables, spectrum, reference, cctIn, run.s);
    const bool wantsRGB = R != nullptr && G != nullptr && B != nullptr;
    cameraAndDisplay(tables, wantsRGB || trace != nullptr, &run);
    score(tables, &run);
    if (sectors != nullptr) hueSectors(&run, sectors);

    if (referenceOut != nullptr) std::memcpy(referenceOut, run.s[1], sizeof(run.s[1]));
    if (inGamut != nullptr) std::memcpy(inGamut, run.gamut, sizeof(run.gamut));
    if (wantsRGB) {
        for (int j = 0; j < 2; ++j) {
            for (int p = 0; p < PATCHES; ++p) {
                R[j][p] = run.st[p][j].encoded[0];
                G[j][p] = run.st[p][j].encoded[1];
                B[j][p] = run.st[p][j].encoded[2];
            }
        }
    }
    if (trace != nullptr) writeTrace(trace, tables, run, sectors != nullptr);
    return run.Qa;
}
