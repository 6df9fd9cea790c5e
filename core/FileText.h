// Whole-file reading with a size limit, and writing that never leaves a half-written file.
//
// Every file the user owns (designs, the settings file, the user libraries, tables of the lamp
// design windows) is written through writeFileAtomically: the text goes to a temporary file in
// the same folder, is flushed to the disk and then renamed over the old file. A crash, a kill or
// a full disk in the middle of a write leaves the old file whole; the rename itself is atomic on
// every local file system.
#ifndef LUMIVAR_CORE_FILETEXT_H
#define LUMIVAR_CORE_FILETEXT_H

#include <cstddef>
#include <string>

enum class FileReadStatus {
    OK,
    CANNOT_OPEN,  // missing, unreadable, or a folder
    TOO_LARGE,    // more bytes than the limit; the text holds the first maxBytes of them
};

// Reads the whole file at path into *text, at most maxBytes of it.
FileReadStatus readFileText(const std::string& path, std::size_t maxBytes, std::string* text);

// Replaces the file at path by contents. The new file gets the old file's permissions, or
// 0666 less the umask when there was none. False, with the old file (if any) untouched and no
// temporary file left behind, when any step fails; *error (when not null) then says why.
bool writeFileAtomically(const std::string& path, const std::string& contents,
                         std::string* error = nullptr);

// Copies the file at from to to (through writeFileAtomically). False when from can't be read
// or to can't be written.
bool copyFile(const std::string& from, const std::string& to);

// True when a file (or folder) exists at path.
bool fileExists(const std::string& path);

#endif  // LUMIVAR_CORE_FILETEXT_H
