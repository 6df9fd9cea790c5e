#include <gtest/gtest.h>

#include <string>

#include "CheckWebForUpdates.h"
#include "support/LocalHttpServer.h"

namespace {
constexpr double RUNNING_VERSION = 7.77;

// Short, so that the silent server costs the suite half a second.
constexpr int TEST_TIME_LIMIT_MS = 500;

UpdateServer localServer(int port) {
    UpdateServer server;
    server.host = "127.0.0.1";
    server.port = port;
    server.page = "/lumivar/currentVersion_vt.txt";
    server.timeLimitMs = TEST_TIME_LIMIT_MS;
    return server;
}

int ask(const std::string& reply, double* webVersion, bool silent = false) {
    LocalHttpServer server(reply, silent);
    CheckWebForUpdates check(localServer(server.getPort()));
    check.checkForUpdates("http://www.lumivar.example/", RUNNING_VERSION, webVersion);
    return check.getStatusCode();
}
}  // namespace

TEST(CheckWebForUpdates, EachAnswerOfTheServerGivesItsStatus) {
    const struct {
        const char* what;
        std::string reply;
        int status;
        double version;
    } cases[] = {
        // 7.78 - 7.77 = 0.01 exceeds 0.009; 7.775 does not.
        {"newer", LocalHttpServer::answer("200 OK", "7.78"), 4, 7.78},
        {"half a step newer", LocalHttpServer::answer("200 OK", "7.775\r\n"), 5, 7.775},
        {"same", LocalHttpServer::answer("200 OK", "7.77"), 5, 7.77},
        {"not found", LocalHttpServer::answer("404 Not Found", "7.78"), 3, 0},
        {"empty body", LocalHttpServer::answer("200 OK", ""), 5, 0},
        {"garbage body", LocalHttpServer::answer("200 OK", "<html>moved</html>"), 3, 0},
        {"number then garbage", LocalHttpServer::answer("200 OK", "7.80abc"), 3, 0},
        {"binary body", LocalHttpServer::answer("200 OK", std::string("\0\xff\x01", 3)), 3, 0},
        {"10 MB body", LocalHttpServer::answer("200 OK", std::string(10 << 20, '7')), 3, 0},
        {"header line without end", "HTTP/1.0 200 OK\r\nX-Long: " + std::string(20000, 'a'), 3, 0},
        {"headers without an empty line", "HTTP/1.0 200 OK\r\n", 3, 0},
        {"nothing at all", "", 3, 0},
    };
    for (const auto& c : cases) {
        double version = -1;
        EXPECT_EQ(ask(c.reply, &version), c.status) << c.what;
        EXPECT_DOUBLE_EQ(version, c.version) << c.what;
    }
}

TEST(CheckWebForUpdates, TheRequestIsAPlainHttp10GetWithTheHost) {
    LocalHttpServer server(LocalHttpServer::answer("200 OK", "7.77"));
    CheckWebForUpdates check(localServer(server.getPort()));
    double version = 0;
    EXPECT_TRUE(check.checkForUpdates("site", RUNNING_VERSION, &version));
    EXPECT_EQ(server.lastRequest(),
              "GET /lumivar/currentVersion_vt.txt HTTP/1.0\r\nAccept-Language: en-us\r\n"
              "Accept-Encoding: gzip, deflate\r\nHost: 127.0.0.1\r\n\r\n");
    EXPECT_EQ(check.getWebSite(), "site");
}

TEST(CheckWebForUpdates, ASilentServerOrARefusedConnectionIsAConnectionError) {
    double version = -1;
    // Accepts, reads the request and never answers: the time limit ends the wait.
    EXPECT_EQ(ask("", &version, true), CheckWebForUpdates::CONNECT_FAILED);
    EXPECT_EQ(version, 0.0);

    // A port nobody listens on any more.
    int port = 0;
    { port = LocalHttpServer("").getPort(); }
    CheckWebForUpdates refused(localServer(port));
    EXPECT_FALSE(refused.checkForUpdates("", RUNNING_VERSION, &version));
    EXPECT_EQ(refused.getStatusCode(), CheckWebForUpdates::CONNECT_FAILED);

    UpdateServer noHost = localServer(port);
    noHost.host = "";
    CheckWebForUpdates unresolved(noHost);
    EXPECT_FALSE(unresolved.checkForUpdates("", RUNNING_VERSION, &version));
    EXPECT_EQ(unresolved.getStatusCode(), CheckWebForUpdates::HOST_NOT_RESOLVED);

    UpdateServer badPort = localServer(0);
    CheckWebForUpdates portZero(badPort);
    EXPECT_FALSE(portZero.checkForUpdates("", RUNNING_VERSION, &version));
    EXPECT_EQ(portZero.getStatusCode(), CheckWebForUpdates::CONNECT_FAILED);
}

TEST(CheckWebForUpdates, StatusTextsAreTheBoxTexts) {
    EXPECT_EQ(CheckWebForUpdates::statusText(0, 0), "Connection error (0) checking for update.");
    EXPECT_EQ(CheckWebForUpdates::statusText(1, 0), "Connection error (1) checking for update.");
    EXPECT_EQ(CheckWebForUpdates::statusText(2, 0),
              "Connection error (2) checking for update.\n\nThis may not work over a VPN "
              "connection.");
    EXPECT_EQ(CheckWebForUpdates::statusText(3, 0), "Read error (3) checking for update.");
    EXPECT_EQ(CheckWebForUpdates::statusText(4, 7.78),
              "A new version (v7.78) is available.\n\nClick \"OK\" to go to the download site.");
    EXPECT_EQ(CheckWebForUpdates::statusText(5, 0), "You have the current version.");
    EXPECT_EQ(CheckWebForUpdates::statusText(6, 0), "Unknown error (6) checking for update.");
}

TEST(CheckWebForUpdates, TheAnswerParserNeedsTheOkLineAndTheEndOfTheHeaders) {
    double version = -1;
    // " 200 " on any header line counts, as the server has always been read.
    EXPECT_EQ(
        CheckWebForUpdates::parseAnswer("HTTP/1.1 200 OK\nServer: x\n\n8.01\n", 7.77, &version), 4);
    EXPECT_DOUBLE_EQ(version, 8.01);
    EXPECT_EQ(CheckWebForUpdates::parseAnswer("HTTP/1.1 200OK\r\n\r\n8.01", 7.77, &version), 3);
    EXPECT_EQ(CheckWebForUpdates::parseAnswer("HTTP/1.1 301 Moved\r\n\r\n", 7.77, &version), 3);
    EXPECT_EQ(CheckWebForUpdates::parseAnswer("HTTP/1.0 200 OK\r\n\r\n  7.5  ", 7.77, &version), 5);
    EXPECT_DOUBLE_EQ(version, 7.5);
    EXPECT_EQ(CheckWebForUpdates::parseAnswer("HTTP/1.0 200 OK\r\n\r\n-9", 7.77, &version), 3);
}
