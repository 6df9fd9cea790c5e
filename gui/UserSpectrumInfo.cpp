#include "UserSpectrumInfo.h"

#include <vector>

#include "Fox_Fixes/TextField_zwk7.h"
#include "UserDialogs.h"

FXDEFMAP(UserSpectrumInfo)
UserSpectrumInfoMap[] = {
    FXMAPFUNC(SEL_COMMAND, UserSpectrumInfo::ID_CLEAR_NAME, UserSpectrumInfo::onCmdClearName),
};
FXIMPLEMENT(UserSpectrumInfo, FXDialogBox, UserSpectrumInfoMap, ARRAYNUMBER(UserSpectrumInfoMap))

namespace {
// Characters of a library name; longer names are cut where the library stores them.
constexpr int NAME_MAX = 100;
const char* const GROUP_TITLES[3] = {"Save a user filter", "Save a user spectrum",
                                     "Save a user color"};
const char* const NAME_LABELS[3] = {"Filter name (%d max)  ",
                                    "Spectrum name (%d max):", "Color name (%d max)  "};
}  // namespace

UserSpectrumInfo::UserSpectrumInfo(FXWindow* owner, int libraryType, const std::string& startName)
    : FXDialogBox(owner, "Save user data", DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE) {
    const int type = libraryType >= 0 && libraryType <= 2 ? libraryType : 1;
    FXGroupBox* group = new FXGroupBox(this, GROUP_TITLES[type],
                                       GROUPBOX_TITLE_LEFT | FRAME_GROOVE | LAYOUT_FILL_X);
    FXMatrix* grid = new FXMatrix(group, 2, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
    new FXLabel(grid, FXString().format(NAME_LABELS[type], NAME_MAX));
    nameField = new FXTextField(grid, 40, nullptr, 0, FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X);
    nameField->setText(startName.c_str());
    if (type == 1) {
        new FXLabel(grid, "LPW (may be left empty): ");
        lpwField =
            new TextField_zwk7(grid, 10, nullptr, 0, TEXTFIELD_REAL | FRAME_SUNKEN | FRAME_THICK);
    }
    FXHorizontalFrame* buttons = new FXHorizontalFrame(this, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH);
    new FXButton(buttons, "Clear name", nullptr, this, ID_CLEAR_NAME,
                 FRAME_RAISED | FRAME_THICK | LAYOUT_LEFT);
    new FXButton(buttons, "OK", nullptr, this, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
    new FXButton(buttons, "Cancel", nullptr, this, FXDialogBox::ID_CANCEL,
                 FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
}

bool UserSpectrumInfo::ask() {
    std::vector<std::string> fields{nameField->getText().text()};
    if (lpwField != nullptr) fields.push_back(lpwField->getText().text());
    const bool ok = UserDialogs::runForm(this, &fields, [this] {
        std::vector<std::string> texts{nameField->getText().text()};
        if (lpwField != nullptr) texts.push_back(lpwField->getText().text());
        return texts;
    });
    if (!ok) return false;
    name = fields[0];
    lpw = lpwField != nullptr && fields.size() > 1 ? fields[1] : std::string();
    return true;
}

long UserSpectrumInfo::onCmdClearName(FXObject*, FXSelector, void*) {
    nameField->setText("");
    nameField->setFocus();
    return 1;
}
