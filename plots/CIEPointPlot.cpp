#include "CIEPointPlot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "Vantrel.h"

namespace {

constexpr int ELLIPSE_POINTS = 65;
constexpr double LOCUS_FIRST_K = 1000, LOCUS_LAST_K = 20000;
constexpr double CCT_LINE_DUV = 0.02;  // half length of a 100 K line, in Duv

std::string tickText(double v) {
    char text[32];
    std::snprintf(text, sizeof(text), "%.4lf", v);
    return text;
}

// Ticks at a round step that gives about five labels over the span.
double tickStep(double span) {
    const double raw = span / 5;
    const double p = std::pow(10.0, std::floor(std::log10(raw)));
    for (double m : {1.0, 2.0, 5.0, 10.0})
        if (m * p >= raw) return m * p;
    return 10 * p;
}

}  // namespace

void CIEPointPlot::plotted(double x, double y, double* px, double* py) const {
    if (!options.upvp) {
        *px = x;
        *py = y;
        return;
    }
    const double d = -2 * x + 12 * y + 3;
    *px = d != 0 ? 4 * x / d : 0;
    *py = d != 0 ? 9 * y / d : 0;
}

void CIEPointPlot::setData(const std::vector<double>& x, const std::vector<double>& y, double tx,
                           double ty, const CIEPointPlotOptions& plotOptions) {
    options = plotOptions;
    targetX = tx;
    targetY = ty;
    xs.clear();
    ys.clear();
    for (std::size_t i = 0; i < std::min(x.size(), y.size()); ++i) {
        double px, py;
        plotted(x[i], y[i], &px, &py);
        xs.push_back(px);
        ys.push_back(py);
    }
    Vantrel engine;
    ellipses.clear();
    double cx, cy;
    plotted(tx, ty, &cx, &cy);
    double reach = 0.002;
    for (int steps : options.ellipseSteps) {
        if (steps < 1) continue;
        double ex[ELLIPSE_POINTS], ey[ELLIPSE_POINTS], a, b, theta, g11, g12, g22;
        engine.getMacAdamEllipseArray_xy(ELLIPSE_POINTS, steps, tx, ty, ex, ey, &a, &b, &theta,
                                         &g11, &g12, &g22);
        std::vector<CanvasPoint> line;
        for (int k = 0; k < ELLIPSE_POINTS; ++k) {
            double px, py;
            plotted(ex[k], ey[k], &px, &py);
            line.push_back({px, py});
            reach = std::max({reach, std::fabs(px - cx), std::fabs(py - cy)});
        }
        ellipses.push_back(line);
    }
    for (std::size_t i = 0; i < xs.size(); ++i)
        reach = std::max({reach, std::fabs(xs[i] - cx), std::fabs(ys[i] - cy)});
    reach *= 1.15;
    minX = cx - reach;
    maxX = cx + reach;
    minY = cy - reach;
    maxY = cy + reach;
}

std::string CIEPointPlot::ellipseCaption() const {
    std::string caption;
    for (int steps : options.ellipseSteps) caption += std::to_string(steps) + ", ";
    return caption + " MacAdam elipses";
}

void CIEPointPlot::drawLocus(Canvas& canvas, ArgbWord color) {
    Vantrel engine;
    std::vector<CanvasPoint> locus;
    for (double k = LOCUS_FIRST_K; k <= LOCUS_LAST_K; k *= 1.01) {
        double x, y, px, py;
        engine.get_xy_from_CCT_Duv(k, 0, &x, &y);
        plotted(x, y, &px, &py);
        locus.push_back({xToScreen(px), yToScreen(py)});
    }
    canvas.drawPolyline(locus, color, 1.5 * options.scale);
    if (!options.showCCTLines) return;
    for (int k = 1000; k <= 20000; k += 100) {
        double x0, y0, x1, y1;
        engine.get_xy_from_CCT_Duv(k, -CCT_LINE_DUV, &x0, &y0);
        engine.get_xy_from_CCT_Duv(k, CCT_LINE_DUV, &x1, &y1);
        plotted(x0, y0, &x0, &y0);
        plotted(x1, y1, &x1, &y1);
        const bool inside = std::max(x0, x1) > minX && std::min(x0, x1) < maxX &&
                            std::max(y0, y1) > minY && std::min(y0, y1) < maxY;
        if (!inside) continue;
        canvas.drawLine(xToScreen(x0), yToScreen(y0), xToScreen(x1), yToScreen(y1), 0xFF969696u,
                        options.scale);
        TextStyle small;
        small.size = options.fontSize * 0.8;
        canvas.drawText(xToScreen(x1) + 2, yToScreen(y1), std::to_string(k) + "K", small,
                        0xFF969696u);
    }
}

void CIEPointPlot::makeImage(Canvas& canvas, double x, double y, double w, double h) {
    const ArgbWord background = options.whiteBackground ? ARGB_WHITE : ARGB_BLACK;
    const ArgbWord contrast = options.whiteBackground ? ARGB_BLACK : ARGB_WHITE;
    const TextExtent e = canvas.measureText("0", options.fontSize, false);
    const double th = e.ascent + e.descent;
    const double s = options.scale;
    canvas.fillRectangle(x, y, w, h, background);
    const double leftPad = canvas.measureText("0.0000", options.fontSize, false).width + 2 * th;
    const double bottomPad = 3.5 * th;
    const double side = std::max(10.0, std::min(w - leftPad - th, h - bottomPad - th));
    plotLeft = x + leftPad;
    plotTop = y + th;
    pixelsPerUnit = side / (maxX - minX);
    canvas.drawRectangle(plotLeft, plotTop, side, side, contrast, s);
    // Ticks and labels, "%.4lf" on both axes.
    const double step = tickStep(maxX - minX);
    TextStyle center;
    center.size = options.fontSize;
    center.align = TextAlign::CENTER;
    TextStyle right = center;
    right.align = TextAlign::RIGHT;
    for (double v = std::ceil(minX / step) * step; v <= maxX; v += step) {
        canvas.drawLine(xToScreen(v), plotTop + side, xToScreen(v), plotTop + side + 5 * s,
                        contrast, s);
        canvas.drawText(xToScreen(v), plotTop + side + 5 * s + e.ascent, tickText(v), center,
                        contrast);
    }
    for (double v = std::ceil(minY / step) * step; v <= maxY; v += step) {
        canvas.drawLine(plotLeft - 5 * s, yToScreen(v), plotLeft, yToScreen(v), contrast, s);
        canvas.drawText(plotLeft - 7 * s, yToScreen(v) + e.ascent / 2 - e.descent / 2, tickText(v),
                        right, contrast);
    }
    const std::string space = options.upvp ? "CIE 1976" : "CIE 1931";
    canvas.drawText(plotLeft + side / 2, plotTop + side + 5 * s + e.ascent + th,
                    space + (options.upvp ? " u'" : " Cx"), center, contrast);
    TextStyle up = center;
    up.rotated = true;
    canvas.drawText(x + e.ascent, plotTop + side / 2, space + (options.upvp ? " v'" : " Cy"), up,
                    contrast);
    canvas.drawText(plotLeft + side / 2, plotTop + side + 5 * s + e.ascent + 2.2 * th,
                    ellipseCaption(), center, contrast);

    canvas.clip(plotLeft, plotTop, side, side);
    drawLocus(canvas, contrast);
    const ArgbWord ellipseColor = options.redEllipse ? 0xFFFF0000u : contrast;
    for (const auto& line : ellipses) {
        std::vector<CanvasPoint> screen;
        for (const CanvasPoint& p : line) screen.push_back({xToScreen(p.x), yToScreen(p.y)});
        canvas.drawPolyline(screen, ellipseColor, 1.5 * s);
    }
    const double r = 2.5 * s;
    for (std::size_t i = 0; i < xs.size(); ++i)
        canvas.fillCircle(xToScreen(xs[i]), yToScreen(ys[i]), r, contrast);
    double cx, cy;
    plotted(targetX, targetY, &cx, &cy);
    canvas.drawLine(xToScreen(cx) - 6 * s, yToScreen(cy), xToScreen(cx) + 6 * s, yToScreen(cy),
                    ellipseColor, s);
    canvas.drawLine(xToScreen(cx), yToScreen(cy) - 6 * s, xToScreen(cx), yToScreen(cy) + 6 * s,
                    ellipseColor, s);
    canvas.unclip();
}
