// The photometry files that every Calculate appends to: the readable text file
// ("photometry.txt") and the tab-delimited file of the same name with ".xls" (a text file with
// tabs that spreadsheets open), in the field order and subset the user chose and keeps in
// "outputOrder.txt". The window and lumivar-cli write both through these functions, so a batch
// of measurements fills the same spreadsheet the window fills.
#ifndef LUMIVAR_CORE_PHOTOMETRYFILES_H
#define LUMIVAR_CORE_PHOTOMETRYFILES_H

#include <string>
#include <vector>

#include "CalculateModel.h"
#include "OutputField.h"
#include "ProgramSettings.h"
#include "ResultFields.h"

// What the files remember within one program run.
struct PhotometryFileState {
    bool photometryFileStarted = false;  // the text file was written once this run
    bool tabFileStarted = false;         // likewise the tab-delimited file
    std::string lastExcelHeader;         // the last header line written
    std::string photometryText;          // the text of the last run
    std::string tabLine;                 // the abbreviated line of the last run
};

// One Calculate as the files see it.
struct PhotometryRun {
    std::string name;   // the run's name in the tab-delimited file
    std::string title;  // the title lines of the text file, each ending with "\n"
    const std::vector<ResultField>* fields = nullptr;  // NUM_OUTPUT_FIELDS, as shown
    const SpectrumResults* results = nullptr;
    const MixResults* mix = nullptr;
    FieldFormat format;
    bool commaDecimals = false;         // replaceDecimalWithComma
    bool withGamuts = false;            // writeGamuts_COI_ClassA_TLCI_toFile_Chk
    bool filmResponsePrinting = false;  // the film fields 149 and 150 are written
    bool tabbedShort = false;           // writeTabbedDataMenuItem: the abbreviated line
    bool allLPWKnown = false;           // every row gave its LPW
    bool limitUmolTo400_700 = false;    // constrain_uMol_sW_to_400_700nm
    bool individual = false;  // a run of "Cal Individual": one short line instead of the block
};

// The header (valuesNotNames false) or data line of the tab-delimited file: prefix, then the
// selected fields in the user's order, tab-separated, ended by a line feed. Names of the TM-30
// fields carry the version in brackets ("Rf (TM-30-18)"). Data lines use the field texts, with
// "," for "." when commaDecimals.
std::string getExcelString(bool valuesNotNames, const std::string& prefix,
                           const OutputField* fields, const int* order,
                           const std::vector<ResultField>& values, bool filmResponsePrinting,
                           bool commaDecimals);

// The block of one run in the text file, ended by the rule of asterisks.
std::string photometryText(const PhotometryRun& run);
// The line of a "Cal Individual" run: name, the wall-plug LPW ("%.1lf", 0 when unknown), x and y
// ("%.4lf").
std::string individualLine(const PhotometryRun& run);
// The abbreviated tab line: lumens, electrical watts, x, y, CCT, Duv, CRI, R9, LER, LPW.
std::string abbreviatedTabLine(const PhotometryRun& run);

// "photometry.txt" -> "photometry.xls".
std::string tabFileName(const std::string& textFile);
// The text of the "Write error" box for a file that could not be opened.
std::string photometryWriteErrorText(const std::string& file);

// Appends the run to the text file (written anew at the first run of the state). On failure
// *failedFile names it and the result is false; the next call tries again.
bool writePhotometryText(const std::string& textFile, const PhotometryRun& run,
                         PhotometryFileState& state, std::string* failedFile);
// Appends the run to the tab-delimited file, with the header line whenever it differs from the
// last one written (first, or after the order or the units changed).
bool writePhotometryExcel(const std::string& tabFile, const PhotometryRun& run,
                          const OutputField* fields, const int* order, PhotometryFileState& state,
                          std::string* failedFile);

// A run of the outcome with the file options of the settings; name and title are the caller's.
// The outcome must outlive the run.
PhotometryRun photometryRunFromSettings(const CalculateOutcome& outcome,
                                        const ProgramSettings& settings);
// The text file and, with tabFile, the tab-delimited file next to it ("photometry.xls").
// False, with *failedFile named, when one could not be written.
bool appendPhotometryFiles(const std::string& textFile, const PhotometryRun& run, bool tabFile,
                           const OutputField* fields, const int* order, PhotometryFileState& state,
                           std::string* failedFile);

// The order file: line 1 "<version>1", then per field in field order "<name>place selected".
bool writeOrderToFile(const std::string& path, const OutputField* fields, const int* order);
// Reads an order file over the fields and order. Names in the other power unit (" mW" for
// " W") still match; unknown names are skipped; places that are out of range or repeated leave
// the order as it was for those fields. False when the file can't be read.
bool readOrderToFile(const std::string& path, OutputField* fields, int* order);

// The u'v' of the R and Q samples under the test light and the reference, for the spreadsheet
// file CRI_CQS_UPVP_FILENAME: a title row with the run's name, then one row per sample with
// its Munsell name. u and v: [0] test, [1] reference, 15 samples each.
// The checked user colours follow the samples, each with its own u'v' pairs.
struct UserColourUV {
    std::string name;
    double u[2], v[2];  // [0] test, [1] reference
};
std::string uvPrimeExport(const std::string& runName, const double criU[2][15],
                          const double criV[2][15], const double cqsU[2][15],
                          const double cqsV[2][15], bool commaDecimals,
                          const std::vector<UserColourUV>& userColours = {});

#endif  // LUMIVAR_CORE_PHOTOMETRYFILES_H
