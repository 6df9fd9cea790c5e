// The FOX back end of Canvas: draws a chart into an FXImage on the display, for the plot
// windows, their BMP files and the clipboard.
#ifndef LUMIVAR_PLOTS_FOX_FOXCANVAS_H
#define LUMIVAR_PLOTS_FOX_FOXCANVAS_H

#include <fx.h>

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "Canvas.h"

class FoxCanvas : public Canvas {
  public:
    // A white image of width x height pixels, created on the display of app.
    FoxCanvas(FXApp* app, int width, int height);
    ~FoxCanvas() override;
    FoxCanvas(const FoxCanvas&) = delete;
    FoxCanvas& operator=(const FoxCanvas&) = delete;

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

    // Ends the drawing and gives the image, its pixels read back from the display. Drawing
    // after this call does nothing.
    FXImage* finish();
    // Finishes and resamples the image to width x height (smoothly), as a page shown at a
    // fraction of its size.
    void scaleImage(int width, int height);
    // The colour of a pixel after finish (0 outside the image).
    ArgbWord pixel(int x, int y);
    // The image as a BMP file, written atomically; false with *error saying why.
    bool saveBMP(const std::string& path, std::string* error);

  private:
    FXFont* font(double size, bool bold);
    void setColor(ArgbWord color);
    void setLineWidth(double lineWidth);

    FXApp* app;
    int canvasWidth;
    int canvasHeight;
    std::unique_ptr<FXImage> image;
    std::unique_ptr<FXDCWindow> dc;
    // Fonts by size in tenths of a point and weight; FOX's points follow the display's
    // resolution, so a pixel size is found through the height of a calibration font.
    std::map<std::pair<int, bool>, std::unique_ptr<FXFont>> fonts;
    double pixelsPerDecipoint = 0;
    bool clipped = false;
};

#endif  // LUMIVAR_PLOTS_FOX_FOXCANVAS_H
