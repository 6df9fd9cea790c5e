// The main window: construction, start-up, settings, quit and the small commands.
#include "VantrelGUI.h"

#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "AppConstants.h"
#include "ArgbColor.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "ProgramFolder.h"
#include "UserDialogs.h"
#include "UserLibrary.h"
#include "ValueFormat.h"

FXDEFMAP(VantrelGUI)
VantrelGUIMap[] = {
    FXMAPFUNC(SEL_CLOSE, 0, VantrelGUI::onCmdQuit),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_QUIT, VantrelGUI::onCmdQuit),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CALCULATE, VantrelGUI::onCmdCalculate),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_QUALITY_PLOT, VantrelGUI::ID_QUALITY_PLOT_LAST,
               VantrelGUI::onCmdQualityPlot),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_TM30_JAB,
              VantrelGUI::onCmdWriteTM30JabValuesToAFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ANALYSIS_TYPE, VantrelGUI::onCmdAnalysisType),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_SPECTRUM_RANGE, VantrelGUI::onCmdSpectrumRange),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPTION_CHECK, VantrelGUI::onCmdOptionCheck),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPTION_RADIO, VantrelGUI::onCmdOptionRadio),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_IR_CHK, VantrelGUI::onCmdIRChk),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_SPECTRUM_DATA, VantrelGUI::onCmdClearSpectrumData),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ADD_XY_TO_ARRAY, VantrelGUI::onCmdAddXYtoArray),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ADD_RS_TO_ARRAY, VantrelGUI::onCmdAddRsToArray),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_SAVED_XY, VantrelGUI::onCmdClearSavedXYArray),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_SAVED_R, VantrelGUI::onCmdClearSavedR_Array),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_RESET_DEFAULTS, VantrelGUI::onCmdResetDefaults),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_RESET_WORKING_DIR, VantrelGUI::onCmdResetWorkingDir),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_UPDATE_DECIMAL_FORMAT,
              VantrelGUI::onCmdUpdateDecimalFormat),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ABOUT, VantrelGUI::onCmdAbout),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_RESULT_TABS, VantrelGUI::onCmdResultTabs),
    FXMAPFUNC(SEL_TIMEOUT, VantrelGUI::ID_MAIN_WINDOW_POSITION,
              VantrelGUI::onCmdMainWindowPosition),
    FXMAPFUNC(SEL_TIMEOUT, VantrelGUI::ID_FIT_TO_SCREEN, VantrelGUI::onCmdFitToScreenSize),
    FXMAPFUNC(SEL_PAINT, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCmdRedraw),
    FXMAPFUNC(SEL_PAINT, VantrelGUI::ID_SPECTRUM_CANVAS, VantrelGUI::onCmdRedraw),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_PLOT_SPLITTER, VantrelGUI::onCmdPlotSplitter),
    FXMAPFUNC(SEL_LEFTBUTTONPRESS, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_LEFTBUTTONRELEASE, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_RIGHTBUTTONPRESS, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_MIDDLEBUTTONRELEASE, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_MOTION, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_MOUSEWHEEL, VantrelGUI::ID_CIE_CANVAS, VantrelGUI::onCIECanvasMouse),
    FXMAPFUNC(SEL_MOUSEWHEEL, VantrelGUI::ID_SPECTRUM_CANVAS, VantrelGUI::onSpecCanvasMouseWheel),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_RESET_CIE_ZOOM, VantrelGUI::onCmdResetCIEZoom),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_RESET_SPECTRUM_ZOOM, VantrelGUI::onCmdResetSpectrumZoom),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_SAVE_CIE_IMAGE, VantrelGUI::onCmdSavePlotImage),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_HORSESHOE, VantrelGUI::onCmdWriteHorseShoeData),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_WRITE_R_COLORS,
               VantrelGUI::ID_WRITE_COLOR_CHECKER_COLORS, VantrelGUI::onCmdWrite_RQ_UserColors),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_WRITE_CES_COLORS, VantrelGUI::ID_WRITE_CES_DATA,
               VantrelGUI::onCmdWriteCESColorsToFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_PROGRAM_FONT, VantrelGUI::onCmdProgramFont),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_PICK_MATCHING_CURVE, VantrelGUI::onCmdPickMatchingCurve),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_GAMUTS, VantrelGUI::onCmdWriteGamutData),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_SAVE_SPECTRUM_IMAGE, VantrelGUI::onCmdSavePlotImage),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CAL_INDIVIDUAL, VantrelGUI::onCmdCalculateIndividual),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_BLUE_PEAK_CHK, VantrelGUI::onCmdBluePeakChk),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CHECKED_LED, VantrelGUI::onCmdCheckedLED),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CHECKED_FILTER, VantrelGUI::onCmdCheckedFilter),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CHECKED_COLOR, VantrelGUI::onCmdCheckedColor),
    FXMAPFUNC(SEL_MOUSEWHEEL, VantrelGUI::ID_LED_FIELD, VantrelGUI::onMouseLedField),
    FXMAPFUNC(SEL_KEYPRESS, VantrelGUI::ID_BLACK_BODY_TEMP, VantrelGUI::onKeyPressBlackBodyTemp),
    FXMAPFUNC(SEL_KEYPRESS, VantrelGUI::ID_DAYLIGHT_TEMP, VantrelGUI::onKeyPressBlackBodyTemp),
    FXMAPFUNC(SEL_MOUSEWHEEL, VantrelGUI::ID_BLACK_BODY_TEMP, VantrelGUI::onMouseBlackBodyTemp),
    FXMAPFUNC(SEL_MOUSEWHEEL, VantrelGUI::ID_DAYLIGHT_TEMP, VantrelGUI::onMouseBlackBodyTemp),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_STD_ILLUMINANT, VantrelGUI::ID_STD_ILLUMINANT_LAST,
               VantrelGUI::onCmdStdIlluminant),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CREATE_GAUSSIAN, VantrelGUI::onCmdCreateGaussian),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_USER_FILE, VantrelGUI::onCmdOpenUserFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_FILE, VantrelGUI::onCmdWriteFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_RECENT_PROJECT_LIST,
              VantrelGUI::onCmdClearRecentProjectList),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_INPUT_DATA, VantrelGUI::onCmdClearInputData),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_RECENT_FILE, VantrelGUI::ID_RECENT_FILE_LAST,
               VantrelGUI::onCmdOpenRecentFile),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_SAVE_USER_DATA, VantrelGUI::ID_SAVE_USER_DATA_LAST,
               VantrelGUI::onCmdAddToUserSpec),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_IMPORT_USER_DATA, VantrelGUI::ID_IMPORT_USER_DATA_LAST,
               VantrelGUI::onCmdImportUserSpec),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_WEB_SITE, VantrelGUI::onCmdOpenWebSite),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_USER_GUIDE, VantrelGUI::onCmdOpenUserGuide),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_COEFFICIENTS, VantrelGUI::onCmdWriteCoefficients),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_WRITE_SPECTRUM_DATA, VantrelGUI::onCmdWriteSpectrumData),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CLEAR_MATCHING_DATA, VantrelGUI::onCmdClearMatchingData),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_MATCHING_CURVE_TITLE,
              VantrelGUI::onCmdMatchingCurveTitle),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_EDIT_USER_DATA, VantrelGUI::ID_EDIT_USER_DATA_LAST,
               VantrelGUI::onCmdEditUserSpec),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_IMPORT_SPECTROMETER,
               VantrelGUI::ID_IMPORT_SPECTROMETER_LAST, VantrelGUI::onCmdOpenISDspecFile),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_IMPORT_FILTER_COLOR_FILE,
               VantrelGUI::ID_IMPORT_FILTER_COLOR_FILE_LAST, VantrelGUI::onCmdOpenFilterColorFile),
    FXMAPFUNCS(SEL_COMMAND, VantrelGUI::ID_REPLACE_USER_DATA, VantrelGUI::ID_REPLACE_USER_DATA_LAST,
               VantrelGUI::onCmdReplaceUserSpec),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_TABLE, VantrelGUI::onCmdTable),
    FXMAPFUNC(SEL_RIGHTBUTTONRELEASE, VantrelGUI::ID_TABLE, VantrelGUI::onCmdTableRightButton),
    FXMAPFUNC(SEL_KEYPRESS, VantrelGUI::ID_TABLE, VantrelGUI::onTableKeyPress),
    FXMAPFUNC(SEL_REPLACED, VantrelGUI::ID_TABLE, VantrelGUI::onTableReplace),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ZERO_TO_BEGINNING, VantrelGUI::onCmdZeroToBeginning),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_ZERO_TO_END, VantrelGUI::onCmdZeroToEnd),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_COPY_SPECTRUM_TO_MATCHING,
              VantrelGUI::onCmdCopySpectrumIntoMatchingColumn),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_INVERT_TABLE, VantrelGUI::onCmdInvertValuesInTable),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_TABLE_PASTE, VantrelGUI::onCmdTablePaste),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_UNDO_TABLE_EDIT, VantrelGUI::onCmdUndoTableEdit),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_SET_ORDER_EXCEL, VantrelGUI::onCmdSetOrderExcel),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_TXT_FILE, VantrelGUI::onCmdOpenTxtFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_ASA_OUT_FILE, VantrelGUI::onCmdOpenTxtFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_OPEN_XLS_FILE, VantrelGUI::onCmdOpenXlsFile),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_PRINT, VantrelGUI::onCmdPrint),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CHECK_FOR_UPDATES, VantrelGUI::onCmdCheckForUpdates),
    FXMAPFUNC(SEL_COMMAND, VantrelGUI::ID_CHECK_UPDATES_EVERY_X_DAYS,
              VantrelGUI::onCmdCheckForUpdatesEveryXDays),
    FXMAPFUNC(SEL_TIMEOUT, VantrelGUI::ID_CHECK_UPDATES_7_DAYS_TIMER,
              VantrelGUI::onCmdCheckForUpdatesEvery7DaysTimer),
    FXMAPFUNC(SEL_TIMEOUT, VantrelGUI::ID_CHECK_UPDATES_30_DAYS_TIMER,
              VantrelGUI::onCmdCheckForUpdatesEvery30DaysTimer),
    FXMAPFUNC(SEL_IO_READ, VantrelGUI::ID_WEB_UPDATES_THREAD_ENDED,
              VantrelGUI::onCmdCheckWebUpdatesThreadEnded),
    FXMAPFUNC(SEL_TIMEOUT, VantrelGUI::ID_WEB_UPDATES_WAIT_LIMIT,
              VantrelGUI::onCmdWebUpdatesWaitLimit),
};

FXIMPLEMENT(VantrelGUI, FXMainWindow, VantrelGUIMap, ARRAYNUMBER(VantrelGUIMap))

namespace {
// Faces tried in turn for the program font, at 9 points.
const char* const FONT_FACES[] = {"Helvetica Neue Deskinterface [LINO]",
                                  "Lucida Grande",
                                  "Apple SD Gothic",
                                  "Aqua Kana",
                                  "DejaVu Sans",
                                  "DejaVu",
                                  "Gothic",
                                  "Liberation Sans",
                                  "Helvetica"};
constexpr int PROGRAM_FONT_SIZE = 9;
// Saved x,y points and R-value sets kept for the calculators.
constexpr std::size_t MAX_SAVED_VALUES = 2500;
// Window geometry used when the settings give none that fits.
constexpr int DEFAULT_WINDOW_X = 50, DEFAULT_WINDOW_Y = 50;
constexpr int DEFAULT_WINDOW_W = 1000, DEFAULT_WINDOW_H = 800;

// The font the user chose with "Program font..." (kept in the settings file), else the first
// face of FONT_FACES the display has.
FXFont* makeProgramFont(FXApp* app, const std::string& settingsFile) {
    ProgramSettings stored;
    const std::string face =
        stored.read(settingsFile, true).status == ProgramSettings::ReadStatus::OK
            ? stored.getString(OptionId::programFontDescription_face)
            : std::string();
    if (!face.empty()) {
        FXFontDesc desc;
        std::memset(&desc, 0, sizeof(desc));
        std::snprintf(desc.face, sizeof(desc.face), "%s", face.c_str());
        desc.size = std::clamp(stored.getInt(OptionId::programFontDescription_size), 60, 240);
        desc.weight = stored.getInt(OptionId::programFontDescription_weight);
        desc.slant = stored.getInt(OptionId::programFontDescription_slant);
        desc.encoding = stored.getInt(OptionId::programFontDescription_encoding);
        desc.setwidth = stored.getInt(OptionId::programFontDescription_setwidth);
        desc.flags = stored.getInt(OptionId::programFontDescription_flags);
        return new FXFont(app, desc);
    }
    for (const char* face : FONT_FACES) {
        FXFontDesc* fonts = nullptr;
        FXuint count = 0;
        if (FXFont::listFonts(fonts, count, face) && count > 0) {
            FXFREE(&fonts);
            return new FXFont(app, face, PROGRAM_FONT_SIZE);
        }
        if (fonts != nullptr) FXFREE(&fonts);
    }
    return nullptr;
}
}  // namespace

VantrelGUI::VantrelGUI(FXApp* app, const std::string& argFolder)
    : FXMainWindow(app, APP_NAME, nullptr, nullptr, DECOR_ALL, 0, 0, DEFAULT_WINDOW_W,
                   DEFAULT_WINDOW_H) {
    resetOutputOrder(outputFields, outputOrder);
    setTitle(FXString().format("%s v%d.%02d", APP_NAME, VERSION_MAJOR, VERSION_MINOR));

    paths.programDir = chooseProgramDir(argFolder, std::getenv("HOME"), passwordHomeDirectory());
    paths.settingsFile = paths.programDir + ValueFormat::format("%s.ini", APP_NAME);
    programFont = makeProgramFont(app, paths.settingsFile);
    paths.photometryFile = paths.programDir + PHOTOMETRY_FILE_NAME;
    // The user's field order is kept in the working directory.
    if (!readOrderToFile(OUTPUT_ORDER_FILE_NAME, outputFields, outputOrder))
        resetOutputOrder(outputFields, outputOrder);
    settings.setString("pathUserFilesDirectory", paths.programDir);
    model = std::make_unique<CalculateModel>(paths.programDir);
    // Old libraries are rewritten in the current format before they are read.
    updateUserFiles();
    model->setUserSpectra(readUserSpectraRows(false));

    buildMenus();
    buildToolBar(this);
    statusLabel = new FXLabel(this, "", nullptr, LAYOUT_SIDE_BOTTOM | LAYOUT_FILL_X | JUSTIFY_LEFT);
    mainSplitter = new FXSplitter(
        this, SPLITTER_HORIZONTAL | LAYOUT_FILL_X | LAYOUT_FILL_Y | SPLITTER_TRACKING);
    buildInputSide(mainSplitter);
    buildTables(mainSplitter);
    buildPlotSide(mainSplitter);
    allocateAllFilterColors(LIBRARY_FILTERS);
    allocateAllFilterColors(LIBRARY_COLORS);
    setDefaults();
}

VantrelGUI::~VantrelGUI() {
    getApp()->removeTimeout(this, ID_MAIN_WINDOW_POSITION);
    getApp()->removeTimeout(this, ID_FIT_TO_SCREEN);
    getApp()->removeTimeout(this, ID_CHECK_UPDATES_7_DAYS_TIMER);
    getApp()->removeTimeout(this, ID_CHECK_UPDATES_30_DAYS_TIMER);
    getApp()->removeTimeout(this, ID_WEB_UPDATES_WAIT_LIMIT);
    webThread.reset();  // joins a worker still asking, before its signal's target goes
    for (FXMenuPane* pane : menuPanes) delete pane;
    // The application gets its own normal font back before the program font goes.
    if (programFont != nullptr && getApp()->getNormalFont() == programFont) {
        getApp()->setNormalFont(previousNormalFont);
    }
    delete programFont;
    delete menuTitleFont;
}

void VantrelGUI::create() {
    if (programFont != nullptr) {
        programFont->create();
        previousNormalFont = getApp()->getNormalFont();
        getApp()->setNormalFont(programFont);
    }
    if (menuTitleFont != nullptr) menuTitleFont->create();
    FXMainWindow::create();
    for (FXMenuPane* pane : menuPanes) pane->create();
    show(PLACEMENT_SCREEN);
    clampStoredSizes();
    setWindowSizePosition();
    if (settings.getBool("isMaximized_ini")) maximize();
    if (libraryReadFailure > 0) {
        UserDialogs::error(this, "User spectra file read error",
                           "An unknown error was encountered when reading in user spectrum #%d",
                           libraryReadFailure);
    }
    showPeakFileProblems();
    startUpdateTimers();
}

void VantrelGUI::showPeakFileProblems() {
    const auto& problems = model->definitions().getPeakFileProblems();
    if (problems.empty()) return;
    FXString text;
    for (const LedDefinitions::PeakFileProblem& p : problems) {
        text += FXString().format("%s.txt, line %d: %s\n", COLOR_REFEF_FILENAME, p.line,
                                  p.text.c_str());
    }
    text += "The built-in definitions are used for these colors.";
    UserDialogs::error(this, "File error", "%s", text.text());
}

void VantrelGUI::setDefaults() {
    settings.setIniDefaults();
    mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    fillWavelengthColumns();
    readSettings();
    // Without stored settings the window fills the screen at the first start.
    getApp()->addTimeout(this, settingsReadFailed ? ID_FIT_TO_SCREEN : ID_MAIN_WINDOW_POSITION, 1);
    if (settings.getBool("clearDataStartupMenuItem")) onCmdClearInputData(nullptr, 0, nullptr);
    setSavedValuesCaptions();
}

// --- Settings --------------------------------------------------------------------------------

void VantrelGUI::settingsToWidgets() {
    for (const OptionBinding& binding : optionBindings) {
        const int value = binding.index >= 0 ? settings.getIndexed(binding.tag, binding.index)
                                             : settings.getInt(binding.tag);
        const bool on = binding.radio ? value == binding.value : value != 0;
        if (binding.radio) {
            static_cast<FXMenuRadio*>(binding.widget)->setCheck(on);
        } else {
            static_cast<FXMenuCheck*>(binding.widget)->setCheck(on);
        }
    }
    irChk->setCheck(settings.getBool("irChk"));
    binningChk->setCheck(settings.getBool("binningChk"));
    bluePeakChk->setCheck(settings.getBool("removeBluePeakChk"));
    spectrumRange = std::clamp(settings.getInt("spectrumRange"), 0, NUM_SPECTRUM_RANGES - 1);
    setAnalysisType(settings.getInt("analysisType"));
    setSpectrumRange(spectrumRange);
    blackBodyTempField->setText(
        FXString().format("%d", settings.getInt("blackBodyTemperatureK_TF")));
    daylightTempField->setText(
        FXString().format("%d", settings.getInt("syntheticDaylightType_TF")));
    setupTable();
    setWattsColumnTitle();
    setShowLEDs();
    enableDisableLEDchecks();
    setTabColors();
    set_umol_sW_tooltip();
    showMatchingCurveTitle();
}

void VantrelGUI::widgetsToSettings() {
    for (const OptionBinding& binding : optionBindings) {
        if (binding.radio) {
            if (static_cast<FXMenuRadio*>(binding.widget)->getCheck()) {
                settings.setInt(binding.tag, binding.value);
            }
        } else {
            setCheckOption(binding);
            repaintPlots();
        }
    }
    settings.setInt("analysisType", analysisType);
    settings.setInt("spectrumRange", spectrumRange);
    settings.setInt(
        "blackBodyTemperatureK_TF",
        static_cast<int>(std::lround(fieldValue(blackBodyTempField->getText().text(), 2856.0))));
    settings.setInt(
        "syntheticDaylightType_TF",
        static_cast<int>(std::lround(fieldValue(daylightTempField->getText().text(), 6500.0))));
    settings.setBool("irChk", irChk->getCheck());
    settings.setBool("binningChk", binningChk->getCheck());
    settings.setBool("removeBluePeakChk", bluePeakChk->getCheck());
    settings.setBool("isMaximized_ini", isMaximized());
    if (!isMaximized()) {
        settings.setInt("window_x", getX());
        settings.setInt("window_y", getY());
        settings.setInt("main_width", getWidth());
        settings.setInt("main_height", getHeight());
    }
    FXWindow* inputSide = mainSplitter->getFirst();
    FXWindow* tableSide = inputSide != nullptr ? inputSide->getNext() : nullptr;
    if (inputSide != nullptr) settings.setInt("dataSplitter", inputSide->getWidth());
    if (tableSide != nullptr) settings.setInt("spectrumTableWidth", tableSide->getWidth());
    settings.setInt("plotsSplitter", plotRow->getHeight());
}

void VantrelGUI::setWindowSizePosition() {
    int x = settings.getInt("window_x"), y = settings.getInt("window_y");
    int w = settings.getInt("main_width"), h = settings.getInt("main_height");
    if (x < 0 || y < 0) x = DEFAULT_WINDOW_X, y = DEFAULT_WINDOW_Y;
    if (w < 100 || h < 100) w = DEFAULT_WINDOW_W, h = DEFAULT_WINDOW_H;
    if (!isMaximized()) position(x, y, w, h);
    int data = settings.getInt("dataSplitter"), table = settings.getInt("spectrumTableWidth");
    if (data <= 0 || table <= 0 || data + table >= w) naturalPaneWidths(w, &data, &table);
    mainSplitter->getFirst()->setWidth(data);
    mainSplitter->getFirst()->getNext()->setWidth(table);
    splitPlotSide();
}

void VantrelGUI::naturalPaneWidths(int windowWidth, int* input, int* table) const {
    // The input side shows every column of the spectra without a horizontal scroll bar (up to
    // 45 % of the window), the table its columns.
    const int scrollBar = getApp()->getScrollBarSize();
    *input = std::min(ledMatrix->getDefaultWidth() + scrollBar + 24, windowWidth * 45 / 100);
    int columns = 0;
    for (int c = 0; c < displayTable->getNumColumns(); ++c)
        columns += displayTable->getColumnWidth(c);
    *table = columns + scrollBar + 8;
}

namespace {
// Least room left to the result tabs below the plots and to the spectrum beside the diagram.
constexpr int MIN_RESULTS_HEIGHT = 200;
constexpr int MIN_SPECTRUM_WIDTH = 180;
// Share of the plot side's height the plots take when the user has not chosen.
constexpr int PLOTS_HEIGHT_PERCENT = 62;
}  // namespace

void VantrelGUI::splitPlotSide() {
    layout();  // the panes take the window's size now, not at the next idle moment
    const int sideHeight = plotSideSplitter->getHeight();
    int plotsHeight = settings.getInt("plotsSplitter");
    // A height of the plots that leaves no room for the results (or a table width stored under
    // this name by older versions) gives way to the window's own choice.
    if (plotsHeight < 300 || plotsHeight > sideHeight - MIN_RESULTS_HEIGHT) {
        plotsHeight = sideHeight * PLOTS_HEIGHT_PERCENT / 100;
    }
    plotRow->setHeight(std::max(plotsHeight, 100));
    plotSideSplitter->layout();
    fitDiagramWidth();
}

void VantrelGUI::fitDiagramWidth() {
    plotRow->layout();
    const int rowWidth = plotRow->getWidth() - 2 * plotRow->getBorderWidth();
    int width = settings.getInt("ciePlotPaneWidth");
    if (width <= 0) {
        prepareCIE_Plot(false);
        width = ciePlot->widthForHeight(plotRow->getHeight() - 2 * plotRow->getBorderWidth());
    }
    width = std::max(100, std::min(width, rowWidth - MIN_SPECTRUM_WIDTH));
    if (width == ciePlotCanvas->getWidth()) return;
    ciePlotCanvas->setWidth(width);
    plotRow->layout();
}

long VantrelGUI::onCmdPlotSplitter(FXObject* sender, FXSelector, void*) {
    // A border the user dragged is kept: the plots' height, or the diagram's width.
    if (sender == plotSideSplitter) {
        settings.setInt("plotsSplitter", plotRow->getHeight());
    } else {
        settings.setInt("ciePlotPaneWidth", ciePlotCanvas->getWidth());
    }
    return 1;
}

void VantrelGUI::resizeToScreen(bool showTip) {
    int w = getRoot()->getWidth(), h = getRoot()->getHeight();
    if (w >= 2001) w = 1500;
    if (h >= 2001) h = 1000;
    position(25, 50, w - 50, h - 100);
    // The input side and the table at their natural widths, the plots and results the rest.
    int input, table;
    naturalPaneWidths(w - 50, &input, &table);
    mainSplitter->getFirst()->setWidth(input);
    mainSplitter->getFirst()->getNext()->setWidth(table);
    settings.setInt("plotsSplitter", 0);
    settings.setInt("ciePlotPaneWidth", 0);
    splitPlotSide();
    if (showTip) {
        UserDialogs::information(this, "Resizing Tip",
                                 "The sizes of the window and of its panes can be changed by "
                                 "dragging their edges; they are kept for the next start.");
    }
}

long VantrelGUI::onCmdMainWindowPosition(FXObject*, FXSelector, void*) {
    setWindowSizePosition();
    return 1;
}

long VantrelGUI::onCmdFitToScreenSize(FXObject*, FXSelector, void*) {
    resizeToScreen(false);
    return 1;
}

long VantrelGUI::onCmdQuit(FXObject*, FXSelector, void*) {
    saveSettings();
    writeToLogfile();
    getApp()->exit(0);
    return 1;
}

// --- Options of the menus ----------------------------------------------------------------------

void VantrelGUI::setCheckOption(const OptionBinding& binding) {
    const bool on = static_cast<FXMenuCheck*>(binding.widget)->getCheck() == TRUE;
    if (binding.index >= 0) {
        settings.setIndexed(binding.tag, binding.index, on ? 1 : 0);
    } else {
        settings.setBool(binding.tag, on);
    }
}

long VantrelGUI::onCmdOptionCheck(FXObject* sender, FXSelector, void*) {
    for (const OptionBinding& binding : optionBindings) {
        if (binding.widget != sender) continue;
        setCheckOption(binding);
        if (binding.tag == "colorTabs") setTabColors();
        if (binding.tag.rfind("checkForUpdatesEvery", 0) == 0)
            onCmdCheckForUpdatesEveryXDays(sender, 0, nullptr);
        if (binding.tag == "constrain_uMol_sW_to_400_700nm") set_umol_sW_tooltip();
        if (binding.tag == "enableMatchingMenuItem") {
            setupTable();
            clearOutput();
        }
        if (binding.tag == "enableMatchingMenuItem" || binding.tag == "hideSpectrumDataMenuItem")
            setSpectrumTableVisibility();
        if (binding.tag == "cieDiagramZoomed_Chk" || binding.tag == "enableSmartZoom") {
            resetCIEZoomPending = true;
        }
    }
    // Every plot option shows at once, not at the next Calculate.
    repaintPlots();
    return 1;
}

FXWindow* VantrelGUI::getOptionWidget(const std::string& tag, int value) const {
    for (const OptionBinding& binding : optionBindings) {
        const bool match = binding.radio        ? binding.value == value
                           : binding.index >= 0 ? binding.index == value
                                                : true;
        if (binding.tag == tag && match) return binding.widget;
    }
    return nullptr;
}

std::vector<int> VantrelGUI::getOfferedValues(const std::string& tag) const {
    std::vector<int> values;
    for (const OptionBinding& binding : optionBindings) {
        if (binding.tag != tag || binding.index >= 0) continue;
        if (!binding.radio) return {0, 1};
        values.push_back(binding.value);
    }
    return values;
}

long VantrelGUI::onCmdOptionRadio(FXObject* sender, FXSelector, void*) {
    std::string tag;
    int value = 0;
    for (const OptionBinding& binding : optionBindings) {
        if (binding.widget == sender) tag = binding.tag, value = binding.value;
    }
    if (tag.empty()) return 1;
    const bool changed = settings.getInt(tag) != value;
    for (const OptionBinding& binding : optionBindings) {
        if (binding.tag == tag) {
            static_cast<FXMenuRadio*>(binding.widget)->setCheck(binding.value == value);
        }
    }
    settings.setInt(tag, value);
    if (tag == "spectrumRange") {
        setSpectrumRange(value);
    } else if (tag == "freeFormatInputUnitsIndex" || tag == "colorsFiltersUnits") {
        setTableColumnTitles();
    } else if (tag == "inputWattsUnits") {
        setWattsColumnTitle();
        // A mix read its rows' watts in the old unit: its results no longer follow from them.
        // Other results are shown again in the new unit.
        if (changed && analysisType == 0) {
            clearOutput();
        } else if (resultsValid) {
            showOutcome();
        }
    } else if (tag == "showLEDs") {
        setShowLEDs();
        enableDisableLEDchecks();
    } else if ((tag == "numDecimalsFor_xyDuv_etc" || tag == "gamutType") && resultsValid) {
        showOutcome();
    }
    repaintPlots();
    return 1;
}

void VantrelGUI::repaintPlots() {
    if (ciePlotCanvas == nullptr) return;
    ciePlotCanvas->update();
    spectrumPlotCanvas->update();
}

// --- Saved values ------------------------------------------------------------------------------

long VantrelGUI::onCmdAddXYtoArray(FXObject*, FXSelector, void*) {
    if (!resultsValid || savedXY.size() >= MAX_SAVED_VALUES) return 1;
    const SpectrumResults& r = lastOutcome.results;
    savedXY.push_back({r.x, r.y, r.cct, r.x10, r.y10});
    setSavedValuesCaptions();
    return 1;
}

long VantrelGUI::onCmdAddRsToArray(FXObject*, FXSelector, void*) {
    if (!resultsValid || savedR.size() >= MAX_SAVED_VALUES) return 1;
    std::array<double, 16> values{};
    std::copy(std::begin(lastOutcome.results.R), std::end(lastOutcome.results.R), values.begin());
    savedR.push_back(values);
    setSavedValuesCaptions();
    return 1;
}

long VantrelGUI::onCmdClearSavedXYArray(FXObject*, FXSelector, void*) {
    savedXY.clear();
    setSavedValuesCaptions();
    return 1;
}

long VantrelGUI::onCmdClearSavedR_Array(FXObject*, FXSelector, void*) {
    savedR.clear();
    setSavedValuesCaptions();
    return 1;
}

void VantrelGUI::setSavedValuesCaptions() {
    if (savedValuesLabel == nullptr) return;
    savedValuesLabel->setText(
        FXString().format("Saved x,y: %d   Saved Rn: %d", numSavedXY(), numSavedR()));
}

// --- Other commands ----------------------------------------------------------------------------

long VantrelGUI::onCmdResetWorkingDir(FXObject*, FXSelector, void*) {
    settings.setString("pathUserFilesDirectory", paths.programDir);
    return 1;
}

// The decimal symbol of tables and fields is the point on this platform: nothing to update.
long VantrelGUI::onCmdUpdateDecimalFormat(FXObject*, FXSelector, void*) { return 1; }

long VantrelGUI::onCmdAbout(FXObject*, FXSelector, void*) {
    const FXString title = FXString().format("About %s", APP_NAME);
    UserDialogs::information(this, title.text(), "%s, version %d.%02d\n\n%s", APP_NAME,
                             VERSION_MAJOR, VERSION_MINOR,
                             "Colour science of LED lighting: photometry, chromaticity, colour "
                             "rendering and spectra.");
    return 1;
}
