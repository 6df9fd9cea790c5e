// Panes of the main window: the input side, the spectrum tables, the plots and the results.
#include <algorithm>

#include "ArgbColor.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {
// Labels of the analysis radios, by analysisType.
const char* const ANALYSIS_LABELS[9] = {
    "Spectra",     "Direct spectrum input",  "Black body curve", "Optimization", "Filter input",
    "Plot filter", "Reconstituted daylight", "Color input",      "Plot color"};
// Analysis types this build calculates; the others stand greyed.
bool isAnalysisTypeBuilt(int type) { return type != 3; }

// Column titles of the spectrum column, by freeFormatInputUnitsIndex.
const char* const SPECTRUM_TITLES[4] = {"Spectrum\n(W/nm)", "Spectrum\n(mW/nm)",
                                        "Spectrum\n(uW/nm)", "Spectrum\n(Photons/(s-nm))"};
const char* const MATCHING_TITLES[4] = {"Matching\n(W/nm)", "Matching\n(mW/nm)",
                                        "Matching\n(uW/nm)", "Matching\n(Photons/(s-nm))"};
const char* const UNITS_CASCADE_TITLES[4] = {
    "Input units for spectra (Watts/nm)", "Input units for spectra (milliWatts/nm)",
    "Input units for spectra (microWatts/nm)", "Input units for spectra (Photons/(s-nm))"};

// Rows of the free-format table at first.
constexpr int FREE_TABLE_ROWS = 2048;
}  // namespace

void VantrelGUI::buildInputSide(FXComposite* parent) {
    FXVerticalFrame* side =
        new FXVerticalFrame(parent, LAYOUT_FILL_Y | LAYOUT_FIX_WIDTH, 0, 0, 520, 0);
    FXHorizontalFrame* checks = new FXHorizontalFrame(side, LAYOUT_FILL_X);
    binningChk = new FXCheckButton(checks, "Include binning effects", this, ID_BINNING_CHK);
    bluePeakChk = new FXCheckButton(checks, "Subtract blue peak", this, ID_BLUE_PEAK_CHK);
    irChk = new FXCheckButton(checks, "Include IR (830 - 1050 nm)", this, ID_IR_CHK);
    binningChk->disable();  // the Monte Carlo simulation is not in this build

    inputTabs = new FXTabBook(side, nullptr, 0, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    const char* const tabTitles[4] = {"Spectra (0)", "Filters (0)", "Colors (0)", "Optimization"};
    FXTabItem** tabs[4] = {&spectraTab, &filtersTab, &colorsTab, &optimizationTab};
    FXVerticalFrame* pages[4];
    for (int t = 0; t < 4; ++t) {
        *tabs[t] = new FXTabItem(inputTabs, tabTitles[t]);
        pages[t] = new FXVerticalFrame(inputTabs,
                                       FRAME_THICK | FRAME_RAISED | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    }
    // The optimizer keeps the spectra of this list at their entered intensity.
    FXGroupBox* hold =
        new FXGroupBox(pages[3], "LEDs to hold constant in optimization run",
                       GROUPBOX_TITLE_LEFT | FRAME_GROOVE | LAYOUT_FILL_X | LAYOUT_FILL_Y);
    FXScrollWindow* holdScroll = new FXScrollWindow(hold, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    holdList = new FXVerticalFrame(holdScroll, LAYOUT_FILL_X);
    buildSpectraTab(pages[0]);
    for (int kind = 0; kind < 2; ++kind) {
        FXVerticalFrame* page = pages[kind + 1];
        noLibraryLabel[kind] = new FXLabel(
            page, kind == 0 ? "No user filters are loaded." : "No user colors are loaded.", nullptr,
            JUSTIFY_LEFT);
        FXScrollWindow* scroll = new FXScrollWindow(page, LAYOUT_FILL_X | LAYOUT_FILL_Y);
        (kind == 0 ? filterList : colorList) = new FXVerticalFrame(scroll, LAYOUT_FILL_X);
    }

    FXGroupBox* analysis =
        new FXGroupBox(side, "Analysis", GROUPBOX_TITLE_LEFT | FRAME_GROOVE | LAYOUT_FILL_X);
    FXMatrix* radios = new FXMatrix(analysis, 3, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
    for (int type = 0; type < 9; ++type) {
        analysisRadios[type] =
            new FXRadioButton(radios, ANALYSIS_LABELS[type], this, ID_ANALYSIS_TYPE);
        if (!isAnalysisTypeBuilt(type)) analysisRadios[type]->disable();
    }
    buildTemperatureFields(analysis);
    FXHorizontalFrame* buttons = new FXHorizontalFrame(side, LAYOUT_FILL_X);
    calculateButton = new FXButton(buttons, "Calculate", nullptr, this, ID_CALCULATE,
                                   BUTTON_NORMAL | LAYOUT_FIX_WIDTH, 0, 0, 110, 0);
    calIndividualButton =
        new FXButton(buttons, "Cal Individual", nullptr, this, ID_CAL_INDIVIDUAL, BUTTON_NORMAL);
    abortOptButton =
        new FXButton(buttons, "Abort Optim", nullptr, this, ID_ABORT_OPT, BUTTON_NORMAL);
    calIndividualButton->disable();
    abortOptButton->disable();
    savedValuesLabel = new FXLabel(side, "", nullptr, JUSTIFY_LEFT | LAYOUT_FILL_X);
}

void VantrelGUI::buildTables(FXComposite* parent) {
    FXVerticalFrame* frame = new FXVerticalFrame(
        parent, LAYOUT_FILL_Y | LAYOUT_FIX_WIDTH | FRAME_SUNKEN, 0, 0, 250, 0, 0, 0, 0, 0);
    tableSwitcher = new FXSwitcher(frame, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 0, 0, 0, 0, 0, 0);
    auto makeTable = [this](int rows, int tint) {
        Table_zwk7* table = new Table_zwk7(tableSwitcher, this, ID_TABLE,
                                           TABLE_COL_SIZABLE | LAYOUT_FILL_X | LAYOUT_FILL_Y);
        table->setTableSize(rows, 2);
        table->setRowHeaderWidth(0);
        table->setColumnHeaderHeight(34);
        table->setDefColumnWidth(115);
        // The tint of the wavelength column tells the user which table is active.
        table->setCellColor(0, 0, argbColor(tint));
        table->setCellColor(1, 0, argbColor(tint));
        return table;
    };
    displayTable = makeTable(Vantrel::NUM_GRID_POINTS, -1);
    displayTable->setEditable(FALSE);  // until a click on a column the user may change
    // Only the matching column of the display table takes input; see fillWavelengthColumns.
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        const InputTableGrid grid = inputTableGrid(r, false);
        inputTables[r] =
            makeTable(r == RANGE_FREE_FORMAT ? FREE_TABLE_ROWS : grid.rows, TABLE_TINTS[r]);
        if (r == RANGE_FREE_FORMAT) inputTables[r]->setAllowResizingOfRows(true);
    }
}

void VantrelGUI::buildPlotSide(FXComposite* parent) {
    // The diagram and the spectrum side by side above the result tabs; the window sizes the
    // diagram to fill its height (splitPlotSide) and keeps the borders the user drags.
    plotSideSplitter =
        new FXSplitter(parent, this, ID_PLOT_SPLITTER,
                       SPLITTER_VERTICAL | LAYOUT_FILL_X | LAYOUT_FILL_Y | SPLITTER_TRACKING);
    plotRow =
        new FXHorizontalFrame(plotSideSplitter, LAYOUT_FILL_X | LAYOUT_FIX_HEIGHT | FRAME_SUNKEN, 0,
                              0, 0, 400, 0, 0, 0, 0);
    FXSplitter* plots =
        new FXSplitter(plotRow, this, ID_PLOT_SPLITTER,
                       SPLITTER_HORIZONTAL | LAYOUT_FILL_X | LAYOUT_FILL_Y | SPLITTER_TRACKING);
    ciePlotCanvas =
        new FXCanvas(plots, this, ID_CIE_CANVAS, LAYOUT_FILL_X | LAYOUT_FILL_Y, 0, 0, 300, 0);
    spectrumPlotCanvas =
        new FXCanvas(plots, this, ID_SPECTRUM_CANVAS, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    ciePlotCanvas->setBackColor(FXRGB(255, 255, 255));
    spectrumPlotCanvas->setBackColor(FXRGB(255, 255, 255));
    resultTabs =
        new FXTabBook(plotSideSplitter, this, ID_RESULT_TABS, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    layoutMainResultsTab(resultTabs, 104, 86);
    layoutTM30ResultsTab(resultTabs, 104, 86);
    layoutTM30_p2_ResultsTab(resultTabs, 104, 86);
    layoutCQSResultsTab(resultTabs, 104, 86);
    layoutResultsTab4(resultTabs, 104, 86);
}

// --- Tables ------------------------------------------------------------------------------------

void VantrelGUI::setupTable() {
    // A third column holds the matching curve; the other columns keep their cells.
    // With "Subtract blue peak" it shows the spectrum without its blue peak.
    const bool bluePeak = bluePeakChk != nullptr && bluePeakChk->getCheck();
    const int columns = settings.getBool("enableMatchingMenuItem") || bluePeak ? 3 : 2;
    Table_zwk7* tables[NUM_SPECTRUM_RANGES + 1] = {displayTable};
    std::copy(std::begin(inputTables), std::end(inputTables), tables + 1);
    for (Table_zwk7* table : tables) {
        if (table->getNumColumns() < columns) table->insertColumns(2, 1);
        if (table->getNumColumns() > columns) table->removeColumns(2, 1);
        const int width = columns == 3 ? 78 : 100;
        for (int c = 0; c < columns; ++c) table->setColumnWidth(c, width);
    }
    setTableColumnTitles();
}

void VantrelGUI::fillWavelengthColumns() {
    const bool ir = irChk != nullptr && irChk->getCheck();
    const int rows = ir ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    if (displayTable->getNumRows() != rows) {
        displayTable->setTableSize(rows, displayTable->getNumColumns());
    }
    for (int i = 0; i < rows; ++i) {
        displayTable->setItemText(i, 0, FXString().format("%.0lf", 360.0 + 2.0 * i));
        displayTable->disableItem(i, 0);
        displayTable->disableItem(i, 1);
    }
    for (int r = 0; r < RANGE_FREE_FORMAT; ++r) {
        const InputTableGrid grid = inputTableGrid(r, ir);
        Table_zwk7* table = inputTables[r];
        if (table->getNumRows() != grid.rows) {
            table->setTableSize(grid.rows, table->getNumColumns());
        }
        for (int i = 0; i < grid.rows; ++i) {
            table->setItemText(i, 0, FXString().format("%.0lf", grid.firstNm + grid.stepNm * i));
            table->disableItem(i, 0);  // fixed wavelengths
        }
    }
    setTableColumnTitles();
}

void VantrelGUI::setTableColumnTitles() {
    const int units = std::clamp(settings.getInt("freeFormatInputUnitsIndex"), 0, 3);
    Table_zwk7* tables[NUM_SPECTRUM_RANGES + 1] = {displayTable};
    std::copy(std::begin(inputTables), std::end(inputTables), tables + 1);
    // Filter and colour input take a transmission or reflectance, as a fraction or in percent.
    const bool percent = settings.getInt("colorsFiltersUnits") == 1;
    const char* column = SPECTRUM_TITLES[units];
    if (analysisType == 4) column = percent ? "Transmission\n(%)" : "Transmission\n(0 - 1)";
    if (analysisType == 7) column = percent ? "Reflectance\n(%)" : "Reflectance\n(0 - 1)";
    for (Table_zwk7* table : tables) {
        table->setColumnText(0, "Wavelength\n(nm)");
        table->setColumnText(1, table == displayTable ? SPECTRUM_TITLES[units] : column);
        if (table->getNumColumns() > 2) table->setColumnText(2, MATCHING_TITLES[units]);
    }
    if (inputUnitsCascade != nullptr) inputUnitsCascade->setText(UNITS_CASCADE_TITLES[units]);
}

void VantrelGUI::setSpectrumTableVisibility() {
    const bool inputShown = analysisType == 1 || analysisType == 4 || analysisType == 7;
    Table_zwk7* shown = inputShown ? inputTables[spectrumRange] : displayTable;
    tableSwitcher->setCurrent(inputShown ? 1 + spectrumRange : 0);
    FXMenuCommand* commands[3] = {editSelectAll, editCopy, editPaste};
    for (FXMenuCommand* command : commands) command->setTarget(shown);
    for (FXButton* button : tableButtons) button->setTarget(shown);
    // "Hide the spectrum data when possible": the table goes while it takes no input, that is
    // for an analysis that reads no table and without a matching column to type into.
    FXWindow* pane = tableSwitcher->getParent();
    const bool hide = settings.getBool("hideSpectrumDataMenuItem") && !inputShown &&
                      !settings.getBool("enableMatchingMenuItem");
    if (hide == pane->shown()) {
        if (hide) {
            pane->hide();
        } else {
            pane->show();
        }
        pane->getParent()->recalc();
    }
}

Table_zwk7* VantrelGUI::getShownTable() const {
    const bool inputShown = analysisType == 1 || analysisType == 4 || analysisType == 7;
    return inputShown ? inputTables[spectrumRange] : displayTable;
}

void VantrelGUI::setAnalysisType(int type) {
    if (type < 0 || type > 8 || !isAnalysisTypeBuilt(type)) type = 1;
    analysisType = type;
    for (int t = 0; t < 9; ++t) analysisRadios[t]->setCheck(t == type);
    updateCalculateButton();
    setSpectrumTableVisibility();
    setTableColumnTitles();
    hideShowRedoButton();
}

void VantrelGUI::setSpectrumRange(int range) {
    spectrumRange = std::clamp(range, 0, NUM_SPECTRUM_RANGES - 1);
    // With IR only the free-format table reaches 1050 nm.
    const bool ir = irChk->getCheck();
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        if (ir && r != RANGE_FREE_FORMAT) {
            rangeRadios[r]->disable();
        } else {
            rangeRadios[r]->enable();
        }
    }
    if (ir) spectrumRange = RANGE_FREE_FORMAT;
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) rangeRadios[r]->setCheck(r == spectrumRange);
    settings.setInt("spectrumRange", spectrumRange);
    setSpectrumTableVisibility();
}

void VantrelGUI::updateCalculateButton() {
    const char* label = "Calculate";
    if (analysisType == 3) label = "Optimize";
    if (analysisType == 5 || analysisType == 8) label = "Plot";
    calculateButton->setText(label);
}

long VantrelGUI::onCmdAnalysisType(FXObject* sender, FXSelector, void*) {
    for (int t = 0; t < 9; ++t) {
        if (sender == analysisRadios[t]) {
            clearOutput();
            setAnalysisType(t);
        }
    }
    return 1;
}

long VantrelGUI::onCmdSpectrumRange(FXObject* sender, FXSelector, void*) {
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        if (sender == rangeRadios[r]) setSpectrumRange(r);
    }
    return 1;
}

long VantrelGUI::onCmdIRChk(FXObject*, FXSelector, void*) {
    clearOutput();
    fillWavelengthColumns();
    setSpectrumRange(spectrumRange);
    return 1;
}

long VantrelGUI::onCmdBluePeakChk(FXObject*, FXSelector, void*) {
    setupTable();
    clearOutput();
    return 1;
}

long VantrelGUI::onCmdClearSpectrumData(FXObject* sender, FXSelector, void*) {
    // From the menu the matching column goes too.
    if (sender != nullptr && displayTable->getNumColumns() > 2) {
        for (int i = 0; i < displayTable->getNumRows(); ++i) displayTable->setItemText(i, 2, "");
        matchingValid = false;
    }
    for (int i = 0; i < displayTable->getNumRows(); ++i) displayTable->setItemText(i, 1, "");
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        Table_zwk7* table = inputTables[r];
        for (int i = 0; i < table->getNumRows(); ++i) {
            table->setItemText(i, 1, "");
            if (r == RANGE_FREE_FORMAT) table->setItemText(i, 0, "");
        }
    }
    clearOutput();
    return 1;
}
