#include "ProcessSpectrometerFiles.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <new>
#include <system_error>

#include "ByteOrderMark.h"
#include "FileText.h"
#include "GetLine.h"

namespace {

// Markers, in the lower-cased form lines are compared in.
constexpr const char* ISD_SECTION = "[data]";
constexpr const char* ISD_DATA_LINE = "data";
constexpr const char* ISD_UNIT_LINE = "y-unit=";
constexpr const char* SPECTRASUITE_BEGIN = ">>>>>begin processed";
constexpr const char* SPECTRASUITE_END = ">>>>>end processed";
constexpr const char* SPDX_DATA = "<spectraldata wavelength";
constexpr const char* SPDX_END = "</spectraldistribution";
constexpr const char* SP_BANDS = "spectral_bands";
constexpr const char* SP_SETS = "number_of_sets";
constexpr const char* SP_FORMAT = "begin_data_format";
constexpr const char* SP_DATA = "begin_data";
constexpr const char* SP_DATA_END = "end_data";
constexpr const char* SP_FIELD = "spec_";

// "Y-Unit=" texts of SpecWin and the factor to W/nm. "µ" comes in UTF-8 or in Latin-1.
struct IsdUnit {
    const char* text;
    double factor;
};
constexpr IsdUnit ISD_UNITS[] = {
    {"=mw/nm", 1e-3},    {"=uw/nm", 1e-6}, {"=\xC2\xB5w/nm", 1e-6},
    {"=\xB5w/nm", 1e-6}, {"=w/nm", 1.0},
};

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\v' || c == '\f'; }

bool startsWith(const std::string& text, const char* prefix) {
    return text.compare(0, std::char_traits<char>::length(prefix), prefix) == 0;
}

// Trimmed, lower-cased, runs of blanks reduced to one blank: the form markers are compared in.
std::string normalise(const std::string& line) {
    std::string out;
    bool blank = false;
    for (char c : line) {
        if (isBlank(c)) {
            blank = !out.empty();
            continue;
        }
        if (blank) out.push_back(' ');
        blank = false;
        out.push_back(static_cast<char>(std::tolower(static_cast<unsigned char>(c))));
    }
    return out;
}

std::vector<std::string> splitOnBlanks(const std::string& text) {
    std::vector<std::string> fields;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i])) ++i;
        const std::size_t start = i;
        while (i < text.size() && !isBlank(text[i])) ++i;
        if (i > start) fields.push_back(text.substr(start, i - start));
    }
    return fields;
}

// The fields of a data row (see the header for the separators).
std::vector<std::string> splitRow(std::string line, bool commaIsSeparator) {
    const bool semicolons = line.find(';') != std::string::npos;
    for (char& c : line) {
        if (c == ';') {
            c = ' ';
        } else if (c == ',') {
            c = commaIsSeparator && !semicolons ? ' ' : '.';
        }
    }
    return splitOnBlanks(line);
}

enum class NumberStatus { OK, TEXT, NOT_FINITE };

// A whole field as a number, independently of the C locale; the same reading as the two-column
// reader's, so that every format of one spectrum gives the same doubles.
NumberStatus parseNumber(const std::string& field, double* value) {
    const char* begin = field.data();
    const char* end = begin + field.size();
    if (begin != end && *begin == '+') {
        ++begin;
        if (begin != end && (*begin == '+' || *begin == '-')) return NumberStatus::TEXT;
    }
    const auto [ptr, ec] = std::from_chars(begin, end, *value);
    if (begin == end || ptr != end) return NumberStatus::TEXT;
    if (ec == std::errc::result_out_of_range) {
        const std::size_t e = field.find_first_of("eE");
        if (e != std::string::npos && e + 1 < field.size() && field[e + 1] == '-') {
            *value = 0.0;  // below the smallest double
            return NumberStatus::OK;
        }
        return NumberStatus::NOT_FINITE;
    }
    if (ec != std::errc()) return NumberStatus::TEXT;
    return std::isfinite(*value) ? NumberStatus::OK : NumberStatus::NOT_FINITE;
}

// A field as it may be quoted in a message: short, printable.
std::string quoted(const std::string& field) {
    constexpr std::size_t MAX_SHOWN = 24;
    std::string shown;
    for (std::size_t i = 0; i < field.size() && i < MAX_SHOWN; ++i) {
        const unsigned char c = static_cast<unsigned char>(field[i]);
        shown.push_back(c >= 0x20 && c < 0x7f ? static_cast<char>(c) : '?');
    }
    if (field.size() > MAX_SHOWN) shown += "...";
    return "\"" + shown + "\"";
}

// Empty when field is a number (into *value), else the message naming what it should be.
std::string readNumber(const std::string& field, const char* what, double* value) {
    switch (parseNumber(field, value)) {
        case NumberStatus::OK:
            return std::string();
        case NumberStatus::TEXT:
            return std::string(what) + " is not a number: " + quoted(field);
        case NumberStatus::NOT_FINITE:
            break;
    }
    return std::string(what) + " is not a finite number: " + quoted(field);
}

// A CGATS count such as 36 or "36"; -1 when it is none.
long readCount(const std::string& text) {
    std::string digits = text;
    digits.erase(std::remove(digits.begin(), digits.end(), '"'), digits.end());
    long count = -1;
    const auto [ptr, ec] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (digits.empty() || ec != std::errc() || ptr != digits.data() + digits.size()) return -1;
    return count;
}

std::string extensionOf(const std::string& name) {
    const std::size_t slash = name.find_last_of('/');
    const std::size_t dot = name.find_last_of('.');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) return "";
    std::string extension = name.substr(dot + 1);
    for (char& c : extension) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return extension;
}

std::string linesText(int lines) { return "within the first " + std::to_string(lines) + " lines"; }

}  // namespace

// Walks the decoded text line by line, numbering lines as an editor does.
struct ProcessSpectrometerFiles::Cursor {
    const std::string& text;
    long position = 0;
    long lineStart = 0;  // where the last line read starts
    int lineNo = 0;
};

int ProcessSpectrometerFiles::fileTypeFromName(const std::string& name, bool moleFormat) {
    const std::string extension = extensionOf(name);
    if (extension == "isd") return moleFormat ? MOLE_ISD : SPECWIN_ISD;
    if (extension == "spdx") return SPDX;
    if (extension == "sp") return SP;
    if (extension == "txt") return SPECTRASUITE;
    return UNKNOWN_TYPE;
}

// Data rows hold digits, separators, signs and decimal marks; exponents ("1.5e-3", as the
// program itself writes spectra) count as numbers too, and a line without any digit ("---")
// is never data.
bool ProcessSpectrometerFiles::isDataLineAHeader(const std::string& line) {
    bool digit = false;
    for (char c : line) {
        if (c >= '0' && c <= '9') {
            digit = true;
        } else if (std::string(" \t\r.,;-+eE").find(c) == std::string::npos) {
            return true;
        }
    }
    return !digit;
}

void ProcessSpectrometerFiles::setMaxNumberOfLinesToReadBeforeFindingData(int lines) {
    maxLinesBeforeData = lines < 1 ? DEFAULT_MAX_LINES_BEFORE_DATA : lines;
}

void ProcessSpectrometerFiles::reset() {
    commaIsSeparator = false;
    numberOfPoints = 0;
    fileType = UNKNOWN_TYPE;
    firstDataLine = 0;
    numSpectraInFile = 0;
    specWinUnitsConversionFactor = 1.0;
    headerStr.clear();
    error.clear();
    errorLine = 0;
    firstNegativeLine = 0;
    wavelengthsRead.clear();
    valuesRead.clear();
    pointLines.clear();
}

bool ProcessSpectrometerFiles::fail(const std::string& message, int line) {
    error = message;
    errorLine = line;
    numberOfPoints = 0;
    numSpectraInFile = 0;
    wavelengthsRead.clear();
    valuesRead.clear();
    pointLines.clear();
    return false;
}

bool ProcessSpectrometerFiles::setFile(const std::string& path, bool moleFormat) {
    return setFile(path, fileTypeFromName(path, moleFormat));
}

bool ProcessSpectrometerFiles::setFile(const std::string& path, int forcedType) {
    std::string bytes;
    switch (readFileText(path, PROCESS_SPECTROMETER_MAX_FILE_BYTES, &bytes)) {
        case FileReadStatus::OK:
            return setText(bytes, path, forcedType);
        case FileReadStatus::CANNOT_OPEN:
            reset();
            fileName = path;
            return fail("cannot open file", 0);
        case FileReadStatus::TOO_LARGE:
            break;
    }
    reset();
    fileName = path;
    return fail(
        "file larger than " + std::to_string(PROCESS_SPECTROMETER_MAX_FILE_BYTES >> 20) + " MB", 0);
}

bool ProcessSpectrometerFiles::setText(const std::string& bytes, const std::string& name,
                                       int forcedType) {
    reset();
    fileName = name;
    fileType = forcedType >= SPECWIN_ISD && forcedType < UNKNOWN_TYPE ? forcedType : UNKNOWN_TYPE;
    commaIsSeparator = extensionOf(name) == "csv";
    if (bytes.size() < 4) {
        return fail("file too short: " + std::to_string(bytes.size()) +
                        " bytes, a spectrum needs at least 4",
                    0);
    }
    if (fileType == UNKNOWN_TYPE) return fail("file format not known", 0);
    try {
        const std::string text = decodeByteOrderMark(bytes);
        Cursor cursor{text};
        switch (fileType) {
            case SP:
                return readSp(&cursor);
            case SPECWIN_ISD:
            case MOLE_ISD:
                return findIsdData(&cursor) && readRows(&cursor, nullptr, nullptr);
            case SPECTRASUITE:
                return findMarkedData(&cursor, SPECTRASUITE_BEGIN, ">>>>>Begin Processed", false) &&
                       readRows(&cursor, SPECTRASUITE_END, ">>>>>End Processed");
            case SPDX:
                return findMarkedData(&cursor, SPDX_DATA, "<SpectralData wavelength", true) &&
                       readRows(&cursor, SPDX_END, "</SpectralDistribution");
            default:
                return findColumnData(&cursor) && readRows(&cursor, nullptr, nullptr);
        }
    } catch (const std::bad_alloc&) {
        return fail("out of memory", 0);
    }
}

// 1 with the next line in *line, 0 at the end of the text, -1 (error set) for a line that no
// text file of numbers holds: one too long to be read safely, or one with a NUL byte.
int ProcessSpectrometerFiles::nextLine(Cursor* cursor, std::string* line) {
    cursor->lineStart = cursor->position;
    const long length =
        GetLine::getLine(cursor->text.data(), static_cast<long>(cursor->text.size()),
                         &cursor->position, line, false);
    if (length < 0) return 0;
    ++cursor->lineNo;
    if (static_cast<std::size_t>(length) > PROCESS_SPECTROMETER_MAX_LINE_LENGTH) {
        fail("line longer than " + std::to_string(PROCESS_SPECTROMETER_MAX_LINE_LENGTH) +
                 " characters",
             cursor->lineNo);
        return -1;
    }
    if (line->find('\0') != std::string::npos) {
        fail("NUL byte: not a text file (or UTF-16 without a byte order mark)", cursor->lineNo);
        return -1;
    }
    return 1;
}

// Steps back to the start of the last line read, so that the data rows start with it.
void ProcessSpectrometerFiles::backUp(Cursor* cursor) const {
    cursor->position = cursor->lineStart;
    --cursor->lineNo;
}

// True (error set) once more lines than allowed came before the data. dataOffset is 1 when the
// line being looked at would itself be the first data row, 0 when data would follow it.
bool ProcessSpectrometerFiles::searchedTooFar(const Cursor& cursor, int dataOffset,
                                              const char* what) {
    if (cursor.lineNo - dataOffset <= maxLinesBeforeData) return false;
    fail(std::string("no ") + what + " " + linesText(maxLinesBeforeData), 0);
    return true;
}

// SpecWin and Mole: the rows follow the line starting "Data" below "[Data]". SpecWin states
// its unit on a "Y-Unit=" line; Mole files are always in W/nm.
bool ProcessSpectrometerFiles::findIsdData(Cursor* cursor) {
    std::string line;
    bool inDataSection = false;
    for (;;) {
        const char* what =
            inDataSection ? "line starting \"Data\" after \"[Data]\"" : "\"[Data]\" line";
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) return fail(std::string("no ") + what, 0);
        if (searchedTooFar(*cursor, 0, what)) return false;
        const std::string text = normalise(line);
        if (fileType == SPECWIN_ISD) {
            std::string compact = text;
            compact.erase(std::remove(compact.begin(), compact.end(), ' '), compact.end());
            if (startsWith(compact, ISD_UNIT_LINE)) {
                for (const IsdUnit& unit : ISD_UNITS) {
                    if (compact.find(unit.text) == std::string::npos) continue;
                    specWinUnitsConversionFactor = unit.factor;
                    break;
                }
            }
        }
        if (!inDataSection) {
            inDataSection = startsWith(text, ISD_SECTION);
        } else if (startsWith(text, ISD_DATA_LINE)) {
            firstDataLine = cursor->lineNo + 1;
            return true;
        }
    }
}

// SpectraSuite (rows after the marker) and SPDX (the marker line is the first row).
bool ProcessSpectrometerFiles::findMarkedData(Cursor* cursor, const char* marker, const char* shown,
                                              bool markerIsData) {
    const std::string what = std::string("\"") + shown + "\" line";
    std::string line;
    for (;;) {
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) return fail("no " + what, 0);
        if (searchedTooFar(*cursor, markerIsData ? 1 : 0, what.c_str())) return false;
        if (!startsWith(normalise(line), marker)) continue;
        if (markerIsData) backUp(cursor);
        firstDataLine = cursor->lineNo + 1;
        return true;
    }
}

// Column files: the first line of numbers starts the data; the text line above it, if any, is
// the header that may name the spectra.
bool ProcessSpectrometerFiles::findColumnData(Cursor* cursor) {
    std::string line;
    for (;;) {
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) return fail("no line of numbers", 0);
        if (searchedTooFar(*cursor, 1, "line of numbers")) return false;
        if (normalise(line).size() <= 2) continue;
        if (isDataLineAHeader(line)) {
            headerStr = line;
            continue;
        }
        backUp(cursor);
        firstDataLine = cursor->lineNo + 1;
        return true;
    }
}

bool ProcessSpectrometerFiles::readRows(Cursor* cursor, const char* endMarker,
                                        const char* shownEnd) {
    std::string line;
    for (;;) {
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) {
            // A file cut short loses its end marker: better no spectrum than half of one.
            if (endMarker != nullptr) {
                return fail(std::string("no \"") + shownEnd + "\" line: the file ends in the data",
                            0);
            }
            break;
        }
        const std::string text = normalise(line);
        if (endMarker != nullptr && startsWith(text, endMarker)) break;
        if (text.size() <= 2) break;
        const bool read =
            fileType == SPDX ? readSpdxRow(line, cursor->lineNo) : readRow(line, cursor->lineNo);
        if (!read) return false;
    }
    if (numberOfPoints == 0) return fail("no data rows", firstDataLine);
    return true;
}

bool ProcessSpectrometerFiles::readRow(const std::string& line, int lineNo) {
    const std::vector<std::string> fields = splitRow(line, commaIsSeparator);
    const bool columns = fileType == TWO_COLUMNS_NM_FIRST || fileType == TWO_COLUMNS_NM_LAST;
    if (fields.size() < 2) {
        return fail("only one column; a row needs a wavelength and a value", lineNo);
    }
    // The first row of a column file tells how many spectra it holds, one per extra column.
    if (numberOfPoints == 0) numSpectraInFile = columns ? static_cast<int>(fields.size()) - 1 : 1;
    const std::size_t expected = static_cast<std::size_t>(numSpectraInFile) + 1;
    if (fields.size() != expected) {
        return fail(std::to_string(fields.size()) + " columns; " +
                        (columns ? "the first data row has " + std::to_string(expected)
                                 : std::string("a row needs exactly a wavelength and a value")),
                    lineNo);
    }
    const bool nmLast = fileType == TWO_COLUMNS_NM_LAST;
    double wavelength = 0;
    const std::string message =
        readNumber(nmLast ? fields.back() : fields.front(), "wavelength", &wavelength);
    if (!message.empty()) return fail(message, lineNo);
    return addPoint(wavelength, fields, nmLast ? 0 : 1, lineNo);
}

// <SpectralData wavelength="380">0.0123</SpectralData>
bool ProcessSpectrometerFiles::readSpdxRow(const std::string& line, int lineNo) {
    const std::size_t npos = std::string::npos;
    const std::size_t q1 = line.find('"');
    const std::size_t q2 = q1 == npos ? npos : line.find('"', q1 + 1);
    const std::size_t gt = q2 == npos ? npos : line.find('>', q2 + 1);
    const std::size_t lt = gt == npos ? npos : line.find('<', gt + 1);
    if (!startsWith(normalise(line), SPDX_DATA) || lt == npos) {
        return fail("not a row <SpectralData wavelength=\"nm\">value</SpectralData>", lineNo);
    }
    auto number = [](std::string text) {
        std::replace(text.begin(), text.end(), ',', '.');
        const std::vector<std::string> words = splitOnBlanks(text);
        return words.size() == 1 ? words[0] : text;
    };
    const std::vector<std::string> fields = {number(line.substr(q1 + 1, q2 - q1 - 1)),
                                             number(line.substr(gt + 1, lt - gt - 1))};
    numSpectraInFile = 1;
    double wavelength = 0;
    const std::string message = readNumber(fields[0], "wavelength", &wavelength);
    if (!message.empty()) return fail(message, lineNo);
    return addPoint(wavelength, fields, 1, lineNo);
}

bool ProcessSpectrometerFiles::addPoint(double wavelength, const std::vector<std::string>& fields,
                                        std::size_t first, int lineNo) {
    const std::size_t count = static_cast<std::size_t>(numSpectraInFile);
    if (valuesRead.size() + count > PROCESS_SPECTROMETER_MAX_VALUES) {
        return fail("more than " + std::to_string(PROCESS_SPECTROMETER_MAX_VALUES) + " values",
                    lineNo);
    }
    for (std::size_t i = 0; i < count; ++i) {
        double value = 0;
        const std::string what =
            count == 1 ? std::string("value") : "value of column " + std::to_string(first + i + 1);
        const std::string message = readNumber(fields[first + i], what.c_str(), &value);
        if (!message.empty()) return fail(message, lineNo);
        if (value < 0 && firstNegativeLine == 0) firstNegativeLine = lineNo;
        valuesRead.push_back(value);
    }
    wavelengthsRead.push_back(wavelength);
    pointLines.push_back(lineNo);
    ++numberOfPoints;
    return true;
}

// CGATS (".sp"): the header gives SPECTRAL_BANDS and NUMBER_OF_SETS; the line after
// BEGIN_DATA_FORMAT names one SPEC_<nm> field per band; each row after BEGIN_DATA is one set.
bool ProcessSpectrometerFiles::readSp(Cursor* cursor) {
    long bands = -1, sets = -1;
    std::vector<std::size_t> columns;
    std::size_t formatFields = 0;
    int formatLine = 0;
    std::string line;
    for (bool formatNext = false;;) {
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) return fail("no BEGIN_DATA line", 0);
        if (searchedTooFar(*cursor, 0, "BEGIN_DATA line")) return false;
        if (formatNext) {
            formatNext = false;
            formatLine = cursor->lineNo;
            formatFields = splitOnBlanks(line).size();
            if (!readSpFormat(line, formatLine, &columns)) return false;
            continue;
        }
        const std::vector<std::string> words = splitOnBlanks(normalise(line));
        if (words.empty()) continue;
        if (words[0] == SP_BANDS || words[0] == SP_SETS) {
            const long count = words.size() == 2 ? readCount(words[1]) : -1;
            if (count < 1)
                return fail(words[0] == SP_BANDS ? "SPECTRAL_BANDS is not a count"
                                                 : "NUMBER_OF_SETS is not a count",
                            cursor->lineNo);
            (words[0] == SP_BANDS ? bands : sets) = count;
        } else if (words[0] == SP_FORMAT) {
            formatNext = true;
        } else if (words[0] == SP_DATA) {
            break;
        }
    }
    if (bands < 1) return fail("no SPECTRAL_BANDS count before BEGIN_DATA", 0);
    if (sets < 1) return fail("no NUMBER_OF_SETS count before BEGIN_DATA", 0);
    if (columns.empty()) return fail("no SPEC_ fields after BEGIN_DATA_FORMAT", 0);
    if (columns.size() != static_cast<std::size_t>(bands)) {
        return fail("SPECTRAL_BANDS is " + std::to_string(bands) + " but BEGIN_DATA_FORMAT has " +
                        std::to_string(columns.size()) + " SPEC_ fields",
                    formatLine);
    }
    if (static_cast<std::size_t>(sets) >
        PROCESS_SPECTROMETER_MAX_VALUES / static_cast<std::size_t>(bands)) {
        return fail("more than " + std::to_string(PROCESS_SPECTROMETER_MAX_VALUES) + " values", 0);
    }
    firstDataLine = cursor->lineNo + 1;
    numSpectraInFile = static_cast<int>(sets);
    numberOfPoints = static_cast<int>(bands);
    return readSpSets(cursor, columns, formatFields);
}

bool ProcessSpectrometerFiles::readSpFormat(const std::string& line, int lineNo,
                                            std::vector<std::size_t>* columns) {
    const std::vector<std::string> fields = splitOnBlanks(normalise(line));
    for (std::size_t i = 0; i < fields.size(); ++i) {
        if (!startsWith(fields[i], SP_FIELD)) continue;
        double nm = 0;
        const std::string message = readNumber(fields[i].substr(5), "SPEC_ wavelength", &nm);
        if (!message.empty()) return fail(message, lineNo);
        columns->push_back(i);
        wavelengthsRead.push_back(nm);
        pointLines.push_back(lineNo);
    }
    return true;
}

bool ProcessSpectrometerFiles::readSpSets(Cursor* cursor, const std::vector<std::size_t>& columns,
                                          std::size_t fields) {
    const std::size_t sets = static_cast<std::size_t>(numSpectraInFile);
    valuesRead.assign(columns.size() * sets, 0.0);
    std::size_t set = 0;
    std::string line;
    for (;;) {
        const int status = nextLine(cursor, &line);
        if (status < 0) return false;
        if (status == 0) break;
        const std::string text = normalise(line);
        if (startsWith(text, SP_DATA_END) || text.size() <= 2) break;
        if (set == sets) {
            return fail("more rows than NUMBER_OF_SETS (" + std::to_string(sets) + ")",
                        cursor->lineNo);
        }
        const std::vector<std::string> values = splitOnBlanks(line);
        if (values.size() != fields) {
            return fail(std::to_string(values.size()) + " fields; BEGIN_DATA_FORMAT has " +
                            std::to_string(fields),
                        cursor->lineNo);
        }
        for (std::size_t p = 0; p < columns.size(); ++p) {
            double value = 0;
            const std::string message = readNumber(values[columns[p]], "value", &value);
            if (!message.empty()) return fail(message, cursor->lineNo);
            if (value < 0 && firstNegativeLine == 0) firstNegativeLine = cursor->lineNo;
            valuesRead[p * sets + set] = value;
        }
        ++set;
    }
    if (set != sets) {
        return fail("NUMBER_OF_SETS is " + std::to_string(sets) + " but the data has " +
                        std::to_string(set) + " rows",
                    0);
    }
    return true;
}

std::string ProcessSpectrometerFiles::getHeaderStr(int spectrumIndex) const {
    const bool columns = fileType == TWO_COLUMNS_NM_FIRST || fileType == TWO_COLUMNS_NM_LAST;
    if (!columns || spectrumIndex < 0 || spectrumIndex >= numSpectraInFile) return "";
    char separator = '\t';
    if (headerStr.find('\t') == std::string::npos) {
        if (!commaIsSeparator) return "";  // titles separated by blanks can't be told apart
        separator = headerStr.find(';') != std::string::npos ? ';' : ',';
    }
    std::vector<std::string> titles(1);
    for (char c : headerStr) {
        if (c == separator) {
            titles.emplace_back();
        } else {
            titles.back().push_back(c);
        }
    }
    for (std::string& title : titles) {
        const std::vector<std::string> words = splitOnBlanks(title);
        title.clear();
        for (const std::string& word : words) title += (title.empty() ? "" : " ") + word;
        if (title.size() >= 2 && title.front() == '"' && title.back() == '"') {
            title = title.substr(1, title.size() - 2);
        }
    }
    const std::size_t spectra = static_cast<std::size_t>(numSpectraInFile);
    const std::size_t i = static_cast<std::size_t>(spectrumIndex);
    // A title over the wavelength column too, or only over the spectra.
    if (titles.size() == spectra + 1) return titles[fileType == TWO_COLUMNS_NM_FIRST ? i + 1 : i];
    if (titles.size() == spectra) return titles[i];
    return "";
}

bool ProcessSpectrometerFiles::getSpectrum(double* wavelengths, double* intensities,
                                           double unitFactor, int spectrumIndex) const {
    if (wavelengths == nullptr || intensities == nullptr || spectrumIndex < 0 ||
        spectrumIndex >= numSpectraInFile || numberOfPoints <= 0) {
        return false;
    }
    const std::size_t spectra = static_cast<std::size_t>(numSpectraInFile);
    for (std::size_t p = 0; p < static_cast<std::size_t>(numberOfPoints); ++p) {
        wavelengths[p] = wavelengthsRead[p];
        const double value = valuesRead[p * spectra + spectrumIndex] * unitFactor;
        intensities[p] = value > 0 ? value : 0.0;  // negatives (and -0) as 0
    }
    return true;
}

int ProcessSpectrometerFiles::getPointLine(int pointIndex) const {
    if (pointIndex < 0 || static_cast<std::size_t>(pointIndex) >= pointLines.size()) return 0;
    return pointLines[pointIndex];
}
