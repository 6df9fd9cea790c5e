// Bar charts of per-colour values: CRI Ra and R1 to R15 ('R'), CQS Qa and Q1 to Q15 ('Q'), the
// TM-30 local fidelity ('F'), chroma shift ('C') and hue shift ('H') of the 16 hue bins, and the
// fidelity of each of the 99 colour samples ('S'). The layout is computed here and drawn on any
// Canvas.
#ifndef LUMIVAR_PLOTS_R_PLOT_IMAGE_H
#define LUMIVAR_PLOTS_R_PLOT_IMAGE_H

#include <string>
#include <vector>

#include "Canvas.h"

struct RPlotOptions {
    bool gridLines = false;            // a frame per bar slot and ticks across the plot
    bool showValues = false;           // each bar's value written at its end
    bool blackAndWhite = false;        // bars without their colours
    bool blackBackground = false;      // white on black
    bool standardShiftLimits = false;  // 'C' -40 to 40 %, 'H' -0.5 to 0.5
    bool showNumInBins = false;        // the sample count of each hue bin over the plot
    bool showXTitle = true;            // the title under the bars of 'F', 'C', 'H', 'S'
    int hueBinLabels = 1;              // 0 none, 1 at the zero line, 2 at the plot bottom
    double fontSize = 12.0;            // pixels
    double scale = 1.0;                // line widths and ticks grow with it
};

class R_Plot_Image {
  public:
    // Hue shifts are written with this many decimals.
    static int getHueShiftsOutputDecimals() { return 2; }
    static double getTM30ChromaShiftStandardMinMax() { return 40.0; }
    static double getTM30ChromaShiftStandardDy() { return 10.0; }
    static double getTM30HueShiftStandardMinMax() { return 0.5; }
    static double getTM30HueShiftStandardDy() { return 0.1; }

    // values and colours (0xAARRGGBB) per bar; labels under the bars. yTitle is used by 'R' and
    // 'Q' only. numInBins (16 values) only with options.showNumInBins.
    void setData(char mode, const std::vector<double>& values, const std::vector<ArgbWord>& colors,
                 const std::vector<std::string>& labels, const std::string& yTitle,
                 const RPlotOptions& options, const std::vector<int>& numInBins = {});
    // The value scale: minimum, maximum and tick step.
    void getMinMaxRvalue(double* minValue, double* maxValue, double* step) const;
    // A value as written at its bar.
    std::string getValueLabel(double value) const;
    // Draws the chart into the rectangle (x, y, w, h) of the canvas.
    void makeImage(Canvas& canvas, double x, double y, double w, double h);

    // Layout of the last makeImage, for the windows and the tests.
    double barCenterX(int bar) const { return plotLeft + (bar + 0.5) * slot; }
    double valueToY(double value) const { return zeroY - value * yScale; }
    double plotLeftX() const { return plotLeft; }
    double plotTopY() const { return plotTop; }
    double plotWidthPixels() const { return plotWidth; }
    double plotHeightPixels() const { return plotHeight; }

  private:
    double longestValueLabel(Canvas& canvas, double th) const;
    void widenForValueLabels(Canvas& canvas, double th, double* minV, double* maxV,
                             double step) const;
    void drawYAxis(Canvas& canvas, double minV, double maxV, double step, double h);
    void drawBars(Canvas& canvas, double h);
    void drawBarLabels(Canvas& canvas, double h, double minV);
    void drawTitles(Canvas& canvas, double x, double y, double h);
    void drawHatch(Canvas& canvas, double x, double y, double w, double h, ArgbWord over);

    char mode = 'R';
    std::vector<double> values;
    std::vector<ArgbWord> colors;
    std::vector<std::string> labels;
    std::string yTitle;
    std::vector<int> numInBins;
    RPlotOptions options;
    ArgbWord background = ARGB_WHITE, contrast = ARGB_BLACK;
    double plotLeft = 0, plotTop = 0, plotWidth = 0, plotHeight = 0, slot = 1;
    double zeroY = 0, yScale = 1;
};

#endif  // LUMIVAR_PLOTS_R_PLOT_IMAGE_H
