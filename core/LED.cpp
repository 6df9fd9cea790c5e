// Gaussian peak synthesis of a coloured LED.
#include "LED.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "Grid.h"

namespace {
// The grid point of 830 nm: the visible range ends there, the IR range starts.
constexpr int INDEX_830_NM = Vantrel::NUM_GRID_POINTS - 1;
// Share of the total power beyond 830 nm above which a spectrum counts as reaching into the IR.
constexpr double IR_POWER_SHARE = 0.005;
}  // namespace

LED::LED() = default;

LED::~LED() = default;

void LED::clear() {
    std::fill(std::begin(peakCenter), std::end(peakCenter), 0.0);
    std::fill(std::begin(peakFWHM), std::end(peakFWHM), 0.0);
    std::fill(std::begin(peakHeight), std::end(peakHeight), 0.0);
    numPeaks = 0;
    std::fill(std::begin(spectrum), std::end(spectrum), 0.0);
    name[0] = '\0';
    lumens = 0;
    wattsVis = 0;
    wattsVisIR = 0;
    hasIntensityPast830nm = false;
}

bool LED::definePeak(int n, const double* centersNm, const double* fwhmNm, const double* heights) {
    numPeaks = n;
    if (n > MAX_PEAKS) return false;  // deliberate: the count stays, see the header
    for (int p = 0; p < n; ++p) {
        peakCenter[p] = centersNm[p] * 1e-9;
        peakFWHM[p] = fwhmNm[p] * 1e-9;
        peakHeight[p] = heights[p];
    }
    return true;
}

void LED::defineSpectrum(double /*unused*/) {
    // A refused definePeak leaves a count above MAX_PEAKS; only the stored peaks take part.
    const int n = std::min(numPeaks, MAX_PEAKS);
    double k[MAX_PEAKS] = {};
    for (int p = 0; p < n; ++p) {
        const double sigma = peakFWHM[p] * SIGMA_PER_FWHM;
        k[p] = 0.5 / (sigma * sigma);
    }
    for (int i = 0; i < NUM_GRID_POINTS_IR; ++i) {
        const double lambda = grid::metres(i);
        double sum = 0;
        for (int p = 0; p < n; ++p) {
            const double d = lambda - peakCenter[p];
            sum += peakHeight[p] * std::exp(-d * d * k[p]);
        }
        spectrum[i] = sum;
    }
}

void LED::calculateLumensWatts() {
    calcCCT(spectrum, false);
    color(spectrum, false);
    lumens = Vantrel::getLumens();
    wattsVis = Vantrel::getWattsVis();
    wattsVisIR = getSpectralWatts(NUM_GRID_POINTS_IR, spectrum, 2.0);
    const double beyond830 =
        getSpectralWatts(NUM_GRID_POINTS_IR - INDEX_830_NM, spectrum + INDEX_830_NM, 2.0);
    hasIntensityPast830nm = beyond830 > IR_POWER_SHARE * wattsVisIR;
}

void LED::getSpectrum(double* out) const {
    std::copy(std::begin(spectrum), std::end(spectrum), out);
}

void LED::defineName(const char* text) {
    if (text == nullptr) text = "";
    std::strncpy(name, text, NAME_SIZE - 1);
    name[NAME_SIZE - 1] = '\0';
}
