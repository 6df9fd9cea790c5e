// A scratch folder and made-up library entries for the user library tests.
#ifndef LUMIVAR_TESTS_CORE_USERLIBRARYTESTFILES_H
#define LUMIVAR_TESTS_CORE_USERLIBRARYTESTFILES_H

#include <gtest/gtest.h>
#include <stdlib.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>

#include "FileText.h"
#include "LedTypes.h"

class ScratchFolderTest : public ::testing::Test {
  protected:
    void SetUp() override {
        char pattern[] = "/tmp/lumivar_library_XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        dir = pattern;
    }
    void TearDown() override { std::system(("rm -rf '" + dir + "'").c_str()); }

    std::string path(const std::string& name) const { return dir + "/" + name; }
    std::string textOf(const std::string& file) const {
        std::string text;
        readFileText(file, std::size_t{1} << 30, &text);
        return text;
    }
    void put(const std::string& file, const std::string& text) const {
        ASSERT_TRUE(writeFileAtomically(file, text));
    }

    std::string dir;
};

// A peak of height `height` at `centerNm` with a 30 nm width, on all 346 points; the infrared
// tail is kept so a wrong offset past 830 nm shows.
inline ledTypeStruct testEntry(const char* name, double centerNm, double height) {
    ledTypeStruct e{};
    std::strncpy(e.name, name, sizeof e.name - 1);
    for (int i = 0; i < 346; ++i) {
        const double d = (360.0 + 2.0 * i - centerNm) / 30.0;
        e.spectrum[i] = height * std::exp(-0.5 * d * d);
    }
    return e;
}

#endif  // LUMIVAR_TESTS_CORE_USERLIBRARYTESTFILES_H
