// The results of one calculation as the main window shows them: the 151 numbered output fields,
// each with its text as the window formats it and the unrounded value behind it.
#ifndef LUMIVAR_CORE_RESULTFIELDS_H
#define LUMIVAR_CORE_RESULTFIELDS_H

#include <string>
#include <vector>

#include "OutputField.h"
#include "Vantrel.h"

// What a calculation covers besides the spectrum itself.
struct CalculationOptions {
    bool includeIR = false;           // the spectrum holds 346 points to 1050 nm
    bool limitUmolTo400_700 = false;  // photon flux and umol/J (spec) over 400 to 700 nm only
    int ssiReference = 0;             // 0 black body, 1 daylight at the CCT, 2 the user's
    const double* ssiUserReference = nullptr;  // with 2: the reference on the grid, or none
    double csLux = -1.0;  // > 0: circadian light and stimulus at this illuminance
};

// Raw engine values of one spectrum by both engines, with the photon and power sums.
struct SpectrumResults {
    bool includeIR = false;
    // False for a spectrum too dark (X+Y+Z at or below Vantrel::MIN_XYZ_SUM) or too bright (not
    // finite) for a chromaticity in either engine's observer. Only lumens and visible watts are
    // then filled: such a spectrum is an error to the user, never a row of numbers.
    bool hasChromaticity = true;
    bool overflow = false;  // of those, the ones whose X+Y+Z is not a finite number
    double lumens = 0;      // 1931 2° (or the chosen observer) engine
    double wattsVis = 0;    // W, 360 to 830 nm
    double totalWatts = 0, extendedLumens = 0;  // 360 to 1050 nm; only with IR
    double cct = 0;
    double x = 0, y = 0, up = 0, vp = 0;
    double duv = 0, dupvp = 0;  // signed distances to the Planck locus in uv and u'v'
    double domWL = 0, purity = 0;
    double X = 0, Y = 0, Z = 0;  // from x, y and lumens
    double scotopicLumens = 0;
    double R[Vantrel::NUM_SAMPLES] = {};  // Ra, R1 to R15 (CIE 13.3)
    double Q[Vantrel::NUM_SAMPLES] = {};  // Qa, Q1 to Q15 (CQS 9.1)
    double centroidWL = 0;                // nm
    double fwhm = 0;                      // nm, -1 when there is no single peak
    // IES TM-30-18 (refused for |Duv| > 0.1).
    bool tm30Error = false;
    double Rf = 0, Rg = 0, RfSkin = 0;
    double RfByHue[Vantrel::TM30_NUM_BINS] = {};         // Rf,hj as the engine rounds them
    double hueShift[Vantrel::TM30_NUM_BINS] = {};        // Rhs,hj
    double chromaShiftPct[Vantrel::TM30_NUM_BINS] = {};  // Rcs,hj in percent
    // TLCI-2012: Qa (negative when no patch is in gamut) and the colour offset d.
    double tlciQa = 0, tlciD = 0;
    // Gamut of the R1-R8 (CRI) and VS (CQS) samples, [0] test, [1] reference, in u'v' and uv.
    double criAreaUpVp[2] = {}, cqsAreaUpVp[2] = {}, criAreaUV[2] = {}, cqsAreaUV[2] = {};
    // Gamut ratios in u'v' [0] and uv [1].
    double gamutCRI[2] = {}, gamutCQS[2] = {}, gamutD65[2] = {}, gaiE[2] = {};
    double fci = 0, coi = 0, fsi = -1, fsci = -1;
    bool classA = false;
    double wbmr = 0, eml = 0;  // WELL melanopic ratio, EML at 100 lx
    // Film layer responses b, g, r of the tungsten (3200 K) and daylight films.
    double film3200K[3] = {}, filmDaylight[3] = {};
    bool ssiDefined = false;
    int ssi = 0;
    // Photon flux (umol/s), umol per visible (or band) joule, and all photons per second.
    double umolPerSecond = 0, umolPerJouleSpec = 0, photonsPerSecond = 0;
    // Circadian light and stimulus at the chosen illuminance (only when asked for).
    bool hasCircadian = false, circadianValid = false;
    double cla = 0, cs = 0;
    // The second engine, on the CIE 2015 10° observer.
    double cct10 = 0, x10 = 0, y10 = 0, up10 = 0, vp10 = 0, duv10 = 0, dupvp10 = 0, lumens10 = 0;
};

// Results that come from the mix inputs rather than from the spectrum.
struct MixResults {
    bool wallPlugKnown = false;  // every checked row gave its LPW
    double lpw = 0, electricalWatts = 0;
    bool bluePeakRun = false;  // "Subtract blue peak" was on
    bool bluePeakRemoved = false;
    double phosphorWatts = 0;              // W, after the blue peak was taken away
    std::vector<double> phosphorSpectrum;  // W/nm on the grid without the blue peak, when removed
    bool rmsValid = false;
    double rms = 0;
    bool binningOn = false;
    double maxDeltaE = 0;
};

// One result field: its name, the text the window shows and the unrounded value.
struct ResultField {
    std::string name;
    std::string text;     // window format, or UNDEFINED_TERM
    bool defined = true;  // false where the window shows UNDEFINED_TERM
    double value = 0;     // unrounded engine value (meaningless when !defined)
};

// How the fields are written: decimals of x, y, u', v' and Duv (4 or 6), the power unit
// (1000 for milliwatts) and the plane of the gamut ratios.
struct FieldFormat {
    int numDecimals = 4;
    double wattsFactor = 1.0;
    bool gamutInUV = false;
};

// Runs both engines of the main window on one spectrum.
class SpectrumCalculator {
  public:
    SpectrumCalculator();
    // Observer of the first engine (0 to 3); the second always uses the 2015 10° observer.
    void setObserver(int observer) { engine.setCIE_XYZ_bar_type(observer); }
    // spectrum: W/nm on the 2 nm grid from 360 nm, Vantrel::NUM_GRID_POINTS values, or
    // NUM_GRID_POINTS_IR with options.includeIR.
    SpectrumResults calculate(const double* spectrum, const CalculationOptions& options = {});
    // The first engine, for the reference spectra it defines.
    const Vantrel& firstEngine() const { return engine; }

  private:
    void otherIndices(const double* spectrum, const CalculationOptions& options,
                      SpectrumResults& r);
    void photonSums(const double* spectrum, const CalculationOptions& options,
                    SpectrumResults& r) const;

    Vantrel engine;
    Vantrel engine10;
};

// All NUM_OUTPUT_FIELDS fields, at their fixed numbers ("Lumens" at 0 ... "D (G/R)" at 150).
std::vector<ResultField> outputFieldValues(const SpectrumResults& r, const MixResults& mix = {},
                                           const FieldFormat& format = {});

// Whether a field says something about a spectrum alone: false for the fields that need the
// mix rows (wall-plug power, blue-peak subtraction, matching, binning, drive current) and for
// the ones that need the grid to 1050 nm.
bool fieldHasMeaningForSpectrumFile(int index);
// Whether a field says something about a saved design calculated without the window: all but
// the binning spread, the drive of an imported test and the match to a curve in the table.
bool fieldHasMeaningForDesign(int index);

// The short photometry texts that the plots write on the diagrams.
struct PhotometryStrings {
    std::string cri, cri10;  // "%s K / %s CRI / %d R9 / %.4lf Duv" and its 10° form
    std::string cqs, cqs10;  // "%s K / %d CQS / %.4lf Duv" and its 10° form
    std::string filmBlock;   // "\nBGR (W): ..." or "\nBGR (D): ..." or "\nBGR : N/A"
};
// fields: as outputFieldValues gives them. With comma decimals every "." becomes ",",
// otherwise every "," becomes ".".
PhotometryStrings photometryStrings(const SpectrumResults& r,
                                    const std::vector<ResultField>& fields, bool commaDecimals);

#endif  // LUMIVAR_CORE_RESULTFIELDS_H
