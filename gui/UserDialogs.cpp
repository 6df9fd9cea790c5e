#include "UserDialogs.h"

#include <cstdarg>

namespace {
UserDialogs::Script* activeScript = nullptr;

// The answer a box gives when a script has none left: its first button.
FXuint firstButton(FXuint buttons) {
    switch (buttons & 0xF0000000) {
        case MBOX_YES_NO:
        case MBOX_YES_NO_CANCEL:
            return MBOX_CLICKED_YES;
        case MBOX_QUIT_CANCEL:
        case MBOX_QUIT_SAVE_CANCEL:
            return MBOX_CLICKED_QUIT;
        case MBOX_SKIP_SKIPALL_CANCEL:
            return MBOX_CLICKED_SKIP;
        case MBOX_SAVE_CANCEL_DONTSAVE:
            return MBOX_CLICKED_SAVE;
        default:
            return MBOX_CLICKED_OK;
    }
}
}  // namespace

void UserDialogs::setScript(Script* script) { activeScript = script; }

UserDialogs::Script* UserDialogs::getScript() { return activeScript; }

FXuint UserDialogs::showBox(FXWindow* owner, Kind kind, FXuint buttons, const char* title,
                            const char* format, va_list args) {
    FXString text;
    text.vformat(format, args);
    if (activeScript) {
        activeScript->shown.push_back({kind, title, text.text()});
        if (activeScript->answers.empty()) return firstButton(buttons);
        const FXuint answer = activeScript->answers.front();
        activeScript->answers.pop_front();
        return answer;
    }
    // The text is passed as an argument so that a "%" in it is shown as it stands.
    switch (kind) {
        case ERROR:
            return FXMessageBox::error(owner, buttons, title, "%s", text.text());
        case WARNING:
            return FXMessageBox::warning(owner, buttons, title, "%s", text.text());
        case QUESTION:
            return FXMessageBox::question(owner, buttons, title, "%s", text.text());
        default:
            return FXMessageBox::information(owner, buttons, title, "%s", text.text());
    }
}

FXuint UserDialogs::error(FXWindow* owner, const char* title, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const FXuint answer = showBox(owner, ERROR, MBOX_OK, title, format, args);
    va_end(args);
    return answer;
}

FXuint UserDialogs::information(FXWindow* owner, const char* title, const char* format, ...) {
    va_list args;
    va_start(args, format);
    const FXuint answer = showBox(owner, INFORMATION, MBOX_OK, title, format, args);
    va_end(args);
    return answer;
}

FXuint UserDialogs::warning(FXWindow* owner, FXuint buttons, const char* title, const char* format,
                            ...) {
    va_list args;
    va_start(args, format);
    const FXuint answer = showBox(owner, WARNING, buttons, title, format, args);
    va_end(args);
    return answer;
}

FXuint UserDialogs::question(FXWindow* owner, FXuint buttons, const char* title, const char* format,
                             ...) {
    va_list args;
    va_start(args, format);
    const FXuint answer = showBox(owner, QUESTION, buttons, title, format, args);
    va_end(args);
    return answer;
}

bool UserDialogs::chooseFile(FXWindow* owner, const FXString& title, const FXString& patterns,
                             const FXString& directory, const FXString& name, bool existingOnly,
                             FXString* path) {
    if (activeScript) {
        activeScript->shown.push_back(
            {existingOnly ? OPEN_FILE : SAVE_FILE, title.text(), patterns.text()});
        if (activeScript->files.empty()) return false;
        const std::string chosen = activeScript->files.front();
        activeScript->files.pop_front();
        if (chosen.empty()) return false;
        *path = chosen.c_str();
        return true;
    }
    FXFileDialog dialog(owner, title, DECOR_ALL, 0, 0, 500, 300);
    dialog.setSelectMode(existingOnly ? SELECTFILE_EXISTING : SELECTFILE_ANY);
    dialog.setPatternList(patterns);
    dialog.setDirectory(directory);
    if (!name.empty()) dialog.setFilename(FXPath::absolute(directory, name));
    if (!dialog.execute(PLACEMENT_OWNER)) return false;
    *path = dialog.getFilename();
    return !path->empty();
}

bool UserDialogs::runForm(FXDialogBox* dialog, std::vector<std::string>* fields,
                          const std::function<std::vector<std::string>()>& readFields) {
    if (activeScript) {
        std::string joined;
        for (std::size_t i = 0; i < fields->size(); ++i) joined += (i ? "|" : "") + (*fields)[i];
        activeScript->shown.push_back({FORM, dialog->getTitle().text(), joined});
        if (activeScript->forms.empty()) return false;
        const std::vector<std::string> answer = activeScript->forms.front();
        activeScript->forms.pop_front();
        if (answer.empty()) return false;
        for (std::size_t i = 0; i < fields->size() && i < answer.size(); ++i)
            (*fields)[i] = answer[i];
        return true;
    }
    if (!dialog->execute(PLACEMENT_OWNER)) return false;
    *fields = readFields();
    return true;
}

bool UserDialogs::chooseFiles(FXWindow* owner, const FXString& title, const FXString& patterns,
                              const FXString& directory, int* patternIndex,
                              std::vector<std::string>* paths) {
    paths->clear();
    if (activeScript) {
        activeScript->shown.push_back({OPEN_FILE, title.text(), patterns.text()});
        if (activeScript->files.empty()) return false;
        const std::string chosen = activeScript->files.front();
        activeScript->files.pop_front();
        std::size_t start = 0;
        while (start < chosen.size()) {
            std::size_t end = chosen.find('\n', start);
            if (end == std::string::npos) end = chosen.size();
            if (end > start) paths->push_back(chosen.substr(start, end - start));
            start = end + 1;
        }
        return !paths->empty();
    }
    FXFileDialog dialog(owner, title, DECOR_ALL, 0, 0, 500, 300);
    dialog.setSelectMode(SELECTFILE_MULTIPLE);
    dialog.setPatternList(patterns);
    dialog.setCurrentPattern(*patternIndex);
    dialog.setDirectory(directory);
    if (!dialog.execute(PLACEMENT_OWNER)) return false;
    *patternIndex = dialog.getCurrentPattern();
    FXString* names = dialog.getFilenames();
    for (int i = 0; names != nullptr && !names[i].empty(); ++i) paths->push_back(names[i].text());
    delete[] names;
    return !paths->empty();
}

bool UserDialogs::askText(FXWindow* owner, const char* title, const char* label,
                          std::string* value) {
    FXDialogBox dialog(owner, title, DECOR_TITLE | DECOR_BORDER | DECOR_CLOSE);
    FXHorizontalFrame* row = new FXHorizontalFrame(&dialog, LAYOUT_FILL_X);
    new FXLabel(row, label);
    FXTextField* field = new FXTextField(row, 40, nullptr, 0, FRAME_SUNKEN | LAYOUT_FILL_X);
    field->setText(value->c_str());
    FXHorizontalFrame* buttons = new FXHorizontalFrame(&dialog, LAYOUT_FILL_X);
    new FXButton(buttons, "OK", nullptr, &dialog, FXDialogBox::ID_ACCEPT,
                 BUTTON_DEFAULT | BUTTON_INITIAL | BUTTON_NORMAL | LAYOUT_RIGHT);
    new FXButton(buttons, "Cancel", nullptr, &dialog, FXDialogBox::ID_CANCEL,
                 BUTTON_NORMAL | LAYOUT_RIGHT);
    std::vector<std::string> fields{*value};
    if (!runForm(&dialog, &fields,
                 [field] { return std::vector<std::string>{field->getText().text()}; }))
        return false;
    *value = fields[0];
    return true;
}
