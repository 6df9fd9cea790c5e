// The quality charts on screen: the FOX canvas puts bars and points where the Cairo files do,
// and the chart windows of the main window show, switch and save them.
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>

#include "CairoCanvas.h"
#include "FoxCanvas.h"
#include "MainWindowFixture.h"
#include "QualityPlotWindow.h"
#include "R_Plot_Image.h"

namespace fs = std::filesystem;

namespace {

// Bars and points may move by a pixel or two between the back ends: their fonts are hinted
// differently, and the pads around a plot follow the widths of its labels.
constexpr double PLACE_TOL_PX = 3.0;
// FOX draws without anti-aliasing: a channel of a filled area is exact, Cairo's within this.
constexpr int CHANNEL_TOL = 8;

bool near(ArgbWord a, ArgbWord b) {
    return std::abs(redOf(a) - redOf(b)) <= CHANNEL_TOL &&
           std::abs(greenOf(a) - greenOf(b)) <= CHANNEL_TOL &&
           std::abs(blueOf(a) - blueOf(b)) <= CHANNEL_TOL;
}

std::vector<double> ledSpectrum() {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = 360 + 2 * i;
        s[i] = std::exp(-0.5 * std::pow((nm - 452) / 10, 2)) +
               0.9 * std::exp(-0.5 * std::pow((nm - 565) / 45, 2));
    }
    return s;
}

TEST(FoxCanvas, DrawsTheReportWithTheBarsAndGraphicWhereCairoDoes) {
    QualityPlotData data;
    const std::vector<double> led = ledSpectrum();
    ASSERT_TRUE(gatherQualityPlotData(led.data(), "led", &data));
    QualityChartSettings settings;
    int w, h;
    qualityChartSize(QualityChart::TM30_REPORT, settings, &w, &h);
    FoxCanvas fox(guiTestApp(), w, h);
    CairoCanvas cairo(ImageFileType::PNG, w, h);
    const TM30ReportOutcome f = drawQualityChart(fox, QualityChart::TM30_REPORT, data, settings);
    const TM30ReportOutcome c = drawQualityChart(cairo, QualityChart::TM30_REPORT, data, settings);
    EXPECT_NEAR(f.graphicCenterX, c.graphicCenterX, PLACE_TOL_PX);
    EXPECT_NEAR(f.graphicCenterY, c.graphicCenterY, PLACE_TOL_PX);
    EXPECT_NEAR(f.fidelityZeroY, c.fidelityZeroY, PLACE_TOL_PX);
    for (int bin = 0; bin < 16; bin += 3) {
        EXPECT_NEAR(f.fidelityBarX[bin], c.fidelityBarX[bin], PLACE_TOL_PX) << bin;
        // Both images hold the bin's colour a little under the bar's top, at Cairo's place.
        const int x = static_cast<int>(c.fidelityBarX[bin]);
        const int y = static_cast<int>(c.fidelityZeroY -
                                       (data.results.RfByHue[bin] - 5) * c.fidelityPixelsPerUnit);
        EXPECT_TRUE(near(fox.pixel(x, y), cairo.pixel(x, y)))
            << "bin " << bin << std::hex << " " << fox.pixel(x, y) << " " << cairo.pixel(x, y);
    }
}

TEST(FoxCanvas, BarChartsAgreeWithCairoBarForBar) {
    const std::vector<double> values = {80, 50, 90, 20, -30, 100, 65};
    std::vector<ArgbWord> colors;
    for (std::size_t i = 0; i < values.size(); ++i) colors.push_back(argbFromRGB(40 * i, 200, 90));
    RPlotOptions options;
    options.showValues = true;
    R_Plot_Image foxPlot, cairoPlot;
    foxPlot.setData('R', values, colors, {"Ra", "R1", "R2", "R3", "R4", "R5", "R6"}, "CRI Points",
                    options);
    cairoPlot = foxPlot;
    FoxCanvas fox(guiTestApp(), 700, 450);
    CairoCanvas cairo(ImageFileType::PNG, 700, 450);
    foxPlot.makeImage(fox, 0, 0, 700, 450);
    cairoPlot.makeImage(cairo, 0, 0, 700, 450);
    for (int i = 1; i < static_cast<int>(values.size()); ++i) {
        EXPECT_NEAR(foxPlot.barCenterX(i), cairoPlot.barCenterX(i), PLACE_TOL_PX) << i;
        EXPECT_NEAR(foxPlot.valueToY(values[i]), cairoPlot.valueToY(values[i]), PLACE_TOL_PX) << i;
        const int x = static_cast<int>(cairoPlot.barCenterX(i));
        const int y = static_cast<int>(cairoPlot.valueToY(values[i] * 0.5));
        EXPECT_EQ(fox.pixel(x, y), colors[i]) << i;
        EXPECT_TRUE(near(cairo.pixel(x, y), colors[i])) << i;
    }
}

class QualityPlots : public MainWindow {
  protected:
    void calculateBlackBody() {
        chooseAnalysis(2);
        gui->getBlackBodyField()->setText("3000");
        gui->onCmdCalculate(nullptr, 0, nullptr);
        ASSERT_TRUE(gui->hasResults());
    }
    void openChart(QualityChart chart, const std::function<void(QualityPlotWindow&)>& drive) {
        gui->setQualityPlotDriver(drive);
        gui->onCmdQualityPlot(
            nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_QUALITY_PLOT + static_cast<int>(chart)),
            nullptr);
    }
    static std::string head(const fs::path& path, std::size_t n) {
        std::ifstream in(path, std::ios::binary);
        std::string bytes(n, '\0');
        in.read(&bytes[0], static_cast<std::streamsize>(n));
        return bytes;
    }
};

TEST_F(QualityPlots, WithoutACalculationTheWindowIsRefused) {
    bool opened = false;
    openChart(QualityChart::RVALUES, [&](QualityPlotWindow&) { opened = true; });
    EXPECT_FALSE(opened);
    EXPECT_EQ(boxes(),
              "Plot error: There is no data to plot - you must first calculate a spectrum\n");
}

TEST_F(QualityPlots, TheRValueWindowShowsSwitchesAndSavesInEveryFormat) {
    calculateBlackBody();
    bool opened = false;
    openChart(QualityChart::RVALUES, [&](QualityPlotWindow& window) {
        opened = true;
        EXPECT_EQ(std::string(window.getTitle().text()).rfind("R-values plot (", 0), 0u);
        FoxCanvas* shown = window.render();
        ASSERT_NE(shown, nullptr);
        EXPECT_GT(shown->width(), 300);
        window.handle(nullptr, FXSEL(SEL_COMMAND, QualityPlotWindow::ID_CHART + 1), nullptr);
        EXPECT_EQ(window.getChart(), QualityChart::QVALUES);
        EXPECT_EQ(std::string(window.getTitle().text()).rfind("Q-values plot (", 0), 0u);
        const char* names[4] = {"q.bmp", "q.pdf", "q.svg", "q.png"};
        for (int k = 0; k < 4; ++k) {
            script.files.push_back((folder / names[k]).string());
            window.handle(nullptr, FXSEL(SEL_COMMAND, QualityPlotWindow::ID_SAVE_BMP + k), nullptr);
        }
        window.setScaleFactor(2);
        script.files.push_back("/nonexistent-folder/q.png");
        window.handle(nullptr, FXSEL(SEL_COMMAND, QualityPlotWindow::ID_SAVE_PNG), nullptr);
    });
    ASSERT_TRUE(opened);
    const std::string bmp = head(folder / "q.bmp", 6);
    EXPECT_EQ(bmp.substr(0, 2), "BM");
    // The size the header declares is the file's size: nothing left over from the buffer.
    const auto declared = static_cast<std::uintmax_t>(
        static_cast<unsigned char>(bmp[2]) | static_cast<unsigned char>(bmp[3]) << 8 |
        static_cast<unsigned char>(bmp[4]) << 16 | static_cast<unsigned char>(bmp[5]) << 24);
    EXPECT_EQ(declared, fs::file_size(folder / "q.bmp"));
    EXPECT_EQ(head(folder / "q.pdf", 5), "%PDF-");
    EXPECT_EQ(head(folder / "q.svg", 5), "<?xml");
    EXPECT_EQ(head(folder / "q.png", 4), "\x89PNG");
    EXPECT_EQ(boxes(),
              "Write error: File \"/nonexistent-folder/q.png\" could not be written, try a "
              "different name.\n");
}

TEST_F(QualityPlots, TheReportDialogKeepsItsTextsAndTheWindowShowsTheHalfSizePage) {
    calculateBlackBody();
    // Cancel: no window.
    bool opened = false;
    openChart(QualityChart::TM30_REPORT, [&](QualityPlotWindow&) { opened = true; });
    EXPECT_FALSE(opened);
    // Texts longer than their limits are cut; an A4 full report with the 20 % circles.
    script.forms.push_back({std::string(50, 's'), "Acme <b>", "2026-11-23", "LED-1",
                            std::string(700, 'n'), "0", "2", "0", "1"});
    openChart(QualityChart::TM30_REPORT, [&](QualityPlotWindow& window) {
        opened = true;
        FoxCanvas* shown = window.render();
        EXPECT_EQ(shown->width(), 600);
        EXPECT_EQ(shown->height(), 1200 * 297 / 210 / 2);
        EXPECT_EQ(std::string(window.getTitle().text()).rfind("TM30 report (", 0), 0u);
    });
    EXPECT_TRUE(opened);
    ProgramSettings& settings = gui->getSettings();
    EXPECT_EQ(settings.getString("tm30Report_sourceStr"), std::string(45, 's'));
    EXPECT_EQ(settings.getString("tm30Report_manufacturerStr"), "Acme <b>");
    EXPECT_EQ(settings.getString("tm30Report_noteStr").size(), 600u);
    EXPECT_EQ(settings.getInt("TM30ReportPaperSize"), 1);
    // The dialog starts from the kept texts the next time.
    script.shown.clear();
    openChart(QualityChart::TM30_REPORT, [](QualityPlotWindow&) {});
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "TM30 report");
    EXPECT_EQ(script.shown[0].text.rfind(std::string(45, 's') + "|Acme <b>|2026-11-23|LED-1|", 0),
              0u);
}

}  // namespace
