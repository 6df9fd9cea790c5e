// The document opener: the target reaches the command as one argument, untouched by a shell.
#include "DocumentOpener.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <chrono>
#include <fstream>
#include <sstream>
#include <string>
#include <thread>

namespace {

TEST(DocumentOpener, TheTargetArrivesAsOneArgumentAndAMissingCommandIsReported) {
    const std::string dir = ::testing::TempDir();
    const std::string script = dir + "lumivar_opener.sh", out = dir + "lumivar_opened.txt";
    std::remove(out.c_str());
    std::ofstream(script) << "#!/bin/sh\nprintf '%s|%s' \"$#\" \"$1\" > \"" << out << ".tmp\"\nmv \""
                          << out << ".tmp\" \"" << out << "\"\n";
    ::chmod(script.c_str(), 0755);
    // Blanks, quotes and a semicolon would split or run something through a shell.
    const std::string target = "http://x.example/a b?c='d';touch /tmp/lumivar_no";
    std::string error;
    ASSERT_TRUE(openDocument(script, target, &error)) << error;
    std::string text;
    for (int i = 0; i < 200 && text.empty(); ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        std::ifstream in(out);
        std::stringstream s;
        s << in.rdbuf();
        text = s.str();
    }
    EXPECT_EQ(text, "1|" + target);

    EXPECT_FALSE(openDocument(dir + "no_such_opener", "x", &error));
    EXPECT_NE(error.find("no_such_opener"), std::string::npos) << error;
    std::remove(script.c_str());
    std::remove(out.c_str());
}

}  // namespace
