// A FOX list box choice (LED types, library items) that also works by item text: settings files
// store the text of a choice, not its place in the list, so a reordered list still finds it.
#ifndef LUMIVAR_GUI_LISTBOX_ZWK7_H
#define LUMIVAR_GUI_LISTBOX_ZWK7_H

#include <fx.h>

class ListBox_zwk7 : public FXListBox {
    FXDECLARE(ListBox_zwk7)
  public:
    ListBox_zwk7(FXComposite* p, FXObject* tgt = nullptr, FXSelector sel = 0,
                 FXuint opts = FRAME_SUNKEN | FRAME_THICK | LISTBOX_NORMAL, FXint x = 0,
                 FXint y = 0, FXint w = 0, FXint h = 0, FXint pl = DEFAULT_PAD,
                 FXint pr = DEFAULT_PAD, FXint pt = DEFAULT_PAD, FXint pb = DEFAULT_PAD);

    // Text of the current item; empty when there is none.
    FXString getCurrentItemText() const;
    // Index of the current item, as FOX gives it.
    using FXListBox::getCurrentItem;
    // Index of the first item whose text is exactly text (case counts); -1 when none.
    FXint getCurrentItem(const FXString& text) const;
    using FXListBox::setCurrentItem;
    // Makes the first item with exactly this text current; false (and nothing changed) when
    // there is none.
    bool setCurrentItem(const FXString& text, FXbool notify = FALSE);

  protected:
    ListBox_zwk7() {}
};

#endif  // LUMIVAR_GUI_LISTBOX_ZWK7_H
