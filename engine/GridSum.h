// The grid sum of the engine's integrals, private to the engine's source files.
#ifndef LUMIVAR_ENGINE_GRIDSUM_H
#define LUMIVAR_ENGINE_GRIDSUM_H

#include "VantrelData.h"

namespace grid_sum {

constexpr int N = VantrelData::NUM_GRID;
static_assert(N % 4 == 0, "the grid is summed four points at a time");

// Σ a·b over the grid in four interleaved partial sums (236 = 4 x 59), combined in a fixed
// order: the same result on every run, several times faster than one serial chain of adds.
// sum2Products and sum3Products add in this order, so callers that form a product once and
// reuse it get their results bit for bit.
inline double dot(const double* a, const double* b) {
    double p0 = 0, p1 = 0, p2 = 0, p3 = 0;
    for (int i = 0; i < N; i += 4) {
        p0 += a[i] * b[i];
        p1 += a[i + 1] * b[i + 1];
        p2 += a[i + 2] * b[i + 2];
        p3 += a[i + 3] * b[i + 3];
    }
    return (p0 + p1) + (p2 + p3);
}

}  // namespace grid_sum

#endif  // LUMIVAR_ENGINE_GRIDSUM_H
