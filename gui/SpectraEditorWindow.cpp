#include "SpectraEditorWindow.h"

#include "CalculateModel.h"
#include "ReadWriteUserSpectra.h"
#include "UserDialogs.h"
#include "UserLibrary.h"

FXDEFMAP(SpectraEditorWindow)
SpectraEditorWindowMap[] = {
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_UP, SpectraEditorWindow::onCmdUp),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_DOWN, SpectraEditorWindow::onCmdDown),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_DELETE, SpectraEditorWindow::onCmdDelete),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_RENAME, SpectraEditorWindow::onCmdRename),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_CHANGE_LPW, SpectraEditorWindow::onCmdChangeLPW),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_SCALE, SpectraEditorWindow::onCmdScale),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_EXPORT, SpectraEditorWindow::onCmdExport),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_EXPORT_ALL, SpectraEditorWindow::onCmdExport),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_CLEAR_SELECTION,
              SpectraEditorWindow::onCmdClearSelection),
    FXMAPFUNC(SEL_COMMAND, SpectraEditorWindow::ID_SAVE, SpectraEditorWindow::onCmdSave),
};
FXIMPLEMENT(SpectraEditorWindow, FXDialogBox, SpectraEditorWindowMap,
            ARRAYNUMBER(SpectraEditorWindowMap))

namespace {

const char* const TYPE_NAMES[3] = {"Filter", "Spectrum", "Color"};
const char* const LIBRARY_EXTENSIONS[3] = {".fils", ".spec", ".cols"};
const char* const SCALE_CHOICES[3] = {"Lumens", "Visible watts", "Max intensity"};

FXButton* commandButton(FXComposite* parent, const char* label, const char* tip, FXObject* target,
                        FXSelector id) {
    FXButton* b = new FXButton(parent, label, nullptr, target, id, BUTTON_NORMAL | LAYOUT_FILL_X);
    if (tip != nullptr) b->setTipText(tip);
    return b;
}

void showMessage(FXWindow* owner, const LibraryMessage& m) {
    UserDialogs::error(owner, m.title.c_str(), "%s", m.text.c_str());
}

}  // namespace

SpectraEditorWindow::SpectraEditorWindow(FXWindow* owner, int libraryType,
                                         std::vector<ledTypeStruct> entries,
                                         const std::string& path, const std::string& folder)
    : FXDialogBox(owner, "Simple editor", DECOR_ALL, 0, 0, 720, 480),
      editor(libraryType, std::move(entries)),
      libraryPath(path),
      exportFolder(folder) {
    FXHorizontalFrame* bottom = new FXHorizontalFrame(this, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X);
    FXButton* save =
        new FXButton(bottom, "Save", nullptr, this, ID_SAVE, BUTTON_NORMAL | LAYOUT_RIGHT);
    save->setTipText("Save changes and close window.");
    FXButton* cancel = new FXButton(bottom, "Cancel", nullptr, this, FXDialogBox::ID_CANCEL,
                                    BUTTON_NORMAL | LAYOUT_RIGHT);
    cancel->setTipText("Do not save changes and close window.");

    FXHorizontalFrame* body = new FXHorizontalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXVerticalFrame* buttons = new FXVerticalFrame(body, LAYOUT_SIDE_RIGHT | LAYOUT_FILL_Y);
    commandButton(buttons, "Up", "Move selected item up in list.", this, ID_UP);
    commandButton(buttons, "Down", "Move selected item down in list.", this, ID_DOWN);
    commandButton(buttons, "Delete", nullptr, this, ID_DELETE);
    commandButton(buttons, "Rename", nullptr, this, ID_RENAME);
    FXButton* lpw = commandButton(buttons, "Change LPW", nullptr, this, ID_CHANGE_LPW);
    if (libraryType != LIBRARY_SPECTRA) lpw->disable();
    commandButton(buttons, "Scale",
                  "Rescale a spectrum based on lumens, visible watts or max intensity.", this,
                  ID_SCALE);
    commandButton(buttons, "Export", "Select the item(s) to write a file.", this, ID_EXPORT);
    commandButton(buttons, "Export all", "Write all of the items to a file.", this, ID_EXPORT_ALL);
    commandButton(buttons, "Clear selection", nullptr, this, ID_CLEAR_SELECTION);
    columnsCheck = new FXCheckButton(buttons, "Export data in columns");

    FXVerticalFrame* frame = new FXVerticalFrame(body, FRAME_SUNKEN | LAYOUT_FILL_X | LAYOUT_FILL_Y,
                                                 0, 0, 0, 0, 0, 0, 0, 0);
    list =
        new FXIconList(frame, nullptr, 0,
                       ICONLIST_DETAILED | ICONLIST_EXTENDEDSELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    list->appendHeader("Name", nullptr, 330);
    list->appendHeader(libraryType == LIBRARY_SPECTRA ? "LPW" : "Data", nullptr, 100);
    list->appendHeader("Type", nullptr, 90);
    fillList({});
}

void SpectraEditorWindow::fillList(const std::vector<int>& selected) {
    list->clearItems();
    const int type = editor.libraryType();
    for (const ledTypeStruct& e : editor.entries()) {
        // A private colour is listed, never shown or exported.
        const FXString data =
            type == LIBRARY_SPECTRA
                ? (e.lpw > 1e-9 ? FXString().format("%.1lf", e.lpw) : FXString("-----"))
                : FXString(e.isPrivate ? "private" : "-----");
        list->appendItem(FXString().format("%s\t%s\t%s", FXString(e.name).trim().text(),
                                           data.text(), TYPE_NAMES[type]));
    }
    selectItems(selected);
}

void SpectraEditorWindow::selectItems(const std::vector<int>& items) {
    list->killSelection();
    for (int i : items)
        if (i >= 0 && i < list->getNumItems()) list->selectItem(i);
}

std::vector<int> SpectraEditorWindow::selectedItems() const {
    std::vector<int> s;
    for (int i = 0; i < list->getNumItems(); ++i)
        if (list->isItemSelected(i)) s.push_back(i);
    return s;
}

int SpectraEditorWindow::singleSelection() {
    const std::vector<int> s = selectedItems();
    if (s.size() == 1) return s[0];
    UserDialogs::error(this, "Selection error", "You must select 1 item.");
    return -1;
}

long SpectraEditorWindow::onCmdUp(FXObject*, FXSelector, void*) {
    fillList(editor.moveUp(selectedItems()));
    return 1;
}

long SpectraEditorWindow::onCmdDown(FXObject*, FXSelector, void*) {
    fillList(editor.moveDown(selectedItems()));
    return 1;
}

long SpectraEditorWindow::onCmdDelete(FXObject*, FXSelector, void*) {
    editor.remove(selectedItems());
    fillList({});
    return 1;
}

long SpectraEditorWindow::onCmdRename(FXObject*, FXSelector, void*) {
    const int i = singleSelection();
    if (i < 0) return 1;
    std::string name = FXString(editor.entries()[i].name).trim().text();
    LibraryMessage message;
    while (UserDialogs::askText(this, "Rename", "New name: ", &name)) {
        if (!editor.rename(i, name, &message)) break;
        showMessage(this, message);
    }
    fillList({i});
    return 1;
}

long SpectraEditorWindow::onCmdChangeLPW(FXObject*, FXSelector, void*) {
    const int i = singleSelection();
    if (i < 0) return 1;
    std::string text = FXString().format("%.1lf", editor.entries()[i].lpw).text();
    LibraryMessage message;
    while (UserDialogs::askText(this, "Change LPW", "LPW (may be left empty): ", &text)) {
        if (!editor.changeLPW(i, fieldValue(text, 0.0), &message)) break;
        showMessage(this, message);
    }
    fillList({i});
    return 1;
}

long SpectraEditorWindow::onCmdScale(FXObject*, FXSelector, void*) {
    const int i = singleSelection();
    if (i < 0) return 1;
    // "Lumens 100", "Visible watts 0.5" or "Max intensity 1": the quantity, then its new value.
    std::string text = editor.libraryType() == LIBRARY_SPECTRA ? "Lumens 100" : "Max intensity 1";
    LibraryMessage message;
    while (UserDialogs::askText(
        this, "Scale", "Scale to (Lumens, Visible watts or Max intensity, and a value): ", &text)) {
        int by = -1;
        for (int k = 0; k < 3; ++k)
            if (text.rfind(SCALE_CHOICES[k], 0) == 0) by = k;
        const double target =
            by < 0 ? 0.0 : fieldValue(text.substr(std::string(SCALE_CHOICES[by]).size()), 0.0);
        if (by >= 0 && !editor.scale(i, static_cast<LibraryEditor::ScaleBy>(by), target, &message))
            break;
        if (by < 0)
            message = {LibraryMessageId::NONE, LibraryBox::ERROR, "Scale error",
                       "Start with Lumens, Visible watts or Max intensity."};
        showMessage(this, message);
    }
    fillList({i});
    return 1;
}

long SpectraEditorWindow::onCmdExport(FXObject*, FXSelector sel, void*) {
    const bool all = FXSELID(sel) == ID_EXPORT_ALL;
    const std::vector<int> chosen = all ? std::vector<int>() : selectedItems();
    if (!all && chosen.empty()) {
        UserDialogs::error(this, "Selection error", "You must select at least 1 item to export.");
        return 1;
    }
    const bool columns = columnsCheck->getCheck() == TRUE;
    const std::string ext = columns ? ".xls" : LIBRARY_EXTENSIONS[editor.libraryType()];
    FXString path;
    if (!UserDialogs::chooseFile(this, all ? "Export all items" : "Export selected items",
                                 ("*" + ext).c_str(), exportFolder.c_str(), "", false, &path))
        return 1;
    std::string file = path.text();
    if (file.size() < ext.size() || file.compare(file.size() - ext.size(), ext.size(), ext) != 0)
        file += ext;
    std::string error;
    if (!editor.exportEntries(chosen, file, columns, &error)) {
        UserDialogs::error(this, "File error",
                           "File \"%s\" could not be written, try a different name.", file.c_str());
    }
    return 1;
}

long SpectraEditorWindow::onCmdClearSelection(FXObject*, FXSelector, void*) {
    list->killSelection();
    return 1;
}

long SpectraEditorWindow::onCmdSave(FXObject*, FXSelector, void*) {
    std::string error;
    if (!editor.save(libraryPath, &error)) {
        UserDialogs::error(this, "File error",
                           "File \"%s\" could not be written, try a different name.",
                           libraryPath.c_str());
        return 1;
    }
    saved = true;
    handle(this, FXSEL(SEL_COMMAND, FXDialogBox::ID_ACCEPT), nullptr);
    return 1;
}
