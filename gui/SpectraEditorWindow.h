// "Simple editor": the entries of one user library as a list, to reorder, delete, rename,
// change the LPW of, rescale and export; "Save" replaces the library, "Cancel" leaves it.
#ifndef LUMIVAR_GUI_SPECTRAEDITORWINDOW_H
#define LUMIVAR_GUI_SPECTRAEDITORWINDOW_H

#include <fx.h>

#include <string>
#include <vector>

#include "LibraryEditor.h"

class SpectraEditorWindow : public FXDialogBox {
    FXDECLARE(SpectraEditorWindow)

  public:
    enum {
        ID_UP = FXDialogBox::ID_LAST,
        ID_DOWN,
        ID_DELETE,
        ID_RENAME,
        ID_CHANGE_LPW,
        ID_SCALE,
        ID_EXPORT,
        ID_EXPORT_ALL,
        ID_CLEAR_SELECTION,
        ID_SAVE,
        ID_LAST
    };

    // libraryPath: the library that "Save" replaces; exportFolder: where export dialogs start.
    SpectraEditorWindow(FXWindow* owner, int libraryType, std::vector<ledTypeStruct> entries,
                        const std::string& libraryPath, const std::string& exportFolder);

    long onCmdUp(FXObject*, FXSelector, void*);
    long onCmdDown(FXObject*, FXSelector, void*);
    long onCmdDelete(FXObject*, FXSelector, void*);
    long onCmdRename(FXObject*, FXSelector, void*);
    long onCmdChangeLPW(FXObject*, FXSelector, void*);
    long onCmdScale(FXObject*, FXSelector, void*);
    long onCmdExport(FXObject*, FXSelector, void*);
    long onCmdClearSelection(FXObject*, FXSelector, void*);
    long onCmdSave(FXObject*, FXSelector, void*);

    // For the window's owner and for tests.
    const LibraryEditor& getEditor() const { return editor; }
    bool wasSaved() const { return saved; }
    void selectItems(const std::vector<int>& items);
    std::vector<int> selectedItems() const;
    FXCheckButton* getColumnsCheck() const { return columnsCheck; }

  protected:
    SpectraEditorWindow() : editor(0, {}) {}

  private:
    void fillList(const std::vector<int>& selected);
    // The one selected item, or -1 after the "Selection error" box.
    int singleSelection();

    LibraryEditor editor;
    std::string libraryPath, exportFolder;
    bool saved = false;
    FXIconList* list = nullptr;
    FXCheckButton* columnsCheck = nullptr;
};

#endif  // LUMIVAR_GUI_SPECTRAEDITORWINDOW_H
