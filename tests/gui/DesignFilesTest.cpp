// Design files and the settings file through the window: a saved design gives the same
// Calculate when reopened, every option survives quit and restart, and damaged or hostile
// files never lock the user out or change what they had.
#include <gtest/gtest.h>

#include <climits>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "AppConstants.h"
#include "MainWindowFixture.h"

namespace fs = std::filesystem;

namespace {

enum Row { BLUE = 1, GREEN = 3, RED = 6, WHITE_4000 = 12 };

class DesignFiles : public MainWindow {
  protected:
    void setRow(int row, const char* lDom, const char* lumens, const char* watts, const char* lpw) {
        gui->getLedCheck(row)->setCheck(TRUE);
        if (lDom != nullptr) gui->getLedField(row, ROW_LDOM)->setText(lDom);
        gui->getLedField(row, ROW_LUMENS)->setText(lumens);
        gui->getLedField(row, ROW_WATTS)->setText(watts);
        gui->getLedField(row, ROW_LPW)->setText(lpw);
    }
    std::vector<std::string> allFields() {
        std::vector<std::string> texts;
        for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) texts.push_back(gui->getResultText(i).text());
        return texts;
    }
    void setRadio(const char* tag, int value) {
        auto* radio = static_cast<FXMenuRadio*>(gui->getOptionWidget(tag, value));
        ASSERT_NE(radio, nullptr) << tag;
        radio->setCheck(TRUE);
        gui->onCmdOptionRadio(radio, 0, nullptr);
    }
    void setCheck(const char* tag, bool on) {
        auto* check = static_cast<FXMenuCheck*>(gui->getOptionWidget(tag));
        ASSERT_NE(check, nullptr) << tag;
        check->setCheck(on);
        gui->onCmdOptionCheck(check, 0, nullptr);
    }
    void saveDesignAs(const std::string& path) {
        script.files.push_back(path);
        gui->onCmdWriteFile(nullptr, 0, nullptr);
    }
    void writeIni(const std::string& text) {
        std::ofstream(folder / "Lumivar.ini", std::ios::binary) << text;
    }
};

TEST_F(DesignFiles, AReopenedDesignGivesTheSameResultsToTheLastDigit) {
    chooseAnalysis(0);
    setRow(GREEN, "525.5", "1000", "", "95.5");
    setRow(RED, "631", "", "400", "");
    setRow(WHITE_4000, nullptr, "523.25", "", "110");
    setRadio("cieDiagramType", 2);
    setCheck("enableMatchingMenuItem", true);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    for (int r = 0; r < table->getNumRows(); ++r)
        table->setItemText(r, 2, FXString().format("%.3le", 1.0 + 0.01 * r));
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults()) << boxes();
    const std::vector<std::string> before = allFields();

    const std::string path = (folder / "mix").string();
    saveDesignAs(path);
    ASSERT_TRUE(fs::exists(path + USER_DESIGNS_FILE_EXT)) << boxes();
    EXPECT_EQ(gui->getRecentFileItem(0)->getText().find(".vtd") > 0, true);
    EXPECT_TRUE(gui->getRecentFileItem(0)->shown());
    EXPECT_FALSE(gui->getRecentFileItem(1)->shown());

    // Everything goes back to the defaults, then the design returns through the recent list.
    gui->onCmdResetDefaults(nullptr, 0, nullptr);
    gui->onCmdClearSpectrumData(nullptr, 0, nullptr);
    EXPECT_FALSE(gui->getLedCheck(GREEN)->getCheck());
    EXPECT_EQ(gui->getSettings().getInt("cieDiagramType"), 0);
    gui->onCmdOpenRecentFile(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_RECENT_FILE), nullptr);
    EXPECT_EQ(boxes(), "");
    EXPECT_EQ(gui->getAnalysisType(), 0);
    EXPECT_TRUE(gui->getLedCheck(GREEN)->getCheck());
    EXPECT_EQ(gui->getLedField(GREEN, ROW_LDOM)->getText(), "525.5");
    EXPECT_EQ(gui->getLedField(WHITE_4000, ROW_LUMENS)->getText(), "523.25");
    EXPECT_EQ(gui->getLedField(RED, ROW_WATTS)->getText(), "400");
    EXPECT_EQ(gui->getSettings().getInt("cieDiagramType"), 2);
    EXPECT_EQ(table->getItemText(5, 2), FXString().format("%.3le", 1.05));
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults()) << boxes();
    EXPECT_EQ(allFields(), before);
}

TEST_F(DesignFiles, TheMatchingCurveReturnsToTheTableOfTheDesignsRange) {
    chooseRange(RANGE_380_830_5NM);
    setCheck("enableMatchingMenuItem", true);
    Table_zwk7* table = gui->getInputTable(RANGE_380_830_5NM);
    for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 2, "5.000e-01");
    saveDesignAs((folder / "five").string());
    gui->onCmdResetDefaults(nullptr, 0, nullptr);  // matching off: the column goes
    EXPECT_EQ(table->getNumColumns(), 2);
    EXPECT_FALSE(gui->getRangeRadio(RANGE_380_830_5NM)->getCheck());
    ASSERT_TRUE(gui->openDesign((folder / "five.vtd").string())) << boxes();
    EXPECT_TRUE(gui->getRangeRadio(RANGE_380_830_5NM)->getCheck());
    EXPECT_EQ(table->getItemText(0, 2), "5.000e-01");
    EXPECT_EQ(table->getItemText(table->getNumRows() - 1, 2), "5.000e-01");
}

TEST_F(DesignFiles, TheCommandLineToolCalculatesASavedDesignAsTheWindowDoes) {
    chooseAnalysis(0);
    setRow(BLUE, "458", "", "300", "");
    setRow(GREEN, "528", "900", "", "");
    setRow(WHITE_4000, nullptr, "650", "", "105");
    setRadio("inputWattsUnits", 1);
    setRadio("numDecimalsFor_xyDuv_etc", 6);
    setRadio("gamutType", 1);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults()) << boxes();
    const std::string path = (folder / "cli").string();
    saveDesignAs(path);
    const auto row = cliRow("calc --folder " + folder.string() + " --design " + path + ".vtd");
    ASSERT_GT(row.size(), 140u);
    EXPECT_EQ(row[0].second, path + ".vtd");
    for (std::size_t i = 1; i < row.size(); ++i)
        EXPECT_EQ(result(row[i].first.c_str()), row[i].second) << row[i].first;

    // A black body design, too.
    chooseAnalysis(2);
    gui->getBlackBodyField()->setText("3150");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    saveDesignAs(path + "_bb");
    const auto bb = cliRow("calc --folder " + folder.string() + " --design " + path + "_bb.vtd");
    ASSERT_GT(bb.size(), 140u);
    for (std::size_t i = 1; i < bb.size(); ++i)
        EXPECT_EQ(result(bb[i].first.c_str()), bb[i].second) << bb[i].first;
}

TEST_F(DesignFiles, EveryOptionChangedFromItsDefaultSurvivesQuitAndRestart) {
    ProgramSettings& s = gui->getSettings();
    const ProgramSettings defaults;
    // Options that the window sets from its own widgets or geometry at quit.
    const std::vector<std::string> owned = {"isMaximized_ini",
                                            "window_x",
                                            "window_y",
                                            "main_width",
                                            "main_height",
                                            "plotsSplitter",
                                            "dataSplitter",
                                            "spectrumTableWidth",
                                            "analysisType",
                                            "spectrumRange",
                                            "irChk",
                                            "binningChk",
                                            "removeBluePeakChk",
                                            "blackBodyTemperatureK_TF",
                                            "syntheticDaylightType_TF",
                                            "pathUserFilesDirectory",
                                            "clearDataStartupMenuItem",
                                            "mainCurveName"};
    const auto& table = ProgramSettings::table();
    for (std::size_t row = 0; row < table.size(); ++row) {
        const OptionDef& def = table[row];
        const OptionId id = static_cast<OptionId>(row);
        if (std::find(owned.begin(), owned.end(), def.tag) != owned.end()) continue;
        switch (def.kind) {
            case OptionKind::INT: {
                const std::vector<int> offered = gui->getOfferedValues(def.tag);
                const int d = defaults.getInt(id);
                FXWindow* widget = gui->getOptionWidget(def.tag);
                if (offered.empty()) {
                    s.setInt(id, d + 1);
                } else if (widget != nullptr && widget->isMemberOf(FXMETACLASS(FXMenuCheck))) {
                    setCheck(def.tag, d == 0);
                } else {
                    setRadio(def.tag, offered[0] != d ? offered[0] : offered[1]);
                }
                break;
            }
            case OptionKind::DOUBLE:
                s.setDouble(id, defaults.getDouble(id) + 0.25);
                break;
            case OptionKind::UINT64:
                s.setUInt64(id, 1700000000u + row);
                break;
            case OptionKind::STRING:
                s.setString(id, std::string("text & <b> ") + def.tag);
                break;
            case OptionKind::STRING_LIST:
                s.setList(id, {(folder / "a.vtd").string(), (folder / "b c.vtd").string()});
                break;
            case OptionKind::INDEXED:
                for (int i = 0; i < def.count; ++i) {
                    if (auto* check = static_cast<FXMenuCheck*>(gui->getOptionWidget(def.tag, i))) {
                        check->setCheck(TRUE);
                        gui->onCmdOptionCheck(check, 0, nullptr);
                    } else {
                        s.setIndexed(id, i, 1);
                    }
                }
                break;
        }
    }
    const std::string expected = s.toText(true);
    gui->onCmdQuit(nullptr, 0, nullptr);
    close();
    open();
    const std::string restored = gui->getSettings().toText(true);
    // Line by line, so that a lost option names itself.
    std::istringstream a(expected), b(restored);
    std::string la, lb;
    int changed = 0;
    while (std::getline(a, la) && std::getline(b, lb)) {
        const std::string tag = la.substr(0, la.find('>') + 1);
        const std::string name = tag.size() > 2 ? tag.substr(1, tag.size() - 2) : tag;
        if (std::find(owned.begin(), owned.end(), name) != owned.end()) continue;
        EXPECT_EQ(lb, la);
        changed += la != (tag + "0") ? 1 : 0;
    }
    EXPECT_GT(changed, 400);
    EXPECT_EQ(boxes(), "");
}

TEST_F(DesignFiles, RowsAndChecksComeBackAfterARestart) {
    chooseAnalysis(0);
    setRow(BLUE, "455", "", "250", "");
    setRow(WHITE_4000, nullptr, "800", "", "120");
    gui->onCmdQuit(nullptr, 0, nullptr);
    close();
    open();
    EXPECT_EQ(gui->getAnalysisType(), 0);
    EXPECT_TRUE(gui->getLedCheck(BLUE)->getCheck());
    EXPECT_EQ(gui->getLedField(BLUE, ROW_LDOM)->getText(), "455.0");
    EXPECT_EQ(gui->getLedField(BLUE, ROW_WATTS)->getText(), "250");
    EXPECT_EQ(gui->getLedField(WHITE_4000, ROW_LUMENS)->getText(), "800");
    EXPECT_EQ(gui->getLedField(WHITE_4000, ROW_LPW)->getText(), "120");
    EXPECT_FALSE(gui->getLedCheck(GREEN)->getCheck());
}

TEST_F(DesignFiles, ClearEmptiesRowsAndTargetsButATableOnlyInDirectInput) {
    chooseAnalysis(0);
    setRow(BLUE, "460", "100", "", "77");
    gui->getSettings().setDouble("opt_x_TF", 0.3);
    gui->onCmdClearInputData(nullptr, 0, nullptr);
    EXPECT_FALSE(gui->getLedCheck(BLUE)->getCheck());
    EXPECT_EQ(gui->getLedField(BLUE, ROW_LUMENS)->getText(), "");
    EXPECT_EQ(gui->getLedField(BLUE, ROW_LDOM)->getText(), "");
    // Stored LPW values come back; the white LEDs have one.
    EXPECT_EQ(gui->getLedField(BLUE, ROW_LPW)->getText(), "");
    EXPECT_NE(gui->getLedField(WHITE_4000, ROW_LPW)->getText(), "");
    EXPECT_EQ(gui->getSettings().getDouble("opt_x_TF"), 0.0);

    // With direct input the same button clears only the table.
    chooseAnalysis(1);
    setRow(BLUE, "460", "100", "", "");
    paste(RANGE_360_830_2NM, "360\t1\n362\t2\n");
    ASSERT_NE(gui->getInputTable(RANGE_360_830_2NM)->getItemText(0, 1), "");
    gui->onCmdClearInputData(nullptr, 0, nullptr);
    EXPECT_EQ(gui->getInputTable(RANGE_360_830_2NM)->getItemText(0, 1), "");
    EXPECT_TRUE(gui->getLedCheck(BLUE)->getCheck());
}

TEST_F(DesignFiles, ADamagedSettingsFileStartsWithDefaultsAndIsKeptAsBad) {
    close();
    const std::string damaged = std::string("\x00\x01\xff<main_width>9\n", 17);
    writeIni(damaged);
    open();
    EXPECT_EQ(boxes(), "");
    EXPECT_EQ(gui->getSettings().getInt("main_width"), 1000);
    std::ifstream bad(folder / "Lumivar.ini.bad", std::ios::binary);
    std::stringstream kept;
    kept << bad.rdbuf();
    EXPECT_EQ(kept.str(), damaged);
    // The next quit writes a good file again.
    gui->onCmdQuit(nullptr, 0, nullptr);
    std::ifstream ini(folder / "Lumivar.ini");
    std::string first;
    std::getline(ini, first);
    EXPECT_EQ(first, "<version>7.77");
}

TEST_F(DesignFiles, HostileSizesAndChoicesAreBroughtBackToWhatTheScreenCanShow) {
    close();
    writeIni(
        "<version>7.77\n<main_width>2147483647\n<main_height>1000000\n"
        "<window_x>-2147483648\n<dataSplitter>2147483647\n<plotsSplitter>2147483647\n"
        "<cieDiagramType>77\n<numDecimalsFor_xyDuv_etc>5\n<enableStickyMenuItem>9\n"
        "<spectrumRange>-4\n<analysisType>3\n<ciePlotWidth>2147483647\n"
        "<windowHeight_2_ColorMixLampDesign>-7\n<cctBinWidthIndex>3\n");
    open();
    gui->onCmdMainWindowPosition(nullptr, 0, nullptr);
    EXPECT_LE(gui->getWidth(), gui->getRoot()->getWidth());
    EXPECT_LE(gui->getHeight(), gui->getRoot()->getHeight());
    EXPECT_GE(gui->getX(), 0);
    ProgramSettings& s = gui->getSettings();
    EXPECT_EQ(s.getInt("cieDiagramType"), 0);
    EXPECT_EQ(s.getInt("numDecimalsFor_xyDuv_etc"), 4);
    EXPECT_EQ(s.getInt("enableStickyMenuItem"), 1);
    EXPECT_EQ(s.getInt("spectrumRange"), 0);
    EXPECT_EQ(gui->getAnalysisType(), 0);  // an optimization is never resumed from a file
    EXPECT_EQ(s.getInt("ciePlotWidth"), gui->getRoot()->getWidth());
    EXPECT_EQ(s.getInt("windowHeight_2_ColorMixLampDesign"), 0);
    EXPECT_EQ(s.getInt("cctBinWidthIndex"), 3);  // a choice, not a size
    EXPECT_EQ(boxes(), "");
}

TEST_F(DesignFiles, AFileThatIsNoDesignIsRefusedAndChangesNothing) {
    setRadio("cieDiagramType", 3);
    const std::string legacy = (folder / "old.vtd").string();
    const std::string noVersion = (folder / "noversion.vtd").string();
    std::ofstream(legacy) << "6.50\n1\n0\n";
    std::ofstream(noVersion) << "<cieDiagramType>1\n";
    const std::string huge = (folder / "huge.vtd").string();
    {
        std::ofstream f(huge);
        f << "<version>7.77\n<cieDiagramType>1\n";
        const std::string longLine = "<mainCurveName>" + std::string(10000, 'x') + "\n";
        for (std::size_t n = 0; n * longLine.size() < SETTINGS_MAX_FILE_BYTES; ++n) f << longLine;
    }
    for (const std::string& path : {legacy, noVersion, huge, (folder / "missing.vtd").string()}) {
        script.shown.clear();
        script.files.push_back(path);
        gui->onCmdOpenUserFile(nullptr, 0, nullptr);
        EXPECT_EQ(boxes(),
                  "User file error: The file could not be read - it may be from a version that "
                  "was too old\n")
            << path;
        EXPECT_EQ(gui->getSettings().getInt("cieDiagramType"), 3);
    }
    EXPECT_FALSE(gui->getRecentFileItem(0)->shown());
}

TEST_F(DesignFiles, AVanishedRecentFileCanBeRemovedFromTheList) {
    const std::string path = (folder / "gone").string();
    saveDesignAs(path);
    saveDesignAs((folder / "kept").string());
    ASSERT_TRUE(gui->getRecentFileItem(1)->shown());
    fs::remove(path + USER_DESIGNS_FILE_EXT);
    script.shown.clear();
    script.answers = {MBOX_CLICKED_OK, MBOX_CLICKED_YES};
    gui->onCmdOpenRecentFile(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_RECENT_FILE + 1), nullptr);
    EXPECT_EQ(boxes(),
              "User file error: The file was not found\n"
              "User file error: Do you want to remove this file name from the list?\n");
    EXPECT_TRUE(gui->getRecentFileItem(0)->shown());
    EXPECT_FALSE(gui->getRecentFileItem(1)->shown());
    gui->onCmdClearRecentProjectList(nullptr, 0, nullptr);
    EXPECT_FALSE(gui->getRecentFileItem(0)->shown());
}

TEST_F(DesignFiles, AFileThatCannotBeWrittenAsksForAnotherName) {
    fs::create_directories(folder / "taken.vtd");  // a folder stands where the file would go
    script.files = {(folder / "taken").string(), (folder / "design").string()};
    gui->onCmdWriteFile(nullptr, 0, nullptr);
    EXPECT_NE(boxes().find("File error: File \"" + (folder / "taken.vtd").string() +
                           "\" could not be written, try a different name."),
              std::string::npos)
        << boxes();
    EXPECT_TRUE(fs::is_directory(folder / "taken.vtd"));
    EXPECT_TRUE(fs::exists(folder / "design.vtd"));
}

}  // namespace
