// A one-connection-at-a-time HTTP server on 127.0.0.1 for the update check's tests: it answers
// every request with a fixed reply, or (silent) takes the request and never answers. It runs on
// a thread of the test process and stops when destroyed.
#ifndef LUMIVAR_TESTS_LOCALHTTPSERVER_H
#define LUMIVAR_TESTS_LOCALHTTPSERVER_H

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <atomic>
#include <mutex>
#include <string>
#include <thread>

class LocalHttpServer {
  public:
    // reply: sent whole after the request's empty line; silent: nothing is ever sent.
    explicit LocalHttpServer(std::string reply, bool silent = false)
        : reply(std::move(reply)), silent(silent) {
        listener = ::socket(AF_INET, SOCK_STREAM, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = 0;
        ::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address);
        ::listen(listener, 4);
        socklen_t length = sizeof address;
        ::getsockname(listener, reinterpret_cast<sockaddr*>(&address), &length);
        port = ntohs(address.sin_port);
        worker = std::thread([this] { serve(); });
    }
    ~LocalHttpServer() {
        stop = true;
        worker.join();
        ::close(listener);
    }
    int getPort() const { return port; }
    // The last request as it came.
    std::string lastRequest() {
        std::lock_guard<std::mutex> lock(mutex);
        return request;
    }

    // An HTTP/1.0 reply with this status line and body.
    static std::string answer(const std::string& status, const std::string& body) {
        return "HTTP/1.0 " + status + "\r\nContent-Type: text/plain\r\n\r\n" + body;
    }

  private:
    bool ready(int fd) {
        pollfd p{fd, POLLIN, 0};
        return ::poll(&p, 1, 50) > 0;
    }
    void serve() {
        while (!stop) {
            if (!ready(listener)) continue;
            const int client = ::accept(listener, nullptr, nullptr);
            if (client < 0) continue;
            std::string got;
            char buffer[512];
            while (!stop && got.find("\r\n\r\n") == std::string::npos) {
                if (!ready(client)) continue;
                const ssize_t n = ::recv(client, buffer, sizeof buffer, 0);
                if (n <= 0) break;
                got.append(buffer, static_cast<std::size_t>(n));
            }
            {
                std::lock_guard<std::mutex> lock(mutex);
                request = got;
            }
            if (silent) {
                while (!stop) ready(listener);  // holds the connection open, says nothing
            } else {
                std::size_t sent = 0;
                while (sent < reply.size()) {
                    const ssize_t n =
                        ::send(client, reply.data() + sent, reply.size() - sent, MSG_NOSIGNAL);
                    if (n <= 0) break;
                    sent += static_cast<std::size_t>(n);
                }
            }
            ::close(client);
        }
    }

    std::string reply;
    bool silent;
    int listener = -1;
    int port = 0;
    std::atomic<bool> stop{false};
    std::mutex mutex;
    std::string request;
    std::thread worker;
};

#endif  // LUMIVAR_TESTS_LOCALHTTPSERVER_H
