// lumivar-cli calc --photometry: the photometry files of a batch of spectra.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "AppConstants.h"
#include "CalcCommand.h"

namespace {
namespace fs = std::filesystem;

std::vector<std::string> fileLines(const fs::path& path) {
    std::ifstream in(path);
    std::vector<std::string> all;
    for (std::string line; std::getline(in, line);) all.push_back(line);
    return all;
}

int calc(const std::vector<std::string>& args, std::string* err) {
    std::istringstream in;
    std::ostringstream out, errors;
    const int status = runCalc(args, in, out, errors);
    *err = errors.str();
    return status;
}
}  // namespace

TEST(CalcPhotometry, ABatchFillsOneSpreadsheetAndABadFolderIsReportedOnce) {
    const fs::path dir = fs::temp_directory_path() / ("lumivar_calcph_" + std::to_string(getpid()));
    fs::remove_all(dir);
    fs::create_directories(dir);
    // Two daylight-like spectra, 5 nm steps.
    for (const char* name : {"a.txt", "b.txt"}) {
        std::ofstream file(dir / name);
        for (int nm = 360; nm <= 830; nm += 5)
            file << nm << '\t' << (name[0] == 'a' ? 1.0 : 1.0 + (nm - 360) / 470.0) << '\n';
    }
    const std::string a = (dir / "a.txt").string(), b = (dir / "b.txt").string();
    std::string err;
    ASSERT_EQ(calc({"--photometry", dir.string(), a, b}, &err), 0) << err;
    const std::vector<std::string> tab = fileLines(dir / "photometry.xls");
    ASSERT_EQ(tab.size(), 3u);
    EXPECT_EQ(tab[0].rfind("Spectra/Filename\tLumens\t", 0), 0u);
    EXPECT_EQ(tab[1].rfind(a + "\t", 0), 0u);
    EXPECT_EQ(tab[2].rfind(b + "\t", 0), 0u);
    const std::vector<std::string> text = fileLines(dir / PHOTOMETRY_FILE_NAME);
    ASSERT_FALSE(text.empty());
    EXPECT_EQ(text[0], "Direct spectrum input");
    EXPECT_EQ(text[1], a);

    // A folder that is not there: one line, exit status 1, the table still printed.
    EXPECT_EQ(calc({"--photometry", (dir / "none").string(), a, b}, &err), 1);
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1) << err;
    EXPECT_NE(err.find("for writting"), std::string::npos);

    EXPECT_EQ(calc({"--photometry"}, &err), 2);
    fs::remove_all(dir);
}
