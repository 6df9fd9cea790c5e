// Numerical Recipes in C (first edition) ran1 and gasdev, with the state in the object.
#include "Gaussian.h"

#include <cmath>

namespace {
// The three linear congruential generators: modulus, multiplier, increment.
constexpr long M1 = 259200, IA1 = 7141, IC1 = 54773;
constexpr long M2 = 134456, IA2 = 8121, IC2 = 28411;
constexpr long M3 = 243000, IA3 = 4561, IC3 = 51349;
constexpr double RM1 = 1.0 / M1;
constexpr double RM2 = 1.0 / M2;

// A remainder in 0 to m - 1 also for a negative value (a large positive seed).
long wrap(long value, long m) {
    const long r = value % m;
    return r < 0 ? r + m : r;
}
}  // namespace

double Gaussian::ran1(int* seed) {
    if (*seed < 0 || !started) {
        started = true;
        // Generator 1 seeds the other two, then fills the table with the high bits from
        // generator 1 and the low bits from generator 2.
        ix1 = wrap(IC1 - static_cast<long>(*seed), M1);
        ix1 = (IA1 * ix1 + IC1) % M1;
        ix2 = ix1 % M2;
        ix1 = (IA1 * ix1 + IC1) % M1;
        ix3 = ix1 % M3;
        for (int j = 1; j <= TABLE_SIZE; ++j) {
            ix1 = (IA1 * ix1 + IC1) % M1;
            ix2 = (IA2 * ix2 + IC2) % M2;
            table[j] = (ix1 + ix2 * RM2) * RM1;
        }
        *seed = 1;
    }
    ix1 = (IA1 * ix1 + IC1) % M1;
    ix2 = (IA2 * ix2 + IC2) % M2;
    ix3 = (IA3 * ix3 + IC3) % M3;
    // Generator 3 picks the slot, which breaks up the serial correlations of the other two.
    const int j = 1 + static_cast<int>((TABLE_SIZE * ix3) / M3);
    const double value = table[j];
    table[j] = (ix1 + ix2 * RM2) * RM1;
    return value;
}

double Gaussian::gasdev(int* seed) {
    if (*seed < 0) haveSpare = false;
    if (haveSpare) {
        haveSpare = false;
        return spare;
    }
    double v1, v2, r;
    do {
        // A point in the unit circle, uniform.
        v1 = 2.0 * ran1(seed) - 1.0;
        v2 = 2.0 * ran1(seed) - 1.0;
        r = v1 * v1 + v2 * v2;
    } while (r >= 1.0 || r == 0.0);
    const double fac = std::sqrt(-2.0 * std::log(r) / r);
    spare = v1 * fac;
    haveSpare = true;
    return v2 * fac;
}
