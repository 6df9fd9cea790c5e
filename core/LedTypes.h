// The record of every light the program mixes, and of every filter and colour: the standard
// spectra first, then the user's spectra from the library. A filter or colour reads `spectrum`
// as a transmission or reflectance from 0 to 1 instead of W/nm.
#ifndef LUMIVAR_CORE_LEDTYPES_H
#define LUMIVAR_CORE_LEDTYPES_H

#include <string>

#include "Vantrel.h"

// Plain data: arrays of it are allocated in one block and copied as a whole, so it has no
// constructor; `ledTypeStruct s{}` starts all at zero.
struct ledTypeStruct {
    char name[100];     // display name
    bool isPrivate;     // colours only: scrambled on disk, never plotted
    bool hasIRpast830;  // more than 0.5% of the power beyond 830 nm, or the peak table says so
    int isRelativeIntensity;  // 1 for peak-model LEDs, whose scale has no physical meaning
    int hasDomWL;             // 1 when the spectrum is built from an entered dominant wavelength
    double binShift;          // default of the row's bin width field, nm
    double coefficient;       // multiplier of the last Calculate
    double lumens;            // lumens of `spectrum`
    double wattsVis;          // watts from 360 to 830 nm
    double wattsVisIR;        // watts from 360 to 1050 nm
    double lpw;               // lumens per electrical watt
    double lDom;              // default dominant wavelength, nm
    double lDomMin;           // smallest allowed dominant wavelength, nm
    double lDomMax;           // largest allowed dominant wavelength, nm
    // W/nm at 360 + 2 i nm, or transmission / reflectance from 0 to 1.
    double spectrum[Vantrel::NUM_GRID_POINTS_IR];
};

// The texts of one input row, kept while the rows are rebuilt.
struct ledInputDataStruct {
    bool checked = false;
    std::string lDom;  // dominant wavelength
    std::string lumens;
    std::string watts;
    std::string binWidth;
    std::string binOutput;
    std::string lpw;
};

#endif  // LUMIVAR_CORE_LEDTYPES_H
