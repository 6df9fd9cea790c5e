// Imports of measured spectra, filters and colours from spectrometer and text files into the
// user libraries. Each spectrum of each file goes through the free-format table and an ordinary
// Calculate, so that its library entry holds exactly what the window computes for it.
#include <algorithm>

#include "Fox_Fixes/Table_zwk7.h"
#include "ProcessSpectrometerFiles.h"
#include "ReadSpectraFile.h"
#include "SpectrumFileName.h"
#include "SpectrumUnits.h"
#include "UserDialogs.h"
#include "UserLibrary.h"
#include "VantrelGUI.h"

namespace {

using PSF = ProcessSpectrometerFiles;

const char* const TEXT_PATTERNS =
    "Text files (*.txt)\nData files (*.dat)\nCSV files (*.csv)\nAll files (*)";
const char* const ISD_PATTERNS = "ISD files (*.isd,*.ISD)\nAll files (*)";

const char* spectrumPatterns(int fileType) {
    switch (fileType) {
        case PSF::SPECWIN_ISD:
        case PSF::MOLE_ISD:
            return ISD_PATTERNS;
        case PSF::SPECTRASUITE:
            return "SpectraSuite files (*.txt)\nAll files (*)";
        case PSF::SPDX:
            return "SPDX files (*.spdx)\nAll files (*)";
        case PSF::SP:
            return "CGATS files (*.sp)\nAll files (*)";
        default:
            return TEXT_PATTERNS;
    }
}

bool isTwoColumnType(int fileType) {
    return fileType == PSF::TWO_COLUMNS_NM_FIRST || fileType == PSF::TWO_COLUMNS_NM_LAST;
}

}  // namespace

std::string VantrelGUI::importedSpectrumName(const ProcessSpectrometerFiles& file,
                                             const std::string& title, int index) const {
    const int count = file.getNumOfSpectraInFile();
    if (count <= 1) return title;
    const bool withFile = settings.getBool("includeFilenameInSpectrumName_Chk");
    if (file.getFileType() == PSF::SP)
        return FXString().format("%s (#%d)", title.c_str(), index + 1).text();
    const std::string header = file.getHeaderStr(index);
    if (!header.empty()) {
        return withFile ? FXString()
                              .format("%s (#%d in %s)", header.c_str(), index + 1, title.c_str())
                              .text()
                        : header;
    }
    return withFile ? FXString().format("#%d in %s", index + 1, title.c_str()).text()
                    : FXString().format("#%d", index + 1).text();
}

void VantrelGUI::fillFreeFormatTable(const std::vector<double>& nm,
                                     const std::vector<double>& values) {
    Table_zwk7* table = inputTables[RANGE_FREE_FORMAT];
    const int n = static_cast<int>(nm.size());
    if (table->getNumRows() < n)
        table->insertRows(table->getNumRows(), n - table->getNumRows(), FALSE);
    for (int r = 0; r < table->getNumRows(); ++r) {
        table->setItemText(r, 0, r < n ? FXString().format("%.2lf", nm[r]) : FXString());
        table->setItemText(r, 1, r < n ? FXString().format("%.*le", 3, values[r]) : FXString());
    }
}

long VantrelGUI::onCmdOpenISDspecFile(FXObject*, FXSelector sel, void*) {
    const int fileType = std::clamp(static_cast<int>(FXSELID(sel)) - ID_IMPORT_SPECTROMETER, 0,
                                    static_cast<int>(PSF::MOLE_ISD));
    int pattern = settings.getInt("currentPatternIndexReadUserSpecFromFile");
    std::vector<std::string> files;
    if (!UserDialogs::chooseFiles(this, "Import spectra", spectrumPatterns(fileType),
                                  settings.getString("pathUserFilesDirectory").c_str(), &pattern,
                                  &files))
        return 1;
    settings.setInt("currentPatternIndexReadUserSpecFromFile", pattern);
    importFiles(LIBRARY_SPECTRA, fileType, files);
    return 1;
}

long VantrelGUI::onCmdOpenFilterColorFile(FXObject*, FXSelector sel, void*) {
    const int id = static_cast<int>(FXSELID(sel)) - ID_IMPORT_FILTER_COLOR_FILE;
    const int libraryType = id < 2 ? LIBRARY_FILTERS : LIBRARY_COLORS;
    const int fileType = id % 2 == 0 ? PSF::SPECWIN_ISD : PSF::TWO_COLUMNS_NM_FIRST;
    int pattern = 0;
    std::vector<std::string> files;
    if (!UserDialogs::chooseFiles(
            this, libraryType == LIBRARY_FILTERS ? "Import filters" : "Import colors",
            fileType == PSF::SPECWIN_ISD ? ISD_PATTERNS : TEXT_PATTERNS,
            settings.getString("pathUserFilesDirectory").c_str(), &pattern, &files))
        return 1;
    importFiles(libraryType, fileType, files);
    return 1;
}

bool VantrelGUI::importFiles(int libraryType, int fileType, std::vector<std::string> files) {
    const bool spectra = libraryType == LIBRARY_SPECTRA;
    const char* kind = spectra ? "spectra" : libraryType == LIBRARY_FILTERS ? "filter" : "color";
    const int room = spectra ? std::max(0, MAX_SPECTRA_ROWS + 1 - getNumSpectra())
                             : MAX_FILTER_COLOR_ENTRIES + 1;
    if (static_cast<int>(files.size()) > room) {
        if (spectra) {
            UserDialogs::warning(this, MBOX_OK, "Import warning",
                                 "You have selected too many spectra (%d), only the first %d will "
                                 "be imported.",
                                 static_cast<int>(files.size()), room);
        } else {
            UserDialogs::warning(this, MBOX_OK, "Import warning",
                                 "You have selected too many %ss (%d), only the first %d will be "
                                 "imported.",
                                 kind, static_cast<int>(files.size()), room);
        }
        files.resize(room);
    }
    const bool isd = fileType == PSF::SPECWIN_ISD || fileType == PSF::MOLE_ISD;
    int units = 0;
    // An ISD file states its units; for spectra of other files the user says them once.
    if (spectra && !isd && !SpectrumUnits(this).getData(&units)) return false;

    const int oldUnits = settings.getInt("freeFormatInputUnitsIndex");
    importing = true;
    setAnalysisType(spectra ? 1 : libraryType == LIBRARY_FILTERS ? 4 : 7);
    setSpectrumRange(RANGE_FREE_FORMAT);
    if (spectra) settings.setInt("freeFormatInputUnitsIndex", units);
    setTableColumnTitles();

    std::string failures, unitsWarnings;
    int lastNew = -1;
    for (const std::string& path : files) {
        ProcessSpectrometerFiles file;
        const bool read = isTwoColumnType(fileType) ? file.setFile(path, fileType)
                                                    : file.setFile(path, fileType == PSF::MOLE_ISD);
        if (!read || file.getNumberOfPoints() < 2 || file.getNumOfSpectraInFile() < 1) {
            failures += path + "\n";
            continue;
        }
        // SpectraSuite measurements carry their drive in the file name.
        const TestDrive drive =
            fileType == PSF::SPECTRASUITE ? parseSpecFilename(fileTitle(path)) : TestDrive{};
        const std::string title = fileType == PSF::SPECTRASUITE ? drive.title : fileTitle(path);
        const double factor =
            fileType == PSF::SPECWIN_ISD ? file.getSpecWinUnitsConversionFactor() : 1.0;
        double maxValue = 0.0;
        for (int k = 0; k < file.getNumOfSpectraInFile(); ++k) {
            std::vector<double> nm(file.getNumberOfPoints()), values(file.getNumberOfPoints());
            if (!file.getSpectrum(nm.data(), values.data(), factor, k)) continue;
            maxValue = std::max(maxValue, *std::max_element(values.begin(), values.end()));
            fillFreeFormatTable(nm, values);
            onCmdCalculate(nullptr, 0, nullptr);
            if (!resultsValid) {
                failures += path + "\n";
                break;
            }
            const double electrical = drive.electricalWatts();
            double lpw = spectra && electrical > 0 ? lastOutcome.results.lumens / electrical : 0.0;
            if (!(lpw > 0 && lpw <= MAX_ENTRY_LPW)) lpw = 0.0;
            const std::string name = importedSpectrumName(file, title, k);
            if (addToUserLibrary(libraryType, name, true, lpw)) lastNew = 1;
        }
        // Filters and colours in the wrong units show at once in their maxima.
        const bool percent = settings.getInt("colorsFiltersUnits") == 1;
        if (!spectra && (percent ? maxValue <= 1.0 : maxValue > 1.0)) unitsWarnings += path + "\n";
    }

    importing = false;
    settings.setInt("freeFormatInputUnitsIndex", oldUnits);
    setTableColumnTitles();
    setAnalysisType(0);
    setSpectrumRange(RANGE_360_830_2NM);
    inputTabs->setCurrent(spectra ? 0 : libraryType == LIBRARY_FILTERS ? 1 : 2);
    if (!unitsWarnings.empty()) {
        const bool percent = settings.getInt("colorsFiltersUnits") == 1;
        const char* quantity = libraryType == LIBRARY_FILTERS ? "transmission" : "reflectance";
        UserDialogs::warning(
            this, MBOX_OK, "Units Warning",
            "The %s should be in the range of 0 - %d but a maximum\nvalue %s than 1 was found in "
            "the following file(s):\n\n%s\n\nThe warning can be ignored if you know the data is "
            "good.\n\nIf the units are incorrect, delete this %s, change the units and re-import "
            "it.",
            quantity, percent ? 100 : 1, percent ? "less" : "greater", unitsWarnings.c_str(), kind);
    }
    if (!failures.empty()) {
        UserDialogs::error(this, "File error",
                           "Some of the files could not be imported, their formatting was not "
                           "understood:\n\n%s\n\nOpen this file in Notepad (or another text "
                           "editor) and if it looks ok,\ncopy and paste it into a new file and try "
                           "again.",
                           failures.c_str());
        return false;
    }
    // The last spectrum imported is shown calculated.
    if (spectra && lastNew >= 0) {
        for (int i = 0; i < getNumSpectra(); ++i)
            ledRows[i].check->setCheck(i == getNumSpectra() - 1);
        onCmdCheckedLED(nullptr, 0, nullptr);
        onCmdCalculate(nullptr, 0, nullptr);
    }
    return true;
}
