// The main window: owner of every input, every result field, the spectrum tables and the two
// engines (1931 2° and, for the "(F,10)" results, 2015 10°). Handlers read widgets, call core,
// and write results back.
#ifndef LUMIVAR_GUI_VANTRELGUI_H
#define LUMIVAR_GUI_VANTRELGUI_H

#include <fx.h>

#include <array>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "AddCommas.h"
#include "CIE_Plot.h"
#include "CalculateModel.h"
#include "CheckWebForUpdatesThread.h"
#include "DirectInput.h"
#include "OutputField.h"
#include "PhotometryFiles.h"
#include "ProgramSettings.h"
#include "ReferenceDataFiles.h"
#include "ResultFields.h"
#include "SpectrumPlot.h"
#include "TableUndo.h"
#include "TextToNumber.h"
#include "UserDesign.h"

class ProcessSpectrometerFiles;
class SpectraEditorWindow;
class Table_zwk7;
class TextField_zwk7;
struct MenuItemDef;

// Where the program keeps its files, as main chose them.
struct ProgramPaths {
    std::string programDir;    // per-user folder, ends with "/"
    std::string settingsFile;  // programDir + "Lumivar.ini"
    std::string photometryFile;
};

class VantrelGUI : public FXMainWindow {
    FXDECLARE(VantrelGUI)

  public:
    // argFolder: the one command-line argument (a folder replacing the per-user folder), or "".
    VantrelGUI(FXApp* app, const std::string& argFolder);
    ~VantrelGUI() override;
    void create() override;

    enum {
        ID_QUIT = FXMainWindow::ID_LAST,
        ID_CALCULATE,
        ID_CAL_INDIVIDUAL,
        ID_ABORT_OPT,
        ID_ANALYSIS_TYPE,   // radio; the value is the position in analysisRadios
        ID_SPECTRUM_RANGE,  // menu radio; the value is the position in rangeRadios
        ID_OPTION_CHECK,    // a menu check bound to a settings option
        ID_OPTION_RADIO,    // a menu radio bound to a settings option and value
        ID_IR_CHK,
        ID_BINNING_CHK,
        ID_BLUE_PEAK_CHK,
        ID_CLEAR_SPECTRUM_DATA,
        ID_ADD_XY_TO_ARRAY,
        ID_ADD_RS_TO_ARRAY,
        ID_CLEAR_SAVED_XY,
        ID_CLEAR_SAVED_R,
        ID_RESET_DEFAULTS,
        ID_RESET_WORKING_DIR,
        ID_UPDATE_DECIMAL_FORMAT,
        ID_ABOUT,
        ID_RESULT_TABS,
        ID_PLOT_SPLITTER,
        ID_MAIN_WINDOW_POSITION,
        ID_FIT_TO_SCREEN,
        ID_CIE_CANVAS,
        ID_SPECTRUM_CANVAS,
        ID_CHECKED_LED,
        ID_LED_FIELD,  // mouse wheel over the dominant wavelength and bin fields
        ID_CHECKED_FILTER,
        ID_CHECKED_COLOR,
        ID_BLACK_BODY_TEMP,
        ID_DAYLIGHT_TEMP,
        ID_STD_ILLUMINANT,  // 25 illuminants, then "Create all"
        ID_STD_ILLUMINANT_LAST = ID_STD_ILLUMINANT + 25,
        ID_CREATE_GAUSSIAN,
        ID_RESET_CIE_ZOOM,
        ID_SAVE_CIE_IMAGE,
        ID_RESET_SPECTRUM_ZOOM,
        ID_SAVE_SPECTRUM_IMAGE,
        ID_WRITE_HORSESHOE,
        ID_WRITE_R_COLORS,
        ID_WRITE_Q_COLORS,
        ID_WRITE_COLOR_CHECKER_COLORS,
        ID_WRITE_CES_COLORS,
        ID_WRITE_CES_DATA,
        ID_PROGRAM_FONT,
        ID_PICK_MATCHING_CURVE,
        ID_WRITE_GAMUTS,
        ID_OPEN_USER_FILE,
        ID_WRITE_FILE,
        ID_CLEAR_RECENT_PROJECT_LIST,
        ID_CLEAR_INPUT_DATA,
        ID_RECENT_FILE,  // ten slots, newest first
        ID_RECENT_FILE_LAST = ID_RECENT_FILE + RECENT_FILES_MAX - 1,
        ID_SAVE_USER_DATA,  // by library type: filters, spectra, colours
        ID_SAVE_USER_DATA_LAST = ID_SAVE_USER_DATA + 2,
        ID_IMPORT_USER_DATA,
        ID_IMPORT_USER_DATA_LAST = ID_IMPORT_USER_DATA + 2,
        ID_REPLACE_USER_DATA,
        ID_REPLACE_USER_DATA_LAST = ID_REPLACE_USER_DATA + 2,
        ID_EDIT_USER_DATA,  // by library type
        ID_EDIT_USER_DATA_LAST = ID_EDIT_USER_DATA + 2,
        ID_OPEN_WEB_SITE,
        ID_OPEN_USER_GUIDE,
        ID_WRITE_COEFFICIENTS,
        ID_WRITE_SPECTRUM_DATA,
        ID_CLEAR_MATCHING_DATA,
        ID_MATCHING_CURVE_TITLE,
        ID_IMPORT_SPECTROMETER,  // by file type: SpecWin ISD ... Mole ISD
        ID_IMPORT_SPECTROMETER_LAST = ID_IMPORT_SPECTROMETER + 6,
        ID_IMPORT_FILTER_COLOR_FILE,  // filters from ISD, from text; colours from ISD, from text
        ID_IMPORT_FILTER_COLOR_FILE_LAST = ID_IMPORT_FILTER_COLOR_FILE + 3,
        // Spectrum tables: the tables themselves, their popup entries and the undo button.
        ID_TABLE,
        ID_ZERO_TO_BEGINNING,
        ID_ZERO_TO_END,
        ID_COPY_SPECTRUM_TO_MATCHING,
        ID_INVERT_TABLE,
        ID_TABLE_PASTE,
        ID_UNDO_TABLE_EDIT,
        // Photometry files, printing and the update check.
        ID_SET_ORDER_EXCEL,
        ID_OPEN_TXT_FILE,
        ID_OPEN_ASA_OUT_FILE,
        ID_OPEN_XLS_FILE,
        ID_PRINT,
        ID_CHECK_FOR_UPDATES,
        ID_CHECK_UPDATES_EVERY_X_DAYS,
        ID_CHECK_UPDATES_7_DAYS_TIMER,
        ID_CHECK_UPDATES_30_DAYS_TIMER,
        ID_WEB_UPDATES_THREAD_ENDED,
        ID_WEB_UPDATES_WAIT_LIMIT,
        ID_QUALITY_PLOT,  // by QualityChart: the report, R and Q bars, planes, TM-30, TLCI
        ID_QUALITY_PLOT_LAST = ID_QUALITY_PLOT + 15,
        ID_WRITE_TM30_JAB,
        ID_LAST
    };

    long onCmdQuit(FXObject*, FXSelector, void*);
    long onCmdCalculate(FXObject*, FXSelector, void*);
    long onCmdAnalysisType(FXObject*, FXSelector, void*);
    long onCmdSpectrumRange(FXObject*, FXSelector, void*);
    long onCmdOptionCheck(FXObject*, FXSelector, void*);
    long onCmdOptionRadio(FXObject*, FXSelector, void*);
    long onCmdIRChk(FXObject*, FXSelector, void*);
    long onCmdClearSpectrumData(FXObject*, FXSelector, void*);
    long onCmdAddXYtoArray(FXObject*, FXSelector, void*);
    long onCmdAddRsToArray(FXObject*, FXSelector, void*);
    long onCmdClearSavedXYArray(FXObject*, FXSelector, void*);
    long onCmdClearSavedR_Array(FXObject*, FXSelector, void*);
    long onCmdResetDefaults(FXObject*, FXSelector, void*);
    long onCmdResetWorkingDir(FXObject*, FXSelector, void*);
    long onCmdUpdateDecimalFormat(FXObject*, FXSelector, void*);
    long onCmdAbout(FXObject*, FXSelector, void*);
    long onCmdResultTabs(FXObject*, FXSelector, void*);
    long onCmdMainWindowPosition(FXObject*, FXSelector, void*);
    long onCmdFitToScreenSize(FXObject*, FXSelector, void*);
    long onCmdRedraw(FXObject*, FXSelector, void*);
    long onCmdPlotSplitter(FXObject*, FXSelector, void*);
    long onCmdCalculateIndividual(FXObject*, FXSelector, void*);
    long onCmdBluePeakChk(FXObject*, FXSelector, void*);
    long onCmdCheckedLED(FXObject*, FXSelector, void*);
    long onCmdCheckedFilter(FXObject*, FXSelector, void*);
    long onCmdCheckedColor(FXObject*, FXSelector, void*);
    long onMouseLedField(FXObject*, FXSelector, void*);
    long onKeyPressBlackBodyTemp(FXObject*, FXSelector, void*);
    long onMouseBlackBodyTemp(FXObject*, FXSelector, void*);
    long onCmdStdIlluminant(FXObject*, FXSelector, void*);
    long onCmdCreateGaussian(FXObject*, FXSelector, void*);
    long onCIECanvasMouse(FXObject*, FXSelector, void*);
    long onSpecCanvasMouseWheel(FXObject*, FXSelector, void*);
    long onCmdResetCIEZoom(FXObject*, FXSelector, void*);
    long onCmdResetSpectrumZoom(FXObject*, FXSelector, void*);
    long onCmdSavePlotImage(FXObject*, FXSelector, void*);
    long onCmdWriteHorseShoeData(FXObject*, FXSelector, void*);
    long onCmdWrite_RQ_UserColors(FXObject*, FXSelector, void*);
    long onCmdWriteCESColorsToFile(FXObject*, FXSelector, void*);
    long onCmdProgramFont(FXObject*, FXSelector, void*);
    long onCmdPickMatchingCurve(FXObject*, FXSelector, void*);
    long onCmdWriteGamutData(FXObject*, FXSelector, void*);
    long onCmdOpenUserFile(FXObject*, FXSelector, void*);
    long onCmdWriteFile(FXObject*, FXSelector, void*);
    long onCmdOpenRecentFile(FXObject*, FXSelector, void*);
    long onCmdClearRecentProjectList(FXObject*, FXSelector, void*);
    long onCmdClearInputData(FXObject*, FXSelector, void*);
    // The save, import and replace commands of the three libraries; the selector's id tells
    // the kind. Saving with a name (a char* in the data) skips the dialog.
    long onCmdAddToUserSpec(FXObject*, FXSelector, void*);
    long onCmdImportUserSpec(FXObject*, FXSelector, void*);
    long onCmdReplaceUserSpec(FXObject*, FXSelector, void*);
    long onCmdEditUserSpec(FXObject*, FXSelector, void*);
    long onCmdOpenWebSite(FXObject*, FXSelector, void*);
    long onCmdOpenUserGuide(FXObject*, FXSelector, void*);
    long onCmdWriteCoefficients(FXObject*, FXSelector, void*);
    long onCmdWriteSpectrumData(FXObject*, FXSelector, void*);
    long onCmdClearMatchingData(FXObject*, FXSelector, void*);
    long onCmdMatchingCurveTitle(FXObject*, FXSelector, void*);
    // Imports of spectrometer and text files into the libraries.
    long onCmdOpenISDspecFile(FXObject*, FXSelector, void*);
    long onCmdOpenFilterColorFile(FXObject*, FXSelector, void*);
    // The quality chart windows (the selector's id tells which) and the J'a'b' file.
    long onCmdQualityPlot(FXObject*, FXSelector, void*);
    long onCmdWriteTM30JabValuesToAFile(FXObject*, FXSelector, void*);

    // Spectrum tables: clicks, keys and replaced cells of every table, and the popup entries.
    long onCmdTable(FXObject*, FXSelector, void*);
    long onCmdTableRightButton(FXObject*, FXSelector, void*);
    long onTableKeyPress(FXObject*, FXSelector, void*);
    long onTableReplace(FXObject*, FXSelector, void*);
    long onCmdZeroToBeginning(FXObject*, FXSelector, void*);
    long onCmdZeroToEnd(FXObject*, FXSelector, void*);
    long onCmdCopySpectrumIntoMatchingColumn(FXObject*, FXSelector, void*);
    long onCmdInvertValuesInTable(FXObject*, FXSelector, void*);
    long onCmdTablePaste(FXObject*, FXSelector, void*);
    long onCmdUndoTableEdit(FXObject*, FXSelector, void*);
    // Photometry files and printing.
    long onCmdSetOrderExcel(FXObject*, FXSelector, void*);
    long onCmdOpenTxtFile(FXObject*, FXSelector, void*);
    long onCmdOpenXlsFile(FXObject*, FXSelector, void*);
    long onCmdPrint(FXObject*, FXSelector, void*);
    // The diagram on one page of the printer (or PostScript file) chosen; false on failure.
    bool printCIEDiagram(FXPrinter& printer);
    // The u'v' of the checked user colours under the last result and its CRI reference.
    std::vector<UserColourUV> checkedUserColoursUV(const Vantrel& engine) const;
    // The update check, on command and by the start-up timers.
    long onCmdCheckForUpdates(FXObject*, FXSelector, void*);
    long onCmdCheckForUpdatesEveryXDays(FXObject*, FXSelector, void*);
    long onCmdCheckForUpdatesEvery7DaysTimer(FXObject*, FXSelector, void*);
    long onCmdCheckForUpdatesEvery30DaysTimer(FXObject*, FXSelector, void*);
    long onCmdCheckWebUpdatesThreadEnded(FXObject*, FXSelector, void*);
    long onCmdWebUpdatesWaitLimit(FXObject*, FXSelector, void*);

    // Tables: the popup's entries for a cell (empty: no popup there), the cell the popup
    // entries act on, the undo records and the undo button.
    std::vector<std::string> tablePopupEntries(Table_zwk7* table, int row, int column) const;
    void setPopupCell(Table_zwk7* table, int row, int column);
    // Whether the user may change this column of the table in the current mode.
    bool isEditableTableColumn(const Table_zwk7* table, int column) const;
    // Records rows first..last of columns column..lastColumn before an edit; the 21st record
    // drops the oldest.
    void manageRedoButton(Table_zwk7* table, int firstRow, int lastRow, int column,
                          int lastColumn = -1);
    int getTableUndoCount() const { return tableUndoCount; }
    FXButton* getUndoTableButton() const { return undoTableButton; }
    static constexpr int TABLE_UNDO_LEVELS = 20;
    // Photometry files: where they go, and the text of the last run.
    std::string photometryTextPath() const;
    std::string photometryTabPath() const;
    void setPhotometryFolder(const std::string& folder) { photometryFolder = folder; }
    OutputField* getOutputFields() { return outputFields; }
    int* getOutputOrder() { return outputOrder; }
    // The update check: runs the worker and waits for it with the event loop running, at most
    // UPDATE_WAIT_LIMIT_MS. Returns the status; *webVersion gets the published version.
    int runUpdateCheck(double* webVersion);
    // The start-up check of the 7- or 30-day timer: nothing when the last check is less than
    // `days` days before `now` (seconds since 1970; 0 for the clock). True when a check ran.
    bool checkForUpdatesEveryXDays(int days, unsigned long long now = 0);
    static constexpr int UPDATE_WAIT_LIMIT_MS = 9000;
    // The usage record at quit: one line appended to vt_logfile.txt in the folder of the
    // setting usageLogFolder; nothing when that is empty or the user is excluded.
    void writeToLogfile();

    // The internal interface used by tests and, later, by imports and batch runs.
    const ProgramPaths& getPaths() const { return paths; }
    ProgramSettings& getSettings() { return settings; }
    int getAnalysisType() const { return analysisType; }
    // The input table of a range (0 to 5) and the display table.
    Table_zwk7* getInputTable(int spectrumRange) const { return inputTables[spectrumRange]; }
    Table_zwk7* getDisplayTable() const { return displayTable; }
    Table_zwk7* getShownTable() const;
    FXMenuRadio* getRangeRadio(int spectrumRange) const { return rangeRadios[spectrumRange]; }
    FXRadioButton* getAnalysisRadio(int type) const { return analysisRadios[type]; }
    FXCheckButton* getBinningChk() const { return binningChk; }
    FXButton* getCalculateButton() const { return calculateButton; }
    FXCheckButton* getBluePeakChk() const { return bluePeakChk; }
    const std::string& getMainCurveName() const { return mainCurveName; }
    // The menu check or radio bound to an option (for a radio, the one of this value).
    FXWindow* getOptionWidget(const std::string& tag, int value = 1) const;
    // The values the menus offer for an option: the values of its radios, 0 and 1 for a
    // check, none when no menu entry sets it.
    std::vector<int> getOfferedValues(const std::string& tag) const;
    // Text of a result field by its label ("Lumens", "x", ...), empty when it has none.
    FXString getResultText(const std::string& name) const;
    // Tool tip of a result field by its label.
    FXString getResultTip(const std::string& name) const;
    // Text of a result field by its number.
    FXString getResultText(int field) const;
    // Selects an analysis type or a spectrum range as the radios and menus do.
    void setAnalysisType(int type);
    void setSpectrumRange(int range);
    bool hasResults() const { return resultsValid; }
    // The spectrum rows: standard spectra first. field: a RowField bit.
    int getNumSpectra() const { return static_cast<int>(ledRows.size()); }
    FXCheckButton* getLedCheck(int row) const { return ledRows[row].check; }
    TextField_zwk7* getLedField(int row, int field) const;
    TextField_zwk7* getBlackBodyField() const { return blackBodyTempField; }
    TextField_zwk7* getDaylightField() const { return daylightTempField; }
    CalculateModel& getModel() { return *model; }
    const std::vector<double>& getMixedSpectrum() const { return mixedSpectrum; }
    const std::vector<SpectrumPoint>& getPoints() const { return points; }
    const PhotometryStrings& getPhotometryStrings() const { return photometry; }
    // A check of a spectrum row as a click does it; with `shift`, the second shifted click
    // checks every row between the two.
    void clickLedCheck(int row, bool shift);
    // Runs the standard illuminant of this index (25: all of them) as its menu entry does.
    void runStandardIlluminant(int index);
    // The Gaussian spectrum of the dialog, put into the 360 to 830 nm table and calculated;
    // with save it is added to the user spectra. False when the user kept the table's data.
    bool generateGaussian(const std::string& name, double centerMetres, double fwhmMetres,
                          bool save, bool askBeforeReplacing = true);
    // Saves the whole automatic set of Gaussian peaks (autoGaussianPeaks) to the user spectra,
    // for the peak generator; returns how many were made.
    int autoGenerateGaussianPeaks();
    FXTabBook* getResultTabs() const { return resultTabs; }
    // The chart window the last quality plot command opened, while it is open (tests).
    class QualityPlotWindow* getQualityPlotWindow() const {
        return qualityPlotWindow;
    }
    // With a driver (tests) the quality plot windows are not run modal: drive works them.
    void setQualityPlotDriver(const std::function<void(class QualityPlotWindow&)>& drive) {
        qualityPlotDriver = drive;
    }
    FXCanvas* getCIECanvas() const { return ciePlotCanvas; }
    FXCanvas* getSpectrumCanvas() const { return spectrumPlotCanvas; }
    CIE_Plot* getCIEPlot() const { return ciePlot.get(); }
    SpectrumPlot* getSpectrumPlot() const { return spectrumPlot.get(); }
    // Both plots drawn again, the diagram at its full range with resetZoom.
    void redrawPlots(bool resetZoom = false);
    // Both canvases repaint at the next paint event.
    void repaintPlots();
    int numSavedXY() const { return static_cast<int>(savedXY.size()); }
    int numSavedR() const { return static_cast<int>(savedR.size()); }
    // Writes the settings file as Quit does, without quitting.
    void saveSettings();
    // Writes a design (isIni false) or the settings file; false, after the "File error" box,
    // when it can't be written.
    bool saveUserDesign(const std::string& fileName, bool isIni);
    // Reads a design or the settings file into the options and rows; false, with nothing
    // changed, when the file can't be used. The widgets follow with updateAfterReadingFile.
    bool readUserDesign(const std::string& fileName, bool isIni);
    void updateAfterReadingFile();
    // readUserDesign and updateAfterReadingFile, with the "User file error" box on failure.
    bool openDesign(const std::string& path);
    void updateRecentlyUsedFileList(const std::string& name);
    void clearRecentlyUsedList();
    FXMenuCommand* getRecentFileItem(int slot) const { return recentFileItems[slot]; }
    // The library file of a kind (0 filters, 1 spectra, 2 colours) in the per-user folder.
    std::string libraryPath(int libraryType) const;
    // Adds the calculated spectrum (or the filter or colour in the table) to a library, under
    // a name from the "Save user data" dialog or, when named, under givenName with givenLPW.
    bool addToUserLibrary(int libraryType, const std::string& givenName, bool named,
                          double givenLPW);
    // Appends the entries of a library file to the user's library of that kind.
    bool importUserLibrary(int libraryType, const std::string& file);
    // Imports every spectrum of the files (ProcessSpectrometerFiles types) into a library, as
    // the import commands do after their file dialog.
    bool importFiles(int libraryType, int fileType, std::vector<std::string> files);
    // Opens the "Simple editor" on a library; drive, when given, works the window in place of
    // the user (tests), else it runs modal. Rows are rebuilt when the editor saved.
    void editLibrary(int libraryType,
                     const std::function<void(SpectraEditorWindow&)>& drive = nullptr);
    // Replaces the user's library by a file, keeping the old one as a backup.
    bool replaceLibrary(int libraryType, const std::string& file);
    const std::vector<ledTypeStruct>& getFilterSpectra() const { return filterSpectra; }
    const std::vector<ledTypeStruct>& getColorSpectra() const { return colorSpectra; }
    FXCheckButton* getFilterCheck(int i) const { return filterChecks[i]; }
    FXCheckButton* getColorCheck(int i) const { return colorChecks[i]; }
    // The optimizer targets and other design lines that have no widget yet.
    const DesignData& getDesignExtras() const { return designExtras; }

    // Colours of the error cell and the tints that tell the input tables apart (0xAARRGGBB as
    // signed ints, as the settings keep colours).
    static constexpr int ERROR_CELL_COLOR = -65536;
    static constexpr int TABLE_TINTS[NUM_SPECTRUM_RANGES] = {-6426,    -26,    -1644826,
                                                             -1638401, -14081, -3618561};

  protected:
    VantrelGUI() {}

  private:
    // Construction, by part of the window.
    void buildMenus();
    void buildToolBar(FXComposite* parent);
    void buildInputSide(FXComposite* parent);
    void buildTables(FXComposite* parent);
    void buildPlotSide(FXComposite* parent);
    void buildSpectraTab(FXComposite* page);
    // The widgets of the spectrum rows, from the spectra of the model; destroyed again when a
    // library changes.
    void buildLedRows();
    void destroyLedRows();
    // Libraries: the start-up conversion of old files, and the rows rebuilt from the files.
    void updateUserFiles();
    std::vector<ledTypeStruct> readUserSpectraRows(bool showLimitBox);
    bool allocateAllSpec(int numRowsToKeep);
    bool allocateAllFilterColors(int libraryType);
    void allocateLibraryRows(int libraryType, int numRowsToKeep);
    bool askEntryName(int libraryType, std::string* name, double* lpw);
    // Opens a web page or document with the opener command; the "Open error" box on failure.
    bool openWithDesktop(const std::string& target);
    std::string importedSpectrumName(const ProcessSpectrometerFiles& file, const std::string& title,
                                     int index) const;
    void fillFreeFormatTable(const std::vector<double>& nm, const std::vector<double>& values);
    void buildTemperatureFields(FXComposite* parent);
    void layoutMainResultsTab(FXTabBook* book, int labelWidth, int fieldWidth);
    void layoutTM30ResultsTab(FXTabBook* book, int labelWidth, int fieldWidth);
    void layoutTM30_p2_ResultsTab(FXTabBook* book, int labelWidth, int fieldWidth);
    void layoutCQSResultsTab(FXTabBook* book, int labelWidth, int fieldWidth);
    void layoutResultsTab4(FXTabBook* book, int labelWidth, int fieldWidth);
    void layoutFieldsTab(FXTabBook* book, const char* title, const std::vector<int>& fields,
                         int columns, int labelWidth, int fieldWidth);
    void setTabColors();
    // The result field of this name (outputFieldIndex), null for an unknown name.
    FXTextField* resultField(const char* name) const;
    void set_umol_sW_tooltip();
    FXMenuPane* addMenu(const char* title, const MenuItemDef* items, int count);

    // Start-up, settings and design files.
    void setDefaults();
    void readSettings();
    DesignData designFromWidgets() const;
    void applyDesign(const DesignData& data);
    void showRecentFiles();
    void resetLedRows(bool keepChecks);
    // Stored options outside what the window can show (a choice no radio offers, a window
    // larger than the screen) go back to a value it can.
    void clampStoredOptions();
    // Window sizes and splits within the screen.
    void clampStoredSizes();
    void settingsToWidgets();
    void widgetsToSettings();
    void setWindowSizePosition();
    void resizeToScreen(bool showTip);
    void splitPlotSide();
    void naturalPaneWidths(int windowWidth, int* input, int* table) const;
    // Gives the diagram the width at which it fills the height of the plot row, unless the
    // user has set that width by dragging.
    void fitDiagramWidth();

    // Tables.
    void hideShowRedoButton();
    Table_zwk7* getTable(FXObject* sender) const;
    bool isInputTable(const Table_zwk7* table) const;
    void updateTableEditable(Table_zwk7* table, int column);
    void zeroCells(Table_zwk7* table, int firstRow, int lastRow, int column);
    // Photometry: the files after a Calculate, and the usage record at quit.
    void writePhotometryFiles();
    void startUpdateTimers();
    void promptForAutoCheckForUpdates();
    void setupTable();
    void setTableColumnTitles();
    void setSpectrumTableVisibility();
    void fillWavelengthColumns();
    InputRows readInputRows(Table_zwk7* table) const;
    void showInputMessage(Table_zwk7* table, const InputMessage& message);
    double getSpectrumTypeInputUnitsFactor() const;
    DirectInputOptions directInputOptions() const;

    // Spectrum rows.
    ledInputDataStruct readLedRow(int row) const;
    void writeLedRow(int row, const ledInputDataStruct& data);
    void saveStdLedValues(int n);
    void restoreStdLedValues(int n);
    void setShowLEDs();
    void enableDisableLEDchecks();
    void writeUserSpecDefaultLPW(bool overwrite);
    void setSpectraTabText();
    void setWattsColumnTitle();
    void resetBeforeCalculate();
    void defineStdSpectra(int index, double lDom);

    // Calculate.
    MixSettings mixSettings(bool fromButton = false) const;
    FieldFormat fieldFormat() const;
    // The shown input table on the grid; false, with its box shown, when the run ends.
    bool interpolateInputTable(Table_zwk7* table, const InputRows& rows,
                               const DirectInputOptions& options, DirectInputResult* input);
    bool calculateDirectInput();
    bool calculateMix(bool fromButton);
    bool calculateReference();
    bool calculateFilterColorInput();
    bool plotFilterType();
    bool plotColorType();
    bool checkBlackBodyInputs(double* temperature, FXuint keyOrZero);
    bool checkDaylightInputs(double* temperature, FXuint keyOrZero);
    void writeSpectrumColumn(const double* spectrum, int numPoints);
    std::vector<double> readSpectrumColumn(int numPoints) const;
    void fillInMatchingCurveData();
    std::vector<double> readMatchingCurve(int numPoints) const;
    void showMixError(const MixRows& rows);
    // The definitions of the colour LED override file that were not used, in one box.
    void showPeakFileProblems();
    // True when lastOutcome has results; otherwise its boxes are shown and the output cleared.
    bool outcomeShown();
    void showOutcome();
    void clearOutput(bool andPlots = true);
    int numGridPoints() const;
    CIE_PlotInput ciePlotInput() const;
    void drawCIE_Plot(bool reset);
    // Passes the points and options to the diagram; true when its range was set anew.
    // Makes a spectrum the matching curve: matching mode on, the third column of the 2 nm table
    // filled in the input units, and its name as the curve's title.
    void useAsMatchingCurve(const ledTypeStruct& spectrum);
    // The Matching menu's picker shows the matching curve's title, "Unknown" without one.
    void showMatchingCurveTitle();
    // Writes a reference set as a colour library of the program folder, or shows why not.
    void writeReferenceColours(ReferenceColours which, const char* name);
    bool prepareCIE_Plot(bool reset);
    void drawSpectrumPlot();
    void updateCalculateButton();
    void setSavedValuesCaptions();

    // Owned objects: the LED definitions and both engines in the model, number helpers,
    // settings.
    std::unique_ptr<CalculateModel> model;
    TextToNumber textToNumber;
    AddCommas addCommas;
    ProgramSettings settings;
    ProgramPaths paths;

    // State read from the widgets on demand and kept between runs.
    int analysisType = 1;
    int resultAnalysisType = -1;  // the type of the run whose results stand, -1 for none
    // The analysis type the plots show: that of the results, else the chosen one.
    int plottedType() const {
        return resultsValid && resultAnalysisType >= 0 ? resultAnalysisType : analysisType;
    }
    int spectrumRange = RANGE_360_830_2NM;
    bool resultsValid = false;
    CalculateOutcome lastOutcome;
    std::vector<double> mixedSpectrum;
    std::vector<double> plotWavelengths;
    std::vector<double> matchingSpectrum;  // the valid matching curve of the last run, or none
    std::unique_ptr<CIE_Plot> ciePlot;
    class QualityPlotWindow* qualityPlotWindow = nullptr;
    std::function<void(class QualityPlotWindow&)> qualityPlotDriver;
    std::unique_ptr<SpectrumPlot> spectrumPlot;
    double spectrumMinNm = 0, spectrumMaxNm = 0;  // the wheel's window; 0: the whole grid
    double spectrumShownMinNm = 360, spectrumShownMaxNm = 830;
    int spectrumPads[4] = {};         // left, right, top, bottom of the last spectrum plot
    bool resetCIEZoomPending = true;  // the diagram's range follows the zoom options
    int dragStartX = 0, dragStartY = 0, dragButton = 0;  // zoom box (1) or pan (3) on the diagram
    std::vector<SpectrumPoint> points;
    PhotometryStrings photometry;
    std::string mainCurveName, savedMainCurveName;
    bool matchingValid = false;
    bool individualMode = false;
    std::vector<ledTypeStruct> filterSpectra, colorSpectra;  // from the user libraries
    std::vector<ledInputDataStruct> savedLedValues;
    int shiftFirst = -1;                  // the first of a shift-clicked pair of spectrum checks
    std::clock_t lastWheelCalculate = 0;  // processor clock of the last Calculate the wheel ran
    std::vector<std::array<double, 5>> savedXY;  // x, y, CCT, x 10°, y 10°
    std::vector<std::array<double, 16>> savedR;  // Ra, R1 to R15
    OutputField outputFields[NUM_OUTPUT_FIELDS];
    int outputOrder[NUM_OUTPUT_FIELDS] = {};
    bool settingsReadFailed = false;
    DesignData designExtras;  // design lines without widgets, kept to be written back
    int libraryReadFailure = 0;
    bool importing = false;        // an import runs Calculate for each spectrum it reads
    bool colorWarningOff = false;  // "Yes" to "Color data warning": not asked again this run  //
                                   // 1-based user spectrum that could not be read, or 0

    // Widgets.
    FXMenuBar* menuBar = nullptr;
    std::vector<FXMenuPane*> menuPanes;
    FXSplitter* mainSplitter = nullptr;
    FXSplitter* plotSideSplitter = nullptr;  // plots above, result tabs below
    FXHorizontalFrame* plotRow = nullptr;    // the diagram and the spectrum plot
    FXTabBook* inputTabs = nullptr;
    FXTabItem* spectraTab = nullptr;
    FXTabItem* filtersTab = nullptr;
    FXTabItem* colorsTab = nullptr;
    FXTabItem* optimizationTab = nullptr;
    FXLabel* numCheckedLabel = nullptr;
    FXMatrix* ledMatrix = nullptr;
    FXLabel* wattsColumnLabel = nullptr;
    struct LedRowWidgets {
        FXCheckButton* check = nullptr;
        TextField_zwk7* fields[6] = {};  // lDom, lumens, watts, bin width, bin output, LPW
        FXCheckButton* holdConstant = nullptr;
    };
    std::vector<LedRowWidgets> ledRows;
    std::vector<FXWindow*> ledSeparators;
    std::vector<FXCheckButton*> filterChecks, colorChecks;
    FXVerticalFrame* holdList = nullptr;  // "LEDs to hold constant in optimization run"
    FXVerticalFrame* filterList = nullptr;
    FXVerticalFrame* colorList = nullptr;
    FXLabel* noLibraryLabel[2] = {};  // filters, colours
    TextField_zwk7* blackBodyTempField = nullptr;
    TextField_zwk7* daylightTempField = nullptr;
    FXRadioButton* analysisRadios[9] = {};
    FXButton* calculateButton = nullptr;
    FXButton* calIndividualButton = nullptr;
    FXButton* abortOptButton = nullptr;
    FXCheckButton* binningChk = nullptr;
    FXCheckButton* bluePeakChk = nullptr;
    FXCheckButton* irChk = nullptr;
    FXSwitcher* tableSwitcher = nullptr;
    Table_zwk7* displayTable = nullptr;
    Table_zwk7* inputTables[NUM_SPECTRUM_RANGES] = {};
    FXMenuRadio* rangeRadios[NUM_SPECTRUM_RANGES] = {};
    FXMenuCascade* inputUnitsCascade = nullptr;
    FXMenuCommand* editSelectAll = nullptr;  // the Edit entries and tool buttons that act
    FXMenuCommand* editCopy = nullptr;       // on the table shown
    FXMenuCommand* editPaste = nullptr;
    std::vector<FXButton*> tableButtons;
    FXCanvas* ciePlotCanvas = nullptr;
    FXCanvas* spectrumPlotCanvas = nullptr;
    FXTabBook* resultTabs = nullptr;
    std::vector<FXTabItem*> resultTabItems;
    FXTextField* resultFields[NUM_OUTPUT_FIELDS] = {};
    FXLabel* savedValuesLabel = nullptr;
    FXMenuCommand* recentFileItems[RECENT_FILES_MAX] = {};
    FXLabel* statusLabel = nullptr;
    FXFont* programFont = nullptr;
    FXFont* previousNormalFont = nullptr;  // the application's font before the program's
    FXFont* menuTitleFont = nullptr;       // smaller titles on narrow screens

    // Table edits, newest last, and the cell the popup was opened on.
    TableUndo tableUndo[TABLE_UNDO_LEVELS];
    int tableUndoCount = 0;
    FXButton* undoTableButton = nullptr;
    Table_zwk7* popupTable = nullptr;
    int popupRow = -1, popupCol = -1;
    // Photometry files of this program run.
    std::string photometryFolder;  // empty: the per-user folder
    PhotometryFileState photometryState;
    bool photometryWriteErrorShown = false;  // the "Write error" box was shown for this folder
    // Uses of the program for the usage record: Calculates by analysis type (0 to 8), update
    // checks (9).
    std::array<int, 75> usageCounters = {};
    // The update check's worker, while one runs or until it is joined.
    std::unique_ptr<CheckWebForUpdatesThread> webThread;
    FXuint webThreadFinished = 0;
    bool updateCheckBusy = false;  // a check waits for its worker

    // Menu checks and radios bound to settings options.
    struct OptionBinding {
        FXWindow* widget;  // FXMenuCheck or FXMenuRadio
        std::string tag;   // the option
        int value;         // for a radio: the option's value when this radio is chosen
        bool radio;
        int index;  // for a check of an indexed option: its entry; else -1
    };
    std::vector<OptionBinding> optionBindings;
    void setCheckOption(const OptionBinding& binding);
};

#endif  // LUMIVAR_GUI_VANTRELGUI_H
