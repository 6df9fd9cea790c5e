// The shared toolbox: settings values, names, numbers, sorting, files and the save-as loop.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "GuiTestWindow.h"
#include "UserDialogs.h"
#include "Utilities_zwk7.h"

namespace {
using U = Utilities_zwk7;

// A scratch folder of its own for each test that writes files.
struct ScratchDir {
    FXString path;
    ScratchDir() {
        char pattern[] = "/tmp/lumivar_utilXXXXXX";
        path = mkdtemp(pattern);
    }
    ~ScratchDir() { FXFile::removeFiles(path, true); }
    FXString file(const char* name) const { return path + "/" + name; }
};

std::string readAll(const FXString& path) {
    std::ifstream in(path.text());
    std::stringstream s;
    s << in.rdbuf();
    return s.str();
}

// Answers the dialogs of one test and forgets the script afterwards.
struct ScriptedDialogs {
    UserDialogs::Script script;
    ScriptedDialogs() { UserDialogs::setScript(&script); }
    ~ScriptedDialogs() { UserDialogs::setScript(nullptr); }
};
}  // namespace

TEST(Utilities, FileNamesWithReservedCharactersOrOnlyBlanksAreIllegal) {
    const struct {
        const char* name;
        bool legal;
    } cases[] = {{"a|b", false},         {"  ", false},  {"", false},
                 {"a b", true},          {"a:b", false}, {"a\"b", false},
                 {"spectrum.txt", true}, {"x\ty", false}};
    for (const auto& c : cases) EXPECT_EQ(U::isFilenameLegal(c.name), c.legal) << c.name;
    EXPECT_FALSE(U::isItemNameLegal("LED\tA"));
    EXPECT_FALSE(U::isItemNameLegal("LED\nA"));
    EXPECT_FALSE(U::isItemNameLegal(" "));
    EXPECT_TRUE(U::isItemNameLegal("LED: A/B"));  // only file names forbid these
}

TEST(Utilities, NamesMatchWithoutCaseAndBlanksUnlessExact) {
    EXPECT_TRUE(U::doNamesMatch("Red  LED ", "red led", false));
    EXPECT_FALSE(U::doNamesMatch("Red  LED ", "red led", true));
    EXPECT_FALSE(U::doNamesMatch("Red LED 2", "red led", false));
    // A spreadsheet marks a text cell with a leading apostrophe.
    EXPECT_TRUE(U::doExcelNamesMatch("'Red LED", "red led", false));
    EXPECT_TRUE(U::doExcelNamesMatch("Red LED", "'RED LED", false));
    EXPECT_FALSE(U::doExcelNamesMatch("'Red LED", "Red LED", true));
}

TEST(Utilities, SettingsTagsGiveTheNumberAfterTheLastUnderscore) {
    EXPECT_EQ(U::getIndexFromKeyStr("<x_7>"), 7);
    EXPECT_EQ(U::getIndexFromKeyStr("<lumens_360_830nm_TF_12>"), 12);
    EXPECT_EQ(U::getIndexFromKeyStr("<x_ 3 >"), 3);
    EXPECT_EQ(U::cleanString(">5000</", '<'), FXString("5000"));
    EXPECT_EQ(U::cleanString(">  Red LED  <", '<'), FXString("Red LED"));
}

TEST(Utilities, ValueGroupsOfSettingsLines) {
    int a = 0, b = 0, c = 0, d = 0;
    bool flag = true;
    EXPECT_TRUE(U::get2Values("3 1", &a, &flag));
    EXPECT_TRUE(flag);
    EXPECT_TRUE(U::get2Values("3 2", &a, &flag));
    EXPECT_FALSE(flag);  // only exactly 1 is on
    double v = 0;
    EXPECT_TRUE(U::get2Values("4 2.5e-3", &a, &v));
    EXPECT_DOUBLE_EQ(v, 2.5e-3);
    FXString name;
    EXPECT_TRUE(U::get2Values("12   Red LED A  ", &a, &name));
    EXPECT_EQ(a, 12);
    EXPECT_EQ(name, FXString("Red LED A"));
    EXPECT_TRUE(U::get3Values("1 -2 Deep red", &a, &b, &name));
    EXPECT_EQ(b, -2);
    EXPECT_EQ(name, FXString("Deep red"));
    EXPECT_TRUE(U::get4Values("1 2 3 4", &a, &b, &c, &d));
    EXPECT_EQ(d, 4);
    EXPECT_FALSE(U::get4Values("1 2 3", &a, &b, &c, &d));
    EXPECT_FALSE(U::get2Values("x 1", &a, &b));
}

TEST(Utilities, RoundingKeepsItsHalfStepAndWorksForNegatives) {
    EXPECT_DOUBLE_EQ(U::roundToDecimals(1, 1.24), 1.25);
    EXPECT_DOUBLE_EQ(U::roundToDecimals(1, -1.24), -1.25);
    EXPECT_DOUBLE_EQ(U::roundToDecimals(-1, 1.24), 1.24);
    EXPECT_EQ(U::round(-2.5), -3);
    EXPECT_EQ(U::round(2.5), 3);
    EXPECT_EQ(U::getValueAsString(12.345), FXString("12.3"));
}

TEST(Utilities, NumberTextsAreAcceptedOrRejected) {
    const struct {
        const char* text;
        bool valid;
    } cases[] = {
        {"1", true},      {" 1.5 ", true},  {"1,5", true},    {"-0.5", true},  {"+2", true},
        {".5", true},     {"5.", true},     {"1e-6", true},   {"1E+06", true}, {"-1.5e3", true},
        {"", false},      {".", false},     {"-", false},     {"1.", true},    {"1.2.3", false},
        {"1,2.3", false}, {"1e5e", false},  {"e5", false},    {"5e", false},   {"1e", false},
        {"1-2", false},   {"1e5.5", false}, {"1e+", false},   {"--1", false},  {"1x", false},
        {"1 000", false}, {"-e5", false},   {"1e--5", false},
    };
    for (const auto& c : cases) EXPECT_EQ(U::isValidDouble(c.text), c.valid) << c.text;
}

TEST(Utilities, ExtremesReportTheirFirstPlace) {
    const double values[] = {3.0, -1.0, 7.0, -1.0, 7.0};
    int index = -5;
    EXPECT_DOUBLE_EQ(U::min_d(5, values, &index), -1.0);
    EXPECT_EQ(index, 1);
    EXPECT_DOUBLE_EQ(U::max_d(5, values, &index), 7.0);
    EXPECT_EQ(index, 2);
    EXPECT_DOUBLE_EQ(U::max_d(0, values, &index), 0.0);
    EXPECT_EQ(index, -1);
}

TEST(Utilities, SpreadsheetColumnLetters) {
    const struct {
        int column;
        const char* letters;
    } cases[] = {{0, "A"}, {25, "Z"}, {26, "AA"}, {27, "AB"}, {701, "ZZ"}, {702, "AAA"}, {-1, ""}};
    for (const auto& c : cases) EXPECT_EQ(U::excelColumnNames(c.column), FXString(c.letters));
}

TEST(Utilities, BubbleSortCarriesCompanionsAndKeepsItsLiteralSignTest) {
    int keys[] = {5, -2, 9, 0, 3};
    int ids[] = {0, 1, 2, 3, 4};
    U::bubbleSort(keys, ids, 5);
    const int sortedKeys[] = {-2, 0, 3, 5, 9}, sortedIds[] = {1, 3, 4, 0, 2};
    for (int k = 0; k < 5; ++k) {
        EXPECT_EQ(keys[k], sortedKeys[k]);
        EXPECT_EQ(ids[k], sortedIds[k]);
    }
    // Descending swaps when -keys[j+1] < keys[j]: positive keys are reversed as they come...
    int positive[] = {1, 4, 2, 8};
    int tags[] = {10, 40, 20, 80};
    U::bubbleSort(false, positive, tags, 4);
    const int reversed[] = {8, 2, 4, 1};
    for (int k = 0; k < 4; ++k) {
        EXPECT_EQ(positive[k], reversed[k]);
        EXPECT_EQ(tags[k], reversed[k] * 10);
    }
    // ...and negative keys never move.
    int negative[] = {-1, -5, -3};
    U::bubbleSort(false, negative, nullptr, 3);
    EXPECT_EQ(negative[0], -1);
    EXPECT_EQ(negative[1], -5);
    EXPECT_EQ(negative[2], -3);
}

TEST(Utilities, TableDumpHasTitlesOnOneLineAndTabSeparatedCells) {
    FXTable* table = new FXTable(guiTestWindow());
    table->create();
    table->setTableSize(2, 2);
    table->setColumnText(0, "Wavelength\n(nm)");
    table->setColumnText(1, "Spectrum\t(W/nm)");
    table->setItemText(0, 0, "360");
    table->setItemText(0, 1, "1.500e+00");
    table->setItemText(1, 0, "362");
    ScratchDir dir;
    ASSERT_TRUE(U::writeTableToFile(dir.file("table.txt"), table));
    EXPECT_EQ(readAll(dir.file("table.txt")),
              "Wavelength (nm)\tSpectrum (W/nm)\n360\t1.500e+00\n362\t\n");
    EXPECT_FALSE(U::writeTableToFile(dir.file("missing/table.txt"), table));
    delete table;
}

TEST(Utilities, SavedImageReadsBackWithItsColours) {
    FXApp* app = guiTestApp();
    const int w = 4, h = 3;
    FXColor* pixels = nullptr;
    FXMALLOC(&pixels, FXColor, w * h);
    for (int k = 0; k < w * h; ++k) pixels[k] = k < w ? FXRGB(255, 0, 0) : FXRGB(0, 0, 255);
    FXImage source(app, pixels, IMAGE_OWNED | IMAGE_KEEP, w, h);
    source.create();
    ScratchDir dir;
    ASSERT_TRUE(U::saveImageToFile(app, &source, dir.file("plot.bmp")));

    FXBMPImage loaded(app);
    FXFileStream in;
    ASSERT_TRUE(in.open(dir.file("plot.bmp"), FXStreamLoad));
    ASSERT_TRUE(loaded.loadPixels(in));
    ASSERT_EQ(loaded.getWidth(), w);
    ASSERT_EQ(loaded.getHeight(), h);
    const FXColor top = loaded.getPixel(1, 0), bottom = loaded.getPixel(1, 2);
    EXPECT_EQ(FXREDVAL(top), 255u);  // red stays red, not blue
    EXPECT_EQ(FXBLUEVAL(top), 0u);
    EXPECT_EQ(FXBLUEVAL(bottom), 255u);
    EXPECT_EQ(FXREDVAL(bottom), 0u);
    EXPECT_FALSE(U::saveImageToFile(app, &source, dir.file("missing/plot.bmp")));
}

TEST(Utilities, SaveAsAppendsTheExtensionOnce) {
    ScratchDir dir;
    ScriptedDialogs dialogs;
    dialogs.script.files = {dir.file("out.xls").text(), dir.file("out.XLS").text(),
                            dir.file("out").text(), dir.file("lamp.txt").text()};
    FXString folder = "/tmp", name, path;
    ASSERT_TRUE(U::saveFile(nullptr, "Save results", ".xls", "", &folder, &name, &path));
    EXPECT_EQ(path, dir.file("out.xls"));
    EXPECT_EQ(name, FXString("out.xls"));
    EXPECT_EQ(folder, dir.path);
    ASSERT_TRUE(U::saveFile(nullptr, "Save results", ".xls", "", &folder, &name, &path));
    EXPECT_EQ(name, FXString("out.xls"));
    ASSERT_TRUE(U::saveFile(nullptr, "Save results", ".xls", "", &folder, &name, &path));
    EXPECT_EQ(name, FXString("out.xls"));
    // With a suffix the typed extension gives way to suffix and extension.
    ASSERT_TRUE(U::saveFile(nullptr, "Save", ".xls", "", "_CRI", &folder, &name, &path));
    EXPECT_EQ(name, FXString("lamp_CRI.xls"));
    ASSERT_EQ(dialogs.script.shown.size(), 4u);
    EXPECT_EQ(dialogs.script.shown[0].text, "*.xls");
    EXPECT_EQ(dialogs.script.shown[0].kind, UserDialogs::SAVE_FILE);
    // Cancel.
    EXPECT_FALSE(U::saveFile(nullptr, "Save results", ".xls", "", &folder, &name, &path));
}

TEST(Utilities, SaveAsAsksAgainAfterAnIllegalNameOrARefusedReplace) {
    ScratchDir dir;
    std::ofstream(dir.file("old.xls").text()) << "x";
    ScriptedDialogs dialogs;
    dialogs.script.files = {dir.file("a|b.xls").text(), dir.file("old.xls").text(),
                            dir.file("old.xls").text()};
    dialogs.script.answers = {MBOX_CLICKED_OK, MBOX_CLICKED_NO, MBOX_CLICKED_YES};
    FXString folder = dir.path, name, path;
    ASSERT_TRUE(U::saveFile(nullptr, "Save results", ".xls", "results", &folder, &name, &path));
    EXPECT_EQ(path, dir.file("old.xls"));
    const auto& shown = dialogs.script.shown;
    ASSERT_EQ(shown.size(), 6u);
    EXPECT_EQ(shown[1].title, "Filename error");
    EXPECT_EQ(shown[1].text.find("Your filename contains illegal characters.\n\n"
                                 "Illegal characters include: \\ : / * ? \" < > |"),
              0u);
    EXPECT_EQ(shown[3].title, "Confirm Save As");
    EXPECT_EQ(shown[3].text, "\"old.xls\" already exists.\nDo you want to replace it?");
    EXPECT_EQ(shown[4].kind, UserDialogs::SAVE_FILE);  // "No" brought the dialog back
    EXPECT_EQ(shown[5].title, "Confirm Save As");

    // Picking an existing file to open asks nothing.
    dialogs.script.shown.clear();
    dialogs.script.files = {dir.file("old.xls").text()};
    ASSERT_TRUE(U::saveFile(nullptr, "Open", ".xls", "", "", &folder, &name, &path, true));
    EXPECT_EQ(dialogs.script.shown.size(), 1u);
}

TEST(Utilities, WritingFirstRemovesTheOldFileOrSaysWhyNot) {
    ScratchDir dir;
    ScriptedDialogs dialogs;
    EXPECT_TRUE(U::deleteBeforeWritting(guiTestWindow(), dir.file("absent.txt")));
    std::ofstream(dir.file("old.txt").text()) << "x";
    EXPECT_TRUE(U::deleteBeforeWritting(guiTestWindow(), dir.file("old.txt")));
    EXPECT_FALSE(FXStat::exists(dir.file("old.txt")));
    // A folder with content can't be removed like a file: the same failure as a locked file.
    FXDir::create(dir.file("busy"));
    std::ofstream(dir.file("busy/x").text()) << "x";
    EXPECT_FALSE(U::deleteBeforeWritting(nullptr, dir.file("busy")));
    EXPECT_TRUE(dialogs.script.shown.empty());  // no owner, no box
    EXPECT_FALSE(U::deleteBeforeWritting(guiTestWindow(), dir.file("busy")));
    ASSERT_EQ(dialogs.script.shown.size(), 1u);
    EXPECT_EQ(dialogs.script.shown[0].title, "File error");
    EXPECT_EQ(dialogs.script.shown[0].text,
              "Cannot open \"" + std::string(dir.file("busy").text()) +
                  "\" for writing\nIt may already be open, if so close it and try again.");
}
