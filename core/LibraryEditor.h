// The editing of a user library as a list: order, names, LPW, scale, and export of chosen
// entries. The "Simple editor" window shows the list and calls these; nothing reaches the
// library file until save().
#ifndef LUMIVAR_CORE_LIBRARYEDITOR_H
#define LUMIVAR_CORE_LIBRARYEDITOR_H

#include <string>
#include <vector>

#include "LedTypes.h"
#include "UserLibraryChecks.h"

class LibraryEditor {
  public:
    // What a rescaled spectrum is brought to.
    enum class ScaleBy { LUMENS, VISIBLE_WATTS, MAX_INTENSITY };

    LibraryEditor(int libraryType, std::vector<ledTypeStruct> entries);

    int libraryType() const { return type; }
    const std::vector<ledTypeStruct>& entries() const { return items; }

    // Move the selected entries one place up or down (a block at the end stays); the indices
    // they now stand at.
    std::vector<int> moveUp(const std::vector<int>& selected);
    std::vector<int> moveDown(const std::vector<int>& selected);
    void remove(const std::vector<int>& selected);
    // True on error, with the message of the add checks; the entry keeps its name or LPW.
    bool rename(int index, const std::string& name, LibraryMessage* message);
    bool changeLPW(int index, double lpw, LibraryMessage* message);
    // Multiplies a spectrum so that its lumens, visible watts or highest value become target.
    // True on error (a filter or colour by lumens or watts, a target not above 0, an entry
    // without that quantity).
    bool scale(int index, ScaleBy by, double target, LibraryMessage* message);

    // Writes the selected entries (all when selected is empty) to path: a library of this kind,
    // or a tab-separated table in columns when inColumns is set. Private colours never leave
    // their library. False with *error set when nothing could be written.
    bool exportEntries(const std::vector<int>& selected, const std::string& path, bool inColumns,
                       std::string* error) const;
    // Replaces the library at path by the list.
    bool save(const std::string& path, std::string* error) const;

  private:
    int type;
    std::vector<ledTypeStruct> items;
};

#endif  // LUMIVAR_CORE_LIBRARYEDITOR_H
