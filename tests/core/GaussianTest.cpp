// The Monte Carlo random source and the Gaussian test spectra with their dialog checks.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

#include "Gaussian.h"
#include "GaussianSpectrum.h"
#include "Vantrel.h"

TEST(Gaussian, SeedRepeatsTheSequenceAndEachObjectKeepsItsOwnState) {
    // First deviates of seeds -1 and -12345, from an independent transcription of the generator.
    const double expected[2][3] = {{0.3900425101203423, 0.17114841363267583, 0.64238390409006163},
                                   {0.14444817251588843, 0.54306968680194245, 0.51100781632772418}};
    Gaussian a, b;
    int seedA = -1, seedB = -12345;
    for (int k = 0; k < 3; ++k) {
        // Interleaved draws: one generator must not disturb the other.
        EXPECT_NEAR(a.ran1(&seedA), expected[0][k], 1e-15) << k;
        EXPECT_NEAR(b.ran1(&seedB), expected[1][k], 1e-15) << k;
    }
    EXPECT_EQ(seedA, 1);
    seedA = -1;
    EXPECT_NEAR(a.ran1(&seedA), expected[0][0], 1e-15);  // a negative seed starts again

    Gaussian fresh;
    int positive = 200000;  // above the first increment: the remainder must not go negative
    for (int k = 0; k < 100000; ++k) {
        const double u = fresh.ran1(&positive);
        ASSERT_GT(u, 0.0) << k;
        ASSERT_LT(u, 1.0) << k;
    }
}

TEST(Gaussian, NormalDeviatesHaveMeanZeroAndUnitSpreadAndRepeatFromTheSeed) {
    Gaussian g;
    int seed = -7;
    const int n = 20000;
    std::vector<double> first(n);
    double sum = 0, sumSq = 0;
    int withinOneSigma = 0;
    for (double& x : first) {
        x = g.gasdev(&seed);
        sum += x;
        sumSq += x * x;
        withinOneSigma += std::fabs(x) < 1.0;
    }
    const double mean = sum / n;
    // Standard errors over 20000 draws: 0.007 for the mean, 0.005 for the spread, 0.0033 for
    // the share; the limits are about four of them.
    EXPECT_NEAR(mean, 0.0, 0.03);
    EXPECT_NEAR(std::sqrt(sumSq / n - mean * mean), 1.0, 0.02);
    EXPECT_NEAR(static_cast<double>(withinOneSigma) / n, 0.6827, 0.013);

    seed = -7;  // the kept second deviate of the last pair is dropped
    for (int k = 0; k < 5; ++k) EXPECT_EQ(g.gasdev(&seed), first[k]) << k;
}

TEST(GaussianSpectrum, TableTextsHaveThePeakAreaAndGridOfTheFormula) {
    const std::vector<std::string> w = gaussianSpectrumTexts(500e-9, 20e-9, false, false);
    ASSERT_EQ(w.size(), 236u);
    EXPECT_EQ(gaussianSpectrumTexts(500e-9, 20e-9, true, false).size(), 346u);
    // 1e-6 / (sigma sqrt(2 pi)), sigma = 10 nm / sqrt(2 ln 2).
    EXPECT_EQ(w[70], "4.697e+01");                           // 500 nm
    EXPECT_EQ(w[75], w[65]);                                 // symmetric about the centre
    EXPECT_NEAR(std::atof(w[75].c_str()), 46.97 / 2, 0.01);  // 510 nm: half height
    const std::vector<std::string> p = gaussianSpectrumTexts(500e-9, 20e-9, false, true);
    // Photons per joule at 500 nm: lambda / (h c).
    EXPECT_NEAR(std::atof(p[70].c_str()) / std::atof(w[70].c_str()), 2.5170e18, 0.0015e18);
    EXPECT_EQ(p[70].size(), 9u);  // three decimals and an exponent
}

TEST(GaussianSpectrum, NamesMustBePrintableAsciiAfterTrimming) {
    const struct {
        const char* name;
        bool valid;
    } cases[] = {{"", false},         {"  \t ", false},   {"Lamp", true},
                 {"  Lamp 2 ", true}, {"~!@#", true},     {"L\xc3\xa4mp", false},
                 {"tab\tin", false},  {"del\x7f", false}, {"\tLamp\n", true}};
    for (const auto& c : cases) EXPECT_EQ(isSpectrumNameValid(c.name), c.valid) << c.name;
}

TEST(GaussianSpectrum, DialogChecksGiveTheBoxOfTheFirstFailingField) {
    const struct {
        double center, fwhm;
        const char* name;
        bool withIR;
        const char* title;
        const char* text;
    } cases[] = {
        {500, 20, "", false, "", ""},
        {830, 200, "edge", false, "", ""},
        {1050, 1, "IR", true, "", ""},
        {369.9, 20, "x", false, "Peak center error",
         "The peak center value is out of range (370-830 nm)"},
        {1051, 20, "x", true, "Peak center error",
         "The peak center value is out of range (370-1050 nm)"},
        {500, 0.5, "x", false, "FWHM error", "The FWHM value is out of range (1-200 nm)"},
        {200, 0, "bad\x01", false, "Spectrum name error",
         "The name you entered \"bad\x01\" is invalid, it contains an illegal character"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.text);
        GaussianInput in;
        in.centerNm = c.center;
        in.fwhmNm = c.fwhm;
        in.name = c.name;
        std::string title, text;
        EXPECT_EQ(checkGaussianInput(&in, c.withIR, &title, &text), *c.title != '\0');
        EXPECT_EQ(title, c.title);
        EXPECT_EQ(text, c.text);
    }
    GaussianInput unnamed;
    std::string title, text;
    checkGaussianInput(&unnamed, false, &title, &text);
    EXPECT_EQ(unnamed.name, "500 nm peak 20 FWHM");
}

TEST(GaussianSpectrum, AutomaticSetCoversEveryTenNanometresFrom450To700InFourWidths) {
    const std::vector<GaussianPeak> peaks = autoGaussianPeaks();
    ASSERT_EQ(peaks.size(), 26u * 4u);
    EXPECT_EQ(peaks.front().name, "450 nm peak 20 FWHM");
    EXPECT_EQ(peaks[7].centerNm, 460.0);
    EXPECT_EQ(peaks[7].fwhmNm, 180.0);
    EXPECT_EQ(peaks.back().name, "700 nm peak 180 FWHM");
}
