#include "TM30RgRfPlot.h"

#include <algorithm>
#include <cmath>

namespace {

// Colours of the point symbols, 0xAARRGGBB, in index order.
constexpr ArgbWord SYMBOL_COLORS[] = {
    0xFF000000, 0xFF0000FF, 0xFFFF0000, 0xFFFF9600, 0xFF008C85, 0xFF9A00B0, 0xFF919E00,
    0xFF84004B, 0xFF43D8FD, 0xFF00CC10, 0xFFFF00FF, 0xFF969696, 0xFF00FF00, 0xFFD2C4AA,
    0xFF6962AA, 0xFF9BFF64, 0xFFC36400, 0xFFFFFF00, 0xFFE1E100, 0xFFDAB7F5,
};
constexpr int NUM_SYMBOL_COLORS = sizeof(SYMBOL_COLORS) / sizeof(SYMBOL_COLORS[0]);

}  // namespace

ArgbWord TM30RgRfPlot::getPlotSymbolColor(int symbol) {
    const int index = (symbol < 0 ? 0 : symbol) / 10;
    return SYMBOL_COLORS[index < NUM_SYMBOL_COLORS ? index : 0];
}

void TM30RgRfPlot::plotPoints(const std::vector<double>& rfValues,
                              const std::vector<double>& rgValues,
                              const std::vector<std::string>& pointLabels, bool same,
                              const std::vector<int>& pointSymbols, bool white, bool zoneText,
                              const std::string& metricName) {
    const std::size_t n = std::min(rfValues.size(), rgValues.size());
    rf.assign(rfValues.begin(), rfValues.begin() + n);
    rg.assign(rgValues.begin(), rgValues.begin() + n);
    labels = pointLabels;
    labels.resize(n);
    symbols = pointSymbols;
    symbols.resize(n, 0);
    sameSymbols = same;
    whiteBackground = white;
    writeZoneText = zoneText;
    metric = metricName;
}

void TM30RgRfPlot::drawPlot(Canvas& canvas, double x, double y, double w, double h) {
    const ArgbWord background = whiteBackground ? ARGB_WHITE : ARGB_BLACK;
    canvas.fillRectangle(x, y, w, h, background);
    const TextExtent e = canvas.measureText("0", fontSize, false);
    const double th = e.ascent + e.descent;
    const double topPad = 5 * 4 * scaleFactor;
    const double rightPad = topPad;
    const double bottomPad = 3 * th + 10 * scaleFactor;
    const double leftPad = canvas.measureText("0140", fontSize, false).width + 2 * th;
    double pw = w - leftPad - rightPad, ph = h - topPad - bottomPad;
    if (w < 10 || h < 10 || pw < 10 || ph < 10) return;
    // Keep Rf and Rg to the same scale: the plot is placed against the left and bottom pads.
    if (getHeightForWidth(static_cast<int>(pw)) > ph) {
        pw = getWidthForHeight(static_cast<int>(ph));
    } else {
        ph = getHeightForWidth(static_cast<int>(pw));
    }
    plotWidth = pw;
    plotHeight = ph;
    leftEdge = x + leftPad;
    bottomEdge = y + h - bottomPad;
    canvas.fillRectangle(leftEdge, bottomEdge - ph, pw, ph, ARGB_WHITE);
    drawZones(canvas);
    drawAxes(canvas, th);
    const double margin = symbolSize * scaleFactor;  // a point on an axis is drawn whole
    canvas.clip(leftEdge - margin, bottomEdge - ph - margin, pw + 2 * margin, ph + 2 * margin);
    for (std::size_t i = 0; i < rf.size(); ++i) {
        const int symbol = sameSymbols ? 0 : symbols[i];
        drawSymbol(canvas, x_to_screen(rf[i]), y_to_screen(rg[i]), symbol);
        if (!labels[i].empty()) {
            TextStyle style;
            style.size = fontSize;
            canvas.drawText(x_to_screen(rf[i]) + symbolSize * scaleFactor,
                            y_to_screen(rg[i]) + e.ascent / 2, labels[i], style, ARGB_BLACK);
        }
    }
    canvas.unclip();
}

void TM30RgRfPlot::drawZones(Canvas& canvas) {
    auto pt = [this](double f, double g) { return CanvasPoint{x_to_screen(f), y_to_screen(g)}; };
    const double starts[2] = {50, 60};
    const ArgbWord zoneColors[2] = {zone1Color, zone2Color};
    for (int z = 0; z < 2; ++z) {
        const double f0 = starts[z];
        canvas.fillPolygon({pt(f0, 140), pt(100, 140), pt(100, 100)}, zoneColors[z]);
        canvas.fillPolygon({pt(f0, 60), pt(100, 60), pt(100, 100)}, zoneColors[z]);
    }
    canvas.drawLine(x_to_screen(50), y_to_screen(100), x_to_screen(100), y_to_screen(100),
                    ARGB_BLACK, scaleFactor);
    if (!writeZoneText) return;
    const double small = fontSize * 0.8;
    const TextExtent e = canvas.measureText("0", small, false);
    const double line = e.ascent + e.descent;
    TextStyle style;
    style.size = small;
    const char* notes[2][3] = {{"(1) Approx. limits for ", "practical light", "sources."},
                               {"(2) Approx. limits for ", "sources on the", "Planckian locus."}};
    const double indent = canvas.measureText("(1) ", small, false).width;
    double yy = y_to_screen(140) + line + 2 * scaleFactor;
    for (int z = 0; z < 2; ++z) {
        for (int k = 0; k < 3; ++k) {
            canvas.drawText(x_to_screen(51) + (k == 0 ? 0 : indent), yy, notes[z][k], style,
                            ARGB_BLACK);
            yy += line;
        }
    }
    // The markers in the zones they name.
    canvas.drawText(x_to_screen(53), y_to_screen(70), "(1)", style, ARGB_BLACK);
    canvas.drawText(x_to_screen(63), y_to_screen(70), "(2)", style, ARGB_BLACK);
}

void TM30RgRfPlot::drawAxes(Canvas& canvas, double th) {
    const ArgbWord color = whiteBackground ? ARGB_BLACK : ARGB_WHITE;
    const double s = scaleFactor;
    const double left = x_to_screen(50), right = x_to_screen(100);
    const double top = y_to_screen(140), bottom = y_to_screen(60);
    canvas.drawRectangle(left, top, right - left, bottom - top, color, s);
    TextStyle style;
    style.size = fontSize;
    style.align = TextAlign::CENTER;
    const TextExtent e = canvas.measureText("0", fontSize, false);
    for (int rfTick = 50; rfTick <= 100; rfTick += 10) {
        const double xx = x_to_screen(rfTick);
        canvas.drawLine(xx, bottom, xx, bottom + 5 * s, color, s);
        canvas.drawText(xx, bottom + 5 * s + e.ascent, std::to_string(rfTick), style, color);
    }
    TextStyle right_ = style;
    right_.align = TextAlign::RIGHT;
    for (int rgTick = 60; rgTick <= 140; rgTick += 10) {
        const double yy = y_to_screen(rgTick);
        canvas.drawLine(left - 5 * s, yy, left, yy, color, s);
        canvas.drawText(left - 7 * s, yy + e.ascent / 2 - e.descent / 2, std::to_string(rgTick),
                        right_, color);
    }
    drawTextWithSubscript(canvas, (left + right) / 2, bottom + 5 * s + e.ascent + th * 1.4,
                          "IES " + metric + " R", "f", style, color);
    TextStyle up = style;
    up.rotated = true;
    drawTextWithSubscript(canvas, left - canvas.measureText("0140", fontSize, false).width - th / 4,
                          (top + bottom) / 2, "IES " + metric + " R", "g", up, color);
}

void TM30RgRfPlot::drawSymbol(Canvas& canvas, double cx, double cy, int symbol) {
    const ArgbWord color = getPlotSymbolColor(symbol);
    const double r = symbolSize * scaleFactor / 2;
    auto poly = [&](std::initializer_list<CanvasPoint> pts) { canvas.fillPolygon(pts, color); };
    switch (getPlotSymbol(symbol)) {
        case 0:
            canvas.fillCircle(cx, cy, r, color);
            break;
        case 1:
            canvas.fillRectangle(cx - r, cy - r, 2 * r, 2 * r, color);
            break;
        case 2:
            poly({{cx, cy - r}, {cx + r, cy}, {cx, cy + r}, {cx - r, cy}});
            break;
        case 3:
            poly({{cx, cy - r}, {cx + r, cy + r}, {cx - r, cy + r}});
            break;
        case 4:
            poly({{cx - r, cy - r}, {cx + r, cy - r}, {cx, cy + r}});
            break;
        case 5:
            poly({{cx - r, cy}, {cx + r, cy - r}, {cx + r, cy + r}});
            break;
        case 6:
            poly({{cx + r, cy}, {cx - r, cy - r}, {cx - r, cy + r}});
            break;
        case 7:
            canvas.fillRectangle(cx - r / 2, cy - r, r, 2 * r, color);
            break;
        case 8:
            canvas.fillRectangle(cx - r, cy - r / 2, 2 * r, r, color);
            break;
        default:
            canvas.fillRectangle(cx - r / 3, cy - r, 2 * r / 3, 2 * r, color);
            canvas.fillRectangle(cx - r, cy - r / 3, 2 * r, 2 * r / 3, color);
    }
}
