// Text on plots and reports: labels with raised and lowered pieces ("cm^2", "x_1"), rotated axis
// titles and word-wrapped notes, drawn on a FOX drawing context.
#ifndef LUMIVAR_PLOTS_TEXTUTILITIES_H
#define LUMIVAR_PLOTS_TEXTUTILITIES_H

#include <fx.h>

class TextUtilities {
  public:
    // Where a piece stands against the line; travels as an int.
    enum TEXT_POSITION {
        TEXT_SUBSCRIPT_2 = -2,   // deeper subscript, small font
        TEXT_SUBSCRIPT = -1,     // subscript, small font
        TEXT_NORMAL = 0,         // on the line, normal font
        TEXT_SUPERSCRIPT = 1,    // superscript, small font
        TEXT_SUPERSCRIPT_2 = 2,  // higher superscript, small font
    };
    enum ALIGNMENT {
        ALIGN_CENTER = 0,  // centred in the given width
        ALIGN_LEFT = 1,    // from the given x
        ALIGN_RIGHT = 2,   // against the right end
    };
    // FXImage::rotate angles of each value.
    enum TEXT_ROTATION {
        ROTATE_NONE = 0,      // not rotated
        ROTATE_MINUS_90 = 1,  // rotate(-90)
        ROTATE_90 = 2,        // rotate(90)
        ROTATE_180 = 3,       // rotate(180)
    };

    // Size of the small font in tenths of a point: three quarters of size, but size itself when
    // that would fall below 6.
    static unsigned getSubscriptSuperFontSize(unsigned size);
    // How far a piece moves, in halves of its text height: -1.0 raised, -1.5 raised higher,
    // 1.0 lowered, 1.5 lowered deeper, 0.0 on the line (and for any other value).
    static double getCharacterShiftFactor(TEXT_POSITION position);
    // Width of the pieces, each in its font; *subDepth and *superDepth get the deepest levels
    // met (0, 1 or 2).
    static int getEntireTextWidth(FXFont* normal, FXFont* small, int n, const FXString* pieces,
                                  const TEXT_POSITION* positions, int* subDepth, int* superDepth);

    // The pieces from x along the baseline y; the context's font is left at the last used.
    static void drawText(FXDCWindow* dc, FXFont* normal, FXFont* small, int n,
                         const FXString* pieces, const TEXT_POSITION* positions, int x, int y);
    // With fonts made like the context's font for the call; the context's font is kept. The
    // unsigned argument isn't used. Deliberate: ALIGN_RIGHT starts at width - textWidth and
    // ignores x, which plots rely on. Negative starts become 0.
    static void drawText(FXDCWindow* dc, FXApp* app, unsigned unused, int n, const FXString* pieces,
                         const TEXT_POSITION* positions, int x, int y, int width,
                         ALIGNMENT alignment);
    // As above with width 0, from x.
    static void drawText(FXDCWindow* dc, FXApp* app, unsigned unused, int n, const FXString* pieces,
                         const TEXT_POSITION* positions, int x, int y);
    // By way of an off-screen image in FOX colours, so the text may be rotated; x and y are
    // the image's top left corner after alignment.
    static void drawText(FXDCWindow* dc, FXApp* app, FXFont* normal, FXFont* small, int n,
                         const FXString* pieces, const TEXT_POSITION* positions,
                         unsigned background, unsigned foreground, int x, int y,
                         TEXT_ROTATION rotation, int width, ALIGNMENT alignment);
    // As above with fonts made from the context's font: the normal one at normal weight, the
    // small one at the weight of the context's font.
    static void drawText(FXDCWindow* dc, FXApp* app, int n, const FXString* pieces,
                         const TEXT_POSITION* positions, unsigned background, unsigned foreground,
                         int x, int y, TEXT_ROTATION rotation, int width, ALIGNMENT alignment);
    // One plain piece in the context's font, from x.
    static void drawRotatedText(FXDCWindow* dc, FXApp* app, const FXString& text,
                                unsigned background, unsigned foreground, int x, int y,
                                TEXT_ROTATION rotation);

    // Breaks a label into pieces at "^": every digit behind the first caret is raised, one
    // piece per digit, other characters stay on the line ("cm^2" gives "cm" and a raised
    // "2"). With no caret, or more than maxPieces - 1, the whole text is one piece. The arrays
    // must hold maxPieces plus one piece per digit behind a caret.
    static void parseStringForExponents(int maxPieces, const FXString& text, int* numPieces,
                                        TEXT_POSITION* positions, FXString* pieces,
                                        bool* hasExponent);

    // Word-wraps text into the box in the context's font, lines at x + marginX from
    // y + marginY. False when a word is wider than width (nothing drawn) or the lines run past
    // height - marginY (what fitted stays drawn).
    static bool drawTextToBox(FXDCWindow* dc, const FXString& text, int x, int y, int width,
                              int height, int marginX, int marginY);
};

#endif  // LUMIVAR_PLOTS_TEXTUTILITIES_H
