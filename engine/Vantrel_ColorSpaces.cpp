// Colour spaces and colour difference (CIELAB, CIEDE2000, sRGB, HSV, HSL), mixing of three
// sources, photon counts and small spectrum tools.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "ColorMatrices.h"
#include "Grid.h"
#include "Vantrel.h"

namespace {

// CIE 15 CIELAB break point, (6/29)³, and the offset 16/116 of the linear segment. The
// constants are kept at the precision the stored Lab results were made with.
constexpr double LAB_EPSILON = 0.00885645;
constexpr double LAB_OFFSET = 0.13793103448275862;
constexpr double LAB_SLOPE = 7.787;
// Reverse: below L* of about 8 the linear segment Y/Yn = L*/κ with κ rounded to 903. The
// break and κ are kept as rounded; with them L* just below 8 does not round-trip exactly.
constexpr double LAB_BREAK_L = 7.9996247999999985;
constexpr double LAB_KAPPA = 903.0;

// 25⁷: chromas well above 25 get no a* stretch (G → 0) and the full blue rotation (RC → 2).
constexpr double k25Pow7 = 6103515625.0;
constexpr double HUE_TINY = 1e-6;

// Planck constant times the speed of light, h·c in J·m; a photon of λ nm carries
// h·c / (λ·1e-9) joules.
constexpr double PLANCK_TIMES_LIGHT = 1.9864456832693028e-25;

constexpr double GREY_TINY = 1e-6;
constexpr double THIRD = 0.3333333333333333;
constexpr double SIXTH = 0.16666666666666666;
constexpr double TWO_THIRDS = 0.6666666666666666;

double hueDegrees(double a, double b) {
    if (std::fabs(a) < HUE_TINY && std::fabs(b) < HUE_TINY) return 0.0;
    double h = std::atan2(b, a) / angle::DEG_TO_RAD;
    if (h < 0.0) h += 360.0;
    return h;
}

// Hue of the hexcone shared by HSV and HSL, in degrees 0..360; chroma must be non-zero.
double hexconeHue(double r, double g, double b, double max, double chroma) {
    double h;
    if (r == max) {
        h = (g - b) / chroma;
    } else if (g == max) {
        h = 2.0 + (b - r) / chroma;
    } else {
        h = 4.0 + (r - g) / chroma;
    }
    h *= 60.0;
    if (h < 0.0) h += 360.0;
    return h;
}
}  // namespace

// ---------------------------------------------------------------------------------------------
// CIELAB (CIE 15)

double Vantrel::varFunction(double t) {
    if (t > LAB_EPSILON) return std::pow(t, 0.33333333333333);
    return LAB_SLOPE * t + LAB_OFFSET;
}

double Vantrel::varFunction_1(double t) {
    const double cube = t * t * t;
    if (cube > LAB_EPSILON) return cube;
    return (t - LAB_OFFSET) / LAB_SLOPE;
}

void Vantrel::get_CIELab_from_XYZ(double X, double Y, double Z, double Xn, double Yn, double Zn,
                                  double* L, double* a, double* b) {
    const double fx = varFunction(X / Xn);
    const double fy = varFunction(Y / Yn);
    const double fz = varFunction(Z / Zn);
    *L = 116.0 * fy - 16.0;
    *a = 500.0 * (fx - fy);
    *b = 200.0 * (fy - fz);
}

void Vantrel::get_XYZ_from_CIELab(double L, double a, double b, double Xn, double Yn, double Zn,
                                  double* X, double* Y, double* Z) {
    double y;
    if (L < LAB_BREAK_L) {
        y = L / LAB_KAPPA;
    } else {
        const double fy = (16.0 + L) / 116.0;
        y = fy * fy * fy;
    }
    const double fy = varFunction(y);
    *X = Xn * varFunction_1(a / 500.0 + fy);
    *Y = Yn * y;
    *Z = Zn * varFunction_1(fy - b / 200.0);
}

void Vantrel::get_xy_from_CIELab(double L, double a, double b, double Xn, double Yn, double Zn,
                                 double* x, double* y) {
    double X, Y, Z;
    get_XYZ_from_CIELab(L, a, b, Xn, Yn, Zn, &X, &Y, &Z);
    get_xy_XYZ(X, Y, Z, x, y);
}

double Vantrel::get_dE_star_from_CIELab(double L1, double a1, double b1, double L2, double a2,
                                        double b2) {
    const double dL = L1 - L2, da = a1 - a2, db = b1 - b2;
    return std::sqrt(dL * dL + da * da + db * db);
}

// ---------------------------------------------------------------------------------------------
// CIEDE2000 (CIE 142; Sharma, Wu and Dalal 2005, equations 1 to 22)

CIEDE2000Terms Vantrel::ciede2000(const CIELab& first, const CIELab& second,
                                  const CIEDE2000Weights& k) {
    CIEDE2000Terms t;
    const double L1 = first.L, a1 = first.a, b1 = first.b;
    const double L2 = second.L, a2 = second.a, b2 = second.b;
    // a* is stretched for near-neutral colours to correct the blue-region hue non-linearity.
    t.C1 = std::sqrt(a1 * a1 + b1 * b1);
    t.C2 = std::sqrt(a2 * a2 + b2 * b2);
    const double Cmean = 0.5 * (t.C1 + t.C2);
    const double Cmean7 = std::pow(Cmean, 7.0);
    t.G = 0.5 * (1.0 - std::sqrt(Cmean7 / (Cmean7 + k25Pow7)));
    t.ap1 = (1.0 + t.G) * a1;
    t.ap2 = (1.0 + t.G) * a2;
    t.Cp1 = std::sqrt(t.ap1 * t.ap1 + b1 * b1);
    t.Cp2 = std::sqrt(t.ap2 * t.ap2 + b2 * b2);
    t.hp1 = hueDegrees(t.ap1, b1);
    t.hp2 = hueDegrees(t.ap2, b2);

    // Hue difference the short way round the circle; its sign cancels in ΔE.
    const double rawDh = t.hp1 - t.hp2;
    double dh = rawDh;
    if (dh > 180.0) dh -= 360.0;
    if (dh < -180.0) dh += 360.0;

    // Mean hue: for a neutral colour the hue is undefined (0) and the sum stands for the mean.
    const double CpProduct = t.Cp1 * t.Cp2;
    const double hueSum = t.hp1 + t.hp2;
    double hMean;
    if (std::fabs(CpProduct) < HUE_TINY) {
        hMean = hueSum;
    } else if (std::fabs(rawDh) > 180.0) {
        hMean = 0.5 * (hueSum < 360.0 ? hueSum + 360.0 : hueSum - 360.0);
    } else {
        hMean = 0.5 * hueSum;
    }

    t.dL = L1 - L2;
    t.dC = t.Cp1 - t.Cp2;
    t.dH = 2.0 * std::sqrt(CpProduct) * std::sin(0.5 * dh * angle::DEG_TO_RAD);

    const double Lmean = 0.5 * (L1 + L2);
    const double Cpmean = 0.5 * (t.Cp1 + t.Cp2);
    const double L50 = (Lmean - 50.0) * (Lmean - 50.0);
    t.T = 1.0 - 0.17 * std::cos((hMean - 30.0) * angle::DEG_TO_RAD) +
          0.24 * std::cos(2.0 * hMean * angle::DEG_TO_RAD) +
          0.32 * std::cos((3.0 * hMean + 6.0) * angle::DEG_TO_RAD) -
          0.20 * std::cos((4.0 * hMean - 63.0) * angle::DEG_TO_RAD);
    t.SL = 1.0 + 0.015 * L50 / std::sqrt(20.0 + L50);
    t.SC = 1.0 + 0.045 * Cpmean;
    t.SH = 1.0 + 0.015 * Cpmean * t.T;

    // Rotation term for the tilted blue ellipses, centred on hue 275°.
    const double hz = (hMean - 275.0) / 25.0;
    t.dTheta = 30.0 * std::exp(-hz * hz);
    const double Cpmean7 = std::pow(Cpmean, 7.0);
    t.RC = 2.0 * std::sqrt(Cpmean7 / (Cpmean7 + k25Pow7));
    t.RT = -std::sin(2.0 * t.dTheta * angle::DEG_TO_RAD) * t.RC;

    t.tL = t.dL / (k.kL * t.SL);
    t.tC = t.dC / (k.kC * t.SC);
    t.tH = t.dH / (k.kH * t.SH);
    t.dE = std::sqrt(t.tL * t.tL + t.tC * t.tC + t.tH * t.tH + t.RT * t.tC * t.tH);
    return t;
}

void Vantrel::writeCIEDE2000Trace(FILE* trace, const CIELab& first, const CIELab& second,
                                  const CIEDE2000Terms& t) {
    // L, a, b, C of each colour; C′ of each; G; h′ of each; a′ of each; SL, SC, SH, T, RC, RT,
    // Δθ; the three scaled differences; ΔE.
    const double fields[] = {first.L,  first.a, first.b, t.C1, second.L, second.a, second.b,
                             t.C2,     t.Cp1,   t.Cp2,   t.G,  t.hp1,    t.hp2,    t.ap1,
                             t.ap2,    t.SL,    t.SC,    t.SH, t.T,      t.RC,     t.RT,
                             t.dTheta, t.tL,    t.tC,    t.tH, t.dE};
    const int n = static_cast<int>(sizeof(fields) / sizeof(fields[0]));
    for (int i = 0; i < n; ++i) std::fprintf(trace, i + 1 < n ? "%.6le\t" : "%.6le\n", fields[i]);
}

void Vantrel::get_CIEDE2000_from_CIELab(double L1, double a1, double b1, double L2, double a2,
                                        double b2, double kL, double kC, double kH,
                                        double* /*spare1*/, double* /*spare2*/, double* SL,
                                        double* SC, double* SH, double* dL, double* dC, double* dH,
                                        double* dE, FILE* trace) {
    const CIELab first{L1, a1, b1}, second{L2, a2, b2};
    const CIEDE2000Terms t = ciede2000(first, second, CIEDE2000Weights{kL, kC, kH});
    *SL = t.SL, *SC = t.SC, *SH = t.SH;
    *dL = t.dL, *dC = t.dC, *dH = t.dH, *dE = t.dE;
    if (trace != nullptr) writeCIEDE2000Trace(trace, first, second, t);
}

void Vantrel::get_CIEDE2000_from_XYZ(int /*index*/, double X1, double Y1, double Z1, double X2,
                                     double Y2, double Z2, double Xn, double Yn, double Zn,
                                     double kL, double kC, double kH, double* SL, double* SC,
                                     double* SH, double* dL, double* dC, double* dH, double* dE,
                                     FILE* trace) {
    if (trace != nullptr) {
        double x1, y1, x2, y2;
        get_xy_XYZ(X1, Y1, Z1, &x1, &y1);
        get_xy_XYZ(X2, Y2, Z2, &x2, &y2);
        for (double v : {X1, Y1, Z1, x1, y1, X2, Y2, Z2, x2, y2}) {
            std::fprintf(trace, "%.6le\t", v);
        }
    }
    double L1, a1, b1, L2, a2, b2;
    get_CIELab_from_XYZ(X1, Y1, Z1, Xn, Yn, Zn, &L1, &a1, &b1);
    get_CIELab_from_XYZ(X2, Y2, Z2, Xn, Yn, Zn, &L2, &a2, &b2);
    get_CIEDE2000_from_CIELab(L1, a1, b1, L2, a2, b2, kL, kC, kH, nullptr, nullptr, SL, SC, SH, dL,
                              dC, dH, dE, trace);
}

// ---------------------------------------------------------------------------------------------
// sRGB, HSV and HSL

void Vantrel::XYZ_to_sRGB_D65(double X, double Y, double Z, int* r, int* g, int* b) {
    const double xyz[3] = {X / 100.0, Y / 100.0, Z / 100.0};
    int* out[3] = {r, g, b};
    for (int c = 0; c < 3; ++c) {
        double v = color_matrices::XYZ_TO_SRGB[c][0] * xyz[0] +
                   color_matrices::XYZ_TO_SRGB[c][1] * xyz[1] +
                   color_matrices::XYZ_TO_SRGB[c][2] * xyz[2];
        // IEC 61966-2-1 transfer: a linear toe below 0.0031308, else the 1/2.4 power.
        v = v > 0.0031308 ? 1.055 * std::pow(v, 0.4166666666666667) - 0.055 : 12.92 * v;
        v = std::min(1.0, std::max(0.0, v));
        *out[c] = static_cast<int>(255.0 * v);
    }
}

void Vantrel::RGBtoHSV(double r, double g, double b, double* h, double* s, double* v) {
    const double max = std::max({r, g, b});
    const double min = std::min({r, g, b});
    const double chroma = max - min;
    *v = max;
    if (max < GREY_TINY) {
        *s = 0.0;
        *h = -1.0;
        return;
    }
    *s = chroma / max;
    *h = chroma < GREY_TINY ? 0.0 : hexconeHue(r, g, b, max, chroma);
}

void Vantrel::HSVtoRGB(double h, double s, double v, double* r, double* g, double* b) {
    if (s < GREY_TINY) {
        *r = *g = *b = v;
        return;
    }
    // A hue without a number, or far outside 0 to 360, has no sector: grey of value v.
    if (!(std::fabs(h) < 1e6)) {
        *r = *g = *b = v;
        return;
    }
    const double hs = h / 60.0;
    const int sector = static_cast<int>(hs);
    const double f = hs - sector;
    const double p = v * (1.0 - s);
    const double q = v * (1.0 - s * f);
    const double t = v * (1.0 - s * (1.0 - f));
    // Sectors 0 to 4 of the hexcone; sector 5 and any hue outside 0..360 take the last row.
    const double rows[6][3] = {{v, t, p}, {q, v, p}, {p, v, t}, {p, q, v}, {t, p, v}, {v, p, q}};
    const double* rgb = rows[sector >= 0 && sector <= 4 ? sector : 5];
    *r = rgb[0];
    *g = rgb[1];
    *b = rgb[2];
}

void Vantrel::RGBtoHSL(double r, double g, double b, double* h, double* s, double* l) {
    const double max = std::max({r, g, b});
    const double min = std::min({r, g, b});
    const double chroma = max - min;
    *l = 0.5 * (max + min);
    if (*l < GREY_TINY) {
        *s = 0.0;
        *h = -1.0;
        return;
    }
    if (chroma < GREY_TINY) {
        *s = 0.0;
        *h = 0.0;
        return;
    }
    *s = chroma / (1.0 - std::fabs(2.0 * *l - 1.0));
    *h = hexconeHue(r, g, b, max, chroma);
}

double Vantrel::HueToRgb(double p, double q, double t) {
    if (t < 0.0) t += 1.0;
    if (t > 1.0) t -= 1.0;
    if (t < SIXTH) return p + (q - p) * 6.0 * t;
    if (t < 0.5) return q;
    if (t < TWO_THIRDS) return p + (q - p) * (TWO_THIRDS - t) * 6.0;
    return p;
}

void Vantrel::HSLtoRGB(double h, double s, double l, double* r, double* g, double* b) {
    if (s < GREY_TINY) {
        *r = *g = *b = l;
        return;
    }
    const double q = l < 0.5 ? l * (1.0 + s) : l + s - l * s;
    const double p = 2.0 * l - q;
    const double t = h / 360.0;
    *r = HueToRgb(p, q, t + THIRD);
    *g = HueToRgb(p, q, t);
    *b = HueToRgb(p, q, t - THIRD);
}

void Vantrel::HSVtoHSL(double h, double s, double v, double* hOut, double* sOut, double* l) {
    double r, g, b;
    HSVtoRGB(h, s, v, &r, &g, &b);
    RGBtoHSL(r, g, b, hOut, sOut, l);
}

void Vantrel::HSLtoHSV(double h, double s, double l, double* hOut, double* sOut, double* v) {
    double r, g, b;
    HSLtoRGB(h, s, l, &r, &g, &b);
    RGBtoHSV(r, g, b, hOut, sOut, v);
}

// ---------------------------------------------------------------------------------------------
// Mixing and photons

// Additive mixing is linear in X, Y, Z: with a = x/y and b = z/y per source, the lumens l_i
// satisfy Σ l_i = lm, Σ a_i l_i = X and Σ b_i l_i = Z, solved here by elimination on source 0.
bool Vantrel::mix3Colors(double x, double y, double lm, const double* xs, const double* ys,
                         double* outLumens) {
    double a[3], b[3];
    for (int i = 0; i < 3; ++i) {
        a[i] = xs[i] / ys[i];
        b[i] = (1.0 - xs[i] - ys[i]) / ys[i];
    }
    const double T = lm / y;
    const double X = x * T;
    const double Z = T - X - lm;
    const double da1 = a[1] - a[0];
    const double db1 = b[1] - b[0];
    if (std::fabs(da1) < 1e-6 || std::fabs(db1) < 1e-6) return false;
    const double rx = (X - lm * a[0]) / da1;
    const double rz = (Z - lm * b[0]) / db1;
    outLumens[2] = (rx - rz) / ((a[2] - a[0]) / da1 - (b[2] - b[0]) / db1);
    outLumens[1] = rx - (a[2] - a[0]) * outLumens[2] / da1;
    outLumens[0] = lm - outLumens[1] - outLumens[2];
    return true;
}

void Vantrel::getCxCyFromMix(int n, const double* x, const double* y, const double* lumens,
                             double* outX, double* outY) {
    double sumX = 0, sumY = 0, sum = 0;
    for (int i = 0; i < n; ++i) {
        double X, Y, Z;
        getXYZ_from_xylm(x[i], y[i], lumens[i], &X, &Y, &Z);
        sumX += X;
        sumY += Y;
        sum += X + Y + Z;
    }
    *outX = sumX / sum;
    *outY = sumY / sum;
}

double Vantrel::convert_to_Photons_Sec_from_Watts_nm(double watts, double nm) {
    return watts / (PLANCK_TIMES_LIGHT / (nm * 1e-9));
}

double Vantrel::convert_to_Watts_nm_from_Photons_Sec(double photons, double nm) {
    return photons * (PLANCK_TIMES_LIGHT / (nm * 1e-9));
}

// ---------------------------------------------------------------------------------------------
// Spectrum tools

void Vantrel::linearInterpolateTo2nm(int n, const double* wl, const double* value, int outN,
                                     double* out) {
    constexpr double BRACKET_TOL = 0.0001;  // nm; lets 5 nm rows land exactly on the grid
    std::fill(out, out + outN, 0.0);
    int j = 0;
    for (int k = 0; k < outN; ++k) {
        const double w = grid::nm(k);
        while (j < n - 2 && wl[j + 1] + BRACKET_TOL < w) ++j;
        if (j + 1 >= n) break;
        if (w < wl[j] - BRACKET_TOL || w > wl[j + 1] + BRACKET_TOL) continue;
        const double span = wl[j + 1] - wl[j];
        if (span == 0.0) continue;
        out[k] = value[j] + (w - wl[j]) * (value[j + 1] - value[j]) / span;
    }
}

double Vantrel::getFWHM(int first, int last, const double* wl, const double* value) {
    int peak = first;
    for (int i = first + 1; i < last; ++i) {
        if (value[i] > value[peak]) peak = i;
    }
    if (peak == first || peak == last - 1) return NO_VALUE;
    const double half = 0.5 * value[peak];

    auto crossing = [&](int i) {
        return wl[i] + (half - value[i]) * (wl[i + 1] - wl[i]) / (value[i + 1] - value[i]);
    };
    auto straddles = [&](int i) { return (value[i] < half) != (value[i + 1] < half); };

    bool haveLeft = false, haveRight = false;
    double left = 0, right = 0;
    for (int i = first; i < peak; ++i) {
        if (straddles(i)) {
            left = crossing(i);
            haveLeft = true;
        }
    }
    // The last crossing on the long-wave side: a secondary peak above half height widens the
    // band rather than ending it.
    for (int i = peak; i < last - 1; ++i) {
        if (straddles(i)) {
            right = crossing(i);
            haveRight = true;
        }
    }
    if (!haveLeft || !haveRight) return NO_VALUE;
    return right - left;
}

double Vantrel::getPeakCentroid(const double* spectrum) {
    // Trapezoid cells of 2 nm, each weighed at its centre.
    double moment = 0, area = 0;
    for (int i = 0; i < NUM_GRID_POINTS_IR - 1; ++i) {
        const double m = 0.5 * (spectrum[i] + spectrum[i + 1]);
        moment += m * (i + 0.5);
        area += m;
    }
    return grid::FIRST_NM + grid::STEP_NM * moment / area;
}

void Vantrel::convolute(const double* a, int na, const double* kernel, int nk, double* out) {
    for (int i = 0; i <= na - nk; ++i) {
        double sum = 0;
        for (int j = 0; j < nk; ++j) sum += a[i + j] * kernel[j];
        out[i] = sum;
    }
}

// Shape difference of two curves each scaled to a peak of 1: the root of the weighted sum of
// squares (not divided by n).
double Vantrel::getRMSdiff(int n, const double* a, const double* b, const double* weight) {
    const double aMax = *std::max_element(a, a + n);
    const double bMax = *std::max_element(b, b + n);
    double sum = 0;
    for (int i = 0; i < n; ++i) {
        const double d = weight[i] * (b[i] / bMax - a[i] / aMax);
        sum += d * d;
    }
    return std::sqrt(sum);
}

void Vantrel::getMinMaxForDiagram(int type, double* xMax, double* yMax) {
    switch (type) {
        case 1:
            *xMax = 0.65, *yMax = 0.4;
            break;
        case 2:
            *xMax = 0.65, *yMax = 0.65;
            break;
        case 4:
            *xMax = 0.6, *yMax = 0.65;
            break;
        default:
            *xMax = 0.8, *yMax = 0.9;
            break;
    }
}
