#include "TLCIChart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace {

constexpr int NUM_PATCHES = 24;
constexpr int COLUMNS = 6;
constexpr int ROWS = 4;

constexpr const char* PATCH_NAMES[NUM_PATCHES] = {
    "Dark Skin (CC1)",    "Light Skin (CC2)",   "Blue Sky (CC3)",      "Foliage (CC4)",
    "Blue Flower (CC5)",  "Bluish Green (CC6)", "Orange (CC7)",        "Purplish Blue (CC8)",
    "Moderate Red (CC9)", "Purple (CC10)",      "Yellow Green (CC11)", "Orange Yellow (CC12)",
    "Blue (CC13)",        "Green (CC14)",       "Red (CC15)",          "Yellow (CC16)",
    "Magenta (CC17)",     "Cyan (CC18)",        "White (CC19)",        "Neutral 8 (CC20)",
    "Neutral 6.5 (CC21)", "Neutral 5 (CC22)",   "Neutral 3.5 (CC23)",  "Black (CC24)",
};

}  // namespace

const char* tlciPatchName(int patch) {
    return patch >= 0 && patch < NUM_PATCHES ? PATCH_NAMES[patch] : "";
}

int tlciChannel(double value, bool videoCoding, bool* outOfGamut) {
    const double scaled = videoCoding ? 16 + 219 * value : 255 * value;
    const long level = static_cast<long>(std::trunc(scaled));
    if (level < 0 || level > 255) *outOfGamut = true;
    return static_cast<int>(level & 0xFF);
}

std::string tlciValueText(double qa) {
    if (!(qa >= 0) || qa > 100.5) return "TLCI-2012 : N/A ";
    char text[48];
    std::snprintf(text, sizeof(text), "TLCI-2012 : %d ", static_cast<int>(std::lround(qa)));
    return text;
}

std::string tlciAdviceText(int value) {
    if (value == Vantrel::getUnknown_TLCI_2012() || std::abs(value) > 15) return "N/A";
    char text[16];
    std::snprintf(text, sizeof(text), "%s %.1lf",
                  value > 0   ? "+"
                  : value < 0 ? "-"
                              : "0",
                  std::fabs(static_cast<double>(value)));
    return text;
}

namespace {

// The test and reference spectra, 77 points each from 380 to 760 nm, each scaled to half the
// panel's height.
void drawSpectraPanel(Canvas& canvas, const QualityPlotData& data, double x, double y, double w,
                      double h, double margin) {
    canvas.drawRectangle(x, y, w, h, 0xFF808080u, 1);
    if (data.tlciReference.size() < 77 || data.spectrum.size() < Vantrel::NUM_GRID_POINTS) return;
    double test[77];
    for (int i = 0; i < 77; ++i) {
        // The 2 nm grid from 360 nm, read at 380 + 5 i nm.
        const double at = (380 + 5.0 * i - 360) / 2;
        const int j = static_cast<int>(at);
        test[i] = data.spectrum[j] + (at - j) * (data.spectrum[j + 1] - data.spectrum[j]);
    }
    const double* curves[2] = {data.tlciReference.data(), test};
    const ArgbWord colors[2] = {0xFFB4B4B4u, 0xFFFF5050u};
    const double dx = (w - 2 * margin) / 77;
    for (int c = 0; c < 2; ++c) {
        double peak = 0;
        for (int i = 0; i < 77; ++i) peak = std::max(peak, curves[c][i]);
        if (!(peak > 0)) continue;
        const double base = y + (c == 0 ? h / 2 : h) - margin / 2;
        std::vector<CanvasPoint> line;
        for (int i = 0; i < 77; ++i)
            line.push_back({x + margin + i * dx, base - curves[c][i] / peak * (h / 2 - margin)});
        canvas.drawPolyline(line, colors[c], 1.5);
    }
}

void drawAdviceTable(Canvas& canvas, const QualityPlotData& data, double x, double y, double w,
                     double h, double font) {
    const char* headers[4] = {"Sector", "Lightness", "Chroma", "Hue"};
    const double rowH = h / 13, colW = w / 4;
    TextStyle style;
    style.size = std::min(font, rowH * 0.7);
    style.align = TextAlign::CENTER;
    TextStyle bold = style;
    bold.bold = true;
    for (int c = 0; c < 4; ++c)
        canvas.drawText(x + (c + 0.5) * colW, y + rowH * 0.75, headers[c], bold, ARGB_WHITE);
    const bool valid = data.results.tlciQa >= 0;
    for (int k = 0; k < 12; ++k) {
        const double yy = y + (k + 1.75) * rowH;
        char name[4];
        Vantrel::getTLCI_2012_hue_name_4_char(k, name);
        canvas.drawText(x + 0.5 * colW, yy, std::string(name, strnlen(name, 4)), style, ARGB_WHITE);
        for (int c = 0; c < 3; ++c) {
            // An invalid index gives no advice figures.
            const std::string cell = valid ? tlciAdviceText(data.tlciSectors[k][c]) : "";
            canvas.drawText(x + (c + 1.5) * colW, yy, cell, style, ARGB_WHITE);
        }
    }
    canvas.drawRectangle(x, y, w, h, 0xFF808080u, 1);
}

}  // namespace

void drawTLCIChart(Canvas& canvas, const QualityPlotData& data, const TLCIChartOptions& options,
                   TLCIPatchPlace* places) {
    const double fullW = canvas.width(), H = canvas.height();
    canvas.fillRectangle(0, 0, fullW, H, ARGB_BLACK);
    const bool side = options.showSpectra || options.showAdvice;
    const double W = side ? fullW * 0.68 : fullW;
    const TextExtent e = canvas.measureText("0", options.fontSize, false);
    const double line = e.ascent + e.descent;
    const double margin = line;
    const double nameRoom = options.showNames ? line * 1.2 : 0;
    const double under = line * (options.showTitle ? 3.4 : 2.2);
    const double gap = std::max(4.0, W / 100);
    const double pw = (W - 2 * margin - (COLUMNS - 1) * gap) / COLUMNS;
    const double ph = (H - margin - under - ROWS * nameRoom - (ROWS - 1) * gap) / ROWS;
    TextStyle center;
    center.size = options.fontSize;
    center.align = TextAlign::CENTER;
    TextStyle small = center;
    small.size = options.fontSize * 0.8;
    bool anyOut = false;
    for (int p = 0; p < NUM_PATCHES; ++p) {
        const double x = margin + (p % COLUMNS) * (pw + gap);
        const double y = margin + (p / COLUMNS) * (ph + gap + nameRoom);
        bool out = false;
        int rgb[2][3];
        for (int set = 0; set < 2; ++set) {
            for (int c = 0; c < 3; ++c)
                rgb[set][c] = tlciChannel(data.tlciRGB[set][p][c], options.videoCoding, &out);
        }
        canvas.fillRectangle(x, y, pw, ph, argbFromRGB(rgb[1][0], rgb[1][1], rgb[1][2]));
        canvas.fillRectangle(x + pw / 4, y + ph / 4, pw / 2, ph / 2,
                             argbFromRGB(rgb[0][0], rgb[0][1], rgb[0][2]));
        if (places != nullptr) places[p] = {x, y, pw, ph};
        if (out) {
            anyOut = true;
            TextStyle star = center;
            star.align = TextAlign::LEFT;
            canvas.drawText(x + 3, y + e.ascent + 2, "*", star, ARGB_WHITE);
        }
        if (options.showNames) {
            canvas.drawText(x + pw / 2, y + ph + e.ascent + 2, tlciPatchName(p), small, ARGB_WHITE);
        }
    }
    double y = H - under + line * 1.1;
    canvas.drawText(
        W / 2, y,
        options.videoCoding ? "ColorChecker video (601/607) coded" : "ColorChecker sRGB coded",
        center, ARGB_WHITE);
    if (anyOut) {
        TextStyle right = small;
        right.align = TextAlign::RIGHT;
        canvas.drawText(W - margin, y, "* out of gamut", right, ARGB_WHITE);
    }
    if (side) {
        const double px = W, pw = fullW - W - margin, top = margin;
        const double bottom = H - under;
        const bool both = options.showSpectra && options.showAdvice;
        const double split = both ? top + (bottom - top) * 0.35 : bottom;
        if (options.showSpectra) drawSpectraPanel(canvas, data, px, top, pw, split - top, margin);
        if (options.showAdvice) {
            const double ty = both ? split + margin / 2 : top;
            drawAdviceTable(canvas, data, px, ty, pw, bottom - ty, options.fontSize);
        }
    }
    if (options.showTitle) {
        y += line * 1.2;
        const SpectrumResults& r = data.results;
        const bool valid = r.tlciQa >= 0;
        char text[256];
        // The bracket holds the Duv of the light, or N/A when no index could be had.
        char duv[32];
        std::snprintf(duv, sizeof(duv), "Duv %.4f", std::fabs(r.duv) < 5e-5 ? 0.0 : r.duv);
        const std::string lamp = data.name.empty() ? "Test" : data.name;
        std::snprintf(text, sizeof(text), "%s : CCT = %s%.0lf (%s)", lamp.c_str(), "", r.cct,
                      valid ? duv : "N/A");
        canvas.drawText(W / 2, y, std::string(text) + "   " + tlciValueText(r.tlciQa), center,
                        ARGB_WHITE);
    }
}
