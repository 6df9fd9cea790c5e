// The photometry files a Calculate leaves, the "Order Output" dialog, and the update check of
// the Help menu and the start-up timers against a server on this machine.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <ctime>
#include <fstream>
#include <sstream>

#include "AppConstants.h"
#include "MainWindowFixture.h"
#include "ReadWriteUserSpectra.h"
#include "SetOutputOrderForExcelFile.h"
#include "TestFiles.h"
#include "TestSpectra.h"
#include "support/LocalHttpServer.h"

namespace {

using testutil::lines;
using testutil::readAll;

std::string warmWhite() { return testutil::warmWhiteTableText(); }

// Runs the test in the window's folder, where the order file lives, and goes back after.
class Photometry : public MainWindow {
  protected:
    void SetUp() override {
        char here[4096];
        ASSERT_NE(::getcwd(here, sizeof here), nullptr);
        previous = here;
        MainWindow::SetUp();
        ASSERT_EQ(::chdir(folder.c_str()), 0);
        chooseRange(RANGE_360_830_2NM);
        paste(RANGE_360_830_2NM, warmWhite());
    }
    void TearDown() override {
        ASSERT_EQ(::chdir(previous.c_str()), 0);
        MainWindow::TearDown();
    }
    void calculate() { gui->onCmdCalculate(nullptr, 0, nullptr); }
    std::vector<std::string> tabLines() { return lines(readAll(gui->photometryTabPath())); }
    std::string previous;
};
}  // namespace

TEST_F(Photometry, TwoCalculatesWriteOneHeaderAndTwoDataLines) {
    calculate();
    calculate();
    ASSERT_TRUE(script.shown.empty()) << boxes();
    const std::vector<std::string> tab = tabLines();
    ASSERT_EQ(tab.size(), 3u);
    EXPECT_EQ(tab[0].rfind("Spectra/Filename\tLumens\t", 0), 0u);
    EXPECT_EQ(tab[1], tab[2]);
    EXPECT_EQ(tab[1].rfind("Direct spectrum input\t" + result("Lumens") + "\t", 0), 0u);
    const std::string text = readAll(gui->photometryTextPath());
    EXPECT_EQ(text.rfind("Direct spectrum input\nlumens = " + result("Lumens"), 0), 0u);
    EXPECT_EQ(lines(text).size() % 2, 0u) << "two equal blocks";

    // Off: nothing more is written.
    gui->getSettings().setBool("writeDataMenuItem", false);
    calculate();
    EXPECT_EQ(tabLines().size(), 3u);
}

TEST_F(Photometry, TheOrderDialogChangesTheHeaderAndIsKeptInTheOrderFile) {
    calculate();
    script.forms.push_back({"CCT\nx\ny\nR1 - 15"});
    gui->onCmdSetOrderExcel(nullptr, 0, nullptr);
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "Order Output");
    calculate();
    const std::vector<std::string> tab = tabLines();
    ASSERT_EQ(tab.size(), 4u);
    EXPECT_EQ(tab[2],
              "Spectra/Filename\tCCT\tx\ty\tR1\tR2\tR3\tR4\tR5\tR6\tR7\tR8\tR9\tR10\tR11\t"
              "R12\tR13\tR14\tR15");
    EXPECT_EQ(
        tab[3].rfind("Direct spectrum input\t" + result("CCT") + "\t" + result("x") + "\t", 0), 0u);
    // A new window reads the order from the working directory.
    ASSERT_TRUE(std::filesystem::exists(folder / OUTPUT_ORDER_FILE_NAME));
    close();
    open();
    EXPECT_FALSE(gui->getOutputFields()[0].selected);
    EXPECT_EQ(gui->getOutputOrder()[0], 2);
}

TEST_F(Photometry, RemoveAllThenSaveIsRefused) {
    SetOutputOrderForExcelFile dialog(gui);
    dialog.setData(gui->getOutputFields(), gui->getOutputOrder(), false);
    EXPECT_EQ(dialog.getOutputList()->getNumItems(), 151 - 2 * 15 - 3 * 16 + 5);
    dialog.onCmdRemoveAll(nullptr, 0, nullptr);
    dialog.onCmdOK(nullptr, 0, nullptr);
    EXPECT_FALSE(dialog.wasAccepted());
    EXPECT_EQ(boxes(),
              "Output Order: You must select at least 1 variable to output.\nYou can prevent the "
              "creation of the Excel file in the menu of the main window.\n");
    // The scripted form of the same: nothing changes and no file is written.
    script.forms.push_back({""});
    gui->onCmdSetOrderExcel(nullptr, 0, nullptr);
    EXPECT_TRUE(gui->getOutputFields()[0].selected);
    EXPECT_FALSE(std::filesystem::exists(folder / OUTPUT_ORDER_FILE_NAME));

    // Move Up keeps the moved entry current.
    dialog.onCmdAddAll(nullptr, 0, nullptr);
    dialog.getOutputList()->setCurrentItem(2);
    dialog.onCmdMoveUp(nullptr, 0, nullptr);
    EXPECT_EQ(dialog.outputNames()[1], "CCT");
    EXPECT_EQ(dialog.getOutputList()->getCurrentItem(), 1);
}

TEST_F(Photometry, TheToolAndTheWindowWriteTheSameLines) {
    const std::string file = (folder / "warm.txt").string();
    std::ofstream(file) << warmWhite();
    calculate();
    const std::filesystem::path cliDir = folder / "cli";
    std::filesystem::create_directories(cliDir);
    cliRow("calc --photometry " + cliDir.string() + " " + file);
    const std::vector<std::string> window = tabLines();
    const std::vector<std::string> tool = lines(readAll(cliDir / "photometry.xls"));
    ASSERT_EQ(window.size(), 2u);
    ASSERT_EQ(tool.size(), 2u);
    EXPECT_EQ(tool[0], window[0]);
    // Apart from the run's name, byte for byte.
    EXPECT_EQ(tool[1].substr(tool[1].find('\t')), window[1].substr(window[1].find('\t')));
    EXPECT_EQ(tool[1].substr(0, tool[1].find('\t')), file);
    const std::string windowText = readAll(gui->photometryTextPath());
    const std::string toolText = readAll(cliDir / PHOTOMETRY_FILE_NAME);
    EXPECT_EQ(toolText.substr(toolText.find("lumens = ")),
              windowText.substr(windowText.find("lumens = ")));
}

TEST_F(Photometry, AnUnwritableFolderGivesTheWriteErrorOnceAndKeepsTheResults) {
    gui->setPhotometryFolder((folder / "no" / "such" / "folder").string());
    calculate();
    calculate();
    EXPECT_EQ(boxes(), "Write error: Cannot open file \"" + gui->photometryTextPath() +
                           "\" for writting, it may be open in Excel.\n");
    EXPECT_TRUE(gui->hasResults());
    EXPECT_FALSE(result("CCT").empty());
}

TEST_F(MainWindow, TheUpdateCheckOfTheMenuShowsEachStatus) {
    const struct {
        std::string reply;
        std::string box;
    } cases[] = {
        {LocalHttpServer::answer("200 OK", "7.78"),
         "Check for update: A new version (v7.78) is available.\n\nClick \"OK\" to go to the "
         "download site.\n"},
        {LocalHttpServer::answer("200 OK", ""),
         "Check for update: You have the current version.\n"},
        {LocalHttpServer::answer("404 Not Found", ""),
         "Check for update: Read error (3) checking for update.\n"},
    };
    for (const auto& c : cases) {
        LocalHttpServer server(c.reply);
        gui->getSettings().setString("updateCheckHost", "127.0.0.1");
        gui->getSettings().setInt("updateCheckPort", server.getPort());
        script.shown.clear();
        script.answers.push_back(MBOX_CLICKED_CANCEL);  // no browser from a test
        gui->onCmdCheckForUpdates(nullptr, 0, nullptr);
        EXPECT_EQ(boxes(), c.box);
    }
}

TEST_F(MainWindow, TheSevenDayTimerChecksOnlyOnceTheWeekIsOver) {
    LocalHttpServer server(LocalHttpServer::answer("200 OK", "7.77"));
    ProgramSettings& settings = gui->getSettings();
    settings.setString("updateCheckHost", "127.0.0.1");
    settings.setInt("updateCheckPort", server.getPort());
    const unsigned long long now = 2000000000ULL;
    const unsigned long long week = 7ULL * 86400ULL;
    settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970", now - week + 1);
    EXPECT_FALSE(gui->checkForUpdatesEveryXDays(7, now));
    EXPECT_EQ(server.lastRequest(), "");
    EXPECT_EQ(settings.getUInt64("lastTimeUpdatesChecked_secondsSince1970"), now - week + 1);

    settings.setUInt64("lastTimeUpdatesChecked_secondsSince1970", now - week - 1);
    EXPECT_TRUE(gui->checkForUpdatesEveryXDays(7, now));
    EXPECT_NE(server.lastRequest(), "");
    EXPECT_EQ(settings.getUInt64("lastTimeUpdatesChecked_secondsSince1970"), now);
    EXPECT_TRUE(script.shown.empty()) << "the start-up check is quiet about the current version";
}

TEST_F(Photometry, TheUvExportEndsWithTheCheckedUserColours) {
    // A perfect white reflector as the one user colour: under the light it has the light's own
    // u'v', the ones the result fields show.
    close();
    std::vector<ledTypeStruct> white(1);
    std::snprintf(white[0].name, sizeof white[0].name, "%s", "White tile");
    std::fill(std::begin(white[0].spectrum), std::end(white[0].spectrum), 1.0);
    const ReadWriteUserSpectra written(1, nullptr, white.data(), "w",
                                       (folder / "userColors.cols").string(), LIBRARY_COLORS,
                                       false);
    ASSERT_FALSE(written.getError()) << written.getErrorMessage();
    open();
    chooseAnalysis(1);
    chooseRange(RANGE_360_830_2NM);
    paste(RANGE_360_830_2NM, warmWhite());
    gui->getColorCheck(0)->setCheck(TRUE);
    gui->getSettings().setBool("writeColors_upvp_ExcelMenuItem", true);
    calculate();
    const std::vector<std::string> uv = lines(readAll(folder / CRI_CQS_UPVP_FILENAME));
    ASSERT_EQ(uv.size(), 32u);
    std::istringstream row(uv[31]);
    std::string name;
    double up, vp, upRef, vpRef;
    std::getline(row, name, '\t');
    ASSERT_TRUE(row >> up >> vp >> upRef >> vpRef) << uv[31];
    EXPECT_EQ(name, "White tile");
    EXPECT_NEAR(up, std::stod(result("u'")), 1.5e-4);
    EXPECT_NEAR(vp, std::stod(result("v'")), 1.5e-4);
    // The reference of a light near the locus lies close to it, but on the locus.
    EXPECT_NEAR(upRef, up, 0.01);
    EXPECT_NEAR(vpRef, vp, 0.01);
}

TEST_F(Photometry, TheUvExportAndTheUsageRecordAreWrittenOnlyWhenAskedFor) {
    calculate();
    EXPECT_FALSE(std::filesystem::exists(folder / CRI_CQS_UPVP_FILENAME));
    gui->getSettings().setBool("writeColors_upvp_ExcelMenuItem", true);
    calculate();
    const std::vector<std::string> uv = lines(readAll(folder / CRI_CQS_UPVP_FILENAME));
    ASSERT_EQ(uv.size(), 31u);
    EXPECT_EQ(uv[0], "Color\tu'(test)\tv' (test)\tu' (ref)\tv' (ref)\tDirect spectrum input");
    EXPECT_EQ(uv[1].rfind("R1\t0.", 0), 0u);
    EXPECT_NE(uv[1].find("\t7.5 R 6/4 light grayish red"), std::string::npos);
    EXPECT_EQ(uv[30].rfind("Q15\t", 0), 0u);

    // The usage record: off by default, one line per quit once a folder is set.
    gui->writeToLogfile();
    EXPECT_FALSE(std::filesystem::exists(folder / "vt_logfile.txt"));
    gui->getSettings().setString("usageLogFolder", folder.string());
    gui->writeToLogfile();
    const std::vector<std::string> record = lines(readAll(folder / "vt_logfile.txt"));
    ASSERT_EQ(record.size(), 1u);
    EXPECT_NE(record[0].find("\tv7.77\t"), std::string::npos);
    // Two Calculates of direct input so far, in the counter of analysis type 1.
    EXPECT_NE(record[0].find("\tv7.77\t0\t2\t0\t"), std::string::npos);
}

TEST_F(MainWindow, ASilentServerGivesTheConnectionErrorBox) {
    LocalHttpServer server("", true);
    gui->getSettings().setString("updateCheckHost", "127.0.0.1");
    gui->getSettings().setInt("updateCheckPort", server.getPort());
    gui->getSettings().setInt("updateCheckTimeLimitMs", 300);
    const auto start = std::chrono::steady_clock::now();
    gui->onCmdCheckForUpdates(nullptr, 0, nullptr);
    const double seconds =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("update check on a silent server: %.2f s (limit 0.3 s)\n", seconds);
    EXPECT_EQ(boxes(),
              "Check for update: Connection error (2) checking for update.\n\nThis may not work "
              "over a VPN connection.\n");
    EXPECT_EQ(gui->getSettings().getUInt64("lastTimeUpdatesChecked_secondsSince1970"), 0u);
}

TEST_F(MainWindow, SettingsFromBeforeTheStartUpCheckAskForIt) {
    close();
    const std::string ini = (folder / "Lumivar.ini").string();
    std::ofstream(ini) << "<version>6.90\n<checkForUpdatesEvery7Days_Menu>0\n";
    script.answers.push_back(MBOX_CLICKED_YES);
    open();
    EXPECT_EQ(boxes(),
              "Check for updates: Do you want to be notified when an update is available?\n\nYou "
              "can reset this under the \"Help\" menu item\n");
    EXPECT_TRUE(gui->getSettings().getBool("checkForUpdatesEvery30Days_Menu"));
    EXPECT_TRUE(static_cast<FXMenuCheck*>(gui->getOptionWidget("checkForUpdatesEvery30Days_Menu"))
                    ->getCheck());
    // Saved with this version, the question is not asked again.
    gui->saveSettings();
    close();
    script.shown.clear();
    open();
    EXPECT_EQ(boxes(), "");
}
