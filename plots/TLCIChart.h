// The TLCI-2012 chart: the 24 ColorChecker patches as a camera sees them, each the reference
// colour with the test colour inset, and the index of the light under it.
#ifndef LUMIVAR_PLOTS_TLCICHART_H
#define LUMIVAR_PLOTS_TLCICHART_H

#include <string>

#include "Canvas.h"
#include "QualityPlotData.h"

struct TLCIChartOptions {
    bool videoCoding = false;  // ITU-R BT.601/709 levels (16 to 235) in place of full range
    bool showTitle = true;     // the lamp, its CCT and its TLCI under the chart
    bool showNames = false;    // each patch's name under it
    bool showSpectra = false;  // a panel of the test and reference spectra beside the chart
    bool showAdvice = false;   // the table of corrections by hue sector beside the chart
    double fontSize = 14.0;    // pixels
};

// Where the chart put patch p: the outer (reference) rectangle; the test colour fills the
// centred inner rectangle of half its width and height.
struct TLCIPatchPlace {
    double x = 0, y = 0, w = 0, h = 0;
};

// The patch names, ColorChecker order ("Dark Skin (CC1)" ...).
const char* tlciPatchName(int patch);
// An 8-bit channel of a camera value 0 to 1 in a coding; out-of-range values wrap, as a
// display of such a signal does. *outOfGamut is set when that happened.
int tlciChannel(double value, bool videoCoding, bool* outOfGamut);
// One cell of the advice table: the sign ("+", "-", "0" for none) and the amount "%.1lf"
// ("0.0" for none), or "N/A" for an unknown sector.
std::string tlciAdviceText(int value);
// The index as written on the chart: "TLCI-2012 : %d " or "TLCI-2012 : N/A ".
std::string tlciValueText(double qa);
// Draws the chart over the whole canvas; places (24, when not null) gets the patch rectangles.
void drawTLCIChart(Canvas& canvas, const QualityPlotData& data, const TLCIChartOptions& options,
                   TLCIPatchPlace* places = nullptr);

#endif  // LUMIVAR_PLOTS_TLCICHART_H
