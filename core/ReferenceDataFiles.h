// Tab-delimited files of the diagram's reference data, for checking or for other programs:
// the spectrum locus on both observers, and the corners of the predefined gamuts.
#ifndef LUMIVAR_CORE_REFERENCEDATAFILES_H
#define LUMIVAR_CORE_REFERENCEDATAFILES_H

#include <string>
#include <vector>

#include "LedTypes.h"

// The spectrum locus, 360 to 830 nm in 1 nm steps, in x,y, u,v and u',v' of the CIE 1931 2°
// and the CIE 2015 10° observers. False when the file cannot be written.
bool writeHorseShoeData(const std::string& path);

// Each predefined gamut but the user slot: its name, "x\ty", its corners, a blank line.
bool writeGamutData(const std::string& path);

// The 99 colour evaluation samples of IES TM-30 as a tab-delimited table: the sample types
// ("%d - %s" a line), a row of each sample's type, a row of names CES01 to CES99, then one row
// per wavelength of the 2 nm grid with the 99 reflectances.
std::string cesDataText();
// cesDataText written to path, atomically. False when the file cannot be written.
bool writeCESData(const std::string& path);

// The reference colours the program can save as a colour library.
enum class ReferenceColours { CRI_SAMPLES, CQS_SAMPLES, COLOR_CHECKER, CES };
// Their reflectances as library entries, named "R1" to "R15", "Q1" to "Q15", "CC1" to "CC24"
// or "CES01" to "CES99".
std::vector<ledTypeStruct> referenceColourEntries(ReferenceColours which);

#endif  // LUMIVAR_CORE_REFERENCEDATAFILES_H
