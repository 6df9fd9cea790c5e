// Gaussian test spectra and the checks of their dialog.
#include "GaussianSpectrum.h"

#include <cmath>
#include <cstdio>

#include "Grid.h"
#include "Vantrel.h"

namespace {
// Centres and widths of the automatic generation: the visible LED range, where the peaks can
// still be told apart by their colour.
constexpr double AUTO_FIRST_CENTER_NM = 450.0;
constexpr double AUTO_LAST_CENTER_NM = 700.0;
constexpr double AUTO_CENTER_STEP_NM = 10.0;
constexpr double AUTO_WIDTHS_NM[] = {20.0, 60.0, 120.0, 180.0};

std::string format(const char* fmt, double a, double b) {
    char buf[160];
    std::snprintf(buf, sizeof buf, fmt, a, b);
    return buf;
}
}  // namespace

std::vector<std::string> gaussianSpectrumTexts(double centerMetres, double fwhmMetres, bool withIR,
                                               bool inPhotons) {
    const int n = withIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    const double sigma = (fwhmMetres / 2.0) / std::sqrt(2.0 * std::log(2.0));
    const double A = 1e-6 / std::sqrt(6.28318530717958 * sigma * sigma);
    std::vector<std::string> texts;
    texts.reserve(n);
    char buf[64];
    for (int i = 0; i < n; ++i) {
        const double lambda = grid::metres(i);
        const double d = lambda - centerMetres;
        double v = A * std::exp(-d * d / 2.0 / sigma / sigma);
        if (inPhotons) v = Vantrel::convert_to_Photons_Sec_from_Watts_nm(v, grid::nm(i));
        std::snprintf(buf, sizeof buf, "%.*le", GAUSSIAN_TEXT_PRECISION, v);
        texts.emplace_back(buf);
    }
    return texts;
}

bool isSpectrumNameValid(const std::string& name) {
    const char* blanks = " \t\r\n\v\f";
    const std::size_t first = name.find_first_not_of(blanks);
    if (first == std::string::npos) return false;
    const std::size_t last = name.find_last_not_of(blanks);
    for (std::size_t i = first; i <= last; ++i) {
        const unsigned char c = static_cast<unsigned char>(name[i]);
        if (c < 32 || c > 126) return false;
    }
    return true;
}

std::string defaultGaussianName(double centerNm, double fwhmNm) {
    return format("%.0lf nm peak %.0lf FWHM", centerNm, fwhmNm);
}

bool checkGaussianInput(GaussianInput* input, bool withIR, std::string* title, std::string* text) {
    if (input->name.empty()) input->name = defaultGaussianName(input->centerNm, input->fwhmNm);
    const double maxCenter = withIR ? GAUSSIAN_MAX_CENTER_IR_NM : GAUSSIAN_MAX_CENTER_NM;
    if (!isSpectrumNameValid(input->name)) {
        *title = "Spectrum name error";
        *text = "The name you entered \"" + input->name +
                "\" is invalid, it contains an illegal character";
        return true;
    }
    if (!(input->centerNm >= GAUSSIAN_MIN_CENTER_NM && input->centerNm <= maxCenter)) {
        *title = "Peak center error";
        *text = format("The peak center value is out of range (%.0lf-%.0lf nm)",
                       GAUSSIAN_MIN_CENTER_NM, maxCenter);
        return true;
    }
    if (!(input->fwhmNm >= GAUSSIAN_MIN_FWHM_NM && input->fwhmNm <= GAUSSIAN_MAX_FWHM_NM)) {
        *title = "FWHM error";
        *text = format("The FWHM value is out of range (%.0lf-%.0lf nm)", GAUSSIAN_MIN_FWHM_NM,
                       GAUSSIAN_MAX_FWHM_NM);
        return true;
    }
    return false;
}

std::vector<GaussianPeak> autoGaussianPeaks() {
    std::vector<GaussianPeak> peaks;
    for (double c = AUTO_FIRST_CENTER_NM; c <= AUTO_LAST_CENTER_NM + 1e-9;
         c += AUTO_CENTER_STEP_NM) {
        for (double w : AUTO_WIDTHS_NM) peaks.push_back({c, w, defaultGaussianName(c, w)});
    }
    return peaks;
}
