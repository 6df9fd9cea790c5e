// lumivar-cli: dispatches on the command; each command lives in its own file.
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "CairoCanvas.h"
#include "CalcCommand.h"
#include "CheckUpdateCommand.h"
#include "ConvertCommand.h"
#include "ReportCommand.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty()) {
        std::cerr << cliUsage();
        return EXIT_USAGE;
    }
    const std::string& command = args[0];
    if (command == "-h" || command == "--help") {
        std::cout << cliUsage();
        return EXIT_ALL_GOOD;
    }
    if (command == "convert") {
        try {
            return runConvert({args.begin() + 1, args.end()}, std::cout, std::cerr);
        } catch (const std::exception& e) {
            std::cerr << CLI_PROGRAM_NAME << ": " << e.what() << '\n';
            return EXIT_INPUT_PROBLEM;
        }
    }
    if (command == "check-update") {
        try {
            return runCheckUpdate({args.begin() + 1, args.end()}, std::cout, std::cerr);
        } catch (const std::exception& e) {
            std::cerr << CLI_PROGRAM_NAME << ": " << e.what() << '\n';
            return EXIT_INPUT_PROBLEM;
        }
    }
    if (command == "report") {
        try {
            const int status = runReport({args.begin() + 1, args.end()}, std::cout, std::cerr);
            releaseCairoCaches();
            return status;
        } catch (const std::exception& e) {
            std::cerr << CLI_PROGRAM_NAME << ": " << e.what() << '\n';
            return EXIT_INPUT_PROBLEM;
        }
    }
    if (command != "calc") {
        std::cerr << CLI_PROGRAM_NAME << ": unknown command '" << command << "'\n" << cliUsage();
        return EXIT_USAGE;
    }
    try {
        return runCalc({args.begin() + 1, args.end()}, std::cin, std::cout, std::cerr);
    } catch (const std::exception& e) {
        // Last resort: nothing below should throw, but a failed allocation must not abort.
        std::cerr << CLI_PROGRAM_NAME << ": " << e.what() << '\n';
        return EXIT_INPUT_PROBLEM;
    }
}
