// Tab-delimited files of the diagram's reference data, for checking or for other programs:
// the spectrum locus on both observers, and the corners of the predefined gamuts.
#ifndef LUMIVAR_CORE_REFERENCEDATAFILES_H
#define LUMIVAR_CORE_REFERENCEDATAFILES_H

#include <string>

// The spectrum locus, 360 to 830 nm in 1 nm steps, in x,y, u,v and u',v' of the CIE 1931 2°
// and the CIE 2015 10° observers. False when the file cannot be written.
bool writeHorseShoeData(const std::string& path);

// Each predefined gamut but the user slot: its name, "x\ty", its corners, a blank line.
bool writeGamutData(const std::string& path);

#endif  // LUMIVAR_CORE_REFERENCEDATAFILES_H
