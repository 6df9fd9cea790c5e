#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "AppConstants.h"
#include "PhotometryFiles.h"
#include "TestFiles.h"
#include "Vantrel.h"

namespace {
namespace fs = std::filesystem;

using testutil::lines;
using testutil::readAll;

// Field texts "v0" ... "v150" with a decimal point in every tenth.
std::vector<ResultField> numberedValues() {
    std::vector<ResultField> values(NUM_OUTPUT_FIELDS);
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
        values[i].text = i % 10 == 0 ? std::to_string(i) + ".5" : "v" + std::to_string(i);
    return values;
}

class PhotometryFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        dir = fs::temp_directory_path() / ("lumivar_photometry_" + std::to_string(::getpid()));
        fs::remove_all(dir);
        fs::create_directories(dir);
        resetOutputOrder(fields, order);
        values = numberedValues();
        run.fields = &values;
        run.results = &results;
        run.mix = &mix;
        run.name = "lamp";
    }
    void TearDown() override { fs::remove_all(dir); }

    fs::path dir;
    OutputField fields[NUM_OUTPUT_FIELDS];
    int order[NUM_OUTPUT_FIELDS];
    std::vector<ResultField> values;
    SpectrumResults results;
    MixResults mix;
    PhotometryRun run;
    PhotometryFileState state;
};
}  // namespace

TEST_F(PhotometryFiles, TheTabFileGetsItsHeaderOnlyWhenItChanges) {
    const std::string tab = (dir / "photometry.xls").string();
    std::string failed;
    ASSERT_TRUE(writePhotometryExcel(tab, run, fields, order, state, &failed));
    ASSERT_TRUE(writePhotometryExcel(tab, run, fields, order, state, &failed));
    std::vector<std::string> written = lines(readAll(tab));
    ASSERT_EQ(written.size(), 3u);
    EXPECT_EQ(written[0].rfind("Spectra/Filename\tLumens\tVis watt\tCCT\t", 0), 0u);
    // The TM-30 fields carry the version; the film fields are left out unless printed.
    EXPECT_NE(written[0].find("\tRf (TM-30-18)\tRg (TM-30-18)\t"), std::string::npos);
    EXPECT_NE(written[0].find("\tRcs,h16 (TM-30-18)\tCCT (F,10)\t"), std::string::npos);
    EXPECT_EQ(written[0].find("W (G/R)"), std::string::npos);
    EXPECT_EQ(written[1], written[2]);
    EXPECT_EQ(written[1].rfind("lamp\t0.5\tv1\tv2\t", 0), 0u);

    // A new order gives a new header; Lumens now last, CCT left out.
    std::rotate(order, order + 1, order + NUM_OUTPUT_FIELDS);
    fields[2].selected = false;
    run.commaDecimals = true;
    ASSERT_TRUE(writePhotometryExcel(tab, run, fields, order, state, &failed));
    written = lines(readAll(tab));
    ASSERT_EQ(written.size(), 5u);
    EXPECT_EQ(written[3].rfind("Spectra/Filename\tVis watt\tCRI (Ra)\t", 0), 0u);
    EXPECT_NE(written[3].find("\tLumens"), std::string::npos);
    EXPECT_EQ(written[4].rfind("lamp\tv1\tv3\t", 0), 0u);
    EXPECT_NE(written[4].find("\t10,5\t"), std::string::npos);

    // A new program run (a new state) starts the file again.
    PhotometryFileState fresh;
    ASSERT_TRUE(writePhotometryExcel(tab, run, fields, order, fresh, &failed));
    EXPECT_EQ(lines(readAll(tab)).size(), 2u);
}

TEST_F(PhotometryFiles, AFolderThatCannotBeWrittenNamesTheFileAndKeepsTheState) {
    const std::string text = (dir / "missing" / PHOTOMETRY_FILE_NAME).string();
    std::string failed;
    EXPECT_FALSE(appendPhotometryFiles(text, run, true, fields, order, state, &failed));
    EXPECT_EQ(failed, text);
    EXPECT_FALSE(state.photometryFileStarted);
    EXPECT_EQ(photometryWriteErrorText("a.xls"),
              "Cannot open file \"a.xls\" for writting, it may be open in Excel.");
    EXPECT_EQ(tabFileName("/x/photometry.txt"), "/x/photometry.xls");
}

TEST_F(PhotometryFiles, TheTextBlockEndsWithItsRuleAndTheShortFormIsOneLine) {
    run.title = "Direct spectrum input\n";
    const std::string block = photometryText(run);
    EXPECT_EQ(block.rfind("Direct spectrum input\nlumens = 0.5   W (360 - 830 nm) = v1 W", 0), 0u);
    EXPECT_NE(block.find("\nCRI=v3  R1=v8  R2=v9  "), std::string::npos);
    EXPECT_NE(block.find(std::string(85, '*') + "\n" + std::string(90, '*')), std::string::npos);
    // Only the gamut option adds the gamut lines.
    EXPECT_EQ(block.find("Gamut CRI = "), std::string::npos);
    run.withGamuts = true;
    EXPECT_NE(photometryText(run).find("Gamut CRI = v35   "), std::string::npos);

    run.tabbedShort = true;
    results.x = 0.31271;
    results.y = 0.32902;
    results.cct = 6504.4;
    results.R[0] = 95.6;
    results.R[9] = -7.5;
    run.format.numDecimals = 4;
    EXPECT_EQ(photometryText(run), "0.5\tv6\t0.3127\t0.3290\t6504\t0.0000\t96\t-8\tv4\tN/A\n");
}

TEST_F(PhotometryFiles, TheOrderFileRoundTripsAndForgivesBadLines) {
    const std::string path = (dir / OUTPUT_ORDER_FILE_NAME).string();
    std::reverse(order, order + NUM_OUTPUT_FIELDS);
    fields[5].selected = false;
    ASSERT_TRUE(writeOrderToFile(path, fields, order));
    const std::string text = readAll(path);
    EXPECT_EQ(text.rfind("<version>1\n<Lumens>150 1\n<Vis watt>149 1\n", 0), 0u);

    OutputField readFields[NUM_OUTPUT_FIELDS];
    int readOrder[NUM_OUTPUT_FIELDS];
    resetOutputOrder(readFields, readOrder);
    ASSERT_TRUE(readOrderToFile(path, readFields, readOrder));
    EXPECT_TRUE(std::equal(order, order + NUM_OUTPUT_FIELDS, readOrder));
    EXPECT_FALSE(readFields[5].selected);

    // A name in the other power unit, an unknown name, a repeated place and a missing line:
    // the order stays a permutation of every field.
    std::ofstream(path) << "<version>1\n<Elec. mW>0 0\n<Nonsense>3 1\n<x>0 1\n<y>7000 1\n"
                           "garbage\n<CCT>\n";
    resetOutputOrder(readFields, readOrder);
    ASSERT_TRUE(readOrderToFile(path, readFields, readOrder));
    EXPECT_FALSE(readFields[6].selected);  // "Elec. W"
    EXPECT_EQ(readOrder[0], 0);            // Lumens keeps place 0; Elec. W and x follow
    EXPECT_EQ(readOrder[1], 6);
    EXPECT_EQ(readOrder[2], 23);
    std::vector<int> sorted(readOrder, readOrder + NUM_OUTPUT_FIELDS);
    std::sort(sorted.begin(), sorted.end());
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) EXPECT_EQ(sorted[i], i);

    EXPECT_FALSE(readOrderToFile((dir / "none.txt").string(), readFields, readOrder));
}

TEST_F(PhotometryFiles, ACalIndividualRunIsOneShortLine) {
    run.individual = true;
    run.name = "Blue: 455 nm 100 lm";
    results.x = 0.15;
    results.y = 0.025;
    EXPECT_EQ(photometryText(run), "Blue: 455 nm 100 lm 0.0 0.1500 0.0250 \n");
    mix.wallPlugKnown = true;
    mix.lpw = 31.25;
    run.commaDecimals = true;
    EXPECT_EQ(photometryText(run), "Blue: 455 nm 100 lm 31,2 0,1500 0,0250 \n");
}
