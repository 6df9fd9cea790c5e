// Rules for numbers typed into tables and fields.
#ifndef LUMIVAR_CORE_NUMBERTEXT_H
#define LUMIVAR_CORE_NUMBERTEXT_H

#include <string>

// A table cell's number: trimmed, "e" taken as "E"; at most one ".", "," or "E"; no sign at the
// end; without an "E" a sign only in front; with an "E" at most two signs, each leading or right
// after the "E"; no "E" first or last, no point after it, a digit on both sides of it; only digits,
// ".", ",", "E", "+", "-".
bool isValidDoubleText(const std::string& text);

#endif  // LUMIVAR_CORE_NUMBERTEXT_H
