// One FOX application for the whole GUI test binary: FOX allows a single FXApp per process.
#ifndef LUMIVAR_TESTS_GUITESTAPP_H
#define LUMIVAR_TESTS_GUITESTAPP_H

#include <fx.h>

// Made, initialised on the display and created on first use; lives until the process ends.
FXApp* guiTestApp();
// A created, never shown main window to parent the widgets under test.
FXMainWindow* guiTestWindow();

#endif  // LUMIVAR_TESTS_GUITESTAPP_H
