// The program's options and the one file format that keeps them. The settings file ("%s.ini"
// with APP_NAME) is written at every quit and read at every start; a design file
// (USER_DESIGNS_FILE_EXT) is the same format without the settings-only lines. Each line is
// "<tag>value"; the tag is the option's variable name. The option table (ProgramOptions.def) is the
// single list of options, their defaults and their write order.
//
// The per-row data of a design (spectrum checks and fields, colour and filter checks, matching
// spectrum, R and Q constraints) belongs to the window: it passes those lines to write() ready
// formatted and gets them back from read() among the lines whose tags the table doesn't know.
#ifndef LUMIVAR_CORE_PROGRAMSETTINGS_H
#define LUMIVAR_CORE_PROGRAMSETTINGS_H

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <variant>
#include <vector>

// Lines of the recent design files kept; an empty line read from a file still takes a slot.
constexpr int RECENT_FILES_MAX = 10;
// Predefined gamuts that the CIE plot can draw, one "showGamut" line each.
constexpr int PREDEFINED_GAMUT_COUNT = 12;
// Entries of each ellipse and circle list of the CIE plot menus.
constexpr int ELLIPSE_CHOICE_COUNT = 11;
// Bytes of a file that are read at most; no settings or design file comes near it, and a huge or
// binary file is cut off there instead of filling the memory.
constexpr std::size_t SETTINGS_MAX_FILE_BYTES = 32u << 20;
// Longer lines are skipped.
constexpr std::size_t SETTINGS_MAX_LINE_LENGTH = 1u << 20;
// Lines of unknown tags handed back at most; a design with thousands of spectra stays far below.
constexpr std::size_t SETTINGS_MAX_OTHER_LINES = 200000;

enum class OptionKind {
    INT,          // "%d"; a check box or menu check is 0 or 1, read as on when non-zero
    DOUBLE,       // written with the row's "%.<n>lf" format
    UINT64,       // "%lu", an unsigned 64-bit count such as seconds since 1970
    STRING,       // the text as it stands, up to the line end
    STRING_LIST,  // one line for each non-empty entry, at most count of them
    INDEXED,      // count lines "%d %d": index, value
};

// One row of the option table.
struct OptionDef {
    const char* tag;          // variable name; the file tag is "<" tag ">"
    OptionKind kind;          // how the value is kept and written
    const char* format;       // "%.<n>lf" for DOUBLE, nullptr for the other kinds
    const char* defaultText;  // the default as a file would hold it (every entry of an INDEXED)
    int count;                // STRING_LIST: most entries; INDEXED: entries; otherwise 1
    bool settingsOnly;        // only in the settings file, never written to or read from a design
    const char* comment;      // what the option means to the user
};

// The C++ name of every option, made from the same table row as its tag.
enum class OptionId : int {
#define OPTION(id, tag, kind, format, defaultText, count, settingsOnly, comment) id,
#include "ProgramOptions.def"
    COUNT
};

class ProgramSettings {
  public:
    enum class ReadStatus {
        OK,
        CANNOT_OPEN,     // missing or unreadable file
        EMPTY,           // no bytes at all
        NOT_TAG_FORMAT,  // the first line has no "<": an older positional file, nothing was read
        TOO_LARGE,       // more than SETTINGS_MAX_FILE_BYTES: no settings file or design is that
                         // large, nothing was read
    };
    // A line whose tag the table doesn't know, as it stood: tag with "<" and ">", then the value.
    // Only tags of visible characters are handed back.
    struct Line {
        std::string tag;
        std::string value;
    };
    struct ReadResult {
        ReadStatus status = ReadStatus::OK;
        std::vector<Line> otherLines;  // in file order
    };

    // All options at their defaults.
    ProgramSettings();
    // Every option back to its default, the recent files and the user folder included.
    void setIniDefaults();

    // The option table in write order.
    static const std::vector<OptionDef>& table();
    static const OptionDef& definition(OptionId id);
    // OptionId::COUNT for a tag (without "<" ">") that names no option.
    static OptionId idOf(const std::string& tag);
    static bool has(const std::string& tag) { return idOf(tag) != OptionId::COUNT; }

    // Typed access. An unknown option or a kind that doesn't match the row is a programming
    // error: it asserts in debug builds; release builds read 0, false or empty and ignore the set.
    int getInt(OptionId id) const;
    void setInt(OptionId id, int value);
    bool getBool(OptionId id) const { return getInt(id) != 0; }
    void setBool(OptionId id, bool on) { setInt(id, on ? 1 : 0); }
    double getDouble(OptionId id) const;
    void setDouble(OptionId id, double value);
    std::uint64_t getUInt64(OptionId id) const;
    void setUInt64(OptionId id, std::uint64_t value);
    std::string getString(OptionId id) const;
    void setString(OptionId id, const std::string& value);
    // Entries of an INDEXED option; an index outside 0..count-1 reads 0 and is not set.
    int getIndexed(OptionId id, int index) const;
    void setIndexed(OptionId id, int index, int value);
    // Entries of a STRING_LIST option; a longer list is cut to the row's count.
    std::vector<std::string> getList(OptionId id) const;
    void setList(OptionId id, const std::vector<std::string>& values);

    // The same by tag name (without "<" ">"), for code that holds the name as text. A name that
    // is no option is reported on the standard error and asserts, like a wrong OptionId.
    int getInt(const std::string& tag) const;
    void setInt(const std::string& tag, int value);
    bool getBool(const std::string& tag) const;
    void setBool(const std::string& tag, bool on);
    double getDouble(const std::string& tag) const;
    void setDouble(const std::string& tag, double value);
    std::uint64_t getUInt64(const std::string& tag) const;
    void setUInt64(const std::string& tag, std::uint64_t value);
    std::string getString(const std::string& tag) const;
    void setString(const std::string& tag, const std::string& value);
    int getIndexed(const std::string& tag, int index) const;
    void setIndexed(const std::string& tag, int index, int value);
    std::vector<std::string> getList(const std::string& tag) const;
    void setList(const std::string& tag, const std::vector<std::string>& values);

    // The "<version>" of the last file read, 0 when none was read or it had none.
    double fileVersion() const { return version; }

    // Writes "<version>7.77", then every option in table order (the settings-only ones only when
    // isIni), then extraLines, each line ended by "\n". Line breaks inside a text are written as
    // blanks so that every value stays on its line. False when the file can't be written.
    bool write(const std::string& path, bool isIni,
               const std::vector<std::string>& extraLines = {}) const;
    // The file's text, as write() stores it.
    std::string toText(bool isIni, const std::vector<std::string>& extraLines = {}) const;

    // Reads a settings file (isIni) or a design. Options missing from the file keep their value;
    // a value that is no valid number leaves its option as it was. Reading a settings file starts
    // a new recent-files list. Line ends "\n" and "\r\n" are both accepted.
    ReadResult read(const std::string& path, bool isIni);
    ReadResult read(std::istream& in, bool isIni);

  private:
    // idOf() that reports a name which is no option.
    static OptionId checkedId(const std::string& tag);
    using Value = std::variant<int, double, std::uint64_t, std::string, std::vector<std::string>,
                               std::vector<int>>;

    template <class T>
    const T* slot(OptionId id, OptionKind kind) const;
    template <class T>
    T* slot(OptionId id, OptionKind kind);
    void resetToDefault(int row);
    // Stores one file value into the row; false (and no change) when it doesn't parse.
    bool assign(int row, const std::string& value);
    // True when the tag names an option or an older spelling of one.
    bool assignLine(const std::string& tag, const std::string& value, bool isIni);

    std::vector<Value> values;  // one per table row
    double version = 0;         // of the last file read
};

#endif  // LUMIVAR_CORE_PROGRAMSETTINGS_H
