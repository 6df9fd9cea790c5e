#include "GuiTestApp.h"

namespace {
struct Shared {
    FXApp* app = nullptr;
    FXMainWindow* window = nullptr;
};

Shared& shared() {
    static Shared s = [] {
        static int argc = 1;
        static char name[] = "gui_tests";
        static char* argv[] = {name, nullptr};
        Shared made;
        made.app = new FXApp("gui_tests", "Lumivar");
        made.app->init(argc, argv);
        made.window =
            new FXMainWindow(made.app, "gui_tests", nullptr, nullptr, DECOR_ALL, 0, 0, 400, 300);
        made.app->create();
        return made;
    }();
    return s;
}
}  // namespace

FXApp* guiTestApp() { return shared().app; }

FXMainWindow* guiTestWindow() { return shared().window; }
