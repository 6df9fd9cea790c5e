// The three user libraries in the window: the rows they give the Spectra, Filters and Colors
// tabs, and the commands that save, import and replace their entries. The libraries are the
// single source of truth: every change rewrites the file and rebuilds the rows from it.
#include <algorithm>

#include "AppConstants.h"
#include "FileText.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "SpectraEditorWindow.h"
#include "UserDialogs.h"
#include "UserLibrary.h"
#include "UserSpectrumInfo.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {

// Rows of filters and colours kept at most; a library holding more is cut with a box.
constexpr int MAX_FILTER_COLOR_ROWS = 258064;
const char* const KIND_PLURAL[3] = {"filters", "spectra", "colors"};
const char* const LIBRARY_PATTERNS[3] = {"*.fils", "*.spec", "*.cols"};
const char* const REPLACE_TITLES[3] = {"New user filters file", "New user spectra file",
                                       "New user colors file"};

FXuint showLibraryMessage(FXWindow* owner, const LibraryMessage& m) {
    switch (m.box) {
        case LibraryBox::ERROR:
            return UserDialogs::error(owner, m.title.c_str(), "%s", m.text.c_str());
        case LibraryBox::WARNING:
            return UserDialogs::information(owner, m.title.c_str(), "%s", m.text.c_str());
        case LibraryBox::QUESTION:
            return UserDialogs::question(owner, MBOX_YES_NO, m.title.c_str(), "%s", m.text.c_str());
    }
    return MBOX_CLICKED_OK;
}

}  // namespace

std::string VantrelGUI::libraryPath(int libraryType) const {
    return paths.programDir + userLibraryFileName(libraryType);
}

void VantrelGUI::updateUserFiles() {
    for (int type : {LIBRARY_FILTERS, LIBRARY_SPECTRA, LIBRARY_COLORS})
        convertLibraryToCurrentFormat(libraryPath(type), type);
}

// --- Rows from the libraries ------------------------------------------------------------------

std::vector<ledTypeStruct> VantrelGUI::readUserSpectraRows(bool showLimitBox) {
    const int numStandard = model->definitions().getNumStdSpectra();
    const int room = MAX_SPECTRA_ROWS - numStandard;
    std::vector<ledTypeStruct> user;
    std::string error;
    const bool whole =
        readUserLibrary(libraryPath(LIBRARY_SPECTRA), LIBRARY_SPECTRA, &user, &error, room + 1);
    if (static_cast<int>(user.size()) > room) {
        user.resize(room);
        if (showLimitBox) {
            UserDialogs::error(this, "User Spectrum Error",
                               "You can only have up to %d user spectra, with this file there will "
                               "be too many (%d), only the first %d will be kept.\nYou can save "
                               "your user spectra in several files and read in the ones you need "
                               "to use as you go.",
                               MAX_SPECTRA_ROWS + 1 - numStandard, room + 1, room);
        }
    }
    // A library cut short keeps the spectra read whole; the next one is the one that failed.
    libraryReadFailure = 0;
    if (!whole && fileExists(libraryPath(LIBRARY_SPECTRA)))
        libraryReadFailure = static_cast<int>(user.size()) + 1;
    return user;
}

bool VantrelGUI::allocateAllSpec(int numRowsToKeep) {
    const bool rebuild = !ledRows.empty();
    const std::vector<ledTypeStruct> user = readUserSpectraRows(rebuild);
    if (rebuild) saveStdLedValues(numRowsToKeep);
    destroyLedRows();
    model->setUserSpectra(user);
    buildLedRows();
    if (ledMatrix->id() != 0) {
        ledMatrix->create();
        if (holdList != nullptr) holdList->create();
    }
    if (rebuild) restoreStdLedValues(numRowsToKeep);
    onCmdCheckedLED(nullptr, 0, nullptr);
    setShowLEDs();
    enableDisableLEDchecks();
    setSpectraTabText();
    ledMatrix->recalc();
    return true;
}

bool VantrelGUI::allocateAllFilterColors(int libraryType) {
    const bool filters = libraryType == LIBRARY_FILTERS;
    std::vector<ledTypeStruct>& records = filters ? filterSpectra : colorSpectra;
    std::vector<FXCheckButton*>& checks = filters ? filterChecks : colorChecks;
    FXVerticalFrame* list = filters ? filterList : colorList;
    std::vector<bool> wasChecked;
    for (FXCheckButton* check : checks) wasChecked.push_back(check->getCheck() == TRUE);
    for (FXCheckButton* check : checks) delete check;
    checks.clear();
    records.clear();
    std::string error;
    readUserLibrary(libraryPath(libraryType), libraryType, &records, &error,
                    MAX_FILTER_COLOR_ROWS + 1);
    if (static_cast<int>(records.size()) > MAX_FILTER_COLOR_ROWS) {
        UserDialogs::error(this, filters ? "User Filter Error" : "User Color Error",
                           filters
                               ? "You can only have up to %d user filters, with this file there "
                                 "will be too many (%d).\nYou can save your user filters in "
                                 "several files and read in the ones you need to use as you go."
                               : "You can only have up to %d user colors, with this file there "
                                 "will be too many (%d).\nYou can save your user colors in "
                                 "several files and read in the ones you need to use as you go.",
                           MAX_FILTER_COLOR_ROWS, static_cast<int>(records.size()));
        records.resize(MAX_FILTER_COLOR_ROWS);
    }
    for (std::size_t i = 0; i < records.size(); ++i) {
        FXString name = FXString(records[i].name).trim();
        name.substitute("&", "&&");
        FXCheckButton* check =
            new FXCheckButton(list, name, this, filters ? ID_CHECKED_FILTER : ID_CHECKED_COLOR);
        check->setTipText(
            FXString().format(filters ? "Filter #%d" : "Color #%d", static_cast<int>(i) + 1));
        check->setCheck(i < wasChecked.size() && wasChecked[i]);
        checks.push_back(check);
    }
    if (list->id() != 0) list->create();
    FXLabel* none = noLibraryLabel[filters ? 0 : 1];
    if (records.empty()) {
        none->show();
    } else {
        none->hide();
    }
    list->getParent()->getParent()->recalc();
    if (filters) {
        onCmdCheckedFilter(nullptr, 0, nullptr);
    } else {
        onCmdCheckedColor(nullptr, 0, nullptr);
    }
    return true;
}

void VantrelGUI::allocateLibraryRows(int libraryType, int numRowsToKeep) {
    if (libraryType == LIBRARY_SPECTRA) {
        allocateAllSpec(numRowsToKeep);
    } else {
        allocateAllFilterColors(libraryType);
    }
}

// --- Saving an entry ---------------------------------------------------------------------------

long VantrelGUI::onCmdAddToUserSpec(FXObject*, FXSelector sel, void* ptr) {
    const int type = FXSELID(sel) - ID_SAVE_USER_DATA;
    const char* name = static_cast<const char*>(ptr);
    addToUserLibrary(type >= 0 && type <= 2 ? type : LIBRARY_SPECTRA,
                     name != nullptr ? name : std::string(), name != nullptr, 0.0);
    return 1;
}

bool VantrelGUI::addToUserLibrary(int type, const std::string& givenName, bool named,
                                  double givenLPW) {
    LibraryMessage message;
    const int numRows =
        type == LIBRARY_SPECTRA
            ? getNumSpectra()
            : static_cast<int>((type == LIBRARY_FILTERS ? filterSpectra : colorSpectra).size());
    if (checkLibraryLimit(type, numRows, &message)) return showLibraryMessage(this, message), false;
    // An entry is saved from a calculated table: a spectrum with its photometry, a filter or
    // colour as filter or colour input put it on the grid.
    if (!resultsValid) {
        onCmdCalculate(nullptr, 0, nullptr);
        if (!resultsValid) return false;
    }
    std::string name = givenName.substr(0, MAX_ENTRY_NAME_LENGTH);
    double lpw = givenLPW;
    if (!named && !askEntryName(type, &name, &lpw)) return false;
    if (named && checkEntryName(type, name, &message))
        return showLibraryMessage(this, message), false;

    EntryValueOptions options;
    options.libraryType = type;
    const bool filterColorInput = analysisType == 4 || analysisType == 7;
    options.scale = filterColorInput && settings.getInt("colorsFiltersUnits") == 1 ? 100.0 : 1.0;
    options.allowAboveScale = settings.getBool("allowFiltersGreaterThanOneMenu");
    options.colorWarningOff = colorWarningOff;
    options.photons = settings.getInt("freeFormatInputUnitsIndex") == 3 && !filterColorInput;
    std::vector<std::string> cells(displayTable->getNumRows());
    for (int r = 0; r < displayTable->getNumRows(); ++r)
        cells[r] = displayTable->getItemText(r, 1).text();
    EntryValues values = readEntryValues(cells, options);
    for (const LibraryMessage& m : values.messages) {
        if (showLibraryMessage(this, m) != MBOX_CLICKED_YES) continue;
        // "Yes" allows such filters from now on, and silences the colour warning for this run.
        if (m.id == LibraryMessageId::FILTER_ABOVE_SCALE) {
            settings.setBool("allowFiltersGreaterThanOneMenu", true);
            settingsToWidgets();
        }
        if (m.id == LibraryMessageId::COLOR_ABOVE_SCALE) colorWarningOff = true;
    }
    if (checkEntryIntensities(values.values, &message))
        return showLibraryMessage(this, message), false;

    const SpectrumResults& r = lastOutcome.results;
    const bool spectrum = type == LIBRARY_SPECTRA;
    const int n = irChk->getCheck() ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    const ledTypeStruct entry = makeUserLibraryEntry(
        type, name, lpw, values.values, spectrum ? r.lumens : 0.0, spectrum ? r.wattsVis : 0.0,
        spectrum ? Vantrel::getSpectralWatts(n, mixedSpectrum.data(), 2.0) : 0.0);
    std::string error;
    if (!addUserLibraryEntry(libraryPath(type), type, entry, &error)) {
        UserDialogs::error(this, "File error",
                           "File \"%s\" could not be written, try a different name.",
                           libraryPath(type).c_str());
        return false;
    }
    allocateLibraryRows(type, getNumSpectra());
    inputTabs->setCurrent(type == LIBRARY_SPECTRA ? 0 : type == LIBRARY_FILTERS ? 1 : 2);
    return true;
}

bool VantrelGUI::askEntryName(int type, std::string* name, double* lpw) {
    UserSpectrumInfo dialog(this, type, *name);
    LibraryMessage message;
    // A refused name or LPW brings the dialog back with what was typed.
    while (dialog.ask()) {
        *name = dialog.getName();
        *lpw = fieldValue(dialog.getLPW(), 0.0);
        if (checkEntryName(type, *name, &message) || checkEntryLPW(*lpw, &message)) {
            showLibraryMessage(this, message);
            continue;
        }
        *name = FXString(name->c_str()).trim().text();
        return true;
    }
    return false;
}

// --- Import and replace ------------------------------------------------------------------------

long VantrelGUI::onCmdImportUserSpec(FXObject*, FXSelector sel, void*) {
    const int type = std::clamp(static_cast<int>(FXSELID(sel)) - ID_IMPORT_USER_DATA, 0, 2);
    FXString file;
    if (!UserDialogs::chooseFile(
            this, FXString().format("Import %s", KIND_PLURAL[type]), LIBRARY_PATTERNS[type],
            settings.getString("pathUserFilesDirectory").c_str(), "", true, &file))
        return 1;
    importUserLibrary(type, file.text());
    return 1;
}

bool VantrelGUI::importUserLibrary(int type, const std::string& file) {
    std::vector<ledTypeStruct> entries, added;
    std::string error;
    const bool read = readUserLibrary(file, type, &added, &error);
    const bool current = readUserLibrary(libraryPath(type), type, &entries, &error) ||
                         !fileExists(libraryPath(type));
    bool written = false;
    if (read && current && !added.empty()) {
        entries.insert(entries.end(), added.begin(), added.end());
        written = ReadWriteUserSpectra(static_cast<int>(entries.size()), nullptr, entries.data(),
                                       "w", libraryPath(type), type, false)
                      .getError() == false;
    }
    if (!written) {
        UserDialogs::error(this, "Unknown error", "Unknown error importing user %s from:\n\n\"%s\"",
                           KIND_PLURAL[type], file.c_str());
        return false;
    }
    allocateLibraryRows(type, getNumSpectra());
    return true;
}

long VantrelGUI::onCmdReplaceUserSpec(FXObject*, FXSelector sel, void*) {
    const int type = std::clamp(static_cast<int>(FXSELID(sel)) - ID_REPLACE_USER_DATA, 0, 2);
    FXString file;
    if (!UserDialogs::chooseFile(this, REPLACE_TITLES[type], LIBRARY_PATTERNS[type],
                                 settings.getString("pathUserFilesDirectory").c_str(), "", true,
                                 &file))
        return 1;
    replaceLibrary(type, file.text());
    return 1;
}

bool VantrelGUI::replaceLibrary(int type, const std::string& file) {
    const LibraryReplaceResult result = replaceUserLibrary(libraryPath(type), file, type);
    if (!result.ok) showLibraryMessage(this, result.message);
    // The checks stay with their rows by position.
    allocateLibraryRows(type, getNumSpectra());
    return result.ok;
}

// --- The editor ------------------------------------------------------------------------------

long VantrelGUI::onCmdEditUserSpec(FXObject*, FXSelector sel, void*) {
    editLibrary(std::clamp(static_cast<int>(FXSELID(sel)) - ID_EDIT_USER_DATA, 0, 2));
    return 1;
}

void VantrelGUI::editLibrary(int type, const std::function<void(SpectraEditorWindow&)>& drive) {
    std::vector<ledTypeStruct> entries;
    std::string error;
    if (!readUserLibrary(libraryPath(type), type, &entries, &error) &&
        fileExists(libraryPath(type))) {
        UserDialogs::error(this, "File error", "Could not read the file:\n\n%s", error.c_str());
        return;
    }
    SpectraEditorWindow editor(this, type, entries, libraryPath(type),
                               settings.getString("pathUserFilesDirectory"));
    if (drive) {
        editor.create();
        drive(editor);
    } else {
        editor.execute(PLACEMENT_OWNER);
    }
    if (!editor.wasSaved()) return;
    // The standard rows keep what they hold; the user rows follow the library's new order.
    allocateLibraryRows(type, model->definitions().getNumStdSpectra());
    if (type == LIBRARY_SPECTRA) writeUserSpecDefaultLPW(true);
}
