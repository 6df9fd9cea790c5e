#include "TextToNumber.h"

#include <algorithm>
#include <cstdlib>

double TextToNumber::getValue(const std::string& text) const {
    std::string dotted = text;
    std::replace(dotted.begin(), dotted.end(), ',', '.');
    return std::strtod(dotted.c_str(), nullptr);
}

double TextToNumber::getValue(const char* text) const {
    return text == nullptr ? 0.0 : getValue(std::string(text));
}
