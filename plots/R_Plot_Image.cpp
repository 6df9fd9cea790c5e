#include "R_Plot_Image.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

std::string format(const char* fmt, double value, int decimals = -1) {
    char text[64];
    if (decimals >= 0) {
        std::snprintf(text, sizeof(text), fmt, decimals, value);
    } else {
        std::snprintf(text, sizeof(text), fmt, static_cast<int>(std::lround(value)));
    }
    return text;
}

bool isHueMode(char mode) { return mode == 'F' || mode == 'C' || mode == 'H'; }

}  // namespace

void R_Plot_Image::setData(char plotMode, const std::vector<double>& barValues,
                           const std::vector<ArgbWord>& barColors,
                           const std::vector<std::string>& barLabels, const std::string& title,
                           const RPlotOptions& plotOptions, const std::vector<int>& binCounts) {
    mode = plotMode;
    values = barValues;
    // Hue shifts are carried as whole ten-thousandths of a radian, so that shifts of a light on
    // the locus that only differ by rounding count as none.
    if (mode == 'H') {
        for (double& v : values) v = std::trunc(v * 10000) / 10000;
    }
    colors = barColors;
    colors.resize(values.size(), 0xFF808080u);
    labels = barLabels;
    labels.resize(values.size());
    yTitle = title;
    options = plotOptions;
    numInBins = binCounts;
    background = options.blackBackground ? ARGB_BLACK : ARGB_WHITE;
    contrast = options.blackBackground ? ARGB_WHITE : ARGB_BLACK;
}

void R_Plot_Image::getMinMaxRvalue(double* minValue, double* maxValue, double* step) const {
    if (options.standardShiftLimits && (mode == 'C' || mode == 'H')) {
        const double limit =
            mode == 'C' ? getTM30ChromaShiftStandardMinMax() : getTM30HueShiftStandardMinMax();
        *minValue = -limit;
        *maxValue = limit;
        *step = mode == 'C' ? getTM30ChromaShiftStandardDy() : getTM30HueShiftStandardDy();
        return;
    }
    double lo = 1e9, hi = -1e9;
    for (double v : values) {
        lo = std::min(lo, v);
        hi = std::max(hi, v);
    }
    if (values.empty()) lo = hi = 0;
    double dy = 10;
    if (mode == 'H') {
        const bool minForced = lo > 0, maxForced = hi < 0;
        lo = std::min(lo, 0.0);
        if (hi < 0) hi = 0;
        if (minForced && maxForced) {
            lo = 0;
            hi = 1;
        }
        if (lo == 0 && hi == 0) hi = 1;  // all values 0: the range is 0 to 1
        dy = (hi - lo) / 5;
        if (dy == 0) dy = 1;
    } else if (mode == 'C') {
        lo = std::min(lo, 0.0);
        if (hi < 0) hi = 5;
        dy = std::trunc((hi - lo) / 5 / 5 + 1) * 5;
        if (dy < 1e-6) dy = 1;
    } else {
        // 'R', 'Q', and the fidelity modes with their fixed top of 100.
        if (lo > -1e-8) {
            dy = 10;
            lo = 0;
        } else {
            dy = lo >= -100 ? 25 : 50;
        }
        if (mode == 'F' || mode == 'S') hi = 100;
    }
    // The range grows to whole steps (with a little slack against rounding of the data).
    lo = std::floor(lo / dy + 1e-9) * dy;
    hi = std::ceil(hi / dy - 1e-9) * dy;
    if (hi <= lo) hi = lo + dy;
    *minValue = lo;
    *maxValue = hi;
    *step = dy;
}

std::string R_Plot_Image::getValueLabel(double value) const {
    if (mode == 'H') {
        // No negative zero: a value that prints as zero is written as 0.
        if (std::fabs(value) < 0.5 * std::pow(10.0, -getHueShiftsOutputDecimals())) value = 0;
        return format("%.*lf", value, getHueShiftsOutputDecimals());
    }
    if (mode == 'C') return format("%d%%", value);
    return format("%d", value);
}

void R_Plot_Image::makeImage(Canvas& canvas, double x, double y, double w, double h) {
    const double s = options.scale;
    const TextExtent zero = canvas.measureText("0", options.fontSize, false);
    const double th = zero.ascent + zero.descent;
    canvas.fillRectangle(x, y, w, h, background);
    const int bars = std::max<int>(1, static_cast<int>(values.size()));

    double topPad = th / 2 + (options.showNumInBins && isHueMode(mode) ? th : 0);
    double bottomPad = 3 * th / 2;
    const bool xTitle = options.showXTitle && (isHueMode(mode) || mode == 'S');
    if (xTitle) bottomPad += th;
    const double firstLabelWidth =
        labels.empty() ? 0 : canvas.measureText(labels[0], options.fontSize, false).width;
    double rightPad = std::max(0.75 * firstLabelWidth, 5 * s);
    double leftPad = th + canvas.measureText("-200", options.fontSize, false).width + 5 * s +
                     (mode == 'R' || mode == 'Q' ? 0 : 20 * s);
    if (mode == 'R' || mode == 'Q') leftPad += 5 * s;  // room for the rotated title's descent

    plotWidth = std::max(1.0, w - leftPad - rightPad);
    slot = std::max(1.0, std::floor(plotWidth / bars));
    plotWidth = slot * bars;
    plotHeight = std::max(1.0, h - topPad - bottomPad);
    plotLeft = x + leftPad;
    plotTop = y + topPad;

    double minV, maxV, step;
    getMinMaxRvalue(&minV, &maxV, &step);
    if (options.showValues) widenForValueLabels(canvas, th, &minV, &maxV, step);
    yScale = plotHeight / (maxV - minV);
    zeroY = plotTop + plotHeight + std::trunc(minV * yScale);

    drawYAxis(canvas, minV, maxV, step, th);
    drawBars(canvas, th);
    drawBarLabels(canvas, th, minV);
    drawTitles(canvas, x, y, th);
}

double R_Plot_Image::longestValueLabel(Canvas& canvas, double th) const {
    double widest = 0;
    for (double v : values)
        widest =
            std::max(widest, canvas.measureText(getValueLabel(v), options.fontSize, false).width);
    const double inset = std::max(1.0, std::floor(slot * 0.15));
    // Rotated labels take their width along the bar, upright ones their height.
    return widest > slot - 2 * inset + 5 * options.scale ? widest : th;
}

void R_Plot_Image::widenForValueLabels(Canvas& canvas, double th, double* minV, double* maxV,
                                       double step) const {
    if (values.empty()) return;
    const double length = longestValueLabel(canvas, th) + 5 * options.scale + th / 2;
    const double lowest = *std::min_element(values.begin(), values.end());
    const double highest = *std::max_element(values.begin(), values.end());
    const bool growTop = (mode == 'C' || mode == 'H') && !options.standardShiftLimits;
    // Each pass lowers the minimum (and raises the maximum) by a step until the labels of the
    // extreme bars fit between the bar and the frame; the scale shrinks as the range grows.
    for (int pass = 0; pass < 10; ++pass) {
        const double scale = plotHeight / (*maxV - *minV);
        bool changed = false;
        if (*minV < -1e-9 && lowest < 1) {
            const double room = (lowest - *minV) * scale;
            if (room < length) {
                *minV -= step;
                changed = true;
            }
        }
        if (growTop && highest >= 1) {
            const double room = (*maxV - highest) * scale;
            if (room < length) {
                *maxV += step;
                changed = true;
            }
        }
        if (!changed) break;
    }
}

void R_Plot_Image::drawYAxis(Canvas& canvas, double minV, double maxV, double step, double th) {
    const double s = options.scale;
    const double tick = 5 * s;
    const double plotBottom = plotTop + plotHeight;
    if (options.gridLines) {
        for (std::size_t i = 0; i < values.size(); ++i) {
            canvas.drawRectangle(plotLeft + i * slot, plotTop, slot, plotHeight, contrast, s);
        }
    } else {
        canvas.drawRectangle(plotLeft, plotTop, plotWidth, plotHeight, contrast, s);
    }
    const int ticks = static_cast<int>(std::trunc((maxV - minV) / step + 1e-9)) + 1;
    TextStyle style;
    style.size = options.fontSize;
    style.align = TextAlign::RIGHT;
    for (int i = 0; i < ticks; ++i) {
        double value = minV + i * step;
        if (std::fabs(value) < step * 1e-6) value = 0;  // no negative zero on the scale
        const double yy = plotBottom - (value - minV) * yScale;
        if (mode == 'H' || value <= 100 + 1e-9) {
            canvas.drawLine(plotLeft - tick, yy,
                            options.gridLines ? plotLeft + plotWidth : plotLeft, yy, contrast, s);
        }
        canvas.drawText(plotLeft - tick - 5 * s, yy + th / 4, getValueLabel(value), style,
                        contrast);
    }
    if (minV < 0) canvas.drawLine(plotLeft, zeroY, plotLeft + plotWidth, zeroY, contrast, s);
}

void R_Plot_Image::drawHatch(Canvas& canvas, double x, double y, double w, double h,
                             ArgbWord over) {
    const double s = options.scale;
    canvas.fillRectangle(x, y, w, h, over);
    canvas.clip(x, y, w, h);
    const double gap = 4 * s;
    for (double d = -h; d < w; d += gap) {
        canvas.drawLine(x + d, y + h, x + d + h, y, contrast, 0.75 * s);
    }
    canvas.unclip();
}

void R_Plot_Image::drawBars(Canvas& canvas, double th) {
    const double s = options.scale;
    const bool rq = mode == 'R' || mode == 'Q';
    // Narrow bars (the 99 samples) fill their slots and keep a hairline outline, so that their
    // colours still show.
    const bool narrow = slot < 8 * s;
    const double inset = narrow ? 0.0 : std::max(1.0, std::floor(slot * 0.15));
    const double outline = narrow ? 0.25 * s : s;
    std::vector<std::string> texts;
    double widest = 0;
    for (double v : values) {
        texts.push_back(getValueLabel(v));
        widest = std::max(widest, canvas.measureText(texts.back(), options.fontSize, false).width);
    }
    const bool rotateValues = widest > slot - 2 * inset + 5 * s;
    const bool labelsOnZeroLine =
        zeroY < plotTop + plotHeight - 1 &&
        (mode == 'R' || mode == 'Q' || (isHueMode(mode) && options.hueBinLabels == 1));
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double x0 = plotLeft + i * slot + inset;
        const double bw = slot - 2 * inset;
        const double height = std::trunc(values[i] * yScale);
        if (height != 0) {
            const double top = height > 0 ? zeroY - height : zeroY;
            const double bh = std::fabs(height);
            if (rq && i == 0) {
                drawHatch(canvas, x0, top, bw, bh,
                          options.blackAndWhite ? background
                          : colors.size() > 1   ? colors[1]
                                                : colors[0]);
            } else if (options.blackAndWhite) {
                if (rq) {
                    drawHatch(canvas, x0, top, bw, bh, background);
                } else {
                    canvas.fillRectangle(x0, top, bw, bh, background);
                }
            } else {
                canvas.fillRectangle(x0, top, bw, bh, colors[i]);
            }
            canvas.drawRectangle(x0, top, bw, bh, contrast, outline);
        }
        if (!options.showValues) continue;
        TextStyle style;
        style.size = options.fontSize;
        style.align = TextAlign::CENTER;
        style.rotated = rotateValues;
        double yy = values[i] >= 1 ? zeroY - height - 5 * s : zeroY - height + th / 2 + 5 * s;
        if (!rotateValues && values[i] < 1) yy += th / 2;
        // Under a short bar the label keeps clear of the bar labels on the zero line.
        if (values[i] < 1 && labelsOnZeroLine)
            yy = std::max(yy, zeroY + (rotateValues ? 1.5 : 2) * th);
        yy = std::max(yy, plotTop + th);
        yy = std::min(yy, plotTop + plotHeight - 2);
        const double cx = barCenterX(static_cast<int>(i)) + (rotateValues ? th / 3 : 0);
        if (rotateValues) {
            // Written upward: a label above its bar starts at yy, one under it ends there.
            const double length = canvas.measureText(texts[i], options.fontSize, false).width;
            style.align = values[i] >= 1 ? TextAlign::LEFT : TextAlign::RIGHT;
            if (values[i] >= 1) {
                yy = std::max(yy, plotTop + length + 2 * s);
            } else {
                yy = std::max(zeroY - height + 5 * s, labelsOnZeroLine ? zeroY + 1.5 * th : 0.0);
                yy = std::min(yy, plotTop + plotHeight - length - 2 * s);
            }
        }
        canvas.drawText(cx, yy, texts[i], style, contrast);
    }
}

void R_Plot_Image::drawBarLabels(Canvas& canvas, double th, double minV) {
    if (isHueMode(mode) && options.hueBinLabels == 0) return;
    const double s = options.scale;
    double baseY = std::max(zeroY, plotTop + plotHeight) + th;
    if (isHueMode(mode) && options.hueBinLabels == 1 && minV < 0) baseY = zeroY + th;
    int every = 1;
    if (mode == 'S') {
        every = std::max(
            1, static_cast<int>(canvas.measureText("9999", options.fontSize, false).width / slot));
    }
    TextStyle style;
    style.size = options.fontSize;
    style.align = TextAlign::CENTER;
    for (std::size_t i = 0; i < labels.size(); i += every) {
        const std::string& label = labels[i];
        const double cx = barCenterX(static_cast<int>(i));
        if ((mode == 'R' || mode == 'Q') && label.size() > 1 &&
            (label[0] == 'R' || label[0] == 'Q')) {
            drawTextWithSubscript(canvas, cx, baseY, label.substr(0, 1), label.substr(1), style,
                                  contrast);
        } else {
            canvas.drawText(cx, baseY, label, style, contrast);
        }
    }
    if (options.showNumInBins && isHueMode(mode) && numInBins.size() >= values.size()) {
        TextStyle right = style;
        right.align = TextAlign::RIGHT;
        canvas.drawText(plotLeft - 5 * s, plotTop - th / 2, "m =", right, contrast);
        for (std::size_t i = 0; i < values.size(); ++i) {
            canvas.drawText(barCenterX(static_cast<int>(i)), plotTop - th / 2,
                            std::to_string(numInBins[i]), style, contrast);
        }
    }
}

void R_Plot_Image::drawTitles(Canvas& canvas, double x, double y, double th) {
    TextStyle style;
    style.size = options.fontSize;
    style.align = TextAlign::CENTER;
    style.rotated = true;
    const double cx = x + th * 0.85;
    const double cy = plotTop + plotHeight / 2;
    switch (mode) {
        case 'S':
            drawTextWithSubscript(canvas, cx, cy, "Color Sample Fidelity, R", "f,CESi", style,
                                  contrast);
            break;
        case 'F':
            drawTextWithSubscript(canvas, cx, cy, "Local Color Fidelity, R", "fh,i", style,
                                  contrast);
            break;
        case 'C':
            drawTextWithSubscript(canvas, cx, cy, "Local Chroma Shift (R", "cs,hj", style, contrast,
                                  ")");
            break;
        case 'H':
            drawTextWithSubscript(canvas, cx, cy, "Local Hue Shift (R", "hs,hj", style, contrast,
                                  ")");
            break;
        default:
            canvas.drawText(cx, cy, yTitle, style, contrast);
    }
    if (options.showXTitle && (isHueMode(mode) || mode == 'S')) {
        TextStyle xStyle;
        xStyle.size = options.fontSize;
        xStyle.align = TextAlign::CENTER;
        const TextExtent e = canvas.measureText("0", options.fontSize, false);
        const double bottom = y + (plotTop - y) + plotHeight;
        const double labelsBottom = std::max(bottom, zeroY) + th;
        canvas.drawText(plotLeft + plotWidth / 2, labelsBottom + e.ascent + th / 4,
                        mode == 'S' ? "CES Color" : "Hue-Angle Bin (j)", xStyle, contrast);
    }
}
