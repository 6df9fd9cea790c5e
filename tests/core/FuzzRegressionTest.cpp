// Every input that once made a reader of user files crash, hang or misbehave under the fuzzer is
// kept under tests/data/fuzz/<harness>/ and read again here, under the same sanitizers as the
// rest of the suite.
#include <dirent.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "FuzzTargets.h"

namespace {

std::vector<std::string> filesIn(const std::string& dir) {
    std::vector<std::string> files;
    DIR* d = ::opendir(dir.c_str());
    while (dirent* e = d ? ::readdir(d) : nullptr) {
        if (e->d_name[0] != '.') files.push_back(dir + "/" + e->d_name);
    }
    if (d) ::closedir(d);
    return files;
}

TEST(FuzzRegression, EveryKeptInputReadsAgainWithoutAFault) {
    int replayed = 0;
    for (std::size_t t = 0; t < NUM_FUZZ_TARGETS; ++t) {
        const std::string dir =
            std::string(LUMIVAR_TEST_DATA_DIR) + "/fuzz/" + FUZZ_TARGETS[t].name;
        for (const std::string& file : filesIn(dir)) {
            SCOPED_TRACE(file);
            std::ifstream in(file, std::ios::binary);
            const std::string bytes((std::istreambuf_iterator<char>(in)),
                                    std::istreambuf_iterator<char>());
            FUZZ_TARGETS[t].run(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
            ++replayed;
        }
    }
    EXPECT_GT(replayed, 0);
}

}  // namespace
