// Every message box and file dialog of the program goes through this class, so that tests can
// answer them and read what the user would have been told.
#ifndef LUMIVAR_GUI_USERDIALOGS_H
#define LUMIVAR_GUI_USERDIALOGS_H

#include <fx.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

class UserDialogs {
  public:
    enum Kind { INFORMATION, WARNING, ERROR, QUESTION, OPEN_FILE, SAVE_FILE, FORM };

    // One box or dialog as it was asked for.
    struct Shown {
        Kind kind;
        std::string title;
        std::string text;  // the message, or the pattern list of a file dialog
    };

    // While a script is set nothing appears on screen: each box is recorded in `shown` and
    // answered from `answers` (MBOX_CLICKED_OK, _YES, _NO...; when empty, the first button of
    // the box), each file dialog from `files` (an empty path, or none left, is Cancel).
    struct Script {
        std::deque<FXuint> answers;
        std::deque<std::string> files;
        // Answers of the program's own dialogs (forms): the texts of the form's fields in its
        // order; an empty entry, or none left, is Cancel.
        std::deque<std::vector<std::string>> forms;
        std::vector<Shown> shown;
    };

    // Sets (or with nullptr clears) the script; the caller owns it.
    static void setScript(Script* script);
    static Script* getScript();

    // The boxes: a short title and one sentence; the result is the MBOX_CLICKED_ value.
    static FXuint error(FXWindow* owner, const char* title, const char* format, ...)
        FX_PRINTF(3, 4);
    static FXuint information(FXWindow* owner, const char* title, const char* format, ...)
        FX_PRINTF(3, 4);
    // buttons: MBOX_OK, MBOX_YES_NO, MBOX_YES_NO_CANCEL...
    static FXuint warning(FXWindow* owner, FXuint buttons, const char* title, const char* format,
                          ...) FX_PRINTF(4, 5);
    static FXuint question(FXWindow* owner, FXuint buttons, const char* title, const char* format,
                           ...) FX_PRINTF(4, 5);

    // A file dialog of 500 by 300. patterns: FOX pattern list ("*.vtd"); directory: where it
    // starts; name: the initial file name (may be empty). existingOnly picks an existing file
    // (open), else any name (save; no overwrite question here). True with *path set when a
    // file was chosen.
    static bool chooseFile(FXWindow* owner, const FXString& title, const FXString& patterns,
                           const FXString& directory, const FXString& name, bool existingOnly,
                           FXString* path);

    // A file dialog for several existing files. *patternIndex is the pattern it starts with and,
    // on return, the one last chosen. A script answers with one `files` entry whose paths are
    // separated by line feeds. True with *paths filled when at least one file was chosen.
    static bool chooseFiles(FXWindow* owner, const FXString& title, const FXString& patterns,
                            const FXString& directory, int* patternIndex,
                            std::vector<std::string>* paths);

    // A modal dialog of the program. fields: the texts of its fields, in the form's own order;
    // on OK they hold what the user left in them, which readFields gives after the dialog
    // closed. With a script the dialog never appears: it is recorded (kind FORM, the title, the
    // fields' texts joined by "|") and answered from `forms`. False on Cancel.
    static bool runForm(FXDialogBox* dialog, std::vector<std::string>* fields,
                        const std::function<std::vector<std::string>()>& readFields);

    // A form of one labelled text field starting with *value; false on Cancel.
    static bool askText(FXWindow* owner, const char* title, const char* label, std::string* value);

  private:
    static FXuint showBox(FXWindow* owner, Kind kind, FXuint buttons, const char* title,
                          const char* format, va_list args);
};

#endif  // LUMIVAR_GUI_USERDIALOGS_H
