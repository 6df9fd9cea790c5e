#include "ProgramFolder.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {
bool isDirectory(const std::string& path) {
    struct stat info;
    return !path.empty() && ::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode);
}
}  // namespace

std::string withTrailingSlash(std::string path) {
    if (path.empty() || path.back() != '/') path += '/';
    return path;
}

std::string passwordHomeDirectory() {
    const struct passwd* entry = ::getpwuid(::getuid());
    return entry != nullptr && entry->pw_dir != nullptr ? std::string(entry->pw_dir)
                                                        : std::string();
}

std::string chooseProgramDir(const std::string& argFolder, const char* homeEnv,
                             const std::string& passwordHome) {
    if (isDirectory(argFolder)) return withTrailingSlash(argFolder);
    std::string base = homeEnv != nullptr ? std::string(homeEnv) : passwordHome;
    std::string folder = withTrailingSlash(base) + PROGRAM_FOLDER_NAME;
    if (!isDirectory(folder)) ::mkdir(folder.c_str(), 0777);
    if (!isDirectory(folder)) folder = base;
    return withTrailingSlash(folder);
}
