// "Order Output": which result fields the tab-delimited photometry file writes, and in what
// order. The left list holds the fields left out, the right list those written, top first; the
// numbered runs (R1 to R15, Q1 to Q15 and the three TM-30 runs by hue bin) move as one entry.
#ifndef LUMIVAR_GUI_SETOUTPUTORDERFOREXCELFILE_H
#define LUMIVAR_GUI_SETOUTPUTORDERFOREXCELFILE_H

#include <fx.h>

#include <string>
#include <vector>

#include "OutputField.h"

class SetOutputOrderForExcelFile : public FXDialogBox {
    FXDECLARE(SetOutputOrderForExcelFile)
  public:
    explicit SetOutputOrderForExcelFile(FXWindow* owner);

    enum {
        ID_ADD = FXDialogBox::ID_LAST,
        ID_REMOVE,
        ID_MOVE_UP,
        ID_MOVE_DOWN,
        ID_ADD_ALL,
        ID_REMOVE_ALL,
        ID_SAVE,
        ID_LAST
    };
    long onCmdAdd(FXObject*, FXSelector, void*);
    long onCmdRemove(FXObject*, FXSelector, void*);
    long onCmdMoveUp(FXObject*, FXSelector, void*);
    long onCmdMoveDown(FXObject*, FXSelector, void*);
    long onCmdAddAll(FXObject*, FXSelector, void*);
    long onCmdRemoveAll(FXObject*, FXSelector, void*);
    // "Save": refused with the "Output Order" box while nothing is to be written.
    long onCmdOK(FXObject*, FXSelector, void*);

    // Copies of the fields and order; percent tells that filter and colour units are percent.
    void setData(const OutputField* fields, const int* order, bool percent);
    // The fields (selected flags) and order as the lists stand.
    void getData(OutputField* fields, int* order) const;
    bool wasAccepted() const { return accepted; }

    // The entries of the output list, top first, and the list itself set from entry names
    // (unknown names are left out). For the scripted form.
    std::vector<std::string> outputNames() const;
    void setOutputNames(const std::vector<std::string>& names);
    FXList* getAvailableList() const { return available; }
    FXList* getOutputList() const { return output; }

    // The entry name of a group ("R1 - 15" for a run) and the fields it stands for.
    static std::string getNameInList(int firstField);
    static std::vector<int> defineIndices(int firstField);
    // The first field of the group a field belongs to.
    static int groupOf(int field);

  protected:
    SetOutputOrderForExcelFile() {}

  private:
    void fillList();
    void updateListCountLabels();
    void moveCurrent(FXList* from, FXList* to);
    void swapWithNeighbour(int step);

    FXList* available = nullptr;
    FXList* output = nullptr;
    FXLabel* availableCount = nullptr;
    FXLabel* outputCount = nullptr;
    OutputField fieldsCopy[NUM_OUTPUT_FIELDS];
    int orderCopy[NUM_OUTPUT_FIELDS] = {};
    bool accepted = false;
};

#endif  // LUMIVAR_GUI_SETOUTPUTORDERFOREXCELFILE_H
