// Editing a user library as a list: moves, deletes, names, LPW, rescaling, export and save.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "LibraryEditor.h"
#include "UserLibrary.h"

namespace {

ledTypeStruct entry(const char* name, double value, double lumens = 0, bool isPrivate = false) {
    ledTypeStruct e{};
    std::strncpy(e.name, name, sizeof e.name - 1);
    for (int i = 0; i < 236; ++i) e.spectrum[i] = value;
    e.lumens = lumens;
    e.wattsVis = e.wattsVisIR = value * 236 * 2;
    e.isPrivate = isPrivate;
    return e;
}

std::vector<std::string> names(const LibraryEditor& editor) {
    std::vector<std::string> n;
    for (const ledTypeStruct& e : editor.entries()) n.push_back(e.name);
    return n;
}

std::string tempPath(const std::string& name) {
    return ::testing::TempDir() + "lumivar_edit_" + name;
}

TEST(LibraryEditor, SelectedBlocksMoveTogetherAndStopAtTheEnds) {
    LibraryEditor e(LIBRARY_FILTERS, {entry("a", 1), entry("b", 1), entry("c", 1), entry("d", 1)});
    EXPECT_EQ(e.moveUp({0, 2}), (std::vector<int>{0, 1}));
    EXPECT_EQ(names(e), (std::vector<std::string>{"a", "c", "b", "d"}));
    EXPECT_EQ(e.moveDown({2, 3}), (std::vector<int>{2, 3}));  // already at the bottom
    EXPECT_EQ(e.moveDown({0}), (std::vector<int>{1}));
    EXPECT_EQ(names(e), (std::vector<std::string>{"c", "a", "b", "d"}));
    e.remove({3, 0, 0, 9});
    EXPECT_EQ(names(e), (std::vector<std::string>{"a", "b"}));
}

TEST(LibraryEditor, NamesLpwAndScaleFollowTheAddChecks) {
    LibraryEditor e(LIBRARY_SPECTRA, {entry("led", 0.001, 50)});
    LibraryMessage m;
    EXPECT_TRUE(e.rename(0, "   ", &m));
    EXPECT_EQ(m.text, "You must enter a name");
    EXPECT_FALSE(e.rename(0, "  Amber & co  ", &m));
    EXPECT_STREQ(e.entries()[0].name, "Amber & co");
    EXPECT_TRUE(e.changeLPW(0, 301, &m));
    EXPECT_DOUBLE_EQ(e.entries()[0].lpw, 0);
    EXPECT_FALSE(e.changeLPW(0, 120, &m));
    EXPECT_DOUBLE_EQ(e.entries()[0].lpw, 120);

    // Scaling to 100 lm doubles everything a 50 lm spectrum holds.
    EXPECT_FALSE(e.scale(0, LibraryEditor::ScaleBy::LUMENS, 100, &m));
    EXPECT_DOUBLE_EQ(e.entries()[0].lumens, 100);
    EXPECT_DOUBLE_EQ(e.entries()[0].spectrum[10], 0.002);
    EXPECT_DOUBLE_EQ(e.entries()[0].wattsVis, 0.002 * 472);
    EXPECT_FALSE(e.scale(0, LibraryEditor::ScaleBy::MAX_INTENSITY, 1.0, &m));
    EXPECT_DOUBLE_EQ(e.entries()[0].spectrum[10], 1.0);
    EXPECT_TRUE(e.scale(0, LibraryEditor::ScaleBy::VISIBLE_WATTS, 0, &m));

    LibraryEditor filters(LIBRARY_FILTERS, {entry("gel", 0.5)});
    EXPECT_TRUE(filters.scale(0, LibraryEditor::ScaleBy::LUMENS, 10, &m));
    EXPECT_FALSE(filters.scale(0, LibraryEditor::ScaleBy::MAX_INTENSITY, 1, &m));
}

TEST(LibraryEditor, ExportsLeavePrivateColoursOutAndSaveReplacesTheLibrary) {
    LibraryEditor e(LIBRARY_COLORS,
                    {entry("open", 0.2), entry("secret", 0.3, 0, true), entry("tile", 0.4)});
    const std::string lib = tempPath("export.cols"), table = tempPath("export.xls");
    std::string error;
    ASSERT_TRUE(e.exportEntries({}, lib, false, &error)) << error;
    std::vector<ledTypeStruct> read;
    ASSERT_TRUE(readUserLibrary(lib, LIBRARY_COLORS, &read, &error)) << error;
    ASSERT_EQ(read.size(), 2u);
    EXPECT_STREQ(read[1].name, "tile");

    ASSERT_TRUE(e.exportEntries({2}, table, true, &error)) << error;
    std::ifstream in(table);
    std::string header;
    std::getline(in, header);
    EXPECT_EQ(header, "nm\ttile\t");
    EXPECT_FALSE(e.exportEntries({1}, table, true, &error));  // only the private one

    e.remove({0});
    ASSERT_TRUE(e.save(lib, &error)) << error;
    ASSERT_TRUE(readUserLibrary(lib, LIBRARY_COLORS, &read, &error)) << error;
    ASSERT_EQ(read.size(), 2u);
    EXPECT_TRUE(read[0].isPrivate);
    EXPECT_NEAR(read[0].spectrum[5], 0.3, 1e-6);  // the private colour keeps its values
    std::remove(lib.c_str());
    std::remove(table.c_str());
}

}  // namespace
