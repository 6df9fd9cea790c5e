// MixEvaluator: the metrics of many mixes of the same k channels, for batch work (optimizers,
// combination studies, binning).
//
// A mix is linear in its channels: the tristimulus values of the light and of every test sample
// under it (R1-R15, VS1-VS15, the 99 TM-30 CES) are sums of k vectors worked out once when the
// evaluator is built. Per mix only the CCT search, the reference illuminant and the colour
// appearance steps remain; they run through the evaluator's own engine, so the numbers are those
// of building the mixed spectrum and calling Vantrel, to rounding.
//
// One evaluator per thread: it owns its engine and writes it on every call.
#ifndef LUMIVAR_ENGINE_MIXEVALUATOR_H
#define LUMIVAR_ENGINE_MIXEVALUATOR_H

#include <vector>

#include "Vantrel.h"

// Headline values of a mix; the cheap screen of a batch run.
struct MixScreen {
    bool valid = false;  // false: bad amounts or no light; every value below is NO_VALUE
    double x = Vantrel::NO_VALUE, y = Vantrel::NO_VALUE;
    double up = Vantrel::NO_VALUE, vp = Vantrel::NO_VALUE;
    double cct = Vantrel::NO_VALUE;
    // Fast screen: getDuvFromCCTxy_100Kto40kK (-1 outside 1000 to 20000 K). Exact screen and
    // evaluate: getDeltaUVPlanck, the signed distance to the Planck point at the CCT.
    double duv = Vantrel::NO_VALUE;
    double lumens = Vantrel::NO_VALUE, wattsVis = Vantrel::NO_VALUE;
};

// What evaluate() works out besides the screen values.
struct MixRequest {
    bool fastCCT = false;  // polynomial locus instead of the exact Planck search
    bool cri = true;       // Ra and R1-R15, gamut areas and ratios (color() with doGamut)
    bool cqs = true;       // Qa and Q1-Q15
    bool tm30 = true;      // Rf, Rg, Rf,skin and the hue bins (99 CES)
    bool tlci = false;     // TLCI-2012 Qa (through the mixed spectrum)
};

struct MixMetrics {
    MixScreen screen;
    double duvUpVp = Vantrel::NO_VALUE;   // getDeltaUpVpPlanck
    double R[Vantrel::NUM_SAMPLES] = {};  // Ra, R1-R15; R_VALUE_NAN for a NaN value
    double Q[Vantrel::NUM_SAMPLES] = {};  // Qa, Q1-Q15
    // u'v' [0] and uv [1] gamut ratios of R1-R8 and of the VS set, Gamut D65 and GAI.
    double gamutCRI[2] = {}, gamutCQS[2] = {}, gamutD65[2] = {}, gai[2] = {};
    bool tm30Error = true;  // refused (|Duv| > 0.1) or not asked for: Rf, Rg at TM30_REFUSED
    double Rf = Vantrel::TM30_REFUSED, Rg = Vantrel::TM30_REFUSED;
    double RfSkin = Vantrel::TM30_REFUSED;
    double RfByHue[Vantrel::TM30_NUM_BINS] = {};         // as getTM30RfByHue
    double hueShift[Vantrel::TM30_NUM_BINS] = {};        // as getTM30HueShifts
    double chromaShiftPct[Vantrel::TM30_NUM_BINS] = {};  // as getTM30ChromaShiftsAsPercent
    double tlciQa = Vantrel::TLCI_FAILED;
};

class MixEvaluator {
  public:
    // channels: k spectra on the engine grid (Vantrel::NUM_GRID_POINTS values, W/nm); filter:
    // null or a transmission on the same grid that multiplies every mix. observer as
    // Vantrel::setCIE_XYZ_bar_type.
    MixEvaluator(const std::vector<const double*>& channels, const double* filter = nullptr,
                 int observer = 0);

    int numChannels() const { return k; }
    // True when the amounts can make a mix: k finite values, none negative, not all zero.
    bool amountsValid(const double* amounts) const;
    // The mixed spectrum Σ amount·channel (·filter), what the evaluator stands for.
    void mixedSpectrum(const double* amounts, double* spectrum) const;

    // x, y, u', v', CCT, Duv, lumens and visible watts of the mix.
    MixScreen screen(const double* amounts, bool fastCCT);
    // The screen values and the requested metrics, as the engine gives them for the mixed
    // spectrum after calcAll(fast, false), getQa_TLCI_2012 and calculate_TM30(Duv, CCT).
    void evaluate(const double* amounts, const MixRequest& request, MixMetrics* out);

  private:
    // Per channel, in the order of the sums below.
    struct Channel {
        double XYZ[3];                           // the light, selected observer
        double watts;                            // visible watts, the engine's rule
        double tcsXYZ[Vantrel::NUM_SAMPLES][3];  // R1-R15 (column 0 unused)
        double vsXYZ[Vantrel::NUM_SAMPLES][3];   // VS1-VS15 (column 0 unused)
        double XYZ10[3];                         // the light, CIE 1964 10°
        double cesXYZ10[Vantrel::NUM_CES][3];    // (S·cmf)·R sums of the CES, before 100/Y10
    };
    void precompute(const double* spectrum, Channel* c) const;
    // The screen values once the amounts are known to be good; false for a mix without light.
    bool headline(const double* amounts, bool fastCCT, MixScreen* s);
    // Row 0 of the CRI and CQS samples under the mix at Y = 100, as color() integrates it.
    void testRows(const double* amounts, double Y, bool doQ);
    void tm30(const double* amounts, MixMetrics* out);
    void setUndefined(MixMetrics* out) const;

    int k;
    std::vector<std::vector<double>> spectra;  // the channels times the filter
    std::vector<Channel> channels;
    Vantrel engine;
};

#endif  // LUMIVAR_ENGINE_MIXEVALUATOR_H
