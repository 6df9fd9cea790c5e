// One entry point for every quality chart of a spectrum, shared by the windows and by
// "lumivar-cli report": which chart, at what size, drawn on which canvas.
#ifndef LUMIVAR_PLOTS_QUALITYCHARTS_H
#define LUMIVAR_PLOTS_QUALITYCHARTS_H

#include <string>

#include "Canvas.h"
#include "QualityPlotData.h"
#include "TM30ReportPage.h"

enum class QualityChart {
    TM30_REPORT,   // the one-page report
    RVALUES,       // CRI Ra and R1 to R15 bars
    QVALUES,       // CQS Qa and Q1 to Q15 bars
    CIELAB_R,      // a*, b* of the CRI samples, test against reference
    CIELAB_Q,      // a*, b* of the CQS samples
    CAM02_UCS,     // a', b' of the 99 TM-30 samples
    RF_HUE,        // TM-30 local fidelity of the 16 hue bins
    CHROMA_SHIFT,  // TM-30 local chroma shift
    HUE_SHIFT,     // TM-30 local hue shift
    RF_SAMPLES,    // TM-30 fidelity of the 99 samples
    RG_RF,         // TM-30 Rg against Rf
    GRAPHIC,       // TM-30 colour vector graphic
    TLCI,          // TLCI-2012 ColorChecker chart
    CRI_PATCHES,   // the CRI samples under the reference and the light
    CQS_PATCHES,   // the CQS samples
    TM30_PATCHES,  // the 99 TM-30 samples
};

// Names on the command line ("tm30", "rvalues", ...); false for an unknown name.
bool qualityChartOfName(const std::string& name, QualityChart* chart);
// The names, for the help text ("tm30|rvalues|...").
std::string qualityChartNames();
// The default file name part ("report_full", "R-values", ...).
std::string qualityChartFileTag(QualityChart chart, const TM30ReportOptions& report);

struct QualityChartSettings {
    int width = 800;         // pixels, charts other than the report
    int height = 600;        // pixels
    double fontSize = 14.0;  // pixels
    double scale = 1.0;      // line widths and fonts grow by it (images saved at 2x, 4x...)
    TM30ReportOptions report;
    TM30ReportFields fields;
    bool tlciSpectra = true;  // the TLCI chart's spectra panel
    bool tlciAdvice = true;   // the TLCI chart's advice table
    bool tlciNames = false;   // the patch names on the TLCI chart
};

// The canvas size a chart needs: the page for the report, the settings' size otherwise.
void qualityChartSize(QualityChart chart, const QualityChartSettings& settings, int* width,
                      int* height);
// Whether the data hold what the chart needs: every chart needs a chromaticity, the TM-30
// charts but the report also a defined TM-30. The report draws "N/A" in their place.
bool qualityChartHasData(QualityChart chart, const QualityPlotData& data);
// Draws the chart on a canvas of qualityChartSize. Returns the report's outcome (empty for
// the other charts).
TM30ReportOutcome drawQualityChart(Canvas& canvas, QualityChart chart, const QualityPlotData& data,
                                   const QualityChartSettings& settings);

#endif  // LUMIVAR_PLOTS_QUALITYCHARTS_H
