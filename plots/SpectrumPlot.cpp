#include "SpectrumPlot.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "ArgbColor.h"
#include "TextUtilities.h"

namespace {
// Photons per second as micromoles per second: 1e6 / N_A (Avogadro 6.02214129e23, CODATA 2010),
// written as the program has always written it.
constexpr double UMOL_PER_PHOTON = 1.66053892103219e-27;
// Legend defaults, the same words as DEFAULT_MAIN_NAME and DEFAULT_MATCHING_NAME of the core.
const char* const MAIN_NAME = "Main";
const char* const MATCHING_NAME = "Matching";
const char* const DIFF_CURVE_TITLE = "diff";
const char* const X_AXIS_TITLE = "Wavelength (nm)";
const int MAX_LEGEND_LINES = 10;

// Peaks of the display primaries marked on the wavelength axis, with their own colours.
const double rgb_wavelengths[] = {464, 500, 520, 570, 594, 624};
const int rgb_red[] = {25, 7, 10, 255, 255, 255};
const int rgb_green[] = {92, 255, 255, 255, 121, 20};
const int rgb_blue[] = {255, 137, 10, 0, 0, 6};
const int NUM_RGB_PEAKS = sizeof(rgb_wavelengths) / sizeof(rgb_wavelengths[0]);

// What a legend line shows before its text.
enum LegendSample { SAMPLE_NONE = 0, SAMPLE_MAIN = 1, SAMPLE_MATCHING = 2, SAMPLE_DIFF = 3 };

int clampChannel(int v) { return v < 0 ? 0 : (v > 255 ? 255 : v); }

double peakOf(const std::vector<double>& data) {
    double peak = -1.0;
    for (double v : data) peak = std::max(peak, v);
    return peak;
}

FXString formatNumber(const char* format, double value, bool comma) {
    FXString text;
    text.format(format, value);
    if (comma) text.substitute('.', ',');
    return text;
}

void splitLines(const FXString& text, std::vector<FXString>* lines) {
    if (text.empty()) return;
    const int n = text.contains('\n') + 1;
    for (int k = 0; k < n; ++k) lines->push_back(text.section('\n', k));
}
}  // namespace

struct SpectrumPlot::LegendEntry {
    FXString text;
    int sample;
};

SpectrumPlot::SpectrumPlot(FXTopWindow* owner) : owner(owner), app(owner->getApp()) {
    defineTerms();
}

SpectrumPlot::SpectrumPlot(FXApp* app) : owner(nullptr), app(app) { defineTerms(); }

SpectrumPlot::~SpectrumPlot() = default;

void SpectrumPlot::defineTerms() {
    whiteColor = argbColor(0xFFFFFFFFu);
    blackColor = argbColor(0xFF000000u);
    gridColor = argbColor(0xFF969696u);
    patchColor = whiteColor;
    matchingLineColor = blackColor;
    backgroundColor = whiteColor;
    foregroundColor = blackColor;
    mainLineColor = argbColor(0xFFFF0000u);
    matchLineColorRaw = argbColor(0xFF000000u);
    useComma = fixedFullScale = isFullScale = inPercent = photonUnits = false;
    brightness = 0;
    firstIndex = 0;
    numPoints = 236;
    numPointsShown = numPoints;
    topPad = leftPad = rightPad = bottomPad = 0;
    showGridlines = showBox = drawPatch = false;
    textHeight = 0;
    scaleFactor = 1;
    lineWidth = thinLineWidth = matchingLineWidth = 1;
    thickLineWidth = 2;
    plotLeft = plotRight = plotBottom = plotTop = 0;
    matchingCurveType = MATCHING_THICK_BLACK;
    redEnd = 650.0;
    greenEnd = 505.0;
    blueEnd = 470.0;
    darkRedStart = 730.0;
    violetEnd = 450.0;
    firstGridNm = 360.0;
    gridStepNm = 2.0;
    lastGridNm = firstGridNm + (numPoints - 1) * gridStepNm;
    minNm = firstGridNm;
    maxNm = lastGridNm;
    spanNm = maxNm - minNm;
    tickNm = getSpecPlotTick_nm();
    scaleTop = 1.0;
    mainFactor = matchingFactor = 1.0;
}

void SpectrumPlot::passData(int n, const double* main, const double* matching) {
    const bool wasFull = isFullWindow();
    numPoints = std::max(n, 0);
    mainData.assign(numPoints, 0.0);
    matchingData.assign(numPoints, 0.0);
    if (main) std::copy(main, main + numPoints, mainData.begin());
    if (matching) std::copy(matching, matching + numPoints, matchingData.begin());
    lastGridNm = firstGridNm + (numPoints - 1) * gridStepNm;
    if (wasFull || maxNm > lastGridNm) setPlotMinMax(minNm, lastGridNm);
}

void SpectrumPlot::setPatchColor(FXColor color) { patchColor = color; }

bool SpectrumPlot::isFullWindow() const {
    return std::fabs(minNm - firstGridNm) <= 1.0 && std::fabs(maxNm - lastGridNm) <= 1.0;
}

void SpectrumPlot::setPlotMinMax(double min, double max) {
    minNm = min;
    maxNm = std::min(max, lastGridNm);
    spanNm = maxNm - minNm;
    if (isFullWindow()) {
        tickNm = getSpecPlotTick_nm();
    } else {
        tickNm = std::floor(spanNm / 10.0 + 0.5);
        tickNm = std::min(std::max(tickNm, 5.0), 50.0);
    }
}

void SpectrumPlot::setScaleFactor(int factor) {
    scaleFactor = factor < 1 ? 1 : factor;
    lineWidth = scaleFactor;
    thinLineWidth = lineWidth;
    thickLineWidth = 2 * lineWidth;
}

void SpectrumPlot::getNumPoints() {
    firstIndex = static_cast<int>((minNm - firstGridNm) / gridStepNm + 0.1);
    if (firstIndex < 0 || firstIndex > numPoints - 10) {
        firstIndex = 0;
        minNm = firstGridNm;
        spanNm = maxNm - minNm;
    }
    numPointsShown = static_cast<int>(std::floor(spanNm + 0.1)) / 2 + 1;
}

void SpectrumPlot::getPlotPadding(int* left, int* right, int* top, int* bottom) const {
    *left = leftPad;
    *right = rightPad;
    *top = topPad;
    *bottom = bottomPad;
}

void SpectrumPlot::getPlotBoundaries(int* left, int* right, int* top, int* bottom) const {
    *left = plotLeft;
    *right = plotRight;
    *top = plotTop;
    *bottom = plotBottom;
}

FXColor SpectrumPlot::getPixel(int x, int y) {
    if (!image || x < 0 || y < 0 || x >= image->getWidth() || y >= image->getHeight()) return 0;
    if (!pixelsRead) {
        image->restore();
        pixelsRead = true;
    }
    return image->getPixel(x, y);
}

std::vector<double> SpectrumPlot::getXTicks() const {
    std::vector<double> ticks{minNm};
    const bool full = isFullWindow();
    // The whole grid reads better on round hundreds and fifties than from 360 nm.
    const double start = full ? 400.0 : minNm;
    const int count = static_cast<int>(spanNm / tickNm + 1);
    for (int k = 0; k < count; ++k) {
        const double nm = start + k * tickNm;
        if (nm < minNm - 0.1 || nm > maxNm + 0.1 || std::fabs(nm - minNm) < 0.1) continue;
        ticks.push_back(nm);
    }
    if (full && std::fabs(ticks.back() - maxNm) >= 0.1) ticks.push_back(maxNm);
    return ticks;
}

FXColor SpectrumPlot::getSpectrumLineColor(double nm) const {
    int r = 0, g = 0, b = 0;
    // Deliberate: each ramp is doubled, so green and red saturate through the middle of their
    // ranges; the rainbow under saved plots has always looked like this.
    if (nm <= violetEnd) {
        r = static_cast<int>(2 * (violetEnd - nm));
        b = 255;
    } else if (nm <= blueEnd) {
        b = 255;
    } else if (nm <= greenEnd) {
        const double t = (nm - blueEnd) / (greenEnd - blueEnd);
        g = 2 * static_cast<int>(255 * t);
        b = 2 * static_cast<int>(255 * (1 - t));
    } else if (nm <= redEnd) {
        const double t = (nm - greenEnd) / (redEnd - greenEnd);
        r = 2 * static_cast<int>(255 * t);
        g = 2 * static_cast<int>(255 * (1 - t));
    } else if (nm <= darkRedStart) {
        r = 255;
    } else {
        r = static_cast<int>(255 - 2 * (nm - darkRedStart));
    }
    return FXRGB(clampChannel(r + brightness), clampChannel(g + brightness),
                 clampChannel(b + brightness));
}

void SpectrumPlot::getMatchingLine(FXColor* color, int* width) const {
    switch (matchingCurveType) {
        case MATCHING_THIN_RED:
            *color = FXRGB(255, 0, 0);
            *width = lineWidth;
            break;
        case MATCHING_THIN_BLUE:
            *color = FXRGB(0, 0, 255);
            *width = lineWidth;
            break;
        default:
            *color = blackColor;
            *width = 2 * lineWidth;
            break;
    }
}

const char* SpectrumPlot::getMatchingLineColorName(int type) {
    switch (type) {
        case MATCHING_THIN_RED:
            return "Red";
        case MATCHING_THIN_BLUE:
            return "Blue";
        default:
            return "black";
    }
}

int SpectrumPlot::getExponent(double value) {
    char text[64];
    std::snprintf(text, sizeof(text), "%.1le", value);
    const char* e = std::strchr(text, 'e');
    return e ? std::atoi(e + 1) : 0;
}

FXString SpectrumPlot::getYAxisTitle(bool hasData, bool photons, bool umol, bool isFilter,
                                     bool isColor, bool percent, bool normalized, int exponent,
                                     bool radiantPowerVariant) {
    if (radiantPowerVariant) return "Radiant Power\n(Equal Luminous Flux)";
    if (!hasData) return photons ? "Photons/(s-nm)" : "Watts/nm";
    if (normalized) return photons ? "Normalized Photons/(s-nm)" : "Normalized Watts/nm";
    FXString title;
    if (isFilter)
        title = "Transmission";
    else if (isColor)
        title = "Reflectance";
    else if (photons)
        title = umol ? "umol/(s-nm)" : "Photons/(s-nm)";
    else
        title = "Watts/nm";
    if (percent && (isFilter || isColor)) title += " (%)";
    if (exponent != 0) title += FXString().format(" (10^%d)", exponent);
    return title;
}

double SpectrumPlot::getCursorNm(int cursorX, int leftPad, int plotWidth, double min, double max) {
    if (plotWidth <= 0) return min;
    return min + (max - min) * (cursorX - leftPad) / plotWidth;
}

void SpectrumPlot::wheelZoom(double cursorNm, int direction, double* min, double* max,
                             double gridStart, double gridEnd) {
    const double STEP_NM = 20.0;
    const double GRID_NM = 2.0;
    const double NARROWEST_NM = 50.0;
    if (cursorNm > *max) {
        *min += STEP_NM * direction;
    } else if (cursorNm < *min) {
        *max -= STEP_NM * direction;
    } else {
        *min += STEP_NM / 2 * direction;
        *max -= STEP_NM / 2 * direction;
        if (direction > 0) {
            // Zooming in keeps the wavelength under the cursor in the middle.
            const double half = (*max - *min) / 2;
            *min = cursorNm - half;
            *max = cursorNm + half;
        }
    }
    *min = gridStart + std::floor((*min - gridStart) / GRID_NM) * GRID_NM;
    *max = gridStart + std::floor((*max - gridStart) / GRID_NM) * GRID_NM;
    if (*min < gridStart || *min > gridEnd) *min = gridStart;
    if (*max < gridStart || *max > gridEnd) *max = gridEnd;
    if (*max - *min < NARROWEST_NM - 0.01) {
        *max = *min + NARROWEST_NM;
        if (*max > gridEnd) {
            *max = gridEnd;
            *min = *max - NARROWEST_NM;
        }
    }
}

bool SpectrumPlot::drawPlot(int width, int height, const SpectrumPlotOptions& o) {
    if (width < 10 || height < 10) return false;
    redEnd = 650.0;
    greenEnd = 505.0;
    blueEnd = 470.0;
    darkRedStart = 730.0;
    violetEnd = 450.0;
    font = o.font ? o.font : app->getNormalFont();
    smallFont = o.smallFont ? o.smallFont : font;
    backgroundColor = o.blackBackground ? blackColor : whiteColor;
    foregroundColor = o.blackBackground ? whiteColor : blackColor;
    useComma = o.comma;
    fixedFullScale = o.fullScale;
    inPercent = o.inPercent;
    photonUnits = o.photonUnits;
    showGridlines = o.showGridlines;
    showBox = o.showBox;
    drawPatch = o.drawPatch;
    matchingCurveType = o.matchingCurveType;
    getMatchingLine(&matchingLineColor, &matchingLineWidth);
    getNumPoints();
    computeScale(o);
    computeLayout(o, width, height);

    FXColor* pixels = nullptr;
    FXMALLOC(&pixels, FXColor, width * height);
    std::fill(pixels, pixels + width * height, backgroundColor);
    image.reset(new FXImage(app, pixels, IMAGE_KEEP | IMAGE_OWNED, width, height));
    image->create();
    pixelsRead = false;
    {
        FXDCWindow dc(image.get());
        dc.setFont(font);
        if (o.hasMain || o.hasMatching) drawRainbow(&dc, o);
        if (showGridlines) drawGridlines(&dc);
        drawCurves(&dc, o);
        if (o.colorPeakLines) drawColorPeakLines(&dc);
        drawAxes(&dc, o);
        drawYTitle(&dc, o);
        drawCaptions(&dc, o);
    }
    return true;
}

void SpectrumPlot::computeScale(const SpectrumPlotOptions& o) {
    const bool isFilter = o.analysisType == o.filterInputType || o.analysisType == o.filterPlotType;
    const bool isColor = o.analysisType == o.colorInputType || o.analysisType == o.colorPlotType;
    const bool plotsFilterOrColor =
        o.analysisType == o.filterPlotType || o.analysisType == o.colorPlotType;
    isFullScale = plotsFilterOrColor && fixedFullScale;
    const bool umol = photonUnits && o.photonsAsUmol && !isFilter && !isColor;
    const bool normalized = o.normalized && o.hasMain && o.hasMatching && !isFilter && !isColor;
    const double mainPeak = o.mainPeak >= 0 ? o.mainPeak : peakOf(mainData);
    const double matchingPeak = o.matchingPeak >= 0 ? o.matchingPeak : peakOf(matchingData);
    diffShown = o.diffCurve && o.hasMain && o.hasMatching;
    mainFactor = matchingFactor = umol ? UMOL_PER_PHOTON : 1.0;
    if (normalized) {
        mainFactor = mainPeak > 0 ? 1.0 / mainPeak : 1.0;
        matchingFactor = matchingPeak > 0 ? 1.0 / matchingPeak : 1.0;
        scaleTop = 1.0;
    } else if (isFullScale) {
        scaleTop = inPercent ? 100.0 : 1.0;
    } else {
        scaleTop = -1.0;
        if (o.hasMain) scaleTop = mainPeak;
        if (o.hasMatching) scaleTop = std::max(scaleTop, matchingPeak);
        scaleTop *= mainFactor;
        if (!(scaleTop > 0)) scaleTop = 1.0;  // no data or all zeros: the default scale
    }
    // Percent filters and colours read 0 to 100 as they stand; every other scale carries its
    // power of ten in the title so the top label stays between 1 and 10.
    const bool percentScale = inPercent && (isFilter || isColor);
    const int exponent = (normalized || percentScale) ? 0 : getExponent(scaleTop);
    yTopLabel = formatNumber(percentScale ? "%.0lf" : "%.2lf", scaleTop / std::pow(10.0, exponent),
                             useComma);
    yTitle = getYAxisTitle(o.hasMain || o.hasMatching, photonUnits, umol, isFilter, isColor,
                           inPercent, normalized, exponent, o.radiantPowerVariant);
}

void SpectrumPlot::computeLayout(const SpectrumPlotOptions& o, int width, int height) {
    const int u = scaleFactor;
    textHeight = font->getFontHeight();
    topPad = 10 * u + textHeight / 2;
    leftPad = 10 * u + font->getTextWidth("00") + textHeight;
    if (o.radiantPowerVariant) leftPad += textHeight;  // room for the second title line
    rightPad = 10 * u + font->getTextWidth("000") / 2;
    bottomPad = 2 * textHeight + 10 * u;
    plotLeft = leftPad;
    plotTop = topPad;
    plotRight = std::max(width - rightPad, plotLeft + 1);
    plotBottom = std::max(height - bottomPad, plotTop + 1);
}

double SpectrumPlot::plotWidthPx() const { return std::max(1, plotRight - plotLeft); }

double SpectrumPlot::plotHeightPx() const { return std::max(1, plotBottom - plotTop); }

double SpectrumPlot::nmToX(double nm) const {
    return plotLeft + (nm - minNm) * plotWidthPx() / (spanNm > 0 ? spanNm : 1.0);
}

double SpectrumPlot::curveY(double value) const {
    // Rounded, so a tail of 1e-10 of the peak lies on the axis rather than a pixel above it.
    return std::round(plotBottom - value * plotHeightPx() / scaleTop);
}

double SpectrumPlot::valueAt(const std::vector<double>& data, double nm) const {
    if (data.empty()) return 0.0;
    const double f = (nm - firstGridNm) / gridStepNm;
    const int i = static_cast<int>(std::floor(f));
    if (i < 0) return data.front();
    if (i >= static_cast<int>(data.size()) - 1) return data.back();
    return data[i] + (f - i) * (data[i + 1] - data[i]);
}

void SpectrumPlot::drawRainbow(FXDCWindow* dc, const SpectrumPlotOptions& o) {
    const int mode = o.rainbowMode;
    if (mode != RAINBOW_UNDER_CURVE && mode != RAINBOW_BACKGROUND) return;
    // Under the main curve, or under the matching one when it is plotted alone.
    const std::vector<double>& data = o.hasMain ? mainData : matchingData;
    const double factor = o.hasMain ? mainFactor : matchingFactor;
    dc->setLineWidth(1);
    dc->setLineStyle(LINE_SOLID);
    for (int x = plotLeft; x <= plotRight; ++x) {
        const double nm = minNm + spanNm * (x - plotLeft) / plotWidthPx();
        int top = plotTop;
        if (mode == RAINBOW_UNDER_CURVE) top = static_cast<int>(curveY(valueAt(data, nm) * factor));
        if (top >= plotBottom) continue;
        dc->setForeground(getSpectrumLineColor(nm));
        dc->drawLine(x, plotBottom, x, top);
    }
}

void SpectrumPlot::drawGridlines(FXDCWindow* dc) {
    dc->setForeground(gridColor);
    dc->setLineWidth(thinLineWidth);
    dc->setLineStyle(LINE_SOLID);
    for (double nm : getXTicks()) {
        const int x = static_cast<int>(nmToX(nm));
        dc->drawLine(x, plotTop, x, plotBottom);
    }
}

void SpectrumPlot::setCurveStyle(FXDCWindow* dc, int kind, bool radiant) {
    dc->setLineStyle(LINE_SOLID);
    if (kind == SAMPLE_MAIN) {
        dc->setForeground(radiant ? mainLineColor : foregroundColor);
        dc->setLineWidth(radiant ? thickLineWidth : lineWidth);
    } else if (kind == SAMPLE_MATCHING) {
        dc->setForeground(radiant ? matchLineColorRaw : matchingLineColor);
        dc->setLineWidth(radiant ? thinLineWidth : matchingLineWidth);
    } else {
        const char dash = static_cast<char>(std::min(4 * scaleFactor, 127));
        const char pattern[2] = {dash, dash};
        dc->setForeground(foregroundColor);
        dc->setLineWidth(thinLineWidth);
        dc->setDashes(0, pattern, 2);
        dc->setLineStyle(LINE_ONOFF_DASH);
    }
}

void SpectrumPlot::drawCurves(FXDCWindow* dc, const SpectrumPlotOptions& o) {
    const int last = std::min(firstIndex + numPointsShown, numPoints) - 1;
    // Short dashes on a crowded plot would merge into a solid line; then every other segment.
    const bool everySegment = plotWidthPx() / (spanNm > 0 ? spanNm : 1.0) >= 2.0;
    const double middle = 0.5 * plotHeightPx();
    for (int k = firstIndex; k < last; ++k) {
        const int x0 = static_cast<int>(nmToX(firstGridNm + k * gridStepNm));
        const int x1 = static_cast<int>(nmToX(firstGridNm + (k + 1) * gridStepNm));
        if (o.hasMain) {
            setCurveStyle(dc, SAMPLE_MAIN, o.radiantPowerVariant);
            dc->drawLine(x0, static_cast<int>(curveY(mainData[k] * mainFactor)), x1,
                         static_cast<int>(curveY(mainData[k + 1] * mainFactor)));
        }
        if (o.hasMatching) {
            setCurveStyle(dc, SAMPLE_MATCHING, o.radiantPowerVariant);
            dc->drawLine(x0, static_cast<int>(curveY(matchingData[k] * matchingFactor)), x1,
                         static_cast<int>(curveY(matchingData[k + 1] * matchingFactor)));
        }
        if (diffShown && (everySegment || (k - firstIndex) % 2 == 0)) {
            setCurveStyle(dc, SAMPLE_DIFF, o.radiantPowerVariant);
            const double d0 = matchingData[k] * matchingFactor - mainData[k] * mainFactor;
            const double d1 = matchingData[k + 1] * matchingFactor - mainData[k + 1] * mainFactor;
            // A difference of more than half the scale stays inside the frame.
            dc->setClipRectangle(plotLeft, plotTop, plotRight - plotLeft + 1,
                                 plotBottom - plotTop + 1);
            dc->drawLine(x0, static_cast<int>(curveY(d0) - middle), x1,
                         static_cast<int>(curveY(d1) - middle));
            dc->clearClipRectangle();
        }
    }
    dc->setLineStyle(LINE_SOLID);
}

void SpectrumPlot::drawColorPeakLines(FXDCWindow* dc) {
    dc->setLineWidth(thickLineWidth);
    dc->setLineStyle(LINE_SOLID);
    for (int k = 0; k < NUM_RGB_PEAKS; ++k) {
        if (rgb_wavelengths[k] < minNm || rgb_wavelengths[k] > maxNm) continue;
        const int x = static_cast<int>(nmToX(rgb_wavelengths[k]));
        dc->setForeground(FXRGB(rgb_red[k], rgb_green[k], rgb_blue[k]));
        dc->drawLine(x, plotBottom, x, plotBottom - 10 * scaleFactor);
    }
}

void SpectrumPlot::drawAxes(FXDCWindow* dc, const SpectrumPlotOptions&) {
    const int u = scaleFactor;
    const int tick = 3 * u;
    const int ascent = font->getFontAscent();
    dc->setForeground(foregroundColor);
    dc->setLineWidth(thinLineWidth);
    dc->setLineStyle(LINE_SOLID);
    dc->drawLine(plotLeft, plotTop, plotLeft, plotBottom);
    dc->drawLine(plotLeft, plotBottom, plotRight, plotBottom);
    if (showGridlines || showBox) {
        dc->drawLine(plotLeft, plotTop, plotRight, plotTop);
        dc->drawLine(plotRight, plotTop, plotRight, plotBottom);
    }
    // Two ticks on the y axis; only the top is labelled.
    dc->drawLine(plotLeft - tick, plotBottom, plotLeft, plotBottom);
    dc->drawLine(plotLeft - tick, plotTop, plotLeft, plotTop);
    const int labelX = std::max(0, plotLeft - tick - u - font->getTextWidth(yTopLabel));
    dc->drawText(labelX, plotTop + (ascent - font->getFontDescent()) / 2, yTopLabel);

    const std::vector<double> ticks = getXTicks();
    const bool crowded = static_cast<int>(ticks.size()) * font->getTextWidth("000") > plotWidthPx();
    const int labelBaseline = plotBottom + tick + u + ascent;
    // Labels by the rule above; on a plot too narrow even for those, a label that would run
    // into the one before it is left out (the right end keeps its label and drops that one).
    struct Label {
        int left, right;
        FXString text;
    };
    std::vector<Label> labels;
    const int gap = 2 * u;
    for (size_t k = 0; k < ticks.size(); ++k) {
        const int x = static_cast<int>(nmToX(ticks[k]));
        dc->drawLine(x, plotBottom, x, plotBottom + tick);
        const bool end = k == 0 || (isFullWindow() && k + 1 == ticks.size());
        if (crowded && k % 2 == 1 && !end) continue;
        const FXString text = formatNumber("%.0lf", ticks[k], false);
        const int left = x - font->getTextWidth(text) / 2;
        const Label label = {left, left + font->getTextWidth(text), text};
        const bool rightEnd = k > 0 && end;
        if (!labels.empty() && label.left < labels.back().right + gap) {
            if (!rightEnd) continue;
            if (labels.size() > 1) labels.pop_back();
        }
        labels.push_back(label);
    }
    for (const Label& label : labels) dc->drawText(label.left, labelBaseline, label.text);
    const int titleWidth = font->getTextWidth(X_AXIS_TITLE);
    dc->drawText(plotLeft + (plotRight - plotLeft - titleWidth) / 2, labelBaseline + textHeight + u,
                 X_AXIS_TITLE);
}

void SpectrumPlot::drawYTitle(FXDCWindow* dc, const SpectrumPlotOptions&) {
    // FOX 1.6 draws no rotated text: each title line goes through an off-screen image that
    // is turned a quarter counter-clockwise, so it reads upwards along the axis.
    const int MAX_PIECES = 8;
    const int lines = yTitle.contains('\n') + 1;
    for (int line = 0; line < lines; ++line) {
        FXString pieces[MAX_PIECES + 8];
        TextUtilities::TEXT_POSITION positions[MAX_PIECES + 8];
        int n = 0;
        bool hasExponent = false;
        TextUtilities::parseStringForExponents(MAX_PIECES, yTitle.section('\n', line), &n,
                                               positions, pieces, &hasExponent);
        TextUtilities::drawText(dc, app, font, smallFont, n, pieces, positions, backgroundColor,
                                foregroundColor, 2 * scaleFactor + line * textHeight, plotBottom,
                                TextUtilities::ROTATE_90, static_cast<int>(plotHeightPx()),
                                TextUtilities::ALIGN_CENTER);
    }
}

void SpectrumPlot::drawLegendSample(FXDCWindow* dc, int kind, bool radiant, int x, int y) {
    setCurveStyle(dc, kind, radiant);
    dc->drawLine(x, y, x + 35 * scaleFactor, y);
    dc->setLineStyle(LINE_SOLID);
}

void SpectrumPlot::drawPatchAt(FXDCWindow* dc, int x, int y) {
    const int u = scaleFactor;
    dc->setForeground(blackColor);
    dc->fillRectangle(x - u, y - u, 50 * u + 2 * u, 30 * u + 2 * u);
    dc->setForeground(patchColor);
    dc->fillRectangle(x, y, 50 * u, 30 * u);
}

void SpectrumPlot::drawCaptions(FXDCWindow* dc, const SpectrumPlotOptions& o) {
    if (!o.hasMain && !o.hasMatching) return;
    const bool plotsFilterOrColor =
        o.analysisType == o.filterPlotType || o.analysisType == o.colorPlotType;
    std::vector<FXString> lines;
    std::vector<LegendEntry> entries;
    bool patch = false;
    if (plotsFilterOrColor) {
        if (o.writeCaption) splitLines(o.filterColorName, &lines);
        patch = drawPatch;
    } else {
        if (o.writeCaption) splitLines(o.photometryCaption, &lines);
    }
    for (const FXString& line : lines) entries.push_back({line, SAMPLE_NONE});
    if (!plotsFilterOrColor && o.hasMatching) {
        if (o.hasMain)
            entries.push_back({o.mainTitle.empty() ? MAIN_NAME : o.mainTitle, SAMPLE_MAIN});
        entries.push_back(
            {o.matchingTitle.empty() ? MATCHING_NAME : o.matchingTitle, SAMPLE_MATCHING});
        if (diffShown) entries.push_back({DIFF_CURVE_TITLE, SAMPLE_DIFF});
    }
    if (entries.size() > static_cast<size_t>(MAX_LEGEND_LINES)) entries.resize(MAX_LEGEND_LINES);

    const int u = scaleFactor;
    const int sampleRoom = 35 * u + 5 * u;
    const int pitch = font->getFontHeight();
    const int ascent = font->getFontAscent();
    auto entryWidth = [&](const LegendEntry& e) {
        return (e.sample != SAMPLE_NONE ? sampleRoom : 0) + font->getTextWidth(e.text);
    };
    auto drawEntry = [&](const LegendEntry& e, int x, int baseline) {
        if (o.fillLegendBackground) {
            dc->setForeground(backgroundColor);
            dc->fillRectangle(x - 2 * u, baseline - ascent - 2 * u, entryWidth(e) + 4 * u,
                              pitch + 4 * u);
        }
        int textX = x;
        if (e.sample != SAMPLE_NONE) {
            drawLegendSample(dc, e.sample, o.radiantPowerVariant, x, baseline - ascent / 3);
            textX += sampleRoom;
        }
        dc->setForeground(foregroundColor);
        dc->drawText(textX, baseline, e.text);
    };

    if (o.radiantPowerVariant) {
        // One row along the top, entry after entry.
        int x = plotLeft + 5 * u;
        for (const LegendEntry& e : entries) {
            drawEntry(e, x, plotTop + textHeight);
            x += entryWidth(e) + 10 * u;
        }
        return;
    }
    int widest = patch ? 50 * u : 0;
    for (const LegendEntry& e : entries) widest = std::max(widest, entryWidth(e));
    const bool right = o.legendPosition == 1 || o.legendPosition == 2;
    const bool bottom = o.legendPosition == 2 || o.legendPosition == 3;
    const int x = right ? plotRight - 5 * u - widest : plotLeft + 5 * u;
    const int count = static_cast<int>(entries.size());
    int first = plotTop + textHeight;
    if (bottom) first = plotBottom - textHeight - (patch ? 30 * u : 0) - (count - 1) * pitch;
    for (int k = 0; k < count; ++k) drawEntry(entries[k], x, first + k * pitch);
    if (patch) {
        int patchTop = first + (count - 1) * pitch + font->getFontDescent() + 2 * u;
        if (count == 0) patchTop = bottom ? plotBottom - textHeight - 30 * u : plotTop + 5 * u;
        drawPatchAt(dc, x, patchTop);
    }
}
