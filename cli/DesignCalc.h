// lumivar-cli calc --design: a saved design calculated as the window's "Calculate" does after
// the design is opened.
#ifndef LUMIVAR_CLI_DESIGNCALC_H
#define LUMIVAR_CLI_DESIGNCALC_H

#include <iosfwd>
#include <string>

// Names of the columns of a design row, each after a tab.
void printDesignHeader(std::ostream& out);
// Calculates the design at path with the spectra and libraries of the per-user folder (empty:
// the catalogue alone) and prints its row; false, with one line on err, when it can't.
bool calcDesign(const std::string& path, const std::string& folder, bool precise, std::ostream& out,
                std::ostream& err);
// The per-user folder the window would use, when it exists; empty otherwise.
std::string defaultProgramFolder();

#endif  // LUMIVAR_CLI_DESIGNCALC_H
