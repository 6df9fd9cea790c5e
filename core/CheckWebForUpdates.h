// The update check: a hand-written HTTP/1.0 request for the version file on a plain socket, and
// the status of the answer. It is the program's only network code, so every step has a time
// limit (connect, each send and each receive count against one deadline), the answer is read up
// to a size limit, and a malformed or hostile answer gives the read error, never a crash.
#ifndef LUMIVAR_CORE_CHECKWEBFORUPDATES_H
#define LUMIVAR_CORE_CHECKWEBFORUPDATES_H

#include <string>

// Where the version file is published (settings updateCheckHost, updateCheckPort,
// updateCheckPage).
struct UpdateServer {
    std::string host = "www.lumivar.example";   // name or numeric address
    int port = 80;                              // 1 to 65535
    std::string page = "/lumivar_version.txt";  // path of the version file
    int timeLimitMs = 8000;  // for connect, send and receive together (not the name lookup)
};

class CheckWebForUpdates {
  public:
    enum Status {
        SOCKET_FAILED = 0,
        HOST_NOT_RESOLVED = 1,
        CONNECT_FAILED = 2,
        READ_ERROR = 3,  // no " 200 " status line, or an answer that is no version file
        NEW_VERSION = 4,
        CURRENT_VERSION = 5,
        EXCEPTION = 6
    };
    // Headers longer than this, or a body longer than this, are not a version file.
    static constexpr std::size_t MAX_HEADER_LINE = 8192;
    static constexpr std::size_t MAX_HEADERS = 65536;
    static constexpr std::size_t MAX_BODY = 1023;
    // A newer version must be this much above the running one (7.78 against 7.77 is new,
    // 7.775 is not).
    static constexpr double NEWER_BY = 0.009;

    explicit CheckWebForUpdates(UpdateServer server = {}) : server(std::move(server)) {}

    // Asks the server; *webVersion gets the published version (0 when there is none). The
    // result is true when an answer was read (statuses 4 and 5).
    bool checkForUpdates(const std::string& webSite, double currentVersion, double* webVersion);
    int getStatusCode() const { return statusCode; }
    const std::string& getWebSite() const { return webSite; }

    // The status of a whole answer as the server sent it (status line, headers, body):
    // 3 without a " 200 " line, headers without an end or a body beyond MAX_BODY; else 4 or
    // 5 by the version in the body (an empty body reads as 0).
    static int parseAnswer(const std::string& answer, double currentVersion, double* webVersion);
    // The text of the "Check for update" box for a status.
    static std::string statusText(int status, double webVersion);

  private:
    int exchange(double currentVersion, double* webVersion);

    UpdateServer server;
    int statusCode = EXCEPTION;
    std::string webSite;
};

#endif  // LUMIVAR_CORE_CHECKWEBFORUPDATES_H
