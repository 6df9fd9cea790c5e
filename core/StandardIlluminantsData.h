// Stored texts of the CIE standard illuminants, in the order of the illuminant menu.
#ifndef LUMIVAR_CORE_STANDARDILLUMINANTSDATA_H
#define LUMIVAR_CORE_STANDARDILLUMINANTSDATA_H

constexpr int NUM_STANDARD_ILLUMINANTS = 25;

struct StandardIlluminantText {
    const char* name;
    // Blank-separated numbers "%.3e", W/nm from 360 nm in 2 nm steps, summing to 0.5 (1 W).
    const char* values;
};

extern const StandardIlluminantText STANDARD_ILLUMINANT_TEXTS[NUM_STANDARD_ILLUMINANTS];

#endif  // LUMIVAR_CORE_STANDARDILLUMINANTSDATA_H
