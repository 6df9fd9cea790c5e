// The CIE standard illuminants of the illuminant menu: names, the 1 W scale, their published
// shapes and what the engine makes of them.
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <string>
#include <vector>

#include "StandardIlluminants.h"
#include "Vantrel.h"

namespace {

constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int N_IR = Vantrel::NUM_GRID_POINTS_IR;
// Three decimals keep each value to 5e-4 of itself, and so the sum.
constexpr double ROUNDING_REL_TOL = 5e-4;
constexpr int INDEX_780_NM = 210;
constexpr int INDEX_560_NM = 100;

std::vector<double> illuminant(int index, std::string* name) {
    std::vector<double> s(N_IR, 0.0);
    EXPECT_EQ(defineStandardIlluminants(index, name, s.data()), N) << index;
    return s;
}

std::string numbers(int n) {
    std::string text;
    for (int i = 0; i < n; ++i) text += "1.000e-03 ";
    return text;
}

}  // namespace

TEST(StandardIlluminants, EachIsOneWattInMenuOrderAndZeroWhereThePublicationHasNoData) {
    const char* names[] = {"A",   "B",   "C",   "E",   "D50", "D55", "D65", "D75", "F1",
                           "F2",  "F3",  "F4",  "F5",  "F6",  "F7",  "F8",  "F9",  "F10",
                           "F11", "F12", "HP1", "HP2", "HP3", "HP4", "HP5"};
    for (int i = 0; i < NUM_STANDARD_ILLUMINANTS; ++i) {
        std::string name;
        const std::vector<double> s = illuminant(i, &name);
        EXPECT_EQ(name, std::string("Standard illuminant ") + names[i]);
        SCOPED_TRACE(name);
        double sum = 0;
        for (int j = 0; j < N; ++j) sum += s[j];
        // E: 2.370e-03 on 211 points is 1/422 rounded up by 1.4e-4.
        EXPECT_NEAR(2.0 * sum, 1.0, ROUNDING_REL_TOL);
        const bool daylightComponents = i == 4 || i == 5 || i == 7;  // published to 830 nm
        if (!daylightComponents) {
            for (int j = INDEX_780_NM + 1; j < N; ++j) ASSERT_EQ(s[j], 0.0) << j;
        }
        if (i >= 8) {  // fluorescent and discharge lamps start at 380 nm
            for (int j = 0; j < 10; ++j) ASSERT_EQ(s[j], 0.0) << j;
            EXPECT_GT(s[10], 0.0);
        }
    }
    std::string name;
    const std::vector<double> e = illuminant(3, &name);
    for (int j = 0; j <= INDEX_780_NM; ++j) ASSERT_EQ(e[j], 2.370e-03) << j;
    const std::vector<double> a = illuminant(0, &name);
    for (int j = 1; j <= INDEX_780_NM; ++j) ASSERT_GE(a[j], a[j - 1]) << j;  // a black body
}

TEST(StandardIlluminants, DaylightFromTheComponentsMatchesThePublishedColumns) {
    std::string name;
    const std::vector<double> d[3] = {illuminant(4, &name), illuminant(5, &name),
                                      illuminant(7, &name)};
    std::ifstream in(std::string(LUMIVAR_TEST_DATA_DIR) +
                     "/cie_illuminants/cie_D50_D55_D75_5nm.tsv");
    for (int skip = 0; skip < 3; ++skip) in.ignore(1000, '\n');  // two comments, the header
    double nm, published[3];
    int rows = 0;
    while (in >> nm >> published[0] >> published[1] >> published[2]) {
        ++rows;
        const int j = static_cast<int>(nm - 360) / 2;
        if (static_cast<int>(nm) % 10 != 0) continue;  // on both grids
        for (int k = 0; k < 3; ++k) {
            // Both scales are 100 at 560 nm.
            EXPECT_NEAR(100.0 * d[k][j] / d[k][INDEX_560_NM], published[k],
                        ROUNDING_REL_TOL * (200.0 + published[k]))
                << "D" << (k == 2 ? 75 : 50 + 5 * k) << " " << nm;
        }
    }
    EXPECT_EQ(rows, 85);
}

TEST(StandardIlluminants, EngineGivesD65Its6504KelvinAndF2ItsRa64) {
    std::string name;
    Vantrel v;
    const std::vector<double> d65 = illuminant(6, &name);
    v.calcCCT(d65.data(), false);
    v.color(d65.data(), false);
    EXPECT_NEAR(v.getCCT(), 6504.0, 3.0);  // 2 nm interpolation and three decimals
    EXPECT_NEAR(v.getWattsVis(), 1.0, ROUNDING_REL_TOL + 0.001);  // end points weigh 1.5

    const std::vector<double> f2 = illuminant(9, &name);
    v.calcCCT(f2.data(), false);
    v.color(f2.data(), false);
    double R[Vantrel::NUM_SAMPLES];
    v.returnRvalues(R);
    EXPECT_EQ(std::lround(R[0]), 64);
}

TEST(StandardIlluminants, TextsOfAnyOtherCountAndUnknownIndicesGiveErrors) {
    const struct {
        std::string text;
        bool ok;
    } cases[] = {{numbers(236), true},  {" " + numbers(346) + "\n", true},
                 {numbers(235), false}, {numbers(237), false},
                 {"", false},           {numbers(235) + "x.000e-03", false}};
    for (const auto& c : cases) {
        std::vector<double> values;
        EXPECT_EQ(parseIlluminantText(c.text.c_str(), &values), c.ok) << values.size();
    }
    for (int bad : {-1, NUM_STANDARD_ILLUMINANTS}) {
        std::string name = "kept?";
        double s[N_IR] = {7.0};
        EXPECT_EQ(defineStandardIlluminants(bad, &name, s), 0);
        EXPECT_EQ(name, "error");
        EXPECT_EQ(s[0], 7.0);
    }
}
