#include "FoxCanvas.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

#include "FileText.h"

namespace {

constexpr const char* FONT_FAMILY = "DejaVu Sans";
// Ascent plus descent of DejaVu Sans in ems: the pixel size of a font from its height.
constexpr double DEJAVU_HEIGHT_PER_EM = 1.164;
constexpr int CALIBRATION_DECIPOINTS = 200;

FXColor foxColor(ArgbWord c) { return FXRGBA(redOf(c), greenOf(c), blueOf(c), (c >> 24) & 0xFF); }

ArgbWord argbOfFox(FXColor c) {
    return 0xFF000000u | (static_cast<ArgbWord>(FXREDVAL(c)) << 16) |
           (static_cast<ArgbWord>(FXGREENVAL(c)) << 8) | FXBLUEVAL(c);
}

int px(double v) { return static_cast<int>(std::lround(v)); }

}  // namespace

FoxCanvas::FoxCanvas(FXApp* application, int width, int height)
    : app(application), canvasWidth(std::max(1, width)), canvasHeight(std::max(1, height)) {
    image = std::make_unique<FXImage>(app, nullptr, IMAGE_KEEP | IMAGE_OWNED, canvasWidth,
                                      canvasHeight);
    image->create();
    dc = std::make_unique<FXDCWindow>(image.get());
    dc->setForeground(FXRGB(255, 255, 255));
    dc->fillRectangle(0, 0, canvasWidth, canvasHeight);
}

FoxCanvas::~FoxCanvas() {
    dc.reset();
    fonts.clear();
}

FXFont* FoxCanvas::font(double size, bool bold) {
    if (pixelsPerDecipoint <= 0) {
        FXFont calibration(app, FONT_FAMILY, CALIBRATION_DECIPOINTS / 10);
        calibration.create();
        pixelsPerDecipoint =
            calibration.getFontHeight() / DEJAVU_HEIGHT_PER_EM / CALIBRATION_DECIPOINTS;
        if (!(pixelsPerDecipoint > 0)) pixelsPerDecipoint = 96.0 / 720.0;
    }
    const int decipoints = std::max(10, px(size / pixelsPerDecipoint));
    auto& slot = fonts[{decipoints, bold}];
    if (!slot) {
        FXFontDesc desc;
        std::memset(&desc, 0, sizeof(desc));
        std::strncpy(desc.face, FONT_FAMILY, sizeof(desc.face) - 1);
        desc.size = decipoints;
        desc.weight = bold ? FXFont::Bold : FXFont::Normal;
        desc.slant = FXFont::Straight;
        desc.setwidth = FXFont::NonExpanded;
        desc.encoding = FONTENCODING_DEFAULT;
        slot = std::make_unique<FXFont>(app, desc);
        slot->create();
    }
    return slot.get();
}

void FoxCanvas::setColor(ArgbWord color) { dc->setForeground(foxColor(color)); }

void FoxCanvas::setLineWidth(double lineWidth) { dc->setLineWidth(std::max(1, px(lineWidth))); }

void FoxCanvas::fillRectangle(double x, double y, double w, double h, ArgbWord color) {
    if (!dc) return;
    setColor(color);
    const int x0 = px(x), y0 = px(y);
    dc->fillRectangle(x0, y0, px(x + w) - x0, px(y + h) - y0);
}

void FoxCanvas::drawRectangle(double x, double y, double w, double h, ArgbWord color,
                              double lineWidth) {
    if (!dc) return;
    setColor(color);
    setLineWidth(lineWidth);
    const int x0 = px(x), y0 = px(y);
    dc->drawRectangle(x0, y0, px(x + w) - x0, px(y + h) - y0);
}

void FoxCanvas::drawLine(double x0, double y0, double x1, double y1, ArgbWord color,
                         double lineWidth) {
    if (!dc) return;
    setColor(color);
    setLineWidth(lineWidth);
    dc->drawLine(px(x0), px(y0), px(x1), px(y1));
}

void FoxCanvas::drawPolyline(const std::vector<CanvasPoint>& points, ArgbWord color,
                             double lineWidth) {
    if (!dc || points.size() < 2) return;
    setColor(color);
    setLineWidth(lineWidth);
    std::vector<FXPoint> p;
    for (const CanvasPoint& q : points)
        p.push_back(FXPoint(static_cast<FXshort>(px(q.x)), static_cast<FXshort>(px(q.y))));
    dc->drawLines(p.data(), static_cast<FXuint>(p.size()));
}

void FoxCanvas::fillPolygon(const std::vector<CanvasPoint>& points, ArgbWord color) {
    if (!dc || points.size() < 3) return;
    setColor(color);
    std::vector<FXPoint> p;
    for (const CanvasPoint& q : points)
        p.push_back(FXPoint(static_cast<FXshort>(px(q.x)), static_cast<FXshort>(px(q.y))));
    dc->fillPolygon(p.data(), static_cast<FXuint>(p.size()));
}

void FoxCanvas::fillCircle(double cx, double cy, double radius, ArgbWord color) {
    if (!dc || !(radius > 0)) return;
    setColor(color);
    const int d = std::max(1, px(2 * radius));
    dc->fillArc(px(cx - radius), px(cy - radius), d, d, 0, 360 * 64);
}

void FoxCanvas::drawCircle(double cx, double cy, double radius, ArgbWord color, double lineWidth) {
    if (!dc || !(radius > 0)) return;
    setColor(color);
    setLineWidth(lineWidth);
    const int d = std::max(1, px(2 * radius));
    dc->drawArc(px(cx - radius), px(cy - radius), d, d, 0, 360 * 64);
}

TextExtent FoxCanvas::measureText(const std::string& text, double size, bool bold) {
    TextExtent e;
    FXFont* f = font(size, bold);
    e.ascent = f->getFontAscent();
    e.descent = f->getFontDescent();
    if (!text.empty()) e.width = f->getTextWidth(text.c_str(), static_cast<FXuint>(text.size()));
    return e;
}

void FoxCanvas::drawText(double x, double y, const std::string& text, const TextStyle& style,
                         ArgbWord color) {
    if (!dc || text.empty()) return;
    FXFont* f = font(style.size, style.bold);
    const int width = f->getTextWidth(text.c_str(), static_cast<FXuint>(text.size()));
    int shift = 0;
    if (style.align == TextAlign::CENTER) shift = -width / 2;
    if (style.align == TextAlign::RIGHT) shift = -width;
    if (!style.rotated) {
        setColor(color);
        dc->setFont(f);
        dc->drawText(px(x) + shift, px(y), text.c_str(), static_cast<FXuint>(text.size()));
        return;
    }
    // FOX draws text level only: the text is drawn black on white into an image of its own,
    // and its dark pixels are set turned upward, in the text's colour.
    const int ascent = f->getFontAscent();
    const int height = ascent + f->getFontDescent();
    FXImage mask(app, nullptr, IMAGE_KEEP, std::max(1, width), std::max(1, height));
    mask.create();
    {
        FXDCWindow maskDc(&mask);
        maskDc.setForeground(FXRGB(255, 255, 255));
        maskDc.fillRectangle(0, 0, width, height);
        maskDc.setForeground(FXRGB(0, 0, 0));
        maskDc.setFont(f);
        maskDc.drawText(0, ascent, text.c_str(), static_cast<FXuint>(text.size()));
    }
    mask.restore();
    std::vector<FXPoint> points;
    for (int v = 0; v < height; ++v) {
        for (int u = 0; u < width; ++u) {
            // A generous threshold keeps the thin strokes of small anti-aliased glyphs.
            if (FXGREENVAL(mask.getPixel(u, v)) < 180) {
                points.push_back(FXPoint(static_cast<FXshort>(px(x) + v - ascent),
                                         static_cast<FXshort>(px(y) - shift - u)));
            }
        }
    }
    setColor(color);
    if (!points.empty()) dc->drawPoints(points.data(), static_cast<FXuint>(points.size()));
}

void FoxCanvas::drawImage(double x, double y, double dw, double dh, int w, int h,
                          const std::vector<ArgbWord>& pixels) {
    if (!dc || w <= 0 || h <= 0 || pixels.size() < static_cast<std::size_t>(w) * h) return;
    FXImage picture(app, nullptr, IMAGE_KEEP | IMAGE_OWNED, w, h);
    for (int row = 0; row < h; ++row)
        for (int col = 0; col < w; ++col)
            picture.setPixel(col, row, foxColor(pixels[static_cast<std::size_t>(row) * w + col]));
    const int x0 = px(x), y0 = px(y);
    const int tw = std::max(1, px(x + dw) - x0), th = std::max(1, px(y + dh) - y0);
    if (tw != w || th != h) picture.scale(tw, th, 0);
    picture.create();
    dc->drawImage(&picture, x0, y0);
}

void FoxCanvas::clip(double x, double y, double w, double h) {
    if (!dc) return;
    const int x0 = px(x), y0 = px(y);
    dc->setClipRectangle(x0, y0, px(x + w) - x0, px(y + h) - y0);
    clipped = true;
}

void FoxCanvas::unclip() {
    if (!dc || !clipped) return;
    dc->clearClipRectangle();
    clipped = false;
}

FXImage* FoxCanvas::finish() {
    if (dc) {
        dc.reset();
        image->restore();
    }
    return image.get();
}

void FoxCanvas::scaleImage(int width, int height) {
    finish();
    canvasWidth = std::max(1, width);
    canvasHeight = std::max(1, height);
    image->scale(canvasWidth, canvasHeight, 1);
}

ArgbWord FoxCanvas::pixel(int x, int y) {
    finish();
    if (x < 0 || y < 0 || x >= canvasWidth || y >= canvasHeight) return 0;
    return argbOfFox(image->getPixel(x, y));
}

bool FoxCanvas::saveBMP(const std::string& path, std::string* error) {
    finish();
    // The buffer holds the whole file from the start: a memory stream left to grow reallocates
    // for every few bytes, which is slow for a picture of several megabytes.
    const FXuval capacity = 1024 + 4 * static_cast<FXuval>(canvasWidth + 1) * canvasHeight;
    FXMemoryStream stream;
    stream.open(FXStreamSave, capacity, nullptr);
    if (!fxsaveBMP(stream, image->getData(), canvasWidth, canvasHeight)) {
        if (error != nullptr) *error = "the image could not be encoded";
        return false;
    }
    const FXlong used = stream.position();
    FXuchar* data = nullptr;
    FXuval size = 0;
    stream.takeBuffer(data, size);
    stream.close();
    const std::string bytes(reinterpret_cast<const char*>(data),
                            static_cast<std::size_t>(std::min<FXlong>(used, size)));
    FXFREE(&data);
    return writeFileAtomically(path, bytes, error);
}
