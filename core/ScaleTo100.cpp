#include "ScaleTo100.h"

#include <cmath>

bool ScaleTo100::scaleValues(int n, int changedIndex, const bool* active, double* values,
                             double tolerance) const {
    const double d = 100.0 - values[changedIndex];
    if (!(std::fabs(d) > 0.5 * tolerance)) return true;

    auto others = [&](int k) { return k != changedIndex && active[k]; };
    double sum = 0.0;
    for (int k = 0; k < n; ++k) {
        if (others(k)) sum += values[k];
    }
    double total = values[changedIndex];
    for (int k = 0; k < n; ++k) {
        if (others(k)) {
            values[k] = values[k] * d / sum;
            total += values[k];
        }
    }
    // A second pass only for what the first left outside the tolerance.
    const double e = 100.0 - total;
    if (std::fabs(e) > tolerance) {
        const double rest = total - values[changedIndex];
        for (int k = 0; k < n; ++k) {
            if (others(k)) values[k] += e * values[k] / rest;
        }
    }
    return true;
}
