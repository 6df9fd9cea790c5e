#include "CairoCanvas.h"

#include <cairo-pdf.h>
#include <cairo-svg.h>
#include <cairo.h>
#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <cctype>
#include <cmath>

#include "FileText.h"

namespace {

// Fonts of every chart: DejaVu Sans comes with the program's dependencies and has the Greek
// letters, primes and degree signs the labels use.
constexpr const char* FONT_FAMILY = "DejaVu Sans";
constexpr double PI = 3.14159265358979323846;

cairo_status_t appendBytes(void* closure, const unsigned char* data, unsigned int length) {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(data), length);
    return CAIRO_STATUS_SUCCESS;
}

void pathOf(cairo_t* cr, const std::vector<CanvasPoint>& points) {
    cairo_move_to(cr, points[0].x, points[0].y);
    for (std::size_t i = 1; i < points.size(); ++i) cairo_line_to(cr, points[i].x, points[i].y);
}

}  // namespace

void releaseCairoCaches() {
    cairo_debug_reset_static_data();
    FcFini();
}

ImageFileType imageFileTypeOfPath(const std::string& path) {
    const std::size_t dot = path.find_last_of('.');
    const std::size_t slash = path.find_last_of('/');
    if (dot == std::string::npos || (slash != std::string::npos && dot < slash))
        return ImageFileType::NONE;
    std::string ext = path.substr(dot + 1);
    for (char& c : ext) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    if (ext == "pdf") return ImageFileType::PDF;
    if (ext == "svg") return ImageFileType::SVG;
    if (ext == "png") return ImageFileType::PNG;
    return ImageFileType::NONE;
}

CairoCanvas::CairoCanvas(ImageFileType type, int width, int height, double pageWidthPoints)
    : fileType(type == ImageFileType::NONE ? ImageFileType::PNG : type),
      canvasWidth(std::max(1, width)),
      canvasHeight(std::max(1, height)) {
    double scale = 1.0;
    if (fileType == ImageFileType::PDF) {
        if (pageWidthPoints > 0) scale = pageWidthPoints / canvasWidth;
        surface = cairo_pdf_surface_create_for_stream(appendBytes, &bytes, canvasWidth * scale,
                                                      canvasHeight * scale);
    } else if (fileType == ImageFileType::SVG) {
        surface =
            cairo_svg_surface_create_for_stream(appendBytes, &bytes, canvasWidth, canvasHeight);
    } else {
        surface = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, canvasWidth, canvasHeight);
    }
    cr = cairo_create(surface);
    cairo_scale(cr, scale, scale);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_MITER);
}

CairoCanvas::~CairoCanvas() {
    if (cr != nullptr) cairo_destroy(cr);
    if (surface != nullptr) cairo_surface_destroy(surface);
}

void CairoCanvas::setColor(ArgbWord color) {
    cairo_set_source_rgba(cr, redOf(color) / 255.0, greenOf(color) / 255.0, blueOf(color) / 255.0,
                          ((color >> 24) & 0xFF) / 255.0);
}

void CairoCanvas::setFont(double size, bool bold) {
    cairo_select_font_face(cr, FONT_FAMILY, CAIRO_FONT_SLANT_NORMAL,
                           bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, size > 0 ? size : 1.0);
}

void CairoCanvas::fillRectangle(double x, double y, double w, double h, ArgbWord color) {
    if (finished) return;
    setColor(color);
    cairo_rectangle(cr, x, y, w, h);
    cairo_fill(cr);
}

void CairoCanvas::drawRectangle(double x, double y, double w, double h, ArgbWord color,
                                double lineWidth) {
    if (finished) return;
    setColor(color);
    cairo_set_line_width(cr, lineWidth);
    cairo_rectangle(cr, x, y, w, h);
    cairo_stroke(cr);
}

void CairoCanvas::drawLine(double x0, double y0, double x1, double y1, ArgbWord color,
                           double lineWidth) {
    if (finished) return;
    setColor(color);
    cairo_set_line_width(cr, lineWidth);
    cairo_move_to(cr, x0, y0);
    cairo_line_to(cr, x1, y1);
    cairo_stroke(cr);
}

void CairoCanvas::drawPolyline(const std::vector<CanvasPoint>& points, ArgbWord color,
                               double lineWidth) {
    if (finished || points.size() < 2) return;
    setColor(color);
    cairo_set_line_width(cr, lineWidth);
    pathOf(cr, points);
    cairo_stroke(cr);
}

void CairoCanvas::fillPolygon(const std::vector<CanvasPoint>& points, ArgbWord color) {
    if (finished || points.size() < 3) return;
    setColor(color);
    pathOf(cr, points);
    cairo_close_path(cr);
    cairo_fill(cr);
}

void CairoCanvas::fillCircle(double cx, double cy, double radius, ArgbWord color) {
    if (finished || !(radius > 0)) return;
    setColor(color);
    cairo_new_sub_path(cr);
    cairo_arc(cr, cx, cy, radius, 0, 2 * PI);
    cairo_fill(cr);
}

void CairoCanvas::drawCircle(double cx, double cy, double radius, ArgbWord color,
                             double lineWidth) {
    if (finished || !(radius > 0)) return;
    setColor(color);
    cairo_set_line_width(cr, lineWidth);
    cairo_new_sub_path(cr);
    cairo_arc(cr, cx, cy, radius, 0, 2 * PI);
    cairo_stroke(cr);
}

void CairoCanvas::drawText(double x, double y, const std::string& text, const TextStyle& style,
                           ArgbWord color) {
    if (finished || text.empty()) return;
    setFont(style.size, style.bold);
    cairo_text_extents_t extents;
    cairo_text_extents(cr, text.c_str(), &extents);
    double shift = 0;
    if (style.align == TextAlign::CENTER) shift = -extents.x_advance / 2;
    if (style.align == TextAlign::RIGHT) shift = -extents.x_advance;
    setColor(color);
    cairo_save(cr);
    cairo_translate(cr, x, y);
    if (style.rotated) cairo_rotate(cr, -PI / 2);
    cairo_move_to(cr, shift, 0);
    cairo_show_text(cr, text.c_str());
    cairo_restore(cr);
    cairo_new_path(cr);
}

TextExtent CairoCanvas::measureText(const std::string& text, double size, bool bold) {
    TextExtent result;
    if (finished) return result;
    setFont(size, bold);
    cairo_font_extents_t font;
    cairo_font_extents(cr, &font);
    result.ascent = font.ascent;
    result.descent = font.descent;
    if (!text.empty()) {
        cairo_text_extents_t extents;
        cairo_text_extents(cr, text.c_str(), &extents);
        result.width = extents.x_advance;
    }
    return result;
}

void CairoCanvas::drawImage(double x, double y, double dw, double dh, int w, int h,
                            const std::vector<ArgbWord>& pixels) {
    if (finished || w <= 0 || h <= 0 || pixels.size() < static_cast<std::size_t>(w) * h) return;
    cairo_surface_t* image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, w, h);
    cairo_surface_flush(image);
    unsigned char* data = cairo_image_surface_get_data(image);
    const int stride = cairo_image_surface_get_stride(image);
    for (int row = 0; row < h; ++row) {
        auto* line = reinterpret_cast<std::uint32_t*>(data + row * stride);
        for (int col = 0; col < w; ++col) {
            // Cairo keeps premultiplied alpha; the program's images are opaque.
            line[col] = pixels[static_cast<std::size_t>(row) * w + col] | 0xFF000000u;
        }
    }
    cairo_surface_mark_dirty(image);
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_scale(cr, dw / w, dh / h);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_paint(cr);
    cairo_restore(cr);
    cairo_surface_destroy(image);
}

void CairoCanvas::clip(double x, double y, double w, double h) {
    if (finished) return;
    cairo_save(cr);
    cairo_rectangle(cr, x, y, w, h);
    cairo_clip(cr);
}

void CairoCanvas::unclip() {
    if (finished) return;
    cairo_restore(cr);
}

std::string CairoCanvas::finish() {
    if (!finished) {
        finished = true;
        cairo_destroy(cr);
        cr = nullptr;
        if (fileType == ImageFileType::PNG) {
            cairo_surface_flush(surface);
            if (cairo_surface_write_to_png_stream(surface, appendBytes, &bytes) !=
                CAIRO_STATUS_SUCCESS) {
                bytes.clear();
            }
        } else {
            cairo_surface_finish(surface);
            if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS) bytes.clear();
        }
    }
    return bytes;
}

bool CairoCanvas::save(const std::string& path, std::string* error) {
    const std::string contents = finish();
    if (contents.empty()) {
        if (error != nullptr) *error = "the drawing library failed";
        return false;
    }
    return writeFileAtomically(path, contents, error);
}

ArgbWord CairoCanvas::pixel(int x, int y) {
    if (fileType != ImageFileType::PNG || x < 0 || y < 0 || x >= canvasWidth || y >= canvasHeight) {
        return 0;
    }
    cairo_surface_flush(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    return *reinterpret_cast<const std::uint32_t*>(data + y * stride + 4 * x);
}
