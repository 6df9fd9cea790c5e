// "Intensity units for data file": asked once per import of spectrometer or text files.
#ifndef LUMIVAR_GUI_SPECTRUMUNITS_H
#define LUMIVAR_GUI_SPECTRUMUNITS_H

#include <fx.h>

class SpectrumUnits : public FXDialogBox {
    FXDECLARE(SpectrumUnits)

  public:
    // The choices, in their order: W/nm, mW/nm, uW/nm, photons/(s-nm).
    static constexpr int NUM_UNITS = 4;

    explicit SpectrumUnits(FXWindow* owner);
    // Shows the dialog (or answers it from a test script); false on Cancel, else *units holds
    // the index of the chosen unit.
    bool getData(int* units);

  protected:
    SpectrumUnits() {}

  private:
    FXint choice = 0;  // before the target that points at it
    FXDataTarget target;
};

#endif  // LUMIVAR_GUI_SPECTRUMUNITS_H
