// lumivar-cli calc: the main results of spectrum files as a tab-separated table.
#ifndef LUMIVAR_CLI_CALCCOMMAND_H
#define LUMIVAR_CLI_CALCCOMMAND_H

#include <iosfwd>
#include <string>
#include <vector>

constexpr const char* CLI_PROGRAM_NAME = "lumivar-cli";

// Exit statuses of the tool.
constexpr int EXIT_ALL_GOOD = 0;
constexpr int EXIT_INPUT_PROBLEM = 1;  // a file failed, or had negative values set to 0
constexpr int EXIT_USAGE = 2;

// Help of the tool as a whole and of the calc command.
const char* cliUsage();
const char* calcUsage();

// Runs "calc" with the arguments after the command name. FILE "-" (or no FILE) reads in. The
// table goes to out; errors, warnings and usage mistakes to err, one line each. Returns the exit
// status.
int runCalc(const std::vector<std::string>& args, std::istream& in, std::ostream& out,
            std::ostream& err);

#endif  // LUMIVAR_CLI_CALCCOMMAND_H
