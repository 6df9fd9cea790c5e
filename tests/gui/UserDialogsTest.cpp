// The dialog class answers from a script in tests, and FOX colour words come out right.
#include <gtest/gtest.h>

#include "ArgbColor.h"
#include "UserDialogs.h"

TEST(ArgbColor, SignedRedOfTheSettingsIsRedOnScreen) {
    const FXColor red = argbColor(-65536);  // 0xFFFF0000
    EXPECT_EQ(FXREDVAL(red), 255u);
    EXPECT_EQ(FXGREENVAL(red), 0u);
    EXPECT_EQ(FXBLUEVAL(red), 0u);
    EXPECT_EQ(FXALPHAVAL(red), 255u);
    const FXColor tint = argbColor(0xFF102030u);
    EXPECT_EQ(FXREDVAL(tint), 0x10u);
    EXPECT_EQ(FXGREENVAL(tint), 0x20u);
    EXPECT_EQ(FXBLUEVAL(tint), 0x30u);
}

TEST(UserDialogs, AScriptRecordsBoxesAndAnswersThem) {
    UserDialogs::Script script;
    script.answers.push_back(MBOX_CLICKED_NO);
    script.files.push_back("/tmp/a.vtd");
    UserDialogs::setScript(&script);
    EXPECT_EQ(UserDialogs::question(nullptr, MBOX_YES_NO, "Confirm Save As",
                                    "\"%s\" already exists.", "a.vtd"),
              MBOX_CLICKED_NO);
    // Without answers left a box gives its first button.
    EXPECT_EQ(UserDialogs::error(nullptr, "Data error", "%d%% done", 50), MBOX_CLICKED_OK);
    FXString path;
    EXPECT_TRUE(UserDialogs::chooseFile(nullptr, "Save file", "*.vtd", "/tmp", "", false, &path));
    EXPECT_EQ(path, FXString("/tmp/a.vtd"));
    EXPECT_FALSE(UserDialogs::chooseFile(nullptr, "Open", "*.vtd", "/tmp", "", true, &path));
    UserDialogs::setScript(nullptr);
    ASSERT_EQ(script.shown.size(), 4u);
    EXPECT_EQ(script.shown[0].text, "\"a.vtd\" already exists.");
    EXPECT_EQ(script.shown[1].title, "Data error");
    EXPECT_EQ(script.shown[1].text, "50% done");
    EXPECT_EQ(script.shown[3].kind, UserDialogs::OPEN_FILE);
}
