// The two plots of the main window after a Calculate: what they are handed, their repaint, the
// zoom by the mouse, and the image export.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "MainWindowFixture.h"
#include "ReadWriteUserSpectra.h"

namespace fs = std::filesystem;

namespace {
class MainWindowPlots : public MainWindow {
  protected:
    void SetUp() override {
        MainWindow::SetUp();
        gui->resize(1400, 900);
        gui->layout();
        chooseAnalysis(2);  // a black body at 3000 K
        gui->getBlackBodyField()->setText("3000");
        gui->onCmdCalculate(nullptr, 0, nullptr);
        ASSERT_TRUE(gui->hasResults());
        gui->redrawPlots(true);
    }
    // Channel distance of two FOX colours.
    static int distance(FXColor a, FXColor b) {
        return std::max({std::abs(int(FXREDVAL(a)) - int(FXREDVAL(b))),
                         std::abs(int(FXGREENVAL(a)) - int(FXGREENVAL(b))),
                         std::abs(int(FXBLUEVAL(a)) - int(FXBLUEVAL(b)))});
    }
};
}  // namespace

TEST_F(MainWindowPlots, TheDiagramShowsTheResultAtItsChromaticity) {
    CIE_Plot* plot = gui->getCIEPlot();
    ASSERT_NE(plot, nullptr);
    ASSERT_EQ(plot->getNumPoints(), 1);
    double x = 0, y = 0;
    plot->getPoint(0, &x, &y);
    EXPECT_NEAR(x, std::stod(result("x")), 1e-4);
    EXPECT_NEAR(y, std::stod(result("y")), 1e-4);
    // The symbol sits on the point: not the fill colour of that chromaticity.
    const int px = static_cast<int>(plot->x_to_screen(x)),
              py = static_cast<int>(plot->y_to_screen(y));
    EXPECT_GT(distance(plot->getPixel(px, py), plot->getFillPixel(px, py)), 40);
    // A saved point stays on the diagram as a secondary point; the new result is the main one.
    gui->onCmdAddXYtoArray(nullptr, 0, nullptr);
    gui->getBlackBodyField()->setText("5000");
    gui->onCmdCalculate(nullptr, 0, nullptr);
    gui->redrawPlots();
    ASSERT_EQ(plot->getNumPoints(), 2);
    EXPECT_TRUE(plot->isSecondaryPoint(0));
    EXPECT_FALSE(plot->isSecondaryPoint(1));
    plot->getPoint(1, &x, &y);
    EXPECT_NEAR(x, std::stod(result("x")), 1e-4);
    EXPECT_LT(x, 0.35) << "5000 K lies left of 3000 K";
}

TEST_F(MainWindowPlots, TheDiagramTypeAndZoomFollowTheMenu) {
    auto* upvp = static_cast<FXMenuRadio*>(gui->getOptionWidget("cieDiagramType", 2));
    gui->onCmdOptionRadio(upvp, 0, nullptr);
    gui->redrawPlots();
    EXPECT_EQ(gui->getCIEPlot()->getDiagramType(), 2);
    double xMin, xMax, yMin, yMax;
    gui->getCIEPlot()->get_xy_plot_range(&xMin, &xMax, &yMin, &yMax);
    EXPECT_NEAR(xMax - xMin, 0.65, 1e-9) << "full u' range";
    auto* zoomed = static_cast<FXMenuCheck*>(gui->getOptionWidget("cieDiagramZoomed_Chk"));
    zoomed->setCheck(TRUE);
    gui->onCmdOptionCheck(zoomed, 0, nullptr);
    gui->redrawPlots();
    gui->getCIEPlot()->get_xy_plot_range(&xMin, &xMax, &yMin, &yMax);
    EXPECT_NEAR(xMin, 0.1, 1e-9);
    EXPECT_NEAR(yMax, 0.6, 1e-9);
    // The wheel over the canvas zooms in about the centre.
    FXEvent wheel;
    wheel.code = 120;
    gui->onCIECanvasMouse(gui->getCIECanvas(), FXSEL(SEL_MOUSEWHEEL, VantrelGUI::ID_CIE_CANVAS),
                          &wheel);
    double zMin, zMax, wMin, wMax;
    gui->getCIEPlot()->get_xy_plot_range(&zMin, &zMax, &wMin, &wMax);
    EXPECT_NEAR(zMax - zMin, 0.8 * (xMax - xMin), 1e-9);
    EXPECT_NEAR(zMin + zMax, xMin + xMax, 1e-9);
    gui->onCmdResetCIEZoom(nullptr, 0, nullptr);
    gui->getCIEPlot()->get_xy_plot_range(&zMin, &zMax, &wMin, &wMax);
    EXPECT_NEAR(zMin, 0.1, 1e-9) << "reset: back to the zoom option's window";
}

TEST_F(MainWindowPlots, TheSpectrumPlotCarriesTheResultAndBothPlotsExportAsBmp) {
    ASSERT_NE(gui->getSpectrumPlot(), nullptr);
    EXPECT_NE(gui->getSpectrumPlot()->getImage(), nullptr);
    for (const char* name : {"cie.bmp", "spectrum.bmp"}) {
        const std::string path = (folder / name).string();
        script.files.push_back(path);
        const bool cie = std::string(name) == "cie.bmp";
        gui->onCmdSavePlotImage(nullptr,
                                FXSEL(SEL_COMMAND, cie ? VantrelGUI::ID_SAVE_CIE_IMAGE
                                                       : VantrelGUI::ID_SAVE_SPECTRUM_IMAGE),
                                nullptr);
        std::ifstream file(path, std::ios::binary);
        char magic[2] = {};
        file.read(magic, 2);
        EXPECT_EQ(std::string(magic, 2), "BM") << name;
        EXPECT_GT(std::filesystem::file_size(path), 10000u) << name;
    }
    // The two save dialogs and no box.
    ASSERT_EQ(script.shown.size(), 2u);
    EXPECT_EQ(script.shown[0].title, "Save CIE Plot");
    EXPECT_EQ(script.shown[1].title, "Save spectrum plot");
}

TEST_F(MainWindowPlots, ReferenceDataGoesToTheProgramFolderOrGetsTheFileBox) {
    gui->onCmdWriteHorseShoeData(nullptr, 0, nullptr);
    gui->onCmdWriteGamutData(nullptr, 0, nullptr);
    EXPECT_TRUE(std::filesystem::exists(folder / "CIE_horseshoe.xls"));
    EXPECT_TRUE(std::filesystem::exists(folder / "gamut_points.xls"));
    EXPECT_TRUE(script.shown.empty());
    // A folder in the way of the file: the box names it.
    std::filesystem::remove(folder / "gamut_points.xls");
    std::filesystem::create_directory(folder / "gamut_points.xls");
    gui->onCmdWriteGamutData(nullptr, 0, nullptr);
    ASSERT_EQ(script.shown.size(), 1u);
    EXPECT_EQ(script.shown[0].title, "File error");
    EXPECT_EQ(script.shown[0].text, "File \"" + (folder / "gamut_points.xls").string() +
                                        "\" could not be written, it may be open.");
}

TEST_F(MainWindowPlots, EachLedAloneIsAPointExceptOneWithoutVisibleLight) {
    chooseAnalysis(0);
    const int ir950 = 10, white4000 = 12;
    gui->getLedCheck(ir950)->setCheck(TRUE);
    gui->getLedField(ir950, ROW_WATTS)->setText("100");
    gui->getLedCheck(white4000)->setCheck(TRUE);
    gui->getLedField(white4000, ROW_LUMENS)->setText("500");
    auto* lines = static_cast<FXMenuCheck*>(gui->getOptionWidget("showPureColorsLines"));
    lines->setCheck(TRUE);
    gui->onCmdOptionCheck(lines, 0, nullptr);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults()) << (script.shown.empty() ? "" : script.shown[0].text);
    gui->redrawPlots();
    // The white LED alone, then the mix; the IR LED has no chromaticity.
    EXPECT_EQ(gui->getCIEPlot()->getNumPoints(), 2);
}

TEST_F(MainWindowPlots, AtTheDefaultSizeTheDiagramFillsATallCanvasForEveryType) {
    // The window as a first start sizes it on the test's 1600 x 1000 screen.
    ASSERT_EQ(gui->getRoot()->getHeight(), 1000);
    gui->onCmdFitToScreenSize(nullptr, 0, nullptr);
    gui->redrawPlots(true);
    FXCanvas* canvas = gui->getCIECanvas();
    EXPECT_GE(canvas->getHeight(), 500);
    EXPECT_GE(gui->getSpectrumCanvas()->getWidth(), 150) << "the spectrum keeps its place";
    CIE_Plot* plot = gui->getCIEPlot();
    // Rows of the colour fill (the locus' inside) on the 1931 diagram.
    int top = canvas->getHeight(), bottom = -1;
    const FXColor background = plot->getFillPixel(1, 1);
    for (int y = 0; y < canvas->getHeight(); ++y) {
        for (int x = 0; x < canvas->getWidth(); x += 3) {
            if (plot->getFillPixel(x, y) == background) continue;
            top = std::min(top, y), bottom = std::max(bottom, y);
            break;
        }
    }
    EXPECT_GE(bottom - top, canvas->getHeight() * 8 / 10);
    // Every type, zoomed or not, is drawn to scale up to the pads on one side at least.
    auto* zoomed = static_cast<FXMenuCheck*>(gui->getOptionWidget("cieDiagramZoomed_Chk"));
    for (int zoom = 0; zoom < 2; ++zoom) {
        zoomed->setCheck(zoom);
        gui->onCmdOptionCheck(zoomed, 0, nullptr);
        for (int type = 0; type < CIE_Plot::NUM_DIAGRAM_TYPES; ++type) {
            SCOPED_TRACE(testing::Message() << "type " << type << " zoom " << zoom);
            auto* radio = static_cast<FXMenuRadio*>(gui->getOptionWidget("cieDiagramType", type));
            gui->onCmdOptionRadio(radio, 0, nullptr);
            gui->redrawPlots();
            int w, h, left, right, padTop, padBottom, l, t, r, b;
            plot->getSize(&w, &h);
            plot->getPlotPadding(&left, &right, &padTop, &padBottom);
            plot->getPlotBoundaries(&l, &t, &r, &b);
            EXPECT_EQ(w, canvas->getWidth());
            EXPECT_EQ(h, canvas->getHeight());
            const bool fillsWidth = std::abs((r - l) - (w - left - right)) <= 1;
            const bool fillsHeight = std::abs((b - t) - (h - padTop - padBottom)) <= 1;
            EXPECT_TRUE(fillsWidth || fillsHeight);
            EXPECT_GE(b - t, canvas->getHeight() / 2);
        }
    }
}

TEST_F(MainWindowPlots, BordersTheUserDraggedComeBackAtTheNextStart) {
    gui->onCmdFitToScreenSize(nullptr, 0, nullptr);
    FXCanvas* canvas = gui->getCIECanvas();
    FXWindow* plotsBeside = canvas->getParent();  // the diagram beside the spectrum
    FXWindow* row = plotsBeside->getParent();
    FXWindow* plotsAbove = row->getParent();  // the plots above the result tabs
    row->setHeight(450);
    plotsAbove->layout();
    gui->onCmdPlotSplitter(plotsAbove, FXSEL(SEL_COMMAND, VantrelGUI::ID_PLOT_SPLITTER), nullptr);
    canvas->setWidth(320);
    plotsBeside->layout();
    gui->onCmdPlotSplitter(plotsBeside, FXSEL(SEL_COMMAND, VantrelGUI::ID_PLOT_SPLITTER), nullptr);
    gui->onCmdQuit(nullptr, 0, nullptr);
    close();
    open();
    EXPECT_EQ(gui->getCIECanvas()->getParent()->getParent()->getHeight(), 450);
    EXPECT_EQ(gui->getCIECanvas()->getWidth(), 320);
    // Fitting to the screen gives the choice back to the window.
    gui->onCmdFitToScreenSize(nullptr, 0, nullptr);
    EXPECT_GT(gui->getCIECanvas()->getHeight(), 450);
    EXPECT_NE(gui->getCIECanvas()->getWidth(), 320);
}

TEST_F(MainWindowPlots, TheDiagramPrintsAsOnePostScriptPage) {
    FXPrinter printer;
    printer.name = (folder / "diagram.ps").string().c_str();
    printer.firstpage = printer.lastpage = printer.frompage = printer.topage = 1;
    printer.currentpage = 1;
    printer.mediasize = 0;
    printer.mediawidth = 612.0;
    printer.mediaheight = 792.0;
    printer.leftmargin = printer.rightmargin = printer.topmargin = printer.bottommargin = 72.0;
    printer.numcopies = 1;
    printer.flags = PRINT_DEST_FILE | PRINT_COLOR;
    ASSERT_TRUE(gui->printCIEDiagram(printer));
    std::ifstream ps(folder / "diagram.ps");
    std::string first, all((std::istreambuf_iterator<char>(ps)), std::istreambuf_iterator<char>());
    first = all.substr(0, all.find('\n'));
    EXPECT_EQ(first.rfind("%!PS", 0), 0u);
    EXPECT_NE(all.find("showpage"), std::string::npos);
    EXPECT_GT(all.size(), 10000u) << "the diagram's image is on the page";
    // A file that cannot be made is a failure, not a crash.
    printer.name = (folder / "no such folder" / "diagram.ps").string().c_str();
    EXPECT_FALSE(gui->printCIEDiagram(printer));
}

TEST_F(MainWindowPlots, EveryCheckOfTheCIEPlotMenuRedrawsAtOnce) {
    struct Toggle {
        const char* tag;
        int index;  // entry of an indexed option, or -1
    };
    // Each on a 1931 diagram of a 3000 K point, from its default.
    const Toggle toggles[] = {{"showWavelengths", -1},      {"show2011ANSIbins", -1},
                              {"show100KCCTLines", -1},     {"writePhotometryToCIE_Plot", -1},
                              {"multiMacAdamArray", 4},     {"multiUpVpCircleArray", 3},
                              {"multiANSIMacAdamArray", 0}, {"cieDiagramZoomed_Chk", -1}};
    CIE_Plot* plot = gui->getCIEPlot();
    ASSERT_NE(plot, nullptr);
    const auto pixels = [plot] {
        std::vector<FXColor> all;
        FXImage* image = plot->getImage();
        for (int y = 0; y < image->getHeight(); y += 2)
            for (int x = 0; x < image->getWidth(); x += 2) all.push_back(plot->getPixel(x, y));
        return all;
    };
    for (const Toggle& t : toggles) {
        SCOPED_TRACE(t.tag);
        auto* check =
            static_cast<FXMenuCheck*>(gui->getOptionWidget(t.tag, t.index < 0 ? 1 : t.index));
        ASSERT_NE(check, nullptr);
        const std::vector<FXColor> before = pixels();
        check->setCheck(!check->getCheck());
        gui->onCmdOptionCheck(check, 0, nullptr);
        guiTestApp()->repaint();  // the paint events the window asked for, no Calculate
        EXPECT_NE(pixels(), before);
    }
}

TEST_F(MainWindow, FilterAndColourInputTitleTheirColumnAndAnIlluminantStaysASpectrum) {
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    chooseAnalysis(4);
    EXPECT_EQ(table->getColumnText(1), "Transmission\n(0 - 1)");
    auto* percent = static_cast<FXMenuRadio*>(gui->getOptionWidget("colorsFiltersUnits", 1));
    gui->onCmdOptionRadio(percent, 0, nullptr);
    EXPECT_EQ(table->getColumnText(1), "Transmission\n(%)");
    chooseAnalysis(7);
    EXPECT_EQ(table->getColumnText(1), "Reflectance\n(%)");
    // An illuminant made while colour input is chosen is plotted as the light it is.
    gui->runStandardIlluminant(6);  // D65
    gui->redrawPlots(true);
    EXPECT_EQ(gui->getAnalysisType(), 7);
    ASSERT_NE(gui->getCIEPlot(), nullptr);
    EXPECT_EQ(gui->getCIEPlot()->getNumPoints(), 1);
    chooseAnalysis(1);
    EXPECT_EQ(table->getColumnText(1), "Spectrum\n(W/nm)");
}

TEST_F(MainWindow, SmallCommandsOfTheMenusDoTheirWork) {
    // The engine's coefficient files go to the working folder.
    const fs::path before = fs::current_path();
    fs::current_path(folder);
    gui->onCmdWriteCoefficients(nullptr, 0, nullptr);
    fs::current_path(before);
    int written = 0;
    for (const char* f : {"XYZ_coeff_1931_2deg.xls", "XYZ_coeff_1960_10deg.xls",
                          "XYZ_coeff_2015_10deg.xls", "TCS_VS_coeff.xls", "CCT_coeff_1931.xls",
                          "CCT_coeff_2015.xls", "daylight_coeff.xls", "Well_building_coeff.xls"})
        written += fs::exists(folder / f) ? 1 : 0;
    EXPECT_EQ(written, 8);

    // The calculated spectrum as text, a "nm value " line per row of the 2 nm table.
    chooseAnalysis(2);
    gui->onCmdCalculate(nullptr, 0, nullptr);
    ASSERT_TRUE(gui->hasResults());
    script.files = {(folder / "spectrum").string()};
    gui->onCmdWriteSpectrumData(nullptr, 0, nullptr);
    std::ifstream text(folder / "spectrum.txt");
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(Vantrel::NUM_GRID_POINTS));
    EXPECT_EQ(lines[0].rfind("360 ", 0), 0u);
    EXPECT_EQ(lines.back().rfind("830 ", 0), 0u);
    const double at560 = std::stod(lines[100].substr(4));
    EXPECT_NEAR(at560, std::stod(gui->getDisplayTable()->getItemText(100, 1).text()), at560 * 1e-3);
    EXPECT_EQ(lines[100].back(), ' ');

    // The matching title and data.
    script.forms = {{"Target LED"}};
    gui->onCmdMatchingCurveTitle(nullptr, 0, nullptr);
    EXPECT_EQ(gui->getSettings().getString("matchingCurveName"), "Target LED");
    auto* matching = static_cast<FXMenuCheck*>(gui->getOptionWidget("enableMatchingMenuItem"));
    matching->setCheck(TRUE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    Table_zwk7* table = gui->getInputTable(RANGE_360_830_2NM);
    table->setItemText(3, 2, "2.0");
    gui->onCmdClearMatchingData(nullptr, 0, nullptr);
    EXPECT_EQ(table->getItemText(3, 2), "");

    // Help: a missing user guide says so; the web site goes to the opener.
    script.shown.clear();
    gui->onCmdOpenUserGuide(nullptr, 0, nullptr);
    EXPECT_NE(boxes().find("File error: The User Guide"), std::string::npos) << boxes();
    gui->getSettings().setString("openCommand", (folder / "no_opener").string());
    script.shown.clear();
    gui->onCmdOpenWebSite(nullptr, 0, nullptr);
    EXPECT_NE(boxes().find("Open error:"), std::string::npos) << boxes();
}

TEST_F(MainWindow, ThePhotonFluxTipFollowsThe400To700Limit) {
    EXPECT_NE(std::string(gui->getResultTip("umol/s").text()).find("360 - 830 nm"),
              std::string::npos);
    auto* par = static_cast<FXMenuCheck*>(gui->getOptionWidget("constrain_uMol_sW_to_400_700nm"));
    par->setCheck(TRUE);
    gui->onCmdOptionCheck(par, 0, nullptr);
    EXPECT_NE(std::string(gui->getResultTip("umol/s").text()).find("400 - 700 nm"),
              std::string::npos);
    EXPECT_NE(std::string(gui->getResultTip("umol/J (spec)").text()).find("400 - 700 nm"),
              std::string::npos);
}

TEST_F(MainWindow, ReferenceColourFilesAndTheProgramFontOfTheOtherOptionsMenu) {
    gui->onCmdWrite_RQ_UserColors(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_WRITE_R_COLORS),
                                  nullptr);
    gui->onCmdWriteCESColorsToFile(nullptr, FXSEL(SEL_COMMAND, VantrelGUI::ID_WRITE_CES_DATA),
                                   nullptr);
    std::vector<ledTypeStruct> read(20);
    const ReadWriteUserSpectra library(true, true, 0, read.data(),
                                       (folder / "R_values.cols").string(), LIBRARY_COLORS);
    EXPECT_FALSE(library.getError()) << library.getErrorMessage();
    ASSERT_EQ(library.getNumUserData(), 15);
    EXPECT_STREQ(read[0].name, "R1");
    EXPECT_NEAR(read[0].spectrum[70], 0.223, 1e-3);  // CIE 13.3 TCS01 at 500 nm
    std::ifstream ces(folder / "CES_data.xls");
    std::string first;
    std::getline(ces, first);
    EXPECT_EQ(first, "1 - Nature");

    // A font face and size the dialog returns is kept and used from the next start.
    script.forms.push_back({"DejaVu Sans", "120", "400", "2", "0", "0", "0"});
    gui->onCmdProgramFont(nullptr, 0, nullptr);
    EXPECT_EQ(gui->getSettings().getString("programFontDescription.face"), "DejaVu Sans");
    gui->onCmdQuit(nullptr, 0, nullptr);
    close();
    open();
    FXFontDesc desc;
    guiTestApp()->getNormalFont()->getFontDesc(desc);
    EXPECT_STREQ(desc.face, "DejaVu Sans");
    EXPECT_EQ(desc.size, 120u);
    // A face left empty is refused and changes nothing.
    script.forms.push_back({"", "90", "400", "2", "0", "0", "0"});
    gui->onCmdProgramFont(nullptr, 0, nullptr);
    EXPECT_EQ(gui->getSettings().getString("programFontDescription.face"), "DejaVu Sans");
    EXPECT_NE(boxes().find("Font error: Please choose a font face of 6 to 24 points."),
              std::string::npos);
}

TEST_F(MainWindow, TheSpectrumDataHidesOnlyWhileItTakesNoInput) {
    FXWindow* pane = gui->getDisplayTable()->getParent()->getParent();
    auto* hide = static_cast<FXMenuCheck*>(gui->getOptionWidget("hideSpectrumDataMenuItem"));
    hide->setCheck(TRUE);
    gui->onCmdOptionCheck(hide, 0, nullptr);
    EXPECT_TRUE(pane->shown()) << "direct input reads the table";
    chooseAnalysis(2);
    EXPECT_FALSE(pane->shown()) << "a black body needs no table";
    // A matching column takes input even there.
    auto* matching = static_cast<FXMenuCheck*>(gui->getOptionWidget("enableMatchingMenuItem"));
    matching->setCheck(TRUE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    EXPECT_TRUE(pane->shown());
    matching->setCheck(FALSE);
    gui->onCmdOptionCheck(matching, 0, nullptr);
    EXPECT_FALSE(pane->shown());
    hide->setCheck(FALSE);
    gui->onCmdOptionCheck(hide, 0, nullptr);
    EXPECT_TRUE(pane->shown());
}
