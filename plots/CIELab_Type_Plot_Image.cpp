#include "CIELab_Type_Plot_Image.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "Vantrel.h"

namespace {

constexpr double PI = 3.14159265358979323846;
// D65 white of the background colours (CIE 15, 2 degree observer).
constexpr double WHITE_X = 95.047, WHITE_Y = 100.0, WHITE_Z = 108.883;
// The reference circle of the graphic: 30 units of a', b'.
constexpr double GRAPHIC_RADIUS = 30.0;
// Arrow wings leave the tip at this angle to the vector (27 degrees).
constexpr double ARROW_WING_ANGLE = 0.47123889803846847;
// The bin sectors span 22.5 degrees each.
constexpr double BIN_ANGLE = 0.39269908169872375;
// The largest background image computed, in pixels a side; it is stretched beyond.
constexpr int MAX_BACKGROUND_SIDE = 500;

std::string formatNumber(const char* fmt, double v) {
    char text[64];
    std::snprintf(text, sizeof(text), fmt, v);
    return text;
}

}  // namespace

void CIELab_Type_Plot_Image::setOptions(const std::string& plotMode,
                                        const CIELabPlotOptions& plotOptions) {
    mode = plotMode;
    options = plotOptions;
    // The lightness slider holds multiples of 5.
    options.lStar = static_cast<int>(std::trunc((options.lStar + 2.5) / 5)) * 5;
    background = options.blackBackground ? ARGB_BLACK : ARGB_WHITE;
    contrast = options.blackBackground ? ARGB_WHITE : ARGB_BLACK;
}

void CIELab_Type_Plot_Image::passNumericData(const std::vector<double>& tA,
                                             const std::vector<double>& tB,
                                             const std::vector<double>& rA,
                                             const std::vector<double>& rB,
                                             const std::vector<ArgbWord>& tColors,
                                             const std::vector<ArgbWord>& rColors) {
    testA = tA;
    testB = tB;
    refA = rA;
    refB = rB;
    const std::size_t n = std::min({testA.size(), testB.size(), refA.size(), refB.size()});
    testA.resize(n);
    testB.resize(n);
    refA.resize(n);
    refB.resize(n);
    testColors = tColors;
    refColors = rColors;
    testColors.resize(n, 0xFFFF0000u);
    refColors.resize(n, 0xFF0000FFu);
    getMinMaxValues(&minA, &maxA, &minB, &maxB);
}

void CIELab_Type_Plot_Image::passGraphicData(const double* tX, const double* tY, const double* rX,
                                             const double* rY, const std::vector<ArgbWord>& colors,
                                             const TM30GraphicValues& values) {
    for (int k = 0; k < 16; ++k) {
        iconTest[0][k] = tX[k];
        iconTest[1][k] = tY[k];
        iconRef[0][k] = rX[k];
        iconRef[1][k] = rY[k];
    }
    binColors = colors;
    binColors.resize(16, 0xFF808080u);
    graphicValues = values;
    // Each limit rises to the next multiple of 20 over the shifted points, the same on both axes.
    double largest = GRAPHIC_RADIUS;
    for (int k = 0; k < 16; ++k) {
        largest = std::max(
            {largest, std::fabs(tX[k] * GRAPHIC_RADIUS), std::fabs(tY[k] * GRAPHIC_RADIUS)});
    }
    const double limit = std::trunc(1 + largest / 20) * 20;
    minA = minB = -limit;
    maxA = maxB = limit;
}

void CIELab_Type_Plot_Image::getMinMaxValues(double* loA, double* hiA, double* loB,
                                             double* hiB) const {
    if (testA.empty()) {
        *loA = *loB = -60;
        *hiA = *hiB = 60;
        return;
    }
    double a = 0, b = 0;
    for (std::size_t i = 0; i < testA.size(); ++i) {
        a = std::max({a, std::fabs(testA[i]), std::fabs(refA[i])});
        b = std::max({b, std::fabs(testB[i]), std::fabs(refB[i])});
    }
    // Symmetric about 0 with a little room for the symbols, at whole units.
    a = std::ceil(a * 1.1 + 1);
    b = std::ceil(b * 1.1 + 1);
    *loA = -a;
    *hiA = a;
    *loB = -b;
    *hiB = b;
}

ArgbWord CIELab_Type_Plot_Image::getGridLineColor(int value) const {
    if (!options.colorFill || value <= 70) return gridColor;
    // The grey level 200 + trunc((1 - (value - 70) / 30) x (100 - 200)) is held by its bounds
    // taken in exchanged order, which gives level 100 for every value from 71 to 100. That fixed
    // dark grey is deliberate: it shows on every light background.
    return 0xFF646464u;
}

std::string CIELab_Type_Plot_Image::axisName(bool vertical) const {
    if (mode == "C" || mode == "G") return vertical ? "b'" : "a'";
    return vertical ? "b*" : "a*";
}

void CIELab_Type_Plot_Image::makeImage(Canvas& canvas, double x, double y, double w, double h) {
    const TextExtent e = canvas.measureText("0", options.fontSize, false);
    const double th = e.ascent + e.descent;
    canvas.fillRectangle(x, y, w, h, background);
    const bool graphic = mode == "G";
    const double leftPad =
        graphic ? th / 2 : th * 1.5 + canvas.measureText("-100", options.fontSize, false).width;
    const double bottomPad = graphic ? th / 2 : th * 2.5;
    const double side = std::max(10.0, std::min(w - leftPad - th / 2, h - bottomPad - th / 2));
    plotSide = side;
    plotLeft = x + leftPad + (w - leftPad - th / 2 - side) / 2;
    plotTop = y + th / 2;
    // One scale on both axes, symmetric about the neutral point.
    const double half = std::max({maxA, -minA, maxB, -minB});
    minA = minB = -half;
    maxA = maxB = half;
    const double span = 2 * half;
    pixelsPerUnit = side / span;
    canvas.clip(plotLeft, plotTop, side, side);
    if (options.colorFill) {
        drawBackground(canvas);
    } else {
        canvas.fillRectangle(plotLeft, plotTop, side, side, background);
    }
    if (graphic) {
        drawGraphic(canvas, th);
    } else {
        drawAxes(canvas, th);
        drawPoints(canvas);
    }
    canvas.unclip();
    canvas.drawRectangle(plotLeft, plotTop, side, side, contrast, options.scale);
    if (!graphic) {
        // Tick labels and axis titles stand outside the clip.
        const double step = span > 150 ? 50 : span > 60 ? 20 : span > 30 ? 10 : 5;
        TextStyle style;
        style.size = options.fontSize;
        style.align = TextAlign::CENTER;
        TextStyle right = style;
        right.align = TextAlign::RIGHT;
        for (double v = std::ceil(minA / step) * step; v <= maxA + 1e-9; v += step) {
            canvas.drawText(aToScreen(v), plotTop + side + e.ascent + 3 * options.scale,
                            formatNumber("%.0f", v == 0 ? 0 : v), style, contrast);
        }
        for (double v = std::ceil(minB / step) * step; v <= maxB + 1e-9; v += step) {
            canvas.drawText(plotLeft - 4 * options.scale,
                            bToScreen(v) + e.ascent / 2 - e.descent / 2,
                            formatNumber("%.0f", v == 0 ? 0 : v), right, contrast);
        }
        canvas.drawText(plotLeft + side / 2, plotTop + side + e.ascent + th * 1.2, axisName(false),
                        style, contrast);
        TextStyle up = style;
        up.rotated = true;
        canvas.drawText(plotLeft - leftPad + e.ascent, plotTop + side / 2, axisName(true), up,
                        contrast);
    }
}

void CIELab_Type_Plot_Image::drawBackground(Canvas& canvas) {
    const int n = std::max(1, std::min(MAX_BACKGROUND_SIDE, static_cast<int>(plotSide)));
    std::vector<ArgbWord> pixels(static_cast<std::size_t>(n) * n);
    const double spanA = maxA - minA, spanB = maxB - minB;
    const bool whiten = mode == "G";
    for (int row = 0; row < n; ++row) {
        const double b = maxB - (row + 0.5) * spanB / n;
        for (int col = 0; col < n; ++col) {
            const double a = minA + (col + 0.5) * spanA / n;
            double X, Y, Z;
            Vantrel::get_XYZ_from_CIELab(options.lStar, a, b, WHITE_X, WHITE_Y, WHITE_Z, &X, &Y,
                                         &Z);
            int r, g, bl;
            Vantrel::XYZ_to_sRGB_D65(X, Y, Z, &r, &g, &bl);
            if (whiten && std::fabs(a) < 30 && std::fabs(b) < 30) {
                const double radius = std::sqrt(a * a + b * b);
                if (radius < 30) {
                    const int add = static_cast<int>(std::trunc((100.0 / 30.0) * (30 - radius)));
                    r = std::min(255, r + add);
                    g = std::min(255, g + add);
                    bl = std::min(255, bl + add);
                }
            }
            pixels[static_cast<std::size_t>(row) * n + col] = argbFromRGB(r, g, bl);
        }
    }
    canvas.drawImage(plotLeft, plotTop, plotSide, plotSide, n, n, pixels);
}

void CIELab_Type_Plot_Image::drawAxes(Canvas& canvas, double) {
    const ArgbWord grid = getGridLineColor(options.lStar);
    const double span = maxA - minA;
    const double step = span > 150 ? 50 : span > 60 ? 20 : span > 30 ? 10 : 5;
    if (options.gridLines) {
        for (double v = std::ceil(minA / step) * step; v <= maxA; v += step)
            canvas.drawLine(aToScreen(v), plotTop, aToScreen(v), plotTop + plotSide, grid, 1);
        for (double v = std::ceil(minB / step) * step; v <= maxB; v += step)
            canvas.drawLine(plotLeft, bToScreen(v), plotLeft + plotSide, bToScreen(v), grid, 1);
    }
    canvas.drawLine(aToScreen(0), plotTop, aToScreen(0), plotTop + plotSide, contrast,
                    options.scale);
    canvas.drawLine(plotLeft, bToScreen(0), plotLeft + plotSide, bToScreen(0), contrast,
                    options.scale);
}

void CIELab_Type_Plot_Image::drawArrow(Canvas& canvas, double x0, double y0, double x1, double y1,
                                       ArgbWord color) {
    canvas.drawLine(x0, y0, x1, y1, color, 1.5 * options.scale);
    const double dx = x1 - x0, dy = y1 - y0;
    const double length = std::hypot(dx, dy);
    if (length < 1e-3) return;
    const double head = std::max(3.0 * options.scale, 0.2 * length);
    const double angle = std::atan2(dy, dx);
    for (double side : {-1.0, 1.0}) {
        const double wing = angle + PI + side * ARROW_WING_ANGLE;
        canvas.drawLine(x1, y1, x1 + head * std::cos(wing), y1 + head * std::sin(wing), color,
                        1.5 * options.scale);
    }
}

void CIELab_Type_Plot_Image::drawPoints(Canvas& canvas) {
    const std::size_t n = testA.size();
    const double r = options.symbolSize * options.scale / 2;
    if (options.vectors) {
        for (std::size_t i = 0; i < n; ++i) {
            drawArrow(canvas, aToScreen(refA[i]), bToScreen(refB[i]), aToScreen(testA[i]),
                      bToScreen(testB[i]), contrast);
        }
        return;
    }
    for (int set = options.testOnly ? 0 : 1; set >= 0; --set) {
        const auto& as = set == 0 ? testA : refA;
        const auto& bs = set == 0 ? testB : refB;
        const auto& colors = set == 0 ? testColors : refColors;
        if (options.connectingLines && mode != "CES") {
            std::size_t last = n;
            if (mode == "R") last = std::min(n, options.connectR1toR8Only ? std::size_t(8) : n);
            std::vector<CanvasPoint> line;
            for (std::size_t i = 0; i < last; ++i)
                line.push_back({aToScreen(as[i]), bToScreen(bs[i])});
            canvas.drawPolyline(line, set == 0 ? 0xFFFF0000u : contrast, options.scale);
        }
        for (std::size_t i = 0; i < n; ++i) {
            const double cx = aToScreen(as[i]), cy = bToScreen(bs[i]);
            if (set == 0) {
                if (options.outlineInWhite) canvas.fillCircle(cx, cy, r + options.scale, contrast);
                canvas.fillCircle(cx, cy, r, colors[i]);
            } else {
                if (options.outlineInWhite)
                    canvas.fillRectangle(cx - r - options.scale, cy - r - options.scale,
                                         2 * r + 2 * options.scale, 2 * r + 2 * options.scale,
                                         contrast);
                canvas.fillRectangle(cx - r, cy - r, 2 * r, 2 * r, colors[i]);
            }
        }
    }
}

void CIELab_Type_Plot_Image::drawGraphic(Canvas& canvas, double th) {
    const double s = options.scale;
    const double cx = aToScreen(0), cy = bToScreen(0);
    const double radius = GRAPHIC_RADIUS * pixelsPerUnit;
    TextStyle center;
    center.size = options.fontSize;
    center.align = TextAlign::CENTER;
    if (options.showHueBins) {
        const double outer = 1.42 * plotSide / 2;
        for (int k = 0; k < 16; ++k) {
            const double angle = k * BIN_ANGLE;
            canvas.drawLine(cx, cy, cx + outer * std::cos(angle), cy - outer * std::sin(angle),
                            0xFF969696u, s);
            const double mid = angle + BIN_ANGLE / 2;
            // On a circle inside the square, so the corners stay free for the legend.
            const double lr = 0.9 * plotSide / 2;
            const double lx = cx + lr * std::cos(mid);
            const double ly = cy - lr * std::sin(mid);
            canvas.drawText(lx, ly + th / 3, std::to_string(k + 1), center, contrast);
        }
    }
    if (options.showPercentCircles) {
        for (double f : {0.8, 0.9, 1.1, 1.2}) {
            canvas.drawCircle(cx, cy, f * radius, f == 0.9 || f == 1.1 ? 0xFFB4B4B4u : 0xFF787878u,
                              s);
        }
        TextStyle small = center;
        small.size = options.fontSize * 0.7;
        canvas.drawText(cx, cy - 1.2 * radius - 2 * s, "+20%", small, contrast);
        canvas.drawText(cx, cy - 0.8 * radius + small.size + 2 * s, "-20%", small, contrast);
    }
    canvas.drawCircle(cx, cy, radius, ARGB_BLACK, 2 * s);
    std::vector<CanvasPoint> test;
    for (int k = 0; k <= 16; ++k) {
        const int j = k % 16;
        test.push_back({aToScreen(GRAPHIC_RADIUS * iconTest[0][j]),
                        bToScreen(GRAPHIC_RADIUS * iconTest[1][j])});
    }
    canvas.drawPolyline(test, 0xFFFF0000u, 2.5 * s);
    for (int k = 0; k < 16; ++k) {
        drawArrow(canvas, aToScreen(GRAPHIC_RADIUS * iconRef[0][k]),
                  bToScreen(GRAPHIC_RADIUS * iconRef[1][k]), test[k].x, test[k].y, binColors[k]);
    }
    // Legend: the two lines at the top left, the values at the corners.
    const double big = options.fontSize * 1.25;
    const TextExtent be = canvas.measureText("0", big, false);
    TextStyle left;
    left.size = options.fontSize;
    const double lx = plotLeft + 6 * s, ly = plotTop + th;
    canvas.drawLine(lx, ly - th / 3, lx + 25 * s, ly - th / 3, 0xFFFF0000u, 2.5 * s);
    canvas.drawText(lx + 30 * s, ly, "Test", left, contrast);
    canvas.drawLine(lx, ly + th - th / 3, lx + 25 * s, ly + th - th / 3, ARGB_BLACK, 2 * s);
    canvas.drawText(lx + 30 * s, ly + th, "Ref.", left, contrast);
    TextStyle values;
    values.size = big;
    values.align = TextAlign::RIGHT;
    const double rx = plotLeft + plotSide - 6 * s;
    const double top = plotTop + be.ascent + 4 * s;
    drawTextWithSubscript(canvas, rx, top, "R", "f", values, contrast,
                          formatNumber(" = %.0f", graphicValues.Rf));
    drawTextWithSubscript(canvas, rx, top + be.ascent + be.descent, "R", "g", values, contrast,
                          formatNumber(" = %.0f", graphicValues.Rg));
    const double bottom = plotTop + plotSide - be.descent - 4 * s;
    canvas.drawText(rx, bottom - (be.ascent + be.descent),
                    formatNumber("CCT = %.0f K", graphicValues.cct), values, contrast);
    const double duv = std::fabs(graphicValues.duv) < 5e-5 ? 0.0 : graphicValues.duv;
    canvas.drawText(rx, bottom, formatNumber("Duv = %.4f", duv), values, contrast);
}
