// "Save user data": the name (and, for a spectrum, the LPW) of a new entry of a user library.
#ifndef LUMIVAR_GUI_USERSPECTRUMINFO_H
#define LUMIVAR_GUI_USERSPECTRUMINFO_H

#include <fx.h>

#include <string>

class UserSpectrumInfo : public FXDialogBox {
    FXDECLARE(UserSpectrumInfo)

  public:
    enum { ID_CLEAR_NAME = FXDialogBox::ID_LAST, ID_LAST };

    // libraryType: 0 filter, 1 spectrum, 2 colour. name: the text the name field starts with.
    UserSpectrumInfo(FXWindow* owner, int libraryType, const std::string& name);
    // Shows the dialog (or answers it from a test script); false on Cancel.
    bool ask();
    const std::string& getName() const { return name; }
    // The LPW field's text, empty when left empty (and for filters and colours).
    const std::string& getLPW() const { return lpw; }

    long onCmdClearName(FXObject*, FXSelector, void*);

  protected:
    UserSpectrumInfo() {}

  private:
    FXTextField* nameField = nullptr;
    FXTextField* lpwField = nullptr;  // spectra only
    std::string name, lpw;
};

#endif  // LUMIVAR_GUI_USERSPECTRUMINFO_H
