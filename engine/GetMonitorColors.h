// GetMonitorColors: 8-bit screen colours of reflectances seen under a light source.
//
// Each colour is adapted from the source white to D65 by CMCCAT2000, converted to linear sRGB,
// given a 1/2.2 display gamma and scaled so that the brightest channel of the set, a perfect
// white included, reads 255. The swatches thus keep their brightness relative to the white.
#ifndef LUMIVAR_ENGINE_GETMONITORCOLORS_H
#define LUMIVAR_ENGINE_GETMONITORCOLORS_H

#include <vector>

#include "Vantrel.h"

class GetMonitorColors {
  public:
    // rgb[k][0..2] for the n reflectances (each on the engine grid) under `spectrum`.
    void getColors(int n, const double* spectrum, const double* const* reflectances, int** rgb);
    // One colour of X, Y, Z (0 to 100 scale) under `white`, scaled by its own brightest channel.
    void getColor(const double* XYZ, const double* white, int* rgb);

  private:
    // Stage 1: CMCCAT2000 from sourceWhite to D65 for `count` colours of xyz (3 values each).
    void getRGBforMonitor_p1(int count, const double* xyz, const double* sourceWhite,
                             double* adapted);
    // Stage 2: display values (linear sRGB, clipped at 0, gamma 1/2.2); tracks the largest.
    void getRGBforMonitor_p2(int count, const double* adapted, double* display);
    // Stage 3: 8-bit values relative to the largest display value.
    void getRGBforMonitor_p3(int count, const double* display, int** rgb) const;

    Vantrel engine;
    double largestAdapted = 0;  // largest adapted tristimulus value of the last set
    double largestDisplay = 0;  // largest display value of the last set
};

#endif  // LUMIVAR_ENGINE_GETMONITORCOLORS_H
