#include "GuiTestApp.h"

#include <X11/Xlib.h>

void discardPendingEvents() { XSync(static_cast<Display*>(guiTestApp()->getDisplay()), True); }
