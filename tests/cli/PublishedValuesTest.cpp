// CIE illuminants at their published 5 nm step, through lumivar-cli calc --precise, against
// the chromaticities and CCTs published in CIE 015 (tests/data/cie_illuminants).
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

namespace {
const std::string DATA_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/cie_illuminants/";

struct Published {
    std::string file;
    double x, y, cct, xyTol, cctTol;
};

std::vector<Published> readPublished() {
    std::ifstream in(DATA_DIR + "published_chromaticities.tsv");
    std::vector<Published> rows;
    std::string line;
    bool header = true;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        if (header) {
            header = false;
            continue;
        }
        std::istringstream s(line);
        Published p;
        s >> p.file >> p.x >> p.y >> p.cct >> p.xyTol >> p.cctTol;
        rows.push_back(p);
    }
    return rows;
}

std::vector<std::string> splitTabs(const std::string& line) {
    std::vector<std::string> cells;
    std::string cell;
    std::istringstream s(line);
    while (std::getline(s, cell, '\t')) cells.push_back(cell);
    return cells;
}

// Runs the tool and returns its standard output; *status receives the exit status.
std::string run(const std::string& args, int* status) {
    const std::string command = std::string(LUMIVAR_CLI_PATH) + " " + args + " 2>/dev/null";
    FILE* pipe = popen(command.c_str(), "r");
    std::string out;
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof(buf), pipe)) > 0) out.append(buf, n);
    const int raw = pclose(pipe);
    *status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    return out;
}
}  // namespace

TEST(PublishedValues, CieIlluminantsMatchCie015ChromaticitiesAndCct) {
    const std::vector<Published> published = readPublished();
    ASSERT_EQ(published.size(), 14u);
    std::string args = "calc --precise";
    for (const Published& p : published) args += " " + DATA_DIR + p.file;
    int status = -1;
    std::istringstream out(run(args, &status));
    ASSERT_EQ(status, 0);

    std::string line;
    ASSERT_TRUE(std::getline(out, line));
    const std::vector<std::string> header = splitTabs(line);
    std::map<std::string, size_t> column;
    for (size_t i = 0; i < header.size(); ++i) column[header[i]] = i;
    ASSERT_TRUE(column.count("x") && column.count("y") && column.count("CCT"));

    for (const Published& p : published) {
        ASSERT_TRUE(std::getline(out, line)) << p.file;
        const std::vector<std::string> cells = splitTabs(line);
        ASSERT_EQ(cells.size(), header.size());
        EXPECT_EQ(cells[0], DATA_DIR + p.file);
        EXPECT_NEAR(std::stod(cells[column["x"]]), p.x, p.xyTol) << p.file;
        EXPECT_NEAR(std::stod(cells[column["y"]]), p.y, p.xyTol) << p.file;
        if (p.cct > 0) {
            EXPECT_NEAR(std::stod(cells[column["CCT"]]), p.cct, p.cctTol) << p.file;
        }
    }
}
