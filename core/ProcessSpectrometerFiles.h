// Readers of the files that spectrometer programs and other colour tools write, for importing
// measured spectra: SpecWin and Mole ".isd", SpectraSuite text, IES TM-27 ".spdx", CGATS ".sp"
// and plain columns of numbers, one or several spectra per file.
//
// The whole file is read into memory (at most PROCESS_SPECTROMETER_MAX_FILE_BYTES) and decoded
// from its byte order mark. Lines are compared trimmed, lower-cased and with runs of blanks
// reduced; a line of 2 or fewer characters, or of blanks only, ends the data. At most
// maxLinesBeforeData lines may come before the first data row.
//
// Rows (all but CGATS): tabs become blanks. In a ".csv" file (commaIsSeparator) ";" separates
// the fields, or "," when the line has no ";"; with ";" a comma is a decimal comma ("1,5" reads
// 1.5). In other files "," is a decimal comma and ";" separates. Numbers must be whole fields:
// text where a number belongs is an error with its line, never a number read halfway.
#ifndef LUMIVAR_CORE_PROCESSSPECTROMETERFILES_H
#define LUMIVAR_CORE_PROCESSSPECTROMETERFILES_H

#include <cstddef>
#include <string>
#include <vector>

// Bounds on what one file may take: bytes read, characters in a line and numbers kept.
constexpr std::size_t PROCESS_SPECTROMETER_MAX_FILE_BYTES = std::size_t{64} << 20;
constexpr std::size_t PROCESS_SPECTROMETER_MAX_LINE_LENGTH = 8192;
constexpr std::size_t PROCESS_SPECTROMETER_MAX_VALUES = 4000000;

class ProcessSpectrometerFiles {
  public:
    // Values of fileType.
    enum {
        SPECWIN_ISD = 0,
        SPECTRASUITE = 1,
        SPDX = 2,
        SP = 3,
        TWO_COLUMNS_NM_FIRST = 4,
        TWO_COLUMNS_NM_LAST = 5,
        MOLE_ISD = 6,
        UNKNOWN_TYPE = 7,
    };
    static constexpr int DEFAULT_MAX_LINES_BEFORE_DATA = 500;

    // The type a file dialog's pattern implies: ".isd" SpecWin (Mole with moleFormat), ".spdx",
    // ".sp", ".txt" SpectraSuite; anything else is UNKNOWN_TYPE.
    static int fileTypeFromName(const std::string& name, bool moleFormat);
    // True when line is a header rather than a row of numbers.
    static bool isDataLineAHeader(const std::string& line);

    // Reads a file of the type its extension gives. True when at least one spectrum was read;
    // otherwise getError() and getErrorLine() say why.
    bool setFile(const std::string& path, bool moleFormat);
    // Reads a file as forcedType whatever its extension (two-column imports).
    bool setFile(const std::string& path, int forcedType);
    // Reads bytes held in memory as forcedType; name gives the extension (".csv").
    bool setText(const std::string& bytes, const std::string& name, int forcedType);
    // Lines searched before the data; below 1 means DEFAULT_MAX_LINES_BEFORE_DATA.
    void setMaxNumberOfLinesToReadBeforeFindingData(int lines);

    int getNumberOfPoints() const { return numberOfPoints; }
    int getNumOfSpectraInFile() const { return numSpectraInFile; }
    int getFileType() const { return fileType; }
    // 1, 0.001 or 1e-6 from the "Y-Unit=" line of a SpecWin file (W/nm, mW/nm, uW/nm); 1 else.
    double getSpecWinUnitsConversionFactor() const { return specWinUnitsConversionFactor; }
    // The line above the data of a column file ("" when none).
    const std::string& getHeaderStr() const { return headerStr; }
    // The column title of spectrum i in that line, when it names every column ("" otherwise).
    std::string getHeaderStr(int spectrumIndex) const;
    // Fills getNumberOfPoints() wavelengths (nm) and intensities of one spectrum, the latter
    // multiplied by unitFactor with negatives set to 0. False for an index out of range.
    bool getSpectrum(double* wavelengths, double* intensities, double unitFactor,
                     int spectrumIndex) const;

    const std::string& getError() const { return error; }
    int getErrorLine() const { return errorLine; }  // 1-based; 0 for the file as a whole
    int getFirstDataLine() const { return firstDataLine; }
    // Line of data point i (of a CGATS file: its BEGIN_DATA_FORMAT line).
    int getPointLine(int pointIndex) const;
    // First line holding a negative value (set to 0 by getSpectrum), or 0.
    int getFirstNegativeLine() const { return firstNegativeLine; }

  private:
    struct Cursor;

    void reset();
    bool fail(const std::string& message, int line);
    int nextLine(Cursor* cursor, std::string* line);
    void backUp(Cursor* cursor) const;
    bool searchedTooFar(const Cursor& cursor, int dataOffset, const char* what);
    bool findIsdData(Cursor* cursor);
    bool findMarkedData(Cursor* cursor, const char* marker, const char* shown, bool markerIsData);
    bool findColumnData(Cursor* cursor);
    bool readRows(Cursor* cursor, const char* endMarker, const char* shownEnd);
    bool readRow(const std::string& line, int lineNo);
    bool readSpdxRow(const std::string& line, int lineNo);
    bool addPoint(double wavelength, const std::vector<std::string>& fields, std::size_t first,
                  int lineNo);
    bool readSp(Cursor* cursor);
    bool readSpFormat(const std::string& line, int lineNo, std::vector<std::size_t>* columns);
    bool readSpSets(Cursor* cursor, const std::vector<std::size_t>& columns, std::size_t fields);
    bool addValue(double value, int lineNo);

    bool commaIsSeparator = false;
    int numberOfPoints = 0;
    int fileType = UNKNOWN_TYPE;
    int firstDataLine = 0;
    int numSpectraInFile = 0;
    int maxLinesBeforeData = DEFAULT_MAX_LINES_BEFORE_DATA;
    double specWinUnitsConversionFactor = 1.0;
    std::string fileName;
    std::string headerStr;

    std::string error;
    int errorLine = 0;
    int firstNegativeLine = 0;
    std::vector<double> wavelengthsRead;  // one per point
    std::vector<double> valuesRead;       // point by point, numSpectraInFile values each
    std::vector<int> pointLines;
};

#endif  // LUMIVAR_CORE_PROCESSSPECTROMETERFILES_H
