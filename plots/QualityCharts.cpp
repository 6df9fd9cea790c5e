#include "QualityCharts.h"

#include "CIELab_Type_Plot_Image.h"
#include "ColorPatches.h"
#include "R_Plot_Image.h"
#include "TLCIChart.h"
#include "TM30RgRfPlot.h"

namespace {

struct ChartName {
    const char* name;
    QualityChart chart;
    const char* fileTag;
};

// Command-line names and file tags of the charts.
constexpr ChartName CHART_NAMES[] = {
    {"tm30", QualityChart::TM30_REPORT, "report"},
    {"rvalues", QualityChart::RVALUES, "R-values"},
    {"qvalues", QualityChart::QVALUES, "Q-values"},
    {"cielab", QualityChart::CIELAB_R, "CIELAB_R"},
    {"cielab-q", QualityChart::CIELAB_Q, "CIELAB_Q"},
    {"cam02", QualityChart::CAM02_UCS, "CAM02-UCS"},
    {"rf-hue", QualityChart::RF_HUE, "hue_Rf-values"},
    {"chroma-shift", QualityChart::CHROMA_SHIFT, "chroma_shifts"},
    {"hue-shift", QualityChart::HUE_SHIFT, "hue_shifts"},
    {"rf-samples", QualityChart::RF_SAMPLES, "color_Rf-values"},
    {"rgrf", QualityChart::RG_RF, "Rg_Rf"},
    {"graphic", QualityChart::GRAPHIC, "color_vector_graphic"},
    {"tlci", QualityChart::TLCI, "TLCI-2012"},
    {"cri-patches", QualityChart::CRI_PATCHES, "CRI_colors"},
    {"cqs-patches", QualityChart::CQS_PATCHES, "CQS_colors"},
    {"tm30-patches", QualityChart::TM30_PATCHES, "TM30_colors"},
};

ArgbWord rgbWord(const int* rgb) { return argbFromRGB(rgb[0], rgb[1], rgb[2]); }

void drawRQ(Canvas& canvas, bool cqs, const QualityPlotData& data, const QualityChartSettings& s) {
    const char letter = cqs ? 'Q' : 'R';
    std::vector<double> values;
    std::vector<ArgbWord> colors;
    std::vector<std::string> labels;
    for (int k = 0; k < Vantrel::NUM_SAMPLES; ++k) {
        values.push_back(cqs ? data.results.Q[k] : data.results.R[k]);
        colors.push_back(rgbWord(cqs ? data.rgbQ[k] : data.rgbR[k]));
        labels.push_back(k == 0 ? std::string(1, letter) + "a"
                                : std::string(1, letter) + std::to_string(k));
    }
    RPlotOptions options;
    options.fontSize = s.fontSize * s.scale;
    options.scale = s.scale;
    options.showValues = true;
    options.gridLines = true;
    R_Plot_Image plot;
    plot.setData(letter, values, colors, labels, cqs ? "CQS Points" : "CRI Points", options);
    plot.makeImage(canvas, 0, 0, canvas.width(), canvas.height());
}

void drawHueBars(Canvas& canvas, char mode, const QualityPlotData& data,
                 const QualityChartSettings& s) {
    std::vector<double> values;
    std::vector<ArgbWord> colors;
    std::vector<std::string> labels;
    std::vector<int> counts;
    if (mode == 'S') {
        for (std::size_t k = 0; k < data.rfi.size(); ++k) {
            values.push_back(data.rfi[k]);
            colors.push_back(rgbWord(&data.patchRGB[k][3]));
            labels.push_back(std::to_string(k + 1));
        }
    } else {
        for (int bin = 0; bin < Vantrel::TM30_NUM_BINS; ++bin) {
            const SpectrumResults& r = data.results;
            values.push_back(mode == 'F'   ? r.RfByHue[bin]
                             : mode == 'C' ? r.chromaShiftPct[bin]
                                           : r.hueShift[bin]);
            colors.push_back(argbFromRGB(static_cast<int>(data.hueRGB[0][bin]),
                                         static_cast<int>(data.hueRGB[1][bin]),
                                         static_cast<int>(data.hueRGB[2][bin])));
            labels.push_back(std::to_string(bin + 1));
            counts.push_back(data.numInBin[bin]);
        }
    }
    RPlotOptions options;
    options.fontSize = s.fontSize * s.scale;
    options.scale = s.scale;
    options.showValues = mode != 'S';
    options.showNumInBins = mode != 'S';
    options.standardShiftLimits = s.report.standardShiftLimits;
    R_Plot_Image plot;
    plot.setData(mode, values, colors, labels, "", options, counts);
    plot.makeImage(canvas, 0, 0, canvas.width(), canvas.height());
}

void drawPlane(Canvas& canvas, QualityChart chart, const QualityPlotData& data,
               const QualityChartSettings& s) {
    std::vector<double> ta, tb, ra, rb;
    std::vector<ArgbWord> tc, rc;
    std::string mode = "C";
    if (chart == QualityChart::CAM02_UCS) {
        for (std::size_t k = 0; k < data.jab.size(); ++k) {
            ta.push_back(data.jab[k][1]);
            tb.push_back(data.jab[k][2]);
            ra.push_back(data.jab[k][4]);
            rb.push_back(data.jab[k][5]);
            tc.push_back(rgbWord(&data.patchRGB[k][0]));
            rc.push_back(rgbWord(&data.patchRGB[k][3]));
        }
    } else {
        const bool cqs = chart == QualityChart::CIELAB_Q;
        mode = cqs ? "Q" : "R";
        const auto& lab = cqs ? data.labQ : data.labR;
        for (int k = 1; k < Vantrel::NUM_SAMPLES; ++k) {
            ta.push_back(lab[1][0][k]);
            tb.push_back(lab[2][0][k]);
            ra.push_back(lab[1][1][k]);
            rb.push_back(lab[2][1][k]);
            tc.push_back(0xFFFF0000u);
            rc.push_back(0xFF000000u);
        }
    }
    CIELabPlotOptions options;
    options.fontSize = s.fontSize * s.scale;
    options.scale = s.scale;
    options.lStar = 70;
    options.connectingLines = chart != QualityChart::CAM02_UCS;
    CIELab_Type_Plot_Image plot;
    plot.setOptions(mode, options);
    plot.passNumericData(ta, tb, ra, rb, tc, rc);
    plot.makeImage(canvas, 0, 0, canvas.width(), canvas.height());
}

void drawGraphicAlone(Canvas& canvas, const QualityPlotData& data, const QualityChartSettings& s) {
    CIELabPlotOptions options;
    options.fontSize = s.fontSize * s.scale;
    options.scale = s.scale;
    options.showPercentCircles = s.report.percentCircles;
    CIELab_Type_Plot_Image graphic;
    graphic.setOptions("G", options);
    std::vector<ArgbWord> bins;
    for (int bin = 0; bin < Vantrel::TM30_NUM_BINS; ++bin) {
        bins.push_back(argbFromRGB(static_cast<int>(data.hueRGB[0][bin]),
                                   static_cast<int>(data.hueRGB[1][bin]),
                                   static_cast<int>(data.hueRGB[2][bin])));
    }
    TM30GraphicValues values;
    values.metricName = Vantrel::getTM30_version();
    values.Rf = data.results.Rf;
    values.Rg = data.results.Rg;
    values.cct = data.results.cct;
    values.duv = data.results.duv;
    graphic.passGraphicData(data.iconTestX, data.iconTestY, data.iconRefX, data.iconRefY, bins,
                            values);
    graphic.makeImage(canvas, 0, 0, canvas.width(), canvas.height());
}

}  // namespace

bool qualityChartOfName(const std::string& name, QualityChart* chart) {
    for (const ChartName& entry : CHART_NAMES) {
        if (name == entry.name) {
            *chart = entry.chart;
            return true;
        }
    }
    return false;
}

std::string qualityChartNames() {
    std::string names;
    for (const ChartName& entry : CHART_NAMES) {
        if (!names.empty()) names += "|";
        names += entry.name;
    }
    return names;
}

std::string qualityChartFileTag(QualityChart chart, const TM30ReportOptions& report) {
    if (chart == QualityChart::TM30_REPORT) {
        const char* kinds[3] = {"_full", "_inter", "_simple"};
        const int type = report.reportType >= 0 && report.reportType <= 2 ? report.reportType : 0;
        return std::string("report") + kinds[type];
    }
    for (const ChartName& entry : CHART_NAMES) {
        if (entry.chart == chart) return entry.fileTag;
    }
    return "chart";
}

void qualityChartSize(QualityChart chart, const QualityChartSettings& settings, int* width,
                      int* height) {
    if (chart == QualityChart::TM30_REPORT) {
        getTM30ReportPageSize(settings.report, width, height);
        return;
    }
    *width = settings.width;
    *height = settings.height;
}

bool qualityChartHasData(QualityChart chart, const QualityPlotData& data) {
    if (chart == QualityChart::TM30_REPORT) return true;
    if (!data.results.hasChromaticity) return false;
    switch (chart) {
        case QualityChart::CAM02_UCS:
        case QualityChart::RF_HUE:
        case QualityChart::CHROMA_SHIFT:
        case QualityChart::HUE_SHIFT:
        case QualityChart::RF_SAMPLES:
        case QualityChart::RG_RF:
        case QualityChart::GRAPHIC:
        case QualityChart::TM30_PATCHES:
            return data.tm30Valid();
        default:
            return true;
    }
}

TM30ReportOutcome drawQualityChart(Canvas& canvas, QualityChart chart, const QualityPlotData& data,
                                   const QualityChartSettings& settings) {
    switch (chart) {
        case QualityChart::TM30_REPORT:
            return makeTM30Report(canvas, data, settings.fields, settings.report);
        case QualityChart::RVALUES:
        case QualityChart::QVALUES:
            drawRQ(canvas, chart == QualityChart::QVALUES, data, settings);
            break;
        case QualityChart::CIELAB_R:
        case QualityChart::CIELAB_Q:
        case QualityChart::CAM02_UCS:
            drawPlane(canvas, chart, data, settings);
            break;
        case QualityChart::RF_HUE:
            drawHueBars(canvas, 'F', data, settings);
            break;
        case QualityChart::CHROMA_SHIFT:
            drawHueBars(canvas, 'C', data, settings);
            break;
        case QualityChart::HUE_SHIFT:
            drawHueBars(canvas, 'H', data, settings);
            break;
        case QualityChart::RF_SAMPLES:
            drawHueBars(canvas, 'S', data, settings);
            break;
        case QualityChart::RG_RF: {
            TM30RgRfPlot plot;
            plot.setFontSize(settings.fontSize * settings.scale);
            plot.setScaleFactor(settings.scale);
            plot.plotPoints({data.results.Rf}, {data.results.Rg}, {data.name}, false, {0}, true,
                            true, Vantrel::getTM30_version());
            plot.drawPlot(canvas, 0, 0, canvas.width(), canvas.height());
            break;
        }
        case QualityChart::GRAPHIC:
            drawGraphicAlone(canvas, data, settings);
            break;
        case QualityChart::CRI_PATCHES:
        case QualityChart::CQS_PATCHES:
        case QualityChart::TM30_PATCHES: {
            ColorPatchesOptions options;
            options.fontSize = settings.fontSize * settings.scale;
            const char mode = chart == QualityChart::CRI_PATCHES   ? 'R'
                              : chart == QualityChart::CQS_PATCHES ? 'Q'
                                                                   : 'T';
            drawColorPatches(canvas, mode, data, options);
            break;
        }
        case QualityChart::TLCI: {
            TLCIChartOptions options;
            options.fontSize = settings.fontSize * settings.scale;
            options.showSpectra = settings.tlciSpectra;
            options.showAdvice = settings.tlciAdvice;
            options.showNames = settings.tlciNames;
            drawTLCIChart(canvas, data, options);
            break;
        }
    }
    return {};
}
