#include "OutputField.h"

#include "ValueFormat.h"

namespace {

// Fixed field numbers and labels; runs of numbered labels are filled in by outputFieldName.
const char* const FIXED_NAMES[] = {
    // 0 to 7
    "Lumens", "Vis watt", "CCT", "CRI (Ra)", "LER", "LPW", "Elec. W", "Ext. lm",
    // 8 to 22: "R%d"
    // 23 to 32
    "x", "y", "u'", "v'", "Duv", "Du'v'", "umol/J (wp)", "FCI", "umol/s", "umol/J (spec)",
    // 33 to 39
    "CQS (Qa)", "Gamut D65", "Gamut CRI", "Gamut CQS", "GA CRI", "GA CQS", "GAI E",
    // 40 to 54: "Q%d"
    // 55 to 64
    "Mired", "RMS", "max dE*", "Blue watts", "Phos watts", "Total W", "TLCI Qa", "TLCI d",
    "Class A", "COI",
    // 65 to 67
    "Rf", "Rg", "Rf,skin",
    // 68 to 83 "Rfh,%d", 84 to 99 "Rhs,h%d", 100 to 115 "Rcs,h%d"
    // 116 to 123
    "CCT (F,10)", "x (F,10)", "y (F,10)", "u' (F,10)", "v' (F,10)", "Duv (F,10)", "Du'v' (F,10)",
    "Lumens (F,10)",
    // 124 to 130
    "Purity (%)", "dom WL", "cent WL", "FWHM", "X", "Y", "Z",
    // 131 to 138
    "CRI gamut area u'v' test", "CRI gamut area u'v' ref", "CQS gamut area u'v' test",
    "CQS gamut area u'v' ref", "CRI gamut area uv test", "CRI gamut area uv ref",
    "CQS gamut area uv test", "CQS gamut area uv ref",
    // 139 to 148
    "FSI", "FSCI", "Lumens (S)", "S/P ratio", "Photons/s", "WBMR", "EML @ 100 lx", "SSI",
    "Input mA", "Input Voltage",
    // 149, 150
    "W (G/R)", "D (G/R)"};

// A numbered run: fields first..first+count-1 labelled with format and 1, 2, ...
struct NumberedRun {
    int first, count;
    const char* format;
};
const NumberedRun RUNS[] = {
    {8, 15, "R%d"}, {40, 15, "Q%d"}, {68, 16, "Rfh,%d"}, {84, 16, "Rhs,h%d"}, {100, 16, "Rcs,h%d"}};

}  // namespace

std::string outputFieldName(int index) {
    if (index < 0 || index >= NUM_OUTPUT_FIELDS) return std::string();
    int skipped = 0;
    for (const NumberedRun& run : RUNS) {
        if (index >= run.first && index < run.first + run.count) {
            return ValueFormat::format(run.format, index - run.first + 1);
        }
        if (index >= run.first + run.count) skipped += run.count;
    }
    return FIXED_NAMES[index - skipped];
}

int outputFieldIndex(const std::string& name) {
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        if (outputFieldName(i) == name) return i;
    }
    return -1;
}

void resetOutputOrder(OutputField* fields, int* order) {
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        fields[i].selected = true;
        fields[i].index = i;
        fields[i].name = outputFieldName(i);
        order[i] = i;
    }
}
