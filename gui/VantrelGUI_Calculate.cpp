// Calculate: the direct-input path from an input table to the result fields.
#include <cmath>

#include "AppConstants.h"
#include "ArgbColor.h"
#include "CellColors.h"
#include "Fox_Fixes/Table_zwk7.h"
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
    options.unitsFactor = getSpectrumTypeInputUnitsFactor();
    return options;
}

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

long VantrelGUI::onCmdCalculate(FXObject*, FXSelector, void*) {
    clearOutput();
    if (analysisType == 1) calculateDirectInput();
    return 1;
}

bool VantrelGUI::calculateDirectInput() {
    Table_zwk7* table = inputTables[spectrumRange];
    clearCellBackColors(table);
    const DirectInputOptions options = directInputOptions();
    const InputRows rows = readInputRows(table);
    const DirectInputResult input = interpolateSpectrum(rows, options);
    if (input.error) {
        showInputMessage(table, input.message);
        return false;
    }
    const int n = static_cast<int>(input.column.size());
    if (displayTable->getNumRows() != n) fillWavelengthColumns();
    for (int i = 0; i < n; ++i) displayTable->setItemText(i, 1, input.column[i].c_str());

    InputMessage message;
    if (checkForEmptyCells(rows, options, &message)) {
        showInputMessage(table, message);
        return false;
    }
    if (input.outOfRange) {
        showInputMessage(table, colorOutOfRangeWarning(options));
        return false;
    }

    // What the display table shows, at its printed digits, is what is measured.
    std::vector<std::string> column(n);
    for (int i = 0; i < n; ++i) column[i] = displayTable->getItemText(i, 1).text();
    mixedSpectrum = spectrumFromColumn(column, options.photons);
    mixedSpectrum.resize(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    lastResults = calculator.calculate(mixedSpectrum.data());
    resultsValid = true;
    showResults(lastResults);
    return true;
}

void VantrelGUI::showResults(const SpectrumResults& results) {
    FieldFormat format;
    format.numDecimals = settings.getInt("numDecimalsFor_xyDuv_etc") == 6 ? 6 : 4;
    // Power in the chosen units (milliwatts by default).
    format.wattsFactor = settings.getInt("inputWattsUnits") == 0 ? 1000.0 : 1.0;
    const std::vector<ResultField> fields = outputFieldValues(results, MixResults(), format);
    for (int index = 0; index < NUM_OUTPUT_FIELDS; ++index) {
        outputFields[index].value = fields[index].text;
        if (resultFields[index] != nullptr)
            resultFields[index]->setText(fields[index].text.c_str());
    }
}

void VantrelGUI::clearOutput() {
    resultsValid = false;
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        outputFields[i].value.clear();
        if (resultFields[i] != nullptr) resultFields[i]->setText("");
    }
}

FXString VantrelGUI::getResultText(const std::string& name) const {
    const int index = outputFieldIndex(name);
    if (index < 0) return FXString();
    if (resultFields[index] != nullptr) return resultFields[index]->getText();
    return FXString(outputFields[index].value.c_str());
}
