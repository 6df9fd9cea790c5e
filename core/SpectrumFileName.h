// The drive of a measured LED, read from the name of its spectrometer file: engineers name
// their measurements "LED_3.1V_350mA_...", and the import takes volts, milliamps and watts from
// there so that the wall-plug efficacy follows without typing it.
#ifndef LUMIVAR_CORE_SPECTRUMFILENAME_H
#define LUMIVAR_CORE_SPECTRUMFILENAME_H

#include <string>

struct TestDrive {
    bool hasVolts = false, hasMilliamps = false, hasWatts = false;
    double volts = 0, milliamps = 0, watts = 0;
    std::string title;  // the name with each number cut out and its mark replaced by "^"

    // Electrical watts: the watts given, else 0.001 * mA * V, else 0.
    double electricalWatts() const;
};

// Reads the number before the first "V_" (or "V"), then "mA_" (or "mA"), then "W_" (or "W") of
// a file title. A number is the run of digits and points right before its mark; one that
// starts with "0" and has no point reads its other digits as decimals ("035V" is 0.35 V).
TestDrive parseSpecFilename(const std::string& title);

#endif  // LUMIVAR_CORE_SPECTRUMFILENAME_H
