// Chromaticity conversions, correlated colour temperature, Duv and reference spectra.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <tuple>
#include <utility>

#include "PlanckPolynomials.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// Brent's minimiser: golden fraction and the absolute floor of its tolerance.
constexpr double CGOLD = 0.381966;
constexpr double ZEPS = 1e-15;
constexpr int BRENT_MAX_ITERATIONS = 100;

// Second radiation constant of getBlackBody in m·K. The CCT search uses 1.4388e-2 m·K through
// its 14.388/λ table; the two differ on purpose (a 3000 K black body reads about 3000.06 K).
constexpr double C2_BLACK_BODY = 0.01438769;

// Reference spectrum switches from Planck to CIE daylight inside this CCT range (K).
constexpr double DAYLIGHT_REFERENCE_MIN = 4999.99999;
constexpr double DAYLIGHT_REFERENCE_MAX = 25000.0;

// Duv beyond which a CCT is not shown.
constexpr double CCT_STRING_MAX_DUV = 0.05;

double signOf(double a, double b) { return b >= 0.0 ? std::fabs(a) : -std::fabs(a); }
}  // namespace

// ---------------------------------------------------------------------------------------------
// Conversions

void Vantrel::get_uv_from_xy(double x, double y, double* u, double* v) {
    const double d = -x + 6.0 * y + 1.5;
    *u = 2.0 * x / d;
    *v = 3.0 * y / d;
}

void Vantrel::get_xy_from_uv(double u, double v, double* x, double* y) {
    const double d = 2.0 * u - 8.0 * v + 4.0;
    *x = 3.0 * u / d;
    *y = 2.0 * v / d;
}

void Vantrel::get_upvp_from_xy(double x, double y, double* up, double* vp) {
    double u, v;
    get_uv_from_xy(x, y, &u, &v);
    get_upvp_from_uv(u, v, up, vp);
}

void Vantrel::get_upvp_from_uv(double u, double v, double* up, double* vp) {
    *up = u;
    *vp = 1.5 * v;
}

void Vantrel::get_uv_from_upvp(double up, double vp, double* u, double* v) {
    *u = up;
    *v = vp / 1.5;
}

void Vantrel::get_xy_from_upvp(double up, double vp, double* x, double* y) {
    get_xy_from_uv(up, vp / 1.5, x, y);
}

void Vantrel::get_XYZ_from_xylm(double x, double y, double lm, double* X, double* Y, double* Z) {
    *X = x / y * lm;
    *Y = lm;
    *Z = (1.0 - x - y) / y * lm;
}

void Vantrel::getXYZ_from_xylm(double x, double y, double lm, double* X, double* Y, double* Z) {
    get_XYZ_from_xylm(x, y, lm, X, Y, Z);
}

// CIE 1960 u, v and the c, d of the CIE 13.3 chromatic adaptation.
void Vantrel::cie_1960_uvcd(double x, double y, double* u, double* v, double* c, double* d) {
    const double d0 = -2.0 * x + 12.0 * y + 3.0;
    *u = 4.0 * x / d0;
    *v = 6.0 * y / d0;
    *c = (4.0 - *u - 10.0 * *v) / *v;
    *d = (1.708 * *v + 0.404 - 1.481 * *u) / *v;
}

double Vantrel::getSignedDistance(double u1, double u2, double v1, double v2) {
    const double du = u1 - u2;
    const double dv = v1 - v2;
    const double distance = std::sqrt(du * du + dv * dv);
    return v2 > v1 ? -distance : distance;
}

// ---------------------------------------------------------------------------------------------
// CCT search

double Vantrel::get_u_new(double urd) const { return planck_fit::locusU(observer, urd); }

double Vantrel::get_v_new(double urd) const { return planck_fit::locusV(observer, urd); }

void Vantrel::exactLocusUV(const Reference& t, int observer, double urd, double* u, double* v) {
    const double* xb = t.xbar[observer];
    const double* yb = t.ybar[observer];
    const double* zb = t.zbar[observer];
    double X = 0, Y = 0, Z = 0;
    for (int i = 0; i < N; ++i) {
        const double w = t.invLambda5[i] / (std::exp(t.c2OverLambda[i] * urd) - 1.0);
        X += xb[i] * w;
        Y += yb[i] * w;
        Z += zb[i] * w;
    }
    const double d = X + 15.0 * Y + 3.0 * Z;
    *u = 4.0 * X / d;
    *v = 6.0 * Y / d;
}

double Vantrel::getDuvFrom_urd(double u, double v, double urd, bool fast) const {
    double ub, vb;
    if (fast) {
        ub = get_u_new(urd);
        vb = get_v_new(urd);
    } else {
        exactLocusUV(*ref, observer, urd, &ub, &vb);
    }
    return distanceTo(u, v, ub, vb);
}

double Vantrel::distanceTo(double u, double v, double ub, double vb) {
    const double du = u - ub;
    const double dv = v - vb;
    return std::sqrt(du * du + dv * dv);
}

// The exact search always starts from the same few locus points; they are worked out once per
// process (each exactly as getDuvFrom_urd works it out) and only their distances taken per call.
double Vantrel::duvAtSearchPoint(double u, double v, int point, bool fast) const {
    if (fast) return getDuvFrom_urd(u, v, CCT_SEARCH_URD[point], fast);
    return distanceTo(u, v, ref->searchU[observer][point], ref->searchV[observer][point]);
}

void Vantrel::getCCTdata(double u, double v, double* cctOut, bool fast) {
    // Moving from 1000 K to 1001 K goes further away: the point lies beyond the red end.
    if (duvAtSearchPoint(u, v, SEARCH_1001K, fast) > duvAtSearchPoint(u, v, SEARCH_1000K, fast)) {
        *cctOut = MIN_CCT;
        return;
    }
    // 949999 K further away than 950000 K: beyond the blue end.
    if (duvAtSearchPoint(u, v, SEARCH_949999K, fast) >
        duvAtSearchPoint(u, v, SEARCH_950000K, fast)) {
        *cctOut = MAX_CCT;
        return;
    }
    const double fStart = duvAtSearchPoint(u, v, SEARCH_START, fast);
    *cctOut = brentFrom(0.1, CCT_SEARCH_URD[SEARCH_START], 10000.0, fStart, u, v, fast);
    // With the 2015 10° observer the locus turns back near 2950 mired (340 K) and the search can
    // settle there for reds just above 1000 K. The end tests have already placed the colour above
    // 1000 K, so search again inside that bound; every other result stays as the search gave it.
    if (*cctOut < MIN_CCT)
        *cctOut = brentFrom(0.1, CCT_SEARCH_URD[SEARCH_START], 1000.0, fStart, u, v, fast);
}

double Vantrel::brent(double ax, double bx, double cx, double u, double v, bool fast) const {
    return brentFrom(ax, bx, cx, getDuvFrom_urd(u, v, bx, fast), u, v, fast);
}

// Brent's parabolic minimisation in mired (Numerical Recipes form). The tolerance is set after
// each step to the mired distance of a 1e-8 relative step in T and then used as a relative
// figure: both halves together decide how closely the CCT converges, and results depend on it.
// fbx is the distance at bx.
double Vantrel::brentFrom(double ax, double bx, double cx, double fbx, double u, double v,
                          bool fast) const {
    double a = std::min(ax, cx);
    double b = std::max(ax, cx);
    double x = bx, w = bx, vv = bx;
    double e = 0.0, d = 0.0;
    double tol = 0.0;
    double fx = fbx;
    double fw = fx, fv = fx;

    for (int iter = 0; iter < BRENT_MAX_ITERATIONS; ++iter) {
        const double xm = 0.5 * (a + b);
        const double tol1 = tol * std::fabs(x) + ZEPS;
        const double tol2 = 2.0 * tol1;
        if (std::fabs(x - xm) <= tol2 - 0.5 * (b - a)) break;

        if (std::fabs(e) > tol1) {
            const double r = (x - w) * (fx - fv);
            double q = (x - vv) * (fx - fw);
            double p = (x - vv) * q - (x - w) * r;
            q = 2.0 * (q - r);
            if (q > 0.0) p = -p;
            q = std::fabs(q);
            const double etemp = e;
            e = d;
            if (std::fabs(p) >= std::fabs(0.5 * q * etemp) || p <= q * (a - x) ||
                p >= q * (b - x)) {
                e = (x >= xm) ? a - x : b - x;
                d = CGOLD * e;
            } else {
                d = p / q;
                const double trial = x + d;
                if (trial - a < tol2 || b - trial < tol2) d = signOf(tol1, xm - x);
            }
        } else {
            e = (x >= xm) ? a - x : b - x;
            d = CGOLD * e;
        }

        const double next = (std::fabs(d) >= tol1) ? x + d : x + signOf(tol1, d);
        const double fnext = getDuvFrom_urd(u, v, next, fast);
        if (fnext <= fx) {
            if (next >= x) {
                a = x;
            } else {
                b = x;
            }
            vv = w;
            w = x;
            x = next;
            fv = fw;
            fw = fx;
            fx = fnext;
        } else {
            if (next < x) {
                a = next;
            } else {
                b = next;
            }
            if (fnext <= fw || w == x) {
                vv = w;
                w = next;
                fv = fw;
                fw = fnext;
            } else if (fnext <= fv || vv == x || vv == w) {
                vv = next;
                fv = fnext;
            }
        }
        tol = std::fabs(x - 1e6 / (1.00000001 * (1e6 / x)));
    }
    return 1e6 / x;
}

// The older secant-like walk seeded from the 26-point table; kept for comparison.
void Vantrel::getCCTdata_old(double u, double v, double* cctOut, bool fast) {
    const Reference& t = *ref;
    const int table = cctTableIndex();
    constexpr int STEPS = 36;
    double urd[STEPS];
    double dist[STEPS];

    double best = 1e50;
    int start = 0;
    for (int k = 0; k < VantrelData::NUM_CCT_TABLE; ++k) {
        const double du = u - t.cctU[table][k];
        const double dv = v - t.cctV[table][k];
        const double dk = std::sqrt(du * du + dv * dv);
        if (dk < best) {
            best = dk;
            start = k;
        }
    }
    auto evaluate = [&](double value) {
        if (value < 1e-10) value = 1e-10;
        const double distance = getDuvFrom_urd(u, v, value, fast);
        if (fast) value = std::clamp(value, 1.0, 10000.0);
        return std::make_pair(value, distance);
    };
    std::tie(urd[0], dist[0]) = evaluate(t.cctUrd[table][start]);
    std::tie(urd[1], dist[1]) = evaluate(t.cctUrd[table][start] + 20.0);
    for (int n = 2; n < STEPS; ++n) {
        double next;
        if (dist[n - 1] < dist[n - 2]) {
            next = 2.0 * urd[n - 1] - urd[n - 2];
        } else {
            next = urd[n - 1] - (urd[n - 1] - urd[n - 2]) / 4.231;
        }
        std::tie(urd[n], dist[n]) = evaluate(next);
    }
    *cctOut = 1e6 / urd[STEPS - 1];
}

// ---------------------------------------------------------------------------------------------
// Distances to the Planck locus

void Vantrel::calDeltaBlackBody(double cctIn, double x, double y, bool) {
    get_uv_from_xy(x, y, &ucoord, &vcoord);
    calDeltaBlackBody_p1(cctIn, ucoord, vcoord);
}

void Vantrel::calDeltaBlackBody(double x, double y, bool fast) {
    get_uv_from_xy(x, y, &ucoord, &vcoord);
    getCCTdata(ucoord, vcoord, &cct, fast);
    calDeltaBlackBody_p1(cct, ucoord, vcoord);
}

void Vantrel::calDeltaBlackBody_p1(double cctIn, double u, double v) {
    cie_XYZ(2, blackBodyAt(cctIn), nullptr, &sX[1][0], &sY[1][0], &sZ[1][0], &sx[1][0], &sy[1][0]);
    cie_1960_uvcd(sx[1][0], sy[1][0], &su[1][0], &sv[1][0], &sc[1][0], &sd[1][0]);
    deltaUVPlanck = getSignedDistance(u, su[1][0], v, sv[1][0]);
    deltaUpVpPlanck = getSignedDistance(u, su[1][0], 1.5 * v, 1.5 * sv[1][0]);
}

void Vantrel::calDeltaUV_cri(double x, double y, bool fast) {
    Tables& t = *tab;
    sx[0][0] = x;
    sy[0][0] = y;
    cie_1960_uvcd(x, y, &su[0][0], &sv[0][0], &sc[0][0], &sd[0][0]);
    getCCTdata(su[0][0], sv[0][0], &cct, fast);
    getReferenceSpectrum(cct, t.normRef);
    const double yRef = sum2Products(t.normRef, ref->ybar[observer]);
    for (int i = 0; i < N; ++i) t.normRef[i] *= 100.0 / yRef;
    integrateSamples(1, t.normRef);
    cie_1960_uvcd(sx[1][0], sy[1][0], &su[1][0], &sv[1][0], &sc[1][0], &sd[1][0]);
    deltaUV_cri = getSignedDistance(su[0][0], su[1][0], sv[0][0], sv[1][0]);
}

// The fast Duv of combination runs. The Planck point comes from the polynomial locus of the
// 1931 observer in mired, which follows the exact locus to 1e-6; polynomials in T of degree 6
// over this range cannot do better than a few 1e-4 in x.
double Vantrel::getDuvFromCCTxy_100Kto40kK(double cctIn, double x, double y) const {
    if (cctIn < 1000.0 || cctIn > 20000.0) return -1.0;
    double u, v;
    get_uv_from_xy(x, y, &u, &v);
    const double urd = 1e6 / cctIn;
    return getSignedDistance(u, planck_fit::locusU(0, urd), v, planck_fit::locusV(0, urd));
}

// Moves off the locus at right angles in the uv plane by duv.
void Vantrel::get_xy_from_CCT_Duv(double cctIn, double duv, double* x, double* y) {
    double* planck = tab->planck;
    double u1, v1, u2, v2;
    getBlackBody(planck, cctIn);
    calcCCT(planck, false);
    get_uv_from_xy(xcoord, ycoord, &u1, &v1);
    getBlackBody(planck, cctIn + 1.0);
    calcCCT(planck, false);
    get_uv_from_xy(xcoord, ycoord, &u2, &v2);

    const double du = u2 - u1;
    const double dv = v2 - v1;
    const double n = std::sqrt(du * du + dv * dv);
    const double u = u1 + duv * dv / n;
    const double v = v1 - duv * du / n;
    const double up = u;
    const double vp = 1.5 * v;
    *x = 9.0 * up / (6.0 * up - 16.0 * vp + 12.0);
    *y = 2.0 * vp / (3.0 * up - 8.0 * vp + 6.0);
}

namespace {
double slope(double x1, double y1, double x2, double y2) {
    const double dx = x2 - x1;
    if (std::fabs(dx) <= 1e-6) return 1e6;
    return (y2 - y1) / dx;
}
}  // namespace

double Vantrel::getSlopeOfCCTLine_xy(double cctIn) {
    double x1, y1, x2, y2;
    get_xy_from_CCT_Duv(cctIn + 10.0, 0.01, &x1, &y1);
    get_xy_from_CCT_Duv(cctIn + 10.0, -0.01, &x2, &y2);
    return slope(x1, y1, x2, y2);
}

double Vantrel::getSlopeOfCCTLine_xy(double x, double y) {
    calDeltaBlackBody(x, y, false);
    return getSlopeOfCCTLine_xy(cct);
}

double Vantrel::getSlopeOfBlackBodyLine_xy(double cctIn) {
    double x1, y1, x2, y2;
    get_xy_from_CCT_Duv(cctIn + 10.0, 0.0, &x1, &y1);
    get_xy_from_CCT_Duv(cctIn - 10.0, 0.0, &x2, &y2);
    return slope(x1, y1, x2, y2);
}

double Vantrel::getSlopeOfBlackBodyLine_xy(double x, double y) {
    calDeltaBlackBody(x, y, false);
    return getSlopeOfBlackBodyLine_xy(cct);
}

// ---------------------------------------------------------------------------------------------
// Reference spectra

void Vantrel::getBlackBody(double* s, double T) { getBlackBody(s, T, N); }

// Planck's law; the wavelength starts one step below 360 nm and is advanced before use.
void Vantrel::getBlackBody(double* s, double T, int n) {
    double lambda = 3.58e-7;
    for (int i = 0; i < n; ++i) {
        lambda += 2e-9;
        const double l5 = lambda * lambda * lambda * lambda * lambda;
        s[i] = 1e-30 / (l5 * (std::exp(C2_BLACK_BODY / T / lambda) - 1.0));
    }
}

// CIE 15 daylight: chromaticity from the CCT (branch at 7000 K), unrounded M1 and M2.
void Vantrel::daylightFactors(double T, double* M1, double* M2) {
    const double T2 = T * T;
    const double T3 = T2 * T;
    double xD;
    if (T < 7000.0) {
        xD = 0.244063 + 99.11 / T + 2.9678e6 / T2 - 4.607e9 / T3;
    } else {
        xD = 0.23704 + 247.48 / T + 1.9018e6 / T2 - 2.0064e9 / T3;
    }
    const double yD = -0.275 + 2.87 * xD - 3.0 * xD * xD;
    const double M = 0.0241 + 0.2562 * xD - 0.7341 * yD;
    *M1 = (-1.3515 - 1.7703 * xD + 5.9114 * yD) / M;
    *M2 = (0.03 - 31.4424 * xD + 30.0717 * yD) / M;
}

void Vantrel::getSyntheticDaylight(double* s, double T) const {
    const Reference& t = *ref;
    double M1, M2;
    daylightFactors(T, &M1, &M2);
    for (int i = 0; i < N; ++i) s[i] = t.S0[i] + M1 * t.S1[i] + M2 * t.S2[i];
}

void Vantrel::getReferenceSpectrum(double cctIn, double* s) const {
    if (cctIn >= DAYLIGHT_REFERENCE_MIN && cctIn <= DAYLIGHT_REFERENCE_MAX) {
        getSyntheticDaylight(s, cctIn);
    } else {
        std::memcpy(s, blackBodyAt(cctIn), N * sizeof(double));
    }
}

const double* Vantrel::blackBodyAt(double T) const {
    Tables& t = *tab;
    if (!(t.blackBodyT == T)) {
        getBlackBody(t.blackBody, T);
        t.blackBodyT = T;
    }
    return t.blackBody;
}

void Vantrel::getCCTstring(char* buf, double cctIn, double duv) {
    if (std::fabs(duv) > CCT_STRING_MAX_DUV) {
        std::snprintf(buf, 16, "N/A");
    } else if (cctIn > 1e6) {
        std::snprintf(buf, 16, ">1,000,000");
    } else if (cctIn < 999.0) {
        std::snprintf(buf, 16, "<1000");
    } else {
        std::snprintf(buf, 16, "%.0lf", cctIn);
    }
}
