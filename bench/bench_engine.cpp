// Per-call cost of the engine's hot path on a white LED-like spectrum.
#include <benchmark/benchmark.h>

#include <cmath>
#include <vector>

#include "MixEvaluator.h"
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

// Up to eight LED channels: colour peaks and two whites.
std::vector<std::vector<double>> ledChannels(int k) {
    const double peaks[8][2] = {{450, 10}, {630, 9},  {530, 15}, {0, 0},
                                {590, 7},  {505, 14}, {660, 10}, {0, 0}};
    std::vector<std::vector<double>> out;
    for (int c = 0; c < k; ++c) {
        std::vector<double> s = whiteLed();
        if (peaks[c][1] > 0) {
            for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
                const double z = (360.0 + 2.0 * i - peaks[c][0]) / peaks[c][1];
                s[i] = std::exp(-0.5 * z * z);
            }
        } else if (c == 7) {
            for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) s[i] *= 0.5 + i / 300.0;
        }
        out.push_back(s);
    }
    return out;
}

// A white-ish mix of k channels whose amounts change a little on every call.
struct MixBench {
    explicit MixBench(int k) : spectra(ledChannels(k)), amounts(k, 0.3) {
        amounts[0] = 0.15;
        if (k > 3) amounts[3] = 1.0;
        if (k > 7) amounts[7] = 1.0;
        if (k == 3) amounts = {0.2, 0.25, 0.45};
        for (const auto& s : spectra) pointers.push_back(s.data());
    }
    const double* next() {
        amounts[1] *= (++n & 1) ? 1.001 : 1.0 / 1.001;
        return amounts.data();
    }
    std::vector<std::vector<double>> spectra;
    std::vector<const double*> pointers;
    std::vector<double> amounts;
    int n = 0;
};

// x, y, u'v', CCT and Duv of a mix; Arg 0 the channel count. The fast screen uses the
// polynomial locus and the fast Duv of combination runs.
void BM_mixScreen(benchmark::State& state) {
    MixBench mix(static_cast<int>(state.range(0)));
    MixEvaluator ev(mix.pointers);
    for (auto _ : state) benchmark::DoNotOptimize(ev.screen(mix.next(), true).duv);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_mixScreen)->Arg(3)->Arg(5)->Arg(8)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_mixScreen)
    ->Arg(3)
    ->Arg(5)
    ->Arg(8)
    ->Threads(2)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

// The same with the exact CCT search and the exact Planck Duv.
void BM_mixScreenExact(benchmark::State& state) {
    MixBench mix(static_cast<int>(state.range(0)));
    MixEvaluator ev(mix.pointers);
    for (auto _ : state) benchmark::DoNotOptimize(ev.screen(mix.next(), false).duv);
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_mixScreenExact)->Arg(3)->Arg(5)->Arg(8)->Unit(benchmark::kMicrosecond);

// Exact CCT, Duv, CRI with R1-R15, CQS, gamut and TM-30 of a mix (TLCI not asked for).
void BM_mixEvaluate(benchmark::State& state) {
    MixBench mix(static_cast<int>(state.range(0)));
    MixEvaluator ev(mix.pointers);
    MixRequest request;
    MixMetrics out;
    for (auto _ : state) {
        ev.evaluate(mix.next(), request, &out);
        benchmark::DoNotOptimize(out.Rf);
    }
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(BM_mixEvaluate)->Arg(3)->Arg(5)->Arg(8)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_mixEvaluate)
    ->Arg(3)
    ->Arg(5)
    ->Arg(8)
    ->Threads(2)
    ->UseRealTime()
    ->Unit(benchmark::kMicrosecond);

// Building the evaluator: the per-channel sums of every sample.
void BM_mixEvaluatorBuild(benchmark::State& state) {
    MixBench mix(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        MixEvaluator ev(mix.pointers);
        benchmark::DoNotOptimize(ev.numChannels());
    }
}
BENCHMARK(BM_mixEvaluatorBuild)->Arg(5)->Unit(benchmark::kMicrosecond);

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
