#include <dirent.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include "UserLibrary.h"
#include "UserLibraryTestFiles.h"

namespace {

class UserLibraryTest : public ScratchFolderTest {};

// Two spectra in the old format: the first with LPW and scaling lines, the second with neither
// and a section end before its stated count.
const char* const OLD_SPECTRA =
    "Old blue\n"
    "20.0\n"
    "0.5\n"
    "45.5 lpw\n"
    "2.0 scaling\n"
    "3\n"
    "0.2\n"
    "0.4\n"
    "-0.1\n"
    "Old red\n"
    "7\n"
    "0.25\n"
    "236\n"
    "1e-3\n"
    "EOF\n"
    "EOF\n";

TEST_F(UserLibraryTest, AnOldLibraryIsConvertedOnceAndReadsTheSame) {
    const std::string file = path("userSpectra.spec");
    put(file, OLD_SPECTRA);
    EXPECT_EQ(convertLibraryToCurrentFormat(file, LIBRARY_SPECTRA).status,
              LibraryConversion::CONVERTED);
    EXPECT_TRUE(ReadWriteUserSpectra::getIsNewFormat(file));
    const std::string converted = textOf(file);
    EXPECT_EQ(converted.substr(0, 17), "1.15  // version\n");

    std::vector<ledTypeStruct> e;
    std::string error;
    ASSERT_TRUE(readUserLibrary(file, LIBRARY_SPECTRA, &e, &error)) << error;
    ASSERT_EQ(e.size(), 2u);
    EXPECT_STREQ(e[0].name, "Old blue");
    EXPECT_DOUBLE_EQ(e[0].lumens, 10.0);  // the photometry of the scaled values
    EXPECT_DOUBLE_EQ(e[0].wattsVis, 0.25);
    EXPECT_DOUBLE_EQ(e[0].wattsVisIR, 0.25);
    EXPECT_DOUBLE_EQ(e[0].lpw, 45.5);
    EXPECT_DOUBLE_EQ(e[0].spectrum[0], 0.1);
    EXPECT_DOUBLE_EQ(e[0].spectrum[1], 0.2);
    EXPECT_DOUBLE_EQ(e[0].spectrum[2], 0.0) << "a negative value reads as 0";
    EXPECT_STREQ(e[1].name, "Old red");
    EXPECT_DOUBLE_EQ(e[1].lpw, 0.0);
    EXPECT_DOUBLE_EQ(e[1].spectrum[0], 1e-3);
    EXPECT_DOUBLE_EQ(e[1].spectrum[1], 0.0);

    // A second start-up finds the current format and leaves the file as it is.
    EXPECT_EQ(convertLibraryToCurrentFormat(file, LIBRARY_SPECTRA).status,
              LibraryConversion::UNCHANGED);
    EXPECT_EQ(textOf(file), converted);
}

TEST_F(UserLibraryTest, OldFiltersAndColorsConvertToo) {
    for (int type : {LIBRARY_FILTERS, LIBRARY_COLORS}) {
        SCOPED_TRACE(type);
        // Only the first 236 values of an old entry are points of the grid.
        std::string text = "Gel 1\n240\n";
        for (int i = 0; i < 240; ++i) text += std::to_string(i < 236 ? 0.5 : 9.0) + "\n";
        text += "Gel 2\n1\n0,75\neof\n";  // a decimal comma, as the tables read it
        const std::string file = path("lib" + std::to_string(type));
        put(file, text);
        ASSERT_EQ(convertLibraryToCurrentFormat(file, type).status, LibraryConversion::CONVERTED);
        std::vector<ledTypeStruct> e;
        std::string error;
        ASSERT_TRUE(readUserLibrary(file, type, &e, &error)) << error;
        ASSERT_EQ(e.size(), 2u);
        EXPECT_DOUBLE_EQ(e[0].spectrum[235], 0.5);
        EXPECT_DOUBLE_EQ(e[0].spectrum[236], 0.0);
        EXPECT_DOUBLE_EQ(e[1].spectrum[0], 0.75);
        EXPECT_FALSE(e[1].isPrivate);
    }
}

TEST_F(UserLibraryTest, AnOldLibraryThatCannotBeReadWholeIsNotConverted) {
    const std::string file = path("userFilters.fils");
    const std::string cut = "Gel 1\n2\n0.5\n0.5\nGel 2\n236\n0.5\n";
    put(file, cut);
    const LibraryConversionResult r = convertLibraryToCurrentFormat(file, LIBRARY_FILTERS);
    EXPECT_EQ(r.status, LibraryConversion::FAILED);
    EXPECT_NE(r.error.find("cut short"), std::string::npos) << r.error;
    EXPECT_EQ(textOf(file), cut);
    EXPECT_EQ(convertLibraryToCurrentFormat(path("missing"), LIBRARY_FILTERS).status,
              LibraryConversion::UNCHANGED);
}

TEST_F(UserLibraryTest, TheBackupTakesBckBeforeTheExtension) {
    struct Case {
        std::string library;
        std::string backup;
    };
    const Case cases[] = {
        {path("userColors.cols"), path("userColors_bck.cols")},
        {path("my.lib/userSpectra"), path("my.lib/userSpectra_bck")},
        {path(".hidden"), path(".hidden_bck")},
        {"userFilters.fils", "userFilters_bck.fils"},
    };
    for (const Case& c : cases) EXPECT_EQ(getBackupFileName(c.library), c.backup);
    put(path("userColors_bck.cols"), "taken");
    EXPECT_EQ(getBackupFileName(path("userColors.cols")), path("userColors_bck_1.cols"));
    EXPECT_EQ(userLibraryFileName(LIBRARY_COLORS), "userColors.cols");
    EXPECT_EQ(userLibraryFileName(LIBRARY_SPECTRA), "userSpectra.spec");
    EXPECT_EQ(userLibraryFileName(LIBRARY_FILTERS), "userFilters.fils");
}

TEST_F(UserLibraryTest, AReplacementThatCannotBeReadRestoresTheOldLibrary) {
    struct Case {
        int libraryType;
        const char* title;
    };
    for (const Case& c :
         {Case{LIBRARY_SPECTRA, "Spectrum file error"}, Case{LIBRARY_FILTERS, "Filters file error"},
          Case{LIBRARY_COLORS, "Colors file error"}}) {
        SCOPED_TRACE(c.title);
        const std::string library = path("library" + std::to_string(c.libraryType));
        const ledTypeStruct old[2] = {testEntry("Keep 1", 500, 0.5), testEntry("Keep 2", 600, 0.5)};
        ASSERT_FALSE(
            ReadWriteUserSpectra(2, nullptr, old, "w", library, c.libraryType, false).getError());
        const std::string before = textOf(library);
        const std::string bad = path("bad.txt");
        put(bad, "1.15  // version\nHalf\n0.5 0.5");
        std::system(("rm -f '" + library + "_bck'").c_str());

        const LibraryReplaceResult r = replaceUserLibrary(library, bad, c.libraryType);
        EXPECT_FALSE(r.ok);
        EXPECT_EQ(r.message.id, LibraryMessageId::REPLACEMENT_UNREADABLE);
        EXPECT_EQ(r.message.title, c.title);
        EXPECT_EQ(r.message.text,
                  "Could not read the file:\n\n" + bad + "\n\nThe old file will be restored.");
        EXPECT_EQ(textOf(library), before);
        EXPECT_EQ(textOf(r.backupPath), before);
    }
    // With no library before, a bad replacement leaves none.
    const LibraryReplaceResult r =
        replaceUserLibrary(path("none.cols"), path("missing.cols"), LIBRARY_COLORS);
    EXPECT_FALSE(r.ok);
    EXPECT_FALSE(fileExists(path("none.cols")));
}

TEST_F(UserLibraryTest, AGoodReplacementIsConvertedAndTheChosenFileIsNotTouched) {
    const std::string library = path("userSpectra.spec");
    const ledTypeStruct old = testEntry("Before", 500, 1e-3);
    ASSERT_FALSE(
        ReadWriteUserSpectra(1, nullptr, &old, "w", library, LIBRARY_SPECTRA, false).getError());
    const std::string chosen = path("from a colleague.spec");
    put(chosen, OLD_SPECTRA);

    const LibraryReplaceResult r = replaceUserLibrary(library, chosen, LIBRARY_SPECTRA);
    ASSERT_TRUE(r.ok) << r.message.text;
    EXPECT_EQ(r.backupPath, path("userSpectra_bck.spec"));
    EXPECT_EQ(textOf(chosen), OLD_SPECTRA);
    EXPECT_TRUE(ReadWriteUserSpectra::getIsNewFormat(library));
    std::vector<ledTypeStruct> e;
    std::string error;
    ASSERT_TRUE(readUserLibrary(r.backupPath, LIBRARY_SPECTRA, &e, &error)) << error;
    ASSERT_EQ(e.size(), 1u);
    EXPECT_STREQ(e[0].name, "Before");
    ASSERT_TRUE(readUserLibrary(library, LIBRARY_SPECTRA, &e, &error)) << error;
    EXPECT_EQ(e.size(), 2u);
}

TEST_F(UserLibraryTest, AddingAnEntryMakesTheLibraryOrExtendsIt) {
    const std::string file = path("userColors.cols");
    ledTypeStruct first = testEntry("Sky", 470, 0.6);
    ledTypeStruct second = testEntry("Hidden", 520, 0.4);
    second.isPrivate = true;
    std::string error;
    ASSERT_TRUE(addUserLibraryEntry(file, LIBRARY_COLORS, first, &error)) << error;
    ASSERT_TRUE(addUserLibraryEntry(file, LIBRARY_COLORS, second, &error)) << error;
    std::vector<ledTypeStruct> e;
    ASSERT_TRUE(readUserLibrary(file, LIBRARY_COLORS, &e, &error)) << error;
    ASSERT_EQ(e.size(), 2u);
    EXPECT_STREQ(e[1].name, "Hidden");
    EXPECT_TRUE(e[1].isPrivate);
    EXPECT_NEAR(e[1].spectrum[80], 0.4, 2e-6);  // 520 nm
    EXPECT_FALSE(addUserLibraryEntry(path("no/such/folder.cols"), LIBRARY_COLORS, first, &error));
    EXPECT_NE(error.find("could not be written"), std::string::npos) << error;
}

TEST_F(UserLibraryTest, AWriterKilledInMidWriteLeavesTheOldLibraryWhole) {
    const std::string file = path("userFilters.fils");
    const ledTypeStruct old[2] = {testEntry("Old 1", 450, 0.5), testEntry("Old 2", 650, 0.5)};
    ASSERT_FALSE(
        ReadWriteUserSpectra(2, nullptr, old, "w", file, LIBRARY_FILTERS, false).getError());
    const std::string before = textOf(file);

    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // About 150 MB of library, one entry written 30,000 times: still writing when killed.
        const std::vector<int> same(30000, 0);
        const ledTypeStruct big = testEntry("Big", 500, 0.5);
        ReadWriteUserSpectra(30000, same.data(), &big, "w", file, LIBRARY_FILTERS, false);
        ::_exit(0);
    }
    bool sawTemp = false;
    for (int i = 0; i < 60000 && !sawTemp; ++i) {
        DIR* d = ::opendir(dir.c_str());
        while (dirent* entry = d ? ::readdir(d) : nullptr) {
            struct stat info;
            const std::string n = entry->d_name;
            if (n.find(".tmp-") != std::string::npos &&
                ::stat((dir + "/" + n).c_str(), &info) == 0 && info.st_size > 0)
                sawTemp = true;
        }
        if (d) ::closedir(d);
        if (!sawTemp) std::this_thread::sleep_for(std::chrono::microseconds(500));
    }
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    ASSERT_TRUE(sawTemp) << "the writer never started its temporary file";
    ASSERT_TRUE(WIFSIGNALED(status)) << "the writer finished before it was killed";

    EXPECT_EQ(textOf(file), before);
    std::vector<ledTypeStruct> e;
    std::string error;
    ASSERT_TRUE(readUserLibrary(file, LIBRARY_FILTERS, &e, &error)) << error;
    ASSERT_EQ(e.size(), 2u);
    EXPECT_STREQ(e[1].name, "Old 2");
}

}  // namespace
