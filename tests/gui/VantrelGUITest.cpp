// The main window driven as the user drives it: a spectrum pasted into an input table goes
// through Calculate; bad tables are refused without losing what was typed; settings survive a
// restart.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

#include "CellColors.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "GuiTestApp.h"
#include "MainWindowFixture.h"
#include "UserDialogs.h"
#include "VantrelGUI.h"

namespace fs = std::filesystem;

namespace {

const std::string F2_FILE =
    std::string(LUMIVAR_TEST_DATA_DIR) + "/cie_illuminants/cie_F2_5nm_360_830.txt";

// The table text of a two-column data file: "nm\tvalue\n" per row, comments dropped.
std::string tableTextOf(const std::string& path) {
    std::ifstream in(path);
    std::string line, text;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        text += line + "\n";
    }
    return text;
}

// One column of lumivar-cli's output for a file, by its header name.
std::string cliValue(const std::string& file, const std::string& column) {
    const std::string command = std::string(LUMIVAR_CLI_PATH) + " calc " + file;
    FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) return "";
    std::string output;
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, pipe) != nullptr) output += buffer;
    pclose(pipe);
    std::istringstream lines(output);
    std::string header, values;
    std::getline(lines, header);
    std::getline(lines, values);
    std::istringstream h(header), v(values);
    std::string name, value;
    while (std::getline(h, name, '\t') && std::getline(v, value, '\t')) {
        if (name == column) return value;
    }
    return "";
}

}  // namespace

TEST_F(MainWindow, FluorescentF2PastedAt5nmGivesPublishedChromaticityAndTheCliValues) {
    chooseRange(RANGE_360_830_5NM);
    paste(RANGE_360_830_5NM, tableTextOf(F2_FILE));
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(script.shown.empty()) << script.shown[0].text;
    ASSERT_TRUE(gui->hasResults());

    // CIE 15 gives x 0.3721, y 0.3751 and 4230 K for F2; the table's 4-digit values and the
    // 2 nm resampling move them by less than these.
    EXPECT_NEAR(std::stod(result("x")), 0.3721, 0.001);
    EXPECT_NEAR(std::stod(result("y")), 0.3751, 0.001);
    EXPECT_NEAR(std::stod(result("CCT")), 4230.0, 10.0);
    // The command-line tool reads the same file to the same numbers.
    EXPECT_EQ(result("Lumens"), cliValue(F2_FILE, "Lumens"));
    EXPECT_EQ(result("x"), cliValue(F2_FILE, "x"));
    EXPECT_EQ(result("CCT"), cliValue(F2_FILE, "CCT"));
    // Visible watts show in milliwatts by default; the tool prints watts.
    EXPECT_NEAR(std::stod(result("Vis watt")), 1000.0 * std::stod(cliValue(F2_FILE, "Vis watt")),
                1000.0);
    // Switched to watts and six decimals, the shown results follow at once.
    auto* wattsUnits = static_cast<FXMenuRadio*>(gui->getOptionWidget("inputWattsUnits", 1));
    gui->onCmdOptionRadio(wattsUnits, 0, nullptr);
    EXPECT_EQ(result("Vis watt"), cliValue(F2_FILE, "Vis watt"));
    gui->onCmdOptionRadio(gui->getOptionWidget("numDecimalsFor_xyDuv_etc", 6), 0, nullptr);
    EXPECT_EQ(result("x").size(), 8u) << result("x");

    Table_zwk7* display = gui->getDisplayTable();
    ASSERT_EQ(display->getNumRows(), 236);
    const std::regex scientific(R"(\d\.\d{3}e[+-]\d{2})");
    for (int i = 0; i < display->getNumRows(); ++i) {
        ASSERT_TRUE(std::regex_match(display->getItemText(i, 1).text(), scientific))
            << "row " << i << ": " << display->getItemText(i, 1).text();
    }
    EXPECT_EQ(display->getItemText(235, 0), FXString("830"));
}

TEST_F(MainWindow, AnEmptyTableOrLettersAreRefusedAndTheTextStays) {
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "Data error");
    EXPECT_EQ(script.shown[0].text, "You must enter spectral data.");
    EXPECT_FALSE(gui->hasResults());

    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    for (int i = 0; i < table->getNumRows(); ++i) table->setItemText(i, 1, "0.5");
    table->setItemText(7, 1, "0.5abc");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_EQ(script.shown.size(), 2u);
    EXPECT_EQ(script.shown[1].title, "Data error");
    EXPECT_EQ(script.shown[1].text, "Some of your data is out of range, check the data in row #8.");
    EXPECT_EQ(table->getItemText(7, 1), FXString("0.5abc"));
    EXPECT_FALSE(gui->hasResults());
    // The refused cell turns red on screen (FOX keeps colours as 0xAABBGGRR).
    FXColor color = 0;
    ASSERT_TRUE(getCellBackColor(table, 7, 1, &color));
    EXPECT_EQ(FXREDVAL(color), 255u);
    EXPECT_EQ(FXGREENVAL(color), 0u);
    EXPECT_EQ(FXBLUEVAL(color), 0u);

    // Corrected, the same table calculates.
    table->setItemText(7, 1, "0.5");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    EXPECT_EQ(script.shown.size(), 2u);
    EXPECT_TRUE(gui->hasResults());
    EXPECT_FALSE(result("Lumens").empty());
    EXPECT_FALSE(getCellBackColor(table, 7, 1, &color));  // the red goes with the fault
}

TEST_F(MainWindow, QuitWritesTheSettingsAndTheNextStartRestoresThem) {
    gui->position(60, 70, 1234, 765);
    chooseRange(RANGE_380_830_5NM);
    auto* sixDecimals =
        static_cast<FXMenuRadio*>(gui->getOptionWidget("numDecimalsFor_xyDuv_etc", 6));
    ASSERT_NE(sixDecimals, nullptr);
    sixDecimals->setCheck(TRUE);
    gui->onCmdOptionRadio(sixDecimals, 0, nullptr);
    auto* sticky = static_cast<FXMenuCheck*>(gui->getOptionWidget("enableStickyMenuItem"));
    sticky->setCheck(TRUE);
    gui->onCmdOptionCheck(sticky, 0, nullptr);
    gui->getSettings().setInt("TM30ReportScaleFactor", 3);  // an option of a later window
    gui->onCmdQuit(nullptr, 0, nullptr);
    ASSERT_TRUE(fs::exists(folder / "Lumivar.ini"));
    std::ifstream ini(folder / "Lumivar.ini");
    std::string first;
    std::getline(ini, first);
    EXPECT_EQ(first, "<version>7.77");

    close();
    open();
    gui->onCmdMainWindowPosition(nullptr, 0, nullptr);
    EXPECT_EQ(gui->getWidth(), 1234);
    EXPECT_EQ(gui->getHeight(), 765);
    EXPECT_TRUE(gui->getRangeRadio(RANGE_380_830_5NM)->getCheck());
    EXPECT_FALSE(gui->getRangeRadio(RANGE_360_830_2NM)->getCheck());
    EXPECT_EQ(gui->getShownTable(), gui->getInputTable(RANGE_380_830_5NM));
    EXPECT_TRUE(
        static_cast<FXMenuRadio*>(gui->getOptionWidget("numDecimalsFor_xyDuv_etc", 6))->getCheck());
    EXPECT_TRUE(
        static_cast<FXMenuCheck*>(gui->getOptionWidget("enableStickyMenuItem"))->getCheck());
    EXPECT_EQ(gui->getSettings().getInt("TM30ReportScaleFactor"), 3);
    EXPECT_TRUE(script.shown.empty());
}

TEST_F(MainWindow, AnUnreadableSettingsFileLeavesTheDefaults) {
    close();
    {
        std::ofstream bad(folder / "Lumivar.ini");
        bad << "\x01\x02 not a settings file\n";
    }
    open();
    EXPECT_TRUE(gui->getRangeRadio(RANGE_360_830_2NM)->getCheck());
    EXPECT_EQ(gui->getSettings().getInt("numDecimalsFor_xyDuv_etc"), 4);
    EXPECT_TRUE(script.shown.empty());
}

TEST_F(MainWindow, TheWindowTitleAndTheChosenFolder) {
    EXPECT_EQ(gui->getTitle(), FXString("Lumivar v7.77"));
    EXPECT_EQ(gui->getPaths().programDir, folder.string() + "/");
    EXPECT_EQ(gui->getPaths().settingsFile, folder.string() + "/Lumivar.ini");
}
