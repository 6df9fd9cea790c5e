// Colour rendering: CIE 13.3 R values with 15 samples, the CIELAB sets of the CRI and CES
// samples, the CMCCAT2000 adaptation they share with the Colour Quality Scale, and CQS 9.1.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "ColorMatrices.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NS = Vantrel::NUM_SAMPLES;

// CIE 13.3 uses the cube root as 0.3333 in W*; the program's R values were made with it.
constexpr double W_STAR_EXPONENT = 0.3333;
// Luminance (cd/m²) at which the CRI and CQS samples are adapted to the reference white.
constexpr double LAB_ADAPTING_LUMINANCE = 1000.0;
// CQS: gains of chroma are forgiven up to this ΔC*.
constexpr double CQS_SATURATION_LIMIT = 10.0;
// CQS divides by 15 samples whatever the number of colours scored.
constexpr double CQS_NUM_SAMPLES = 15.0;

// Inverse of CMCCAT2000 (Li, Luo, Rigg and Hunt 2002).
constexpr double CMCCAT_INV[3][3] = {{1.076450049, -0.237662388, 0.161212339},
                                     {0.410964325, 0.554341804, 0.03469387},
                                     {-0.010953765, -0.013389356, 1.024343122}};

using color_matrices::multiply;

// CIE 13.3 von Kries transform of a sample's c, d to the adapted u, v.
void adaptedUV(double c, double d, double ct, double dt, double cr, double dr, double* u,
               double* v) {
    const double D = 16.518 + 1.481 * cr * c / ct - dr * d / dt;
    *u = (10.872 + 0.404 * cr * c / ct - 4.0 * dr * d / dt) / D;
    *v = 5.52 / D;
}

double wStar(double Y) { return 25.0 * std::pow(Y, W_STAR_EXPONENT) - 17.0; }

// Special colour rendering index of one sample from its adapted test and reference values.
double specialIndex(double uTest, double vTest, double yTest, double uRef, double vRef, double yRef,
                    double u0, double v0) {
    const double wt = wStar(yTest), wr = wStar(yRef);
    const double dU = 13.0 * wt * (uTest - u0) - 13.0 * wr * (uRef - u0);
    const double dV = 13.0 * wt * (vTest - v0) - 13.0 * wr * (vRef - v0);
    const double dW = wt - wr;
    return 100.0 - 4.6 * std::sqrt(dW * dW + dU * dU + dV * dV);
}

// The limited score of CQS: 10·ln(exp((100 − 3.2·ΔE)/10) + 1), a smooth cap at 100.
double cqsScore(double dE) { return 10.0 * std::log(std::exp((100.0 - 3.2 * dE) / 10.0) + 1.0); }
}  // namespace

// ---------------------------------------------------------------------------------------------
// CIE 13.3

void Vantrel::getRvalues(double* R, const double* cTest, const double* dTest, double cRef,
                         double dRef, const double* YTest, const double* YRef, const double* uRef,
                         const double* vRef) const {
    R[0] = 0.0;
    for (int k = 1; k < NS; ++k) {
        double u, v;
        adaptedUV(cTest[k], dTest[k], cTest[0], dTest[0], cRef, dRef, &u, &v);
        const double yt = 100.0 * YTest[k] / YTest[0];
        const double yr = 100.0 * YRef[k] / YRef[0];
        double r = specialIndex(u, v, yt, uRef[k], vRef[k], yr, uRef[0], vRef[0]);
        if (r != r) r = R_VALUE_NAN;  // not clipped otherwise: negative R values stand
        R[k] = r;
        if (k < 9) R[0] += r;
    }
    R[0] /= 8.0;
}

void Vantrel::getUserRvalues(int n, const double* const* colors, double* R,
                             const double* spectrum) {
    const Reference& t = *this->ref;  // the name ref is taken by the reference spectrum below
    std::vector<double> test(N), ref(N);
    getReferenceSpectrum(cct, ref.data());
    const double yTest = sum2Products(spectrum, t.ybar[observer]);
    const double yRef = sum2Products(ref.data(), t.ybar[observer]);
    for (int i = 0; i < N; ++i) {
        test[i] = 100.0 * spectrum[i] / yTest;
        ref[i] *= 100.0 / yRef;
    }
    // The two illuminants: Y, u, v, c, d.
    double X, Y[2], Z, x, y, u[2], v[2], c[2], d[2];
    const double* spectra[2] = {test.data(), ref.data()};
    for (int row = 0; row < 2; ++row) {
        cie_XYZ(2, spectra[row], nullptr, &X, &Y[row], &Z, &x, &y);
        cie_1960_uvcd(x, y, &u[row], &v[row], &c[row], &d[row]);
    }
    for (int k = 0; k < n; ++k) {
        double Ys[2], us[2], vs[2], cs[2], ds[2];
        for (int row = 0; row < 2; ++row) {
            cie_XYZ(3, spectra[row], colors[k], &X, &Ys[row], &Z, &x, &y);
            cie_1960_uvcd(x, y, &us[row], &vs[row], &cs[row], &ds[row]);
        }
        double ua, va;
        adaptedUV(cs[0], ds[0], c[0], d[0], c[1], d[1], &ua, &va);
        R[k] = specialIndex(ua, va, 100.0 * Ys[0] / Y[0], us[1], vs[1], 100.0 * Ys[1] / Y[1], u[1],
                            v[1]);
    }
}

void Vantrel::getCRIstring(char* buf, double cctIn, int value) {
    if (cctIn > 25000.0 || cctIn < 1000.0) {
        std::snprintf(buf, 16, "N/A");
    } else {
        std::snprintf(buf, 16, "%d", value);
    }
}

// ---------------------------------------------------------------------------------------------
// Adaptation and CIELAB of samples

void Vantrel::von_Kries_adapted_XYZ(double Y, double u, double v, double ct, double dt, double cr,
                                    double dr, double* X, double* Yout, double* Z) {
    const double c = (4.0 - u - 10.0 * v) / v;
    const double d = (1.708 * v + 0.404 - 1.481 * u) / v;
    double ua, va, x, y;
    adaptedUV(c, d, ct, dt, cr, dr, &ua, &va);
    get_xy_from_uv(ua, va, &x, &y);
    *X = x / y * Y;
    *Yout = Y;
    *Z = (1.0 - x - y) / y * Y;
}

// CMCCAT2000. The degree of adaptation takes 1000 cd/m² as the first adapting luminance and is
// limited to 1 (at 1000 cd/m² it is exactly 1), with no lower limit.
void Vantrel::CMCCAT_v(double X, double Y, double Z, const double* sourceWhite,
                       const double* targetWhite, double adaptLuminance, double* outXYZ) {
    // From 1000 cd/m² up the formula gives at least 1.024, so D is 1 without working it out
    // (the CRI and CQS samples are always adapted at 1000 cd/m²).
    const double L = adaptLuminance;
    double D = 1.0;
    if (L < 1000.0) {
        D = 0.08 * std::log10(1000.0 + L) + 0.76 - 0.45 * (1000.0 - L) / (1000.0 + L);
        if (D > 1.0) D = 1.0;
    }

    const double sample[3] = {X, Y, Z};
    const double source[3] = {sourceWhite[0] * 100.0 / sourceWhite[1], 100.0,
                              sourceWhite[2] * 100.0 / sourceWhite[1]};
    double rgb[3], rgbSource[3], rgbTarget[3], adapted[3];
    multiply(color_matrices::CMCCAT2000, sample, rgb);
    multiply(color_matrices::CMCCAT2000, source, rgbSource);
    multiply(color_matrices::CMCCAT2000, targetWhite, rgbTarget);
    for (int k = 0; k < 3; ++k) adapted[k] = (D * rgbTarget[k] / rgbSource[k] + 1.0 - D) * rgb[k];
    multiply(CMCCAT_INV, adapted, outXYZ);
}

void Vantrel::get_Lab(int adapt, int row, double Yt, double ut, double vt, double ct, double dt,
                      double cr, double dr, double, double, double, double, double Xn, double Yn,
                      double Zn, double X, double Y, double Z, double* L, double* a,
                      double* b) const {
    double out[3];
    if (adapt != 0) {
        CMCCAT_v(X, Y, Z, whiteXYZ[row], whiteXYZ[1], LAB_ADAPTING_LUMINANCE, out);
    } else {
        von_Kries_adapted_XYZ(Yt, ut, vt, ct, dt, cr, dr, &out[0], &out[1], &out[2]);
    }
    get_CIELab_from_XYZ(out[0], out[1], out[2], Xn, Yn, Zn, L, a, b);
}

namespace {
// Test and reference of the current CCT, each normalized to Y = 100.
void normalizedPair(const Vantrel& v, const double* spectrum, double* test, double* ref) {
    double X, Y, Z, x, y;
    v.getReferenceSpectrum(v.getCCT(), ref);
    v.cie_XYZ(2, spectrum, nullptr, &X, &Y, &Z, &x, &y);
    for (int i = 0; i < N; ++i) test[i] = 100.0 * spectrum[i] / Y;
    v.cie_XYZ(2, ref, nullptr, &X, &Y, &Z, &x, &y);
    for (int i = 0; i < N; ++i) ref[i] *= 100.0 / Y;
}
}  // namespace

// Both rows are expressed under the reference white: a test sample is first adapted from the
// test white to the reference white. Fills L, a, b [row][first + k] for count reflectances.
void Vantrel::labOfSamples(const double* spectrum, const double (*reflectances)[N], int first,
                           int count, double* const* L, double* const* a, double* const* b) const {
    std::vector<double> test(N), ref(N);
    normalizedPair(*this, spectrum, test.data(), ref.data());
    double white[3], x, y;
    cie_XYZ(2, ref.data(), nullptr, &white[0], &white[1], &white[2], &x, &y);
    const double* spectra[2] = {test.data(), ref.data()};
    for (int k = first; k < first + count; ++k) {
        for (int row = 0; row < 2; ++row) {
            double X, Y, Z;
            cie_XYZ(3, spectra[row], reflectances[k], &X, &Y, &Z, &x, &y);
            get_Lab(1, row, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, white[0], white[1], white[2], X, Y, Z,
                    &L[row][k], &a[row][k], &b[row][k]);
        }
    }
}

void Vantrel::defineCIELabForRValues(const double* spectrum) {
    double* L[2] = {labR_L[0], labR_L[1]};
    double* a[2] = {labR_a[0], labR_a[1]};
    double* b[2] = {labR_b[0], labR_b[1]};
    labOfSamples(spectrum, ref->tcs, 1, NS - 1, L, a, b);
}

void Vantrel::defineCIELABForCESColors(const double* spectrum) {
    Tables& t = *tab;
    double* L[2] = {t.labCES_L[0], t.labCES_L[1]};
    double* a[2] = {t.labCES_a[0], t.labCES_a[1]};
    double* b[2] = {t.labCES_b[0], t.labCES_b[1]};
    labOfSamples(spectrum, ref->ces, 0, NUM_CES, L, a, b);
}

// ---------------------------------------------------------------------------------------------
// Colour Quality Scale

// Differences are reference minus test. A gain of chroma under the test source is forgiven up
// to CQS_SATURATION_LIMIT (the saturation allowance).
void Vantrel::get_CQS_term(int k, double** a, double** b, double** L, double* chroma,
                           double* sumSquares, double* Qk) {
    const double dL = L[1][k] - L[0][k];
    const double da = a[1][k] - a[0][k];
    const double db = b[1][k] - b[0][k];
    double dE2 = dL * dL + da * da + db * db;
    double dC = chroma[0] - chroma[1];
    if (dC > CQS_SATURATION_LIMIT) dC = CQS_SATURATION_LIMIT;
    if (dC > 0.0) dE2 = std::max(0.0, dE2 - dC * dC);
    *sumSquares += dE2;
    *Qk = cqsScore(std::sqrt(dE2));
}

double Vantrel::triangleArea(double x1, double y1, double x2, double y2, double x3, double y3,
                             bool* failed) {
    const double a = std::hypot(x2 - x1, y2 - y1);
    const double b = std::hypot(x3 - x2, y3 - y2);
    const double c = std::hypot(x1 - x3, y1 - y3);
    const double s = 0.5 * (a + b + c);
    const double product = s * (s - a) * (s - b) * (s - c);
    if (product > 0.0) {
        *failed = false;
        return std::sqrt(product);
    }
    *failed = true;
    return 0.0;
}

void Vantrel::getQvalues(double* Q, const double* testSpectrum, const double* referenceSpectrum,
                         double, double, double) {
    integrateQSamples(0, testSpectrum);
    integrateQSamples(1, referenceSpectrum);
    qValuesFromSamples(Q);
}

// The illuminant (column 0) and VS1 to VS15 of one row.
void Vantrel::integrateQSamples(int row, const double* spectrum) {
    const Reference& t = *ref;
    double x, y;
    cie_XYZ(2, spectrum, nullptr, &qX[row][0], &qY[row][0], &qZ[row][0], &x, &y);
    for (int k = 1; k < NS; ++k)
        cie_XYZ(3, spectrum, t.vs[k], &qX[row][k], &qY[row][k], &qZ[row][k], &x, &y);
}

void Vantrel::qValuesFromSamples(double* Q) {
    // u, v of each sample from its x, y, as cie_XYZ gives them.
    double u[2][NS], v[2][NS];
    for (int row = 0; row < 2; ++row) {
        for (int k = 0; k < NS; ++k) {
            double x, y, c, d;
            get_xy_XYZ(qX[row][k], qY[row][k], qZ[row][k], &x, &y);
            cie_1960_uvcd(x, y, &u[row][k], &v[row][k], &c, &d);
        }
    }

    double* L[2] = {labQ_L[0], labQ_L[1]};
    double* a[2] = {labQ_a[0], labQ_a[1]};
    double* b[2] = {labQ_b[0], labQ_b[1]};
    double sum = 0.0;
    for (int k = 1; k < NS; ++k) {
        double chroma[2];
        for (int row = 0; row < 2; ++row) {
            get_Lab(1, row, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, qX[1][0], qY[1][0], qZ[1][0],
                    qX[row][k], qY[row][k], qZ[row][k], &L[row][k], &a[row][k], &b[row][k]);
            chroma[row] = std::hypot(a[row][k], b[row][k]);
        }
        get_CQS_term(k, a, b, L, chroma, &sum, &Q[k]);
    }
    Q[0] = cqsScore(std::sqrt(sum / CQS_NUM_SAMPLES));

    // Gamut of the VS set in u'v' and uv. The fan of triangles about the centroid is left open:
    // the closing triangle VS15, VS1 is never added, and CQS gamut areas are defined so.
    double areaUpVp[2], areaUV[2];
    bool failed = false;
    for (int row = 0; row < 2; ++row) {
        cqsU[row][0] = 0.0;
        cqsVp[row][0] = 0.0;
        double cu = 0, cv = 0;
        for (int k = 1; k < NS; ++k) {
            cqsU[row][k] = u[row][k];
            cqsVp[row][k] = 1.5 * v[row][k];
            cu += u[row][k];
            cv += v[row][k];
        }
        cu /= NS - 1;
        cv /= NS - 1;
        areaUpVp[row] = areaUV[row] = 0.0;
        for (int k = 1; k < NS - 1; ++k) {
            areaUpVp[row] += triangleArea(cu, 1.5 * cv, cqsU[row][k], cqsVp[row][k],
                                          cqsU[row][k + 1], cqsVp[row][k + 1], &failed);
            areaUV[row] +=
                triangleArea(cu, cv, u[row][k], v[row][k], u[row][k + 1], v[row][k + 1], &failed);
        }
    }
    // The flag reflects only the last triangle of the last row; this is kept as it stands.
    for (int row = 0; row < 2; ++row) {
        cqsGamutArea_upvp[row] = failed ? NO_VALUE : areaUpVp[row];
        cqsGamutArea_uv[row] = failed ? NO_VALUE : areaUV[row];
    }
    gamutCQS_upvp = cqsGamutArea_upvp[1] > 0 ? cqsGamutArea_upvp[0] / cqsGamutArea_upvp[1] : 0.0;
    gamutCQS_uv = cqsGamutArea_uv[1] > 0 ? cqsGamutArea_uv[0] / cqsGamutArea_uv[1] : 0.0;
}

void Vantrel::getUserQvalues(int n, const double* const* colors, double* Q, const double* spectrum,
                             double** X, double** Y, double** Z, double** L, double** a, double** b,
                             double** x, double** y) {
    std::vector<double> test(N), ref(N);
    normalizedPair(*this, spectrum, test.data(), ref.data());
    double white[3], wx, wy;
    cie_XYZ(2, ref.data(), nullptr, &white[0], &white[1], &white[2], &wx, &wy);
    const double* spectra[2] = {test.data(), ref.data()};
    double sum = 0.0;
    for (int k = 0; k < n; ++k) {
        double chroma[2];
        for (int row = 0; row < 2; ++row) {
            cie_XYZ(3, spectra[row], colors[k], &X[row][k], &Y[row][k], &Z[row][k], &x[row][k],
                    &y[row][k]);
            get_Lab(1, row, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, white[0], white[1], white[2],
                    X[row][k], Y[row][k], Z[row][k], &L[row][k], &a[row][k], &b[row][k]);
            chroma[row] = std::hypot(a[row][k], b[row][k]);
        }
        get_CQS_term(k, a, b, L, chroma, &sum, &Q[k]);
    }
    userQa = cqsScore(std::sqrt(sum / CQS_NUM_SAMPLES));
}
