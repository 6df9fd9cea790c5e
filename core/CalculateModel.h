// Calculate without a window: the checks of the spectrum rows, the mix arithmetic by lumens or
// watts, filters, the reference spectra, blue-peak removal and wall-plug power, and the whole
// run from row texts to result fields. The window reads its widgets into these records, calls
// the model and shows the boxes and fields it returns.
#ifndef LUMIVAR_CORE_CALCULATEMODEL_H
#define LUMIVAR_CORE_CALCULATEMODEL_H

#include <string>
#include <vector>

#include "LedDefinitions.h"
#include "LedTypes.h"
#include "ResultFields.h"

// A box to show: its title and text, as a warning or an error.
struct CalcMessage {
    std::string title;
    std::string text;
};

// Fields of an input row, as bits of the set that turns red.
enum RowField {
    ROW_LDOM = 1,
    ROW_LUMENS = 2,
    ROW_WATTS = 4,
    ROW_BIN_WIDTH = 8,
    ROW_BIN_OUTPUT = 16,
    ROW_LPW = 32
};

// Settings of the window that a mix depends on.
struct MixSettings {
    int analysisType = 0;  // 0 spectra, 3 optimization
    bool includeIR = false;
    bool wattsInMilliwatts = true;       // inputWattsUnits 0
    bool useOriginalIntensities = true;  // fill blank rows of fixed spectra from the record
    int defaultSpecUnits = 0;            // 1: such rows get watts even when lumens are known
    bool monteCarlo = false;             // binning run: the bin fields are read
    bool limitUmolTo400_700 = false;
    bool subtractBluePeak = false;
    int ssiReference = 0;                  // 0 black body, 1 daylight, 2 ssiUserReference
    std::vector<double> ssiUserReference;  // with 2: the reference on the grid (empty: none)
    // The matching curve on the grid in W/nm (empty: none); the "RMS" field compares the
    // result with it, unless the blue peak is subtracted.
    std::vector<double> matching;
};

// The outcome of the row checks.
struct MixRows {
    bool ok = false;
    std::vector<CalcMessage> messages;  // boxes in the order they are shown
    int errorRow = -1;                  // the row whose fields turn red
    int errorFields = 0;                // RowField bits
    std::vector<bool> included, byLumens;
    std::vector<double> coefficients, lDom;
    int numSelected = 0, numBinned = 0;
    bool allLPWKnown = false;
};

// The x,y of one included spectrum alone, rounded to four decimals, for the diagram.
struct SpectrumPoint {
    int row = 0;
    double x = 0, y = 0, x10 = 0, y10 = 0;
};

// The whole result of a run. When it is not ok, rows.messages holds the boxes to show.
struct CalculateOutcome {
    bool ok = false;
    MixRows rows;
    std::vector<double> mixedSpectrum;  // NUM_GRID_POINTS_IR values, 0 beyond the range
    std::vector<SpectrumPoint> points;
    SpectrumResults results;
    MixResults mix;
    std::vector<ResultField> fields;  // NUM_OUTPUT_FIELDS
};

// The box of a spectrum too dark to have a chromaticity, or (overflow) too bright to be summed.
CalcMessage noChromaticityMessage(bool overflow = false);

// A matching column counts when no cell is empty (or empty cells count as 0) and not all are.
bool isMatchingColumnValid(const std::vector<std::string>& column, bool zeroEmptyCells);

// Number of a row field's text; empty or unreadable text gives `fallback`.
double fieldValue(const std::string& text, double fallback = 0.0);

// Multiplier of one row: L / lumens, or W / watts (360 to 830 nm, or to 1050 nm with IR),
// times 0.001 when the watts are milliwatts.
double getCoeff(bool includeIR, bool byLumens, double value, bool milliwatts,
                const ledTypeStruct& spectrum);
// The row's visible watts from its lumens or watts field; -1 when both or neither is filled.
double getInputWatts(const ledInputDataStruct& row, const ledTypeStruct& spectrum, bool milliwatts);
// True when every checked row's LPW field holds more than 1e-9.
bool areAllNeededLPWspecified(const std::vector<ledInputDataStruct>& rows);

// Checks every checked row in order and sets its coefficient. Blank rows of fixed spectra may
// be filled from the record ("use original"), so the rows are rewritten.
MixRows checkMixRows(std::vector<ledInputDataStruct>& rows,
                     const std::vector<ledTypeStruct>& spectra, const MixSettings& settings);

// Electrical watts of the included rows from their LPW fields; 0 when not all are known.
double electricalWatts(const std::vector<ledInputDataStruct>& rows,
                       const std::vector<ledTypeStruct>& spectra, const MixRows& mix,
                       const MixSettings& settings);

// Black-body and reconstituted-daylight temperatures: outside the range the value is reset to
// the nearer limit and the box says so. True on error.
bool checkBlackBodyTemperature(double* kelvin, CalcMessage* message);
bool checkDaylightTemperature(double* kelvin, CalcMessage* message);
// The reference spectrum of `numPoints` points scaled to hold exactly 1 W; the rest is 0.
void blackBodySpectrum(double kelvin, int numPoints, double* out);
void daylightSpectrum(const Vantrel& engine, double kelvin, int numPoints, double* out);

// Product of the checked filters (transmission 0 to 1) at every point; 1 where none is checked.
void filterProduct(const std::vector<ledTypeStruct>& filters, const std::vector<bool>& checked,
                   double* product);
// The first checked filter with a value above 1 at some point, or -1.
int firstFilterAboveOne(const std::vector<ledTypeStruct>& filters,
                        const std::vector<bool>& checked);
// The warning about such a filter; percent units print the limit as 100.
CalcMessage filterAboveOneWarning(const std::string& name, bool percentUnits);

// Takes the blue pump away: the highest point from 398 nm to below 482 nm is mirrored to make
// a symmetric peak, and seven times that peak is subtracted. False when the peak lies on the
// edge of that scan. phosphorWatts: what is left, in W.
bool removeBluePeak(const double* spectrum, int numPoints, double* out, double* phosphorWatts);

// The model the window and the command-line tool share.
class CalculateModel {
  public:
    // programDir: the per-user folder, where the colour LED definitions may be overridden.
    explicit CalculateModel(const std::string& programDir = std::string());

    LedDefinitions& definitions() { return leds; }
    // The standard spectra first, then any user spectra.
    std::vector<ledTypeStruct>& spectra() { return ledSpectra; }
    const std::vector<ledTypeStruct>& spectra() const { return ledSpectra; }
    SpectrumCalculator& calculator() { return spectrumCalculator; }
    // The user's spectra follow the standard ones, in library order.
    void setUserSpectra(const std::vector<ledTypeStruct>& user);

    // A mix of the rows (analysisType 0): checks, per-spectrum points, the sum, the filter
    // product (null for none), blue-peak removal and every result field.
    CalculateOutcome calculateMix(std::vector<ledInputDataStruct>& rows,
                                  const MixSettings& settings, const double* filters,
                                  const FieldFormat& format);
    // Results of a spectrum that is already built (direct input, black body, daylight).
    CalculateOutcome calculateSpectrum(const double* spectrum, const MixSettings& settings,
                                       const FieldFormat& format);

  private:
    void finish(CalculateOutcome& outcome, const MixSettings& settings, const FieldFormat& format);

    LedDefinitions leds;
    std::vector<ledTypeStruct> ledSpectra;
    SpectrumCalculator spectrumCalculator;
    Vantrel single, single10;  // each included spectrum alone
};

#endif  // LUMIVAR_CORE_CALCULATEMODEL_H
