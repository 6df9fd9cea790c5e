// A spectrum typed or pasted into one of the input tables, brought to the 2 nm grid as the
// display table shows it. The window reads its table into rows of text, calls
// interpolateSpectrum and checkForEmptyCells, and shows the message or the column.
#ifndef LUMIVAR_CORE_DIRECTINPUT_H
#define LUMIVAR_CORE_DIRECTINPUT_H

#include <array>
#include <string>
#include <vector>

// The six input tables, by the spectrumRange that shows each.
enum SpectrumRange {
    RANGE_360_830_2NM = 0,
    RANGE_380_830_2NM = 1,
    RANGE_360_830_1NM = 2,
    RANGE_360_830_5NM = 3,
    RANGE_380_830_5NM = 4,
    RANGE_FREE_FORMAT = 5,
    NUM_SPECTRUM_RANGES = 6
};

// Fixed wavelength grid of an input table.
struct InputTableGrid {
    int rows;           // 0 for the free-format table (it grows)
    double firstNm;     // first wavelength
    double stepNm;      // step
    const char* label;  // menu label of the range
};
// The grid of a range; the 360 nm, 2 nm table has NUM_GRID_POINTS_IR rows with IR.
InputTableGrid inputTableGrid(int spectrumRange, bool includeIR);

// What a direct-input run needs to know besides the cells.
struct DirectInputOptions {
    int analysisType = 1;  // 1 spectrum, 4 filter, 7 colour
    int spectrumRange = RANGE_360_830_2NM;
    bool includeIR = false;      // "Include IR (830 - 1050 nm)": 346 points, else 236
    bool percentUnits = false;   // filters and colours in percent (0 to 100)
    bool allowAboveOne = false;  // "Allow values greater than 1 or 100%" (filters)
    bool zeroEmptyCells = true;  // "Set empty cells in spectrum to 0"
    bool photons = false;        // values in photons/(s-nm): no units factor
    double unitsFactor = 1.0;    // getSpectrumTypeInputUnitsFactor
};

// A message box the run ends with: a title and one sentence, and the cells to turn red.
struct InputMessage {
    std::string title;
    std::string text;
    int badRow = -1;  // cell (badRow, badCol) turns red; -1 for none
    int badCol = -1;
    bool markFirstCells = false;  // the first two cells turn red
    bool warning = false;         // a warning rather than an error box
};

struct DirectInputResult {
    bool error = false;  // true when the run ends with `message`
    InputMessage message;
    std::vector<std::string> column;  // "%.3le" texts of the display table, 236 or 346 rows
    bool outOfRange = false;          // a filter or colour value was forced into range
};

// Cells of an input table: column 0 wavelength, column 1 value; empty text is an empty cell.
using InputRows = std::vector<std::array<std::string, 2>>;

// Brings the filled rows onto the grid. A run that ends has error set and the box to show; the
// display column is then empty. A value above the allowed maximum of a filter or colour is
// forced into range (outOfRange) and the column is still filled.
DirectInputResult interpolateSpectrum(const InputRows& rows, const DirectInputOptions& options);

// The check that follows interpolateSpectrum on the same table: empty or near-zero cells.
// True on error, with the box in *message.
bool checkForEmptyCells(const InputRows& rows, const DirectInputOptions& options,
                        InputMessage* message);

// The warning after a filter or colour was forced into range.
InputMessage colorOutOfRangeWarning(const DirectInputOptions& options);

// Reads the display column back as the engine gets it: an empty cell is 0, photons become W/nm.
std::vector<double> spectrumFromColumn(const std::vector<std::string>& column, bool photons);

#endif  // LUMIVAR_CORE_DIRECTINPUT_H
