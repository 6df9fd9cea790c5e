#include "ValueFormat.h"

#include <cmath>
#include <cstdarg>
#include <cstdio>

int ValueFormat::displayDecimals(double v) {
    if (v < 0.01) return 6;
    if (v < 1.0) return 3;
    if (v < 10.0) return 2;
    if (v < 100.0) return 1;
    return 0;
}

std::string ValueFormat::getValueAsString(double v) {
    if (v > 0.01) return format("%.*lf", displayDecimals(v), v);
    return format("%.1le", v);
}

int ValueFormat::round(double v) {
    // Out of int range (or not a number) there is nothing sensible to show; keep it defined.
    if (!(std::fabs(v) < 2.1e9)) return 0;
    return static_cast<int>(v < 0.0 ? std::ceil(v - 0.5) : std::floor(v + 0.5));
}

double ValueFormat::roundToDecimals(int decimals, double value) {
    if (decimals < 0) return value;
    double scaled = value;
    double half = 0.5;
    double power = 1.0;
    for (int k = 0; k < decimals; ++k) {
        scaled *= 10.0;
        half /= 10.0;
        power *= 10.0;
    }
    const long long n =
        value > 0.0 ? static_cast<long long>(0.5 + scaled) : static_cast<long long>(scaled - 0.5);
    const double rounded = static_cast<double>(n) / power;
    return value > 0.0 ? rounded + half : rounded - half;
}

std::string ValueFormat::format(const char* fmt, ...) {
    char buf[256];
    va_list args;
    va_start(args, fmt);
    const int len = std::vsnprintf(buf, sizeof(buf), fmt, args);
    va_end(args);
    if (len < 0) return std::string();
    if (static_cast<size_t>(len) < sizeof(buf)) return std::string(buf, len);
    std::string big(len + 1, '\0');
    va_start(args, fmt);
    std::vsnprintf(&big[0], big.size(), fmt, args);
    va_end(args);
    big.resize(len);
    return big;
}
