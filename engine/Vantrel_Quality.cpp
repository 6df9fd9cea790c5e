// Smaller figures of merit beside the rendering indices:
//   FCI   Feeling of Contrast Index (Hashimoto, Yano, Shimizu, Nayatani, Lighting Res. Technol.
//         39 (2007)), with Nayatani's nonlinear chromatic adaptation model;
//   SSI   Spectral Similarity Index (Academy of Motion Picture Arts and Sciences, 2016);
//   FSI   Full-Spectrum Index and its colour form FSCI (Rea, Lighting Research Center);
//   COI   Cyanosis Observation Index (AS/NZS 1680.2.5:1997);
//   film  exposures of the spectrum on a daylight and a 3200 K colour negative stock.
#include <algorithm>
#include <climits>
#include <cmath>
#include <vector>

#include "Grid.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// The engine grid in nm, for resampling.
std::vector<double> gridWavelengths() {
    std::vector<double> wl(N);
    for (int i = 0; i < N; ++i) wl[i] = grid::nm(i);
    return wl;
}

// --- FCI -------------------------------------------------------------------------------------

// Nayatani's fundamental primaries ξ, η, ζ of the adapting white x, y (1, 1, 1 for equal energy).
void nayataniPrimaries(double x, double y, double* xi, double* eta, double* zeta) {
    *xi = (0.48105 * x + 0.78841 * y - 0.08081) / y;
    *eta = (-0.272 * x + 1.11962 * y + 0.0457) / y;
    *zeta = 0.91822 * (1.0 - x - y) / y;
}

// Exponents of the nonlinear model for the red and green cones...
double betaRG(double r) {
    const double p = std::pow(r, 0.4495);
    return (6.469 + 6.362 * p) / (6.469 + p);
}

// ...and for the blue cones.
double betaB(double b) {
    const double p = std::pow(b, 0.5128);
    return (8.414 + 8.091 * p) * 0.7844 / (8.414 + p);
}

// Adapting cone level: 20000 (illuminance, lx) times the primary over 100π.
constexpr double ADAPTING_SCALE = 20000.0 / 314.159265358979;
constexpr double REFERENCE_ADAPTING = 63.661977236758204;  // the same for a primary of 1

// One cone response adapted from the source white (primary p) to the equal-energy white.
double adaptCone(double response, double primary, double exponent) {
    return (20.0 * 1.0 + 1.0) * std::pow((1.0 + response) / (20.0 * primary + 1.0), exponent) - 1.0;
}

// Heron's rule on three points of CIELAB; 0 for a degenerate triangle.
double triangleArea3D(const double* p, const double* q, const double* r) {
    auto dist = [](const double* u, const double* v) {
        return std::sqrt((u[0] - v[0]) * (u[0] - v[0]) + (u[1] - v[1]) * (u[1] - v[1]) +
                         (u[2] - v[2]) * (u[2] - v[2]));
    };
    const double a = dist(p, q), b = dist(q, r), c = dist(r, p);
    const double s = 0.5 * (a + b + c);
    const double h = s * (s - a) * (s - b) * (s - c);
    return h > 0 ? std::sqrt(h) : 0.0;
}

// Area of the four FCI colours under D65 at 1000 lx; FCI is 100 for D65.
constexpr double FCI_D65_AREA = 5268.0;

// --- SSI -------------------------------------------------------------------------------------

constexpr int SSI_BINS = 32;  // 30 bins of 10 nm, 375 to 675 nm, between two zero guards
constexpr int SSI_USED_BINS = 30;
constexpr int SSI_SAMPLES_PER_BIN = 10;
constexpr double SSI_START = 375.0, SSI_END = 675.0;

// Weight of each bin: the ends of the range count less.
constexpr double SSI_WEIGHTS[SSI_BINS] = {
    0, 12.0 / 45.0, 22.0 / 45.0, 32.0 / 45.0, 40.0 / 45.0, 44.0 / 45.0, 1,          1, 1, 1, 1, 1,
    1, 1,           1,           1,           1,           1,           1,          1, 1, 1, 1, 1,
    1, 1,           1,           1,           1,           33.0 / 45.0, 9.0 / 45.0, 0};

constexpr double SSI_KERNEL[3] = {0.22, 0.56, 0.22};
constexpr double SSI_SCALE = 32.0;

// --- FSI -------------------------------------------------------------------------------------

constexpr int FSI_POINTS = 351;                          // 380 to 730 nm in 1 nm steps
constexpr double FSI_IDEAL_STEP = 0.002849002849002849;  // 1/351
constexpr double FSCI_SLOPE = 5.1;

// Sum with half weight on the first and last of n values.
double endWeightedSum(const double* v, int n) {
    double sum = 0;
    for (int i = 0; i < n; ++i) sum += v[i];
    return sum - 0.5 * (v[0] + v[n - 1]);
}

// --- COI -------------------------------------------------------------------------------------

// CIELAB of oxygenated (Q100) and half-oxygenated (Q50) blood under the reference, a 4000 K
// Planckian radiator (its own COI is 0.007 with these two-decimal values).
constexpr double COI_Q100_LAB[3] = {30.39, 56.95, 28.59};
constexpr double COI_Q50_LAB[3] = {19.86, 26.94, 7.85};

// CIELAB in the plain cube-root form (no linear branch near black).
void cubeRootLab(const double* XYZ, const double* white, double* Lab) {
    const double fx = std::cbrt(XYZ[0] / white[0]);
    const double fy = std::cbrt(XYZ[1] / white[1]);
    const double fz = std::cbrt(XYZ[2] / white[2]);
    Lab[0] = 116.0 * fy - 16.0;
    Lab[1] = 500.0 * (fx - fy);
    Lab[2] = 200.0 * (fy - fz);
}

double labDistance(const double* p, const double* q) {
    return std::sqrt((p[0] - q[0]) * (p[0] - q[0]) + (p[1] - q[1]) * (p[1] - q[1]) +
                     (p[2] - q[2]) * (p[2] - q[2]));
}
}  // namespace

// ---------------------------------------------------------------------------------------------
// FCI

void Vantrel::calcFCI(const double* spectrum) {
    double X, Y, Z, x, y;
    cie_XYZ(2, spectrum, nullptr, &X, &Y, &Z, &x, &y);
    double xi, eta, zeta;
    nayataniPrimaries(x, y, &xi, &eta, &zeta);

    const double refRG = betaRG(REFERENCE_ADAPTING);
    const double eR = betaRG(ADAPTING_SCALE * xi) / refRG;
    const double eG = betaRG(ADAPTING_SCALE * eta) / refRG;
    const double eB = betaB(ADAPTING_SCALE * zeta) / betaB(REFERENCE_ADAPTING);

    const double scale = 100.0 / Y;
    double lab[VantrelData::NUM_FCI][3];
    for (int k = 0; k < VantrelData::NUM_FCI; ++k) {
        double Xk, Yk, Zk, xk, yk;
        cie_XYZ(3, spectrum, ref->fci[k], &Xk, &Yk, &Zk, &xk, &yk);
        Xk *= scale;
        Yk *= scale;
        Zk *= scale;
        const double R = 0.40024 * Xk + 0.7076 * Yk - 0.08081 * Zk;
        const double G = -0.2263 * Xk + 1.16532 * Yk + 0.0457 * Zk;
        const double B = 0.91822 * Zk;
        const double Ra = adaptCone(R, xi, eR);
        const double Ga = adaptCone(G, eta, eG);
        const double Ba = adaptCone(B, zeta, eB);
        const double Xa = 1.85995 * Ra - 1.12939 * Ga + 0.2199 * Ba;
        const double Ya = 0.36119 * Ra + 0.63881 * Ga;
        const double Za = 1.08906 * Ba;
        get_CIELab_from_XYZ(Xa, Ya, Za, 95.043, 100.0, 108.881, &lab[k][0], &lab[k][1], &lab[k][2]);
    }
    const double area =
        triangleArea3D(lab[0], lab[1], lab[2]) + triangleArea3D(lab[0], lab[3], lab[2]);
    fci = 100.0 * std::pow(area / FCI_D65_AREA, 1.5);
}

// ---------------------------------------------------------------------------------------------
// SSI

bool Vantrel::getBinValuesForSSI(const double* spectrum, double* bins) {
    const int M = static_cast<int>(SSI_END - SSI_START) + 1;
    std::vector<double> fine(M);
    const std::vector<double> wl = gridWavelengths();
    if (!resampleSpectrum(N, wl.data(), spectrum, SSI_START, SSI_END, 1.0, nullptr, fine.data())) {
        return false;
    }
    std::fill(bins, bins + SSI_BINS, 0.0);
    double total = 0;
    for (int k = 0; k < SSI_USED_BINS; ++k) {
        for (int j = 0; j < SSI_SAMPLES_PER_BIN; ++j)
            bins[k + 1] += fine[k * SSI_SAMPLES_PER_BIN + j];
        total += bins[k + 1];
    }
    // A spectrum dark over the whole range keeps its zero bins.
    if (total != 0.0) {
        for (int k = 1; k <= SSI_USED_BINS; ++k) bins[k] /= total;
    }
    return true;
}

bool Vantrel::getSSIValues(const double* test, const double* reference, int* ssi) {
    double t[SSI_BINS], r[SSI_BINS];
    if (!getBinValuesForSSI(test, t) || !getBinValuesForSSI(reference, r)) {
        *ssi = 0;
        return false;
    }
    double mean = 0;
    for (int k = 1; k <= SSI_USED_BINS; ++k) mean += r[k];
    mean /= SSI_USED_BINS;

    // Relative difference; a zero denominator ends the loop, the rest stays 0 and is still scored.
    bool ok = true;
    double weighted[SSI_BINS] = {};
    for (int k = 1; k <= SSI_USED_BINS; ++k) {
        const double denominator = r[k] + mean;
        if (denominator == 0.0) {
            ok = false;
            break;
        }
        weighted[k] = SSI_WEIGHTS[k] * (t[k] - r[k]) / denominator;
    }

    double smoothed[SSI_USED_BINS];
    convolute(weighted, SSI_BINS, SSI_KERNEL, 3, smoothed);
    double sumSquares = 0;
    for (double v : smoothed) sumSquares += v * v;
    const double score = 100.0 - SSI_SCALE * std::sqrt(sumSquares) + 0.5;
    // A spectrum whose bins overflow (or hold no number) has no score; the int is kept defined.
    if (!(std::fabs(score) < INT_MAX)) {
        *ssi = 0;
        return false;
    }
    *ssi = static_cast<int>(score);
    return ok;
}

// ---------------------------------------------------------------------------------------------
// FSI and FSCI

void Vantrel::calculateFullSpectrumIndicies(const double* spectrum) {
    fsi = -1;
    fsci = -1;
    const std::vector<double> wl = gridWavelengths();
    std::vector<double> doubled(2 * FSI_POINTS);
    if (!resampleSpectrum(N, wl.data(), spectrum, 380.0, 730.0, 1.0, nullptr, doubled.data())) {
        return;
    }
    const double total = endWeightedSum(doubled.data(), FSI_POINTS);
    // Doubled so that every rotation is a plain window.
    std::copy(doubled.begin(), doubled.begin() + FSI_POINTS, doubled.begin() + FSI_POINTS);

    // The sum starts from the -1 above: the index has always been computed this way.
    double sum = fsi;
    const int last = FSI_POINTS - 1;
    for (int r = 0; r < FSI_POINTS; ++r) {
        const double* s = doubled.data() + r;
        double cumulative = 0;
        for (int i = 0; i < FSI_POINTS; ++i) {
            const double w = (i == 0 || i == last) ? 0.5 : 1.0;
            cumulative += w * s[i] / total;
            const double d = cumulative - (i + 1) * FSI_IDEAL_STEP;
            sum += w * d * d;
        }
    }
    fsi = std::max(0.0, sum / FSI_POINTS);
    fsci = std::max(0.0, 100.0 - FSCI_SLOPE * fsi);
}

// ---------------------------------------------------------------------------------------------
// COI

double Vantrel::getCOI(const double* spectrum) {
    const int obs = 0;  // the index is defined for the 1931 observer only
    const double* cmf[3] = {ref->xbar[obs], ref->ybar[obs], ref->zbar[obs]};
    double white[3], q100[3], q50[3];
    for (int c = 0; c < 3; ++c) {
        white[c] = sum2Products(spectrum, cmf[c]);
        q100[c] = sum3Products(spectrum, ref->q100, cmf[c]);
        q50[c] = sum3Products(spectrum, ref->q50, cmf[c]);
    }
    double lab100[3], lab50[3];
    cubeRootLab(q100, white, lab100);
    cubeRootLab(q50, white, lab50);
    return 0.5 * (labDistance(lab100, COI_Q100_LAB) + labDistance(lab50, COI_Q50_LAB));
}

// ---------------------------------------------------------------------------------------------
// Film terms

void Vantrel::calc_kodak_daylight_values(const double* spectrum, double* r, double* g,
                                         double* b) const {
    *r = sum2Products(spectrum, ref->filmDaylight[0]);
    *g = sum2Products(spectrum, ref->filmDaylight[1]);
    *b = sum2Products(spectrum, ref->filmDaylight[2]);
}

void Vantrel::calc_kodak_3200K_values(const double* spectrum, double* r, double* g,
                                      double* b) const {
    *r = sum2Products(spectrum, ref->film3200K[0]);
    *g = sum2Products(spectrum, ref->film3200K[1]);
    *b = sum2Products(spectrum, ref->film3200K[2]);
}
