// Work on whole user library files: the start-up conversion of old-format libraries, reading a
// library into records, adding an entry, and replacing a library by another file with a backup
// that is restored when the new file can't be read. The window and `lumivar-cli` call these
// and show the message they return.
#ifndef LUMIVAR_CORE_USERLIBRARY_H
#define LUMIVAR_CORE_USERLIBRARY_H

#include <string>
#include <vector>

#include "LedTypes.h"
#include "ReadWriteUserSpectra.h"
#include "UserLibraryChecks.h"

// The library files in the user folder.
constexpr const char* USER_SPECTRA_FILE_NAME = "userSpectra";
constexpr const char* USER_FILTERS_FILE_NAME = "userFilters";
constexpr const char* USER_COLORS_FILE_NAME = "userColors";
constexpr const char* USER_SPECTRA_FILE_EXT = ".spec";
constexpr const char* USER_FILTERS_FILE_EXT = ".fils";
constexpr const char* USER_COLORS_FILE_EXT = ".cols";

// "userSpectra.spec", "userFilters.fils" or "userColors.cols" for a libraryType.
std::string userLibraryFileName(int libraryType);
// The libraryType a file's extension names (".spec", ".fils", ".cols"), or -1.
int libraryTypeOfFile(const std::string& path);

enum class LibraryConversion {
    UNCHANGED,  // no file, or already in the current format
    CONVERTED,  // an old-format file was rewritten in the current format
    FAILED,     // the old file could not be read whole or not be written; it stands as it was
};
struct LibraryConversionResult {
    LibraryConversion status = LibraryConversion::UNCHANGED;
    std::string error;  // why, when FAILED
};
// Rewrites an old-format library in the current format, atomically; a current one, a missing
// one and an old one without entries are left alone.
LibraryConversionResult convertLibraryToCurrentFormat(const std::string& path, int libraryType);

// Every entry of the library at path, in either format; at most maxEntries when that is not
// negative. False, with the entries read whole before the fault and *error as
// "<path>, line <n>: <reason>", when the library can't be read whole.
bool readUserLibrary(const std::string& path, int libraryType, std::vector<ledTypeStruct>* entries,
                     std::string* error, int maxEntries = -1);

// Adds one entry at the end of the library at path (made when missing), rewriting it in the
// current format. False, with the library untouched and *error set, when what stands can't be
// read whole or the file can't be written.
bool addUserLibraryEntry(const std::string& path, int libraryType, const ledTypeStruct& entry,
                         std::string* error);

// The backup beside a library: "_bck" before the extension ("userColors_bck.cols"), or
// "_bck_1" when that file exists already.
std::string getBackupFileName(const std::string& path);

struct LibraryReplaceResult {
    bool ok = false;
    std::string backupPath;  // where the old library was kept ("" when there was none)
    LibraryMessage message;  // the box to show when not ok
};
// Replaces the library at libraryPath by newFile: the old library is copied to its backup, the
// new file is copied over the library and converted to the current format, and the library is
// read. When that fails the backup is copied back (no old library: the new one is removed) and
// the message is the "Could not read the file" box of the kind. newFile itself is never changed.
LibraryReplaceResult replaceUserLibrary(const std::string& libraryPath, const std::string& newFile,
                                        int libraryType);

#endif  // LUMIVAR_CORE_USERLIBRARY_H
