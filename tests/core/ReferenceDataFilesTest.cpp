// The reference data files of the diagram.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ReferenceDataFiles.h"
#include "Vantrel.h"

namespace {
std::vector<std::string> linesOf(const std::string& path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}
const std::string DIR =
    std::filesystem::temp_directory_path().string() + "/lumivar_ref_" + std::to_string(::getpid());
}  // namespace

TEST(ReferenceDataFiles, TheLocusFileHasTwelveColumnsPerNanometre) {
    std::filesystem::create_directories(DIR);
    const std::string path = DIR + "/CIE_horseshoe.xls";
    ASSERT_TRUE(writeHorseShoeData(path));
    const std::vector<std::string> lines = linesOf(path);
    ASSERT_EQ(lines.size(), 1u + Vantrel::NUM_LOCUS_POINTS);
    EXPECT_EQ(lines[0].rfind("x (1931 2 deg)\ty (1931 2 deg)\tu (1931 2 deg)", 0), 0u);
    // 555 nm on the 1931 observer: x 0.3373, y 0.6589 (CIE 015), six decimals each.
    const std::string& row = lines[1 + 555 - 360];
    EXPECT_NEAR(std::stod(row.substr(0, 8)), 0.3373, 1e-4);
    EXPECT_NEAR(std::stod(row.substr(9, 8)), 0.6589, 1e-4);
    EXPECT_EQ(row[8], '\t');
    EXPECT_EQ(std::count(row.begin(), row.end(), '\t'), 12);
    EXPECT_FALSE(writeHorseShoeData(DIR + "/no/such/folder/file.xls"));
    std::filesystem::remove_all(DIR);
}

TEST(ReferenceDataFiles, TheGamutFileListsEachGamutsCorners) {
    std::filesystem::create_directories(DIR);
    const std::string path = DIR + "/gamut_points.xls";
    ASSERT_TRUE(writeGamutData(path));
    const std::vector<std::string> lines = linesOf(path);
    ASSERT_GT(lines.size(), 10u);
    EXPECT_EQ(lines[1], "x\ty");
    EXPECT_EQ(lines[2], "0.6400\t0.3300") << "the first gamut starts with the sRGB red";
    std::filesystem::remove_all(DIR);
}

namespace {
std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> out;
    std::size_t start = 0;
    for (std::size_t tab; (tab = line.find('\t', start)) != std::string::npos; start = tab + 1)
        out.push_back(line.substr(start, tab - start));
    out.push_back(line.substr(start));
    return out;
}
}  // namespace

TEST(ReferenceDataFiles, TheCESTableHoldsTheTypesNamesAndPublishedReflectances) {
    std::istringstream text(cesDataText());
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), 7u + 2u + Vantrel::NUM_GRID_POINTS);
    EXPECT_EQ(lines[0], "1 - Nature");
    EXPECT_EQ(lines[1], "2 - Skin");
    EXPECT_EQ(lines[6], "7 - Color system");
    const std::vector<std::string> types = cells(lines[7]);
    ASSERT_EQ(types.size(), 1u + 99u + 1u);  // every cell ends in a tab
    EXPECT_EQ(types[0], "Sample type");
    for (std::size_t k = 1; k <= 99; ++k) {
        EXPECT_GE(std::stoi(types[k]), 1);
        EXPECT_LE(std::stoi(types[k]), 7);
    }
    const std::vector<std::string> names = cells(lines[8]);
    EXPECT_EQ(names[0], "Wavelength (nm)");
    EXPECT_EQ(names[1], "CES01");
    EXPECT_EQ(names[99], "CES99");
    // 500 nm is row 70 of the 2 nm grid; IES TM-30-18 gives CES01 0.5095 and CES02 0.1327 there.
    const std::vector<std::string> at500 = cells(lines[9 + 70]);
    EXPECT_EQ(at500[0], "500");
    EXPECT_NEAR(std::stod(at500[1]), 0.5095, 1e-6);
    EXPECT_NEAR(std::stod(at500[2]), 0.1327, 1e-6);
    // Written whole, or refused where no file can be made.
    std::filesystem::create_directories(DIR);
    EXPECT_TRUE(writeCESData(DIR + "/CES_data.xls"));
    EXPECT_EQ(linesOf(DIR + "/CES_data.xls"), lines);
    EXPECT_FALSE(writeCESData(DIR + "/no such folder/CES_data.xls"));
}

TEST(ReferenceDataFiles, ReferenceColoursBecomeNamedLibraryEntries) {
    struct Case {
        ReferenceColours which;
        std::size_t count;
        const char* first;
        const char* last;
        double firstAt500;  // published reflectance of the first sample at 500 nm
    };
    const Case cases[] = {
        {ReferenceColours::CRI_SAMPLES, 15, "R1", "R15", 0.223},  // CIE 13.3 TCS01
        {ReferenceColours::CQS_SAMPLES, 15, "Q1", "Q15", -1},
        {ReferenceColours::COLOR_CHECKER, 24, "CC1", "CC24", 0.068},  // EBU Tech 3355
        {ReferenceColours::CES, 99, "CES01", "CES99", 0.5095},        // IES TM-30-18
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.first);
        const std::vector<ledTypeStruct> entries = referenceColourEntries(c.which);
        ASSERT_EQ(entries.size(), c.count);
        EXPECT_STREQ(entries.front().name, c.first);
        EXPECT_STREQ(entries.back().name, c.last);
        if (c.firstAt500 > 0) {
            EXPECT_NEAR(entries.front().spectrum[70], c.firstAt500, 1e-6);
        }
        for (const ledTypeStruct& e : entries) {
            const double* end = e.spectrum + Vantrel::NUM_GRID_POINTS;
            EXPECT_GT(*std::max_element(e.spectrum, end), 0.0) << e.name;
            EXPECT_LE(*std::max_element(e.spectrum, end), 1.0) << e.name;
        }
    }
}
