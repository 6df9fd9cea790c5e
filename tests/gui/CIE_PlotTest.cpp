// The chromaticity diagram drawn into its own image: fill colours, loci, points, zoom and pan.
// Pixels are probed by channel away from any text, so the tests do not depend on fonts.
#include <gtest/gtest.h>

#include <cmath>
#include <memory>

#include "ArgbColor.h"
#include "CIE_Plot.h"
#include "GuiTestWindow.h"
#include "LogoData.h"

namespace {

constexpr int SIZE = 600;

struct Rgb {
    int r, g, b;
};
Rgb channels(FXColor c) { return {FXREDVAL(c), FXGREENVAL(c), FXBLUEVAL(c)}; }

// x,y of CIE 1931 in the diagram's own coordinates.
void toDiagram(int type, double x, double y, double* a, double* b) {
    *a = x;
    *b = y;
    if (type == 1) Vantrel::get_uv_from_xy(x, y, a, b);
    if (type == 2 || type == 4) Vantrel::get_upvp_from_xy(x, y, a, b);
}

struct Diagram {
    std::unique_ptr<CIE_Plot> plot{new CIE_Plot(guiTestWindow(), 1)};
    CIE_PlotInput in;
    explicit Diagram(int type) {
        in.diagramType = type;
        in.cctLabelType = 0;
        plot->plotPoints(in);
        plot->setPlotBounds(type, false, false);
    }
    void draw() {
        plot->plotPoints(in);
        ASSERT_TRUE(plot->makeImage(SIZE, SIZE));
    }
    int sx(double a) const { return static_cast<int>(plot->x_to_screen(a)); }
    int sy(double b) const { return static_cast<int>(plot->y_to_screen(b)); }
    Rgb fillAt(double x, double y) const {
        double a, b;
        toDiagram(in.diagramType, x, y, &a, &b);
        return channels(plot->getFillPixel(sx(a), sy(b)));
    }
    Rgb drawnAt(double a, double b) { return channels(plot->getPixel(sx(a), sy(b))); }
    // Darkest pixel (sum of channels) within r pixels of a diagram point.
    int darkestNear(double a, double b, int r) {
        int best = 3 * 255;
        for (int dy = -r; dy <= r; ++dy) {
            for (int dx = -r; dx <= r; ++dx) {
                const Rgb c = channels(plot->getPixel(sx(a) + dx, sy(b) + dy));
                best = std::min(best, c.r + c.g + c.b);
            }
        }
        return best;
    }
};

// A saturated colour leads the other two channels by this much.
constexpr int DOMINANCE = 40;

TEST(CIE_Plot, FillIsGreenAtTopRedAtRightAndWhitishInTheMiddleOnEveryDiagram) {
    for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
        SCOPED_TRACE(type);
        Diagram d(type);
        d.draw();
        const Rgb green = d.fillAt(0.2, 0.7), red = d.fillAt(0.6, 0.3),
                  white = d.fillAt(0.3333, 0.3333);
        EXPECT_GT(green.g, green.r + DOMINANCE);
        EXPECT_GT(green.g, green.b + DOMINANCE);
        EXPECT_GT(red.r, red.g + DOMINANCE);
        EXPECT_GT(red.r, red.b + DOMINANCE);
        EXPECT_GT(std::min(white.r, std::min(white.g, white.b)), 200);
    }
}

TEST(CIE_Plot, OutsideTheLocusShowsTheBackgroundWhiteOrBlack) {
    for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
        SCOPED_TRACE(type);
        double xl, yl;
        Vantrel::getMinMaxForDiagram(type, &xl, &yl);
        Diagram d(type);
        d.draw();
        const Rgb white = d.drawnAt(0.9 * xl, 0.9 * yl);
        EXPECT_EQ(white.r + white.g + white.b, 3 * 255);
        d.in.whiteBackground = false;
        d.draw();
        const Rgb black = d.drawnAt(0.9 * xl, 0.9 * yl);
        EXPECT_EQ(black.r + black.g + black.b, 0);
        // The blue corner below the locus on x,y is outside as well.
        if (type == 0) {
            EXPECT_EQ(channels(d.plot->getFillPixel(d.sx(0.05), d.sy(0.8))).r, 0);
        }
    }
}

TEST(CIE_Plot, UnfilledDiagramKeepsTheBackgroundInsideTheLocus) {
    Diagram d(0);
    d.in.unfilled = true;
    d.draw();
    const Rgb c = d.fillAt(0.2, 0.7);
    EXPECT_EQ(c.r + c.g + c.b, 3 * 255);
}

// The Planck locus is drawn in black through the chromaticity of 3000 K, and only while a
// locus type shows it.
TEST(CIE_Plot, PlanckLocusPassesThrough3000KOnBothObservers) {
    for (int type : {0, 2, 3}) {
        SCOPED_TRACE(type);
        Vantrel v;
        v.setCIE_XYZ_bar_type(type == 3 ? 3 : 0);
        double x, y, a, b;
        v.get_xy_from_CCT_Duv(3000, 0, &x, &y);
        toDiagram(type, x, y, &a, &b);
        Diagram d(type);
        d.draw();
        EXPECT_LT(d.darkestNear(a, b, 2), 60);
        d.in.locusType = 4;
        d.draw();
        EXPECT_GT(d.darkestNear(a, b, 2), 300);
    }
}

TEST(CIE_Plot, PointShowsItsSymbolColourAndSecondaryPointsAreWhiteInBlack) {
    Diagram d(0);
    d.in.allPointsOverride = false;
    d.in.showAllPointsMode = true;
    d.in.plotAllPoints = true;
    d.in.x = {0.30, 0.45};
    d.in.y = {0.45, 0.41};
    d.in.symbolType = {1, 1};
    d.in.symbolColor = {argbColor(0xFF0000FFu), argbColor(0xFF0000FFu)};
    d.plot->changeSymbolSize(12);
    d.draw();
    // The last point is the current one, drawn in black.
    EXPECT_FALSE(d.plot->isSecondaryPoint(1));
    EXPECT_TRUE(d.plot->isSecondaryPoint(0));
    const Rgb current = d.drawnAt(0.45, 0.41);
    EXPECT_LT(current.r + current.g + current.b, 60);
    const Rgb secondary = d.drawnAt(0.30, 0.45);
    EXPECT_EQ(secondary.r + secondary.g + secondary.b, 3 * 255);

    d.in = CIE_PlotInput();
    d.in.cctLabelType = 0;
    d.in.x = {0.45};
    d.in.y = {0.41};
    d.in.symbolColor = {argbColor(0xFF0000FFu)};
    d.draw();
    const Rgb blue = d.drawnAt(0.45, 0.41);
    EXPECT_GT(blue.b, 200);
    EXPECT_LT(blue.r + blue.g, 60);
    // A hidden point draws no symbol: the fill shows through (away from grid and locus).
    d.in.symbolVisible = {false};
    d.in.x = {0.47};
    d.in.y = {0.37};
    d.draw();
    const Rgb hidden = d.drawnAt(0.47, 0.37), fill = d.fillAt(0.47, 0.37);
    EXPECT_EQ(hidden.b, fill.b);
}

TEST(CIE_Plot, PointsKeptFollowTheSeriesFlags) {
    struct Case {
        bool override, showAll, plotAll, pureLines;
        int given, kept;
    } cases[] = {
        {false, false, false, false, 3, 1}, {false, false, false, true, 3, 3},
        {false, true, false, true, 3, 1},   {false, true, true, false, 3, 3},
        {true, false, false, false, 3, 3},  {false, false, false, false, 0, 0},
    };
    CIE_Plot plot(guiTestWindow(), 1);
    for (const Case& c : cases) {
        CIE_PlotInput in;
        in.allPointsOverride = c.override;
        in.showAllPointsMode = c.showAll;
        in.plotAllPoints = c.plotAll;
        in.pureColorLines = c.pureLines;
        in.x.assign(c.given, 0.4);
        in.y.assign(c.given, 0.4);
        plot.plotPoints(in);
        EXPECT_EQ(plot.getNumPoints(), c.kept) << c.override << c.showAll << c.plotAll;
    }
}

TEST(CIE_Plot, PointsAreConvertedToTheDiagramsCoordinates) {
    CIE_Plot plot(guiTestWindow(), 1);
    CIE_PlotInput in;
    in.diagramType = 2;
    in.x = {0.3127};
    in.y = {0.3290};
    plot.plotPoints(in);
    double up, vp;
    plot.getPoint(0, &up, &vp);
    EXPECT_NEAR(up, 0.1978, 1e-4);  // D65 in CIE 1976 u'v'
    EXPECT_NEAR(vp, 0.4683, 1e-4);
}

TEST(CIE_Plot, LayoutKeepsEqualUnitLengthsAndRefusesTinyCanvases) {
    for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
        Diagram d(type);
        d.draw();
        int left, top, right, bottom;
        d.plot->getPlotBoundaries(&left, &top, &right, &bottom);
        double x0, x1, y0, y1;
        d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
        EXPECT_NEAR((right - left) / (x1 - x0), (bottom - top) / (y1 - y0), 2.0) << type;
        EXPECT_EQ(static_cast<int>(d.plot->x_to_screen(x0)), left);
        EXPECT_EQ(static_cast<int>(d.plot->y_to_screen(y0)), bottom);
        EXPECT_LE(right, SIZE);
    }
    Diagram d(0);
    EXPECT_FALSE(d.plot->makeImage(9, 400));
    EXPECT_FALSE(d.plot->makeImage(400, 9));
    EXPECT_FALSE(d.plot->makeImage(60, 60));  // the plot itself would be below 10 pixels
}

TEST(CIE_Plot, TickSpacingFollowsTheSpanTable) {
    struct Case {
        bool zoomed;
        double span, step;
        int decimals;
    } cases[] = {
        {false, 0.003, 0.05, 1},   {true, 0.003, 0.0005, 4}, {true, 0.004, 0.0005, 4},
        {true, 0.00402, 0.001, 3}, {true, 0.01, 0.002, 3},   {true, 0.02, 0.005, 3},
        {true, 0.04, 0.01, 2},     {true, 0.1, 0.015, 3},    {true, 0.15, 0.025, 3},
        {true, 0.3, 0.05, 2},      {true, 0.4, 0.05, 2},     {true, 0.41, 0.1, 1},
    };
    for (const Case& c : cases) {
        int decimals = -1;
        double step = -1;
        CIE_Plot::getTickMarkSpacing(c.zoomed, c.span, &decimals, &step);
        EXPECT_DOUBLE_EQ(step, c.step) << c.span;
        EXPECT_EQ(decimals, c.decimals) << c.span;
    }
}

// The edges of every row between the bottom and the top of the locus enclose the locus points
// of that row.
TEST(CIE_Plot, FillTablesEncloseTheLocusOnEveryInnerRow) {
    constexpr int N = Vantrel::NUM_LOCUS_POINTS;
    Vantrel v;
    for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
        SCOPED_TRACE(type);
        double a[N], b[N];
        if (type == 0) v.getHorseShoeData_xy(a, b);
        if (type == 1) v.getHorseShoeData_uv(a, b);
        if (type == 2) v.getHorseShoeData_upvp(a, b);
        if (type == 3) v.getHorseShoeData_2015_10deg_xy(a, b);
        if (type == 4) v.getHorseShoeData_2015_10deg_upvp(a, b);
        double top = 0, low = 1;
        for (int i = 0; i < N; ++i) top = std::max(top, b[i]), low = std::min(low, b[i]);
        const CIE_Plot::FillTable& t = CIE_Plot::getFillTable(type);
        const int firstRow = static_cast<int>(low * 10000) + 20;
        const int lastRow = static_cast<int>(top * 10000) - 20;
        for (int row = firstRow; row < lastRow; ++row) {
            ASSERT_LT(t.start[row], t.end[row]) << row;
        }
        // 490 nm lies on the left edge, 600 nm on the right one. The right edge is the first
        // pixel of the right-hand run of the raster, a few 1/10000 inside a flat piece.
        constexpr double EDGE_TOL = 6.0;
        for (int nm : {490, 600}) {
            const int row = static_cast<int>(b[nm - 360] * 10000);
            const int edge = nm == 490 ? t.start[row] : t.end[row];
            EXPECT_NEAR(edge, a[nm - 360] * 10000, EDGE_TOL) << nm;
        }
        EXPECT_EQ(CIE_Plot::getTableRows(type), type == 1                ? 4000
                                                : type == 2 || type >= 4 ? 6500
                                                                         : 9000);
    }
}

TEST(CIE_Plot, GrayOutOfGamutGreysOnlyOutsideEverySelectedGamut) {
    Diagram d(0);
    d.in.outOfGamutMode = 1;
    d.in.gamutSelected.assign(GamutClass::NUM_GAMUTS, false);
    GamutClass g;
    // The smallest and the largest standard gamut by their green corner's y.
    int small = 0, large = 0;
    double ySmall = 1, yLarge = 0;
    for (int k = 0; k < g.getNumberOfStandardGamuts(); ++k) {
        double gx[GamutClass::MAX_POINTS], gy[GamutClass::MAX_POINTS];
        g.getGamutPoints(k, gx, gy);
        double top = 0;
        for (int p = 0; p < g.getNumPointsInGamut(k); ++p) top = std::max(top, gy[p]);
        if (top < ySmall) ySmall = top, small = k;
        if (top > yLarge) yLarge = top, large = k;
    }
    ASSERT_GT(yLarge - ySmall, 0.05);
    // A green between the two gamuts' tops.
    const double x = 0.2, y = (ySmall + yLarge) / 2;
    ASSERT_TRUE(g.isPointInStandardGamut(large, x, y));
    ASSERT_FALSE(g.isPointInStandardGamut(small, x, y));
    d.in.gamutSelected[small] = true;
    d.draw();
    Rgb c = d.fillAt(x, y);
    EXPECT_TRUE(c.r == 200 && c.g == 200 && c.b == 200);
    d.in.gamutSelected[large] = true;
    d.draw();
    c = d.fillAt(x, y);
    EXPECT_GT(c.g, c.r + DOMINANCE);
    // On the 10 degree diagram the standard gamuts colour nothing unless the user slot is on.
    d.in.diagramType = 3;
    d.draw();
    c = d.fillAt(0.2, 0.75);
    EXPECT_GT(c.g, c.r + DOMINANCE);
}

TEST(CIE_Plot, UserGamutFromTextDimsThePixelsOutsideIt) {
    Diagram d(0);
    d.in.outOfGamutMode = 2;
    d.in.gamutSelected.assign(GamutClass::NUM_GAMUTS, false);
    d.in.gamutSelected[GamutClass::USER_GAMUT] = true;
    d.in.userGamutX = "0,3x0,5x0,3";
    d.in.userGamutY = "0,3x0,3x0,5";
    d.draw();
    Diagram plain(0);
    plain.draw();
    const Rgb dimmed = d.fillAt(0.2, 0.7), full = plain.fillAt(0.2, 0.7);
    EXPECT_NEAR(dimmed.g, static_cast<int>(full.g * 0.8), 1);
    const Rgb inside = d.fillAt(0.35, 0.33), insideFull = plain.fillAt(0.35, 0.33);
    EXPECT_EQ(inside.g, insideFull.g);
}

TEST(CIE_Plot, ZoomBoxAroundAPointKeepsItAndTinyBoxesAreRefused) {
    Diagram d(0);
    d.draw();
    const int cx = d.sx(0.45), cy = d.sy(0.41);
    ASSERT_TRUE(d.plot->mapScreenTo_xy(cx + 30, cy - 20, cx - 30, cy + 25));
    double x0, x1, y0, y1;
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_TRUE(x0 < 0.45 && 0.45 < x1 && y0 < 0.41 && 0.41 < y1);
    EXPECT_TRUE(d.plot->isZoomed());

    // Below 0.0025 on one side: the range stays.
    ASSERT_TRUE(d.plot->makeImage(SIZE, SIZE));
    double before[4];
    d.plot->get_xy_plot_range(&before[0], &before[1], &before[2], &before[3]);
    EXPECT_FALSE(d.plot->mapScreenTo_xy(cx, cy, cx + 200, cy + 1));
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_DOUBLE_EQ(x0, before[0]);
    EXPECT_DOUBLE_EQ(y1, before[3]);
    EXPECT_FALSE(CIE_Plot::checkPlotBounds(0.3, 0.3024, 0.3, 0.4));
    EXPECT_TRUE(CIE_Plot::checkPlotBounds(0.3, 0.3026, 0.3, 0.4));
    EXPECT_FALSE(CIE_Plot::checkPlotBounds(0.4, 0.3, 0.3, 0.4));
}

TEST(CIE_Plot, ClickZoomKeepsTheCentreAndWheelOutAtFullRangeChangesNothing) {
    Diagram d(0);
    d.draw();
    EXPECT_FALSE(d.plot->clickZoom(1.25));
    double x0, x1, y0, y1;
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_TRUE(x0 == 0 && x1 == 0.8 && y0 == 0 && y1 == 0.9);
    EXPECT_FALSE(d.plot->isZoomed());

    d.plot->define_xy_plot_range(0.3, 0.5, 0.3, 0.5);
    EXPECT_TRUE(d.plot->clickZoom(0.8));
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_NEAR((x0 + x1) / 2, 0.4, 1e-12);
    EXPECT_NEAR((y0 + y1) / 2, 0.4, 1e-12);
    EXPECT_NEAR(x1 - x0, 0.16, 1e-12);
    // Zooming out against the lower edge clamps that edge only.
    d.plot->define_xy_plot_range(0.0, 0.1, 0.3, 0.4);
    EXPECT_TRUE(d.plot->clickZoom(1.25));
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_DOUBLE_EQ(x0, 0.0);
    EXPECT_NEAR(x1, 0.1125, 1e-12);
}

TEST(CIE_Plot, PanShiftsByTheDraggedFractionOfTheSpan) {
    Diagram d(0);
    d.plot->define_xy_plot_range(0.3, 0.5, 0.3, 0.5);
    ASSERT_TRUE(d.plot->makeImage(SIZE, SIZE));
    int left, top, right, bottom;
    d.plot->getPlotBoundaries(&left, &top, &right, &bottom);
    const int w = right - left, h = bottom - top;
    // Dragging right by a quarter of the plot and up by a tenth moves the view left and down.
    ASSERT_TRUE(d.plot->mapScreenTo_xy_pan(w / 4, h / 10));
    double x0, x1, y0, y1;
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_NEAR(x0, 0.3 - 0.2 * (w / 4) / w, 1e-12);
    EXPECT_NEAR(y1, 0.5 - 0.2 * (h / 10) / h, 1e-12);
}

TEST(CIE_Plot, FixedZoomWindowsAndSmartZoomSquares) {
    struct Case {
        int type;
        double x0, x1, y0, y1;
    } cases[] = {{0, 0.3, 0.5, 0.3, 0.5},
                 {1, 0.15, 0.3, 0.25, 0.4},
                 {2, 0.1, 0.4, 0.4, 0.6},
                 {3, 0.3, 0.5, 0.3, 0.5},
                 {4, 0.1, 0.4, 0.4, 0.6}};
    for (const Case& c : cases) {
        Diagram d(c.type);
        d.plot->setPlotBounds(c.type, true, false);
        double x0, x1, y0, y1;
        d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
        EXPECT_TRUE(x0 == c.x0 && x1 == c.x1 && y0 == c.y0 && y1 == c.y1) << c.type;
    }
    Diagram d(0);
    d.in.allPointsOverride = true;
    d.in.x = {0.40, 0.44};
    d.in.y = {0.38, 0.40};
    d.plot->plotPoints(d.in);
    double x0, x1, y0, y1;
    d.plot->setPlotBounds(0, true, true);
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_NEAR(x0, 0.375, 1e-12);
    EXPECT_NEAR(y1, 0.405, 1e-12);
    d.plot->setPlotBounds(0, true, true, true);
    d.plot->get_xy_plot_range(&x0, &x1, &y0, &y1);
    EXPECT_NEAR(x1 - x0, 0.05, 1e-12);  // 1.2 x 0.04 is below the 0.05 minimum
    EXPECT_NEAR((x0 + x1) / 2, 0.42, 1e-12);
}

TEST(CIE_Plot, ZoomBoxOverlayLeavesTheDiagramUntouched) {
    Diagram d(0);
    d.draw();
    const Rgb before = d.fillAt(0.2, 0.7);
    d.plot->drawZoomBox(100, 100, 200, 200);
    ASSERT_TRUE(d.plot->makeImage(SIZE, SIZE));
    const Rgb after = d.fillAt(0.2, 0.7);
    EXPECT_EQ(before.g, after.g);
    // The box goes on a copy: the diagram's own image has no red box edge.
    const Rgb onBox = channels(d.plot->getPixel(150, 100));
    EXPECT_FALSE(onBox.r == 255 && onBox.g == 0 && onBox.b == 0);
}

// Neighbouring quadrangles of the 2011 and 2015 tables meet: a high-CCT corner of one is the
// low-CCT corner of the next, to the last digit that each quadrangle stores on its own.
TEST(CIE_Plot, AnsiQuadranglesOfOneEditionMeetTheirNeighbours) {
    constexpr double SHARED_CORNER_TOL = 0.0003;
    const struct {
        int edition, count, first;
    } editions[] = {{2008, 8, 2700}, {2011, 8, 2700}, {2015, 10, 2200}};
    for (const auto& e : editions) {
        const double(*q)[4][2];
        const int* nominal;
        ASSERT_EQ(CIE_Plot::getAnsiQuadrangles(e.edition, &q, &nominal), e.count);
        EXPECT_EQ(nominal[0], e.first);
        if (e.edition == 2008) continue;  // its Duv targets step between 3500 K and 4000 K
        for (int i = 0; i + 1 < e.count; ++i) {
            for (int c = 0; c < 2; ++c) {
                EXPECT_NEAR(q[i][1][c], q[i + 1][0][c], SHARED_CORNER_TOL) << e.edition << i;
                EXPECT_NEAR(q[i][2][c], q[i + 1][3][c], SHARED_CORNER_TOL) << e.edition << i;
            }
        }
    }
    const double(*q2015)[4][2];
    const double(*q2011)[4][2];
    const int* n;
    CIE_Plot::getAnsiQuadrangles(2015, &q2015, &n);
    CIE_Plot::getAnsiQuadrangles(2011, &q2011, &n);
    EXPECT_EQ(q2015[2][0][0], q2011[0][0][0]);  // 2015 keeps the eight of 2011
    EXPECT_EQ(n[0], 2700);
}

TEST(CIE_Plot, AnsiQuadranglesAreDrawnInGridGrayOnTwoDegreeDiagramsOnly) {
    const double(*q)[4][2];
    const int* nominal;
    CIE_Plot::getAnsiQuadrangles(2015, &q, &nominal);
    // Middle of the lower edge of the 2200 K quadrangle, far from the Planck locus.
    const double x = (q[0][2][0] + q[0][3][0]) / 2, y = (q[0][2][1] + q[0][3][1]) / 2;
    for (int type : {0, 2, 3}) {
        Diagram d(type);
        d.in.show2015Bins = true;
        d.draw();
        double a, b;
        toDiagram(type, x, y, &a, &b);
        bool gray = false;
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dx = -1; dx <= 1; ++dx) {
                const Rgb c = channels(d.plot->getPixel(d.sx(a) + dx, d.sy(b) + dy));
                gray = gray || (c.r == 150 && c.g == 150 && c.b == 150);
            }
        }
        EXPECT_EQ(gray, type != 3) << type;
    }
}

// A filled box is gray inside with black edges; on the u,v diagram its stored corners are
// converted to x,y and placed at those numbers, which is deliberate.
TEST(CIE_Plot, BinBoxesAreFilledGrayAndUVCornersLandAtTheirXY) {
    auto grayAt = [](Diagram& d, double a, double b) {
        const Rgb c = d.drawnAt(a, b);
        return c.r == 150 && c.g == 150 && c.b == 150;
    };
    const CIE_PlotBin xyBox = {{0.41, 0.43, 0.43, 0.41}, {0.38, 0.38, 0.36, 0.36}};
    const bool filled[1] = {true};
    Diagram d(0);
    d.plot->defineBinBoxesAndPlot(nullptr, 1, &xyBox, filled);
    d.draw();
    EXPECT_TRUE(grayAt(d, 0.42, 0.37));
    EXPECT_LT(d.darkestNear(0.42, 0.38, 1), 60);  // the top edge
    d.plot->defineBinBoxesAndPlot(nullptr, 0, nullptr, nullptr);
    d.draw();
    EXPECT_FALSE(grayAt(d, 0.42, 0.37));

    // A box stored around u,v = (0.22, 0.33) lands at its x,y = (0.3667, 0.3667).
    const CIE_PlotBin uvBox = {{0.21, 0.23, 0.23, 0.21}, {0.34, 0.34, 0.32, 0.32}};
    Diagram uv(1);
    uv.plot->defineBinBoxesAndPlot(nullptr, 1, &uvBox, filled);
    uv.draw();
    double x, y;
    Vantrel::get_xy_from_uv(0.22, 0.33, &x, &y);
    EXPECT_TRUE(grayAt(uv, x, y));
    EXPECT_FALSE(grayAt(uv, 0.22, 0.33));
}

}  // namespace

TEST(CIE_Plot, TheLogoSitsInTheTopRightCornerOfLargePlotsOnly) {
    Diagram d(0);
    d.draw();
    int left, top, right, bottom;
    d.plot->getPlotBoundaries(&left, &top, &right, &bottom);
    // The middle of the logo's spectral band: pixels of the band's rainbow, not the background.
    const Rgb band = channels(d.plot->getPixel(right - 4 - LOGO_WIDTH / 2, top + 4 + 30));
    EXPECT_GT(band.r + band.g + band.b, 0);
    EXPECT_FALSE(band.r > 240 && band.g > 240 && band.b > 240) << "not the white background";
    const Rgb logoRed = channels(d.plot->getPixel(right - 4 - 8, top + 4 + 30));
    EXPECT_GT(logoRed.r, logoRed.g + DOMINANCE) << "the band ends in red";
    d.plot->setLogo(false);
    d.draw();
    const Rgb hidden = channels(d.plot->getPixel(right - 4 - 8, top + 4 + 30));
    EXPECT_FALSE(hidden.r > hidden.g + DOMINANCE) << "no logo when it is switched off";
}

namespace {

// Labels of every kind on every diagram at three sizes: none touches another or the edge.
TEST(CIE_Plot, LabelsNeverOverlapNorLeaveTheCanvas) {
    for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
        for (int size : {260, 480, 800}) {
            SCOPED_TRACE(::testing::Message() << "type " << type << ", size " << size);
            CIE_Plot plot(guiTestWindow(), 1);
            CIE_PlotInput in;
            in.diagramType = type;
            in.cctLabelType = 3;  // all labels
            in.showWavelengthMarkers = true;
            in.writePhotometry = true;
            in.photometry = "3000 K / 82 CRI / 9 R9 / 77 Rf / 101 Rg\nx 0.4370, y 0.4041";
            in.x = {0.4370, 0.3127};
            in.y = {0.4041, 0.3290};
            in.label = {"LED", "D65"};
            in.labelPosition = {3, 1};
            in.allPointsOverride = true;
            plot.plotPoints(in);
            plot.setPlotBounds(type, false, false);
            bool steps[CIE_Plot::NUM_STEP_FLAGS] = {};
            steps[4] = true;
            plot.setMacAdamsInfo(false, 0, 0, 0, steps, false);
            plot.plotPoints(in);
            ASSERT_TRUE(plot.makeImage(size, size));
            const auto& labels = plot.getPlacedLabels();
            EXPECT_GT(labels.size(), 8u);  // axis numbers and titles at least
            for (std::size_t i = 0; i < labels.size(); ++i) {
                const CIE_Plot::PlacedLabel& a = labels[i];
                EXPECT_GE(a.x, 0) << a.text;
                EXPECT_GE(a.y, 0) << a.text;
                EXPECT_LE(a.x + a.w, size) << a.text;
                EXPECT_LE(a.y + a.h, size) << a.text;
                for (std::size_t j = i + 1; j < labels.size(); ++j) {
                    const CIE_Plot::PlacedLabel& b = labels[j];
                    const bool apart = a.x + a.w <= b.x || b.x + b.w <= a.x || a.y + a.h <= b.y ||
                                       b.y + b.h <= a.y;
                    EXPECT_TRUE(apart) << "\"" << a.text << "\" and \"" << b.text << "\"";
                }
            }
        }
    }
}

}  // namespace
