// lumivar-cli calc --design: a saved design's row, and the designs it can't calculate.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "CalcCommand.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

struct Outcome {
    int status;
    std::string out, err;
};

Outcome calc(const std::vector<std::string>& args) {
    std::istringstream in;
    std::ostringstream out, err;
    const int status = runCalc(args, in, out, err);
    return {status, out.str(), err.str()};
}

class DesignCalc : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = fs::temp_directory_path() /
              ("lumivar_design_" +
               std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::create_directories(dir);
    }
    void TearDown() override { fs::remove_all(dir); }
    std::string write(const std::string& name, const std::string& text) {
        const std::string path = (dir / name).string();
        std::ofstream(path) << text;
        return path;
    }
    // The value under a column of the one data row.
    static std::string column(const Outcome& o, const std::string& name) {
        std::istringstream lines(o.out);
        std::string header, row, h, v;
        std::getline(lines, header);
        std::getline(lines, row);
        std::istringstream hs(header), rs(row);
        while (std::getline(hs, h, '\t') && std::getline(rs, v, '\t'))
            if (h == name) return v;
        return "missing";
    }
    fs::path dir;
};

TEST_F(DesignCalc, AMixOfCheckedRowsByLumensAndWattsGivesOneRow) {
    // Green at 530 nm by lumens and the 4000 K white by visible watts (W), with their LPW.
    const std::string design =
        write("mix.vtd",
              "<version>7.77\n<analysisType>0\n<inputWattsUnits>1\n"
              "<ledChk>3 1\n<dominateWavelength_TF>3 530.0\n<lumens_360_830nm_TF>3 1.000000e+03\n"
              "<lpw_TF>3 1.000000e+02\n"
              "<ledChk>12 1\n<watts_input_TF>12 2.000000e+00\n<lpw_TF>12 1.250000e+02\n");
    const Outcome o = calc({"--folder", dir.string(), "--design", design});
    ASSERT_EQ(o.status, 0) << o.err;
    EXPECT_EQ(o.err, "");
    EXPECT_EQ(column(o, "file"), design);
    EXPECT_NE(column(o, "LPW"), "N/A");
    EXPECT_NE(column(o, "Elec. W"), "N/A");
    EXPECT_NE(column(o, "Lumens"), "missing");
}

TEST_F(DesignCalc, DesignsWithoutASpectrumOrFileAreRefusedOneLineEach) {
    const std::string legacy = write("old.vtd", "6.50\n1\n");
    const std::string direct = write("direct.vtd", "<version>7.77\n<analysisType>1\n");
    const std::string hot = write("hot.vtd",
                                  "<version>7.77\n<analysisType>2\n"
                                  "<blackBodyTemperatureK_TF>2000000\n");
    const std::string nothing = write("empty.vtd", "<version>7.77\n<analysisType>0\n");
    const Outcome o = calc({"--folder", dir.string(), "--design", legacy, "--design", direct,
                            "--design", hot, "--design", nothing});
    EXPECT_EQ(o.status, 1);
    EXPECT_EQ(std::count(o.out.begin(), o.out.end(), '\n'), 1) << o.out;  // the header only
    EXPECT_EQ(std::count(o.err.begin(), o.err.end(), '\n'), 4) << o.err;
    EXPECT_THAT(o.err, HasSubstr(legacy + ": User file error: The file could not be read"));
    EXPECT_THAT(o.err, HasSubstr(direct + ": Data error: The design (analysis type 1)"));
    EXPECT_THAT(o.err, HasSubstr(hot + ": "));
    EXPECT_THAT(o.err, HasSubstr(nothing + ": "));
}

TEST_F(DesignCalc, DesignsAndSpectrumFilesDoNotShareATable) {
    const Outcome o = calc({"--design", "a.vtd", "spectrum.txt"});
    EXPECT_EQ(o.status, 2);
    EXPECT_THAT(o.err, HasSubstr("--design cannot be combined with spectrum files"));
    EXPECT_EQ(calc({"--design"}).status, 2);
}

}  // namespace
