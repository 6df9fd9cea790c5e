// lumivar-cli convert: spectra of any file calc reads, written as a table or added to a user
// library, so that a folder of spectrometer files becomes a library in one command.
#ifndef LUMIVAR_CLI_CONVERTCOMMAND_H
#define LUMIVAR_CLI_CONVERTCOMMAND_H

#include <iosfwd>
#include <string>
#include <vector>

const char* convertUsage();

// Runs "convert" with the arguments after the command name; messages go to err, one line
// each. Returns the exit status.
int runConvert(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

#endif  // LUMIVAR_CLI_CONVERTCOMMAND_H
