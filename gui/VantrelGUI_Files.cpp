// Design files and the settings file: save and open, the recent files, clearing the inputs and
// going back to the defaults. A design is the settings file's format without the settings-only
// lines; both carry the rows of the Spectra tab, the filter and colour checks and the matching
// curve.
#include <sys/stat.h>

#include <algorithm>
#include <cstdio>

#include "AppConstants.h"
#include "DesignCalculation.h"
#include "FileText.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "UserDesign.h"
#include "UserDialogs.h"
#include "Utilities_zwk7.h"
#include "VantrelGUI.h"

namespace {

constexpr const char* USER_FILE_ERROR = "User file error";
// What a window may be at most: larger stored sizes come from a damaged file.
constexpr int MIN_WINDOW_SIZE = 100;

}  // namespace

// --- Writing ---------------------------------------------------------------------------------

DesignData VantrelGUI::designFromWidgets() const {
    DesignData data = designExtras;
    data.rows.clear();
    data.names.clear();
    for (int i = 0; i < getNumSpectra(); ++i) {
        data.names.push_back(FXString(model->spectra()[i].name).trim().text());
        data.rows.push_back(designRowFromTexts(readLedRow(i)));
    }
    data.filterChecks.clear();
    for (FXCheckButton* check : filterChecks)
        data.filterChecks.push_back(check->getCheck() ? 1 : 0);
    data.colorChecks.clear();
    for (FXCheckButton* check : colorChecks) data.colorChecks.push_back(check->getCheck() ? 1 : 0);
    data.matchingColumn.clear();
    // The user's own matching curve, when it is one a Calculate would use.
    Table_zwk7* table = inputTables[spectrumRange];
    if (settings.getInt("_matchingSpectraType") == 0 &&
        settings.getBool("enableMatchingMenuItem") && table->getNumColumns() >= 3) {
        std::vector<std::string> column(table->getNumRows());
        for (int r = 0; r < table->getNumRows(); ++r) column[r] = table->getItemText(r, 2).text();
        if (isMatchingColumnValid(column, settings.getBool("zeroEmptyCellsMenuItem"))) {
            while (!column.empty() && FXString(column.back().c_str()).trim().empty())
                column.pop_back();
            data.matchingColumn = column;
        }
    }
    return data;
}

bool VantrelGUI::saveUserDesign(const std::string& fileName, bool isIni) {
    widgetsToSettings();
    settings.setString("mainCurveName", mainCurveName);
    if (!settings.write(fileName, isIni, designLines(designFromWidgets()))) {
        UserDialogs::error(this, "File error",
                           "File \"%s\" could not be written, try a different name.",
                           fileName.c_str());
        return false;
    }
    if (!isIni) updateRecentlyUsedFileList(fileName);
    return true;
}

long VantrelGUI::onCmdWriteFile(FXObject*, FXSelector, void*) {
    FXString directory = settings.getString("pathUserFilesDirectory").c_str();
    FXString name, path;
    // A file that can't be written brings the dialog back, so another name or folder can be
    // given; Cancel ends it.
    while (Utilities_zwk7::saveFile(this, "Save file", USER_DESIGNS_FILE_EXT, "", &directory, &name,
                                    &path)) {
        if (saveUserDesign(path.text(), false)) {
            settings.setString("pathUserFilesDirectory", directory.text());
            break;
        }
    }
    return 1;
}

// --- Reading ---------------------------------------------------------------------------------

bool VantrelGUI::readUserDesign(const std::string& fileName, bool isIni) {
    ProgramSettings read = settings;  // the options change only when the file can be used
    if (isIni) read.setIniDefaults();
    const ProgramSettings::ReadResult result = read.read(fileName, isIni);
    // Every writer of the format starts with the version line: a file without one is not a
    // design, whatever lines of it happen to look like tags.
    if (result.status != ProgramSettings::ReadStatus::OK || read.fileVersion() <= 0) return false;
    settings = read;
    clampStoredOptions();
    for (LedRowWidgets& row : ledRows) row.check->setCheck(false);
    applyDesign(readDesignLines(result.otherLines));
    onCmdCheckedLED(nullptr, 0, nullptr);
    if (!isIni) updateRecentlyUsedFileList(fileName);
    return true;
}

void VantrelGUI::applyDesign(const DesignData& data) {
    designExtras = data;
    const std::vector<ledTypeStruct>& spectra = model->spectra();
    const int rows = std::min(getNumSpectra(), static_cast<int>(data.rows.size()));
    for (int i = 0; i < rows; ++i)
        writeLedRow(i, designRowTexts(data.rows[i], spectra[i], readLedRow(i)));
    for (std::size_t f = 0; f < filterChecks.size(); ++f)
        filterChecks[f]->setCheck(f < data.filterChecks.size() && data.filterChecks[f] == 1);
    for (std::size_t c = 0; c < colorChecks.size(); ++c)
        colorChecks[c]->setCheck(c < data.colorChecks.size() && data.colorChecks[c] == 1);
    if (!data.matchingColumn.empty() && settings.getInt("_matchingSpectraType") == 0 &&
        settings.getBool("enableMatchingMenuItem")) {
        setupTable();
        // The table of the design's range, which the widgets show only after the read.
        const int range = std::clamp(settings.getInt("spectrumRange"), 0, NUM_SPECTRUM_RANGES - 1);
        Table_zwk7* table = inputTables[range];
        const int n = std::min(table->getNumRows(), static_cast<int>(data.matchingColumn.size()));
        if (table->getNumColumns() >= 3) {
            for (int r = 0; r < n; ++r) table->setItemText(r, 2, data.matchingColumn[r].c_str());
        }
    }
}

void VantrelGUI::updateAfterReadingFile() {
    mainCurveName = settings.getString("mainCurveName");
    settingsToWidgets();
    setSpectraTabText();
    onCmdCheckedFilter(nullptr, 0, nullptr);
    onCmdCheckedColor(nullptr, 0, nullptr);
    clearOutput();
    resetCIEZoomPending = true;
    repaintPlots();
}

long VantrelGUI::onCmdOpenUserFile(FXObject*, FXSelector, void*) {
    const FXString directory = settings.getString("pathUserFilesDirectory").c_str();
    FXString path;
    if (!UserDialogs::chooseFile(this, "Open design file", FXString("*") + USER_DESIGNS_FILE_EXT,
                                 directory, "", true, &path))
        return 1;
    settings.setString("pathUserFilesDirectory", FXPath::directory(path).text());
    openDesign(path.text());
    return 1;
}

bool VantrelGUI::openDesign(const std::string& path) {
    if (!readUserDesign(path, false)) {
        UserDialogs::error(
            this, USER_FILE_ERROR,
            "The file could not be read - it may be from a version that was too old");
        return false;
    }
    updateAfterReadingFile();
    return true;
}

// --- Recent files ----------------------------------------------------------------------------

void VantrelGUI::updateRecentlyUsedFileList(const std::string& name) {
    std::vector<std::string> list = settings.getList(OptionId::recentlyUsedFiles);
    list.erase(std::remove(list.begin(), list.end(), std::string()), list.end());
    if (!name.empty()) {
        list.erase(std::remove(list.begin(), list.end(), name), list.end());
        list.insert(list.begin(), name);
    }
    if (list.size() > RECENT_FILES_MAX) list.resize(RECENT_FILES_MAX);
    settings.setList(OptionId::recentlyUsedFiles, list);
    showRecentFiles();
}

void VantrelGUI::clearRecentlyUsedList() {
    settings.setList(OptionId::recentlyUsedFiles, {});
    showRecentFiles();
}

void VantrelGUI::showRecentFiles() {
    const std::vector<std::string> list = settings.getList(OptionId::recentlyUsedFiles);
    for (int i = 0; i < RECENT_FILES_MAX; ++i) {
        FXMenuCommand* item = recentFileItems[i];
        if (item == nullptr) continue;
        if (i < static_cast<int>(list.size()) && !list[i].empty()) {
            item->setText(FXString().format("&%d %s", (i + 1) % 10, list[i].c_str()));
            item->show();
        } else {
            item->hide();
        }
    }
    if (recentFileItems[0] != nullptr) recentFileItems[0]->getParent()->recalc();
}

long VantrelGUI::onCmdOpenRecentFile(FXObject*, FXSelector sel, void*) {
    const int slot = FXSELID(sel) - ID_RECENT_FILE;
    std::vector<std::string> list = settings.getList(OptionId::recentlyUsedFiles);
    if (slot < 0 || slot >= static_cast<int>(list.size())) return 1;
    const std::string name = list[slot];
    if (!fileExists(name)) {
        UserDialogs::error(this, USER_FILE_ERROR, "The file was not found");
        if (UserDialogs::question(this, MBOX_YES_NO, USER_FILE_ERROR,
                                  "Do you want to remove this file name from the list?") ==
            MBOX_CLICKED_YES) {
            list.erase(list.begin() + slot);
            settings.setList(OptionId::recentlyUsedFiles, list);
            showRecentFiles();
        }
        return 1;
    }
    openDesign(name);
    return 1;
}

long VantrelGUI::onCmdClearRecentProjectList(FXObject*, FXSelector, void*) {
    clearRecentlyUsedList();
    return 1;
}

// --- Clearing and defaults -------------------------------------------------------------------

void VantrelGUI::resetLedRows(bool keepChecks) {
    const std::vector<ledTypeStruct>& spectra = model->spectra();
    for (int i = 0; i < getNumSpectra(); ++i) {
        ledInputDataStruct row = defaultRowTexts(spectra[i]);
        row.checked = keepChecks && ledRows[i].check->getCheck();
        writeLedRow(i, row);
    }
    writeUserSpecDefaultLPW(false);
}

long VantrelGUI::onCmdClearInputData(FXObject* sender, FXSelector sel, void* ptr) {
    // With direct, filter or colour input the button clears the table.
    if (analysisType == 1 || analysisType == 4 || analysisType == 7)
        return onCmdClearSpectrumData(sender, sel, ptr);
    onCmdClearSpectrumData(nullptr, 0, nullptr);
    for (int i = 0; i < getNumSpectra(); ++i) writeLedRow(i, ledInputDataStruct());
    writeUserSpecDefaultLPW(false);
    // The optimizer's floors and targets go with the inputs.
    designExtras = DesignData();
    for (const char* tag : {"opt_x_TF", "opt_y_TF", "opt_gamut_CRI_TF", "opt_gamut_D65_TF",
                            "opt_LPW_TF", "opt_min_delta_uv_TF", "opt_max_delta_uv_TF"})
        settings.setDouble(tag, 0.0);
    for (const char* tag : {"rangeOnCCT_TF", "desiredCCT_TF"}) settings.setString(tag, "");
    for (FXCheckButton* check : filterChecks) check->setCheck(false);
    onCmdCheckedFilter(nullptr, 0, nullptr);
    onCmdCheckedLED(nullptr, 0, nullptr);
    clearOutput();
    return 1;
}

long VantrelGUI::onCmdResetDefaults(FXObject*, FXSelector, void*) {
    for (LedRowWidgets& row : ledRows) row.check->setCheck(false);
    resetLedRows(false);
    const std::vector<std::string> recent = settings.getList(OptionId::recentlyUsedFiles);
    settings.setIniDefaults();
    settings.setList(OptionId::recentlyUsedFiles, recent);
    settings.setString("pathUserFilesDirectory", paths.programDir);
    designExtras = DesignData();
    updateAfterReadingFile();
    onCmdCheckedLED(nullptr, 0, nullptr);
    resizeToScreen(false);
    return 1;
}

// --- The settings file -----------------------------------------------------------------------

void VantrelGUI::readSettings() {
    const std::string& file = paths.settingsFile;
    settingsReadFailed = !readUserDesign(file, true);
    if (settingsReadFailed) {
        // A damaged settings file is kept beside the new one, so that nothing the user set is
        // lost for good; the program starts with the defaults.
        std::string text;
        if (readFileText(file, 1, &text) != FileReadStatus::CANNOT_OPEN)
            std::rename(file.c_str(), (file + ".bad").c_str());
        settings.setIniDefaults();
    }
    // A stored folder that is gone falls back to the per-user folder.
    struct stat info;
    const std::string userFiles = settings.getString("pathUserFilesDirectory");
    if (userFiles.empty() || ::stat(userFiles.c_str(), &info) != 0 || !S_ISDIR(info.st_mode)) {
        settings.setString("pathUserFilesDirectory", paths.programDir);
    }
    mainCurveName = settings.getString("mainCurveName");
    settingsToWidgets();
    showRecentFiles();
}

void VantrelGUI::saveSettings() { saveUserDesign(paths.settingsFile, true); }

void VantrelGUI::clampStoredOptions() {
    // A choice that none of its menu radios offers, or a check that is neither on nor off,
    // goes back to its default.
    ProgramSettings defaults;
    std::vector<std::string> seen;
    for (const OptionBinding& binding : optionBindings) {
        if (binding.index >= 0) continue;
        const int value = settings.getInt(binding.tag);
        if (!binding.radio) {
            if (value != 0 && value != 1) settings.setInt(binding.tag, value != 0 ? 1 : 0);
            continue;
        }
        if (std::find(seen.begin(), seen.end(), binding.tag) != seen.end()) continue;
        seen.push_back(binding.tag);
        bool offered = false;
        for (const OptionBinding& other : optionBindings)
            offered = offered || (other.radio && other.tag == binding.tag && other.value == value);
        if (!offered) settings.setInt(binding.tag, defaults.getInt(binding.tag));
    }
    settings.setInt("analysisType", std::clamp(settings.getInt("analysisType"), 0, 8));
    settings.setInt("spectrumRange",
                    std::clamp(settings.getInt("spectrumRange"), 0, NUM_SPECTRUM_RANGES - 1));
    // Before the window exists the screen's size is not known: create() clamps the sizes then.
    if (getRoot()->id() != 0) clampStoredSizes();
}

void VantrelGUI::clampStoredSizes() {
    // The window fits on the screen.
    const int screenW = std::max(getRoot()->getWidth(), MIN_WINDOW_SIZE);
    const int screenH = std::max(getRoot()->getHeight(), MIN_WINDOW_SIZE);
    const auto clampTo = [&](const char* tag, int low, int high) {
        settings.setInt(tag, std::clamp(settings.getInt(tag), low, high));
    };
    clampTo("main_width", 0, screenW);
    clampTo("main_height", 0, screenH);
    clampTo("window_x", -1, screenW - MIN_WINDOW_SIZE);
    clampTo("window_y", -1, screenH - MIN_WINDOW_SIZE);
    clampTo("dataSplitter", 0, screenW);
    clampTo("plotsSplitter", 0, screenH);
    clampTo("spectrumTableWidth", 0, screenW);
    // The sizes and splits of every window, those of windows still closed among them.
    for (const OptionDef& def : ProgramSettings::table()) {
        if (def.kind != OptionKind::INT) continue;
        const std::string tag = def.tag;
        const bool index = tag.find("Index") != std::string::npos;
        const bool width =
            tag.find("Width") != std::string::npos && tag.find("LineWidth") == std::string::npos;
        const bool height = tag.find("Height") != std::string::npos;
        const bool split = tag.find("plitter") != std::string::npos;
        if (!index && (width || split)) clampTo(def.tag, 0, screenW);
        if (!index && height) clampTo(def.tag, 0, screenH);
    }
}
