// Reference tables: each filler against telling values of its published table, the grid
// conversions (range limits, first and last rows, interpolation) and the derived Planck tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "VantrelData.h"

namespace {

using Grid = std::array<double, VantrelData::NUM_GRID>;
using GridB = std::array<double, VantrelData::NUM_TLCI>;

// Grid A index of a wavelength in nm.
constexpr int at(int nm) { return (nm - 360) / 2; }

// Marks cells a filler must leave alone.
constexpr double UNTOUCHED = -7.0;

// Copied or linearly interpolated values, relative to max(1, |value|): room for a few ULPs of
// rounding, while neighbouring rows of every table differ by more than 1e-9.
constexpr double VALUE_TOL = 1e-12;
// The program's CCT-table values differ from ours by up to 5.2e-6 (its CMF tables differ from
// CIE's in the last digits); 1e-5 still catches a wrong c2, observer or grid (> 1e-4).
constexpr double CCT_UV_TOL = 1e-5;
// Black-body x, y: the 1931 reference values are printed to 6 decimals (rounding up to 5e-7);
// measured residuals are <= 2.8e-7 (1931) and 4e-10 (2015 10deg). Plain sums instead of the
// engine's end-point rule miss the 1931 10000 K y by 1.2e-6, a wrong c2 by far more.
constexpr double BLACK_BODY_TOL = 5e-7;
// EBU Tech 3355 prints each camera column to 6 decimals with a sum of 1.000000.
constexpr double CAMERA_SUM_TOL = 1e-6;
// The CCT table's mired values are stated to 8 decimals.
constexpr double MIRED_TOL = 1e-8;

// One curve on grid A from a filler writing N curves; the adapters below hand the pointers on.
using Curve = std::function<Grid()>;

template <int N>
Curve curve(void (*fill)(double**), int k) {
    return [fill, k] {
        std::array<Grid, N> curves;
        std::array<double*, N> rows;
        for (int c = 0; c < N; ++c) rows[c] = curves[c].data();
        fill(rows.data());
        return curves[k];
    };
}

void cie1931(double** p) { VantrelData().define_cie_1931_2deg_XYZ_bar(p[0], p[1], p[2]); }
void cie1964(double** p) { VantrelData().define_cie_1960_10deg_XYZ_bar(p[0], p[1], p[2]); }
void cie2015(double** p) { VantrelData().define_cie_2015_2deg_XYZ_bar(p[0], p[1], p[2]); }
void cie2015_10(double** p) { VantrelData().define_cie_2015_10deg_XYZ_bar(p[0], p[1], p[2]); }
void scotopic(double** p) { VantrelData().define_scotopic_XYZ_bar(p[0]); }
void daylight(double** p) { VantrelData().getDaylightCoefficients(p[0], p[1], p[2]); }
void tcs(double** p) { VantrelData().defineTCSvalues(p); }
void vs(double** p) { VantrelData().defineVSvalues(p); }
void fci(double** p) { VantrelData().define_FCI_colors(VantrelData::NUM_FCI, p); }
void blood(double** p) { VantrelData().define_Q100_Q50_COI(p[0], p[1]); }
void circadian(double** p) { VantrelData().defineCircadianConstants(p[0], p[1], p[2]); }
void well(double** p) {
    VantrelData().define_Well_Buillding_Melanopic_and_Visual_curves(p[0], p[1]);
}
void eml(double** p) { VantrelData().defineEMLcurves(p[0], p[1]); }

struct CurveCase {
    const char* name;
    Curve curve;
    std::vector<std::pair<int, double>> points;  // nm, value
};

TEST(VantrelData, CurvesHoldTheirPublishedValuesAndAreZeroOutsideTheirRange) {
    const CurveCase cases[] = {
        {"1931 x", curve<3>(cie1931, 0), {{360, 0.0001299}, {830, 0.000001251141}}},
        {"1931 y, near 1 at indices 97 and 98",
         curve<3>(cie1931, 1),
         {{360, 0.000003917}, {554, 0.9997482}, {556, 0.9998567}, {830, 0.00000045181}}},
        {"1931 z", curve<3>(cie1931, 2), {{360, 0.0006061}, {830, 0}}},
        {"1964 x, 380-780 nm only",
         curve<3>(cie1964, 0),
         {{360, 0}, {378, 0}, {380, 0.000159952}, {780, 0.0000334117}, {782, 0}, {830, 0}}},
        {"2015 2deg x", curve<3>(cie2015, 0), {{388, 0}, {390, 0.003769647}, {830, 1.762465e-06}}},
        {"2015 2deg y", curve<3>(cie2015, 1), {{388, 0}, {390, 0.0004146161}, {830, 7.05386e-07}}},
        {"2015 10deg x", curve<3>(cie2015_10, 0), {{388, 0}, {390, 0.00295242}}},
        {"2015 10deg y", curve<3>(cie2015_10, 1), {{390, 0.0004076779}, {830, 6.34538e-07}}},
        {"V'",
         curve<1>(scotopic, 0),
         {{378, 0}, {380, 0.000589}, {382, 0.000752}, {780, 1.39e-07}, {782, 0}}},
        {"daylight S0", curve<3>(daylight, 0), {{360, 61.5}, {362, 62.96}, {830, 61.9}}},
        {"daylight S1", curve<3>(daylight, 1), {{360, 38.0}, {362, 38.88}, {830, -9.8}}},
        {"daylight S2", curve<3>(daylight, 2), {{360, 5.3}, {362, 5.46}, {830, 6.5}}},
        {"TCS1", curve<16>(tcs, 1), {{360, 0.116}, {362, 0.116 + 0.4 * (0.136 - 0.116)}}},
        {"TCS2", curve<16>(tcs, 2), {{360, 0.053}}},
        {"TCS3", curve<16>(tcs, 3), {{360, 0.058}}},
        {"TCS4", curve<16>(tcs, 4), {{360, 0.057}}},
        {"TCS5", curve<16>(tcs, 5), {{360, 0.143}}},
        {"TCS15, JIS skin", curve<16>(tcs, 15), {{360, 0.099}}},
        {"VS1", curve<16>(vs, 1), {{360, 0.053}}},
        {"VS2", curve<16>(vs, 2), {{360, 0.0829}}},
        {"VS3", curve<16>(vs, 3), {{360, 0.0691}}},
        {"VS4", curve<16>(vs, 4), {{360, 0.0449}}},
        {"VS5", curve<16>(vs, 5), {{360, 0.0643}}},
        // FCI: the 379-381 nm cell is half covered by data starting at 380 nm.
        {"FCI1", curve<4>(fci, 0), {{360, 0}, {378, 0}, {380, 0.02901}}},
        {"FCI2", curve<4>(fci, 1), {{378, 0}, {380, 0.03903}}},
        {"FCI3", curve<4>(fci, 2), {{378, 0}, {380, 0.03741}}},
        {"FCI4", curve<4>(fci, 3), {{378, 0}, {380, 0.033}}},
        {"Q100", curve<2>(blood, 0), {{360, 0}, {378, 0}, {380, 0.026}, {760, 0.349}, {762, 0}}},
        {"Q50", curve<2>(blood, 1), {{378, 0}, {380, 0.021}, {760, 0.208}, {762, 0}}},
        {"circadian V", curve<3>(circadian, 0), {{380, 0}, {388, 0}, {390, 0.0001}, {782, 0}}},
        {"circadian S", curve<3>(circadian, 1), {{388, 0}, {390, 0.0029}, {392, 0.0153}}},
        {"circadian Mc", curve<3>(circadian, 2), {{378, 0}, {380, 0.0012091816743}, {782, 0}}},
        {"WELL melanopic",
         curve<2>(well, 0),
         {{378, 0}, {380, 0.000918}, {382, 0.000918 + 0.4 * (0.001667 - 0.000918)}}},
        {"EML melanopic, rounded after interpolation", curve<2>(eml, 0), {{382, 0.001218}}},
    };
    ASSERT_EQ(at(554), 97);
    for (const CurveCase& c : cases) {
        const Grid values = c.curve();
        for (const auto& [nm, value] : c.points) {
            const double tolerance = VALUE_TOL * std::max(1.0, std::fabs(value));
            EXPECT_NEAR(values[at(nm)], value, tolerance) << c.name << " at " << nm << " nm";
        }
    }
}

TEST(VantrelData, EmlCurvesAreTheWellCurvesRoundedToSixDecimals) {
    const Grid wellM = curve<2>(well, 0)(), wellV = curve<2>(well, 1)();
    const Grid emlM = curve<2>(eml, 0)(), emlV = curve<2>(eml, 1)();
    for (int i = 0; i < VantrelData::NUM_GRID; ++i) {
        EXPECT_DOUBLE_EQ(emlM[i], std::round(wellM[i] * 1e6) / 1e6) << "index " << i;
        EXPECT_DOUBLE_EQ(emlV[i], std::round(wellV[i] * 1e6) / 1e6) << "index " << i;
    }
}

TEST(VantrelData, TlciTablesAreEbuTech3355OnGridB) {
    const VantrelData data;
    GridB s0, s1, s2;
    data.getDaylightCoefficients_TLCI(s0.data(), s1.data(), s2.data());
    const double daylightRows[][4] = {
        {380, 63.4, 38.5, 3.0}, {385, 62.45, 35.98125, 2.1}, {760, 47.7, -7.8, 5.2}};
    for (const auto& row : daylightRows) {
        const int i = (static_cast<int>(row[0]) - 380) / 5;
        EXPECT_DOUBLE_EQ(s0[i], row[1]) << row[0] << " nm";
        EXPECT_DOUBLE_EQ(s1[i], row[2]) << row[0] << " nm";
        EXPECT_DOUBLE_EQ(s2[i], row[3]) << row[0] << " nm";
    }

    GridB x, y, z;
    data.get_xyz_bar_TLCI(x.data(), y.data(), z.data());
    EXPECT_DOUBLE_EQ(x[0], 0.001368);
    EXPECT_DOUBLE_EQ(y[0], 3.9e-5);
    EXPECT_DOUBLE_EQ(z[0], 0.00645);

    GridB camera[3];
    data.defineEBUvalues(camera[0].data(), camera[1].data(), camera[2].data());
    EXPECT_DOUBLE_EQ(camera[2][1], 0.000215);
    for (const GridB& column : camera) {
        double sum = 0;
        for (double value : column) sum += value;
        EXPECT_NEAR(sum, 1.0, CAMERA_SUM_TOL);
    }

    std::vector<GridB> patches(VantrelData::NUM_COLOR_CHECKER);
    std::vector<double*> rows;
    for (GridB& patch : patches) rows.push_back(patch.data());
    data.defineCHvalues(rows.data());
    EXPECT_DOUBLE_EQ(patches[0][0], 0.054);      // dark skin, 380 nm
    EXPECT_DOUBLE_EQ(patches[18][0], 0.126);     // white, 380 nm
    EXPECT_DOUBLE_EQ(patches[23][76], 0.03122);  // black, 760 nm
}

TEST(VantrelData, CesCodesAndNamesFollowTm30) {
    const std::string expected =
        "331143546731652332564475131731434771116636367534466656773457636565566666636616371336136"
        "615114311635";
    ASSERT_EQ(expected.size(), static_cast<size_t>(VantrelData::NUM_CES));
    const VantrelData data;
    std::array<int, VantrelData::NUM_CES> codes{}, cesTypes{};
    data.defineColorNameIndicies(codes.data());
    std::string digits;
    for (int code : codes) digits += std::to_string(code);
    EXPECT_EQ(digits, expected);

    std::vector<Grid> ces(VantrelData::NUM_CES);
    std::vector<double*> rows;
    for (Grid& row : ces) rows.push_back(row.data());
    data.defineCESvalues(cesTypes.data(), rows.data());
    EXPECT_EQ(cesTypes, codes);
    EXPECT_DOUBLE_EQ(ces[0][0], 0.6359);  // TM-30-18; TM-30-15 has 0.61947
    EXPECT_DOUBLE_EQ(ces[98][at(830)], 0.6338);

    const char* names[] = {"unknown", "Nature",  "Skin",         "Textiles", "Paints",
                           "Plastic", "Printed", "Color system", "unknown"};
    for (int type = 0; type <= 8; ++type) EXPECT_STREQ(data.getCESColorTypeStr(type), names[type]);
    EXPECT_STREQ(data.getCESColorTypeStr(-1), "unknown");
}

struct BlackBodyCase {
    const char* name;
    void (VantrelData::*fill)(int*, int*, double*, double*) const;
    double x1000, y1000, x10000, y10000;
};

TEST(VantrelData, BlackBodyLinesMatchTheProgramsEndPoints) {
    const BlackBodyCase cases[] = {
        {"CIE 1931", &VantrelData::defineBlackBodyline, 0.65275, 0.344462, 0.280633, 0.288286},
        {"CIE 2015 10deg", &VantrelData::defineBlackBodyline_2015_10Deg, 0.6499733, 0.348055657,
         0.27969279, 0.291056639},
    };
    for (const BlackBodyCase& c : cases) {
        SCOPED_TRACE(c.name);
        std::vector<double> x(VantrelData::NUM_BLACK_BODY_LINE), y(x.size());
        int count4000K = 0, count5000K = 0;
        (VantrelData().*c.fill)(&count4000K, &count5000K, x.data(), y.data());
        EXPECT_EQ(count4000K, 301);
        EXPECT_EQ(count5000K, 401);
        EXPECT_NEAR(x.front(), c.x1000, BLACK_BODY_TOL);
        EXPECT_NEAR(y.front(), c.y1000, BLACK_BODY_TOL);
        EXPECT_NEAR(x.back(), c.x10000, BLACK_BODY_TOL);
        EXPECT_NEAR(y.back(), c.y10000, BLACK_BODY_TOL);
        for (size_t k = 1; k < x.size(); ++k) ASSERT_LT(x[k], x[k - 1]) << "point " << k;
    }
}

TEST(VantrelData, LocusRowsAreAppendedAfterTheGivenCount) {
    constexpr int offset = 5;
    const VantrelData data;
    std::vector<double> X(offset + VantrelData::NUM_LOCUS, UNTOUCHED), Y(X), Z(X);
    int count = offset;
    data.getHorseShoeData_xy(&count, X.data(), Y.data(), Z.data());
    EXPECT_EQ(count, offset + VantrelData::NUM_LOCUS);
    EXPECT_EQ(X[offset - 1], UNTOUCHED);
    EXPECT_DOUBLE_EQ(X[offset], 0.0001299);
    EXPECT_DOUBLE_EQ(Y[offset], 0.000003917);
    EXPECT_DOUBLE_EQ(Y[offset + 194], 0.9997482);  // 554 nm
    EXPECT_DOUBLE_EQ(X[offset + 470], 0.000001251141);

    count = offset;
    data.getHorseShoeData_2015_10deg_xy(&count, X.data(), Y.data(), Z.data());
    EXPECT_EQ(count, offset + VantrelData::NUM_LOCUS);
    for (int j = 0; j <= 30; ++j) {  // 360 to 389 nm repeat the 390 nm row
        EXPECT_DOUBLE_EQ(X[offset + j], 0.00295242) << j;
        EXPECT_DOUBLE_EQ(Y[offset + j], 0.0004076779) << j;
        EXPECT_DOUBLE_EQ(Z[offset + j], 0.01318752) << j;
    }
    EXPECT_DOUBLE_EQ(X[offset + 31], 0.003577275);  // 391 nm
    EXPECT_DOUBLE_EQ(X[offset + 470], 1.579199e-06);
}

TEST(VantrelData, EyeCurveContinuesGeometricallyFromYBarAt830To1050Nm) {
    std::array<double, VantrelData::NUM_GRID_IR> curve;
    VantrelData().defineEyeSensitivityCurveIR(curve.data());
    EXPECT_DOUBLE_EQ(curve[at(554)], 0.9997482);
    EXPECT_DOUBLE_EQ(curve[235], 0.00000045181);
    EXPECT_DOUBLE_EQ(curve[345], 4.27534e-12);
    const double ratio = curve[236] / curve[235];
    for (int i = 236; i < VantrelData::NUM_GRID_IR; ++i) {
        ASSERT_LT(curve[i], curve[i - 1]) << "index " << i;
        EXPECT_NEAR(curve[i] / curve[i - 1], ratio, VALUE_TOL) << "index " << i;
    }
}

TEST(VantrelData, CctTableHoldsPlanckPointsAtFixedMiredRows) {
    const VantrelData data;
    std::array<double, VantrelData::NUM_CCT_TABLE> urd, u, v, urd10, u10, v10;
    data.defineCCTdata(0, urd.data(), u.data(), v.data());
    data.defineCCTdata(3, urd10.data(), u10.data(), v10.data());

    const std::pair<int, double> fixedRows[] = {{0, 1000},
                                                {1, 961.53846154},
                                                {13, 480.76923077},
                                                {22, 120.04801921},
                                                {23, 83.33333333},
                                                {24, 40},
                                                {25, 1}};
    for (const auto& [row, mired] : fixedRows) EXPECT_NEAR(urd[row], mired, MIRED_TOL) << row;
    for (int r = 1; r < VantrelData::NUM_CCT_TABLE; ++r) EXPECT_LT(urd[r], urd[r - 1]) << r;
    EXPECT_EQ(urd10, urd);

    EXPECT_NEAR(u10[0], 0.442405393275272, CCT_UV_TOL);
    EXPECT_NEAR(v10[0], 0.355356982668493, CCT_UV_TOL);
    EXPECT_NEAR(u[25], 0.180120146759528, CCT_UV_TOL);
    EXPECT_NEAR(v[25], 0.263744261311125, CCT_UV_TOL);
    EXPECT_NEAR(v10[25], 0.266541211678617, CCT_UV_TOL);
}

}  // namespace
