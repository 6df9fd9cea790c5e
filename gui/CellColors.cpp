#include "CellColors.h"

namespace {

// A table item that paints its own background unless it is selected.
class ColoredTableItem : public FXTableItem {
  public:
    ColoredTableItem(const FXString& text, FXColor color) : FXTableItem(text), back(color) {}
    FXColor color() const { return back; }

  protected:
    void drawBackground(const FXTable* table, FXDC& dc, FXint x, FXint y, FXint w,
                        FXint h) const override {
        if (isSelected()) {
            FXTableItem::drawBackground(table, dc, x, y, w, h);
            return;
        }
        const FXint hg = table->isHorzGridShown() ? 1 : 0;
        const FXint vg = table->isVertGridShown() ? 1 : 0;
        dc.setForeground(back);
        dc.fillRectangle(x + vg, y + hg, w - vg, h - hg);
    }

  private:
    FXColor back;
};

// Puts a new item in place of the old one, keeping what the user sees of it.
void replaceItem(FXTable* table, FXint row, FXint col, FXTableItem* item) {
    const FXTableItem* old = table->getItem(row, col);
    if (old != nullptr) {
        item->setJustify(old->getJustify());
        item->setEnabled(old->isEnabled());
    }
    table->setItem(row, col, item);
}

}  // namespace

void setCellBackColor(FXTable* table, FXint row, FXint col, FXColor color) {
    if (row < 0 || col < 0 || row >= table->getNumRows() || col >= table->getNumColumns()) return;
    replaceItem(table, row, col, new ColoredTableItem(table->getItemText(row, col), color));
}

bool getCellBackColor(const FXTable* table, FXint row, FXint col, FXColor* color) {
    if (row < 0 || col < 0 || row >= table->getNumRows() || col >= table->getNumColumns()) {
        return false;
    }
    const auto* item = dynamic_cast<const ColoredTableItem*>(table->getItem(row, col));
    if (item == nullptr) return false;
    *color = item->color();
    return true;
}

void clearCellBackColors(FXTable* table) {
    for (FXint r = 0; r < table->getNumRows(); ++r) {
        for (FXint c = 0; c < table->getNumColumns(); ++c) {
            if (dynamic_cast<const ColoredTableItem*>(table->getItem(r, c)) != nullptr) {
                replaceItem(table, r, c, new FXTableItem(table->getItemText(r, c)));
            }
        }
    }
}
