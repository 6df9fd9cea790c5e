#include "GetLine.h"

long GetLine::getLine(const char* buffer, long size, long* position, std::string* line,
                      bool skipEmpty) {
    line->clear();
    long p = *position;
    if (buffer == nullptr || p < 0) p = size;
    for (;;) {
        if (p >= size) {
            *position = size;
            return -1;
        }
        const long start = p;
        while (p < size && buffer[p] != '\n' && buffer[p] != '\r') ++p;
        const long end = p;
        if (p < size) {
            // One CR LF pair is one line end; CR CR is two.
            if (buffer[p] == '\r' && p + 1 < size && buffer[p + 1] == '\n') ++p;
            ++p;
        }
        if (end == start && skipEmpty) continue;
        line->assign(buffer + start, static_cast<std::size_t>(end - start));
        *position = p;
        return end - start;
    }
}
