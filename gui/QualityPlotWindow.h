// The window of a quality chart: the R-value and Q-value bars, the hue-bin charts, the colour
// planes, the TM-30 graphic, Rg against Rf, the report page and the TLCI chart. It shows the
// chart at the window's size and saves it as BMP (as drawn on screen) or as PDF, SVG or PNG.
#ifndef LUMIVAR_GUI_QUALITYPLOTWINDOW_H
#define LUMIVAR_GUI_QUALITYPLOTWINDOW_H

#include <fx.h>

#include <memory>
#include <string>
#include <vector>

#include "FoxCanvas.h"
#include "QualityCharts.h"

class QualityPlotWindow : public FXDialogBox {
    FXDECLARE(QualityPlotWindow)

  public:
    enum {
        ID_CANVAS = FXDialogBox::ID_LAST,
        ID_SAVE_BMP,
        ID_SAVE_PDF,
        ID_SAVE_SVG,
        ID_SAVE_PNG,
        ID_SCALE,  // four radios: 1x, 2x, 4x, 8x
        ID_SCALE_LAST = ID_SCALE + 3,
        ID_CHART,  // one radio per chart of the window's group
        ID_CHART_LAST = ID_CHART + 15,
        ID_LAST
    };

    // data: the spectrum's results, copied. chart: the chart shown first; the window offers
    // the other charts of its kind (R and Q bars, the TM-30 bars, the two CIELAB planes).
    QualityPlotWindow(FXWindow* owner, const QualityPlotData& data, QualityChart chart,
                      const QualityChartSettings& settings, int width, int height);
    ~QualityPlotWindow() override;
    void create() override;

    long onPaint(FXObject*, FXSelector, void*);
    long onConfigure(FXObject*, FXSelector, void*);
    long onCmdSave(FXObject*, FXSelector, void*);
    long onCmdScale(FXObject*, FXSelector, void*);
    long onUpdScale(FXObject*, FXSelector, void*);
    long onCmdChart(FXObject*, FXSelector, void*);
    long onUpdChart(FXObject*, FXSelector, void*);

    QualityChart getChart() const { return chart; }
    void setChart(QualityChart shown);
    // Draws the chart again at the canvas size and gives its canvas (pixels readable).
    FoxCanvas* render();
    // Writes the chart to path: BMP as the window draws it, PDF, SVG or PNG through Cairo, at
    // the scale factor chosen in the menu. False after the "Write error" box.
    bool saveChart(const std::string& path);
    int getScaleFactor() const { return scaleFactor; }
    void setScaleFactor(int factor) { scaleFactor = factor; }
    // The window's title for a chart and a size.
    static std::string chartTitle(QualityChart chart, int width, int height);

  protected:
    QualityPlotWindow() {}

  private:
    void updateTitle();

    QualityPlotData data;
    QualityChart chart = QualityChart::RVALUES;
    QualityChartSettings settings;
    std::vector<QualityChart> group;  // the charts the "Image Type" menu offers
    FXCanvas* canvas = nullptr;
    std::unique_ptr<FoxCanvas> drawing;
    std::vector<FXMenuPane*> panes;
    int scaleFactor = 1;
    FXString directory;
};

#endif  // LUMIVAR_GUI_QUALITYPLOTWINDOW_H
