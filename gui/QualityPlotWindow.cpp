#include "QualityPlotWindow.h"

#include "CairoCanvas.h"
#include "FoxCanvas.h"
#include "UserDialogs.h"
#include "ValueFormat.h"

FXDEFMAP(QualityPlotWindow)
QualityPlotWindowMap[] = {
    FXMAPFUNC(SEL_PAINT, QualityPlotWindow::ID_CANVAS, QualityPlotWindow::onPaint),
    FXMAPFUNC(SEL_CONFIGURE, QualityPlotWindow::ID_CANVAS, QualityPlotWindow::onConfigure),
    FXMAPFUNCS(SEL_COMMAND, QualityPlotWindow::ID_SAVE_BMP, QualityPlotWindow::ID_SAVE_PNG,
               QualityPlotWindow::onCmdSave),
    FXMAPFUNCS(SEL_COMMAND, QualityPlotWindow::ID_SCALE, QualityPlotWindow::ID_SCALE_LAST,
               QualityPlotWindow::onCmdScale),
    FXMAPFUNCS(SEL_UPDATE, QualityPlotWindow::ID_SCALE, QualityPlotWindow::ID_SCALE_LAST,
               QualityPlotWindow::onUpdScale),
    FXMAPFUNCS(SEL_COMMAND, QualityPlotWindow::ID_CHART, QualityPlotWindow::ID_CHART_LAST,
               QualityPlotWindow::onCmdChart),
    FXMAPFUNCS(SEL_UPDATE, QualityPlotWindow::ID_CHART, QualityPlotWindow::ID_CHART_LAST,
               QualityPlotWindow::onUpdChart),
};
FXIMPLEMENT(QualityPlotWindow, FXDialogBox, QualityPlotWindowMap, ARRAYNUMBER(QualityPlotWindowMap))

namespace {

constexpr int SCALE_FACTORS[] = {1, 2, 4, 8};

struct GroupEntry {
    QualityChart chart;
    const char* label;  // the "Image Type" radio
};

// The charts one window switches between.
std::vector<GroupEntry> groupOf(QualityChart chart) {
    switch (chart) {
        case QualityChart::RVALUES:
        case QualityChart::QVALUES:
            return {{QualityChart::RVALUES, "CRI and R-values"},
                    {QualityChart::QVALUES, "CQS and Q-values"}};
        case QualityChart::RF_HUE:
        case QualityChart::CHROMA_SHIFT:
        case QualityChart::HUE_SHIFT:
        case QualityChart::RF_SAMPLES:
            return {{QualityChart::RF_HUE, "Rf by hue values"},
                    {QualityChart::CHROMA_SHIFT, "Chroma shift values"},
                    {QualityChart::HUE_SHIFT, "Hue shift values"},
                    {QualityChart::RF_SAMPLES, "Color values"}};
        case QualityChart::CIELAB_R:
        case QualityChart::CIELAB_Q:
            return {{QualityChart::CIELAB_R, "L*a*b* for the R-values"},
                    {QualityChart::CIELAB_Q, "L*a*b* for the Q-values"}};
        case QualityChart::CRI_PATCHES:
        case QualityChart::CQS_PATCHES:
            return {{QualityChart::CRI_PATCHES, "CRI and R-values"},
                    {QualityChart::CQS_PATCHES, "CQS and Q-values"}};
        default:
            return {{chart, ""}};
    }
}

}  // namespace

std::string QualityPlotWindow::chartTitle(QualityChart chart, int width, int height) {
    const std::string metric = Vantrel::getTM30_version();
    std::string title;
    switch (chart) {
        case QualityChart::TM30_REPORT:
            title = "TM30 report";
            break;
        case QualityChart::RVALUES:
            title = "R-values plot";
            break;
        case QualityChart::QVALUES:
            title = "Q-values plot";
            break;
        case QualityChart::CIELAB_R:
            title = "L*a*b* for the R-values";
            break;
        case QualityChart::CIELAB_Q:
            title = "L*a*b* for the Q-values";
            break;
        case QualityChart::CAM02_UCS:
            title = "IES " + metric + " CAM02-UCS plot";
            break;
        case QualityChart::RG_RF:
            title = "IES " + metric + " Rg versus Rf plot";
            break;
        case QualityChart::GRAPHIC:
            title = metric + " color vector graphic";
            break;
        case QualityChart::TLCI:
            title = "TLCI-2012";
            break;
        case QualityChart::CRI_PATCHES:
            title = "CRI Colors";
            break;
        case QualityChart::CQS_PATCHES:
            title = "CQS Colors";
            break;
        case QualityChart::TM30_PATCHES:
            title = metric + " Colors";
            break;
        default:
            title = "Rf-values plot";
            break;
    }
    return ValueFormat::format("%s (%d x %d)", title.c_str(), width, height);
}

QualityPlotWindow::QualityPlotWindow(FXWindow* owner, const QualityPlotData& plotData,
                                     QualityChart shown, const QualityChartSettings& chartSettings,
                                     int width, int height)
    : FXDialogBox(owner, "", DECOR_ALL, 0, 0, width, height, 0, 0, 0, 0, 0, 0),
      data(plotData),
      chart(shown),
      settings(chartSettings),
      directory(FXSystem::getCurrentDirectory()) {
    FXMenuBar* bar = new FXMenuBar(this, LAYOUT_SIDE_TOP | LAYOUT_FILL_X);
    FXMenuPane* file = new FXMenuPane(this);
    panes.push_back(file);
    new FXMenuCommand(file, "&Quit", nullptr, this, FXDialogBox::ID_ACCEPT);
    new FXMenuTitle(bar, "File", nullptr, file);
    FXMenuPane* save = new FXMenuPane(this);
    panes.push_back(save);
    new FXMenuCommand(save, "&Save image to file...", nullptr, this, ID_SAVE_BMP);
    new FXMenuCommand(save, "Save as PDF...", nullptr, this, ID_SAVE_PDF);
    new FXMenuCommand(save, "Save as SVG...", nullptr, this, ID_SAVE_SVG);
    new FXMenuCommand(save, "Save as PNG...", nullptr, this, ID_SAVE_PNG);
    new FXMenuSeparator(save);
    for (int k = 0; k < 4; ++k) {
        new FXMenuRadio(
            save, ValueFormat::format("Scale image by %dx when saving", SCALE_FACTORS[k]).c_str(),
            this, ID_SCALE + k);
    }
    new FXMenuTitle(bar, "Save Image", nullptr, save);
    const std::vector<GroupEntry> entries = groupOf(chart);
    for (const GroupEntry& entry : entries) group.push_back(entry.chart);
    if (entries.size() > 1) {
        FXMenuPane* type = new FXMenuPane(this);
        panes.push_back(type);
        for (std::size_t k = 0; k < entries.size(); ++k)
            new FXMenuRadio(type, entries[k].label, this, ID_CHART + static_cast<int>(k));
        new FXMenuTitle(bar, "Image Type", nullptr, type);
    }
    canvas = new FXCanvas(this, this, ID_CANVAS, LAYOUT_FILL_X | LAYOUT_FILL_Y);
}

QualityPlotWindow::~QualityPlotWindow() {
    drawing.reset();
    for (FXMenuPane* pane : panes) delete pane;
}

void QualityPlotWindow::create() {
    FXDialogBox::create();
    render();
}

void QualityPlotWindow::updateTitle() {
    setTitle(chartTitle(chart, canvas->getWidth(), canvas->getHeight()).c_str());
}

void QualityPlotWindow::setChart(QualityChart shown) {
    chart = shown;
    if (id() != 0) {
        render();
        canvas->update();
    }
}

FoxCanvas* QualityPlotWindow::render() {
    int w = std::max(50, canvas->getWidth()), h = std::max(50, canvas->getHeight());
    QualityChartSettings shown = settings;
    const bool page = chart == QualityChart::TM30_REPORT;
    if (page) {
        // The page is drawn whole and shown at half its size: its small texts stay legible.
        shown.report.halfSize = false;
        shown.report.scaleFactor = 1;
        qualityChartSize(chart, shown, &w, &h);
    } else {
        shown.width = w;
        shown.height = h;
    }
    drawing = std::make_unique<FoxCanvas>(getApp(), w, h);
    if (qualityChartHasData(chart, data)) drawQualityChart(*drawing, chart, data, shown);
    drawing->finish();
    if (page) drawing->scaleImage(w / 2, h / 2);
    updateTitle();
    return drawing.get();
}

long QualityPlotWindow::onPaint(FXObject*, FXSelector, void*) {
    FXDCWindow dc(canvas);
    dc.setForeground(FXRGB(255, 255, 255));
    dc.fillRectangle(0, 0, canvas->getWidth(), canvas->getHeight());
    if (drawing) dc.drawImage(drawing->finish(), 0, 0);
    return 1;
}

long QualityPlotWindow::onConfigure(FXObject*, FXSelector, void*) {
    if (id() != 0) render();
    return 1;
}

bool QualityPlotWindow::saveChart(const std::string& path) {
    QualityChartSettings saved = settings;
    int w = std::max(50, canvas->getWidth()), h = std::max(50, canvas->getHeight());
    if (chart == QualityChart::TM30_REPORT) {
        saved.report.halfSize = false;
        saved.report.scaleFactor = scaleFactor == 8 ? 4 : scaleFactor;
        qualityChartSize(chart, saved, &w, &h);
    } else {
        saved.width = w * scaleFactor;
        saved.height = h * scaleFactor;
        saved.scale = scaleFactor;
        w = saved.width;
        h = saved.height;
    }
    std::string error;
    bool written = false;
    const ImageFileType type = imageFileTypeOfPath(path);
    if (type == ImageFileType::NONE) {
        FoxCanvas fox(getApp(), w, h);
        if (qualityChartHasData(chart, data)) drawQualityChart(fox, chart, data, saved);
        written = fox.saveBMP(path, &error);
    } else {
        const double page = chart != QualityChart::TM30_REPORT ? 0.0
                            : saved.report.paperSize == 2      ? 595.28
                                                               : 612.0;
        CairoCanvas cairo(type, w, h, type == ImageFileType::PDF ? page : 0.0);
        if (qualityChartHasData(chart, data)) drawQualityChart(cairo, chart, data, saved);
        written = cairo.save(path, &error);
    }
    if (!written) {
        UserDialogs::error(this, "Write error",
                           "File \"%s\" could not be written, try a different name.", path.c_str());
    }
    return written;
}

long QualityPlotWindow::onCmdSave(FXObject*, FXSelector sel, void*) {
    const int which = FXSELID(sel) - ID_SAVE_BMP;
    const char* extensions[4] = {".bmp", ".pdf", ".svg", ".png"};
    const std::string name =
        data.name + "_" + qualityChartFileTag(chart, settings.report) + extensions[which];
    FXString path;
    if (!UserDialogs::chooseFile(this, "Save plot", FXString("*") + extensions[which], directory,
                                 name.c_str(), false, &path))
        return 1;
    directory = FXPath::directory(path);
    std::string chosen = path.text();
    if (comparecase(FXPath::extension(path), extensions[which] + 1) != 0)
        chosen += extensions[which];
    saveChart(chosen);
    return 1;
}

long QualityPlotWindow::onCmdScale(FXObject*, FXSelector sel, void*) {
    scaleFactor = SCALE_FACTORS[FXSELID(sel) - ID_SCALE];
    return 1;
}

long QualityPlotWindow::onUpdScale(FXObject* sender, FXSelector sel, void*) {
    const bool on = SCALE_FACTORS[FXSELID(sel) - ID_SCALE] == scaleFactor;
    sender->handle(this, FXSEL(SEL_COMMAND, on ? ID_CHECK : ID_UNCHECK), nullptr);
    return 1;
}

long QualityPlotWindow::onCmdChart(FXObject*, FXSelector sel, void*) {
    const std::size_t k = static_cast<std::size_t>(FXSELID(sel) - ID_CHART);
    if (k < group.size()) setChart(group[k]);
    return 1;
}

long QualityPlotWindow::onUpdChart(FXObject* sender, FXSelector sel, void*) {
    const std::size_t k = static_cast<std::size_t>(FXSELID(sel) - ID_CHART);
    const bool on = k < group.size() && group[k] == chart;
    sender->handle(this, FXSEL(SEL_COMMAND, on ? ID_CHECK : ID_UNCHECK), nullptr);
    return 1;
}
