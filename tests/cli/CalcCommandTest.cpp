// lumivar-cli calc: the table, one stderr line per bad file, exit statuses and usage mistakes,
// through runCalc and, for the process as a whole, through the real binary.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "AppConstants.h"
#include "CalcCommand.h"
#include "ResultFields.h"
#include "SpectrumFile.h"

namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using ::testing::StartsWith;

struct Outcome {
    int status;
    std::string out, err;
};

std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> parts;
    std::istringstream s(text);
    for (std::string part; std::getline(s, part, separator);) parts.push_back(part);
    return parts;
}

// A 4000 K Planck spectrum in W/nm, 360 to 830 nm in 5 nm, optionally with a negative value.
std::string planckText(bool withNegative = false) {
    std::string text = "# 4000 K\nnm\tW/nm\n";
    for (int nm = 360; nm <= 830; nm += 5) {
        const double w = 1e-3 / (std::pow(nm / 560.0, 5) * std::expm1(1.4388e7 / (nm * 4000.0)));
        char row[64];
        std::snprintf(row, sizeof row, "%d\t%.6g\n", nm, withNegative && nm == 370 ? -w : w);
        text += row;
    }
    return text;
}

class CalcCommand : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "lumivar-calc-XXXXXX").string();
        ASSERT_NE(mkdtemp(pattern.data()), nullptr);
        dir = pattern;
    }
    void TearDown() override { fs::remove_all(dir); }

    std::string write(const std::string& name, const std::string& text) {
        std::ofstream(dir / name, std::ios::binary) << text;
        return (dir / name).string();
    }

    static Outcome calc(const std::vector<std::string>& args, const std::string& input = "") {
        std::istringstream in(input);
        std::ostringstream out, err;
        const int status = runCalc(args, in, out, err);
        return {status, out.str(), err.str()};
    }

    // The row the window's own pipeline gives for this text.
    static std::string expectedRow(const std::string& name, const std::string& text, int observer,
                                   bool precise) {
        std::istringstream in(text);
        const SpectrumReadResult read = readSpectrum(in);
        double grid[Vantrel::NUM_GRID_POINTS];
        EXPECT_TRUE(read.ok && toGrid(read.data, grid, nullptr));
        SpectrumCalculator calculator;
        calculator.setObserver(observer);
        std::string row = name;
        const std::vector<ResultField> fields = outputFieldValues(calculator.calculate(grid));
        for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
            if (!fieldHasMeaningForSpectrumFile(i)) continue;
            const ResultField& f = fields[i];
            char value[40];
            std::snprintf(value, sizeof value, "%.10g", f.value);
            row += "\t" + (!precise ? f.text : f.defined ? value : UNDEFINED_TERM);
        }
        return row;
    }

    fs::path dir;
};

TEST_F(CalcCommand, HeaderListsTheFileThenTheSpectrumFieldsInFieldOrder) {
    // Fields that need the mix rows, the grid to 1050 nm or a lamp design are left out.
    const std::set<std::string> mixOnly = {"LPW",     "Elec. W",  "Ext. lm",      "umol/J (wp)",
                                           "RMS",     "max dE*",  "Blue watts",   "Phos watts",
                                           "Total W", "Input mA", "Input Voltage"};
    std::string expected = "file";
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        if (mixOnly.count(outputFieldName(i)) == 0) expected += "\t" + outputFieldName(i);
    }
    const std::string headerLine = split(calc({write("lamp.txt", planckText())}).out, '\n').at(0);
    EXPECT_EQ(headerLine, expected);
    const std::vector<std::string> header = split(headerLine, '\t');
    ASSERT_EQ(header.size(), 1u + NUM_OUTPUT_FIELDS - mixOnly.size());
    EXPECT_EQ(header[1] + " " + header[2] + " " + header[3], "Lumens Vis watt CCT");
    EXPECT_EQ(header.back(), "D (G/R)");
}

TEST_F(CalcCommand, PrintsTheWindowResultsInBothFormatsForEveryObserver) {
    const std::string lamp = write("lamp.txt", planckText());
    for (int observer = 0; observer < 4; ++observer) {
        for (bool precise : {false, true}) {
            std::vector<std::string> args = {"--observer", std::to_string(observer), lamp};
            if (precise) args.insert(args.begin(), "--precise");
            const Outcome r = calc(args);
            EXPECT_EQ(r.status, EXIT_ALL_GOOD) << r.err;
            EXPECT_EQ(r.err, "");
            EXPECT_EQ(split(r.out, '\n').at(1), expectedRow(lamp, planckText(), observer, precise));
        }
    }
}

TEST_F(CalcCommand, ComputesTheGoodFilesAndNamesEachBadOneOnOneLine) {
    const std::string good = write("good.txt", planckText()), missing = (dir / "no.txt").string(),
                      empty = write("empty.txt", ""),
                      bad = write("bad.txt", "nm W\n400 1\n500 x\n"),
                      negative = write("neg.txt", planckText(true)), folder = dir.string();
    const Outcome r = calc({missing, good, empty, bad, negative, folder});
    EXPECT_EQ(r.status, EXIT_INPUT_PROBLEM);
    const std::vector<std::string> rows = split(r.out, '\n'), errors = split(r.err, '\n');
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[1], expectedRow(good, planckText(), 0, false));
    EXPECT_EQ(rows[2], expectedRow(negative, planckText(true), 0, false));  // computed as 0
    ASSERT_EQ(errors.size(), 5u) << r.err;
    EXPECT_THAT(errors[0], StartsWith("lumivar-cli: " + missing + ": cannot open file"));
    EXPECT_EQ(errors[1], "lumivar-cli: " + empty + ": You must enter spectral data.");
    EXPECT_EQ(errors[2], "lumivar-cli: " + bad + ":3: value is not a number: \"x\"");
    EXPECT_EQ(errors[3], "lumivar-cli: " + negative + ":5: negative values set to 0");
    EXPECT_EQ(errors[4], "lumivar-cli: " + folder + ": cannot read file: is a directory");
    EXPECT_EQ(calc({negative}).status, EXIT_INPUT_PROBLEM) << "negative values alone";
}

TEST_F(CalcCommand, ReadsStandardInputAloneOrAmongFiles) {
    const std::string lamp = write("lamp.txt", planckText());
    const std::string row = expectedRow("-", planckText(), 0, false);
    EXPECT_EQ(split(calc({}, planckText()).out, '\n').at(1), row);
    const Outcome r = calc({lamp, "-"}, planckText());
    EXPECT_EQ(r.status, EXIT_ALL_GOOD) << r.err;
    EXPECT_EQ(split(r.out, '\n').at(2), row);
}

// A flat spectrum on the grid, as a spectrometer file of that level would give it.
std::string flatText(double level) {
    std::string text;
    char row[64];
    for (int nm = 360; nm <= 830; nm += 2) {
        std::snprintf(row, sizeof row, "%d %g\n", nm, level);
        text += row;
    }
    return text;
}

TEST_F(CalcCommand, ASpectrumWithoutAChromaticityIsAnErrorNotARow) {
    const std::string dark = "You must have some intensities greater than 1.0e-09.";
    const std::string bright = "Your intensities are too large to be calculated.";
    const struct {
        const char* name;
        std::string text;
        std::string error;  // empty: a row of results
    } cases[] = {
        {"zero.txt", "360 0\n500 0\n830 0\n", dark},
        {"flat1e-12.txt", flatText(1e-12), dark},  // X+Y+Z about 1.6e-10
        {"flat1e-11.txt", flatText(1e-11), ""},    // X+Y+Z about 1.6e-9: still a colour
        {"flat1e307.txt", flatText(1e307), bright},
    };
    for (const auto& c : cases) {
        const std::string file = write(c.name, c.text);
        const Outcome r = calc({"--precise", file});
        const std::vector<std::string> lines = split(r.out, '\n');
        if (c.error.empty()) {
            EXPECT_EQ(r.status, EXIT_ALL_GOOD) << c.name << r.err;
            ASSERT_EQ(lines.size(), 2u) << c.name;
            EXPECT_THAT(lines[1], HasSubstr("\t0.3333")) << "x of equal energy";
        } else {
            EXPECT_EQ(r.status, EXIT_INPUT_PROBLEM) << c.name;
            EXPECT_EQ(lines.size(), 1u) << c.name << ": the header only";
            EXPECT_EQ(r.err, "lumivar-cli: " + file + ": " + c.error + "\n");
        }
    }
}

TEST_F(CalcCommand, AnswersUsageMistakesWithStatus2AndHelpWithStatus0) {
    const std::pair<std::vector<std::string>, int> cases[] = {
        {{"--observer"}, EXIT_USAGE},
        {{"--observer", "4"}, EXIT_USAGE},
        {{"--observer", "01"}, EXIT_USAGE},
        {{"--observer", "-1"}, EXIT_USAGE},
        {{"--observer=x"}, EXIT_USAGE},
        {{"--bogus", "lamp.txt"}, EXIT_USAGE},
        {{"--cs-lux"}, EXIT_USAGE},
        {{"--cs-lux", "0"}, EXIT_USAGE},
        {{"--cs-lux=abc"}, EXIT_USAGE},
        {{"-h"}, EXIT_ALL_GOOD},
        {{"--precise", "--help"}, EXIT_ALL_GOOD}};
    for (const auto& [args, status] : cases) {
        const Outcome r = calc(args);
        EXPECT_EQ(r.status, status) << args[0];
        EXPECT_THAT(status == EXIT_USAGE ? r.err : r.out, HasSubstr("Usage: lumivar-cli calc"));
        EXPECT_EQ(status == EXIT_USAGE ? r.out : r.err, "") << args[0];
    }
}

// The real binary through the shell, killed (status 137) when it outlives timeoutSeconds.
Outcome runBinary(const fs::path& dir, const std::string& args, int timeoutSeconds) {
    const std::string out = (dir / "stdout").string(), err = (dir / "stderr").string();
    const int raw =
        std::system(("timeout -s KILL " + std::to_string(timeoutSeconds) + " '" + LUMIVAR_CLI_PATH +
                     "' " + args + " </dev/null >'" + out + "' 2>'" + err + "'")
                        .c_str());
    auto slurp = [](const std::string& path) {
        std::ostringstream s;
        s << std::ifstream(path).rdbuf();
        return s.str();
    };
    return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, slurp(out), slurp(err)};
}

TEST_F(CalcCommand, BinaryFailsFastOn50MegabytesOfGarbage) {
    const std::string garbage = (dir / "garbage.bin").string();
    {
        std::mt19937 random(7);
        std::string chunk(1 << 20, ' ');
        for (char& c : chunk) c = static_cast<char>(33 + random() % 94);  // printable, no '\n'
        std::ofstream file(garbage, std::ios::binary);
        for (int i = 0; i < 50; ++i) file << chunk;
    }
    const Outcome r = runBinary(dir, "calc '" + garbage + "'", 5);
    EXPECT_EQ(r.status, EXIT_INPUT_PROBLEM) << r.err;
    EXPECT_EQ(r.err, "lumivar-cli: " + garbage + ":1: line longer than 4096 characters\n");
}

TEST_F(CalcCommand, BinaryDispatchesOnTheCommand) {
    const std::pair<const char*, int> cases[] = {
        {"", EXIT_USAGE},     {"--help", EXIT_ALL_GOOD},      {"-h", EXIT_ALL_GOOD},
        {"frob", EXIT_USAGE}, {"calc --help", EXIT_ALL_GOOD}, {"calc --x", EXIT_USAGE}};
    for (const auto& [args, status] : cases) {
        const Outcome r = runBinary(dir, args, 10);
        EXPECT_EQ(r.status, status) << args;
        EXPECT_THAT(status == EXIT_USAGE ? r.err : r.out, HasSubstr("Usage: lumivar-cli")) << args;
    }
}

}  // namespace

TEST_F(CalcCommand, CsLuxAddsCircadianLightAndStimulusAtThatIlluminance) {
    const std::string lamp = write("lamp.txt", planckText());
    const Outcome r = calc({"--precise", "--cs-lux", "300", lamp});
    EXPECT_EQ(r.status, EXIT_ALL_GOOD) << r.err;
    const std::vector<std::string> header = split(split(r.out, '\n').at(0), '\t');
    const std::vector<std::string> row = split(split(r.out, '\n').at(1), '\t');
    ASSERT_EQ(header.size(), row.size());
    ASSERT_EQ(header[header.size() - 2] + " " + header.back(), "CLA CS");
    std::istringstream in(planckText());
    const SpectrumReadResult read = readSpectrum(in);
    double grid[Vantrel::NUM_GRID_POINTS];
    ASSERT_TRUE(toGrid(read.data, grid, nullptr));
    Vantrel v;
    double cla, cs;
    ASSERT_TRUE(v.getCircadian_CLA(grid, 300.0, &cla, &cs));
    EXPECT_NEAR(std::stod(row[row.size() - 2]), cla, 1e-6 * cla);
    EXPECT_NEAR(std::stod(row.back()), 100.0 * cs, 1e-6);  // percent, as the window shows
}

namespace {

const std::string SPECTROMETER_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/spectrometer/";

// Cells of the row after the header, with the file column left out.
std::vector<std::string> valuesOf(const std::string& table, std::size_t row = 1) {
    std::vector<std::string> cells = split(split(table, '\n').at(row), '\t');
    cells.erase(cells.begin());
    return cells;
}

double cell(const std::string& table, std::size_t row, const std::string& name) {
    const std::vector<std::string> header = split(split(table, '\n').at(0), '\t');
    const std::vector<std::string> cells = split(split(table, '\n').at(row), '\t');
    for (std::size_t i = 0; i < header.size(); ++i) {
        if (header[i] == name) return std::stod(cells.at(i));
    }
    ADD_FAILURE() << "no column " << name;
    return 0;
}

}  // namespace

TEST_F(CalcCommand, EveryImportFormatOfOneSpectrumGivesTheRowOfItsTwoColumnText) {
    const char* files[] = {
        "planck4000.txt",
        "planck4000_utf16le.txt",
        "planck4000_utf16be.txt",
        "planck4000.spdx",
        "planck4000.sp",
        "planck4000_spectrasuite.txt",
        "planck4000_specwin.isd",
        "planck4000_mole.isd",
        "planck4000_semicolon.csv",
        "planck4000_intensity_first.dat",
    };
    for (bool precise : {false, true}) {
        // The data files hold the numbers of planckText(), the spectrum of the tests above.
        const std::vector<std::string> expected =
            split(expectedRow("", planckText(), 0, precise), '\t');
        for (const char* file : files) {
            SCOPED_TRACE(file);
            const std::string path = SPECTROMETER_DIR + file;
            std::vector<std::string> args = {path};
            if (precise) args.insert(args.begin(), "--precise");
            const Outcome r = calc(args);
            EXPECT_EQ(r.status, EXIT_ALL_GOOD);
            EXPECT_EQ(r.err, "");
            ASSERT_EQ(split(r.out, '\n').size(), 2u);
            EXPECT_EQ(split(split(r.out, '\n').at(1), '\t').at(0), path);
            EXPECT_EQ(valuesOf(r.out),
                      std::vector<std::string>(expected.begin() + 1, expected.end()));
        }
    }
}

TEST_F(CalcCommand, FileOfSeveralSpectraGivesARowForEachNamedFileHashName) {
    const std::string expected = expectedRow("", planckText(), 0, true);
    const struct {
        const char* file;
        const char* first;
        const char* second;
    } cases[] = {
        {"planck4000_columns.txt", "Lamp A", "Lamp A x2"},
        {"planck4000_columns.csv", "#1", "#2"},
        {"planck4000_two_sets.sp", "planck4000_two_sets (#1)", "planck4000_two_sets (#2)"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        const std::string path = SPECTROMETER_DIR + c.file;
        const Outcome r = calc({"--precise", path});
        EXPECT_EQ(r.status, EXIT_ALL_GOOD) << r.err;
        const std::vector<std::string> rows = split(r.out, '\n');
        ASSERT_EQ(rows.size(), 3u);
        EXPECT_EQ(rows[1], path + "#" + c.first + expected);
        EXPECT_EQ(split(rows[2], '\t').at(0), path + "#" + c.second);
        // Twice the power: twice the lumens, the same colour to the table's 4 digits.
        EXPECT_NEAR(cell(r.out, 2, "Lumens"), 2 * cell(r.out, 1, "Lumens"),
                    1e-3 * cell(r.out, 2, "Lumens"));
        EXPECT_NEAR(cell(r.out, 2, "x"), cell(r.out, 1, "x"), 1e-4);
    }
}

TEST_F(CalcCommand, NamesEachBadSpectrometerFileWithItsLineAndGoesOn) {
    const std::string sp = write("short.sp",
                                 "SPECTRAL_BANDS 3\nNUMBER_OF_SETS 2\nBEGIN_DATA_FORMAT\n"
                                 "SPEC_400 SPEC_500 SPEC_600\nBEGIN_DATA\n1 2 3\nEND_DATA\n");
    const std::string suite = write("cut.txt", "x\n>>>>>Begin Processed\n400\t1\n500\t2\n");
    const std::string spdx = write("bad.spdx",
                                   "<SpectralData wavelength=\"400\">1</SpectralData>\n"
                                   "<SpectralData wavelength=\"500\">1..2</SpectralData>\n");
    const std::string negative = write("neg.sp",
                                       "SPECTRAL_BANDS 3\nNUMBER_OF_SETS 1\nBEGIN_DATA_FORMAT\n"
                                       "SPEC_360 SPEC_600 SPEC_830\nBEGIN_DATA\n1 -2 3\n");
    const std::string good = SPECTROMETER_DIR + "planck4000.sp";
    const Outcome r = calc({sp, good, suite, spdx, negative});
    EXPECT_EQ(r.status, EXIT_INPUT_PROBLEM);
    const std::vector<std::string> rows = split(r.out, '\n'), errors = split(r.err, '\n');
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(split(rows[1], '\t').at(0), good);
    EXPECT_EQ(split(rows[2], '\t').at(0), negative);
    ASSERT_EQ(errors.size(), 4u) << r.err;
    EXPECT_EQ(errors[0], "lumivar-cli: " + sp + ": NUMBER_OF_SETS is 2 but the data has 1 rows");
    EXPECT_EQ(errors[1], "lumivar-cli: " + suite +
                             ": no \">>>>>End Processed\" line: the file ends in the data");
    EXPECT_EQ(errors[2], "lumivar-cli: " + spdx + ":2: value is not a number: \"1..2\"");
    EXPECT_EQ(errors[3], "lumivar-cli: " + negative + ":6: negative values set to 0");
}
