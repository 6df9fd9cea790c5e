#include "TM30ReportPage.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

#include "CIELab_Type_Plot_Image.h"
#include "R_Plot_Image.h"

namespace {

constexpr double LETTER_HEIGHT_INCHES = 11.0;
constexpr double A4_HEIGHT_INCHES = 11.7;
constexpr int FIRST_NM = 360;  // the grid starts here, 2 nm a step
constexpr ArgbWord TEST_RED = 0xFFE11E1Eu;

std::string fmt(const char* format, double value) {
    char text[64];
    std::snprintf(text, sizeof(text), format, value);
    return text;
}

// Fonts and spacing of one page.
struct Page {
    double s = 1;        // scale factor
    double base = 20;    // body font, pixels
    double margin = 70;  // half an inch
    int width = 1200, height = 1553;
};

ArgbWord binColor(const QualityPlotData& data, int bin) {
    return argbFromRGB(static_cast<int>(data.hueRGB[0][bin]), static_cast<int>(data.hueRGB[1][bin]),
                       static_cast<int>(data.hueRGB[2][bin]));
}

// Relative spectral power of the test and its reference, 380 to 780 nm, each to its own peak.
void drawSpectrum(Canvas& canvas, const QualityPlotData& data, const ReportRect& r, double font,
                  double s) {
    const TextExtent e = canvas.measureText("0", font, false);
    const double th = e.ascent + e.descent;
    const double left = r.x + th * 1.5 + canvas.measureText("0.0", font, false).width + 6 * s;
    const double bottom = r.y + r.h - 2.2 * th;
    const double top = r.y + th * 1.6;
    const double right = r.x + r.w - th / 2;
    const double pw = right - left, ph = bottom - top;
    TextStyle center;
    center.size = font;
    center.align = TextAlign::CENTER;
    TextStyle rightAlign = center;
    rightAlign.align = TextAlign::RIGHT;
    canvas.drawRectangle(left, top, pw, ph, ARGB_BLACK, s);
    for (int nm = 400; nm <= 750; nm += 50) {
        const double x = left + (nm - 380) * pw / 400.0;
        canvas.drawLine(x, bottom, x, bottom + 4 * s, ARGB_BLACK, s);
        canvas.drawText(x, bottom + 4 * s + e.ascent, std::to_string(nm), center, ARGB_BLACK);
    }
    for (int k = 0; k <= 5; ++k) {
        const double y = bottom - k * ph / 5;
        canvas.drawLine(left - 4 * s, y, left, y, ARGB_BLACK, s);
        canvas.drawText(left - 6 * s, y + e.ascent / 2 - e.descent / 2, fmt("%.1f", k / 5.0),
                        rightAlign, ARGB_BLACK);
    }
    canvas.drawText((left + right) / 2, bottom + 4 * s + e.ascent + th, "Wavelength (nm)", center,
                    ARGB_BLACK);
    TextStyle up = center;
    up.rotated = true;
    canvas.drawText(r.x + e.ascent, (top + bottom) / 2, "Radiant Power (Relative)", up, ARGB_BLACK);
    const std::vector<double>* curves[2] = {&data.tm30Reference, &data.spectrum};
    const ArgbWord colors[2] = {ARGB_BLACK, TEST_RED};
    for (int c = 0; c < 2; ++c) {
        const std::vector<double>& curve = *curves[c];
        if (curve.size() < Vantrel::NUM_GRID_POINTS) continue;
        const int first = (380 - FIRST_NM) / 2, last = (780 - FIRST_NM) / 2;
        double peak = 0;
        for (int i = first; i <= last; ++i) peak = std::max(peak, curve[i]);
        if (!(peak > 0)) continue;
        std::vector<CanvasPoint> line;
        for (int i = first; i <= last; ++i) {
            line.push_back(
                {left + (FIRST_NM + 2 * i - 380) * pw / 400.0, bottom - curve[i] / peak * ph});
        }
        canvas.drawPolyline(line, colors[c], (c == 0 ? 2 : 2.5) * s);
    }
    // Legend at the top.
    const char* names[2] = {"Reference", "Test"};
    double x = left + 10 * s;
    TextStyle leftAlign;
    leftAlign.size = font;
    for (int c = 0; c < 2; ++c) {
        canvas.drawLine(x, r.y + th * 0.8 - e.ascent / 3, x + 30 * s, r.y + th * 0.8 - e.ascent / 3,
                        colors[c], 2.5 * s);
        canvas.drawText(x + 36 * s, r.y + th * 0.8, names[c], leftAlign, ARGB_BLACK);
        x += 36 * s + canvas.measureText(names[c], font, false).width + 24 * s;
    }
}

// A hue-bin or sample chart of the report.
R_Plot_Image drawBars(Canvas& canvas, const QualityPlotData& data, char mode, const ReportRect& r,
                      double font, double s, bool standardLimits) {
    std::vector<double> values;
    std::vector<ArgbWord> colors;
    std::vector<std::string> labels;
    const SpectrumResults& res = data.results;
    if (mode == 'S') {
        for (std::size_t k = 0; k < data.rfi.size(); ++k) {
            values.push_back(data.rfi[k]);
            const auto& p = data.patchRGB[k];
            colors.push_back(argbFromRGB(p[3], p[4], p[5]));
            labels.push_back(std::to_string(k + 1));
        }
    } else {
        for (int bin = 0; bin < Vantrel::TM30_NUM_BINS; ++bin) {
            values.push_back(mode == 'F'   ? res.RfByHue[bin]
                             : mode == 'C' ? res.chromaShiftPct[bin]
                                           : res.hueShift[bin]);
            colors.push_back(binColor(data, bin));
            labels.push_back(std::to_string(bin + 1));
        }
    }
    RPlotOptions options;
    options.fontSize = font;
    options.scale = s;
    options.standardShiftLimits = standardLimits;
    options.showValues = mode != 'S';
    options.hueBinLabels = 2;
    R_Plot_Image plot;
    plot.setData(mode, values, colors, labels, "", options);
    plot.makeImage(canvas, r.x, r.y, r.w, r.h);
    return plot;
}

void drawGraphic(Canvas& canvas, const QualityPlotData& data, const ReportRect& r, double font,
                 double s, bool circles, TM30ReportOutcome* outcome) {
    CIELabPlotOptions options;
    options.fontSize = font;
    options.scale = s;
    options.showPercentCircles = circles;
    CIELab_Type_Plot_Image graphic;
    graphic.setOptions("G", options);
    std::vector<ArgbWord> bins;
    for (int bin = 0; bin < Vantrel::TM30_NUM_BINS; ++bin) bins.push_back(binColor(data, bin));
    TM30GraphicValues values;
    values.metricName = Vantrel::getTM30_version();
    values.Rf = data.results.Rf;
    values.Rg = data.results.Rg;
    values.cct = data.results.cct;
    values.duv = data.results.duv;
    graphic.passGraphicData(data.iconTestX, data.iconTestY, data.iconRefX, data.iconRefY, bins,
                            values);
    graphic.makeImage(canvas, r.x, r.y, r.w, r.h);
    outcome->graphicCenterX = graphic.aToScreen(0);
    outcome->graphicCenterY = graphic.bToScreen(0);
    outcome->graphicUnitPixels = graphic.aToScreen(1) - graphic.aToScreen(0);
}

// The text of a spectrum without TM-30 values, in place of the graphics.
void drawNotAvailable(Canvas& canvas, const QualityPlotData& data, const ReportRect& r,
                      double font) {
    canvas.drawRectangle(r.x, r.y, r.w, r.h, 0xFF969696u, 1);
    TextStyle style;
    style.size = font * 1.5;
    style.bold = true;
    style.align = TextAlign::CENTER;
    const std::string metric = Vantrel::getTM30_version();
    canvas.drawText(r.x + r.w / 2, r.y + r.h / 2, "IES " + metric + " : N/A", style, ARGB_BLACK);
    style.size = font;
    style.bold = false;
    const std::string reason = !data.results.hasChromaticity
                                   ? "The spectrum has no visible light."
                                   : "|Duv| is above 0.1: the reference illuminant is undefined.";
    canvas.drawText(r.x + r.w / 2, r.y + r.h / 2 + 2 * font, reason, style, ARGB_BLACK);
}

// Word-wraps text into lines no wider than width; false when it needs more than maxLines.
bool wrapText(Canvas& canvas, const std::string& text, double font, double width,
              std::size_t maxLines, std::vector<std::string>* lines) {
    std::istringstream words(text);
    std::string word, line;
    bool fits = true;
    auto push = [&](const std::string& l) {
        if (lines->size() < maxLines) {
            lines->push_back(l);
        } else {
            fits = false;
        }
    };
    while (words >> word) {
        // A word wider than the box is broken where it meets the edge.
        while (canvas.measureText(word, font, false).width > width && word.size() > 1) {
            std::size_t cut = word.size() - 1;
            while (cut > 1 && canvas.measureText(word.substr(0, cut), font, false).width > width)
                --cut;
            while (cut > 1 && (static_cast<unsigned char>(word[cut]) & 0xC0) == 0x80) --cut;
            if (!line.empty()) push(line);
            line.clear();
            push(word.substr(0, cut));
            word = word.substr(cut);
        }
        const std::string candidate = line.empty() ? word : line + " " + word;
        if (canvas.measureText(candidate, font, false).width > width && !line.empty()) {
            push(line);
            line = word;
        } else {
            line = candidate;
        }
    }
    if (!line.empty()) push(line);
    return fits;
}

void drawFields(Canvas& canvas, const TM30ReportFields& fields, const Page& page, double y) {
    const char* names[4] = {"Source:", "Manufacturer:", "Date:", "Model:"};
    const std::string values[4] = {
        cleanReportText(fields.source, 45), cleanReportText(fields.manufacturer, 40),
        cleanReportText(fields.date, 45), cleanReportText(fields.model, 45)};
    const double half = (page.width - 2 * page.margin) / 2;
    TextStyle bold;
    bold.size = page.base;
    bold.bold = true;
    TextStyle plain;
    plain.size = page.base * 0.9;
    for (int k = 0; k < 4; ++k) {
        const double x = page.margin + (k % 2) * half;
        const double yy = y + (k / 2) * page.base * 1.4;
        canvas.drawText(x, yy, names[k], bold, ARGB_BLACK);
        const double w = canvas.measureText(names[k], page.base, true).width + page.base / 3;
        canvas.clip(x + w, yy - page.base, half - w - page.base / 2, page.base * 1.4);
        canvas.drawText(x + w, yy, values[k], plain, ARGB_BLACK);
        canvas.unclip();
    }
}

// Chromaticity and the CIE 13.3 block; returns nothing, drawn from (x, y) down.
void drawDataBlock(Canvas& canvas, const QualityPlotData& data, const Page& page, double x,
                   double y) {
    const SpectrumResults& r = data.results;
    TextStyle plain;
    plain.size = page.base;
    const double line = page.base * 1.35;
    const bool ok = r.hasChromaticity;
    const std::string rows[4] = {
        "x    " + (ok ? fmt("%.4f", r.x) : "N/A"), "y    " + (ok ? fmt("%.4f", r.y) : "N/A"),
        "u'   " + (ok ? fmt("%.4f", r.up) : "N/A"), "v'   " + (ok ? fmt("%.4f", r.vp) : "N/A")};
    for (int k = 0; k < 4; ++k) canvas.drawText(x, y + k * line, rows[k], plain, ARGB_BLACK);
    const double bx = x + page.base * 8;
    const double bw = canvas.measureText("      CIE 13.3-1995      ", page.base, false).width;
    canvas.drawRectangle(bx, y - page.base, bw, 4 * line, ARGB_BLACK, page.s);
    TextStyle center = plain;
    center.align = TextAlign::CENTER;
    canvas.drawText(bx + bw / 2, y, "      CIE 13.3-1995      ", center, ARGB_BLACK);
    canvas.drawText(bx + bw / 2, y + line, "(CRI)", center, ARGB_BLACK);
    drawTextWithSubscript(canvas, bx + bw / 2, y + 2 * line, "R", "a", center, ARGB_BLACK,
                          "   " + (ok ? fmt("%.0f", r.R[0]) : std::string("N/A")));
    drawTextWithSubscript(canvas, bx + bw / 2, y + 3 * line - page.base * 0.1, "R", "9", center,
                          ARGB_BLACK, "   " + (ok ? fmt("%.0f", r.R[9]) : std::string("N/A")));
}

}  // namespace

void getTM30ReportPageSize(const TM30ReportOptions& options, int* width, int* height) {
    const int s = options.scaleFactor == 2 || options.scaleFactor == 4 ? options.scaleFactor : 1;
    const int d = options.halfSize ? 2 : 1;
    *width = 1200 * s / d;
    *height = options.paperSize == 2 ? *width * 297 / 210 : *width * 279 / 216;
}

std::string cleanReportText(const std::string& text, std::size_t maxChars) {
    std::string out;
    std::size_t chars = 0;
    for (std::size_t i = 0; i < text.size() && chars < maxChars;) {
        const unsigned char c = static_cast<unsigned char>(text[i]);
        std::size_t len = c < 0x80         ? 1
                          : (c >> 5) == 6  ? 2
                          : (c >> 4) == 14 ? 3
                          : (c >> 3) == 30 ? 4
                                           : 0;
        bool valid = len > 0 && i + len <= text.size();
        for (std::size_t k = 1; valid && k < len; ++k)
            valid = (static_cast<unsigned char>(text[i + k]) & 0xC0) == 0x80;
        if (!valid || c < 0x20 || c == 0x7F) {
            out += ' ';
            i += valid ? len : 1;
        } else {
            out.append(text, i, len);
            i += len;
        }
        ++chars;
    }
    return out;
}

TM30ReportOutcome makeTM30Report(Canvas& canvas, const QualityPlotData& data,
                                 const TM30ReportFields& fields, const TM30ReportOptions& options) {
    TM30ReportOutcome outcome;
    Page page;
    getTM30ReportPageSize(options, &page.width, &page.height);
    page.s = page.width / 1200.0;
    page.base = 20 * page.s;
    page.margin =
        0.5 * page.height / (options.paperSize == 2 ? A4_HEIGHT_INCHES : LETTER_HEIGHT_INCHES);
    outcome.width = page.width;
    outcome.height = page.height;
    const double m = page.margin, s = page.s, W = page.width - 2 * m;
    const int type = options.reportType;
    canvas.fillRectangle(0, 0, page.width, page.height, ARGB_WHITE);

    // Title.
    TextStyle title;
    title.size = page.base * 1.6;
    title.bold = true;
    title.align = TextAlign::CENTER;
    const std::string metric = Vantrel::getTM30_version();
    double y = m + title.size;
    canvas.drawText(page.width / 2.0, y, "IES " + metric + " Color Rendition Report", title,
                    ARGB_BLACK);
    y += page.base * 1.2;
    if (type == TM30_REPORT_FULL) {
        drawFields(canvas, fields, page, y + page.base);
        y += page.base * 3.2;
    }
    y += page.base * 0.5;

    // The bottom block: notes, chromaticity, CIE 13.3, and the closing line.
    const double footer = page.height - m;
    const double bottomHeight = page.base * 7.5;
    const double bottomTop = footer - page.base * 1.5 - bottomHeight;
    const double gap = page.base;
    const bool valid = data.tm30Valid();
    const double chartsHeight = bottomTop - y - gap;
    const double font = page.base * 0.8;

    if (type == TM30_REPORT_FULL) {
        const double half = (W - gap) / 2;
        const double rowA = chartsHeight * 0.44;
        const double rowB = (chartsHeight - rowA - 2 * gap) / 2;
        outcome.spectrum = {m, y, half, rowA};
        outcome.graphic = {m + half + gap, y, half, rowA};
        outcome.chromaShift = {m, y + rowA + gap, half, rowB};
        outcome.hueShift = {m + half + gap, y + rowA + gap, half, rowB};
        outcome.localFidelity = {m, y + rowA + rowB + 2 * gap, half, rowB};
        outcome.sampleFidelity = {m + half + gap, y + rowA + rowB + 2 * gap, half, rowB};
    } else if (type == TM30_REPORT_INTERMEDIATE) {
        const double side = std::min(W * 0.5, chartsHeight);
        outcome.graphic = {m, y, side, side};
        const double rest = (side - gap) / 2;
        outcome.chromaShift = {m + side + gap, y, W - side - gap, rest};
        outcome.hueShift = {m + side + gap, y + rest + gap, W - side - gap, rest};
    } else {
        const double side = std::min(W * 0.7, chartsHeight);
        outcome.graphic = {m + (W - side) / 2, y, side, side};
    }
    if (!valid) {
        const ReportRect all = {m, y, W, chartsHeight};
        drawNotAvailable(canvas, data, all, page.base);
    } else {
        if (type == TM30_REPORT_FULL) drawSpectrum(canvas, data, outcome.spectrum, font, s);
        const ReportRect& g = outcome.graphic;
        const double side = std::min(g.w, g.h);
        drawGraphic(canvas, data, {g.x + (g.w - side) / 2, g.y, side, side}, font, s,
                    options.percentCircles, &outcome);
        if (type != TM30_REPORT_SIMPLE) {
            drawBars(canvas, data, 'C', outcome.chromaShift, font, s, options.standardShiftLimits);
            drawBars(canvas, data, 'H', outcome.hueShift, font, s, options.standardShiftLimits);
        }
        if (type == TM30_REPORT_FULL) {
            const R_Plot_Image fidelity =
                drawBars(canvas, data, 'F', outcome.localFidelity, font, s, false);
            outcome.fidelityZeroY = fidelity.valueToY(0);
            outcome.fidelityPixelsPerUnit = fidelity.valueToY(0) - fidelity.valueToY(1);
            for (int bin = 0; bin < 16; ++bin) outcome.fidelityBarX[bin] = fidelity.barCenterX(bin);
            drawBars(canvas, data, 'S', outcome.sampleFidelity, font, s, false);
        }
    }

    double dataX = m;
    if (type == TM30_REPORT_FULL) {
        TextStyle bold;
        bold.size = page.base;
        bold.bold = true;
        canvas.drawText(m, bottomTop + page.base, "Notes:", bold, ARGB_BLACK);
        const double boxW = W * 0.55, boxH = bottomHeight - page.base * 1.5;
        outcome.notes = {m, bottomTop + page.base * 1.5, boxW, boxH};
        canvas.drawRectangle(m, outcome.notes.y, boxW, boxH, ARGB_BLACK, s);
        const double noteFont = page.base * 0.8;
        const std::size_t maxLines =
            static_cast<std::size_t>((boxH - noteFont * 0.6) / (noteFont * 1.25));
        std::vector<std::string> lines;
        const std::string note = cleanReportText(fields.note, 600);
        const bool wrapped = wrapText(canvas, note, noteFont, boxW - noteFont, maxLines, &lines);
        outcome.noteTooLong = !wrapped || note.size() < fields.note.size();
        TextStyle plain;
        plain.size = noteFont;
        for (std::size_t k = 0; k < lines.size(); ++k) {
            canvas.drawText(m + noteFont / 2, outcome.notes.y + noteFont * (1.1 + 1.25 * k),
                            lines[k], plain, ARGB_BLACK);
        }
        dataX = m + boxW + gap * 1.5;
    }
    drawDataBlock(canvas, data, page, dataX, bottomTop + page.base * 2.2);
    TextStyle closing;
    closing.size = page.base * 0.8;
    closing.align = TextAlign::CENTER;
    canvas.drawText(page.width / 2.0, footer, "Colors are for visual orientation purposes only.",
                    closing, ARGB_BLACK);
    return outcome;
}

std::string tm30JabFileText(const QualityPlotData& data) {
    std::string out =
        "CES Color #\tJ' - test\ta' - test\tb' - test\tJ - ref\ta' - ref\tb' - "
        "ref\tRf,i\tR - test\tG - test\tB - test\tR - ref\tG - ref\tB - ref";
    out += "\tHue bin\tRfh,i\ta' - test\tb' - test\ta' - ref\tb' - ref\n";
    char cell[64];
    for (std::size_t k = 0; k < data.jab.size(); ++k) {
        out += std::to_string(k + 1) + "\t";
        for (double v : data.jab[k]) {
            std::snprintf(cell, sizeof(cell), "%.4f\t", v);
            out += cell;
        }
        out += std::to_string(static_cast<int>(data.rfi[k] + 0.5)) + "\t";
        for (int c = 0; c < 6; ++c) out += std::to_string(data.patchRGB[k][c]) + "\t";
        if (k < static_cast<std::size_t>(Vantrel::TM30_NUM_BINS)) {
            out += std::to_string(k + 1) + "\t" +
                   std::to_string(static_cast<int>(data.results.RfByHue[k] + 0.5)) + "\t";
            std::snprintf(cell, sizeof(cell), "%.4f\t%.4f\t%.4f\t%.4f\t", data.binTestA[k],
                          data.binTestB[k], data.binRefA[k], data.binRefB[k]);
            out += cell;
        } else {
            out += "\t\t";
        }
        out += "\n";
    }
    return out;
}
