// lumivar-cli convert, and calc on user libraries: spectrometer files become a library whose
// entries calculate as the files do, a table of the spectra, and the failures on the way.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "CalcCommand.h"
#include "ConvertCommand.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

const std::string DATA = std::string(LUMIVAR_TEST_DATA_DIR) + "/spectrometer/";

struct Outcome {
    int status;
    std::string out, err;
};

Outcome convert(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    const int status = runConvert(args, out, err);
    return {status, out.str(), err.str()};
}

Outcome calc(const std::vector<std::string>& args) {
    std::istringstream in;
    std::ostringstream out, err;
    const int status = runCalc(args, in, out, err);
    return {status, out.str(), err.str()};
}

// The rows of a calc table without their first column, in order.
std::vector<std::string> valuesOf(const std::string& table) {
    std::vector<std::string> rows;
    std::istringstream lines(table);
    std::string line;
    std::getline(lines, line);  // header
    while (std::getline(lines, line)) rows.push_back(line.substr(line.find('\t')));
    return rows;
}

class Convert : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = fs::temp_directory_path() /
              ("lumivar_convert_" +
               std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(dir);
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    fs::path dir;
};

TEST_F(Convert, SpectrometerFilesBecomeALibraryWhoseEntriesCalculateAsTheFilesDo) {
    const std::vector<std::string> files = {DATA + "planck4000.spdx", DATA + "planck4000_mole.isd",
                                            DATA + "planck4000_spectrasuite.txt"};
    const std::string library = (dir / "userSpectra.spec").string();
    std::vector<std::string> args = {"--to", "spec"};
    args.insert(args.end(), files.begin(), files.end());
    args.insert(args.end(), {"-o", library});
    const Outcome made = convert(args);
    ASSERT_EQ(made.status, 0) << made.err;

    const Outcome fromFiles = calc(files);
    const Outcome fromLibrary = calc({library});
    ASSERT_EQ(fromLibrary.status, 0) << fromLibrary.err;
    EXPECT_THAT(fromLibrary.out, HasSubstr(library + "#planck4000_mole\t"));
    // The library keeps six significant digits: the rounded fields agree.
    EXPECT_EQ(valuesOf(fromLibrary.out), valuesOf(fromFiles.out));

    // A second conversion adds after what stands.
    ASSERT_EQ(convert({"--to", "spec", DATA + "planck4000_two_sets.sp", "-o", library}).status, 0);
    EXPECT_EQ(valuesOf(calc({library}).out).size(), 5u);
}

TEST_F(Convert, ATableHasAWavelengthColumnAndOneColumnPerSpectrum) {
    const std::string table = (dir / "spectra.tsv").string();
    ASSERT_EQ(convert({"--to", "tsv", DATA + "planck4000_two_sets.sp", "-o", table}).status, 0);
    std::ifstream in(table);
    std::string header, first, line;
    std::getline(in, header);
    std::getline(in, first);
    int rows = 1;
    while (std::getline(in, line)) ++rows;
    EXPECT_EQ(header, "nm\tplanck4000_two_sets (#1)\tplanck4000_two_sets (#2)\t");
    EXPECT_EQ(first.substr(0, 4), "360\t");
    EXPECT_EQ(rows, 346);  // 360 to 1050 nm
}

TEST_F(Convert, BadFilesAndUsageAreReportedAndTheRestIsWritten) {
    const std::string table = (dir / "t.tsv").string();
    const std::string garbage = (dir / "garbage.txt").string();
    std::ofstream(garbage) << "not a spectrum\n\x01\x02\n";
    const Outcome o = convert({"--to", "tsv", garbage, DATA + "planck4000.txt", "-o", table});
    EXPECT_EQ(o.status, 1);
    EXPECT_THAT(o.err, HasSubstr("garbage.txt"));
    EXPECT_TRUE(fs::exists(table));

    EXPECT_EQ(convert({"--to", "xls", DATA + "planck4000.txt", "-o", table}).status, 2);
    EXPECT_EQ(convert({"--to", "tsv", DATA + "planck4000.txt"}).status, 2);
    const Outcome nothing = convert({"--to", "spec", garbage, "-o", (dir / "x.spec").string()});
    EXPECT_EQ(nothing.status, 1);
    EXPECT_FALSE(fs::exists(dir / "x.spec"));
    const Outcome folder = convert({"--to", "tsv", DATA + "planck4000.txt", "-o", dir.string()});
    EXPECT_EQ(folder.status, 1);
    EXPECT_THAT(folder.err, HasSubstr("could not be written"));
}

TEST_F(Convert, ALibraryThatCannotBeReadWholeIsNeverOverwritten) {
    const std::string library = (dir / "mine.spec").string();
    const std::string broken = "1.15  // version\nCut\n1 2 3 x\n";
    std::ofstream(library) << broken;
    const Outcome o = convert({"--to", "spec", DATA + "planck4000.txt", "-o", library});
    EXPECT_EQ(o.status, 1);
    std::ifstream in(library);
    std::stringstream kept;
    kept << in.rdbuf();
    EXPECT_EQ(kept.str(), broken);
    // calc reports the damaged library in one line and the exit status.
    const Outcome c = calc({library});
    EXPECT_EQ(c.status, 1);
    EXPECT_THAT(c.err, HasSubstr("mine.spec"));
}

}  // namespace
