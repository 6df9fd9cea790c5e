// Numbers typed with either decimal character.
#ifndef LUMIVAR_CORE_TEXTTONUMBER_H
#define LUMIVAR_CORE_TEXTTONUMBER_H

#include <string>

class TextToNumber {
  public:
    // Every "," is read as "."; text that is no number reads as far as it goes (0 for none),
    // without a report.
    double getValue(const std::string& text) const;
    double getValue(const char* text) const;
};

#endif  // LUMIVAR_CORE_TEXTTONUMBER_H
