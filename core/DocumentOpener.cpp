#include "DocumentOpener.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

bool openDocument(const std::string& command, const std::string& target, std::string* error) {
    // The exec's failure comes back through a pipe that a successful exec closes.
    int report[2];
    if (::pipe2(report, O_CLOEXEC) != 0) {
        if (error != nullptr) *error = std::strerror(errno);
        return false;
    }
    const pid_t child = ::fork();
    if (child < 0) {
        if (error != nullptr) *error = std::strerror(errno);
        ::close(report[0]);
        ::close(report[1]);
        return false;
    }
    if (child == 0) {
        // A second fork leaves the opener to init, so no zombie waits for the program.
        if (::fork() != 0) ::_exit(0);
        ::setsid();
        char* argv[] = {const_cast<char*>(command.c_str()), const_cast<char*>(target.c_str()),
                        nullptr};
        ::execvp(argv[0], argv);
        const int code = errno;
        (void)!::write(report[1], &code, sizeof code);
        ::_exit(127);
    }
    ::close(report[1]);
    int status = 0;
    ::waitpid(child, &status, 0);
    int code = 0;
    ssize_t n;
    do {
        n = ::read(report[0], &code, sizeof code);
    } while (n < 0 && errno == EINTR);
    ::close(report[0]);
    if (n == static_cast<ssize_t>(sizeof code)) {
        if (error != nullptr) *error = command + ": " + std::strerror(code);
        return false;
    }
    return true;
}
