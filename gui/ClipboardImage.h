// Owner of a picture on the clipboard. X11 keeps no clipboard of its own: a window must hold
// the picture and hand it out when another program asks, so the program keeps one hidden shell
// for that. Pictures go out as "image/bmp", which image editors and office programs read.
#ifndef LUMIVAR_GUI_CLIPBOARDIMAGE_H
#define LUMIVAR_GUI_CLIPBOARDIMAGE_H

#include <fx.h>

class ClipboardImage : public FXShell {
    FXDECLARE(ClipboardImage)
  public:
    // Puts width x height pixels on the clipboard, through the application's one shell (made
    // on first use, deleted with the application). False when the clipboard can't be taken.
    static bool offer(FXApp* app, const FXColor* pixels, int width, int height);

    // The BMP file now offered (empty when none).
    const FXString& getBitmap() const { return bitmap; }

    long onClipboardRequest(FXObject*, FXSelector, void*);
    long onClipboardLost(FXObject*, FXSelector, void*);

  protected:
    ClipboardImage() {}

  private:
    explicit ClipboardImage(FXApp* app);
    static FXDragType bmpType(FXApp* app);

    FXString bitmap;  // a whole BMP file, as requesters receive it
};

#endif  // LUMIVAR_GUI_CLIPBOARDIMAGE_H
