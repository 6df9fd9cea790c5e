// The spectrum rows of the Spectra tab, the filter and colour checks, the reference temperature
// fields, and the spectra the menus generate (standard illuminants, Gaussian peaks).
#include <fxkeys.h>

#include <algorithm>
#include <cmath>
#include <ctime>

#include "AppConstants.h"
#include "ArgbColor.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "GaussianSpectrum.h"
#include "ReadWriteUserSpectra.h"
#include "StandardIlluminants.h"
#include "UserDialogs.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {
// Fields of a row, in column order, as RowField bits.
constexpr int ROW_FIELD_BITS[6] = {ROW_LDOM,      ROW_LUMENS,     ROW_WATTS,
                                   ROW_BIN_WIDTH, ROW_BIN_OUTPUT, ROW_LPW};
constexpr double BIN_LIMIT = 20.00001;
// Range of the photometry, as the tips print it.
constexpr double FIRST_NM = 360.0, LAST_NM = 830.0000000000001;
// Processor time that must pass between two Calculates that follow the wheel.
constexpr double WHEEL_CALCULATE_SECONDS = 0.05;

int fieldColumn(int field) {
    for (int c = 0; c < 6; ++c) {
        if (ROW_FIELD_BITS[c] == field) return c;
    }
    return -1;
}
}  // namespace

void VantrelGUI::buildSpectraTab(FXComposite* page) {
    numCheckedLabel = new FXLabel(page, "# spectra checked: 0", nullptr, JUSTIFY_LEFT);
    FXScrollWindow* scroll = new FXScrollWindow(page, LAYOUT_FILL_X | LAYOUT_FILL_Y);
    ledMatrix =
        new FXMatrix(scroll, 7, MATRIX_BY_COLUMNS | LAYOUT_FILL_X, 0, 0, 0, 0, 2, 2, 2, 2, 4, 1);
    const char* const titles[7] = {"Spectrum", "lDom (nm)", "Lumens", "mW",
                                   "Bin (nm)", "Bin (%)",   "LPW"};
    for (int c = 0; c < 7; ++c) {
        FXLabel* label = new FXLabel(ledMatrix, titles[c], nullptr,
                                     c == 0 ? JUSTIFY_LEFT : JUSTIFY_CENTER_X | LAYOUT_FILL_X);
        if (c == 3) wattsColumnLabel = label;
    }
    buildLedRows();
}

void VantrelGUI::buildLedRows() {
    LedDefinitions& leds = model->definitions();
    const std::vector<ledTypeStruct>& spectra = model->spectra();
    const int numStandard = leds.getNumStdSpectra();
    ledRows.resize(spectra.size());
    for (std::size_t i = 0; i < spectra.size(); ++i) {
        const ledTypeStruct& s = spectra[i];
        LedRowWidgets& row = ledRows[i];
        // "&" would mark a hot key in a FOX label.
        FXString name = FXString(s.name).trim();
        name.substitute("&", "&&");
        row.check = new FXCheckButton(ledMatrix, name, this, ID_CHECKED_LED);
        row.check->setTipText(FXString().format("Spectra #%d", static_cast<int>(i) + 1));
        for (int c = 0; c < 6; ++c) {
            row.fields[c] = new TextField_zwk7(
                ledMatrix, 7, this, ID_LED_FIELD,
                TEXTFIELD_REAL | JUSTIFY_CENTER_X | FRAME_SUNKEN | FRAME_THICK | LAYOUT_FILL_X);
        }
        row.fields[1]->setTipText(FXString().format(
            "1931 2\u00B0 calculated in the range of %.0lf - %.0lf nm", FIRST_NM, LAST_NM));
        row.fields[2]->setTipText(
            FXString().format("Calculated in the range of %.0lf - %.0lf nm", FIRST_NM, LAST_NM));
        row.fields[3]->setTipText(
            FXString().format("+/- bin width, must be between 0 and %.0lf nm.", BIN_LIMIT));
        row.fields[4]->setTipText(
            FXString().format("+/- bin output, must be between 0 and %.0lf%%.", BIN_LIMIT));
        if (s.hasDomWL) {
            row.fields[0]->setText(FXString().format("%.0lf", s.lDom));
            row.fields[0]->setTipText(FXString().format("%.0lf - %.0lf nm", s.lDomMin, s.lDomMax));
            row.fields[3]->setText(FXString().format("%.1lf", s.binShift));
        } else {
            if (s.lDom > 1) row.fields[0]->setText(FXString().format("%.0lf", s.lDom));
            row.fields[0]->disable();
            row.fields[3]->disable();
        }
        if (static_cast<int>(i) == numStandard - 1) {
            for (int c = 0; c < 7; ++c) {
                ledSeparators.push_back(
                    new FXHorizontalSeparator(ledMatrix, SEPARATOR_GROOVE | LAYOUT_FILL_X));
            }
        }
        // The optimizer keeps the spectra of this list at their entered intensity.
        if (holdList != nullptr) {
            row.holdConstant = new FXCheckButton(holdList, name);
            row.holdConstant->disable();
        }
    }
    writeUserSpecDefaultLPW(false);
}

void VantrelGUI::destroyLedRows() {
    for (LedRowWidgets& row : ledRows) {
        delete row.check;
        for (TextField_zwk7* field : row.fields) delete field;
        delete row.holdConstant;
    }
    for (FXWindow* separator : ledSeparators) delete separator;
    ledRows.clear();
    ledSeparators.clear();
}

void VantrelGUI::buildTemperatureFields(FXComposite* parent) {
    FXHorizontalFrame* frame = new FXHorizontalFrame(parent, LAYOUT_FILL_X, 0, 0, 0, 0, 0, 0, 0, 0);
    new FXLabel(frame, "Black body (K)");
    blackBodyTempField =
        new TextField_zwk7(frame, 8, this, ID_BLACK_BODY_TEMP,
                           TEXTFIELD_REAL | JUSTIFY_CENTER_X | FRAME_SUNKEN | FRAME_THICK);
    blackBodyTempField->setTipText(
        "Temperature of the black body curve, 1,000 - 950,000K.\nThe mouse wheel steps it by 25K.");
    new FXLabel(frame, "  Daylight (K)");
    daylightTempField =
        new TextField_zwk7(frame, 8, this, ID_DAYLIGHT_TEMP,
                           TEXTFIELD_REAL | JUSTIFY_CENTER_X | FRAME_SUNKEN | FRAME_THICK);
    daylightTempField->setTipText(
        "Temperature of the reconstituted daylight, 3,000 - 25,000K.\nThe mouse wheel steps it "
        "by 50K (100K with the shift key).");
}

TextField_zwk7* VantrelGUI::getLedField(int row, int field) const {
    const int column = fieldColumn(field);
    if (row < 0 || row >= getNumSpectra() || column < 0) return nullptr;
    return ledRows[row].fields[column];
}

ledInputDataStruct VantrelGUI::readLedRow(int row) const {
    const LedRowWidgets& w = ledRows[row];
    ledInputDataStruct data;
    data.checked = w.check->getCheck() == TRUE;
    std::string* texts[6] = {&data.lDom,     &data.lumens,    &data.watts,
                             &data.binWidth, &data.binOutput, &data.lpw};
    for (int c = 0; c < 6; ++c) *texts[c] = w.fields[c]->getText().text();
    // The user's decimal comma reads as a point.
    for (std::string* text : texts) std::replace(text->begin(), text->end(), ',', '.');
    return data;
}

void VantrelGUI::writeLedRow(int row, const ledInputDataStruct& data) {
    LedRowWidgets& w = ledRows[row];
    w.check->setCheck(data.checked);
    const std::string* texts[6] = {&data.lDom,     &data.lumens,    &data.watts,
                                   &data.binWidth, &data.binOutput, &data.lpw};
    for (int c = 0; c < 6; ++c) {
        if (w.fields[c]->getText() != texts[c]->c_str()) w.fields[c]->setText(texts[c]->c_str());
    }
}

void VantrelGUI::saveStdLedValues(int n) {
    savedLedValues.assign(std::min(n, getNumSpectra()), ledInputDataStruct());
    for (std::size_t i = 0; i < savedLedValues.size(); ++i) {
        savedLedValues[i] = readLedRow(static_cast<int>(i));
    }
}

void VantrelGUI::restoreStdLedValues(int n) {
    const int count = std::min({n, getNumSpectra(), static_cast<int>(savedLedValues.size())});
    for (int i = 0; i < count; ++i) writeLedRow(i, savedLedValues[i]);
}

void VantrelGUI::writeUserSpecDefaultLPW(bool overwrite) {
    const std::vector<ledTypeStruct>& spectra = model->spectra();
    for (int i = 0; i < getNumSpectra(); ++i) {
        TextField_zwk7* lpw = ledRows[i].fields[5];
        if (!overwrite && !lpw->getText().trim().empty()) continue;
        if (spectra[i].lpw > 1e-9) {
            lpw->setText(ValueFormat::getValueAsString(spectra[i].lpw).c_str());
        }
    }
}

void VantrelGUI::setWattsColumnTitle() {
    if (wattsColumnLabel == nullptr) return;
    wattsColumnLabel->setText(settings.getInt("inputWattsUnits") == 0 ? "mW" : "W");
}

void VantrelGUI::setShowLEDs() {
    const int show = settings.getInt("showLEDs");
    LedDefinitions& leds = model->definitions();
    const int numStandard = leds.getNumStdSpectra();
    for (int i = 0; i < getNumSpectra(); ++i) {
        bool visible = true;
        if (i < numStandard) {
            const bool pureColor = i < leds.getNumPureColorGaussianStdSpectra();
            const bool ir = i >= leds.getIndexOfFirstIRLED() && i < leds.getIndexOfFirstIRLED() + 2;
            visible = !(show == 3 || (show == 1 && pureColor) || (show == 2 && ir));
        }
        LedRowWidgets& row = ledRows[i];
        FXWindow* widgets[7] = {row.check,     row.fields[0], row.fields[1], row.fields[2],
                                row.fields[3], row.fields[4], row.fields[5]};
        for (FXWindow* w : widgets) {
            if (visible) {
                w->show();
            } else {
                w->hide();
            }
        }
        if (row.holdConstant != nullptr) {
            if (visible) {
                row.holdConstant->show();
            } else {
                row.holdConstant->hide();
            }
        }
    }
    if (ledMatrix != nullptr) ledMatrix->recalc();
}

void VantrelGUI::enableDisableLEDchecks() {
    bool changed = false;
    for (LedRowWidgets& row : ledRows) {
        if (!row.check->shown() && row.check->getCheck()) {
            row.check->setCheck(false);
            changed = true;
        }
    }
    if (changed) onCmdCheckedLED(nullptr, 0, nullptr);
}

void VantrelGUI::setSpectraTabText() {
    int checked = 0;
    for (const LedRowWidgets& row : ledRows) checked += row.check->getCheck() ? 1 : 0;
    numCheckedLabel->setText(FXString().format("# spectra checked: %d", checked));
    spectraTab->setText(FXString().format("Spectra (%d)", checked));
    if (checked > 1) {
        calIndividualButton->enable();
    } else {
        calIndividualButton->disable();
    }
}

void VantrelGUI::clickLedCheck(int row, bool shift) {
    if (row < 0 || row >= getNumSpectra()) return;
    FXCheckButton* check = ledRows[row].check;
    check->setCheck(!check->getCheck());
    if (shift) {
        if (shiftFirst < 0) {
            shiftFirst = row;
        } else {
            const int first = std::min(shiftFirst, row), last = std::max(shiftFirst, row);
            for (int i = first; i <= last; ++i) {
                if (ledRows[i].check->shown()) ledRows[i].check->setCheck(true);
            }
            shiftFirst = -1;
        }
    }
    onCmdCheckedLED(nullptr, 0, nullptr);
}

long VantrelGUI::onCmdCheckedLED(FXObject* sender, FXSelector, void*) {
    if (sender != nullptr) {
        for (int i = 0; i < getNumSpectra(); ++i) {
            if (sender != ledRows[i].check) continue;
            // FOX has already toggled the button: undo that, then click it as the user did.
            ledRows[i].check->setCheck(!ledRows[i].check->getCheck());
            const bool shift =
                getApp()->getKeyState(KEY_Shift_L) || getApp()->getKeyState(KEY_Shift_R);
            clickLedCheck(i, shift);
            return 1;
        }
    }
    for (LedRowWidgets& row : ledRows) {
        if (!row.check->getCheck() && row.holdConstant != nullptr)
            row.holdConstant->setCheck(false);
    }
    setSpectraTabText();
    if (analysisType == 0 && !individualMode) clearOutput();
    return 1;
}

namespace {
// "Filters (%d)" or "Colors (%d)" with the number checked.
void setCheckedCountTitle(FXTabItem* tab, const char* format,
                          const std::vector<FXCheckButton*>& checks) {
    int checked = 0;
    for (FXCheckButton* c : checks) checked += c->getCheck() ? 1 : 0;
    tab->setText(FXString().format(format, checked));
}
}  // namespace

long VantrelGUI::onCmdCheckedFilter(FXObject*, FXSelector, void*) {
    setCheckedCountTitle(filtersTab, "Filters (%d)", filterChecks);
    clearOutput();
    return 1;
}

long VantrelGUI::onCmdCheckedColor(FXObject*, FXSelector, void*) {
    setCheckedCountTitle(colorsTab, "Colors (%d)", colorChecks);
    clearOutput();
    return 1;
}

long VantrelGUI::onMouseLedField(FXObject* sender, FXSelector, void* ptr) {
    if (!settings.getBool("mouseWheelForLEDsMenuItem")) return 0;
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    TextField_zwk7* field = static_cast<TextField_zwk7*>(sender);
    if (event == nullptr || field == nullptr || !field->hasFocus()) return 0;
    const int direction = event->code > 0 ? 1 : -1;
    for (int i = 0; i < getNumSpectra(); ++i) {
        const LedRowWidgets& row = ledRows[i];
        if (sender == row.fields[0]) {
            const ledTypeStruct& s = model->spectra()[i];
            double v = fieldValue(field->getText().text(), s.lDom) + 0.5 * direction;
            v = std::clamp(v, s.lDomMin, s.lDomMax);
            field->setText(FXString().format("%.1lf", v));
            return 1;
        }
        if (sender == row.fields[3] || sender == row.fields[4]) {
            const double v =
                std::clamp(fieldValue(field->getText().text()) + direction, 0.0, BIN_LIMIT);
            field->setText(FXString().format("%.0lf", v));
            return 1;
        }
    }
    return 0;
}

long VantrelGUI::onKeyPressBlackBodyTemp(FXObject* sender, FXSelector, void* ptr) {
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (event == nullptr || (event->code != KEY_Return && event->code != KEY_KP_Enter)) return 0;
    const int type = sender == blackBodyTempField ? 2 : 6;
    if (analysisType == type) onCmdCalculate(calculateButton, 0, nullptr);
    return 1;
}

long VantrelGUI::onMouseBlackBodyTemp(FXObject* sender, FXSelector, void* ptr) {
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (event == nullptr) return 0;
    const bool blackBody = sender == blackBodyTempField;
    TextField_zwk7* field = blackBody ? blackBodyTempField : daylightTempField;
    double step = blackBody ? 25.0 : 50.0;
    if (event->state & SHIFTMASK) step = 100.0;
    double kelvin = fieldValue(field->getText().text(), blackBody ? 2856.0 : 6500.0) +
                    (event->code > 0 ? step : -step);
    kelvin = blackBody ? std::clamp(kelvin, 1000.0, 950000.0) : std::clamp(kelvin, 3000.0, 25000.0);
    field->setText(FXString().format("%.0lf", kelvin));
    // The result follows the wheel, but not faster than the machine calculates.
    const std::clock_t now = std::clock();
    if (analysisType == (blackBody ? 2 : 6) &&
        static_cast<double>(now - lastWheelCalculate) / CLOCKS_PER_SEC > WHEEL_CALCULATE_SECONDS) {
        lastWheelCalculate = now;
        onCmdCalculate(nullptr, 0, nullptr);
    }
    return 1;
}

// --- Generated spectra -------------------------------------------------------------------------

void VantrelGUI::runStandardIlluminant(int index) {
    const int oldType = analysisType, oldRange = spectrumRange;
    const int oldUnits = settings.getInt("freeFormatInputUnitsIndex");
    const int first = index == NUM_STANDARD_ILLUMINANTS ? 0 : index;
    const int last = index == NUM_STANDARD_ILLUMINANTS ? NUM_STANDARD_ILLUMINANTS - 1 : index;
    for (int k = first; k <= last; ++k) {
        std::string name;
        double spectrum[Vantrel::NUM_GRID_POINTS_IR] = {};
        if (defineStandardIlluminants(k, &name, spectrum) == 0) continue;
        setAnalysisType(1);
        settings.setInt("freeFormatInputUnitsIndex", 0);
        setTableColumnTitles();
        setSpectrumRange(RANGE_360_830_2NM);
        Table_zwk7* table = inputTables[RANGE_360_830_2NM];
        for (int i = 0; i < table->getNumRows() && i < Vantrel::NUM_GRID_POINTS; ++i) {
            table->setItemText(i, 1, FXString().format("%.*le", 3, spectrum[i]));
        }
        onCmdCalculate(nullptr, 0, nullptr);
        mainCurveName = name;
        if (resultsValid) addToUserLibrary(LIBRARY_SPECTRA, name, true, 0.0);
    }
    settings.setInt("freeFormatInputUnitsIndex", oldUnits);
    setTableColumnTitles();
    setAnalysisType(oldType);
    setSpectrumRange(oldRange);
}

long VantrelGUI::onCmdStdIlluminant(FXObject*, FXSelector sel, void*) {
    runStandardIlluminant(FXSELID(sel) - ID_STD_ILLUMINANT);
    return 1;
}

bool VantrelGUI::generateGaussian(const std::string& name, double centerMetres, double fwhmMetres,
                                  bool save, bool askBeforeReplacing) {
    // The peak goes into the 2 nm table: data the user put there is not replaced unasked.
    Table_zwk7* target = inputTables[RANGE_360_830_2NM];
    bool holdsData = false;
    for (int i = 0; i < target->getNumRows() && !holdsData; ++i)
        holdsData = !target->getItemText(i, 1).trim().empty();
    if (askBeforeReplacing && holdsData &&
        UserDialogs::question(this, MBOX_YES_NO, "Replace data",
                              "The Gaussian spectrum replaces the data in the 360 to 830 nm "
                              "(2 nm) table.\nDo you want to go on?") != MBOX_CLICKED_YES)
        return false;
    const int oldType = analysisType, oldRange = spectrumRange;
    setAnalysisType(1);
    setSpectrumRange(RANGE_360_830_2NM);
    const bool photons = settings.getInt("freeFormatInputUnitsIndex") == 3;
    const std::vector<std::string> texts =
        gaussianSpectrumTexts(centerMetres, fwhmMetres, irChk->getCheck(), photons);
    Table_zwk7* table = inputTables[spectrumRange];
    for (int i = 0; i < table->getNumRows() && i < static_cast<int>(texts.size()); ++i) {
        table->setItemText(i, 1, texts[i].c_str());
    }
    if (save) {
        onCmdCalculate(nullptr, 0, nullptr);
        mainCurveName = name;
        if (resultsValid) addToUserLibrary(LIBRARY_SPECTRA, name, true, 0.0);
    }
    setAnalysisType(oldType);
    setSpectrumRange(oldRange);
    return true;
}

int VantrelGUI::autoGenerateGaussianPeaks() {
    // One question for the whole set: each peak replaces the one before it in the table.
    int made = 0;
    for (const GaussianPeak& peak : autoGaussianPeaks()) {
        if (!generateGaussian(peak.name, peak.centerNm * 1e-9, peak.fwhmNm * 1e-9, true, made == 0))
            break;
        ++made;
    }
    return made;
}

long VantrelGUI::onCmdCreateGaussian(FXObject*, FXSelector, void*) {
    FXDialogBox dialog(this, GAUSSIAN_DIALOG_TITLE);
    FXMatrix* grid = new FXMatrix(&dialog, 2, MATRIX_BY_COLUMNS | LAYOUT_FILL_X);
    new FXLabel(grid, GAUSSIAN_CENTER_LABEL);
    TextField_zwk7* center =
        new TextField_zwk7(grid, 10, nullptr, 0, TEXTFIELD_REAL | FRAME_SUNKEN);
    new FXLabel(grid, GAUSSIAN_FWHM_LABEL);
    TextField_zwk7* fwhm = new TextField_zwk7(grid, 10, nullptr, 0, TEXTFIELD_REAL | FRAME_SUNKEN);
    new FXLabel(grid, FXString().format(GAUSSIAN_NAME_LABEL, GAUSSIAN_NAME_MAX));
    FXTextField* name = new FXTextField(grid, 30, nullptr, 0, TEXTFIELD_LIMITED | FRAME_SUNKEN);
    name->setNumColumns(30);
    FXHorizontalFrame* buttons = new FXHorizontalFrame(&dialog, LAYOUT_FILL_X | PACK_UNIFORM_WIDTH);
    new FXButton(buttons, "&OK", nullptr, &dialog, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
    new FXButton(buttons, "&Cancel", nullptr, &dialog, FXDialogBox::ID_CANCEL,
                 FRAME_RAISED | FRAME_THICK | LAYOUT_RIGHT);
    GaussianInput input;
    center->setText(FXString().format("%.0lf", input.centerNm));
    fwhm->setText(FXString().format("%.0lf", input.fwhmNm));
    while (dialog.execute(PLACEMENT_OWNER)) {
        input.centerNm = center->toDouble();
        input.fwhmNm = fwhm->toDouble();
        input.name = name->getText().text();
        std::string title, text;
        if (checkGaussianInput(&input, irChk->getCheck(), &title, &text)) {
            UserDialogs::error(this, title.c_str(), "%s", text.c_str());
            continue;
        }
        generateGaussian(input.name, input.centerNm * 1e-9, input.fwhmNm * 1e-9, true);
        break;
    }
    return 1;
}
