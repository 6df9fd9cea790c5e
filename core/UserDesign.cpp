#include "UserDesign.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>

#include "CLocaleNumbers.h"
#include "CalculateModel.h"
#include "NumberText.h"
#include "ValueFormat.h"

namespace {

// The per-row tags, in the order each row writes them.
constexpr const char* TAG_NAME = "ledSpectra.name";
constexpr const char* TAG_CHECK = "ledChk";
constexpr const char* TAG_LDOM = "dominateWavelength_TF";
constexpr const char* TAG_LUMENS = "lumens_360_830nm_TF";
constexpr const char* TAG_WATTS = "watts_input_TF";
constexpr const char* TAG_BIN_WIDTH = "binWL_TF";
constexpr const char* TAG_BIN_OUTPUT = "binOutput_TF";
constexpr const char* TAG_LPW = "lpw_TF";
constexpr const char* TAG_FILTER = "filterChk";
constexpr const char* TAG_COLOR = "colorChk";
constexpr const char* TAG_OPT_R = "optRvaluesTF";
constexpr const char* TAG_OPT_Q = "optQvaluesTF";
constexpr const char* TAG_CRI = "desiredCRI_TF";
constexpr const char* TAG_MATCHING = "matchingSpectrum";

// The number fields of a row, by tag; an older file names the row in the key ("ledChk_3").
struct RowValueTag {
    const char* tag;
    std::optional<double> DesignRow::*field;
};
const RowValueTag ROW_VALUE_TAGS[] = {
    {TAG_LDOM, &DesignRow::lDom},
    {TAG_LUMENS, &DesignRow::lumens},
    {TAG_WATTS, &DesignRow::watts},
    {TAG_BIN_WIDTH, &DesignRow::binWidth},
    {TAG_BIN_OUTPUT, &DesignRow::binOutput},
    {TAG_LPW, &DesignRow::lpw},
};

// A whole token as a finite number in the C locale.
bool parseDouble(const std::string& text, double* out) {
    return parseWholeNumber(trimmedText(text), out);
}

bool parseInt(const std::string& text, int* out) {
    const std::string s = trimmedText(text);
    int v = 0;
    const auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), v);
    if (s.empty() || ec != std::errc() || end != s.data() + s.size()) return false;
    *out = v;
    return true;
}

// "<index> <rest>": the index and the trimmed text after it.
bool splitIndex(const std::string& value, int* index, std::string* rest) {
    const std::string s = trimmedText(value);
    const std::size_t gap = s.find_first_of(" \t");
    if (!parseInt(s.substr(0, gap), index)) return false;
    *rest = gap == std::string::npos ? std::string() : trimmedText(s.substr(gap));
    return true;
}

// The row index of an older per-row key: the number between the last "_" and the end.
bool olderKeyIndex(const std::string& name, const char* tag, int* index) {
    const std::size_t n = std::strlen(tag);
    if (name.size() <= n + 1 || name.compare(0, n, tag) != 0 || name[n] != '_') return false;
    return parseInt(name.substr(name.rfind('_') + 1), index);
}

DesignRow* rowAt(DesignData& data, int index) {
    if (index < 0 || index > DESIGN_MAX_ROW_INDEX) return nullptr;
    if (static_cast<int>(data.rows.size()) <= index) data.rows.resize(index + 1);
    return &data.rows[index];
}

void setIndexed(std::vector<int>& list, int index, int value, int maxIndex) {
    if (index < 0 || index > maxIndex) return;
    if (static_cast<int>(list.size()) <= index) list.resize(index + 1, 0);
    list[index] = value;
}

// Whether a line belongs to the per-row tag: "<tag>index value" now, "<tag_index>value" in
// older files. *parsed tells whether its row and value text could be read.
bool matchRowTag(const std::string& name, const char* tag, const std::string& value, int* index,
                 std::string* text, bool* parsed) {
    if (name == tag) {
        *parsed = splitIndex(value, index, text);
        return true;
    }
    if (!olderKeyIndex(name, tag, index)) return false;
    *text = trimmedText(value);
    *parsed = true;
    return true;
}

bool readRowLine(DesignData& data, const std::string& name, const std::string& value) {
    int index = 0;
    std::string text;
    bool parsed = false;
    double v = 0;
    // The names are for the reader's eyes only.
    if (matchRowTag(name, TAG_NAME, value, &index, &text, &parsed)) return true;
    if (matchRowTag(name, TAG_CHECK, value, &index, &text, &parsed)) {
        DesignRow* row = parsed && parseDouble(text, &v) ? rowAt(data, index) : nullptr;
        if (row != nullptr) row->checked = std::lround(v) == 1;
        return true;
    }
    for (const RowValueTag& t : ROW_VALUE_TAGS) {
        if (!matchRowTag(name, t.tag, value, &index, &text, &parsed)) continue;
        DesignRow* row = parsed && parseDouble(text, &v) ? rowAt(data, index) : nullptr;
        if (row != nullptr) (*row).*(t.field) = v;
        return true;
    }
    return false;
}

// The optimizer's lines and the filter, colour and matching lines.
bool readOtherLine(DesignData& data, const std::string& name, const std::string& value) {
    int index = 0;
    std::string rest;
    double v = 0;
    if (name == TAG_FILTER || name == TAG_COLOR) {
        if (splitIndex(value, &index, &rest) && parseDouble(rest, &v)) {
            setIndexed(name == TAG_FILTER ? data.filterChecks : data.colorChecks, index,
                       static_cast<int>(std::lround(v)), DESIGN_MAX_FILTER_COLOR_INDEX);
        }
        return true;
    }
    if (name == TAG_OPT_R || name == TAG_OPT_Q) {
        // Only a floor of at least 1 for one of the 15 values is taken.
        if (splitIndex(value, &index, &rest) && parseDouble(rest, &v) && index >= 0 &&
            index < NUM_OPT_R_Q_VALUES && v >= 1.0)
            (name == TAG_OPT_R ? data.optR : data.optQ)[index] = std::round(v);
        return true;
    }
    if (name == TAG_CRI) {
        data.desiredCRI =
            parseDouble(value, &v) && v >= 1e-6 ? ValueFormat::format("%.0lf", v) : std::string();
        return true;
    }
    if (name == TAG_MATCHING) {
        // One text per row, each followed by a tab.
        data.matchingColumn.clear();
        std::size_t start = 0;
        while (start < value.size()) {
            std::size_t tab = value.find('\t', start);
            if (tab == std::string::npos) tab = value.size();
            const std::string cell = trimmedText(value.substr(start, tab - start));
            if (!cell.empty() || tab < value.size()) data.matchingColumn.push_back(cell);
            start = tab + 1;
        }
        return true;
    }
    return false;
}

// A field text that reads back as the stored value: the field's usual decimals, or more when
// those would round away what the user typed.
std::string fieldText(double v) {
    std::string text = ValueFormat::format("%.*lf", ValueFormat::displayDecimals(v), v);
    if (std::fabs(fieldValue(text) - v) <= 1e-9 * std::fabs(v)) return text;
    const int decimals = std::max(0, 6 - static_cast<int>(std::floor(std::log10(std::fabs(v)))));
    text = ValueFormat::format("%.*lf", std::min(decimals, 12), v);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text;
}

std::string line(const char* tag, const std::string& value) {
    return std::string("<") + tag + ">" + value;
}

}  // namespace

std::vector<std::string> designLines(const DesignData& data) {
    std::vector<std::string> lines;
    lines.push_back(line(TAG_CRI, data.desiredCRI));
    lines.push_back(line(TAG_CRI, data.desiredCQS));
    if (!data.matchingColumn.empty()) {
        std::string column;
        for (const std::string& cell : data.matchingColumn) column += cell + "\t";
        lines.push_back(line(TAG_MATCHING, column));
    }
    for (int i = 0; i < NUM_OPT_R_Q_VALUES; ++i)
        lines.push_back(line(TAG_OPT_R, ValueFormat::format("%d %.0lf", i, data.optR[i])));
    for (int i = 0; i < NUM_OPT_R_Q_VALUES; ++i)
        lines.push_back(line(TAG_OPT_Q, ValueFormat::format("%d %.0lf", i, data.optQ[i])));
    for (std::size_t i = 0; i < data.colorChecks.size(); ++i)
        lines.push_back(line(TAG_COLOR, ValueFormat::format("%zu %d", i, data.colorChecks[i])));
    for (std::size_t i = 0; i < data.filterChecks.size(); ++i)
        lines.push_back(line(TAG_FILTER, ValueFormat::format("%zu %d", i, data.filterChecks[i])));
    for (std::size_t i = 0; i < data.rows.size(); ++i) {
        const DesignRow& r = data.rows[i];
        const std::string name = i < data.names.size() ? data.names[i] : std::string();
        lines.push_back(line(TAG_NAME, ValueFormat::format("%zu %s", i, name.c_str())));
        lines.push_back(line(TAG_CHECK, ValueFormat::format("%zu %d", i, r.checked ? 1 : 0)));
        lines.push_back(line(TAG_LDOM, ValueFormat::format("%zu %.1lf", i, r.lDom.value_or(0))));
        for (std::size_t t = 1; t < std::size(ROW_VALUE_TAGS); ++t) {
            const double v = (r.*(ROW_VALUE_TAGS[t].field)).value_or(0);
            lines.push_back(line(ROW_VALUE_TAGS[t].tag, ValueFormat::format("%zu %.6le", i, v)));
        }
    }
    return lines;
}

DesignData readDesignLines(const std::vector<ProgramSettings::Line>& lines) {
    DesignData data;
    for (const ProgramSettings::Line& l : lines) {
        if (l.tag.size() < 3) continue;
        const std::string name = l.tag.substr(1, l.tag.size() - 2);
        if (!readRowLine(data, name, l.value)) readOtherLine(data, name, l.value);
    }
    return data;
}

ledInputDataStruct designRowTexts(const DesignRow& row, const ledTypeStruct& spectrum,
                                  const ledInputDataStruct& current) {
    ledInputDataStruct t = current;
    t.checked = row.checked;
    if (row.lDom) {
        // A spectrum that is not built from a dominant wavelength shows its own.
        if (spectrum.lDom < 1.0) {
            t.lDom.clear();
        } else if (spectrum.hasDomWL == 0) {
            t.lDom = ValueFormat::format("%.0lf", spectrum.lDom);
        } else {
            t.lDom = *row.lDom < 1e-6 ? std::string() : ValueFormat::format("%.1lf", *row.lDom);
        }
    }
    if (row.lumens) t.lumens = *row.lumens < 1e-6 ? std::string() : fieldText(*row.lumens);
    if (row.watts) t.watts = *row.watts < 1e-6 ? std::string() : fieldText(*row.watts);
    if (row.binWidth) {
        t.binWidth = *row.binWidth < 1e-6 || spectrum.hasDomWL == 0
                         ? std::string()
                         : ValueFormat::format("%.1lf", *row.binWidth);
    }
    // Deliberate: a stored 0 shows as "0.0", unlike the other fields.
    if (row.binOutput) t.binOutput = ValueFormat::format("%.1lf", *row.binOutput);
    // An empty LPW field was stored as 0: the field keeps what it holds.
    if (row.lpw && *row.lpw > 1e-9) t.lpw = fieldText(*row.lpw);
    return t;
}

DesignRow designRowFromTexts(const ledInputDataStruct& texts) {
    DesignRow row;
    row.checked = texts.checked;
    row.lDom = fieldValue(texts.lDom);
    row.lumens = fieldValue(texts.lumens);
    row.watts = fieldValue(texts.watts);
    row.binWidth = fieldValue(texts.binWidth);
    row.binOutput = fieldValue(texts.binOutput);
    row.lpw = fieldValue(texts.lpw);
    return row;
}
