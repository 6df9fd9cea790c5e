#include "ClipboardImage.h"

#include <cstring>

FXDEFMAP(ClipboardImage)
ClipboardImageMap[] = {
    FXMAPFUNC(SEL_CLIPBOARD_REQUEST, 0, ClipboardImage::onClipboardRequest),
    FXMAPFUNC(SEL_CLIPBOARD_LOST, 0, ClipboardImage::onClipboardLost),
};

FXIMPLEMENT(ClipboardImage, FXShell, ClipboardImageMap, ARRAYNUMBER(ClipboardImageMap))

ClipboardImage::ClipboardImage(FXApp* app) : FXShell(app, 0, 0, 0, 1, 1) {}

FXDragType ClipboardImage::bmpType(FXApp* app) { return app->registerDragType("image/bmp"); }

bool ClipboardImage::offer(FXApp* app, const FXColor* pixels, int width, int height) {
    if (!app || !pixels || width < 1 || height < 1) return false;
    ClipboardImage* owner = nullptr;
    for (FXWindow* w = app->getRootWindow()->getFirst(); w && !owner; w = w->getNext())
        if (w->isMemberOf(FXMETACLASS(ClipboardImage))) owner = static_cast<ClipboardImage*>(w);
    if (!owner) {
        owner = new ClipboardImage(app);
        owner->create();
    }
    FXMemoryStream stream;
    stream.open(FXStreamSave, nullptr);
    if (!fxsaveBMP(stream, pixels, width, height)) return false;
    FXuchar* data = nullptr;
    FXuval size = 0;
    stream.takeBuffer(data, size);
    stream.close();
    owner->bitmap.assign(reinterpret_cast<const FXchar*>(data), static_cast<FXint>(size));
    FXFREE(&data);
    const FXDragType types[] = {bmpType(app)};
    return owner->acquireClipboard(types, ARRAYNUMBER(types));
}

long ClipboardImage::onClipboardRequest(FXObject*, FXSelector, void* ptr) {
    const FXEvent* event = static_cast<const FXEvent*>(ptr);
    if (event->target != bmpType(getApp()) || bitmap.empty()) return 0;
    FXuchar* data = nullptr;
    FXMALLOC(&data, FXuchar, bitmap.length());
    std::memcpy(data, bitmap.text(), bitmap.length());
    setDNDData(FROM_CLIPBOARD, event->target, data, bitmap.length());  // FOX frees the copy
    return 1;
}

long ClipboardImage::onClipboardLost(FXObject*, FXSelector, void*) {
    bitmap = FXString::null;
    return 1;
}
