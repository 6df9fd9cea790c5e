#include <gtest/gtest.h>

#include <string>

#include "ReadWriteLpwDutyCycleTable.h"
#include "UserLibraryTestFiles.h"

namespace {

const char* const ROWS =
    "100.0 | 250 | 2.8 | \n"
    "50.0 | 130 | 1.3 | \n";

class LpwDutyCycleTableTest : public ScratchFolderTest {};

TEST_F(LpwDutyCycleTableTest, HeadersOfEveryVersionAreRead) {
    struct Case {
        const char* what;
        std::string header;
        int version, source, numTitleValues, optical, OE;
    };
    const Case cases[] = {
        {"three title values",
         "2 // DATA_FILE_FORMAT_VERSION\n1 // ledDefinitionSource\n"
         "12.5000 85 90 // powerConsumptionAt0DutyCycle_W, electricalEfficiencyPercent, "
         "opticalEfficiencyPercent\n0 // OE (hidden for now)\n",
         2, 1, 3, 90, 0},
        {"two title values",
         "1 // DATA_FILE_FORMAT_VERSION\n3 // ledDefinitionSource\n"
         "12.5000 85 // powerConsumptionAt0DutyCycle_W, electricalEfficiencyPercent\n1 // OE\n",
         1, 3, 2, 0, 1},
        {"no version line", "12.5000 85 // power\n1 // OE\n", 0, 0, 2, 0, 1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        put(path("t.datl"), c.header + "2 3 // rows, columns\r\n" + ROWS);
        TableModel table(4, 3);
        table.cells[3][0] = "stale";
        LpwDutyCycleHeader h;
        std::string error;
        int version = -1;
        ASSERT_TRUE(ReadWriteLpwDutyCycleTable().read(path("t.datl"), &error, &version, &table, &h))
            << h.problem;
        EXPECT_EQ(version, c.version);
        EXPECT_EQ(h.ledDefinitionSource, c.source);
        EXPECT_DOUBLE_EQ(h.powerConsumptionAt0DutyCycle_W, 12.5);
        EXPECT_EQ(h.electricalEfficiencyPercent, 85);
        EXPECT_EQ(h.numTitleValues, c.numTitleValues);
        EXPECT_EQ(h.opticalEfficiencyPercent, c.optical);
        EXPECT_EQ(h.OE, c.OE);
        EXPECT_EQ(table.cells[0][0], "100.0");
        EXPECT_EQ(table.cells[1][2], "1.3");
        EXPECT_EQ(table.cells[3][0], "") << "rows past the file's are emptied";
        EXPECT_FALSE(h.tooManyRows || h.tooManyColumns);
    }
}

TEST_F(LpwDutyCycleTableTest, WrittenTablesReadBackAndSurplusIsDroppedWithFlags) {
    TableModel table(2, 3);
    table.cells = {{"100.0", "250", "#1 Duty\r\nCycle   (%)"}, {"", "a|b", "  x  "}};
    const std::string header =
        "2 // DATA_FILE_FORMAT_VERSION\n0 // ledDefinitionSource\n12.5000 85 90 // p\n0 // OE";
    const std::string file = path("d" + std::string(LPW_CURRENT_FILE_EXT));
    std::string error;
    ASSERT_TRUE(ReadWriteLpwDutyCycleTable().write(file, header, table, &error));
    EXPECT_EQ(textOf(file), header +
                                "\n2 3 // rows, columns\n"
                                "100.0 | 250 | #1 Duty Cycle (%) | \n"
                                " | a b |  x  | \n");

    TableModel back(2, 3);
    LpwDutyCycleHeader h;
    ASSERT_TRUE(ReadWriteLpwDutyCycleTable().read(file, &error, nullptr, &back, &h)) << h.problem;
    EXPECT_EQ(back.cells[0][2], "#1 Duty Cycle (%)");
    EXPECT_EQ(back.cells[1][0], "");
    EXPECT_EQ(back.cells[1][1], "a b");
    EXPECT_EQ(back.cells[1][2], "x");

    TableModel small(1, 2);
    ASSERT_TRUE(ReadWriteLpwDutyCycleTable().read(file, &error, nullptr, &small, &h));
    EXPECT_TRUE(h.tooManyRows);
    EXPECT_TRUE(h.tooManyColumns);
    EXPECT_EQ(small.cells[0][1], "250");
    EXPECT_EQ(small.cells.size(), 1u);
    EXPECT_EQ(small.cells[0].size(), 2u);

    EXPECT_FALSE(ReadWriteLpwDutyCycleTable().write(path("no/dir.datl"), header, table, &error));
    EXPECT_EQ(error, "Unknown error while writting file, it may be open.");
}

TEST_F(LpwDutyCycleTableTest, BadFilesGiveTheReadError) {
    const std::string ok = "2\n0\n12.5 85 90\n0\n";
    const std::string cases[] = {
        "",
        "abc\n",
        "2\n0\n12.5\n0\n2 3\n",          // one title value
        "2\n0\n12.5 85 90 7\n0\n2 3\n",  // four title values
        ok + "2\n",                      // no column count
        ok + "-1 3\n",                   // a negative count
        ok + "3 3\n" + ROWS,             // a row missing
        ok + "2 3\n" + std::string("1 \0 2 |\n", 8) + ROWS,
        ok + "1e30 3\n",
        "99999999999999999999\n",
    };
    for (const std::string& text : cases) {
        SCOPED_TRACE(text);
        TableModel table(3, 3);
        std::string error;
        LpwDutyCycleHeader h;
        EXPECT_FALSE(ReadWriteLpwDutyCycleTable().readText(text, &error, nullptr, &table, &h));
        EXPECT_EQ(error, "Unknown error while reading file.");
        EXPECT_NE(h.problem, "");
    }
    // A count far beyond the table is read only as far as the table goes.
    TableModel table(2, 3);
    std::string error;
    LpwDutyCycleHeader h;
    EXPECT_TRUE(ReadWriteLpwDutyCycleTable().readText(ok + "2000000000 3\n" + ROWS, &error, nullptr,
                                                      &table, &h));
    EXPECT_TRUE(h.tooManyRows);
    EXPECT_STREQ(LPW_DUTY_CYCLE_FILE_EXT, ".datl");
}

}  // namespace
