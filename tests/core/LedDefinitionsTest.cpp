// The LED list's standard spectra: the Gaussian peak model against the engine, the fixed
// catalogue rows, the mixing sum and the peak table file.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "LedCatalogueData.h"
#include "LedDefinitions.h"

namespace {

constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int N_IR = Vantrel::NUM_GRID_POINTS_IR;
// The peak model fits measured parts: the engine finds the entered dominant wavelength again to
// 0.6 nm; Deep red to 5 nm, since there the spectrum locus bunches up and a small change of
// chromaticity moves the dominant wavelength by nanometres.
constexpr double MODEL_LDOM_TOL_NM = 0.6;
constexpr double DEEP_RED_LDOM_TOL_NM = 5.0;
// Stored catalogue values carry 12 significant digits of the engine's result.
constexpr double STORED_REL_TOL = 1e-6;
const char* const NO_FOLDER = "/nonexistent/";

// A fresh folder per test, removed at the end; ends with "/" as the program folder does.
struct TempFolder {
    TempFolder() {
        std::string pattern = ::testing::TempDir() + "lumivar_led_XXXXXX";
        path = std::string(mkdtemp(pattern.data())) + "/";
    }
    ~TempFolder() { std::filesystem::remove_all(path); }
    std::string path;
};

struct EngineView {
    double domWL, cct, duv, lumens, wattsVis, Ra;
};

EngineView measure(const double* spectrum) {
    Vantrel v;
    v.calcCCT(spectrum, false);
    v.color(spectrum, false);
    double R[Vantrel::NUM_SAMPLES];
    v.returnRvalues(R);
    return {v.getDomWL(), v.getCCT(), v.getDeltaUVPlanck(), v.getLumens(), v.getWattsVis(), R[0]};
}

ledTypeStruct spike(int index, double coefficient, int hasDomWL) {
    ledTypeStruct s{};
    s.spectrum[index] = 1.0;
    s.coefficient = coefficient;
    s.hasDomWL = hasDomWL;
    return s;
}

}  // namespace

TEST(LedDefinitions, ListHasEightPureColoursThenSixFixedRowsAndNothingBeyond) {
    LedDefinitions leds(NO_FOLDER);
    EXPECT_EQ(leds.getNumStdSpectra(), 14);
    EXPECT_EQ(leds.getNumPureColorGaussianStdSpectra(), 8);
    EXPECT_EQ(leds.getNumEnterLDomStdSpectra(), 8);
    EXPECT_EQ(leds.getIndexOfFirstIRLED(), 9);
    std::string names;
    for (int i = 0; i < 14; ++i) {
        ledTypeStruct s{};
        ASSERT_TRUE(leds.defineStdSpectra(i, &s, -1.0));
        names += std::string(s.name) + (s.hasDomWL ? "*|" : "|");
    }
    EXPECT_EQ(names,
              "UV*|Blue*|Verde*|Green*|Yellow*|Amber*|Red*|Deep red*|Far red (724nm centroid)|"
              "IR (860nm)|IR (950nm)|White (2700K)|White (4000K)|White (5700K)|");
    ledTypeStruct untouched{};
    EXPECT_FALSE(leds.defineStdSpectra(14, &untouched, -1.0));
    EXPECT_FALSE(leds.defineStdSpectra(-1, &untouched, -1.0));
    EXPECT_STREQ(untouched.name, "");
}

TEST(LedDefinitions, EveryPureColourReachesTheEnteredDominantWavelengthOverItsRange) {
    // A slip in the shift polynomials or corrections moves the peaks by nanometres.
    LedDefinitions leds(NO_FOLDER);
    ledTypeStruct green{};
    leds.defineStdSpectra(3, &green, -1.0);  // the default: 530.3 nm
    const EngineView e = measure(green.spectrum);
    EXPECT_NEAR(e.domWL, 530.3, MODEL_LDOM_TOL_NM);
    EXPECT_NEAR(Vantrel::getPeakCentroid(green.spectrum), 530.0, 3.0);
    EXPECT_EQ(green.binShift, 2.5);
    EXPECT_DOUBLE_EQ(green.lumens, e.lumens);
    EXPECT_DOUBLE_EQ(green.wattsVis, e.wattsVis);
    EXPECT_DOUBLE_EQ(green.wattsVisIR, Vantrel::getSpectralWatts(N_IR, green.spectrum, 2.0));
    for (int row = 0; row < LedDefinitions::NUM_PURE_COLORS; ++row) {
        const LedDefinitions::PeakData* p = leds.getPeakData(row);
        const double tol = row == 7 ? DEEP_RED_LDOM_TOL_NM : MODEL_LDOM_TOL_NM;
        const double lo = p->minDominatePeakWavelength, hi = p->maxDominatePeakWavelength;
        for (int k = 0; k <= 20; ++k) {
            const double L = lo + k * (hi - lo) / 20;
            ledTypeStruct s{};
            leds.defineStdSpectra(row, &s, L);
            EXPECT_NEAR(measure(s.spectrum).domWL, L, tol) << leds.getLedName(row) << " " << L;
            EXPECT_EQ(s.lDom, p->defaultDominatePeakWavelength);  // the default, not L
        }
    }
}

TEST(LedCatalogue, StoredLumensAndWattsAreTheEnginesAndTheIRFlagFollowsThePower) {
    for (const LedCatalogueRow& row : LED_CATALOGUE_ROWS) {
        SCOPED_TRACE(row.name);
        const EngineView e = measure(row.spectrum);
        EXPECT_NEAR(row.lumens, e.lumens, STORED_REL_TOL * e.lumens);
        EXPECT_NEAR(row.wattsVis, e.wattsVis, STORED_REL_TOL * e.wattsVis);
        const double total = Vantrel::getSpectralWatts(N_IR, row.spectrum, 2.0);
        const double beyond830 = Vantrel::getSpectralWatts(N_IR - N + 1, row.spectrum + N - 1, 2.0);
        EXPECT_EQ(row.hasIRpast830, beyond830 > 0.005 * total);
        if (std::string(row.name).rfind("IR", 0) != 0) {  // visible rows stop at 818 nm
            for (int i = 230; i < N_IR; ++i) ASSERT_EQ(row.spectrum[i], 0.0) << i;
        }
    }
    EXPECT_NEAR(Vantrel::getPeakCentroid(LED_CATALOGUE_ROWS[0].spectrum), 724.0, 0.5);
    LedDefinitions leds(NO_FOLDER);
    ledTypeStruct s{};
    leds.defineStdSpectra(12, &s, -1.0);  // a fixed row keeps lDom at 0
    EXPECT_EQ(s.lDom, 0);
    EXPECT_EQ(s.wattsVisIR, s.wattsVis);
    EXPECT_DOUBLE_EQ(s.lpw, LED_CATALOGUE_ROWS[4].lumens / 0.35 / 3.0);
    leds.defineStdSpectra(10, &s, -1.0);  // an IR LED is mixed by its power to 1050 nm
    EXPECT_EQ(s.wattsVis, 0.0);
    EXPECT_NEAR(s.wattsVisIR, Vantrel::getSpectralWatts(N_IR, s.spectrum, 2.0), 1e-12);
    EXPECT_GT(s.wattsVisIR, 0.1);
    leds.defineStdSpectra(8, &s, 600.0);
    EXPECT_EQ(s.lDom, 0);
    EXPECT_DOUBLE_EQ(s.lpw, LED_CATALOGUE_ROWS[0].lumens / 0.7);
    for (int k : {1, 2}) {
        const double* ir = LED_CATALOGUE_ROWS[k].spectrum;
        EXPECT_NEAR(360 + 2 * (std::max_element(ir, ir + N_IR) - ir), k == 1 ? 860 : 950, 2);
    }
}

TEST(LedCatalogue, WhitesHaveTheirNominalCCTOnThePlanckLocusAndRealisticRendering) {
    const struct {
        int row;
        double cct, minRa, maxRa;
    } cases[] = {{3, 2700, 80, 90}, {4, 4000, 80, 90}, {5, 5700, 70, 80}};
    for (const auto& c : cases) {
        SCOPED_TRACE(LED_CATALOGUE_ROWS[c.row].name);
        const EngineView e = measure(LED_CATALOGUE_ROWS[c.row].spectrum);
        EXPECT_NEAR(e.cct, c.cct, 30.0);
        EXPECT_LT(std::fabs(e.duv), 0.003);
        EXPECT_GE(e.Ra, c.minRa);
        EXPECT_LE(e.Ra, c.maxRa);
    }
}

TEST(LED, PeaksAreGaussiansOfTheirWidthAndElevenAreRefusedKeepingTheCount) {
    LED led;
    double c[11], w[11], h[11];
    std::fill(c, c + 11, 500.0);
    std::fill(w, w + 11, 20.0);
    std::fill(h, h + 11, 2.0);
    ASSERT_TRUE(led.definePeak(1, c, w, h));
    led.defineSpectrum(0);
    double s[N_IR];
    led.getSpectrum(s);
    EXPECT_DOUBLE_EQ(s[70], 2.0);   // 500 nm
    EXPECT_NEAR(s[75], 1.0, 1e-6);  // 510 nm: half height at half the width
    EXPECT_NEAR(s[65], 1.0, 1e-6);
    led.calculateLumensWatts();
    EXPECT_FALSE(led.getHasIntensityPast830nm());
    EXPECT_NEAR(led.getWattsVisIR(), 2.0 * 20 * LED::SIGMA_PER_FWHM * std::sqrt(2 * M_PI), 1e-6);
    c[1] = 900;  // a second peak in the IR holds half the power
    led.definePeak(2, c, w, h);
    led.defineSpectrum(0);
    led.calculateLumensWatts();
    EXPECT_TRUE(led.getHasIntensityPast830nm());

    // Deliberate: a refused count stays, without a clean-up; the caller tests the result.
    c[1] = 500;
    EXPECT_TRUE(led.definePeak(10, c, w, h));
    EXPECT_FALSE(led.definePeak(11, c, w, h));
    EXPECT_EQ(led.getNumPeaks(), 11);
    led.defineSpectrum(0);  // only the ten stored peaks take part
    led.getSpectrum(s);
    EXPECT_DOUBLE_EQ(s[70], 20.0);
}

TEST(LedDefinitions, MixShiftsUndominatedSpectraByWholeGridStepsOnly) {
    const struct {
        const char* what;
        int shift, hasDomWL, expectIndex;  // -1: nothing left on the grid
    } cases[] = {
        {"5 nm is 2 steps by integer division", 5, 0, 102},
        {"-5 nm is -2 steps", -5, 0, 98},
        {"1 nm is no step", 1, 0, 100},
        {"a dominant-wavelength row is never shifted", 8, 1, 100},
        {"shifted past the end adds nothing", 2 * N_IR, 0, -1},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        ledTypeStruct s[2] = {spike(100, 3.0, c.hasDomWL), spike(0, 0.5, 0)};
        const int shifts[2] = {c.shift, 0};
        double out[N_IR];
        std::fill(out, out + N_IR, 99.0);
        LedDefinitions::defineTestSpectrumSum(2, shifts, s, out);
        EXPECT_EQ(out[0], 0.5);
        double rest = 0;
        for (int j = 1; j < N_IR; ++j) rest += out[j];
        EXPECT_EQ(rest, c.expectIndex < 0 ? 0.0 : 3.0);
        EXPECT_EQ(out[std::max(c.expectIndex, 1)], c.expectIndex < 0 ? 0.0 : 3.0);
    }
    ledTypeStruct s[1] = {spike(7, 1.0, 0)};
    const double coefficients[1] = {4.0};
    double out[N_IR];
    LedDefinitions leds(NO_FOLDER);
    leds.defineSpectrum(1, coefficients, nullptr, true, s, out);  // prepared: keeps 1.0
    EXPECT_EQ(out[7], 1.0);
    leds.defineSpectrum(1, coefficients, nullptr, false, s, out);
    EXPECT_EQ(s[0].coefficient, 4.0);
    EXPECT_EQ(out[7], 4.0);
}

TEST(LedPeakFile, WrittenTableReadsBackAsTheSameModel) {
    TempFolder dir;
    LedDefinitions written(dir.path);
    ASSERT_TRUE(written.writeLEDsPeakData());
    std::ifstream in(dir.path + "LumivarColorLEDdef_current.txt");
    const std::string text(std::istreambuf_iterator<char>(in), {});
    EXPECT_EQ(text.rfind("UV\n"
                         "420.0 2.5                               "
                         "defaultDominatePeakWavelength  defaultBinShift\n"
                         "2                                       numPeakDominateCoefficients\n",
                         0),
              0u);
    EXPECT_NE(text.find("\n2.96000000e+00 3.25540000e+01 4.13800000e-01    peakCenter[j]   "
                        "peakFWHM[j]   peakHeight[j]\n"),
              std::string::npos);

    // Read back, the model writes the same file again and builds the same spectra.
    std::filesystem::rename(dir.path + "LumivarColorLEDdef_current.txt",
                            dir.path + "LumivarColorLEDdef.txt");
    LedDefinitions read(dir.path);
    ASSERT_TRUE(read.writeLEDsPeakData());
    std::ifstream again(dir.path + "LumivarColorLEDdef_current.txt");
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(again), {}));
    // Nine significant digits of the Red polynomial, whose terms of 1e7 cancel down to 600,
    // move the Red and Deep red peaks by 0.15 nm.
    for (int row = 0; row < LedDefinitions::NUM_PURE_COLORS; ++row) {
        ledTypeStruct a{}, b{};
        written.defineStdSpectra(row, &a, -1.0);
        read.defineStdSpectra(row, &b, -1.0);
        EXPECT_NEAR(Vantrel::getPeakCentroid(a.spectrum), Vantrel::getPeakCentroid(b.spectrum),
                    0.25)
            << a.name;
    }
}

TEST(LedPeakFile, OverrideChangesOnlyItsColourAndBrokenBlocksChangeNothing) {
    TempFolder dir;
    std::ofstream(dir.path + "LumivarColorLEDdef.txt")
        << "# my parts\nBlue\n460.0 1.5   defaultDominatePeakWavelength  defaultBinShift\n"
           "2\n-20.0\n1.0\n1\n0 25 1.0    peakCenter[j]   peakFWHM[j]   peakHeight[j]\n0.9\n"
           "Green\n540.0 2.5\n11          more coefficients than a model holds\n"
           "UV\n400.0\n"  // one number short: the next colour's name still counts
           "Deep red\n690.0 2.5\n0\n0\n1.0\n"
           "Red\n630.0 2.5\n2\n1.0\n";  // ends inside the block
    LedDefinitions leds(dir.path);
    LedDefinitions defaults(NO_FOLDER);
    ledTypeStruct s{};
    leds.defineStdSpectra(1, &s, -1.0);
    EXPECT_EQ(s.lDom, 460.0);
    EXPECT_EQ(s.binShift, 1.5);
    // One peak at -20 + 460 nm plus Blue's correction, scaled by 0.9.
    const double* peak = std::max_element(s.spectrum, s.spectrum + N_IR);
    EXPECT_NEAR(360.0 + 2.0 * (peak - s.spectrum),
                440.0 + LedDefinitions::getPeakCorrection(1, 460.0), 1.0);
    EXPECT_NEAR(*peak, 0.9, 0.005);
    EXPECT_EQ(leds.getPeakData(7)->defaultDominatePeakWavelength, 690.0);
    EXPECT_EQ(leds.getPeakData(7)->numGaussianPeaks, 0);
    for (int row : {0, 3, 6}) {
        const LedDefinitions::PeakData &a = *leds.getPeakData(row), &b = *defaults.getPeakData(row);
        EXPECT_EQ(a.defaultDominatePeakWavelength, b.defaultDominatePeakWavelength) << row;
        EXPECT_EQ(a.numPeakDominateCoefficients, b.numPeakDominateCoefficients) << row;
    }
    EXPECT_FALSE(leds.readLEDsPeakData(dir.path + "missing.txt"));
}

TEST(LedPeakFile, ValuesThatAreNoNumbersKeepTheBuiltInColourAndNameTheirLine) {
    TempFolder dir;
    std::ofstream(dir.path + "LumivarColorLEDdef.txt")
        << "UV\n420.0 2.5\n0\n1\n0 13 nan\n1.0\n"            // lines 1-6, nan on 5
           "Blue\ninf 2.5\n0\n1\n0 25 1.0\n0.8\n"            // lines 7-12, inf on 8
           "Green\n530.0 2.5\n1\n1e308\n1\n0 36 0.6\n0.5\n"  // lines 13-19, 1e308 on 16
           "Amber\n614.0 2.5\n0\n1\n0 26 1e16\n1.05\n"       // 20-25: 1e16 on 24 is too large
           "Yellow\n590.0 2.5\n0\n1\n0 26 0.5\n1.0\n";       // 26-31: used
    LedDefinitions leds(dir.path);
    LedDefinitions defaults(NO_FOLDER);
    for (int row : {0, 1, 3, 5}) {
        const LedDefinitions::PeakData &a = *leds.getPeakData(row), &b = *defaults.getPeakData(row);
        EXPECT_EQ(a.defaultDominatePeakWavelength, b.defaultDominatePeakWavelength) << row;
        EXPECT_EQ(a.numGaussianPeaks, b.numGaussianPeaks) << row;
        EXPECT_EQ(a.peakHeight[0], b.peakHeight[0]) << row;
        ledTypeStruct s{};
        leds.defineStdSpectra(row, &s, -1.0);
        EXPECT_TRUE(std::all_of(s.spectrum, s.spectrum + N_IR, [](double v) {
            return std::isfinite(v);
        })) << row;
        EXPECT_GT(s.lumens, 0.0) << row;
    }
    EXPECT_EQ(leds.getPeakData(4)->defaultDominatePeakWavelength, 590.0) << "Yellow is used";

    const auto& problems = leds.getPeakFileProblems();
    ASSERT_EQ(problems.size(), 4u);
    const int lines[] = {5, 8, 16, 24};
    const char* names[] = {"UV", "Blue", "Green", "Amber"};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(problems[k].line, lines[k]) << names[k];
        EXPECT_NE(problems[k].text.find(std::string("the ") + names[k] + " definition"),
                  std::string::npos)
            << problems[k].text;
    }
    EXPECT_TRUE(defaults.getPeakFileProblems().empty());
}
