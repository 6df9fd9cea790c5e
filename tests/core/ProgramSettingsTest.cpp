// Settings and design files: the option table, its write order, a full round trip of every
// option, the reading rules for old, partial and broken files, and misuse of option names.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "ProgramSettings.h"

namespace {

using Status = ProgramSettings::ReadStatus;

std::string tempPath(const std::string& name) { return ::testing::TempDir() + "lumivar_" + name; }

void writeText(const std::string& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

ProgramSettings::ReadResult readText(ProgramSettings& s, const std::string& text, bool isIni) {
    std::istringstream in(text);
    return s.read(in, isIni);
}

// A value unlike the default, exactly representable at every option's decimals.
void setEveryOptionAway(ProgramSettings& s) {
    const auto& table = ProgramSettings::table();
    for (std::size_t row = 0; row < table.size(); ++row) {
        const OptionDef& def = table[row];
        const OptionId id = static_cast<OptionId>(row);
        const int r = static_cast<int>(row);
        if (def.kind == OptionKind::INT) s.setInt(id, -(r + 7));
        if (def.kind == OptionKind::DOUBLE) s.setDouble(id, r + 0.5);
        if (def.kind == OptionKind::UINT64) s.setUInt64(id, (std::uint64_t{1} << 40) + r);
        if (def.kind == OptionKind::STRING) s.setString(id, std::string("a;b <c> d\t") + def.tag);
        if (def.kind == OptionKind::STRING_LIST) s.setList(id, {"/u/1.vtd", "/u/two words.vtd"});
        for (int i = 0; def.kind == OptionKind::INDEXED && i < def.count; ++i)
            s.setIndexed(id, i, (i * r) % 5 + 1);
    }
}

TEST(ProgramSettings, TableHoldsThe324IntTagsInWriteOrderAfterTheSettingsLines) {
    const auto& table = ProgramSettings::table();
    ASSERT_EQ(table.size(), static_cast<std::size_t>(OptionId::COUNT));
    EXPECT_STREQ(table[0].tag, "pathUserFilesDirectory");
    EXPECT_STREQ(table[1].tag, "recentlyUsedFiles");
    EXPECT_STREQ(table.back().tag, "openCommand");
    std::size_t end = 2;
    while (end < table.size() && table[end].kind == OptionKind::INT) ++end;
    ASSERT_EQ(end - 2, 324u);
    std::string positions;
    for (std::size_t i : {0, 7, 32, 163, 218, 317, 323})
        positions += std::to_string(i) + " " + table[2 + i].tag + "|";
    EXPECT_EQ(
        positions,
        "0 isMaximized_ini|7 analysisType|32 blackBodyTemperatureK_TF|163 cctBinWidthIndex|"
        "218 drawFrameAroundColorWheelColors|317 programFontDescription.size|323 opt_gai_TF|");
    const std::regex fixedFormat("%\\.[0-9]+lf");
    for (std::size_t row = 0; row < table.size(); ++row) {
        const OptionDef& def = table[row];
        SCOPED_TRACE(def.tag);
        EXPECT_EQ(ProgramSettings::idOf(def.tag), static_cast<OptionId>(row));  // and unique
        EXPECT_EQ(def.kind == OptionKind::DOUBLE, def.format != nullptr);
        EXPECT_TRUE(def.format == nullptr || std::regex_match(def.format, fixedFormat));
        EXPECT_GT(std::string(def.comment).size(), 3u);
    }
    EXPECT_EQ(ProgramSettings::definition(OptionId::showGamut).count, 12);
    EXPECT_EQ(ProgramSettings::definition(OptionId::multiANSIMacAdamArray).count, 11);
}

TEST(ProgramSettings, StartsAtTheDefaultsUsersSee) {
    const ProgramSettings s;
    const std::string text = s.toText(true);
    for (const char* line :
         {"<writeDataMenuItem>1\n", "<zeroEmptyCellsMenuItem>1\n", "<enableStickyMenuItem>0\n",
          "<numDecimalsFor_xyDuv_etc>4\n", "<ciePlotWidth>800\n", "<ciePlotHeight>600\n",
          "<main_width>1000\n", "<mouseWheelForLEDsMenuItem>1\n",
          "<TCLIgraphicLampName>Test lamp\n", "<CIEDE2000_kH>1.000000\n",
          "<lastTimeUpdatesChecked_secondsSince1970>0\n", "<updateCheckHost>www.lumivar.example\n",
          "<updateCheckPage>/lumivar_version.txt\n", "<updateCheckPort>80\n",
          "<openCommand>xdg-open\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line;
    EXPECT_TRUE(s.getList("recentlyUsedFiles").empty());
    EXPECT_EQ(s.fileVersion(), 0.0);
}

TEST(ProgramSettings, WritesTheVersionThenSettingsLinesThenOptions) {
    ProgramSettings s;
    s.setString(OptionId::pathUserFilesDirectory, "/home/u/designs/");
    s.setList(OptionId::recentlyUsedFiles, {"/a.vtd", "", "/b.vtd"});
    s.setString(OptionId::mainCurveName, "two\r\nlines");
    const std::string ini = s.toText(true, {"<ledChk>0 1", "<lpw_TF>0 1.000000e+02"});
    EXPECT_EQ(ini.rfind("<version>7.77\n<pathUserFilesDirectory>/home/u/designs/\n"
                        "<recentlyUsedFiles>/a.vtd\n<recentlyUsedFiles>/b.vtd\n"
                        "<isMaximized_ini>0\n<window_x>50\n",
                        0),
              0u);
    EXPECT_NE(ini.find("\n<mainCurveName>two  lines\n"), std::string::npos);
    EXPECT_NE(ini.find("\n<showGamut>11 0\n<mainCurveName>"), std::string::npos);
    EXPECT_NE(ini.find("\n<opt_x_TF>0.0000\n"), std::string::npos);
    EXPECT_NE(ini.find("<drawFrameAroundColorWheelColors>0\n<drawFrameAroundColorWheelColors>0\n"),
              std::string::npos);
    EXPECT_EQ(ini.substr(ini.size() - 36), "\n<ledChk>0 1\n<lpw_TF>0 1.000000e+02\n");

    const std::string design = s.toText(false);
    EXPECT_EQ(design.rfind("<version>7.77\n<isMaximized_ini>0\n", 0), 0u);
    for (const char* tag : {"<pathUserFilesDirectory>", "<recentlyUsedFiles>", "<openCommand>",
                            "<updateCheckHost>", "<updateCheckPort>"})
        EXPECT_EQ(design.find(tag), std::string::npos) << tag;
}

TEST(ProgramSettings, EveryOptionSurvivesAWriteAndRead) {
    ProgramSettings written;
    setEveryOptionAway(written);
    written.setInt(OptionId::analysisType, 5);
    const std::string path = tempPath("roundtrip.ini");
    ASSERT_TRUE(written.write(path, true, {"<ledChk>3 1"}));

    ProgramSettings read;
    const auto result = read.read(path, true);
    ASSERT_EQ(result.status, Status::OK);
    EXPECT_EQ(read.fileVersion(), 7.77);
    ASSERT_EQ(result.otherLines.size(), 1u);
    EXPECT_EQ(result.otherLines[0].tag + "|" + result.otherLines[0].value, "<ledChk>|3 1");
    EXPECT_EQ(read.toText(true), written.toText(true));  // covers every kind and every row
    std::remove(path.c_str());
}

TEST(ProgramSettings, ADesignNeitherCarriesNorChangesTheSettingsOnlyOptions) {
    ProgramSettings source;
    setEveryOptionAway(source);
    ProgramSettings target;
    target.setList(OptionId::recentlyUsedFiles, {"/kept.vtd"});
    ASSERT_EQ(readText(target, source.toText(true), false).status, Status::OK);
    EXPECT_EQ(target.getList(OptionId::recentlyUsedFiles), std::vector<std::string>{"/kept.vtd"});
    EXPECT_EQ(target.getString(OptionId::openCommand), "xdg-open");
    EXPECT_EQ(target.getString(OptionId::pathUserFilesDirectory), "");
    EXPECT_EQ(target.getInt(OptionId::window_x), source.getInt(OptionId::window_x));
}

TEST(ProgramSettings, ReadsOldPartialAndOddLinesByTheirRules) {
    ProgramSettings s;
    const auto result =
        readText(s,
                 "<version>6.5\r\n<analysisType>3\r\n<mainCurveName>Lamp >A\r\n"
                 "<DuvWindowWidth>900\n<DuvWindowHeight>700\n"
                 "<leftRightSplitterSize_customCIE>310\n<upDownSplitterSize_customCIE>220\n"
                 "<matchingSpectraType>2\n<ledChk>0 1\n<noSuchTag>x\n<desiredCQS_TF>85\n"
                 "no tag here\n<showGamut>4 1\n<window_x>1\n<window_x>2\n",
                 true);
    ASSERT_EQ(result.status, Status::OK);
    EXPECT_EQ(s.fileVersion(), 6.5);
    const std::string text = s.toText(true);
    for (const char* line :
         {"<analysisType>0\n",  // deliberate: the optimizer is never resumed from a file
          "<mainCurveName>Lamp >A\n", "<DuvWindowWidth_Duv>900\n", "<DuvWindowWidth_xyLm>900\n",
          "<DuvWindowHeight_Duv>700\n", "<DuvWindowHeight_xyLm>700\n",
          "<leftRightSplitterSize_customCIE_Duv>310\n",
          "<leftRightSplitterSize_customCIE_xyLm>310\n", "<upDownSplitterSize_customCIE_Duv>220\n",
          "<upDownSplitterSize_customCIE_xyLm>220\n", "<_matchingSpectraType>2\n",
          "<showGamut>4 1\n", "<window_x>2\n"})
        EXPECT_NE(text.find(line), std::string::npos) << line;
    std::string others;
    for (const auto& line : result.otherLines) others += line.tag + line.value + "|";
    EXPECT_EQ(others, "<ledChk>0 1|<noSuchTag>x|<desiredCQS_TF>85|");
}

TEST(ProgramSettings, AnEarlyBuildsOrBrokenFileKeepsTheDefaultsOfWhatItLacks) {
    ProgramSettings s;
    const auto result = readText(s,
                                 "<version>7.10\n<window_x> 120 \n<playSoundsMenuItem>0\n"
                                 "<window_y>abc\n<main_width>12x\n<ciePlotWidth>\n"
                                 "<main_height>99999999999\n<opt_x_TF>1,5\n<CIEDE2000_kL>nan\n"
                                 "<lastTimeUpdatesChecked_secondsSince1970>-1\n<showGamut>12 1\n"
                                 "<showGamut>-1 1\n<showGamut>x 1\n<showGamut>1\n",
                                 true);
    EXPECT_EQ(result.status, Status::OK);
    EXPECT_TRUE(result.otherLines.empty());
    ProgramSettings expected;
    expected.setInt(OptionId::window_x, 120);
    expected.setBool(OptionId::playSoundsMenuItem, false);
    EXPECT_EQ(s.toText(true), expected.toText(true));
}

TEST(ProgramSettings, KeepsTheFirstTenRecentFilesCountingEmptyOnes) {
    ProgramSettings s;
    s.setList(OptionId::recentlyUsedFiles, {"/from/before.vtd"});
    std::string text = "<version>7.77\n<recentlyUsedFiles>\n";
    for (int i = 1; i < 12; ++i) text += "<recentlyUsedFiles>/d/" + std::to_string(i) + ".vtd\n";
    readText(s, text, true);
    const std::vector<std::string> list = s.getList(OptionId::recentlyUsedFiles);
    ASSERT_EQ(list.size(), 10u);
    EXPECT_EQ(list[0], "");
    EXPECT_EQ(list[9], "/d/9.vtd");
    s.setList(OptionId::recentlyUsedFiles, std::vector<std::string>(12, "x"));
    EXPECT_EQ(s.getList(OptionId::recentlyUsedFiles).size(), 10u);
}

TEST(ProgramSettings, ReportsFilesItCannotUseAndChangesNothing) {
    const std::string empty = tempPath("empty.ini"), legacy = tempPath("legacy.vtd");
    writeText(empty, "");
    writeText(legacy, "7.770000\n<window_x>5\n");
    const std::pair<std::string, Status> cases[] = {{empty, Status::EMPTY},
                                                    {tempPath("missing.ini"), Status::CANNOT_OPEN},
                                                    {::testing::TempDir(), Status::CANNOT_OPEN},
                                                    {legacy, Status::NOT_TAG_FORMAT}};
    for (const auto& [path, status] : cases) {
        ProgramSettings s;
        readText(s, "<version>7.5\n", true);
        const auto result = s.read(path, true);
        EXPECT_EQ(result.status, status) << path;
        EXPECT_EQ(s.getInt(OptionId::window_x), 50) << path;
        EXPECT_EQ(s.fileVersion(), 0.0) << path;
    }
    EXPECT_FALSE(ProgramSettings().write(tempPath("no/such/folder.ini"), true));
    std::remove(empty.c_str());
    std::remove(legacy.c_str());
}

TEST(ProgramSettings, AHugeBinaryFileIsRefusedWithoutHarm) {
    std::string text = "<version>7.77\n<window_x>5\n";
    const std::string chunk =
        std::string("<\0a>\r\n5<<>\n>\n", 12) + std::string(80, '\x7f') + "\n<x>1\n";
    while (text.size() < SETTINGS_MAX_FILE_BYTES - chunk.size()) text += chunk;
    ProgramSettings s;
    // Just below the limit every line is read; the binary lines are skipped.
    auto result = readText(s, text, true);
    EXPECT_EQ(result.status, Status::OK);
    EXPECT_EQ(s.fileVersion(), 7.77);
    EXPECT_EQ(s.getInt(OptionId::window_x), 5);
    EXPECT_EQ(result.otherLines.size(), SETTINGS_MAX_OTHER_LINES);  // only the "<x>" lines
    // Past it nothing is: no settings file or design comes near that size.
    text += std::string(1u << 20, '<');
    ProgramSettings t;
    result = readText(t, text, true);
    EXPECT_EQ(result.status, Status::TOO_LARGE);
    EXPECT_EQ(t.getInt(OptionId::window_x), 50);
    // A million lines without a tag: the search for ">" must not run on past each line.
    EXPECT_EQ(readText(s, "<version>7.7\n" + std::string(1u << 20, '\n'), true).status, Status::OK);
}

TEST(ProgramSettingsDeathTest, MisusedOptionNamesFailLoudly) {
    ProgramSettings s;
    EXPECT_DEBUG_DEATH(s.getInt("noSuchOption"), "noSuchOption");
    EXPECT_DEBUG_DEATH(s.getString(OptionId::window_x), "window_x");
    EXPECT_FALSE(ProgramSettings::has("noSuchOption"));
    EXPECT_TRUE(ProgramSettings::has("programFontDescription.flags"));
    EXPECT_EQ(s.getIndexed(OptionId::showGamut, 12), 0);
}

}  // namespace
