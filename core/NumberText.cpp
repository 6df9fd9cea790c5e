#include "NumberText.h"

bool isValidDoubleText(const std::string& raw) {
    const std::size_t first = raw.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return false;
    const std::size_t last = raw.find_last_not_of(" \t\r\n");
    std::string text = raw.substr(first, last - first + 1);
    int exponents = 0, marks = 0;
    for (char& c : text) {
        if (c == 'e') c = 'E';
        if (c == 'E') ++exponents;
        if (c == '.' || c == ',') ++marks;
    }
    const std::size_t n = text.size();
    if (exponents > 1 || marks > 1) return false;
    if (text[n - 1] == '+' || text[n - 1] == '-') return false;
    const std::size_t e = text.find('E');
    const bool hasE = e != std::string::npos;
    if (hasE && (e == 0 || e == n - 1)) return false;
    bool digitBefore = false, digitAfter = false;
    for (std::size_t i = 0; i < n; ++i) {
        const char c = text[i];
        if (c >= '0' && c <= '9') {
            (hasE && i > e ? digitAfter : digitBefore) = true;
        } else if (c == '+' || c == '-') {
            // A sign leads the number or its exponent, nowhere else.
            if (i != 0 && !(hasE && i == e + 1)) return false;
        } else if (c == '.' || c == ',') {
            if (hasE && i > e) return false;
        } else if (c != 'E') {
            return false;
        }
    }
    return digitBefore && (!hasE || digitAfter);
}

std::string trimmedText(const std::string& text) {
    const char* blanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos) return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}
