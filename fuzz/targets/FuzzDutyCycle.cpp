#include <cstdio>
#include <cstdlib>
#include <string>

#include "FuzzTargets.h"
#include "ReadWriteLpwDutyCycleTable.h"

namespace {

void require(bool ok, const char* what) {
    if (ok) return;
    std::fprintf(stderr, "duty cycle table: %s\n", what);
    std::abort();
}

}  // namespace

// The first byte sets the table's size; the rest is the file. A table read without error
// writes out and reads back: once written, its cells are stable.
void fuzzDutyCycle(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return;
    const std::string text(reinterpret_cast<const char*>(data + 1), size - 1);
    const ReadWriteLpwDutyCycleTable io;
    TableModel table(data[0] & 15, data[0] >> 4);
    std::string error;
    LpwDutyCycleHeader header;
    int version = 0;
    if (!io.readText(text, &error, &version, &table, &header)) {
        require(error == LPW_TABLE_READ_ERROR && !header.problem.empty(), "failure without text");
        return;
    }
    require(static_cast<int>(table.cells.size()) == table.numRows, "the table changed size");
    const std::string head =
        "2 // DATA_FILE_FORMAT_VERSION\n0 // ledDefinitionSource\n"
        "1.0000 85 90 // title\n0 // OE\n";
    TableModel once(table.numRows, table.numColumns), twice(table.numRows, table.numColumns);
    require(io.readText(ReadWriteLpwDutyCycleTable::formatTable(head, table), &error, nullptr,
                        &once, nullptr),
            "a written table does not read back");
    require(io.readText(ReadWriteLpwDutyCycleTable::formatTable(head, once), &error, nullptr,
                        &twice, nullptr),
            "a rewritten table does not read back");
    require(once.cells == twice.cells, "cells change at every write");
}
