// Rules for numbers typed into tables and fields.
#ifndef LUMIVAR_CORE_NUMBERTEXT_H
#define LUMIVAR_CORE_NUMBERTEXT_H

#include <string>

// A table cell's number: trimmed, "e" taken as "E"; at most one "E" and one decimal mark ("."
// or ","); a sign only in front of the number or of its exponent, never last; no mark in the
// exponent; digits before the "E" and after it; nothing but digits, marks, "E" and signs.
bool isValidDoubleText(const std::string& text);

// The text without the blanks, tabs and line ends around it.
std::string trimmedText(const std::string& text);

#endif  // LUMIVAR_CORE_NUMBERTEXT_H
