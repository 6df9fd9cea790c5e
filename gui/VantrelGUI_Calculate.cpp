// Calculate: reads the rows, the tables and the options into records, lets the model compute,
// and shows its boxes, red fields and results.
#include <algorithm>
#include <cmath>

#include "AppConstants.h"
#include "ArgbColor.h"
#include "CellColors.h"
#include "DesignCalculation.h"
#include "Fox_Fixes/Table_zwk7.h"
#include "Fox_Fixes/TextField_zwk7.h"
#include "UserDialogs.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

double VantrelGUI::getSpectrumTypeInputUnitsFactor() const {
    if (analysisType != 1) return 1.0;
    switch (settings.getInt("freeFormatInputUnitsIndex")) {
        case 1:
            return 0.001;
        case 2:
            return 1e-6;
        case 4:
            return 10000.0;
        default:
            return 1.0;
    }
}

DirectInputOptions VantrelGUI::directInputOptions() const {
    DirectInputOptions options;
    options.analysisType = analysisType;
    options.spectrumRange = spectrumRange;
    options.includeIR = irChk->getCheck();
    options.percentUnits = settings.getInt("colorsFiltersUnits") == 1;
    options.allowAboveOne = settings.getBool("allowFiltersGreaterThanOneMenu");
    options.zeroEmptyCells = settings.getBool("zeroEmptyCellsMenuItem");
    options.photons = settings.getInt("freeFormatInputUnitsIndex") == 3;
    options.unitsFactor =
        analysisType == 4 || analysisType == 7 ? 1.0 : getSpectrumTypeInputUnitsFactor();
    return options;
}

MixSettings VantrelGUI::mixSettings(bool fromButton) const {
    MixSettings s = mixSettingsFromOptions(settings, analysisType);
    // The check boxes reach the options only when the settings are written.
    s.includeIR = irChk->getCheck();
    s.subtractBluePeak = bluePeakChk->getCheck();
    // A binning run reads the bin fields; it starts only from the button. The simulation
    // itself is not in this build, so the check box stands greyed.
    s.monteCarlo =
        fromButton && analysisType == 0 && binningChk->isEnabled() && binningChk->getCheck();
    s.matching =
        readMatchingCurve(s.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS);
    // The user's SSI reference is the curve of the matching column.
    if (s.ssiReference == 2) s.ssiUserReference = s.matching;
    return s;
}

FieldFormat VantrelGUI::fieldFormat() const { return fieldFormatFromOptions(settings); }

InputRows VantrelGUI::readInputRows(Table_zwk7* table) const {
    InputRows rows(table->getNumRows());
    for (int r = 0; r < table->getNumRows(); ++r) {
        rows[r][0] = table->getItemText(r, 0).text();
        rows[r][1] = table->getItemText(r, 1).text();
    }
    return rows;
}

void VantrelGUI::showInputMessage(Table_zwk7* table, const InputMessage& message) {
    const FXColor red = argbColor(ERROR_CELL_COLOR);
    if (message.markFirstCells) {
        setCellBackColor(table, 0, 0, red);
        setCellBackColor(table, 0, 1, red);
    }
    if (message.badRow >= 0 && message.badCol >= 0) {
        setCellBackColor(table, message.badRow, message.badCol, red);
        table->makePositionVisible(message.badRow, message.badCol);
    }
    if (message.warning) {
        UserDialogs::warning(this, MBOX_OK, message.title.c_str(), "%s", message.text.c_str());
    } else {
        UserDialogs::error(this, message.title.c_str(), "%s", message.text.c_str());
    }
}

void VantrelGUI::resetBeforeCalculate() {
    photometry = PhotometryStrings();
    for (LedRowWidgets& row : ledRows) {
        for (TextField_zwk7* field : row.fields) field->setBackColor(getApp()->getBackColor());
    }
    blackBodyTempField->setBackColor(getApp()->getBackColor());
    daylightTempField->setBackColor(getApp()->getBackColor());
}

void VantrelGUI::defineStdSpectra(int index, double lDom) {
    model->definitions().defineStdSpectra(index, &model->spectra()[index], lDom);
}

long VantrelGUI::onCmdCalculate(FXObject* sender, FXSelector, void*) {
    photometry = PhotometryStrings();
    mainCurveName.clear();
    resultsValid = false;
    matchingValid = false;

    // A checked spectrum with light beyond 830 nm turns the IR range on.
    if (analysisType == 0 && settings.getBool("autoCheckIRForIRLEDs_Chk") && !irChk->getCheck()) {
        for (int i = 0; i < getNumSpectra(); ++i) {
            if (ledRows[i].check->getCheck() && model->spectra()[i].hasIRpast830) {
                irChk->setCheck(true);
                onCmdIRChk(nullptr, 0, nullptr);
                break;
            }
        }
    }

    std::vector<bool> filtersChecked(filterChecks.size());
    if (analysisType == 1 || analysisType == 4 || analysisType == 7) {
        for (FXCheckButton* check : filterChecks) check->setCheck(false);
    } else {
        for (std::size_t f = 0; f < filterChecks.size(); ++f) {
            filtersChecked[f] = filterChecks[f]->getCheck() == TRUE;
        }
        const int above = firstFilterAboveOne(filterSpectra, filtersChecked);
        if (above >= 0 && !settings.getBool("allowFiltersGreaterThanOneMenu")) {
            const CalcMessage warning = filterAboveOneWarning(
                filterSpectra[above].name, settings.getInt("colorsFiltersUnits") == 1);
            if (UserDialogs::warning(this, MBOX_YES_NO, warning.title.c_str(), "%s",
                                     warning.text.c_str()) == MBOX_CLICKED_YES) {
                settings.setBool("allowFiltersGreaterThanOneMenu", true);
                settingsToWidgets();
            }
        }
    }
    double filters[Vantrel::NUM_GRID_POINTS_IR];
    filterProduct(filterSpectra, filtersChecked, filters);

    resultAnalysisType = analysisType;
    if (analysisType == 5 || analysisType == 8) {
        if (analysisType == 5) {
            plotFilterType();
        } else {
            plotColorType();
        }
        repaintPlots();
        return 1;
    }
    resetBeforeCalculate();
    getApp()->beginWaitCursor();
    bool ok = false;
    switch (analysisType) {
        case 0:
            ok = calculateMix(sender != nullptr && sender == calculateButton);
            break;
        case 1:
            ok = calculateDirectInput();
            break;
        case 2:
        case 6:
            ok = calculateReference();
            break;
        case 4:
        case 7:
            calculateFilterColorInput();
            break;
        default:
            break;
    }
    if (ok) {
        matchingSpectrum = mixSettings().matching;
        // Without its blue peak the spectrum stands in the third column and as the second curve.
        if (lastOutcome.mix.bluePeakRemoved) {
            matchingSpectrum = lastOutcome.mix.phosphorSpectrum;
            if (displayTable->getNumColumns() >= 3) {
                for (int i = 0; i < displayTable->getNumRows() &&
                                i < static_cast<int>(matchingSpectrum.size());
                     ++i)
                    displayTable->setItemText(i, 2,
                                              FXString().format("%.*le", 3, matchingSpectrum[i]));
            }
        }
        matchingValid = !matchingSpectrum.empty();
        showOutcome();
        ++usageCounters[analysisType];
        writePhotometryFiles();
        if (settings.getInt("_referenceSpectrumForSSI") == 2 && !matchingValid) {
            UserDialogs::error(this, "Spectrum error",
                               "You must first calculate a spectrum and enter it as the matching "
                               "curve to use it as the %s reference.",
                               SSI_TITLE);
        }
    }
    repaintPlots();
    getApp()->endWaitCursor();
    return 1;
}

// --- The spectrum column of the display table ------------------------------------------------

void VantrelGUI::writeSpectrumColumn(const double* spectrum, int numPoints) {
    const bool photons = settings.getInt("freeFormatInputUnitsIndex") == 3;
    if (displayTable->getNumRows() < numPoints) fillWavelengthColumns();
    for (int i = 0; i < numPoints && i < displayTable->getNumRows(); ++i) {
        const double nm = 360.0 + 2.0 * i;
        const double v =
            photons ? Vantrel::convert_to_Photons_Sec_from_Watts_nm(spectrum[i], nm) : spectrum[i];
        displayTable->setItemText(i, 1, FXString().format("%.*le", 3, v));
    }
}

std::vector<double> VantrelGUI::readSpectrumColumn(int numPoints) const {
    std::vector<std::string> column(numPoints);
    for (int i = 0; i < numPoints && i < displayTable->getNumRows(); ++i) {
        column[i] = displayTable->getItemText(i, 1).text();
    }
    std::vector<double> spectrum =
        spectrumFromColumn(column, settings.getInt("freeFormatInputUnitsIndex") == 3);
    spectrum.resize(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    return spectrum;
}

void VantrelGUI::fillInMatchingCurveData() {
    Table_zwk7* table = inputTables[spectrumRange];
    if (table->getNumColumns() < 3 || displayTable->getNumColumns() < 3) return;
    InputRows rows(table->getNumRows());
    bool any = false;
    for (int r = 0; r < table->getNumRows(); ++r) {
        rows[r][0] = table->getItemText(r, 0).text();
        rows[r][1] = table->getItemText(r, 2).text();
        any = any || !table->getItemText(r, 2).trim().empty();
    }
    if (!any) return;
    // The matching curve is optional: one that cannot be brought to the grid is left out.
    const DirectInputResult input = interpolateSpectrum(rows, directInputOptions());
    if (input.error) return;
    for (std::size_t i = 0; i < input.column.size(); ++i) {
        displayTable->setItemText(static_cast<FXint>(i), 2, input.column[i].c_str());
    }
}

std::vector<double> VantrelGUI::readMatchingCurve(int numPoints) const {
    if (!settings.getBool("enableMatchingMenuItem") || displayTable->getNumColumns() < 3) {
        return {};
    }
    std::vector<std::string> column(std::min(numPoints, displayTable->getNumRows()));
    for (std::size_t i = 0; i < column.size(); ++i) {
        column[i] = displayTable->getItemText(static_cast<FXint>(i), 2).text();
    }
    if (!isMatchingColumnValid(column, settings.getBool("zeroEmptyCellsMenuItem"))) return {};
    return spectrumFromColumn(column, settings.getInt("freeFormatInputUnitsIndex") == 3);
}

// --- Analysis types ----------------------------------------------------------------------------

bool VantrelGUI::interpolateInputTable(Table_zwk7* table, const InputRows& rows,
                                       const DirectInputOptions& options,
                                       DirectInputResult* input) {
    clearCellBackColors(table);
    *input = interpolateSpectrum(rows, options);
    if (!input->error) return true;
    showInputMessage(table, input->message);
    clearOutput();
    return false;
}

bool VantrelGUI::calculateDirectInput() {
    Table_zwk7* table = inputTables[spectrumRange];
    const DirectInputOptions options = directInputOptions();
    const InputRows rows = readInputRows(table);
    DirectInputResult input;
    if (!interpolateInputTable(table, rows, options, &input)) return false;
    const int n = static_cast<int>(input.column.size());
    if (displayTable->getNumRows() != n) fillWavelengthColumns();
    for (int i = 0; i < n; ++i) displayTable->setItemText(i, 1, input.column[i].c_str());

    InputMessage message;
    if (checkForEmptyCells(rows, options, &message)) {
        showInputMessage(table, message);
        clearOutput();
        return false;
    }
    if (input.outOfRange) {
        showInputMessage(table, colorOutOfRangeWarning(options));
        clearOutput();
        return false;
    }
    // What the display table shows, at its printed digits, is what is measured.
    mixedSpectrum = readSpectrumColumn(n);
    fillInMatchingCurveData();
    lastOutcome = model->calculateSpectrum(mixedSpectrum.data(), mixSettings(), fieldFormat());
    return outcomeShown();
}

bool VantrelGUI::outcomeShown() {
    if (lastOutcome.ok) return true;
    showMixError(lastOutcome.rows);
    clearOutput();
    return false;
}

bool VantrelGUI::checkBlackBodyInputs(double* temperature, FXuint keyOrZero) {
    *temperature = fieldValue(blackBodyTempField->getText().text(), 0.0);
    if ((keyOrZero & 0xFFFF) == 65) return false;
    CalcMessage message;
    if (!checkBlackBodyTemperature(temperature, &message)) return false;
    blackBodyTempField->setText(FXString().format("%.0lf", *temperature));
    blackBodyTempField->setBackColor(argbColor(ERROR_CELL_COLOR));
    UserDialogs::error(this, message.title.c_str(), "%s", message.text.c_str());
    return true;
}

bool VantrelGUI::checkDaylightInputs(double* temperature, FXuint keyOrZero) {
    *temperature = fieldValue(daylightTempField->getText().text(), 0.0);
    if ((keyOrZero & 0xFFFF) == 65) return false;
    CalcMessage message;
    if (!checkDaylightTemperature(temperature, &message)) return false;
    daylightTempField->setText(FXString().format("%.0lf", *temperature));
    daylightTempField->setBackColor(argbColor(ERROR_CELL_COLOR));
    UserDialogs::error(this, message.title.c_str(), "%s", message.text.c_str());
    return true;
}

bool VantrelGUI::calculateReference() {
    double kelvin = 0;
    const bool blackBody = analysisType == 2;
    if (blackBody ? checkBlackBodyInputs(&kelvin, 0) : checkDaylightInputs(&kelvin, 0)) {
        clearOutput();
        return false;
    }
    const int numPoints =
        irChk->getCheck() ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    std::vector<double> spectrum(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    if (blackBody) {
        blackBodySpectrum(kelvin, numPoints, spectrum.data());
        writeSpectrumColumn(spectrum.data(), numPoints);
    } else {
        daylightSpectrum(model->calculator().firstEngine(), kelvin, numPoints, spectrum.data());
        // Daylight is written over the visible range only, deliberately narrower than the
        // black body; the rest of the column keeps what it had.
        writeSpectrumColumn(spectrum.data(), Vantrel::NUM_GRID_POINTS);
    }
    mixedSpectrum = readSpectrumColumn(numPoints);
    lastOutcome = model->calculateSpectrum(mixedSpectrum.data(), mixSettings(), fieldFormat());
    return outcomeShown();
}

void VantrelGUI::showMixError(const MixRows& rows) {
    if (rows.errorRow >= 0) {
        for (int c = 0; c < 6; ++c) {
            TextField_zwk7* field = ledRows[rows.errorRow].fields[c];
            const int bits[6] = {ROW_LDOM,      ROW_LUMENS,     ROW_WATTS,
                                 ROW_BIN_WIDTH, ROW_BIN_OUTPUT, ROW_LPW};
            if (rows.errorFields & bits[c]) field->setBackColor(argbColor(ERROR_CELL_COLOR));
        }
    }
    for (const CalcMessage& message : rows.messages) {
        UserDialogs::error(this, message.title.c_str(), "%s", message.text.c_str());
    }
}

bool VantrelGUI::calculateMix(bool fromButton) {
    std::vector<ledInputDataStruct> rows(getNumSpectra());
    for (int i = 0; i < getNumSpectra(); ++i) rows[i] = readLedRow(i);
    std::vector<bool> filtersChecked(filterChecks.size());
    for (std::size_t f = 0; f < filterChecks.size(); ++f) {
        filtersChecked[f] = filterChecks[f]->getCheck() == TRUE;
    }
    double filters[Vantrel::NUM_GRID_POINTS_IR];
    filterProduct(filterSpectra, filtersChecked, filters);
    lastOutcome = model->calculateMix(rows, mixSettings(fromButton), filters, fieldFormat());
    // "Use original" may have filled blank rows; the rows show what was used.
    for (int i = 0; i < getNumSpectra(); ++i) {
        if (rows[i].checked) writeLedRow(i, rows[i]);
    }
    if (!lastOutcome.ok) {
        showMixError(lastOutcome.rows);
        clearOutput();
        return false;
    }
    const int numPoints =
        irChk->getCheck() ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    for (int i = 0; i < displayTable->getNumRows(); ++i) displayTable->setItemText(i, 1, "");
    mixedSpectrum = lastOutcome.mixedSpectrum;
    writeSpectrumColumn(mixedSpectrum.data(), numPoints);
    points = lastOutcome.points;
    return true;
}

bool VantrelGUI::calculateFilterColorInput() {
    Table_zwk7* table = inputTables[spectrumRange];
    const DirectInputOptions options = directInputOptions();
    const InputRows rows = readInputRows(table);
    DirectInputResult input;
    if (!interpolateInputTable(table, rows, options, &input)) return false;
    // An import warns once about the units of all its files instead.
    if (input.outOfRange && !importing) showInputMessage(table, colorOutOfRangeWarning(options));
    mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    for (std::size_t i = 0; i < input.column.size() && i < mixedSpectrum.size(); ++i) {
        mixedSpectrum[i] = fieldValue(input.column[i]);
    }
    // The grid's values stand in the display table, where saving a filter or colour reads them.
    const int n = static_cast<int>(input.column.size());
    if (displayTable->getNumRows() != n) fillWavelengthColumns();
    for (int i = 0; i < n && i < displayTable->getNumRows(); ++i)
        displayTable->setItemText(i, 1, input.column[i].c_str());
    plotWavelengths.resize(Vantrel::NUM_GRID_POINTS_IR);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS_IR; ++i) plotWavelengths[i] = 360.0 + 2.0 * i;
    resultsValid =
        std::any_of(mixedSpectrum.begin(), mixedSpectrum.end(), [](double v) { return v > 1e-60; });
    return false;  // plotted only: no result fields
}

bool VantrelGUI::plotFilterType() {
    int first = -1;
    for (std::size_t f = 0; f < filterChecks.size() && first < 0; ++f) {
        if (filterChecks[f]->getCheck()) first = static_cast<int>(f);
    }
    if (first < 0) {
        UserDialogs::error(this, "Plot error", "You must check at least 1 filter");
        return false;
    }
    const double scale = settings.getInt("colorsFiltersUnits") == 1 ? 100.0 : 1.0;
    mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    plotWavelengths.resize(Vantrel::NUM_GRID_POINTS_IR);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS_IR; ++i) {
        mixedSpectrum[i] = filterSpectra[first].spectrum[i] * scale;
        // A value in metres added to one in nanometres: deliberate, the plot depends on it.
        plotWavelengths[i] = 3.9240000000000005e-07 + i * 2;
    }
    resultsValid = true;
    return true;
}

bool VantrelGUI::plotColorType() {
    int checked = 0, index = -1;
    for (std::size_t c = 0; c < colorChecks.size(); ++c) {
        if (colorChecks[c]->getCheck()) {
            ++checked;
            index = static_cast<int>(c);
        }
    }
    if (checked != 1) {
        UserDialogs::error(
            this, "Color error", "%s",
            checked == 0 ? "You must check a color to plot" : "You can only check 1 color to plot");
        return false;
    }
    if (colorSpectra[index].isPrivate) {
        UserDialogs::error(this, "Color error",
                           "This data is marked as \"Private\" and cannot be plotted");
        return false;
    }
    const double scale = settings.getInt("colorsFiltersUnits") == 1 ? 100.0 : 1.0;
    mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS_IR; ++i) {
        mixedSpectrum[i] = colorSpectra[index].spectrum[i] * scale;
    }
    writeSpectrumColumn(mixedSpectrum.data(), Vantrel::NUM_GRID_POINTS);
    mainCurveName = colorSpectra[index].name;
    resultsValid = true;
    return true;
}

// --- Results -----------------------------------------------------------------------------------

void VantrelGUI::showOutcome() {
    // A change of format (decimals, gamut plane) rewrites the same results.
    lastOutcome.fields = outputFieldValues(lastOutcome.results, lastOutcome.mix, fieldFormat());
    const std::vector<ResultField>& fields = lastOutcome.fields;
    for (int index = 0; index < NUM_OUTPUT_FIELDS; ++index) {
        outputFields[index].value = fields[index].text;
        if (resultFields[index] != nullptr)
            resultFields[index]->setText(fields[index].text.c_str());
    }
    const char* tm30Tip = lastOutcome.results.tm30Error
                              ? "TM-30-18 is only defined for Duv < +/- 0.1."
                              : "IES TM-30-18 color fidelity and gamut.";
    for (int index = 65; index <= 67; ++index) resultFields[index]->setTipText(tm30Tip);
    FXWindow* maxDeltaEBox = resultField("max dE*")->getParent();
    if (lastOutcome.mix.binningOn) {
        maxDeltaEBox->show();
    } else {
        maxDeltaEBox->hide();
    }
    photometry =
        photometryStrings(lastOutcome.results, fields, settings.getBool("replaceDecimalWithComma"));
    if (lastOutcome.mix.bluePeakRemoved) {
        savedMainCurveName = mainCurveName;
        mainCurveName = BLUE_PEAK_CURVE_NAME;
    }
    plotWavelengths.resize(Vantrel::NUM_GRID_POINTS_IR);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS_IR; ++i) plotWavelengths[i] = 360.0 + 2.0 * i;
    resultsValid = true;
    repaintPlots();
}

void VantrelGUI::clearOutput(bool andPlots) {
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        outputFields[i].value.clear();
        if (resultFields[i] != nullptr) resultFields[i]->setText("");
    }
    if (andPlots) {
        resultsValid = false;
        matchingValid = false;
        matchingSpectrum.clear();
        points.clear();
        repaintPlots();
    }
}

FXString VantrelGUI::getResultText(const std::string& name) const {
    return getResultText(outputFieldIndex(name));
}

FXString VantrelGUI::getResultTip(const std::string& name) const {
    const int index = outputFieldIndex(name);
    return index >= 0 && resultFields[index] != nullptr ? resultFields[index]->getTipText()
                                                        : FXString();
}

FXString VantrelGUI::getResultText(int index) const {
    if (index < 0 || index >= NUM_OUTPUT_FIELDS) return FXString();
    if (resultFields[index] != nullptr) return resultFields[index]->getText();
    return FXString(outputFields[index].value.c_str());
}

long VantrelGUI::onCmdCalculateIndividual(FXObject*, FXSelector, void*) {
    std::vector<int> remembered;
    for (int i = 0; i < getNumSpectra(); ++i) {
        if (ledRows[i].check->getCheck()) remembered.push_back(i);
        ledRows[i].check->setCheck(false);
    }
    if (remembered.empty()) return 1;
    photometryState.photometryText.clear();
    individualMode = true;
    onCmdClearSavedXYArray(nullptr, 0, nullptr);
    for (int i : remembered) {
        ledRows[i].check->setCheck(true);
        onCmdCalculate(nullptr, 0, nullptr);
        onCmdAddXYtoArray(nullptr, 0, nullptr);
        ledRows[i].check->setCheck(false);
    }
    for (int i : remembered) ledRows[i].check->setCheck(true);
    individualMode = false;
    setSpectraTabText();
    return 1;
}
