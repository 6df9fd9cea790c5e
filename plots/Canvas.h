// The drawing surface every chart and report of this folder draws on. A chart computes its whole
// layout in plain C++ (pixels, with y growing downward) and issues these calls; the back end
// decides what a pixel is: a pixel of a FOX image on the screen, or a point of a PDF or SVG page,
// or a pixel of a PNG file written without a display.
#ifndef LUMIVAR_PLOTS_CANVAS_H
#define LUMIVAR_PLOTS_CANVAS_H

#include <cstdint>
#include <string>
#include <vector>

// Colours travel as 0xAARRGGBB, as everywhere else in the program.
using ArgbWord = std::uint32_t;

constexpr ArgbWord ARGB_WHITE = 0xFFFFFFFFu;
constexpr ArgbWord ARGB_BLACK = 0xFF000000u;

inline ArgbWord argbFromRGB(int r, int g, int b) {
    auto clamp = [](int v) { return static_cast<ArgbWord>(v < 0 ? 0 : (v > 255 ? 255 : v)); };
    return 0xFF000000u | (clamp(r) << 16) | (clamp(g) << 8) | clamp(b);
}
inline int redOf(ArgbWord c) { return static_cast<int>((c >> 16) & 0xFF); }
inline int greenOf(ArgbWord c) { return static_cast<int>((c >> 8) & 0xFF); }
inline int blueOf(ArgbWord c) { return static_cast<int>(c & 0xFF); }

struct CanvasPoint {
    double x = 0;
    double y = 0;
};

// How a text stands against its anchor point.
enum class TextAlign {
    LEFT,    // starts at the anchor
    CENTER,  // centred on the anchor
    RIGHT,   // ends at the anchor
};

struct TextStyle {
    double size = 12.0;                 // font size in pixels (the em height)
    bool bold = false;                  // bold face
    TextAlign align = TextAlign::LEFT;  // along the writing direction
    bool rotated = false;               // written upward (turned 90 degrees counter-clockwise)
};

// Size of a text in a font size: its advance width, and the ascent and descent of the font.
struct TextExtent {
    double width = 0;
    double ascent = 0;
    double descent = 0;
};

class Canvas {
  public:
    virtual ~Canvas() = default;

    virtual int width() const = 0;
    virtual int height() const = 0;

    virtual void fillRectangle(double x, double y, double w, double h, ArgbWord color) = 0;
    // The outline of the rectangle, its line centred on the edges.
    virtual void drawRectangle(double x, double y, double w, double h, ArgbWord color,
                               double lineWidth) = 0;
    virtual void drawLine(double x0, double y0, double x1, double y1, ArgbWord color,
                          double lineWidth) = 0;
    virtual void drawPolyline(const std::vector<CanvasPoint>& points, ArgbWord color,
                              double lineWidth) = 0;
    virtual void fillPolygon(const std::vector<CanvasPoint>& points, ArgbWord color) = 0;
    virtual void fillCircle(double cx, double cy, double radius, ArgbWord color) = 0;
    virtual void drawCircle(double cx, double cy, double radius, ArgbWord color,
                            double lineWidth) = 0;
    // Text on its baseline at (x, y), aligned by style.align along the writing direction. UTF-8.
    virtual void drawText(double x, double y, const std::string& text, const TextStyle& style,
                          ArgbWord color) = 0;
    virtual TextExtent measureText(const std::string& text, double size, bool bold) = 0;
    // pixels: w x h words 0xAARRGGBB row by row, drawn into the rectangle (x, y, dw, dh).
    virtual void drawImage(double x, double y, double dw, double dh, int w, int h,
                           const std::vector<ArgbWord>& pixels) = 0;
    // Limits all later drawing to the rectangle until unclip().
    virtual void clip(double x, double y, double w, double h) = 0;
    virtual void unclip() = 0;
};

// Writes text at its baseline with a lowered small piece after it ("R" + "f"), the way axis
// titles and values name the indices. Returns the width used. Alignment applies to the whole.
double drawTextWithSubscript(Canvas& canvas, double x, double y, const std::string& text,
                             const std::string& subscript, const TextStyle& style, ArgbWord color,
                             const std::string& after = "");
// Width of that same text.
double textWithSubscriptWidth(Canvas& canvas, const std::string& text, const std::string& subscript,
                              double size, bool bold, const std::string& after = "");

#endif  // LUMIVAR_PLOTS_CANVAS_H
