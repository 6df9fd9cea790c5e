// Colours are written in this program as 0xAARRGGBB (or as the signed int of that word, such as
// -65536 for opaque red). FOX 1.6 keeps FXColor as 0xAABBGGRR, so every such literal goes
// through argbColor before it reaches a widget or an image.
#ifndef LUMIVAR_PLOTS_ARGBCOLOR_H
#define LUMIVAR_PLOTS_ARGBCOLOR_H

#include <fx.h>

// 0xAARRGGBB as FOX's colour word.
FXColor argbColor(FXuint argb);
// The signed form, as colours are stored in settings (-65536 is opaque red).
inline FXColor argbColor(int argb) { return argbColor(static_cast<FXuint>(argb)); }

#endif  // LUMIVAR_PLOTS_ARGBCOLOR_H
