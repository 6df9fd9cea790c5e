#include "ProgramSettings.h"

#include <algorithm>
#include <cassert>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <istream>
#include <string_view>
#include <type_traits>
#include <unordered_map>

#include "AppConstants.h"
#include "FileText.h"
#include "NumberText.h"

namespace {

const std::vector<OptionDef> OPTION_TABLE = {
#define OPTION(id, tag, kind, format, defaultText, count, settingsOnly, comment) \
    {tag, kind, format, defaultText, count, settingsOnly, comment},
#include "ProgramOptions.def"
};

const std::unordered_map<std::string, OptionId>& tagIndex() {
    static const std::unordered_map<std::string, OptionId> index = [] {
        std::unordered_map<std::string, OptionId> m;
        for (std::size_t i = 0; i < OPTION_TABLE.size(); ++i)
            m.emplace(OPTION_TABLE[i].tag, static_cast<OptionId>(i));
        return m;
    }();
    return index;
}

// Keys of earlier versions, each still read into the options that replaced it.
struct OlderKey {
    const char* tag;
    OptionId first, second;  // second is OptionId::COUNT when there is one option only
};
const OlderKey OLDER_KEYS[] = {
    {"matchingSpectraType", OptionId::_matchingSpectraType, OptionId::COUNT},
    // One size and one splitter pair used to serve both custom CIE windows.
    {"DuvWindowWidth", OptionId::DuvWindowWidth_Duv, OptionId::DuvWindowWidth_xyLm},
    {"DuvWindowHeight", OptionId::DuvWindowHeight_Duv, OptionId::DuvWindowHeight_xyLm},
    {"leftRightSplitterSize_customCIE", OptionId::leftRightSplitterSize_customCIE_Duv,
     OptionId::leftRightSplitterSize_customCIE_xyLm},
    {"upDownSplitterSize_customCIE", OptionId::upDownSplitterSize_customCIE_Duv,
     OptionId::upDownSplitterSize_customCIE_xyLm},
};

// Whole-text numbers in the C locale: surrounding blanks are allowed, anything else is not.
template <class T>
bool parseNumber(const std::string& text, T* out) {
    std::string s = trimmedText(text);
    if (!s.empty() && s[0] == '+') s.erase(0, 1);
    if (s.empty()) return false;
    T v{};
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (ec != std::errc() || end != s.data() + s.size()) return false;
    if constexpr (std::is_floating_point_v<T>) {
        if (!std::isfinite(v)) return false;
    }
    *out = v;
    return true;
}

// "<index> <value>" of an indexed line.
bool parsePair(const std::string& text, int* index, int* value) {
    const std::string s = trimmedText(text);
    const std::size_t gap = s.find_first_of(" \t");
    if (gap == std::string::npos) return false;
    return parseNumber(s.substr(0, gap), index) && parseNumber(s.substr(gap), value);
}

// Decimals of a "%.<n>lf" format; -1 for any other format.
int decimalsOf(const char* format) {
    if (format == nullptr) return -1;
    const std::string f = format;
    if (f.size() < 5 || f.compare(0, 2, "%.") != 0 || f.compare(f.size() - 2, 2, "lf") != 0)
        return -1;
    int n = -1;
    return parseNumber(f.substr(2, f.size() - 4), &n) && n >= 0 && n <= 17 ? n : -1;
}

// printf's "%.<n>lf" without its dependence on the locale's decimal character.
std::string fixedText(double v, int decimals) {
    char buf[400];
    const auto [end, ec] =
        std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, decimals);
    return ec == std::errc() ? std::string(buf, end) : std::string("0");
}

// A value never spans lines: a line break inside a text would start a tagless line.
std::string oneLine(std::string s) {
    std::replace(s.begin(), s.end(), '\n', ' ');
    std::replace(s.begin(), s.end(), '\r', ' ');
    return s;
}

// "<name>" with a name of visible characters, as every writer of this format puts out.
bool looksLikeTag(std::string_view tag) {
    if (tag.size() < 3 || tag.front() != '<') return false;
    return std::all_of(tag.begin() + 1, tag.end() - 1,
                       [](char c) { return c > ' ' && c < 127 && c != '<' && c != '>'; });
}

// Reads at most SETTINGS_MAX_FILE_BYTES; *cut tells whether the stream held more.
std::string readCapped(std::istream& in, bool* cut) {
    std::string text;
    char buf[65536];
    while (text.size() < SETTINGS_MAX_FILE_BYTES && in) {
        const std::size_t want = std::min(sizeof buf, SETTINGS_MAX_FILE_BYTES - text.size());
        in.read(buf, static_cast<std::streamsize>(want));
        text.append(buf, static_cast<std::size_t>(in.gcount()));
    }
    *cut =
        text.size() >= SETTINGS_MAX_FILE_BYTES && in && in.peek() != std::char_traits<char>::eof();
    return text;
}

}  // namespace

ProgramSettings::ProgramSettings() : values(OPTION_TABLE.size()) { setIniDefaults(); }

void ProgramSettings::setIniDefaults() {
    for (std::size_t row = 0; row < OPTION_TABLE.size(); ++row)
        resetToDefault(static_cast<int>(row));
}

void ProgramSettings::resetToDefault(int row) {
    const OptionDef& def = OPTION_TABLE[row];
    switch (def.kind) {
        case OptionKind::INT:
            values[row] = 0;
            break;
        case OptionKind::DOUBLE:
            values[row] = 0.0;
            break;
        case OptionKind::UINT64:
            values[row] = std::uint64_t{0};
            break;
        case OptionKind::STRING:
            values[row] = std::string();
            break;
        case OptionKind::STRING_LIST:
            values[row] = std::vector<std::string>();
            return;  // a list starts empty; its default text is not an entry
        case OptionKind::INDEXED: {
            int v = 0;
            const bool parsed = parseNumber(std::string(def.defaultText), &v);
            assert(parsed && "option default does not parse");
            values[row] = std::vector<int>(def.count, parsed ? v : 0);
            return;  // the default is that of every entry
        }
    }
    const bool parsed = assign(row, def.defaultText);
    assert(parsed && "option default does not parse");
    (void)parsed;
}

const std::vector<OptionDef>& ProgramSettings::table() { return OPTION_TABLE; }

const OptionDef& ProgramSettings::definition(OptionId id) {
    assert(id < OptionId::COUNT);
    return OPTION_TABLE[static_cast<std::size_t>(id)];
}

OptionId ProgramSettings::idOf(const std::string& tag) {
    const auto it = tagIndex().find(tag);
    return it == tagIndex().end() ? OptionId::COUNT : it->second;
}

OptionId ProgramSettings::checkedId(const std::string& tag) {
    const OptionId id = idOf(tag);
    if (id == OptionId::COUNT) {
        std::fprintf(stderr, "ProgramSettings: \"%s\" is no option\n", tag.c_str());
        assert(!"unknown option name");
    }
    return id;
}

template <class T>
const T* ProgramSettings::slot(OptionId id, OptionKind kind) const {
    const std::size_t row = static_cast<std::size_t>(id);
    if (row >= OPTION_TABLE.size()) return nullptr;  // checkedId has reported it
    if (OPTION_TABLE[row].kind != kind) {
        std::fprintf(stderr, "ProgramSettings: option \"%s\" used as another kind\n",
                     OPTION_TABLE[row].tag);
        assert(!"option used as another kind");
        return nullptr;
    }
    return std::get_if<T>(&values[row]);
}

template <class T>
T* ProgramSettings::slot(OptionId id, OptionKind kind) {
    return const_cast<T*>(static_cast<const ProgramSettings*>(this)->slot<T>(id, kind));
}

int ProgramSettings::getInt(OptionId id) const {
    const int* v = slot<int>(id, OptionKind::INT);
    return v ? *v : 0;
}

void ProgramSettings::setInt(OptionId id, int value) {
    if (int* v = slot<int>(id, OptionKind::INT)) *v = value;
}

double ProgramSettings::getDouble(OptionId id) const {
    const double* v = slot<double>(id, OptionKind::DOUBLE);
    return v ? *v : 0.0;
}

void ProgramSettings::setDouble(OptionId id, double value) {
    if (double* v = slot<double>(id, OptionKind::DOUBLE)) *v = value;
}

std::uint64_t ProgramSettings::getUInt64(OptionId id) const {
    const std::uint64_t* v = slot<std::uint64_t>(id, OptionKind::UINT64);
    return v ? *v : 0;
}

void ProgramSettings::setUInt64(OptionId id, std::uint64_t value) {
    if (std::uint64_t* v = slot<std::uint64_t>(id, OptionKind::UINT64)) *v = value;
}

std::string ProgramSettings::getString(OptionId id) const {
    const std::string* v = slot<std::string>(id, OptionKind::STRING);
    return v ? *v : std::string();
}

void ProgramSettings::setString(OptionId id, const std::string& value) {
    if (std::string* v = slot<std::string>(id, OptionKind::STRING)) *v = value;
}

int ProgramSettings::getIndexed(OptionId id, int index) const {
    const std::vector<int>* v = slot<std::vector<int>>(id, OptionKind::INDEXED);
    return v && index >= 0 && index < static_cast<int>(v->size()) ? (*v)[index] : 0;
}

void ProgramSettings::setIndexed(OptionId id, int index, int value) {
    std::vector<int>* v = slot<std::vector<int>>(id, OptionKind::INDEXED);
    if (v && index >= 0 && index < static_cast<int>(v->size())) (*v)[index] = value;
}

std::vector<std::string> ProgramSettings::getList(OptionId id) const {
    const std::vector<std::string>* v = slot<std::vector<std::string>>(id, OptionKind::STRING_LIST);
    return v ? *v : std::vector<std::string>();
}

void ProgramSettings::setList(OptionId id, const std::vector<std::string>& values) {
    std::vector<std::string>* v = slot<std::vector<std::string>>(id, OptionKind::STRING_LIST);
    if (!v) return;
    const std::size_t most = static_cast<std::size_t>(definition(id).count);
    v->assign(values.begin(), values.begin() + std::min(values.size(), most));
}

int ProgramSettings::getInt(const std::string& tag) const { return getInt(checkedId(tag)); }
void ProgramSettings::setInt(const std::string& tag, int v) { setInt(checkedId(tag), v); }
bool ProgramSettings::getBool(const std::string& tag) const { return getBool(checkedId(tag)); }
void ProgramSettings::setBool(const std::string& tag, bool on) { setBool(checkedId(tag), on); }
double ProgramSettings::getDouble(const std::string& tag) const {
    return getDouble(checkedId(tag));
}
void ProgramSettings::setDouble(const std::string& tag, double v) { setDouble(checkedId(tag), v); }
std::uint64_t ProgramSettings::getUInt64(const std::string& tag) const {
    return getUInt64(checkedId(tag));
}
void ProgramSettings::setUInt64(const std::string& tag, std::uint64_t v) {
    setUInt64(checkedId(tag), v);
}
std::string ProgramSettings::getString(const std::string& tag) const {
    return getString(checkedId(tag));
}
void ProgramSettings::setString(const std::string& tag, const std::string& v) {
    setString(checkedId(tag), v);
}
int ProgramSettings::getIndexed(const std::string& tag, int i) const {
    return getIndexed(checkedId(tag), i);
}
void ProgramSettings::setIndexed(const std::string& tag, int i, int v) {
    setIndexed(checkedId(tag), i, v);
}
std::vector<std::string> ProgramSettings::getList(const std::string& tag) const {
    return getList(checkedId(tag));
}
void ProgramSettings::setList(const std::string& tag, const std::vector<std::string>& v) {
    setList(checkedId(tag), v);
}

std::string ProgramSettings::toText(bool isIni, const std::vector<std::string>& extraLines) const {
    char version[32];
    std::snprintf(version, sizeof version, "%d.%02d", VERSION_MAJOR, VERSION_MINOR);
    std::string out = std::string("<version>") + version + "\n";
    for (std::size_t row = 0; row < OPTION_TABLE.size(); ++row) {
        const OptionDef& def = OPTION_TABLE[row];
        if (def.settingsOnly && !isIni) continue;
        const std::string tag = std::string("<") + def.tag + ">";
        std::string line;
        switch (def.kind) {
            case OptionKind::INT:
                line = tag + std::to_string(std::get<int>(values[row])) + "\n";
                break;
            case OptionKind::DOUBLE:
                line =
                    tag + fixedText(std::get<double>(values[row]), decimalsOf(def.format)) + "\n";
                break;
            case OptionKind::UINT64:
                line = tag + std::to_string(std::get<std::uint64_t>(values[row])) + "\n";
                break;
            case OptionKind::STRING:
                line = tag + oneLine(std::get<std::string>(values[row])) + "\n";
                break;
            case OptionKind::STRING_LIST:
                for (const std::string& entry : std::get<std::vector<std::string>>(values[row]))
                    if (!entry.empty()) line += tag + oneLine(entry) + "\n";
                break;
            case OptionKind::INDEXED: {
                const std::vector<int>& entries = std::get<std::vector<int>>(values[row]);
                for (std::size_t i = 0; i < entries.size(); ++i)
                    line += tag + std::to_string(i) + " " + std::to_string(entries[i]) + "\n";
                break;
            }
        }
        out += line;
        // Deliberate: this option has always been written twice, and files in use carry both.
        if (row == static_cast<std::size_t>(OptionId::drawFrameAroundColorWheelColors)) out += line;
    }
    for (const std::string& extra : extraLines) out += extra + "\n";
    return out;
}

bool ProgramSettings::write(const std::string& path, bool isIni,
                            const std::vector<std::string>& extraLines) const {
    return writeFileAtomically(path, toText(isIni, extraLines));
}

ProgramSettings::ReadResult ProgramSettings::read(const std::string& path, bool isIni) {
    std::ifstream in(path, std::ios::binary);
    if (!in.is_open()) {
        version = 0;
        return {ReadStatus::CANNOT_OPEN, {}};
    }
    return read(in, isIni);
}

ProgramSettings::ReadResult ProgramSettings::read(std::istream& in, bool isIni) {
    version = 0;
    bool cut = false;
    const std::string text = readCapped(in, &cut);
    if (in.bad()) return {ReadStatus::CANNOT_OPEN, {}};  // a folder, or a read error
    if (text.empty()) return {ReadStatus::EMPTY, {}};
    if (cut) return {ReadStatus::TOO_LARGE, {}};
    if (text.substr(0, text.find('\n')).find('<') == std::string::npos)
        return {ReadStatus::NOT_TAG_FORMAT, {}};

    if (isIni) setList(OptionId::recentlyUsedFiles, {});
    ReadResult result;
    std::size_t start = 0;
    while (start < text.size()) {
        std::size_t end = text.find('\n', start);
        if (end == std::string::npos) end = text.size();
        std::size_t length = end - start;
        if (length > 0 && text[end - 1] == '\r') --length;
        // The search stays inside the line, so a long file without ">" takes linear time.
        const std::string_view line = std::string_view(text).substr(start, length);
        const std::size_t gt = line.find('>');
        // Text before a ">" that no writer of this format puts out (binary data, a stray ">")
        // is skipped at once.
        if (length <= SETTINGS_MAX_LINE_LENGTH && gt != std::string_view::npos &&
            looksLikeTag(line.substr(0, gt + 1))) {
            std::string tag(line.substr(0, gt + 1));
            std::string value(line.substr(gt + 1));
            if (!assignLine(tag, value, isIni) &&
                result.otherLines.size() < SETTINGS_MAX_OTHER_LINES)
                result.otherLines.push_back({std::move(tag), std::move(value)});
        }
        start = end + 1;
    }
    return result;
}

bool ProgramSettings::assignLine(const std::string& tag, const std::string& value, bool isIni) {
    const std::string name = tag.substr(1, tag.size() - 2);
    if (name == "version") {
        if (!parseNumber(value, &version)) version = 0;
        return true;
    }
    for (const OlderKey& older : OLDER_KEYS) {
        if (name != older.tag) continue;
        assign(static_cast<int>(older.first), value);
        if (older.second != OptionId::COUNT) assign(static_cast<int>(older.second), value);
        return true;
    }
    const OptionId id = idOf(name);
    if (id == OptionId::COUNT) return false;
    if (definition(id).settingsOnly && !isIni) return true;  // known, but not a design's business
    assign(static_cast<int>(id), value);
    // Deliberate: a design saved while optimizing opens in plain calculation; the optimizer is
    // never resumed from a file.
    if (id == OptionId::analysisType && getInt(id) == 3) setInt(id, 0);
    return true;
}

bool ProgramSettings::assign(int row, const std::string& value) {
    const OptionDef& def = OPTION_TABLE[row];
    switch (def.kind) {
        case OptionKind::INT: {
            int v = 0;
            if (!parseNumber(value, &v)) return false;
            values[row] = v;
            return true;
        }
        case OptionKind::DOUBLE: {
            double v = 0;
            if (!parseNumber(value, &v)) return false;
            values[row] = v;
            return true;
        }
        case OptionKind::UINT64: {
            std::uint64_t v = 0;
            if (!parseNumber(value, &v)) return false;
            values[row] = v;
            return true;
        }
        case OptionKind::STRING:
            values[row] = value;
            return true;
        case OptionKind::STRING_LIST: {
            // Each line adds an entry, an empty one too, until the list is full.
            auto& list = std::get<std::vector<std::string>>(values[row]);
            if (static_cast<int>(list.size()) >= def.count) return false;
            list.push_back(value);
            return true;
        }
        case OptionKind::INDEXED: {
            auto& entries = std::get<std::vector<int>>(values[row]);
            int index = 0, v = 0;
            if (!parsePair(value, &index, &v) || index < 0 || index >= def.count) return false;
            entries[index] = v;
            return true;
        }
    }
    return false;
}
