#include "ColorPatches.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

struct Pair {
    ArgbWord reference, test;
    double value;  // dE*ab or Rf,i
};

std::vector<Pair> pairsOf(char mode, const QualityPlotData& data) {
    std::vector<Pair> pairs;
    if (mode == 'T') {
        for (std::size_t k = 0; k < data.patchRGB.size(); ++k) {
            const auto& p = data.patchRGB[k];
            pairs.push_back(
                {argbFromRGB(p[3], p[4], p[5]), argbFromRGB(p[0], p[1], p[2]), data.rfi[k]});
        }
        return pairs;
    }
    const bool cqs = mode == 'Q';
    const auto& lab = cqs ? data.labQ : data.labR;
    const auto& test = cqs ? data.rgbQ : data.rgbR;
    const auto& ref = cqs ? data.rgbQref : data.rgbRref;
    for (int k = 1; k < Vantrel::NUM_SAMPLES; ++k) {
        const double dE = std::sqrt(std::pow(lab[0][0][k] - lab[0][1][k], 2) +
                                    std::pow(lab[1][0][k] - lab[1][1][k], 2) +
                                    std::pow(lab[2][0][k] - lab[2][1][k], 2));
        pairs.push_back({argbFromRGB(ref[k][0], ref[k][1], ref[k][2]),
                         argbFromRGB(test[k][0], test[k][1], test[k][2]), dE});
    }
    return pairs;
}

}  // namespace

std::string colorPatchName(char mode, int k) {
    char text[16];
    if (mode == 'R') {
        std::snprintf(text, sizeof(text), k + 1 < 10 ? "TCS0%d" : "TCS%d", k + 1);
    } else if (mode == 'Q') {
        std::snprintf(text, sizeof(text), "VS%d", k + 1);
    } else {
        std::snprintf(text, sizeof(text), "CES%d", k + 1);
    }
    return text;
}

void drawColorPatches(Canvas& canvas, char mode, const QualityPlotData& data,
                      const ColorPatchesOptions& options, std::vector<ColorPatchPlace>* places) {
    const double W = canvas.width(), H = canvas.height();
    const ArgbWord background = options.whiteBackground ? ARGB_WHITE : ARGB_BLACK;
    const ArgbWord contrast = options.whiteBackground ? ARGB_BLACK : ARGB_WHITE;
    canvas.fillRectangle(0, 0, W, H, background);
    const std::vector<Pair> pairs = pairsOf(mode, data);
    if (pairs.empty()) return;
    const int n = static_cast<int>(pairs.size());
    const int perRow = mode == 'T' ? 11 : 5;
    const int rows = (n + perRow - 1) / perRow;
    const TextExtent e = canvas.measureText("0", options.fontSize, false);
    const double line = e.ascent + e.descent;
    const double top = line * 2.2;  // the legend line
    const double under = (options.showNames ? line : 0) + (options.showValues ? line : 0) + 4;
    const double gap = std::max(4.0, W / 100);
    const double pw = (W - gap * (perRow + 1)) / perRow;
    const double ph = std::max(4.0, (H - top - gap - rows * (under + gap)) / rows);
    TextStyle center;
    center.size = options.fontSize;
    center.align = TextAlign::CENTER;
    canvas.drawText(W / 2, line * 1.3, "Left patch = reference; right patch = test", center,
                    contrast);
    if (places != nullptr) places->assign(n, {});
    for (int k = 0; k < n; ++k) {
        const double x = gap + (k % perRow) * (pw + gap);
        const double y = top + (k / perRow) * (ph + under + gap);
        // Halves on whole pixels, so that no blended seam stands between them.
        const double x0 = std::round(x), middle = std::round(x + pw / 2);
        const double x1 = std::round(x + pw), y0 = std::round(y), y1 = std::round(y + ph);
        canvas.fillRectangle(x0, y0, middle - x0, y1 - y0, pairs[k].reference);
        canvas.fillRectangle(middle, y0, x1 - middle, y1 - y0, pairs[k].test);
        if (options.separationLine) canvas.drawLine(middle, y0, middle, y1, contrast, 1);
        if (places != nullptr) (*places)[k] = {x, y, pw, ph};
        double ty = y + ph + e.ascent + 2;
        if (options.showNames) {
            canvas.drawText(x + pw / 2, ty, colorPatchName(mode, k), center, contrast);
            ty += line;
        }
        if (options.showValues) {
            char text[32];
            if (mode == 'T') {
                std::snprintf(text, sizeof(text), "Rf,i %.0lf", pairs[k].value);
            } else {
                std::snprintf(text, sizeof(text), "dE*ab %.1lf", pairs[k].value);
            }
            canvas.drawText(x + pw / 2, ty, text, center, contrast);
        }
    }
}
