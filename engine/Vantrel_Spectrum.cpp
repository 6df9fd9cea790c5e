// Spectrum utilities: watts, scaling and resampling onto other grids.
#include <cmath>
#include <vector>

#include "Vantrel.h"

double Vantrel::getSpectralWatts(int n, const double* spectrum, double stepNm) {
    double sum = 0;
    for (int i = 0; i < n; ++i) sum += spectrum[i];
    return (sum - 0.5 * (spectrum[0] + spectrum[n - 1])) * stepNm;
}

void Vantrel::scaleSpectrum(double* spectrum, double watts, int n) {
    const double current = getSpectralWatts(n, spectrum, 2.0);
    if (current == 0.0) return;
    const double factor = watts / current;
    for (int i = 0; i < n; ++i) spectrum[i] *= factor;
}

// Area-preserving resampling: the cumulative area under the input (each value held over its
// cell) is read at the output cell edges, and each output value is the mean over its cell.
//
// Input cell edges: the first edge is 2·wl[1] − wl[2] (the first wavelength itself on an even
// grid, so the first input cell is half wide), then the mid-points, and the last edge one step
// past the last mid-point. The last value's cell adds no area. A table starting at 360 nm thus
// gives half its first value at 360 nm; results of the program were made with these edges.
bool Vantrel::resampleSpectrum(int n, const double* wl, const double* value, double start,
                               double end, double step, double* outWl, double* outValue) {
    if (step < 0.001 || n < 3) return false;
    const int M = static_cast<int>((end - start) / step + 0.5) + 1;
    if (M < 5) return false;

    std::vector<double> e(n + 1), A(n + 1);
    e[0] = 2.0 * wl[1] - wl[2];
    for (int k = 1; k < n; ++k) e[k] = 0.5 * (wl[k - 1] + wl[k]);
    e[n] = e[n - 1] + (e[n - 1] - e[n - 2]);

    A[0] = 0.0;
    for (int k = 1; k < n; ++k) A[k] = A[k - 1] + value[k - 1] * (e[k] - e[k - 1]);
    A[n] = A[n - 1];

    // Cumulative area at p, linear between edges; the search moves upward from the last hit.
    int hit = 0;
    auto areaAt = [&](double p, double previous) {
        if (!(p >= e[0] && p <= e[n])) return previous;
        while (hit < n - 1 && e[hit + 1] < p) ++hit;
        const double width = e[hit + 1] - e[hit];
        const double slope = width != 0.0 ? (A[hit + 1] - A[hit]) / width : 0.0;
        return A[hit] + slope * (p - e[hit]);
    };

    double p = start - step / 2.0;
    double areaPrev = areaAt(p, 0.0);
    for (int j = 1; j <= M; ++j) {
        p += step;
        const double area = areaAt(p, areaPrev);
        outValue[j - 1] = (area - areaPrev) / step;
        if (outWl != nullptr) outWl[j - 1] = start + (j - 1) * step;
        areaPrev = area;
    }
    return true;
}
