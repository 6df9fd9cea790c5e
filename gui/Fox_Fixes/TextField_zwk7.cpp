#include "TextField_zwk7.h"

FXDEFMAP(TextField_zwk7)
TextField_zwk7Map[] = {
    FXMAPFUNC(SEL_VERIFY, 0, TextField_zwk7::onVerify),
    FXMAPFUNC(SEL_MOUSEWHEEL, 0, TextField_zwk7::onMouseWheel),
};

FXIMPLEMENT(TextField_zwk7, FXTextField, TextField_zwk7Map, ARRAYNUMBER(TextField_zwk7Map))

TextField_zwk7::TextField_zwk7(FXComposite* p, FXint ncols, FXObject* tgt, FXSelector sel,
                               FXuint opts, FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr,
                               FXint pt, FXint pb)
    : FXTextField(p, ncols, tgt, sel, opts, x, y, w, h, pl, pr, pt, pb) {}

namespace {
const char* skipBlanks(const char* p) {
    while (*p == ' ' || *p == '\t') ++p;
    return p;
}
const char* skipDigits(const char* p) {
    while (*p >= '0' && *p <= '9') ++p;
    return p;
}
}  // namespace

long TextField_zwk7::onVerify(FXObject*, FXSelector, void* ptr) {
    const char* p = static_cast<const char*>(ptr);
    if (!p) return 1;
    if ((options & TEXTFIELD_LIMITED) && FXString(p).count() > getNumColumns()) return 1;
    if (options & (TEXTFIELD_INTEGER | TEXTFIELD_REAL)) {
        p = skipBlanks(p);
        if (allowNegNum && (*p == '-' || *p == '+')) ++p;
        p = skipDigits(p);
        if (options & TEXTFIELD_REAL) {
            if (*p == decimalSymbol) p = skipDigits(p + 1);
            if (*p == 'E' || *p == 'e') {
                ++p;
                if (*p == '-' || *p == '+') ++p;  // 1e-6 W: small exponents are common
                p = skipDigits(p);
            }
        }
        p = skipBlanks(p);
        if (*p) return 1;
    }
    if (target && target->tryHandle(this, FXSEL(SEL_VERIFY, message), ptr)) return 1;
    return 0;
}

long TextField_zwk7::onMouseWheel(FXObject*, FXSelector, void* ptr) {
    return target != nullptr && isEnabled() &&
           target->tryHandle(this, FXSEL(SEL_MOUSEWHEEL, message), ptr);
}

int TextField_zwk7::toInt() const { return FXIntVal(getText(), 10); }

double TextField_zwk7::toDouble() const {
    if (!(options & (TEXTFIELD_INTEGER | TEXTFIELD_REAL))) return 0.0;
    FXString text = getText();
    return FXDoubleVal(text.substitute(',', '.'));
}

void TextField_zwk7::setValue(int value) { setText(FXStringVal(value)); }

void TextField_zwk7::setValue(double value) {
    FXString text = FXStringVal(value);
    if (decimalSymbol != '.') text.substitute('.', decimalSymbol);
    setText(text);
}
