// The part of a design file that belongs to the rows of the window rather than to the option
// table: each spectrum row's check and fields, the filter and colour checks, the R and Q floors
// and the CRI/CQS targets of the optimizer, and the matching curve of the input table.
//
// A design is read in two steps. ProgramSettings reads the options and hands back the lines it
// doesn't know; readDesignLines picks the row lines out of those. The window (or the
// command-line tool) then applies the rows to whatever spectra stand at those places: rows are
// matched by index only, so a design saved with other user spectra fills the rows of the
// spectra that stand there now, and indices past the current rows are ignored.
#ifndef LUMIVAR_CORE_USERDESIGN_H
#define LUMIVAR_CORE_USERDESIGN_H

#include <optional>
#include <string>
#include <vector>

#include "LedTypes.h"
#include "ProgramSettings.h"

// Number of R values (R1 to R15) and Q values (Q1 to Q15) the optimizer can put a floor on.
constexpr int NUM_OPT_R_Q_VALUES = 15;
// Highest row index a design may name: well above the standard spectra plus the 507 user
// spectra a library holds; a larger index is a damaged line and is dropped.
constexpr int DESIGN_MAX_ROW_INDEX = 4096;
// Highest filter or colour index (the libraries hold at most 258063 of each).
constexpr int DESIGN_MAX_FILTER_COLOR_INDEX = 258063;

// One spectrum row as a design stores it: the numbers the fields held, 0 for an empty field.
// A value the file did not give is absent, and the field keeps its text.
struct DesignRow {
    bool checked = false;
    std::optional<double> lDom, lumens, watts, binWidth, binOutput, lpw;
};

struct DesignData {
    std::vector<std::string> names;  // the row names, written for the reader's eyes only
    std::vector<DesignRow> rows;     // by row index
    // Filter and colour checks by index.
    std::vector<int> filterChecks, colorChecks;
    // Optimizer floors of R1..R15 and Q1..Q15: 0 for none.
    double optR[NUM_OPT_R_Q_VALUES] = {};
    double optQ[NUM_OPT_R_Q_VALUES] = {};
    // The optimizer's CRI and CQS target fields (empty: no target). Both are written under
    // the one tag "desiredCRI_TF", CRI first; a reader puts each line into the CRI field, so a
    // reloaded design has the CQS target in the CRI field. Files in use depend on this.
    std::string desiredCRI, desiredCQS;
    // The third column of the input table, one text per row; empty when there is none.
    std::vector<std::string> matchingColumn;
};

// The lines of the design's rows, each "<tag>value" without its line end, in write order.
std::vector<std::string> designLines(const DesignData& data);

// Picks the row lines out of the lines ProgramSettings didn't know. Lines of other tags, and
// row lines whose index or value doesn't parse, are skipped. A row named by any line exists
// in the result; rows not named stay unchecked with no values.
DesignData readDesignLines(const std::vector<ProgramSettings::Line>& lines);

// The texts of a row's fields after reading: the written rules of each field, given the
// spectrum that stands at the row now. `current` holds the field texts before the read; a
// value the file didn't give keeps its text.
ledInputDataStruct designRowTexts(const DesignRow& row, const ledTypeStruct& spectrum,
                                  const ledInputDataStruct& current);

// The row as a design stores it from the texts of its fields.
DesignRow designRowFromTexts(const ledInputDataStruct& texts);

#endif  // LUMIVAR_CORE_USERDESIGN_H
