#include "ListBox_zwk7.h"

FXIMPLEMENT(ListBox_zwk7, FXListBox, nullptr, 0)

ListBox_zwk7::ListBox_zwk7(FXComposite* p, FXObject* tgt, FXSelector sel, FXuint opts, FXint x,
                           FXint y, FXint w, FXint h, FXint pl, FXint pr, FXint pt, FXint pb)
    : FXListBox(p, tgt, sel, opts, x, y, w, h, pl, pr, pt, pb) {}

FXString ListBox_zwk7::getCurrentItemText() const {
    const FXint index = getCurrentItem();
    return index >= 0 && index < getNumItems() ? getItemText(index) : FXString::null;
}

FXint ListBox_zwk7::getCurrentItem(const FXString& text) const {
    // Exact and from the top: a stored choice names one item, whatever the search options.
    for (FXint index = 0; index < getNumItems(); ++index)
        if (getItemText(index) == text) return index;
    return -1;
}

bool ListBox_zwk7::setCurrentItem(const FXString& text, FXbool notify) {
    const FXint index = getCurrentItem(text);
    if (index < 0) return false;
    setCurrentItem(index, notify);
    return true;
}
