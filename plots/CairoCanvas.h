// The Cairo back end of Canvas: draws a chart into a PDF page, an SVG picture or a PNG image,
// all in memory and without a display, and writes the result as one file.
#ifndef LUMIVAR_PLOTS_CAIROCANVAS_H
#define LUMIVAR_PLOTS_CAIROCANVAS_H

#include <string>

#include "Canvas.h"

typedef struct _cairo cairo_t;
typedef struct _cairo_surface cairo_surface_t;

enum class ImageFileType {
    NONE,  // an extension this back end does not write
    PDF,
    SVG,
    PNG,
};

// The type of an output file from its extension (".pdf", ".svg", ".png", any case).
ImageFileType imageFileTypeOfPath(const std::string& path);

// Frees the font caches Cairo and fontconfig keep for the life of the process; for a program
// that has finished drawing (the leak checker then sees a clean exit). No canvas may be alive.
void releaseCairoCaches();

class CairoCanvas : public Canvas {
  public:
    // A canvas of width x height pixels. For PDF, pageWidthPoints > 0 sets the physical width of
    // the page (72 points to the inch) and the drawing is scaled to it; otherwise a pixel is a
    // point. The type NONE falls back to PNG.
    CairoCanvas(ImageFileType type, int width, int height, double pageWidthPoints = 0.0);
    ~CairoCanvas() override;
    CairoCanvas(const CairoCanvas&) = delete;
    CairoCanvas& operator=(const CairoCanvas&) = delete;

    int width() const override { return canvasWidth; }
    int height() const override { return canvasHeight; }
    void fillRectangle(double x, double y, double w, double h, ArgbWord color) override;
    void drawRectangle(double x, double y, double w, double h, ArgbWord color,
                       double lineWidth) override;
    void drawLine(double x0, double y0, double x1, double y1, ArgbWord color,
                  double lineWidth) override;
    void drawPolyline(const std::vector<CanvasPoint>& points, ArgbWord color,
                      double lineWidth) override;
    void fillPolygon(const std::vector<CanvasPoint>& points, ArgbWord color) override;
    void fillCircle(double cx, double cy, double radius, ArgbWord color) override;
    void drawCircle(double cx, double cy, double radius, ArgbWord color, double lineWidth) override;
    void drawText(double x, double y, const std::string& text, const TextStyle& style,
                  ArgbWord color) override;
    TextExtent measureText(const std::string& text, double size, bool bold) override;
    void drawImage(double x, double y, double dw, double dh, int w, int h,
                   const std::vector<ArgbWord>& pixels) override;
    void clip(double x, double y, double w, double h) override;
    void unclip() override;

    ImageFileType type() const { return fileType; }
    // Finishes the drawing and returns the file's bytes (empty after a Cairo failure).
    // Drawing after this call does nothing.
    std::string finish();
    // Finishes and writes the file (atomically); false with *error saying why.
    bool save(const std::string& path, std::string* error);
    // The colour of a pixel of a PNG canvas (0 outside it or for the other types).
    ArgbWord pixel(int x, int y);

  private:
    void setColor(ArgbWord color);
    void setFont(double size, bool bold);

    ImageFileType fileType;
    int canvasWidth;
    int canvasHeight;
    std::string bytes;  // what the vector surfaces have written so far
    cairo_surface_t* surface = nullptr;
    cairo_t* cr = nullptr;
    bool finished = false;
};

#endif  // LUMIVAR_PLOTS_CAIROCANVAS_H
