// The one toolkit application of the window tests (FOX allows one per process).
#ifndef LUMIVAR_TESTS_GUITESTAPP_H
#define LUMIVAR_TESTS_GUITESTAPP_H

#include <fx.h>

// Made and connected to the display at the first call.
inline FXApp* guiTestApp() {
    static FXApp* app = [] {
        static int argc = 1;
        static char name[] = "gui_tests";
        static char* argv[] = {name, nullptr};
        FXApp* a = new FXApp("LumivarTests", "zwk7");
        a->init(argc, argv);
        a->create();
        return a;
    }();
    return app;
}

// Drops every event still queued for the display, those of windows already gone included.
void discardPendingEvents();

#endif  // LUMIVAR_TESTS_GUITESTAPP_H
