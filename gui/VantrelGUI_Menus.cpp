// The menu bar and the tool bar of the main window. Menus are tables: an entry with a handler
// works; an entry bound to an option is a check or radio stored in the settings file; an entry
// with neither belongs to a feature that is not in this build and stands greyed.
#include <string>

#include "AppConstants.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "GamutClass.h"
#include "QualityCharts.h"
#include "StandardIlluminants.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

enum MenuItemKind { ITEM_COMMAND, ITEM_CHECK, ITEM_RADIO, ITEM_SEPARATOR, ITEM_CASCADE, ITEM_END };

struct MenuItemDef {
    std::string label;
    MenuItemKind kind;
    FXSelector id;       // 0: not in this build (greyed) unless bound to an option
    const char* option;  // settings option of a check or radio, or nullptr
    int value;           // the option's value for a radio
    int index = -1;      // for a check of an indexed option: the entry it sets
};

namespace {
// Metric names that the menus put into their labels.
constexpr const char* TM30_NAME = "TM-30-18";
constexpr double IR_PERCENT_FOR_AUTO_CHECK = 0.5;

MenuItemDef cmd(const std::string& label, FXSelector id = 0) {
    return {label, ITEM_COMMAND, id, nullptr, 0};
}
MenuItemDef check(const std::string& label, const char* option) {
    return {label, ITEM_CHECK, 0, option, 0};
}
MenuItemDef radio(const std::string& label, const char* option, int value) {
    return {label, ITEM_RADIO, 0, option, value};
}
MenuItemDef indexedCheck(const std::string& label, const char* option, int index) {
    return {label, ITEM_CHECK, 0, option, 0, index};
}
MenuItemDef sep() { return {"", ITEM_SEPARATOR, 0, nullptr, 0}; }
MenuItemDef cascade(const std::string& label) { return {label, ITEM_CASCADE, 0, nullptr, 0}; }
MenuItemDef end() { return {"", ITEM_END, 0, nullptr, 0}; }

}  // namespace

FXMenuPane* VantrelGUI::addMenu(const char* title, const MenuItemDef* items, int count) {
    FXMenuPane* top = new FXMenuPane(this);
    menuPanes.push_back(top);
    FXMenuTitle* menuTitle = new FXMenuTitle(menuBar, title, nullptr, top);
    if (menuTitleFont != nullptr) menuTitle->setFont(menuTitleFont);
    std::vector<FXMenuPane*> panes{top};
    for (int i = 0; i < count; ++i) {
        const MenuItemDef& item = items[i];
        FXMenuPane* pane = panes.back();
        FXWindow* widget = nullptr;
        switch (item.kind) {
            case ITEM_SEPARATOR:
                new FXMenuSeparator(pane);
                break;
            case ITEM_CASCADE: {
                FXMenuPane* sub = new FXMenuPane(this);
                menuPanes.push_back(sub);
                FXMenuCascade* cascadeItem =
                    new FXMenuCascade(pane, item.label.c_str(), nullptr, sub);
                if (item.label.rfind("Input units for spectra", 0) == 0)
                    inputUnitsCascade = cascadeItem;
                panes.push_back(sub);
                break;
            }
            case ITEM_END:
                if (panes.size() > 1) panes.pop_back();
                break;
            case ITEM_CHECK:
                widget = new FXMenuCheck(pane, item.label.c_str(), this, ID_OPTION_CHECK);
                optionBindings.push_back({widget, item.option, 1, false, item.index});
                break;
            case ITEM_RADIO:
                widget = new FXMenuRadio(pane, item.label.c_str(), this, ID_OPTION_RADIO);
                optionBindings.push_back({widget, item.option, item.value, true, -1});
                break;
            case ITEM_COMMAND:
                widget = new FXMenuCommand(pane, item.label.c_str(), nullptr,
                                           item.id != 0 ? this : nullptr, item.id);
                if (item.id == 0) widget->disable();
                // The recent-file slots show only when filled.
                if (item.id >= ID_RECENT_FILE && item.id <= ID_RECENT_FILE_LAST) {
                    recentFileItems[item.id - ID_RECENT_FILE] = static_cast<FXMenuCommand*>(widget);
                    widget->hide();
                }
                break;
        }
    }
    return top;
}

void VantrelGUI::buildMenus() {
    menuBar = new FXMenuBar(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X);
    // The titles take a font one step smaller than the program's, so that all of them, Help
    // included, fit on a 1280 pixel wide screen (a FOX 1.6 menu bar does not wrap).
    if (programFont != nullptr) {
        FXFontDesc desc;
        programFont->getFontDesc(desc);
        desc.size = desc.size * 8 / 9;
        menuTitleFont = new FXFont(getApp(), desc);
    }
    const std::string photometryName = PHOTOMETRY_FILE_NAME;

    const MenuItemDef fileMenu[] = {
        cmd("Open design file...", ID_OPEN_USER_FILE),
        cmd("Save design as...", ID_WRITE_FILE),
        sep(),
        cmd("", ID_RECENT_FILE + 0),
        cmd("", ID_RECENT_FILE + 1),
        cmd("", ID_RECENT_FILE + 2),
        cmd("", ID_RECENT_FILE + 3),
        cmd("", ID_RECENT_FILE + 4),
        cmd("", ID_RECENT_FILE + 5),
        cmd("", ID_RECENT_FILE + 6),
        cmd("", ID_RECENT_FILE + 7),
        cmd("", ID_RECENT_FILE + 8),
        cmd("", ID_RECENT_FILE + 9),
        cmd("Clear recent project list", ID_CLEAR_RECENT_PROJECT_LIST),
        sep(),
        cmd(ValueFormat::format("Open %s file", photometryName.c_str()), ID_OPEN_TXT_FILE),
        cmd("Open asa_out.txt file", ID_OPEN_ASA_OUT_FILE),
        cmd("Print the CIE diagram...", ID_PRINT),
        sep(),
        cmd("Exit", ID_QUIT)};
    addMenu("File", fileMenu, std::size(fileMenu));

    // The Edit entries act on the table shown; their target follows it.
    FXMenuPane* edit = new FXMenuPane(this);
    menuPanes.push_back(edit);
    FXMenuTitle* editTitle = new FXMenuTitle(menuBar, "Edit", nullptr, edit);
    if (menuTitleFont != nullptr) editTitle->setFont(menuTitleFont);
    editSelectAll = new FXMenuCommand(edit, "Select all", nullptr, nullptr, FXTable::ID_SELECT_ALL);
    editCopy = new FXMenuCommand(edit, "Copy selection to clipboard", nullptr, nullptr,
                                 FXTable::ID_COPY_SEL);
    editPaste = new FXMenuCommand(edit, "Paste selection from clipboard", nullptr, nullptr,
                                  FXTable::ID_PASTE_SEL);

    std::vector<MenuItemDef> inputs = {
        radio("Input power units (millWatts)", "inputWattsUnits", 0),
        radio("Input power units (watts)", "inputWattsUnits", 1),
        sep(),
        radio("Fill empty input intensity fields with lumens", "defaultSpecUnits", 0),
        radio("Fill empty input intensity fields with visible watts", "defaultSpecUnits", 1),
        sep(),
        radio("Input units for filters and colors as a fraction (0 to 1)", "colorsFiltersUnits", 0),
        radio("Input units for filters and colors as a percent (0% to 100%)", "colorsFiltersUnits",
              1),
        sep()};
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        inputs.push_back({inputTableGrid(r, false).label, ITEM_RADIO, 0, "spectrumRange", r});
    }
    const MenuItemDef moreInputs[] = {
        cascade("Input units for spectra"),
        radio("Watts/nm", "freeFormatInputUnitsIndex", 0),
        radio("milliWatts/nm", "freeFormatInputUnitsIndex", 1),
        radio("microWatts/nm", "freeFormatInputUnitsIndex", 2),
        radio("Photons/(s-nm)", "freeFormatInputUnitsIndex", 3),
        end(),
        sep(),
        cmd("Invert values in table", ID_INVERT_TABLE),
        check("Hide the spectrum data when possible", "hideSpectrumDataMenuItem"),
        check("Set empty cells in spectrum to 0", "zeroEmptyCellsMenuItem"),
        check("Use orginal spectral intensity if lumens or watts are blank",
              "useOriginalIntensititesMenuItem"),
        sep(),
        cmd("Clear spectrum data from table", ID_CLEAR_SPECTRUM_DATA),
        cmd("Clear saved xy", ID_CLEAR_SAVED_XY),
        cmd("Clear saved Rn", ID_CLEAR_SAVED_R),
        check("Clear input data on start-up", "clearDataStartupMenuItem"),
        cmd("Reset all program default values", ID_RESET_DEFAULTS),
        sep(),
        check(ValueFormat::format(
                  "Include IR if any selected spectra have more then %.1lf%% of their "
                  "intensity beyond 830 nm",
                  IR_PERCENT_FOR_AUTO_CHECK),
              "autoCheckIRForIRLEDs_Chk"),
        cmd("Update decimal format", ID_UPDATE_DECIMAL_FORMAT)};
    inputs.insert(inputs.end(), std::begin(moreInputs), std::end(moreInputs));
    addMenu("Inputs", inputs.data(), static_cast<int>(inputs.size()));
    for (int r = 0; r < NUM_SPECTRUM_RANGES; ++r) {
        rangeRadios[r] = static_cast<FXMenuRadio*>(getOptionWidget("spectrumRange", r));
    }

    const std::string photometryXls = "photometry.xls";
    const MenuItemDef outputs[] = {
        cmd("Write current spectrum data to a text file...", ID_WRITE_SPECTRUM_DATA),
        sep(),
        radio("Write x, y and Duv with 4 decimals", "numDecimalsFor_xyDuv_etc", 4),
        radio("Write x, y and Duv with 6 decimals", "numDecimalsFor_xyDuv_etc", 6),
        sep(),
        check(ValueFormat::format("Write photometry data to a file (%s)", photometryName.c_str()),
              "writeDataMenuItem"),
        check(ValueFormat::format("Write the gamuts, COI, Class A, TLCI && umol/J to the %s file",
                                  photometryName.c_str()),
              "writeGamuts_COI_ClassA_TLCI_toFile_Chk"),
        check("Write abbreviated photometry in tabbed format", "writeTabbedDataMenuItem"),
        check(ValueFormat::format("Write photometry data to Excel (tab delimited) file (%s)",
                                  photometryXls.c_str()),
              "writeAllToPhotometryExcelMenuItem"),
        cmd(ValueFormat::format(
                "Set the order of the photometry data written to the Excel (tab delimited) "
                "file (%s)",
                photometryXls.c_str()),
            ID_SET_ORDER_EXCEL),
        check(ValueFormat::format(
                  "Write u'v' for the R-values, Q-values, and any checked User Colors to Excel "
                  "file (%s)",
                  CRI_CQS_UPVP_FILENAME),
              "writeColors_upvp_ExcelMenuItem"),
        cmd("Write the binning runs to a file"),
        sep(),
        radio("Gamut based on 1976 (u'v') diagram", "gamutType", 0),
        radio("Gamut based on 1960 (uv) diagram", "gamutType", 1),
        sep(),
        radio(ValueFormat::format("Use a blackbody spectrum reference for the %s", SSI_TITLE),
              "_referenceSpectrumForSSI", 0),
        radio(ValueFormat::format("Use a daylight spectrum reference for the %s", SSI_TITLE),
              "_referenceSpectrumForSSI", 1),
        radio(ValueFormat::format("Use a user spectrum reference for the %s", SSI_TITLE),
              "_referenceSpectrumForSSI", 2),
        check("Limit umol/s and umol/J to 400 nm to 700 nm", "constrain_uMol_sW_to_400_700nm")};
    addMenu("Outputs", outputs, std::size(outputs));

    const MenuItemDef matching[] = {
        check("Matching mode", "enableMatchingMenuItem"),
        check("Plot normalized data", "normalizeMatchingPlots"),
        cmd("Clear matching spectrum data", ID_CLEAR_MATCHING_DATA),
        cmd("Unknown", ID_PICK_MATCHING_CURVE),
        check("Plot spectrum difference", "plotMatchDifferenceMenuItem"),
        cmd("Enter title for matching curve...", ID_MATCHING_CURVE_TITLE)};
    addMenu("Matching", matching, std::size(matching));

    std::vector<MenuItemDef> userSpectra = {
        cmd("Save a user spectrum", ID_SAVE_USER_DATA + 1),
        cmd("Import spectra", ID_IMPORT_USER_DATA + 1),
        cmd("New user spectra file", ID_REPLACE_USER_DATA + 1),
        cmd("Edit user spectra...", ID_EDIT_USER_DATA + 1),
        sep(),
        cmd("Read spectra from SpecWin ISD files...", ID_IMPORT_SPECTROMETER + 0),
        cmd("Read spectra from Mole ISD files...", ID_IMPORT_SPECTROMETER + 6),
        cmd("Read spectra from SpectraSuite files...", ID_IMPORT_SPECTROMETER + 1),
        cmd("Read spectra from SPDX files...", ID_IMPORT_SPECTROMETER + 2),
        cmd("Read spectra from CGATS .sp files...", ID_IMPORT_SPECTROMETER + 3),
        cmd("Read spectra from text files (nm, intensity)...", ID_IMPORT_SPECTROMETER + 4),
        cmd("Read spectra from text files (intensity, nm)...", ID_IMPORT_SPECTROMETER + 5),
        check("Include the filename in the spectrum name", "includeFilenameInSpectrumName_Chk"),
        sep(),
        cmd("Create Gaussian peak user spectrum...", ID_CREATE_GAUSSIAN),
        cascade("Standard illuminates")};
    for (int k = 0; k < NUM_STANDARD_ILLUMINANTS; ++k) {
        std::string name;
        double values[Vantrel::NUM_GRID_POINTS_IR];
        defineStandardIlluminants(k, &name, values);
        userSpectra.push_back(cmd(name, ID_STD_ILLUMINANT + k));
    }
    userSpectra.push_back(cmd("Create all", ID_STD_ILLUMINANT + NUM_STANDARD_ILLUMINANTS));
    userSpectra.push_back(end());
    addMenu("User Spectra", userSpectra.data(), static_cast<int>(userSpectra.size()));
    const MenuItemDef userFilters[] = {
        cmd("Save a user filter", ID_SAVE_USER_DATA),
        cmd("Import filters", ID_IMPORT_USER_DATA),
        cmd("New user filters file", ID_REPLACE_USER_DATA),
        sep(),
        cmd("Read filters from ISD files...", ID_IMPORT_FILTER_COLOR_FILE + 0),
        cmd("Read filters from text files...", ID_IMPORT_FILTER_COLOR_FILE + 1)};
    addMenu("User Filters", userFilters, std::size(userFilters));
    const MenuItemDef userColors[] = {
        cmd("Save a user color", ID_SAVE_USER_DATA + 2),
        cmd("Import colors", ID_IMPORT_USER_DATA + 2),
        cmd("New user colors file", ID_REPLACE_USER_DATA + 2),
        sep(),
        cmd("Read colors from ISD files...", ID_IMPORT_FILTER_COLOR_FILE + 2),
        cmd("Read colors from text files...", ID_IMPORT_FILTER_COLOR_FILE + 3)};
    addMenu("User Colors", userColors, std::size(userColors));

    std::vector<MenuItemDef> ciePlot = {
        radio("CIE 1931 2 degree (x, y)", "cieDiagramType", 0),
        radio("CIE 1960 2 degree (u, v)", "cieDiagramType", 1),
        radio("CIE 1976 2 degree (u', v')", "cieDiagramType", 2),
        radio("CIE 2015 10 degree (x, y)", "cieDiagramType", 3),
        radio("CIE 2015 10 degree (u', v')", "cieDiagramType", 4),
        sep(),
        radio("Color filled CIE space", "plotWhiteCIE", 0),
        radio("Unfilled CIE space", "plotWhiteCIE", 1),
        radio("White background", "whiteBackgroundForAllPlots", 1),
        radio("Black background", "whiteBackgroundForAllPlots", 0),
        cascade("Grid lines"),
        radio("Grid lines over the whole diagram", "gridLinesType", 0),
        radio("Grid lines outside the locus (all over when zoomed)", "gridLinesType", 1),
        radio("Grid lines outside the locus", "gridLinesType", 2),
        radio("No grid lines", "gridLinesType", 3),
        end(),
        sep(),
        radio("Show black body locus", "blackBodyDaylightLocus", 0),
        radio("Show black body and daylight locus", "blackBodyDaylightLocus", 1),
        radio("Show black body or daylight locus", "blackBodyDaylightLocus", 2),
        radio(ValueFormat::format("Show %s black body and daylight locus", TM30_NAME),
              "blackBodyDaylightLocus", 3),
        radio("Show no locus", "blackBodyDaylightLocus", 4),
        cascade("CCT lines"),
        radio("No CCT lines", "cctLinesLabelsType", 0),
        radio("CCT lines without labels", "cctLinesLabelsType", 1),
        radio("CCT lines with labels", "cctLinesLabelsType", 2),
        radio("CCT lines with all labels", "cctLinesLabelsType", 3),
        radio("CCT lines with all labels when zoomed", "cctLinesLabelsType", 4),
        end(),
        check("Show 100K CCT lines", "show100KCCTLines"),
        check("Show wavelength markers", "showWavelengths"),
        check("Show raw spectra with points and lines", "showPureColorsLines"),
        check("Show ANSI C78.377-2008 quadrangles", "show2008ANSIbins"),
        check("Show ANSI C78.377-2011 quadrangles", "show2011ANSIbins"),
        check("Show ANSI C78.377-2015 quadrangles", "show2015ANSIbins"),
        sep(),
        cascade("MacAdam ellipses")};
    for (int steps = 1; steps < ELLIPSE_CHOICE_COUNT; ++steps) {
        ciePlot.push_back(
            indexedCheck(ValueFormat::format("%d ellipses", steps), "multiMacAdamArray", steps));
    }
    ciePlot.push_back(end());
    ciePlot.push_back(cascade("u'v' circles"));
    for (int steps = 1; steps < ELLIPSE_CHOICE_COUNT; ++steps) {
        ciePlot.push_back(
            indexedCheck(ValueFormat::format("%d circles", steps), "multiUpVpCircleArray", steps));
    }
    ciePlot.push_back(end());
    ciePlot.push_back(indexedCheck("4-step ANSI C78.376 ellipses", "multiANSIMacAdamArray", 0));
    ciePlot.push_back(cascade("Ellipse color"));
    ciePlot.push_back(radio("Black", "ellipseColorIndex", 0));
    ciePlot.push_back(radio("Red", "ellipseColorIndex", 1));
    ciePlot.push_back(radio("Blue", "ellipseColorIndex", 2));
    ciePlot.push_back(end());
    ciePlot.push_back(check("Use thick line", "useThickLineForEllipseCircles"));
    ciePlot.push_back(sep());
    ciePlot.push_back(cascade("Gamuts"));
    {
        const GamutClass gamuts;
        for (int g = 0; g < gamuts.getNumberOfStandardGamuts(); ++g) {
            ciePlot.push_back(indexedCheck(gamuts.getGamutName(g), "showGamut", g));
        }
    }
    ciePlot.push_back(end());
    ciePlot.push_back(radio("Out-of-gambit color - Normal", "outOfGamutType", 0));
    ciePlot.push_back(radio("Out-of-gambit color - Gray", "outOfGamutType", 1));
    ciePlot.push_back(radio("Out-of-gambit color - Dimmed", "outOfGamutType", 2));
    ciePlot.push_back(radio("Out-of-gambit color - Background", "outOfGamutType", 3));
    ciePlot.push_back(check("Draw gamut boundary line", "drawGamutLines"));
    ciePlot.push_back(check("Solid gamut boundary lines", "solidGamutLines"));
    ciePlot.push_back(sep());
    ciePlot.push_back(cascade("Symbol size"));
    for (int size : {4, 6, 8, 10, 12, 14, 16, 20}) {
        ciePlot.push_back(radio(ValueFormat::format("%d", size), "ciePlotSymbolSize", size));
    }
    ciePlot.push_back(end());
    ciePlot.push_back(cascade("Font size"));
    for (int size : {7, 8, 9, 10, 11, 12, 14}) {
        ciePlot.push_back(radio(ValueFormat::format("%d", size), "ciePlotFontSize", size));
    }
    ciePlot.push_back(end());
    ciePlot.push_back(check("Write the photometry on the plot", "writePhotometryToCIE_Plot"));
    ciePlot.push_back(check("White photometry/MacAdam/u'v' labels (only with black background)",
                            "whiteEllipseCirclePhotometricText"));
    ciePlot.push_back(sep());
    ciePlot.push_back(check("Zoom in on the white region", "cieDiagramZoomed_Chk"));
    ciePlot.push_back(check("Enable SmartZoom (center at x,y)", "enableSmartZoom"));
    ciePlot.push_back(check("Enable click && drag zoom/pan", "enableClick_n_DragZoomPan"));
    ciePlot.push_back(cmd("Reset zoom", ID_RESET_CIE_ZOOM));
    ciePlot.push_back(sep());
    ciePlot.push_back(cmd("Save CIE plot image...", ID_SAVE_CIE_IMAGE));
    ciePlot.push_back(cmd("Customize CIE plot..."));
    addMenu("CIE Plot", ciePlot.data(), static_cast<int>(ciePlot.size()));

    const MenuItemDef spectrumPlot[] = {
        check("Show grid lines", "showSpectrumGridLines"),
        check("Draw a box around the plot", "showBoxAroundSpectrumPlot"),
        radio("Plot without rainbow", "colorSpectrumPlotType", 0),
        radio("Plot with rainbow under curve", "colorSpectrumPlotType", 1),
        radio("Plot with rainbow background", "colorSpectrumPlotType", 2),
        check("Show the color peak lines", "showSpectrumPlotColorLines"),
        check("Show color patch (colors and filters)", "showColorPatchOnSpectrumPlot"),
        check("Plot filters and colors at full scale", "filtersColorsAt100"),
        check("Plot photons as umol/(s-nm)", "yAxis_uMolS_SpectrumPlot"),
        sep(),
        check("Write the photometry or the filter/color name on the plot",
              "writePhotometryToSpectrumPlot"),
        cascade("Legend position"),
        radio("Top left", "spectrumPlotLegendPosition", 0),
        radio("Top right", "spectrumPlotLegendPosition", 1),
        radio("Bottom right", "spectrumPlotLegendPosition", 2),
        radio("Bottom left", "spectrumPlotLegendPosition", 3),
        end(),
        check("Fill the legend background", "fillLedgendBackground"),
        sep(),
        radio("black line for matching spectrum", "_matchingCurveType", 0),
        radio("Red line for matching spectrum", "_matchingCurveType", 1),
        radio("Blue line for matching spectrum", "_matchingCurveType", 2),
        sep(),
        check("Enable mouse wheel zoom", "enableMouseWheelSpecZoomMenuItem"),
        cmd("Reset min/max x-axis values", ID_RESET_SPECTRUM_ZOOM),
        cmd("Save spectrum plot image...", ID_SAVE_SPECTRUM_IMAGE),
        cmd("Customize/Save spectrum plot...")};
    addMenu("Spectrum Plot", spectrumPlot, std::size(spectrumPlot));
    auto chart = [](QualityChart c) { return ID_QUALITY_PLOT + static_cast<FXSelector>(c); };
    const MenuItemDef tm30[] = {
        cmd(ValueFormat::format(
                "IES %s chroma shifts, hue shifts and Rf histograms for the %d hues", TM30_NAME,
                16),
            chart(QualityChart::RF_HUE)),
        cmd(ValueFormat::format("IES %s color Rf histogram for the reference colors", TM30_NAME),
            chart(QualityChart::RF_SAMPLES)),
        cmd(ValueFormat::format("IES %s color patches for the reference colors", TM30_NAME),
            chart(QualityChart::TM30_PATCHES)),
        cmd(ValueFormat::format("IES %s Rg versus Rf plot", TM30_NAME), chart(QualityChart::RG_RF)),
        cmd(ValueFormat::format("IES %s color vector graphic and icon plots", TM30_NAME),
            chart(QualityChart::GRAPHIC)),
        cmd(ValueFormat::format("IES %s CAM02-UCS plot", TM30_NAME),
            chart(QualityChart::CAM02_UCS)),
        cmd(ValueFormat::format("IES %s report", TM30_NAME), chart(QualityChart::TM30_REPORT)),
        sep(),
        cmd(ValueFormat::format("Write IES %s J'a'b', Rf,i and Rf,h values to a file...",
                                TM30_NAME),
            ID_WRITE_TM30_JAB)};
    addMenu(ValueFormat::format("IES %s", TM30_NAME).c_str(), tm30, std::size(tm30));
    const MenuItemDef otherPlots[] = {
        cmd("Plot R-values or Q-values", chart(QualityChart::RVALUES)),
        cmd("Plot CIELAB values", chart(QualityChart::CIELAB_R)),
        cmd("TLCI-2012 graphic", chart(QualityChart::TLCI)),
        cmd("Show color patches", chart(QualityChart::CRI_PATCHES))};
    addMenu("Other Plots", otherPlots, std::size(otherPlots));

    const MenuItemDef calculations[] = {
        cmd("Calculate CIEDE2000 with user inputted values..."),
        cmd("Calculate CCT, Duv, dominant WL and purity from x,y..."),
        cmd("Calculate x,y from CCT && Duv..."),
        cmd("Convert coordinates (xy/uv/u'v'/XYZ/L*a*b*)..."),
        cmd("Convert between RGB, HSV and HSL systems"),
        cmd("Convert Cx, Cy to RGB, HSV and HSL systems"),
        cmd("Calculate gamut area coverage..."),
        cmd("Calculate spectrum photon flux by regions"),
        cmd("Calculate the black body locus && CCT lines..."),
        cmd("Calculate coordinates of MacAdam ellipse or u'v' circle..."),
        cmd("Calculate circadian system response..."),
        cmd(ValueFormat::format("Calculate %s...", EML_TITLE)),
        cmd("Calculate binning from x,y and lumens..."),
        cmd("Calculate photometry from x,y and lumens..."),
        cmd("Calculate 3 color mixing based on CCT && Duv or x,y..."),
        cmd("Calculate maximum lumens from color mix..."),
        cmd("Calculate color mixing based on spectra..."),
        cmd("Multi-design optimization..."),
        cmd("Resample spectrum..."),
        cmd("Bin substitution..."),
        cmd("Mix by sliders..."),
        cmd("Color mix lamp design based on CCT..."),
        cmd("Color mix lamp design based on x, y..."),
        cmd("Two or three white LEDs lamp design based on x, y && lm..."),
        cmd("Run combinations...")};
    addMenu("Other Calculations", calculations, std::size(calculations));

    const MenuItemDef otherOptions[] = {
        cmd("Reset the working directory to the default", ID_RESET_WORKING_DIR),
        cmd("Program font...", ID_PROGRAM_FONT),
        sep(),
        cmd(ValueFormat::format("Write the R1-R%d colors to a file (%s%s)", 15,
                                R_VALUES_USER_COLORS_NAME, ".cols"),
            ID_WRITE_R_COLORS),
        cmd(ValueFormat::format("Write the Q1-Q%d colors to a file (%s%s)", 15,
                                Q_VALUES_USER_COLORS_NAME, ".cols"),
            ID_WRITE_Q_COLORS),
        cmd(ValueFormat::format("Write the ColorChecker (TLCI) colors to a file (%s%s)",
                                COLOR_CHECKER_COLORS_FILENAME, ".cols"),
            ID_WRITE_COLOR_CHECKER_COLORS),
        cmd(ValueFormat::format("Write the CES colors to a file (%s%s)", CES_COLORS_FILENAME,
                                ".cols"),
            ID_WRITE_CES_COLORS),
        cmd(ValueFormat::format("Write the CES data to a file (%s)", CES_DATA_FILENAME),
            ID_WRITE_CES_DATA),
        cmd("Write photometry coefficients to a file (8 files will be written)",
            ID_WRITE_COEFFICIENTS),
        cmd(ValueFormat::format("Write CIE horseshoe data to a file (%s)", HORSESHOE_FILE_NAME),
            ID_WRITE_HORSESHOE),
        cmd(ValueFormat::format("Write the predefined gamut points a file (%s)", GAMUT_FILE_NAME),
            ID_WRITE_GAMUTS),
        sep(),
        check("Play sounds", "playSoundsMenuItem"),
        check("Enable sticky menus", "enableStickyMenuItem"),
        check("Enable mouse wheel in LEDs input fields (lDom, bin width and output)",
              "mouseWheelForLEDsMenuItem"),
        sep(),
        radio("Show all standard LEDs", "showLEDs", 0),
        radio("Do not show generic pure color standard LEDs", "showLEDs", 1),
        radio("Do not show IR standard LEDs", "showLEDs", 2),
        radio("Do not show any standard LEDs", "showLEDs", 3),
        sep(),
        check(ValueFormat::format("Show CIE and CQS test colors and %s hue colors", TM30_NAME),
              "showCIEtestColorsMenuItem"),
        check("Show tab highlight colors", "colorTabs")};
    addMenu("Other Options", otherOptions, std::size(otherOptions));

    const MenuItemDef colorSystems[] = {
        cmd("Natural Colour System (NCS)..."), cmd("Munsell colors..."),
        cmd(ValueFormat::format("Write Munsell data to a tab delimited file (%s)",
                                "MunsellColors.xls"))};
    addMenu("Color Systems", colorSystems, std::size(colorSystems));

    const MenuItemDef help[] = {
        cmd(ValueFormat::format("%s web site", APP_NAME), ID_OPEN_WEB_SITE),
        cmd("Check the web site for updates now", ID_CHECK_FOR_UPDATES),
        check("Check for updates at start-up every 7 days", "checkForUpdatesEvery7Days_Menu"),
        check("Check for updates at start-up every 30 days", "checkForUpdatesEvery30Days_Menu"),
        sep(),
        cmd("Open pdf User Guide", ID_OPEN_USER_GUIDE),
        cmd("About...", ID_ABOUT)};
    addMenu("Help", help, std::size(help));
}

void VantrelGUI::buildToolBar(FXComposite* parent) {
    FXToolBar* bar = new FXToolBar(parent, LAYOUT_SIDE_TOP | LAYOUT_FILL_X | FRAME_RAISED);
    struct ToolDef {
        const char* text;
        std::string tip;
        FXSelector id;
    };
    const ToolDef tools[] = {
        {"Photometry", ValueFormat::format("\tOpen %s file", PHOTOMETRY_FILE_NAME),
         ID_OPEN_TXT_FILE},
        {"Select all", "\tSelect entire table", FXTable::ID_SELECT_ALL},
        {"Copy", "\tCopy selection to clipboard", FXTable::ID_COPY_SEL},
        {"Paste", "\tPaste selection from clipboard", FXTable::ID_PASTE_SEL},
        {"Clear", "\tClear input data or table", ID_CLEAR_INPUT_DATA},
        {"Undo", "\tUndo changes to table", ID_UNDO_TABLE_EDIT},
        {"Custom CIE", "\tMake custom CIE plots entering your own points", 0},
        {"Save xy", "\tSave current x,y values for Duv and 3 color mixing calculations",
         ID_ADD_XY_TO_ARRAY},
        {"Save Rn", "\tSave current R-values and Q-values for plots", ID_ADD_RS_TO_ARRAY},
        {"Clear xy", "\tClear the saved x,y values", ID_CLEAR_SAVED_XY},
        {"Clear Rn", "\tClear the saved R-values and Q-values", ID_CLEAR_SAVED_R},
        {"CIE plot", "\tCustomize CIE plot in main window, opens plot in new window", 0},
        {"Spectrum plot", "\tCustomize/Save spectrum plot to file", 0},
        {"R/Q plot", "\tPlot R-values or Q-values", 0},
        {"Patches", "\tShow color patches", 0},
        {"Photon flux", "\tCalculate spectrum photon flux by regions", 0}};
    for (const ToolDef& tool : tools) {
        const std::string label = std::string(tool.text) + tool.tip;
        const bool tableCommand = tool.id == FXTable::ID_SELECT_ALL ||
                                  tool.id == FXTable::ID_COPY_SEL ||
                                  tool.id == FXTable::ID_PASTE_SEL;
        FXButton* button = new FXButton(bar, label.c_str(), nullptr,
                                        tool.id != 0 && !tableCommand ? this : nullptr, tool.id,
                                        BUTTON_TOOLBAR | FRAME_RAISED | LAYOUT_CENTER_Y);
        if (tool.id == 0) button->disable();
        if (tableCommand) tableButtons.push_back(button);
        if (tool.id == ID_UNDO_TABLE_EDIT) {
            undoTableButton = button;  // enabled while there is an edit to undo
            button->disable();
        }
    }
}
