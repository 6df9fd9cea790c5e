// IES TM-30-18: refusal, the reference illuminant, self-consistency, user colours, the CIECAM02
// pieces and published values for CIE fluorescent illuminants (tests/data/tm30_published.tsv).
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NC = Vantrel::NUM_CES;
constexpr int NB = Vantrel::TM30_NUM_BINS;
const std::string DATA_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/";
// Score of a colour rendered without difference: 10·ln(e^10 + 1) = 100.000454.
const double PERFECT_RF = 10.0 * std::log(std::exp(10.0) + 1.0);
// Identical arithmetic on both sides but in a different order (sums of 99 terms, a shoelace of
// 16 points): a few units in the last place.
constexpr double ROUNDING = 1e-9;
constexpr double PI_15_DIGITS = 3.14159265358979323846;

using Rows = std::vector<std::vector<double>>;

double fidelity(double dE) { return 10.0 * std::log(std::exp((100.0 - 6.73 * dE) / 10.0) + 1.0); }

std::vector<double> referenceSpectrum(const Vantrel& v, double cct) {
    std::vector<double> s(N);
    v.getTM30ReferenceSpectrum(cct, s.data());
    return s;
}

// A CIE illuminant table ("#" comments, a header, then nm and value) on the program's grid.
std::vector<double> loadIlluminant(const std::string& file) {
    std::vector<double> out = testutil::loadCIEIlluminant(file);
    EXPECT_EQ(out.size(), static_cast<std::size_t>(N)) << file;
    return out;
}

// The 99 CES as user reflectances, and the pointers calculate_TM30 takes.
Rows cesRows(const Vantrel& v, std::vector<const double*>* pointers) {
    Rows rows(NC, std::vector<double>(N));
    std::vector<double*> out(NC);
    std::vector<int> types(NC);
    for (int k = 0; k < NC; ++k) out[k] = rows[k].data();
    v.defineCESvalues(types.data(), out.data());
    pointers->assign(out.begin(), out.end());
    return rows;
}

// CCT and Duv from calcAll, then TM-30 on the CES, as the program runs it.
void runOn(Vantrel& v, const std::vector<double>& s) {
    v.calcAll(s.data(), false, false);
    v.calculate_TM30(v.getDeltaUVPlanck(), v.getCCT(), s.data());
}
}  // namespace

TEST(TM30Refusal, DuvOfExactly0point1ComputesAndBeyondRefuses) {
    Vantrel v;
    const std::vector<double> s = referenceSpectrum(v, 5000.0);
    const struct {
        double duv;
        bool refused;
    } cases[] = {{0.1, false}, {-0.1, false}, {0.1000001, true}, {-0.1000001, true}};
    for (const auto& c : cases) {
        v.calculate_TM30(0.0, 5000.0, s.data());
        const double rfi0 = v.getTM30Rfi(0);
        v.calculate_TM30(c.duv, 5000.0, s.data());
        EXPECT_EQ(v.get_TM30Error(), c.refused) << c.duv;
        if (c.refused) {
            EXPECT_EQ(v.get_TM30_Rf(), Vantrel::TM30_REFUSED);
            EXPECT_EQ(v.get_TM30_Rg(), Vantrel::TM30_REFUSED);
            EXPECT_EQ(v.get_TM30_Rf_skin(), Vantrel::TM30_REFUSED);
            EXPECT_EQ(v.getTM30Rfi(0), rfi0);  // the rest of the last run stays
        } else {
            EXPECT_NEAR(v.get_TM30_Rf(), PERFECT_RF, ROUNDING) << c.duv;
        }
    }
}

TEST(TM30Reference, PlanckTo4000KelvinDaylightFrom5000WithoutUpperLimit) {
    Vantrel v;
    for (double cct : {1500.0, 2700.0, 4000.0, 5000.0, 6500.0, 25000.0, 100000.0}) {
        std::vector<double> expected(N);
        if (cct >= 5000.0) v.getSyntheticDaylight(expected.data(), cct);
        if (cct <= 4000.0) Vantrel::getBlackBody(expected.data(), cct);
        EXPECT_EQ(referenceSpectrum(v, cct), expected) << cct;
    }
}

TEST(TM30Reference, BlendMixesTheTwoPartsAtEqualLuminance) {
    Vantrel v;
    std::vector<double> ybar(N);
    for (int i = 0; i < N; ++i) ybar[i] = v.get_ybar_CurveData_1931_2_deg(i);
    // Planck weight (5000 − T)/1000; at 4500 K both parts weigh one half.
    const struct { double cct, planckWeight; } cases[] = {{4500, 0.5}, {4001, 0.999}, {4800, 0.2}};
    for (const auto& c : cases) {
        std::vector<double> planck(N), daylight(N);
        Vantrel::getBlackBody(planck.data(), c.cct);
        v.getSyntheticDaylight(daylight.data(), c.cct);
        const double Yp = Vantrel::sum2Products(planck.data(), ybar.data());
        const double Yd = Vantrel::sum2Products(daylight.data(), ybar.data());
        const std::vector<double> s = referenceSpectrum(v, c.cct);
        for (int i = 0; i < N; ++i) {
            const double mine =
                c.planckWeight * planck[i] / Yp + (1.0 - c.planckWeight) * daylight[i] / Yd;
            EXPECT_NEAR(s[i], mine, 1e-12 * std::fabs(mine)) << c.cct << " K, index " << i;
        }
        EXPECT_NEAR(Vantrel::sum2Products(s.data(), ybar.data()), 1.0, ROUNDING) << c.cct;
    }
}

TEST(TM30Fidelity, SourceEqualToItsReferenceScoresPerfectlyInEveryBin) {
    // One CCT in each branch of the reference: Planck, blend, daylight.
    for (double cct : {2700.0, 4500.0, 6500.0}) {
        Vantrel v;
        const std::vector<double> s = referenceSpectrum(v, cct);
        v.calculate_TM30(0.0, cct, s.data());
        EXPECT_FALSE(v.get_TM30Error());
        EXPECT_NEAR(v.get_TM30_Rf(), PERFECT_RF, ROUNDING) << cct;
        EXPECT_NEAR(v.get_TM30_Rg(), 100.0, ROUNDING) << cct;
        EXPECT_NEAR(v.get_TM30_Rf_skin(), PERFECT_RF, ROUNDING) << cct;
        for (int j = 0; j < NC; ++j) EXPECT_NEAR(v.getTM30Rfi(j), PERFECT_RF, ROUNDING) << j;
        double chroma[NB], hue[NB], rf[NB];
        int count[NB], total = 0;
        v.getTM30ChromaShiftsAsPercent(chroma);
        v.getTM30HueShifts(hue);
        v.getTM30RfByHue(rf);
        v.getTM30NumInHueBins(count);
        for (int b = 0; b < NB; ++b) {
            total += count[b];
            if (count[b] == 0) continue;
            EXPECT_NEAR(chroma[b], 0.0, ROUNDING) << cct << " bin " << b;
            EXPECT_NEAR(hue[b], 0.0, ROUNDING) << cct << " bin " << b;
            EXPECT_EQ(rf[b], 100.0) << cct << " bin " << b;
        }
        EXPECT_EQ(total, NC);
    }
}

TEST(TM30Fidelity, TheSelectedObserverDoesNotMatter) {
    const std::vector<double> s = loadIlluminant("cie_F2_5nm.txt");
    Vantrel v;
    runOn(v, s);
    const double cct = v.getCCT(), duv = v.getDeltaUVPlanck(), rf = v.get_TM30_Rf();
    for (int observer : {1, 2, 3}) {
        v.setCIE_XYZ_bar_type(observer);
        v.calculate_TM30(duv, cct, s.data());
        EXPECT_EQ(v.get_TM30_Rf(), rf) << observer;
    }
}

TEST(TM30UserColours, TheCesPassedAsUserColoursScoreAsTheCesWithoutRfSkin) {
    Vantrel v;
    std::vector<const double*> rows;
    const Rows ces = cesRows(v, &rows);
    const std::vector<double> s = loadIlluminant("cie_F2_5nm.txt");
    runOn(v, s);
    const double rf = v.get_TM30_Rf(), rg = v.get_TM30_Rg();
    v.calculate_TM30(v.getDeltaUVPlanck(), v.getCCT(), s.data(), NC, rows.data());
    EXPECT_EQ(v.get_TM30_Rf(), rf);
    EXPECT_EQ(v.get_TM30_Rg(), rg);
    EXPECT_EQ(v.get_TM30_Rf_skin(), Vantrel::TM30_REFUSED);
    // No colours, or none given, means the CES.
    v.calculate_TM30(v.getDeltaUVPlanck(), v.getCCT(), s.data(), 0, rows.data());
    EXPECT_NE(v.get_TM30_Rf_skin(), Vantrel::TM30_REFUSED);
}

TEST(TM30UserColours, AlternatingCountsReallocateAndStayCorrect) {
    Vantrel v;
    std::vector<const double*> rows;
    const Rows ces = cesRows(v, &rows);
    const std::vector<double> s = loadIlluminant("cie_F1_5nm.txt");
    runOn(v, s);
    std::vector<double> cesRfi(NC);
    for (int j = 0; j < NC; ++j) cesRfi[j] = v.getTM30Rfi(j);
    const double cct = v.getCCT(), duv = v.getDeltaUVPlanck();
    for (int n : {5, 0, 40, 1, 99, 5}) {
        v.calculate_TM30(duv, cct, s.data(), n, n > 0 ? rows.data() : nullptr);
        const int count = n > 0 ? n : NC;
        double sumDE = 0;
        int binned[NB], total = 0;
        for (int j = 0; j < count; ++j) {
            EXPECT_EQ(v.getTM30Rfi(j), cesRfi[j]) << "n " << n << " colour " << j;
            double d2 = 0;
            for (int c = 0; c < 3; ++c) {
                d2 += std::pow(v.getTM30JabValues(j, 0, c) - v.getTM30JabValues(j, 1, c), 2);
            }
            sumDE += std::sqrt(d2);
        }
        EXPECT_EQ(v.getTM30Rfi(count), 0.0) << "n " << n;  // past the end
        EXPECT_NEAR(v.get_TM30_Rf(), fidelity(sumDE / count), ROUNDING) << "n " << n;
        v.getTM30NumInHueBins(binned);
        for (int b = 0; b < NB; ++b) total += binned[b];
        EXPECT_EQ(total, count);
    }
}

TEST(TM30Published, CieFluorescentIlluminantsMatchPublishedValues) {
    std::ifstream in(DATA_DIR + "tm30_published.tsv");
    ASSERT_TRUE(in.good());
    std::map<std::string, Vantrel> engines;  // one run per illuminant
    std::string line;
    int checked = 0;
    bool header = true;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        if (header) {
            header = false;
            continue;
        }
        std::istringstream cells(line);
        std::string file, quantity, source;
        int index;
        double value, tolerance;
        ASSERT_TRUE(cells >> file >> quantity >> index >> value >> tolerance >> source) << line;
        if (!engines.count(file)) runOn(engines[file], loadIlluminant(file));
        const Vantrel& v = engines.at(file);
        double bins[NB] = {};
        double computed;
        if (quantity == "Rf") {
            computed = v.get_TM30_Rf();
        } else if (quantity == "Rg") {
            computed = v.get_TM30_Rg();
        } else if (quantity == "Rf_i") {
            computed = v.getTM30Rfi(index - 1);
        } else {
            if (quantity == "Rf_hj") v.getTM30RfByHue(bins);
            if (quantity == "Rcs_hj") v.getTM30ChromaShiftsAsPercent(bins);
            if (quantity == "Rhs_hj") v.getTM30HueShifts(bins);
            computed = bins[index - 1];
        }
        EXPECT_NEAR(computed, value, tolerance)
            << file << " " << quantity << " " << index << " (" << source << ")";
        ++checked;
    }
    EXPECT_EQ(checked, 5 + 3 * NB + NC);
}

TEST(TM30Cam02, TheWhiteItselfHasJ100AndNoChroma) {
    // a', b' keep a residue of about 0.006: the six-digit inverse CAT02 and the HPE row that sums
    // to 1.00001 leave the white's cone responses not quite equal.
    constexpr double WHITE_CHROMA_RESIDUE = 0.01;
    const double whites[][3] = {{100, 100, 100}, {95.047, 100, 108.883}, {109.85, 100, 35.585}};
    for (const auto& w : whites) {
        double jab[3];
        Vantrel::CalcCAM02(w[0], w[1], w[2], w[0], w[1], w[2], jab);
        EXPECT_NEAR(jab[0], 100.0, ROUNDING) << w[0];
        EXPECT_NEAR(jab[1], 0.0, WHITE_CHROMA_RESIDUE) << w[0];
        EXPECT_NEAR(jab[2], 0.0, WHITE_CHROMA_RESIDUE) << w[0];
    }
}

TEST(TM30Cam02, RunValuesAreExactlyTheEngineIntegralThroughCalcCam02) {
    // The run forms S·x̄, S·ȳ, S·z̄ once per spectrum and shares each white's CIECAM02 terms; it
    // must still give bit for bit what sum3Products and CalcCAM02 give.
    Vantrel v;
    std::vector<const double*> rows;
    const Rows ces = cesRows(v, &rows);
    const std::vector<double> s = loadIlluminant("cie_F2_5nm.txt");
    runOn(v, s);
    const std::vector<double> ref = referenceSpectrum(v, v.getCCT());
    Rows cmf(3, std::vector<double>(N));
    for (int i = 0; i < N; ++i) {
        cmf[0][i] = v.get_xbar_CurveData_1960_10_deg(i);
        cmf[1][i] = v.get_ybar_CurveData_1960_10_deg(i);
        cmf[2][i] = v.get_zbar_CurveData_1960_10_deg(i);
    }
    const double* spectra[2] = {s.data(), ref.data()};
    for (int row = 0; row < 2; ++row) {
        const double k = 100.0 / Vantrel::sum2Products(spectra[row], cmf[1].data());
        const double Xw = k * Vantrel::sum2Products(spectra[row], cmf[0].data());
        const double Zw = k * Vantrel::sum2Products(spectra[row], cmf[2].data());
        for (int j : {0, 14, 50, 98}) {
            double xyz[3], jab[3];
            for (int c = 0; c < 3; ++c) {
                xyz[c] = k * Vantrel::sum3Products(spectra[row], cmf[c].data(), rows[j]);
            }
            Vantrel::CalcCAM02(Xw, 100.0, Zw, xyz[0], xyz[1], xyz[2], jab);
            for (int c = 0; c < 3; ++c) {
                EXPECT_EQ(v.getTM30JabValues(j, row, c), jab[c]) << j << " " << row << " " << c;
            }
        }
    }
}

TEST(TM30Graphics, PatchColoursOfKnownStimuli) {
    const double d65[3] = {95.048, 100.0, 108.88};
    const struct {
        double X, Y, Z;
        int r, g, b;
    } cases[] = {
        {95.048, 100.0, 108.88, 255, 255, 254},  // the D65 white: the four-digit matrices
        {19.0096, 20.0, 21.776, 122, 122, 122},  // 20 % grey: 255·0.2^(1/2.2) = 122.7
        {0.0, 0.0, 0.0, 0, 0, 0},                // black, no NaN through
        {300.0, 100.0, 0.0, 255, 0, 0},          // beyond the screen: limited to 0..255
    };
    for (const auto& c : cases) {
        const double xyz[3] = {c.X, c.Y, c.Z};
        int r = -1, g = -1, b = -1;
        Vantrel::XYZ2RGB(xyz, d65[0], d65[1], d65[2], &r, &g, &b);
        EXPECT_EQ(r, c.r) << c.X;
        EXPECT_EQ(g, c.g) << c.X;
        EXPECT_EQ(b, c.b) << c.X;
    }
}

TEST(TM30Graphics, PolygonAreaIsTheShoelaceOfTheClosedPolygon) {
    double table[NB][Vantrel::TM30_BIN_COLUMNS] = {};
    for (int i = 0; i < NB; ++i) {  // regular 16-gon of radius 2 in columns 3, 4; reversed in 1, 2
        table[i][3] = 2.0 * std::cos(2.0 * PI_15_DIGITS * i / NB);
        table[i][4] = 2.0 * std::sin(2.0 * PI_15_DIGITS * i / NB);
        table[i][1] = table[i][3];
        table[i][2] = -table[i][4];
    }
    const double area = 0.5 * NB * 4.0 * std::sin(2.0 * PI_15_DIGITS / NB);
    EXPECT_NEAR(Vantrel::polygonArea(table, 3, 4, NB), area, ROUNDING);
    EXPECT_NEAR(Vantrel::polygonArea(table, 1, 2, NB), area, ROUNDING);
    const double square[4][2] = {{0, 0}, {2, 0}, {2, 2}, {0, 2}};  // columns 9, 10, rows 0 to 3
    for (int i = 0; i < 4; ++i) table[i][9] = square[i][0], table[i][10] = square[i][1];
    EXPECT_NEAR(Vantrel::polygonArea(table, 9, 10, 4), 4.0, ROUNDING);
    EXPECT_EQ(Vantrel::polygonArea(table, 3, Vantrel::TM30_BIN_COLUMNS, NB), 0.0);
}

TEST(TM30Graphics, BinsFollowTheReferenceHueAndDrawTheUnitCircle) {
    Vantrel v;
    runOn(v, loadIlluminant("cie_F2_5nm.txt"));
    int expected[NB] = {};
    for (int j = 0; j < NC; ++j) {
        double h = std::atan2(v.getTM30JabValues(j, 1, 2), v.getTM30JabValues(j, 1, 1)) * 180.0 /
                   PI_15_DIGITS;
        if (h < 0) h += 360.0;
        ++expected[static_cast<int>(h / 22.5)];
    }
    double x[NB], y[NB], r[NB], g[NB], b[NB];
    v.getTM30DistortionIconPoints(1, x, y);
    for (int bin = 0; bin < NB; ++bin) {
        EXPECT_EQ(v.getTM30NumInHueBin(bin), expected[bin]) << bin;
        EXPECT_NEAR(x[bin] * x[bin] + y[bin] * y[bin], 1.0, ROUNDING) << bin;
        double angle = std::atan2(y[bin], x[bin]);
        if (angle < 0) angle += 2.0 * PI_15_DIGITS;
        EXPECT_NEAR(angle, (bin + 0.5) * 2.0 * PI_15_DIGITS / NB, PI_15_DIGITS / NB)
            << bin;  // inside its bin
    }
    v.getTM30HueRGB(r, g, b);
    EXPECT_EQ(r[0] + g[0] + b[0], 154 + 82 + 92);
    EXPECT_EQ(r[15] + g[15] + b[15], 195 + 127 + 156);
}

TEST(TM30Graphics, OutOfRangeIndicesReturnZeroOrDoNothing) {
    Vantrel v;
    EXPECT_EQ(v.getTM30Rfi(0), 0.0);  // before any run
    runOn(v, loadIlluminant("cie_F1_5nm.txt"));
    EXPECT_EQ(v.getTM30Rfi(-1), 0.0);
    EXPECT_EQ(v.getTM30Rfi(NC), 0.0);
    EXPECT_EQ(v.getTM30JabValues(0, 2, 0), 0.0);
    EXPECT_EQ(v.getTM30JabValues(0, 0, 3), 0.0);
    EXPECT_EQ(v.getTM30JabValues(NC, 0, 0), 0.0);
    EXPECT_EQ(v.getTM30NumInHueBin(-1), 0);
    EXPECT_EQ(v.getTM30NumInHueBin(NB), 0);
    // More colours asked for than the run has: only the run's are written.
    std::vector<int> patches(6 * (NC + 1), -7);
    v.getTM30PatchColors(NC + 1, reinterpret_cast<int(*)[2][3]>(patches.data()));
    EXPECT_NE(patches[6 * NC - 1], -7);
    EXPECT_EQ(patches[6 * NC], -7);
}
