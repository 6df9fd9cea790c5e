// Colour-plane plots of the samples: CIELAB a*, b* of the CRI ("R"), CQS ("Q") and TM-30 ("CES")
// colours, the CAM02-UCS a', b' of the TM-30 colours ("C"), and the TM-30 colour vector graphic
// ("G"): each test colour against its reference, on a background of the plane's own colours.
#ifndef LUMIVAR_PLOTS_CIELAB_TYPE_PLOT_IMAGE_H
#define LUMIVAR_PLOTS_CIELAB_TYPE_PLOT_IMAGE_H

#include <string>
#include <vector>

#include "Canvas.h"

struct CIELabPlotOptions {
    int lStar = 50;                  // lightness of the background colours (multiples of 5)
    bool colorFill = true;           // the plane's colours behind the points
    bool gridLines = true;           // lines at every tick
    bool testOnly = false;           // only the first (test) set
    bool connectingLines = true;     // joins the points of a set in order
    bool connectR1toR8Only = false;  // mode "R": joins R1 to R8 only
    bool outlineInWhite = false;     // a larger shape in the contrast colour behind each point
    bool vectors = false;            // arrows from reference to test in place of the points
    bool showPercentCircles = true;  // graphic: the 80 %, 90 %, 110 % and 120 % circles
    bool showHueBins = true;         // graphic: the 16 bin sectors and their numbers
    bool blackBackground = false;
    double symbolSize = 8.0;  // pixels
    double fontSize = 12.0;   // pixels
    double scale = 1.0;       // line widths grow with it
};

// The values written in the legend of the colour vector graphic.
struct TM30GraphicValues {
    std::string metricName = "TM-30-18";
    double Rf = 0, Rg = 0, cct = 0, duv = 0;
};

class CIELab_Type_Plot_Image {
  public:
    void setOptions(const std::string& plotMode, const CIELabPlotOptions& plotOptions);
    // One point per sample: a, b of the test and reference colours, with their colours
    // (0xAARRGGBB) for the points.
    void passNumericData(const std::vector<double>& testA, const std::vector<double>& testB,
                         const std::vector<double>& refA, const std::vector<double>& refB,
                         const std::vector<ArgbWord>& testColors,
                         const std::vector<ArgbWord>& refColors);
    // For the graphic: the 16 bin points, reference on the unit circle, test shifted from it,
    // and the 16 bin colours.
    void passGraphicData(const double* iconTestX, const double* iconTestY, const double* iconRefX,
                         const double* iconRefY, const std::vector<ArgbWord>& binColors,
                         const TM30GraphicValues& values);
    void getMinMaxValues(double* minA, double* maxA, double* minB, double* maxB) const;
    // Draws into the rectangle (x, y, w, h); the plot itself is square.
    void makeImage(Canvas& canvas, double x, double y, double w, double h);
    // Where a value pair lands after the last makeImage.
    double aToScreen(double a) const { return plotLeft + (a - minA) * pixelsPerUnit; }
    double bToScreen(double b) const { return plotTop + (maxB - b) * pixelsPerUnit; }

    // The line colour of the grid over a background of lightness value: grey 0xFF646464 above
    // 70, the plot's grid colour otherwise.
    ArgbWord getGridLineColor(int value) const;

  private:
    void drawBackground(Canvas& canvas);
    void drawAxes(Canvas& canvas, double th);
    void drawPoints(Canvas& canvas);
    void drawGraphic(Canvas& canvas, double th);
    void drawArrow(Canvas& canvas, double x0, double y0, double x1, double y1, ArgbWord color);
    std::string axisName(bool vertical) const;

    std::string mode = "R";
    CIELabPlotOptions options;
    std::vector<double> testA, testB, refA, refB;
    std::vector<ArgbWord> testColors, refColors, binColors;
    double iconTest[2][16] = {}, iconRef[2][16] = {};
    TM30GraphicValues graphicValues;
    double minA = -60, maxA = 60, minB = -60, maxB = 60;
    double plotLeft = 0, plotTop = 0, plotSide = 1, pixelsPerUnit = 1;
    ArgbWord background = ARGB_WHITE, contrast = ARGB_BLACK, gridColor = 0xFFC8C8C8u;
};

#endif  // LUMIVAR_PLOTS_CIELAB_TYPE_PLOT_IMAGE_H
