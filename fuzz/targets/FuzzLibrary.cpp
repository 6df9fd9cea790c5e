#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "FuzzTargets.h"
#include "ReadWriteUserSpectra.h"

namespace {

// A broken promise of the reader is a fault like a crash.
void require(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "library reader: %s\n", what);
    std::abort();
}

std::vector<ledTypeStruct> readEntries(const std::string& text, bool newFormat, int type,
                                       ReadWriteUserSpectra* result) {
    const ReadWriteUserSpectra counted =
        ReadWriteUserSpectra::fromText(text, newFormat, false, 0, nullptr, type);
    std::vector<ledTypeStruct> entries(static_cast<std::size_t>(counted.getNumUserData()) + 1);
    // No limit on the entries read: room for exactly the counted ones, so a reader that reads
    // more than it counted writes past the end (and the sanitizer says so).
    *result = ReadWriteUserSpectra::fromText(text, newFormat, true, 1, entries.data(), type);
    require(result->getNumUserData() == counted.getNumUserData(), "count and read differ");
    require(result->getError() == counted.getError(), "count and read fail differently");
    entries.erase(entries.begin());
    return entries;
}

}  // namespace

// The first byte picks the library kind and the format; the rest is the file. Whatever it
// holds, counting and reading agree, every value read is a finite non-negative number, and a
// library read without error writes out and reads back to the same entries.
void fuzzLibrary(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return;
    const int type = data[0] % 3;
    const bool newFormat = (data[0] & 4) == 0;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    ReadWriteUserSpectra read;
    const std::vector<ledTypeStruct> entries = readEntries(text, newFormat, type, &read);
    for (const ledTypeStruct& e : entries) {
        require(std::memchr(e.name, '\0', sizeof e.name) != nullptr, "name without its end");
        for (double v : e.spectrum) require(std::isfinite(v) && v >= 0.0, "bad spectrum value");
        require(std::isfinite(e.lumens) && std::isfinite(e.wattsVisIR) && std::isfinite(e.lpw),
                "photometry not finite");
    }
    if (read.getError()) return;
    const int n = static_cast<int>(entries.size());
    const std::string again = ReadWriteUserSpectra::formatLibrary(n, nullptr, entries.data(), type);
    ReadWriteUserSpectra reread;
    const std::vector<ledTypeStruct> back = readEntries(again, true, type, &reread);
    require(!reread.getError(), "a written library does not read back");
    require(back.size() == entries.size(), "a written library reads back another count");
    for (std::size_t i = 0; i < back.size(); ++i) {
        require(std::strcmp(back[i].name, entries[i].name) == 0, "a name changed");
        require(back[i].isPrivate == entries[i].isPrivate, "the private mark changed");
    }
    ReadWriteUserSpectra::formatTabbed(n, nullptr, entries.data(), type);
}
