// The quality chart windows of the main window (R and Q bars, colour planes, the TM-30 charts
// and report, the TLCI chart) and the file of the TM-30 J'a'b' values.
#include "FileText.h"
#include "QualityPlotWindow.h"
#include "TM30Report.h"
#include "UserDialogs.h"
#include "ValueFormat.h"
#include "VantrelGUI.h"

namespace {

// Window sizes of the charts: the bar charts and planes, and the report page at half size.
constexpr int CHART_WINDOW_WIDTH = 800;
constexpr int CHART_WINDOW_HEIGHT = 600;
constexpr int REPORT_WINDOW_WIDTH = 620;
constexpr int REPORT_WINDOW_HEIGHT = 860;
// The font of the chart windows, pixels.
constexpr double CHART_FONT_PIXELS = 14.0;

// The results of the calculated spectrum; false after the box that says why not.
bool calculatedPlotData(VantrelGUI* window, bool hasResults, const std::vector<double>& spectrum,
                        const std::string& name, QualityPlotData* data) {
    if (!hasResults || spectrum.size() < static_cast<std::size_t>(Vantrel::NUM_GRID_POINTS)) {
        UserDialogs::error(window, "Plot error",
                           "There is no data to plot - you must first calculate a spectrum");
        return false;
    }
    if (!gatherQualityPlotData(spectrum.data(), name, data)) {
        UserDialogs::error(window, "Error", "Unknown error try to calculate again.");
        return false;
    }
    return true;
}

}  // namespace

long VantrelGUI::onCmdQualityPlot(FXObject*, FXSelector sel, void*) {
    const auto chart = static_cast<QualityChart>(FXSELID(sel) - ID_QUALITY_PLOT);
    QualityPlotData data;
    if (!calculatedPlotData(this, resultsValid, mixedSpectrum, mainCurveName, &data)) return 1;
    if (!qualityChartHasData(chart, data)) {
        UserDialogs::error(this, "Plot error", "The IES %s values are N/A for this spectrum.",
                           Vantrel::getTM30_version());
        return 1;
    }
    QualityChartSettings chartSettings;
    chartSettings.fontSize = CHART_FONT_PIXELS;
    chartSettings.tlciSpectra = settings.getBool(OptionId::showTCLIspecPlot);
    chartSettings.tlciAdvice = settings.getBool(OptionId::showTCLIadviceTable);
    chartSettings.tlciNames = settings.getBool(OptionId::showTLCIColorNames);
    TM30ReportOptions& report = chartSettings.report;
    report.reportType = std::min(2, std::max(0, settings.getInt("TM30ReportType")));
    report.paperSize = settings.getInt("TM30ReportPaperSize") == 1 ? 2 : 1;
    report.standardShiftLimits = settings.getBool(OptionId::useStandardLimtsForTM30ShiftPlots);
    report.percentCircles = settings.getBool(OptionId::showTM30Graphic1020PercentCircles);
    TM30ReportFields& fields = chartSettings.fields;
    fields.source = settings.getString("tm30Report_sourceStr");
    fields.manufacturer = settings.getString("tm30Report_manufacturerStr");
    fields.date = settings.getString("tm30Report_dateStr");
    fields.model = settings.getString("tm30Report_modelStr");
    fields.note = settings.getString("tm30Report_noteStr");
    const bool page = chart == QualityChart::TM30_REPORT;
    if (page) {
        // The report's texts and options first; they are kept with the settings and the design.
        TM30Report dialog(this);
        dialog.setData(fields, report);
        std::vector<std::string> answers = dialog.getFields();
        if (!UserDialogs::runForm(&dialog, &answers, [&dialog] { return dialog.getFields(); }))
            return 1;
        TM30Report::readFields(answers, &fields, &report);
        settings.setString("tm30Report_sourceStr", fields.source);
        settings.setString("tm30Report_manufacturerStr", fields.manufacturer);
        settings.setString("tm30Report_dateStr", fields.date);
        settings.setString("tm30Report_modelStr", fields.model);
        settings.setString("tm30Report_noteStr", fields.note);
        settings.setInt("TM30ReportType", report.reportType);
        settings.setInt("TM30ReportPaperSize", report.paperSize == 2 ? 1 : 0);
        settings.setBool(OptionId::useStandardLimtsForTM30ShiftPlots, report.standardShiftLimits);
        settings.setBool(OptionId::showTM30Graphic1020PercentCircles, report.percentCircles);
    }
    QualityPlotWindow window(this, data, chart, chartSettings,
                             page ? REPORT_WINDOW_WIDTH : CHART_WINDOW_WIDTH,
                             page ? REPORT_WINDOW_HEIGHT : CHART_WINDOW_HEIGHT);
    qualityPlotWindow = &window;
    if (qualityPlotDriver) {
        window.create();
        window.show(PLACEMENT_OWNER);
        getApp()->repaint();
        qualityPlotDriver(window);
    } else {
        window.execute(PLACEMENT_OWNER);
    }
    qualityPlotWindow = nullptr;
    return 1;
}

long VantrelGUI::onCmdWriteTM30JabValuesToAFile(FXObject*, FXSelector, void*) {
    QualityPlotData data;
    if (!calculatedPlotData(this, resultsValid, mixedSpectrum, mainCurveName, &data)) return 1;
    if (!data.tm30Valid()) {
        UserDialogs::error(this, "Plot error", "The IES %s values are N/A for this spectrum.",
                           Vantrel::getTM30_version());
        return 1;
    }
    const std::string name = ValueFormat::format("Jab_Rfi_values_%s.xls", mainCurveName.c_str());
    FXString path;
    if (!UserDialogs::chooseFile(this, "Save Jab and Rf,i values", "*.xls",
                                 FXSystem::getCurrentDirectory(), name.c_str(), false, &path))
        return 1;
    if (comparecase(FXPath::extension(path), "xls") != 0) path += ".xls";
    if (!writeFileAtomically(path.text(), tm30JabFileText(data))) {
        UserDialogs::error(this, "File error", "File \"%s\" could not be written, it may be open.",
                           path.text());
    }
    return 1;
}
