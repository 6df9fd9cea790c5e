// CIE_Plot: layout, the colour fill and every layer of a full redraw.
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "CIE_Plot.h"
#include "LogoData.h"

namespace {

// Primaries of the colour fill and their white: a wide made-up gamut so that the horseshoe shows
// saturated colours up to its edge.
struct FillPrimaries {
    double m[3][3];  // columns red, green, blue; rows x, y, z
    double det;
    FillPrimaries() {
        const double p[3][2] = {{0.73, 0.265}, {0.1, 0.72}, {0.16, 0.02}};
        for (int c = 0; c < 3; ++c) {
            m[0][c] = p[c][0];
            m[1][c] = p[c][1];
            m[2][c] = 1.0 - p[c][0] - p[c][1];
        }
        det = det3(m);
    }
    static double det3(const double a[3][3]) {
        return a[0][0] * (a[1][1] * a[2][2] - a[1][2] * a[2][1]) -
               a[0][1] * (a[1][0] * a[2][2] - a[1][2] * a[2][0]) +
               a[0][2] * (a[1][0] * a[2][1] - a[1][1] * a[2][0]);
    }
};
const FillPrimaries& fillPrimaries() {
    static const FillPrimaries p;
    return p;
}
constexpr double FILL_WHITE_X = 0.3333, FILL_WHITE_Y = 0.3333;
// The white boost makes the centre of the horseshoe read as white.
constexpr double WHITE_BOOST_RADIUS = 0.3, WHITE_BOOST = 700.0;

// Truncation, as the mapping wants; a coordinate far off the screen (or not a number) stays
// far off it instead of overflowing the int.
int toInt(double v) {
    constexpr double FAR = 1e6;
    if (!(v > -FAR)) return static_cast<int>(-FAR);
    if (v > FAR) return static_cast<int>(FAR);
    return static_cast<int>(v);
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// Colour of a chromaticity

void CIE_Plot::get_XYZ_RGB(double x, double y, double* r, double* g, double* b) const {
    if (x < 1e-6 || y < 1e-6) {
        *r = *g = *b = 0.0;
        return;
    }
    const FillPrimaries& p = fillPrimaries();
    const double XYZ[3] = {x / y, 1.0, (1.0 - x - y) / y};
    double out[3];
    // Cramer's rule: column c of the primaries replaced by XYZ.
    for (int c = 0; c < 3; ++c) {
        double a[3][3];
        for (int i = 0; i < 3; ++i) {
            for (int j = 0; j < 3; ++j) a[i][j] = j == c ? XYZ[i] : p.m[i][j];
        }
        out[c] = FillPrimaries::det3(a) / p.det * 255.0;
    }
    const double ex = x - FILL_WHITE_X, ey = y - FILL_WHITE_Y;
    if (std::fabs(ex) < WHITE_BOOST_RADIUS && std::fabs(ey) < WHITE_BOOST_RADIUS) {
        const double d = std::sqrt(ex * ex + ey * ey);
        if (d < WHITE_BOOST_RADIUS) {
            const double boost = (1.0 - d / WHITE_BOOST_RADIUS) * WHITE_BOOST;
            for (double& c : out) c += boost;
        }
    }
    *r = out[0];
    *g = out[1];
    *b = out[2];
}

// Desaturates towards white until the smallest channel is 0.
void CIE_Plot::constrain_RGB(double* R, double* G, double* B) {
    const double r = *R / 255.0, g = *G / 255.0, b = *B / 255.0;
    double m;
    if (g > r && b > r) {
        m = r;
    } else if (r > g && b > g) {
        m = g;
    } else {
        m = b;
    }
    const double w = 1.0 / (1.0 - m);
    double* ch[3] = {R, G, B};
    const double v[3] = {r, g, b};
    for (int i = 0; i < 3; ++i) {
        *ch[i] = 255.0 * (1.0 + w * (v[i] - 1.0));
        if (*ch[i] < 0.0) *ch[i] = 0.0;
    }
}

void CIE_Plot::normalize_RGB(double* r, double* g, double* b) {
    const double m = std::max(*r, std::max(*g, *b));
    if (m <= 0.0) return;
    *r *= 255.0 / m;
    *g *= 255.0 / m;
    *b *= 255.0 / m;
}

void CIE_Plot::getFillColor(double x, double y, int* r, int* g, int* b) const {
    double R, G, B;
    get_XYZ_RGB(x, y, &R, &G, &B);
    if (R < 0 || G < 0 || B < 0) constrain_RGB(&R, &G, &B);
    normalize_RGB(&R, &G, &B);
    *r = toInt(R) & 0xFF;
    *g = toInt(G) & 0xFF;
    *b = toInt(B) & 0xFF;
}

// Outside every selected gamut. Predefined gamuts are 1931 2 degree data: on the 10 degree
// diagrams no point counts as inside them.
bool CIE_Plot::isOutOfGamut(double x, double y) const {
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    int selected = 0, outside = 0;
    for (int g = 0; g < GamutClass::NUM_GAMUTS; ++g) {
        if (!gamutSelected[g]) continue;
        ++selected;
        if (g == GamutClass::USER_GAMUT) {
            if (userGamuts.empty()) {
                outside = -1;
                continue;
            }
            for (const std::vector<Pt>& poly : userGamuts) {
                std::vector<double> xs, ys;
                for (const Pt& p : poly) {
                    xs.push_back(p.x);
                    ys.push_back(p.y);
                }
                if (!gamut.isPointInGamut(static_cast<int>(xs.size()), xs.data(), ys.data(), x, y))
                    ++outside;
            }
        } else if (tenDegree || !gamut.isPointInStandardGamut(g, x, y)) {
            ++outside;
        }
    }
    const int needed = gamutSelected[GamutClass::USER_GAMUT]
                           ? selected + static_cast<int>(userGamuts.size()) - 1
                           : selected;
    return outside == needed;
}

// ---------------------------------------------------------------------------------------------
// Layout and the fill pass

void CIE_Plot::getTickMarkSpacing(bool zoomed, double span, int* decimals, double* step) {
    struct Row {
        double below, step;
        int decimals;
    };
    static const Row ROWS[] = {
        // span below  step     decimals
        {0.004, 0.0005, 4}, {0.005, 0.001, 3}, {0.012, 0.002, 3}, {0.025, 0.005, 3},
        {0.05, 0.01, 2},    {0.1, 0.015, 3},   {0.2, 0.025, 3},   {0.4, 0.05, 2},
    };
    if (!zoomed) {
        *step = 0.05;
        *decimals = 1;
        return;
    }
    for (const Row& r : ROWS) {
        if (r.below + 1e-5 > span) {
            *step = r.step;
            *decimals = r.decimals;
            return;
        }
    }
    *step = 0.1;
    *decimals = 1;
}

// Both axes share the smaller step and the larger number of decimals.
void CIE_Plot::setTickMarkSpacing() {
    const bool zoomed = isZoomed();
    int dx, dy;
    double sx, sy;
    getTickMarkSpacing(zoomed, xMax - xMin, &dx, &sx);
    getTickMarkSpacing(zoomed, yMax - yMin, &dy, &sy);
    tickStep = std::min(sx, sy);
    tickDecimals = std::max(dx, dy);
}

namespace {
// Tick values of an axis: from one step below the first multiple of the step, kept inside the
// range. One more than round(span / step) + 1 is tried, so that a range of whole steps ends in
// a tick of its own (0.8 at the right of the full 1931 diagram), which the tolerance of the
// inside test is there for.
std::vector<double> tickValues(double lo, double hi, double step, std::vector<long>* index) {
    std::vector<double> out;
    const long first = std::lround(lo / step) - 1;
    const long count = std::lround((hi - lo) / step) + 2;
    for (long i = 0; i < count; ++i) {
        const double v = (first + i) * step;
        if (v >= lo && v <= hi + 1e-6) {
            out.push_back(v);
            if (index) index->push_back(first + i);
        }
    }
    return out;
}
}  // namespace

void CIE_Plot::recordGridPositions() {
    numGridX = numGridY = 0;
    for (double v : tickValues(xMin, xMax, tickStep, nullptr)) {
        if (numGridX < MAX_GRID_LINES) gridPixelX[numGridX++] = toInt(x_to_screen(v));
    }
    for (double v : tickValues(yMin, yMax, tickStep, nullptr)) {
        if (numGridY < MAX_GRID_LINES) gridPixelY[numGridY++] = toInt(y_to_screen(v));
    }
}

void CIE_Plot::makeColorCIE() {
    const FillTable& table = getFillTable(diagramType);
    const int tableHeight = static_cast<int>(yLimit * 10000);
    const double dx = (xMax - xMin) / plotWidth, dy = (yMax - yMin) / plotHeight;
    const int top = canvasHeight - bottomPad - plotHeight;
    const FXColor bg = backgroundColor();

    const bool gridInFill = gridType == 2 || (gridType == 1 && !isZoomed());
    std::vector<char> gridCol(plotWidth, 0), gridRow(plotHeight, 0);
    if (gridInFill) {
        for (int i = 0; i < numGridX; ++i) {
            const int c = gridPixelX[i] - leftPad;
            if (c >= 0 && c < plotWidth) gridCol[c] = 1;
        }
        for (int i = 0; i < numGridY; ++i) {
            const int r = gridPixelY[i] - top;
            if (r >= 0 && r < plotHeight) gridRow[r] = 1;
        }
    }
    bool anySelected = false;
    for (bool s : gamutSelected) anySelected = anySelected || s;
    const bool gamutTest = gamutColoringAllowed && anySelected &&
                           (grayOutOfGamut || dimOutOfGamut || backgroundOutOfGamut);

    double y = yMax + dy;
    for (int row = 0; row < plotHeight; ++row) {
        y -= dy;
        const double index =
            yMin * 10000 + (tableHeight - row * tableHeight / plotHeight) * (yMax - yMin) / yLimit -
            1.0;
        double left = 1.0, right = 0.0;  // empty unless the row is in the table
        const int f = static_cast<int>(std::floor(index)), c = static_cast<int>(std::ceil(index));
        if (f >= 0 && c < MAX_TABLE_ROWS) {
            if (f != c) {
                const double w = index - f;
                left = (table.start[f] + w * (table.start[c] - table.start[f])) * 0.0001;
                right = (table.end[f] + w * (table.end[c] - table.end[f])) * 0.0001;
            } else {
                left = table.start[f] * 0.0001;
                right = table.end[f] * 0.0001;
            }
        }
        FXColor* out = &pixels[static_cast<size_t>(top + row) * canvasWidth + leftPad];
        double x = xMin - dx;
        for (int col = 0; col < plotWidth; ++col) {
            x += dx;
            FXColor pixel = gridRow[row] || gridCol[col] ? gridColor : bg;
            if (x >= left && x <= right && x > 0) {
                Pt p = toXY(x, y);
                const bool outside = gamutTest && isOutOfGamut(p.x, p.y);
                double R, G, B;
                if (outside && grayOutOfGamut) {
                    R = G = B = 200;
                    pixel = FXRGBA(200, 200, 200, 255);
                } else if (outside && backgroundOutOfGamut) {
                    pixel = bg;
                } else if (unfilled) {
                    pixel = bg;
                } else {
                    get_XYZ_RGB(p.x, p.y, &R, &G, &B);
                    if (R < 0 || G < 0 || B < 0) constrain_RGB(&R, &G, &B);
                    normalize_RGB(&R, &G, &B);
                    if (outside && dimOutOfGamut) {
                        R *= 0.8;
                        G *= 0.8;
                        B *= 0.8;
                    }
                    pixel = FXRGBA(toInt(R) & 0xFF, toInt(G) & 0xFF, toInt(B) & 0xFF, 255);
                }
            }
            out[col] = pixel;
        }
    }
}

std::string CIE_Plot::tickLabel(double value) const {
    char text[32];
    std::snprintf(text, sizeof text, "%.*lf", tickDecimals, value);
    std::string s = text;
    if (useComma) std::replace(s.begin(), s.end(), '.', ',');
    return s;
}

namespace {
// Axis titles: main text and the subscript of the 10 degree observer.
void axisTitles(int type, const char** xt, const char** yt, const char** sub) {
    static const char* X[] = {"x", "u", "u'", "x", "u'"};
    static const char* Y[] = {" y ", " v ", " v' ", " y", " v'"};
    *xt = X[type];
    *yt = Y[type];
    *sub = type >= 3 ? "F,10" : "";
}
}  // namespace

void CIE_Plot::computePads(int* left, int* bottom) {
    // Labels and titles below, tick labels and the vertical title at the left.
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    *bottom = 10 * scaleFactor + (tenDegree ? 3 : 2) * font->getFontHeight();
    setTickMarkSpacing();
    const char *xt, *yt, *sub;
    axisTitles(diagramType, &xt, &yt, &sub);
    *left = font->getTextWidth(FXString("0.") + FXString('0', tickDecimals + 1)) +
            font->getTextWidth(yt) + subscriptFont->getTextWidth(sub);
}

int CIE_Plot::widthForHeight(int height) {
    int left, bottom;
    computePads(&left, &bottom);
    const int plotH = std::max(0, height - topPad - bottom);
    return left + rightPad + toInt(plotH * (xMax - xMin) / (yMax - yMin));
}

bool CIE_Plot::makeImage(int width, int height) {
    if ((zoomBoxPending || panLinePending) && width == canvasWidth && height == canvasHeight &&
        plotWidth >= 10 && plotHeight >= 10) {
        makeOverlay();
        zoomBoxPending = panLinePending = diagramChanged = false;
        return true;
    }
    overlayReady = false;
    zoomBoxPending = panLinePending = false;
    if (width < 10 || height < 10) return false;

    int newLeftPad, newBottomPad;
    computePads(&newLeftPad, &newBottomPad);
    const int availW = width - newLeftPad - rightPad, availH = height - topPad - newBottomPad;
    const double xs = xMax - xMin, ys = yMax - yMin;
    int pw, ph;
    if (availH / ys > availW / xs) {
        pw = availW;
        ph = toInt(pw * ys / xs);
    } else {
        ph = availH;
        pw = toInt(ph * xs / ys);
    }
    if (pw < 10 || ph < 10) return false;  // the last image stays

    canvasWidth = width;
    canvasHeight = height;
    leftPad = newLeftPad;
    bottomPad = newBottomPad;
    plotWidth = pw;
    plotHeight = ph;

    pixels.assign(static_cast<size_t>(width) * height, backgroundColor());
    if (gridType == 1 || gridType == 2) {
        recordGridPositions();
    } else {
        numGridX = numGridY = 0;
    }
    makeColorCIE();

    if (image->getWidth() != width || image->getHeight() != height) image->resize(width, height);
    std::copy(pixels.begin(), pixels.end(), image->getData());
    image->render();
    {
        FXDCWindow dc(image);
        drawLayers(dc);
    }
    imageRestored = false;
    diagramChanged = false;
    return true;
}

void CIE_Plot::makeImage(FXCanvas* canvas, int width, int height) {
    if (!makeImage(width, height) && (width < 10 || height < 10)) return;
    FXDCWindow dc(canvas);
    dc.drawImage(overlayReady ? overlayImage : image, 0, 0);
}

void CIE_Plot::drawPlot(FXCanvas* canvas) {
    makeImage(canvas, canvas->getWidth(), canvas->getHeight());
}

void CIE_Plot::blank(FXCanvas* canvas) { blank(canvas, whiteBackground); }

void CIE_Plot::blank(FXCanvas* canvas, bool white) {
    FXDCWindow dc(canvas);
    dc.setForeground(white ? whiteColor : blackColor);
    dc.fillRectangle(0, 0, canvas->getWidth(), canvas->getHeight());
}

// Rubber-band feedback: the cached image with a box or a line over it, nothing recomputed.
void CIE_Plot::makeOverlay() {
    if (!overlayImage) {
        overlayImage = new FXImage(parentWindow->getApp(), nullptr, 0, canvasWidth, canvasHeight);
        overlayImage->create();
    } else if (overlayImage->getWidth() != canvasWidth ||
               overlayImage->getHeight() != canvasHeight) {
        overlayImage->resize(canvasWidth, canvasHeight);
    }
    FXDCWindow dc(overlayImage);
    dc.drawImage(image, 0, 0);
    dc.setForeground(zoomBoxColor);
    dc.setLineWidth(2 * lineWidth);
    const int* r = overlayRect;
    if (zoomBoxPending) {
        dc.drawRectangle(std::min(r[0], r[2]), std::min(r[1], r[3]), std::abs(r[2] - r[0]),
                         std::abs(r[3] - r[1]));
    } else {
        dc.drawLine(r[0], r[1], r[2], r[3]);
    }
    overlayReady = true;
}

FXColor CIE_Plot::getPixel(int x, int y) {
    if (x < 0 || y < 0 || x >= image->getWidth() || y >= image->getHeight()) return 0;
    if (!imageRestored) {
        image->restore();
        imageRestored = true;
    }
    return image->getPixel(x, y);
}

FXColor CIE_Plot::getFillPixel(int x, int y) const {
    if (x < 0 || y < 0 || x >= canvasWidth || y >= canvasHeight || pixels.empty()) return 0;
    return pixels[static_cast<size_t>(y) * canvasWidth + x];
}

// ---------------------------------------------------------------------------------------------
// Layers

void CIE_Plot::drawLayers(FXDCWindow& dc) {
    dc.setFont(font);
    dc.setLineWidth(lineWidth);
    dc.setLineStyle(LINE_SOLID);
    reserveAxisLabels();
    drawBinBoxes(dc);
    drawSpectrumLocus(dc);
    drawPureColorLines(dc);
    if (locusType != 4) {
        drawLocusLines(dc);
        drawCCTlines(dc);
    }
    drawAnsiQuadrangles(dc);
    if (gridType == 0 || (gridType == 1 && isZoomed())) drawGridLines(dc);
    drawGamuts(dc);
    drawSymbols(dc);
    drawEllipses(dc, true);
    drawUserEllipses(dc);
    drawANSIEllipses(dc);
    drawEllipses(dc, false);
    drawCaptions(dc);
    drawMasks(dc);
    // Over the right margin when it needs it: the text is never cut by the frame.
    drawPhotometry(dc);
    drawTicks(dc);
    drawAxisTitles(dc);
    if (showWavelengthMarkers) drawWavelengthMarkers(dc);
    drawFrame(dc);
    drawLogo(dc);
}

namespace {
bool overlaps(const CIE_Plot::PlacedLabel& a, const CIE_Plot::PlacedLabel& b) {
    return a.x < b.x + b.w && b.x < a.x + a.w && a.y < b.y + b.h && b.y < a.y + a.h;
}
}  // namespace

bool CIE_Plot::placeLabel(FXDCWindow& dc, int x, int y, const FXString& text, FXFont* f,
                          const int* bounds) {
    FXFont* use = f != nullptr ? f : font;
    const PlacedLabel box{x, y - use->getFontAscent(), use->getTextWidth(text),
                          use->getFontHeight(), text.text()};
    const int lx = bounds ? bounds[0] : 0, ly = bounds ? bounds[1] : 0;
    const int hx = bounds ? bounds[2] : canvasWidth, hy = bounds ? bounds[3] : canvasHeight;
    if (box.x < lx || box.y < ly || box.x + box.w > hx || box.y + box.h > hy) return false;
    for (const PlacedLabel& other : placedLabels)
        if (overlaps(box, other)) return false;
    placedLabels.push_back(box);
    dc.drawText(x, y, text);
    return true;
}

void CIE_Plot::reserveAxisLabels() {
    placedLabels.clear();
    axisLabels.clear();
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    const int fh = font->getFontHeight(), ascent = font->getFontAscent();
    // The axis titles first: they always show.
    const char *xt, *yt, *sub;
    axisTitles(diagramType, &xt, &yt, &sub);
    const int xw = font->getTextWidth(xt) + subscriptFont->getTextWidth(sub);
    const int yw = font->getTextWidth(yt) + subscriptFont->getTextWidth(sub);
    placedLabels.push_back({(left + right - xw) / 2, bottom + 7 + fh, xw, fh, xt});
    placedLabels.push_back({0, (top + bottom) / 2 - ascent / 2, yw, fh, yt});
    // The axis numbers, thinned when crowded; one that would still touch another is left out.
    const bool zoomed = isZoomed();
    for (int axis = 0; axis < 2; ++axis) {
        std::vector<long> index;
        const std::vector<double> values = axis == 0 ? tickValues(xMin, xMax, tickStep, &index)
                                                     : tickValues(yMin, yMax, tickStep, &index);
        int labelWidth = 0;
        for (double v : values) {
            labelWidth = std::max(labelWidth, font->getTextWidth(tickLabel(v).c_str()));
        }
        const int length = axis == 0 ? plotWidth : plotHeight;
        const bool crowded = (static_cast<int>(values.size()) + 1) * labelWidth > length;
        const long every = (!zoomed ? 2 : 1) * (crowded ? 2 : 1);
        for (size_t k = 0; k < values.size(); ++k) {
            if (index[k] % every != 0) continue;
            const std::string text = tickLabel(values[k]);
            const int w = font->getTextWidth(text.c_str());
            PlacedLabel box{0, 0, w, fh, text};
            if (axis == 0) {
                box.x = toInt(x_to_screen(values[k])) - w / 2;
                box.y = bottom + 7;
            } else {
                box.x = left - 7 - w;
                box.y = toInt(y_to_screen(values[k])) + ascent / 2 - ascent;
            }
            bool free =
                box.x >= 0 && box.y >= 0 && box.x + w <= canvasWidth && box.y + fh <= canvasHeight;
            for (const PlacedLabel& other : placedLabels) free = free && !overlaps(box, other);
            if (!free) continue;
            placedLabels.push_back(box);
            axisLabels.push_back(box);
        }
    }
}

void CIE_Plot::drawLogo(FXDCWindow& dc) {
    // The corner of every diagram type that the locus never reaches; small plots go without.
    if (!showLogo || plotWidth < 3 * LOGO_WIDTH || plotHeight < 3 * LOGO_HEIGHT) return;
    if (logoImage == nullptr) {
        FXColor* pixels = nullptr;
        FXMALLOC(&pixels, FXColor, LOGO_WIDTH * LOGO_HEIGHT);
        for (int i = 0; i < LOGO_WIDTH * LOGO_HEIGHT; ++i) {
            pixels[i] = FXRGBA(LOGO_RGB[3 * i], LOGO_RGB[3 * i + 1], LOGO_RGB[3 * i + 2], 255);
        }
        logoImage =
            new FXImage(parentWindow->getApp(), pixels, IMAGE_OWNED, LOGO_WIDTH, LOGO_HEIGHT);
        logoImage->create();
    }
    const int gap = 4 * scaleFactor;
    dc.drawImage(logoImage, leftPad + plotWidth - LOGO_WIDTH - gap, topPad + gap);
}

void CIE_Plot::drawPolyline(FXDCWindow& dc, const Pt* p, int n) {
    for (int i = 0; i + 1 < n; ++i) {
        dc.drawLine(toInt(x_to_screen(p[i].x)), toInt(y_to_screen(p[i].y)),
                    toInt(x_to_screen(p[i + 1].x)), toInt(y_to_screen(p[i + 1].y)));
    }
}

// Deliberate: the 10 degree locus stops at index 286 and closes straight to its first point;
// the wavelength markers stop there as well.
void CIE_Plot::drawSpectrumLocus(FXDCWindow& dc) {
    dc.setForeground(contrastColor());
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    if (tenDegree && !extended2015Locus) {
        drawPolyline(dc, horseShoe, LOCUS_CUT_2015 + 1);
        const Pt closing[2] = {horseShoe[LOCUS_CUT_2015], horseShoe[0]};
        drawPolyline(dc, closing, 2);
    } else {
        drawPolyline(dc, horseShoe, NUM_LOCUS_POINTS);
    }
}

// The points in order (white, sample, locus point of the dominant wavelength).
void CIE_Plot::drawPureColorLines(FXDCWindow& dc) {
    if (!pureColorLines || numPoints < 2) return;
    dc.setForeground(contrastColor());
    drawPolyline(dc, points.data(), numPoints);
}

void CIE_Plot::drawLocusLines(FXDCWindow& dc) {
    dc.setForeground(unfilled && !whiteBackground ? whiteColor : blackColor);
    switch (locusType) {
        case 1:
            drawPolyline(dc, blackBody, NUM_BLACK_BODY_POINTS);
            drawPolyline(dc, daylight, NUM_DAYLIGHT_POINTS);
            break;
        case 2:
            drawPolyline(dc, blackBody, bbSwitch5000K);
            drawPolyline(dc, daylight, NUM_DAYLIGHT_POINTS);
            break;
        case 3:
            drawPolyline(dc, blackBody, bbSwitch4000K);
            drawPolyline(dc, blended, NUM_BLENDED_POINTS);
            drawPolyline(dc, daylight + daylightStartIndex,
                         NUM_DAYLIGHT_POINTS - daylightStartIndex);
            break;
        default:
            drawPolyline(dc, blackBody, NUM_BLACK_BODY_POINTS);
            break;
    }
}

void CIE_Plot::drawCCTlines(FXDCWindow& dc) {
    if (cctLabelType <= 0) return;
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    const FXColor color = unfilled && !whiteBackground ? whiteColor : blackColor;
    dc.setForeground(color);
    for (int i = 0; i < numAllCCTLines; ++i) drawPolyline(dc, &cctLines[i].end1, 2);

    const bool more = cctLabelType == 3 || (cctLabelType == 4 && isZoomed());
    if (cctLabelType < 2) return;
    const int gap = 4 * scaleFactor;
    for (int i = 0; i < numMajorCCTLines; ++i) {
        const CCTLine& l = cctLines[i];
        const int c = l.cct;
        const bool main = c == 1500 || c == 2000 || c == 2500 || c == 3000 || c == 4000 ||
                          c == 6000 || c == 10000;
        const bool extra = c == 3500 || c == 4500 || c == 5000 || c == 5500;
        if (!main && !(extra && more)) continue;
        const FXString text = FXStringVal(c);
        const int w = font->getTextWidth(text);
        const bool below = c == 1500 || c == 2000;
        const Pt& end = below || (c == 6000 && tenDegree) ? l.end1 : l.end2;
        const int x = toInt(x_to_screen(end.x)) - w / 2;
        const int y = toInt(y_to_screen(end.y));
        placeLabel(dc, x, below ? y + gap + font->getFontAscent() : y - gap, text);
    }
}

void CIE_Plot::drawGridLines(FXDCWindow& dc) {
    const int ext = 5 * scaleFactor;
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    dc.setForeground(gridColor);
    for (double v : tickValues(xMin, xMax, tickStep, nullptr)) {
        const int x = toInt(x_to_screen(v));
        dc.drawLine(x, top - ext, x, bottom + ext);
    }
    for (double v : tickValues(yMin, yMax, tickStep, nullptr)) {
        const int y = toInt(y_to_screen(v));
        dc.drawLine(left - ext, y, right + ext, y);
    }
}

void CIE_Plot::drawSymbol(FXDCWindow& dc, int type, int cx, int cy, double s) {
    auto poly = [&](std::initializer_list<std::pair<double, double>> pts) {
        FXPoint p[4];
        int n = 0;
        for (const auto& q : pts) {
            p[n].x = static_cast<FXshort>(cx + toInt(q.first));
            p[n].y = static_cast<FXshort>(cy + toInt(q.second));
            ++n;
        }
        dc.fillPolygon(p, n);
    };
    auto rect = [&](double w, double h) {
        dc.fillRectangle(cx - toInt(w / 2), cy - toInt(h / 2), toInt(w), toInt(h));
    };
    switch (type) {
        case 1:
            rect(s, s);
            break;
        case 2: {
            const double d = 0.7071 * s * 1.5 / 2;
            poly({{0, -d}, {d, 0}, {0, d}, {-d, 0}});
            break;
        }
        case 3:
            poly({{-s / 2, s / 3}, {0, s / 3 - 0.866 * s}, {s / 2, s / 3}});
            break;
        case 4:
            poly({{-s / 2, 2 * s / 3 - 0.866 * s}, {0, 2 * s / 3}, {s / 2, 2 * s / 3 - 0.866 * s}});
            break;
        case 5:
            poly({{-1.732 * s / 3, 0}, {0.866 * s / 3, s / 2}, {0.866 * s / 3, -s / 2}});
            break;
        case 6:
            poly({{1.732 * s / 3, 0}, {-0.866 * s / 3, s / 2}, {-0.866 * s / 3, -s / 2}});
            break;
        case 7:
            rect(0.6 * s, 1.2 * s);
            break;
        case 8:
            rect(1.2 * s, 0.6 * s);
            break;
        case 9:
            rect(0.4 * s, s);
            rect(s, 0.4 * s);
            break;
        default:
            dc.fillArc(cx - toInt(s / 2), cy - toInt(s / 2), toInt(s), toInt(s), 0, 360 * 64);
            break;
    }
}

void CIE_Plot::drawLabel(FXDCWindow& dc, int i, int cx, int cy, double s) {
    const int pos = labelPosition[i];
    if (pos < 1 || pos > 4 || label[i].empty()) return;
    const FXString text(label[i].c_str());
    const int gap = 4 * scaleFactor, w = font->getTextWidth(text), fh = font->getFontHeight();
    const int half = toInt(s / 2);
    dc.setForeground(labelInSymbolColor             ? symbolColor[i]
                     : unfilled && !whiteBackground ? whiteColor
                                                    : blackColor);
    const int lowered = cy + toInt((fh - s) / 2);
    switch (pos) {
        case 1:
            placeLabel(dc, cx - w / 2, cy - half - gap, text);
            break;
        case 2:
            placeLabel(dc, cx - w / 2, cy + fh / 2 + half + gap, text);
            break;
        case 3:
            placeLabel(dc, cx + half + gap, lowered, text);
            break;
        default:
            placeLabel(dc, cx - w - half - gap, lowered, text);
            break;
    }
}

// Secondary points first so that the primary point stays on top.
void CIE_Plot::drawSymbols(FXDCWindow& dc) {
    for (int pass = 0; pass < 2; ++pass) {
        for (int i = 0; i < numPoints; ++i) {
            if (secondaryPoint[i] != (pass == 0)) continue;
            const Pt& p = points[i];
            if (!(p.x >= xMin && p.x <= xMax && p.y >= yMin && p.y <= yMax)) continue;  // NaN too
            double s = symbolSize;
            if (plotAllPoints && i < numPoints - 1) s = std::max(4.0, symbolSize - 2 * scaleFactor);
            const int cx = toInt(x_to_screen(p.x)), cy = toInt(y_to_screen(p.y));
            if (symbolVisible[i]) {
                if (outline) {
                    dc.setForeground(secondaryPoint[i] ? blackColor : whiteColor);
                    drawSymbol(dc, symbolType[i], cx, cy, s);
                }
                dc.setForeground(secondaryPoint[i] ? whiteColor : symbolColor[i]);
                drawSymbol(dc, symbolType[i], cx, cy, std::max(1.0, s - 2 * scaleFactor));
            }
            drawLabel(dc, i, cx, cy, s);
        }
    }
}

void CIE_Plot::drawEllipseXY(FXDCWindow& dc, const double* xs, const double* ys) {
    Pt p[NUM_ELLIPSE_POINTS + 1];
    for (int k = 0; k <= NUM_ELLIPSE_POINTS; ++k) p[k] = toDiagram(xs[k], ys[k]);
    drawPolyline(dc, p, NUM_ELLIPSE_POINTS + 1);
}

void CIE_Plot::drawPhotometry(FXDCWindow& dc) {
    if (numPoints < 1 || !writePhotometry || photometry.empty()) return;
    std::vector<FXString> lines;
    size_t pos = 0;
    while (pos <= photometry.size()) {
        const size_t next = photometry.find('\n', pos);
        lines.emplace_back(photometry.substr(pos, next - pos).c_str());
        if (next == std::string::npos) break;
        pos = next + 1;
    }
    int width = 0;
    for (const FXString& l : lines) width = std::max(width, font->getTextWidth(l));
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    const int fh = font->getFontHeight();
    const int x =
        photometryAlignment == 0 ? left + 10 * scaleFactor : right - 10 * scaleFactor - width;
    dc.setForeground(textColor());
    int y = top + 3 * fh / 2;
    // Within the frame's height and the canvas's width: a line that would still run out is
    // left out, never cut.
    const int frame[4] = {0, top, canvasWidth, bottom};
    for (const FXString& l : lines) {
        // A line too long for its place moves left as far as the canvas allows.
        const int lineX = std::max(0, std::min(x, canvasWidth - font->getTextWidth(l)));
        placeLabel(dc, lineX, y, l, nullptr, frame);
        y += fh;
    }
    const double sx = (xMax - xMin) / plotWidth, sy = (yMax - yMin) / plotHeight;
    photometryBox[0] = xMin + (x - leftPad) * sx;
    photometryBox[1] = yMin + ((canvasHeight - bottomPad) - (top + fh / 2)) * sy;
    photometryBox[2] = xMin + (x + width - leftPad) * sx;
}

void CIE_Plot::drawMasks(FXDCWindow& dc) {
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    dc.setForeground(backgroundColor());
    dc.fillRectangle(0, 0, left, canvasHeight);                       // maskLeft
    dc.fillRectangle(0, 0, canvasWidth, top);                         // maskTop
    dc.fillRectangle(0, bottom, canvasWidth, canvasHeight - bottom);  // maskBottom
    dc.fillRectangle(right, 0, canvasWidth - right, canvasHeight);    // maskRight
}

void CIE_Plot::drawTicks(FXDCWindow& dc) {
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    dc.setForeground(contrastColor());
    for (double v : tickValues(xMin, xMax, tickStep, nullptr)) {
        const int x = toInt(x_to_screen(v));
        dc.drawLine(x, bottom, x, bottom + 5);
    }
    for (double v : tickValues(yMin, yMax, tickStep, nullptr)) {
        const int y = toInt(y_to_screen(v));
        dc.drawLine(left - 5, y, left, y);
    }
    // The numbers placed when the drawing began.
    const int ascent = font->getFontAscent();
    for (const PlacedLabel& l : axisLabels) dc.drawText(l.x, l.y + ascent, l.text.c_str());
}

void CIE_Plot::drawAxisTitles(FXDCWindow& dc) {
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    const char *xt, *yt, *sub;
    axisTitles(diagramType, &xt, &yt, &sub);
    const int fh = font->getFontHeight(), ascent = font->getFontAscent();
    const int lower = subscriptFont->getFontAscent() / 2;
    dc.setForeground(textColor());
    const int xw = font->getTextWidth(xt) + subscriptFont->getTextWidth(sub);
    const int xBase = bottom + 7 + fh + ascent;
    const int x0 = (left + right - xw) / 2;
    dc.drawText(x0, xBase, xt);
    const int yBase = (top + bottom) / 2 + ascent / 2;
    dc.drawText(0, yBase, yt);
    if (sub[0]) {
        dc.setFont(subscriptFont);
        dc.drawText(x0 + font->getTextWidth(xt), xBase + lower, sub);
        dc.drawText(font->getTextWidth(yt), yBase + lower, sub);
        dc.setFont(font);
    }
}

void CIE_Plot::drawWavelengthMarkers(FXDCWindow& dc) {
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    const int tick = 7 * scaleFactor, fh = font->getFontHeight();
    auto inRange = [&](const Pt& p) {
        return p.x >= xMin && p.x <= xMax && p.y >= yMin && p.y <= yMax;
    };
    for (int k = 0; k < numMarkers && k < MAX_MARKERS; ++k) {
        const Marker& m = markers[k];
        if (tenDegree && !extended2015Locus && m.nm - 360 >= LOCUS_CUT_2015) break;
        if (!inRange(m.locus) && !inRange(m.far)) continue;
        const double lx = x_to_screen(m.locus.x), ly = y_to_screen(m.locus.y);
        const double fx = x_to_screen(m.far.x), fy = y_to_screen(m.far.y);
        const double len = std::hypot(fx - lx, fy - ly);
        if (len <= 0) continue;
        const int ex = toInt(lx + tick * (fx - lx) / len), ey = toInt(ly + tick * (fy - ly) / len);
        dc.setForeground(contrastColor());
        dc.drawLine(toInt(lx), toInt(ly), ex, ey);
        if (m.nm % 10 != 0 || m.nm > 650) continue;
        const FXString text = FXStringVal(m.nm);
        const int w = font->getTextWidth(text);
        dc.setForeground(whiteBackground ? markerLabelColor : markerLabelColorDark);
        if (m.nm < 520) {
            placeLabel(dc, ex - w, ey + fh / 2, text);
        } else if (m.nm == 520) {
            placeLabel(dc, ex - w / 2, ey, text);
        } else {
            placeLabel(dc, ex, ey, text);
        }
    }
}

void CIE_Plot::drawFrame(FXDCWindow& dc) {
    int left, top, right, bottom;
    getPlotBoundaries(&left, &top, &right, &bottom);
    dc.setForeground(contrastColor());
    dc.drawRectangle(left, top, right - left, bottom - top);
}
