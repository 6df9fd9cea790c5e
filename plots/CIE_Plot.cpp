// CIE_Plot: construction, the data of each diagram type, the points handed over, zoom and pan.
#include "CIE_Plot.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "ArgbColor.h"

namespace {

FXFont* makeFont(FXApp* app, const FXFontDesc& base, FXuint size, FXuint weight) {
    FXFontDesc desc = base;
    desc.size = size;
    desc.weight = weight;
    FXFont* f = new FXFont(app, desc);
    f->create();
    return f;
}

// Half lengths (in v of CIE 1960) of the major CCT lines: 1931 2 degree and 2015 10 degree.
struct HalfLength {
    int cct;
    double h, h10;
};
constexpr HalfLength MAJOR_HALF_LENGTHS[] = {
    // CCT    h        on types 3, 4
    {1500, 0.0035, 0.0035}, {2000, 0.005, 0.005},   {2500, 0.005, 0.005},   {3000, 0.005, 0.005},
    {3500, 0.0045, 0.0045}, {4000, 0.0037, 0.0037}, {4500, 0.0027, 0.0027}, {5000, 0.0013, 0.0018},
    {5500, 0.00009, 0.001}, {6000, 0.001, 0.00007}, {7000, 0.003, 0.0016},  {8000, 0.0047, 0.0033},
    {9000, 0.0057, 0.0045}, {10000, 0.01, 0.01},
};
// Minor lines up to this CCT take h (and h on types 3, 4).
constexpr HalfLength MINOR_HALF_LENGTHS[] = {
    // up to CCT  h        on types 3, 4
    {3400, 0.002, 0.002},     {3900, 0.0017, 0.0017},   {4200, 0.0013, 0.0013},
    {4400, 0.0011, 0.0011},   {4700, 0.0008, 0.0008},   {4900, 0.0006, 0.0006},
    {5100, 0.0004, 0.00048},  {5200, 0.0003, 0.00046},  {5300, 0.00022, 0.0004},
    {5400, 0.00013, 0.00036}, {5600, 0.00005, 0.00022}, {5700, 0.00013, 0.00018},
    {5800, 0.0002, 0.00013},  {5900, 0.0003, 0.00007},
};

// Where the daylight locus starts and the blend of Planck and daylight ends, in x of each
// observer: the daylight chromaticity of 5000 K.
constexpr double DAYLIGHT_START_X[2] = {0.3457, 0.3478};
constexpr double DAYLIGHT_END_X[2] = {0.2788, 0.278};

}  // namespace

CIE_Plot::CIE_Plot(FXTopWindow* owner, int scale) : parentWindow(owner) {
    scaleFactor = scale < 1 ? 1 : scale;
    lineWidth = scaleFactor;
    rightPad = topPad = 20 * scaleFactor;
    whiteColor = argbColor(0xFFFFFFFFu);
    blackColor = argbColor(0xFF000000u);
    gridColor = argbColor(0xFF969696u);
    markerLabelColor = argbColor(0xFF0000FFu);
    zoomBoxColor = argbColor(0xFFFF0000u);
    markerLabelColorDark = argbColor(0xFF6464FFu);
    ellipseColor = blackColor;

    FXApp* app = owner->getApp();
    FXFontDesc desc;
    app->getNormalFont()->getFontDesc(desc);
    font = makeFont(app, desc, desc.size, desc.weight);
    boldFont = makeFont(app, desc, desc.size, FXFont::Bold);
    subscriptFont = makeFont(app, desc, desc.size * 3 / 4, desc.weight);

    image = new FXImage(app, nullptr, IMAGE_KEEP | IMAGE_OWNED, 1, 1);
    image->create();

    defineSomeDiagramParameters();
    lastDiagramType = diagramType;
    setPlotBounds(diagramType, false, false);
}

CIE_Plot::~CIE_Plot() {
    delete logoImage;
    delete overlayImage;
    delete image;
    delete subscriptFont;
    delete boldFont;
    delete font;
}

void CIE_Plot::changeFontSize(int points) {
    if (points < 1) return;
    FXApp* app = parentWindow->getApp();
    FXFontDesc desc;
    font->getFontDesc(desc);
    const FXuint normalWeight = desc.weight;
    delete font;
    delete boldFont;
    delete subscriptFont;
    font = makeFont(app, desc, points * 10, normalWeight);
    boldFont = makeFont(app, desc, points * 10, FXFont::Bold);
    subscriptFont = makeFont(app, desc, points * 10 * 3 / 4, normalWeight);
    diagramChanged = true;
}

int CIE_Plot::getFontSize() const {
    FXFontDesc desc;
    font->getFontDesc(desc);
    return static_cast<int>(desc.size / 10);
}

void CIE_Plot::setEllipseColor(int choice) {
    ellipseColor = choice == 1   ? argbColor(0xFFFF0000u)
                   : choice == 2 ? argbColor(0xFF0000FFu)
                                 : blackColor;
}

void CIE_Plot::setEllipseInfo(EllipseInfo* info, bool single, double x, double y, double user,
                              const bool stepsEnabled[NUM_STEP_FLAGS], bool thick) {
    info->single = single;
    info->x = x;
    info->y = y;
    info->user = user;
    for (int i = 0; i < NUM_STEP_FLAGS; ++i) info->steps[i] = stepsEnabled[i];
    info->thick = thick;
}

void CIE_Plot::setMacAdamsInfo(bool single, double x, double y, double userSteps,
                               const bool stepsEnabled[NUM_STEP_FLAGS], bool thick) {
    setEllipseInfo(&macAdamInfo, single, x, y, userSteps, stepsEnabled, thick);
}

void CIE_Plot::setUpANSISEllipseInfo(const bool* enabled, bool thick) {
    ansiEllipseEnabled.assign(enabled, enabled + Vantrel::getNumANSIEllipses());
    ansiThick = thick;
}

void CIE_Plot::drawUserEllipse(bool show, double x, double y, double a, double b, double theta,
                               double steps) {
    drawUserEllipseFlag = show;
    userEllipse = {x, y, a, b, theta};
    userEllipseSteps = steps;
}

void CIE_Plot::drawUserEllipseArray(int n, const double* x, const double* y, const double* a,
                                    const double* b, const double* theta, double steps) {
    userEllipses.clear();
    for (int i = 0; i < n; ++i) userEllipses.push_back({x[i], y[i], a[i], b[i], theta[i]});
    drawUserEllipseArrayFlag = n > 0;
    userEllipseArraySteps = steps;
}

void CIE_Plot::setUpVpCircleInfo(bool single, double x, double y, double userRadius,
                                 const bool stepsEnabled[NUM_STEP_FLAGS], bool thick) {
    setEllipseInfo(&circleInfo, single, x, y, userRadius, stepsEnabled, thick);
}

// ---------------------------------------------------------------------------------------------
// Diagram data

CIE_Plot::Pt CIE_Plot::toDiagram(double x, double y) const {
    Pt p{x, y};
    if (diagramType == 1) Vantrel::get_uv_from_xy(x, y, &p.x, &p.y);
    if (diagramType == 2 || diagramType == 4) Vantrel::get_upvp_from_xy(x, y, &p.x, &p.y);
    return p;
}

CIE_Plot::Pt CIE_Plot::toXY(double a, double b) const {
    Pt p{a, b};
    if (diagramType == 1) Vantrel::get_xy_from_uv(a, b, &p.x, &p.y);
    if (diagramType == 2 || diagramType == 4) Vantrel::get_xy_from_upvp(a, b, &p.x, &p.y);
    return p;
}

void CIE_Plot::defineSomeDiagramParameters() {
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    vantrel.setCIE_XYZ_bar_type(tenDegree ? 3 : 0);
    Vantrel::getMinMaxForDiagram(diagramType, &xLimit, &yLimit);
    defineHorseShoe_xy();
    getFillTable(diagramType);  // made at first use of the type
    defineLoci();
    defineWavelengths();
    defineCCTlines();
    diagramChanged = true;
}

// 471 locus points from 360 nm, the last repeated as the first to close the polygon.
void CIE_Plot::defineHorseShoe_xy() {
    constexpr int N = Vantrel::NUM_LOCUS_POINTS;
    double a[N], b[N];
    switch (diagramType) {
        case 1:
            vantrel.getHorseShoeData_uv(a, b);
            break;
        case 2:
            vantrel.getHorseShoeData_upvp(a, b);
            break;
        case 3:
            vantrel.getHorseShoeData_2015_10deg_xy(a, b);
            break;
        case 4:
            vantrel.getHorseShoeData_2015_10deg_upvp(a, b);
            break;
        default:
            vantrel.getHorseShoeData_xy(a, b);
            break;
    }
    for (int i = 0; i < N; ++i) horseShoe[i] = {a[i], b[i]};
    horseShoe[N] = horseShoe[0];
}

void CIE_Plot::defineLoci() {
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    double bx[NUM_BLACK_BODY_POINTS], by[NUM_BLACK_BODY_POINTS];
    if (tenDegree) {
        vantrel.defineBlackBodyline_2015_10Deg(&bbSwitch4000K, &bbSwitch5000K, bx, by);
    } else {
        vantrel.defineBlackBodyline(&bbSwitch4000K, &bbSwitch5000K, bx, by);
    }
    for (int i = 0; i < NUM_BLACK_BODY_POINTS; ++i) blackBody[i] = toDiagram(bx[i], by[i]);

    const double start = DAYLIGHT_START_X[tenDegree], end = DAYLIGHT_END_X[tenDegree];
    const double step = (end - start) / (NUM_DAYLIGHT_POINTS - 1);
    for (int i = 0; i < NUM_DAYLIGHT_POINTS; ++i) {
        const double x = start + i * step;
        daylight[i] = toDiagram(x, vantrel.getSyntheticDaylight_Cy(x));
    }
    // The blend runs from Planck at 4000 K to daylight at 5000 K.
    const double blendStart = bx[bbSwitch4000K - 1], blendEnd = start;
    daylightStartIndex = static_cast<int>(std::fabs((start - blendEnd) / step));
    for (int i = 0; i < NUM_BLENDED_POINTS; ++i) {
        const double x = blendStart + i * (blendEnd - blendStart) / (NUM_BLENDED_POINTS - 1);
        blended[i] = toDiagram(x, vantrel.getTM30BlendedLocus_Cy(x));
    }
}

// Markers every 5 nm from 440 nm; each knows its point on the locus and a point 0.1 away along
// the locus normal, on the outer side.
void CIE_Plot::defineWavelengths() {
    const int leftBelow = diagramType == 0   ? 521
                          : diagramType == 3 ? 515
                          : diagramType == 4 ? 525
                                             : 531;
    for (int k = 0; k < MAX_MARKERS; ++k) {
        Marker& m = markers[k];
        m.nm = firstMarkerNm + k * markerStepNm;
        const int i = m.nm - 360;
        m.locus = horseShoe[i];
        const double dx = horseShoe[i + 1].x - horseShoe[i - 1].x;
        const double dy = horseShoe[i + 1].y - horseShoe[i - 1].y;
        const double slope = -1.0 / (dy / dx);
        const double len = 0.1 / std::sqrt(1.0 + slope * slope);
        m.left = m.nm < leftBelow;
        const double sign = m.left ? -1.0 : 1.0;
        m.far = {m.locus.x + sign * len, m.locus.y + sign * len * slope};
    }
}

void CIE_Plot::defineCCTlines() {
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    int n = 0;
    auto addLine = [&](int cct, double h, bool major) {
        double x0, y0;
        vantrel.get_xy_from_CCT_Duv(cct, 0.0, &x0, &y0);
        CCTLine& line = cctLines[n++];
        line.cct = cct;
        line.major = major;
        line.slope = vantrel.getSlopeOfCCTLine_xy(static_cast<double>(cct));
        line.intercept = y0 - line.slope * x0;
        double shift = 0.0;
        if (!major && cct > 5000 && locusType >= 1 && locusType <= 3) {
            // The short lines straddle the daylight locus rather than the Planck locus.
            shift = tenDegree ? 1.15 * h : 0.75 * h;
            if (tenDegree) h *= 1.4;
            if (cct > 5501) shift = -shift;
        }
        double u, v, x1, x2, dummy;
        Vantrel::get_uv_from_xy(x0, y0, &u, &v);
        Vantrel::get_xy_from_uv(u, v - h, &x1, &dummy);
        Vantrel::get_xy_from_uv(u, v + h, &x2, &dummy);
        x1 += shift;
        x2 += shift;
        line.end1 = toDiagram(x1, line.slope * x1 + line.intercept);
        line.end2 = toDiagram(x2, line.slope * x2 + line.intercept);
    };
    for (const HalfLength& m : MAJOR_HALF_LENGTHS) addLine(m.cct, tenDegree ? m.h10 : m.h, true);
    numMajorCCTLines = n;
    if (show100KLines) {
        for (int cct = 1600; cct <= 5900; cct += 100) {
            if (cct % 500 == 0) continue;
            const HalfLength* row = MINOR_HALF_LENGTHS;
            while (row->cct < cct) ++row;
            addLine(cct, tenDegree ? row->h10 : row->h, false);
        }
    }
    numAllCCTLines = n;
    lastCctLabelType = cctLabelType;
    lastLocusType = locusType;
    last100K = show100KLines;
}

void CIE_Plot::defineUserGamuts(const std::string& xs, const std::string& ys) {
    lastUserGamutX = xs;
    lastUserGamutY = ys;
    userGamuts.clear();
    const std::string sep = GamutClass::getUserGamutSeperationSym();
    const size_t separators = std::count(xs.begin(), xs.end(), sep[0]);
    const size_t room = (separators + 2) / 2 + 1;
    std::vector<int> counts(room), firsts(room);
    std::vector<std::string> xo(room), yo(room);
    int count = 0;
    if (!gamut.getNumbersForUserGamuts(xs, ys, &count, counts.data(), firsts.data(), xo.data(),
                                       yo.data())) {
        return;
    }
    auto values = [&](std::string text) {
        std::replace(text.begin(), text.end(), ',', '.');
        std::vector<double> out;
        size_t pos = 0;
        while (pos <= text.size()) {
            const size_t next = text.find(sep[0], pos);
            const std::string piece =
                text.substr(pos, next == std::string::npos ? next : next - pos);
            out.push_back(std::strtod(piece.c_str(), nullptr));
            if (next == std::string::npos) break;
            pos = next + 1;
        }
        return out;
    };
    for (int g = 0; g < count; ++g) {
        const std::vector<double> gx = values(xo[g]), gy = values(yo[g]);
        std::vector<Pt> poly;
        for (size_t k = 0; k < gx.size() && k < gy.size(); ++k) poly.push_back({gx[k], gy[k]});
        if (poly.empty()) continue;
        poly.push_back(poly.front());
        userGamuts.push_back(poly);
    }
}

// ---------------------------------------------------------------------------------------------
// Points

void CIE_Plot::plotPoints(const CIE_PlotInput& in) {
    diagramType = in.diagramType >= 0 && in.diagramType < NUM_DIAGRAM_TYPES ? in.diagramType : 0;
    unfilled = in.unfilled;
    photometryAlignment = in.photometryAlignment;
    showAllPointsMode = in.showAllPointsMode;
    plotAllPoints = in.plotAllPoints;
    writePhotometry = in.writePhotometry;
    locusType = in.locusType;
    show2008Bins = in.show2008Bins;
    show2011Bins = in.show2011Bins;
    show2015Bins = in.show2015Bins;
    pureColorLines = in.pureColorLines;
    showWavelengthMarkers = in.showWavelengthMarkers;
    show100KLines = in.show100KLines;
    labelInSymbolColor = in.labelInSymbolColor;
    photometry = in.photometry;
    useComma = in.useComma;
    whiteBackground = in.whiteBackground;
    solidGamutLines = in.solidGamutLines;
    cctLabelType = in.cctLabelType;
    grayOutOfGamut = in.outOfGamutMode == 1;
    dimOutOfGamut = in.outOfGamutMode == 2;
    backgroundOutOfGamut = in.outOfGamutMode == 3;
    whiteText = in.whiteText;
    gridType = in.gridType;
    drawGamutBoundary = in.drawGamutBoundary;
    for (int g = 0; g < GamutClass::NUM_GAMUTS; ++g) {
        gamutSelected[g] = g < static_cast<int>(in.gamutSelected.size()) && in.gamutSelected[g];
    }

    if (diagramType != lastDiagramType) {
        lastDiagramType = diagramType;
        defineSomeDiagramParameters();
    } else if (cctLabelType != lastCctLabelType || locusType != lastLocusType ||
               show100KLines != last100K) {
        defineCCTlines();
    }
    if (in.userGamutX != lastUserGamutX || in.userGamutY != lastUserGamutY) {
        defineUserGamuts(in.userGamutX, in.userGamutY);
    }
    const bool tenDegree = diagramType == 3 || diagramType == 4;
    gamutColoringAllowed = !(tenDegree && !gamutSelected[GamutClass::USER_GAMUT]);

    // How many points the diagram keeps.
    const int given = static_cast<int>(std::min(in.x.size(), in.y.size()));
    int kept = given;
    if (in.allPointsOverride || (showAllPointsMode && plotAllPoints)) {
        kept = given;
    } else if (showAllPointsMode || (given >= 2 && !pureColorLines)) {
        kept = std::min(given, 1);
    }
    numPoints = kept;
    points.resize(kept);
    secondaryPoint.assign(kept, false);
    symbolType.assign(kept, 0);
    symbolColor.assign(kept, blackColor);
    symbolVisible.assign(kept, true);
    macAdamAtPoint.assign(kept, false);
    circleAtPoint.assign(kept, false);
    labelPosition.assign(kept, in.defaultLabelPosition);
    label.assign(kept, std::string());
    auto at = [](const auto& v, int i, auto fallback) {
        return i < static_cast<int>(v.size()) ? v[i] : fallback;
    };
    for (int i = 0; i < kept; ++i) {
        points[i] = toDiagram(in.x[i], in.y[i]);
        secondaryPoint[i] = !in.allPointsOverride && i > 0;
        symbolType[i] = at(in.symbolType, i, 0);
        symbolColor[i] = at(in.symbolColor, i, blackColor);
        symbolVisible[i] = at(in.symbolVisible, i, true);
        macAdamAtPoint[i] = at(in.macAdamAtPoint, i, false);
        circleAtPoint[i] = at(in.circleAtPoint, i, false);
        labelPosition[i] = at(in.labelPosition, i, in.defaultLabelPosition);
        label[i] = at(in.label, i, std::string());
    }
    if (!in.allPointsOverride && showAllPointsMode && plotAllPoints && kept > 0) {
        // The current result is the last point of the series.
        secondaryPoint[0] = kept > 1;
        secondaryPoint[kept - 1] = false;
        symbolColor[kept - 1] = blackColor;
    }
    diagramChanged = true;
}

void CIE_Plot::getPoint(int i, double* x, double* y) const {
    if (i < 0 || i >= numPoints) return;
    *x = points[i].x;
    *y = points[i].y;
}

bool CIE_Plot::isSecondaryPoint(int i) const {
    return i >= 0 && i < numPoints && secondaryPoint[i];
}

// ---------------------------------------------------------------------------------------------
// Range, zoom and pan

void CIE_Plot::setPlotBounds(int type, bool zoom, bool smartZoom) {
    setPlotBounds(type, zoom, smartZoom, false);
}

void CIE_Plot::setPlotBounds(int type, bool zoom, bool smartZoom, bool allPoints) {
    double lx, ly;
    Vantrel::getMinMaxForDiagram(type, &lx, &ly);
    if (type == diagramType) {
        xLimit = lx;
        yLimit = ly;
    }
    if (!zoom) {
        define_xy_plot_range(0.0, lx, 0.0, ly);
        return;
    }
    if (smartZoom && allPoints && numPoints > 0) {
        double x0 = points[0].x, x1 = x0, y0 = points[0].y, y1 = y0;
        for (const Pt& p : points) {
            x0 = std::min(x0, p.x);
            x1 = std::max(x1, p.x);
            y0 = std::min(y0, p.y);
            y1 = std::max(y1, p.y);
        }
        const double half = std::max(0.05, 1.2 * std::max(x1 - x0, y1 - y0)) / 2;
        const double cx = (x0 + x1) / 2, cy = (y0 + y1) / 2;
        define_xy_plot_range(cx - half, cx + half, cy - half, cy + half);
    } else if (smartZoom && numPoints > 0) {
        const double half = 0.05 / 2;
        define_xy_plot_range(points[0].x - half, points[0].x + half, points[0].y - half,
                             points[0].y + half);
    } else if (type == 1) {
        define_xy_plot_range(0.15, 0.3, 0.25, 0.4);
    } else if (type == 2 || type == 4) {
        define_xy_plot_range(0.1, 0.4, 0.4, 0.6);
    } else {
        define_xy_plot_range(0.3, 0.5, 0.3, 0.5);
    }
}

// Clamped to the diagram: a range pushed against an edge gets smaller.
void CIE_Plot::define_xy_plot_range(double x0, double x1, double y0, double y1) {
    xMin = std::max(0.0, x0);
    yMin = std::max(0.0, y0);
    xMax = std::min(xLimit, x1);
    yMax = std::min(yLimit, y1);
    diagramChanged = true;
}

void CIE_Plot::get_xy_plot_range(double* x0, double* x1, double* y0, double* y1) const {
    *x0 = xMin;
    *x1 = xMax;
    *y0 = yMin;
    *y1 = yMax;
}

bool CIE_Plot::checkPlotBounds(double x0, double x1, double y0, double y1) {
    return !(x1 - x0 < MIN_SPAN || y1 - y0 < MIN_SPAN || x0 > x1 || y0 > y1);
}

bool CIE_Plot::isZoomed() const {
    return !(std::fabs(xMin) < 1e-6 && std::fabs(yMin) < 1e-6 && std::fabs(xMax - xLimit) < 1e-6 &&
             std::fabs(yMax - yLimit) < 1e-6);
}

double CIE_Plot::x_to_screen(double x) const {
    return leftPad + (x - xMin) * plotWidth / (xMax - xMin);
}

double CIE_Plot::y_to_screen(double y) const {
    return (canvasHeight - bottomPad) - (y - yMin) * plotHeight / (yMax - yMin);
}

bool CIE_Plot::mapScreenTo_xy(int sx1, int sy1, int sx2, int sy2) {
    if (plotWidth <= 0 || plotHeight <= 0) return false;
    auto toX = [&](int sx) { return xMin + (sx - leftPad) * (xMax - xMin) / plotWidth; };
    auto toY = [&](int sy) {
        return yMin + ((canvasHeight - bottomPad) - sy) * (yMax - yMin) / plotHeight;
    };
    const double xa = toX(sx1), xb = toX(sx2), ya = toY(sy1), yb = toY(sy2);
    const double x0 = std::min(xa, xb), x1 = std::max(xa, xb);
    const double y0 = std::min(ya, yb), y1 = std::max(ya, yb);
    if (!checkPlotBounds(x0, x1, y0, y1)) return false;
    define_xy_plot_range(x0, x1, y0, y1);
    return true;
}

bool CIE_Plot::mapScreenTo_xy_pan(int dx, int dy) {
    if (plotWidth <= 0 || plotHeight <= 0) return false;
    const double sx = static_cast<double>(dx) / plotWidth * (xMax - xMin);
    const double sy = static_cast<double>(dy) / plotHeight * (yMax - yMin);
    const double x0 = xMin - sx, x1 = xMax - sx, y0 = yMin - sy, y1 = yMax - sy;
    const double cx0 = std::max(0.0, x0), cx1 = std::min(xLimit, x1);
    const double cy0 = std::max(0.0, y0), cy1 = std::min(yLimit, y1);
    if (!checkPlotBounds(cx0, cx1, cy0, cy1)) return false;
    define_xy_plot_range(x0, x1, y0, y1);
    return true;
}

bool CIE_Plot::clickZoom(double factor) {
    const double cx = (xMin + xMax) / 2, cy = (yMin + yMax) / 2;
    const double hx = (xMax - xMin) / 2 * factor, hy = (yMax - yMin) / 2 * factor;
    const double x0 = cx - hx, x1 = cx + hx, y0 = cy - hy, y1 = cy + hy;
    if (!checkPlotBounds(x0, x1, y0, y1)) return false;
    if ((x0 < 0.0 && x1 > xLimit) || (y0 < 0.0 && y1 > yLimit)) return false;
    define_xy_plot_range(x0, x1, y0, y1);
    return true;
}

void CIE_Plot::drawZoomBox(int x1, int y1, int x2, int y2) {
    overlayRect[0] = x1;
    overlayRect[1] = y1;
    overlayRect[2] = x2;
    overlayRect[3] = y2;
    zoomBoxPending = true;
}

void CIE_Plot::drawPanLine(int x1, int y1, int x2, int y2) {
    overlayRect[0] = x1;
    overlayRect[1] = y1;
    overlayRect[2] = x2;
    overlayRect[3] = y2;
    panLinePending = true;
}

void CIE_Plot::getSize(int* width, int* height) const {
    *width = canvasWidth;
    *height = canvasHeight;
}

void CIE_Plot::getPlotPadding(int* left, int* right, int* top, int* bottom) const {
    *left = leftPad;
    *right = rightPad;
    *top = topPad;
    *bottom = bottomPad;
}

void CIE_Plot::getPlotBoundaries(int* left, int* top, int* right, int* bottom) const {
    *left = leftPad;
    *right = leftPad + plotWidth;
    *bottom = canvasHeight - bottomPad;
    *top = *bottom - plotHeight;
}

void CIE_Plot::getPhototmetryStrPosition(double* left, double* top, double* right) const {
    *left = photometryBox[0];
    *top = photometryBox[1];
    *right = photometryBox[2];
}
