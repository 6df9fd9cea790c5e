// The quality charts drawn by the Cairo canvas: pixels at the places the layout computed (bar
// tops, the Rg/Rf point, patch colours), the value scales of the bar charts, the report's page
// with good and bad input, and the J'a'b' table.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>
#include <string>
#include <vector>

#include "CIEPointPlot.h"
#include "CairoCanvas.h"
#include "ColorPatches.h"
#include "QualityCharts.h"
#include "R_Plot_Image.h"
#include "TLCIChart.h"
#include "TM30ReportPage.h"
#include "TM30RgRfPlot.h"

namespace {

// A channel may differ by this much where anti-aliasing touches a pixel next to an edge.
constexpr int CHANNEL_TOL = 8;

// A white LED: a blue pump and a broad phosphor, on the engine grid.
std::vector<double> ledSpectrum() {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = 360 + 2 * i;
        s[i] = std::exp(-0.5 * std::pow((nm - 452) / 10, 2)) +
               0.9 * std::exp(-0.5 * std::pow((nm - 565) / 45, 2)) +
               0.25 * std::exp(-0.5 * std::pow((nm - 630) / 20, 2));
    }
    return s;
}

// A narrow green line: far off the Planckian locus, so TM-30 is refused.
std::vector<double> greenLine() {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i)
        s[i] = std::exp(-0.5 * std::pow((360 + 2 * i - 530) / 8.0, 2));
    return s;
}

bool near(ArgbWord a, ArgbWord b) {
    return std::abs(redOf(a) - redOf(b)) <= CHANNEL_TOL &&
           std::abs(greenOf(a) - greenOf(b)) <= CHANNEL_TOL &&
           std::abs(blueOf(a) - blueOf(b)) <= CHANNEL_TOL;
}

std::string hex(ArgbWord c) {
    std::ostringstream s;
    s << std::hex << c;
    return s.str();
}

TEST(CairoCanvas, WritesEachFileTypeWithItsHeaderAndTrailer) {
    EXPECT_EQ(imageFileTypeOfPath("a/b.PDF"), ImageFileType::PDF);
    EXPECT_EQ(imageFileTypeOfPath("b.svg"), ImageFileType::SVG);
    EXPECT_EQ(imageFileTypeOfPath("b.png"), ImageFileType::PNG);
    EXPECT_EQ(imageFileTypeOfPath("b.bmp"), ImageFileType::NONE);
    EXPECT_EQ(imageFileTypeOfPath("dir.pdf/name"), ImageFileType::NONE);

    for (ImageFileType type : {ImageFileType::PDF, ImageFileType::SVG, ImageFileType::PNG}) {
        CairoCanvas canvas(type, 200, 100);
        canvas.fillRectangle(10, 10, 50, 50, 0xFFFF0000u);
        TextStyle style;
        canvas.drawText(20, 80, "R<a> & \"b\"", style, ARGB_BLACK);
        const std::string bytes = canvas.finish();
        ASSERT_FALSE(bytes.empty());
        if (type == ImageFileType::PDF) {
            EXPECT_EQ(bytes.compare(0, 5, "%PDF-"), 0);
            EXPECT_NE(bytes.find("%%EOF", bytes.size() - 16), std::string::npos);
        } else if (type == ImageFileType::SVG) {
            EXPECT_EQ(bytes.compare(0, 5, "<?xml"), 0);
            EXPECT_NE(bytes.find("</svg>", bytes.size() - 16), std::string::npos);
        } else {
            EXPECT_EQ(bytes.compare(1, 3, "PNG"), 0);
        }
    }
}

TEST(CairoCanvas, FillsThePixelsItWasAskedToAndReportsAnUnwritablePath) {
    CairoCanvas canvas(ImageFileType::PNG, 100, 100);
    canvas.fillRectangle(0, 0, 100, 100, ARGB_WHITE);
    canvas.fillRectangle(20, 30, 10, 10, 0xFF123456u);
    canvas.fillPolygon({{50, 50}, {90, 50}, {90, 90}}, 0xFF00FF00u);
    EXPECT_EQ(canvas.pixel(25, 35), 0xFF123456u);
    EXPECT_EQ(canvas.pixel(19, 35), ARGB_WHITE);
    EXPECT_EQ(canvas.pixel(85, 60), 0xFF00FF00u);
    EXPECT_EQ(canvas.pixel(55, 85), ARGB_WHITE);  // the other side of the diagonal
    std::string error;
    EXPECT_FALSE(canvas.save("/nonexistent-folder/x.png", &error));
    EXPECT_FALSE(error.empty());
}

TEST(R_Plot_Image, ScalesFollowTheModesRules) {
    struct Case {
        char mode;
        std::vector<double> values;
        bool standard;
        double min, max, step;
    } cases[] = {
        {'R', {71, 67, 78, 100}, false, 0, 100, 10},
        {'R', {71, -33, 78}, false, -50, 100, 25},  // a negative R value changes the step to 25
        {'R', {71, -133, 78}, false, -150, 100, 50},
        {'F', {67, 90, 59}, false, 0, 100, 10},
        {'H', {0, 0, 0}, false, 0, 1, 0.2},    // all zero: 0 to 1
        {'C', {-18, 12}, false, -20, 20, 10},  // step trunc(30 / 25 + 1) x 5
        {'C', {-18, 12}, true, -40, 40, 10},
        {'H', {-0.27, 0.24}, true, -0.5, 0.5, 0.1},
    };
    for (const Case& c : cases) {
        R_Plot_Image plot;
        RPlotOptions options;
        options.standardShiftLimits = c.standard;
        plot.setData(c.mode, c.values, {}, {}, "", options);
        double lo, hi, step;
        plot.getMinMaxRvalue(&lo, &hi, &step);
        EXPECT_NEAR(lo, c.min, 1e-9) << c.mode << " " << c.values[0];
        EXPECT_NEAR(hi, c.max, 1e-9) << c.mode << " " << c.values[0];
        EXPECT_NEAR(step, c.step, 1e-9) << c.mode << " " << c.values[0];
    }
}

TEST(R_Plot_Image, BarsEndAtTheirValues) {
    const std::vector<double> values = {80, 50, 90, 20, -30, 100};
    const std::vector<ArgbWord> colors = {0xFFC00000u, 0xFF00C000u, 0xFF0000C0u,
                                          0xFFC0C000u, 0xFF00C0C0u, 0xFFC000C0u};
    R_Plot_Image plot;
    RPlotOptions options;
    plot.setData('R', values, colors, {"Ra", "R1", "R2", "R3", "R4", "R5"}, "CRI Points", options);
    CairoCanvas canvas(ImageFileType::PNG, 600, 400);
    plot.makeImage(canvas, 0, 0, 600, 400);
    for (std::size_t i = 1; i < values.size(); ++i) {
        const int x = static_cast<int>(plot.barCenterX(static_cast<int>(i)));
        const double end = plot.valueToY(values[i]);
        const int inside = static_cast<int>(values[i] > 0 ? end + 4 : end - 4);
        const int outside = static_cast<int>(values[i] > 0 ? end - 4 : end + 4);
        EXPECT_TRUE(near(canvas.pixel(x, inside), colors[i]))
            << "bar " << i << " " << hex(canvas.pixel(x, inside));
        EXPECT_TRUE(near(canvas.pixel(x, outside), ARGB_WHITE))
            << "bar " << i << " " << hex(canvas.pixel(x, outside));
    }
}

TEST(TM30RgRfPlot, PointsLandAtTheirRfAndRgEvenOnTheAxes) {
    TM30RgRfPlot plot;
    plot.plotPoints({80, 50, 100}, {110, 60, 140}, {"", "", ""}, false, {20, 10, 0}, true, false,
                    "TM-30-18");
    CairoCanvas canvas(ImageFileType::PNG, 500, 700);
    plot.drawPlot(canvas, 0, 0, 500, 700);
    EXPECT_NEAR(plot.y_to_screen(60) - plot.y_to_screen(140),
                (plot.x_to_screen(100) - plot.x_to_screen(50)) * 80 / 50, 1.0);
    // Symbol 20 is a red circle, 10 a blue one, 0 a black one.
    EXPECT_EQ(canvas.pixel(static_cast<int>(plot.x_to_screen(80)),
                           static_cast<int>(plot.y_to_screen(110))),
              0xFFFF0000u);
    EXPECT_EQ(canvas.pixel(static_cast<int>(plot.x_to_screen(50)) - 2,
                           static_cast<int>(plot.y_to_screen(60)) + 2),
              0xFF0000FFu);
    EXPECT_EQ(canvas.pixel(static_cast<int>(plot.x_to_screen(100)) + 2,
                           static_cast<int>(plot.y_to_screen(140)) - 2),
              ARGB_BLACK);
    // Above the Rg = 100 line at Rf 55: the first zone only.
    EXPECT_EQ(canvas.pixel(static_cast<int>(plot.x_to_screen(55)),
                           static_cast<int>(plot.y_to_screen(138))),
              TM30RgRfPlot::zone1Color);
}

class Report : public ::testing::Test {
  protected:
    static void SetUpTestSuite() {
        const std::vector<double> led = ledSpectrum();
        ASSERT_TRUE(gatherQualityPlotData(led.data(), "led", &data));
        ASSERT_TRUE(data.tm30Valid());
    }
    static QualityPlotData data;
};
QualityPlotData Report::data;

TEST_F(Report, FullPageHasTheLocalFidelityBarsAndTheGraphicWhereItSaysSo) {
    TM30ReportOptions options;
    int w, h;
    getTM30ReportPageSize(options, &w, &h);
    EXPECT_EQ(w, 1200);
    EXPECT_EQ(h, 1200 * 279 / 216);
    CairoCanvas canvas(ImageFileType::PNG, w, h);
    const TM30ReportOutcome outcome = makeTM30Report(canvas, data, {}, options);
    EXPECT_FALSE(outcome.noteTooLong);
    for (int bin = 0; bin < 16; bin += 5) {
        const int x = static_cast<int>(outcome.fidelityBarX[bin]);
        const double top =
            outcome.fidelityZeroY - data.results.RfByHue[bin] * outcome.fidelityPixelsPerUnit;
        const ArgbWord binColor = argbFromRGB(static_cast<int>(data.hueRGB[0][bin]),
                                              static_cast<int>(data.hueRGB[1][bin]),
                                              static_cast<int>(data.hueRGB[2][bin]));
        EXPECT_TRUE(near(canvas.pixel(x, static_cast<int>(top + 4)), binColor))
            << "bin " << bin << " " << hex(canvas.pixel(x, static_cast<int>(top + 4)));
    }
    // The reference circle (radius 30) crosses the positive a' axis in black.
    const int cx = static_cast<int>(outcome.graphicCenterX + 30 * outcome.graphicUnitPixels);
    const int cy = static_cast<int>(outcome.graphicCenterY);
    bool black = false;
    for (int dx = -2; dx <= 2; ++dx) black = black || canvas.pixel(cx + dx, cy) == ARGB_BLACK;
    EXPECT_TRUE(black);
}

TEST_F(Report, LongAndMarkedUpTextsAreCutOrEscapedAndTheNoteWarns) {
    EXPECT_EQ(cleanReportText(std::string(10000, 'x'), 45).size(), 45u);
    EXPECT_EQ(cleanReportText("a\tb\x01"
                              "c\xff\xfe"
                              "d",
                              45),
              "a b c  d");
    EXPECT_EQ(cleanReportText("\xc3\xa9t\xc3\xa9", 2), "\xc3\xa9t");  // cut between characters
    TM30ReportFields fields;
    fields.source = std::string(10000, 'S');
    fields.note = std::string(10000, 'n');
    fields.model = "<svg> & </svg> \"x\"";
    CairoCanvas svg(ImageFileType::SVG, 1200, 1553);
    const TM30ReportOutcome outcome = makeTM30Report(svg, data, fields, {});
    EXPECT_TRUE(outcome.noteTooLong);
    const std::string bytes = svg.finish();
    EXPECT_NE(bytes.find("</svg>", bytes.size() - 16), std::string::npos);
    EXPECT_EQ(bytes.find("<svg> &"), std::string::npos);  // the text went in as glyphs
}

TEST(ReportNotAvailable, ASpectrumWithoutTM30GetsAPageThatSaysSo) {
    for (const std::vector<double>& s :
         {greenLine(), std::vector<double>(Vantrel::NUM_GRID_POINTS)}) {
        QualityPlotData data;
        gatherQualityPlotData(s.data(), "x", &data);
        EXPECT_FALSE(data.tm30Valid());
        EXPECT_FALSE(qualityChartHasData(QualityChart::GRAPHIC, data));
        EXPECT_TRUE(qualityChartHasData(QualityChart::TM30_REPORT, data));
        CairoCanvas canvas(ImageFileType::PNG, 1200, 1553);
        QualityChartSettings settings;
        drawQualityChart(canvas, QualityChart::TM30_REPORT, data, settings);
        // The message stands in the middle of the page: some dark pixels in that band.
        int dark = 0;
        for (int y = 700; y < 840; ++y)
            for (int x = 100; x < 1100; ++x) dark += redOf(canvas.pixel(x, y)) < 100;
        EXPECT_GT(dark, 200);
    }
}

TEST_F(Report, JabTableHasAHeaderAndOneRowPerSampleWithTheBinsBeside) {
    const std::string text = tm30JabFileText(data);
    std::istringstream lines(text);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line.rfind("CES Color #\tJ' - test\ta' - test\tb' - test\tJ - ref\t", 0), 0u);
    EXPECT_NE(line.find("\tHue bin\tRfh,i\ta' - test\tb' - test\ta' - ref\tb' - ref"),
              std::string::npos);
    int rows = 0;
    while (std::getline(lines, line)) {
        ++rows;
        const int tabs = static_cast<int>(std::count(line.begin(), line.end(), '\t'));
        EXPECT_EQ(tabs, rows <= 16 ? 20 : 16) << "row " << rows;
        if (rows == 1) {
            std::istringstream cells(line);
            int number;
            double J;
            cells >> number >> J;
            EXPECT_EQ(number, 1);
            EXPECT_NEAR(J, data.jab[0][0], 1e-4);
        }
    }
    EXPECT_EQ(rows, Vantrel::NUM_CES);
}

TEST_F(Report, TLCIPatchesShowTestInsideReferenceInTheirCoding) {
    bool out = false;
    EXPECT_EQ(tlciChannel(1.0, false, &out), 255);
    EXPECT_EQ(tlciChannel(1.0, true, &out), 235);
    EXPECT_FALSE(out);
    EXPECT_EQ(tlciChannel(1.1, false, &out), 280 & 0xFF);  // wraps, as the signal would
    EXPECT_TRUE(out);
    EXPECT_EQ(tlciValueText(-1), "TLCI-2012 : N/A ");
    EXPECT_EQ(tlciValueText(87.4), "TLCI-2012 : 87 ");

    CairoCanvas canvas(ImageFileType::PNG, 800, 600);
    TLCIPatchPlace places[24];
    drawTLCIChart(canvas, data, {}, places);
    for (int p : {0, 7, 14, 18}) {
        bool o = false;
        int test[3], ref[3];
        for (int c = 0; c < 3; ++c) {
            test[c] = tlciChannel(data.tlciRGB[0][p][c], false, &o);
            ref[c] = tlciChannel(data.tlciRGB[1][p][c], false, &o);
        }
        const TLCIPatchPlace& r = places[p];
        EXPECT_EQ(canvas.pixel(static_cast<int>(r.x + r.w / 2), static_cast<int>(r.y + r.h / 2)),
                  argbFromRGB(test[0], test[1], test[2]));
        EXPECT_EQ(canvas.pixel(static_cast<int>(r.x + r.w - 3), static_cast<int>(r.y + r.h - 3)),
                  argbFromRGB(ref[0], ref[1], ref[2]));
    }
}

}  // namespace

namespace {

TEST(CIEPointPlot, PointsLocusAndEllipsesStandWhereTheyBelong) {
    // Points about 3000 K on the locus: x 0.4369, y 0.4041.
    const double tx = 0.4369, ty = 0.4041;
    CIEPointPlotOptions options;
    options.ellipseSteps = {1, 3};
    CIEPointPlot plot;
    plot.setData({0.4380, 0.4350}, {0.4050, 0.4030}, tx, ty, options);
    EXPECT_EQ(plot.ellipseCaption(), "1, 3,  MacAdam elipses");
    CairoCanvas canvas(ImageFileType::PNG, 600, 600);
    plot.makeImage(canvas, 0, 0, 600, 600);
    EXPECT_EQ(canvas.pixel(static_cast<int>(plot.xToScreen(0.4380)),
                           static_cast<int>(plot.yToScreen(0.4050))),
              ARGB_BLACK);
    // Going right from the target the line first meets the 1-step ellipse (red), about a
    // MacAdam step (some 0.001 in x) away, well before the 3-step one.
    const int y = static_cast<int>(plot.yToScreen(ty));
    int firstRed = -1;
    for (int x = static_cast<int>(plot.xToScreen(tx)) + 8; x < 600 && firstRed < 0; ++x)
        if (redOf(canvas.pixel(x, y)) > 200 && greenOf(canvas.pixel(x, y)) < 80) firstRed = x;
    ASSERT_GT(firstRed, 0);
    const double dx = (firstRed - plot.xToScreen(tx)) / (plot.xToScreen(1) - plot.xToScreen(0));
    EXPECT_GT(dx, 0.0003);
    EXPECT_LT(dx, 0.004);
    // A u'v' plot takes the target to u', v'.
    options.upvp = true;
    plot.setData({}, {}, tx, ty, options);
    double u, v;
    plot.plotted(tx, ty, &u, &v);
    EXPECT_NEAR(u, 4 * tx / (-2 * tx + 12 * ty + 3), 1e-12);
    EXPECT_NEAR(v, 9 * ty / (-2 * tx + 12 * ty + 3), 1e-12);
}

}  // namespace

namespace {

TEST_F(Report, ColorPatchesShowReferenceLeftAndTestRight) {
    EXPECT_EQ(colorPatchName('R', 0), "TCS01");
    EXPECT_EQ(colorPatchName('R', 14), "TCS15");
    EXPECT_EQ(colorPatchName('Q', 8), "VS9");
    for (char mode : {'R', 'T'}) {
        CairoCanvas canvas(ImageFileType::PNG, 800, 600);
        std::vector<ColorPatchPlace> places;
        drawColorPatches(canvas, mode, data, {}, &places);
        ASSERT_EQ(places.size(), mode == 'R' ? 15u : 99u);
        for (int k : {0, 8, 14}) {
            const ColorPatchPlace& p = places[k];
            ArgbWord ref, test;
            if (mode == 'R') {
                ref = argbFromRGB(data.rgbRref[k + 1][0], data.rgbRref[k + 1][1],
                                  data.rgbRref[k + 1][2]);
                test = argbFromRGB(data.rgbR[k + 1][0], data.rgbR[k + 1][1], data.rgbR[k + 1][2]);
            } else {
                const auto& c = data.patchRGB[k];
                ref = argbFromRGB(c[3], c[4], c[5]);
                test = argbFromRGB(c[0], c[1], c[2]);
            }
            const int y = static_cast<int>(p.y + p.h / 2);
            EXPECT_EQ(canvas.pixel(static_cast<int>(p.x + p.w / 4), y), ref) << mode << k;
            EXPECT_EQ(canvas.pixel(static_cast<int>(p.x + 3 * p.w / 4), y), test) << mode << k;
        }
    }
}

}  // namespace

namespace {

TEST_F(Report, TLCIAdviceCellsAndTheInvalidIndex) {
    EXPECT_EQ(tlciAdviceText(0), "0 0.0");
    EXPECT_EQ(tlciAdviceText(3), "+ 3.0");
    EXPECT_EQ(tlciAdviceText(-2), "- 2.0");
    EXPECT_EQ(tlciAdviceText(Vantrel::getUnknown_TLCI_2012()), "N/A");
    // With the side panels the patches still show their colours.
    TLCIChartOptions options;
    options.showAdvice = options.showSpectra = true;
    CairoCanvas canvas(ImageFileType::PNG, 1000, 600);
    TLCIPatchPlace places[24];
    drawTLCIChart(canvas, data, options, places);
    EXPECT_LT(places[5].x + places[5].w, 1000 * 0.7);
    bool out = false;
    const int r = tlciChannel(data.tlciRGB[0][0][0], false, &out);
    EXPECT_EQ(redOf(canvas.pixel(static_cast<int>(places[0].x + places[0].w / 2),
                                 static_cast<int>(places[0].y + places[0].h / 2))),
              r);
}

}  // namespace
