// The results of one spectrum as the main window shows them: each value under its field name,
// both as the engine gives it and as the window formats it.
#ifndef LUMIVAR_CORE_RESULTFIELDS_H
#define LUMIVAR_CORE_RESULTFIELDS_H

#include <string>
#include <vector>

#include "Vantrel.h"

// Raw engine values of one calculation by both engines.
struct SpectrumResults {
    double lumens = 0;    // 1931 2° (or the chosen observer) engine
    double wattsVis = 0;  // W
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
    // TLCI-2012: Qa (TLCI_FAILED when no patch is in gamut) and the colour offset d.
    double tlciQa = 0, tlciD = 0;
    // Gamut of the R1-R8 (CRI) and VS (CQS) samples, [0] test, [1] reference, in u'v' and uv.
    double criAreaUpVp[2] = {}, cqsAreaUpVp[2] = {}, criAreaUV[2] = {}, cqsAreaUV[2] = {};
    double gamutCRI = 0, gamutCQS = 0, gamutD65 = 0, gaiE = 0;  // in u'v'
    double fci = 0, coi = 0, fsi = -1, fsci = -1;
    bool classA = false;
    double wbmr = 0, eml = 0;  // WELL melanopic ratio, EML at 100 lx
    // Film layer responses b, g, r of the tungsten (3200 K) and daylight films.
    double film3200K[3] = {}, filmDaylight[3] = {};
    bool ssiDefined = false;
    int ssi = 0;
    // Circadian light and stimulus at the chosen illuminance (only when asked for).
    bool hasCircadian = false, circadianValid = false;
    double cla = 0, cs = 0;
    // The second engine, on the CIE 2015 10° observer.
    double cct10 = 0, x10 = 0, y10 = 0, up10 = 0, vp10 = 0, duv10 = 0, dupvp10 = 0, lumens10 = 0;
};

// One result field: its name, the text the window shows and the unrounded value.
struct ResultField {
    std::string name;
    std::string text;     // window format, or UNDEFINED_TERM
    bool defined = true;  // false where the window shows UNDEFINED_TERM
    double value = 0;     // unrounded engine value (meaningless when !defined)
};

// Runs both engines of the main window on one spectrum.
class SpectrumCalculator {
  public:
    SpectrumCalculator();
    // Observer of the first engine (0 to 3); the second always uses the 2015 10° observer.
    void setObserver(int observer) { engine.setCIE_XYZ_bar_type(observer); }
    // spectrum: Vantrel::NUM_GRID_POINTS values in W/nm. With csLux > 0 the circadian light
    // and stimulus at that illuminance are computed too.
    SpectrumResults calculate(const double* spectrum, double csLux = -1.0);

  private:
    void otherIndices(const double* spectrum, SpectrumResults& r);

    Vantrel engine;
    Vantrel engine10;
};

// The fields of the main window for these results, in the order of the command-line columns:
// "Lumens", "Vis watt", "LER", "CCT", "Mired", "x", "y", "u'", "v'", "Duv", "Du'v'", "dom WL",
// "Purity (%)", "X", "Y", "Z", "Lumens (S)", "S/P ratio", "CCT (F,10)", "x (F,10)", "y (F,10)",
// "u' (F,10)", "v' (F,10)", "Duv (F,10)", "Du'v' (F,10)", "Lumens (F,10)", "CRI (Ra)",
// "R1" ... "R15", "CQS (Qa)", "Q1" ... "Q15", "cent WL", "FWHM", "Rf", "Rg", "Rf,skin",
// "Rfh,1" ... "Rfh,16", "Rhs,h1" ... "Rhs,h16", "Rcs,h1" ... "Rcs,h16", "TLCI Qa", "TLCI d",
// "Gamut CRI", "Gamut CQS", "Gamut D65", "GAI E", "FCI", "COI", "Class A", "FSI", "FSCI", "WBMR",
// "EML @ 100 lx", "W (G/R)", "D (G/R)", "SSI", the eight gamut areas, and "CLA", "CS" when the
// results hold the circadian figures.
// numDecimals is the setting for x, y, u', v' and Duv (4 or 6).
std::vector<ResultField> mainResultFields(const SpectrumResults& r, int numDecimals = 4);

#endif  // LUMIVAR_CORE_RESULTFIELDS_H
