#include "CLocaleNumbers.h"

#include <charconv>
#include <cmath>
#include <string>
#include <system_error>

namespace {

std::string toChars(double v, std::chars_format format, int decimals) {
    if (!std::isfinite(v)) v = 0.0;
    char buf[400];
    const auto [end, ec] = std::to_chars(buf, buf + sizeof buf, v, format, decimals);
    return ec == std::errc() ? std::string(buf, end) : std::string("0");
}

// Length of the number that from_chars would take at the start of s (digits, one mark, an
// exponent with digits); 0 when s starts with no digit.
std::size_t numberLength(std::string_view s) {
    std::size_t i = 0, digits = 0;
    if (i < s.size() && (s[i] == '-' || s[i] == '+')) ++i;
    while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
    if (i < s.size() && s[i] == '.') {
        ++i;
        while (i < s.size() && s[i] >= '0' && s[i] <= '9') ++i, ++digits;
    }
    if (digits == 0) return 0;
    if (i < s.size() && (s[i] == 'e' || s[i] == 'E')) {
        std::size_t j = i + 1;
        if (j < s.size() && (s[j] == '-' || s[j] == '+')) ++j;
        const std::size_t expStart = j;
        while (j < s.size() && s[j] >= '0' && s[j] <= '9') ++j;
        if (j > expStart) i = j;
    }
    return i;
}

std::string_view skipBlanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    return s;
}

}  // namespace

std::string scientificText(double v, int decimals) {
    return toChars(v, std::chars_format::scientific, decimals);
}

std::string fixedText(double v, int decimals) {
    return toChars(v, std::chars_format::fixed, decimals);
}

bool parseWholeNumber(std::string_view text, double* v) {
    // Only plain decimal numbers: from_chars alone would also take "inf", "nan" and hex digits.
    if (text.empty() || numberLength(text) != text.size()) return false;
    if (text.front() == '+') text.remove_prefix(1);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (end != text.data() + text.size()) return false;
    if (ec == std::errc::result_out_of_range) {
        // Too small for a double reads as 0; too large is refused.
        const std::size_t e = text.find_first_of("eE");
        if (e == std::string_view::npos || e + 1 >= text.size() || text[e + 1] != '-') return false;
        value = 0.0;
    } else if (ec != std::errc() || !std::isfinite(value)) {
        return false;
    }
    *v = value;
    return true;
}

bool parseLeadingNumber(std::string_view text, double* v) {
    text = skipBlanks(text);
    // Tables read a decimal comma as a point; only the characters a number can hold are copied.
    const std::size_t span = text.find_first_not_of("0123456789+-.,eE");
    std::string head(text.substr(0, span));
    for (char& c : head) {
        if (c == ',') c = '.';
    }
    const std::size_t n = numberLength(head);
    return n > 0 && parseWholeNumber(std::string_view(head).substr(0, n), v);
}

bool parseLeadingInt(std::string_view text, int* v) {
    text = skipBlanks(text);
    if (!text.empty() && text.front() == '+') text.remove_prefix(1);
    int value = 0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec != std::errc() || end == text.data()) return false;
    *v = value;
    return true;
}
