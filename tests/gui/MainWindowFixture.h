// A main window in its own per-user folder, with scripted message boxes, set to direct input
// as each test starts.
#ifndef LUMIVAR_TESTS_MAINWINDOWFIXTURE_H
#define LUMIVAR_TESTS_MAINWINDOWFIXTURE_H

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "GuiTestApp.h"
#include "UserDialogs.h"
#include "VantrelGUI.h"

// The first row of lumivar-cli's output for these arguments, column by column with the
// header's names.
inline std::vector<std::pair<std::string, std::string>> cliRow(const std::string& arguments) {
    const std::string command = std::string(LUMIVAR_CLI_PATH) + " " + arguments;
    FILE* pipe = popen(command.c_str(), "r");
    std::string output;
    char buffer[4096];
    while (pipe != nullptr && std::fgets(buffer, sizeof buffer, pipe) != nullptr) output += buffer;
    if (pipe != nullptr) pclose(pipe);
    std::istringstream lines(output);
    std::string header, values, name, value;
    std::getline(lines, header);
    std::getline(lines, values);
    std::istringstream h(header), v(values);
    std::vector<std::pair<std::string, std::string>> row;
    while (std::getline(h, name, '\t') && std::getline(v, value, '\t'))
        row.push_back({name, value});
    return row;
}

class MainWindow : public ::testing::Test {
  protected:
    void SetUp() override {
        folder = std::filesystem::temp_directory_path() /
                 ("lumivar_gui_" + std::to_string(::getpid()) + "_" +
                  ::testing::UnitTest::GetInstance()->current_test_info()->name());
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        UserDialogs::setScript(&script);
        open();
        chooseAnalysis(1);
    }
    void TearDown() override {
        close();
        // Paint requests a test left behind go with its window: left in the display's queue
        // they would make every later repaint scan them all.
        discardPendingEvents();
        UserDialogs::setScript(nullptr);
        std::filesystem::remove_all(folder);
    }
    void open() {
        gui = new VantrelGUI(guiTestApp(), folder.string() + "/");
        gui->create();
    }
    void close() {
        delete gui;
        gui = nullptr;
    }
    // Chooses an analysis type through its radio, as the user does.
    void chooseAnalysis(int type) {
        FXRadioButton* radio = gui->getAnalysisRadio(type);
        radio->setCheck(TRUE);
        gui->onCmdAnalysisType(radio, 0, nullptr);
    }
    // Chooses a spectrum range through its menu radio, as the user does.
    void chooseRange(int range) {
        FXMenuRadio* radio = gui->getRangeRadio(range);
        radio->setCheck(TRUE);
        gui->onCmdOptionRadio(radio, 0, nullptr);
    }
    void paste(int range, const std::string& text) {
        Table_zwk7* table = gui->getInputTable(range);
        table->setCurrentItem(0, 0);
        table->pasteText(text.c_str());
    }
    std::string result(const char* name) { return gui->getResultText(name).text(); }
    // The boxes and forms shown so far, "title: text" a line; file dialogs are left out.
    std::string boxes() const {
        std::string all;
        for (const auto& s : script.shown) {
            if (s.kind != UserDialogs::OPEN_FILE && s.kind != UserDialogs::SAVE_FILE)
                all += s.title + ": " + s.text + "\n";
        }
        return all;
    }

    std::filesystem::path folder;
    UserDialogs::Script script;
    VantrelGUI* gui = nullptr;
};

#endif  // LUMIVAR_TESTS_MAINWINDOWFIXTURE_H
