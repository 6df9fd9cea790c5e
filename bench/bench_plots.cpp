// A full redraw of the chromaticity diagram at 800 x 800: layout, colour fill, loci, CCT lines,
// markers, ticks and one point, rendered to the display's image. Needs an X display (run under
// xvfb-run); without one it says so and measures nothing.
#include <benchmark/benchmark.h>
#include <fx.h>

#include <cstdio>
#include <cstdlib>

#include "CIE_Plot.h"

namespace {
FXMainWindow* window = nullptr;

void BM_cieDiagramRedraw800(benchmark::State& state) {
    CIE_Plot plot(window, 1);
    CIE_PlotInput in;
    in.diagramType = static_cast<int>(state.range(0));
    in.locusType = 3;
    in.showWavelengthMarkers = true;
    in.show100KLines = true;
    in.x = {0.45};
    in.y = {0.41};
    plot.plotPoints(in);
    plot.setPlotBounds(in.diagramType, false, false);
    plot.makeImage(800, 800);  // the fill table of the type is made once, before timing
    for (auto _ : state) {
        plot.plotPoints(in);
        benchmark::DoNotOptimize(plot.makeImage(800, 800));
        window->getApp()->flush(true);  // the image reaches the X server
    }
}
BENCHMARK(BM_cieDiagramRedraw800)->Arg(0)->Arg(2)->Arg(3)->Unit(benchmark::kMillisecond);
}  // namespace

int main(int argc, char** argv) {
    if (!std::getenv("DISPLAY")) {
        std::printf("bench_plots needs an X display: run it under xvfb-run -a\n");
        return 0;
    }
    FXApp app("LumivarBench", "zwk7");
    int fxArgc = 1;
    char name[] = "bench_plots";
    char* fxArgv[] = {name, nullptr};
    app.init(fxArgc, fxArgv);
    app.create();
    window = new FXMainWindow(&app, "bench", nullptr, nullptr, DECOR_ALL, 0, 0, 400, 300);
    window->create();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
