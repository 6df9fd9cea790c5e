// Single table cells in a colour of their own: FOX 1.6 colours cells only by even and odd rows
// and columns, and the window must turn one refused cell red while keeping its text.
#ifndef LUMIVAR_GUI_CELLCOLORS_H
#define LUMIVAR_GUI_CELLCOLORS_H

#include <fx.h>

// Gives cell (row, col) the background colour; its text, justification and state stay.
void setCellBackColor(FXTable* table, FXint row, FXint col, FXColor color);
// True with *color set when the cell has a colour of its own.
bool getCellBackColor(const FXTable* table, FXint row, FXint col, FXColor* color);
// Returns every cell to the table's own colours.
void clearCellBackColors(FXTable* table);

#endif  // LUMIVAR_GUI_CELLCOLORS_H
