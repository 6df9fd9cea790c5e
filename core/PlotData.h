// What the two plots of the main window show: the spectra of the last Calculate in the units
// of the plot, and the chromaticity points of the diagram.
#ifndef LUMIVAR_CORE_PLOTDATA_H
#define LUMIVAR_CORE_PLOTDATA_H

#include <array>
#include <vector>

#include "CalculateModel.h"

struct SpectraToPlot {
    std::vector<double> main, matching;  // n values each; negatives are 0
    double mainMax = -1, matchingMax = -1;
    bool photons = false;  // values in photons/(s-nm)
};

// n points of the result and of the matching curve (empty: none) from 360 nm in 2 nm steps.
// Spectra in photon units are converted from W/nm; filters and colours (types 4, 5, 7, 8)
// are plotted as they are.
SpectraToPlot spectraToPlot(const std::vector<double>& result, const std::vector<double>& matching,
                            int n, int analysisType, int inputUnitsIndex);

// The diagram's points: each spectrum of the mix alone when asked for, then the saved points
// (x, y, CCT, x 10°, y 10°), and the result last, where the diagram draws its main point.
// Nothing when the result's x or y is below 0.0001. tenDegree: the CIE 2015 10° coordinates.
struct CiePoints {
    std::vector<double> x, y;
};
CiePoints ciePointsToPlot(double x, double y, double x10, double y10,
                          const std::vector<SpectrumPoint>& singles, bool withSingles,
                          const std::vector<std::array<double, 5>>& saved, bool tenDegree);

#endif  // LUMIVAR_CORE_PLOTDATA_H
