// The rows of a design file: a full round trip through the file text, the lines older files
// wrote, and the rules that turn stored numbers back into field texts.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "UserDesign.h"

namespace {

DesignData readBack(const DesignData& data) {
    ProgramSettings settings;
    std::istringstream in(settings.toText(false, designLines(data)));
    return readDesignLines(settings.read(in, false).otherLines);
}

DesignData readText(const std::string& text) {
    ProgramSettings settings;
    std::istringstream in(text);
    return readDesignLines(settings.read(in, false).otherLines);
}

ledTypeStruct spectrumRecord(int hasDomWL, double lDom) {
    ledTypeStruct s{};
    s.hasDomWL = hasDomWL;
    s.lDom = lDom;
    return s;
}

TEST(UserDesign, RowsChecksTargetsAndMatchingCurveSurviveTheFile) {
    DesignData d;
    d.names = {"Blue", "Green & Cyan", "My LED"};
    d.rows.resize(3);
    d.rows[0] = {true, 455.0, 120.5, 0.0, 12.5, 10.0, 85.25};
    d.rows[2] = {true, 0.0, 0.0, 333.125, 0.0, 0.0, 0.0};
    d.filterChecks = {0, 1};
    d.colorChecks = {1, 0, 0, 1};
    d.optR[8] = 50;
    d.optQ[14] = 70;
    d.matchingColumn = {"1.000e+00", "", "2.500e-01"};
    d.desiredCRI = "90";

    const DesignData r = readBack(d);
    ASSERT_EQ(r.rows.size(), 3u);
    for (int i = 0; i < 3; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(r.rows[i].checked, d.rows[i].checked);
        EXPECT_DOUBLE_EQ(*r.rows[i].lDom, d.rows[i].lDom.value_or(0));
        EXPECT_DOUBLE_EQ(*r.rows[i].lumens, d.rows[i].lumens.value_or(0));
        EXPECT_DOUBLE_EQ(*r.rows[i].watts, d.rows[i].watts.value_or(0));
        EXPECT_DOUBLE_EQ(*r.rows[i].binWidth, d.rows[i].binWidth.value_or(0));
        EXPECT_DOUBLE_EQ(*r.rows[i].binOutput, d.rows[i].binOutput.value_or(0));
        EXPECT_DOUBLE_EQ(*r.rows[i].lpw, d.rows[i].lpw.value_or(0));
    }
    EXPECT_EQ(r.filterChecks, d.filterChecks);
    EXPECT_EQ(r.colorChecks, d.colorChecks);
    EXPECT_EQ(r.optR[8], 50);
    EXPECT_EQ(r.optQ[14], 70);
    EXPECT_EQ(r.matchingColumn, d.matchingColumn);
    // Both targets go under one tag, CRI first: the CQS target (empty here) ends in the CRI
    // field. Files in use rely on it.
    EXPECT_EQ(r.desiredCRI, "");
    d.desiredCQS = "85";
    EXPECT_EQ(readBack(d).desiredCRI, "85");
}

TEST(UserDesign, ReadsTheRowKeysOfOlderFilesAndDropsWhatCannotBeARow) {
    const DesignData r = readText(
        "<version>6.10\n"
        "<ledChk_2>1\n<dominateWavelength_TF_2>530.0\n<lumens_360_830nm_TF_2>1000\n"
        "<lpw_TF_2>90\n<ledSpectra.name_2>Green\n"
        "<ledChk>5 1\n<ledChk>-1 1\n<ledChk>99999999 1\n<ledChk>3 x\n<ledChk>4\n"
        "<binOutput_TF>5 0\n<optRvaluesTF>15 90\n<optRvaluesTF>3 0.5\n<optQvaluesTF>0 80\n"
        "<colorChk>2 1.4\n<filterChk>-3 1\n<noSuchTag>1 1\n");
    ASSERT_EQ(r.rows.size(), 6u);  // rows 2 and 5; nothing past the largest good index
    EXPECT_TRUE(r.rows[2].checked);
    EXPECT_DOUBLE_EQ(*r.rows[2].lDom, 530.0);
    EXPECT_DOUBLE_EQ(*r.rows[2].lumens, 1000.0);
    EXPECT_DOUBLE_EQ(*r.rows[2].lpw, 90.0);
    EXPECT_FALSE(r.rows[2].watts.has_value());
    EXPECT_TRUE(r.rows[5].checked);
    EXPECT_DOUBLE_EQ(*r.rows[5].binOutput, 0.0);
    EXPECT_FALSE(r.rows[3].checked);
    EXPECT_FALSE(r.rows[4].checked);
    for (double v : r.optR) EXPECT_EQ(v, 0);  // index 15 and a floor below 1 are dropped
    EXPECT_EQ(r.optQ[0], 80);
    EXPECT_EQ(r.colorChecks, (std::vector<int>{0, 0, 1}));
    EXPECT_TRUE(r.filterChecks.empty());
}

TEST(UserDesign, StoredNumbersBecomeFieldTextsByEachFieldsRule) {
    const ledInputDataStruct before{false, "x", "y", "z", "b", "o", "77"};
    struct Case {
        const char* what;
        DesignRow row;
        ledTypeStruct spectrum;
        ledInputDataStruct texts;
    };
    const Case cases[] = {
        {"a colour LED keeps its wavelength and bin",
         {true, 530.26, 1000.0, 0.0, 10.0, 0.0, 0.0},
         spectrumRecord(1, 530),
         {true, "530.3", "1000", "", "10.0", "0.0", "77"}},
        {"a typed value is not rounded away",
         {false, 0.0, 123.456, 0.004321, 0.0, 5.0, 85.25},
         spectrumRecord(1, 530),
         {false, "", "123.456", "0.004321", "", "5.0", "85.25"}},
        {"a fixed spectrum shows its own wavelength and no bin",
         {true, 999.0, 0.0, 250.0, 10.0, 0.0, 0.0},
         spectrumRecord(0, 587.4),
         {true, "587", "", "250", "", "0.0", "77"}},
        {"a white LED has no wavelength to show",
         {true, 450.0, 0.0, 0.0, 0.0, 0.0, 0.0},
         spectrumRecord(0, 0),
         {true, "", "", "", "", "0.0", "77"}},
        {"values the file lacks keep their texts",
         {true, {}, {}, {}, {}, {}, {}},
         spectrumRecord(1, 530),
         {true, "x", "y", "z", "b", "o", "77"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const ledInputDataStruct t = designRowTexts(c.row, c.spectrum, before);
        EXPECT_EQ(t.checked, c.texts.checked);
        EXPECT_EQ(t.lDom, c.texts.lDom);
        EXPECT_EQ(t.lumens, c.texts.lumens);
        EXPECT_EQ(t.watts, c.texts.watts);
        EXPECT_EQ(t.binWidth, c.texts.binWidth);
        EXPECT_EQ(t.binOutput, c.texts.binOutput);
        EXPECT_EQ(t.lpw, c.texts.lpw);
    }
}

TEST(UserDesign, AnEmptyFieldIsStoredAsZeroAndReadBackEmpty) {
    const ledInputDataStruct texts{true, "", "1,000", "", "", "", ""};
    const DesignRow row = designRowFromTexts(texts);
    EXPECT_DOUBLE_EQ(*row.lpw, 0.0);
    EXPECT_DOUBLE_EQ(*row.watts, 0.0);
    const ledInputDataStruct back =
        designRowTexts(readBack({{"A"}, {row}, {}, {}, {}, {}, "", "", {}}).rows[0],
                       spectrumRecord(1, 530), {false, "", "", "", "", "", "keep"});
    EXPECT_EQ(back.watts, "");
    EXPECT_EQ(back.lpw, "keep");  // an empty LPW field leaves the field as it is
}

}  // namespace
