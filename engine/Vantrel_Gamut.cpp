// Vantrel: gamut area of the CIE 13.3 samples R1 to R8, GAI, the Class A test and the polygon
// helpers used by the chromaticity diagrams.
#include <algorithm>
#include <cmath>
#include <vector>

#include "Grid.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
// R1 to R8: the eight samples of the general colour rendering index.
constexpr int FIRST_GAMUT_SAMPLE = 1;
constexpr int LAST_GAMUT_SAMPLE = 8;
constexpr int NUM_GAMUT_SAMPLES = LAST_GAMUT_SAMPLE - FIRST_GAMUT_SAMPLE + 1;

// R1 to R8 areas as this engine computes them under CIE D65 and under the equal-energy
// spectrum (the GAI reference of Rea and Freyssinier), in u'v' and in uv.
constexpr double D65_AREA_UPVP = 0.00717339711826104;
constexpr double EQUAL_ENERGY_AREA_UPVP = 0.0073545038151239745;
constexpr double D65_AREA_UV = 0.00478226474550736;
constexpr double EQUAL_ENERGY_AREA_UV = 0.004903002543415983;

// Class A (LRC, 2010): GAI between 80 and 100, Ra at least 80, white within 4 MacAdam steps
// of the Class A white line between 2700 and 6500 K.
constexpr double CLASS_A_MIN_GAI = 80.0;
constexpr double CLASS_A_MAX_GAI = 100.0;
constexpr double CLASS_A_MIN_RA = 80.0;
constexpr double CLASS_A_MIN_CCT = 2700.0;
constexpr double CLASS_A_MAX_CCT = 6500.0;
constexpr double CLASS_A_WHITE_SPLIT_CCT = 4100.0;
constexpr double CLASS_A_MAX_MACADAM_STEPS = 4.0;

// Ratio a/b when both are above 0, else 0.
double ratioOfAreas(double a, double b) { return (a > 0 && b > 0) ? a / b : 0.0; }

// scale·area/divisor when the area is above 0, else 0.
double scaledArea(double area, double divisor, double scale) {
    return area > 0 ? scale * area / divisor : 0.0;
}

// Closed fan of triangles about the centroid of the points (wrapping the last to the first).
// The flag holds the outcome of the last triangle only, as triangleArea leaves it.
double fanArea(int n, const double* u, const double* v, bool* failed) {
    double cu = 0, cv = 0;
    for (int k = 0; k < n; ++k) {
        cu += u[k];
        cv += v[k];
    }
    cu /= n;
    cv /= n;
    double area = 0;
    for (int k = 0; k < n; ++k) {
        const int next = (k + 1) % n;
        area += Vantrel::triangleArea(cu, cv, u[k], v[k], u[next], v[next], failed);
    }
    return area;
}

struct Box {
    double xMin, xMax, yMin, yMax;
};

Box boundingBox(int n, const double* xs, const double* ys) {
    Box b{xs[0], xs[0], ys[0], ys[0]};
    for (int k = 1; k < n; ++k) {
        b.xMin = std::min(b.xMin, xs[k]);
        b.xMax = std::max(b.xMax, xs[k]);
        b.yMin = std::min(b.yMin, ys[k]);
        b.yMax = std::max(b.yMax, ys[k]);
    }
    return b;
}

void centroid(int n, const double* xs, const double* ys, double* cx, double* cy) {
    *cx = *cy = 0;
    for (int k = 0; k < n; ++k) {
        *cx += xs[k];
        *cy += ys[k];
    }
    *cx /= n;
    *cy /= n;
}
}  // namespace

// ---------------------------------------------------------------------------------------------
// Gamut of R1 to R8

void Vantrel::calcCRIGamutAreas() {
    // u'v' of a sample is (u, 1.5 v) of CIE 1960.
    double upvp[2][NUM_GAMUT_SAMPLES], vp[2][NUM_GAMUT_SAMPLES], v[2][NUM_GAMUT_SAMPLES];
    for (int row = 0; row < 2; ++row) {
        for (int k = 1; k < NUM_SAMPLES; ++k) {
            criU[row][k] = su[row][k];
            criVp[row][k] = 1.5 * sv[row][k];
        }
        for (int k = 0; k < NUM_GAMUT_SAMPLES; ++k) {
            upvp[row][k] = criU[row][FIRST_GAMUT_SAMPLE + k];
            vp[row][k] = criVp[row][FIRST_GAMUT_SAMPLE + k];
            v[row][k] = sv[row][FIRST_GAMUT_SAMPLE + k];
        }
    }

    bool failed = false;
    double areaUpVp[2], areaUV[2];
    for (int row = 0; row < 2; ++row) {
        areaUpVp[row] = fanArea(NUM_GAMUT_SAMPLES, upvp[row], vp[row], &failed);
        areaUV[row] = fanArea(NUM_GAMUT_SAMPLES, upvp[row], v[row], &failed);
    }
    // Only the very last triangle decides, as for the CQS gamut.
    for (int row = 0; row < 2; ++row) {
        criGamutArea_upvp[row] = failed ? NO_VALUE : areaUpVp[row];
        criGamutArea_uv[row] = failed ? NO_VALUE : areaUV[row];
    }

    gamutCRI_upvp = ratioOfAreas(criGamutArea_upvp[0], criGamutArea_upvp[1]);
    gamutCRI_uv = ratioOfAreas(criGamutArea_uv[0], criGamutArea_uv[1]);
    gamutD65_upvp = scaledArea(criGamutArea_upvp[0], D65_AREA_UPVP, 1.0);
    gai_upvp = scaledArea(criGamutArea_upvp[0], EQUAL_ENERGY_AREA_UPVP, 100.0);
    gamutD65_uv = scaledArea(criGamutArea_uv[0], D65_AREA_UV, 1.0);
    gai_uv = scaledArea(criGamutArea_uv[0], EQUAL_ENERGY_AREA_UV, 100.0);
}

// ---------------------------------------------------------------------------------------------
// Class A

bool Vantrel::meetsASSIST2ColorMetric(double gai, double ra) {
    return gai >= CLASS_A_MIN_GAI && gai <= CLASS_A_MAX_GAI && ra >= CLASS_A_MIN_RA;
}

bool Vantrel::meetsASSIST2ColorMetric() const {
    return meetsASSIST2ColorMetric(get_GAI_upvp(), rValues[0]);
}

// Polynomial fits of the Class A white line in CCT (K).
bool Vantrel::getLRCWhitePoint(double cct, double* x, double* y) {
    *x = 0;
    *y = 0;
    if (cct < CLASS_A_MIN_CCT || cct > CLASS_A_MAX_CCT) return false;
    const double t = cct;
    *x = ((((-9.176761e-19 * t + 2.192573e-14) * t - 2.060485e-10) * t + 9.548615e-7) * t -
          0.00222164) *
             t +
         2.502983;
    if (t > CLASS_A_WHITE_SPLIT_CCT) {
        *y = ((3.018263e-13 * t - 3.723401e-9) * t - 3.335019e-6) * t + 0.4343397;
    } else {
        *y =
            (((1.327091e-14 * t - 1.96663e-10) * t + 1.097935e-6) * t - 0.002726139) * t + 2.903876;
    }
    return true;
}

bool Vantrel::meetsLRCWhite(double cct, double x, double y) {
    double wx, wy;
    if (!getLRCWhitePoint(cct, &wx, &wy)) return false;
    return getMacAdamForBinning(1, wx, wy, &x, &y) <= CLASS_A_MAX_MACADAM_STEPS;
}

// ---------------------------------------------------------------------------------------------
// Polygons

bool Vantrel::orderGamut(int n, double* x, double* y) { return orderGamut(true, n, x, y); }

bool Vantrel::orderGamut(bool descending, int n, double* x, double* y) {
    for (int k = 0; k < n; ++k) {
        if (x[k] < 0 || y[k] < 0) return false;
    }
    if (n < 1) return true;
    double cx, cy;
    centroid(n, x, y, &cx, &cy);
    const double direction = descending ? 1.0 : -1.0;
    std::vector<double> key(n);
    for (int k = 0; k < n; ++k) {
        double degrees = std::atan2(y[k] - cy, x[k] - cx) * angle::RAD_TO_DEG;
        if (degrees < 0) degrees += 360.0;
        key[k] = direction * degrees;
    }
    // Stable insertion sort by falling key; equal keys keep their order.
    for (int i = 1; i < n; ++i) {
        const double k0 = key[i], x0 = x[i], y0 = y[i];
        int j = i - 1;
        while (j >= 0 && key[j] < k0) {
            key[j + 1] = key[j];
            x[j + 1] = x[j];
            y[j + 1] = y[j];
            --j;
        }
        key[j + 1] = k0;
        x[j + 1] = x0;
        y[j + 1] = y0;
    }
    return true;
}

double Vantrel::sign(double x1, double y1, double x2, double y2, double x3, double y3) {
    return (x1 - x3) * (y2 - y3) - (x2 - x3) * (y1 - y3);
}

bool Vantrel::pointInTriangle(double x, double y, double x1, double y1, double x2, double y2,
                              double x3, double y3) {
    const bool b1 = sign(x, y, x1, y1, x2, y2) < 0;
    const bool b2 = sign(x, y, x2, y2, x3, y3) < 0;
    const bool b3 = sign(x, y, x3, y3, x1, y1) < 0;
    return b1 == b2 && b2 == b3;
}

bool Vantrel::isPointInGamut(int n, const double* xs, const double* ys, double x, double y) {
    if (n < 3) return true;
    if (n == 3) return pointInTriangle(x, y, xs[0], ys[0], xs[1], ys[1], xs[2], ys[2]);
    const Box box = boundingBox(n, xs, ys);
    if (x < box.xMin || x > box.xMax || y < box.yMin || y > box.yMax) return false;
    double cx, cy;
    centroid(n, xs, ys, &cx, &cy);
    for (int k = 0; k < n; ++k) {
        const int next = (k + 1) % n;
        if (pointInTriangle(x, y, cx, cy, xs[k], ys[k], xs[next], ys[next])) return true;
    }
    return false;
}

double Vantrel::commonGamutArea(int grid, int n1, const double* x1, const double* y1, int n2,
                                const double* x2, const double* y2) {
    if (grid < 1 || n1 < 1) return 0.0;
    const Box box = boundingBox(n1, x1, y1);
    const double dx = (box.xMax - box.xMin) / grid;
    const double dy = (box.yMax - box.yMin) / grid;
    long in1 = 0, in2 = 0, both = 0;
    for (int i = 0; i < grid; ++i) {
        const double x = box.xMin + i * dx;
        for (int j = 0; j < grid; ++j) {
            const double y = box.yMin + j * dy;
            const bool a = isPointInGamut(n1, x1, y1, x, y);
            const bool b = isPointInGamut(n2, x2, y2, x, y);
            in1 += a;
            in2 += b;
            both += a && b;
        }
    }
    const double f = in1 > 0 ? static_cast<double>(both) / in1 : 0.0;
    if (f <= 0.999999) return f;
    return static_cast<double>(in2) / in1;
}
