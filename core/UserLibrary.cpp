#include "UserLibrary.h"

#include <unistd.h>

#include "FileText.h"

namespace {

// "<path>, line <n>: <reason>" of a library that failed.
std::string describeFault(const std::string& path, const ReadWriteUserSpectra& library) {
    std::string where = path;
    if (library.getErrorLine() > 0) where += ", line " + std::to_string(library.getErrorLine());
    return where + ": " + library.getErrorMessage();
}

// The title of the box of a replacement that could not be read.
const char* replaceErrorTitle(int libraryType) {
    switch (libraryType) {
        case LIBRARY_FILTERS:
            return "Filters file error";
        case LIBRARY_COLORS:
            return "Colors file error";
        default:
            return "Spectrum file error";
    }
}

}  // namespace

int libraryTypeOfFile(const std::string& path) {
    const std::size_t dot = path.find_last_of('.');
    const std::string ext = dot == std::string::npos ? std::string() : path.substr(dot);
    if (ext == USER_SPECTRA_FILE_EXT) return LIBRARY_SPECTRA;
    if (ext == USER_FILTERS_FILE_EXT) return LIBRARY_FILTERS;
    if (ext == USER_COLORS_FILE_EXT) return LIBRARY_COLORS;
    return -1;
}

std::string userLibraryFileName(int libraryType) {
    switch (libraryType) {
        case LIBRARY_FILTERS:
            return std::string(USER_FILTERS_FILE_NAME) + USER_FILTERS_FILE_EXT;
        case LIBRARY_COLORS:
            return std::string(USER_COLORS_FILE_NAME) + USER_COLORS_FILE_EXT;
        default:
            return std::string(USER_SPECTRA_FILE_NAME) + USER_SPECTRA_FILE_EXT;
    }
}

bool readUserLibrary(const std::string& path, int libraryType, std::vector<ledTypeStruct>* entries,
                     std::string* error, int maxEntries) {
    entries->clear();
    const bool newFormat = ReadWriteUserSpectra::getIsNewFormat(path);
    const ReadWriteUserSpectra counted(newFormat, false, 0, nullptr, path, libraryType);
    int n = counted.getNumUserData();
    if (maxEntries >= 0 && n > maxEntries) n = maxEntries;
    if (n == 0) {
        if (counted.getError() && error != nullptr) *error = describeFault(path, counted);
        return !counted.getError();
    }
    // The reading pass stops after n entries, so a file that changed in between never gives
    // more entries than there is room for.
    entries->assign(static_cast<std::size_t>(n), ledTypeStruct{});
    const ReadWriteUserSpectra read(newFormat, true, 0, entries->data(), path, libraryType, n);
    entries->resize(static_cast<std::size_t>(read.getNumUserData()));
    // A fault within the wanted entries (a cut final entry) is reported although all the
    // complete entries were read.
    const bool countFault =
        counted.getError() && (maxEntries < 0 || counted.getNumUserData() < maxEntries);
    if (!read.getError() && !countFault) return true;
    if (error != nullptr) *error = describeFault(path, read.getError() ? read : counted);
    return false;
}

LibraryConversionResult convertLibraryToCurrentFormat(const std::string& path, int libraryType) {
    LibraryConversionResult result;
    if (!fileExists(path) || ReadWriteUserSpectra::getIsNewFormat(path)) return result;
    std::vector<ledTypeStruct> entries;
    if (!readUserLibrary(path, libraryType, &entries, &result.error)) {
        // Half a library is never written over the whole old one.
        result.status = LibraryConversion::FAILED;
        return result;
    }
    if (entries.empty()) return result;
    const ReadWriteUserSpectra written(static_cast<int>(entries.size()), nullptr, entries.data(),
                                       "w", path, libraryType, false);
    if (written.getError()) {
        result.status = LibraryConversion::FAILED;
        result.error = written.getErrorMessage();
        return result;
    }
    result.status = LibraryConversion::CONVERTED;
    return result;
}

bool addUserLibraryEntry(const std::string& path, int libraryType, const ledTypeStruct& entry,
                         std::string* error) {
    const ReadWriteUserSpectra written(1, nullptr, &entry, "a", path, libraryType, false);
    if (!written.getError()) return true;
    if (error != nullptr) *error = written.getErrorMessage();
    return false;
}

std::string getBackupFileName(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    const std::size_t dot = path.find_last_of('.');
    // A dot in a folder name, or one that starts a hidden file's name, is no extension.
    const bool hasExt = dot != std::string::npos && (slash == std::string::npos || dot > slash + 1);
    const std::string stem = hasExt ? path.substr(0, dot) : path;
    const std::string ext = hasExt ? path.substr(dot) : std::string();
    const std::string first = stem + "_bck" + ext;
    return fileExists(first) ? stem + "_bck_1" + ext : first;
}

LibraryReplaceResult replaceUserLibrary(const std::string& libraryPath, const std::string& newFile,
                                        int libraryType) {
    LibraryReplaceResult result;
    const LibraryMessage unreadable{
        LibraryMessageId::REPLACEMENT_UNREADABLE, LibraryBox::ERROR, replaceErrorTitle(libraryType),
        "Could not read the file:\n\n" + newFile + "\n\nThe old file will be restored."};
    if (fileExists(libraryPath)) {
        result.backupPath = getBackupFileName(libraryPath);
        if (!copyFile(libraryPath, result.backupPath)) {
            // Without a backup the library is not touched.
            result.message = {
                LibraryMessageId::BACKUP_NOT_WRITTEN, LibraryBox::ERROR, "File error",
                "File \"" + result.backupPath + "\" could not be written, try a different name."};
            result.backupPath.clear();
            return result;
        }
    }
    std::vector<ledTypeStruct> entries;
    std::string why;
    const bool ok = copyFile(newFile, libraryPath) &&
                    convertLibraryToCurrentFormat(libraryPath, libraryType).status !=
                        LibraryConversion::FAILED &&
                    readUserLibrary(libraryPath, libraryType, &entries, &why);
    if (ok) {
        result.ok = true;
        return result;
    }
    if (!result.backupPath.empty()) {
        copyFile(result.backupPath, libraryPath);
    } else {
        ::unlink(libraryPath.c_str());
    }
    result.message = unreadable;
    return result;
}
