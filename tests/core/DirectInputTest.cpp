// A typed spectrum brought to the grid as the display table shows it, with the window's
// refusals; the per-user folder; the fixed result field numbers; the number rule of tables.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "DirectInput.h"
#include "NumberText.h"
#include "OutputField.h"
#include "ProgramFolder.h"

namespace fs = std::filesystem;

namespace {
// The rows of a fixed table with every value set.
InputRows fixedTable(int range, const std::string& value) {
    const InputTableGrid grid = inputTableGrid(range, false);
    InputRows rows(grid.rows);
    for (int i = 0; i < grid.rows; ++i) {
        rows[i][0] = std::to_string(static_cast<int>(grid.firstNm + grid.stepNm * i));
        rows[i][1] = value;
    }
    return rows;
}

DirectInputOptions optionsFor(int range) {
    DirectInputOptions options;
    options.spectrumRange = range;
    return options;
}
}  // namespace

TEST(DirectInput, FixedTablesReachTheGrid) {
    // A value of 1.5 in a 2 nm table in W/nm stays 1.500e+00.
    DirectInputResult r =
        interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "1.5"), optionsFor(RANGE_360_830_2NM));
    ASSERT_FALSE(r.error);
    ASSERT_EQ(r.column.size(), 236u);
    EXPECT_EQ(r.column[0], "1.500e+00");
    EXPECT_EQ(r.column[235], "1.500e+00");

    // The 380 nm table is copied from the eleventh grid point on.
    r = interpolateSpectrum(fixedTable(RANGE_380_830_2NM, "2"), optionsFor(RANGE_380_830_2NM));
    ASSERT_FALSE(r.error);
    EXPECT_EQ(r.column[9], "0.000e+00");
    EXPECT_EQ(r.column[10], "2.000e+00");

    // 95 rows at 5 nm give 236 points; a constant stays constant inside the range, and the
    // first point of a table that starts at 360 nm comes out halved (the resampler's edge).
    r = interpolateSpectrum(fixedTable(RANGE_360_830_5NM, "1"), optionsFor(RANGE_360_830_5NM));
    ASSERT_FALSE(r.error);
    ASSERT_EQ(r.column.size(), 236u);
    EXPECT_EQ(r.column[100], "1.000e+00");
    EXPECT_EQ(r.column[0], "5.000e-01");

    // Milliwatts scale by 0.001; photons keep their numbers for the later conversion.
    DirectInputOptions mw = optionsFor(RANGE_360_830_2NM);
    mw.unitsFactor = 0.001;
    EXPECT_EQ(interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "3"), mw).column[5], "3.000e-03");
    mw.photons = true;
    EXPECT_EQ(interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "3"), mw).column[5], "3.000e+00");

    // With IR the grid runs to 1050 nm.
    DirectInputOptions ir = optionsFor(RANGE_FREE_FORMAT);
    ir.includeIR = true;
    const InputRows free = {{"360", "1"}, {"700", "1"}, {"1050", "1"}};
    r = interpolateSpectrum(free, ir);
    ASSERT_FALSE(r.error);
    EXPECT_EQ(r.column.size(), 346u);
}

TEST(DirectInput, RefusesTablesItCannotUseWithTheWindowsTexts) {
    const DirectInputOptions spectrum = optionsFor(RANGE_FREE_FORMAT);
    const struct {
        InputRows rows;
        int analysisType;
        std::string title, text;
    } cases[] = {
        {{{"", ""}, {"", ""}}, 1, "Data error", "You must enter spectral data."},
        {{{"", ""}}, 4, "Data error", "You must enter transmission data."},
        {{}, 7, "Data error", "You must enter reflectance data."},
        {{{"400", "1"}, {"402", ""}, {"404", "1"}},
         1,
         "Data error",
         "You have too many empty cells."},
        {{{"840", "1"}, {"850", "1"}, {"860", "1"}},
         1,
         "Data error",
         "You must have at least 2 data points between between 360 and 830 nm (0)."},
        {{{"300", "1"}, {"320", "1"}, {"340", "1"}},
         1,
         "Data error",
         "You must have at least 2 data points between between 360 and 830 nm (0)."},
        {{{"400", "1"}, {"500", "1x"}},
         1,
         "Data error",
         "Some of your data is out of range, check the data in row #2."},
        {{{"500", "1"}, {"400", "1"}, {"600", "1"}},
         1,
         "Data error",
         "Some of your data is out of range, check the data in row #2."},
        {{{"400", "1"}, {"500", "1"}},
         1,
         "Unknown data error",
         "You must have at least 2 data points between 360 and 830 nm, some can be 0. "
         "(resampling error)"},
    };
    for (const auto& c : cases) {
        DirectInputOptions options = spectrum;
        options.analysisType = c.analysisType;
        const DirectInputResult r = interpolateSpectrum(c.rows, options);
        EXPECT_TRUE(r.error) << c.text;
        EXPECT_EQ(r.message.title, c.title);
        EXPECT_EQ(r.message.text, c.text);
        EXPECT_TRUE(r.column.empty());
    }
    // The refused cell is named so the window can mark it.
    const DirectInputResult bad = interpolateSpectrum({{"400", "1"}, {"500", "1x"}}, spectrum);
    EXPECT_EQ(bad.message.badRow, 1);
    EXPECT_EQ(bad.message.badCol, 1);
}

TEST(DirectInput, ValuesThatOverflowOnTheGridNameTheirRow) {
    const std::string text = "Some of your data is out of range, check the data in row #2.";
    // Free format: the resampled cells around 1e306 overflow.
    const DirectInputResult pasted = interpolateSpectrum(
        {{"360", "1"}, {"526", "1e306"}, {"830", "1"}}, optionsFor(RANGE_FREE_FORMAT));
    EXPECT_TRUE(pasted.error);
    EXPECT_EQ(pasted.message.title, "Data error");
    EXPECT_EQ(pasted.message.text, text);
    EXPECT_EQ(pasted.message.badRow, 1);
    EXPECT_EQ(pasted.message.badCol, 1);
    EXPECT_TRUE(pasted.column.empty());

    // On the 2 nm table nothing is resampled, but the printed 1.798e+308 reads back as infinity.
    InputRows table = fixedTable(RANGE_360_830_2NM, "1");
    table[1][1] = "1.7976e308";
    const DirectInputResult typed = interpolateSpectrum(table, optionsFor(RANGE_360_830_2NM));
    EXPECT_TRUE(typed.error);
    EXPECT_EQ(typed.message.text, text);

    // Milliwatts scale down, so the largest double is no overflow there.
    DirectInputOptions milliwatts = optionsFor(RANGE_360_830_2NM);
    milliwatts.unitsFactor = 0.001;
    EXPECT_FALSE(interpolateSpectrum(table, milliwatts).error);
}

TEST(DirectInput, FiltersAndColorsAreForcedIntoRangeAndNegativesBecomeZero) {
    DirectInputOptions filter = optionsFor(RANGE_360_830_2NM);
    filter.analysisType = 4;
    DirectInputResult r = interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "1.2"), filter);
    ASSERT_FALSE(r.error);
    EXPECT_TRUE(r.outOfRange);
    EXPECT_EQ(r.column[0], "1.000e+00");
    EXPECT_EQ(colorOutOfRangeWarning(filter).text,
              "You have some values out of the allowed range of 0 - 1.\nThese will be forced into "
              "the allowed range.");
    filter.percentUnits = true;  // 0 to 100
    r = interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "120"), filter);
    EXPECT_EQ(r.column[0], "1.000e+02");
    filter.allowAboveOne = true;
    r = interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "120"), filter);
    EXPECT_FALSE(r.outOfRange);
    EXPECT_EQ(r.column[0], "1.200e+02");
    // A spectrum is never capped, and negatives are clamped to 0.
    r = interpolateSpectrum(fixedTable(RANGE_360_830_2NM, "-5"), optionsFor(RANGE_360_830_2NM));
    EXPECT_EQ(r.column[0], "0.000e+00");
}

TEST(DirectInput, EmptyOrZeroCellsFollowTheSetEmptyCellsOption) {
    InputRows rows = fixedTable(RANGE_360_830_2NM, "1");
    rows[3][1] = "";
    rows[4][1] = "1e-70";
    DirectInputOptions options = optionsFor(RANGE_360_830_2NM);
    InputMessage message;
    EXPECT_FALSE(checkForEmptyCells(rows, options, &message));  // allowed by default
    options.zeroEmptyCells = false;
    ASSERT_TRUE(checkForEmptyCells(rows, options, &message));
    EXPECT_EQ(message.title, "Data error");
    EXPECT_TRUE(message.markFirstCells);
    EXPECT_EQ(message.text,
              "Empty cells are not allowed\nYou can check the \"Data->Set empty cells in spectrum "
              "to 0\" option to allow them");
    options.zeroEmptyCells = true;
    options.analysisType = 7;
    ASSERT_TRUE(checkForEmptyCells(fixedTable(RANGE_360_830_2NM, "0"), options, &message));
    EXPECT_EQ(message.text,
              "You must enter reflectance data.\nIf you've enterd data too many values are below "
              "0.");
}

TEST(DirectInput, TheDisplayColumnReadsBackWithPhotonsInWatts) {
    const std::vector<std::string> column = {"1.000e+00", "", "2,000e+00"};
    std::vector<double> watts = spectrumFromColumn(column, false);
    EXPECT_DOUBLE_EQ(watts[0], 1.0);
    EXPECT_DOUBLE_EQ(watts[1], 0.0);
    EXPECT_DOUBLE_EQ(watts[2], 2.0);
    // One photon per second at 360 nm carries h c / 360 nm = 5.518e-19 J.
    watts = spectrumFromColumn({"1e18"}, true);
    EXPECT_NEAR(watts[0], 0.55180, 1e-4);
}

TEST(NumberText, AcceptsTheNumbersOfATableCell) {
    const char* good[] = {"1",    "-1.5",  "+2", "1,5", " 3.0 ", "1e5",
                          "1E-5", "-2e+3", ".5", "5.",  "1.5e10"};
    const char* bad[] = {"",   "  ",    "abc",  "1..2", "1,,2",  "1e5e", "e5",   "5e",
                         "1-", "1e5.2", "1+e5", "--1",  "1e--5", "1 2",  "1e+-5"};
    for (const char* text : good) EXPECT_TRUE(isValidDoubleText(text)) << text;
    for (const char* text : bad) EXPECT_FALSE(isValidDoubleText(text)) << text;
}

TEST(ProgramFolder, ArgumentHomeAndFallbacks) {
    const fs::path base =
        fs::temp_directory_path() / ("lumivar_folder_" + std::to_string(getpid()));
    fs::remove_all(base);
    fs::create_directories(base / "home");
    const std::string home = (base / "home").string();

    // A folder argument that names a directory wins; one that doesn't is ignored.
    EXPECT_EQ(chooseProgramDir(base.string(), home.c_str(), ""), base.string() + "/");
    EXPECT_EQ(chooseProgramDir((base / "missing").string(), home.c_str(), ""),
              home + "/Lumivar_KBI/");
    EXPECT_TRUE(fs::is_directory(base / "home" / "Lumivar_KBI"));
    // With HOME unset the password entry's home is the base.
    EXPECT_EQ(chooseProgramDir("", nullptr, home), home + "/Lumivar_KBI/");
    // A base where the folder cannot be made is used itself (root may write anywhere).
    if (::geteuid() != 0) {
        fs::create_directories(base / "locked");
        ::chmod((base / "locked").c_str(), 0555);
        const std::string locked = (base / "locked").string();
        EXPECT_EQ(chooseProgramDir("", locked.c_str(), ""), locked + "/");
        ::chmod((base / "locked").c_str(), 0755);
    }
    const std::string notADir = (base / "file").string();
    {
        std::FILE* f = std::fopen(notADir.c_str(), "w");
        std::fclose(f);
    }
    EXPECT_EQ(chooseProgramDir("", notADir.c_str(), ""), notADir + "/");
    fs::remove_all(base);
}

TEST(OutputField, FixedNumbersAndLabels) {
    const struct {
        int index;
        const char* name;
    } cases[] = {{0, "Lumens"},
                 {7, "Ext. lm"},
                 {8, "R1"},
                 {22, "R15"},
                 {23, "x"},
                 {32, "umol/J (spec)"},
                 {40, "Q1"},
                 {54, "Q15"},
                 {55, "Mired"},
                 {65, "Rf"},
                 {68, "Rfh,1"},
                 {83, "Rfh,16"},
                 {84, "Rhs,h1"},
                 {115, "Rcs,h16"},
                 {116, "CCT (F,10)"},
                 {130, "Z"},
                 {138, "CQS gamut area uv ref"},
                 {148, "Input Voltage"},
                 {150, "D (G/R)"}};
    for (const auto& c : cases) {
        EXPECT_EQ(outputFieldName(c.index), c.name) << c.index;
        EXPECT_EQ(outputFieldIndex(c.name), c.index) << c.name;
    }
    EXPECT_EQ(outputFieldName(151), "");
    EXPECT_EQ(outputFieldIndex("nothing"), -1);
    OutputField fields[NUM_OUTPUT_FIELDS];
    int order[NUM_OUTPUT_FIELDS];
    resetOutputOrder(fields, order);
    EXPECT_EQ(order[150], 150);
    EXPECT_TRUE(fields[77].selected);
    EXPECT_EQ(fields[77].name, "Rfh,10");
}
