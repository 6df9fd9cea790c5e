// Grid, integration, observer selection and the calcCCT / color orchestrators.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

int gridIndex(double nm) { return static_cast<int>((nm - 360.0) / 2.0 + 0.5); }

std::vector<double> blackBody(double T) { return testutil::planckSpectrum(T); }
}  // namespace

TEST(VantrelObserver, OutOfRangeIndexSelectsTheCie1931Observer) {
    Vantrel v;
    const struct {
        int requested;
        int selected;
        const char* name;
    } cases[] = {{1, 1, "CIE 10 degree"}, {2, 2, "CIE 2015 2 degree"}, {3, 3, "CIE 2015 10 degree"},
                 {7, 0, "CIE 2 degree"},  {-1, 0, "CIE 2 degree"},     {4, 0, "CIE 2 degree"}};
    for (const auto& c : cases) {
        v.setCIE_XYZ_bar_type(c.requested);
        EXPECT_EQ(v.getCIE_XYZ_bar_type(), c.selected) << c.requested;
        EXPECT_STREQ(v.getCIE_XYZ_bar_type_name(), c.name) << c.requested;
    }
}

TEST(VantrelIntegration, EndPointsWeighOneAndAHalf) {
    Vantrel v;
    std::vector<double> flat(N, 1.0), ybar(N);
    double plain = 0;
    for (int i = 0; i < N; ++i) {
        ybar[i] = v.get_ybar_CurveData_1931_2_deg(i);
        plain += ybar[i];
    }
    const double expected = plain + 0.5 * (ybar[0] + ybar[N - 1]);
    const double roundingTol = 1e-13 * expected;  // the sums run in a different order
    EXPECT_NEAR(Vantrel::sum2Products(flat.data(), ybar.data()), expected, roundingTol);
    EXPECT_NEAR(Vantrel::sum3Products(flat.data(), flat.data(), ybar.data()), expected,
                roundingTol);

    // Only the ends carry the extra half: a spike in the middle integrates to itself.
    std::vector<double> spike(N, 0.0), ends(N, 0.0);
    spike[100] = 2.0;
    ends[0] = 2.0;
    ends[N - 1] = 2.0;
    EXPECT_DOUBLE_EQ(Vantrel::sum2Products(spike.data(), flat.data()), 2.0);
    EXPECT_DOUBLE_EQ(Vantrel::sum2Products(ends.data(), flat.data()), 6.0);
}

TEST(VantrelIntegration, TristimulusIsExactlyTheEngineSums) {
    // cie_XYZ fuses the three sums; the results must stay bit for bit those of sum2Products and
    // sum3Products, which every constant of the program was made with.
    Vantrel v;
    v.setCIE_XYZ_bar_type(3);
    std::vector<double> s(N), r(N), xb(N), yb(N), zb(N);
    Vantrel::getBlackBody(s.data(), 3456.0);
    for (int i = 0; i < N; ++i) {
        r[i] = 0.2 + 0.6 * std::sin(0.05 * i) * std::sin(0.05 * i);
        xb[i] = v.get_xbar_CurveData(i);
        yb[i] = v.get_ybar_CurveData(i);
        zb[i] = v.get_zbar_CurveData(i);
    }
    double X, Y, Z, x, y;
    v.cie_XYZ(2, s.data(), nullptr, &X, &Y, &Z, &x, &y);
    EXPECT_EQ(X, Vantrel::sum2Products(s.data(), xb.data()));
    EXPECT_EQ(Y, Vantrel::sum2Products(s.data(), yb.data()));
    EXPECT_EQ(Z, Vantrel::sum2Products(s.data(), zb.data()));
    v.cie_XYZ(3, s.data(), r.data(), &X, &Y, &Z, &x, &y);
    EXPECT_EQ(X, Vantrel::sum3Products(s.data(), r.data(), xb.data()));
    EXPECT_EQ(Y, Vantrel::sum3Products(s.data(), r.data(), yb.data()));
    EXPECT_EQ(Z, Vantrel::sum3Products(s.data(), r.data(), zb.data()));
}

TEST(VantrelPhotometry, OneWattAt556NanometresGives683TimesYbarLumens) {
    // 0.5 W/nm over one 2 nm cell is one watt of radiant power.
    Vantrel v;
    std::vector<double> s(N, 0.0);
    const int i = gridIndex(556);
    s[i] = 0.5;
    v.calcAll(s.data(), false, false);
    EXPECT_NEAR(v.getLumens(), 683.0 * 0.99986, 0.01);
    EXPECT_NEAR(v.getWattsVis(), 1.0, 1e-12);
    // CIE 1951 scotopic: 1700 lm/W at the peak, V'(556) about 0.67 of it.
    EXPECT_NEAR(v.getScotopicLumens(s.data()), 1700.0 * v.getScotopicCurveData(i), 1e-9);
}

TEST(VantrelPhotometry, VisibleWattsTakeHalfTheEndPointsOffOnce) {
    // A 1 W black body (true trapezoid) reads about 1.002 W as visible watts.
    std::vector<double> s = blackBody(3000);
    Vantrel::scaleSpectrum(s.data(), 1.0, N);
    EXPECT_NEAR(Vantrel::getSpectralWatts(N, s.data(), 2.0), 1.0, 1e-12);
    Vantrel v;
    v.calcAll(s.data(), false, false);
    const double expected = 1.0 + 0.5 * (s[0] + s[N - 1]);
    EXPECT_NEAR(v.getWattsVis(), expected, 1e-12);
    EXPECT_GT(v.getWattsVis(), 1.0005);
    EXPECT_LT(v.getWattsVis(), 1.003);

    std::vector<double> flat(N, 1.0);
    EXPECT_DOUBLE_EQ(Vantrel::getSpectralWatts(N, flat.data(), 2.0), 470.0);
}

TEST(VantrelPhotometry, AllZeroSpectrumGivesZeroChromaticityWithoutCrashing) {
    Vantrel v;
    std::vector<double> zero(N, 0.0);
    v.calcAll(zero.data(), false, true, true);
    EXPECT_EQ(v.getXcoord(), 0.0);
    EXPECT_EQ(v.getYcoord(), 0.0);
    EXPECT_EQ(v.getLumens(), 0.0);
    EXPECT_EQ(v.getWattsVis(), 0.0);
    EXPECT_GE(v.getCCT(), Vantrel::MIN_CCT);
    EXPECT_LE(v.getCCT(), Vantrel::MAX_CCT);
}

TEST(VantrelPhotometry, AChromaticityNeedsAFiniteSumAboveTheThreshold) {
    const double inf = std::numeric_limits<double>::infinity();
    const struct {
        double X, Y, Z;
        bool has;
    } cases[] = {{0, 0, 0, false},
                 {3e-10, 3e-10, 4e-10, false},  // exactly 1e-9
                 {3e-10, 3e-10, 5e-10, true},
                 {1e308, 1e308, 1e308, false},
                 {inf, 1, 1, false},
                 {std::nan(""), 1, 1, false},
                 {95.047, 100, 108.883, true}};
    for (const auto& c : cases) {
        EXPECT_EQ(Vantrel::hasChromaticity(c.X, c.Y, c.Z), c.has)
            << c.X << " " << c.Y << " " << c.Z;
        // Where there is none, get_xy_XYZ gives 0, 0 for a dark sum.
        double x = -1, y = -1;
        Vantrel::get_xy_XYZ(c.X, c.Y, c.Z, &x, &y);
        if (c.has) {
            EXPECT_NEAR(x + y, (c.X + c.Y) / (c.X + c.Y + c.Z), 1e-12);
        }
    }
}

TEST(VantrelReference, DaylightFrom5000KelvinUpTo25000Kelvin) {
    Vantrel v;
    std::vector<double> ref(N), daylight(N), planck(N);
    const struct {
        double cct;
        bool daylight;
    } cases[] = {{5000.0, true}, {4999.99998, false}, {25000.0, true}, {25000.1, false}};
    for (const auto& c : cases) {
        v.getReferenceSpectrum(c.cct, ref.data());
        v.getSyntheticDaylight(daylight.data(), c.cct);
        Vantrel::getBlackBody(planck.data(), c.cct);
        const std::vector<double>& expected = c.daylight ? daylight : planck;
        EXPECT_EQ(ref, expected) << c.cct;
    }
}

TEST(VantrelReference, SyntheticDaylightAt6504KelvinIsD65) {
    // CIE 015: D65 x, y = 0.31271, 0.32902.
    Vantrel v;
    std::vector<double> s(N);
    v.getSyntheticDaylight(s.data(), 6504.0);
    v.calcAll(s.data(), false, false);
    EXPECT_NEAR(v.getXcoord(), 0.31271, 2e-4);
    EXPECT_NEAR(v.getYcoord(), 0.32902, 2e-4);
}

TEST(VantrelColor, FourFlagFormStillComputesDominantWavelength) {
    // A narrow green: dominant wavelength near its peak.
    Vantrel v;
    std::vector<double> s(N, 0.0);
    for (int i = 0; i < N; ++i) {
        const double d = (360.0 + 2 * i - 530.0) / 10.0;
        s[i] = std::exp(-0.5 * d * d);
    }
    v.calcCCT(s.data(), false);
    v.color(s.data(), false, false, false, false);
    EXPECT_NEAR(v.getDomWL(), 530.0, 5.0);
    EXPECT_GT(v.getPurity(), 0.5);
    EXPECT_LE(v.getPurity(), 1.0);
}

TEST(VantrelColor, ColorLeavesThePlanckPointInTheReferenceIlluminantCell) {
    // After color, row 1 column 0 holds the Planck illuminant at the CCT, not the CIE 13.3
    // reference; the white store keeps the reference.
    Vantrel v;
    std::vector<double> s(N);
    v.getSyntheticDaylight(s.data(), 6500.0);
    v.calcAll(s.data(), false, false);
    double X, Y, Z, white[3];
    v.getXYZ(0, &X, &Y, &Z, 1, 0);
    v.get_illumination_XYZ(1, white);
    EXPECT_NEAR(white[1], 100.0, 1e-9);  // normalized reference
    double xp, yp, xw, yw;
    Vantrel::get_xy_XYZ(X, Y, Z, &xp, &yp);
    Vantrel::get_xy_XYZ(white[0], white[1], white[2], &xw, &yw);
    EXPECT_GT(std::hypot(xp - xw, yp - yw), 1e-3);  // daylight lies off the Planck locus
}

TEST(VantrelObserver, TwoObjectsWithDifferentObserversDoNotDisturbEachOther) {
    const std::vector<double> s = blackBody(4000);
    Vantrel a, b;
    b.setCIE_XYZ_bar_type(3);
    a.calcAll(s.data(), false, false);
    const double ax = a.getXcoord();
    b.calcAll(s.data(), false, false);
    EXPECT_EQ(a.getXcoord(), ax);
    EXPECT_GT(std::fabs(a.getXcoord() - b.getXcoord()), 1e-3);
    a.calcAll(s.data(), false, false);
    EXPECT_EQ(a.getXcoord(), ax);
}

TEST(VantrelPrint, CoefficientFilesAreWrittenAndTheObserverRestored) {
    namespace fs = std::filesystem;
    const fs::path dir = fs::temp_directory_path() / "lumivar_print_coefficients";
    fs::create_directories(dir);
    const fs::path saved = fs::current_path();
    fs::current_path(dir);
    Vantrel v;
    v.setCIE_XYZ_bar_type(1);
    EXPECT_TRUE(v.printCoefficients());
    EXPECT_EQ(v.getCIE_XYZ_bar_type(), 1);
    for (const char* name :
         {"XYZ_coeff_1931_2deg.xls", "XYZ_coeff_1960_10deg.xls", "XYZ_coeff_2015_10deg.xls",
          "TCS_VS_coeff.xls", "CCT_coeff_1931.xls", "CCT_coeff_2015.xls", "daylight_coeff.xls",
          "Well_building_coeff.xls"}) {
        EXPECT_GT(fs::file_size(dir / name), 100u) << name;
    }
    fs::current_path(saved);
    fs::remove_all(dir);
}

TEST(VantrelAccessors, TheNamedGettersReportTheLastRun) {
    // F2 lies off the Planck locus: the CRI reference sits at its CCT on the locus, so the
    // distance of the two in uv is the Duv; u and v follow from x, y by CIE 1960.
    const std::vector<double> f2 = testutil::loadCIEIlluminant("cie_F2_5nm.txt");
    ASSERT_EQ(f2.size(), static_cast<std::size_t>(N));
    Vantrel v;
    v.calcAll(f2.data(), false, false);
    const double x = v.getXcoord(), y = v.getYcoord();
    EXPECT_NEAR(v.getUcoord(), 4 * x / (-2 * x + 12 * y + 3), 1e-12);
    EXPECT_NEAR(v.getVcoord(), 6 * y / (-2 * x + 12 * y + 3), 1e-12);
    EXPECT_GT(std::fabs(v.getDeltaUVPlanck()), 1e-3);
    EXPECT_NEAR(std::fabs(v.getDeltaUV_cri()), std::fabs(v.getDeltaUVPlanck()), 1e-4);
    // The versions and counts the windows print.
    EXPECT_EQ(Vantrel::getCQSmajorVersion(), 9);
    EXPECT_EQ(Vantrel::getCQSminorVersion(), 1);
    EXPECT_EQ(Vantrel::getNumColors_TLCI_2012(), VantrelData::NUM_COLOR_CHECKER);
    // The user-colour form of the TM-30 patches gives the patches of the CES.
    v.calculate_TM30(v.getDeltaUVPlanck(), v.getCCT(), f2.data());
    int a[Vantrel::NUM_CES][2][3] = {}, b[Vantrel::NUM_CES][2][3] = {};
    v.getTM30PatchColors(Vantrel::NUM_CES, a);
    EXPECT_GT(a[0][0][0] + a[0][0][1] + a[0][0][2], 0) << "patches were drawn";
    v.getTM30PatchColorsUser(Vantrel::NUM_CES, b);
    EXPECT_EQ(std::memcmp(a, b, sizeof(a)), 0);
}
