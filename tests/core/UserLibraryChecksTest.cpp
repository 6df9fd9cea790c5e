#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "ReadWriteUserSpectra.h"
#include "UserLibraryChecks.h"

namespace {

TEST(UserLibraryChecks, TheLimitsStopAddingWithTheirOwnNumbers) {
    struct Case {
        int libraryType;
        int rows;
        bool error;
        const char* title;
        const char* text;
    };
    const Case cases[] = {
        {LIBRARY_SPECTRA, 506, false, "", ""},
        {LIBRARY_SPECTRA, 507, true, "User Spectrum Error",
         "You can only read in up to 508 spectra, with this there will be too many.\nYou can save "
         "your user spectra in several files and read in the ones you need to use as you go."},
        {LIBRARY_FILTERS, 258062, false, "", ""},
        {LIBRARY_FILTERS, 258063, true, "User Filter Error",
         "You can only read in up to 258064 filters, with this there will be too many.\nYou can "
         "save your user filters in several files and read in the ones you need to use as you go."},
        {LIBRARY_COLORS, 300000, true, "User Color Error",
         "You can only read in up to 258064 colors, with this there will be too many.\nYou can "
         "save your user colors in several files and read in the ones you need to use as you go."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rows);
        LibraryMessage m;
        ASSERT_EQ(checkLibraryLimit(c.libraryType, c.rows, &m), c.error);
        if (!c.error) continue;
        EXPECT_EQ(m.box, LibraryBox::ERROR);
        EXPECT_EQ(m.id, LibraryMessageId::LIBRARY_FULL);
        EXPECT_EQ(m.title, c.title);
        EXPECT_EQ(m.text, c.text);
    }
}

TEST(UserLibraryChecks, NamesAndLPWAreCheckedWithTheWindowTexts) {
    struct NameCase {
        std::string name;
        const char* text;  // "" when the name passes
    };
    const NameCase names[] = {
        {"Red & Blue (450 nm) ~ 100%", ""},
        {"   ", "You must enter a name"},
        {"", "You must enter a name"},
        {"Tab\there",
         "The name you entered \"Tab\there\" is invalid, it contains an illegal character"},
        {"  Caf\xc3\xa9 ",
         "The name you entered \"Caf\xc3\xa9\" is invalid, it contains an illegal character"},
        {"Del\x7f",
         "The name you entered \"Del\x7f\" is invalid, it contains an illegal character"},
    };
    for (const NameCase& c : names) {
        SCOPED_TRACE(c.name);
        LibraryMessage m;
        ASSERT_EQ(checkEntryName(LIBRARY_FILTERS, c.name, &m), *c.text != '\0');
        if (*c.text == '\0') continue;
        EXPECT_EQ(m.title, "Filter name error");
        EXPECT_EQ(m.text, c.text);
    }
    struct LpwCase {
        double lpw;
        bool error;
    };
    const LpwCase lpws[] = {{0.0, false},    {-1e-9, false},       {-2e-9, true}, {300.0, false},
                            {300.001, true}, {std::nan(""), true}, {150.5, false}};
    for (const LpwCase& c : lpws) {
        SCOPED_TRACE(c.lpw);
        LibraryMessage m;
        ASSERT_EQ(checkEntryLPW(c.lpw, &m), c.error);
        if (c.error) {
            EXPECT_EQ(m.text, "The LPW value is out of range (0.1-300)");
        }
    }
}

TEST(UserLibraryChecks, TableValuesAreReadWithOneWarningOfEachKind) {
    struct Case {
        const char* what;
        EntryValueOptions options;
        std::vector<std::string> cells;
        std::vector<double> values;  // the first values expected
        std::vector<std::string> titles;
    };
    const Case cases[] = {
        {"spectra with negatives",
         {LIBRARY_SPECTRA, 1.0},
         {"1e-3", "-2", "-1e-13", "", "x", "2,5"},
         {1e-3, 0, 0, 0, 0, 2.5},
         {"Negative value error"}},
        {"a filter in percent",
         {LIBRARY_FILTERS, 100.0},
         {"50", "120", "130", "-1"},
         {0.5, 1.2, 1.3, 0.0},
         {"Filter data warning", "Negative value error"}},
        {"a filter allowed above 100%", {LIBRARY_FILTERS, 100.0, true}, {"120"}, {1.2}, {}},
        {"a colour above 1",
         {LIBRARY_COLORS, 1.0},
         {"0.5", "1.5"},
         {0.5, 1.5},
         {"Color data warning"}},
        {"a colour warning turned off", {LIBRARY_COLORS, 1.0, false, true}, {"1.5"}, {1.5}, {}},
        {"a tiny negative passes silently", {LIBRARY_SPECTRA, 1.0}, {"-1e-13", "1"}, {0, 1}, {}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const EntryValues r = readEntryValues(c.cells, c.options);
        ASSERT_EQ(r.values.size(), 346u);
        for (std::size_t i = 0; i < c.values.size(); ++i)
            EXPECT_DOUBLE_EQ(r.values[i], c.values[i]) << i;
        EXPECT_DOUBLE_EQ(r.values[345], 0.0);
        ASSERT_EQ(r.messages.size(), c.titles.size());
        for (std::size_t i = 0; i < c.titles.size(); ++i)
            EXPECT_EQ(r.messages[i].title, c.titles[i]);
    }
    const EntryValues filter = readEntryValues({"120"}, {LIBRARY_FILTERS, 100.0});
    ASSERT_EQ(filter.messages.size(), 1u);
    EXPECT_EQ(filter.messages[0].box, LibraryBox::QUESTION);
    EXPECT_EQ(filter.messages[0].id, LibraryMessageId::FILTER_ABOVE_SCALE);
    EXPECT_EQ(filter.messages[0].text,
              "Transmission values for filters should range from 0 to 100\n\nclick \"Yes\" to "
              "ignore this warning the future.");
    const EntryValues color = readEntryValues({"2"}, {LIBRARY_COLORS, 1.0});
    EXPECT_EQ(color.messages[0].text,
              "Reflectance values for colors should range from 0 to 1\n\nclick \"Yes\" to ignore "
              "this warning the future.");
    const EntryValues negative = readEntryValues({"-1"}, {LIBRARY_SPECTRA, 1.0});
    EXPECT_EQ(negative.messages[0].text,
              "A negative value was found - all negative values will be set to 0.0");

    // Photons per second at 500 nm carry h c / lambda joules each.
    EntryValueOptions photons{LIBRARY_SPECTRA, 1.0};
    photons.photons = true;
    std::vector<std::string> cells(71, "0");
    cells[70] = "1e18";
    const double joules = 6.62607015e-34 * 299792458.0 / 500e-9;
    EXPECT_NEAR(readEntryValues(cells, photons).values[70], 1e18 * joules, 1e-4 * 1e18 * joules);
}

TEST(UserLibraryChecks, AnEntryNeedsSomeIntensityAndGetsItsIRFlag) {
    LibraryMessage m;
    EXPECT_TRUE(checkEntryIntensities(std::vector<double>(346, 1e-60), &m));
    EXPECT_EQ(m.title, "Spectrum error");
    EXPECT_EQ(m.text, "You must have some intensities greater than 1.0e-60.");
    std::vector<double> values(346, 0.0);
    values[345] = 2e-60;
    EXPECT_FALSE(checkEntryIntensities(values, &m));

    const ledTypeStruct ir =
        makeUserLibraryEntry(LIBRARY_SPECTRA, "  IR mix  ", 42, values, 10, 1.0, 1.006);
    EXPECT_STREQ(ir.name, "IR mix");
    EXPECT_TRUE(ir.hasIRpast830);  // 0.6% past 830 nm
    EXPECT_DOUBLE_EQ(ir.spectrum[345], 2e-60);
    EXPECT_DOUBLE_EQ(ir.lpw, 42);
    const ledTypeStruct vis =
        makeUserLibraryEntry(LIBRARY_SPECTRA, "Vis", 0, values, 10, 1.0, 1.004);
    EXPECT_FALSE(vis.hasIRpast830);
    const ledTypeStruct color =
        makeUserLibraryEntry(LIBRARY_COLORS, std::string(150, 'c'), 0, values, 10, 1, 2, true);
    EXPECT_EQ(std::string(color.name), std::string(99, 'c'));
    EXPECT_DOUBLE_EQ(color.lumens, 0.0);
    EXPECT_TRUE(color.isPrivate);
}

}  // namespace
