// The spreadsheet-like table that carries spectra: cells written with the user's decimal
// character, numbers read with either, and a paste that fits the data to the table.
#ifndef LUMIVAR_GUI_TABLE_ZWK7_H
#define LUMIVAR_GUI_TABLE_ZWK7_H

#include <fx.h>

class Table_zwk7 : public FXTable {
    FXDECLARE(Table_zwk7)
  public:
    Table_zwk7(FXComposite* p, FXObject* tgt = nullptr, FXSelector sel = 0, FXuint opts = 0,
               FXint x = 0, FXint y = 0, FXint w = 0, FXint h = 0, FXint pl = DEFAULT_MARGIN,
               FXint pr = DEFAULT_MARGIN, FXint pt = DEFAULT_MARGIN, FXint pb = DEFAULT_MARGIN);

    // A cell as a number: "," is read as ".", an empty cell gives 0.
    double toDouble(FXint row, FXint col) const;
    int toInt(FXint row, FXint col) const;
    // Nothing but blanks in the cell.
    bool isEmpty(FXint row, FXint col) const;
    // Blanks around, an optional sign, digits only.
    bool isValidInteger(FXint row, FXint col) const;
    // The number test of Utilities_zwk7::isValidDouble.
    bool isValidDouble(FXint row, FXint col) const;

    // Writes a cell; with the comma option every "." becomes ",".
    void setItemText(FXint row, FXint col, const FXString& text, FXbool notify = FALSE);

    // Bounds of the selected range, or the current cell when nothing is selected (-1 when
    // there is neither).
    FXint startRow() const;
    FXint startCol() const;
    FXint endRow() const;
    FXint endCol() const;

    void setUseCommaForDecimal(bool useComma) { useCommaForDecimal = useComma; }
    bool getUseCommaForDecimal() const { return useCommaForDecimal; }
    // Whether a paste may add rows (the free-format table).
    bool getAllowResizingOfRows() const { return allowResizingOfRows; }
    void setAllowResizingOfRows(bool allow) { allowResizingOfRows = allow; }
    // Set by a paste that did not fit; stays until reset, so the window can tell the user.
    bool getSizeError() const { return sizeError; }
    void resetSizeError() { sizeError = false; }

    // A typed cell is accepted. The target hears of the cell by SEL_REPLACED before it changes,
    // as of every other change (FOX itself tells only afterwards), and not at all when the
    // text stays the same.
    void acceptInput(FXbool notify = FALSE) override;

    // Paste from the clipboard (UTF-8, UTF-16, Latin-1 text or CSV, the first offered).
    long onCmdPasteSel(FXObject*, FXSelector, void*);

    // Everything a paste does with the clipboard's text: "," becomes "." and carriage returns
    // line ends, the block is counted (columns at tabs, rows at line feeds), the table grows
    // when it may, and the block is laid over the table from the current cell. What does not
    // fit is dropped and sets the size error. Disabled cells (fixed wavelengths) keep their
    // text. Cells pasted are written with the comma option.
    // The target hears of the block once by SEL_REPLACED (an FXTableRange, rows as the table
    // has them before it grows) before anything changes, unless notify is false.
    void pasteText(FXString text, bool notify = true);

    // Clips a block of *rows x *cols to what fits from the current cell; true (and the size
    // error set) when something had to go. Rows never overflow a table that may grow.
    bool checkPasteSize(int* rows, int* cols);

    // With the comma option, turns "." into "," in the cells of the range (inclusive).
    void replaceDecimalOnPaste(FXint firstRow, FXint lastRow, FXint firstCol, FXint lastCol);

  protected:
    Table_zwk7() {}

  private:
    // Adds rows at the end, each with the text of the present last row.
    void growRows(int count);
    // The clipboard text made ready for the table, and the size of its block.
    void blockOf(FXString& text, FXint* rows, FXint* cols) const;
    // SEL_REPLACED to the target for the range, clipped to the table.
    void notifyReplace(FXint firstRow, FXint lastRow, FXint firstCol, FXint lastCol);
    FXint pasteRow() const { return current.row < 0 ? 0 : current.row; }
    FXint pasteCol() const { return current.col < 0 ? 0 : current.col; }

    bool useCommaForDecimal = false;   // cells are written with "," as the decimal point
    bool allowResizingOfRows = false;  // a paste may add rows
    bool sizeError = false;            // the last paste did not fit
};

#endif  // LUMIVAR_GUI_TABLE_ZWK7_H
