// CIELAB, CIEDE2000, sRGB, HSV and HSL, three-source mixing, photons, spectrum tools and the
// screen colours of reflectances.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "GetMonitorColors.h"
#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr double ROUND_TRIP_TOL = 1e-9;

struct De2000 {
    double SL, SC, SH, dL, dC, dH, dE;
};

De2000 ciede2000(double L1, double a1, double b1, double L2, double a2, double b2,
                 FILE* trace = nullptr) {
    De2000 r;
    Vantrel::get_CIEDE2000_from_CIELab(L1, a1, b1, L2, a2, b2, 1, 1, 1, nullptr, nullptr, &r.SL,
                                       &r.SC, &r.SH, &r.dL, &r.dC, &r.dH, &r.dE, trace);
    return r;
}

std::vector<double> readTrace(FILE* f) {
    std::rewind(f);
    std::vector<double> v;
    double d;
    while (std::fscanf(f, "%lf", &d) == 1) v.push_back(d);
    return v;
}

// Gaussian of height 1 on the 2 nm grid from 360 nm.
std::vector<double> gaussian(int n, double centre, double sigma) {
    return testutil::gaussianSpectrum(centre, sigma, 1.0, n);
}
}  // namespace

TEST(Ciede2000, ReproducesTheThirtyFourSharmaWuDalalPairs) {
    std::ifstream in(std::string(LUMIVAR_TEST_DATA_DIR) + "/ciede2000_sharma_2005.tsv");
    ASSERT_TRUE(in) << "test table missing";
    const double publishedTol = 1e-4;  // the table gives dE00 to four decimals
    std::string line;
    int pairs = 0;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#' || line.compare(0, 4, "pair") == 0) continue;
        std::istringstream row(line);
        int pair;
        double L1, a1, b1, L2, a2, b2, expected;
        ASSERT_TRUE(row >> pair >> L1 >> a1 >> b1 >> L2 >> a2 >> b2 >> expected) << line;
        const CIEDE2000Terms t = Vantrel::ciede2000({L1, a1, b1}, {L2, a2, b2});
        EXPECT_NEAR(t.dE, expected, publishedTol) << "pair " << pair;
        // The argument-list form the calculators use gives the same bits.
        EXPECT_EQ(ciede2000(L1, a1, b1, L2, a2, b2).dE, t.dE) << "pair " << pair;
        ++pairs;
    }
    EXPECT_EQ(pairs, 34);
}

TEST(Ciede2000, NeutralColoursHaveHueZeroAndDifferOnlyInLightness) {
    FILE* trace = std::tmpfile();
    ASSERT_NE(trace, nullptr);
    // L* 70 against 50: the mean L* of 60 gives SL = 1 + 0.015·100/sqrt(120).
    const De2000 r = ciede2000(70, 0, 0, 50, 0, 0, trace);
    const std::vector<double> f = readTrace(trace);
    std::fclose(trace);
    ASSERT_EQ(f.size(), 26u);
    EXPECT_EQ(f[11], 0.0);         // h′ of colour 1
    EXPECT_EQ(f[12], 0.0);         // h′ of colour 2
    EXPECT_DOUBLE_EQ(r.dL, 20.0);  // raw, first minus second, before kL·SL
    EXPECT_DOUBLE_EQ(r.dE, 20.0 / (1.0 + 1.5 / std::sqrt(120.0)));
    EXPECT_NEAR(f[25], r.dE, 1e-6 * r.dE);  // the trace ends with ΔE ("%.6le")

    EXPECT_EQ(ciede2000(50, 0, 0, 50, 0, 0).dE, 0.0);
}

TEST(Ciede2000, FromXyzConvertsWithTheGivenWhiteAndTracesChromaticitiesFirst) {
    const double Xn = 96.42, Yn = 100.0, Zn = 82.51;  // a D50 white, not the default D65
    double L1, a1, b1, L2, a2, b2;
    Vantrel::get_CIELab_from_XYZ(30, 25, 12, Xn, Yn, Zn, &L1, &a1, &b1);
    Vantrel::get_CIELab_from_XYZ(28, 26, 15, Xn, Yn, Zn, &L2, &a2, &b2);
    FILE* trace = std::tmpfile();
    ASSERT_NE(trace, nullptr);
    De2000 r;
    Vantrel::get_CIEDE2000_from_XYZ(7, 30, 25, 12, 28, 26, 15, Xn, Yn, Zn, 1, 1, 1, &r.SL, &r.SC,
                                    &r.SH, &r.dL, &r.dC, &r.dH, &r.dE, trace);
    const std::vector<double> f = readTrace(trace);
    std::fclose(trace);
    EXPECT_EQ(r.dE, ciede2000(L1, a1, b1, L2, a2, b2).dE);
    ASSERT_EQ(f.size(), 36u);              // X, Y, Z, x, y of both, then the 26 of the Lab form
    EXPECT_NEAR(f[3], 30.0 / 67.0, 1e-6);  // x of colour 1
    EXPECT_NEAR(f[9], 26.0 / 69.0, 1e-6);  // y of colour 2
}

TEST(Cielab, RoundTripsExactlyAboveTheBreakAndScalesLBelowItByTheRoundedConstants) {
    const double Xn = 95.047, Yn = 100.0, Zn = 108.883;
    const struct {
        double L, a, b;
    } cases[] = {{95, -20, 40}, {50, 60, -70}, {8, 3, -2}, {7.9, 3, -2}, {2, -1, 1}};
    for (const auto& c : cases) {
        double X, Y, Z, L, a, b;
        Vantrel::get_XYZ_from_CIELab(c.L, c.a, c.b, Xn, Yn, Zn, &X, &Y, &Z);
        Vantrel::get_CIELab_from_XYZ(X, Y, Z, Xn, Yn, Zn, &L, &a, &b);
        // Below L* 8 the reverse uses κ = 903 and the forward 116·7.787 = 903.292, so L* comes
        // back 0.03 % high; a* and b* invert exactly through the shared f(Y/Yn).
        const double expectedL = c.L < 8 ? c.L * 116.0 * 7.787 / 903.0 : c.L;
        EXPECT_NEAR(L, expectedL, ROUND_TRIP_TOL) << c.L;
        EXPECT_NEAR(a, c.a, ROUND_TRIP_TOL) << c.L;
        EXPECT_NEAR(b, c.b, ROUND_TRIP_TOL) << c.L;
    }
    const double xyzCases[][3] = {{41.24, 21.26, 1.93}, {95.047, 100, 108.883}, {5, 1.2, 30}};
    for (const auto& c : xyzCases) {
        double L, a, b, X, Y, Z;
        Vantrel::get_CIELab_from_XYZ(c[0], c[1], c[2], Xn, Yn, Zn, &L, &a, &b);
        Vantrel::get_XYZ_from_CIELab(L, a, b, Xn, Yn, Zn, &X, &Y, &Z);
        EXPECT_NEAR(X, c[0], ROUND_TRIP_TOL);
        EXPECT_NEAR(Y, c[1], ROUND_TRIP_TOL);
        EXPECT_NEAR(Z, c[2], ROUND_TRIP_TOL);
    }
    double x, y;
    Vantrel::get_xy_from_CIELab(100, 0, 0, Xn, Yn, Zn, &x, &y);
    EXPECT_NEAR(x, Xn / (Xn + Yn + Zn), ROUND_TRIP_TOL);
    EXPECT_NEAR(y, Yn / (Xn + Yn + Zn), ROUND_TRIP_TOL);
    EXPECT_DOUBLE_EQ(Vantrel::get_dE_star_from_CIELab(50, 3, 4, 50, 0, 0), 5.0);
}

TEST(Srgb, D65WhiteReadsFullScaleAndBlackZero) {
    int w[3], k[3];
    Vantrel::XYZ_to_sRGB_D65(95.047, 100, 108.883, &w[0], &w[1], &w[2]);
    Vantrel::XYZ_to_sRGB_D65(0, 0, 0, &k[0], &k[1], &k[2]);
    // The four-digit matrix gives blue 0.99983 for the D65 white; truncation makes that 254.
    EXPECT_EQ(std::vector<int>(w, w + 3), (std::vector<int>{255, 255, 254}));
    EXPECT_EQ(std::vector<int>(k, k + 3), (std::vector<int>{0, 0, 0}));
}

TEST(HsvHsl, RoundTripThroughRgbOverAGridOfColours) {
    const double steps[] = {0.0, 0.25, 0.5, 0.75, 1.0};
    for (double r : steps) {
        for (double g : steps) {
            for (double b : steps) {
                double h, s, v, l, back[2][3];
                Vantrel::RGBtoHSV(r, g, b, &h, &s, &v);
                Vantrel::HSVtoRGB(h, s, v, &back[0][0], &back[0][1], &back[0][2]);
                Vantrel::RGBtoHSL(r, g, b, &h, &s, &l);
                Vantrel::HSLtoRGB(h, s, l, &back[1][0], &back[1][1], &back[1][2]);
                for (const auto& c : back) {
                    EXPECT_NEAR(c[0], r, ROUND_TRIP_TOL);
                    EXPECT_NEAR(c[1], g, ROUND_TRIP_TOL);
                    EXPECT_NEAR(c[2], b, ROUND_TRIP_TOL);
                }
            }
        }
    }
}

TEST(HsvHsl, BlackHasNoHueGreyHueZeroAndPureRedConvertsBetweenModels) {
    double h, s, v, l;
    Vantrel::RGBtoHSV(0, 0, 0, &h, &s, &v);
    EXPECT_EQ(h, -1.0);
    EXPECT_EQ(s, 0.0);
    Vantrel::RGBtoHSV(0.4, 0.4, 0.4, &h, &s, &v);
    EXPECT_EQ(h, 0.0);
    Vantrel::HSVtoHSL(0, 1, 1, &h, &s, &l);  // red: HSL lightness one half
    EXPECT_NEAR(l, 0.5, ROUND_TRIP_TOL);
    EXPECT_NEAR(s, 1.0, ROUND_TRIP_TOL);
    Vantrel::HSLtoHSV(240, 1, 0.25, &h, &s, &v);  // dark blue
    EXPECT_NEAR(v, 0.5, ROUND_TRIP_TOL);
}

TEST(Mixing, ThreeSourcesRecoverTheLumensOfTheirMixIncludingNegativeOnes) {
    const double xs[3] = {0.70, 0.17, 0.15}, ys[3] = {0.29, 0.70, 0.06};
    const double mixes[][3] = {{30, 60, 10}, {-5, 60, 45}};  // the second lies outside
    for (const auto& lm : mixes) {
        double x, y, out[3];
        Vantrel::getCxCyFromMix(3, xs, ys, lm, &x, &y);
        ASSERT_TRUE(Vantrel::mix3Colors(x, y, lm[0] + lm[1] + lm[2], xs, ys, out));
        for (int i = 0; i < 3; ++i) EXPECT_NEAR(out[i], lm[i], 1e-9 * 100) << i;
    }
    const double same[3] = {0.3, 0.3, 0.2};
    double out[3];
    EXPECT_FALSE(Vantrel::mix3Colors(0.3, 0.3, 100, same, same, out));
}

TEST(Photons, OneWattAt555NanometresIsAbout2Point794e18PerSecond) {
    const double photons = Vantrel::convert_to_Photons_Sec_from_Watts_nm(1.0, 555.0);
    EXPECT_NEAR(photons, 2.794e18, 0.0005e18);  // hc/λ quoted to four figures
    EXPECT_NEAR(Vantrel::convert_to_Watts_nm_from_Photons_Sec(photons, 555.0), 1.0, 1e-15);
}

TEST(SpectrumTools, FullWidthAtHalfMaximumOfGaussianAndDoublePeaks) {
    std::vector<double> wl(N);
    for (int i = 0; i < N; ++i) wl[i] = 360.0 + 2.0 * i;
    // Peaks sit on grid points, so the half height is exact; linear interpolation on the 2 nm
    // grid then misplaces each edge by at most h²/8·|g″/g′| ≈ 0.016 nm.
    const double edgeTol = 0.05;
    const std::vector<double> single = gaussian(N, 550, 10);
    EXPECT_NEAR(Vantrel::getFWHM(0, N, wl.data(), single.data()),
                2.0 * std::sqrt(2.0 * std::log(2.0)) * 10.0, edgeTol);

    // A second peak above half height carries the long-wave edge out to its own half height.
    std::vector<double> twin = gaussian(N, 500, 10);
    const std::vector<double> second = gaussian(N, 540, 10);
    for (int i = 0; i < N; ++i) twin[i] += 0.8 * second[i];
    const double left = 500.0 - std::sqrt(2.0 * std::log(2.0)) * 10.0;
    const double right = 540.0 + std::sqrt(200.0 * std::log(1.6));
    EXPECT_NEAR(Vantrel::getFWHM(0, N, wl.data(), twin.data()), right - left, edgeTol);

    const std::vector<double> edge = gaussian(N, 360, 10);  // peak on the first index
    EXPECT_EQ(Vantrel::getFWHM(0, N, wl.data(), edge.data()), -1.0);
    EXPECT_EQ(Vantrel::getFWHM(0, 100, wl.data(), single.data()), -1.0);  // peak cut off
}

TEST(SpectrumTools, CentroidOfASymmetricPeakInTheInfraredIsItsCentre) {
    // At 900 nm the peak lies beyond 830 nm: only the full 1050 nm array holds it.
    const std::vector<double> s = gaussian(Vantrel::NUM_GRID_POINTS_IR, 900, 15);
    EXPECT_NEAR(Vantrel::getPeakCentroid(s.data()), 900.0, 1e-9);
}

TEST(SpectrumTools, RmsDiffComparesShapesAndSumsWithoutDividingByN) {
    const double a[3] = {1, 0.5, 0}, scaled[3] = {3, 1.5, 0}, b[3] = {1, 0, 0};
    const double ones[3] = {1, 1, 1}, weighted[3] = {1, 2, 1};
    EXPECT_NEAR(Vantrel::getRMSdiff(3, a, scaled, ones), 0.0, 1e-15);
    EXPECT_DOUBLE_EQ(Vantrel::getRMSdiff(3, a, b, ones), 0.5);
    EXPECT_DOUBLE_EQ(Vantrel::getRMSdiff(3, a, b, weighted), 1.0);
}

TEST(SpectrumTools, ConvoluteSlidesTheKernelUnflippedOverTheValidRange) {
    const double a[5] = {1, 2, 3, 4, 5}, kernel[3] = {1, 2, 3};
    double out[4] = {0, 0, 0, -7};
    Vantrel::convolute(a, 5, kernel, 3, out);
    // Σ a[i + j]·k[j]; a flipped kernel would give 10, 16, 22. Only na − nk + 1 outputs.
    EXPECT_EQ(std::vector<double>(out, out + 4), (std::vector<double>{14, 20, 26, -7}));
}

TEST(SpectrumTools, InterpolationTo2nmFillsTheCoveredRangeAndZeroesTheRest) {
    const double wl[5] = {380, 385, 390, 395, 400}, value[5] = {1, 2, 3, 4, 5};
    std::vector<double> out(N, -1.0);
    Vantrel::linearInterpolateTo2nm(5, wl, value, N, out.data());
    const double expected[][2] = {{378, 0}, {380, 1}, {382, 1.4}, {400, 5}, {402, 0}};
    for (const auto& e : expected) EXPECT_NEAR(out[(e[0] - 360) / 2], e[1], 1e-12) << e[0];
}

TEST(GetMonitorColors, UnderD65WhiteIsFullScaleAndGreyIsNeutral) {
    Vantrel v;
    std::vector<double> d65(N);
    v.getSyntheticDaylight(d65.data(), 6504.0);
    const std::vector<double> white(N, 1.0), grey(N, 0.2);
    GetMonitorColors monitor;
    int rgb[3];
    int* rows[1] = {rgb};

    // Each set carries a hidden perfect white, so alone the white still reads 255 and the grey
    // stays at 255·0.2^(1/2.2) instead of being stretched to full scale.
    const double* whiteSet[1] = {white.data()};
    monitor.getColors(1, d65.data(), whiteSet, rows);
    for (int c = 0; c < 3; ++c) EXPECT_NEAR(rgb[c], 255, 1) << c;  // truncation
    const double* greySet[1] = {grey.data()};
    monitor.getColors(1, d65.data(), greySet, rows);
    EXPECT_NEAR(rgb[0], 255.0 * std::pow(0.2, 1 / 2.2), 1.0);
    EXPECT_NEAR(rgb[1], rgb[0], 1);
    EXPECT_NEAR(rgb[2], rgb[0], 1);

    const double xyz[3] = {20, 21, 22}, d65White[3] = {95.04783169, 100, 108.8410967};
    monitor.getColor(xyz, d65White, rgb);
    EXPECT_EQ(*std::max_element(rgb, rgb + 3), 255);  // scaled by its own brightest channel
}

TEST(HSV, AHueWithoutANumberGivesTheGreyOfItsValue) {
    for (double h : {std::nan(""), std::numeric_limits<double>::infinity(), 1e300}) {
        double r = -1, g = -1, b = -1;
        Vantrel::HSVtoRGB(h, 0.5, 0.7, &r, &g, &b);
        EXPECT_EQ(r, 0.7) << h;
        EXPECT_EQ(g, 0.7) << h;
        EXPECT_EQ(b, 0.7) << h;
    }
}
