// Number display rules shared by the result fields, files and the command-line tool.
#ifndef LUMIVAR_CORE_VALUEFORMAT_H
#define LUMIVAR_CORE_VALUEFORMAT_H

#include <string>

class ValueFormat {
  public:
    // Decimals for a value of this size: below 0.01 six, below 1 three, below 10 two, below
    // 100 one, else none.
    static int displayDecimals(double v);
    // "%.*lf" with displayDecimals for values above 0.01, otherwise "%.1le".
    static std::string getValueAsString(double v);
    // Rounds half away from zero.
    static int round(double v);
    // Rounds to the given decimals and then adds half a step (subtracts for negatives): 1.24 at
    // one decimal gives 1.25. The half step is deliberate; results and files depend on it.
    static double roundToDecimals(int decimals, double value);
    // printf into a std::string.
    static std::string format(const char* fmt, ...) __attribute__((format(printf, 1, 2)));
};

#endif  // LUMIVAR_CORE_VALUEFORMAT_H
