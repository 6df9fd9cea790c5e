// Time to draw the full TM-30 report page (1200 pixels wide, US letter) as PDF and as PNG, from
// results already computed, and with the computation of the spectrum included.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "CairoCanvas.h"
#include "TM30ReportPage.h"

namespace {

std::vector<double> ledSpectrum() {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = 360 + 2 * i;
        s[i] = std::exp(-0.5 * std::pow((nm - 452) / 10, 2)) +
               0.9 * std::exp(-0.5 * std::pow((nm - 565) / 45, 2));
    }
    return s;
}

void renderReport(benchmark::State& state, ImageFileType type, bool compute) {
    const std::vector<double> spectrum = ledSpectrum();
    QualityPlotData data;
    gatherQualityPlotData(spectrum.data(), "led", &data);
    TM30ReportFields fields;
    fields.note = "A note of a few words for the box.";
    const TM30ReportOptions options;
    int w, h;
    getTM30ReportPageSize(options, &w, &h);
    for (auto _ : state) {
        if (compute) gatherQualityPlotData(spectrum.data(), "led", &data);
        CairoCanvas canvas(type, w, h, type == ImageFileType::PDF ? 612.0 : 0.0);
        makeTM30Report(canvas, data, fields, options);
        benchmark::DoNotOptimize(canvas.finish().size());
    }
}

void BM_TM30ReportPDF(benchmark::State& state) { renderReport(state, ImageFileType::PDF, false); }
void BM_TM30ReportPNG(benchmark::State& state) { renderReport(state, ImageFileType::PNG, false); }
void BM_TM30ReportSVG(benchmark::State& state) { renderReport(state, ImageFileType::SVG, false); }
void BM_TM30ReportPDFWithCalculation(benchmark::State& state) {
    renderReport(state, ImageFileType::PDF, true);
}

}  // namespace

BENCHMARK(BM_TM30ReportPDF)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TM30ReportPNG)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TM30ReportSVG)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_TM30ReportPDFWithCalculation)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
