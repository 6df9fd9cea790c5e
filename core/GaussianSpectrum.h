// Gaussian test spectra: the values the Gaussian spectrum command types into the 360 to 830 nm
// table, the checks of its dialog, and the peak set made by the automatic generation.
#ifndef LUMIVAR_CORE_GAUSSIANSPECTRUM_H
#define LUMIVAR_CORE_GAUSSIANSPECTRUM_H

#include <string>
#include <vector>

// Dialog texts, kept word for word.
constexpr const char* GAUSSIAN_DIALOG_TITLE = "Create Gaussian spectrum";
constexpr const char* GAUSSIAN_CENTER_LABEL = "Center of Peak (nm)  ";
constexpr const char* GAUSSIAN_FWHM_LABEL = "FWHM (nm)  ";
constexpr const char* GAUSSIAN_NAME_LABEL = "Spectrum name (%d max)  ";
constexpr int GAUSSIAN_NAME_MAX = 100;
// The dialog's starting values.
constexpr double GAUSSIAN_DEFAULT_CENTER_NM = 500.0;
constexpr double GAUSSIAN_DEFAULT_FWHM_NM = 20.0;
// Allowed ranges; the centre may go to the IR end when the IR range is on.
constexpr double GAUSSIAN_MIN_CENTER_NM = 370.0;
constexpr double GAUSSIAN_MAX_CENTER_NM = 830.0;
constexpr double GAUSSIAN_MAX_CENTER_IR_NM = 1050.0;
constexpr double GAUSSIAN_MIN_FWHM_NM = 1.0;
constexpr double GAUSSIAN_MAX_FWHM_NM = 200.0;
// Significant decimals of the values typed into the table.
constexpr int GAUSSIAN_TEXT_PRECISION = 3;

// The table texts ("%.*le", GAUSSIAN_TEXT_PRECISION) of a Gaussian of the given centre and full
// width at half maximum (metres) with an area of 1e-6 over metres, at 360 + 2 i nm for
// Vantrel::NUM_GRID_POINTS_IR points with the IR range, else Vantrel::NUM_GRID_POINTS. With
// inPhotons the values are photons/(s nm) instead of W/nm.
std::vector<std::string> gaussianSpectrumTexts(double centerMetres, double fwhmMetres, bool withIR,
                                               bool inPhotons);

// False when the name, trimmed of blanks at both ends, is empty or holds a character outside
// 32 to 126 (printable ASCII): library files and menus cannot carry it.
bool isSpectrumNameValid(const std::string& name);

// "%.0lf nm peak %.0lf FWHM": the name of an unnamed Gaussian.
std::string defaultGaussianName(double centerNm, double fwhmNm);

// What the Gaussian dialog holds.
struct GaussianInput {
    double centerNm = GAUSSIAN_DEFAULT_CENTER_NM;  // peak centre
    double fwhmNm = GAUSSIAN_DEFAULT_FWHM_NM;      // full width at half maximum
    std::string name;                              // empty: the default name
};

// Gives an empty name its default, then checks name, centre and width in that order. True on
// error, with the box title and text of the first failing check.
bool checkGaussianInput(GaussianInput* input, bool withIR, std::string* title, std::string* text);

// One Gaussian of the automatic generation.
struct GaussianPeak {
    double centerNm;
    double fwhmNm;
    std::string name;
};

// Centres from 450 to 700 nm in 10 nm steps, each with the widths 20, 60, 120 and 180 nm.
std::vector<GaussianPeak> autoGaussianPeaks();

#endif  // LUMIVAR_CORE_GAUSSIANSPECTRUM_H
