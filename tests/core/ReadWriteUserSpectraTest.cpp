#include <gtest/gtest.h>

#include <algorithm>
#include <clocale>
#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "CLocaleNumbers.h"
#include "ReadWriteUserSpectra.h"
#include "UserLibrary.h"
#include "UserLibraryTestFiles.h"

namespace {

// "%.6le" keeps 7 significant digits, "%.8le" 9: half a unit of the last one, with room.
constexpr double SPECTRUM_REL_TOL = 1e-6;
constexpr double PHOTOMETRY_REL_TOL = 1e-8;
// A private colour is written with its offset (up to 0.95) added: 7 digits of a value below 2.
constexpr double PRIVATE_ABS_TOL = 2e-6;

bool near(double a, double b, double rel) {
    return std::fabs(a - b) <= rel * std::fabs(b) + 1e-300;
}

std::vector<ledTypeStruct> readAll(const std::string& text, int libraryType, std::string* why) {
    const ReadWriteUserSpectra counted =
        ReadWriteUserSpectra::fromText(text, true, false, 0, nullptr, libraryType);
    std::vector<ledTypeStruct> entries(static_cast<std::size_t>(counted.getNumUserData()) + 1);
    const ReadWriteUserSpectra read =
        ReadWriteUserSpectra::fromText(text, true, true, 0, entries.data(), libraryType);
    EXPECT_EQ(read.getNumUserData(), counted.getNumUserData()) << "counting and reading differ";
    EXPECT_EQ(read.getError(), counted.getError());
    entries.resize(static_cast<std::size_t>(read.getNumUserData()));
    *why = read.getError() ? read.getErrorMessage() : std::string();
    return entries;
}

// "n values of v" on one spectrum line.
std::string valuesLine(int n, const std::string& v) {
    std::string line;
    for (int i = 0; i < n; ++i) line += (i ? " " : "") + v;
    return line + "\n";
}

std::vector<std::string> tokensOf(const std::string& line) {
    std::istringstream in(line);
    std::vector<std::string> tokens;
    for (std::string t; in >> t;) tokens.push_back(t);
    return tokens;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string l; std::getline(in, l);) lines.push_back(l);
    return lines;
}

class ReadWriteUserSpectraTest : public ScratchFolderTest {};

TEST_F(ReadWriteUserSpectraTest, EachKindOfLibraryReadsBackWhatWasWritten) {
    struct Case {
        int libraryType;
        const char* file;
    };
    for (const Case& c :
         {Case{LIBRARY_SPECTRA, "userSpectra.spec"}, Case{LIBRARY_FILTERS, "userFilters.fils"},
          Case{LIBRARY_COLORS, "userColors.cols"}}) {
        SCOPED_TRACE(c.file);
        std::vector<ledTypeStruct> in = {testEntry("Royal blue 450", 450, 2.5e-3),
                                         testEntry("IR 850", 850, 1.2e-2),
                                         testEntry("Lime", 560, 0.8)};
        in[0].lumens = 12.345678912;
        in[0].wattsVis = 0.0456;
        in[0].wattsVisIR = 0.0457;  // 0.2% past 830 nm: no IR flag
        in[0].lpw = 31.5;
        in[1].lumens = 0.01;
        in[1].wattsVis = 0.002;
        in[1].wattsVisIR = 0.3;  // nearly all past 830 nm
        in[2].isPrivate = true;  // only a colour keeps it

        const std::string file = path(c.file);
        const ReadWriteUserSpectra written(3, nullptr, in.data(), "w", file, c.libraryType, false);
        ASSERT_FALSE(written.getError()) << written.getErrorMessage();
        const ReadWriteUserSpectra counted(true, false, 0, nullptr, file, c.libraryType);
        ASSERT_EQ(counted.getNumUserData(), 3);
        EXPECT_DOUBLE_EQ(counted.getVersionNumber(), 1.15);

        std::vector<ledTypeStruct> out(5);
        const ReadWriteUserSpectra read(true, true, 2, out.data(), file, c.libraryType);
        bool error = true;
        ASSERT_EQ(read.getData(&error), 3);
        ASSERT_FALSE(error) << read.getErrorMessage();
        EXPECT_EQ(read.getIsPrivateFound(), c.libraryType == LIBRARY_COLORS);
        EXPECT_STREQ(out[1].name, "") << "firstIndex 2 leaves the rows before it alone";
        for (int k = 0; k < 3; ++k) {
            const ledTypeStruct& r = out[2 + k];
            SCOPED_TRACE(in[k].name);
            EXPECT_STREQ(r.name, in[k].name);
            const bool isPrivate = c.libraryType == LIBRARY_COLORS && in[k].isPrivate;
            EXPECT_EQ(r.isPrivate, isPrivate);
            for (int i = 0; i < 346; ++i) {
                if (isPrivate) {
                    ASSERT_NEAR(r.spectrum[i], in[k].spectrum[i], PRIVATE_ABS_TOL) << i;
                } else {
                    ASSERT_TRUE(near(r.spectrum[i], in[k].spectrum[i], SPECTRUM_REL_TOL)) << i;
                }
            }
            const bool spectra = c.libraryType == LIBRARY_SPECTRA;
            EXPECT_TRUE(near(r.lumens, spectra ? in[k].lumens : 0.0, PHOTOMETRY_REL_TOL));
            EXPECT_TRUE(near(r.wattsVisIR, spectra ? in[k].wattsVisIR : 0.0, PHOTOMETRY_REL_TOL));
            EXPECT_EQ(r.hasIRpast830, spectra && k == 1);
        }
        EXPECT_DOUBLE_EQ(out[2].lpw, c.libraryType == LIBRARY_SPECTRA ? 31.5 : 0.0);
    }
}

TEST_F(ReadWriteUserSpectraTest, TheFileHasTheCurrentLayout) {
    ledTypeStruct spec = testEntry("Warm white", 600, 1e-3);
    spec.lumens = 100;
    spec.wattsVis = 0.5;
    spec.wattsVisIR = 0.55;
    spec.lpw = 30;
    const std::vector<std::string> s =
        linesOf(ReadWriteUserSpectra::formatLibrary(1, nullptr, &spec, LIBRARY_SPECTRA));
    ASSERT_EQ(s.size(), 4u);
    EXPECT_EQ(s[0], "1.15  // version");
    EXPECT_EQ(s[1], "Warm white");
    EXPECT_EQ(s[2],
              "1.00000000e+02 5.00000000e-01 5.50000000e-01 3.00000000e+01 1.00000000e+00  // "
              "lumens, wattsVis, wattsVisIR, lpw, scaling factor");
    const std::vector<std::string> values = tokensOf(s[3]);
    ASSERT_EQ(values.size(), 346u);
    EXPECT_EQ(values[120], "1.000000e-03");  // the peak at 600 nm
    EXPECT_LE(s[3].size(), static_cast<std::size_t>(USER_LIBRARY_LINE_LENGTH));

    // Colours carry the P/E mark; a private one is stored with its offsets added.
    ledTypeStruct colors[2] = {testEntry("Leaf", 550, 0.5), testEntry("Secret", 550, 0.5)};
    colors[1].isPrivate = true;
    const std::vector<std::string> c =
        linesOf(ReadWriteUserSpectra::formatLibrary(2, nullptr, colors, LIBRARY_COLORS));
    ASSERT_EQ(c.size(), 5u);
    EXPECT_EQ(c[1], "E Leaf");
    EXPECT_EQ(c[3], "P Secret");
    EXPECT_EQ(tokensOf(c[4])[0], scientificText(colors[1].spectrum[0] + encryptSpec[0], 6));
}

TEST_F(ReadWriteUserSpectraTest, AVersion114LibraryTakesWattsVisForWattsVisIR) {
    // Up to 1.14 the data line holds lumens, wattsVis, lpw and the scaling factor.
    const std::string v114 =
        "1.14  // version\nOld white\n"
        "2.0e+02 1.0e+00 4.5e+01 2.0e+00  // lumens, wattsVis, lpw, scaling\n" +
        valuesLine(236, "4.0e-03");
    std::string why;
    const std::vector<ledTypeStruct> e = readAll(v114, LIBRARY_SPECTRA, &why);
    ASSERT_EQ(e.size(), 1u) << why;
    EXPECT_DOUBLE_EQ(e[0].lumens, 100.0);  // divided by the scaling factor
    EXPECT_DOUBLE_EQ(e[0].wattsVis, 0.5);
    EXPECT_DOUBLE_EQ(e[0].wattsVisIR, e[0].wattsVis);
    EXPECT_DOUBLE_EQ(e[0].lpw, 45.0);  // as it stands
    EXPECT_FALSE(e[0].hasIRpast830);
    EXPECT_DOUBLE_EQ(e[0].spectrum[235], 2.0e-03);
    EXPECT_DOUBLE_EQ(e[0].spectrum[236], 0.0) << "points after the last written are 0";

    // Four values in a 1.15 library, or five in a 1.14 one, is a damaged line, not a guess.
    struct Case {
        const char* version;
        const char* dataLine;
    };
    for (const Case& c : {Case{"1.15", "1 2 3 4"}, Case{"1.14", "1 2 3 4 5"}}) {
        SCOPED_TRACE(c.version);
        const std::string text = std::string(c.version) + "  // version\nX\n" + c.dataLine +
                                 " // lumens\n" + valuesLine(3, "1");
        EXPECT_TRUE(readAll(text, LIBRARY_SPECTRA, &why).empty());
        EXPECT_NE(why.find("data line holds"), std::string::npos) << why;
    }
}

TEST_F(ReadWriteUserSpectraTest, TheMarksOfOlderVersionsAreReadByVersion) {
    struct Case {
        int libraryType;
        const char* version;
        const char* nameLine;
        const char* name;
        bool isPrivate;
    };
    const Case cases[] = {
        // Colours carry the mark from after 1.05 on.
        {LIBRARY_COLORS, "1.05", "Pale red", "Pale red", false},
        {LIBRARY_COLORS, "1.06", "P Pale red", "Pale red", true},
        {LIBRARY_COLORS, "1.15", "E Pale red", "Pale red", false},
        // Filters had a mark only after 1.05 and before 1.105.
        {LIBRARY_FILTERS, "1.05", "#Blue gel", "#Blue gel", false},
        {LIBRARY_FILTERS, "1.1", "#Blue gel", "Blue gel", false},
        {LIBRARY_FILTERS, "1.105", "#Blue gel", "#Blue gel", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.version) + " " + c.nameLine);
        const std::string text =
            std::string(c.version) + " // version\n" + c.nameLine + "\n" + valuesLine(2, "0.9");
        std::string why;
        const std::vector<ledTypeStruct> e = readAll(text, c.libraryType, &why);
        ASSERT_EQ(e.size(), 1u) << why;
        EXPECT_STREQ(e[0].name, c.name);
        EXPECT_EQ(e[0].isPrivate, c.isPrivate);
        // A private colour's offset is taken off; negatives become 0.
        const double expected = c.isPrivate ? std::max(0.0, 0.9 - encryptSpec[1]) : 0.9;
        EXPECT_NEAR(e[0].spectrum[1], expected, 1e-15);
    }
}

TEST_F(ReadWriteUserSpectraTest, NamesAreStoredAsTheyStandAndCutToTheRecord) {
    const std::string longName(150, 'n');
    ledTypeStruct in[3] = {testEntry("Red & Blue && more", 500, 1), testEntry("", 500, 1),
                           testEntry("x", 500, 1)};
    std::memcpy(in[2].name, longName.data(), 99);  // the record's longest name
    const std::string text = ReadWriteUserSpectra::formatLibrary(3, nullptr, in, LIBRARY_FILTERS);
    std::string why;
    std::vector<ledTypeStruct> e = readAll(text, LIBRARY_FILTERS, &why);
    ASSERT_EQ(e.size(), 3u) << why;
    EXPECT_STREQ(e[0].name, "Red & Blue && more");
    EXPECT_STREQ(e[1].name, "") << "an empty name keeps its line";
    EXPECT_EQ(std::string(e[2].name), longName.substr(0, 99));

    // A longer name in a file, with blanks and a Windows line end, is trimmed and cut.
    e = readAll("1.15 // version\r\n   " + longName + "  \r\n" + valuesLine(1, "1"),
                LIBRARY_FILTERS, &why);
    ASSERT_EQ(e.size(), 1u) << why;
    EXPECT_EQ(std::string(e[0].name), longName.substr(0, 99));

    // A cut that ends in blanks leaves none at the end, so the name reads back the same.
    const std::string blanksAtTheCut = std::string(97, 'b') + "    tail";
    e = readAll("1.15 // version\n" + blanksAtTheCut + "\n" + valuesLine(1, "1"), LIBRARY_FILTERS,
                &why);
    ASSERT_EQ(e.size(), 1u) << why;
    EXPECT_EQ(std::string(e[0].name), std::string(97, 'b'));
}

TEST_F(ReadWriteUserSpectraTest, ACutFinalEntryIsAnErrorAndTheCompleteOnesStay) {
    const ledTypeStruct in[3] = {testEntry("A", 450, 1e-3), testEntry("B", 550, 1e-3),
                                 testEntry("C", 650, 1e-3)};
    const std::string text = ReadWriteUserSpectra::formatLibrary(3, nullptr, in, LIBRARY_SPECTRA);
    const std::size_t lastName = text.rfind("\nC\n") + 1;
    const std::size_t lastData = text.find('\n', lastName + 2) + 1;
    struct Case {
        const char* where;
        std::size_t length;
    };
    const Case cases[] = {
        {"after the name", lastName + 2},
        {"in the data line", lastName + 20},
        {"after the data line", lastData},
        {"in a number of the spectrum", lastData + 40},
        {"before the last value", text.size() - 14},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.where);
        const std::string cut = text.substr(0, c.length);
        std::string why;
        const std::vector<ledTypeStruct> e = readAll(cut, LIBRARY_SPECTRA, &why);
        EXPECT_EQ(e.size(), 2u);
        EXPECT_NE(why, "");
        put(path("cut.spec"), cut);
        std::vector<ledTypeStruct> entries;
        std::string error;
        EXPECT_FALSE(readUserLibrary(path("cut.spec"), LIBRARY_SPECTRA, &entries, &error));
        EXPECT_EQ(entries.size(), 2u);
        EXPECT_NE(error.find("cut.spec, line "), std::string::npos) << error;
    }
    // The whole text without its final line break still reads whole.
    std::string why;
    EXPECT_EQ(readAll(text.substr(0, text.size() - 1), LIBRARY_SPECTRA, &why).size(), 3u) << why;
}

TEST_F(ReadWriteUserSpectraTest, BadInputGivesAnErrorNeverACrashOrAWrongNumber) {
    const std::string head = "1.15  // version\nGood\n" + valuesLine(346, "1e-3") + "Bad\n";
    struct Case {
        const char* what;
        std::string text;
        int kept;
        const char* reason;
    };
    const Case cases[] = {
        {"a version from the future", "2.0  // version\nX\n1\n", 0, "newer than this program"},
        {"no version number", "new version\nX\n1\n", 0, "no version number"},
        {"a NUL byte", head + std::string("1e-3 \0 1", 8) + "\n", 1, "NUL byte"},
        {"a 10,000-character line", head + std::string(10000, '7') + "\n", 1, "longer than 4854"},
        {"text among the values", head + "1e-3 0.5x 2\n", 1, "\"0.5x\""},
        {"not a number", head + "1e-3 nan 2\n", 1, "\"nan\""},
        {"infinity", head + "1e-3 1e999 2\n", 1, "\"1e999\""},
        {"too many values", head + valuesLine(347, "1"), 1, "more than 346"},
        {"an empty spectrum line", head + "   \nC\n1\n", 1, "no values"},
        {"binary garbage", std::string("\xff\xfe\x01\x02version\n\x80\x81\n\n", 13), 0, ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        std::string why;
        const std::vector<ledTypeStruct> e = readAll(c.text, LIBRARY_FILTERS, &why);
        EXPECT_EQ(static_cast<int>(e.size()), c.kept);
        ASSERT_NE(why, "");
        EXPECT_NE(why.find(c.reason), std::string::npos) << why;
    }
    const std::string spectra = "1.15  // version\nX\n";
    const Case spectraCases[] = {
        {"a scaling factor of 0", spectra + "1 1 1 1 0\n1\n", 0, "not above 0"},
        {"values too large for the scaling", spectra + "1 1 1 1 1e-300\n1e300\n", 0, "too large"},
        {"a data line of text", spectra + "lumens 1 1 1 1\n1\n", 0, "\"lumens\""},
    };
    for (const Case& c : spectraCases) {
        SCOPED_TRACE(c.what);
        std::string why;
        EXPECT_TRUE(readAll(c.text, LIBRARY_SPECTRA, &why).empty());
        EXPECT_NE(why.find(c.reason), std::string::npos) << why;
    }
    // An empty file, or a version line alone, is a library without entries.
    std::string why;
    EXPECT_TRUE(readAll("", LIBRARY_SPECTRA, &why).empty());
    EXPECT_EQ(why, "");
    EXPECT_TRUE(readAll("1.15  // version\n\n\n", LIBRARY_COLORS, &why).empty());
    EXPECT_EQ(why, "");
}

TEST_F(ReadWriteUserSpectraTest, TheTabbedExportHasOneRowPerWavelengthAndHidesPrivateColors) {
    ledTypeStruct in[2] = {testEntry("Leaf", 550, 0.5), testEntry("Secret", 550, 0.5)};
    in[1].isPrivate = true;
    const std::string file = path("colors.xls");
    const int order[2] = {1, 0};
    const ReadWriteUserSpectra written(2, order, in, "w", file, LIBRARY_COLORS, true);
    ASSERT_FALSE(written.getError());
    const std::vector<std::string> rows = linesOf(textOf(file));
    ASSERT_EQ(rows.size(), 347u);
    EXPECT_EQ(rows[0], "nm\tSecret\tLeaf\t");
    EXPECT_EQ(rows[1], "360\t\t" + scientificText(in[0].spectrum[0], 6) + "\t");
    EXPECT_EQ(rows[96].substr(0, 4), "550\t");
    EXPECT_EQ(rows[96], "550\t\t5.000000e-01\t");
    EXPECT_EQ(rows[346].substr(0, 5), "1050\t");
}

TEST_F(ReadWriteUserSpectraTest, AppendingKeepsWhatStandsAndRewritesItInTheCurrentVersion) {
    const std::string file = path("userSpectra.spec");
    put(file, "1.14  // version\nOld\n1.0e+02 1.0e+00 4.5e+01 1.0e+00 // lumens\n" +
                  valuesLine(236, "1.0e-03"));
    ledTypeStruct added = testEntry("New IR", 900, 1e-3);
    added.lumens = 1;
    added.wattsVis = 1;
    added.wattsVisIR = 2;
    const ReadWriteUserSpectra appended(1, nullptr, &added, "a", file, LIBRARY_SPECTRA, false);
    ASSERT_FALSE(appended.getError()) << appended.getErrorMessage();
    EXPECT_EQ(appended.getNumUserData(), 2);
    EXPECT_EQ(textOf(file).substr(0, 4), "1.15");

    std::vector<ledTypeStruct> e;
    std::string error;
    ASSERT_TRUE(readUserLibrary(file, LIBRARY_SPECTRA, &e, &error)) << error;
    ASSERT_EQ(e.size(), 2u);
    EXPECT_STREQ(e[0].name, "Old");
    EXPECT_DOUBLE_EQ(e[0].wattsVisIR, 1.0);
    EXPECT_DOUBLE_EQ(e[0].lpw, 45.0);
    EXPECT_STREQ(e[1].name, "New IR");
    EXPECT_DOUBLE_EQ(e[1].wattsVisIR, 2.0);
    EXPECT_TRUE(e[1].hasIRpast830);

    // A damaged library is not appended to: the entries after the damage would be lost.
    const std::string damaged = "1.15  // version\nA\n1 1 1 1 1 // lumens\n1 x\n";
    put(file, damaged);
    const ReadWriteUserSpectra refused(1, nullptr, &added, "a", file, LIBRARY_SPECTRA, false);
    EXPECT_TRUE(refused.getError());
    EXPECT_NE(refused.getErrorMessage().find("nothing was added"), std::string::npos);
    EXPECT_EQ(textOf(file), damaged);
}

TEST_F(ReadWriteUserSpectraTest, ACountOfZeroRemovesTheLibraryOnlyWhenWriting) {
    const std::string file = path("userFilters.fils");
    const ledTypeStruct one = testEntry("Gel", 500, 0.5);
    ASSERT_FALSE(
        ReadWriteUserSpectra(1, nullptr, &one, "w", file, LIBRARY_FILTERS, false).getError());
    ReadWriteUserSpectra(0, nullptr, nullptr, "a", file, LIBRARY_FILTERS, false);
    EXPECT_TRUE(fileExists(file));
    ReadWriteUserSpectra(0, nullptr, nullptr, "w", file, LIBRARY_FILTERS, false);
    EXPECT_FALSE(fileExists(file));
    EXPECT_TRUE(ReadWriteUserSpectra(true, false, 0, nullptr, file, LIBRARY_FILTERS).getError());

    const ReadWriteUserSpectra badMode(1, nullptr, &one, "r+", file, LIBRARY_FILTERS, false);
    EXPECT_TRUE(badMode.getError());
    const ReadWriteUserSpectra noFolder(1, nullptr, &one, "w", path("no/folder.fils"),
                                        LIBRARY_FILTERS, false);
    EXPECT_EQ(noFolder.getErrorMessage(), "File \"" + path("no/folder.fils") +
                                              "\" could not be written, try a different name.");
}

TEST_F(ReadWriteUserSpectraTest, NumbersDoNotDependOnTheLocale) {
    const std::string old = std::setlocale(LC_ALL, nullptr);
    if (std::setlocale(LC_ALL, "de_DE.UTF-8") == nullptr) {
        GTEST_SKIP() << "no locale with a decimal comma is installed";
    }
    ledTypeStruct in = testEntry("Komma", 500, 1.5e-3);
    in.lumens = 2.5;
    const std::string text = ReadWriteUserSpectra::formatLibrary(1, nullptr, &in, LIBRARY_SPECTRA);
    std::string why;
    const std::vector<ledTypeStruct> e = readAll(text, LIBRARY_SPECTRA, &why);
    std::setlocale(LC_ALL, old.c_str());
    EXPECT_NE(text.find("\nKomma\n2.50000000e+00 "), std::string::npos) << text.substr(0, 200);
    ASSERT_EQ(e.size(), 1u) << why;
    EXPECT_DOUBLE_EQ(e[0].lumens, 2.5);
    EXPECT_DOUBLE_EQ(e[0].spectrum[70], 1.5e-3);
}

TEST_F(ReadWriteUserSpectraTest, TheFormatIsToldByTheThirdLine) {
    struct Case {
        const char* what;
        std::string text;
        bool isNew;
    };
    const Case cases[] = {
        {"a current spectra library", "1.15  // version\nA\n1.0 2.0 3 4 1 // x\n1\n", true},
        {"a current filter library", "1.15  // version\nA\n0.5 0.25\n", true},
        {"an empty current library", "1.15  // version\n", true},
        {"an old spectra library", "A\n12.5\n0.25\n236\n", false},
        {"an old filter library", "A\n236\n0.5\n0.5\n", false},
        {"an empty file", "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        put(path("lib"), c.text);
        EXPECT_EQ(ReadWriteUserSpectra::getIsNewFormat(path("lib")), c.isNew);
    }
    EXPECT_FALSE(ReadWriteUserSpectra::getIsNewFormat(path("missing")));
}

TEST_F(ReadWriteUserSpectraTest, MaxEntriesBoundsTheRecordsWritten) {
    const ledTypeStruct in[3] = {testEntry("A", 450, 1), testEntry("B", 550, 1),
                                 testEntry("C", 650, 1)};
    const std::string text = ReadWriteUserSpectra::formatLibrary(3, nullptr, in, LIBRARY_FILTERS);
    ledTypeStruct out[3] = {};
    out[2].name[0] = 'Z';
    const ReadWriteUserSpectra read =
        ReadWriteUserSpectra::fromText(text, true, true, 0, out, LIBRARY_FILTERS, 2);
    EXPECT_EQ(read.getNumUserData(), 2);
    EXPECT_FALSE(read.getError());
    EXPECT_STREQ(out[1].name, "B");
    EXPECT_STREQ(out[2].name, "Z");
}

}  // namespace
