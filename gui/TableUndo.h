// One recorded edit of a spectrum table: the cells of a block as they stood before the edit,
// so that "Undo changes to table" can put them back in the table where the edit took place,
// even when another table is shown by then.
#ifndef LUMIVAR_GUI_TABLEUNDO_H
#define LUMIVAR_GUI_TABLEUNDO_H

#include <fx.h>

#include <string>
#include <vector>

class Table_zwk7;

class TableUndo {
  public:
    // Records rows first..last of columns col..lastCol (clipped to the table). The numbers are
    // kept as TextToNumber reads them, and the texts too, so that an undo gives back exactly
    // what the user had typed or pasted (an empty cell stays empty).
    void saveData(Table_zwk7* table, int first, int last, int col, int lastCol);
    // The one-column form.
    void saveData(Table_zwk7* table, int first, int last, int col) {
        saveData(table, first, last, col, col);
    }
    // Records one constant for every cell of the column (written back with "%.3le").
    void saveData(Table_zwk7* table, int first, int last, int col, double value);
    // Writes the cells back; a table grown since the record (a long paste into the free table)
    // gets its old length again. The record is empty afterwards.
    void restoreData();
    bool isFilled() const { return table != nullptr; }
    Table_zwk7* getTable() const { return table; }

    int firstRow = 0, lastRow = -1, numRows = 0;  // numRows = lastRow - firstRow + 1
    int column = 0, lastColumn = 0;
    std::vector<double> values;      // numRows x columns, row by row
    std::vector<std::string> texts;  // the same cells' texts; empty for the constant form
    int tableRows = 0;               // rows of the table when recorded

  private:
    Table_zwk7* table = nullptr;
};

#endif  // LUMIVAR_GUI_TABLEUNDO_H
