// Screen colours of reflectances: CMCCAT2000 to D65, linear sRGB, display gamma, scaling.
#include "GetMonitorColors.h"

#include <algorithm>
#include <cmath>

#include "ColorMatrices.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// D65 white of the engine's grid and 1931 observer, Y = 100: the white of the sRGB display.
constexpr double DISPLAY_WHITE[3] = {95.04783169, 100.0, 108.8410967};
// Adapting luminance (cd/m²) of a viewer looking at a screen: partial adaptation in CMCCAT2000.
constexpr double SCREEN_LUMINANCE = 200.0;
// Plain display gamma 2.2 rather than the piecewise sRGB curve.
constexpr double DISPLAY_GAMMA_INVERSE = 0.45454545454545453;
}  // namespace

void GetMonitorColors::getColors(int n, const double* spectrum, const double* const* reflectances,
                                 int** rgb) {
    engine.calcAll(spectrum, false, true);
    double sourceWhite[3];
    engine.get_illumination_XYZ(0, sourceWhite);

    // Scale the source to Y = 100, as the stored white is, so a perfect reflector lands on it.
    double X, Y, Z, x, y;
    engine.cie_XYZ(2, spectrum, nullptr, &X, &Y, &Z, &x, &y);
    std::vector<double> normalized(N);
    for (int i = 0; i < N; ++i) normalized[i] = 100.0 * spectrum[i] / Y;

    // The n colours and, last, a perfect white that sets the brightness scale.
    const std::vector<double> perfectWhite(N, 1.0);
    std::vector<double> xyz(3 * (n + 1)), adapted(3 * (n + 1)), display(3 * (n + 1));
    for (int k = 0; k <= n; ++k) {
        const double* r = k < n ? reflectances[k] : perfectWhite.data();
        engine.cie_XYZ(3, normalized.data(), r, &xyz[3 * k], &xyz[3 * k + 1], &xyz[3 * k + 2], &x,
                       &y);
    }
    getRGBforMonitor_p1(n + 1, xyz.data(), sourceWhite, adapted.data());
    getRGBforMonitor_p2(n + 1, adapted.data(), display.data());
    getRGBforMonitor_p3(n, display.data(), rgb);
}

void GetMonitorColors::getColor(const double* XYZ, const double* white, int* rgb) {
    double adapted[3], display[3];
    getRGBforMonitor_p1(1, XYZ, white, adapted);
    getRGBforMonitor_p2(1, adapted, display);
    int* rows[1] = {rgb};
    getRGBforMonitor_p3(1, display, rows);
}

void GetMonitorColors::getRGBforMonitor_p1(int count, const double* xyz, const double* sourceWhite,
                                           double* adapted) {
    largestAdapted = 0;
    for (int k = 0; k < count; ++k) {
        Vantrel::CMCCAT_v(xyz[3 * k], xyz[3 * k + 1], xyz[3 * k + 2], sourceWhite, DISPLAY_WHITE,
                          SCREEN_LUMINANCE, &adapted[3 * k]);
        for (int c = 0; c < 3; ++c) largestAdapted = std::max(largestAdapted, adapted[3 * k + c]);
    }
}

void GetMonitorColors::getRGBforMonitor_p2(int count, const double* adapted, double* display) {
    largestDisplay = 0;
    for (int k = 0; k < count; ++k) {
        const double* a = &adapted[3 * k];
        for (int c = 0; c < 3; ++c) {
            double v = (color_matrices::XYZ_TO_SRGB[c][0] * a[0] +
                        color_matrices::XYZ_TO_SRGB[c][1] * a[1] +
                        color_matrices::XYZ_TO_SRGB[c][2] * a[2]) /
                       100.0;
            v = std::pow(std::max(v, 0.0), DISPLAY_GAMMA_INVERSE);  // out of gamut: clip at 0
            display[3 * k + c] = v;
            largestDisplay = std::max(largestDisplay, v);
        }
    }
}

void GetMonitorColors::getRGBforMonitor_p3(int count, const double* display, int** rgb) const {
    for (int k = 0; k < count; ++k) {
        for (int c = 0; c < 3; ++c) {
            // An all-black set has nothing to scale by and stays black.
            const double v = largestDisplay > 0 ? 255.0 * display[3 * k + c] / largestDisplay : 0;
            rgb[k][c] = static_cast<int>(std::min(255.0, std::max(0.0, v)));
        }
    }
}
