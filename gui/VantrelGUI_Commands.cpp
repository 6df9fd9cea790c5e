// Small commands of the menus: the help documents, the engine's coefficient files, the table
// written to a text file, the matching curve's data and title, and the program font.
#include <algorithm>
#include <cstdlib>

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
        showMatchingCurveTitle();
        repaintPlots();
    }
    return 1;
}

long VantrelGUI::onCmdProgramFont(FXObject*, FXSelector, void*) {
    // The toolkit hands a window its font when the window is made, so a new program font is
    // kept in the settings and used from the next start.
    FXFontDesc desc;
    getApp()->getNormalFont()->getFontDesc(desc);
    FXFontDialog dialog(this, "Program font");
    dialog.setFontSelection(desc);
    const auto descFields = [](const FXFontDesc& d) {
        return std::vector<std::string>{d.face,
                                        std::to_string(d.size),
                                        std::to_string(d.weight),
                                        std::to_string(d.slant),
                                        std::to_string(d.encoding),
                                        std::to_string(d.setwidth),
                                        std::to_string(d.flags)};
    };
    std::vector<std::string> fields = descFields(desc);
    if (!UserDialogs::runForm(&dialog, &fields, [&] {
            FXFontDesc chosen;
            dialog.getFontSelection(chosen);
            return descFields(chosen);
        })) {
        return 1;
    }
    int numbers[6] = {};
    for (int k = 0; k < 6; ++k) {
        char* end = nullptr;
        const long value = std::strtol(fields[k + 1].c_str(), &end, 10);
        numbers[k] = end != fields[k + 1].c_str() && *end == '\0' && value >= 0 && value < 100000
                         ? static_cast<int>(value)
                         : -1;
    }
    const bool numbersRead =
        std::all_of(std::begin(numbers), std::end(numbers), [](int n) { return n >= 0; });
    if (fields[0].empty() || !numbersRead || numbers[0] < 60 || numbers[0] > 240) {
        UserDialogs::error(this, "Font error", "Please choose a font face of 6 to 24 points.");
        return 1;
    }
    settings.setString(OptionId::programFontDescription_face, fields[0]);
    const OptionId ids[6] = {
        OptionId::programFontDescription_size,     OptionId::programFontDescription_weight,
        OptionId::programFontDescription_slant,    OptionId::programFontDescription_encoding,
        OptionId::programFontDescription_setwidth, OptionId::programFontDescription_flags};
    for (int k = 0; k < 6; ++k) settings.setInt(ids[k], numbers[k]);
    saveSettings();
    UserDialogs::information(this, "Program font",
                             "The font \"%s\" at %d points is used from the next start of the "
                             "program.",
                             fields[0].c_str(), numbers[0] / 10);
    return 1;
}

long VantrelGUI::onCmdPickMatchingCurve(FXObject*, FXSelector, void*) {
    const std::vector<ledTypeStruct> user = readUserSpectraRows(false);
    if (user.empty()) {
        UserDialogs::information(this, "Matching curve",
                                 "There are no user spectra to match: save a spectrum to the user "
                                 "spectra first.");
        return 1;
    }
    FXDialogBox dialog(this, "Matching curve", DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE);
    FXVerticalFrame* frame = new FXVerticalFrame(&dialog, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    new FXLabel(frame, "Match against the user spectrum:", nullptr, JUSTIFY_LEFT);
    FXList* list = new FXList(frame, nullptr, 0,
                              LIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y | FRAME_SUNKEN);
    list->setNumVisible(std::min(static_cast<int>(user.size()), 15));
    for (const ledTypeStruct& spectrum : user) list->appendItem(spectrum.name);
    FXHorizontalFrame* buttons = new FXHorizontalFrame(frame, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH);
    new FXButton(buttons, "&OK", nullptr, &dialog, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | FRAME_RAISED | LAYOUT_RIGHT);
    new FXButton(buttons, "&Cancel", nullptr, &dialog, FXDialogBox::ID_CANCEL,
                 FRAME_RAISED | LAYOUT_RIGHT);
    std::vector<std::string> fields = {"0"};
    const bool chosen = UserDialogs::runForm(&dialog, &fields, [list] {
        return std::vector<std::string>{std::to_string(list->getCurrentItem())};
    });
    const int index = chosen ? std::atoi(fields[0].c_str()) : -1;
    if (index >= 0 && index < static_cast<int>(user.size())) useAsMatchingCurve(user[index]);
    return 1;
}

void VantrelGUI::useAsMatchingCurve(const ledTypeStruct& spectrum) {
    if (!settings.getBool("enableMatchingMenuItem")) {
        auto* check = static_cast<FXMenuCheck*>(getOptionWidget("enableMatchingMenuItem", 1));
        if (check != nullptr) check->setCheck(TRUE);
        settings.setBool("enableMatchingMenuItem", true);
        setupTable();
        clearOutput();
    }
    const bool photons = settings.getInt("freeFormatInputUnitsIndex") == 3;
    const int rows = std::min(displayTable->getNumRows(), Vantrel::NUM_GRID_POINTS_IR);
    for (int i = 0; i < rows; ++i) {
        double value = spectrum.spectrum[i];
        if (photons) value = Vantrel::convert_to_Photons_Sec_from_Watts_nm(value, 360.0 + 2.0 * i);
        displayTable->setItemText(i, 2, FXString().format("%.*le", 3, value));
    }
    settings.setString("matchingCurveName", spectrum.name);
    showMatchingCurveTitle();
    repaintPlots();
}

void VantrelGUI::showMatchingCurveTitle() {
    const std::string title = settings.getString("matchingCurveName");
    for (FXMenuPane* pane : menuPanes) {
        for (FXWindow* w = pane->getFirst(); w != nullptr; w = w->getNext()) {
            auto* command = dynamic_cast<FXMenuCommand*>(w);
            if (command == nullptr || command->getSelector() != ID_PICK_MATCHING_CURVE) continue;
            command->setText(title.empty() ? "Unknown" : title.c_str());
        }
    }
}
