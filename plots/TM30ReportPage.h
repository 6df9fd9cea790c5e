// The one-page IES TM-30 colour rendition report (full, intermediate or simple), composed of
// the spectrum, the colour vector graphic, the hue-bin charts and the sample fidelity chart, and
// the tab-delimited file of the J'a'b' values behind it.
#ifndef LUMIVAR_PLOTS_TM30REPORTPAGE_H
#define LUMIVAR_PLOTS_TM30REPORTPAGE_H

#include <string>

#include "Canvas.h"
#include "QualityPlotData.h"

// The texts the user writes on a full report (kept with the design).
struct TM30ReportFields {
    std::string source;        // at most 45 characters
    std::string manufacturer;  // at most 40
    std::string date;          // at most 45
    std::string model;         // at most 45
    std::string note;          // at most 600
};

enum TM30ReportType {
    TM30_REPORT_FULL = 0,
    TM30_REPORT_INTERMEDIATE = 1,
    TM30_REPORT_SIMPLE = 2,
};

struct TM30ReportOptions {
    int reportType = TM30_REPORT_FULL;  // a TM30ReportType
    int paperSize = 1;                  // 1 US letter, 2 A4
    bool standardShiftLimits = false;   // -40 to 40 % and -0.5 to 0.5 on the shift charts
    bool percentCircles = true;         // the +/- 20 % circles on the graphic
    int scaleFactor = 1;                // 1, 2 or 4
    bool halfSize = false;              // the display's half-size page
};

struct ReportRect {
    double x = 0, y = 0, w = 0, h = 0;
};

// What a report drew where, and what it had to leave out.
struct TM30ReportOutcome {
    int width = 0, height = 0;
    bool noteTooLong = false;  // the note did not fit its box and was cut
    ReportRect spectrum, graphic, chromaShift, hueShift, localFidelity, sampleFidelity, notes;
    double graphicCenterX = 0, graphicCenterY = 0, graphicUnitPixels = 0;  // a' = b' = 0, and
                                                                           // pixels per unit
    double fidelityZeroY = 0, fidelityPixelsPerUnit = 0;  // the local fidelity bars' scale
    double fidelityBarX[16] = {};                         // centre of each local fidelity bar
};

// The page size in pixels of the options: 1200 wide at scale 1.
void getTM30ReportPageSize(const TM30ReportOptions& options, int* width, int* height);
// The user's text made safe for the page: control characters and broken UTF-8 become blanks,
// cut to maxChars characters.
std::string cleanReportText(const std::string& text, std::size_t maxChars);
// Draws the report on a canvas of getTM30ReportPageSize. A spectrum whose TM-30 is not defined
// gets the page with "N/A" and the reason in place of the graphics.
TM30ReportOutcome makeTM30Report(Canvas& canvas, const QualityPlotData& data,
                                 const TM30ReportFields& fields, const TM30ReportOptions& options);

// The warning shown when the note is cut.
constexpr const char* TM30_NOTE_TOO_LONG =
    "Your text for the note is too long and may not be fully written to the report.";

// The tab-delimited J'a'b', Rf,i and Rf,h table of the samples ("Jab_Rfi_values_%s.xls").
std::string tm30JabFileText(const QualityPlotData& data);

#endif  // LUMIVAR_PLOTS_TM30REPORTPAGE_H
