// CIE 13.3 R values, CMCCAT2000 and the Colour Quality Scale.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NS = Vantrel::NUM_SAMPLES;
// Score of a sample rendered without colour difference: 10·ln(e^10 + 1).
const double PERFECT_Q = 10.0 * std::log(std::exp(10.0) + 1.0);

std::vector<double> gaussian(double peakNm, double sigmaNm) {
    return testutil::gaussianSpectrum(peakNm, sigmaNm);
}

// The CQS colour difference of a sample back from its score.
double dEfromQ(double q) { return (100.0 - 10.0 * std::log(std::exp(q / 10.0) - 1.0)) / 3.2; }
}  // namespace

TEST(VantrelCQS, TestEqualToItsReferenceScoresTheCeilingEverywhere) {
    // color() takes the CCT of the last calcCCT; rendering the reference of that CCT makes the
    // test spectrum exactly its own reference.
    Vantrel v;
    std::vector<double> s(N), ref(N);
    Vantrel::getBlackBody(s.data(), 3200.0);
    v.calcCCT(s.data(), false);
    v.getReferenceSpectrum(v.getCCT(), ref.data());
    v.color(ref.data(), false, true, true, true, false);
    double Q[NS];
    v.returnQvalues(Q);
    for (int k = 0; k < NS; ++k) EXPECT_NEAR(Q[k], PERFECT_Q, 1e-9) << "Q" << k;
    EXPECT_NEAR(PERFECT_Q, 100.000454, 1e-6);
}

TEST(VantrelCQS, SaturationAllowanceForgivesChromaGainUpTo10) {
    double L0[NS] = {}, L1[NS] = {}, a0[NS] = {}, a1[NS] = {}, b0[NS] = {}, b1[NS] = {};
    double* L[2] = {L0, L1};
    double* a[2] = {a0, a1};
    double* b[2] = {b0, b1};
    const int k = 3;
    // More saturated under the test by exactly its ΔE: nothing left to count.
    a1[k] = 20.0;
    a0[k] = 26.0;
    double chroma[2] = {26.0, 20.0}, sum = 0.0, q = 0.0;
    Vantrel::get_CQS_term(k, a, b, L, chroma, &sum, &q);
    EXPECT_NEAR(q, PERFECT_Q, 1e-12);
    EXPECT_NEAR(sum, 0.0, 1e-12);
    // A gain of 15 forgives only 10: ΔE² = 15² − 10².
    a0[k] = 35.0;
    chroma[0] = 35.0;
    sum = 0.0;
    Vantrel::get_CQS_term(k, a, b, L, chroma, &sum, &q);
    EXPECT_NEAR(sum, 225.0 - 100.0, 1e-9);
    // A loss of chroma is counted in full.
    a0[k] = 14.0;
    chroma[0] = 14.0;
    sum = 0.0;
    Vantrel::get_CQS_term(k, a, b, L, chroma, &sum, &q);
    EXPECT_NEAR(sum, 36.0, 1e-9);
    EXPECT_NEAR(dEfromQ(q), 6.0, 1e-9);
}

TEST(VantrelCQS, UserQaDividesByFifteenWhateverTheColourCount) {
    Vantrel v;
    std::vector<double> s = gaussian(600, 60);
    v.calcAll(s.data(), false, false);
    std::vector<std::vector<double>> vs(NS, std::vector<double>(N));
    std::vector<double*> vsRows(NS);
    for (int k = 0; k < NS; ++k) vsRows[k] = vs[k].data();
    v.getVSdata(vsRows.data());
    const int n = 5;
    std::vector<std::vector<double>> work(12, std::vector<double>(2 * n));
    double* rows[12][2];
    for (int w = 0; w < 12; ++w) rows[w][0] = work[w].data(), rows[w][1] = work[w].data() + n;
    double Q[n];
    v.getUserQvalues(n, vsRows.data() + 1, Q, s.data(), rows[0], rows[1], rows[2], rows[3], rows[4],
                     rows[5], rows[6], rows[7]);
    double sum = 0;
    for (int k = 0; k < n; ++k) sum += dEfromQ(Q[k]) * dEfromQ(Q[k]);
    EXPECT_NEAR(v.getUserQvaluesCQS(),
                10.0 * std::log(std::exp((100.0 - 3.2 * std::sqrt(sum / 15.0)) / 10.0) + 1.0),
                1e-6);
    // The same samples inside color() score the same.
    double full[NS];
    v.returnQvalues(full);
    for (int k = 0; k < n; ++k) EXPECT_NEAR(Q[k], full[k + 1], 1e-9) << "VS" << k + 1;
}

TEST(VantrelCRI, UserRvaluesOfTheTestColoursAreTheirRValues) {
    Vantrel v;
    std::vector<double> s = gaussian(560, 50);
    v.calcAll(s.data(), false, false);
    double R[NS];
    v.returnRvalues(R);
    std::vector<std::vector<double>> tcs(NS, std::vector<double>(N));
    std::vector<double*> rows(NS);
    for (int k = 0; k < NS; ++k) rows[k] = tcs[k].data();
    v.getTCSdata(rows.data());
    double user[4] = {-1, -1, -1, 12345.0};
    v.getUserRvalues(3, rows.data() + 1, user, s.data());
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(user[k], R[k + 1], 1e-9) << "R" << k + 1;
    EXPECT_EQ(user[3], 12345.0);  // exactly n values written
}

TEST(VantrelCRI, NarrowBandSourcesGiveNegativeRValuesAndDarknessGivesMinus400) {
    Vantrel v;
    std::vector<double> green = gaussian(530, 8);
    v.calcAll(green.data(), false, false);
    double R[NS];
    v.returnRvalues(R);
    EXPECT_LT(R[9], -100.0);  // not clipped at 0
    EXPECT_LT(R[0], 0.0);

    std::vector<double> dark(N, 0.0);
    v.calcAll(dark.data(), false, false);
    v.returnRvalues(R);
    for (int k = 0; k < NS; ++k) EXPECT_EQ(R[k], Vantrel::R_VALUE_NAN) << "R" << k;
}

TEST(VantrelCRI, CriStringIsUndefinedOutside1000To25000Kelvin) {
    const struct {
        double cct;
        int ra;
        const char* text;
    } cases[] = {{999.9, 80, "N/A"},
                 {25000.1, 80, "N/A"},
                 {1000.0, 81, "81"},
                 {25000.0, 95, "95"},
                 {4000.0, -12, "-12"}};
    for (const auto& c : cases) {
        char buf[16];
        Vantrel::getCRIstring(buf, c.cct, c.ra);
        EXPECT_STREQ(buf, c.text) << c.cct;
    }
}

TEST(VantrelCRI, CmccatCarriesTheSourceWhiteOntoTheTargetWhite) {
    const double source[3] = {109.85, 100.0, 35.585};   // illuminant A
    const double target[3] = {95.047, 100.0, 108.883};  // D65
    double out[3];
    Vantrel::CMCCAT_v(source[0] / 2, source[1] / 2, source[2] / 2, source, target, 1000.0, out);
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(out[k], target[k] / 2, 1e-6) << k;
    // Below 1000 cd/m² adaptation is incomplete: the white keeps some of its source colour.
    Vantrel::CMCCAT_v(source[0], source[1], source[2], source, target, 200.0, out);
    EXPECT_GT(out[0] / out[2], target[0] / target[2] * 1.05);
}

TEST(VantrelCRI, LabSetsSeparateAGoodFromAPoorSource) {
    const std::vector<double> broad = gaussian(570, 120), narrow = gaussian(570, 25);
    Vantrel v;
    double L[2][NS], a[2][NS], b[2][NS];
    v.calcAll(broad.data(), false, true);
    v.returnLabRvalues(L, a, b);
    const double dEbroad =
        Vantrel::get_dE_star_from_CIELab(L[0][9], a[0][9], b[0][9], L[1][9], a[1][9], b[1][9]);
    v.calcAll(narrow.data(), false, true);
    v.returnLabRvalues(L, a, b);
    const double dEnarrow =
        Vantrel::get_dE_star_from_CIELab(L[0][9], a[0][9], b[0][9], L[1][9], a[1][9], b[1][9]);
    EXPECT_LT(dEbroad, 10.0);
    EXPECT_GT(dEnarrow, 3.0 * dEbroad);
    EXPECT_GT(L[1][9], 20.0);  // the strong red is a mid-dark sample under any white
    EXPECT_LT(L[1][9], 60.0);
}

TEST(VantrelCQS, QValuesKeepTheirLastRunWhenNotAskedFor) {
    Vantrel v;
    const std::vector<double> warm = gaussian(600, 80), green = gaussian(530, 30);
    double first[NS], after[NS];
    v.calcAll(warm.data(), false, false);
    v.returnQvalues(first);
    v.calcCCT(green.data(), false);
    v.color(green.data(), false, false, true, true, false);  // doQ off
    v.returnQvalues(after);
    for (int k = 0; k < NS; ++k) EXPECT_EQ(after[k], first[k]) << "Q" << k;
    // The four-flag form always computes Q, whatever its other flags say.
    v.color(green.data(), false, false, false, false);
    v.returnQvalues(after);
    EXPECT_NE(after[0], first[0]);
}
