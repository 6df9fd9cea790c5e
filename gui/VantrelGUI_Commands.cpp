// Small commands of the menus: the help documents, the engine's coefficient files, the table
// written to a text file, and the matching curve's data and title.
#include "DocumentOpener.h"
#include "FileText.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "UserDialogs.h"
#include "Utilities_zwk7.h"
#include "Vantrel.h"
#include "VantrelGUI.h"

bool VantrelGUI::openWithDesktop(const std::string& target) {
    std::string error;
    if (openDocument(settings.getString("openCommand"), target, &error)) return true;
    UserDialogs::error(this, "Open error", "\"%s\" could not be opened:\n%s", target.c_str(),
                       error.c_str());
    return false;
}

long VantrelGUI::onCmdOpenWebSite(FXObject*, FXSelector, void*) {
    openWithDesktop(settings.getString("webSiteAddress"));
    return 1;
}

long VantrelGUI::onCmdOpenUserGuide(FXObject*, FXSelector, void*) {
    std::string guide = settings.getString("userGuideFile");
    if (!guide.empty() && guide[0] != '/') guide = paths.programDir + guide;
    if (!fileExists(guide)) {
        UserDialogs::error(this, "File error", "The User Guide \"%s\" was not found.",
                           guide.c_str());
        return 1;
    }
    openWithDesktop(guide);
    return 1;
}

long VantrelGUI::onCmdWriteCoefficients(FXObject*, FXSelector, void*) {
    // The engine writes its tables into the working folder, for checking against the standards.
    Vantrel engine;
    if (!engine.printCoefficients()) {
        UserDialogs::error(this, "File error",
                           "Some of the coefficient files could not be written in the folder "
                           "\"%s\".",
                           FXSystem::getCurrentDirectory().text());
    }
    return 1;
}

long VantrelGUI::onCmdWriteSpectrumData(FXObject*, FXSelector, void*) {
    FXString directory = settings.getString("pathUserFilesDirectory").c_str();
    FXString name, path;
    while (Utilities_zwk7::saveFile(this, "Save spectrum data", ".txt", "", &directory, &name,
                                    &path)) {
        if (Utilities_zwk7::writeTableToFile(path, getShownTable())) break;
        UserDialogs::error(this, "File error",
                           "File \"%s\" could not be written, try a different name.", path.text());
    }
    return 1;
}

long VantrelGUI::onCmdClearMatchingData(FXObject*, FXSelector, void*) {
    Table_zwk7* tables[NUM_SPECTRUM_RANGES + 1] = {displayTable};
    std::copy(std::begin(inputTables), std::end(inputTables), tables + 1);
    for (Table_zwk7* table : tables) {
        if (table->getNumColumns() < 3) continue;
        for (int r = 0; r < table->getNumRows(); ++r) table->setItemText(r, 2, "");
    }
    matchingSpectrum.clear();
    matchingValid = false;
    repaintPlots();
    return 1;
}

long VantrelGUI::onCmdMatchingCurveTitle(FXObject*, FXSelector, void*) {
    std::string title = settings.getString("matchingCurveName");
    if (UserDialogs::askText(this, "Matching curve", "Title for the matching curve: ", &title)) {
        settings.setString("matchingCurveName", title);
        repaintPlots();
    }
    return 1;
}
