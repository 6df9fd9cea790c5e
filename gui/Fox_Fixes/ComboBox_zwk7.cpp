#include "ComboBox_zwk7.h"

FXIMPLEMENT(ComboBox_zwk7, FXComboBox, nullptr, 0)

ComboBox_zwk7::ComboBox_zwk7(FXComposite* p, FXint cols, FXObject* tgt, FXSelector sel, FXuint opts,
                             FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr, FXint pt,
                             FXint pb)
    : FXComboBox(p, cols, tgt, sel, opts, x, y, w, h, pl, pr, pt, pb) {}

FXString ComboBox_zwk7::getCurrentItemText() const {
    const FXint index = getCurrentItem();
    return index >= 0 && index < getNumItems() ? getItemText(index) : FXString::null;
}

FXint ComboBox_zwk7::getCurrentItem(const FXString& text) const {
    // Exact and from the top: a stored choice names one item, whatever the search options.
    for (FXint index = 0; index < getNumItems(); ++index)
        if (getItemText(index) == text) return index;
    return -1;
}

bool ComboBox_zwk7::setCurrentItem(const FXString& text, FXbool notify) {
    const FXint index = getCurrentItem(text);
    if (index < 0) return false;
    setCurrentItem(index, notify);
    return true;
}
