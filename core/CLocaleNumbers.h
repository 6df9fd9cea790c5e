// Numbers in files, read and written in the C locale whatever locale the process runs in: a
// library written under a locale with a decimal comma must read back anywhere.
#ifndef LUMIVAR_CORE_CLOCALENUMBERS_H
#define LUMIVAR_CORE_CLOCALENUMBERS_H

#include <string>
#include <string_view>

// printf's "%.<decimals>le": "1.234567e-03". A value that is not finite is written as 0, so a
// file never holds a number that its reader refuses.
std::string scientificText(double v, int decimals);
// printf's "%.<decimals>lf".
std::string fixedText(double v, int decimals);

// The whole of text (no blanks) as a finite number; a leading "+" is allowed. A value too small
// for a double reads as 0. False for anything else, with *v untouched.
bool parseWholeNumber(std::string_view text, double* v);
// The number at the start of text after blanks, read as far as it goes, with "," taken as "."
// as the tables take it: "45 lpw" reads 45. False when no digits start the text or the value
// is not finite.
bool parseLeadingNumber(std::string_view text, double* v);
// The integer at the start of text after blanks ("%d"); false when there is none or it does
// not fit an int.
bool parseLeadingInt(std::string_view text, int* v);

#endif  // LUMIVAR_CORE_CLOCALENUMBERS_H
