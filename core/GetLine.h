// Line reader over a file held in memory, as the spectrometer readers walk their files.
#ifndef LUMIVAR_CORE_GETLINE_H
#define LUMIVAR_CORE_GETLINE_H

#include <string>

class GetLine {
  public:
    // Copies the line that starts at *position of buffer (size bytes) into *line, without its
    // end, and moves *position to the start of the next line. A line feed, a carriage return or
    // the pair CR LF ends a line, so files from Windows, Unix and old Mac programs read alike.
    // With skipEmpty, empty lines are passed over. Returns the length of the line, or -1 (with
    // *line empty) when no line is left. NUL bytes are kept as they are: the caller decides what
    // binary data means.
    static long getLine(const char* buffer, long size, long* position, std::string* line,
                        bool skipEmpty);
};

#endif  // LUMIVAR_CORE_GETLINE_H
