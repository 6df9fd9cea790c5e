// lumivar-cli check-update: asks the version server, as the Help menu's command does, and
// prints the status text of the "Check for update" box.
#ifndef LUMIVAR_CLI_CHECKUPDATECOMMAND_H
#define LUMIVAR_CLI_CHECKUPDATECOMMAND_H

#include <iosfwd>
#include <string>
#include <vector>

const char* checkUpdateUsage();

// Exit status 0 for "a new version" and "the current version", 1 for every failure, 2 for
// wrong usage.
int runCheckUpdate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

#endif  // LUMIVAR_CLI_CHECKUPDATECOMMAND_H
