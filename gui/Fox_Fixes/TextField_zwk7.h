// The number field of every window: typing is checked as it happens, with the user's decimal
// character and negative numbers only where a field allows them.
#ifndef LUMIVAR_GUI_TEXTFIELD_ZWK7_H
#define LUMIVAR_GUI_TEXTFIELD_ZWK7_H

#include <fx.h>

class TextField_zwk7 : public FXTextField {
    FXDECLARE(TextField_zwk7)
  public:
    TextField_zwk7(FXComposite* p, FXint ncols, FXObject* tgt = nullptr, FXSelector sel = 0,
                   FXuint opts = TEXTFIELD_NORMAL, FXint x = 0, FXint y = 0, FXint w = 0,
                   FXint h = 0, FXint pl = DEFAULT_PAD, FXint pr = DEFAULT_PAD,
                   FXint pt = DEFAULT_PAD, FXint pb = DEFAULT_PAD);

    // SEL_VERIFY with the tentative text (const FXchar*): 1 rejects the change. It replaces
    // FOX's own check, which knows neither the comma nor the sign rule. With TEXTFIELD_LIMITED
    // the text may not be longer than the field's columns. An integer field takes blanks, a
    // sign (only with allowNegNum), digits, blanks; a real field also the decimal symbol with
    // digits and an exponent "E"/"e" with an optional sign and digits. Then the target decides.
    long onVerify(FXObject*, FXSelector, void*);
    // The wheel goes to the target first, so a window can step the value; unhandled, it goes
    // on to the parent as usual.
    long onMouseWheel(FXObject*, FXSelector, void*);

    // "," or "." as the decimal symbol of a real field.
    void setUseCommaForDecimal(bool useComma) { decimalSymbol = useComma ? ',' : '.'; }
    void setDecimalSymbol(char symbol) { decimalSymbol = symbol; }
    char getDecimalSymbol() const { return decimalSymbol; }
    // A leading sign is refused unless allowed (off at first: most inputs are magnitudes).
    void setAllowNegNum(bool allow) { allowNegNum = allow; }
    bool getAllowNegNum() const { return allowNegNum; }

    int toInt() const;
    // 0 for a field that is neither TEXTFIELD_INTEGER nor TEXTFIELD_REAL; "," is read as ".".
    double toDouble() const;
    void setValue(int value);
    // Written with up to 6 significant digits and the field's decimal symbol.
    void setValue(double value);

  protected:
    TextField_zwk7() {}

  private:
    char decimalSymbol = '.';  // decimal point of real input
    bool allowNegNum = false;  // a leading sign may be typed
};

#endif  // LUMIVAR_GUI_TEXTFIELD_ZWK7_H
