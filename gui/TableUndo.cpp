#include "TableUndo.h"

#include <algorithm>

#include "Fox_Fixes/Table_zwk7.h"
#include "TextToNumber.h"

void TableUndo::saveData(Table_zwk7* t, int first, int last, int col, int lastCol) {
    values.clear();
    texts.clear();
    table = t;
    tableRows = t->getNumRows();
    firstRow = std::max(first, 0);
    lastRow = std::min(last, tableRows - 1);
    column = std::max(col, 0);
    lastColumn = std::min(lastCol, t->getNumColumns() - 1);
    numRows = std::max(lastRow - firstRow + 1, 0);
    TextToNumber toNumber;
    for (int r = firstRow; r <= lastRow; ++r) {
        for (int c = column; c <= lastColumn; ++c) {
            const FXString text = t->getItemText(r, c);
            texts.push_back(text.text());
            values.push_back(toNumber.getValue(text.text()));
        }
    }
}

void TableUndo::saveData(Table_zwk7* t, int first, int last, int col, double value) {
    saveData(t, first, last, col, col);
    texts.clear();
    std::fill(values.begin(), values.end(), value);
}

void TableUndo::restoreData() {
    if (table == nullptr) return;
    // Rows a paste added go again; the rest of the block is written as it stood.
    if (table->getNumRows() > tableRows && tableRows > 0)
        table->removeRows(tableRows, table->getNumRows() - tableRows);
    std::size_t k = 0;
    for (int r = firstRow; r <= lastRow; ++r) {
        for (int c = column; c <= lastColumn; ++c, ++k) {
            if (r >= table->getNumRows() || c >= table->getNumColumns() || k >= values.size())
                continue;
            if (texts.empty()) {
                table->setItemText(r, c, FXString().format("%.3le", values[k]));
            } else {
                // The text as it stood; the table's own setItemText would turn a "." typed
                // before a change of the decimal option into ",".
                table->FXTable::setItemText(r, c, texts[k].c_str());
            }
        }
    }
    values.clear();
    texts.clear();
    table = nullptr;
    numRows = 0;
}
