#include "DesignCalc.h"

#include <sys/stat.h>

#include <cstdio>
#include <cstdlib>
#include <ostream>

#include "AppConstants.h"
#include "CalcCommand.h"
#include "DesignCalculation.h"
#include "ProgramFolder.h"
#include "ResultFields.h"
#include "UserLibrary.h"

namespace {

std::string preciseText(const ResultField& field) {
    if (!field.defined) return UNDEFINED_TERM;
    char buf[40];
    std::snprintf(buf, sizeof buf, "%.10g", field.value);
    return buf;
}

// A box's text on one line.
std::string oneLine(std::string text) {
    for (char& c : text)
        if (c == '\n' || c == '\r') c = ' ';
    return text;
}

bool isDirectory(const std::string& path) {
    struct stat info;
    return ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}

}  // namespace

void printDesignHeader(std::ostream& out) {
    const std::vector<ResultField> names = outputFieldValues(SpectrumResults());
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i)
        if (fieldHasMeaningForDesign(i)) out << '\t' << names[i].name;
}

bool calcDesign(const std::string& path, const std::string& folder, bool precise, std::ostream& out,
                std::ostream& err) {
    CalculateModel model(folder);
    for (const LedDefinitions::PeakFileProblem& p : model.definitions().getPeakFileProblems()) {
        err << CLI_PROGRAM_NAME << ": " << model.definitions().getPeakFilePath() << ':' << p.line
            << ": " << p.text << '\n';
    }
    // The design's rows and filter checks refer to the user's libraries by position.
    std::vector<ledTypeStruct> spectra, filters;
    std::string error;
    if (!folder.empty()) {
        const int room = MAX_SPECTRA_ROWS - model.definitions().getNumStdSpectra();
        readUserLibrary(folder + userLibraryFileName(LIBRARY_SPECTRA), LIBRARY_SPECTRA, &spectra,
                        &error, room);
        readUserLibrary(folder + userLibraryFileName(LIBRARY_FILTERS), LIBRARY_FILTERS, &filters,
                        &error);
    }
    model.setUserSpectra(spectra);
    const DesignCalculation design = calculateDesign(path, model, filters);
    if (!design.ok) {
        err << CLI_PROGRAM_NAME << ": " << path << ": ";
        if (design.messages.empty()) {
            err << "the design could not be calculated\n";
        } else {
            const CalcMessage& m = design.messages.front();
            err << m.title << ": " << oneLine(m.text) << '\n';
        }
        return false;
    }
    out << path;
    const std::vector<ResultField>& fields = design.outcome.fields;
    for (int i = 0; i < NUM_OUTPUT_FIELDS && i < static_cast<int>(fields.size()); ++i) {
        if (fieldHasMeaningForDesign(i))
            out << '\t' << (precise ? preciseText(fields[i]) : fields[i].text);
    }
    out << '\n';
    return true;
}

std::string defaultProgramFolder() {
    const char* home = std::getenv("HOME");
    std::string base = home != nullptr ? home : passwordHomeDirectory();
    if (base.empty()) return std::string();
    const std::string folder = withTrailingSlash(base) + PROGRAM_FOLDER_NAME;
    return isDirectory(folder) ? withTrailingSlash(folder) : std::string();
}
