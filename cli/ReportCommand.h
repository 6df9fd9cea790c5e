// lumivar-cli report: the picture of a spectrum's quality charts (or the TM-30 report page) as
// a PDF, SVG or PNG file, drawn without a display.
#ifndef LUMIVAR_CLI_REPORTCOMMAND_H
#define LUMIVAR_CLI_REPORTCOMMAND_H

#include <iosfwd>
#include <string>
#include <vector>

const char* reportUsage();
// Runs "report" with the arguments after the command name: the chart, the spectrum FILE and
// the options. Messages go to err, one line each. Returns the exit status.
int runReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

#endif  // LUMIVAR_CLI_REPORTCOMMAND_H
