// The program's logo for the plots: RGB bytes by rows from the top.
#ifndef LUMIVAR_PLOTS_LOGODATA_H
#define LUMIVAR_PLOTS_LOGODATA_H

constexpr int LOGO_WIDTH = 100;
constexpr int LOGO_HEIGHT = 39;
extern const unsigned char LOGO_RGB[LOGO_WIDTH * LOGO_HEIGHT * 3];

#endif  // LUMIVAR_PLOTS_LOGODATA_H
