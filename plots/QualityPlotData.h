// Everything the quality charts and reports draw for one spectrum, gathered once from the
// engines: the result fields, the CRI and CQS samples in CIELAB with their screen colours, the
// TM-30 samples in CAM02-UCS with their bins, and the TLCI-2012 camera colours.
#ifndef LUMIVAR_PLOTS_QUALITYPLOTDATA_H
#define LUMIVAR_PLOTS_QUALITYPLOTDATA_H

#include <array>
#include <string>
#include <vector>

#include "ResultFields.h"
#include "Vantrel.h"

struct QualityPlotData {
    std::string name;              // the lamp's name, written on titles
    SpectrumResults results;       // the main window's results
    std::vector<double> spectrum;  // W/nm on the 2 nm grid from 360 nm

    // CIELAB of Ra (column 0, unused) and R1 to R15, [0] test [1] reference; likewise Q.
    double labR[3][2][Vantrel::NUM_SAMPLES] = {};
    double labQ[3][2][Vantrel::NUM_SAMPLES] = {};
    // Screen colours of the samples under the test light, [k][channel] for k = 1 to 15.
    int rgbR[Vantrel::NUM_SAMPLES][3] = {};
    int rgbQ[Vantrel::NUM_SAMPLES][3] = {};
    // The same under the reference illuminant of the CRI (Planck or daylight at the CCT).
    int rgbRref[Vantrel::NUM_SAMPLES][3] = {};
    int rgbQref[Vantrel::NUM_SAMPLES][3] = {};

    // TM-30 (empty when refused: results.tm30Error).
    std::vector<double> tm30Reference;         // the reference spectrum on the grid
    std::vector<std::array<double, 6>> jab;    // J', a', b' test then reference, per sample
    std::vector<double> rfi;                   // Rf,i per sample
    std::vector<std::array<int, 6>> patchRGB;  // screen colour test then reference, per sample
    double binTestA[Vantrel::TM30_NUM_BINS] = {}, binTestB[Vantrel::TM30_NUM_BINS] = {};
    double binRefA[Vantrel::TM30_NUM_BINS] = {}, binRefB[Vantrel::TM30_NUM_BINS] = {};
    // The normalised bin points of the colour vector graphic: reference on the unit circle.
    double iconTestX[Vantrel::TM30_NUM_BINS] = {}, iconTestY[Vantrel::TM30_NUM_BINS] = {};
    double iconRefX[Vantrel::TM30_NUM_BINS] = {}, iconRefY[Vantrel::TM30_NUM_BINS] = {};
    int numInBin[Vantrel::TM30_NUM_BINS] = {};
    double hueRGB[3][Vantrel::TM30_NUM_BINS] = {};  // the bin colours of the graphics

    // TLCI-2012: gamma-encoded camera values 0 to 1, [0] test [1] reference, [patch][channel].
    double tlciRGB[2][24][3] = {};
    bool tlciInGamut[24] = {};
    std::vector<double> tlciReference;  // the reference, 77 values (380 to 760 nm by 5 nm)
    // Advice per hue sector (12) for lightness, chroma and hue: the correction the rendering
    // needs, Vantrel::getUnknown_TLCI_2012() when unknown.
    int tlciSectors[12][3] = {};

    bool tm30Valid() const { return results.hasChromaticity && !results.tm30Error && !jab.empty(); }
};

// Computes the spectrum (on the grid) with the main window's engines and fills *data. False
// when the spectrum has no chromaticity (data->results says which).
bool gatherQualityPlotData(const double* spectrum, const std::string& name, QualityPlotData* data);

#endif  // LUMIVAR_PLOTS_QUALITYPLOTDATA_H
