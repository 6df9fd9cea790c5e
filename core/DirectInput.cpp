#include "DirectInput.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "Grid.h"
#include "NumberText.h"
#include "TextToNumber.h"
#include "ValueFormat.h"
#include "Vantrel.h"

namespace {

// A cell below this counts as empty when the table is checked for gaps.
constexpr double LOW_VALUE = 1e-60;

const InputTableGrid TABLE_GRIDS[NUM_SPECTRUM_RANGES] = {
    {Vantrel::NUM_GRID_POINTS, 360.0, 2.0, "Spectrum from 360 nm to 830nm (2 nm steps)"},
    {226, 380.0, 2.0, "Spectrum from 380 nm to 830nm (2 nm steps)"},
    {471, 360.0, 1.0, "Spectrum from 360 nm to 830nm (1 nm steps)"},
    {95, 360.0, 5.0, "Spectrum from 360 nm to 830nm (5 nm steps)"},
    {91, 380.0, 5.0, "Spectrum from 380 nm to 830nm (5 nm steps)"},
    {0, 0.0, 0.0, "Free format spectrum"},
};

bool isFilled(const std::string& text) { return !trimmedText(text).empty(); }

// "spectral", "transmission" or "reflectance" data, by what the table holds.
const char* dataWord(int analysisType) {
    if (analysisType == 4) return "transmission";
    if (analysisType == 7) return "reflectance";
    return "spectral";
}

bool isFilterOrColor(int analysisType) { return analysisType == 4 || analysisType == 7; }

DirectInputResult failure(const char* title, std::string text, int badRow = -1, int badCol = -1) {
    DirectInputResult result;
    result.error = true;
    result.message.title = title;
    result.message.text = std::move(text);
    result.message.badRow = badRow;
    result.message.badCol = badCol;
    return result;
}

// Filled rows: both cells hold text. Finds the first and last, and the first gap after the first.
struct FilledRows {
    int first = -1, last = -1, firstGap = -1;
};

FilledRows scanRows(const InputRows& rows) {
    FilledRows found;
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        const bool filled = isFilled(rows[r][0]) && isFilled(rows[r][1]);
        if (filled) {
            if (found.first < 0) found.first = r;
            found.last = r;
        } else if (found.first >= 0 && found.firstGap < 0) {
            found.firstGap = r;
        }
    }
    return found;
}

}  // namespace

InputTableGrid inputTableGrid(int spectrumRange, bool includeIR) {
    if (spectrumRange < 0 || spectrumRange >= NUM_SPECTRUM_RANGES) spectrumRange = 0;
    InputTableGrid grid = TABLE_GRIDS[spectrumRange];
    if (spectrumRange == RANGE_360_830_2NM && includeIR) grid.rows = Vantrel::NUM_GRID_POINTS_IR;
    return grid;
}

DirectInputResult interpolateSpectrum(const InputRows& rows, const DirectInputOptions& options) {
    const int n = options.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    const double lastNm = grid::nm(n - 1);
    const bool clampToMax =
        options.analysisType == 1 || (options.analysisType == 4 && options.allowAboveOne);
    const double maxAllowed =
        isFilterOrColor(options.analysisType) && options.percentUnits ? 100.0 : 1.0;

    const FilledRows filled = scanRows(rows);
    if (filled.first < 0) {
        return failure("Data error", ValueFormat::format("You must enter %s data.",
                                                         dataWord(options.analysisType)));
    }
    if (filled.firstGap >= 0 && filled.firstGap < filled.last) {
        return failure("Data error", "You have too many empty cells.", filled.firstGap, 1);
    }

    // Every filled cell must be a number, and the wavelengths must rise.
    const TextToNumber reader;
    std::vector<double> wavelengths, values;
    for (int r = filled.first; r <= filled.last; ++r) {
        for (int c = 0; c < 2; ++c) {
            if (!isValidDoubleText(rows[r][c])) {
                return failure("Data error",
                               ValueFormat::format("Some of your data is out of range, check the "
                                                   "data in row #%d.",
                                                   r + 1),
                               r, c);
            }
        }
        const double nm = reader.getValue(rows[r][0]);
        const double value = reader.getValue(rows[r][1]);
        if (!std::isfinite(nm) || !std::isfinite(value) ||
            (!wavelengths.empty() && nm <= wavelengths.back())) {
            return failure("Data error",
                           ValueFormat::format("Some of your data is out of range, check the data "
                                               "in row #%d.",
                                               r + 1),
                           r, std::isfinite(value) ? 0 : 1);
        }
        wavelengths.push_back(nm);
        values.push_back(value < 0.0 ? 0.0 : value);
    }

    if (wavelengths.front() > grid::metres(n) * 1e9 || wavelengths.back() < grid::FIRST_NM) {
        return failure("Data error",
                       ValueFormat::format("You must have at least 2 data points between between "
                                           "%.0lf and %.0lf nm (0).",
                                           grid::FIRST_NM, lastNm));
    }

    std::vector<double> grid(n, 0.0);
    if (options.spectrumRange == RANGE_360_830_2NM || options.spectrumRange == RANGE_380_830_2NM) {
        // The 2 nm tables already sit on the grid: their values are copied by row, the 380 nm
        // table from the eleventh grid point on.
        const int offset = options.spectrumRange == RANGE_380_830_2NM ? 10 : 0;
        for (int r = filled.first; r <= filled.last; ++r) {
            const int i = r + offset;
            if (i >= 0 && i < n) grid[i] = values[r - filled.first];
        }
    } else if (!Vantrel::resampleSpectrum(static_cast<int>(wavelengths.size()), wavelengths.data(),
                                          values.data(), grid::FIRST_NM, lastNm, grid::STEP_NM,
                                          nullptr, grid.data())) {
        return failure("Unknown data error",
                       ValueFormat::format("You must have at least 2 data points between %.0lf and "
                                           "%.0lf nm, some can be 0. (resampling error)",
                                           grid::FIRST_NM, lastNm));
    }

    DirectInputResult result;
    result.column.reserve(n);
    for (int i = 0; i < n; ++i) {
        double v = grid[i];
        if (!options.photons) v *= options.unitsFactor;
        if (!clampToMax && v > maxAllowed) {
            v = maxAllowed;
            result.outOfRange = true;
        }
        result.column.push_back(ValueFormat::format("%.*le", 3, v));
        // Values so large that resampling, the units or the printed digits overflow are no
        // spectrum: the row of the largest value is named, as for any number out of range.
        if (!std::isfinite(std::strtod(result.column.back().c_str(), nullptr))) {
            const int largest =
                static_cast<int>(std::max_element(values.begin(), values.end()) - values.begin());
            return failure("Data error",
                           ValueFormat::format("Some of your data is out of range, check the data "
                                               "in row #%d.",
                                               filled.first + largest + 1),
                           filled.first + largest, 1);
        }
    }
    return result;
}

bool checkForEmptyCells(const InputRows& rows, const DirectInputOptions& options,
                        InputMessage* message) {
    int count = 0;
    for (const auto& row : rows) {
        if (isFilled(row[0])) ++count;
    }
    const TextToNumber reader;
    int low = 0;
    for (int r = 0; r < count && r < static_cast<int>(rows.size()); ++r) {
        if (!isFilled(rows[r][1]) || reader.getValue(rows[r][1]) < LOW_VALUE) ++low;
    }
    const bool someNonZero = low < count;
    if ((low == 0 || options.zeroEmptyCells) && someNonZero) return false;

    message->title = "Data error";
    message->markFirstCells = true;
    message->badRow = message->badCol = -1;
    message->warning = false;
    if (someNonZero) {
        message->text =
            "Empty cells are not allowed\nYou can check the \"Data->Set empty cells in spectrum "
            "to 0\" option to allow them";
    } else {
        message->text = ValueFormat::format(
            "You must enter %s data.\nIf you've enterd data too many values are below 0.",
            dataWord(options.analysisType));
    }
    return true;
}

InputMessage colorOutOfRangeWarning(const DirectInputOptions& options) {
    InputMessage message;
    message.title = "Color data error";
    message.warning = true;
    message.text = ValueFormat::format(
        "You have some values out of the allowed range of 0 - %d.\nThese will be forced into the "
        "allowed range.",
        options.percentUnits ? 100 : 1);
    return message;
}

std::vector<double> spectrumFromColumn(const std::vector<std::string>& column, bool photons) {
    const TextToNumber reader;
    std::vector<double> spectrum(column.size(), 0.0);
    for (std::size_t i = 0; i < column.size(); ++i) {
        if (!isFilled(column[i])) continue;
        spectrum[i] = reader.getValue(column[i]);
        if (photons) {
            const double nm = grid::metres(i) * 1e9;
            spectrum[i] = Vantrel::convert_to_Watts_nm_from_Photons_Sec(spectrum[i], nm);
        }
    }
    return spectrum;
}
