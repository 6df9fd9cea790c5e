// Correlated colour temperature, Duv, the reverse mapping and dominant wavelength.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// The exact search stops at a 1e-8 relative step of T; half a kelvin leaves room for the
// reverse mapping, whose perpendicular is taken from a 1 K secant of the locus.
constexpr double ROUND_TRIP_CCT_TOL_K = 0.5;
constexpr double ROUND_TRIP_DUV_TOL = 2e-5;
// The polynomial locus serves optimizer loops; it must agree with the exact locus this well.
constexpr double FAST_CCT_TOL_K = 0.5;
constexpr double FAST_DUV_TOL = 1e-5;
}  // namespace

TEST(VantrelCCT, BlackBodyAt3000KelvinReadsSlightlyHighBecauseOfItsOwnC2) {
    // getBlackBody uses c2 = 0.01438769 m·K, the search 0.014388: about 0.06 K apart at 3000 K.
    Vantrel v;
    std::vector<double> s(N);
    Vantrel::getBlackBody(s.data(), 3000.0);
    v.calcAll(s.data(), false, false);
    EXPECT_NEAR(v.getCCT(), 3000.06, 0.02);
    EXPECT_LT(std::fabs(v.getDeltaUVPlanck()), 1e-5);
}

TEST(VantrelCCT, SearchIsClampedAtTheRedAndBlueEnds) {
    Vantrel v;
    const struct {
        double x, y, cct;
    } cases[] = {
        {0.7347, 0.2653, Vantrel::MIN_CCT},  // spectrum locus near 700 nm
        {0.6800, 0.3100, Vantrel::MIN_CCT},  // deep red LED
        {0.1741, 0.0050, Vantrel::MAX_CCT},  // spectrum locus near 400 nm
        {0.2000, 0.1500, Vantrel::MAX_CCT},  // deep blue
    };
    for (const auto& c : cases) {
        v.calDeltaBlackBody(c.x, c.y, false);
        EXPECT_EQ(v.getCCT(), c.cct) << c.x << ", " << c.y;
        v.calDeltaBlackBody(c.x, c.y, true);
        EXPECT_EQ(v.getCCT(), c.cct) << "fast " << c.x << ", " << c.y;
    }
}

TEST(VantrelCCT, ReverseMappingRoundTripsFrom1500To20000Kelvin) {
    // The locus point comes from a black body (c2 0.01438769 m·K, end points weighed 1.5) and
    // the search uses c2 0.014388 m·K with plain sums: the search reads that black body slightly
    // hot, 0.07 K at 3000 K, 0.33 K at 10000 K, 1.3 K at 20000 K. Points moved off the locus
    // must keep the CCT of their locus point and the Duv they were given.
    Vantrel v;
    for (double T = 1500.0; T <= 20000.0; T *= 1.07) {
        double x, y;
        v.get_xy_from_CCT_Duv(T, 0.0, &x, &y);
        v.calDeltaBlackBody(x, y, false);
        const double onLocus = v.getCCT();
        const double selfOffsetTol = T <= 10000.0 ? ROUND_TRIP_CCT_TOL_K : 7e-5 * T;
        EXPECT_NEAR(onLocus, T, selfOffsetTol) << T << " K";
        EXPECT_GE(onLocus, T) << T << " K";
        for (double duv = -0.02; duv <= 0.02001; duv += 0.01) {
            v.get_xy_from_CCT_Duv(T, duv, &x, &y);
            v.calDeltaBlackBody(x, y, false);
            EXPECT_NEAR(v.getCCT(), onLocus, ROUND_TRIP_CCT_TOL_K) << T << " K, Duv " << duv;
            EXPECT_NEAR(v.getDeltaUVPlanck(), duv, ROUND_TRIP_DUV_TOL) << T << " K, Duv " << duv;
        }
    }
}

TEST(VantrelCCT, PolynomialLocusAgreesWithTheExactSearch) {
    for (int observer : {0, 3}) {
        Vantrel v;
        v.setCIE_XYZ_bar_type(observer);
        for (double T = 1000.0; T <= 20000.0; T *= 1.03) {
            for (double duv : {-0.02, 0.0, 0.02}) {
                double x, y;
                v.get_xy_from_CCT_Duv(T, duv, &x, &y);
                double u, vv, exact, fast;
                Vantrel::get_uv_from_xy(x, y, &u, &vv);
                v.getCCTdata(u, vv, &exact, false);
                v.getCCTdata(u, vv, &fast, true);
                EXPECT_NEAR(fast, exact, FAST_CCT_TOL_K)
                    << "observer " << observer << ", " << T << " K, Duv " << duv;
                const double urd = 1e6 / exact;
                EXPECT_NEAR(v.getDuvFrom_urd(u, vv, urd, true), v.getDuvFrom_urd(u, vv, urd, false),
                            FAST_DUV_TOL)
                    << "observer " << observer << ", " << T << " K, Duv " << duv;
            }
        }
    }
}

TEST(VantrelCCT, FastDuvIsUndefinedOutside1000To20000Kelvin) {
    Vantrel v;
    EXPECT_EQ(v.getDuvFromCCTxy_100Kto40kK(500.0, 0.5, 0.4), -1.0);
    EXPECT_EQ(v.getDuvFromCCTxy_100Kto40kK(30000.0, 0.25, 0.25), -1.0);
    // Inside, it follows the exact Duv of a point 0.01 above the locus.
    for (double T : {1200.0, 2700.0, 6500.0, 9500.0, 12000.0, 19000.0}) {
        double x, y;
        v.get_xy_from_CCT_Duv(T, 0.01, &x, &y);
        EXPECT_NEAR(v.getDuvFromCCTxy_100Kto40kK(T, x, y), 0.01, FAST_DUV_TOL) << T;
    }
}

TEST(VantrelCCT, RedsJustAbove1000KelvinKeepTheirCctOnThe2015TenDegreeObserver) {
    // That observer's locus turns back near 340 K; the search must not settle there.
    Vantrel v;
    v.setCIE_XYZ_bar_type(3);
    std::vector<double> s(N);
    for (double T : {1010.0, 1040.0, 1070.0}) {
        Vantrel::getBlackBody(s.data(), T);
        for (bool fast : {false, true}) {
            v.calcCCT(s.data(), fast);
            EXPECT_NEAR(v.getCCT(), T, 0.1) << T << (fast ? " K fast" : " K");
        }
    }
}

TEST(VantrelCCT, SignedDistanceIsNegativeBelowTheLocus) {
    EXPECT_NEAR(Vantrel::getSignedDistance(0.25, 0.25, 0.36, 0.35), 0.01, 1e-15);
    EXPECT_NEAR(Vantrel::getSignedDistance(0.25, 0.25, 0.34, 0.35), -0.01, 1e-15);
    Vantrel v;
    double x, y;
    v.get_xy_from_CCT_Duv(4000.0, -0.005, &x, &y);
    v.calDeltaBlackBody(x, y, false);
    EXPECT_LT(v.getDeltaUVPlanck(), 0.0);
    EXPECT_LT(v.getDeltaUpVpPlanck(), 0.0);
    // In u'v' the vertical component is stretched by 1.5.
    EXPECT_GT(std::fabs(v.getDeltaUpVpPlanck()), std::fabs(v.getDeltaUVPlanck()));
}

TEST(VantrelCCT, CctStringJudgesDuvFirst) {
    const struct {
        double cct, duv;
        const char* text;
    } cases[] = {{3000.0, 0.06, "N/A"},    {3000.0, -0.0501, "N/A"},   {998.5, 0.0, "<1000"},
                 {999.2, 0.0, "999"},      {1.5e6, 0.0, ">1,000,000"}, {2856.4, 0.001, "2856"},
                 {6504.5, -0.003, "6504"}, {2e6, 0.2, "N/A"}};
    for (const auto& c : cases) {
        char buf[16];
        Vantrel::getCCTstring(buf, c.cct, c.duv);
        EXPECT_STREQ(buf, c.text) << c.cct << " K, Duv " << c.duv;
    }
}

TEST(VantrelDominantWavelength, PurplesHaveNoDominantWavelength) {
    Vantrel v;
    v.calcDomWL_purity(0.4, 0.2);
    EXPECT_EQ(v.getDomWL(), -1.0);
    EXPECT_EQ(v.getPurity(), -1.0);
}

TEST(VantrelDominantWavelength, LocusPointsGiveTheirWavelengthAtFullPurity) {
    Vantrel v;
    const struct {
        double nm, x, y;
    } locus[] = {// CIE 1931 spectrum locus at 2 nm grid points
                 {470, 0.12412, 0.05780},
                 {520, 0.07430, 0.83380},
                 {580, 0.51249, 0.48659},
                 {620, 0.69150, 0.30834}};
    for (const auto& p : locus) {
        v.calcDomWL_purity(p.x, p.y);
        EXPECT_NEAR(v.getDomWL(), p.nm, 0.05) << p.nm;
        EXPECT_NEAR(v.getPurity(), 1.0, 2e-3) << p.nm;
    }
    // Halfway between the white and 580 nm: same wavelength, half the purity.
    v.calcDomWL_purity(0.5 * (0.3333 + 0.51249), 0.5 * (0.3333 + 0.48659));
    EXPECT_NEAR(v.getDomWL(), 580.0, 0.05);
    EXPECT_NEAR(v.getPurity(), 0.5, 2e-3);
}

TEST(VantrelDominantWavelength, UserWhiteMovesTheReferencePoint) {
    Vantrel v;
    v.setWhitePointForDomWL_purity(0.31271, 0.32902);  // D65
    v.calcDomWL_purity_user(0.31271, 0.40);
    const double userWL = v.getDomWL();
    v.calcDomWL_purity(0.31271, 0.40);
    EXPECT_GT(userWL, 540.0);
    EXPECT_LT(userWL, 570.0);
    EXPECT_NE(userWL, v.getDomWL());
}

TEST(VantrelLocusCurves, DrawingCurvesFollowThePlanckLocusInsideTheirBounds) {
    Vantrel v;
    // CIE illuminant A lies on the 1931 Planck locus.
    EXPECT_NEAR(v.getBlackBody_Cy(0.44757), 0.40745, 1e-3);
    EXPECT_EQ(v.getBlackBody_Cy(0.70), 0.0);
    EXPECT_EQ(v.getSyntheticDaylight_Cy(0.20), 0.0);
    EXPECT_NEAR(v.getSyntheticDaylight_Cy(0.31271), 0.32902, 1e-3);
    v.setCIE_XYZ_bar_type(3);
    EXPECT_EQ(v.getBlackBody_Cy(0.653), 0.0);
    EXPECT_NEAR(v.getTM30BlendedLocus_Cy(0.5), 0.4542852 * 0.5 + 0.2014395, 1e-12);
}

TEST(VantrelLocusCurves, SpectrumLocusHas471PointsFrom360To830Nanometres) {
    Vantrel v;
    std::vector<double> x(Vantrel::NUM_LOCUS_POINTS), y(Vantrel::NUM_LOCUS_POINTS);
    v.getHorseShoeData_xy(x.data(), y.data());
    EXPECT_NEAR(x[0], 0.17556, 1e-4);    // 360 nm
    EXPECT_NEAR(x[160], 0.07430, 1e-4);  // 520 nm
    EXPECT_NEAR(y[160], 0.83380, 1e-4);
    std::vector<double> up(Vantrel::NUM_LOCUS_POINTS), vp(Vantrel::NUM_LOCUS_POINTS);
    v.getHorseShoeData_upvp(up.data(), vp.data());
    double u, vv;
    Vantrel::get_upvp_from_xy(x[300], y[300], &u, &vv);
    EXPECT_DOUBLE_EQ(up[300], u);
    EXPECT_DOUBLE_EQ(vp[300], vv);
}

TEST(VantrelCCT, OlderTableSeededWalkLandsNearTheBrentSearch) {
    // The secant-like walk from the 26-point table stops after 35 steps: a few 0.01 K short.
    Vantrel v;
    std::vector<double> s(N);
    for (double T : {1500.0, 2856.0, 6500.0, 12000.0}) {
        Vantrel::getBlackBody(s.data(), T);
        v.calcCCT(s.data(), false);
        double u, vv, old;
        Vantrel::get_uv_from_xy(v.getXcoord(), v.getYcoord(), &u, &vv);
        v.getCCTdata_old(u, vv, &old, false);
        EXPECT_NEAR(old, v.getCCT(), 0.2) << T;
    }
}
