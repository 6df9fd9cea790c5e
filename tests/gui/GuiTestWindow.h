// A created, never shown main window to parent the widgets under test.
#ifndef LUMIVAR_TESTS_GUITESTWINDOW_H
#define LUMIVAR_TESTS_GUITESTWINDOW_H

#include "GuiTestApp.h"

inline FXMainWindow* guiTestWindow() {
    static FXMainWindow* window = [] {
        FXMainWindow* w = new FXMainWindow(guiTestApp(), "gui_tests", nullptr, nullptr, DECOR_ALL,
                                           0, 0, 400, 300);
        w->create();
        return w;
    }();
    return window;
}

#endif  // LUMIVAR_TESTS_GUITESTWINDOW_H
