// The three user libraries ("userSpectra.spec", "userFilters.fils", "userColors.cols"): one
// reader and writer for all of them, in the current format and the old one.
//
// Current format (version 1.15), one line each:
//   1.15  // version
//   then per entry
//   name            colours: "P name" for a private colour, "E name" otherwise
//   data line       spectra only: lumens wattsVis wattsVisIR lpw scaling  // comment
//   spectrum line   up to 346 values "%.6le" separated by blanks, 360 nm to 1050 nm in 2 nm
// Libraries up to version 1.14 have four values on the data line (no wattsVisIR). Filters of
// versions above 1.05 and below 1.105 start their name with a mark; colours above 1.05 carry
// the P/E mark.
//
// Old format (no "version" on line 1): per entry a name line; for spectra a lumens line, a watts
// line, an optional line with "lpw", an optional line with "scaling"; a count line; then the
// values one per line (the first 236 are kept). A line "EOF" or "eof" ends a section.
//
// Every number is read and written in the C locale. Reading never trusts the file: a line
// longer than USER_LIBRARY_LINE_LENGTH, a NUL byte, a number that is not one, a version newer
// than this program's, or an entry cut short sets `error` with the line and the reason; the
// entries read completely before it are kept.
#ifndef LUMIVAR_CORE_READWRITEUSERSPECTRA_H
#define LUMIVAR_CORE_READWRITEUSERSPECTRA_H

#include <cstddef>
#include <string>

#include "LedTypes.h"
#include "Vantrel.h"

// libraryType of the libraries.
enum UserLibraryType { LIBRARY_FILTERS = 0, LIBRARY_SPECTRA = 1, LIBRARY_COLORS = 2 };

// The version this program writes.
constexpr double USER_LIBRARY_VERSION = 1.15;
constexpr const char* USER_LIBRARY_VERSION_TEXT = "1.15";
// Longest line of a library: 346 values of 13 characters and a blank each, with some room.
constexpr int USER_LIBRARY_LINE_LENGTH = 4854;
// Most bytes read of a library; about 50,000 entries at full precision. A larger file is read
// up to the limit and reported as an error.
constexpr std::size_t USER_LIBRARY_MAX_BYTES = std::size_t{256} << 20;
// Points of an old-format entry: it predates the infrared range.
constexpr int USER_LIBRARY_OLD_FORMAT_POINTS = Vantrel::NUM_GRID_POINTS;

// The additive offsets of private colours, one per grid point (EncryptSpecData.cpp).
extern const double encryptSpec[Vantrel::NUM_GRID_POINTS_IR];

class ReadWriteUserSpectra {
  public:
    // Written after the lpw value in the comment of a spectra data line.
    static constexpr const char* lpwStr = "lpw";

    ReadWriteUserSpectra() = default;

    // Reads the library at file. With readData false only the entries are counted and `out` is
    // not touched; otherwise the entries go to out[firstIndex], out[firstIndex + 1], ...; at
    // most maxEntries of them when maxEntries is not negative (the window's rows are limited).
    // newFormat false reads the old format; true reads the current format, or the old one when
    // line 1 holds no "version". A missing file is an error.
    ReadWriteUserSpectra(bool newFormat, bool readData, int firstIndex, ledTypeStruct* out,
                         std::string file, int libraryType, int maxEntries = -1);

    // Writes in[indices[0]], ..., in[indices[count - 1]] (indices null: the first count
    // entries) to file, atomically. mode "w" replaces the library; mode "a" keeps the entries
    // that stand in it (of any format and version) and adds these after them, refusing when
    // those can't be read whole. tabbed writes the export table instead ("a" then acts as
    // "w"). A count of 0 with "w" removes the file; with "a" it leaves it alone.
    ReadWriteUserSpectra(int count, const int* indices, const ledTypeStruct* in, const char* mode,
                         std::string file, int libraryType, bool tabbed);

    // Reads library text as the file reader does, without a file (for tests and fuzzing).
    static ReadWriteUserSpectra fromText(const std::string& text, bool newFormat, bool readData,
                                         int firstIndex, ledTypeStruct* out, int libraryType,
                                         int maxEntries = -1);
    // The current-format text of entries in[0] to in[count - 1].
    static std::string formatLibrary(int count, const int* indices, const ledTypeStruct* in,
                                     int libraryType);
    // The tab-separated export table of the entries.
    static std::string formatTabbed(int count, const int* indices, const ledTypeStruct* in,
                                    int libraryType);

    // The number of entries counted, read or written; *error (when not null) gets `error`.
    int getData(bool* error) const;
    // The version of the library read: 0.0 for the old format and when in error.
    double getVersionNumber() const { return error ? 0.0 : versionNumber; }
    int getNumUserData() const { return numUserData; }
    bool getError() const { return error; }
    bool getIsPrivateFound() const { return isPrivateFound; }
    int getLibraryType() const { return libraryType; }
    const std::string& getFileName() const { return fileName; }
    // Why reading or writing failed ("" without error), and the 1-based line (0: the file).
    const std::string& getErrorMessage() const { return errorMessage; }
    int getErrorLine() const { return errorLine; }

    // True when the file is in the current format: its third line holds at least two "."
    // (a data or spectrum line; the old format has one number per line there), or it is a
    // library with a version line and no entries. False for a missing file.
    static bool getIsNewFormat(const std::string& file);

  private:
    friend class UserLibraryParser;
    void fail(int line, const std::string& reason);
    void read(const std::string& text, bool newFormat, bool readData, int firstIndex,
              ledTypeStruct* out, int maxEntries);
    void write(int count, const int* indices, const ledTypeStruct* in, const std::string& mode,
               bool tabbed);

    bool error = false;
    int numUserData = 0;
    int libraryType = LIBRARY_SPECTRA;  // 0 filters, 1 spectra, 2 colours
    double versionNumber = 0.0;
    bool isPrivateFound = false;
    std::string fileName;
    std::string errorMessage;
    int errorLine = 0;
};

#endif  // LUMIVAR_CORE_READWRITEUSERSPECTRA_H
