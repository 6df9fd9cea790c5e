#include "TLCIChart.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

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

void drawTLCIChart(Canvas& canvas, const QualityPlotData& data, const TLCIChartOptions& options,
                   TLCIPatchPlace* places) {
    const double W = canvas.width(), H = canvas.height();
    canvas.fillRectangle(0, 0, W, H, ARGB_BLACK);
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
