#include "LibraryEditor.h"

#include <algorithm>
#include <cstring>

#include "FileText.h"
#include "ReadWriteUserSpectra.h"
#include "ValueFormat.h"

namespace {

bool fail(LibraryMessage* message, const std::string& title, const std::string& text) {
    if (message != nullptr) *message = {LibraryMessageId::NONE, LibraryBox::ERROR, title, text};
    return true;
}

std::vector<int> sortedUnique(std::vector<int> v, int size) {
    std::sort(v.begin(), v.end());
    v.erase(std::unique(v.begin(), v.end()), v.end());
    v.erase(std::remove_if(v.begin(), v.end(), [size](int i) { return i < 0 || i >= size; }),
            v.end());
    return v;
}

}  // namespace

LibraryEditor::LibraryEditor(int libraryType, std::vector<ledTypeStruct> entries)
    : type(libraryType), items(std::move(entries)) {}

std::vector<int> LibraryEditor::moveUp(const std::vector<int>& selected) {
    std::vector<int> s = sortedUnique(selected, static_cast<int>(items.size()));
    for (std::size_t k = 0; k < s.size(); ++k) {
        // An entry at the top, or under one that could not move, stays.
        const int floor = static_cast<int>(k);
        if (s[k] > floor) {
            std::swap(items[s[k]], items[s[k] - 1]);
            --s[k];
        }
    }
    return s;
}

std::vector<int> LibraryEditor::moveDown(const std::vector<int>& selected) {
    std::vector<int> s = sortedUnique(selected, static_cast<int>(items.size()));
    const int n = static_cast<int>(items.size());
    for (int k = static_cast<int>(s.size()) - 1; k >= 0; --k) {
        const int ceiling = n - static_cast<int>(s.size()) + k;
        if (s[k] < ceiling) {
            std::swap(items[s[k]], items[s[k] + 1]);
            ++s[k];
        }
    }
    return s;
}

void LibraryEditor::remove(const std::vector<int>& selected) {
    const std::vector<int> s = sortedUnique(selected, static_cast<int>(items.size()));
    for (auto it = s.rbegin(); it != s.rend(); ++it) items.erase(items.begin() + *it);
}

bool LibraryEditor::rename(int index, const std::string& name, LibraryMessage* message) {
    if (index < 0 || index >= static_cast<int>(items.size())) return true;
    if (checkEntryName(type, name, message)) return true;
    const std::string trimmed = name.substr(name.find_first_not_of(' '));
    ledTypeStruct& e = items[index];
    std::memset(e.name, 0, sizeof e.name);
    std::strncpy(e.name, trimmed.substr(0, trimmed.find_last_not_of(' ') + 1).c_str(),
                 sizeof e.name - 1);
    return false;
}

bool LibraryEditor::changeLPW(int index, double lpw, LibraryMessage* message) {
    if (index < 0 || index >= static_cast<int>(items.size())) return true;
    if (checkEntryLPW(lpw, message)) return true;
    items[index].lpw = lpw;
    return false;
}

bool LibraryEditor::scale(int index, ScaleBy by, double target, LibraryMessage* message) {
    if (index < 0 || index >= static_cast<int>(items.size())) return true;
    ledTypeStruct& e = items[index];
    if (!(target > 0)) return fail(message, "Scale error", "The new value must be greater than 0.");
    if (type != 1 && by != ScaleBy::MAX_INTENSITY)
        return fail(message, "Scale error",
                    "Filters and colors can only be scaled by their maximum.");
    double now = 0;
    if (by == ScaleBy::LUMENS) now = e.lumens;
    if (by == ScaleBy::VISIBLE_WATTS) now = e.wattsVis;
    if (by == ScaleBy::MAX_INTENSITY)
        now = *std::max_element(std::begin(e.spectrum), std::end(e.spectrum));
    if (!(now > 0)) return fail(message, "Scale error", "This item has nothing to scale.");
    const double factor = target / now;
    for (double& v : e.spectrum) v *= factor;
    e.lumens *= factor;
    e.wattsVis *= factor;
    e.wattsVisIR *= factor;
    return false;
}

bool LibraryEditor::exportEntries(const std::vector<int>& selected, const std::string& path,
                                  bool inColumns, std::string* error) const {
    std::vector<int> chosen = selected.empty()
                                  ? std::vector<int>()
                                  : sortedUnique(selected, static_cast<int>(items.size()));
    if (selected.empty())
        for (int i = 0; i < static_cast<int>(items.size()); ++i) chosen.push_back(i);
    chosen.erase(
        std::remove_if(chosen.begin(), chosen.end(), [this](int i) { return items[i].isPrivate; }),
        chosen.end());
    if (chosen.empty()) {
        if (error != nullptr)
            *error = "There is nothing to export: private colors are not exported.";
        return false;
    }
    const int n = static_cast<int>(chosen.size());
    const std::string text =
        inColumns ? ReadWriteUserSpectra::formatTabbed(n, chosen.data(), items.data(), type)
                  : ReadWriteUserSpectra::formatLibrary(n, chosen.data(), items.data(), type);
    return writeFileAtomically(path, text, error);
}

bool LibraryEditor::save(const std::string& path, std::string* error) const {
    const ReadWriteUserSpectra written(static_cast<int>(items.size()), nullptr, items.data(), "w",
                                       path, type, false);
    if (written.getError() && error != nullptr) *error = written.getErrorMessage();
    return !written.getError();
}
