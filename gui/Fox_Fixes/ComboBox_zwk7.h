// A FOX drop-down choice (units, observers, files of a list) that also works by item text: settings
// files store the text of a choice, not its place in the list, so a reordered list still finds it.
#ifndef LUMIVAR_GUI_COMBOBOX_ZWK7_H
#define LUMIVAR_GUI_COMBOBOX_ZWK7_H

#include <fx.h>

class ComboBox_zwk7 : public FXComboBox {
    FXDECLARE(ComboBox_zwk7)
  public:
    ComboBox_zwk7(FXComposite* p, FXint cols, FXObject* tgt = nullptr, FXSelector sel = 0,
                  FXuint opts = COMBOBOX_NORMAL, FXint x = 0, FXint y = 0, FXint w = 0, FXint h = 0,
                  FXint pl = DEFAULT_PAD, FXint pr = DEFAULT_PAD, FXint pt = DEFAULT_PAD,
                  FXint pb = DEFAULT_PAD);

    // Text of the current item; empty when there is none.
    FXString getCurrentItemText() const;
    // Index of the current item, as FOX gives it.
    using FXComboBox::getCurrentItem;
    // Index of the first item whose text is exactly text (case counts); -1 when none.
    FXint getCurrentItem(const FXString& text) const;
    using FXComboBox::setCurrentItem;
    // Makes the first item with exactly this text current; false (and nothing changed) when
    // there is none.
    bool setCurrentItem(const FXString& text, FXbool notify = FALSE);

  protected:
    ComboBox_zwk7() {}
};

#endif  // LUMIVAR_GUI_COMBOBOX_ZWK7_H
