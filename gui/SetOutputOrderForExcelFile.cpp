#include "SetOutputOrderForExcelFile.h"

#include <algorithm>

#include "UserDialogs.h"
#include "ValueFormat.h"

FXDEFMAP(SetOutputOrderForExcelFile)
SetOutputOrderForExcelFileMap[] = {
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_ADD,
              SetOutputOrderForExcelFile::onCmdAdd),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_REMOVE,
              SetOutputOrderForExcelFile::onCmdRemove),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_MOVE_UP,
              SetOutputOrderForExcelFile::onCmdMoveUp),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_MOVE_DOWN,
              SetOutputOrderForExcelFile::onCmdMoveDown),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_ADD_ALL,
              SetOutputOrderForExcelFile::onCmdAddAll),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_REMOVE_ALL,
              SetOutputOrderForExcelFile::onCmdRemoveAll),
    FXMAPFUNC(SEL_COMMAND, SetOutputOrderForExcelFile::ID_SAVE,
              SetOutputOrderForExcelFile::onCmdOK),
};

FXIMPLEMENT(SetOutputOrderForExcelFile, FXDialogBox, SetOutputOrderForExcelFileMap,
            ARRAYNUMBER(SetOutputOrderForExcelFileMap))

namespace {
// The numbered runs that stand as one entry: first field and length.
struct Run {
    int first, count;
};
const Run RUNS[] = {{8, 15}, {40, 15}, {68, 16}, {84, 16}, {100, 16}};

// The field number behind a list entry.
int fieldOfItem(const FXList* list, int item) {
    return static_cast<int>(reinterpret_cast<FXival>(list->getItemData(item)));
}
}  // namespace

SetOutputOrderForExcelFile::SetOutputOrderForExcelFile(FXWindow* owner)
    : FXDialogBox(owner, "Order Output", DECOR_TITLE | DECOR_BORDER | DECOR_RESIZE, 0, 0, 520,
                  520) {
    FXVerticalFrame* top = new FXVerticalFrame(this, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXHorizontalFrame* lists = new FXHorizontalFrame(top, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXVerticalFrame* left = new FXVerticalFrame(lists, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    availableCount = new FXLabel(left, "# in list: ", nullptr, JUSTIFY_LEFT);
    FXVerticalFrame* leftFrame = new FXVerticalFrame(
        left, FRAME_SUNKEN | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
    available =
        new FXList(leftFrame, nullptr, 0, LIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXVerticalFrame* buttons = new FXVerticalFrame(lists, LAYOUT_CENTER_Y);
    const struct {
        const char* label;
        const char* tip;
        FXSelector id;
    } BUTTONS[] = {{"Add", "Add selected item to output list.", ID_ADD},
                   {"Remove", "Remove selected item from output list.", ID_REMOVE},
                   {"Move Up", "Move selected item up in list.", ID_MOVE_UP},
                   {"Move Down", "Move selected item down in list.", ID_MOVE_DOWN},
                   {"Add All", nullptr, ID_ADD_ALL},
                   {"Remove All", nullptr, ID_REMOVE_ALL}};
    for (const auto& b : BUTTONS) {
        FXButton* button =
            new FXButton(buttons, b.label, nullptr, this, b.id, BUTTON_NORMAL | LAYOUT_FILL_X);
        if (b.tip != nullptr) button->setTipText(b.tip);
    }
    FXVerticalFrame* right = new FXVerticalFrame(lists, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    outputCount = new FXLabel(right, "# in list : 0", nullptr, JUSTIFY_LEFT);
    FXVerticalFrame* rightFrame = new FXVerticalFrame(
        right, FRAME_SUNKEN | LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
    output = new FXList(rightFrame, nullptr, 0, LIST_BROWSESELECT | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXHorizontalFrame* bottom = new FXHorizontalFrame(top, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH);
    new FXButton(bottom, "Cancel", nullptr, this, ID_CANCEL, BUTTON_NORMAL | LAYOUT_RIGHT);
    new FXButton(bottom, "Save", nullptr, this, ID_SAVE,
                 BUTTON_NORMAL | BUTTON_INITIAL | BUTTON_DEFAULT | LAYOUT_RIGHT);
    resetOutputOrder(fieldsCopy, orderCopy);
}

int SetOutputOrderForExcelFile::groupOf(int field) {
    for (const Run& run : RUNS)
        if (field >= run.first && field < run.first + run.count) return run.first;
    return field;
}

std::vector<int> SetOutputOrderForExcelFile::defineIndices(int firstField) {
    for (const Run& run : RUNS) {
        if (run.first == firstField) {
            std::vector<int> all(run.count);
            for (int k = 0; k < run.count; ++k) all[k] = run.first + k;
            return all;
        }
    }
    return {firstField};
}

std::string SetOutputOrderForExcelFile::getNameInList(int firstField) {
    for (const Run& run : RUNS)
        if (run.first == firstField)
            return outputFieldName(firstField) + ValueFormat::format(" - %d", run.count);
    return outputFieldName(firstField);
}

void SetOutputOrderForExcelFile::setData(const OutputField* fields, const int* order, bool) {
    std::copy(fields, fields + NUM_OUTPUT_FIELDS, fieldsCopy);
    std::copy(order, order + NUM_OUTPUT_FIELDS, orderCopy);
    fillList();
}

void SetOutputOrderForExcelFile::fillList() {
    available->clearItems();
    output->clearItems();
    std::vector<bool> listed(NUM_OUTPUT_FIELDS, false);
    // The output list in the order, a run where its first written field stands.
    for (int k = 0; k < NUM_OUTPUT_FIELDS; ++k) {
        const int i = orderCopy[k];
        if (i < 0 || i >= NUM_OUTPUT_FIELDS || !fieldsCopy[i].selected) continue;
        const int group = groupOf(i);
        if (listed[group]) continue;
        listed[group] = true;
        output->appendItem(getNameInList(group).c_str(), nullptr,
                           reinterpret_cast<void*>(static_cast<FXival>(group)));
    }
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        if (groupOf(i) != i || listed[i]) continue;
        available->appendItem(getNameInList(i).c_str(), nullptr,
                              reinterpret_cast<void*>(static_cast<FXival>(i)));
    }
    updateListCountLabels();
}

void SetOutputOrderForExcelFile::updateListCountLabels() {
    availableCount->setText(FXString().format("# in list: %d", available->getNumItems()));
    outputCount->setText(FXString().format("# in list : %d", output->getNumItems()));
}

void SetOutputOrderForExcelFile::getData(OutputField* fields, int* order) const {
    int k = 0;
    std::vector<bool> placed(NUM_OUTPUT_FIELDS, false);
    for (int pass = 0; pass < 2; ++pass) {
        const FXList* list = pass == 0 ? output : available;
        for (int item = 0; item < list->getNumItems(); ++item) {
            for (int i : defineIndices(fieldOfItem(list, item))) {
                if (placed[i]) continue;
                placed[i] = true;
                fields[i] = fieldsCopy[i];
                fields[i].selected = pass == 0;
                order[k++] = i;
            }
        }
    }
    // Nothing is lost even if a list was changed from outside.
    for (int i = 0; i < NUM_OUTPUT_FIELDS && k < NUM_OUTPUT_FIELDS; ++i) {
        if (placed[i]) continue;
        fields[i] = fieldsCopy[i];
        fields[i].selected = false;
        order[k++] = i;
    }
}

void SetOutputOrderForExcelFile::moveCurrent(FXList* from, FXList* to) {
    const int item = from->getCurrentItem();
    if (item < 0 || item >= from->getNumItems()) return;
    const int added = to->appendItem(from->getItemText(item), nullptr, from->getItemData(item));
    from->removeItem(item);
    to->setCurrentItem(added);
    to->selectItem(added);
    to->makeItemVisible(added);
    updateListCountLabels();
}

long SetOutputOrderForExcelFile::onCmdAdd(FXObject*, FXSelector, void*) {
    moveCurrent(available, output);
    return 1;
}

long SetOutputOrderForExcelFile::onCmdRemove(FXObject*, FXSelector, void*) {
    moveCurrent(output, available);
    return 1;
}

void SetOutputOrderForExcelFile::swapWithNeighbour(int step) {
    const int item = output->getCurrentItem();
    const int other = item + step;
    if (item < 0 || other < 0 || other >= output->getNumItems()) return;
    const FXString text = output->getItemText(item);
    void* data = output->getItemData(item);
    output->setItemText(item, output->getItemText(other));
    output->setItemData(item, output->getItemData(other));
    output->setItemText(other, text);
    output->setItemData(other, data);
    output->setCurrentItem(other);
    output->killSelection();
    output->selectItem(other);
    output->makeItemVisible(other);
}

long SetOutputOrderForExcelFile::onCmdMoveUp(FXObject*, FXSelector, void*) {
    swapWithNeighbour(-1);
    return 1;
}

long SetOutputOrderForExcelFile::onCmdMoveDown(FXObject*, FXSelector, void*) {
    swapWithNeighbour(1);
    return 1;
}

long SetOutputOrderForExcelFile::onCmdAddAll(FXObject*, FXSelector, void*) {
    output->clearItems();
    available->clearItems();
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
        if (groupOf(i) == i)
            output->appendItem(getNameInList(i).c_str(), nullptr,
                               reinterpret_cast<void*>(static_cast<FXival>(i)));
    updateListCountLabels();
    return 1;
}

long SetOutputOrderForExcelFile::onCmdRemoveAll(FXObject*, FXSelector, void*) {
    output->clearItems();
    available->clearItems();
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
        if (groupOf(i) == i)
            available->appendItem(getNameInList(i).c_str(), nullptr,
                                  reinterpret_cast<void*>(static_cast<FXival>(i)));
    updateListCountLabels();
    return 1;
}

long SetOutputOrderForExcelFile::onCmdOK(FXObject*, FXSelector, void*) {
    if (output->getNumItems() == 0) {
        UserDialogs::error(this, "Output Order",
                           "You must select at least 1 variable to output.\nYou can prevent the "
                           "creation of the Excel file in the menu of the main window.");
        accepted = false;
        return 1;
    }
    accepted = true;
    handle(this, FXSEL(SEL_COMMAND, ID_ACCEPT), nullptr);
    return 1;
}

std::vector<std::string> SetOutputOrderForExcelFile::outputNames() const {
    std::vector<std::string> names;
    for (int item = 0; item < output->getNumItems(); ++item)
        names.push_back(output->getItemText(item).text());
    return names;
}

void SetOutputOrderForExcelFile::setOutputNames(const std::vector<std::string>& names) {
    onCmdRemoveAll(nullptr, 0, nullptr);
    for (const std::string& name : names) {
        for (int item = 0; item < available->getNumItems(); ++item) {
            if (name != available->getItemText(item).text()) continue;
            available->setCurrentItem(item);
            moveCurrent(available, output);
            break;
        }
    }
}
