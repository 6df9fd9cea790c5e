#include "PhotometryFiles.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <numeric>
#include <sstream>

#include "AppConstants.h"
#include "DesignCalculation.h"
#include "FileText.h"
#include "ValueFormat.h"
#include "Vantrel.h"

namespace {

// Field numbers the text file names one by one.
enum Field {
    LUMENS = 0,
    VIS_WATT = 1,
    CCT = 2,
    CRI = 3,
    LER = 4,
    LPW = 5,
    ELEC_W = 6,
    EXT_LM = 7,
    R1 = 8,
    X = 23,
    Y = 24,
    UP = 25,
    VP = 26,
    DUV = 27,
    DUPVP = 28,
    UMOL_J_WP = 29,
    FCI = 30,
    UMOL_S = 31,
    UMOL_J_SPEC = 32,
    CQS = 33,
    GAMUT_D65 = 34,
    GAMUT_CRI = 35,
    GAMUT_CQS = 36,
    GAI_E = 39,
    Q1 = 40,
    MIRED = 55,
    RMS = 56,
    MAX_DE = 57,
    BLUE_W = 58,
    PHOS_W = 59,
    TOTAL_W = 60,
    TLCI_QA = 61,
    TLCI_D = 62,
    CLASS_A = 63,
    COI = 64,
    RF = 65,
    RG = 66,
    RF_SKIN = 67,
    RFH1 = 68,
    RHS1 = 84,
    RCS1 = 100,
    CCT10 = 116,
    PURITY = 124,
    DOM_WL = 125,
    CENT_WL = 126,
    FWHM = 127,
    AREAS = 131,
    FSI = 139,
    FSCI = 140,
    LUMENS_S = 141,
    SP = 142,
    PHOTONS = 143,
    WBMR = 144,
    FILM_W = 149,
    FILM_D = 150
};
constexpr int TM30_FIRST = 65, TM30_LAST = 115;
constexpr double RANGE_NM[2] = {360.0, 830.0};
constexpr double IR_RANGE_NM[2] = {360.0, 1050.0};

void commaFor(std::string& text, bool comma) {
    if (comma) std::replace(text.begin(), text.end(), '.', ',');
}

bool writeOrAppend(const std::string& path, const std::string& text, bool started) {
    if (!started) return writeFileAtomically(path, text);
    std::FILE* file = std::fopen(path.c_str(), "ab");
    if (file == nullptr) return false;
    const bool ok = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && ok;
}

// Text file block builder: the field texts by number.
class Block {
  public:
    explicit Block(const PhotometryRun& run) : run(run), f(*run.fields) {}
    const char* t(int i) const { return f[i].text.c_str(); }
    bool defined(int i) const { return f[i].defined; }
    void add(const std::string& text) { out += text; }
    template <typename... Args>
    void add(const char* format, Args... args) {
        out += ValueFormat::format(format, args...);
    }
    std::string out;
    const PhotometryRun& run;
    const std::vector<ResultField>& f;
};

void powerLines(Block& b) {
    const PhotometryRun& run = b.run;
    const char* unit = run.format.wattsFactor > 1.0 ? "mW" : "W";
    b.add("lumens = %s", b.t(LUMENS));
    b.add("   W (%.0lf - %.0lf nm) = %s %s", RANGE_NM[0], RANGE_NM[1], b.t(VIS_WATT), unit);
    b.add("   CCT = %s", b.t(CCT));
    b.add(" (%s)", b.t(MIRED));
    b.add("   LER = %s", b.t(LER));
    if (run.mix->wallPlugKnown) {
        b.add("   LPW (wall-plug) = %s", b.t(LPW));
        b.add("   Watts (wall-plug) = %s", b.t(ELEC_W));
    }
    b.add("\n");
    if (run.results->includeIR) {
        b.add("W (%.0lf - %.0lf nm) = %s %s", IR_RANGE_NM[0], IR_RANGE_NM[1], b.t(TOTAL_W), unit);
        b.add("   Extended lm (%.0lf - %.0lf nm) = %s\n", IR_RANGE_NM[0], IR_RANGE_NM[1],
              b.t(EXT_LM));
    }
    if (run.mix->bluePeakRemoved) {
        b.add("Wblue = %s %s", b.t(BLUE_W), unit);
        b.add("   Wphosphor = %s %s\n", b.t(PHOS_W), unit);
    }
}

void filmAndChromaticity(Block& b) {
    const SpectrumResults& r = *b.run.results;
    const double* film = r.cct < 4500.0 ? r.film3200K : r.filmDaylight;
    if (film[2] > 0.0) {
        const double scale = 100.0 / film[2];
        b.add(r.cct < 4500.0 ? "\nBGR (W): %.0lf/%.0lf/%.0lf (%.2lf)"
                             : "\nBGR (D): %.0lf/%.0lf/%.0lf (%.2lf)",
              film[0] * scale, film[1] * scale, film[2] * scale,
              film[0] > 0.0 ? film[1] / film[0] : 0.0);
    } else {
        b.add("\nBGR : N/A");
    }
    b.add("       Duv-cri = %.4lf", r.duv);
    b.add("\n");
    b.add("x = %s   ", b.t(X));
    b.add("y = %s   ", b.t(Y));
    b.add("u' = %s   ", b.t(UP));
    b.add("v' = %s   ", b.t(VP));
    b.add("Duv = %s   ", b.t(DUV));
    b.add("Du'v' = %s   ", b.t(DUPVP));
    b.add("\n");
    if (b.run.withGamuts) {
        const char* const formats[8] = {"CCT (F,10) = %s   ", "lm (F,10) = %s   ",
                                        "x (F,10) = %s   ",   "y (F,10) = %s   ",
                                        "u' (F,10) = %s   ",  "v' (F,10) = %s   ",
                                        "Duv (F,10) = %s   ", "Du'v' (F,10) = %s   "};
        const int fields[8] = {CCT10,     CCT10 + 7, CCT10 + 1, CCT10 + 2,
                               CCT10 + 3, CCT10 + 4, CCT10 + 5, CCT10 + 6};
        for (int k = 0; k < 8; ++k) b.add(formats[k], b.t(fields[k]));
        b.add("\n");
    }
}

void colourLines(Block& b) {
    if (b.defined(DOM_WL)) {
        b.add("dom WL = %s", b.t(DOM_WL));
        b.add("nm   ");
    } else {
        b.add("dom WL = %s   ", b.t(DOM_WL));
    }
    b.add("peak cent = %s   ", b.t(CENT_WL));
    b.add("FWHM = %s   ", b.t(FWHM));
    b.add("purity = %s\n", b.t(PURITY));
    b.add("FCI = %s   ", b.t(FCI));
    b.add("FSI = %s   ", b.t(FSI));
    b.add("FSCI = %s   ", b.t(FSCI));
    b.add("WBMR = %s   ", b.t(WBMR));
    b.add("Scopotic lm = %s   ", b.t(LUMENS_S));
    b.add("S/P = %s   ", b.t(SP));
    b.add(b.run.results->includeIR ? "Photons/s (360-1050nm) = %s   "
                                   : "Photons/s (360-830nm) = %s   ",
          b.t(PHOTONS));
    if (b.run.mix->rmsValid) b.add("   RMS Diff. = %s", b.t(RMS));
    b.add("\n");
    b.add("IES %s: Rf = %s   ", Vantrel::getTM30_version(), b.t(RF));
    b.add("Rg = %s   ", b.t(RG));
    b.add("Rf,skin = %s   ", b.t(RF_SKIN));
    b.add("\n");
}

void gamutLines(Block& b) {
    if (!b.run.withGamuts) return;
    const char* const areas[4] = {"Gamut area CRI u'v' (test/ref) = %s / %s   ",
                                  "Gamut area CQS u'v' (test/ref) = %s / %s   ",
                                  "Gamut area CRI uv (test/ref) = %s / %s   ",
                                  "Gamut area CQS uv (test/ref) = %s / %s   "};
    for (int k = 0; k < 4; ++k) b.add(areas[k], b.t(AREAS + 2 * k), b.t(AREAS + 2 * k + 1));
    b.add("\n");
    b.add("Gamut CRI = %s   ", b.t(GAMUT_CRI));
    b.add("Gamut CQS = %s   ", b.t(GAMUT_CQS));
    b.add("Gamut D65 = %s   ", b.t(GAMUT_D65));
    b.add("GAI E = %s   ", b.t(GAI_E));
    b.add("\n");
    if (b.run.limitUmolTo400_700) {
        b.add("umol/s (400-700nm) = %s   ", b.t(UMOL_S));
    } else if (b.run.results->includeIR) {
        b.add("umol/s (360-1050nm)  = %s   ", b.t(UMOL_S));
    } else {
        b.add("umol/s (360-830nm) = %s   ", b.t(UMOL_S));
    }
    b.add("umol/J (spec) = %s   ", b.t(UMOL_J_SPEC));
    b.add("umol/J (wp) = %s", b.t(UMOL_J_WP));
    b.add("\n");
    b.add("COI = %s   ", b.t(COI));
    b.add("Class A = %s   ", b.t(CLASS_A));
    b.add("TLCI-2012 Qa/d = %s/%s   ", b.t(TLCI_QA), b.t(TLCI_D));
    b.add("\n");
}

void valueLines(Block& b) {
    if (b.run.mix->binningOn) b.add("Max CIELAB dE* = %s\n", b.t(MAX_DE));
    b.add("\nCRI=%s  ", b.t(CRI));
    for (int k = 0; k < 15; ++k) b.add("R%d=%s  ", k + 1, b.t(R1 + k));
    b.add("\nCQS=%s  ", b.t(CQS));
    for (int k = 0; k < 15; ++k) b.add("Q%d=%s  ", k + 1, b.t(Q1 + k));
    b.add("\n%s: Rf=%s  ", Vantrel::getTM30_version(), b.t(RF));
    for (int k = 0; k < 16; ++k) b.add("Rfh,%d=%s  ", k + 1, b.t(RFH1 + k));
    b.add("\n");
    for (int k = 0; k < 16; ++k) b.add("Rhs,h%d=%s  ", k + 1, b.t(RHS1 + k));
    b.add("\n");
    for (int k = 0; k < 16; ++k) b.add("Rcs,h%d=%s  ", k + 1, b.t(RCS1 + k));
    b.add("\n\n");
    b.add(std::string(85, '*'));
    b.add("\n");
    b.add(std::string(90, '*'));
    b.add("\n\n");
}

}  // namespace

std::string getExcelString(bool valuesNotNames, const std::string& prefix,
                           const OutputField* fields, const int* order,
                           const std::vector<ResultField>& values, bool filmResponsePrinting,
                           bool commaDecimals) {
    std::string line = prefix;
    for (int k = 0; k < NUM_OUTPUT_FIELDS; ++k) {
        const int i = order[k];
        if (i < 0 || i >= NUM_OUTPUT_FIELDS || !fields[i].selected) continue;
        if ((i == FILM_W || i == FILM_D) && !filmResponsePrinting) continue;
        line += '\t';
        if (valuesNotNames) {
            std::string value = i < static_cast<int>(values.size()) ? values[i].text : "";
            commaFor(value, commaDecimals);
            line += value;
        } else {
            line += fields[i].name;
            if (i >= TM30_FIRST && i <= TM30_LAST)
                line += std::string(" (") + Vantrel::getTM30_version() + ")";
        }
    }
    return line + "\n";
}

std::string photometryText(const PhotometryRun& run) {
    if (run.individual) return individualLine(run);
    if (run.tabbedShort) return abbreviatedTabLine(run);
    Block b(run);
    b.add(run.title);
    powerLines(b);
    filmAndChromaticity(b);
    colourLines(b);
    gamutLines(b);
    valueLines(b);
    commaFor(b.out, run.commaDecimals);
    return b.out;
}

std::string individualLine(const PhotometryRun& run) {
    const double lpw = run.mix->wallPlugKnown ? run.mix->lpw : 0.0;
    std::string line = ValueFormat::format("%s %.1lf %.4lf %.4lf \n", run.name.c_str(), lpw,
                                           run.results->x, run.results->y);
    commaFor(line, run.commaDecimals);
    return line;
}

std::string abbreviatedTabLine(const PhotometryRun& run) {
    const SpectrumResults& r = *run.results;
    const std::vector<ResultField>& f = *run.fields;
    const int n = run.format.numDecimals;
    std::string line =
        ValueFormat::format("%s\t%s\t%.*lf\t%.*lf\t%.0lf\t%.*lf\t%d\t%d", f[LUMENS].text.c_str(),
                            f[ELEC_W].text.c_str(), n, r.x, n, r.y, r.cct, n, r.duv,
                            ValueFormat::round(r.R[0]), ValueFormat::round(r.R[9]));
    line += '\t';
    line += f[LER].text;
    line += '\t';
    line += run.allLPWKnown ? f[LPW].text : std::string(UNDEFINED_TERM);
    line += '\n';
    commaFor(line, run.commaDecimals);
    return line;
}

std::string tabFileName(const std::string& textFile) {
    const std::size_t dot = textFile.rfind(".txt");
    if (dot != std::string::npos && dot + 4 == textFile.size())
        return textFile.substr(0, dot) + ".xls";
    return textFile + ".xls";
}

std::string photometryWriteErrorText(const std::string& file) {
    return ValueFormat::format("Cannot open file \"%s\" for writting, it may be open in Excel.",
                               file.c_str());
}

bool writePhotometryText(const std::string& textFile, const PhotometryRun& run,
                         PhotometryFileState& state, std::string* failedFile) {
    state.photometryText = photometryText(run);
    if (run.tabbedShort) state.tabLine = state.photometryText;
    if (!writeOrAppend(textFile, state.photometryText, state.photometryFileStarted)) {
        *failedFile = textFile;
        return false;
    }
    state.photometryFileStarted = true;
    return true;
}

bool writePhotometryExcel(const std::string& tabFile, const PhotometryRun& run,
                          const OutputField* fields, const int* order, PhotometryFileState& state,
                          std::string* failedFile) {
    const std::string header = getExcelString(false, "Spectra/Filename", fields, order, *run.fields,
                                              run.filmResponsePrinting, false);
    // A name never spreads over two cells or lines.
    std::string name = run.name;
    std::replace(name.begin(), name.end(), '\t', ' ');
    std::replace(name.begin(), name.end(), '\n', ' ');
    std::string text;
    const bool newHeader = !state.tabFileStarted || header != state.lastExcelHeader;
    if (newHeader) text += header;
    text += getExcelString(true, name, fields, order, *run.fields, run.filmResponsePrinting,
                           run.commaDecimals);
    if (!writeOrAppend(tabFile, text, state.tabFileStarted)) {
        *failedFile = tabFile;
        return false;
    }
    state.tabFileStarted = true;
    state.lastExcelHeader = header;
    return true;
}

PhotometryRun photometryRunFromSettings(const CalculateOutcome& outcome,
                                        const ProgramSettings& settings) {
    PhotometryRun run;
    run.fields = &outcome.fields;
    run.results = &outcome.results;
    run.mix = &outcome.mix;
    run.format = fieldFormatFromOptions(settings);
    run.commaDecimals = settings.getBool("replaceDecimalWithComma");
    run.withGamuts = settings.getBool("writeGamuts_COI_ClassA_TLCI_toFile_Chk");
    run.tabbedShort = settings.getBool("writeTabbedDataMenuItem");
    run.allLPWKnown = outcome.rows.allLPWKnown;
    run.limitUmolTo400_700 = settings.getBool("constrain_uMol_sW_to_400_700nm");
    return run;
}

bool appendPhotometryFiles(const std::string& textFile, const PhotometryRun& run, bool tabFile,
                           const OutputField* fields, const int* order, PhotometryFileState& state,
                           std::string* failedFile) {
    if (!writePhotometryText(textFile, run, state, failedFile)) return false;
    return !tabFile ||
           writePhotometryExcel(tabFileName(textFile), run, fields, order, state, failedFile);
}

bool writeOrderToFile(const std::string& path, const OutputField* fields, const int* order) {
    std::vector<int> place(NUM_OUTPUT_FIELDS, 0);
    for (int k = 0; k < NUM_OUTPUT_FIELDS; ++k)
        if (order[k] >= 0 && order[k] < NUM_OUTPUT_FIELDS) place[order[k]] = k;
    std::string text = "<version>1\n";
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
        text += ValueFormat::format("<%s>%d %d\n", fields[i].name.c_str(), place[i],
                                    fields[i].selected ? 1 : 0);
    return writeFileAtomically(path, text);
}

namespace {
// The field of a name as written, else in the other power unit, else -1.
int fieldOfName(const OutputField* fields, const std::string& name) {
    std::string other = name;
    const std::size_t mw = other.find(" mW");
    if (mw != std::string::npos) {
        other.replace(mw, 3, " W");
    } else {
        const std::size_t w = other.find(" W");
        if (w != std::string::npos) other.replace(w, 2, " mW");
    }
    for (const std::string& candidate : {name, other})
        for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
            if (fields[i].name == candidate) return i;
    return -1;
}
}  // namespace

bool readOrderToFile(const std::string& path, OutputField* fields, int* order) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return false;
    // Every field keeps its present place unless the file gives another.
    std::vector<long> place(NUM_OUTPUT_FIELDS);
    for (int k = 0; k < NUM_OUTPUT_FIELDS; ++k)
        if (order[k] >= 0 && order[k] < NUM_OUTPUT_FIELDS) place[order[k]] = k;
    std::string line;
    int lines = 0;
    while (std::getline(in, line) && ++lines <= 10 * NUM_OUTPUT_FIELDS) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.size() < 3 || line[0] != '<') continue;
        const std::size_t close = line.find('>');
        if (close == std::string::npos) continue;
        const int i = fieldOfName(fields, line.substr(1, close - 1));
        if (i < 0) continue;
        long p = 0, selected = 0;
        if (std::sscanf(line.c_str() + close + 1, "%ld %ld", &p, &selected) != 2) continue;
        if (p < 0 || p >= NUM_OUTPUT_FIELDS) continue;
        place[i] = p;
        fields[i].selected = selected != 0;
    }
    // Repeated or missing places: ties keep field order, so the order stays a permutation.
    std::vector<int> byPlace(NUM_OUTPUT_FIELDS);
    std::iota(byPlace.begin(), byPlace.end(), 0);
    std::stable_sort(byPlace.begin(), byPlace.end(),
                     [&place](int a, int b) { return place[a] < place[b]; });
    std::copy(byPlace.begin(), byPlace.end(), order);
    return true;
}

namespace {
// Munsell notations of the CIE 13.3 test colours R1 to R15 and of the CQS 9.1 samples.
const char* const R_VALUE_COLOR_NAMES[15] = {"7.5 R 6/4 light grayish red",
                                             "5 Y 6/4 dark grayish yellow",
                                             "5 GY 6/8 strong yellow green",
                                             "2.5 G 6/6 moderate yellowish green",
                                             "10 BG 6/4 light bluish green",
                                             "5 PB 6/8 light blue",
                                             "2.5 P 6/8 light violet",
                                             "10 P 6/8 light reddish purple",
                                             "4.5 R 4/13 strong red",
                                             "5 Y 8/10 strong yellow",
                                             "4.5 G 5/8 strong green",
                                             "3 PB 3/11 strong blue",
                                             "5 YR 8/4 light yellowish pink (human complexion)",
                                             "5 GY 4/4 moderate olive green (leaf green)",
                                             "1 YR 6/4 (Asian skin tone)"};
const char* const Q_VALUE_COLOR_NAMES[15] = {
    "5 R 4/14",    "10 R 6/12",   "7.5 YR 7/12", "5 Y 8/12",    "2.5 GY 8/10",
    "7.5 GY 7/10", "2.5 G 6/12",  "2.5 BG 6/10", "10 BG 6/8",   "7.5 B 5/10",
    "2.5 PB 4/10", "7.5 PB 4/12", "5 P 5/10",    "2.5 RP 6/12", "7.5 RP 5/12"};
}  // namespace

std::string uvPrimeExport(const std::string& runName, const double criU[2][15],
                          const double criV[2][15], const double cqsU[2][15],
                          const double cqsV[2][15], bool commaDecimals,
                          const std::vector<UserColourUV>& userColours) {
    std::string text = ValueFormat::format("Color\tu'(test)\tv' (test)\tu' (ref)\tv' (ref)\t%s\n",
                                           runName.c_str());
    for (int k = 0; k < 15; ++k)
        text += ValueFormat::format("R%d\t%.4lf\t%.4lf\t%.4lf\t%.4lf", k + 1, criU[0][k],
                                    criV[0][k], criU[1][k], criV[1][k]) +
                ValueFormat::format("\t%s\n", R_VALUE_COLOR_NAMES[k]);
    for (int k = 0; k < 15; ++k)
        text += ValueFormat::format("Q%d\t%.4lf\t%.4lf\t%.4lf\t%.4lf", k + 1, cqsU[0][k],
                                    cqsV[0][k], cqsU[1][k], cqsV[1][k]) +
                ValueFormat::format("\t%s\n", Q_VALUE_COLOR_NAMES[k]);
    for (const UserColourUV& c : userColours)
        text += ValueFormat::format("%s\t", c.name.c_str()) +
                ValueFormat::format("%.4lf\t%.4lf\t%.4lf\t%.4lf\n", c.u[0], c.v[0], c.u[1], c.v[1]);
    commaFor(text, commaDecimals);
    return text;
}
