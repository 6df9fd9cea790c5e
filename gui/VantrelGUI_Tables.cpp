// The spectrum tables edited like a spreadsheet: which cells the user may change, the popup of
// the right button, the delete key, inversion, and the undo records behind the undo button.
#include <fxkeys.h>

#include <algorithm>
#include <string>
#include <vector>

#include "Fox_Fixes/Table_zwk7.h"
#include "VantrelGUI.h"

namespace {
// The text a zeroed cell gets: "%.*le" with three decimals.
FXString zeroText() { return FXString().format("%.*le", 3, 0.0); }

const char* const POPUP_ZERO_TO_BEGINNING = "Replace cells from this one to the beginning with 0.0";
const char* const POPUP_ZERO_TO_END = "Replace cells from this one to the end with 0.0";
const char* const POPUP_COPY_TO_MATCHING = "Copy spectrum into the matching column";
const char* const POPUP_INVERT = "Invert values in table";
const char* const POPUP_PASTE = "Paste selection from clipboard";
const char* const POPUP_UNDO = "Undo changes to table";
const char* const POPUP_CANCEL = "Cancel";
}  // namespace

Table_zwk7* VantrelGUI::getTable(FXObject* sender) const {
    if (sender == displayTable) return displayTable;
    for (Table_zwk7* table : inputTables)
        if (sender == table) return table;
    return nullptr;
}

bool VantrelGUI::isInputTable(const Table_zwk7* table) const {
    return table != nullptr && table != displayTable;
}

bool VantrelGUI::isEditableTableColumn(const Table_zwk7* table, int column) const {
    if (table == nullptr || column < 0 || column >= table->getNumColumns()) return false;
    const bool matchingColumn =
        column == 2 && (settings.getBool("enableMatchingMenuItem") ||
                        (bluePeakChk != nullptr && bluePeakChk->getCheck()));
    if (table == displayTable) {
        if (column != 2) return false;
        return analysisType == 0 || analysisType == 2 || analysisType == 6 || matchingColumn ||
               (analysisType == 3 && settings.getInt("optimizationMethod") == 4);
    }
    if (matchingColumn) return true;
    // The fixed tables never let the wavelengths change; the free table takes both columns.
    const bool inputMode = analysisType == 1 || analysisType == 4 || analysisType == 7;
    if (table == inputTables[RANGE_FREE_FORMAT]) return inputMode && column <= 1;
    return inputMode && column == 1;
}

void VantrelGUI::updateTableEditable(Table_zwk7* table, int column) {
    if (table == nullptr) return;
    bool editable = isEditableTableColumn(table, column);
    if (table->isAnythingSelected()) {
        editable = true;
        for (int c = table->startCol(); c <= table->endCol(); ++c)
            editable = editable && isEditableTableColumn(table, c);
    }
    table->setEditable(editable);
}

long VantrelGUI::onCmdTable(FXObject* sender, FXSelector, void* ptr) {
    Table_zwk7* table = getTable(sender);
    if (table == nullptr) return 0;
    const FXTablePos* pos = static_cast<const FXTablePos*>(ptr);
    if (pos != nullptr) {
        updateTableEditable(table, pos->col);
        return 0;  // the table goes on with its own handling
    }
    // Without a cell the table asks before a paste: a block pasted from the wavelength column
    // of a fixed table fills the values beside it (the wavelengths stay), so the paste may go
    // ahead when any column from the current one on may be changed.
    bool editable = false;
    for (int c = std::max(table->getCurrentColumn(), 0); c < table->getNumColumns(); ++c)
        editable = editable || isEditableTableColumn(table, c);
    table->setEditable(editable);
    return 0;
}

std::vector<std::string> VantrelGUI::tablePopupEntries(Table_zwk7* table, int row,
                                                       int column) const {
    std::vector<std::string> entries;
    if (table == nullptr || row < 0 || row >= table->getNumRows()) return entries;
    const bool matchingOn = settings.getBool("enableMatchingMenuItem");
    const bool bluePeak = bluePeakChk != nullptr && bluePeakChk->getCheck();
    const bool inputMode = analysisType == 1 || analysisType == 4 || analysisType == 7;
    const bool third = column == 2 && (matchingOn || bluePeak);
    const bool spectrum = column == 1 && inputMode && isInputTable(table);
    if (!third && !spectrum) return entries;
    entries = {POPUP_ZERO_TO_BEGINNING, POPUP_ZERO_TO_END};
    if (analysisType == 0 && matchingOn) entries.push_back(POPUP_COPY_TO_MATCHING);
    entries.insert(entries.end(), {POPUP_INVERT, POPUP_PASTE, POPUP_UNDO, POPUP_CANCEL});
    return entries;
}

void VantrelGUI::setPopupCell(Table_zwk7* table, int row, int column) {
    popupTable = table;
    popupRow = row;
    popupCol = column;
}

long VantrelGUI::onCmdTableRightButton(FXObject* sender, FXSelector, void* ptr) {
    Table_zwk7* table = getTable(sender);
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (table == nullptr || event == nullptr) return 0;
    const int row = table->rowAtY(event->win_y);
    const int column = table->colAtX(event->win_x);
    const std::vector<std::string> entries = tablePopupEntries(table, row, column);
    if (entries.empty()) return 1;
    setPopupCell(table, row, column);
    table->setCurrentItem(row, column);
    FXMenuPane pane(this);
    for (const std::string& entry : entries) {
        FXSelector id = 0;
        if (entry == POPUP_ZERO_TO_BEGINNING) id = ID_ZERO_TO_BEGINNING;
        if (entry == POPUP_ZERO_TO_END) id = ID_ZERO_TO_END;
        if (entry == POPUP_COPY_TO_MATCHING) id = ID_COPY_SPECTRUM_TO_MATCHING;
        if (entry == POPUP_INVERT) id = ID_INVERT_TABLE;
        if (entry == POPUP_PASTE) id = ID_TABLE_PASTE;
        if (entry == POPUP_UNDO) id = ID_UNDO_TABLE_EDIT;
        new FXMenuCommand(&pane, entry.c_str(), nullptr, id != 0 ? this : nullptr, id);
    }
    pane.create();
    pane.popup(nullptr, event->root_x, event->root_y);
    getApp()->runModalWhileShown(&pane);
    return 1;
}

void VantrelGUI::zeroCells(Table_zwk7* table, int firstRow, int lastRow, int column) {
    if (table == nullptr || column < 0 || column >= table->getNumColumns()) return;
    firstRow = std::max(firstRow, 0);
    lastRow = std::min(lastRow, table->getNumRows() - 1);
    if (lastRow < firstRow) return;
    manageRedoButton(table, firstRow, lastRow, column);
    for (int r = firstRow; r <= lastRow; ++r)
        if (!table->isEmpty(r, column)) table->setItemText(r, column, zeroText());
}

long VantrelGUI::onCmdZeroToBeginning(FXObject*, FXSelector, void*) {
    zeroCells(popupTable, 0, popupRow, popupCol);
    return 1;
}

long VantrelGUI::onCmdZeroToEnd(FXObject*, FXSelector, void*) {
    if (popupTable != nullptr)
        zeroCells(popupTable, popupRow, popupTable->getNumRows() - 1, popupCol);
    return 1;
}

long VantrelGUI::onCmdCopySpectrumIntoMatchingColumn(FXObject*, FXSelector, void*) {
    Table_zwk7* table = popupTable != nullptr ? popupTable : getShownTable();
    if (table == nullptr || table->getNumColumns() != 3) return 1;
    settings.setInt("_matchingSpectraType", 0);
    manageRedoButton(table, 0, table->getNumRows() - 1, 2);
    for (int r = 0; r < table->getNumRows(); ++r)
        table->FXTable::setItemText(r, 2, table->getItemText(r, 1));
    return 1;
}

long VantrelGUI::onCmdInvertValuesInTable(FXObject*, FXSelector, void*) {
    // For data files that run from long to short wavelengths: the first row gets the last
    // row's values. The fixed tables keep their wavelengths; the free table turns both columns.
    Table_zwk7* table = getShownTable();
    const bool free = table == inputTables[RANGE_FREE_FORMAT];
    const int firstCol = free ? 0 : 1;
    int rows = table->getNumRows();
    if (free) {
        // Only the filled rows turn, up to the last with text in it.
        rows = 0;
        for (int r = 0; r < table->getNumRows(); ++r)
            if (!table->isEmpty(r, 0) || !table->isEmpty(r, 1)) rows = r + 1;
    }
    if (rows < 2) return 1;
    manageRedoButton(table, 0, rows - 1, firstCol, 1);
    std::vector<FXString> cells;
    for (int r = 0; r < rows; ++r)
        for (int c = firstCol; c <= 1; ++c) cells.push_back(table->getItemText(r, c));
    const int width = 2 - firstCol;
    for (int r = 0; r < rows; ++r)
        for (int c = firstCol; c <= 1; ++c)
            table->FXTable::setItemText(r, c, cells[(rows - 1 - r) * width + (c - firstCol)]);
    return 1;
}

long VantrelGUI::onCmdTablePaste(FXObject*, FXSelector, void*) {
    Table_zwk7* table = popupTable != nullptr ? popupTable : getShownTable();
    if (table != nullptr) table->handle(this, FXSEL(SEL_COMMAND, FXTable::ID_PASTE_SEL), nullptr);
    return 1;
}

void VantrelGUI::manageRedoButton(Table_zwk7* table, int firstRow, int lastRow, int column,
                                  int lastColumn) {
    if (lastColumn < column) lastColumn = column;
    if (tableUndoCount >= TABLE_UNDO_LEVELS) {
        // The oldest record goes; the others move one place down.
        for (int i = 1; i < TABLE_UNDO_LEVELS; ++i) tableUndo[i - 1] = tableUndo[i];
        tableUndoCount = TABLE_UNDO_LEVELS - 1;
    }
    tableUndo[tableUndoCount].saveData(table, firstRow, lastRow, column, lastColumn);
    ++tableUndoCount;
    hideShowRedoButton();
}

void VantrelGUI::hideShowRedoButton() {
    if (undoTableButton == nullptr) return;
    // The toolbar keeps its place: the button is greyed rather than hidden.
    const bool show =
        tableUndoCount > 0 && (analysisType == 1 || analysisType == 4 || analysisType == 7 ||
                               displayTable->getNumColumns() > 2);
    if (show) {
        undoTableButton->enable();
    } else {
        undoTableButton->disable();
    }
}

long VantrelGUI::onCmdUndoTableEdit(FXObject*, FXSelector, void*) {
    if (tableUndoCount > 0) {
        --tableUndoCount;
        tableUndo[tableUndoCount].restoreData();
    }
    hideShowRedoButton();
    return 1;
}

long VantrelGUI::onTableReplace(FXObject* sender, FXSelector, void* ptr) {
    Table_zwk7* table = getTable(sender);
    const FXTableRange* range = static_cast<const FXTableRange*>(ptr);
    if (table == nullptr || range == nullptr) return 0;
    // The table only tells of a cell whose text really changes.
    manageRedoButton(table, range->fm.row, range->to.row, range->fm.col, range->to.col);
    return 0;
}

long VantrelGUI::onTableKeyPress(FXObject* sender, FXSelector, void* ptr) {
    Table_zwk7* table = getTable(sender);
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (table == nullptr || event == nullptr) return 0;
    if (event->code != KEY_Delete) {
        // A typed key may start an edit of the current cell; it is allowed where clicks are.
        updateTableEditable(table, table->getCurrentColumn());
        return 0;
    }
    const int firstCol = table->startCol(), lastCol = table->endCol();
    const int firstRow = table->startRow(), lastRow = table->endRow();
    if (firstRow < 0 || firstCol < 0) return 1;
    for (int c = firstCol; c <= lastCol; ++c)
        if (!isEditableTableColumn(table, c)) return 1;  // the wavelengths stay
    manageRedoButton(table, firstRow, lastRow, firstCol, lastCol);
    for (int r = firstRow; r <= lastRow; ++r)
        for (int c = firstCol; c <= lastCol; ++c) table->setItemText(r, c, zeroText());
    return 1;
}
