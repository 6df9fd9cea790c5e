#include "SpectrumFile.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <new>
#include <system_error>

#include "Vantrel.h"

namespace {

constexpr double GRID_START = 360.0;
constexpr double GRID_END = 830.0;
constexpr double GRID_STEP = 2.0;
// The window refuses a table only when it cannot reach the grid at all: the first wavelength
// beyond the last grid cell (830 nm + half a step) or the last one before the first grid point.
constexpr double FIRST_WAVELENGTH_LIMIT = GRID_END + GRID_STEP;
constexpr double LAST_WAVELENGTH_LIMIT = GRID_START;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\v' || c == '\f'; }

enum class LineStatus { LINE, END, TOO_LONG };

// Reads one line without its '\n'. Never stores more than SPECTRUM_MAX_LINE_LENGTH characters,
// so a file without line ends cannot fill the memory.
LineStatus nextLine(std::streambuf* buf, std::string* line) {
    using Traits = std::char_traits<char>;
    line->clear();
    bool readAny = false;
    for (;;) {
        const Traits::int_type c = buf->sbumpc();
        if (Traits::eq_int_type(c, Traits::eof())) {
            return readAny ? LineStatus::LINE : LineStatus::END;
        }
        readAny = true;
        if (Traits::to_char_type(c) == '\n') return LineStatus::LINE;
        if (line->size() == SPECTRUM_MAX_LINE_LENGTH) return LineStatus::TOO_LONG;
        line->push_back(Traits::to_char_type(c));
    }
}

// Splits a line into fields. A line with ';' is separated by ';' (and its commas are decimal
// commas), any other by ','; blanks around a separator, or alone, also separate. Two separators
// in a row give an empty field; empty fields at the end (a padded spreadsheet row) are dropped.
std::vector<std::string> splitFields(const std::string& line, bool* decimalComma) {
    *decimalComma = line.find(';') != std::string::npos;
    const char delimiter = *decimalComma ? ';' : ',';
    std::vector<std::string> fields;
    const std::size_t n = line.size();
    auto skipBlanks = [&](std::size_t i) {
        while (i < n && isBlank(line[i])) ++i;
        return i;
    };
    std::size_t i = skipBlanks(0);
    while (i < n) {
        const std::size_t start = i;
        while (i < n && !isBlank(line[i]) && line[i] != delimiter) ++i;
        fields.push_back(line.substr(start, i - start));
        i = skipBlanks(i);
        if (i < n && line[i] == delimiter) i = skipBlanks(i + 1);
    }
    while (!fields.empty() && fields.back().empty()) fields.pop_back();
    return fields;
}

enum class NumberStatus { OK, TEXT, NOT_FINITE };

// Reads a whole field as a number, independently of the C locale.
NumberStatus parseNumber(std::string field, bool decimalComma, double* value) {
    if (decimalComma) {
        for (char& c : field) {
            if (c == ',') c = '.';
        }
    }
    const char* begin = field.data();
    const char* end = begin + field.size();
    if (begin != end && *begin == '+') {
        ++begin;
        if (begin != end && (*begin == '+' || *begin == '-')) return NumberStatus::TEXT;
    }
    const auto [ptr, ec] = std::from_chars(begin, end, *value);
    if (begin == end || ptr != end) return NumberStatus::TEXT;
    if (ec == std::errc::result_out_of_range) {
        // Too small for a double (a negative exponent) reads as 0; too large is not finite.
        const std::size_t e = field.find_first_of("eE");
        if (e != std::string::npos && e + 1 < field.size() && field[e + 1] == '-') {
            *value = 0.0;
            return NumberStatus::OK;
        }
        return NumberStatus::NOT_FINITE;
    }
    if (ec != std::errc()) return NumberStatus::TEXT;
    return std::isfinite(*value) ? NumberStatus::OK : NumberStatus::NOT_FINITE;
}

bool isNumber(const std::string& field, bool decimalComma) {
    double unused = 0;
    return parseNumber(field, decimalComma, &unused) != NumberStatus::TEXT;
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

std::string numberText(double value) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%g", value);
    return buf;
}

// The window's check that a table reaches the grid; empty when it does.
const char* rangeError(const SpectrumData& data) {
    if (data.wavelengths.front() > FIRST_WAVELENGTH_LIMIT ||
        data.wavelengths.back() < LAST_WAVELENGTH_LIMIT) {
        return SPECTRUM_OUT_OF_RANGE_MESSAGE;
    }
    return nullptr;
}

SpectrumReadResult failure(std::string message, int line) {
    SpectrumReadResult result;
    result.error = std::move(message);
    result.errorLine = line;
    return result;
}

// Checks one data row; empty when it is good, else the message for its line.
std::string readRow(const std::vector<std::string>& fields, bool decimalComma, double* wavelength,
                    double* value) {
    if (fields.size() == 1) return "only one column; a row needs a wavelength and a value";
    for (const std::string& field : fields) {
        if (field.empty()) return "empty field";
    }
    if (fields.size() > 2) {
        std::string message = std::to_string(fields.size()) +
                              " columns; a row needs exactly a wavelength and a value";
        if (!decimalComma && fields.size() == 3) message += " (a decimal comma needs \";\")";
        return message;
    }
    const char* names[2] = {"wavelength", "value"};
    double* targets[2] = {wavelength, value};
    for (int k = 0; k < 2; ++k) {
        switch (parseNumber(fields[k], decimalComma, targets[k])) {
            case NumberStatus::OK:
                break;
            case NumberStatus::TEXT:
                return std::string(names[k]) + " is not a number: " + quoted(fields[k]);
            case NumberStatus::NOT_FINITE:
                return std::string(names[k]) + " is not a finite number: " + quoted(fields[k]);
        }
    }
    return std::string();
}

SpectrumReadResult readLines(std::streambuf* buf) {
    SpectrumReadResult result;
    SpectrumData& data = result.data;
    std::string line;
    int lineNo = 0;
    int previousLine = 0;
    bool seenFirstLine = false;
    for (;;) {
        const LineStatus status = nextLine(buf, &line);
        if (status == LineStatus::END) break;
        ++lineNo;
        if (status == LineStatus::TOO_LONG) {
            return failure(
                "line longer than " + std::to_string(SPECTRUM_MAX_LINE_LENGTH) + " characters",
                lineNo);
        }
        // A UTF-8 byte order mark (Windows editors write one) would hide the first number.
        if (lineNo == 1 && line.compare(0, 3, "\xEF\xBB\xBF") == 0) line.erase(0, 3);
        std::size_t first = 0;
        while (first < line.size() && isBlank(line[first])) ++first;
        if (first == line.size() || line[first] == '#') continue;

        bool decimalComma = false;
        const std::vector<std::string> fields = splitFields(line, &decimalComma);
        if (fields.empty()) continue;  // only separators: an empty spreadsheet row
        if (!seenFirstLine) {
            seenFirstLine = true;
            if (!isNumber(fields[0], decimalComma)) {
                result.headerLine = lineNo;
                continue;
            }
        }

        double wavelength = 0, value = 0;
        std::string message = readRow(fields, decimalComma, &wavelength, &value);
        if (!message.empty()) return failure(std::move(message), lineNo);
        if (!data.wavelengths.empty()) {
            const double previous = data.wavelengths.back();
            if (wavelength <= previous) {
                const std::string where = " (line " + std::to_string(previousLine) + ")";
                return failure(wavelength == previous
                                   ? "wavelength " + numberText(wavelength) + " repeats" + where
                                   : "wavelengths must increase: " + numberText(wavelength) +
                                         " follows " + numberText(previous) + where,
                               lineNo);
            }
        }
        if (data.wavelengths.size() == SPECTRUM_MAX_ROWS) {
            return failure("more than " + std::to_string(SPECTRUM_MAX_ROWS) + " data rows", lineNo);
        }
        if (value < 0) {
            value = 0;
            if (result.firstNegativeLine == 0) result.firstNegativeLine = lineNo;
        }
        data.wavelengths.push_back(wavelength);
        data.values.push_back(value + 0.0);  // + 0.0 turns -0 into 0
        previousLine = lineNo;
    }

    if (data.wavelengths.empty()) return failure(SPECTRUM_NO_DATA_MESSAGE, 0);
    if (data.wavelengths.size() < 3) {
        return failure(
            "at least 3 data rows are needed, found " + std::to_string(data.wavelengths.size()), 0);
    }
    if (const char* message = rangeError(data)) return failure(message, 0);
    result.ok = true;
    return result;
}

}  // namespace

SpectrumReadResult readSpectrum(std::istream& in) {
    std::streambuf* buf = in.rdbuf();
    if (buf == nullptr) return failure("cannot read input", 0);
    try {
        return readLines(buf);
    } catch (const std::bad_alloc&) {
        return failure("out of memory", 0);
    }
}

SpectrumReadResult readSpectrumFile(const std::string& path) {
    try {
        std::error_code ec;
        if (std::filesystem::is_directory(path, ec)) {
            return failure("cannot read file: is a directory", 0);
        }
        errno = 0;
        std::ifstream file(path, std::ios::binary);
        if (!file) {
            const int openErrno = errno;
            std::string message = "cannot open file";
            if (openErrno != 0) message += std::string(": ") + std::strerror(openErrno);
            return failure(std::move(message), 0);
        }
        return readSpectrum(file);
    } catch (const std::bad_alloc&) {
        return failure("out of memory", 0);
    }
}

namespace {
// Whether the rows are the grid itself, 360 to 830 nm in 2 nm steps: the window's 2 nm table.
bool standsOnGrid(const SpectrumData& data) {
    if (data.wavelengths.size() != static_cast<std::size_t>(Vantrel::NUM_GRID_POINTS)) return false;
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        if (std::fabs(data.wavelengths[i] - (GRID_START + GRID_STEP * i)) > 1e-6) return false;
    }
    return true;
}
}  // namespace

bool toGrid(const SpectrumData& data, double* grid, std::string* error) {
    auto fail = [error](const char* message) {
        if (error != nullptr) *error = message;
        return false;
    };
    const std::size_t n = data.wavelengths.size();
    if (n < 3 || n != data.values.size() || n > SPECTRUM_MAX_ROWS) {
        return fail(SPECTRUM_RESAMPLING_MESSAGE);
    }
    if (const char* message = rangeError(data)) return fail(message);
    if (standsOnGrid(data)) {
        // Taken as it is, as the window's 2 nm table takes it: resampling would halve the first
        // point and move the result away from what the window shows for the same numbers.
        std::copy(data.values.begin(), data.values.end(), grid);
    } else if (!Vantrel::resampleSpectrum(static_cast<int>(n), data.wavelengths.data(),
                                          data.values.data(), GRID_START, GRID_END, GRID_STEP,
                                          nullptr, grid)) {
        return fail(SPECTRUM_RESAMPLING_MESSAGE);
    }
    // The window shows the resampled spectrum in its table with 4 significant digits and
    // computes from what the table holds. Rounding the same way here makes a file give exactly
    // the numbers the window gives for the same file: what the table shows is what is measured.
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        char text[32];
        std::snprintf(text, sizeof text, "%.3le", grid[i]);
        grid[i] = std::strtod(text, nullptr);
        if (!std::isfinite(grid[i])) return fail("values too large to resample");
    }
    return true;
}
