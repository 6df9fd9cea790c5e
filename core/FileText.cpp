#include "FileText.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

// Copies of large files are refused rather than read into memory whole.
constexpr std::size_t COPY_MAX_BYTES = std::size_t{1} << 30;

void setError(std::string* error, const std::string& what) {
    if (error != nullptr) *error = what + ": " + std::strerror(errno);
}

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    if (slash == std::string::npos) return ".";
    if (slash == 0) return "/";
    return path.substr(0, slash);
}

bool writeAll(int fd, const std::string& contents) {
    const char* p = contents.data();
    std::size_t left = contents.size();
    while (left > 0) {
        const ssize_t n = ::write(fd, p, left);
        if (n < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        p += n;
        left -= static_cast<std::size_t>(n);
    }
    return true;
}

// The mode a new file gets from open(..., 0666): 0666 less the process's umask.
mode_t defaultFileMode() {
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

FileReadStatus readFileText(const std::string& path, std::size_t maxBytes, std::string* text) {
    text->clear();
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return FileReadStatus::CANNOT_OPEN;
    struct stat info;
    if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
        ::close(fd);
        return FileReadStatus::CANNOT_OPEN;
    }
    std::vector<char> buf(65536);
    FileReadStatus status = FileReadStatus::OK;
    for (;;) {
        const ssize_t n = ::read(fd, buf.data(), buf.size());
        if (n < 0) {
            if (errno == EINTR) continue;
            status = FileReadStatus::CANNOT_OPEN;
            break;
        }
        if (n == 0) break;
        const std::size_t room = maxBytes - text->size();
        if (static_cast<std::size_t>(n) > room) {
            text->append(buf.data(), room);
            status = FileReadStatus::TOO_LARGE;
            break;
        }
        text->append(buf.data(), static_cast<std::size_t>(n));
    }
    ::close(fd);
    return status;
}

bool writeFileAtomically(const std::string& path, const std::string& contents, std::string* error) {
    if (path.empty() || path.back() == '/') {
        errno = EISDIR;
        setError(error, path);
        return false;
    }
    mode_t mode = defaultFileMode();
    struct stat old;
    if (::stat(path.c_str(), &old) == 0) {
        if (S_ISDIR(old.st_mode)) {
            errno = EISDIR;
            setError(error, path);
            return false;
        }
        mode = old.st_mode & 07777;
    }
    // The temporary file stands in the same folder, so the rename never crosses file systems.
    const std::size_t slash = path.find_last_of('/');
    const std::string base = slash == std::string::npos ? path : path.substr(slash + 1);
    std::string temp = folderOf(path) + "/." + base + ".tmp-XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) {
        setError(error, folderOf(path));
        return false;
    }
    bool ok = writeAll(fd, contents);
    if (!ok) setError(error, temp);
    if (ok && ::fchmod(fd, mode) != 0) ok = (setError(error, temp), false);
    if (ok && ::fsync(fd) != 0) ok = (setError(error, temp), false);
    if (::close(fd) != 0 && ok) ok = (setError(error, temp), false);
    if (ok && ::rename(temp.c_str(), path.c_str()) != 0) ok = (setError(error, path), false);
    if (!ok) ::unlink(temp.c_str());
    return ok;
}

bool copyFile(const std::string& from, const std::string& to) {
    std::string text;
    if (readFileText(from, COPY_MAX_BYTES, &text) != FileReadStatus::OK) return false;
    return writeFileAtomically(to, text);
}

bool fileExists(const std::string& path) {
    struct stat info;
    return ::stat(path.c_str(), &info) == 0;
}
