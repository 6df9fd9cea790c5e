// A close-up of chromaticity points (x, y or u', v') around a target: the Planckian locus with
// its 100 K lines and the MacAdam ellipses about the target, for the binning results.
#ifndef LUMIVAR_PLOTS_CIEPOINTPLOT_H
#define LUMIVAR_PLOTS_CIEPOINTPLOT_H

#include <string>
#include <vector>

#include "Canvas.h"

struct CIEPointPlotOptions {
    bool upvp = false;                       // CIE 1976 u', v' in place of CIE 1931 x, y
    bool whiteBackground = true;             // else black
    bool redEllipse = true;                  // else in the contrast colour
    bool showCCTLines = true;                // the 100 K lines across the locus
    std::vector<int> ellipseSteps{1, 2, 3};  // MacAdam steps of the ellipses about the target
    double fontSize = 12.0;                  // pixels
    double scale = 1.0;                      // line widths grow with it
};

class CIEPointPlot {
  public:
    // Points and target in CIE 1931 x, y (converted for a u'v' plot).
    void setData(const std::vector<double>& x, const std::vector<double>& y, double targetX,
                 double targetY, const CIEPointPlotOptions& plotOptions);
    void makeImage(Canvas& canvas, double x, double y, double w, double h);
    // Screen position of a plotted coordinate pair (x, y, or u', v' in that mode).
    double xToScreen(double v) const { return plotLeft + (v - minX) * pixelsPerUnit; }
    double yToScreen(double v) const { return plotTop + (maxY - v) * pixelsPerUnit; }
    // The coordinates a CIE 1931 x, y has on this plot.
    void plotted(double x, double y, double* px, double* py) const;
    // The ellipse caption ("1, 2, 3,  MacAdam elipses").
    std::string ellipseCaption() const;

  private:
    void drawLocus(Canvas& canvas, ArgbWord color);

    std::vector<double> xs, ys;
    double targetX = 0.3127, targetY = 0.329;
    CIEPointPlotOptions options;
    std::vector<std::vector<CanvasPoint>> ellipses;  // plotted coordinates
    double minX = 0, maxX = 1, minY = 0, maxY = 1;
    double plotLeft = 0, plotTop = 0, pixelsPerUnit = 1;
};

#endif  // LUMIVAR_PLOTS_CIEPOINTPLOT_H
