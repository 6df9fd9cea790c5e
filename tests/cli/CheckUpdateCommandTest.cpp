// lumivar-cli check-update: the status text and exit status against a local server, and usage
// mistakes.
#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "CheckUpdateCommand.h"
#include "support/LocalHttpServer.h"

namespace {
struct Outcome {
    int status;
    std::string out, err;
};

Outcome run(const std::vector<std::string>& args) {
    std::ostringstream out, err;
    const int status = runCheckUpdate(args, out, err);
    return {status, out.str(), err.str()};
}
}  // namespace

TEST(CheckUpdateCommand, PrintsTheBoxTextAndExitsZeroOnlyForAnAnswer) {
    const struct {
        std::string reply;
        std::string text;
        int status;
    } cases[] = {
        {LocalHttpServer::answer("200 OK", "7.78"),
         "A new version (v7.78) is available.\n\nClick \"OK\" to go to the download site.\n", 0},
        {LocalHttpServer::answer("200 OK", "7.775"), "You have the current version.\n", 0},
        {LocalHttpServer::answer("404 Not Found", ""), "Read error (3) checking for update.\n", 1},
    };
    for (const auto& c : cases) {
        LocalHttpServer server(c.reply);
        const Outcome o = run({"--host", "127.0.0.1", "--port", std::to_string(server.getPort()),
                               "--page", "/v.txt"});
        EXPECT_EQ(o.out, c.text);
        EXPECT_EQ(o.status, c.status);
        EXPECT_NE(server.lastRequest().find("GET /v.txt HTTP/1.0\r\n"), std::string::npos);
    }
}

TEST(CheckUpdateCommand, WrongUsageExitsTwo) {
    for (const std::vector<std::string>& args : {std::vector<std::string>{"--port", "0"},
                                                 {"--port", "80x"},
                                                 {"--port"},
                                                 {"--page", "no-slash"},
                                                 {"--host", "a b"},
                                                 {"--bogus"}}) {
        const Outcome o = run(args);
        EXPECT_EQ(o.status, 2) << args[0];
        EXPECT_FALSE(o.err.empty());
    }
}
