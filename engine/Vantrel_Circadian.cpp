// Light-and-health metrics: circadian light CLA and circadian stimulus CS after Rea et al.
// (2012), the illuminance that reaches a given CS, the WELL Building Standard v1 melanopic
// ratio, the equivalent melanopic lux ratio, and lumens through an eye curve reaching 1050 nm.
#include <cmath>

#include "Grid.h"
#include "VantrelState.h"

namespace {

constexpr int N = Vantrel::NUM_GRID_POINTS;
// Lumens from Y: 683 lm/W times the 2 nm step.
constexpr double LUMENS_PER_Y = 1366.0;
// Below this a response integral counts as absent.
constexpr double TINY_INTEGRAL = 1e-12;
constexpr double MIN_LUX = 0.001;
// WELL v1: melanopic ratio scale, making equal-energy light come out near 1.
constexpr double WELL_RATIO_SCALE = 1.218;

// Rea et al. (2012) constants as this program settles them.
constexpr double CLA_SCALE = 1547.9;
constexpr double OPPONENT_WEIGHT = 0.7;
constexpr double V_WEIGHT_IN_OPPONENT = 0.2616;
constexpr double ROD_WEIGHT = 3.3;
constexpr double ROD_SATURATION = 6.5215;
constexpr double CS_MAX = 0.7;
constexpr double CLA_HALF = 355.7;
constexpr double CS_EXPONENT = 1.1026;

constexpr int MAX_SEARCH = 100;

// The four integrals of the CLA model (factor 2 nm only) and the lumen figure L of a spectrum.
struct CircadianSums {
    double L, mc, s, v, vPrime;
    bool anyTiny() const {
        return mc < TINY_INTEGRAL || s < TINY_INTEGRAL || v < TINY_INTEGRAL ||
               vPrime < TINY_INTEGRAL;
    }
};

double csAt(const CircadianSums& sums, double lux) {
    double cla, cs;
    Vantrel::getCircadianTerms(lux / sums.L, sums.mc, sums.s, sums.v, sums.vPrime, &cla, &cs);
    return cs;
}

// van Wijngaarden-Dekker-Brent root of csAt − target in [x1, x2] (Brent 1973). The bracket is
// not checked for a sign change: a bracket without a root still ends in one of its ends or in
// non-convergence.
bool brentRoot(const CircadianSums& sums, double target, double x1, double x2, double* root) {
    const double tol1 = 0.5 * 0.001 * target;
    double a = x1, b = x2, c = x2, d = 0, e = 0;
    double fa = csAt(sums, a) - target, fb = csAt(sums, b) - target;
    double fc = fb;
    for (int iter = 0; iter < MAX_SEARCH; ++iter) {
        if ((fb > 0 && fc > 0) || (fb < 0 && fc < 0)) {
            c = a;
            fc = fa;
            e = d = b - a;
        }
        if (std::fabs(fc) < std::fabs(fb)) {
            a = b;
            b = c;
            c = a;
            fa = fb;
            fb = fc;
            fc = fa;
        }
        const double xm = 0.5 * (c - b);
        if (std::fabs(xm) <= tol1 || fb == 0) {
            *root = b;
            return true;
        }
        if (std::fabs(e) >= tol1 && std::fabs(fa) > std::fabs(fb)) {
            const double s = fb / fa;
            double p, q;
            if (a == c) {
                p = 2.0 * xm * s;
                q = 1.0 - s;
            } else {
                const double qa = fa / fc, r = fb / fc;
                p = s * (2.0 * xm * qa * (qa - r) - (b - a) * (r - 1.0));
                q = (qa - 1.0) * (r - 1.0) * (s - 1.0);
            }
            if (p > 0) q = -q;
            p = std::fabs(p);
            const double min1 = 3.0 * xm * q - std::fabs(tol1 * q);
            const double min2 = std::fabs(e * q);
            if (2.0 * p < std::fmin(min1, min2)) {
                e = d;
                d = p / q;
            } else {
                d = xm;
                e = d;
            }
        } else {
            d = xm;
            e = d;
        }
        a = b;
        fa = fb;
        b += std::fabs(d) > tol1 ? d : (xm >= 0 ? tol1 : -tol1);
        fb = csAt(sums, b) - target;
    }
    return false;
}

// Plain (unweighted) sums over the grid, as the WELL and EML ratios are defined.
double plainSum(const double* a, const double* b) {
    double sum = 0;
    for (int i = 0; i < N; ++i) sum += a[i] * b[i];
    return sum;
}

}  // namespace

void Vantrel::getCircadianTerms(double scale, double mc, double s, double v, double vPrime,
                                double* cla, double* cs) {
    if (V_WEIGHT_IN_OPPONENT * v > s) {
        *cla = scale * mc;  // yellow side: no opponent term
    } else {
        *cla = scale * mc + OPPONENT_WEIGHT * scale * (s - V_WEIGHT_IN_OPPONENT * v) -
               ROD_WEIGHT * (1.0 - std::exp(-scale * vPrime / ROD_SATURATION));
    }
    *cla *= CLA_SCALE;
    *cs = CS_MAX * (1.0 - 1.0 / (1.0 + std::pow(*cla / CLA_HALF, CS_EXPONENT)));
}

namespace {
CircadianSums circadianSums(const Vantrel& engine, const VantrelData& data, const double* vPrime,
                            const double* spectrum) {
    double V[N], S[N], Mc[N];
    data.defineCircadianConstants(V, S, Mc);
    double X, Y, Z, x, y;
    engine.cie_XYZ(2, spectrum, nullptr, &X, &Y, &Z, &x, &y);
    CircadianSums sums;
    sums.L = LUMENS_PER_Y * Y;
    sums.mc = grid::STEP_NM * Vantrel::sum2Products(spectrum, Mc);
    sums.s = grid::STEP_NM * Vantrel::sum2Products(spectrum, S);
    sums.v = grid::STEP_NM * Vantrel::sum2Products(spectrum, V);
    sums.vPrime = grid::STEP_NM * Vantrel::sum2Products(spectrum, vPrime);
    return sums;
}
}  // namespace

bool Vantrel::getCircadian_CLA(const double* spectrum, double lux, double* cla, double* cs) {
    *cla = 0;
    *cs = 0;
    if (lux < MIN_LUX) return false;
    const CircadianSums sums = circadianSums(*this, data, ref->vPrime, spectrum);
    // A spectrum without lumens cannot be scaled to an illuminance.
    if (!(sums.L > 0)) return false;
    const double k = lux / sums.L;
    const CircadianSums scaled = {sums.L, k * sums.mc, k * sums.s, k * sums.v, k * sums.vPrime};
    if (scaled.anyTiny()) return false;
    getCircadianTerms(1.0, scaled.mc, scaled.s, scaled.v, scaled.vPrime, cla, cs);
    return true;
}

namespace {
// Relative miss of the target CS beyond which the found illuminance is refused.
constexpr double CRITICAL_MISS_TOLERANCE = 0.005;
}  // namespace

bool Vantrel::getCircadianCritical(const double* spectrum, double targetCS, double* lux) {
    *lux = 0;
    const CircadianSums sums = circadianSums(*this, data, ref->vPrime, spectrum);
    if (sums.anyTiny() || !(sums.L > 0)) return false;
    if (targetCS <= 0.01 || targetCS >= 1.0) return false;

    // Downward from 1000 lx first; the upward search runs only when that finds nothing.
    bool found = false;
    double low = 0, high = 0, lx = 1000.0;
    for (int i = 0; i < MAX_SEARCH && !found; ++i) {
        if (csAt(sums, lx) < targetCS)
            found = true;
        else
            lx *= 0.5;
    }
    if (found) {
        low = lx;
        high = low / 0.6;
    } else {
        lx = 900.0;
        for (int i = 0; i < MAX_SEARCH && !found; ++i) {
            if (csAt(sums, lx) > targetCS)
                found = true;
            else
                lx *= 1.5;
        }
        high = lx;
        low = high / 1.6;
    }
    if (!found) return false;
    // The bracket is not tested for a change of sign, and the first one found can miss the
    // root (2700 K passes CS 0.5 near 960 lx, past the 500-833 lx bracket) or there may be
    // none (CS saturates at 0.7). An illuminance that does not give the target is no answer.
    if (!brentRoot(sums, targetCS, low, high, lux)) return false;
    if (std::fabs(csAt(sums, *lux) - targetCS) > CRITICAL_MISS_TOLERANCE * targetCS) {
        *lux = 0;
        return false;
    }
    return true;
}

double Vantrel::getWellBuildingMelanopicRatio(const double* spectrum) {
    const double visual = plainSum(spectrum, ref->wellVisual);
    if (visual == 0) return NO_VALUE;
    return WELL_RATIO_SCALE * plainSum(spectrum, ref->wellMelanopic) / visual;
}

void Vantrel::get_Well_Buillding_Melanopic_and_Visual_curves(double* melanopic, double* visual) {
    for (int i = 0; i < N; ++i) {
        melanopic[i] = ref->wellMelanopic[i];
        visual[i] = ref->wellVisual[i];
    }
}

double Vantrel::getNormalizedEML(const double* spectrum) {
    const double visual = plainSum(spectrum, ref->emlVisual);
    if (!(visual > 0)) return 0;
    return WELL_RATIO_SCALE * plainSum(spectrum, ref->emlMelanopic) / visual;
}

double Vantrel::getEquivalenceLm(int n, const double* spectrum, double stepNm) {
    // True trapezoid rule on the 360-1050 nm grid of the eye curve.
    const int count = n < NUM_GRID_POINTS_IR ? n : NUM_GRID_POINTS_IR;
    double sum = 0;
    for (int i = 0; i < count; ++i) {
        const double w = (i == 0 || i == count - 1) ? 0.5 : 1.0;
        sum += w * spectrum[i] * ref->eyeIR[i];
    }
    return 683.0 * stepNm * sum;
}
