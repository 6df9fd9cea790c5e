#include "CheckUpdateCommand.h"

#include <algorithm>
#include <cstdlib>
#include <ostream>

#include "AppConstants.h"
#include "CalcCommand.h"
#include "CheckWebForUpdates.h"
#include "DesignCalc.h"
#include "ProgramSettings.h"

const char* checkUpdateUsage() {
    return "Usage: lumivar-cli check-update [--host H] [--port P] [--page PATH]\n"
           "\n"
           "Asks the version server for the newest version, as the window's \"Check the web\n"
           "site for updates now\" does, and prints the same status text. The server, port and\n"
           "page default to the window's settings (updateCheckHost, updateCheckPort,\n"
           "updateCheckPage in ~/Lumivar_KBI/Lumivar.ini, else their defaults). Connect, send\n"
           "and receive share a time limit of 8 s.\n"
           "\n"
           "Exit status: 0 when a new version exists or this is the current one, 1 on a\n"
           "connection or read error, 2 on wrong usage.\n";
}

int runCheckUpdate(const std::vector<std::string>& args, std::ostream& out, std::ostream& err) {
    // The window's settings when there are any, so that both ask the same server.
    ProgramSettings defaults;
    const std::string folder = defaultProgramFolder();
    if (!folder.empty()) {
        ProgramSettings stored;
        const std::string ini = folder + APP_NAME + ".ini";
        if (stored.read(ini, true).status == ProgramSettings::ReadStatus::OK &&
            stored.fileVersion() > 0)
            defaults = stored;
    }
    UpdateServer server;
    server.host = defaults.getString("updateCheckHost");
    server.page = defaults.getString("updateCheckPage");
    server.port = defaults.getInt("updateCheckPort");
    server.timeLimitMs =
        std::clamp(defaults.getInt("updateCheckTimeLimitMs"), 100, UpdateServer().timeLimitMs);
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "-h" || arg == "--help") {
            out << checkUpdateUsage();
            return EXIT_ALL_GOOD;
        }
        if (arg != "--host" && arg != "--port" && arg != "--page") {
            err << CLI_PROGRAM_NAME << ": unknown option '" << arg << "'\n" << checkUpdateUsage();
            return EXIT_USAGE;
        }
        if (i + 1 == args.size()) {
            err << CLI_PROGRAM_NAME << ": " << arg << " needs a value\n" << checkUpdateUsage();
            return EXIT_USAGE;
        }
        const std::string& value = args[++i];
        if (arg == "--host") {
            server.host = value;
        } else if (arg == "--page") {
            server.page = value;
        } else {
            char* end = nullptr;
            const long port = std::strtol(value.c_str(), &end, 10);
            if (value.empty() || *end != '\0' || port < 1 || port > 65535) {
                err << CLI_PROGRAM_NAME << ": --port must be 1 to 65535, not '" << value << "'\n";
                return EXIT_USAGE;
            }
            server.port = static_cast<int>(port);
        }
    }
    if (server.page.empty() || server.page[0] != '/' ||
        server.page.find_first_of("\r\n ") != std::string::npos ||
        server.host.find_first_of("\r\n ") != std::string::npos) {
        err << CLI_PROGRAM_NAME << ": --page must be a path starting with '/', without blanks\n";
        return EXIT_USAGE;
    }
    CheckWebForUpdates check(server);
    double webVersion = 0.0;
    const bool answered = check.checkForUpdates(defaults.getString("webSiteAddress"),
                                                VERSION_MAJOR + VERSION_MINOR / 100.0, &webVersion);
    out << CheckWebForUpdates::statusText(check.getStatusCode(), webVersion) << '\n';
    return answered ? EXIT_ALL_GOOD : EXIT_INPUT_PROBLEM;
}
