#include "ReadSpectraFile.h"

#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <new>
#include <sstream>
#include <system_error>

#include "ByteOrderMark.h"
#include "FileText.h"
#include "GetLine.h"

namespace {

using PSF = ProcessSpectrometerFiles;

// What a column of wavelengths in nm looks like: from the deep UV to the near IR, increasing.
constexpr double WAVELENGTH_MIN_NM = 100.0;
constexpr double WAVELENGTH_MAX_NM = 2500.0;

std::string lowerCase(std::string text) {
    for (char& c : text) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return text;
}

std::string extensionOf(const std::string& name) {
    const std::string title = name.substr(name.find_last_of('/') + 1);
    const std::size_t dot = title.find_last_of('.');
    return dot == std::string::npos ? "" : lowerCase(title.substr(dot + 1));
}

// True when one of the first lines of the decoded text, blanks removed and lower-cased,
// starts with marker; the search stops at the same line count as the readers'.
bool headerHas(const std::string& text, const char* marker) {
    const std::size_t markerLength = std::strlen(marker);
    std::string line;
    long position = 0;
    for (int lines = 0; lines < PSF::DEFAULT_MAX_LINES_BEFORE_DATA; ++lines) {
        if (GetLine::getLine(text.data(), static_cast<long>(text.size()), &position, &line, false) <
            0) {
            break;
        }
        std::string compact;
        for (char c : line) {
            if (c != ' ' && c != '\t') compact.push_back(c);
            if (compact.size() == markerLength) break;
        }
        if (lowerCase(compact) == marker) return true;
    }
    return false;
}

bool looksLikeWavelengths(const std::vector<double>& column) {
    if (column.size() < 2) return false;
    for (std::size_t i = 0; i < column.size(); ++i) {
        if (!(column[i] >= WAVELENGTH_MIN_NM && column[i] <= WAVELENGTH_MAX_NM)) return false;
        if (i > 0 && column[i] <= column[i - 1]) return false;
    }
    return true;
}

SpectraFileResult failure(std::string message, int line, int fileType) {
    SpectraFileResult result;
    result.error = std::move(message);
    result.errorLine = line;
    result.fileType = fileType;
    return result;
}

std::string numberText(double value) {
    std::ostringstream s;
    s << value;
    return s.str();
}

std::string spectrumName(const PSF& reader, const std::string& title, int index) {
    if (reader.getNumOfSpectraInFile() == 1) return title;
    const std::string number = std::to_string(index + 1);
    if (reader.getFileType() == PSF::SP) return title + " (#" + number + ")";
    const std::string header = reader.getHeaderStr(index);
    return header.empty() ? "#" + number : header;
}

// Every spectrum a reader found, with its unit applied, checked for increasing wavelengths.
SpectraFileResult collect(const PSF& reader, const std::string& title, double unitFactor) {
    SpectraFileResult result;
    result.fileType = reader.getFileType();
    const std::size_t points = static_cast<std::size_t>(reader.getNumberOfPoints());
    for (int i = 0; i < reader.getNumOfSpectraInFile(); ++i) {
        NamedSpectrum spectrum{spectrumName(reader, title, i), {}};
        spectrum.data.wavelengths.resize(points);
        spectrum.data.values.resize(points);
        reader.getSpectrum(spectrum.data.wavelengths.data(), spectrum.data.values.data(),
                           unitFactor, i);
        result.spectra.push_back(std::move(spectrum));
    }
    const std::vector<double>& nm = result.spectra.front().data.wavelengths;
    for (std::size_t p = 1; p < nm.size(); ++p) {
        if (nm[p] > nm[p - 1]) continue;
        return failure(nm[p] == nm[p - 1] ? "wavelength " + numberText(nm[p]) + " repeats"
                                          : "wavelengths must increase: " + numberText(nm[p]) +
                                                " follows " + numberText(nm[p - 1]),
                       reader.getPointLine(static_cast<int>(p)), result.fileType);
    }
    result.firstNegativeLine = reader.getFirstNegativeLine();
    result.ok = true;
    return result;
}

SpectraFileResult fromReader(const PSF& reader, const std::string& title, double unitFactor) {
    if (reader.getNumberOfPoints() <= 0 || reader.getNumOfSpectraInFile() <= 0) {
        return failure(reader.getError(), reader.getErrorLine(), reader.getFileType());
    }
    return collect(reader, title, unitFactor);
}

// Columns of numbers: several spectra, or intensities first, go through the column reader; a
// plain wavelength-value file through the strict reader.
SpectraFileResult readColumns(const std::string& bytes, const std::string& name,
                              const std::string& title) {
    // A first line longer than any table row is no table: say so before decoding and parsing
    // megabytes of it, as the line-by-line reader would after its first line.
    if (detectByteOrderMark(bytes) == TextEncoding::BYTES) {
        const std::size_t end = bytes.find_first_of("\r\n");
        if ((end == std::string::npos ? bytes.size() : end) > SPECTRUM_MAX_LINE_LENGTH) {
            return failure(
                "line longer than " + std::to_string(SPECTRUM_MAX_LINE_LENGTH) + " characters", 1,
                PSF::TWO_COLUMNS_NM_FIRST);
        }
    }
    PSF columns;
    if (columns.setText(bytes, name, PSF::TWO_COLUMNS_NM_FIRST)) {
        const int last = columns.getNumOfSpectraInFile() - 1;
        const std::size_t points = static_cast<std::size_t>(columns.getNumberOfPoints());
        std::vector<double> first(points), lastColumn(points);
        columns.getSpectrum(first.data(), lastColumn.data(), 1.0, last);
        if (!looksLikeWavelengths(first) && looksLikeWavelengths(lastColumn)) {
            PSF nmLast;
            nmLast.setText(bytes, name, PSF::TWO_COLUMNS_NM_LAST);
            return fromReader(nmLast, title, 1.0);
        }
        if (last > 0) return collect(columns, title, 1.0);
    }
    std::istringstream in(decodeByteOrderMark(bytes));
    const SpectrumReadResult read = readSpectrum(in);
    if (!read.ok) return failure(read.error, read.errorLine, PSF::TWO_COLUMNS_NM_FIRST);
    SpectraFileResult result;
    result.ok = true;
    result.fileType = PSF::TWO_COLUMNS_NM_FIRST;
    result.firstNegativeLine = read.firstNegativeLine;
    result.spectra.push_back({title, read.data});
    return result;
}

}  // namespace

std::string fileTitle(const std::string& path) {
    const std::string name = path.substr(path.find_last_of('/') + 1);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string::npos || dot == 0 ? name : name.substr(0, dot);
}

int detectSpectraFileType(const std::string& bytes, const std::string& name) {
    const std::string extension = extensionOf(name);
    if (extension == "isd") {
        return headerHas(decodeByteOrderMark(bytes), "y-unit=") ? PSF::SPECWIN_ISD : PSF::MOLE_ISD;
    }
    if (extension == "spdx") return PSF::SPDX;
    if (extension == "sp") return PSF::SP;
    if (extension == "txt" && headerHas(decodeByteOrderMark(bytes), ">>>>>beginprocessed")) {
        return PSF::SPECTRASUITE;
    }
    return PSF::TWO_COLUMNS_NM_FIRST;
}

SpectraFileResult readSpectraText(const std::string& bytes, const std::string& name) {
    try {
        const std::string title = fileTitle(name);
        const int type = detectSpectraFileType(bytes, name);
        if (type == PSF::TWO_COLUMNS_NM_FIRST) return readColumns(bytes, name, title);
        PSF reader;
        reader.setText(bytes, name, type);
        return fromReader(reader, title, reader.getSpecWinUnitsConversionFactor());
    } catch (const std::bad_alloc&) {
        return failure("out of memory", 0, PSF::UNKNOWN_TYPE);
    }
}

SpectraFileResult readSpectraFile(const std::string& path) {
    std::error_code ec;
    if (std::filesystem::is_directory(path, ec)) {
        return failure("cannot read file: is a directory", 0, PSF::UNKNOWN_TYPE);
    }
    std::string bytes;
    errno = 0;
    switch (readFileText(path, PROCESS_SPECTROMETER_MAX_FILE_BYTES, &bytes)) {
        case FileReadStatus::OK:
            return readSpectraText(bytes, path);
        case FileReadStatus::CANNOT_OPEN: {
            const int openErrno = errno;
            std::string message = "cannot open file";
            if (openErrno != 0) message += std::string(": ") + std::strerror(openErrno);
            return failure(message, 0, PSF::UNKNOWN_TYPE);
        }
        case FileReadStatus::TOO_LARGE:
            break;
    }
    return failure(
        "file larger than " + std::to_string(PROCESS_SPECTROMETER_MAX_FILE_BYTES >> 20) + " MB", 0,
        PSF::UNKNOWN_TYPE);
}
