// Spectrum text files: the layouts users save, every kind of bad input with its line, and the
// conversion onto the engine grid.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "SpectrumFile.h"
#include "Vantrel.h"

namespace {

using ::testing::HasSubstr;

SpectrumReadResult readText(const std::string& text) {
    std::istringstream in(text);
    return readSpectrum(in);
}

SpectrumData evenTable(double first, double step, int rows, double value) {
    SpectrumData data;
    for (int i = 0; i < rows; ++i) {
        data.wavelengths.push_back(first + i * step);
        data.values.push_back(value);
    }
    return data;
}

struct GoodCase {
    const char* text;
    std::vector<double> values;
    int headerLine, firstNegativeLine;
    std::vector<double> wavelengths = {400, 500, 600};
};

TEST(SpectrumReader, ReadsEveryLayoutUsersSave) {
    const GoodCase cases[] = {
        {"\357\273\277400 1\n 500   2\n600 3", {1, 2, 3}, 0, 0},  // UTF-8 byte order mark
        {"400\t1\r\n500\t2\r\n600\t3\r\n", {1, 2, 3}, 0, 0},
        {"400,1\n500, 2\n600 ,3\n", {1, 2, 3}, 0, 0},
        {"400;1,5\n500 ; 2.25\n600;3\n", {1.5, 2.25, 3}, 0, 0},
        {"# lamp\n  # 2 nm\n\nnm;W/nm\n400;1\n# x\n500;2\n600;3\n", {1, 2, 3}, 4, 0},
        {"nm,W,,\n400,1,\n500,2,,\n,,\n600,3\n", {1, 2, 3}, 1, 0},  // padded spreadsheet rows
        {"4e2 +1e-3\n500 .5\n600 3.\n", {1e-3, .5, 3}, 0, 0},
        {"400 1\n500 -2\n600 -0\n", {1, 0, 0}, 0, 2},
        {"832 1\n840 1\n850 1\n", {1, 1, 1}, 0, 0, {832, 840, 850}},  // reaches the last cell
        {"300 1\n340 1\n360 1\n", {1, 1, 1}, 0, 0, {300, 340, 360}},  // reaches 360 nm
    };
    for (const GoodCase& c : cases) {
        SCOPED_TRACE(c.text);
        const SpectrumReadResult r = readText(c.text);
        ASSERT_TRUE(r.ok) << r.error << " (line " << r.errorLine << ")";
        EXPECT_EQ(r.data.wavelengths, c.wavelengths);
        EXPECT_EQ(r.data.values, c.values);
        EXPECT_EQ(r.headerLine, c.headerLine);
        EXPECT_EQ(r.firstNegativeLine, c.firstNegativeLine);
    }
}

struct BadCase {
    const char* text;
    int line;
    std::string message;
};

TEST(SpectrumReader, RejectsBadInputAtItsLine) {
    const BadCase cases[] = {
        {"", 0, SPECTRUM_NO_DATA_MESSAGE},
        {"# only comments\n\nnm W\n", 0, SPECTRUM_NO_DATA_MESSAGE},
        {"400 1\n500\n600 3\n", 2, "one column"},
        {"400 1 7\n", 1, "3 columns"},
        {"400 1,5\n", 1, "3 columns"},
        {"400,,1\n", 1, "empty field"},
        {"# c\r\n\r\nnm\tW\r\n400\t1\r\n500\tx1\r\n", 5, "value is not a number: \"x1\""},
        {"nm W\n400 1\nnm W\n", 3, "wavelength is not a number"},
        {"400 1\n500 1.2.3\n", 2, "not a number"},
        {"400 1\n500 nan\n", 2, "not a finite number"},
        {"400 1\n500 -inf\n", 2, "not a finite number"},
        {"400 1e999\n", 1, "not a finite number"},
        {"400 1\n500 2\n450 3\n", 3, "450 follows 500 (line 2)"},
        {"400 1\n\n400 2\n", 3, "400 repeats (line 1)"},
        {"400 1\n500 2\n", 0, "at least 3 data rows"},
        {"833 1\n840 1\n850 1\n", 0, SPECTRUM_OUT_OF_RANGE_MESSAGE},
        {"300 1\n320 1\n359 1\n", 0, SPECTRUM_OUT_OF_RANGE_MESSAGE},
    };
    for (const BadCase& c : cases) {
        SCOPED_TRACE(c.text);
        const SpectrumReadResult r = readText(c.text);
        EXPECT_FALSE(r.ok);
        EXPECT_EQ(r.errorLine, c.line);
        EXPECT_THAT(r.error, HasSubstr(c.message));
        EXPECT_TRUE(r.data.wavelengths.empty());
    }
}

TEST(SpectrumReader, StopsAtALongLineWithoutReadingTheRest) {
    std::istringstream in("400 1\n" + std::string(8'000'000, '7'));
    const SpectrumReadResult r = readSpectrum(in);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.errorLine, 2);
    EXPECT_THAT(r.error, HasSubstr("longer than 4096"));
    EXPECT_LT(static_cast<long>(in.tellg()), 2 * static_cast<long>(SPECTRUM_MAX_LINE_LENGTH));
}

TEST(SpectrumGrid, FillsExactlyTheGridFromA5nmTable) {
    const SpectrumData table = evenTable(360, 5, 95, 1.0);
    ASSERT_EQ(table.wavelengths.back(), 830);
    double grid[Vantrel::NUM_GRID_POINTS + 4];
    std::fill(std::begin(grid), std::end(grid), -1.0);
    std::string error;
    ASSERT_TRUE(toGrid(table, grid, &error)) << error;
    EXPECT_EQ(grid[0], 0.5);  // the first input cell starts at 360 nm, half of the grid cell
    for (int i = 1; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = 360 + 2 * i;
        EXPECT_GE(grid[i], 0.0) << nm << " nm";  // every grid point written
        if (nm <= 826) {
            EXPECT_EQ(grid[i], 1.0) << nm << " nm";  // cells ending before 827.5 nm
        }
    }
    for (int i = Vantrel::NUM_GRID_POINTS; i < Vantrel::NUM_GRID_POINTS + 4; ++i) {
        EXPECT_EQ(grid[i], -1.0) << "written past the grid";
    }
}

TEST(SpectrumGrid, RoundsToTheFourDigitsTheWindowShows) {
    double grid[Vantrel::NUM_GRID_POINTS];
    ASSERT_TRUE(toGrid(evenTable(350, 1, 500, 1.234567e-3), grid, nullptr));
    EXPECT_EQ(grid[100], 1.235e-3);
    ASSERT_TRUE(toGrid(evenTable(350, 1, 500, 98765.4), grid, nullptr));
    EXPECT_EQ(grid[100], 98770.0);
}

TEST(SpectrumGrid, RefusesDataThatCannotReachTheGrid) {
    const std::pair<SpectrumData, std::string> cases[] = {
        {evenTable(900, 5, 10, 1), SPECTRUM_OUT_OF_RANGE_MESSAGE},
        {evenTable(400, 5, 2, 1), SPECTRUM_RESAMPLING_MESSAGE},
        {evenTable(400, 5, 10, 1e308), "too large"},
    };
    for (const auto& [data, message] : cases) {
        double grid[Vantrel::NUM_GRID_POINTS];
        std::string error;
        EXPECT_FALSE(toGrid(data, grid, &error));
        EXPECT_THAT(error, HasSubstr(message));
    }
}

}  // namespace

TEST(SpectrumGrid, TakesRowsOnTheGridAsTheyAre) {
    // The 2 nm grid from 360 nm: copied as the window's 2 nm table copies it, so the first point
    // is not halved as resampling would halve it.
    SpectrumData onGrid;
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        onGrid.wavelengths.push_back(360.0 + 2.0 * i);
        onGrid.values.push_back(1.0 + 0.001 * i);
    }
    double grid[Vantrel::NUM_GRID_POINTS];
    ASSERT_TRUE(toGrid(onGrid, grid, nullptr));
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i)
        EXPECT_DOUBLE_EQ(grid[i], 1.0 + 0.001 * i) << i;

    // The same values one nanometre later are another grid: resampled, first point halved.
    SpectrumData shifted = onGrid;
    for (double& nm : shifted.wavelengths) nm += 1.0;
    ASSERT_TRUE(toGrid(shifted, grid, nullptr));
    EXPECT_NE(grid[1], 1.001);
    // And a 2 nm grid that stops short of 830 nm is resampled too.
    SpectrumData shorter = onGrid;
    shorter.wavelengths.pop_back();
    shorter.values.pop_back();
    ASSERT_TRUE(toGrid(shorter, grid, nullptr));
    EXPECT_DOUBLE_EQ(grid[0], 0.5);
}
