// The checks of adding a spectrum, filter or colour to a user library, and the building of the
// new entry. The window reads its fields and table into these arguments and shows the boxes
// that come back; the command-line tool prints their texts. Check functions return true on
// error.
#ifndef LUMIVAR_CORE_USERLIBRARYCHECKS_H
#define LUMIVAR_CORE_USERLIBRARYCHECKS_H

#include <string>
#include <vector>

#include "LedTypes.h"

// How a box is shown.
enum class LibraryBox {
    ERROR,     // an error box with OK; the command stops
    WARNING,   // an information box with OK; the command goes on
    QUESTION,  // a Yes/No box; the command goes on either way, "Yes" changes an option
};

// Which message it is, so that a caller can act on the answer or map it to an exit status.
enum class LibraryMessageId {
    NONE,
    LIBRARY_FULL,            // the limit of rows or entries is reached
    LPW_OUT_OF_RANGE,        // "The LPW value is out of range (0.1-300)"
    NAME_EMPTY,              // "You must enter a name"
    NAME_ILLEGAL,            // a character outside 32 to 126
    NEGATIVE_VALUE,          // negatives were set to 0
    FILTER_ABOVE_SCALE,      // "Yes" checks "Allow values greater than 1 or 100%"
    COLOR_ABOVE_SCALE,       // "Yes" turns the warning off for the run
    NO_INTENSITY,            // no value above MIN_ENTRY_INTENSITY
    REPLACEMENT_UNREADABLE,  // the new library could not be read; the old one is back
    BACKUP_NOT_WRITTEN,      // no backup could be made; nothing was replaced
};

struct LibraryMessage {
    LibraryMessageId id = LibraryMessageId::NONE;
    LibraryBox box = LibraryBox::ERROR;
    std::string title;
    std::string text;
};

// Rows of the spectra list (standard and user spectra) at which adding stops.
constexpr int MAX_SPECTRA_ROWS = 507;
// Entries of a filter or colour library at which adding stops.
constexpr int MAX_FILTER_COLOR_ENTRIES = 258063;
// LPW values accepted; an empty field reads 0 and passes.
constexpr double MIN_ENTRY_LPW = -1e-9;
constexpr double MAX_ENTRY_LPW = 300.0;
// Longest name of an entry (the record holds it with its terminating NUL).
constexpr int MAX_ENTRY_NAME_LENGTH = 100;
// A negative value of at least this size is reported; any negative becomes 0.
constexpr double NEGATIVE_VALUE_LIMIT = -1e-12;
// An entry needs a value above this.
constexpr double MIN_ENTRY_INTENSITY = 1e-60;

// numRows: the spectra rows (spectra) or the library's entries (filters, colours) now.
bool checkLibraryLimit(int libraryType, int numRows, LibraryMessage* message);
// The entry's LPW, as the field reads it (empty: 0).
bool checkEntryLPW(double lpw, LibraryMessage* message);
// The name after trimming: not empty, nothing outside the characters 32 to 126.
bool checkEntryName(int libraryType, const std::string& name, LibraryMessage* message);

// How the table's values are taken.
struct EntryValueOptions {
    int libraryType = 1;           // 0 filters, 1 spectra, 2 colours
    double scale = 1.0;            // 100 when filters and colours are entered in percent
    bool allowAboveScale = false;  // "Allow values greater than 1 or 100%" (filters)
    bool colorWarningOff = false;  // the colour warning was answered "Yes" in this run
    bool photons = false;          // spectra typed in photons/(s-nm), turned into W/nm
};
struct EntryValues {
    // Vantrel::NUM_GRID_POINTS_IR values divided by the scale; points past the table are 0.
    std::vector<double> values;
    // In the order shown: "Negative value error" once, then the data warning once.
    std::vector<LibraryMessage> messages;
    bool negativeFound = false;    // a value below NEGATIVE_VALUE_LIMIT
    bool aboveScaleFound = false;  // a filter or colour value above the scale was warned of
};
// Reads the value column of the table, cell i at 360 + 2 i nm; a cell reads as a table cell
// does ("," for ".", as far as it is a number, empty or text 0).
EntryValues readEntryValues(const std::vector<std::string>& cells,
                            const EntryValueOptions& options);
// No value above MIN_ENTRY_INTENSITY: the "Spectrum error" box.
bool checkEntryIntensities(const std::vector<double>& values, LibraryMessage* message);

// The record of a new entry. Spectra take lumens and watts from the caller's calculation and
// get hasIRpast830 when more than 0.5% of wattsVisIR lies past 830 nm; filters and colours hold
// 0 there. The name is trimmed and cut to fit the record.
ledTypeStruct makeUserLibraryEntry(int libraryType, const std::string& name, double lpw,
                                   const std::vector<double>& values, double lumens,
                                   double wattsVis, double wattsVisIR, bool isPrivate = false);

#endif  // LUMIVAR_CORE_USERLIBRARYCHECKS_H
