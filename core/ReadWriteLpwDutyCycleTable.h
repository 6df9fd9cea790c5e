// The driver tables of the lamp design windows: lumens and wall-plug watts of each LED against
// duty cycle (".datl") or current (".datc").
//
//   2 // DATA_FILE_FORMAT_VERSION        absent in version 0 files
//   0 // ledDefinitionSource             only from version 1
//   12.5000 85 90 // powerConsumption...  the title line: two or three values
//   0 // OE
//   3 4 // rows, columns
//   100.0 | 250 | 2.8 | ... |             one line per row, cells ended by "|"
//
// A first line with a "." in it is no version line: the file is of version 0 and that line is
// its title line.
#ifndef LUMIVAR_CORE_READWRITELPWDUTYCYCLETABLE_H
#define LUMIVAR_CORE_READWRITELPWDUTYCYCLETABLE_H

#include <cstddef>
#include <string>
#include <vector>

constexpr const char* LPW_DUTY_CYCLE_FILE_EXT = ".datl";
constexpr const char* LPW_CURRENT_FILE_EXT = ".datc";
// The window's texts for any failure.
constexpr const char* LPW_TABLE_READ_ERROR = "Unknown error while reading file.";
constexpr const char* LPW_TABLE_WRITE_ERROR = "Unknown error while writting file, it may be open.";
// Most bytes read of a table file.
constexpr std::size_t LPW_TABLE_MAX_BYTES = std::size_t{64} << 20;

// A table as a window shows it: cells[row][column], numRows by numColumns texts. The window
// copies its widget into one and back.
struct TableModel {
    TableModel() = default;
    TableModel(int rows, int columns);
    int numRows = 0;
    int numColumns = 0;
    std::vector<std::vector<std::string>> cells;
};

// What a table file says besides its cells.
struct LpwDutyCycleHeader {
    int version = 0;              // DATA_FILE_FORMAT_VERSION, 0 without the line
    int ledDefinitionSource = 0;  // from version 1
    std::string titleLine;        // the line of the power values, as it stands
    double powerConsumptionAt0DutyCycle_W = 0.0;
    int electricalEfficiencyPercent = 0;
    int opticalEfficiencyPercent = 0;  // 0 when the title line holds two values
    int numTitleValues = 0;            // 2 or 3
    int OE = 0;
    int fileRows = 0;  // rows and columns the file says it has
    int fileColumns = 0;
    bool tooManyRows = false;     // the file has more rows than the table: they were dropped
    bool tooManyColumns = false;  // likewise for columns
    std::string problem;          // why reading failed, for a log or the command-line tool
};

class ReadWriteLpwDutyCycleTable {
  public:
    // Reads file into table, which keeps its size: cells past the file's are emptied, the
    // file's cells past the table's are dropped (header->tooManyRows, tooManyColumns). False
    // with *error = LPW_TABLE_READ_ERROR on failure; *version gets the file's version.
    bool read(const std::string& file, std::string* error, int* version, TableModel* table,
              LpwDutyCycleHeader* header = nullptr) const;
    // The same on text already read.
    bool readText(const std::string& text, std::string* error, int* version, TableModel* table,
                  LpwDutyCycleHeader* header = nullptr) const;

    // Writes header (the lines before the rows and columns line, as the window forms them),
    // the "rows, columns" line of the table and its cells, atomically. False with
    // *error = LPW_TABLE_WRITE_ERROR when the file can't be written.
    bool write(const std::string& file, const std::string& header, const TableModel& table,
               std::string* error) const;
    static std::string formatTable(const std::string& header, const TableModel& table);
};

#endif  // LUMIVAR_CORE_READWRITELPWDUTYCYCLETABLE_H
