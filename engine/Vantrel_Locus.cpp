// Spectrum locus, locus curves for drawing, dominant wavelength and purity.
#include <cmath>

#include "Grid.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NL = Vantrel::NUM_LOCUS_POINTS;
// The program's value of pi in the angle constructions.
constexpr double PI_LDOM = 3.14159265358979;
constexpr double LDOM_WHITE = 0.3333;

double poly(const double* c, int degree, double x) {
    double r = c[0];
    for (int k = 1; k <= degree; ++k) r = r * x + c[k];
    return r;
}

// Locus curves y(x) for drawing, highest power first.
constexpr double BB_CY_2015_10[7] = {31.38006337,  -67.14884437, 48.30408754,  -10.29144338,
                                     -5.222436167, 3.924912163,  -0.3686966763};
constexpr double BB_CY_1931[7] = {34.36484,  -68.54486, 44.24777,  -5.258829,
                                  -7.928732, 4.729175,  -0.4701508};
constexpr double DAYLIGHT_CY_2015_10[3] = {-2.328774, 2.368168, -0.1825578};
constexpr double DAYLIGHT_CY_1931[3] = {-2.944037, 2.835915, -0.2699464};
}  // namespace

double Vantrel::getBlackBody_Cy(double x) const {
    if (observer == 3) {
        if (x < 0.250645121 || x > 0.6499733) return 0.0;
        return poly(BB_CY_2015_10, 6, x);
    }
    if (x < 0.256456 || x > 0.65275) return 0.0;
    return poly(BB_CY_1931, 6, x);
}

double Vantrel::getSyntheticDaylight_Cy(double x) const {
    if (observer == 3) {
        if (x < 0.2482 || x > 0.34823) return 0.0;
        return poly(DAYLIGHT_CY_2015_10, 2, x);
    }
    if (x < 0.2524 || x > 0.3805) return 0.0;
    return poly(DAYLIGHT_CY_1931, 2, x);
}

// The blend of Planck and daylight of the IES TM-30 reference between 4000 K and 5000 K.
double Vantrel::getTM30BlendedLocus_Cy(double x) const {
    if (observer == 3) return 0.4542852 * x + 0.2014395;
    return 0.5243765 * x + 0.1772503;
}

// ---------------------------------------------------------------------------------------------
// Dominant wavelength

// For observers whose tables hold zeros at the ends the chromaticity there is 0/0: such points
// never satisfy the bracket test of calcDomWL_purity and so take no part.
void Vantrel::define_x_y_angle_for_Ldom(double* xs, double* ys, double* angles, double wx,
                                        double wy) const {
    locusAngles(ref->xbar[observer], ref->ybar[observer], ref->zbar[observer], wx, wy, xs, ys,
                angles);
}

void Vantrel::locusAngles(const double* xb, const double* yb, const double* zb, double wx,
                          double wy, double* xs, double* ys, double* angles) {
    for (int i = 0; i < N; ++i) {
        const double sum = xb[i] + yb[i] + zb[i];
        xs[i] = xb[i] / sum;
        ys[i] = yb[i] / sum;
        angles[i] = std::atan((ys[i] - wy) / (xs[i] - wx));
        if (wx > xs[i]) angles[i] += PI_LDOM;
    }
}

void Vantrel::get_whitePoint_xy_for_Ldom_purity(double* wx, double* wy) const {
    *wx = LDOM_WHITE;
    *wy = LDOM_WHITE;
}

void Vantrel::calcDomWL_purity(double x, double y) {
    const Reference& t = *ref;
    calcDomWL_purity(t.ldomX[observer], t.ldomY[observer], t.ldomAngle[observer], LDOM_WHITE,
                     LDOM_WHITE, x, y);
}

// The sample's angle about the white is bracketed by two neighbouring locus points; the search
// does not wrap, so purples find no bracket and give -1 (no complementary wavelength).
void Vantrel::calcDomWL_purity(const double* xs, const double* ys, const double* angles, double wx,
                               double wy, double x, double y) {
    double a = std::atan((y - wy) / (x - wx));
    if (wx > x) a += PI_LDOM;

    for (int i = 0; i < N - 1; ++i) {
        if (angles[i] > a && a > angles[i + 1]) {
            const double f = (a - angles[i + 1]) / (angles[i] - angles[i + 1]);
            const double xl = xs[i + 1] + f * (xs[i] - xs[i + 1]);
            const double yl = ys[i + 1] + f * (ys[i] - ys[i + 1]);
            const double nm1 = grid::nm(i + 1);
            domWL = nm1 - 2.0 * f;
            const double toSample = std::hypot(x - wx, y - wy);
            const double toLocus = std::hypot(xl - wx, yl - wy);
            purity = toSample / toLocus;
            return;
        }
    }
    domWL = NO_VALUE;
    purity = NO_VALUE;
}

void Vantrel::setWhitePointForDomWL_purity(double wx, double wy) {
    Tables& t = *tab;
    t.userWhiteX = wx;
    t.userWhiteY = wy;
    define_x_y_angle_for_Ldom(t.userLdomX, t.userLdomY, t.userLdomAngle, wx, wy);
    t.hasUserWhite = true;
}

void Vantrel::calcDomWL_purity_user(double x, double y) {
    const Tables& t = *tab;
    if (!t.hasUserWhite) {
        domWL = NO_VALUE;
        purity = NO_VALUE;
        return;
    }
    calcDomWL_purity(t.userLdomX, t.userLdomY, t.userLdomAngle, t.userWhiteX, t.userWhiteY, x, y);
}

// ---------------------------------------------------------------------------------------------
// Spectrum locus

void Vantrel::getCIEHorseShoe(double* x, double* y) const {
    const Reference& t = *ref;
    for (int i = 0; i < N; ++i) {
        get_xy_XYZ(t.xbar[observer][i], t.ybar[observer][i], t.zbar[observer][i], &x[i], &y[i]);
    }
}

namespace {
enum class LocusPlane { XY, UV, UPVP };

void locusChromaticity(const double* X, const double* Y, const double* Z, LocusPlane plane,
                       double* a, double* b) {
    for (int i = 0; i < NL; ++i) {
        double x, y;
        Vantrel::get_xy_XYZ(X[i], Y[i], Z[i], &x, &y);
        switch (plane) {
            case LocusPlane::XY:
                a[i] = x;
                b[i] = y;
                break;
            case LocusPlane::UV:
                Vantrel::get_uv_from_xy(x, y, &a[i], &b[i]);
                break;
            case LocusPlane::UPVP:
                Vantrel::get_upvp_from_xy(x, y, &a[i], &b[i]);
                break;
        }
    }
}

void horseShoe(const VantrelData& data, bool cie2015, LocusPlane plane, double* a, double* b) {
    double X[NL], Y[NL], Z[NL];
    int count = 0;
    if (cie2015) {
        data.getHorseShoeData_2015_10deg_xy(&count, X, Y, Z);
    } else {
        data.getHorseShoeData_xy(&count, X, Y, Z);
    }
    locusChromaticity(X, Y, Z, plane, a, b);
}
}  // namespace

void Vantrel::getHorseShoeData_xy(double* x, double* y) const {
    horseShoe(data, false, LocusPlane::XY, x, y);
}
void Vantrel::getHorseShoeData_uv(double* u, double* v) const {
    horseShoe(data, false, LocusPlane::UV, u, v);
}
void Vantrel::getHorseShoeData_upvp(double* up, double* vp) const {
    horseShoe(data, false, LocusPlane::UPVP, up, vp);
}
void Vantrel::getHorseShoeData_2015_10deg_xy(double* x, double* y) const {
    horseShoe(data, true, LocusPlane::XY, x, y);
}
void Vantrel::getHorseShoeData_2015_10deg_uv(double* u, double* v) const {
    horseShoe(data, true, LocusPlane::UV, u, v);
}
void Vantrel::getHorseShoeData_2015_10deg_upvp(double* up, double* vp) const {
    horseShoe(data, true, LocusPlane::UPVP, up, vp);
}
