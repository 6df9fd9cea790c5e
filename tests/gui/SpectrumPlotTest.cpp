// The spectrum plot: scale, titles, ticks, wheel zoom and the pixels of curves and rainbow.
// Pixels are probed away from any text, so the tests do not depend on the fonts installed.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "GuiTestWindow.h"
#include "SpectrumPlot.h"

namespace {
const int N = 236;  // 360 nm to 830 nm in 2 nm steps
const int W = 600;
const int H = 400;
// Channels of a rendered pixel may move by a step or two on displays of other depths.
const int CHANNEL_TOL = 8;

std::vector<double> gaussian(double peakNm, double sigmaNm, double height) {
    std::vector<double> v(N);
    for (int i = 0; i < N; ++i) {
        const double d = (360.0 + 2 * i - peakNm) / sigmaNm;
        v[i] = height * std::exp(-0.5 * d * d);
    }
    return v;
}

struct Plot {
    SpectrumPlot plot{guiTestWindow()};
    int left = 0, right = 0, top = 0, bottom = 0;

    void draw(const std::vector<double>& main, const SpectrumPlotOptions& o,
              const std::vector<double>* matching = nullptr) {
        plot.passData(N, main.data(), matching ? matching->data() : nullptr);
        plot.setPlotMinMax(360.0, 830.0);
        ASSERT_TRUE(plot.drawPlot(W, H, o));
        plot.getPlotBoundaries(&left, &right, &top, &bottom);
    }
    int x(double nm) const {
        return left + static_cast<int>((nm - 360.0) * (right - left) / 470.0);
    }
    // Highest row of the column, inside the plot, that is not white; -1 when there is none.
    int topInk(int col) {
        for (int y = top - 3; y < bottom; ++y)
            if (plot.getPixel(col, y) != FXRGB(255, 255, 255)) return y;
        return -1;
    }
    // Ink within a pixel of the row: a steep line covers several rows of one column.
    bool inkNear(int col, int row) {
        for (int y = row - 1; y <= row + 1; ++y)
            if (plot.getPixel(col, y) != FXRGB(255, 255, 255)) return true;
        return false;
    }
};

SpectrumPlotOptions mainOnly() {
    SpectrumPlotOptions o;
    o.hasMain = true;
    return o;
}

::testing::AssertionResult channelsNear(FXColor c, int r, int g, int b) {
    if (std::abs(static_cast<int>(FXREDVAL(c)) - r) <= CHANNEL_TOL &&
        std::abs(static_cast<int>(FXGREENVAL(c)) - g) <= CHANNEL_TOL &&
        std::abs(static_cast<int>(FXBLUEVAL(c)) - b) <= CHANNEL_TOL)
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "got " << FXREDVAL(c) << "," << FXGREENVAL(c) << ","
                                         << FXBLUEVAL(c) << " want " << r << "," << g << "," << b;
}
}  // namespace

TEST(SpectrumPlot, RainbowColoursFollowTheDoubledRampsAtTheirBreakPoints) {
    SpectrumPlot plot(guiTestWindow());
    const struct {
        double nm;
        int r, g, b;
    } cases[] = {
        {360, 180, 0, 255},   {440, 20, 0, 255}, {450, 0, 0, 255},  {470, 0, 0, 255},
        {487.5, 0, 254, 254}, {505, 0, 255, 0},  {530, 86, 255, 0}, {577.5, 254, 254, 0},
        {650, 255, 0, 0},     {730, 255, 0, 0},  {780, 155, 0, 0},  {900, 0, 0, 0},
    };
    for (const auto& c : cases) {
        const FXColor color = plot.getSpectrumLineColor(c.nm);
        EXPECT_EQ(FXREDVAL(color), c.r) << c.nm;
        EXPECT_EQ(FXGREENVAL(color), c.g) << c.nm;
        EXPECT_EQ(FXBLUEVAL(color), c.b) << c.nm;
    }
}

TEST(SpectrumPlot, RainbowFillsUnderTheCurveOnlyOrTheWholeBackground) {
    const std::vector<double> half(N, 0.5);
    for (int mode : {1, 2}) {
        Plot p;
        SpectrumPlotOptions o = mainOnly();
        o.mainPeak = 1.0;  // the flat curve stands at half height
        o.rainbowMode = mode;
        p.draw(half, o);
        const int below = p.bottom - (p.bottom - p.top) / 4;
        const int above = p.top + (p.bottom - p.top) / 4;
        const struct {
            double nm;
            int r, g, b;
        } columns[] = {{450, 0, 0, 255}, {530, 86, 255, 0}, {620, 255, 104, 0}};
        for (const auto& c : columns) {
            const FXColor under = p.plot.getPixel(p.x(c.nm), below);
            EXPECT_TRUE(channelsNear(under, c.r, c.g, c.b)) << c.nm << " mode " << mode;
            const FXColor over = p.plot.getPixel(p.x(c.nm), above);
            if (mode == 1)
                EXPECT_TRUE(channelsNear(over, 255, 255, 255)) << c.nm;
            else
                EXPECT_EQ(over, under) << c.nm;
        }
    }
}

TEST(SpectrumPlot, GaussianPeakReachesTheTopOfTheScaleAtItsWavelength) {
    Plot p;
    p.draw(gaussian(550, 20, 2.5e-3), mainOnly());
    EXPECT_EQ(p.plot.getYTopLabel(), FXString("2.50"));
    EXPECT_EQ(p.plot.getYTitle(), FXString("Watts/nm (10^-3)"));
    const int peak = p.topInk(p.x(550));
    EXPECT_NEAR(peak, p.top, 2);
    EXPECT_TRUE(channelsNear(p.plot.getPixel(p.x(550), peak), 0, 0, 0));
    // 0.61 of the height one sigma (e^-1/2) away, and down on the axis far from the peak.
    const int sigmaRow = p.bottom - static_cast<int>(std::exp(-0.5) * (p.bottom - p.top));
    EXPECT_TRUE(p.inkNear(p.x(570), sigmaRow));
    EXPECT_EQ(p.topInk(p.x(420)), -1);  // on the axis row
}

TEST(SpectrumPlot, ZeroSpectrumKeepsTheDefaultScaleAndDrawsNothingAboveTheAxis) {
    Plot p;
    SpectrumPlotOptions o = mainOnly();
    o.rainbowMode = 1;
    p.draw(std::vector<double>(N, 0.0), o);
    EXPECT_EQ(p.plot.getYTopLabel(), FXString("1.00"));
    EXPECT_EQ(p.plot.getYTitle(), FXString("Watts/nm"));
    for (double nm : {380.0, 425.0, 555.0, 777.0}) EXPECT_EQ(p.topInk(p.x(nm)), -1) << nm;
}

TEST(SpectrumPlot, MatchingCurveTakesTheColourAndWidthOfItsType) {
    EXPECT_STREQ(SpectrumPlot::getMatchingLineColorName(0), "black");
    EXPECT_STREQ(SpectrumPlot::getMatchingLineColorName(1), "Red");
    EXPECT_STREQ(SpectrumPlot::getMatchingLineColorName(2), "Blue");
    const struct {
        int type, r, g, b, width;
    } cases[] = {{0, 0, 0, 0, 2}, {1, 255, 0, 0, 1}, {2, 0, 0, 255, 1}};
    const std::vector<double> match = gaussian(600, 30, 1.0);
    for (const auto& c : cases) {
        Plot p;
        SpectrumPlotOptions o;
        o.hasMatching = true;
        o.matchingCurveType = c.type;
        p.draw(std::vector<double>(N, 0.0), o, &match);
        const int col = p.x(560);  // on a slope, away from the legend
        const int y = p.topInk(col);
        ASSERT_GT(y, p.top);
        EXPECT_TRUE(channelsNear(p.plot.getPixel(col, y), c.r, c.g, c.b)) << c.type;
        FXColor color;
        int width;
        p.plot.getMatchingLine(&color, &width);
        EXPECT_EQ(width, c.width) << c.type;
    }
}

TEST(SpectrumPlot, NormalizedCurvesMeetAtTheTopAndTheirDifferenceLiesOnTheMiddle) {
    Plot p;
    SpectrumPlotOptions o = mainOnly();
    o.hasMatching = true;
    o.normalized = true;
    o.diffCurve = true;
    o.legendPosition = 2;  // keep the legend away from the probed columns
    const std::vector<double> match = gaussian(500, 25, 8.0);
    p.draw(gaussian(500, 25, 0.002), o, &match);
    EXPECT_EQ(p.plot.getYTitle(), FXString("Normalized Watts/nm"));
    EXPECT_EQ(p.plot.getYTopLabel(), FXString("1.00"));
    EXPECT_NEAR(p.topInk(p.x(500)), p.top, 2);
    // Equal shapes: matching minus main is zero, a dashed line across the middle.
    const int middle = p.bottom - (p.bottom - p.top) / 2;
    int inked = 0, blank = 0;  // the middle of an odd height may round either way
    for (int col = p.x(380); col < p.x(420); ++col) {
        const bool ink = p.plot.getPixel(col, middle) != FXRGB(255, 255, 255) ||
                         p.plot.getPixel(col, middle - 1) != FXRGB(255, 255, 255);
        (ink ? inked : blank)++;
    }
    EXPECT_GT(inked, 5);
    EXPECT_GT(blank, 5);

    // Apart, the difference reaches one and a half scales at the matching peak: it stops at the
    // frame instead of running over the margin above the plot.
    const std::vector<double> apart = gaussian(640, 25, 8.0);
    p.draw(gaussian(500, 25, 0.002), o, &apart);
    for (int col = p.x(420); col < p.right; ++col)
        for (int y = 0; y < p.top - 2; ++y)
            ASSERT_EQ(p.plot.getPixel(col, y), FXRGB(255, 255, 255)) << col << "," << y;
}

TEST(SpectrumPlot, ScaleOfFiltersPercentAndPhotonsAsMicromoles) {
    Plot p;
    SpectrumPlotOptions o = mainOnly();
    o.analysisType = o.filterPlotType;
    o.fullScale = true;
    o.inPercent = true;
    p.draw(gaussian(550, 50, 40.0), o);
    EXPECT_EQ(p.plot.getYTopLabel(), FXString("100"));
    EXPECT_EQ(p.plot.getYTitle(), FXString("Transmission (%)"));

    o = mainOnly();
    o.photonUnits = true;
    o.photonsAsUmol = true;
    o.comma = true;
    p.draw(gaussian(550, 50, 3e18), o);  // 3e18 photons/s is 4.98e-9 umol/s
    EXPECT_EQ(p.plot.getYTopLabel(), FXString("4,98"));
    EXPECT_EQ(p.plot.getYTitle(), FXString("umol/(s-nm) (10^-9)"));
    EXPECT_NEAR(p.topInk(p.x(550)), p.top, 2);  // every point is converted, not only the top
}

TEST(SpectrumPlot, YAxisTitleNamesUnitsPercentAndPowerOfTen) {
    const struct {
        bool hasData, photons, umol, filter, color, percent, normalized;
        int exponent;
        bool radiant;
        const char* title;
    } cases[] = {
        {false, false, false, false, false, false, false, 3, false, "Watts/nm"},
        {false, true, false, false, false, false, false, 0, false, "Photons/(s-nm)"},
        {true, false, false, false, false, true, false, 0, false, "Watts/nm"},
        {true, true, false, false, false, false, false, 0, false, "Photons/(s-nm)"},
        {true, true, true, false, false, false, false, 0, false, "umol/(s-nm)"},
        {true, false, false, true, false, false, false, 0, false, "Transmission"},
        {true, false, false, true, false, true, false, 0, false, "Transmission (%)"},
        {true, false, false, false, true, true, false, 0, false, "Reflectance (%)"},
        {true, false, false, false, false, false, false, -3, false, "Watts/nm (10^-3)"},
        {true, true, false, false, false, false, false, 15, false, "Photons/(s-nm) (10^15)"},
        {true, true, true, false, false, false, false, -9, false, "umol/(s-nm) (10^-9)"},
        {true, false, false, true, false, false, false, -1, false, "Transmission (10^-1)"},
        {true, false, false, true, false, true, false, 1, false, "Transmission (%) (10^1)"},
        {true, false, false, false, true, false, false, -2, false, "Reflectance (10^-2)"},
        {true, false, false, false, true, true, false, 1, false, "Reflectance (%) (10^1)"},
        {true, false, false, false, false, false, true, 0, false, "Normalized Watts/nm"},
        {true, true, false, false, false, false, true, 0, false, "Normalized Photons/(s-nm)"},
        {true, false, false, false, false, false, false, 2, true,
         "Radiant Power\n(Equal Luminous Flux)"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(SpectrumPlot::getYAxisTitle(c.hasData, c.photons, c.umol, c.filter, c.color,
                                              c.percent, c.normalized, c.exponent, c.radiant),
                  FXString(c.title));
    const struct {
        double value;
        int exponent;
    } powers[] = {{0.0, 0}, {1.0, 0}, {9.96, 1}, {0.0123, -2}, {2.5e15, 15}, {9.999e-4, -3}};
    for (const auto& e : powers) EXPECT_EQ(SpectrumPlot::getExponent(e.value), e.exponent);
}

TEST(SpectrumPlot, TicksAreFiftyNanometresOnTheWholeGridAndATenthOfANarrowWindow) {
    SpectrumPlot plot(guiTestWindow());
    plot.passData(N, nullptr, nullptr);
    plot.setPlotMinMax(360, 2000);  // held to the end of the grid: the whole window
    EXPECT_EQ(plot.getMaxNm(), 830.0);
    EXPECT_EQ(plot.getTickNm(), plot.getSpecPlotTick_nm());
    const std::vector<double> full = {360, 400, 450, 500, 550, 600, 650, 700, 750, 800, 830};
    EXPECT_EQ(plot.getXTicks(), full);

    plot.setPlotMinMax(500, 560);
    EXPECT_EQ(plot.getTickNm(), 6.0);
    const std::vector<double> ticks = plot.getXTicks();
    ASSERT_EQ(ticks.size(), 11u);
    EXPECT_EQ(ticks.front(), 500.0);
    EXPECT_EQ(ticks.back(), 560.0);
    const struct {
        double min, max, tick;
    } windows[] = {{400, 700, 30}, {380, 820, 44}, {500, 520, 5}, {362, 828, 47}};
    for (const auto& w : windows) {
        plot.setPlotMinMax(w.min, w.max);
        EXPECT_EQ(plot.getTickNm(), w.tick) << w.min << "-" << w.max;
    }
    // The infrared range lengthens the grid, and a whole window follows it.
    plot.setPlotMinMax(360, 830);
    std::vector<double> longer(N + 100, 1.0);
    plot.passData(N + 100, longer.data(), nullptr);
    EXPECT_EQ(plot.getMaxNm(), 1030.0);
    EXPECT_EQ(plot.getTickNm(), 50.0);
}

TEST(SpectrumPlot, WheelZoomsAboutTheCursorWithinTheGridAndNoNarrowerThan50nm) {
    const struct {
        double min, max, cursor;
        int direction;
        double newMin, newMax;
    } cases[] = {
        {360, 830, 600, -1, 360, 830},  // past both ends: the whole grid again
        {360, 830, 600, 1, 374, 824},   // in, re-centred on the cursor, down to the grid
        {500, 560, 530, 1, 510, 560},   // too narrow: widened to 50 nm
        {770, 830, 820, 1, 780, 830},   // widened against the end of the grid
        {400, 600, 700, 1, 420, 600},   // cursor right of the window: only the minimum moves
        {400, 600, 700, -1, 380, 600},
        {400, 600, 380, 1, 400, 580},  // cursor left: only the maximum moves
        {401.5, 601.5, 500, -1, 390, 610},
    };
    for (const auto& c : cases) {
        double min = c.min, max = c.max;
        SpectrumPlot::wheelZoom(c.cursor, c.direction, &min, &max, 360, 830);
        EXPECT_EQ(min, c.newMin) << c.min << "-" << c.max << " at " << c.cursor;
        EXPECT_EQ(max, c.newMax) << c.min << "-" << c.max << " at " << c.cursor;
    }
    EXPECT_DOUBLE_EQ(SpectrumPlot::getCursorNm(150, 50, 470, 360, 830), 460.0);
}

TEST(SpectrumPlot, CanvasBelowTenPixelsKeepsThePreviousImage) {
    Plot p;
    p.draw(gaussian(550, 20, 1.0), mainOnly());
    FXImage* before = p.plot.getImage();
    EXPECT_FALSE(p.plot.drawPlot(9, 300, mainOnly()));
    EXPECT_FALSE(p.plot.drawPlot(300, 9, mainOnly()));
    EXPECT_EQ(p.plot.getImage(), before);
    EXPECT_EQ(before->getWidth(), W);
}

TEST(SpectrumPlot, ColourPatchSitsInTheChosenCornerInsideABlackFrame) {
    const int textHeight = guiTestApp()->getNormalFont()->getFontHeight();
    for (int corner = 0; corner < 4; ++corner) {
        Plot p;
        SpectrumPlotOptions o = mainOnly();
        o.analysisType = o.colorPlotType;
        o.drawPatch = true;
        o.legendPosition = corner;
        p.plot.setPatchColor(FXRGB(200, 120, 40));
        p.draw(std::vector<double>(N, 0.0), o);
        const bool right = corner == 1 || corner == 2;
        const bool bottom = corner >= 2;
        const int left = right ? p.right - 5 - 50 : p.left + 5;  // 50 x 30 at scale 1
        const int top = bottom ? p.bottom - textHeight - 30 : p.top + 5;
        EXPECT_TRUE(channelsNear(p.plot.getPixel(left + 25, top + 15), 200, 120, 40)) << corner;
        EXPECT_TRUE(channelsNear(p.plot.getPixel(left - 1, top + 15), 0, 0, 0)) << corner;
        EXPECT_TRUE(channelsNear(p.plot.getPixel(left + 25, top + 30), 0, 0, 0)) << corner;
        EXPECT_TRUE(channelsNear(p.plot.getPixel(left + 25, top + 32), 255, 255, 255)) << corner;
    }
}
