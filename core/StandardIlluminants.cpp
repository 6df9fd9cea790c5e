// CIE standard illuminants from their stored texts.
#include "StandardIlluminants.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "Vantrel.h"

bool parseIlluminantText(const char* text, std::vector<double>* values) {
    values->clear();
    const char* p = text;
    while (true) {
        while (std::isspace(static_cast<unsigned char>(*p))) ++p;
        if (*p == '\0') break;
        char* end = nullptr;
        const double v = std::strtod(p, &end);
        if (end == p) return false;
        values->push_back(v);
        p = end;
    }
    const int n = static_cast<int>(values->size());
    return n == Vantrel::NUM_GRID_POINTS || n == Vantrel::NUM_GRID_POINTS_IR;
}

int defineStandardIlluminants(int index, std::string* name, double* spectrum) {
    std::vector<double> values;
    if (index < 0 || index >= NUM_STANDARD_ILLUMINANTS ||
        !parseIlluminantText(STANDARD_ILLUMINANT_TEXTS[index].values, &values)) {
        *name = "error";
        return 0;
    }
    *name = STANDARD_ILLUMINANT_TEXTS[index].name;
    std::copy(values.begin(), values.end(), spectrum);
    return static_cast<int>(values.size());
}
