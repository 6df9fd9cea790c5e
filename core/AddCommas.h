// Numbers as text with thousands separators, for tables, plots and files.
#ifndef LUMIVAR_CORE_ADDCOMMAS_H
#define LUMIVAR_CORE_ADDCOMMAS_H

#include <string>

class AddCommas {
  public:
    // Thousands ",", decimal ".".
    void useComma();
    // Thousands ".", decimal ",".
    void useDot();
    // Decimals of the exponent form of getStr(value, limit); a negative value becomes 0.
    void setNumDecimalsForEFormat(int decimals);

    std::string getStr(int value) const;
    std::string getStr(long value) const;
    std::string getStr(unsigned long value) const;
    std::string getStr(unsigned long long value) const;
    std::string getStr(const std::string& text) const;
    std::string getStr(double value) const;
    // The whole part is rounded by itself ("%.0lf") and joined to the fraction of "%.*lf":
    // 1234.56 with one decimal gives "1,235.6", 1.5 gives "2.5". Tables depend on it.
    std::string getStr(double value, int decimals) const;
    // "%.0lf" with separators, or "%.*le" (setNumDecimalsForEFormat) above a non-negative limit.
    std::string getStr(double value, double limit) const;
    std::string getStr(double value, int decimals, double limit) const;

    // Inserts the thousands character every three characters from the end. The text is not
    // inspected: a leading minus sign counts as a digit, "-123456" gives "-,123,456".
    std::string insertCommas(std::string text) const;

  private:
    int numDecimalsForEFormat = 2;  // decimals of the exponent form
    char thousands = ',';           // thousands separator
    char decimal = '.';             // decimal character
};

#endif  // LUMIVAR_CORE_ADDCOMMAS_H
