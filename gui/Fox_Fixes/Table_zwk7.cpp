#include "Table_zwk7.h"

#include <FX88591Codec.h>
#include <FXUTF16Codec.h>

#include <vector>

#include "Utilities_zwk7.h"

FXDEFMAP(Table_zwk7)
Table_zwk7Map[] = {
    FXMAPFUNC(SEL_COMMAND, FXTable::ID_PASTE_SEL, Table_zwk7::onCmdPasteSel),
};

FXIMPLEMENT(Table_zwk7, FXTable, Table_zwk7Map, ARRAYNUMBER(Table_zwk7Map))

Table_zwk7::Table_zwk7(FXComposite* p, FXObject* tgt, FXSelector sel, FXuint opts, FXint x, FXint y,
                       FXint w, FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXTable(p, tgt, sel, opts, x, y, w, h, pl, pr, pt, pb) {}

double Table_zwk7::toDouble(FXint row, FXint col) const {
    FXString text = getItemText(row, col);
    return FXDoubleVal(text.substitute(',', '.').trim());
}

int Table_zwk7::toInt(FXint row, FXint col) const {
    FXString text = getItemText(row, col);
    return FXIntVal(text.trim(), 10);
}

bool Table_zwk7::isEmpty(FXint row, FXint col) const {
    FXString text = getItemText(row, col);
    return text.trim().empty();
}

bool Table_zwk7::isValidInteger(FXint row, FXint col) const {
    FXString text = getItemText(row, col);
    text.trim();
    const char* p = text.text();
    if (*p == '+' || *p == '-') ++p;
    if (!*p) return false;
    for (; *p; ++p)
        if (*p < '0' || *p > '9') return false;
    return true;
}

bool Table_zwk7::isValidDouble(FXint row, FXint col) const {
    return Utilities_zwk7::isValidDouble(getItemText(row, col));
}

void Table_zwk7::setItemText(FXint row, FXint col, const FXString& text, FXbool notify) {
    if (!useCommaForDecimal) {
        FXTable::setItemText(row, col, text, notify);
        return;
    }
    FXString local(text);
    FXTable::setItemText(row, col, local.substitute('.', ','), notify);
}

FXint Table_zwk7::startRow() const { return isAnythingSelected() ? selection.fm.row : current.row; }

FXint Table_zwk7::startCol() const { return isAnythingSelected() ? selection.fm.col : current.col; }

FXint Table_zwk7::endRow() const { return isAnythingSelected() ? selection.to.row : current.row; }

FXint Table_zwk7::endCol() const { return isAnythingSelected() ? selection.to.col : current.col; }

void Table_zwk7::acceptInput(FXbool notify) {
    if (editor != nullptr && notify) {
        const FXTextField* field = dynamic_cast<const FXTextField*>(editor);
        const FXint r = input.fm.row, c = input.fm.col;
        if (field == nullptr || field->getText() != getItemText(r, c)) notifyReplace(r, r, c, c);
    }
    FXTable::acceptInput(FALSE);
}

long Table_zwk7::onCmdPasteSel(FXObject*, FXSelector, void*) {
    // The target settles, as for a click on the current cell, whether the table may be edited
    // there (the Edit menu pastes without a click).
    if (target != nullptr) target->tryHandle(this, FXSEL(SEL_COMMAND, message), nullptr);
    if (!isEditable()) {
        getApp()->beep();
        return 1;
    }
    FXString text;
    FXuchar* data = nullptr;
    FXuint size = 0;
    bool found = true;
    if (getDNDData(FROM_CLIPBOARD, utf8Type, text)) {
    } else if (getDNDData(FROM_CLIPBOARD, utf16Type, data, size)) {
        FXUTF16LECodec codec;  // X11 programs send UTF-16 in the machine's order
        text = codec.mb2utf(reinterpret_cast<const FXchar*>(data), static_cast<FXint>(size));
        FXFREE(&data);
    } else if (getDNDData(FROM_CLIPBOARD, stringType, text)) {
        FX88591Codec codec;
        text = codec.mb2utf(text);
    } else if (!getDNDData(FROM_CLIPBOARD, csvType, text)) {
        found = false;
    }
    if (!found) return 1;
    // A selected block is emptied first; disabled cells (fixed wavelengths) stay. The target
    // hears of the whole block (selection and pasted cells) once, before anything changes.
    if (isAnythingSelected() && selection.fm.row >= 0 && selection.fm.col >= 0) {
        FXint rows = 0, cols = 0;
        blockOf(text, &rows, &cols);
        const FXint r0 = pasteRow(), c0 = pasteCol();
        notifyReplace(FXMIN(selection.fm.row, r0), FXMAX(selection.to.row, r0 + rows - 1),
                      FXMIN(selection.fm.col, c0), FXMAX(selection.to.col, c0 + cols - 1));
        for (FXint r = selection.fm.row; r <= selection.to.row; ++r)
            for (FXint c = selection.fm.col; c <= selection.to.col; ++c)
                if (isItemEnabled(r, c)) FXTable::setItemText(r, c, FXString::null);
        pasteText(text, false);
    } else {
        pasteText(text);
    }
    return 1;
}

void Table_zwk7::blockOf(FXString& text, FXint* rows, FXint* cols) const {
    text.substitute(',', '.');
    // A Windows line end is one line end, a lone carriage return (old Mac files) one too.
    text.substitute("\r\n", "\n");
    text.substitute('\r', '\n');
    *rows = *cols = 0;
    countText(*rows, *cols, text, "\t,", "\n");
}

void Table_zwk7::notifyReplace(FXint firstRow, FXint lastRow, FXint firstCol, FXint lastCol) {
    if (target == nullptr) return;
    FXTableRange range;
    range.fm.row = FXMAX(firstRow, 0);
    range.fm.col = FXMAX(firstCol, 0);
    range.to.row = FXMIN(lastRow, getNumRows() - 1);
    range.to.col = FXMIN(lastCol, getNumColumns() - 1);
    if (range.to.row < range.fm.row || range.to.col < range.fm.col) return;
    target->tryHandle(this, FXSEL(SEL_REPLACED, message), &range);
}

void Table_zwk7::pasteText(FXString text, bool notify) {
    FXint rows = 0, cols = 0;
    blockOf(text, &rows, &cols);
    if (rows < 1 || cols < 1) return;
    const FXint r0 = pasteRow(), c0 = pasteCol();
    if (notify) notifyReplace(r0, r0 + rows - 1, c0, c0 + cols - 1);
    if (allowResizingOfRows && r0 + rows > getNumRows()) growRows(r0 + rows - getNumRows());
    checkPasteSize(&rows, &cols);
    if (rows < 1 || cols < 1) return;

    // Disabled cells hold the fixed wavelengths of a table; pasted data leaves them alone.
    struct Kept {
        FXint row, col;
        FXString text;
    };
    std::vector<Kept> kept;
    for (FXint r = r0; r < r0 + rows; ++r)
        for (FXint c = c0; c < c0 + cols; ++c)
            if (!isItemEnabled(r, c)) kept.push_back({r, c, getItemText(r, c)});
    overlayText(r0, r0 + rows - 1, c0, c0 + cols - 1, text, "\t,", "\n", FALSE);
    for (const Kept& cell : kept) FXTable::setItemText(cell.row, cell.col, cell.text);
    replaceDecimalOnPaste(r0, r0 + rows - 1, c0, c0 + cols - 1);
}

bool Table_zwk7::checkPasteSize(int* rows, int* cols) {
    const int roomRows = getNumRows() - pasteRow();
    const int roomCols = getNumColumns() - pasteCol();
    bool clipped = false;
    if (*cols > roomCols) {
        *cols = roomCols > 0 ? roomCols : 0;
        clipped = true;
    }
    if (*rows > roomRows && !allowResizingOfRows) {
        *rows = roomRows > 0 ? roomRows : 0;
        clipped = true;
    }
    if (clipped) sizeError = true;
    return clipped;
}

void Table_zwk7::replaceDecimalOnPaste(FXint firstRow, FXint lastRow, FXint firstCol,
                                       FXint lastCol) {
    if (!useCommaForDecimal) return;
    if (firstRow < 0) firstRow = 0;
    if (firstCol < 0) firstCol = 0;
    if (lastRow >= getNumRows()) lastRow = getNumRows() - 1;
    if (lastCol >= getNumColumns()) lastCol = getNumColumns() - 1;
    for (FXint r = firstRow; r <= lastRow; ++r)
        for (FXint c = firstCol; c <= lastCol; ++c) {
            FXString text = getItemText(r, c);
            if (text.contains('.')) FXTable::setItemText(r, c, text.substitute('.', ','));
        }
}

void Table_zwk7::growRows(int count) {
    const FXint last = getNumRows() - 1;
    std::vector<FXString> model;
    for (FXint c = 0; last >= 0 && c < getNumColumns(); ++c) model.push_back(getItemText(last, c));
    // insertRows keeps the column titles, unlike setTableSize.
    insertRows(last + 1, count, TRUE);
    for (FXint r = last + 1; r <= last + count; ++r)
        for (FXint c = 0; c < static_cast<FXint>(model.size()); ++c)
            FXTable::setItemText(r, c, model[c]);
}
