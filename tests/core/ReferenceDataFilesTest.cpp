// The reference data files of the diagram.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
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
