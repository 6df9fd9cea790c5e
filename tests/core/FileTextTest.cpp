#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "FileText.h"

namespace {

class FileTextTest : public ::testing::Test {
  protected:
    void SetUp() override {
        char pattern[] = "/tmp/lumivar_filetext_XXXXXX";
        ASSERT_NE(::mkdtemp(pattern), nullptr);
        dir = pattern;
    }
    void TearDown() override { std::system(("rm -rf '" + dir + "'").c_str()); }

    std::vector<std::string> namesInDir() const {
        std::vector<std::string> names;
        DIR* d = ::opendir(dir.c_str());
        while (dirent* e = d ? ::readdir(d) : nullptr) {
            const std::string n = e->d_name;
            if (n != "." && n != "..") names.push_back(n);
        }
        if (d) ::closedir(d);
        return names;
    }

    std::string dir;
};

TEST_F(FileTextTest, ReplacesTheFileAndKeepsItsPermissions) {
    const std::string path = dir + "/design.vtd";
    ASSERT_TRUE(writeFileAtomically(path, "<version>7.77\nold\n"));
    ASSERT_EQ(::chmod(path.c_str(), 0640), 0);
    ASSERT_TRUE(writeFileAtomically(path, "<version>7.77\nnew\n"));

    std::string text;
    ASSERT_EQ(readFileText(path, 1000, &text), FileReadStatus::OK);
    EXPECT_EQ(text, "<version>7.77\nnew\n");
    struct stat info;
    ASSERT_EQ(::stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0640u);
    EXPECT_EQ(namesInDir(), std::vector<std::string>{"design.vtd"});  // no temporary file left
}

TEST_F(FileTextTest, AFailedWriteLeavesNothingBehindAndSaysWhy) {
    std::string error;
    EXPECT_FALSE(writeFileAtomically(dir + "/no/such/folder/file.spec", "x", &error));
    EXPECT_NE(error.find("no/such/folder"), std::string::npos) << error;

    // A folder standing where the file should go is never replaced.
    ASSERT_EQ(::mkdir((dir + "/taken").c_str(), 0777), 0);
    EXPECT_FALSE(writeFileAtomically(dir + "/taken", "x", &error));
    struct stat info;
    ASSERT_EQ(::stat((dir + "/taken").c_str(), &info), 0);
    EXPECT_TRUE(S_ISDIR(info.st_mode));
    EXPECT_EQ(namesInDir(), std::vector<std::string>{"taken"});
}

TEST_F(FileTextTest, ReadingStopsAtTheLimitAndRefusesFolders) {
    const std::string path = dir + "/big.txt";
    ASSERT_TRUE(writeFileAtomically(path, std::string(5000, 'a')));
    std::string text;
    EXPECT_EQ(readFileText(path, 4096, &text), FileReadStatus::TOO_LARGE);
    EXPECT_EQ(text.size(), 4096u);
    EXPECT_EQ(readFileText(path, 5000, &text), FileReadStatus::OK);
    EXPECT_EQ(readFileText(dir, 5000, &text), FileReadStatus::CANNOT_OPEN);
    EXPECT_EQ(readFileText(dir + "/missing", 5000, &text), FileReadStatus::CANNOT_OPEN);
    EXPECT_TRUE(text.empty());
}

TEST_F(FileTextTest, CopyFileCopiesBytesAsTheyStand) {
    const std::string from = dir + "/a.cols", to = dir + "/a_bck.cols";
    const std::string bytes("E red\n\0\xff\r\n", 10);
    ASSERT_TRUE(writeFileAtomically(from, bytes));
    ASSERT_TRUE(copyFile(from, to));
    std::string text;
    ASSERT_EQ(readFileText(to, 100, &text), FileReadStatus::OK);
    EXPECT_EQ(text, bytes);
    EXPECT_FALSE(copyFile(dir + "/missing", to));
    EXPECT_TRUE(fileExists(to));
    EXPECT_FALSE(fileExists(dir + "/missing"));
}

}  // namespace
