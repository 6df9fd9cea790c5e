// lumivar: the desktop program.
#include <fx.h>

#include <string>

#include "AppConstants.h"
#include "VantrelGUI.h"

int main(int argc, char* argv[]) {
    if (fxversion[0] != FOX_MAJOR || fxversion[1] != FOX_MINOR || fxversion[2] != FOX_LEVEL) {
        fxerror("FOX Library mismatch; expected version: %d.%d.%d.\n", FOX_MAJOR, FOX_MINOR,
                FOX_LEVEL);
    }
    // One argument names a folder that replaces the per-user folder.
    std::string defaultDirMac_argv_1;
    if (argc == 2) {
        defaultDirMac_argv_1 = argv[1];
        if (defaultDirMac_argv_1.empty() || defaultDirMac_argv_1.back() != '/') {
            defaultDirMac_argv_1 += '/';
        }
    }
    FXApp app(APP_NAME, "zwk7");
    app.init(argc, argv, true);
    new VantrelGUI(&app, defaultDirMac_argv_1);
    app.create();
    return app.run();
}
