// The CIE standard illuminants offered by the illuminant menu, as spectra of 1 W.
#ifndef LUMIVAR_CORE_STANDARDILLUMINANTS_H
#define LUMIVAR_CORE_STANDARDILLUMINANTS_H

#include <string>
#include <vector>

#include "StandardIlluminantsData.h"

// Illuminant `index` (0 to NUM_STANDARD_ILLUMINANTS - 1: A, B, C, E, D50, D55, D65, D75, F1 to
// F12, HP1 to HP5) in W/nm from 360 nm in 2 nm steps, scaled to 1 W. Writes the name and as many
// values as the stored text holds (Vantrel::NUM_GRID_POINTS; a text with the IR range would
// give Vantrel::NUM_GRID_POINTS_IR, so spectrum must have room for that many) and returns
// their count. An index out of range or a text of another count gives the name "error", leaves
// the spectrum untouched and returns 0.
int defineStandardIlluminants(int index, std::string* name, double* spectrum);

// The numbers of a stored text; false unless it holds Vantrel::NUM_GRID_POINTS or
// Vantrel::NUM_GRID_POINTS_IR numbers and nothing else.
bool parseIlluminantText(const char* text, std::vector<double>* values);

#endif  // LUMIVAR_CORE_STANDARDILLUMINANTS_H
