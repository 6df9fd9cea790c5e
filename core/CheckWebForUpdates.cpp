#include "CheckWebForUpdates.h"

#include <fcntl.h>
#include <netdb.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/types.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <exception>

#include "ValueFormat.h"

namespace {

using Clock = std::chrono::steady_clock;

// Closes the socket whatever way the check ends.
struct SocketGuard {
    int fd = -1;
    ~SocketGuard() {
        if (fd >= 0) ::close(fd);
    }
};

// Milliseconds left before the deadline, at least 0.
int msLeft(Clock::time_point deadline) {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
}

// Waits until the socket is ready for `events` or the deadline passes.
bool waitFor(int fd, short events, Clock::time_point deadline) {
    for (;;) {
        const int left = msLeft(deadline);
        if (left <= 0) return false;
        pollfd p{fd, events, 0};
        const int n = ::poll(&p, 1, left);
        if (n > 0) return true;
        if (n == 0) return false;
        if (errno != EINTR) return false;
    }
}

bool connectBefore(int fd, const sockaddr* address, socklen_t length, Clock::time_point deadline) {
    if (::connect(fd, address, length) == 0) return true;
    if (errno != EINPROGRESS && errno != EINTR) return false;
    if (!waitFor(fd, POLLOUT, deadline)) return false;
    int error = 0;
    socklen_t size = sizeof error;
    return ::getsockopt(fd, SOL_SOCKET, SO_ERROR, &error, &size) == 0 && error == 0;
}

bool sendAll(int fd, const std::string& text, Clock::time_point deadline) {
    std::size_t sent = 0;
    while (sent < text.size()) {
        if (!waitFor(fd, POLLOUT, deadline)) return false;
        const ssize_t n = ::send(fd, text.data() + sent, text.size() - sent, MSG_NOSIGNAL);
        if (n < 0 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK)) continue;
        if (n <= 0) return false;
        sent += static_cast<std::size_t>(n);
    }
    return true;
}

// Everything the server sends until it closes, or until more than `limit` bytes came, or the
// deadline passed. False when nothing at all could be read in time.
bool receiveAll(int fd, std::size_t limit, Clock::time_point deadline, std::string* answer) {
    char buffer[1024];
    while (answer->size() <= limit) {
        if (!waitFor(fd, POLLIN, deadline)) return !answer->empty();
        const ssize_t n = ::recv(fd, buffer, sizeof buffer, 0);
        if (n < 0 && (errno == EINTR || errno == EAGAIN || errno == EWOULDBLOCK)) continue;
        if (n <= 0) break;
        answer->append(buffer, static_cast<std::size_t>(n));
    }
    return true;
}

// The version file's number: leading blanks, then a decimal number; nothing else but blanks
// may follow. False for anything else.
bool readVersion(const std::string& body, double* version) {
    if (body.find('\0') != std::string::npos) return false;  // binary, not a version file
    const char* p = body.c_str();
    while (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n') ++p;
    if (*p == '\0') {
        *version = 0.0;  // an empty file reads as 0
        return true;
    }
    const char* start = p;
    bool digits = false, point = false;
    for (; *p; ++p) {
        if (*p >= '0' && *p <= '9') {
            digits = true;
        } else if (*p == '.' && !point) {
            point = true;
        } else {
            break;
        }
    }
    if (!digits) return false;
    const char* end = p;
    while (*p == ' ' || *p == '\t' || *p == '\r' || *p == '\n') ++p;
    if (*p != '\0' || end - start > 32) return false;
    *version = std::strtod(std::string(start, end).c_str(), nullptr);
    return true;
}

}  // namespace

int CheckWebForUpdates::parseAnswer(const std::string& answer, double currentVersion,
                                    double* webVersion) {
    *webVersion = 0.0;
    // Header lines, carriage returns not counted, up to the empty line.
    bool ok = false, ended = false;
    std::string line;
    std::size_t pos = 0;
    for (; pos < answer.size() && pos < MAX_HEADERS; ++pos) {
        const char c = answer[pos];
        if (c == '\r') continue;
        if (c != '\n') {
            if (line.size() >= MAX_HEADER_LINE) return READ_ERROR;
            line += c;
            continue;
        }
        if (line.empty()) {
            ended = true;
            ++pos;
            break;
        }
        if (line.find(" 200 ") != std::string::npos) ok = true;
        line.clear();
    }
    if (!ok || !ended) return READ_ERROR;
    const std::string body = answer.substr(pos);
    if (body.size() > MAX_BODY) return READ_ERROR;
    double version = 0.0;
    if (!readVersion(body, &version)) return READ_ERROR;
    *webVersion = version;
    return version - currentVersion > NEWER_BY ? NEW_VERSION : CURRENT_VERSION;
}

std::string CheckWebForUpdates::statusText(int status, double webVersion) {
    switch (status) {
        case SOCKET_FAILED:
            return "Connection error (0) checking for update.";
        case HOST_NOT_RESOLVED:
            return "Connection error (1) checking for update.";
        case CONNECT_FAILED:
            return "Connection error (2) checking for update.\n\nThis may not work over a VPN "
                   "connection.";
        case READ_ERROR:
            return "Read error (3) checking for update.";
        case NEW_VERSION:
            return ValueFormat::format(
                "A new version (v%.2lf) is available.\n\nClick \"OK\" to go to the download "
                "site.",
                webVersion);
        case CURRENT_VERSION:
            return "You have the current version.";
        default:
            return "Unknown error (6) checking for update.";
    }
}

bool CheckWebForUpdates::checkForUpdates(const std::string& site, double currentVersion,
                                         double* webVersion) {
    *webVersion = 0.0;
    webSite = site;
    try {
        statusCode = exchange(currentVersion, webVersion);
    } catch (const std::exception&) {
        statusCode = EXCEPTION;
    }
    return statusCode == NEW_VERSION || statusCode == CURRENT_VERSION;
}

int CheckWebForUpdates::exchange(double currentVersion, double* webVersion) {
    if (server.port < 1 || server.port > 65535) return CONNECT_FAILED;
    addrinfo hints{};
    hints.ai_family = AF_INET;
    hints.ai_socktype = SOCK_STREAM;
    addrinfo* found = nullptr;
    const std::string port = std::to_string(server.port);
    if (server.host.empty() ||
        ::getaddrinfo(server.host.c_str(), port.c_str(), &hints, &found) != 0 || found == nullptr)
        return HOST_NOT_RESOLVED;
    SocketGuard sock;
    sock.fd = ::socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK | SOCK_CLOEXEC, 0);
    if (sock.fd < 0) {
        ::freeaddrinfo(found);
        return SOCKET_FAILED;
    }
    const auto deadline = Clock::now() + std::chrono::milliseconds(server.timeLimitMs);
    const bool connected = connectBefore(sock.fd, found->ai_addr, found->ai_addrlen, deadline);
    ::freeaddrinfo(found);
    if (!connected) return CONNECT_FAILED;

    // The request in the four parts the version server has always been sent.
    const std::string parts[4] = {
        "GET " + server.page + " HTTP/1.0\r\n", "Accept-Language: en-us\r\n",
        "Accept-Encoding: gzip, deflate\r\n", "Host: " + server.host + "\r\n\r\n"};
    for (const std::string& part : parts)
        if (!sendAll(sock.fd, part, deadline)) return CONNECT_FAILED;
    // A server that takes the request and never answers is no connection either.
    std::string answer;
    if (!receiveAll(sock.fd, MAX_HEADERS + MAX_BODY, deadline, &answer)) return CONNECT_FAILED;
    return parseAnswer(answer, currentVersion, webVersion);
}
