#include "ReadWriteUserSpectra.h"

#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

#include "CLocaleNumbers.h"
#include "FileText.h"
#include "Grid.h"

namespace {

constexpr int NUM_POINTS = Vantrel::NUM_GRID_POINTS_IR;
// Room for the name and the terminating NUL of ledTypeStruct::name.
constexpr std::size_t NAME_CHARS = sizeof(ledTypeStruct{}.name) - 1;
// The longest piece of a bad line quoted in a message.
constexpr std::size_t QUOTE_CHARS = 24;
// A spectra entry has more IR than this share of its watts past 830 nm.
constexpr double IR_SHARE = 0.005;
constexpr const char* FILE_NOT_WRITTEN = "File \"%s\" could not be written, try a different name.";

std::string_view trim(std::string_view s) {
    const std::size_t first = s.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t\r\n") - first + 1);
}

std::string lower(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

std::string quote(std::string_view s) {
    std::string q(s.substr(0, QUOTE_CHARS));
    if (s.size() > QUOTE_CHARS) q += "...";
    return "\"" + q + "\"";
}

std::vector<std::string_view> splitBlanks(std::string_view s) {
    std::vector<std::string_view> tokens;
    std::size_t i = 0;
    while (i < s.size()) {
        while (i < s.size() && (s[i] == ' ' || s[i] == '\t')) ++i;
        const std::size_t start = i;
        while (i < s.size() && s[i] != ' ' && s[i] != '\t') ++i;
        if (i > start) tokens.push_back(s.substr(start, i - start));
    }
    return tokens;
}

std::string replaceAll(std::string text, const std::string& what, const std::string& with) {
    const std::size_t at = text.find(what);
    if (at != std::string::npos) text.replace(at, what.size(), with);
    return text;
}

// Lines of library text, broken at LF, CR or CR LF, never longer than the format allows.
class LineReader {
  public:
    enum Result { LINE, END, TOO_LONG, BINARY };

    explicit LineReader(std::string_view text) : text(text) {}

    Result next(std::string_view* line) {
        if (pos >= text.size()) return END;
        ++number;
        // Look no further than one character past the limit, so a huge line costs little.
        const std::size_t window =
            std::min(text.size() - pos, std::size_t{USER_LIBRARY_LINE_LENGTH} + 1);
        const std::string_view part = text.substr(pos, window);
        const std::size_t end = part.find_first_of("\r\n");
        const std::size_t length = end == std::string_view::npos ? part.size() : end;
        if (length > static_cast<std::size_t>(USER_LIBRARY_LINE_LENGTH)) return TOO_LONG;
        *line = part.substr(0, length);
        terminated = end != std::string_view::npos;
        pos += length;
        if (terminated)
            pos += (text[pos] == '\r' && pos + 1 < text.size() && text[pos + 1] == '\n') ? 2 : 1;
        if (line->find('\0') != std::string_view::npos) return BINARY;
        return LINE;
    }
    // 1-based number of the line last returned.
    int lineNumber() const { return number; }
    // False when the last line returned ran to the end of the text without a line break.
    bool lastLineTerminated() const { return terminated; }
    // True when nothing but blanks and line breaks is left.
    bool atBlankEnd() const {
        return pos >= text.size() ||
               text.find_first_not_of(" \t\r\n", pos) == std::string_view::npos;
    }

  private:
    std::string_view text;
    std::size_t pos = 0;
    int number = 0;
    bool terminated = true;
};

void setName(ledTypeStruct* e, std::string_view name) {
    // Trimmed again after the cut, so that the name reads back the same once written.
    name = trim(trim(name).substr(0, NAME_CHARS));
    const std::size_t n = name.size();
    if (n > 0) std::memcpy(e->name, name.data(), n);  // an empty view may have no data at all
    e->name[n] = '\0';
}

// The name as it goes on one line of the file.
std::string nameOf(const ledTypeStruct& e) {
    std::string name(e.name, strnlen(e.name, sizeof e.name));
    for (char& c : name) {
        if (c == '\r' || c == '\n') c = ' ';
    }
    return name;
}

bool isPrivateColor(const ledTypeStruct& e, int libraryType) {
    return libraryType == LIBRARY_COLORS && e.isPrivate;
}

const ledTypeStruct& entryAt(int i, const int* indices, const ledTypeStruct* in) {
    return in[indices != nullptr ? indices[i] : i];
}

}  // namespace

// Reads the entries of one library text into a ReadWriteUserSpectra.
class UserLibraryParser {
  public:
    UserLibraryParser(ReadWriteUserSpectra& library, std::string_view text, bool readData,
                      int firstIndex, ledTypeStruct* out, int maxEntries)
        : library(library),
          text(text),
          lines(text),
          readData(readData),
          firstIndex(firstIndex),
          out(out),
          maxEntries(maxEntries) {}

    void parseCurrent();
    void parseOld();

  private:
    bool failed() const { return library.error; }
    bool full() const { return readData && maxEntries >= 0 && library.numUserData >= maxEntries; }
    bool nextLine(std::string_view* line, const ledTypeStruct* entry, const char* part);
    bool parseVersion(std::string_view line);
    void parseCurrentEntry();
    bool parseDataLine(std::string_view line, ledTypeStruct* e, double* scaling);
    bool parseSpectrumLine(std::string_view line, ledTypeStruct* e, double scaling);
    void parseOldEntry();
    bool parseOldPhotometry(std::string_view* line, ledTypeStruct* e, double* scaling);
    bool parseOldValues(std::string_view countLine, ledTypeStruct* e, double scaling);
    bool parseOldNumber(std::string_view line, const char* what, double* v);
    void store(const ledTypeStruct& e);

    ReadWriteUserSpectra& library;
    std::string_view text;
    LineReader lines;
    bool readData;
    int firstIndex;
    ledTypeStruct* out;
    int maxEntries;
};

bool UserLibraryParser::nextLine(std::string_view* line, const ledTypeStruct* entry,
                                 const char* part) {
    switch (lines.next(line)) {
        case LineReader::LINE:
            return true;
        case LineReader::END:
            library.fail(lines.lineNumber() + 1, "the library is cut short: the last entry (" +
                                                     quote(entry->name) + ") has no " + part);
            return false;
        case LineReader::TOO_LONG:
            library.fail(lines.lineNumber(), "the line is longer than " +
                                                 std::to_string(USER_LIBRARY_LINE_LENGTH) +
                                                 " characters");
            return false;
        case LineReader::BINARY:
            library.fail(lines.lineNumber(), "the line holds a NUL byte: this is no library text");
            return false;
    }
    return false;
}

void UserLibraryParser::store(const ledTypeStruct& e) {
    if (readData) out[firstIndex + library.numUserData] = e;
    ++library.numUserData;
}

bool UserLibraryParser::parseVersion(std::string_view line) {
    double v = 0.0;
    if (!parseLeadingNumber(line, &v) || v <= 0.0) {
        library.fail(1, "the version line holds no version number");
        return false;
    }
    // A newer program may have changed the layout: refuse rather than misread numbers.
    if (v > USER_LIBRARY_VERSION + 1e-9) {
        library.fail(1, "the library is of version " +
                            std::string(trim(line.substr(0, line.find("//")))) +
                            ", newer than this program reads (" + USER_LIBRARY_VERSION_TEXT + ")");
        return false;
    }
    library.versionNumber = v;
    return true;
}

void UserLibraryParser::parseCurrent() {
    std::string_view first;
    const LineReader::Result r = lines.next(&first);
    if (r == LineReader::END) return;  // an empty file holds no entries
    if (r != LineReader::LINE || lower(first).find("version") == std::string::npos) {
        lines = LineReader(text);
        parseOld();
        return;
    }
    if (!parseVersion(first)) return;
    while (!failed() && !full() && !lines.atBlankEnd()) parseCurrentEntry();
}

void UserLibraryParser::parseCurrentEntry() {
    ledTypeStruct e{};
    std::string_view line;
    if (!nextLine(&line, &e, "name")) return;
    std::string name(line);
    const double version = library.versionNumber;
    if (library.libraryType == LIBRARY_COLORS && version > 1.05) {
        // "P name" for a private colour, "E name" for any other.
        e.isPrivate = !name.empty() && name[0] == 'P';
        if (!name.empty()) name.erase(0, 1);
    } else if (library.libraryType == LIBRARY_FILTERS && version > 1.05 && version < 1.105) {
        if (!name.empty()) name[0] = ' ';  // a mark of those versions, without a meaning now
    }
    setName(&e, name);
    double scaling = 1.0;
    if (library.libraryType == LIBRARY_SPECTRA) {
        if (!nextLine(&line, &e, "data line")) return;
        if (!parseDataLine(line, &e, &scaling)) return;
    }
    if (!nextLine(&line, &e, "spectrum line")) return;
    if (!parseSpectrumLine(line, &e, scaling)) return;
    if (e.isPrivate) library.isPrivateFound = true;
    store(e);
}

bool UserLibraryParser::parseDataLine(std::string_view line, ledTypeStruct* e, double* scaling) {
    const std::vector<std::string_view> tokens = splitBlanks(line.substr(0, line.find("//")));
    // Up to version 1.14 the line had no wattsVisIR.
    const bool withIR = library.versionNumber > 1.14;
    const std::size_t expected = withIR ? 5 : 4;
    double v[5] = {};
    if (tokens.size() != expected) {
        library.fail(lines.lineNumber(), "the data line holds " + std::to_string(tokens.size()) +
                                             " values, a library of this version has " +
                                             std::to_string(expected));
        return false;
    }
    for (std::size_t i = 0; i < expected; ++i) {
        if (!parseWholeNumber(tokens[i], &v[i])) {
            library.fail(lines.lineNumber(),
                         "the data line holds " + quote(tokens[i]) + ", which is not a number");
            return false;
        }
    }
    *scaling = v[expected - 1];
    if (!(*scaling > 0.0)) {
        library.fail(lines.lineNumber(), "the scaling factor of the data line is not above 0");
        return false;
    }
    e->lumens = v[0] / *scaling;
    e->wattsVis = v[1] / *scaling;
    e->wattsVisIR = withIR ? v[2] / *scaling : e->wattsVis;
    e->lpw = v[expected - 2];
    if (!std::isfinite(e->lumens) || !std::isfinite(e->wattsVis) || !std::isfinite(e->wattsVisIR)) {
        library.fail(lines.lineNumber(), "the data line's values are too large for its scaling");
        return false;
    }
    e->hasIRpast830 =
        e->wattsVisIR > 0.0 && (e->wattsVisIR - e->wattsVis) / e->wattsVisIR > IR_SHARE;
    return true;
}

bool UserLibraryParser::parseSpectrumLine(std::string_view line, ledTypeStruct* e, double scaling) {
    int n = 0;
    for (std::string_view token : splitBlanks(line)) {
        if (n == NUM_POINTS) {
            library.fail(lines.lineNumber(), "the spectrum line holds more than " +
                                                 std::to_string(NUM_POINTS) + " values");
            return false;
        }
        double v = 0.0;
        if (!parseWholeNumber(token, &v)) {
            library.fail(lines.lineNumber(),
                         "the spectrum line holds " + quote(token) + ", which is not a number");
            return false;
        }
        const double offset = e->isPrivate ? encryptSpec[n] : 0.0;
        const double value = (v - offset) / scaling;
        if (!std::isfinite(value)) {
            library.fail(lines.lineNumber(), "a value of the spectrum line is too large");
            return false;
        }
        e->spectrum[n++] = value > 0.0 ? value : 0.0;
    }
    if (n == 0) {
        library.fail(lines.lineNumber(), "the spectrum line holds no values");
        return false;
    }
    // A file cut in mid-line would otherwise read as a spectrum with zeros at its end.
    if (!lines.lastLineTerminated() && n < NUM_POINTS) {
        library.fail(lines.lineNumber(),
                     "the library is cut short in the spectrum of " + quote(e->name));
        return false;
    }
    return true;
}

void UserLibraryParser::parseOld() {
    library.versionNumber = 0.0;
    while (!failed() && !full() && !lines.atBlankEnd()) parseOldEntry();
}

bool UserLibraryParser::parseOldNumber(std::string_view line, const char* what, double* v) {
    if (parseLeadingNumber(line, v)) return true;
    library.fail(lines.lineNumber(),
                 std::string("the ") + what + " line holds " + quote(line) + ", not a number");
    return false;
}

void UserLibraryParser::parseOldEntry() {
    ledTypeStruct e{};
    std::string_view line;
    if (!nextLine(&line, &e, "name")) return;
    const std::string_view t = trim(line);
    if (t == "EOF" || t == "eof") return;  // the end of a section
    setName(&e, line);
    double scaling = 1.0;
    if (library.libraryType == LIBRARY_SPECTRA) {
        if (!parseOldPhotometry(&line, &e, &scaling)) return;
    } else if (!nextLine(&line, &e, "count line")) {
        return;
    }
    if (parseOldValues(line, &e, scaling)) store(e);
}

bool UserLibraryParser::parseOldPhotometry(std::string_view* line, ledTypeStruct* e,
                                           double* scaling) {
    if (!nextLine(line, e, "lumens line") || !parseOldNumber(*line, "lumens", &e->lumens))
        return false;
    if (!nextLine(line, e, "watts line") || !parseOldNumber(*line, "watts", &e->wattsVis))
        return false;
    if (!nextLine(line, e, "count line")) return false;
    if (lower(*line).find(ReadWriteUserSpectra::lpwStr) != std::string::npos) {
        if (!parseLeadingNumber(*line, &e->lpw)) e->lpw = 0.0;  // as the LPW field reads it
        if (!nextLine(line, e, "count line")) return false;
    }
    if (lower(*line).find("scaling") != std::string::npos) {
        if (!parseOldNumber(*line, "scaling", scaling)) return false;
        if (!(*scaling > 0.0)) {
            library.fail(lines.lineNumber(), "the scaling factor is not above 0");
            return false;
        }
        if (!nextLine(line, e, "count line")) return false;
    }
    // The stored photometry belongs to the stored (scaled) values.
    e->lumens /= *scaling;
    e->wattsVis /= *scaling;
    e->wattsVisIR = e->wattsVis;
    return true;
}

bool UserLibraryParser::parseOldValues(std::string_view countLine, ledTypeStruct* e,
                                       double scaling) {
    int count = 0;
    if (!parseLeadingInt(countLine, &count) || count < 0) {
        library.fail(lines.lineNumber(),
                     "the count line holds " + quote(countLine) + ", not a number of values");
        return false;
    }
    std::string_view line;
    for (int k = 0; k < count; ++k) {
        if (!nextLine(&line, e, "values in full")) return false;
        const std::string_view v = trim(line);
        if (v == "EOF" || v == "eof") break;  // the section ends before the count
        double value = 0.0;
        if (!parseOldNumber(line, "value", &value)) return false;
        value /= scaling;
        if (k < USER_LIBRARY_OLD_FORMAT_POINTS) e->spectrum[k] = value > 0.0 ? value : 0.0;
    }
    const auto finite = [](double x) { return std::isfinite(x); };
    if (!finite(e->lumens) || !finite(e->wattsVis) ||
        !std::all_of(e->spectrum, e->spectrum + NUM_POINTS, finite)) {
        library.fail(lines.lineNumber(),
                     "the values of " + quote(e->name) + " are too large for its scaling");
        return false;
    }
    return true;
}

void ReadWriteUserSpectra::fail(int line, const std::string& reason) {
    if (error) return;  // the first fault is the one to report
    error = true;
    errorLine = line;
    errorMessage = reason;
}

ReadWriteUserSpectra::ReadWriteUserSpectra(bool newFormat, bool readData, int firstIndex,
                                           ledTypeStruct* out, std::string file, int libraryType,
                                           int maxEntries)
    : libraryType(libraryType), fileName(std::move(file)) {
    std::string text;
    const FileReadStatus status = readFileText(fileName, USER_LIBRARY_MAX_BYTES, &text);
    if (status == FileReadStatus::CANNOT_OPEN) {
        fail(0, "the file could not be opened");
        return;
    }
    read(text, newFormat, readData, firstIndex, out, maxEntries);
    if (status == FileReadStatus::TOO_LARGE) {
        // The entries within the limit stand; the size is the fault to report, not the entry
        // that the limit cut.
        error = false;
        fail(0, "the file is larger than " + std::to_string(USER_LIBRARY_MAX_BYTES >> 20) +
                    " MB; only its beginning was read");
    }
}

ReadWriteUserSpectra ReadWriteUserSpectra::fromText(const std::string& text, bool newFormat,
                                                    bool readData, int firstIndex,
                                                    ledTypeStruct* out, int libraryType,
                                                    int maxEntries) {
    ReadWriteUserSpectra library;
    library.libraryType = libraryType;
    library.read(text, newFormat, readData, firstIndex, out, maxEntries);
    return library;
}

void ReadWriteUserSpectra::read(const std::string& text, bool newFormat, bool readData,
                                int firstIndex, ledTypeStruct* out, int maxEntries) {
    numUserData = 0;
    if (libraryType < LIBRARY_FILTERS || libraryType > LIBRARY_COLORS) {
        fail(0, "unknown library type " + std::to_string(libraryType));
        return;
    }
    if (readData && (out == nullptr || firstIndex < 0)) {
        fail(0, "no place to read the entries into");
        return;
    }
    UserLibraryParser parser(*this, text, readData, firstIndex, out, maxEntries);
    if (newFormat) {
        parser.parseCurrent();
    } else {
        parser.parseOld();
    }
}

int ReadWriteUserSpectra::getData(bool* errorOut) const {
    if (errorOut != nullptr) *errorOut = error;
    return numUserData;
}

std::string ReadWriteUserSpectra::formatLibrary(int count, const int* indices,
                                                const ledTypeStruct* in, int libraryType) {
    std::string text = std::string(USER_LIBRARY_VERSION_TEXT) + "  // version\n";
    text.reserve(text.size() + static_cast<std::size_t>(std::max(count, 0)) * 4800);
    for (int i = 0; i < count; ++i) {
        const ledTypeStruct& e = entryAt(i, indices, in);
        const bool scrambled = isPrivateColor(e, libraryType);
        if (libraryType == LIBRARY_COLORS) text += scrambled ? "P " : "E ";
        text += nameOf(e) + "\n";
        if (libraryType == LIBRARY_SPECTRA) {
            // The photometry is stored unscaled: the scaling factor is always 1.
            for (double v : {e.lumens, e.wattsVis, e.wattsVisIR, e.lpw, 1.0}) {
                text += scientificText(v, 8) + " ";
            }
            text +=
                " // lumens, wattsVis, wattsVisIR, " + std::string(lpwStr) + ", scaling factor\n";
        }
        for (int j = 0; j < NUM_POINTS; ++j) {
            // Negatives read as 0 anyway; writing none keeps every value within 13 characters,
            // so the line stays within the reader's limit.
            double v = e.spectrum[j] > 0.0 ? e.spectrum[j] : 0.0;
            if (scrambled) v += encryptSpec[j];
            if (j > 0) text += ' ';
            text += scientificText(v, 6);
        }
        text += '\n';
    }
    return text;
}

std::string ReadWriteUserSpectra::formatTabbed(int count, const int* indices,
                                               const ledTypeStruct* in, int libraryType) {
    std::string text = "nm\t";
    for (int i = 0; i < count; ++i) {
        std::string name = nameOf(entryAt(i, indices, in));
        std::replace(name.begin(), name.end(), '\t', ' ');
        text += name + "\t";
    }
    text += '\n';
    for (int j = 0; j < NUM_POINTS; ++j) {
        // The wavelength as the program forms it, made whole after adding 0.01 nm.
        const double nm = grid::metres(j) * 1e9;
        text += std::to_string(static_cast<int>(nm + 0.01)) + "\t";
        for (int i = 0; i < count; ++i) {
            const ledTypeStruct& e = entryAt(i, indices, in);
            // A private colour's values are never shown: its cell stays blank.
            if (!isPrivateColor(e, libraryType)) text += scientificText(e.spectrum[j], 6);
            text += '\t';
        }
        text += '\n';
    }
    return text;
}

ReadWriteUserSpectra::ReadWriteUserSpectra(int count, const int* indices, const ledTypeStruct* in,
                                           const char* mode, std::string file, int libraryType,
                                           bool tabbed)
    : libraryType(libraryType), fileName(std::move(file)) {
    write(count, indices, in, mode != nullptr ? mode : "", tabbed);
}

namespace {

// Every entry of the library text, in order; false (with the reader's fault) when it can't be
// read whole.
bool readAllEntries(const std::string& text, int libraryType, std::vector<ledTypeStruct>* all,
                    std::string* why) {
    const bool newFormat =
        lower(text.substr(0, text.find('\n'))).find("version") != std::string::npos;
    ReadWriteUserSpectra counted =
        ReadWriteUserSpectra::fromText(text, newFormat, false, 0, nullptr, libraryType);
    if (!counted.getError()) {
        all->assign(static_cast<std::size_t>(counted.getNumUserData()), ledTypeStruct{});
        counted =
            ReadWriteUserSpectra::fromText(text, newFormat, true, 0, all->data(), libraryType);
    }
    if (!counted.getError()) return true;
    *why = "line " + std::to_string(counted.getErrorLine()) + ": " + counted.getErrorMessage();
    return false;
}

}  // namespace

void ReadWriteUserSpectra::write(int count, const int* indices, const ledTypeStruct* in,
                                 const std::string& mode, bool tabbed) {
    const std::string notWritten = replaceAll(FILE_NOT_WRITTEN, "%s", fileName);
    if (mode != "w" && mode != "a") {
        fail(0, "unknown write mode \"" + mode + "\"");
        return;
    }
    if (libraryType < LIBRARY_FILTERS || libraryType > LIBRARY_COLORS || count < 0 ||
        (count > 0 && in == nullptr)) {
        fail(0, "nothing to write");
        return;
    }
    if (count == 0) {
        // An empty library is no file at all; appending nothing changes nothing.
        if (mode == "w" && fileExists(fileName) && ::unlink(fileName.c_str()) != 0) {
            fail(0, notWritten);
        }
        return;
    }
    std::string text;
    if (tabbed) {
        text = formatTabbed(count, indices, in, libraryType);
    } else if (mode == "a" && fileExists(fileName)) {
        // Appending rewrites the whole library, so what stands must be read whole first: a
        // library of an older version would otherwise mix two layouts in one file.
        std::string old;
        std::vector<ledTypeStruct> all;
        std::string why;
        if (readFileText(fileName, USER_LIBRARY_MAX_BYTES, &old) != FileReadStatus::OK ||
            !readAllEntries(old, libraryType, &all, &why)) {
            fail(0, "the library could not be read, so nothing was added to it" +
                        (why.empty() ? std::string() : " (" + why + ")"));
            return;
        }
        for (int i = 0; i < count; ++i) all.push_back(entryAt(i, indices, in));
        text = formatLibrary(static_cast<int>(all.size()), nullptr, all.data(), libraryType);
        count = static_cast<int>(all.size());
    } else {
        text = formatLibrary(count, indices, in, libraryType);
    }
    if (!writeFileAtomically(fileName, text)) {
        fail(0, notWritten);
        return;
    }
    numUserData = count;
}

bool ReadWriteUserSpectra::getIsNewFormat(const std::string& file) {
    std::string text;
    // Three lines at most are looked at.
    const std::size_t enough = 3 * (std::size_t{USER_LIBRARY_LINE_LENGTH} + 2);
    if (readFileText(file, enough, &text) == FileReadStatus::CANNOT_OPEN) return false;
    LineReader lines(text);
    std::string_view line[3];
    int n = 0;
    while (n < 3 && lines.next(&line[n]) == LineReader::LINE) ++n;
    if (n == 3) return std::count(line[2].begin(), line[2].end(), '.') >= 2;
    // A library with its version line and no entry yet.
    return n >= 1 && lower(line[0]).find("version") != std::string::npos && lines.atBlankEnd();
}
