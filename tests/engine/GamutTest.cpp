// Gamut area of R1 to R8, GAI, Class A, polygon helpers and the standard gamuts.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "GamutClass.h"
#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// The GAI and D65 divisors were computed by this engine, so the reference spectra must give
// back 100 and 1 to within rounding of the resampled input.
constexpr double GAI_TOLERANCE = 0.5;
constexpr double D65_RATIO_TOLERANCE = 0.002;

std::vector<double> readD65OnGrid() { return testutil::loadCIEIlluminant("cie_D65_5nm.txt"); }

// ----------------------------------------------------------------------------------------------
// R1 to R8 gamut

TEST(CriGamut, EqualEnergySpectrumHasGaiOfOneHundredInBothPlanes) {
    Vantrel v;
    std::vector<double> flat(N, 1.0);
    v.calcAll(flat.data(), false, false);
    EXPECT_NEAR(v.get_GAI_upvp(), 100.0, GAI_TOLERANCE);
    EXPECT_NEAR(v.get_GAI_uv(), 100.0, GAI_TOLERANCE);
    // A sample area in u'v' is 1.5 times its area in uv.
    EXPECT_NEAR(v.get_cri_gamut_area_upvp(0) / v.get_cri_gamut_area_uv(0), 1.5, 1e-9);
}

TEST(CriGamut, D65HasGamutRatioOfOneToItself) {
    const std::vector<double> d65 = readD65OnGrid();
    ASSERT_EQ(d65.size(), static_cast<size_t>(N));
    Vantrel v;
    v.calcAll(d65.data(), false, false);
    EXPECT_NEAR(v.get_gamut_D65_upvp(), 1.0, D65_RATIO_TOLERANCE);
    EXPECT_NEAR(v.get_gamut_D65_uv(), 1.0, D65_RATIO_TOLERANCE);
    // D65 is its own reference above 5000 K: test and reference gamuts agree.
    EXPECT_NEAR(v.get_gamut_CRI_upvp(), 1.0, D65_RATIO_TOLERANCE);
}

TEST(CriGamut, SampleCoordinatesAreStoredForBothRows) {
    Vantrel v;
    std::vector<double> flat(N, 1.0);
    v.calcAll(flat.data(), false, false);
    double u0[15], v0[15], u1[15], v1[15];
    double* us[2] = {u0, u1};
    double* vs[2] = {v0, v1};
    v.get_CRI_uv_prime(us, vs);
    for (int k = 0; k < 15; ++k) {
        EXPECT_GT(u0[k], 0.1) << "sample " << k + 1;
        EXPECT_GT(v1[k], 0.3) << "sample " << k + 1;  // v' of a surface colour, not v
    }
}

TEST(CriGamut, GamutStepIsSkippedWhenNotAsked) {
    Vantrel v;
    std::vector<double> flat(N, 1.0);
    v.calcCCT(flat.data(), false);
    v.color(flat.data(), false, false, false, false, false);
    EXPECT_EQ(v.get_GAI_upvp(), 0.0);
}

// ----------------------------------------------------------------------------------------------
// Class A

TEST(ClassA, ColourMetricNeedsGaiFrom80To100AndRaOf80) {
    struct Case {
        double gai, ra;
        bool passes;
    } cases[] = {{90, 79.9, false},
                 {100, 80, true},
                 {80, 95, true},
                 {79.99, 95, false},
                 {100.01, 95, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(Vantrel::meetsASSIST2ColorMetric(c.gai, c.ra), c.passes)
            << "GAI " << c.gai << " Ra " << c.ra;
    }
}

TEST(ClassA, WhitePointExistsOnlyFrom2700To6500K) {
    double x = 1, y = 1;
    EXPECT_FALSE(Vantrel::getLRCWhitePoint(2699, &x, &y));
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(y, 0.0);
    EXPECT_FALSE(Vantrel::getLRCWhitePoint(6501, &x, &y));
    // Evaluated independently from the published polynomials; 4100 K is the last point of the
    // warm branch of y.
    constexpr double POLYNOMIAL_TOLERANCE = 1e-9;
    const double table[][3] = {{2700, 0.44338940704277396, 0.3815995891310018},
                               {4100, 0.3769147526080405, 0.37882481825100056},
                               {4101, 0.37687995675716257, 0.3788592758947733},
                               {6500, 0.31024071445938395, 0.3382374318875}};
    for (const auto& row : table) {
        ASSERT_TRUE(Vantrel::getLRCWhitePoint(row[0], &x, &y)) << row[0];
        EXPECT_NEAR(x, row[1], POLYNOMIAL_TOLERANCE) << row[0];
        EXPECT_NEAR(y, row[2], POLYNOMIAL_TOLERANCE) << row[0];
    }
}

TEST(ClassA, WhiteOnTheLinePassesAndFarOffItFails) {
    Vantrel v;
    double x, y;
    ASSERT_TRUE(Vantrel::getLRCWhitePoint(4000, &x, &y));
    EXPECT_TRUE(v.meetsLRCWhite(4000, x, y));
    EXPECT_FALSE(v.meetsLRCWhite(4000, x + 0.05, y));
    EXPECT_FALSE(v.meetsLRCWhite(2600, x, y));
}

// ----------------------------------------------------------------------------------------------
// Polygons

TEST(Polygons, CollinearTriangleHasNoAreaAndSetsTheFlag) {
    bool failed = false;
    EXPECT_EQ(Vantrel::triangleArea(0, 0, 1, 1, 2, 2, &failed), 0.0);
    EXPECT_TRUE(failed);
}

TEST(Polygons, FewerThanThreePointsCountAsInside) {
    const double xs[] = {0.1, 0.2}, ys[] = {0.1, 0.2};
    EXPECT_TRUE(Vantrel::isPointInGamut(2, xs, ys, 5.0, -3.0));
}

TEST(Polygons, PointInGamutTellsInsideFromOutside) {
    const double tx[] = {0.0, 1.0, 0.0}, ty[] = {0.0, 0.0, 1.0};
    const double sx[] = {0.0, 1.0, 1.0, 0.0}, sy[] = {0.0, 0.0, 1.0, 1.0};
    struct Case {
        int n;
        const double *xs, *ys;
        double x, y;
        bool inside;
    } cases[] = {{3, tx, ty, 0.2, 0.2, true},
                 {3, tx, ty, 0.8, 0.8, false},
                 {4, sx, sy, 0.9, 0.9, true},
                 {4, sx, sy, 1.1, 0.5, false},
                 {4, sx, sy, 0.5, -0.1, false}};
    for (const Case& c : cases) {
        EXPECT_EQ(Vantrel::isPointInGamut(c.n, c.xs, c.ys, c.x, c.y), c.inside)
            << c.n << " points, " << c.x << ", " << c.y;
    }
}

TEST(Polygons, OrderGamutRefusesNegativeCoordinatesAndLeavesArraysAlone) {
    double xs[] = {0.5, -0.1, 0.2}, ys[] = {0.1, 0.6, 0.3};
    EXPECT_FALSE(Vantrel::orderGamut(3, xs, ys));
    EXPECT_EQ(xs[0], 0.5);
    EXPECT_EQ(xs[1], -0.1);
    EXPECT_EQ(ys[2], 0.3);
}

TEST(Polygons, OrderGamutSortsByAngleAboutTheCentroid) {
    // Square about (0.5, 0.5); angles 45 (1, 1), 135 (0, 1), 225 (0, 0), 315 (1, 0) degrees.
    double xs[] = {0.0, 1.0, 0.0, 1.0}, ys[] = {0.0, 1.0, 1.0, 0.0};
    ASSERT_TRUE(Vantrel::orderGamut(4, xs, ys));
    const double wantX[] = {1.0, 0.0, 0.0, 1.0}, wantY[] = {0.0, 0.0, 1.0, 1.0};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(xs[k], wantX[k]) << k;
        EXPECT_EQ(ys[k], wantY[k]) << k;
    }
    ASSERT_TRUE(Vantrel::orderGamut(false, 4, xs, ys));
    EXPECT_EQ(xs[0], 1.0);
    EXPECT_EQ(ys[0], 1.0);  // 45 degrees first when ascending
}

TEST(Polygons, CommonGamutAreaOfAGamutWithItselfIsOne) {
    GamutClass g;
    double x[35], y[35];
    g.getGamutPoints(9, x, y);
    EXPECT_DOUBLE_EQ(Vantrel::commonGamutArea(100, 35, x, y, 35, x, y), 1.0);
}

TEST(Polygons, CommonGamutAreaMeasuresOverlapAndContainment) {
    const double sx[] = {0.0, 1.0, 1.0, 0.0}, sy[] = {0.0, 0.0, 1.0, 1.0};
    const double rx[] = {0.5, 1.5, 1.5, 0.5};  // the square moved right by half
    EXPECT_NEAR(Vantrel::commonGamutArea(100, 4, sx, sy, 4, rx, sy), 0.5, 0.02);
    // sRGB lies inside BT.2020: coverage 1, so the BT.2020 hits in the sRGB box over sRGB's.
    GamutClass g;
    double x1[3], y1[3], x2[3], y2[3];
    g.getGamutPoints(0, x1, y1);
    g.getGamutPoints(5, x2, y2);
    EXPECT_GT(Vantrel::commonGamutArea(100, 3, x1, y1, 3, x2, y2), 1.5);
}

// ----------------------------------------------------------------------------------------------
// GamutClass

TEST(GamutClassTable, NamesAndPointCountsAreTheStandardOnes) {
    GamutClass g;
    EXPECT_EQ(g.getNumberOfStandardGamuts(), 11);
    ASSERT_EQ(g.getNumPredefinedGamuts(), 12);
    const char* names[] = {"sRGB",
                           "Abode RGB 98",
                           "NTSC (1953)",
                           "NTSC (1987) SMPTE C",
                           "CIE (1931)",
                           "UHDTV (ITU-R BT.2020)",
                           "Apple",
                           "ProPhoto (ROMM RGB)",
                           "DCI-P3",
                           "Pointer's (maximum)",
                           "Rec. 709 (BT.709)",
                           "User defined"};
    const int dashes[] = {2, 2, 2, 2, 4, 4, 6, 8, 2, 2, 2, 1};
    for (int i = 0; i < 12; ++i) {
        EXPECT_STREQ(g.getGamutName(i), names[i]);
        EXPECT_EQ(g.getNumPointsInGamut(i), i == 9 ? 35 : 3) << names[i];
        EXPECT_EQ(g.getNumDahsesInGamutLine(i), dashes[i]) << names[i];
    }
    double x, y;
    ASSERT_TRUE(g.getGamutPoint(9, 34, &x, &y));
    EXPECT_EQ(x, 0.634);
    EXPECT_EQ(y, 0.351);
    EXPECT_FALSE(g.getGamutPoint(9, 35, &x, &y));
    char pattern[8];
    g.getGamutLineStyleParameters(7, pattern);
    EXPECT_EQ(pattern[0], 16);
    EXPECT_EQ(pattern[7], 4);
    EXPECT_EQ(g.getNumDahsesInGamutLine(99), 2);  // falls back to gamut 0
}

TEST(GamutClassTable, StandardGamutTestsMatchThePolygonForm) {
    GamutClass g;
    const double probes[][2] = {{0.3127, 0.329}, {0.7, 0.29}, {0.08, 0.8}, {0.2, 0.5}};
    for (int gamut = 0; gamut < 11; ++gamut) {
        double x[35], y[35];
        g.getGamutPoints(gamut, x, y);
        const int n = g.getNumPointsInGamut(gamut);
        for (const auto& p : probes) {
            EXPECT_EQ(g.isPointInStandardGamut(gamut, p[0], p[1]),
                      g.isPointInGamut(n, x, y, p[0], p[1]))
                << g.getGamutName(gamut) << " at " << p[0] << ", " << p[1];
        }
        EXPECT_TRUE(g.isPointInStandardGamut(gamut, 0.3127, 0.329)) << "D65 white";
    }
}

TEST(GamutClassUser, MaxPointsAcceptsThreeToFifty) {
    GamutClass g;
    EXPECT_EQ(g.getMaxNumPtsInUserGamut(), 40);
    const int in[] = {51, 50, 2, 3};
    const int want[] = {40, 50, 40, 3};
    for (int i = 0; i < 4; ++i) {
        g.setMaxNumPtsInUserGamut(in[i]);
        EXPECT_EQ(g.getMaxNumPtsInUserGamut(), want[i]) << in[i];
    }
}

TEST(GamutClassUser, ListsSplitIntoRunsOfValidPoints) {
    GamutClass g;
    EXPECT_STREQ(g.getUserGamutSeperationSym(), "x");
    int count = 0, points[4], first[4];
    std::string xOut[4], yOut[4];
    // Points: three valid, one invalid (0), one lone valid, one invalid (1.0), two valid.
    ASSERT_TRUE(g.getNumbersForUserGamuts("0,64x0.3x0.15x0x0.4x1.0x0.2x0.25",
                                          "0.33x0.6x0.06x0.5x0.4x0.3x0.2x0.25", &count, points,
                                          first, xOut, yOut));
    ASSERT_EQ(count, 2);
    EXPECT_EQ(points[0], 3);
    EXPECT_EQ(first[0], 0);
    EXPECT_EQ(xOut[0], "0.64x0.3x0.15");
    EXPECT_EQ(yOut[0], "0.33x0.6x0.06");
    EXPECT_EQ(points[1], 2);
    EXPECT_EQ(first[1], 6);
    EXPECT_EQ(xOut[1], "0.2x0.25");
}

TEST(GamutClassUser, UnequalSeparatorCountsAreRefused) {
    GamutClass g;
    int count = -1;
    EXPECT_FALSE(g.getNumbersForUserGamuts("0.1x0.2x0.3", "0.1x0.2", &count, nullptr, nullptr,
                                           nullptr, nullptr));
    EXPECT_EQ(count, 0);
}
}  // namespace
