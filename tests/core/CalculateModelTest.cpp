// The Calculate model without a window: mix arithmetic, row checks, reference spectra, filters,
// blue-peak removal and the photon sums.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <string>
#include <vector>

#include "CalculateModel.h"

namespace {
// A fixed spectrum record storing these lumens and watts.
ledTypeStruct fixedRecord(double lumens, double wattsVis, double wattsVisIR) {
    ledTypeStruct s{};
    s.lumens = lumens;
    s.wattsVis = wattsVis;
    s.wattsVisIR = wattsVisIR;
    return s;
}

ledInputDataStruct row(const char* lumens, const char* watts, const char* lpw = "") {
    ledInputDataStruct r;
    r.checked = true;
    r.lumens = lumens;
    r.watts = watts;
    r.lpw = lpw;
    return r;
}
}  // namespace

TEST(MixArithmetic, CoefficientsByLumensOrWattsWithAndWithoutIR) {
    const ledTypeStruct s = fixedRecord(25.0, 1.0, 2.0);
    EXPECT_DOUBLE_EQ(getCoeff(false, true, 1000.0, true, s), 40.0);  // lumens never scaled
    EXPECT_DOUBLE_EQ(getCoeff(false, false, 500.0, true, s), 0.5);   // 500 mW on 1 W
    EXPECT_DOUBLE_EQ(getCoeff(false, false, 0.5, false, s), 0.5);    // 0.5 W
    EXPECT_DOUBLE_EQ(getCoeff(true, false, 0.5, false, s), 0.25);    // over 360 to 1050 nm
    EXPECT_DOUBLE_EQ(getCoeff(false, true, 10.0, true, fixedRecord(0, 0, 0)), 0.0);

    EXPECT_DOUBLE_EQ(getInputWatts(row("50", ""), s, true), 2.0);  // 50 lm of a 25 lm per W
    EXPECT_DOUBLE_EQ(getInputWatts(row("", "250"), s, true), 0.25);
    EXPECT_DOUBLE_EQ(getInputWatts(row("1", "1"), s, true), -1.0);
    EXPECT_DOUBLE_EQ(getInputWatts(row(" ", ""), s, true), -1.0);
}

TEST(MixArithmetic, WallPlugPowerFromEveryRowsLpw) {
    const std::vector<ledTypeStruct> spectra = {fixedRecord(100.0, 1.0, 1.0),
                                                fixedRecord(300.0, 1.0, 1.5)};
    std::vector<ledInputDataStruct> rows = {row("1000", "", "100"), row("", "2000", "50")};
    MixSettings settings;
    MixRows mix = checkMixRows(rows, spectra, settings);
    ASSERT_TRUE(mix.ok);
    ASSERT_TRUE(mix.allLPWKnown);
    // 1000 lm / 100 + (2 W * 300 lm/W) / 50
    EXPECT_DOUBLE_EQ(electricalWatts(rows, spectra, mix, settings), 10.0 + 12.0);
    settings.includeIR = true;  // the watts now count to 1050 nm: 2 W * 300 / 1.5 lm
    mix = checkMixRows(rows, spectra, settings);
    EXPECT_DOUBLE_EQ(electricalWatts(rows, spectra, mix, settings), 10.0 + 8.0);
    rows[1].lpw = "";
    mix = checkMixRows(rows, spectra, settings);
    EXPECT_FALSE(mix.allLPWKnown);
    EXPECT_DOUBLE_EQ(electricalWatts(rows, spectra, mix, settings), 0.0);
}

TEST(MixRowChecks, BlankFixedRowsTakeTheirRecordAndBadRowsStopTheRun) {
    const std::vector<ledTypeStruct> spectra = {fixedRecord(116.2, 0.35, 0.35),
                                                fixedRecord(0.05, 0.2, 0.4)};
    std::vector<ledInputDataStruct> rows = {row("", ""), row("", "")};
    MixSettings settings;
    MixRows mix = checkMixRows(rows, spectra, settings);
    ASSERT_TRUE(mix.ok);
    EXPECT_EQ(rows[0].lumens, "116");  // lumens where the record has them
    EXPECT_EQ(rows[1].watts, "200");   // otherwise milliwatts
    EXPECT_TRUE(mix.byLumens[0]);
    EXPECT_NEAR(mix.coefficients[1], 1.0, 1e-12);
    settings.defaultSpecUnits = 1;  // watts even where lumens are known
    rows = {row("", ""), row("", "")};
    checkMixRows(rows, spectra, settings);
    EXPECT_EQ(rows[0].watts, "350");

    settings = MixSettings();
    settings.useOriginalIntensities = false;  // a blank fixed row then counts as 0
    rows = {row("", "")};
    mix = checkMixRows(rows, spectra, settings);
    ASSERT_EQ(mix.messages.size(), 1u);
    EXPECT_EQ(mix.messages[0].text, "You must specify a value greater than 0.");
    EXPECT_EQ(mix.errorFields, ROW_LUMENS | ROW_WATTS);

    rows = {row("10", "", "0")};
    mix = checkMixRows(rows, spectra, MixSettings());
    ASSERT_EQ(mix.messages.size(), 1u);
    EXPECT_EQ(mix.messages[0].title, "LPW error");
    EXPECT_EQ(mix.messages[0].text,
              "You must specify an LPW greater than 1.0e-09 for each selected spectra.");
    EXPECT_EQ(mix.errorFields, ROW_LPW);
}

TEST(MixRowChecks, LumensAndWattsStopAtABillion) {
    const std::vector<ledTypeStruct> spectra = {fixedRecord(100, 1, 1)};
    const std::string above =
        "You must specify a value greater than 0 and less than 1,000,000,000.";
    const struct {
        const char* lumens;
        const char* watts;
        std::string text;  // empty: accepted
        int fields;
    } cases[] = {
        {"1e9", "", "", 0},
        {"", "1000000000", "", 0},
        {"1.000001e9", "", above, ROW_LUMENS},
        {"1e300", "", above, ROW_LUMENS},
        {"", "1e300", above, ROW_WATTS},
        {"1e999", "", above, ROW_LUMENS},  // beyond a double: still too large, not "0"
        {"", "-1e999", "You must specify a value greater than 0.", ROW_WATTS},
    };
    for (const auto& c : cases) {
        std::vector<ledInputDataStruct> rows = {row(c.lumens, c.watts)};
        const MixRows mix = checkMixRows(rows, spectra, MixSettings());
        if (c.text.empty()) {
            EXPECT_TRUE(mix.ok) << c.lumens << c.watts;
            continue;
        }
        EXPECT_FALSE(mix.ok) << c.lumens << c.watts;
        ASSERT_EQ(mix.messages.size(), 1u) << c.lumens << c.watts;
        EXPECT_EQ(mix.messages[0].title, "Lumens/watts error");
        EXPECT_EQ(mix.messages[0].text, c.text);
        EXPECT_EQ(mix.errorRow, 0);
        EXPECT_EQ(mix.errorFields, c.fields);
    }
}

TEST(MixRowChecks, BinningRunsNeedOneBinnedRowWithinTwentyUnits) {
    const std::vector<ledTypeStruct> spectra = {fixedRecord(100, 1, 1)};
    MixSettings settings;
    settings.monteCarlo = true;
    std::vector<ledInputDataStruct> rows = {row("10", "")};
    MixRows mix = checkMixRows(rows, spectra, settings);
    ASSERT_EQ(mix.messages.size(), 1u);
    EXPECT_EQ(mix.messages[0].title, "Bin error");
    EXPECT_EQ(mix.messages[0].text,
              "You must specify at least 1 bin width greater than 0 and less than 20 nm or\n1 "
              "bin output range greater than 0 and less than 20%.");
    rows[0].binOutput = "20.00001";  // the limit itself is allowed
    EXPECT_TRUE(checkMixRows(rows, spectra, settings).ok);
    rows[0].binOutput = "20.0001";
    mix = checkMixRows(rows, spectra, settings);
    EXPECT_EQ(mix.errorFields, ROW_BIN_OUTPUT);
    EXPECT_EQ(mix.messages[0].title, "Bin output error");
}

TEST(ReferenceSpectra, OutOfRangeTemperaturesAreResetToTheNearerLimit) {
    CalcMessage message;
    double kelvin = 999.0;
    EXPECT_TRUE(checkBlackBodyTemperature(&kelvin, &message));
    EXPECT_EQ(kelvin, 1000.0);
    EXPECT_EQ(message.title, "Black Body Temperature");
    EXPECT_EQ(message.text,
              "You must enter a black body temperature between 1,000 - 950,000K\nIt will be reset "
              "to 1000K.");
    kelvin = 2999.99995;  // inside the daylight tolerance
    EXPECT_FALSE(checkDaylightTemperature(&kelvin, &message));
    kelvin = 2999.0;
    EXPECT_TRUE(checkDaylightTemperature(&kelvin, &message));
    EXPECT_EQ(kelvin, 3000.0);
}

TEST(ReferenceSpectra, HoldOneWattOverTheirRange) {
    double s[Vantrel::NUM_GRID_POINTS_IR];
    blackBodySpectrum(3000.0, Vantrel::NUM_GRID_POINTS, s);
    EXPECT_NEAR(Vantrel::getSpectralWatts(Vantrel::NUM_GRID_POINTS, s, 2.0), 1.0, 1e-12);
    EXPECT_EQ(s[Vantrel::NUM_GRID_POINTS], 0.0);
    blackBodySpectrum(3000.0, Vantrel::NUM_GRID_POINTS_IR, s);
    EXPECT_NEAR(Vantrel::getSpectralWatts(Vantrel::NUM_GRID_POINTS_IR, s, 2.0), 1.0, 1e-12);
    Vantrel engine;
    daylightSpectrum(engine, 6500.0, Vantrel::NUM_GRID_POINTS, s);
    EXPECT_NEAR(Vantrel::getSpectralWatts(Vantrel::NUM_GRID_POINTS, s, 2.0), 1.0, 1e-12);
}

TEST(Filters, ProductOfCheckedFiltersAndTheWarningAboveOne) {
    std::vector<ledTypeStruct> filters(2, ledTypeStruct{});
    std::snprintf(filters[1].name, sizeof filters[1].name, "%s", "Boost");
    for (double& v : filters[0].spectrum) v = 0.5;
    for (double& v : filters[1].spectrum) v = 0.8;
    filters[1].spectrum[100] = 1.2;
    double product[Vantrel::NUM_GRID_POINTS_IR];
    filterProduct(filters, {false, false}, product);
    EXPECT_EQ(product[0], 1.0);
    filterProduct(filters, {true, true}, product);
    EXPECT_DOUBLE_EQ(product[0], 0.4);
    EXPECT_DOUBLE_EQ(product[100], 0.6);
    EXPECT_EQ(firstFilterAboveOne(filters, {true, false}), -1);
    EXPECT_EQ(firstFilterAboveOne(filters, {true, true}), 1);
    EXPECT_EQ(filterAboveOneWarning("Boost", true).text,
              "Boost has values greater than 100 but the \n\"Allow values greater than 1 or "
              "100%\" option is not checked.\nYou may get unexpceted results.\n\nClick \"Yes\" to "
              "change this option.");
}

TEST(BluePeak, SevenTimesTheMirroredPeakIsTakenAway) {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS_IR, 0.0), out(s.size());
    // A flat phosphor and a peak at 450 nm (index 45) rising from index 40.
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) s[i] = 1.0;
    for (int i = 40; i <= 45; ++i) s[i] = 1.0 + (i - 39);
    double phosphor = 0;
    ASSERT_TRUE(removeBluePeak(s.data(), Vantrel::NUM_GRID_POINTS, out.data(), &phosphor));
    EXPECT_EQ(out[45], 0.0);  // 7 - 7 * 7 is cut to 0
    EXPECT_EQ(out[10], 1.0);  // outside the scan
    EXPECT_EQ(out[19], 0.0) << "the mirrored peak starts at 398 nm";
    EXPECT_EQ(out[70], 0.0) << "and reaches past the peak by as much";
    EXPECT_EQ(out[71], 1.0);
    EXPECT_DOUBLE_EQ(phosphor, 2.0 * std::accumulate(out.begin(), out.end(), 0.0));
    // A spectrum still rising at 480 nm has its highest point on the edge: no removal.
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) s[i] = i;
    EXPECT_FALSE(removeBluePeak(s.data(), Vantrel::NUM_GRID_POINTS, out.data(), &phosphor));
}

TEST(PhotonSums, UmolFollowThePhotonEnergyAndTheBandLimit) {
    // 51 cells of 2 nm at 0.01 W/nm from 500 to 600 nm hold 1.02 W: 4.69 umol/s at h c / 550 nm
    // per photon.
    double s[Vantrel::NUM_GRID_POINTS_IR] = {};
    for (int i = 70; i <= 120; ++i) s[i] = 0.01;
    SpectrumCalculator calculator;
    SpectrumResults r = calculator.calculate(s);
    EXPECT_NEAR(r.umolPerSecond, 4.69, 0.01);
    EXPECT_NEAR(r.umolPerJouleSpec, r.umolPerSecond / r.wattsVis, 1e-12);
    EXPECT_NEAR(r.photonsPerSecond, r.umolPerSecond * 6.0221e17, 0.03 * r.photonsPerSecond);
    // Light outside 400 to 700 nm does not count with the limit.
    s[5] = 1.0;  // 370 nm
    CalculationOptions limited;
    limited.limitUmolTo400_700 = true;
    const SpectrumResults band = calculator.calculate(s, limited);
    EXPECT_NEAR(band.umolPerSecond, r.umolPerSecond, 1e-9);
    EXPECT_NEAR(band.umolPerJouleSpec, r.umolPerJouleSpec, 1e-6);
}

TEST(CalculateModelRun, AMixOfCatalogueRowsGivesEveryField) {
    CalculateModel model;
    std::vector<ledInputDataStruct> rows(model.spectra().size());
    rows[3] = row("1000", "");  // green at its default 530.3 nm
    rows[3].lDom = "530";
    rows[12] = row("500", "");  // white 4000 K
    FieldFormat format;
    CalculateOutcome outcome = model.calculateMix(rows, MixSettings(), nullptr, format);
    ASSERT_TRUE(outcome.ok);
    EXPECT_EQ(outcome.fields[0].text, "1500");
    ASSERT_EQ(outcome.points.size(), 2u);
    EXPECT_EQ(outcome.points[0].row, 3);
    // The green row was rebuilt at 530 nm: its coefficient follows its new lumens.
    const ledTypeStruct& green = model.spectra()[3];
    EXPECT_DOUBLE_EQ(green.coefficient, 1000.0 / green.lumens);
}

TEST(CalculateModelRun, ASpectrumWithoutAChromaticityGivesTheSpectrumErrorAndNoFields) {
    CalculateModel model;
    const struct {
        double level;
        bool ok;
        std::string text;
    } cases[] = {
        {0.0, false, "You must have some intensities greater than 1.0e-09."},
        {1e-12, false, "You must have some intensities greater than 1.0e-09."},
        {1e-11, true, ""},  // X+Y+Z about 1.6e-9 in both observers
        {1e307, false, "Your intensities are too large to be calculated."},
    };
    for (const auto& c : cases) {
        std::vector<double> spectrum(Vantrel::NUM_GRID_POINTS_IR, 0.0);
        std::fill(spectrum.begin(), spectrum.begin() + Vantrel::NUM_GRID_POINTS, c.level);
        const CalculateOutcome outcome =
            model.calculateSpectrum(spectrum.data(), MixSettings(), FieldFormat());
        EXPECT_EQ(outcome.ok, c.ok) << c.level;
        if (c.ok) {
            EXPECT_EQ(outcome.fields[23].text, "0.3333") << "x of equal energy";
            continue;
        }
        EXPECT_TRUE(outcome.fields.empty()) << c.level;
        ASSERT_EQ(outcome.rows.messages.size(), 1u) << c.level;
        EXPECT_EQ(outcome.rows.messages[0].title, "Spectrum error");
        EXPECT_EQ(outcome.rows.messages[0].text, c.text);
    }
    // A mix can be as dark: a row of 1e-90 lumens passes the row checks but has no colour.
    std::vector<ledInputDataStruct> rows(model.spectra().size());
    rows[12] = row("1e-90", "");
    const CalculateOutcome mix = model.calculateMix(rows, MixSettings(), nullptr, FieldFormat());
    EXPECT_FALSE(mix.ok);
    ASSERT_EQ(mix.rows.messages.size(), 1u);
    EXPECT_EQ(mix.rows.messages[0].title, "Spectrum error");
}

TEST(Matching, AColumnCountsWhenFullOrWhenEmptyCellsAreZero) {
    EXPECT_TRUE(isMatchingColumnValid({"1", "2", "3"}, false));
    EXPECT_FALSE(isMatchingColumnValid({"1", " ", "3"}, false));
    EXPECT_TRUE(isMatchingColumnValid({"1", " ", "3"}, true));
    EXPECT_FALSE(isMatchingColumnValid({"", " "}, true)) << "an all-empty column never counts";

    CalculateModel model;
    double spectrum[Vantrel::NUM_GRID_POINTS_IR];
    blackBodySpectrum(3000.0, Vantrel::NUM_GRID_POINTS, spectrum);
    MixSettings settings;
    settings.analysisType = 1;
    settings.matching.assign(spectrum, spectrum + Vantrel::NUM_GRID_POINTS);
    for (double& v : settings.matching) v *= 3.0;
    CalculateOutcome outcome = model.calculateSpectrum(spectrum, settings, FieldFormat());
    EXPECT_EQ(outcome.fields[56].text, "0.00");
    settings.subtractBluePeak = true;  // the third column then holds no match
    outcome = model.calculateSpectrum(spectrum, settings, FieldFormat());
    EXPECT_EQ(outcome.fields[56].text, "N/A");
}
