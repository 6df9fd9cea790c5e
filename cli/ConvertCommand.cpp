#include "ConvertCommand.h"

#include <ostream>

#include "CalcCommand.h"
#include "FileText.h"
#include "LedDefinitions.h"
#include "ReadSpectraFile.h"
#include "ResultFields.h"
#include "UserLibrary.h"
#include "UserLibraryChecks.h"
#include "Vantrel.h"

namespace {

// One spectrum on the program's grid, with the name it takes in a library or table.
struct GridSpectrum {
    std::string name;
    std::vector<double> values;  // Vantrel::NUM_GRID_POINTS_IR, 0 past 830 nm
};

int usageError(std::ostream& err, const std::string& message) {
    err << CLI_PROGRAM_NAME << ": " << message << '\n' << convertUsage();
    return EXIT_USAGE;
}

void report(std::ostream& err, const std::string& what, const std::string& message) {
    err << CLI_PROGRAM_NAME << ": " << what << ": " << message << '\n';
}

// The spectra of one input file, named as the window's import names them; false when the file
// gave nothing usable.
bool readInput(const std::string& file, std::vector<GridSpectrum>* spectra, std::ostream& err) {
    const int libraryType = libraryTypeOfFile(file);
    if (libraryType >= 0) {
        std::vector<ledTypeStruct> entries;
        std::string error;
        const bool whole = readUserLibrary(file, libraryType, &entries, &error);
        for (const ledTypeStruct& e : entries) {
            if (e.isPrivate) continue;  // a private colour never leaves its library
            spectra->push_back({e.name, std::vector<double>(
                                            e.spectrum, e.spectrum + Vantrel::NUM_GRID_POINTS_IR)});
        }
        if (!whole) err << CLI_PROGRAM_NAME << ": " << error << '\n';
        return whole;
    }
    const SpectraFileResult read = readSpectraFile(file);
    if (!read.ok) {
        report(err, read.errorLine > 0 ? file + ":" + std::to_string(read.errorLine) : file,
               read.error);
        return false;
    }
    bool ok = true;
    for (const NamedSpectrum& s : read.spectra) {
        GridSpectrum g{s.name, std::vector<double>(Vantrel::NUM_GRID_POINTS_IR, 0.0)};
        std::string error;
        if (!toGrid(s.data, g.values.data(), &error)) {
            report(err, file + "#" + s.name, error);
            ok = false;
            continue;
        }
        spectra->push_back(std::move(g));
    }
    return ok;
}

// Adds the spectra to the library at out, with their photometry; false when none could be.
bool writeLibrary(const std::vector<GridSpectrum>& spectra, const std::string& out,
                  std::ostream& err) {
    std::vector<ledTypeStruct> entries;
    std::string error;
    if (fileExists(out) && !readUserLibrary(out, LIBRARY_SPECTRA, &entries, &error)) {
        report(err, out, "the library can't be read whole, nothing was added: " + error);
        return false;
    }
    bool ok = true;
    for (const GridSpectrum& s : spectra) {
        LibraryMessage message;
        // The window lists the standard spectra before the library's.
        const int rows = LedDefinitions::NUM_STD_SPECTRA + static_cast<int>(entries.size());
        if (checkLibraryLimit(LIBRARY_SPECTRA, rows, &message) ||
            checkEntryName(LIBRARY_SPECTRA, s.name, &message) ||
            checkEntryIntensities(s.values, &message)) {
            report(err, s.name, message.text);
            ok = false;
            continue;
        }
        SpectrumCalculator calculator;
        const SpectrumResults r = calculator.calculate(s.values.data());
        const double wattsIR =
            Vantrel::getSpectralWatts(Vantrel::NUM_GRID_POINTS_IR, s.values.data(), 2.0);
        entries.push_back(makeUserLibraryEntry(LIBRARY_SPECTRA, s.name, 0.0, s.values, r.lumens,
                                               r.wattsVis, wattsIR));
    }
    const ReadWriteUserSpectra written(static_cast<int>(entries.size()), nullptr, entries.data(),
                                       "w", out, LIBRARY_SPECTRA, false);
    if (written.getError()) {
        report(err, out, "could not be written: " + written.getErrorMessage());
        return false;
    }
    return ok;
}

bool writeTable(const std::vector<GridSpectrum>& spectra, const std::string& out,
                std::ostream& err) {
    std::vector<ledTypeStruct> entries(spectra.size());
    for (std::size_t i = 0; i < spectra.size(); ++i) {
        entries[i] = makeUserLibraryEntry(LIBRARY_FILTERS, spectra[i].name, 0.0, spectra[i].values,
                                          0.0, 0.0, 0.0);
    }
    const std::string text = ReadWriteUserSpectra::formatTabbed(
        static_cast<int>(entries.size()), nullptr, entries.data(), LIBRARY_SPECTRA);
    std::string error;
    if (!writeFileAtomically(out, text, &error)) {
        report(err, out, "could not be written: " + error);
        return false;
    }
    return true;
}

}  // namespace

const char* convertUsage() {
    return "Usage: lumivar-cli convert --to tsv|spec FILE... -o OUT\n"
           "\n"
           "Reads the spectra of every FILE (any file calc reads: spectrometer files, column\n"
           "files, user libraries) onto the program's 2 nm grid and writes them to OUT:\n"
           "  --to tsv   a tab-separated table: a header row \"nm\" and the spectrum names, then\n"
           "             one row per wavelength from 360 to 1050 nm\n"
           "  --to spec  adds them to the user spectra library OUT (made when missing), each\n"
           "             under its name with its lumens and watts, as the window's import does\n"
           "\n"
           "Exit status: 0 when every spectrum was written, 1 when a file or spectrum failed\n"
           "(the others are still written), 2 on wrong usage.\n";
}

int runConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    std::string to, output;
    std::vector<std::string> files;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "-h" || arg == "--help") {
            out << convertUsage();
            return EXIT_ALL_GOOD;
        } else if (arg == "--to" || arg == "-o") {
            if (i + 1 == args.size()) return usageError(err, arg + " needs a value");
            (arg == "--to" ? to : output) = args[++i];
        } else if (!arg.empty() && arg[0] == '-') {
            return usageError(err, "unknown option '" + arg + "'");
        } else {
            files.push_back(arg);
        }
    }
    if (to != "tsv" && to != "spec") return usageError(err, "--to must be tsv or spec");
    if (output.empty()) return usageError(err, "-o OUT is needed");
    if (files.empty()) return usageError(err, "no FILE to convert");

    std::vector<GridSpectrum> spectra;
    bool ok = true;
    for (const std::string& file : files) ok = readInput(file, &spectra, err) && ok;
    if (spectra.empty()) {
        report(err, output, "no spectrum to write");
        return EXIT_INPUT_PROBLEM;
    }
    ok = (to == "spec" ? writeLibrary(spectra, output, err) : writeTable(spectra, output, err)) &&
         ok;
    return ok ? EXIT_ALL_GOOD : EXIT_INPUT_PROBLEM;
}
