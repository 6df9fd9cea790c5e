#include "UserLibraryChecks.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include "CLocaleNumbers.h"
#include "Grid.h"
#include "NumberText.h"
#include "ReadWriteUserSpectra.h"
#include "Vantrel.h"

namespace {

// The three kinds, as their messages name them.
struct LibraryKindTexts {
    const char* plural;          // "spectra"
    const char* limitTitle;      // title of the limit box
    const char* nameErrorTitle;  // title of the name boxes
};
const LibraryKindTexts KIND_TEXTS[] = {
    // kind               plural     limit box             name boxes
    /* LIBRARY_FILTERS */ {"filters", "User Filter Error", "Filter name error"},
    /* LIBRARY_SPECTRA */ {"spectra", "User Spectrum Error", "Spectrum name error"},
    /* LIBRARY_COLORS  */ {"colors", "User Color Error", "Color name error"},
};

const LibraryKindTexts& kindTexts(int libraryType) {
    return KIND_TEXTS[libraryType == LIBRARY_FILTERS ? 0 : libraryType == LIBRARY_COLORS ? 2 : 1];
}

bool setMessage(LibraryMessage* message, LibraryMessageId id, const std::string& title,
                const std::string& text) {
    if (message != nullptr) *message = LibraryMessage{id, LibraryBox::ERROR, title, text};
    return true;
}

// The warning of a filter or colour value above the scale, as a Yes/No question.
LibraryMessage aboveScaleWarning(int libraryType, double scale) {
    const std::string limit = fixedText(scale, 0);
    if (libraryType == LIBRARY_FILTERS) {
        return {LibraryMessageId::FILTER_ABOVE_SCALE, LibraryBox::QUESTION, "Filter data warning",
                "Transmission values for filters should range from 0 to " + limit +
                    "\n\nclick \"Yes\" to ignore this warning the future."};
    }
    return {LibraryMessageId::COLOR_ABOVE_SCALE, LibraryBox::QUESTION, "Color data warning",
            "Reflectance values for colors should range from 0 to " + limit +
                "\n\nclick \"Yes\" to ignore this warning the future."};
}

}  // namespace

bool checkLibraryLimit(int libraryType, int numRows, LibraryMessage* message) {
    const LibraryKindTexts& kind = kindTexts(libraryType);
    const bool spectra = libraryType == LIBRARY_SPECTRA;
    const int stop = spectra ? MAX_SPECTRA_ROWS : MAX_FILTER_COLOR_ENTRIES;
    if (numRows < stop) return false;
    // The message names one more than the rows at which adding stops, as it always has.
    const std::string text =
        "You can only read in up to " + std::to_string(stop + 1) + " " + kind.plural +
        ", with this there will be too many.\nYou can save your user " + kind.plural +
        " in several files and read in the ones you need to use as you go.";
    return setMessage(message, LibraryMessageId::LIBRARY_FULL, kind.limitTitle, text);
}

bool checkEntryLPW(double lpw, LibraryMessage* message) {
    // The lower limit lets an empty field (0) pass, although the message names 0.1.
    if (lpw >= MIN_ENTRY_LPW && lpw <= MAX_ENTRY_LPW) return false;
    return setMessage(message, LibraryMessageId::LPW_OUT_OF_RANGE, "LPW error",
                      "The LPW value is out of range (0.1-300)");
}

bool checkEntryName(int libraryType, const std::string& name, LibraryMessage* message) {
    const std::string t = trimmedText(name);
    const char* title = kindTexts(libraryType).nameErrorTitle;
    if (t.empty()) {
        return setMessage(message, LibraryMessageId::NAME_EMPTY, title, "You must enter a name");
    }
    const bool illegal = std::any_of(t.begin(), t.end(), [](char c) {
        const auto u = static_cast<unsigned char>(c);
        return u < 32 || u > 126;
    });
    if (!illegal) return false;
    return setMessage(
        message, LibraryMessageId::NAME_ILLEGAL, title,
        "The name you entered \"" + t + "\" is invalid, it contains an illegal character");
}

EntryValues readEntryValues(const std::vector<std::string>& cells,
                            const EntryValueOptions& options) {
    EntryValues result;
    result.values.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    const bool filterOrColor = options.libraryType != LIBRARY_SPECTRA;
    const bool warnAbove = (options.libraryType == LIBRARY_FILTERS && !options.allowAboveScale) ||
                           (options.libraryType == LIBRARY_COLORS && !options.colorWarningOff);
    const double scale = options.scale > 0.0 ? options.scale : 1.0;
    const std::size_t n = std::min(cells.size(), result.values.size());
    for (std::size_t i = 0; i < n; ++i) {
        double v = 0.0;
        if (!parseLeadingNumber(cells[i], &v)) v = 0.0;
        if (v < NEGATIVE_VALUE_LIMIT && !result.negativeFound) {
            result.negativeFound = true;
            result.messages.push_back(
                {LibraryMessageId::NEGATIVE_VALUE, LibraryBox::WARNING, "Negative value error",
                 "A negative value was found - all negative values will be set to 0.0"});
        }
        if (v < 0.0) v = 0.0;
        if (filterOrColor && warnAbove && v > scale && !result.aboveScaleFound) {
            result.aboveScaleFound = true;
            result.messages.push_back(aboveScaleWarning(options.libraryType, scale));
        }
        if (options.photons && options.libraryType == LIBRARY_SPECTRA) {
            const double nm = grid::metres(i) * 1e9;
            v = Vantrel::convert_to_Watts_nm_from_Photons_Sec(v, nm);
        }
        result.values[i] = v / scale;
    }
    return result;
}

bool checkEntryIntensities(const std::vector<double>& values, LibraryMessage* message) {
    const bool some =
        std::any_of(values.begin(), values.end(), [](double v) { return v > MIN_ENTRY_INTENSITY; });
    if (some) return false;
    return setMessage(message, LibraryMessageId::NO_INTENSITY, "Spectrum error",
                      "You must have some intensities greater than " +
                          scientificText(MIN_ENTRY_INTENSITY, 1) + ".");
}

ledTypeStruct makeUserLibraryEntry(int libraryType, const std::string& name, double lpw,
                                   const std::vector<double>& values, double lumens,
                                   double wattsVis, double wattsVisIR, bool isPrivate) {
    ledTypeStruct e{};
    // Trimmed again after the cut: the library reads names trimmed.
    const std::string t = trimmedText(trimmedText(name).substr(0, sizeof e.name - 1));
    std::memcpy(e.name, t.data(), t.size());
    e.lpw = lpw;
    const std::size_t n = std::min(values.size(), std::size_t{Vantrel::NUM_GRID_POINTS_IR});
    std::copy(values.begin(), values.begin() + static_cast<std::ptrdiff_t>(n), e.spectrum);
    if (libraryType == LIBRARY_SPECTRA) {
        e.lumens = lumens;
        e.wattsVis = wattsVis;
        e.wattsVisIR = wattsVisIR;
        e.hasIRpast830 = wattsVisIR > 0.0 && (wattsVisIR - wattsVis) / wattsVisIR > 0.005;
    }
    e.isPrivate = libraryType == LIBRARY_COLORS && isPrivate;
    return e;
}
