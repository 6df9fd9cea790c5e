#include "SpectrumUnits.h"

#include <cstdlib>
#include <string>
#include <vector>

#include "UserDialogs.h"

FXIMPLEMENT(SpectrumUnits, FXDialogBox, nullptr, 0)

namespace {
const char* const LABELS[SpectrumUnits::NUM_UNITS] = {"W/nm", "mW/nm", "uW/nm", "photons/(s-nm)"};
const char* const TIPS[SpectrumUnits::NUM_UNITS] = {
    "Intensity is in units of watts/nm (no conversion of the data takes place).",
    "Intensity is in units of milli-Watts/nm.", "Intensity is in units of micro-Watts/nm.",
    "Intensity is in units of photons/(s-nm)."};
}  // namespace

SpectrumUnits::SpectrumUnits(FXWindow* owner)
    : FXDialogBox(owner, "Intensity units for data file", DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE),
      target(choice) {
    FXGroupBox* group = new FXGroupBox(this, "Spectrum intensity units",
                                       GROUPBOX_TITLE_LEFT | FRAME_GROOVE | LAYOUT_FILL_X);
    for (int i = 0; i < NUM_UNITS; ++i) {
        FXRadioButton* radio =
            new FXRadioButton(group, LABELS[i], &target, FXDataTarget::ID_OPTION + i);
        radio->setTipText(TIPS[i]);
    }
    FXHorizontalFrame* buttons = new FXHorizontalFrame(this, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH);
    new FXButton(buttons, "OK", nullptr, this, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
    new FXButton(buttons, "Cancel", nullptr, this, FXDialogBox::ID_CANCEL,
                 FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
}

bool SpectrumUnits::getData(int* units) {
    std::vector<std::string> fields{std::to_string(choice)};
    if (!UserDialogs::runForm(this, &fields,
                              [this] { return std::vector<std::string>{std::to_string(choice)}; }))
        return false;
    const int chosen = std::atoi(fields[0].c_str());
    *units = chosen >= 0 && chosen < NUM_UNITS ? chosen : 0;
    return true;
}
