// Standard spectra of the LED list: the pure-colour peak model and the fixed catalogue rows.
#include "LedDefinitions.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <initializer_list>
#include <string>
#include <utility>

#include "AppConstants.h"
#include "LedCatalogueData.h"

namespace {

constexpr int N_IR = Vantrel::NUM_GRID_POINTS_IR;

// Peak model of the pure colours, fitted to measured LEDs over their range of dominant
// wavelengths. Every row has relative heights, no IR, no default LPW and a 2.5 nm bin shift.
struct PeakTableRow {
    const char* name;
    double defaultNm, minNm, maxNm;  // dominant wavelength
    double scale;                    // peakHeightScaleFactor
    int numCoefficients;
    double c[6];  // peak shift polynomial, lowest power first
    int numPeaks;
    double peaks[3][3];  // centre offset nm, FWHM nm, height
};

// clang-format off
constexpr double RED_SHIFT[6] = {-11780799.283, 90974.956351, -280.89834535, 0.43349067269,
                                 -0.00033435523664, 1.0311565025e-07};
const PeakTableRow PEAK_TABLE[] = {
    // name, default, min, max (nm), scale, #c, c, #peaks, {centre offset, FWHM, height}
    {"UV", 420, 399.999999, 440.01, 1.0, 2, {-148, 1.311}, 2,
     {{2, 13, 0.6}, {7, 30, 0.07}}},
    {"Blue", 455, 439.999999, 484.01, 0.8, 5,
     {-1994415.0389, 17171.095419, -55.422793706, 0.079495415695, -4.275058275e-05}, 3,
     {{2.96, 32.554, 0.4138}, {-0.82, 15.71, 0.5466}, {20.82, 90.145, 0.0264}}},
    {"Verde", 505, 489.999999, 513.01, 0.54, 2, {13.16, 0.9717}, 3,
     {{4.9, 41.368, 0.5023}, {-0.85, 21.458, 0.4632}, {2.9, 80.667, 0.0524}}},
    {"Green", 530.3, 512.999999, 570.01, 0.5, 3, {1001.292, -2.629719, 0.003255269}, 3,
     {{3.75, 36.254, 0.602}, {-3.18, 20.034, 0.2938}, {15.18, 65.47, 0.1569}}},
    {"Yellow", 594.2, 582.999999, 595.01, 1.0, 2, {-77.213, 1.1209}, 3,
     {{6.99, 26.005, 0.4573}, {9.76, 11.847, 0.514}, {-13.34, 34.76, 0.0238}}},
    {"Amber", 614.3, 604.999999, 624.01, 1.05, 2, {-103.58, 1.1743}, 3,
     {{1.52, 26.841, 0.4562}, {4.18, 10.067, 0.5079}, {-27.65, 18.87, 0.0232}}},
    {"Red", 624, 619.999999, 645.01, 1.05, 6,
     {RED_SHIFT[0], RED_SHIFT[1], RED_SHIFT[2], RED_SHIFT[3], RED_SHIFT[4], RED_SHIFT[5]}, 3,
     {{1.19, 25.825, 0.4299}, {4.76, 10.338, 0.5389}, {-25.21, 19.923, 0.0332}}},
    // Deep red: the Red model with all widths times 1.25.
    {"Deep red", 650, 644.999999, 700.01, 1.05, 6,
     {RED_SHIFT[0], RED_SHIFT[1], RED_SHIFT[2], RED_SHIFT[3], RED_SHIFT[4], RED_SHIFT[5]}, 3,
     {{1.19, 32.28125, 0.4299}, {4.76, 12.9225, 0.5389}, {-25.21, 24.90375, 0.0332}}},
};
// clang-format on
static_assert(sizeof(PEAK_TABLE) / sizeof(PEAK_TABLE[0]) == LedDefinitions::NUM_PURE_COLORS,
              "one peak table row per pure colour");

constexpr double DEFAULT_BIN_SHIFT_NM = 2.5;

enum PureColor { UV, BLUE, VERDE, GREEN, YELLOW, AMBER, RED, DEEP_RED };

double pow2(double x) { return x * x; }
double pow3(double x) { return x * x * x; }
double pow4(double x) { return pow2(x) * pow2(x); }
double pow5(double x) { return pow4(x) * x; }
double pow6(double x) { return pow3(x) * pow3(x); }

// Largest magnitude of a number in the override file. The built-in models stay below 1.2e7
// (the Red shift polynomial); a value beyond this, or not a number, would build a peak of
// infinities or NaNs.
constexpr double MAX_PEAK_FILE_VALUE = 1e15;

// The override file read line by line, counting lines so that a problem can name its line.
struct PeakFileReader {
    std::FILE* f;
    int lineNumber = 0;  // of the line last read
    bool atLineStart = true;

    // Reads one line of at most PEAK_FILE_LINE_LENGTH characters; a longer line comes in
    // pieces, which all count as that line.
    bool readLine(char* line, int size) {
        if (std::fgets(line, size, f) == nullptr) return false;
        if (atLineStart) ++lineNumber;
        atLineStart = std::strchr(line, '\n') != nullptr;
        return true;
    }
};

// Why a colour's block was not used; empty reason: it was.
struct BlockProblem {
    int line = 0;
    std::string reason;
};

bool usable(double v) { return std::isfinite(v) && std::fabs(v) <= MAX_PEAK_FILE_VALUE; }

// Reads a line with `count` numbers in the given format; the reason is set when it fails.
template <typename... T>
bool readNumbers(PeakFileReader& in, BlockProblem* problem, const char* format, int count,
                 T*... values) {
    char line[LedDefinitions::PEAK_FILE_LINE_LENGTH + 1];
    if (!in.readLine(line, sizeof line)) {
        problem->line = in.lineNumber;
        problem->reason = "the file ends inside the definition";
        return false;
    }
    problem->line = in.lineNumber;
    if (std::sscanf(line, format, values...) != count) {
        problem->reason = "the line does not hold the numbers the definition needs";
        return false;
    }
    bool finite = true;
    (void)std::initializer_list<int>{
        (finite = finite && usable(static_cast<double>(*values)), 0)...};
    if (!finite) {
        problem->reason = "a value is not a number or is too large";
        return false;
    }
    return true;
}

// A count of coefficients or peaks: 0 to MAX_PEAKS.
bool readCount(PeakFileReader& in, BlockProblem* problem, int* count) {
    if (!readNumbers(in, problem, "%d", 1, count)) return false;
    if (*count < 0 || *count > LED::MAX_PEAKS) {
        problem->reason = "the count is outside 0 to " + std::to_string(LED::MAX_PEAKS);
        return false;
    }
    return true;
}

// The block of one colour after its name line; false, with the problem, when a line is missing
// or is not its numbers, a value is not finite or too large, or a count is outside 0 to
// MAX_PEAKS.
bool readPeakBlock(PeakFileReader& in, LedDefinitions::PeakData* d, BlockProblem* problem) {
    if (!readNumbers(in, problem, "%lf %lf", 2, &d->defaultDominatePeakWavelength,
                     &d->defaultBinShift) ||
        !readCount(in, problem, &d->numPeakDominateCoefficients))
        return false;
    for (int j = 0; j < d->numPeakDominateCoefficients; ++j) {
        if (!readNumbers(in, problem, "%lf", 1, &d->peakDominateCoefficients[j])) return false;
    }
    if (!readCount(in, problem, &d->numGaussianPeaks)) return false;
    for (int j = 0; j < d->numGaussianPeaks; ++j) {
        if (!readNumbers(in, problem, "%lf %lf %lf", 3, &d->peakCenter[j], &d->peakFWHM[j],
                         &d->peakHeight[j]))
            return false;
    }
    return readNumbers(in, problem, "%lf", 1, &d->peakHeightScaleFactor);
}

// The record's name holds one character less than the synthesizer's.
void copyName(ledTypeStruct* out, const char* text) {
    std::snprintf(out->name, sizeof out->name, "%.*s", static_cast<int>(sizeof out->name) - 1,
                  text);
}

// A value, padded by blanks, then the names of its fields.
void writeCommented(std::FILE* f, const char* value, const char* comment) {
    std::fprintf(f, "%-40s%s\n", value, comment);
}

}  // namespace

LedDefinitions::LedDefinitions(std::string programDir) : programDir(std::move(programDir)) {
    for (int row = 0; row < NUM_PURE_COLORS; ++row) ledNames[row] = PEAK_TABLE[row].name;
    defineLEDsPeakData();
    // A missing override file is normal: most users never write one.
    readLEDsPeakData(getPeakFilePath());
}

std::string LedDefinitions::getPeakFilePath() const {
    return programDir + COLOR_REFEF_FILENAME + ".txt";
}

std::string LedDefinitions::getCurrentPeakFilePath() const {
    return programDir + COLOR_REFEF_FILENAME + "_current.txt";
}

std::string LedDefinitions::getLedName(int row) const {
    return row >= 0 && row < numPureColors ? ledNames[row] : std::string();
}

const LedDefinitions::PeakData* LedDefinitions::getPeakData(int row) const {
    return row >= 0 && row < numPureColors ? &peakData[row] : nullptr;
}

void LedDefinitions::defineLEDsPeakData() {
    for (int row = 0; row < NUM_PURE_COLORS; ++row) {
        const PeakTableRow& t = PEAK_TABLE[row];
        PeakData& d = peakData[row];
        d = PeakData{};
        d.numGaussianPeaks = t.numPeaks;
        d.numPeakDominateCoefficients = t.numCoefficients;
        d.isRelativeIntensity = 1;
        d.hasIRpast830 = false;
        d.defaultLPW = 0;
        d.defaultDominatePeakWavelength = t.defaultNm;
        d.minDominatePeakWavelength = t.minNm;
        d.maxDominatePeakWavelength = t.maxNm;
        d.defaultBinShift = DEFAULT_BIN_SHIFT_NM;
        for (int j = 0; j < t.numCoefficients; ++j) d.peakDominateCoefficients[j] = t.c[j];
        d.peakHeightScaleFactor = t.scale;
        for (int p = 0; p < t.numPeaks; ++p) {
            d.peakCenter[p] = t.peaks[p][0];
            d.peakFWHM[p] = t.peaks[p][1];
            d.peakHeight[p] = t.peaks[p][2];
        }
    }
}

bool LedDefinitions::readLEDsPeakData(const std::string& path) {
    std::FILE* f = std::fopen(path.c_str(), "r");
    if (f == nullptr) return false;
    PeakFileReader in{f};
    char line[PEAK_FILE_LINE_LENGTH + 1];
    while (in.readLine(line, sizeof line)) {
        for (int row = 0; row < numPureColors; ++row) {
            if (std::strncmp(line, ledNames[row].c_str(), ledNames[row].size()) != 0) continue;
            PeakData block = peakData[row];
            const long blockStart = std::ftell(f);
            const int nameLine = in.lineNumber;
            BlockProblem problem;
            bool used = readPeakBlock(in, &block, &problem);
            if (used && !buildsFinitePeaks(row, block)) {
                used = false;
                problem = {nameLine, "its peaks are not finite numbers"};
            }
            if (used) {
                peakData[row] = block;
            } else {
                peakFileProblems.push_back({problem.line, "the " + ledNames[row] +
                                                              " definition from line " +
                                                              std::to_string(nameLine) +
                                                              " is not used: " + problem.reason});
                // The lines of a broken block are read again as ordinary lines, so that the
                // name of the next colour is not lost with it.
                std::fseek(f, blockStart, SEEK_SET);
                in.lineNumber = nameLine;
                in.atLineStart = true;
            }
            break;
        }
    }
    std::fclose(f);
    return true;
}

bool LedDefinitions::buildsFinitePeaks(int row, const PeakData& block) {
    // Built across its whole range of dominant wavelengths, the model must give numbers: large
    // but finite values can still overflow in the shift polynomial or the heights.
    const PeakData saved = peakData[row];
    peakData[row] = block;
    bool finite = true;
    for (double lDom : {block.defaultDominatePeakWavelength, block.minDominatePeakWavelength,
                        block.maxDominatePeakWavelength}) {
        ledTypeStruct led{};
        definePureColorLED(row, &led, lDom);
        finite = finite && std::all_of(led.spectrum, led.spectrum + N_IR,
                                       [](double v) { return std::isfinite(v); });
    }
    peakData[row] = saved;
    return finite;
}

bool LedDefinitions::writeLEDsPeakData() const {
    std::FILE* f = std::fopen(getCurrentPeakFilePath().c_str(), "w");
    if (f == nullptr) return false;
    char value[160];
    for (int row = 0; row < numPureColors; ++row) {
        const PeakData& d = peakData[row];
        std::fprintf(f, "%s\n", ledNames[row].c_str());
        std::snprintf(value, sizeof value, "%.1lf %.1lf", d.defaultDominatePeakWavelength,
                      d.defaultBinShift);
        writeCommented(f, value, "defaultDominatePeakWavelength  defaultBinShift");
        std::snprintf(value, sizeof value, "%d", d.numPeakDominateCoefficients);
        writeCommented(f, value, "numPeakDominateCoefficients");
        for (int j = 0; j < d.numPeakDominateCoefficients; ++j) {
            std::snprintf(value, sizeof value, "%.8e", d.peakDominateCoefficients[j]);
            writeCommented(f, value, "peakDominateCoefficients[j]");
        }
        std::snprintf(value, sizeof value, "%d", d.numGaussianPeaks);
        writeCommented(f, value, "numGaussianPeaks");
        for (int j = 0; j < d.numGaussianPeaks; ++j) {
            std::fprintf(f, "%.8e %.8e %.8e    peakCenter[j]   peakFWHM[j]   peakHeight[j]\n",
                         d.peakCenter[j], d.peakFWHM[j], d.peakHeight[j]);
        }
        std::snprintf(value, sizeof value, "%.8e", d.peakHeightScaleFactor);
        writeCommented(f, value, "peakHeightScaleFactor");
    }
    const bool ok = std::ferror(f) == 0;
    return std::fclose(f) == 0 && ok;
}

double LedDefinitions::getPeakCorrection(int row, double L) {
    // Residuals of the shift polynomial against the measured dominant wavelengths.
    double d = 0;
    switch (row) {
        case UV:
            if (L < 402.5) {
                d = 0.6 * (-0.96 * L + 386.6);
            } else if (L < 415) {
                d = -0.08067797 * L + 32.60169;
            } else {
                d = -2.31272625926537e-6 * pow5(L) + 0.00500120996759375 * pow4(L) -
                    4.32553938166216 * pow3(L) + 1870.36801003705 * pow2(L) - 404326.831129911 * L +
                    34957767.8096108;
            }
            if (L > 420) {
                d += (-0.009747042 * pow2(L) + 8.414297 * L - 1814.523) +
                     (-0.004621376 * pow2(L) + 3.966416 * L - 850.5546);
            }
            break;
        case BLUE:
            d = -2.35688693551962e-8 * pow6(L) + 6.61792097553879e-5 * pow5(L) -
                0.0773878492769892 * pow4(L) + 48.2398301724443 * pow3(L) -
                16906.2654729094 * pow2(L) + 3158478.60226399 * L - 245747825.105341;
            if (L < 442) d += 5.0 * (-0.06666667 * pow2(L) + 59.1 * L - 13098.03);
            break;
        case VERDE:
            d = -3.56496965257802e-6 * pow5(L) + 0.00895909079811782 * pow4(L) -
                9.00524517691736 * pow3(L) + 4525.43246725516 * pow2(L) - 1136990.94777451 * L +
                114255131.048835;
            break;
        case GREEN:
            d = -2.49061003640633e-9 * pow6(L) + 8.18655184903498e-6 * pow5(L) -
                0.0112099819926926 * pow4(L) + 8.18510510028133 * pow3(L) -
                3361.08523552409 * pow2(L) + 735941.779319938 * L - 67127821.6239101;
            if (L > 545) {
                d += 0.000357142857142938 * pow2(L) - 0.370214285714375 * L + 95.682857142882;
            }
            break;
        case RED:
            if (L > 630) d = 0.002 * pow2(L) - 2.51 * L + 787.6;
            break;
        case DEEP_RED:
            if (L < 670) {
                d = 6.77248716308976e-9 * pow6(L) - 2.24507951902368e-5 * pow5(L) +
                    0.0299286797766092 * pow4(L) - 20.1577228487841 * pow3(L) +
                    6959.89020271538 * pow2(L) - 1051393.99611684 * L + 30381980.1930997;
            } else {
                d = -1.86666666458692e-7 * pow6(L) + 0.000772399999145258 * pow5(L) -
                    1.33149666520303 * pow4(L) + 1223.96998199669 * pow3(L) -
                    632788.639780062 * pow2(L) + 174453848.27957 * L - 20036736026.5302;
            }
            break;
        default:  // Yellow, Amber: the polynomial alone fits
            break;
    }
    return d;
}

void LedDefinitions::definePureColorLED(int row, ledTypeStruct* out, double lDom) {
    if (row < 0 || row >= numPureColors) return;
    const PeakData& d = peakData[row];
    clear();
    double shift = 0, power = 1;
    for (int j = 0; j < d.numPeakDominateCoefficients; ++j) {
        shift += d.peakDominateCoefficients[j] * power;
        power *= lDom;
    }
    const double correction = getPeakCorrection(row, lDom);
    double centers[MAX_PEAKS], widths[MAX_PEAKS], heights[MAX_PEAKS];
    for (int p = 0; p < d.numGaussianPeaks; ++p) {
        centers[p] = shift + d.peakCenter[p] + correction;
        widths[p] = d.peakFWHM[p];
        heights[p] = d.peakHeightScaleFactor * d.peakHeight[p];
    }
    definePeak(d.numGaussianPeaks, centers, widths, heights);
    defineSpectrum(0.0);
    calculateLumensWatts();
    defineName(ledNames[row].c_str());

    if (d.isRelativeIntensity == 0 && out->wattsVis > 0 && wattsVis > 0) {
        // Absolute intensity: the row keeps the visible watts it has stored.
        const double factor = out->wattsVis / wattsVis;
        for (int p = 0; p < numPeaks; ++p) peakHeight[p] *= factor;
        defineSpectrum(0.0);
        calculateLumensWatts();
    }
    std::copy(std::begin(spectrum), std::end(spectrum), out->spectrum);
    copyName(out, name);
    out->isPrivate = false;
    out->isRelativeIntensity = d.isRelativeIntensity;
    out->hasIRpast830 = d.hasIRpast830;
    out->hasDomWL = 1;
    out->lumens = lumens;
    out->wattsVis = wattsVis;
    out->wattsVisIR = wattsVisIR;
    out->lpw = d.defaultLPW;
    out->lDom = d.defaultDominatePeakWavelength;
    out->lDomMin = d.minDominatePeakWavelength;
    out->lDomMax = d.maxDominatePeakWavelength;
    out->binShift = d.defaultBinShift;
}

void LedDefinitions::defineFixedRow(int index, ledTypeStruct* out) const {
    const LedCatalogueRow& row = LED_CATALOGUE_ROWS[index - FIRST_FIXED_ROW];
    copyName(out, row.name);
    std::copy(row.spectrum, row.spectrum + N_IR, out->spectrum);
    out->isPrivate = false;
    out->isRelativeIntensity = 0;
    out->hasDomWL = 0;
    out->hasIRpast830 = row.hasIRpast830;
    out->lDom = 0;
    out->lDomMin = 0;
    out->lDomMax = 0;
    out->binShift = 0;
    out->lumens = row.lumens;
    out->wattsVis = row.wattsVis;
    // An IR LED is mixed by its power to 1050 nm: with only its visible watts it could never be
    // used with IR on. The other rows have no power there, and keep their visible watts.
    out->wattsVisIR =
        row.hasIRpast830 ? Vantrel::getSpectralWatts(N_IR, out->spectrum, 2.0) : row.wattsVis;
    if (index == FIRST_FIXED_ROW) {
        out->lpw = row.lumens / 0.7;  // far red: 0.7 W electrical
    } else if (index >= FIRST_WHITE_LED) {
        out->lpw = row.lumens / 0.35 / 3.0;  // white: 350 mA at 3 V
    } else {
        out->lpw = 0;  // IR: lumens say nothing about these
    }
}

bool LedDefinitions::defineStdSpectra(int index, ledTypeStruct* out, double lDom) {
    if (index < 0 || index >= NUM_STD_SPECTRA) return false;
    // The fixed rows have no dominant wavelength to default.
    if (lDom < 0 && index < numPureColors) {
        lDom = peakData[index].defaultDominatePeakWavelength;
    }
    if (index < numPureColors) {
        definePureColorLED(index, out, lDom);
    } else {
        defineFixedRow(index, out);
    }
    return true;
}

void LedDefinitions::defineSpectrum(int n, const double* coefficients, const int* shifts,
                                    bool prepared, ledTypeStruct* spectra, double* out) {
    if (!prepared) {
        for (int i = 0; i < n; ++i) spectra[i].coefficient = coefficients[i];
    }
    defineTestSpectrumSum(n, shifts, spectra, out);
}

void LedDefinitions::defineTestSpectrumSum(int n, const int* shifts, const ledTypeStruct* spectra,
                                           double* out) {
    std::fill(out, out + N_IR, 0.0);
    for (int i = 0; i < n; ++i) {
        const ledTypeStruct& s = spectra[i];
        // A shift in nm on the 2 nm grid: integer division, so 5 nm moves by 2 points.
        const int steps = (s.hasDomWL != 0 || shifts == nullptr) ? 0 : shifts[i] / 2;
        for (int j = 0; j < N_IR; ++j) {
            const int k = j - steps;
            if (k >= 0 && k < N_IR) out[j] += s.coefficient * s.spectrum[k];
        }
    }
}
