// The wavelength grid every spectrum of the program stands on, and the angle constants. Files
// that need a deliberately rounded form of a constant (results were published with it) keep it
// under its own name beside its use.
#ifndef LUMIVAR_ENGINE_GRID_H
#define LUMIVAR_ENGINE_GRID_H

namespace grid {
constexpr double FIRST_NM = 360.0;
constexpr double STEP_NM = 2.0;
constexpr double LAST_NM = 830.0;      // end of the visible grid
constexpr double LAST_IR_NM = 1050.0;  // end of the grid with the infrared range

// Wavelength of grid point i in nanometres.
constexpr double nm(int i) { return FIRST_NM + STEP_NM * i; }
// The same in metres, computed as the Gaussian and photon formulas are written; it can differ
// from nm(i) * 1e-9 in the last bit, and the stored results depend on that.
constexpr double metres(int i) { return 3.6e-7 + i * 2e-9; }
}  // namespace grid

// PI_EXACT, not PI: the toolkit's headers define a PI macro.
namespace angle {
constexpr double PI_EXACT = 3.14159265358979323846;
constexpr double DEG_TO_RAD = PI_EXACT / 180.0;
constexpr double RAD_TO_DEG = 180.0 / PI_EXACT;
}  // namespace angle

#endif  // LUMIVAR_ENGINE_GRID_H
