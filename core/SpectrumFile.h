// Two-column spectrum text (wavelength in nm, value) as a user saves it from a spreadsheet, a
// spectrometer or a text editor, and its conversion onto the engine's grid.
//
// Accepted layout:
//   - fields separated by blanks, tabs, commas or semicolons; on a line that uses ";" a comma
//     inside a number is a decimal comma ("360;1,5" reads 360 and 1.5);
//   - "#" comment lines (after leading blanks) and blank lines are skipped anywhere;
//   - at most one header line: the first line that is not a comment, when its first field is not
//     a number ("nm;W/nm", "wavelength value"); later text is an error;
//   - exactly two columns; trailing separators (spreadsheets pad rows) are ignored, but a third
//     non-empty field is an error rather than a guess at which column holds the value;
//   - Windows line ends.
// Negative values are set to 0, as the main window does when it reads a table; the first line
// that had one is kept so that a caller can warn.
#ifndef LUMIVAR_CORE_SPECTRUMFILE_H
#define LUMIVAR_CORE_SPECTRUMFILE_H

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

// Longest line read; a longer one is an error, so a large file of garbage fails at once.
constexpr std::size_t SPECTRUM_MAX_LINE_LENGTH = 4096;
// Most data rows read; this bounds the memory a file can take.
constexpr std::size_t SPECTRUM_MAX_ROWS = 1000000;

// Window texts, kept word for word.
constexpr const char* SPECTRUM_NO_DATA_MESSAGE = "You must enter spectral data.";
constexpr const char* SPECTRUM_OUT_OF_RANGE_MESSAGE =
    "You must have at least 2 data points between between 360 and 830 nm (0).";
constexpr const char* SPECTRUM_RESAMPLING_MESSAGE =
    "You must have at least 2 data points between 360 and 830 nm, some can be 0. (resampling "
    "error)";

// A spectrum as read: strictly increasing wavelengths (nm) and values of at least 0.
struct SpectrumData {
    std::vector<double> wavelengths;
    std::vector<double> values;
};

struct SpectrumReadResult {
    bool ok = false;
    std::string error;          // empty when ok
    int errorLine = 0;          // 1-based line of the error, 0 when it concerns the whole input
    int firstNegativeLine = 0;  // first line whose value was negative and set to 0, or 0
    int headerLine = 0;         // line taken as the header, or 0
    SpectrumData data;          // the rows read (empty unless ok)
};

// Reads the file at path; an unreadable file is an error of line 0.
SpectrumReadResult readSpectrumFile(const std::string& path);
// Reads from a stream (standard input) up to its end or the first error.
SpectrumReadResult readSpectrum(std::istream& in);

// Puts data onto the engine grid (Vantrel::NUM_GRID_POINTS values, 360 to 830 nm in 2 nm) the
// way the main window's direct input does: rows that are that grid are taken as they are, as the
// 2 nm table takes them; any other grid is resampled, as the free-format table is. False with
// *error set (when error is not null) if the data cannot be resampled.
bool toGrid(const SpectrumData& data, double* grid, std::string* error);

#endif  // LUMIVAR_CORE_SPECTRUMFILE_H
