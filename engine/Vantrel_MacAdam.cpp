// MacAdam ellipses after the Friele-MacAdam-Chickering (FMC) metric, the ANSI C78.376 ellipse
// table, point lists for drawing and step counts for binning, in MacAdam steps and in u′v′
// circles.
#include <cmath>
#include <cstring>

#include "Vantrel.h"

namespace {

// Pi and its multiples to 15 digits, as the ellipse tables were computed.
constexpr double PI_15_DIGITS = 3.14159265358979;
constexpr double TWO_PI_15_DIGITS = 6.28318530717958;
constexpr double HALF_PI_15_DIGITS = 1.570796326794895;
// One u′v′ step: the radius of the circle used for binning in u′v′.
constexpr double UP_VP_STEP = 0.0011;

using Mat3 = double[3][3];

void multiply(const Mat3 l, const Mat3 r, Mat3 out) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) {
            out[i][j] = 0;
            for (int k = 0; k < 3; ++k) out[i][j] += l[i][k] * r[k][j];
        }
}

void transpose(const Mat3 m, Mat3 out) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) out[i][j] = m[j][i];
}

// The FMC metric G in the P, Q, S space of the model (Chickering 1967).
void fmcMetric(double x, double y, Mat3 G) {
    const double P = (0.822 * x + 0.48 * y - 0.098) / y;
    const double Q = (-0.6076 * x + 1.2424 * y + 0.1276) / y;
    const double S = (-0.686 * x - 0.686 * y + 0.686) / y;
    const double P2 = P * P, Q2 = Q * Q, S2 = S * S;
    const double a1 = 57780.0 * (1.0 + 2.73 * P2 * Q2 / (P2 * P2 + Q2 * Q2));
    const double a2 = 0.00030976 * (0.20151121 + S2);
    const double t = (P2 + Q2) * (P2 + Q2);
    G[0][0] = (a1 * (0.0778 * P2 + Q2) + P2 * S2 / a2) / t;
    G[0][1] = (-0.9222 * a1 * P * Q + P * Q * S2 / a2) / t;
    G[0][2] = -P * S / (a2 * (P2 + Q2));
    G[1][1] = (a1 * (P2 + 0.0778 * Q2) + Q2 * S2 / a2) / t;
    G[1][2] = Q * G[0][2] / P;
    G[2][2] = 1.0 / a2;
    G[1][0] = G[0][1];
    G[2][0] = G[0][2];
    G[2][1] = G[1][2];
}

// g = Bᵀ·Aᵀ·G·A·B: the metric carried from P, Q, S back to x, y.
void fmcToXy(double x, double y, const Mat3 G, double* g11, double* g12, double* g22) {
    const Mat3 A = {{0.724, 0.382, -0.098}, {-0.48, 1.37, 0.1276}, {0, 0, 0.686}};
    const Mat3 B = {{1.0 / y, -x / (y * y), x / y},
                    {0, 0, 1},
                    {-1.0 / y, -(1.0 - x) / (y * y), (1.0 - x - y) / y}};
    Mat3 AB, ABt, tmp, M;
    multiply(A, B, AB);
    transpose(AB, ABt);
    multiply(G, AB, tmp);
    multiply(ABt, tmp, M);
    *g11 = M[0][0];
    *g12 = M[0][1];
    *g22 = M[1][1];
}

struct AnsiEllipse {
    const char* name;
    double x, y, a, b, theta, g11, g12Twice, g22;
};

// ANSI C78.376 ellipses; the cross term is stored doubled, as it is published.
constexpr AnsiEllipse ANSI_ELLIPSES[] = {
    {"2700K", 0.459, 0.412, 0.0027, 0.0014, 0.937241808320954, 400000, -390000, 280000},
    {"3000K", 0.44, 0.403, 0.00278, 0.00136, 0.9288060502696481, 390000, -390000, 275000},
    {"3500K (2001)", 0.411, 0.393, 0.00309, 0.00138, 0.9424777960769369, 380000, -400000, 250000},
    {"3500K (2014)", 0.409, 0.394, 0.00309, 0.00138, 0.9424777960769369, 380000, -400000, 250000},
    {"4000K/4100K", 0.38, 0.38, 0.00313, 0.00134, 0.9375326965296198, 395000, -430000, 260000},
    {"5000K", 0.346, 0.359, 0.00274, 0.00118, 1.040507122397285, 560000, -500000, 280000},
    {"6500K", 0.313, 0.337, 0.00223, 0.00095, 1.0221811652513446, 860000, -800000, 450000},
};
constexpr int NUM_ANSI_ELLIPSES = sizeof(ANSI_ELLIPSES) / sizeof(ANSI_ELLIPSES[0]);

bool ansiIndexValid(int index) { return index >= 0 && index < NUM_ANSI_ELLIPSES; }

// Angle of the parameter t on an ellipse, n − 1 equal steps round the full turn.
double ellipseParameter(int i, int n) { return n > 1 ? i * (TWO_PI_15_DIGITS / (n - 1)) : 0.0; }

void ellipsePoint(double t, double scale, double x0, double y0, double a, double b, double theta,
                  double* x, double* y) {
    const double p = a * std::sin(t);
    const double q = b * std::cos(t);
    *x = (p * std::cos(theta) + q * std::sin(theta)) * scale + x0;
    *y = (p * std::sin(theta) - q * std::cos(theta)) * scale + y0;
}

// Direction of the ray from the centre to x, y, as the binning rule measures it.
double rayAngle(double x0, double y0, double x, double y) {
    const double dx = x - x0;
    if (std::fabs(dx) < 1e-6) return (y - y0) < 0 ? -HALF_PI_15_DIGITS : HALF_PI_15_DIGITS;
    const double s = (y - y0) / dx;
    if (x <= 0 || y <= 0) return PI_15_DIGITS + std::atan(s);
    return std::atan(s);
}

// Steps of one point from the centre along its ray, against the one-step ellipse a, b, θ.
double stepsAlongRay(double x0, double y0, double a, double b, double theta, double x, double y) {
    const double angle = rayAngle(x0, y0, x, y) - HALF_PI_15_DIGITS - theta;
    const double t = std::atan(b * std::sin(angle) / a / std::cos(angle));
    double ex, ey;
    ellipsePoint(t, 1.0, x0, y0, a, b, theta, &ex, &ey);
    if (std::fabs(ex - x0) < 1e-5 && std::fabs(ey - y0) < 1e-5) return 0;
    return std::hypot(x - x0, y - y0) / std::hypot(ex - x0, ey - y0);
}

}  // namespace

void Vantrel::macAdam_xy(double x, double y, double* g11, double* g12, double* g22) {
    Mat3 G;
    fmcMetric(x, y, G);
    fmcToXy(x, y, G, g11, g12, g22);
    const double theta = 0.5 * (PI_15_DIGITS + std::atan(2.0 * *g12 / (*g11 - *g22)));
    const double k = std::cos(theta) / std::sin(theta);
    double p = *g11 - *g12 * k;
    double q = *g22 + *g12 * k;
    // A metric that is not positive definite here has no ellipse: mark it by a huge one.
    if (p < 0 || q < 0) p = q = 0.0001;
    aEllipse = std::sqrt(1.0 / q);
    bEllipse = std::sqrt(1.0 / p);
    thetaEllipse = theta;
}

void Vantrel::macAdam() {
    double g11, g12, g22;
    macAdam_xy(xcoord, ycoord, &g11, &g12, &g22);
}

void Vantrel::macAdamAll(double x, double y, double* a, double* b, double* theta, double* g11,
                         double* g12, double* g22) {
    macAdam_xy(x, y, g11, g12, g22);
    *a = aEllipse;
    *b = bEllipse;
    *theta = thetaEllipse;
}

void Vantrel::getEllipsePoints(int n, double steps, double x0, double y0, double a, double b,
                               double theta, double* xs, double* ys) {
    for (int i = 0; i < n - 1; ++i)
        ellipsePoint(ellipseParameter(i, n), steps, x0, y0, a, b, theta, &xs[i], &ys[i]);
    if (n == 1) ellipsePoint(0, steps, x0, y0, a, b, theta, &xs[0], &ys[0]);
    if (n > 1) {
        xs[n - 1] = xs[0];
        ys[n - 1] = ys[0];
    }
}

void Vantrel::getMacAdamEllipseArray_xy(int n, double steps, double x0, double y0, double* xs,
                                        double* ys, double* a, double* b, double* theta,
                                        double* g11, double* g12, double* g22) {
    macAdamAll(x0, y0, a, b, theta, g11, g12, g22);
    getEllipsePoints(n, steps, x0, y0, *a, *b, *theta, xs, ys);
}

void Vantrel::macAdam_ANSI_C78_376(int index, double* x, double* y, double* a, double* b,
                                   double* theta, double* g11, double* g12, double* g22) {
    const AnsiEllipse zero = {"", 0, 0, 0, 0, 0, 0, 0, 0};
    const AnsiEllipse& e = ansiIndexValid(index) ? ANSI_ELLIPSES[index] : zero;
    *x = e.x;
    *y = e.y;
    *a = e.a;
    *b = e.b;
    *theta = e.theta;
    *g11 = e.g11;
    *g12 = 0.5 * e.g12Twice;
    *g22 = e.g22;
}

int Vantrel::getNumANSIEllipses() { return NUM_ANSI_ELLIPSES; }

void Vantrel::getANSIEllipseName(int index, char* name) {
    std::strcpy(name, ansiIndexValid(index) ? ANSI_ELLIPSES[index].name : "Index is out of range");
}

void Vantrel::getANSIMacAdamEllipseArray_xy(int index, int n, double steps, double* xs,
                                            double* ys) {
    double x, y, a, b, theta, g11, g12, g22;
    macAdam_ANSI_C78_376(index, &x, &y, &a, &b, &theta, &g11, &g12, &g22);
    getEllipsePoints(n, steps, x, y, a, b, theta, xs, ys);
}

void Vantrel::getUserdefinedMacAdamEllipseArray_xy(int n, double steps, double x0, double y0,
                                                   double a, double b, double theta, double* xs,
                                                   double* ys) {
    getEllipsePoints(n, steps, x0, y0, a, b, theta, xs, ys);
}

void Vantrel::getUpVpEllipseArray_upvp(int n, double steps, double u0, double v0, double* us,
                                       double* vs) {
    const double r = UP_VP_STEP * steps;
    for (int i = 0; i < n - 1; ++i) {
        const double t = ellipseParameter(i, n);
        us[i] = r * std::sin(t) + u0;
        vs[i] = r * std::cos(t) + v0;
    }
    if (n == 1) {
        us[0] = u0;
        vs[0] = r + v0;
    }
    if (n > 1) {
        us[n - 1] = us[0];
        vs[n - 1] = vs[0];
    }
}

void Vantrel::getUpVpEllipseArray_xy(int n, double steps, double x0, double y0, double* xs,
                                     double* ys) {
    double u0, v0;
    get_upvp_from_xy(x0, y0, &u0, &v0);
    getUpVpEllipseArray_upvp(n, steps, u0, v0, xs, ys);
    for (int i = 0; i < n; ++i) get_xy_from_upvp(xs[i], ys[i], &xs[i], &ys[i]);
}

void Vantrel::getUpVpEllipseArray_uv(int n, double steps, double x0, double y0, double* us,
                                     double* vs) {
    double u0, v0;
    get_upvp_from_xy(x0, y0, &u0, &v0);
    getUpVpEllipseArray_upvp(n, steps, u0, v0, us, vs);
    for (int i = 0; i < n; ++i) get_uv_from_upvp(us[i], vs[i], &us[i], &vs[i]);
}

double Vantrel::getMacAdamForBinning(int n, double x0, double y0, double* xs, double* ys) {
    double g11, g12, g22;
    macAdam_xy(x0, y0, &g11, &g12, &g22);
    double largest = 0;
    for (int i = 0; i < n; ++i) {
        const double steps = stepsAlongRay(x0, y0, aEllipse, bEllipse, thetaEllipse, xs[i], ys[i]);
        if (i == 0 || steps > largest) largest = steps;
    }
    return largest;
}

double Vantrel::getMacAdamForBinning(double x0, double y0, double x, double y) {
    return getMacAdamForBinning(1, x0, y0, &x, &y);
}

double Vantrel::getUpVpForBinning(int n, double x0, double y0, double* xs, double* ys) {
    // A single point counts as 0: binning in u′v′ needs at least two points.
    if (n < 2) return 0;
    double u0, v0;
    get_upvp_from_xy(x0, y0, &u0, &v0);
    double largest = 0;
    for (int i = 0; i < n; ++i) {
        double u, v;
        get_upvp_from_xy(xs[i], ys[i], &u, &v);
        const double d = std::hypot(u - u0, v - v0);
        if (i == 0 || d > largest) largest = d;
    }
    return largest / UP_VP_STEP;
}
