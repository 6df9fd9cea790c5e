// Calculate driven through the main window: LED rows mixed by lumens or watts, their refusals,
// the reference spectra, the standard illuminants and the result tabs.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "AppConstants.h"
#include "ArgbColor.h"
#include "GaussianSpectrum.h"
#include "MainWindowFixture.h"
#include "ReadWriteUserSpectra.h"
#include "TestSpectra.h"

namespace {

// Catalogue rows by name, as the Spectra tab lists them.
enum Row { GREEN = 3, RED = 6, FAR_RED = 8, WHITE_2700 = 11, WHITE_4000 = 12 };

class Calculate : public MainWindow {
  protected:
    void SetUp() override {
        MainWindow::SetUp();
        chooseAnalysis(0);
    }
    void setRow(int row, const char* lDom, const char* lumens, const char* watts,
                const char* lpw = "") {
        gui->getLedCheck(row)->setCheck(TRUE);
        if (lDom != nullptr) gui->getLedField(row, ROW_LDOM)->setText(lDom);
        gui->getLedField(row, ROW_LUMENS)->setText(lumens);
        gui->getLedField(row, ROW_WATTS)->setText(watts);
        gui->getLedField(row, ROW_LPW)->setText(lpw);
    }
    void calculate() { gui->onCmdCalculate(nullptr, 0, nullptr); }
    bool isRed(int row, int field) {
        return gui->getLedField(row, field)->getBackColor() ==
               argbColor(VantrelGUI::ERROR_CELL_COLOR);
    }
    // Scales a catalogue record so that it stores these lumens (watts follow).
    void storeLumens(int row, double lumens) {
        ledTypeStruct& s = gui->getModel().spectra()[row];
        const double factor = lumens / s.lumens;
        for (double& v : s.spectrum) v *= factor;
        s.lumens *= factor;
        s.wattsVis *= factor;
        s.wattsVisIR *= factor;
    }
    // The one box the last run showed.
    std::string box() {
        if (script.shown.size() != 1) return "boxes: " + std::to_string(script.shown.size());
        return script.shown[0].title + ": " + script.shown[0].text;
    }
};

}  // namespace

TEST_F(Calculate, GreenAndRedLedsAddTheirLumens) {
    setRow(GREEN, "530", "1000", "");
    setRow(RED, "630", "500", "");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("Lumens"), "1500");
    // Each LED alone is a point of the diagram.
    ASSERT_EQ(gui->getPoints().size(), 2u);
    EXPECT_GT(gui->getPoints()[0].y, 0.6) << "green";
    EXPECT_GT(gui->getPoints()[1].x, 0.65) << "red";
    EXPECT_EQ(gui->getDisplayTable()->getItemText(100, 1).empty(), false);
}

TEST_F(Calculate, CoefficientsFollowLumensOrMilliwatts) {
    storeLumens(WHITE_4000, 25.0);
    setRow(WHITE_4000, nullptr, "1000", "");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_DOUBLE_EQ(gui->getModel().spectra()[WHITE_4000].coefficient, 40.0);
    EXPECT_EQ(result("Lumens"), "1000");

    ledTypeStruct& s = gui->getModel().spectra()[WHITE_4000];
    storeLumens(WHITE_4000, s.lumens / s.wattsVis);  // 1 W visible
    setRow(WHITE_4000, nullptr, "", "500");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_DOUBLE_EQ(gui->getModel().spectra()[WHITE_4000].coefficient, 0.5);
    EXPECT_EQ(result("Vis watt"), "500");  // shown in milliwatts
}

TEST_F(Calculate, RowRefusalsShowTheirBoxAndTurnTheirFieldsRed) {
    const struct {
        const char* lDom;
        const char* lumens;
        const char* watts;
        const char* expectedBox;
        int redFields;
    } cases[] = {
        {"530", "", "",
         "Lumens/watts error: You must specify either a lumens or watts value or uncheck this "
         "spectra.",
         ROW_LUMENS | ROW_WATTS},
        {"530", "100", "100",
         "Lumens/watts error: You cannot specify both a lumens and watts value.",
         ROW_LUMENS | ROW_WATTS},
        {"600", "100", "",
         "Dominant wavelength error: You must specify a dominant wavelength value within the "
         "allowed range (513 - 570 nm) or uncheck this LED.",
         ROW_LDOM},
        {"530", "0", "", "Lumens/watts error: You must specify a value greater than 0.",
         ROW_LUMENS},
        {"530", "1e300", "",
         "Lumens/watts error: You must specify a value greater than 0 and less than "
         "1,000,000,000.",
         ROW_LUMENS},
        {"530", "", "1e300",
         "Lumens/watts error: You must specify a value greater than 0 and less than "
         "1,000,000,000.",
         ROW_WATTS},
    };
    for (const auto& c : cases) {
        script.shown.clear();
        setRow(GREEN, c.lDom, c.lumens, c.watts);
        calculate();
        EXPECT_EQ(box(), c.expectedBox);
        for (int field : {ROW_LDOM, ROW_LUMENS, ROW_WATTS}) {
            EXPECT_EQ(isRed(GREEN, field), (c.redFields & field) != 0) << c.expectedBox << field;
        }
        EXPECT_FALSE(gui->hasResults());
        EXPECT_EQ(result("Lumens"), "");
        EXPECT_EQ(gui->getLedField(GREEN, ROW_LUMENS)->getText(), c.lumens) << "text kept";
    }
    // An empty wavelength gets the range box and then the one that asks for a value.
    script.shown.clear();
    setRow(GREEN, "", "100", "");
    calculate();
    ASSERT_EQ(script.shown.size(), 2u);
    EXPECT_EQ(script.shown[1].text,
              "You must specify a dominant wavelength value or uncheck this LED.");
    // Nothing checked at all.
    script.shown.clear();
    gui->getLedCheck(GREEN)->setCheck(FALSE);
    calculate();
    EXPECT_EQ(box(),
              "Lumens/watts error: You must select a spectra and specify either a lumens or "
              "watts value.");
}

TEST_F(Calculate, BinFieldsAreCheckedInBinningRunsFromTheButton) {
    gui->getBinningChk()->enable();
    gui->getBinningChk()->setCheck(TRUE);
    setRow(GREEN, "530", "100", "");
    gui->getLedField(GREEN, ROW_BIN_WIDTH)->setText("25");
    gui->onCmdCalculate(gui->getCalculateButton(), 0, nullptr);
    EXPECT_EQ(box(),
              "Bin width error: You must specify a bin width equal to or greater than 0 and less "
              "than 20 nm.");
    EXPECT_TRUE(isRed(GREEN, ROW_BIN_WIDTH));
    script.shown.clear();
    gui->getLedField(GREEN, ROW_BIN_WIDTH)->setText("2");
    gui->getLedField(GREEN, ROW_BIN_OUTPUT)->setText("25");
    gui->onCmdCalculate(gui->getCalculateButton(), 0, nullptr);
    EXPECT_EQ(box(),
              "Bin output error: You must specify a bin output equal to or greater than 0 and "
              "less than 20%.");
    EXPECT_TRUE(isRed(GREEN, ROW_BIN_OUTPUT));
    // A run that does not come from the button leaves the bin fields alone.
    script.shown.clear();
    calculate();
    EXPECT_TRUE(script.shown.empty()) << box();
}

TEST_F(Calculate, WallPlugFieldsNeedTheLpwOfEveryCheckedRow) {
    setRow(WHITE_2700, nullptr, "1000", "", "100");
    setRow(WHITE_4000, nullptr, "500", "", "50");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("Elec. W"), "20.0");  // 1000 / 100 + 500 / 50
    EXPECT_EQ(result("LPW"), "75.0");
    gui->getLedField(WHITE_4000, ROW_LPW)->setText("");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("LPW"), UNDEFINED_TERM);
    EXPECT_EQ(result("Elec. W"), UNDEFINED_TERM);
    EXPECT_NE(result("LER"), UNDEFINED_TERM);
}

TEST_F(Calculate, SubtractingTheBluePeakSplitsTheWatts) {
    setRow(WHITE_4000, nullptr, "1000", "");
    gui->getBluePeakChk()->setCheck(TRUE);
    gui->onCmdBluePeakChk(gui->getBluePeakChk(), 0, nullptr);
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    const double blue = std::stod(result("Blue watts")), phosphor = std::stod(result("Phos watts"));
    EXPECT_GT(blue, 0.0);
    EXPECT_GT(phosphor, blue) << "a white LED is mostly phosphor";
    EXPECT_NEAR(blue + phosphor, std::stod(result("Vis watt")), 0.02 * phosphor);
    EXPECT_EQ(gui->getMainCurveName(), BLUE_PEAK_CURVE_NAME);
    // The spectrum without its blue peak stands in the third column, under "Matching".
    Table_zwk7* table = gui->getDisplayTable();
    ASSERT_EQ(table->getNumColumns(), 3);
    EXPECT_EQ(table->getColumnText(2), "Matching\n(W/nm)");
    const int at450 = (450 - 360) / 2, at600 = (600 - 360) / 2;
    EXPECT_LT(table->toDouble(at450, 2), 0.5 * table->toDouble(at450, 1)) << "the peak is gone";
    EXPECT_NEAR(table->toDouble(at600, 2), table->toDouble(at600, 1),
                0.01 * table->toDouble(at600, 1))
        << "the phosphor stays";
}

TEST_F(Calculate, ReferenceSpectraHoldOneWattAtTheirTemperature) {
    chooseAnalysis(2);
    gui->getBlackBodyField()->setText("3000");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("CCT"), "3000");
    EXPECT_EQ(result("CRI (Ra)"), "100");
    EXPECT_NEAR(std::stod(result("Vis watt")), 1000.0, 3.0);  // mW, at three printed digits

    chooseAnalysis(6);
    gui->getDaylightField()->setText("6500");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_NEAR(std::stod(result("CCT")), 6500.0, 2.0);

    // Out of range: reset to the limit with the box, and nothing calculated.
    gui->getDaylightField()->setText("40000");
    calculate();
    EXPECT_EQ(box(),
              "Reconstituted daylight Temperature: You must enter a reconstituted daylight "
              "temperature between 3,000 - 25,000K\nIt will be reset to 25000K.");
    EXPECT_EQ(gui->getDaylightField()->getText(), "25000");
    EXPECT_FALSE(gui->hasResults());
}

TEST_F(Calculate, TheHottestBlackBodyShowsNeitherRaNorRValues) {
    // 950000 K lies beyond the 25000 K where the CRI ends: Ra and R1 to R15 alike show N/A.
    chooseAnalysis(2);
    gui->getBlackBodyField()->setText("950000");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("CRI (Ra)"), UNDEFINED_TERM);
    for (int k = 1; k <= 15; ++k) {
        EXPECT_EQ(result(("R" + std::to_string(k)).c_str()), UNDEFINED_TERM) << k;
    }
    gui->getBlackBodyField()->setText("3000");
    calculate();
    EXPECT_EQ(result("CRI (Ra)"), "100");
    EXPECT_EQ(result("R9"), "100");
}

TEST_F(Calculate, TheWheelStepsTheTemperatureWithinItsRangeAndRecalculates) {
    chooseAnalysis(2);
    TextField_zwk7* field = gui->getBlackBodyField();
    field->setText("2990");
    FXEvent up;
    up.code = 120;
    up.state = 0;
    gui->onMouseBlackBodyTemp(field, 0, &up);
    EXPECT_EQ(field->getText(), "3015");  // 25 K a step
    EXPECT_EQ(result("CCT"), "3015") << "the result follows the wheel";
    field->setText("949990");
    gui->onMouseBlackBodyTemp(field, 0, &up);
    EXPECT_EQ(field->getText(), "950000");
    FXEvent downShifted;
    downShifted.code = -120;
    downShifted.state = SHIFTMASK;
    gui->getDaylightField()->setText("3050");
    gui->onMouseBlackBodyTemp(gui->getDaylightField(), 0, &downShifted);
    EXPECT_EQ(gui->getDaylightField()->getText(), "3000");  // 100 K with shift, clamped
}

TEST_F(Calculate, CoiOnlyFrom3300KelvinAndTm30OnlyNearTheLocus) {
    chooseAnalysis(2);
    gui->getBlackBodyField()->setText("3299");
    calculate();
    ASSERT_EQ(result("CCT"), "3299");
    EXPECT_EQ(result("COI"), UNDEFINED_TERM);
    gui->getBlackBodyField()->setText("3400");
    calculate();
    EXPECT_NE(result("COI"), UNDEFINED_TERM);

    chooseAnalysis(0);
    setRow(GREEN, "530", "100", "");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    for (const char* name : {"Rf", "Rg", "Rf,skin"}) EXPECT_EQ(result(name), UNDEFINED_TERM);
}

TEST_F(Calculate, StandardIlluminantF2RendersAsPublished) {
    gui->runStandardIlluminant(9);  // A, B, C, E, D50, D55, D65, D75, F1, F2
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_EQ(result("CRI (Ra)"), "64");
    EXPECT_EQ(gui->getAnalysisType(), 0) << "the analysis type comes back";
}

TEST_F(Calculate, AWhiteLedFillsEveryFieldAndAnotherTypeClearsThem) {
    setRow(WHITE_4000, nullptr, "1000", "");
    calculate();
    ASSERT_TRUE(script.shown.empty()) << box();
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        EXPECT_FALSE(gui->getResultText(outputFieldName(i)).empty()) << outputFieldName(i);
    }
    EXPECT_NE(gui->getPhotometryStrings().cri.find(" K / "), std::string::npos);
    FXRadioButton* radio = gui->getAnalysisRadio(2);
    radio->setCheck(TRUE);
    gui->onCmdAnalysisType(radio, 0, nullptr);
    EXPECT_FALSE(gui->hasResults());
    EXPECT_EQ(result("Lumens"), "");
}

TEST_F(Calculate, ShiftClickChecksTheRowsBetweenAndIndividualRunsSaveEachPoint) {
    gui->clickLedCheck(WHITE_4000, true);
    gui->clickLedCheck(FAR_RED, true);
    for (int row = 0; row < gui->getNumSpectra(); ++row) {
        EXPECT_EQ(gui->getLedCheck(row)->getCheck() == TRUE, row >= FAR_RED && row <= WHITE_4000)
            << row;
    }
    // Only the white rows get lumens; the others fill in from their records.
    for (int row = FAR_RED; row <= WHITE_4000; ++row) {
        gui->getLedField(row, ROW_LUMENS)->setText("");
        gui->getLedField(row, ROW_WATTS)->setText("");
    }
    gui->onCmdCalculateIndividual(nullptr, 0, nullptr);
    // One IR LED alone holds no visible light, so it has no chromaticity: it gives the spectrum
    // error and no point; the other four rows are saved.
    EXPECT_EQ(box(), "Spectrum error: You must have some intensities greater than 1.0e-09.");
    EXPECT_EQ(gui->numSavedXY(), 4);
    EXPECT_TRUE(gui->getLedCheck(FAR_RED)->getCheck()) << "the checks come back";
}

TEST_F(Calculate, HiddenStandardRowsAreUnchecked) {
    gui->getLedCheck(GREEN)->setCheck(TRUE);
    gui->getLedCheck(WHITE_4000)->setCheck(TRUE);
    auto* noPureColors = static_cast<FXMenuRadio*>(gui->getOptionWidget("showLEDs", 1));
    gui->onCmdOptionRadio(noPureColors, 0, nullptr);
    EXPECT_FALSE(gui->getLedCheck(GREEN)->getCheck());
    EXPECT_FALSE(gui->getLedCheck(GREEN)->shown());
    EXPECT_TRUE(gui->getLedCheck(WHITE_4000)->getCheck());
    gui->onCmdOptionRadio(gui->getOptionWidget("showLEDs", 0), 0, nullptr);
    EXPECT_TRUE(gui->getLedCheck(GREEN)->shown());
}

TEST_F(MainWindow, WindowAndCommandLineToolGiveTheSameTexts) {
    const std::string f2 =
        std::string(LUMIVAR_TEST_DATA_DIR) + "/cie_illuminants/cie_F2_5nm_360_830.txt";
    chooseRange(RANGE_360_830_5NM);
    std::ifstream in(f2);
    std::string line, text;
    while (std::getline(in, line)) {
        if (!line.empty() && line[0] != '#') text += line + "\n";
    }
    paste(RANGE_360_830_5NM, text);
    // The tool prints watts.
    gui->onCmdOptionRadio(gui->getOptionWidget("inputWattsUnits", 1), 0, nullptr);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(script.shown.empty());
    const auto row = cliRow("calc " + f2);
    ASSERT_GT(row.size(), 130u);
    for (std::size_t i = 1; i < row.size(); ++i) {
        EXPECT_EQ(result(row[i].first.c_str()), row[i].second) << row[i].first;
    }
}

// The 236 numbers of a 2 nm table in W/nm, one per line of "nm value".
std::string gridTableText() { return testutil::warmWhiteTableText(); }

TEST_F(MainWindow, ASpectrumOnTheGridGivesTheSameTextsInTheTwoNanometreTableAndTheTool) {
    const std::string text = gridTableText();
    const std::string file = (folder / "grid.txt").string();
    std::ofstream(file) << text;
    chooseRange(RANGE_360_830_2NM);
    std::istringstream lines(text);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    std::string nm, value;
    for (int r = 0; lines >> nm >> value; ++r) table->setItemText(r, 1, value.c_str());
    gui->onCmdOptionRadio(gui->getOptionWidget("inputWattsUnits", 1), 0, nullptr);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(script.shown.empty()) << boxes();
    const auto row = cliRow("calc " + file);
    ASSERT_GT(row.size(), 130u);
    for (std::size_t i = 1; i < row.size(); ++i) {
        EXPECT_EQ(result(row[i].first.c_str()), row[i].second) << row[i].first;
    }
}

TEST_F(MainWindow, ASpectrumTooDarkForAColourIsASpectrumError) {
    chooseRange(RANGE_FREE_FORMAT);
    const struct {
        const char* rows;
        const char* box;
    } cases[] = {
        {"360\t1e-12\n600\t1e-12\n830\t1e-12\n",
         "Spectrum error: You must have some intensities greater than 1.0e-09.\n"},
        // Resampling around 1e306 overflows: the row is named instead of computing NaNs.
        {"360\t1\n526\t1e306\n830\t1\n",
         "Data error: Some of your data is out of range, check the data in row #2.\n"},
        {"360\t1e-11\n600\t1e-11\n830\t1e-11\n", ""},  // dim, but still a colour
    };
    for (const auto& c : cases) {
        script.shown.clear();
        // Each case fills the same three rows.
        paste(RANGE_FREE_FORMAT, c.rows);
        gui->onCmdCalculate(nullptr, 0, nullptr);
        EXPECT_EQ(boxes(), c.box) << c.rows;
        EXPECT_EQ(gui->hasResults(), std::string(c.box).empty()) << c.rows;
        if (!std::string(c.box).empty()) {
            EXPECT_EQ(result("x"), "") << "no numbers";
        }
    }
}

TEST_F(MainWindow, MatchingModeComparesTheResultWithTheThirdColumn) {
    auto* matching = static_cast<FXMenuCheck*>(gui->getOptionWidget("enableMatchingMenuItem"));
    matching->setCheck(TRUE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    ASSERT_EQ(gui->getInputTable(RANGE_360_830_5NM)->getNumColumns(), 3);
    ASSERT_EQ(gui->getDisplayTable()->getNumColumns(), 3);
    chooseRange(RANGE_360_830_5NM);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_5NM);
    // A warm-white-like ramp in the spectrum column, the same shape (doubled) as the match.
    for (int r = 0; r < table->getNumRows(); ++r) {
        const double v = 0.001 * (r + 1);
        table->setItemText(r, 1, FXString().format("%g", v));
        table->setItemText(r, 2, FXString().format("%g", 2 * v));
    }
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(script.shown.empty()) << script.shown[0].text;
    EXPECT_EQ(result("RMS"), "0.00") << "the same shape at another scale";
    EXPECT_FALSE(gui->getDisplayTable()->getItemText(100, 2).empty());

    for (int r = 0; r < table->getNumRows(); ++r) {
        table->setItemText(r, 2, FXString().format("%g", 0.001 * (table->getNumRows() - r)));
    }
    gui->onCmdCalculate(nullptr, 0, nullptr);
    EXPECT_GT(std::stod(result("RMS")), 1.0) << "a falling curve against a rising one";

    // A matching column with holes counts only when empty cells count as 0.
    auto* zeroEmpty = static_cast<FXMenuCheck*>(gui->getOptionWidget("zeroEmptyCellsMenuItem"));
    zeroEmpty->setCheck(FALSE);
    gui->onCmdOptionCheck(zeroEmpty, 0, nullptr);
    for (int i = 0; i < 20; ++i) gui->getDisplayTable()->setItemText(i, 2, "");
    gui->getInputTable(RANGE_360_830_5NM)->setItemText(0, 2, "");
    for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 2, "");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    EXPECT_EQ(result("RMS"), UNDEFINED_TERM);

    matching->setCheck(FALSE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    EXPECT_EQ(gui->getDisplayTable()->getNumColumns(), 2);
    EXPECT_EQ(table->getItemText(3, 1), "0.004") << "the spectrum column survives";
}

TEST_F(Calculate, AGaussianPeakIsTypedIntoTheTableAndCalculated) {
    gui->generateGaussian("g", 550e-9, 20e-9, true);
    ASSERT_TRUE(script.shown.empty()) << box();
    EXPECT_NEAR(std::stod(result("cent WL")), 550.0, 0.5);
    EXPECT_NEAR(std::stod(result("FWHM")), 20.0, 2.0);
    EXPECT_EQ(gui->getAnalysisType(), 0) << "the analysis type comes back";
    // At the centre, 550 nm: 1e-6 / (sigma sqrt(2 pi)) with the sigma of a 20 nm FWHM in metres.
    EXPECT_EQ(std::string(gui->getInputTable(RANGE_360_830_2NM)->getItemText(95, 1).text()),
              "4.697e+01");
    // A table holding data is replaced only when the user says so.
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    table->setItemText(95, 1, "7.000e+00");
    script.answers = {MBOX_CLICKED_NO};
    gui->generateGaussian("h", 600e-9, 20e-9, true);
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "Replace data");
    EXPECT_EQ(std::string(table->getItemText(95, 1).text()), "7.000e+00");
}

TEST_F(Calculate, TheAutomaticPeakSetAsksOnceAndSavesEveryPeakToMatchAgainst) {
    gui->getInputTable(RANGE_360_830_2NM)->setItemText(95, 1, "7.000e+00");
    script.answers = {MBOX_CLICKED_YES};
    const int made = gui->autoGenerateGaussianPeaks();
    EXPECT_EQ(made, static_cast<int>(autoGaussianPeaks().size()));
    ASSERT_EQ(script.shown.size(), 1u) << "one question for the whole set";
    EXPECT_EQ(script.shown[0].title, "Replace data");
    std::vector<ledTypeStruct> saved(made + 1);
    const ReadWriteUserSpectra library(true, true, 0, saved.data(),
                                       (folder / "userSpectra.spec").string(), LIBRARY_SPECTRA);
    ASSERT_EQ(library.getNumUserData(), made);
    // The picker of the Matching menu makes one of them the matching curve: "460 nm peak 60
    // FWHM" is the sixth (450 nm with four widths, then 460 nm at 20 and 60 nm).
    EXPECT_STREQ(saved[5].name, "460 nm peak 60 FWHM");
    script.forms.push_back({"5"});
    gui->onCmdPickMatchingCurve(nullptr, 0, nullptr);
    EXPECT_TRUE(gui->getSettings().getBool("enableMatchingMenuItem"));
    EXPECT_EQ(gui->getSettings().getString("matchingCurveName"), "460 nm peak 60 FWHM");
    Table_zwk7* table = gui->getDisplayTable();
    ASSERT_EQ(table->getNumColumns(), 3);
    std::vector<double> matching(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i)
        matching[i] = std::stod(table->getItemText(i, 2).text());
    EXPECT_EQ(std::max_element(matching.begin(), matching.end()) - matching.begin(), 50)
        << "the peak at 460 nm";
    EXPECT_NEAR(matching[50], saved[5].spectrum[50], saved[5].spectrum[50] * 1e-3);
}

TEST_F(MainWindow, ColourDefinitionsThatAreNoNumbersAreNamedAtStart) {
    close();
    std::ofstream(folder / "LumivarColorLEDdef.txt") << "Blue\nnan 2.5\n0\n0\n0.8\n";
    script.shown.clear();
    open();
    EXPECT_EQ(boxes(),
              "File error: LumivarColorLEDdef.txt, line 2: the Blue definition from line 1 is not "
              "used: a value is not a number or is too large\nThe built-in definitions are used "
              "for these colors.\n");
    EXPECT_EQ(gui->getModel().definitions().getPeakData(1)->defaultDominatePeakWavelength, 455.0);
}

TEST_F(MainWindow, TheSsiReferenceCanBeTheUsersOwnSpectrum) {
    auto* user = static_cast<FXMenuRadio*>(gui->getOptionWidget("_referenceSpectrumForSSI", 2));
    ASSERT_NE(user, nullptr);
    gui->onCmdOptionRadio(user, 0, nullptr);
    // Without a matching curve there is nothing to compare with.
    chooseAnalysis(1);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 1, "1.000e-03");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "Spectrum error");
    EXPECT_EQ(result("SSI"), "N/A");
    // The same spectrum as its own reference scores 100.
    auto* matching = static_cast<FXMenuCheck*>(gui->getOptionWidget("enableMatchingMenuItem"));
    matching->setCheck(TRUE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 2, "2.000e-03");
    script.shown.clear();
    gui->onCmdCalculate(nullptr, 0, nullptr);
    EXPECT_TRUE(script.shown.empty());
    EXPECT_EQ(result("SSI"), "100");
}
