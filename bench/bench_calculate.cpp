// One whole Calculate of a five-LED mix without the window: the row checks, each LED alone for
// the diagram, the rebuilt colour LEDs, the sum, both engines and all 151 fields.
#include <benchmark/benchmark.h>

#include <vector>

#include "CalculateModel.h"

namespace {
// Blue, green and red colour LEDs at entered wavelengths, and two whites by lumens.
std::vector<ledInputDataStruct> fiveLedRows(int numRows) {
    std::vector<ledInputDataStruct> rows(numRows);
    const struct {
        int row;
        const char* lDom;
        const char* lumens;
    } mix[] = {
        {1, "460", "50"}, {3, "530", "200"}, {6, "625", "150"}, {11, "", "800"}, {13, "", "400"}};
    for (const auto& m : mix) {
        rows[m.row].checked = true;
        rows[m.row].lDom = m.lDom;
        rows[m.row].lumens = m.lumens;
    }
    return rows;
}

void BM_calculateFiveLedMix(benchmark::State& state) {
    CalculateModel model;
    const std::vector<ledInputDataStruct> input =
        fiveLedRows(static_cast<int>(model.spectra().size()));
    const MixSettings settings;
    const FieldFormat format;
    for (auto _ : state) {
        std::vector<ledInputDataStruct> rows = input;
        CalculateOutcome outcome = model.calculateMix(rows, settings, nullptr, format);
        benchmark::DoNotOptimize(outcome.fields.data());
    }
}
BENCHMARK(BM_calculateFiveLedMix)->Unit(benchmark::kMillisecond);

// The results of a built spectrum alone (direct input, black body, daylight).
void BM_calculateSpectrum(benchmark::State& state) {
    CalculateModel model;
    double spectrum[Vantrel::NUM_GRID_POINTS_IR];
    blackBodySpectrum(3000.0, Vantrel::NUM_GRID_POINTS, spectrum);
    const MixSettings settings;
    const FieldFormat format;
    for (auto _ : state) {
        CalculateOutcome outcome = model.calculateSpectrum(spectrum, settings, format);
        benchmark::DoNotOptimize(outcome.fields.data());
    }
}
BENCHMARK(BM_calculateSpectrum)->Unit(benchmark::kMillisecond);
}  // namespace

BENCHMARK_MAIN();
