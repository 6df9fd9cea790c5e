// Per-call cost of the engine's hot path on a white LED-like spectrum.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "Vantrel.h"

namespace {
// Blue pump at 450 nm and a broad phosphor band at 570 nm: about 5000 K.
std::vector<double> whiteLed() {
    std::vector<double> s(Vantrel::NUM_GRID_POINTS);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = 360.0 + 2.0 * i;
        const double blue = (nm - 450.0) / 10.0;
        const double phosphor = (nm - 570.0) / 55.0;
        s[i] = 0.6 * std::exp(-0.5 * blue * blue) + std::exp(-0.5 * phosphor * phosphor);
    }
    return s;
}

void BM_calcCCT(benchmark::State& state) {
    const bool fast = state.range(0) != 0;
    const std::vector<double> s = whiteLed();
    Vantrel v;
    for (auto _ : state) {
        v.calcCCT(s.data(), fast);
        benchmark::DoNotOptimize(v.getCCT());
    }
    state.SetLabel(fast ? "fast" : "exact");
}
BENCHMARK(BM_calcCCT)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// color() without and with the Colour Quality Scale (Arg 0 / 1); R values always run.
void BM_color(benchmark::State& state) {
    const bool doQ = state.range(0) != 0;
    const std::vector<double> s = whiteLed();
    Vantrel v;
    v.calcCCT(s.data(), false);
    for (auto _ : state) {
        v.color(s.data(), false, doQ, false, true, false);
        benchmark::DoNotOptimize(v.getXcoord());
    }
    state.SetLabel(doQ ? "with CQS" : "without CQS");
}
BENCHMARK(BM_color)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

void BM_defineCIELabForRValues(benchmark::State& state) {
    const std::vector<double> s = whiteLed();
    Vantrel v;
    v.calcAll(s.data(), false, false);
    for (auto _ : state) {
        v.defineCIELabForRValues(s.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(BM_defineCIELabForRValues)->Unit(benchmark::kMicrosecond);

void BM_calcAll(benchmark::State& state) {
    const std::vector<double> s = whiteLed();
    Vantrel v;
    for (auto _ : state) {
        v.calcAll(s.data(), false, false);
        benchmark::DoNotOptimize(v.getCCT());
    }
}
BENCHMARK(BM_calcAll)->Unit(benchmark::kMicrosecond);

// IES TM-30-18 on the 99 CES, with CCT and Duv of a prior calcAll as the program runs it.
void BM_calculate_TM30(benchmark::State& state) {
    const std::vector<double> s = whiteLed();
    Vantrel v;
    v.calcAll(s.data(), false, false);
    const double duv = v.getDeltaUVPlanck(), cct = v.getCCT();
    for (auto _ : state) {
        v.calculate_TM30(duv, cct, s.data());
        benchmark::DoNotOptimize(v.get_TM30_Rf());
    }
}
BENCHMARK(BM_calculate_TM30)->Unit(benchmark::kMicrosecond);

// One full metric set of a spectrum: exact CCT, CRI with R1-R15, CQS, gamut areas, dominant
// wavelength, TLCI-2012 and TM-30-18, as a batch study asks of every mix.
void BM_fullMetricSet(benchmark::State& state) {
    const std::vector<double> s = whiteLed();
    Vantrel v;
    for (auto _ : state) {
        v.calcAll(s.data(), false, false);
        const double cct = v.getCCT(), duv = v.getDeltaUVPlanck();
        benchmark::DoNotOptimize(v.getQa_TLCI_2012(s.data(), nullptr, cct));
        v.calculate_TM30(duv, cct, s.data());
        benchmark::DoNotOptimize(v.get_TM30_Rf());
    }
}
BENCHMARK(BM_fullMetricSet)->Unit(benchmark::kMicrosecond);

void BM_construct(benchmark::State& state) {
    for (auto _ : state) {
        Vantrel v;
        benchmark::DoNotOptimize(v.getCCT());
    }
}
BENCHMARK(BM_construct)->Unit(benchmark::kMicrosecond);

// TLCI-2012 with the reference luminaire of the LED's CCT (tables filled anew on every call).
void BM_TLCI(benchmark::State& state) {
    const std::vector<double> s = whiteLed();
    Vantrel v;
    v.calcAll(s.data(), false, false);
    const double cct = v.getCCT();
    for (auto _ : state) benchmark::DoNotOptimize(v.getQa_TLCI_2012(s.data(), nullptr, cct));
}
BENCHMARK(BM_TLCI)->Unit(benchmark::kMicrosecond);
}  // namespace

BENCHMARK_MAIN();
