#include "NumberText.h"

#include <cctype>

namespace {
bool isDigit(char c) { return std::isdigit(static_cast<unsigned char>(c)) != 0; }
bool isSign(char c) { return c == '+' || c == '-'; }
}  // namespace

bool isValidDoubleText(const std::string& raw) {
    const std::size_t first = raw.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return false;
    const std::size_t last = raw.find_last_not_of(" \t\r\n");
    std::string text = raw.substr(first, last - first + 1);
    int points = 0, commas = 0, exponents = 0, signs = 0, digits = 0;
    std::size_t ePos = std::string::npos;
    for (std::size_t i = 0; i < text.size(); ++i) {
        char& c = text[i];
        if (c == 'e') c = 'E';
        if (isDigit(c)) {
            ++digits;
        } else if (c == '.') {
            ++points;
        } else if (c == ',') {
            ++commas;
        } else if (c == 'E') {
            ++exponents;
            ePos = i;
        } else if (isSign(c)) {
            ++signs;
        } else {
            return false;
        }
    }
    if (points > 1 || commas > 1 || exponents > 1 || digits == 0) return false;
    if (isSign(text.back())) return false;
    if (ePos == std::string::npos) {
        // Without an exponent a sign may only lead ("1-2" and "--1" are no numbers).
        return signs == 0 || (signs == 1 && isSign(text[0]));
    }
    if (ePos == 0 || ePos == text.size() - 1) return false;
    if (signs > 2) return false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (isSign(text[i]) && i != 0 && i != ePos + 1) return false;
        if (i > ePos && (text[i] == '.' || text[i] == ',')) return false;
    }
    const std::size_t afterE = isSign(text[ePos + 1]) ? ePos + 2 : ePos + 1;
    return isDigit(text[ePos - 1]) && afterE < text.size() && isDigit(text[afterE]);
}
