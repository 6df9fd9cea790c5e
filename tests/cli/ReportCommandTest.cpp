// lumivar-cli report: the files it writes without a display, and its answers to bad input.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "ReportCommand.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

std::string readAll(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

class ReportCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = fs::temp_directory_path() /
              ("lumivar_report_" +
               std::string(::testing::UnitTest::GetInstance()->current_test_info()->name()));
        fs::remove_all(dir);
        fs::create_directories(dir);
        // A white LED as a two-column file, 380 to 780 nm by 5 nm.
        std::ofstream led(dir / "led.txt");
        for (int nm = 380; nm <= 780; nm += 5) {
            led << nm << '\t'
                << std::exp(-0.5 * std::pow((nm - 452) / 10.0, 2)) +
                       0.9 * std::exp(-0.5 * std::pow((nm - 565) / 45.0, 2))
                << '\n';
        }
    }
    void TearDown() override { fs::remove_all(dir); }

    // Runs the tool with no display; returns the exit status, stderr in *err.
    int tool(const std::string& args, std::string* err) {
        const fs::path errFile = dir / "stderr.txt";
        const std::string command = "cd '" + dir.string() + "' && env -u DISPLAY '" +
                                    LUMIVAR_CLI_PATH + "' report " + args + " 2> '" +
                                    errFile.string() + "'";
        const int status = std::system(command.c_str());
        *err = readAll(errFile);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    fs::path dir;
};

TEST_F(ReportCommand, WritesTheTM30ReportAsPdfAndSvgWithoutADisplay) {
    std::string err;
    ASSERT_EQ(tool("tm30 led.txt -o r.pdf --paper a4 --note 'Made <here> & \"there\"'", &err), 0)
        << err;
    EXPECT_EQ(err, "");
    const std::string pdf = readAll(dir / "r.pdf");
    EXPECT_EQ(pdf.compare(0, 5, "%PDF-"), 0);
    EXPECT_NE(pdf.find("%%EOF", pdf.size() - 16), std::string::npos);
    EXPECT_NE(pdf.find("/MediaBox [ 0 0 595.28"), std::string::npos);  // an A4 page

    ASSERT_EQ(tool("tm30 led.txt -o r.svg --type simple", &err), 0) << err;
    const std::string svg = readAll(dir / "r.svg");
    EXPECT_EQ(svg.compare(0, 5, "<?xml"), 0);
    EXPECT_NE(svg.find("</svg>", svg.size() - 16), std::string::npos);
    if (std::system("command -v xmllint > /dev/null 2>&1") == 0) {
        const std::string check = "xmllint --noout '" + (dir / "r.svg").string() + "'";
        EXPECT_EQ(std::system(check.c_str()), 0);
    }
    // Without -o: the file's title and the chart's name, as a PDF.
    ASSERT_EQ(tool("rvalues led.txt", &err), 0) << err;
    EXPECT_TRUE(fs::exists(dir / "led_R-values.pdf"));
    ASSERT_EQ(tool("jab led.txt", &err), 0) << err;
    EXPECT_THAT(readAll(dir / "led_Jab_Rfi_values.xls"), HasSubstr("CES Color #\t"));
}

TEST_F(ReportCommand, BadInputGetsOneLineAndNoFile) {
    std::string err;
    EXPECT_EQ(tool("tm30 led.txt -o /nonexistent-folder/r.pdf", &err), 1);
    EXPECT_THAT(err, HasSubstr("cannot write /nonexistent-folder/r.pdf"));
    EXPECT_EQ(std::count(err.begin(), err.end(), '\n'), 1);

    EXPECT_EQ(tool("tm30 led.txt -o r.bmp", &err), 2);
    EXPECT_EQ(tool("bars led.txt", &err), 2);
    EXPECT_THAT(err, HasSubstr("unknown chart 'bars'"));
    EXPECT_EQ(tool("tm30", &err), 2);
    EXPECT_EQ(tool("tm30 missing.txt -o m.pdf", &err), 1);
    EXPECT_THAT(err, HasSubstr("missing.txt"));
    EXPECT_FALSE(fs::exists(dir / "m.pdf"));

    // A dark file: no chromaticity; the report still says so on a page, the chart is refused.
    std::ofstream(dir / "dark.txt") << "400 0\n500 0\n600 0\n";
    EXPECT_EQ(tool("tm30 dark.txt -o dark.png", &err), 1);
    EXPECT_TRUE(fs::exists(dir / "dark.png"));
    EXPECT_EQ(tool("graphic dark.txt -o g.png", &err), 1);
    EXPECT_FALSE(fs::exists(dir / "g.png"));

    // A 10,000 character note is cut, with the warning.
    EXPECT_EQ(tool("tm30 led.txt -o n.png --note " + std::string(10000, 'n'), &err), 0);
    EXPECT_THAT(err, HasSubstr("Your text for the note is too long"));
}

}  // namespace
