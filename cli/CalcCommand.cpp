#include "CalcCommand.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <istream>
#include <memory>
#include <ostream>

#include "AppConstants.h"
#include "CalculateModel.h"
#include "DesignCalc.h"
#include "DesignCalculation.h"
#include "PhotometryFiles.h"
#include "ProgramSettings.h"
#include "ReadSpectraFile.h"
#include "ResultFields.h"
#include "SpectrumFile.h"
#include "UserLibrary.h"
#include "ValueFormat.h"
#include "Vantrel.h"

namespace {

constexpr const char* STDIN_NAME = "-";

// The photometry files of --photometry DIR: each spectrum is calculated as the window's direct
// input calculates it, with the default options, and appended by the window's own code.
struct PhotometrySink {
    std::string textFile;  // DIR/photometry.txt
    ProgramSettings settings;
    OutputField fields[NUM_OUTPUT_FIELDS];
    int order[NUM_OUTPUT_FIELDS] = {};
    PhotometryFileState state;
    bool failed = false;
};
// Appends one spectrum; a file that can't be written is reported once.
void appendPhotometry(PhotometrySink& sink, const std::string& row, const double* grid,
                      std::ostream& err) {
    CalculateModel model;
    const CalculateOutcome outcome = model.calculateSpectrum(
        grid, mixSettingsFromOptions(sink.settings, 1), fieldFormatFromOptions(sink.settings));
    PhotometryRun run = photometryRunFromSettings(outcome, sink.settings);
    run.name = row;
    run.title = "Direct spectrum input\n" + row + "\n";
    std::string failedFile;
    // The state is appended to: the first spectrum starts both files anew, as the window's
    // first Calculate does.
    if (!appendPhotometryFiles(sink.textFile, run,
                               sink.settings.getBool("writeAllToPhotometryExcelMenuItem"),
                               sink.fields, sink.order, sink.state, &failedFile) &&
        !sink.failed) {
        sink.failed = true;
        err << CLI_PROGRAM_NAME << ": " << photometryWriteErrorText(failedFile) << '\n';
    }
}

int usageError(std::ostream& err, const std::string& message) {
    err << CLI_PROGRAM_NAME << ": " << message << '\n' << calcUsage();
    return EXIT_USAGE;
}

// One line on err: "lumivar-cli: FILE:LINE: message", without LINE when it is 0.
void report(std::ostream& err, const std::string& file, int line, const std::string& message) {
    err << CLI_PROGRAM_NAME << ": " << file << ':';
    if (line > 0) err << line << ':';
    err << ' ' << message << '\n';
}

std::string preciseText(const ResultField& field) {
    if (!field.defined) return UNDEFINED_TERM;
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.10g", field.value);
    return buf;
}

// The printed columns: every output field that says something about a spectrum alone, in
// field order, then the circadian figures when they were asked for.
std::vector<ResultField> printedFields(const SpectrumResults& results) {
    std::vector<ResultField> printed;
    const std::vector<ResultField> fields = outputFieldValues(results);
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        if (fieldHasMeaningForSpectrumFile(i)) printed.push_back(fields[i]);
    }
    if (results.hasCircadian) {
        // As the circadian window prints them: CLA "%.0lf", CS in percent "%.1lf".
        const bool valid = results.circadianValid;
        printed.push_back({"CLA",
                           valid ? ValueFormat::format("%.0lf", results.cla) : UNDEFINED_TERM,
                           valid, results.cla});
        printed.push_back(
            {"CS", valid ? ValueFormat::format("%.1lf", 100.0 * results.cs) : UNDEFINED_TERM, valid,
             100.0 * results.cs});
    }
    return printed;
}

void printRow(std::ostream& out, const std::string& file, const std::vector<ResultField>& fields,
              bool precise) {
    out << file;
    for (const ResultField& field : fields)
        out << '\t' << (precise ? preciseText(field) : field.text);
    out << '\n';
}

// Computes one spectrum on the grid and prints its row under the name row. A spectrum without
// a chromaticity gets the window's error on err instead, and false.
bool printResults(const std::string& row, const double* grid, int observer, double csLux,
                  bool precise, PhotometrySink* sink, std::ostream& out, std::ostream& err) {
    // A fresh calculator per spectrum: engines keep results between runs, and a row must not
    // depend on the spectra before it.
    SpectrumCalculator calculator;
    calculator.setObserver(observer);
    CalculationOptions options;
    options.csLux = csLux;
    const SpectrumResults results = calculator.calculate(grid, options);
    if (!results.hasChromaticity) {
        report(err, row, 0, noChromaticityMessage(results.overflow).text);
        return false;
    }
    printRow(out, row, printedFields(results), precise);
    if (sink != nullptr) appendPhotometry(*sink, row, grid, err);
    return true;
}

// A row per entry of a user library, named "FILE#entry name"; the entries stand on the grid
// already. Filters and colours are computed as the curves they are.
bool calcLibrary(const std::string& file, int libraryType, int observer, double csLux, bool precise,
                 PhotometrySink* sink, std::ostream& out, std::ostream& err) {
    std::vector<ledTypeStruct> entries;
    std::string error;
    const bool readWhole = readUserLibrary(file, libraryType, &entries, &error);
    bool whole = readWhole;
    for (const ledTypeStruct& entry : entries) {
        const std::string row = file + "#" + entry.name;
        if (entry.isPrivate) {
            report(err, row, 0, "a private colour is not shown");
            continue;
        }
        if (!printResults(row, entry.spectrum, observer, csLux, precise, sink, out, err))
            whole = false;
    }
    if (!readWhole) err << CLI_PROGRAM_NAME << ": " << error << '\n';
    return whole;
}

// Computes one file and prints a row per spectrum in it; false when the input was not clean.
bool calcFile(const std::string& file, int observer, double csLux, bool precise,
              PhotometrySink* sink, std::istream& in, std::ostream& out, std::ostream& err) {
    const int libraryType = libraryTypeOfFile(file);
    if (libraryType >= 0)
        return calcLibrary(file, libraryType, observer, csLux, precise, sink, out, err);
    SpectraFileResult read;
    if (file == STDIN_NAME) {
        SpectrumReadResult text = readSpectrum(in);
        read.ok = text.ok;
        read.error = text.error;
        read.errorLine = text.errorLine;
        read.firstNegativeLine = text.firstNegativeLine;
        read.spectra.push_back({file, std::move(text.data)});
    } else {
        read = readSpectraFile(file);
    }
    if (!read.ok) {
        report(err, file, read.errorLine, read.error);
        return false;
    }
    // Each spectrum of a file of several is named "FILE#name".
    const bool several = read.spectra.size() > 1;
    bool clean = read.firstNegativeLine == 0;
    bool warned = false;
    for (const NamedSpectrum& spectrum : read.spectra) {
        const std::string row = several ? file + "#" + spectrum.name : file;
        double grid[Vantrel::NUM_GRID_POINTS];
        std::string error;
        if (!toGrid(spectrum.data, grid, &error)) {
            report(err, row, 0, error);
            clean = false;
            continue;
        }
        if (!warned && read.firstNegativeLine > 0) {
            report(err, file, read.firstNegativeLine, "negative values set to 0");
            warned = true;
        }
        if (!printResults(row, grid, observer, csLux, precise, sink, out, err)) clean = false;
    }
    return clean;
}

// The rows of saved designs, each calculated as the window does after opening it.
int runDesigns(const std::vector<std::string>& designs, const std::string& folder, bool precise,
               std::ostream& out, std::ostream& err) {
    out << "file";
    printDesignHeader(out);
    out << '\n';
    int status = EXIT_ALL_GOOD;
    for (const std::string& design : designs) {
        if (!calcDesign(design, folder, precise, out, err)) status = EXIT_INPUT_PROBLEM;
    }
    out.flush();
    return out ? status : EXIT_INPUT_PROBLEM;
}

}  // namespace

const char* cliUsage() {
    return "Usage: lumivar-cli COMMAND [OPTION...] [FILE...]\n"
           "\n"
           "Commands:\n"
           "  calc     results of spectrum files, one table row per spectrum\n"
           "  convert  spectra of any readable file as a table or into a user library\n"
           "  check-update  ask the version server whether a newer version exists\n"
           "  report   a quality chart or the TM-30 report of a spectrum as PDF, SVG or PNG\n"
           "\n"
           "Run 'lumivar-cli calc --help' for the options of calc.\n";
}

const char* calcUsage() {
    return "Usage: lumivar-cli calc [--observer 0|1|2|3] [--precise] [--photometry DIR] "
           "[FILE ...]\n"
           "       lumivar-cli calc [--precise] [--folder DIR] --design FILE.vtd ...\n"
           "\n"
           "Prints the main results of each spectrum FILE as a tab-separated table: a header\n"
           "row, then one row per spectrum. A FILE holds two columns, wavelength (nm) and W/nm,\n"
           "separated by blanks, tabs, commas or semicolons (with semicolons a comma may be the\n"
           "decimal point), with an optional header line and '#' comments; further columns are\n"
           "further spectra, named FILE#title. Spectrometer files are read by extension:\n"
           "SpecWin and Mole .isd, .spdx, CGATS .sp, SpectraSuite .txt. With no FILE, or\n"
           "where FILE is -, reads a two-column spectrum from standard input.\n"
           "\n"
           "  --observer N  observer of the main results: 0 CIE 1931 2 deg (default),\n"
           "                1 CIE 1964 10 deg, 2 CIE 2015 2 deg, 3 CIE 2015 10 deg\n"
           "  --precise     unrounded values (%.10g) instead of the window's formatting\n"
           "  --cs-lux LUX  add the circadian light CLA and stimulus CS (%) at LUX lux\n"
           "  --photometry DIR  also append each spectrum to DIR/photometry.txt and the\n"
           "                tab-delimited DIR/photometry.xls, as the window's Calculate does\n"
           "                for direct input (fields in the order of ./outputOrder.txt); the\n"
           "                first spectrum starts both files anew\n"
           "  --design FILE a saved design, calculated as the window's Calculate does after\n"
           "                opening it (its rows, lumens or watts, filters, analysis type and\n"
           "                options); one row per design, with every field of the window that\n"
           "                a design gives. May be repeated; not combined with spectrum files.\n"
           "  --folder DIR  the per-user folder whose user spectra and filters the design's\n"
           "                rows refer to (default: the window's, ~/Lumivar_KBI)\n"
           "  -h, --help    show this help\n"
           "\n"
           "Exit status: 0 when every file was computed from clean input, 1 when a file\n"
           "failed or had negative values (computed as 0), 2 on wrong usage.\n";
}

int runCalc(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
            std::ostream& err) {
    int observer = 0;
    double csLux = -1.0;
    bool precise = false;
    bool optionsEnded = false;
    std::vector<std::string> files, designs;
    std::string folder, photometryDir;
    bool folderGiven = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (optionsEnded || arg == STDIN_NAME || arg.empty() || arg[0] != '-') {
            files.push_back(arg);
        } else if (arg == "--") {
            optionsEnded = true;
        } else if (arg == "-h" || arg == "--help") {
            out << calcUsage();
            return EXIT_ALL_GOOD;
        } else if (arg == "--precise") {
            precise = true;
        } else if (arg == "--photometry") {
            if (i + 1 == args.size()) return usageError(err, arg + " needs a value");
            photometryDir = args[++i];
            if (photometryDir.empty()) return usageError(err, "--photometry needs a folder");
        } else if (arg == "--design" || arg == "--folder") {
            if (i + 1 == args.size()) return usageError(err, arg + " needs a value");
            if (arg == "--design") {
                designs.push_back(args[++i]);
            } else {
                folder = args[++i];
                folderGiven = true;
            }
        } else if (arg == "--observer" || arg.rfind("--observer=", 0) == 0) {
            std::string value;
            if (arg == "--observer") {
                if (i + 1 == args.size()) return usageError(err, "--observer needs a value");
                value = args[++i];
            } else {
                value = arg.substr(arg.find('=') + 1);
            }
            if (value.size() != 1 || value[0] < '0' || value[0] > '3') {
                return usageError(err, "--observer must be 0, 1, 2 or 3, not '" + value + "'");
            }
            observer = value[0] - '0';
        } else if (arg == "--cs-lux" || arg.rfind("--cs-lux=", 0) == 0) {
            std::string value;
            if (arg == "--cs-lux") {
                if (i + 1 == args.size()) return usageError(err, "--cs-lux needs a value");
                value = args[++i];
            } else {
                value = arg.substr(arg.find('=') + 1);
            }
            char* end = nullptr;
            csLux = std::strtod(value.c_str(), &end);
            if (value.empty() || *end != '\0' || !(csLux > 0.0) || !std::isfinite(csLux)) {
                return usageError(err,
                                  "--cs-lux must be a positive illuminance, not '" + value + "'");
            }
        } else {
            return usageError(err, "unknown option '" + arg + "'");
        }
    }
    if (!designs.empty()) {
        if (!files.empty())
            return usageError(err, "--design cannot be combined with spectrum files");
        if (folderGiven && !folder.empty() && folder.back() != '/') folder += '/';
        return runDesigns(designs, folderGiven ? folder : defaultProgramFolder(), precise, out,
                          err);
    }
    if (files.empty()) files.push_back(STDIN_NAME);

    out << "file";
    SpectrumResults columns;
    columns.hasCircadian = csLux > 0.0;
    for (const ResultField& field : printedFields(columns)) out << '\t' << field.name;
    out << '\n';

    std::unique_ptr<PhotometrySink> sink;
    if (!photometryDir.empty()) {
        sink = std::make_unique<PhotometrySink>();
        sink->textFile =
            photometryDir + (photometryDir.back() == '/' ? "" : "/") + PHOTOMETRY_FILE_NAME;
        // The field order the window keeps in the working directory.
        if (!readOrderToFile(OUTPUT_ORDER_FILE_NAME, sink->fields, sink->order))
            resetOutputOrder(sink->fields, sink->order);
        // A spectrum file's photometry is that of the first observer's results: --observer and
        // --cs-lux change the printed table only.
    }
    int status = EXIT_ALL_GOOD;
    for (const std::string& file : files) {
        if (!calcFile(file, observer, csLux, precise, sink.get(), in, out, err))
            status = EXIT_INPUT_PROBLEM;
    }
    if (sink != nullptr && sink->failed) status = EXIT_INPUT_PROBLEM;
    out.flush();
    if (!out) {
        err << CLI_PROGRAM_NAME << ": cannot write the results\n";
        status = EXIT_INPUT_PROBLEM;
    }
    return status;
}
