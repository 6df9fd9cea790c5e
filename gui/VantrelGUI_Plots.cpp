// The CIE diagram and the spectrum plot of the main window: the options and data they are
// handed, their repaint, zoom and pan by the mouse, and their export as BMP images.
#include <algorithm>

#include "AppConstants.h"
#include "CIE_Plot.h"
#include "PlotData.h"
#include "ReadWriteUserSpectra.h"
#include "ReferenceDataFiles.h"
#include "SpectrumPlot.h"
#include "UserDialogs.h"
#include "UserLibrary.h"
#include "Utilities_zwk7.h"
#include "VantrelGUI.h"

namespace {
bool isFilterOrColorType(int type) { return type == 4 || type == 5 || type == 7 || type == 8; }
}  // namespace

int VantrelGUI::numGridPoints() const {
    return irChk->getCheck() ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
}

CIE_PlotInput VantrelGUI::ciePlotInput() const {
    CIE_PlotInput in;
    in.diagramType = std::clamp(settings.getInt("cieDiagramType"), 0, 4);
    in.unfilled = settings.getBool("plotWhiteCIE");
    in.photometryAlignment = settings.getInt("photometryLabelPositionOnCIEplot");
    in.writePhotometry = settings.getBool("writePhotometryToCIE_Plot");
    in.locusType = std::clamp(settings.getInt("blackBodyDaylightLocus"), 0, 4);
    in.show2008Bins = settings.getBool("show2008ANSIbins");
    in.show2011Bins = settings.getBool("show2011ANSIbins");
    in.show2015Bins = settings.getBool("show2015ANSIbins");
    in.pureColorLines = settings.getBool("showPureColorsLines");
    in.showWavelengthMarkers = settings.getBool("showWavelengths");
    in.show100KLines = settings.getBool("show100KCCTLines");
    const bool tenDegree = in.diagramType >= 3;
    if (resultsValid && !isFilterOrColorType(plottedType())) {
        const SpectrumResults& r = lastOutcome.results;
        const CiePoints points = ciePointsToPlot(r.x, r.y, r.x10, r.y10, this->points,
                                                 in.pureColorLines, savedXY, tenDegree);
        in.x = points.x;
        in.y = points.y;
        // Saved or per-spectrum points make a series: all are kept, the result (the last) is
        // the main point.
        in.showAllPointsMode = in.plotAllPoints = points.x.size() > 1;
        in.photometry = tenDegree ? photometry.cri10 : photometry.cri;
    }
    in.useComma = settings.getBool("replaceDecimalWithComma");
    in.gamutSelected.resize(PREDEFINED_GAMUT_COUNT);
    for (int g = 0; g < PREDEFINED_GAMUT_COUNT; ++g) {
        in.gamutSelected[g] = settings.getIndexed("showGamut", g) != 0;
    }
    in.defaultLabelPosition = settings.getInt("pointLabelPosition");
    in.whiteBackground = settings.getBool("whiteBackgroundForAllPlots");
    in.solidGamutLines = settings.getBool("solidGamutLines");
    in.macAdamAtPoint.assign(in.x.size(), false);
    in.circleAtPoint.assign(in.x.size(), false);
    if (!in.x.empty()) in.macAdamAtPoint.back() = in.circleAtPoint.back() = true;
    in.cctLabelType = std::clamp(settings.getInt("cctLinesLabelsType"), 0, 4);
    in.outOfGamutMode = std::clamp(settings.getInt("outOfGamutType"), 0, 3);
    in.whiteText = settings.getBool("whiteEllipseCirclePhotometricText");
    in.gridType = std::clamp(settings.getInt("gridLinesType"), 0, 3);
    in.drawGamutBoundary = settings.getBool("drawGamutLines");
    return in;
}

void VantrelGUI::drawCIE_Plot(bool reset) {
    // A new range (another type, zoom or a reset) may want another width to fill the height.
    if (prepareCIE_Plot(reset) && settings.getInt("ciePlotPaneWidth") <= 0) fitDiagramWidth();
    ciePlot->drawPlot(ciePlotCanvas);
}

bool VantrelGUI::prepareCIE_Plot(bool reset) {
    if (!ciePlot) ciePlot = std::make_unique<CIE_Plot>(this, 1);
    const CIE_PlotInput in = ciePlotInput();
    const bool typeChanged = ciePlot->getDiagramType() != in.diagramType;
    ciePlot->plotPoints(in);
    bool steps[CIE_Plot::NUM_STEP_FLAGS], circles[CIE_Plot::NUM_STEP_FLAGS];
    for (int k = 0; k < CIE_Plot::NUM_STEP_FLAGS; ++k) {
        steps[k] = settings.getIndexed("multiMacAdamArray", k) != 0;
        circles[k] = settings.getIndexed("multiUpVpCircleArray", k) != 0;
    }
    const bool thick = settings.getBool("useThickLineForEllipseCircles");
    ciePlot->setMacAdamsInfo(false, 0, 0, 0, steps, thick);
    ciePlot->setUpVpCircleInfo(false, 0, 0, 0, circles, thick);
    // The one ANSI entry of the menu draws all seven 4-step ellipses.
    const bool allAnsi = settings.getIndexed("multiANSIMacAdamArray", 0) != 0;
    std::unique_ptr<bool[]> ansi(new bool[Vantrel::getNumANSIEllipses()]);
    std::fill(ansi.get(), ansi.get() + Vantrel::getNumANSIEllipses(), allAnsi);
    ciePlot->setUpANSISEllipseInfo(ansi.get(), thick);
    ciePlot->setEllipseColor(settings.getInt("ellipseColorIndex"));
    ciePlot->changeSymbolSize(settings.getInt("ciePlotSymbolSize"));
    const int fontSize = std::clamp(settings.getInt("ciePlotFontSize"), 6, 24);
    if (ciePlot->getFontSize() != fontSize) ciePlot->changeFontSize(fontSize);
    if (reset || typeChanged || resetCIEZoomPending) {
        resetCIEZoomPending = false;
        // Smart zoom centres on the one point, or frames a whole series (whose first point is
        // not the result).
        ciePlot->setPlotBounds(in.diagramType, settings.getBool("cieDiagramZoomed_Chk"),
                               settings.getBool("enableSmartZoom"), in.x.size() > 1);
        return true;
    }
    return false;
}

void VantrelGUI::drawSpectrumPlot() {
    // A fresh plot each time; it is kept until the next draw for the image export.
    spectrumPlot = std::make_unique<SpectrumPlot>(this);
    SpectrumPlot& plot = *spectrumPlot;
    const int n = numGridPoints();
    // The plot shows what the last run computed, whatever the radios say since.
    const int type = plottedType();
    const bool filterOrColor = isFilterOrColorType(type);
    const SpectraToPlot data =
        spectraToPlot(resultsValid ? mixedSpectrum : std::vector<double>(), matchingSpectrum, n,
                      type, settings.getInt("freeFormatInputUnitsIndex"));
    plot.passData(n, data.main.data(), data.matching.empty() ? nullptr : data.matching.data());
    const double lastNm = 360.0 + 2.0 * (n - 1);
    if (spectrumMaxNm > spectrumMinNm + 1 && spectrumMinNm > 1) {
        plot.setPlotMinMax(spectrumMinNm, std::min(spectrumMaxNm, lastNm));
    } else {
        plot.setPlotMinMax(360.0, lastNm);
    }
    SpectrumPlotOptions o;
    o.analysisType = type;
    o.hasMain = resultsValid && data.mainMax > 0;
    o.hasMatching = !data.matching.empty() && data.matchingMax > 0;
    o.showGridlines = settings.getBool("showSpectrumGridLines");
    o.showBox = settings.getBool("showBoxAroundSpectrumPlot");
    o.fullScale = settings.getBool("filtersColorsAt100");
    o.inPercent = filterOrColor && settings.getInt("colorsFiltersUnits") == 1;
    o.normalized = settings.getBool("normalizeMatchingPlots") && o.hasMatching;
    o.comma = settings.getBool("replaceDecimalWithComma");
    o.legendPosition = std::clamp(settings.getInt("spectrumPlotLegendPosition"), 0, 3);
    o.fillLegendBackground = settings.getBool("fillLedgendBackground");
    o.rainbowMode = std::clamp(settings.getInt("colorSpectrumPlotType"), 0, 2);
    o.photonUnits = data.photons;
    o.photonsAsUmol = data.photons && settings.getBool("yAxis_uMolS_SpectrumPlot");
    o.mainPeak = data.mainMax;
    o.matchingPeak = data.matchingMax;
    o.diffCurve = settings.getBool("plotMatchDifferenceMenuItem") && o.hasMatching;
    o.writeCaption = settings.getBool("writePhotometryToSpectrumPlot");
    o.photometryCaption = photometry.cri.c_str();
    o.filterColorName = mainCurveName.c_str();
    o.mainTitle = mainCurveName.c_str();
    o.matchingTitle = settings.getString("matchingCurveName").c_str();
    o.colorPeakLines = settings.getBool("showSpectrumPlotColorLines");
    o.drawPatch = settings.getBool("showColorPatchOnSpectrumPlot") && type == 8;
    o.matchingCurveType = std::clamp(settings.getInt("_matchingCurveType"), 0, 2);
    o.blackBackground = !settings.getBool("whiteBackgroundForAllPlots");
    FXDCWindow dc(spectrumPlotCanvas);
    if (plot.drawPlot(spectrumPlotCanvas->getWidth(), spectrumPlotCanvas->getHeight(), o)) {
        dc.drawImage(plot.getImage(), 0, 0);
        plot.getPlotPadding(&spectrumPads[0], &spectrumPads[1], &spectrumPads[2], &spectrumPads[3]);
        spectrumShownMinNm = plot.getMinNm();
        spectrumShownMaxNm = plot.getMaxNm();
    }
}

long VantrelGUI::onCmdRedraw(FXObject* sender, FXSelector, void*) {
    if (sender == ciePlotCanvas) drawCIE_Plot(false);
    if (sender == spectrumPlotCanvas) drawSpectrumPlot();
    return 1;
}

void VantrelGUI::redrawPlots(bool resetZoom) {
    if (ciePlotCanvas == nullptr || !ciePlotCanvas->id()) return;
    drawCIE_Plot(resetZoom);
    drawSpectrumPlot();
}

// --- Zoom and pan ----------------------------------------------------------------------------

long VantrelGUI::onCIECanvasMouse(FXObject*, FXSelector sel, void* ptr) {
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (event == nullptr || !ciePlot) return 0;
    const bool dragZoom = settings.getBool("enableClick_n_DragZoomPan");
    switch (FXSELTYPE(sel)) {
        case SEL_LEFTBUTTONPRESS:
        case SEL_RIGHTBUTTONPRESS:
            if (!dragZoom) return 0;
            ciePlotCanvas->grab();
            dragStartX = event->win_x;
            dragStartY = event->win_y;
            dragButton = FXSELTYPE(sel) == SEL_LEFTBUTTONPRESS ? 1 : 3;
            ciePlotCanvas->setDefaultCursor(getApp()->getDefaultCursor(
                dragButton == 1 ? DEF_CROSSHAIR_CURSOR : DEF_MOVE_CURSOR));
            return 1;
        case SEL_MOTION:
            if (dragButton == 0) return 0;
            if (dragButton == 1) {
                ciePlot->drawZoomBox(dragStartX, dragStartY, event->win_x, event->win_y);
            } else {
                ciePlot->drawPanLine(dragStartX, dragStartY, event->win_x, event->win_y);
            }
            ciePlot->drawPlot(ciePlotCanvas);
            return 1;
        case SEL_LEFTBUTTONRELEASE:
        case SEL_RIGHTBUTTONRELEASE: {
            if (dragButton == 0) return 0;
            ciePlotCanvas->ungrab();
            ciePlotCanvas->setDefaultCursor(getApp()->getDefaultCursor(DEF_ARROW_CURSOR));
            const int button = dragButton;
            dragButton = 0;
            if (button == 1) {
                ciePlot->mapScreenTo_xy(dragStartX, dragStartY, event->win_x, event->win_y);
            } else {
                ciePlot->mapScreenTo_xy_pan(event->win_x - dragStartX,
                                            -(event->win_y - dragStartY));
            }
            ciePlot->drawPlot(ciePlotCanvas);
            return 1;
        }
        case SEL_MIDDLEBUTTONRELEASE:
            ciePlot->clickZoom(1.25);
            ciePlot->drawPlot(ciePlotCanvas);
            return 1;
        case SEL_MOUSEWHEEL:
            ciePlot->clickZoom(event->code >= 1 ? 0.8 : 1.25);
            ciePlot->drawPlot(ciePlotCanvas);
            return 1;
        default:
            return 0;
    }
}

long VantrelGUI::onSpecCanvasMouseWheel(FXObject*, FXSelector, void* ptr) {
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (event == nullptr || !settings.getBool("enableMouseWheelSpecZoomMenuItem")) return 0;
    const int plotWidth = spectrumPlotCanvas->getWidth() - spectrumPads[0] - spectrumPads[1];
    if (plotWidth <= 0) return 0;
    const double cursorNm = SpectrumPlot::getCursorNm(event->win_x, spectrumPads[0], plotWidth,
                                                      spectrumShownMinNm, spectrumShownMaxNm);
    double minNm = spectrumShownMinNm, maxNm = spectrumShownMaxNm;
    SpectrumPlot::wheelZoom(cursorNm, event->code >= 1 ? 1 : -1, &minNm, &maxNm, 360.0,
                            360.0 + 2.0 * (numGridPoints() - 1));
    spectrumMinNm = minNm;
    spectrumMaxNm = maxNm;
    drawSpectrumPlot();
    return 1;
}

long VantrelGUI::onCmdResetCIEZoom(FXObject*, FXSelector, void*) {
    drawCIE_Plot(true);
    return 1;
}

long VantrelGUI::onCmdResetSpectrumZoom(FXObject*, FXSelector, void*) {
    spectrumMinNm = spectrumMaxNm = 0;
    drawSpectrumPlot();
    return 1;
}

// --- Images ----------------------------------------------------------------------------------

long VantrelGUI::onCmdSavePlotImage(FXObject*, FXSelector sel, void*) {
    const bool cie = FXSELID(sel) == ID_SAVE_CIE_IMAGE;
    FXString directory = settings.getString("pathUserFilesDirectory").c_str(), name, path;
    if (!Utilities_zwk7::saveFile(this, cie ? "Save CIE Plot" : "Save spectrum plot", ".bmp",
                                  cie ? "cie" : "spectrum", &directory, &name, &path)) {
        return 1;
    }
    if (cie) {
        drawCIE_Plot(false);
    } else {
        drawSpectrumPlot();
    }
    FXImage* image = cie ? ciePlot->getImage() : spectrumPlot->getImage();
    if (image == nullptr || !Utilities_zwk7::saveImageToFile(getApp(), image, path)) {
        UserDialogs::error(this, "File error", "File \"%s\" could not be written, it may be open.",
                           path.text());
    }
    return 1;
}

// --- Reference data --------------------------------------------------------------------------

namespace {
// Writes a reference file into the program folder; a file that cannot be written gets the box.
void writeReferenceFile(FXWindow* owner, const std::string& path,
                        bool (*write)(const std::string&)) {
    if (!write(path)) {
        UserDialogs::error(owner, "File error", "File \"%s\" could not be written, it may be open.",
                           path.c_str());
    }
}
}  // namespace

long VantrelGUI::onCmdWriteHorseShoeData(FXObject*, FXSelector, void*) {
    writeReferenceFile(this, paths.programDir + HORSESHOE_FILE_NAME, writeHorseShoeData);
    return 1;
}

long VantrelGUI::onCmdWrite_RQ_UserColors(FXObject*, FXSelector sel, void*) {
    const int id = FXSELID(sel);
    const ReferenceColours which = id == ID_WRITE_R_COLORS   ? ReferenceColours::CRI_SAMPLES
                                   : id == ID_WRITE_Q_COLORS ? ReferenceColours::CQS_SAMPLES
                                                             : ReferenceColours::COLOR_CHECKER;
    const char* name = id == ID_WRITE_R_COLORS   ? R_VALUES_USER_COLORS_NAME
                       : id == ID_WRITE_Q_COLORS ? Q_VALUES_USER_COLORS_NAME
                                                 : COLOR_CHECKER_COLORS_FILENAME;
    writeReferenceColours(which, name);
    return 1;
}

long VantrelGUI::onCmdWriteCESColorsToFile(FXObject*, FXSelector sel, void*) {
    if (FXSELID(sel) == ID_WRITE_CES_DATA) {
        writeReferenceFile(this, paths.programDir + CES_DATA_FILENAME, writeCESData);
    } else {
        writeReferenceColours(ReferenceColours::CES, CES_COLORS_FILENAME);
    }
    return 1;
}

void VantrelGUI::writeReferenceColours(ReferenceColours which, const char* name) {
    // A colour library of the program folder, as "Save" of the user colours writes one.
    const std::vector<ledTypeStruct> entries = referenceColourEntries(which);
    const std::string path = paths.programDir + name + USER_COLORS_FILE_EXT;
    const ReadWriteUserSpectra written(static_cast<int>(entries.size()), nullptr, entries.data(),
                                       "w", path, LIBRARY_COLORS, false);
    if (written.getError()) {
        UserDialogs::error(this, "File error", "File \"%s\" could not be written, it may be open.",
                           path.c_str());
    }
}

long VantrelGUI::onCmdWriteGamutData(FXObject*, FXSelector, void*) {
    writeReferenceFile(this, paths.programDir + GAMUT_FILE_NAME, writeGamutData);
    return 1;
}
