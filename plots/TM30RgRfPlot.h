// The Rg versus Rf plot of IES TM-30: Rf 50 to 100 across, Rg 60 to 140 up, drawn to scale,
// with the two zones of practical and Planckian sources and one symbol per point.
#ifndef LUMIVAR_PLOTS_TM30RGRFPLOT_H
#define LUMIVAR_PLOTS_TM30RGRFPLOT_H

#include <string>
#include <vector>

#include "Canvas.h"

class TM30RgRfPlot {
  public:
    static constexpr ArgbWord zone1Color = 0xFFDCDCDCu;
    static constexpr ArgbWord zone2Color = 0xFFB4B4B4u;
    // The 20 symbol colours; symbol number = colour index x 10 + shape index.
    static ArgbWord getPlotSymbolColor(int symbol);
    static int getPlotSymbol(int symbol) { return (symbol < 0 ? 0 : symbol) % 10; }

    // metricName: "TM-30-18" and the like, written between "IES" and the axis letter.
    void plotPoints(const std::vector<double>& rf, const std::vector<double>& rg,
                    const std::vector<std::string>& pointLabels, bool sameSymbols,
                    const std::vector<int>& symbols, bool whiteBackground, bool writeZoneText,
                    const std::string& metricName);
    void setFontSize(double pixels) { fontSize = pixels; }
    void setScaleFactor(double factor) { scaleFactor = factor; }
    void setSymbolSize(double size) { symbolSize = size < 4.0 ? 4.0 : size; }
    static int getHeightForWidth(int w) { return w * 80 / 50; }
    static int getWidthForHeight(int h) { return h * 50 / 80; }
    // Draws into the rectangle (x, y, w, h) of the canvas.
    void drawPlot(Canvas& canvas, double x, double y, double w, double h);

    double x_to_screen(double rf) const { return leftEdge + (rf - 50) * plotWidth / 50; }
    double y_to_screen(double rg) const { return bottomEdge - (rg - 60) * plotHeight / 80; }

  private:
    void drawZones(Canvas& canvas);
    void drawAxes(Canvas& canvas, double th);
    void drawSymbol(Canvas& canvas, double cx, double cy, int symbol);

    std::vector<double> rf, rg;
    std::vector<std::string> labels;
    std::vector<int> symbols;
    bool sameSymbols = false, whiteBackground = true, writeZoneText = true;
    std::string metric = "TM-30-18";
    double fontSize = 12.0, scaleFactor = 1.0, symbolSize = 10.0;
    double leftEdge = 0, bottomEdge = 0, plotWidth = 0, plotHeight = 0;
};

#endif  // LUMIVAR_PLOTS_TM30RGRFPLOT_H
