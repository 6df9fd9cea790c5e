// The user libraries through the window: saving a spectrum, a filter and a colour, the rows
// they give, import and replace, and what a design and the command-line tool make of them.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "MainWindowFixture.h"
#include "ProcessSpectrometerFiles.h"
#include "SpectraEditorWindow.h"
#include "UserLibrary.h"

namespace fs = std::filesystem;

namespace {

enum Row { WHITE_4000 = 12 };

class UserLibraries : public MainWindow {
  protected:
    void save(int libraryType) {
        gui->onCmdAddToUserSpec(
            nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_SAVE_USER_DATA + libraryType), nullptr);
    }
    // A flat table of one value in the 360 to 830 nm table.
    void fillTable(const char* value) {
        Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
        for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 1, value);
    }
    int rowNamed(const std::string& name) {
        for (int i = 0; i < gui->getNumSpectra(); ++i)
            if (gui->getLedCheck(i)->getText() == name.c_str()) return i;
        return -1;
    }
    std::string fileText(const fs::path& path) {
        std::ifstream in(path, std::ios::binary);
        std::stringstream s;
        s << in.rdbuf();
        return s.str();
    }
};

TEST_F(UserLibraries, ASavedSpectrumBecomesARowThatMixesLikeTheOriginal) {
    chooseAnalysis(2);
    gui->getBlackBodyField()->setText("3000");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults());
    const std::string cct = result("CCT");
    const int before = gui->getNumSpectra();
    // An empty name is refused and the dialog comes back; then a name with "&" and an LPW.
    script.forms = {{"", ""}, {"Warm & cosy", "85.5"}};
    save(LIBRARY_SPECTRA);
    EXPECT_EQ(boxes(),
              "Save user data: |\nSpectrum name error: You must enter a name\n"
              "Save user data: |\n")
        << boxes();
    ASSERT_EQ(gui->getNumSpectra(), before + 1);
    const int row = before;
    EXPECT_EQ(std::string(gui->getLedCheck(row)->getText().text()), "Warm & cosy");
    EXPECT_EQ(gui->getLedField(row, ROW_LPW)->getText(), "85.5");
    EXPECT_NE(fileText(folder / "userSpectra.spec").find("Warm & cosy"), std::string::npos);

    // The row mixes by lumens like the black body it was made from.
    chooseAnalysis(0);
    gui->getLedCheck(row)->setCheck(TRUE);
    gui->getLedField(row, ROW_LUMENS)->setText("1000");
    script.shown.clear();
    gui->onCmdCalculate(nullptr, 0, nullptr);
    EXPECT_EQ(boxes(), "");
    EXPECT_EQ(result("Lumens"), "1000");
    EXPECT_EQ(result("CCT"), cct);
    EXPECT_EQ(result("LPW"), "85.5");

    // It is there after a restart.
    gui->onCmdQuit(nullptr, 0, nullptr);
    close();
    open();
    EXPECT_EQ(gui->getNumSpectra(), before + 1);
    EXPECT_EQ(std::string(gui->getLedCheck(row)->getText().text()), "Warm & cosy");
    EXPECT_TRUE(gui->getLedCheck(row)->getCheck());
}

TEST_F(UserLibraries, AFilterOfHalfTransmissionHalvesTheLumensOfAMix) {
    chooseAnalysis(4);  // filter input
    fillTable("0.5");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    script.forms = {{"Half ND"}};
    save(LIBRARY_FILTERS);
    EXPECT_EQ(boxes(), "Save user data: \n") << boxes();
    ASSERT_EQ(gui->getFilterSpectra().size(), 1u);
    EXPECT_DOUBLE_EQ(gui->getFilterSpectra()[0].spectrum[100], 0.5);

    chooseAnalysis(0);
    gui->getLedCheck(WHITE_4000)->setCheck(TRUE);
    gui->getLedField(WHITE_4000, ROW_LUMENS)->setText("1000");
    gui->getFilterCheck(0)->setCheck(TRUE);
    gui->onCmdCheckedFilter(nullptr, 0, nullptr);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults()) << boxes();
    EXPECT_EQ(result("Lumens"), "500");

    // The design keeps the filter check, and the command-line tool applies the same filter.
    const std::string design = (folder / "filtered").string();
    script.files.push_back(design);
    gui->onCmdWriteFile(nullptr, 0, nullptr);
    const auto row = cliRow("calc --folder " + folder.string() + " --design " + design + ".vtd");
    ASSERT_GT(row.size(), 140u);
    for (std::size_t i = 1; i < row.size(); ++i)
        EXPECT_EQ(result(row[i].first.c_str()), row[i].second) << row[i].first;
    gui->getFilterCheck(0)->setCheck(FALSE);
    ASSERT_TRUE(gui->openDesign(design + ".vtd"));
    EXPECT_TRUE(gui->getFilterCheck(0)->getCheck());
}

TEST_F(UserLibraries, AColourSavedFromASpectrumAboveOneIsWarnedOf) {
    // Colour input keeps values within 0 to 1 by itself; a spectrum table need not.
    chooseAnalysis(1);
    fillTable("0.4");
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    table->setItemText(10, 1, "1.5");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    script.shown.clear();
    script.forms = {{"Red tile"}};
    script.answers = {MBOX_CLICKED_NO};
    save(LIBRARY_COLORS);
    EXPECT_NE(boxes().find("Color data warning: Reflectance values for colors should range from 0 "
                           "to 1"),
              std::string::npos)
        << boxes();
    ASSERT_EQ(gui->getColorSpectra().size(), 1u);
    EXPECT_EQ(std::string(gui->getColorCheck(0)->getText().text()), "Red tile");
}

TEST_F(UserLibraries, StandardIlluminantsAreKeptUnderTheirNames) {
    gui->runStandardIlluminant(9);  // F2
    EXPECT_GE(rowNamed("Standard illuminant F2"), 0);
    EXPECT_EQ(boxes(), "");
}

TEST_F(UserLibraries, ImportAppendsAndABadReplacementRestoresTheOldLibrary) {
    chooseAnalysis(4);
    fillTable("0.25");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    script.forms = {{"Quarter"}};
    save(LIBRARY_FILTERS);
    const std::string kept = fileText(folder / "userFilters.fils");

    // A library file of two filters made elsewhere.
    const fs::path other = folder / "other.fils";
    {
        std::ofstream f(other);
        f << "1.15  // version\nGreen gel\n";
        for (int i = 0; i < 346; ++i) f << "5.000000e-01 ";
        f << "\nBlue gel\n";
        for (int i = 0; i < 346; ++i) f << "2.000000e-01 ";
        f << "\n";
    }
    script.files = {other.string()};
    gui->onCmdImportUserSpec(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_IMPORT_USER_DATA), nullptr);
    ASSERT_EQ(gui->getFilterSpectra().size(), 3u) << boxes();
    EXPECT_EQ(std::string(gui->getFilterCheck(2)->getText().text()), "Blue gel");

    // Replacing the library by a file that is no library keeps what the user had.
    const std::string before = fileText(folder / "userFilters.fils");
    const fs::path broken = folder / "broken.fils";
    std::ofstream(broken) << "1.15  // version\nCut short\n0.5 0.5 x\n";
    script.shown.clear();
    script.files = {broken.string()};
    gui->onCmdReplaceUserSpec(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_REPLACE_USER_DATA),
                              nullptr);
    EXPECT_NE(boxes().find("Filters file error: Could not read the file:"), std::string::npos)
        << boxes();
    EXPECT_EQ(fileText(folder / "userFilters.fils"), before);
    EXPECT_EQ(gui->getFilterSpectra().size(), 3u);
    EXPECT_NE(kept, before);

    // A good replacement takes over, and the old library waits in its backup.
    script.shown.clear();
    script.files = {other.string()};
    gui->onCmdReplaceUserSpec(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_REPLACE_USER_DATA),
                              nullptr);
    EXPECT_EQ(boxes(), "");
    EXPECT_EQ(gui->getFilterSpectra().size(), 2u);
    EXPECT_TRUE(fs::exists(folder / "userFilters_bck.fils"));
}

TEST_F(UserLibraries, ALibraryThatFailsToReadKeepsItsGoodSpectraAndSaysWhichFailed) {
    close();
    {
        std::ofstream f(folder / "userSpectra.spec");
        f << "1.15  // version\nGood one\n";
        f << "1.0e+02 1.0e+00 1.0e+00 0.0e+00 1.0e+00  // lumens, wattsVis, wattsVisIR, lpw, "
             "scaling factor\n";
        for (int i = 0; i < 236; ++i) f << "4.237288e-03 ";
        f << "\nBad one\nnot numbers\n";
    }
    const int standard = 14;
    open();
    EXPECT_EQ(boxes(),
              "User spectra file read error: An unknown error was encountered when "
              "reading in user spectrum #2\n");
    EXPECT_GE(gui->getNumSpectra(), standard);
    EXPECT_GE(rowNamed("Good one"), 0);
}

}  // namespace

namespace {

const std::string SPECTROMETER = std::string(LUMIVAR_TEST_DATA_DIR) + "/spectrometer/";

TEST_F(UserLibraries, SpectrometerFilesImportAsSpectraThatCalculateLikeTheTwoColumnFile) {
    // The same 4000 K spectrum as a two-column file, an SPDX file and a SpecWin ISD in mW/nm.
    const int before = gui->getNumSpectra();
    script.forms = {{"0"}, {"0"}};  // W/nm, asked once per import; an ISD file says its unit
    ASSERT_TRUE(gui->importFiles(LIBRARY_SPECTRA, ProcessSpectrometerFiles::TWO_COLUMNS_NM_FIRST,
                                 {SPECTROMETER + "planck4000.txt"}))
        << boxes();
    ASSERT_TRUE(gui->importFiles(LIBRARY_SPECTRA, ProcessSpectrometerFiles::SPDX,
                                 {SPECTROMETER + "planck4000.spdx"}))
        << boxes();
    ASSERT_TRUE(gui->importFiles(LIBRARY_SPECTRA, ProcessSpectrometerFiles::SPECWIN_ISD,
                                 {SPECTROMETER + "planck4000_specwin_mw.isd"}))
        << boxes();
    ASSERT_EQ(gui->getNumSpectra(), before + 3);
    EXPECT_EQ(std::string(gui->getLedCheck(before + 2)->getText().text()), "planck4000_specwin_mw");
    // After an import the last spectrum stands checked and calculated.
    EXPECT_TRUE(gui->getLedCheck(before + 2)->getCheck());
    const std::vector<ledTypeStruct>& spectra = gui->getModel().spectra();
    for (int k = 1; k < 3; ++k) {
        EXPECT_NEAR(spectra[before + k].lumens, spectra[before].lumens,
                    1e-3 * spectra[before].lumens);
        EXPECT_NEAR(spectra[before + k].spectrum[100], spectra[before].spectrum[100],
                    1e-3 * spectra[before].spectrum[100]);
    }
}

TEST_F(UserLibraries, AnImportNamesItsSpectraAndListsTheFilesItCouldNotRead) {
    const fs::path measured = folder / "Blue_3.2V_350mA.txt";
    fs::copy_file(SPECTROMETER + "planck4000_spectrasuite.txt", measured);
    const fs::path garbage = folder / "garbage.txt";
    std::ofstream(garbage) << "\x01\x02 nothing\n";
    script.forms = {{"0"}};
    gui->importFiles(LIBRARY_SPECTRA, ProcessSpectrometerFiles::SPECTRASUITE,
                     {measured.string(), garbage.string()});
    EXPECT_NE(boxes().find("File error: Some of the files could not be imported, their formatting "
                           "was not understood:\n\n" +
                           garbage.string()),
              std::string::npos)
        << boxes();
    // The drive in the name gives the LPW, and leaves the name.
    const int row = rowNamed("Blue_^^");
    ASSERT_GE(row, 0);
    const ledTypeStruct& s = gui->getModel().spectra()[row];
    EXPECT_NEAR(s.lpw, s.lumens / (3.2 * 0.35), 1e-6 * s.lpw);

    // Several spectra in one file take their column titles, or the file's name with them.
    script.forms = {{"0"}};
    gui->importFiles(LIBRARY_SPECTRA, ProcessSpectrometerFiles::SP,
                     {SPECTROMETER + "planck4000_two_sets.sp"});
    EXPECT_GE(rowNamed("planck4000_two_sets (#2)"), 0);
}

TEST_F(UserLibraries, FiltersInPercentReadAsFractionsAreWarnedOfOnce) {
    const fs::path percent = folder / "gel.txt";
    {
        std::ofstream f(percent);
        for (int nm = 360; nm <= 830; nm += 10) f << nm << "\t" << 50 << "\n";
    }
    gui->importFiles(LIBRARY_FILTERS, ProcessSpectrometerFiles::TWO_COLUMNS_NM_FIRST,
                     {percent.string()});
    EXPECT_NE(boxes().find("Units Warning: The transmission should be in the range of 0 - 1 but a "
                           "maximum\nvalue greater than 1"),
              std::string::npos)
        << boxes();
    ASSERT_EQ(gui->getFilterSpectra().size(), 1u);
    EXPECT_EQ(std::string(gui->getFilterCheck(0)->getText().text()), "gel");
}

}  // namespace

namespace {

TEST_F(UserLibraries, TheEditorReordersRenamesAndSavesTheLibraryAndTheRowsFollow) {
    for (const char* name : {"Alpha", "Beta", "Gamma"}) {
        chooseAnalysis(2);
        gui->getBlackBodyField()->setText("3000");
        gui->onCmdCalculate(nullptr, 0, nullptr);
        script.forms = {{name, "90"}};
        save(LIBRARY_SPECTRA);
    }
    const int first = gui->getNumSpectra() - 3;
    gui->getLedCheck(first + 2)->setCheck(TRUE);  // user rows are rebuilt; this check goes
    script.shown.clear();
    gui->editLibrary(LIBRARY_SPECTRA, [&](SpectraEditorWindow& w) {
        w.selectItems({2});
        w.onCmdUp(nullptr, 0, nullptr);        // Alpha, Gamma, Beta
        script.forms = {{""}, {"Gamma ray"}};  // an empty name is refused first
        w.onCmdRename(nullptr, 0, nullptr);
        w.selectItems({0});
        script.forms = {{"Lumens 200"}};
        w.onCmdScale(nullptr, 0, nullptr);
        // Export with nothing selected is refused; then the chosen items in columns.
        w.selectItems({});
        w.onCmdExport(nullptr, FXSEL(SEL_COMMAND, SpectraEditorWindow::ID_EXPORT), nullptr);
        w.selectItems({1, 2});
        w.getColumnsCheck()->setCheck(TRUE);
        script.files = {(folder / "two").string()};
        w.onCmdExport(nullptr, FXSEL(SEL_COMMAND, SpectraEditorWindow::ID_EXPORT), nullptr);
        w.onCmdSave(nullptr, 0, nullptr);
    });
    EXPECT_NE(boxes().find("Spectrum name error: You must enter a name"), std::string::npos)
        << boxes();
    EXPECT_NE(boxes().find("Selection error: You must select at least 1 item to export."),
              std::string::npos);
    EXPECT_EQ(std::string(gui->getLedCheck(first + 1)->getText().text()), "Gamma ray");
    EXPECT_EQ(std::string(gui->getLedCheck(first + 2)->getText().text()), "Beta");
    EXPECT_NEAR(gui->getModel().spectra()[first].lumens, 200, 1e-9);
    std::ifstream table(folder / "two.xls");
    std::string header;
    std::getline(table, header);
    EXPECT_EQ(header, "nm\tGamma ray\tBeta\t");

    // Cancel changes nothing.
    gui->editLibrary(LIBRARY_SPECTRA, [&](SpectraEditorWindow& w) {
        w.selectItems({0, 1, 2});
        w.onCmdDelete(nullptr, 0, nullptr);
    });
    EXPECT_EQ(std::string(gui->getLedCheck(first)->getText().text()), "Alpha");
}

}  // namespace
