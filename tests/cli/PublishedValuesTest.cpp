// CIE illuminants at their published 5 nm step, through lumivar-cli calc --precise, against
// published chromaticities, CCTs and colour rendering indices (tests/data/cie_illuminants).
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {
const std::string DATA_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/cie_illuminants/";

using Row = std::map<std::string, std::string>;  // column name -> cell

std::vector<std::string> splitTabs(const std::string& line) {
    std::vector<std::string> cells;
    std::string cell;
    std::istringstream s(line);
    while (std::getline(s, cell, '\t')) cells.push_back(cell);
    return cells;
}

// A tab-separated table with "#" comments and one header row.
std::vector<Row> readTable(std::istream& in) {
    std::vector<Row> rows;
    std::vector<std::string> header;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string> cells = splitTabs(line);
        if (header.empty()) {
            header = cells;
            continue;
        }
        Row row;
        for (size_t i = 0; i < cells.size() && i < header.size(); ++i) row[header[i]] = cells[i];
        rows.push_back(row);
    }
    return rows;
}

std::vector<Row> readPublished(const std::string& name) {
    std::ifstream in(DATA_DIR + name);
    return readTable(in);
}

// lumivar-cli calc --precise on every file of the table, one output row per file.
std::map<std::string, Row> calcPrecise(const std::vector<Row>& published) {
    std::string command = std::string(LUMIVAR_CLI_PATH) + " calc --precise";
    for (const Row& p : published) command += " " + DATA_DIR + p.at("file");
    FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r");
    std::string out;
    char buf[4096];
    for (size_t n; (n = fread(buf, 1, sizeof(buf), pipe)) > 0;) out.append(buf, n);
    const int status = pclose(pipe);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    std::istringstream s(out);
    std::map<std::string, Row> byFile;
    for (const Row& row : readTable(s)) byFile[row.at("file").substr(DATA_DIR.size())] = row;
    return byFile;
}

double number(const Row& row, const std::string& column) { return std::stod(row.at(column)); }

// Compares a computed column with a published one where the table gives a value.
void expectPublished(const Row& computed, const Row& published, const std::string& column,
                     const std::string& publishedColumn, const std::string& tolColumn) {
    const double expected = number(published, publishedColumn);
    if (std::isnan(expected)) return;
    EXPECT_NEAR(number(computed, column), expected, number(published, tolColumn))
        << published.at("file") << " " << column;
}
}  // namespace

TEST(PublishedValues, CieIlluminantsMatchCie015ChromaticitiesAndCct) {
    const std::vector<Row> published = readPublished("published_chromaticities.tsv");
    ASSERT_EQ(published.size(), 14u);
    const std::map<std::string, Row> computed = calcPrecise(published);
    ASSERT_EQ(computed.size(), published.size());
    for (const Row& p : published) {
        const Row& c = computed.at(p.at("file"));
        expectPublished(c, p, "x", "x", "xy_tol");
        expectPublished(c, p, "y", "y", "xy_tol");
        if (number(p, "CCT") > 0) expectPublished(c, p, "CCT", "CCT", "cct_tol");
    }
}

TEST(PublishedValues, CieIlluminantsMatchPublishedColourRendering) {
    const std::vector<Row> published = readPublished("published_rendering.tsv");
    ASSERT_EQ(published.size(), 14u);
    const std::map<std::string, Row> computed = calcPrecise(published);
    ASSERT_EQ(computed.size(), published.size());
    for (const Row& p : published) {
        const Row& c = computed.at(p.at("file"));
        expectPublished(c, p, "CRI (Ra)", "Ra", "ra_tol");
        expectPublished(c, p, "R9", "R9", "r9_tol");
        expectPublished(c, p, "CQS (Qa)", "Qa", "qa_tol");
    }
    EXPECT_LT(number(computed.at("cie_F2_5nm.txt"), "R9"), 0.0);
}
