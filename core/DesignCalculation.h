// The Calculate that a saved design asks for, without a window: the rows as the window shows
// them after opening the design, the settings it reads, and the same model run. The command
// line tool's "calc --design" goes through here, and the window reads its settings through the
// same two functions, so the two give the same numbers.
#ifndef LUMIVAR_CORE_DESIGNCALCULATION_H
#define LUMIVAR_CORE_DESIGNCALCULATION_H

#include <string>
#include <vector>

#include "CalculateModel.h"
#include "LedTypes.h"
#include "ProgramSettings.h"
#include "UserDesign.h"

// What a Calculate takes from the options. includeIR and subtractBluePeak are the check boxes
// "Include IR (830 - 1050 nm)" and "Subtract blue peak", which the options keep as irChk and
// removeBluePeakChk; the matching curve is left empty.
MixSettings mixSettingsFromOptions(const ProgramSettings& settings, int analysisType);
FieldFormat fieldFormatFromOptions(const ProgramSettings& settings);

// The texts of a spectrum row as the Spectra tab first shows them: the spectrum's own dominant
// wavelength and bin width where it has them, its stored LPW, nothing else.
ledInputDataStruct defaultRowTexts(const ledTypeStruct& spectrum);

// True when a mix of these rows turns the IR range on by itself: "Include IR" follows a checked
// spectrum with light past 830 nm when automatic IR is on.
bool mixNeedsIR(const std::vector<ledInputDataStruct>& rows,
                const std::vector<ledTypeStruct>& spectra, const ProgramSettings& settings);

// A spectrum as the display table holds it: each value through the table's "%.3le" text.
void roundToTableText(double* spectrum, int numPoints);

struct DesignCalculation {
    bool ok = false;
    std::vector<CalcMessage> messages;  // why it failed, as the window's boxes say it
    int analysisType = 0;
    CalculateOutcome outcome;
};

// Reads the design at path and calculates it as the window does after opening it and pressing
// "Calculate": a mix of its checked rows (filters from `filters`, checked by the design), a
// black body or daylight at its temperature. A design of direct, filter or colour input holds
// no spectrum, and the plot types compute nothing: both fail with a message.
DesignCalculation calculateDesign(const std::string& path, CalculateModel& model,
                                  const std::vector<ledTypeStruct>& filters);

#endif  // LUMIVAR_CORE_DESIGNCALCULATION_H
