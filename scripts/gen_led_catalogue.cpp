// Writes core/LedCatalogueData.cpp: the stored spectra of the fixed rows of the LED list, made
// from model shapes of typical parts, with their lumens and visible watts from the engine.
//
// Build and run from the repository root after a build:
//   g++ -std=c++17 -O2 -Iengine scripts/gen_led_catalogue.cpp build/engine/liblumivar_engine.a
//       -o /tmp/gen_led_catalogue && /tmp/gen_led_catalogue > core/LedCatalogueData.cpp
//
// Shapes: an LED line is a split Gaussian (a steeper short-wavelength side, a longer tail);
// a white LED is an InGaN blue line plus one or two broad phosphor bands. The blue and red
// heights of each white are solved so that it sits on the Planck locus at its nominal CCT.
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "Vantrel.h"

namespace {

constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int N_IR = Vantrel::NUM_GRID_POINTS_IR;
// Stored points of a visible row: 360 to 818 nm.
constexpr int VISIBLE_POINTS = 230;
// Values below this share of the peak are stored as 0.
constexpr double FLOOR = 1e-7;

double nm(int i) { return 360.0 + 2.0 * i; }

double splitGaussian(double l, double peak, double fwhmLeft, double fwhmRight) {
    const double sigma = (l < peak ? fwhmLeft : fwhmRight) * 0.4246609;
    const double d = (l - peak) / sigma;
    return std::exp(-0.5 * d * d);
}

struct White {
    const char* name;
    double cct;
    double bluePeak, blueLeft, blueRight;  // nm
    double greenPeak, greenFwhm;           // phosphor band 1
    double redPeak, redFwhm;               // phosphor band 2
};

std::vector<double> whiteShape(const White& w, double blue, double red) {
    std::vector<double> s(N_IR, 0.0);
    for (int i = 0; i < N_IR; ++i) {
        const double l = nm(i);
        s[i] = blue * splitGaussian(l, w.bluePeak, w.blueLeft, w.blueRight) +
               splitGaussian(l, w.greenPeak, w.greenFwhm * 0.85, w.greenFwhm * 1.15) +
               red * splitGaussian(l, w.redPeak, w.redFwhm * 0.9, w.redFwhm * 1.1);
    }
    return s;
}

void chromaticity(Vantrel& v, const std::vector<double>& s, double* x, double* y) {
    v.calcCCT(s.data(), false);
    v.color(s.data(), false);
    *x = v.getXcoord();
    *y = v.getYcoord();
}

// Newton steps on the blue and red heights until x, y reach the Planck point.
std::vector<double> solveWhite(Vantrel& v, const White& w) {
    std::vector<double> planck(N);
    Vantrel::getBlackBody(planck.data(), w.cct);
    double tx, ty;
    chromaticity(v, planck, &tx, &ty);
    double blue = 0.5, red = 0.5;
    for (int it = 0; it < 50; ++it) {
        double x, y, xb, yb, xr, yr;
        const double h = 1e-6;
        chromaticity(v, whiteShape(w, blue, red), &x, &y);
        chromaticity(v, whiteShape(w, blue + h, red), &xb, &yb);
        chromaticity(v, whiteShape(w, blue, red + h), &xr, &yr);
        const double a = (xb - x) / h, b = (xr - x) / h, c = (yb - y) / h, d = (yr - y) / h;
        const double det = a * d - b * c;
        const double ex = tx - x, ey = ty - y;
        blue += (d * ex - b * ey) / det;
        red += (-c * ex + a * ey) / det;
        if (std::fabs(ex) + std::fabs(ey) < 1e-9) break;
    }
    return whiteShape(w, blue, red);
}

struct Row {
    const char* name;
    const char* symbol;
    std::vector<double> s;
    int points;
    bool ir;
};

// Scales to the watts asked for (trapezoid from 360 to 1050 nm), cuts the tail below FLOOR of
// the peak and everything from `points` on, and rounds to 7 significant digits as stored.
void finish(Row* r, double watts) {
    Vantrel::scaleSpectrum(r->s.data(), watts, N_IR);
    double peak = 0;
    for (double value : r->s) peak = std::fmax(peak, value);
    for (int i = 0; i < N_IR; ++i) {
        if (i >= r->points || r->s[i] < FLOOR * peak) r->s[i] = 0;
        char text[32];
        std::snprintf(text, sizeof text, "%.6e", r->s[i]);
        r->s[i] = std::strtod(text, nullptr);
    }
}

Row lineRow(const char* name, const char* symbol, double peak, double left, double right,
            int points, bool ir, double watts) {
    Row r{name, symbol, std::vector<double>(N_IR), points, ir};
    for (int i = 0; i < N_IR; ++i) r.s[i] = splitGaussian(nm(i), peak, left, right);
    finish(&r, watts);
    return r;
}

// The far-red peak whose stored spectrum has its centroid at 724 nm.
Row farRed() {
    double lo = 710, hi = 735;
    for (int it = 0; it < 60; ++it) {
        const double mid = 0.5 * (lo + hi);
        const Row r = lineRow("", "", mid, 22, 30, VISIBLE_POINTS, false, 1.0);
        (Vantrel::getPeakCentroid(r.s.data()) < 724.0 ? lo : hi) = mid;
    }
    return lineRow("Far red (724nm centroid)", "FAR_RED_724", 0.5 * (lo + hi), 22, 30,
                   VISIBLE_POINTS, false, 0.45);
}

void printRow(Vantrel& v, const Row& r) {
    v.calcCCT(r.s.data(), false);
    v.color(r.s.data(), false);
    double R[Vantrel::NUM_SAMPLES];
    v.returnRvalues(R);
    double beyond = Vantrel::getSpectralWatts(N_IR - (N - 1), r.s.data() + N - 1, 2.0);
    double total = Vantrel::getSpectralWatts(N_IR, r.s.data(), 2.0);
    std::fprintf(stderr,
                 "%-26s lm %.6g W %.6g Wtot %.6g CCT %.1f Duv %.5f Ra %.1f R9 %.1f "
                 "centroid %.3f IR share %.4f\n",
                 r.name, v.getLumens(), v.getWattsVis(), total, v.getCCT(), v.getDeltaUVPlanck(),
                 R[0], R[9], Vantrel::getPeakCentroid(r.s.data()), beyond / total);
    int last = 0;
    for (int i = 0; i < N_IR; ++i)
        if (r.s[i] != 0) last = i;
    std::printf("\n// %s: %d points from 360 nm, the rest 0.\nconst double %s[N_IR] = {\n", r.name,
                last + 1, r.symbol);
    for (int i = 0; i <= last; ++i) {
        char value[32] = "0";
        if (r.s[i] != 0) std::snprintf(value, sizeof value, "%.6e", r.s[i]);
        std::printf("%s%s,%s", i % 6 == 0 ? "    " : "", value,
                    i % 6 == 5 || i == last ? "\n" : " ");
    }
    std::printf("};\n");
}

void printTableRow(Vantrel& v, const Row& r) {
    v.calcCCT(r.s.data(), false);
    v.color(r.s.data(), false);
    const double total = Vantrel::getSpectralWatts(N_IR, r.s.data(), 2.0);
    const double beyond = Vantrel::getSpectralWatts(N_IR - (N - 1), r.s.data() + N - 1, 2.0);
    std::printf("    {\"%s\", %s, %.12g, %.12g, %s},\n", r.name,
                beyond > 0.005 * total ? "true" : "false", v.getLumens(), v.getWattsVis(),
                r.symbol);
}

}  // namespace

int main() {
    Vantrel v;
    const White whites[] = {
        {"White (2700K)", 2700, 449, 17, 24, 556, 112, 622, 88},
        {"White (4000K)", 4000, 449, 17, 24, 545, 120, 618, 104},
        {"White (5700K)", 5700, 451, 17, 24, 551, 116, 605, 90},
    };
    const char* whiteSymbols[] = {"WHITE_2700K", "WHITE_4000K", "WHITE_5700K"};
    std::vector<Row> rows;
    rows.push_back(farRed());
    rows.push_back(lineRow("IR (860nm)", "IR_860NM", 860, 32, 42, N_IR, true, 0.5));
    rows.push_back(lineRow("IR (950nm)", "IR_950NM", 950, 38, 50, N_IR, true, 0.5));
    for (int k = 0; k < 3; ++k) {
        Row r{whites[k].name, whiteSymbols[k], solveWhite(v, whites[k]), VISIBLE_POINTS, false};
        finish(&r, 0.35);
        rows.push_back(r);
    }

    std::printf(
        "// Stored spectra of the fixed rows of the LED list, in W/nm on the 2 nm grid from 360 "
        "nm.\n"
        "// Model shapes of typical parts (split-Gaussian lines; whites as an InGaN blue line "
        "and\n"
        "// phosphor bands on the Planck locus); lumens and watts from 360 to 830 nm are the "
        "engine's\n"
        "// values of the stored numbers.\n//\n"
        "// Generated by scripts/gen_led_catalogue.cpp; edit the generator, not this file.\n\n"
        "#include \"LedCatalogueData.h\"\n\n#include \"Vantrel.h\"\n\nnamespace {\n\n"
        "constexpr int N_IR = Vantrel::NUM_GRID_POINTS_IR;\n\n// clang-format off");
    for (const Row& r : rows) printRow(v, r);
    std::printf(
        "// clang-format on\n\n}  // namespace\n\n"
        "// name, hasIRpast830, lumens, wattsVis, spectrum\n"
        "const LedCatalogueRow LED_CATALOGUE_ROWS[NUM_LED_CATALOGUE_ROWS] = {\n");
    for (const Row& r : rows) printTableRow(v, r);
    std::printf("};\n");
    return 0;
}
