// The standard spectra of the LED list: eight pure colours built from an entered dominant
// wavelength by the Gaussian peak model, then six fixed catalogue rows (far red, two IR LEDs,
// three whites). The peak model of each colour can be overridden by a text file in the
// program folder, so a user can fit it to the parts he buys.
#ifndef LUMIVAR_CORE_LEDDEFINITIONS_H
#define LUMIVAR_CORE_LEDDEFINITIONS_H

#include <string>
#include <vector>

#include "LED.h"
#include "LedTypes.h"

class LedDefinitions : public LED {
  public:
    static constexpr int NUM_PURE_COLORS = 8;
    static constexpr int NUM_STD_SPECTRA = 14;
    static constexpr int FIRST_FIXED_ROW = NUM_PURE_COLORS;
    static constexpr int FIRST_IR_LED = 9;
    static constexpr int FIRST_WHITE_LED = 11;
    // Longest line of the override file that is read as one line.
    static constexpr int PEAK_FILE_LINE_LENGTH = 100;

    // The model of one pure colour, with the field names that the override file uses.
    struct PeakData {
        int numGaussianPeaks;
        int numPeakDominateCoefficients;
        int isRelativeIntensity;  // 1: heights are relative, 0: scaled to stored watts
        bool hasIRpast830;
        double defaultLPW;
        double defaultDominatePeakWavelength;  // nm
        double minDominatePeakWavelength;      // nm
        double maxDominatePeakWavelength;      // nm
        double defaultBinShift;                // nm
        // Peak shift (nm) as a polynomial of the dominant wavelength, lowest power first.
        double peakDominateCoefficients[MAX_PEAKS];
        double peakHeightScaleFactor;
        double peakCenter[MAX_PEAKS];  // offset from the shift, nm
        double peakFWHM[MAX_PEAKS];    // nm
        double peakHeight[MAX_PEAKS];
    };

    // programDir ends with "/"; the override file is read from there when it exists.
    explicit LedDefinitions(std::string programDir);

    int getNumStdSpectra() const { return NUM_STD_SPECTRA; }
    int getNumPureColorGaussianStdSpectra() const { return NUM_PURE_COLORS; }
    int getNumEnterLDomStdSpectra() const { return NUM_PURE_COLORS; }
    int getIndexOfFirstIRLED() const { return FIRST_IR_LED; }

    // Fills row `index` of the standard spectra. A negative lDom takes the row's default. False,
    // with `out` untouched, for an index outside 0 to NUM_STD_SPECTRA - 1.
    bool defineStdSpectra(int index, ledTypeStruct* out, double lDom);
    // The peak model of a pure colour at dominant wavelength lDom (nm); nothing for a row
    // outside 0 to NUM_PURE_COLORS - 1.
    void definePureColorLED(int row, ledTypeStruct* out, double lDom);
    // The shift correction d (nm) of a pure colour at dominant wavelength L (nm), 0 for colours
    // without one.
    static double getPeakCorrection(int row, double L);

    using LED::defineSpectrum;
    // The mix of n spectra: unless `prepared`, coefficients[i] first goes to
    // spectra[i].coefficient; then defineTestSpectrumSum. out holds NUM_GRID_POINTS_IR values.
    void defineSpectrum(int n, const double* coefficients, const int* shifts, bool prepared,
                        ledTypeStruct* spectra, double* out);
    // out[j] = sum of spectra[i].coefficient * spectrum of i at j. A spectrum without a dominant
    // wavelength is moved by shifts[i] nm (null: no shift) on the 2 nm grid, by integer division.
    static void defineTestSpectrumSum(int n, const int* shifts, const ledTypeStruct* spectra,
                                      double* out);

    // The built-in peak table.
    void defineLEDsPeakData();
    // A definition of the override file that was not used: the line where it failed and why.
    struct PeakFileProblem {
        int line;
        std::string text;
    };

    // Overrides colours from the file at path; false when it cannot be opened. A block that
    // ends early, holds a line that is not its numbers, a value that is not a number or beyond
    // 1e15, lists more than MAX_PEAKS entries or builds peaks that are not finite leaves its
    // colour as it was, and is listed in getPeakFileProblems.
    bool readLEDsPeakData(const std::string& path);
    const std::vector<PeakFileProblem>& getPeakFileProblems() const { return peakFileProblems; }
    // Writes the peak table in the override file's layout to the "_current" file in the
    // program folder; false when it cannot be written.
    bool writeLEDsPeakData() const;
    std::string getPeakFilePath() const;
    std::string getCurrentPeakFilePath() const;

    // Null outside 0 to NUM_PURE_COLORS - 1.
    const PeakData* getPeakData(int row) const;
    // Empty outside 0 to NUM_PURE_COLORS - 1.
    std::string getLedName(int row) const;

  private:
    void defineFixedRow(int index, ledTypeStruct* out) const;
    // Whether `block` as the model of `row` gives finite values at its default, lowest and
    // highest dominant wavelengths.
    bool buildsFinitePeaks(int row, const PeakData& block);

    std::string programDir;
    std::string ledNames[NUM_PURE_COLORS];
    int numPureColors = NUM_PURE_COLORS;
    PeakData peakData[NUM_PURE_COLORS] = {};
    std::vector<PeakFileProblem> peakFileProblems;
};

#endif  // LUMIVAR_CORE_LEDDEFINITIONS_H
