#include "ReadWriteLpwDutyCycleTable.h"

#include <algorithm>
#include <climits>
#include <string_view>

#include "CLocaleNumbers.h"
#include "FileText.h"

namespace {

std::string_view trim(std::string_view s) {
    const std::size_t first = s.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) return {};
    return s.substr(first, s.find_last_not_of(" \t\r\n") - first + 1);
}

// Lines broken at LF, CR or CR LF.
class TableLines {
  public:
    explicit TableLines(std::string_view text) : text(text) {}
    bool next(std::string_view* line) {
        if (pos >= text.size()) return false;
        const std::size_t end = text.find_first_of("\r\n", pos);
        const std::size_t stop = end == std::string_view::npos ? text.size() : end;
        *line = text.substr(pos, stop - pos);
        pos = stop;
        if (pos < text.size()) pos += text.compare(pos, 2, "\r\n") == 0 ? 2 : 1;
        return true;
    }

  private:
    std::string_view text;
    std::size_t pos = 0;
};

// The values before the comment of a header line.
std::vector<std::string_view> valuesOf(std::string_view line) {
    line = line.substr(0, line.find("//"));
    std::vector<std::string_view> values;
    std::size_t i = 0;
    while (i < line.size()) {
        while (i < line.size() && (line[i] == ' ' || line[i] == '\t')) ++i;
        const std::size_t start = i;
        while (i < line.size() && line[i] != ' ' && line[i] != '\t') ++i;
        if (i > start) values.push_back(line.substr(start, i - start));
    }
    return values;
}

bool intOf(std::string_view text, int* v) {
    double d = 0.0;
    if (!parseWholeNumber(text, &d) || d < INT_MIN || d > INT_MAX) return false;
    if (d != static_cast<int>(d)) return false;
    *v = static_cast<int>(d);
    return true;
}

// "%.4lf %d" or "%.4lf %d %d".
bool parseTitleLine(std::string_view line, LpwDutyCycleHeader* h) {
    const std::vector<std::string_view> v = valuesOf(line);
    if (v.size() != 2 && v.size() != 3) return false;
    h->titleLine = std::string(trim(line));
    h->numTitleValues = static_cast<int>(v.size());
    if (!parseWholeNumber(v[0], &h->powerConsumptionAt0DutyCycle_W)) return false;
    if (!intOf(v[1], &h->electricalEfficiencyPercent)) return false;
    return v.size() == 2 || intOf(v[2], &h->opticalEfficiencyPercent);
}

// One integer before the comment.
bool parseIntLine(TableLines* lines, int* v) {
    std::string_view line;
    if (!lines->next(&line)) return false;
    const std::vector<std::string_view> values = valuesOf(line);
    return values.size() == 1 && intOf(values[0], v);
}

bool parseHeader(TableLines* lines, LpwDutyCycleHeader* h) {
    std::string_view line;
    if (!lines->next(&line)) return (h->problem = "the file is empty", false);
    if (line.find('.') == std::string_view::npos) {
        const std::vector<std::string_view> v = valuesOf(line);
        if (v.size() != 1 || !intOf(v[0], &h->version) || h->version < 0)
            return (h->problem = "line 1 holds no version", false);
        if (h->version >= 1 && !parseIntLine(lines, &h->ledDefinitionSource))
            return (h->problem = "the ledDefinitionSource line holds no number", false);
        if (!lines->next(&line)) return (h->problem = "the title line is missing", false);
    }
    if (!parseTitleLine(line, h))
        return (h->problem = "the title line does not hold two or three values", false);
    if (!parseIntLine(lines, &h->OE)) return (h->problem = "the OE line holds no number", false);
    if (!lines->next(&line)) return (h->problem = "the rows, columns line is missing", false);
    const std::vector<std::string_view> rc = valuesOf(line);
    if (rc.size() != 2 || !intOf(rc[0], &h->fileRows) || !intOf(rc[1], &h->fileColumns) ||
        h->fileRows < 0 || h->fileColumns < 0)
        return (h->problem = "the rows, columns line does not hold two counts", false);
    return true;
}

// The cells of a row line: every cell ends with "|"; text after the last one is a cell only
// when it is not blank.
std::vector<std::string_view> cellsOf(std::string_view line) {
    std::vector<std::string_view> cells;
    std::size_t start = 0;
    for (std::size_t bar = line.find('|'); bar != std::string_view::npos;
         bar = line.find('|', start)) {
        cells.push_back(trim(line.substr(start, bar - start)));
        start = bar + 1;
    }
    const std::string_view rest = trim(line.substr(start));
    if (!rest.empty()) cells.push_back(rest);
    return cells;
}

// A cell on one line: line breaks become blanks, "|" too (it would end the cell), and runs of
// blanks become one.
std::string cleanCell(const std::string& text) {
    std::string out;
    out.reserve(text.size());
    for (char c : text) {
        if (c == '\r' || c == '\n' || c == '|' || c == '\t') c = ' ';
        if (c == ' ' && !out.empty() && out.back() == ' ') continue;
        out += c;
    }
    return out;
}

bool fail(std::string* error) {
    if (error != nullptr) *error = LPW_TABLE_READ_ERROR;
    return false;
}

}  // namespace

TableModel::TableModel(int rows, int columns)
    : numRows(std::max(rows, 0)),
      numColumns(std::max(columns, 0)),
      cells(static_cast<std::size_t>(numRows),
            std::vector<std::string>(static_cast<std::size_t>(numColumns))) {}

bool ReadWriteLpwDutyCycleTable::read(const std::string& file, std::string* error, int* version,
                                      TableModel* table, LpwDutyCycleHeader* header) const {
    std::string text;
    if (readFileText(file, LPW_TABLE_MAX_BYTES, &text) != FileReadStatus::OK) {
        if (header != nullptr) header->problem = "the file could not be read whole";
        return fail(error);
    }
    return readText(text, error, version, table, header);
}

bool ReadWriteLpwDutyCycleTable::readText(const std::string& text, std::string* error, int* version,
                                          TableModel* table, LpwDutyCycleHeader* header) const {
    LpwDutyCycleHeader local;
    LpwDutyCycleHeader& h = header != nullptr ? *header : local;
    h = LpwDutyCycleHeader{};
    if (text.find('\0') != std::string::npos) {
        h.problem = "the file holds a NUL byte: it is no table text";
        return fail(error);
    }
    TableLines lines(text);
    if (!parseHeader(&lines, &h)) return fail(error);
    if (version != nullptr) *version = h.version;
    *table = TableModel(table->numRows, table->numColumns);
    const int rows = std::min(h.fileRows, table->numRows);
    h.tooManyRows = h.fileRows > table->numRows;
    h.tooManyColumns = h.fileColumns > table->numColumns;
    for (int r = 0; r < rows; ++r) {
        std::string_view line;
        if (!lines.next(&line)) {
            h.problem = "the file ends after " + std::to_string(r) + " of its " +
                        std::to_string(h.fileRows) + " rows";
            return fail(error);
        }
        const std::vector<std::string_view> cells = cellsOf(line);
        const int n = std::min(static_cast<int>(cells.size()), table->numColumns);
        if (static_cast<int>(cells.size()) > table->numColumns) h.tooManyColumns = true;
        for (int c = 0; c < n; ++c) table->cells[r][c] = std::string(cells[c]);
    }
    return true;
}

std::string ReadWriteLpwDutyCycleTable::formatTable(const std::string& header,
                                                    const TableModel& table) {
    std::string text = header;
    if (!text.empty() && text.back() != '\n') text += '\n';
    text += std::to_string(table.numRows) + " " + std::to_string(table.numColumns) +
            " // rows, columns\n";
    for (int r = 0; r < table.numRows; ++r) {
        for (int c = 0; c < table.numColumns; ++c) {
            const bool present = r < static_cast<int>(table.cells.size()) &&
                                 c < static_cast<int>(table.cells[r].size());
            text += (present ? cleanCell(table.cells[r][c]) : std::string()) + " | ";
        }
        text += '\n';
    }
    return text;
}

bool ReadWriteLpwDutyCycleTable::write(const std::string& file, const std::string& header,
                                       const TableModel& table, std::string* error) const {
    if (writeFileAtomically(file, formatTable(header, table))) return true;
    if (error != nullptr) *error = LPW_TABLE_WRITE_ERROR;
    return false;
}
