#include "CalculateModel.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>

#include "AddCommas.h"
#include "ValueFormat.h"

namespace {
const char* const LUMENS_WATTS_ERROR = "Lumens/watts error";
const char* const DOM_WL_ERROR = "Dominant wavelength error";
// Limits of the bin width (nm) and bin output (%) fields.
constexpr double BIN_MIN = -1e-6;
constexpr double BIN_MAX = 20.00001;
constexpr double MIN_LPW = 1e-9;
// Largest lumens or watts (in the field's unit) a row takes: a billion lumens is far beyond any
// lamp, and the result fields stay numbers a user can read.
constexpr double MAX_LUMENS_WATTS = 1e9;

std::string trim(const std::string& text) {
    const auto first =
        std::find_if_not(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c); });
    const auto last = std::find_if_not(text.rbegin(), text.rend(),
                                       [](unsigned char c) { return std::isspace(c); });
    return first < last.base() ? std::string(first, last.base()) : std::string();
}

double visibleWatts(const ledTypeStruct& s, bool includeIR) {
    return includeIR ? s.wattsVisIR : s.wattsVis;
}

double round4(double v) { return std::floor(v * 10000 + 0.5) / 10000; }

// A lumens or watts text as the limits see it: a number too large for a double is infinite
// rather than unreadable, so that it meets the upper limit; other unreadable text is 0.
double rowAmount(const std::string& text) {
    const std::string t = trim(text);
    char* end = nullptr;
    const double v = std::strtod(t.c_str(), &end);
    if (t.empty() || end == t.c_str() || *end != '\0' || std::isnan(v)) return 0.0;
    return v;
}

// Ends the check of row i with these boxes and red fields.
void fail(MixRows& mix, int row, int fields, std::initializer_list<CalcMessage> messages) {
    mix.ok = false;
    mix.errorRow = row;
    mix.errorFields = fields;
    mix.messages.insert(mix.messages.end(), messages);
}

// Fills a blank row of a fixed spectrum from the record: lumens when it has them (and lumens
// are the chosen unit), otherwise its watts in the window's power unit.
void useOriginalIntensity(ledInputDataStruct& row, const ledTypeStruct& s,
                          const MixSettings& settings) {
    if (s.lumens >= 0.1 && settings.defaultSpecUnits != 1) {
        row.lumens = ValueFormat::getValueAsString(s.lumens);
        row.watts.clear();
    } else {
        const double factor =
            settings.analysisType == 0 && settings.wattsInMilliwatts ? 1000.0 : 1.0;
        row.watts = ValueFormat::getValueAsString(visibleWatts(s, settings.includeIR) * factor);
        row.lumens.clear();
    }
}

// The checks of one checked row; false when the run ends.
bool checkRow(int i, ledInputDataStruct& row, const ledTypeStruct& s, const MixSettings& settings,
              MixRows& mix) {
    row.lDom = trim(row.lDom);
    row.lumens = trim(row.lumens);
    row.watts = trim(row.watts);
    if (row.lumens.empty() && row.watts.empty() && s.isRelativeIntensity == 0 &&
        settings.useOriginalIntensities) {
        useOriginalIntensity(row, s, settings);
    }
    if (s.hasDomWL) {
        const double lDom = fieldValue(row.lDom, -1.0);
        if (!(lDom >= s.lDomMin && lDom <= s.lDomMax)) {
            const CalcMessage range = {
                DOM_WL_ERROR,
                ValueFormat::format("You must specify a dominant wavelength value within the "
                                    "allowed range (%.0lf - %.0lf nm) or uncheck this LED.",
                                    s.lDomMin, s.lDomMax)};
            if (row.lDom.empty()) {
                fail(mix, i, ROW_LDOM,
                     {range,
                      {DOM_WL_ERROR,
                       "You must specify a dominant wavelength value or uncheck this LED."}});
            } else {
                fail(mix, i, ROW_LDOM, {range});
            }
            return false;
        }
        mix.lDom[i] = lDom;
    }
    const bool noLumens = row.lumens.empty(), noWatts = row.watts.empty();
    if (noLumens && noWatts && (s.hasDomWL || settings.analysisType == 3)) {
        fail(mix, i, ROW_LUMENS | ROW_WATTS,
             {{LUMENS_WATTS_ERROR,
               "You must specify either a lumens or watts value or uncheck this spectra."}});
        return false;
    }
    if (!noLumens && !noWatts) {
        fail(mix, i, ROW_LUMENS | ROW_WATTS,
             {{LUMENS_WATTS_ERROR, "You cannot specify both a lumens and watts value."}});
        return false;
    }
    // Both empty on a fixed spectrum falls through with the value 0.
    const bool byLumens = !noLumens;
    const double value = rowAmount(byLumens ? row.lumens : row.watts);
    if (!(value >= 1e-99)) {
        const int fields = noLumens && noWatts ? ROW_LUMENS | ROW_WATTS
                           : byLumens          ? ROW_LUMENS
                                               : ROW_WATTS;
        fail(mix, i, fields, {{LUMENS_WATTS_ERROR, "You must specify a value greater than 0."}});
        return false;
    }
    if (!(value <= MAX_LUMENS_WATTS)) {
        AddCommas commas;
        fail(mix, i, byLumens ? ROW_LUMENS : ROW_WATTS,
             {{LUMENS_WATTS_ERROR,
               ValueFormat::format("You must specify a value greater than 0 and less than %s.",
                                   commas.getStr(MAX_LUMENS_WATTS, 0).c_str())}});
        return false;
    }
    mix.coefficients[i] =
        getCoeff(settings.includeIR, byLumens, value, settings.wattsInMilliwatts, s);
    mix.byLumens[i] = byLumens;
    ++mix.numSelected;
    if (settings.monteCarlo) {
        const double width = fieldValue(row.binWidth), output = fieldValue(row.binOutput);
        if (!(width >= BIN_MIN && width <= BIN_MAX)) {
            fail(mix, i, ROW_BIN_WIDTH,
                 {{"Bin width error",
                   ValueFormat::format("You must specify a bin width equal to or greater than 0 "
                                       "and less than %.0lf nm.",
                                       BIN_MAX)}});
            return false;
        }
        if (!(output >= BIN_MIN && output <= BIN_MAX)) {
            fail(mix, i, ROW_BIN_OUTPUT,
                 {{"Bin output error",
                   ValueFormat::format("You must specify a bin output equal to or greater than 0 "
                                       "and less than %.0lf%%.",
                                       BIN_MAX)}});
            return false;
        }
        if (width > 0.001 || output > 0.001) ++mix.numBinned;
    }
    const std::string lpw = trim(row.lpw);
    if (!lpw.empty() && !(fieldValue(lpw) >= MIN_LPW)) {
        fail(mix, i, ROW_LPW,
             {{"LPW error",
               ValueFormat::format(
                   "You must specify an LPW greater than %.1le for each selected spectra.",
                   MIN_LPW)}});
        return false;
    }
    return true;
}
}  // namespace

CalcMessage noChromaticityMessage(bool overflow) {
    if (overflow) return {"Spectrum error", "Your intensities are too large to be calculated."};
    return {"Spectrum error",
            ValueFormat::format("You must have some intensities greater than %.1le.",
                                Vantrel::MIN_XYZ_SUM)};
}

bool isMatchingColumnValid(const std::vector<std::string>& column, bool zeroEmptyCells) {
    int empty = 0;
    for (const std::string& cell : column) empty += trim(cell).empty() ? 1 : 0;
    if (empty == static_cast<int>(column.size())) return false;
    return empty == 0 || zeroEmptyCells;
}

double fieldValue(const std::string& text, double fallback) {
    const std::string t = trim(text);
    if (t.empty()) return fallback;
    char* end = nullptr;
    const double v = std::strtod(t.c_str(), &end);
    if (end == t.c_str() || *end != '\0' || !std::isfinite(v)) return fallback;
    return v;
}

double getCoeff(bool includeIR, bool byLumens, double value, bool milliwatts,
                const ledTypeStruct& spectrum) {
    if (byLumens) return spectrum.lumens > 0 ? value / spectrum.lumens : 0.0;
    const double watts = visibleWatts(spectrum, includeIR);
    const double coefficient = watts > 0 ? value / watts : 0.0;
    return milliwatts ? coefficient * 0.001 : coefficient;
}

double getInputWatts(const ledInputDataStruct& row, const ledTypeStruct& spectrum,
                     bool milliwatts) {
    const bool noLumens = trim(row.lumens).empty(), noWatts = trim(row.watts).empty();
    if (noLumens == noWatts) return -1.0;
    if (!noLumens) {
        return spectrum.lumens > 0 ? fieldValue(row.lumens) / spectrum.lumens * spectrum.wattsVis
                                   : 0.0;
    }
    return fieldValue(row.watts) * (milliwatts ? 0.001 : 1.0);
}

bool areAllNeededLPWspecified(const std::vector<ledInputDataStruct>& rows) {
    for (const ledInputDataStruct& row : rows) {
        if (row.checked && !(fieldValue(row.lpw) > MIN_LPW)) return false;
    }
    return true;
}

MixRows checkMixRows(std::vector<ledInputDataStruct>& rows,
                     const std::vector<ledTypeStruct>& spectra, const MixSettings& settings) {
    MixRows mix;
    const std::size_t n = std::min(rows.size(), spectra.size());
    mix.included.assign(n, false);
    mix.byLumens.assign(n, false);
    mix.coefficients.assign(n, 0.0);
    mix.lDom.assign(n, -1.0);
    for (std::size_t i = 0; i < n; ++i) {
        if (!rows[i].checked) continue;
        if (!checkRow(static_cast<int>(i), rows[i], spectra[i], settings, mix)) return mix;
        mix.included[i] = true;
    }
    mix.allLPWKnown = areAllNeededLPWspecified(rows);
    if (mix.numSelected == 0) {
        mix.messages.push_back(
            {LUMENS_WATTS_ERROR,
             "You must select a spectra and specify either a lumens or watts value."});
        return mix;
    }
    if (settings.monteCarlo && mix.numBinned == 0) {
        mix.messages.push_back(
            {"Bin error", ValueFormat::format(
                              "You must specify at least 1 bin width greater than 0 and less "
                              "than %.0lf nm or\n1 bin output range greater than 0 and less than "
                              "%.0lf%%.",
                              BIN_MAX, BIN_MAX)});
        return mix;
    }
    mix.ok = true;
    return mix;
}

double electricalWatts(const std::vector<ledInputDataStruct>& rows,
                       const std::vector<ledTypeStruct>& spectra, const MixRows& mix,
                       const MixSettings& settings) {
    if (!mix.allLPWKnown) return 0.0;
    double total = 0.0;
    for (std::size_t i = 0; i < mix.included.size(); ++i) {
        if (!mix.included[i]) continue;
        const ledTypeStruct& s = spectra[i];
        double lumensIn = 0.0;
        if (mix.byLumens[i]) {
            lumensIn = fieldValue(rows[i].lumens);
        } else {
            const double watts =
                fieldValue(rows[i].watts) * (settings.wattsInMilliwatts ? 0.001 : 1.0);
            const double perWatt = visibleWatts(s, settings.includeIR);
            lumensIn = perWatt > 0 ? watts * s.lumens / perWatt : 0.0;
        }
        total += lumensIn / fieldValue(rows[i].lpw, 1.0);
    }
    return total;
}

namespace {
// Resets an out-of-range temperature to the nearer limit, with the box that says so.
bool checkTemperature(double* kelvin, double low, double high, double resetLow, double resetHigh,
                      const char* title, const char* what, CalcMessage* message) {
    if (*kelvin >= low && *kelvin <= high) return false;
    *kelvin = *kelvin < low ? resetLow : resetHigh;
    AddCommas commas;
    message->title = title;
    message->text = ValueFormat::format(
        "You must enter a %s temperature between %s - %sK\nIt will be reset to %.0lfK.", what,
        commas.getStr(resetLow, 0).c_str(), commas.getStr(resetHigh, 0).c_str(), *kelvin);
    return true;
}
}  // namespace

bool checkBlackBodyTemperature(double* kelvin, CalcMessage* message) {
    return checkTemperature(kelvin, 1000.0, 950000.0, 1000.0, 950000.0, "Black Body Temperature",
                            "black body", message);
}

bool checkDaylightTemperature(double* kelvin, CalcMessage* message) {
    return checkTemperature(kelvin, 2999.9999, 25000.0001, 3000.0, 25000.0,
                            "Reconstituted daylight Temperature", "reconstituted daylight",
                            message);
}

void blackBodySpectrum(double kelvin, int numPoints, double* out) {
    std::fill(out, out + Vantrel::NUM_GRID_POINTS_IR, 0.0);
    Vantrel::getBlackBody(out, kelvin, Vantrel::NUM_GRID_POINTS_IR);
    std::fill(out + numPoints, out + Vantrel::NUM_GRID_POINTS_IR, 0.0);
    Vantrel::scaleSpectrum(out, 1.0, numPoints);
}

void daylightSpectrum(const Vantrel& engine, double kelvin, int numPoints, double* out) {
    std::fill(out, out + Vantrel::NUM_GRID_POINTS_IR, 0.0);
    engine.getSyntheticDaylight(out, kelvin);
    std::fill(out + numPoints, out + Vantrel::NUM_GRID_POINTS_IR, 0.0);
    Vantrel::scaleSpectrum(out, 1.0, numPoints);
}

void filterProduct(const std::vector<ledTypeStruct>& filters, const std::vector<bool>& checked,
                   double* product) {
    std::fill(product, product + Vantrel::NUM_GRID_POINTS_IR, 1.0);
    for (std::size_t f = 0; f < filters.size() && f < checked.size(); ++f) {
        if (!checked[f]) continue;
        for (int j = 0; j < Vantrel::NUM_GRID_POINTS_IR; ++j) product[j] *= filters[f].spectrum[j];
    }
}

int firstFilterAboveOne(const std::vector<ledTypeStruct>& filters,
                        const std::vector<bool>& checked) {
    for (std::size_t f = 0; f < filters.size() && f < checked.size(); ++f) {
        if (!checked[f]) continue;
        const double* s = filters[f].spectrum;
        if (std::any_of(s, s + Vantrel::NUM_GRID_POINTS_IR, [](double v) { return v > 1.00001; }))
            return static_cast<int>(f);
    }
    return -1;
}

CalcMessage filterAboveOneWarning(const std::string& name, bool percentUnits) {
    // The counted form always reads as for one filter; the wording is kept as it is.
    return {"Filter warning",
            ValueFormat::format("%s has values greater than %d but the \n\"Allow values greater "
                                "than 1 or 100%%\"",
                                name.c_str(), percentUnits ? 100 : 1) +
                " option is not checked.\nYou may get unexpceted results.\n\nClick \"Yes\" to "
                "change this option."};
}

bool removeBluePeak(const double* spectrum, int numPoints, double* out, double* phosphorWatts) {
    constexpr int first = 19, end = 61;  // 398 nm up to, not including, 482 nm
    int peak = first;
    for (int i = first; i < end; ++i) {
        if (spectrum[i] > spectrum[peak]) peak = i;
    }
    if (peak == 0 || peak == end - 1) return false;
    std::vector<double> mirrored(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    for (int j = first; j <= peak; ++j) mirrored[j] = spectrum[j];
    for (int k = 0; k < peak - first; ++k) mirrored[peak + k] = spectrum[peak - k];
    double sum = 0.0;
    for (int i = 0; i < numPoints; ++i) {
        // The factor 7 is deliberate: earlier results were computed with it.
        out[i] = std::max(0.0, spectrum[i] - 7.0 * mirrored[i]);
        sum += out[i];
    }
    *phosphorWatts = 2.0 * sum;
    return true;
}

CalculateModel::CalculateModel(const std::string& programDir)
    : leds(programDir), ledSpectra(leds.getNumStdSpectra()) {
    for (int i = 0; i < leds.getNumStdSpectra(); ++i)
        leds.defineStdSpectra(i, &ledSpectra[i], -1.0);
    single10.setCIE_XYZ_bar_type(3);
}

void CalculateModel::setUserSpectra(const std::vector<ledTypeStruct>& user) {
    ledSpectra.resize(leds.getNumStdSpectra());
    ledSpectra.insert(ledSpectra.end(), user.begin(), user.end());
}

CalculateOutcome CalculateModel::calculateMix(std::vector<ledInputDataStruct>& rows,
                                              const MixSettings& settings, const double* filters,
                                              const FieldFormat& format) {
    CalculateOutcome outcome;
    outcome.rows = checkMixRows(rows, ledSpectra, settings);
    if (!outcome.rows.ok) return outcome;
    MixRows& mix = outcome.rows;
    const int n = static_cast<int>(mix.included.size());
    outcome.mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    double* mixed = outcome.mixedSpectrum.data();

    // Each included spectrum alone, rebuilt at its row's dominant wavelength: that changes its
    // lumens and watts, so the coefficient is taken again from the rebuilt record.
    for (int i = 0; i < n; ++i) {
        if (!mix.included[i]) continue;
        ledTypeStruct& s = ledSpectra[i];
        if (s.hasDomWL) leds.defineStdSpectra(i, &s, mix.lDom[i]);
        single.calcAll(s.spectrum, false, false);
        single10.calcAll(s.spectrum, false, false);
        outcome.points.push_back({i, round4(single.getXcoord()), round4(single.getYcoord()),
                                  round4(single10.getXcoord()), round4(single10.getYcoord())});
        const double value = fieldValue(mix.byLumens[i] ? rows[i].lumens : rows[i].watts);
        mix.coefficients[i] =
            getCoeff(settings.includeIR, mix.byLumens[i], value, settings.wattsInMilliwatts, s);
    }
    for (int i = 0; i < n; ++i)
        ledSpectra[i].coefficient = mix.included[i] ? mix.coefficients[i] : 0;
    leds.defineSpectrum(n, mix.coefficients.data(), nullptr, false, ledSpectra.data(), mixed);
    const int numPoints =
        settings.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    std::fill(mixed + numPoints, mixed + Vantrel::NUM_GRID_POINTS_IR, 0.0);
    if (filters != nullptr) {
        for (int j = 0; j < numPoints; ++j) mixed[j] *= filters[j];
    }
    outcome.mix.wallPlugKnown = mix.allLPWKnown;
    outcome.mix.electricalWatts = electricalWatts(rows, ledSpectra, mix, settings);
    finish(outcome, settings, format);
    return outcome;
}

CalculateOutcome CalculateModel::calculateSpectrum(const double* spectrum,
                                                   const MixSettings& settings,
                                                   const FieldFormat& format) {
    CalculateOutcome outcome;
    outcome.rows.ok = true;
    const int numPoints =
        settings.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    outcome.mixedSpectrum.assign(Vantrel::NUM_GRID_POINTS_IR, 0.0);
    std::copy(spectrum, spectrum + numPoints, outcome.mixedSpectrum.begin());
    finish(outcome, settings, format);
    return outcome;
}

void CalculateModel::finish(CalculateOutcome& outcome, const MixSettings& settings,
                            const FieldFormat& format) {
    const int numPoints =
        settings.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    double* mixed = outcome.mixedSpectrum.data();
    if (settings.subtractBluePeak && (settings.analysisType == 0 || settings.analysisType == 1)) {
        outcome.mix.bluePeakRun = true;
        std::vector<double> phosphor(Vantrel::NUM_GRID_POINTS_IR, 0.0);
        outcome.mix.bluePeakRemoved =
            removeBluePeak(mixed, numPoints, phosphor.data(), &outcome.mix.phosphorWatts);
        if (outcome.mix.bluePeakRemoved) outcome.mix.phosphorSpectrum = std::move(phosphor);
    }
    const int n = std::min(numPoints, static_cast<int>(settings.matching.size()));
    if (n > 0 && !settings.subtractBluePeak &&
        *std::max_element(settings.matching.begin(), settings.matching.begin() + n) > 0 &&
        *std::max_element(mixed, mixed + n) > 0) {
        const std::vector<double> weights(n, 1.0);
        outcome.mix.rmsValid = true;
        outcome.mix.rms = Vantrel::getRMSdiff(n, mixed, settings.matching.data(), weights.data());
    }
    CalculationOptions options;
    options.includeIR = settings.includeIR;
    options.limitUmolTo400_700 = settings.limitUmolTo400_700;
    options.ssiReference = settings.ssiReference;
    if (settings.ssiUserReference.size() >= static_cast<std::size_t>(Vantrel::NUM_GRID_POINTS))
        options.ssiUserReference = settings.ssiUserReference.data();
    outcome.results = spectrumCalculator.calculate(mixed, options);
    if (!outcome.results.hasChromaticity) {
        outcome.rows.ok = false;
        outcome.rows.messages.push_back(noChromaticityMessage(outcome.results.overflow));
        return;
    }
    outcome.fields = outputFieldValues(outcome.results, outcome.mix, format);
    outcome.ok = true;
}
