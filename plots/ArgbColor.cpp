#include "ArgbColor.h"

FXColor argbColor(FXuint argb) {
    const FXuint a = (argb >> 24) & 0xFF;
    const FXuint r = (argb >> 16) & 0xFF;
    const FXuint g = (argb >> 8) & 0xFF;
    const FXuint b = argb & 0xFF;
    return FXRGBA(r, g, b, a);
}
