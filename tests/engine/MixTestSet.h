// Channel sets and amounts for the mix evaluator tests: LED mixes, narrow peaks, near-locus and
// far-off-locus points, channels with energy outside 380-780 nm, a filter, two observers. Each
// mix also gives the mixed spectrum the way the Calculate pipeline builds it (Σ a·S, then the
// filter), the reference path the evaluator must agree with.
#ifndef LUMIVAR_TESTS_ENGINE_MIXTESTSET_H
#define LUMIVAR_TESTS_ENGINE_MIXTESTSET_H

#include <cmath>
#include <string>
#include <vector>

#include "Vantrel.h"

namespace mix_test {

constexpr int N = Vantrel::NUM_GRID_POINTS;
using Spectrum = std::vector<double>;

inline double nmAt(int i) { return 360.0 + 2.0 * i; }

inline Spectrum peak(double nm0, double sigma, double height = 1.0) {
    Spectrum s(N);
    for (int i = 0; i < N; ++i) {
        const double z = (nmAt(i) - nm0) / sigma;
        s[i] = height * std::exp(-0.5 * z * z);
    }
    return s;
}

// Blue pump and a broad phosphor: a white LED.
inline Spectrum whiteLed(double phosphorNm, double blueShare) {
    Spectrum s = peak(450, 10, blueShare), p = peak(phosphorNm, 55);
    for (int i = 0; i < N; ++i) s[i] += p[i];
    return s;
}

struct ChannelSet {
    std::string name;
    int observer;
    std::vector<Spectrum> channels;
    Spectrum filter;  // empty: none
    std::vector<std::vector<double>> amounts;
};

// Amounts from a fixed linear congruential sequence, so every run checks the same mixes.
inline std::vector<std::vector<double>> amountsFor(int k, int count, unsigned seed) {
    std::vector<std::vector<double>> out;
    for (int m = 0; m < count; ++m) {
        std::vector<double> a(k);
        for (int c = 0; c < k; ++c) {
            seed = seed * 1103515245u + 12345u;
            a[c] = 0.05 + static_cast<double>((seed >> 8) % 10000) / 5000.0;
        }
        out.push_back(a);
    }
    return out;
}

inline std::vector<ChannelSet> channelSets() {
    std::vector<ChannelSet> sets;
    // Colour LEDs with a white: near the locus and, with a strong colour, off it.
    sets.push_back({"led5",
                    0,
                    {peak(450, 10), peak(505, 14), peak(530, 15), peak(590, 7), peak(630, 9)},
                    {},
                    amountsFor(5, 8, 1)});
    sets.back().amounts.push_back({0.2, 0.0, 0.0, 0.0, 1.0});  // deep red: Duv far beyond 0.1
    sets.back().amounts.push_back({0.0, 0.0, 1.0, 0.0, 0.0});  // green alone
    // Two whites and a red, close to the Planck locus; the 2015 10° observer.
    sets.push_back({"whites3",
                    3,
                    {whiteLed(560, 0.8), whiteLed(610, 0.3), peak(660, 10)},
                    {},
                    amountsFor(3, 7, 7)});
    sets.back().amounts.push_back({1.0, 0.0, 0.0});
    // Narrow (laser-like) peaks.
    sets.push_back(
        {"narrow3", 0, {peak(405, 1.0), peak(520, 1.5), peak(638, 1.2)}, {}, amountsFor(3, 6, 11)});
    sets.back().amounts.push_back({0.0, 0.0, 1.0});  // beyond the red end: 1000 K
    sets.back().amounts.push_back({1.0, 0.0, 0.0});  // violet
    // Energy below 380 nm and above 780 nm, a white, through a filter.
    {
        Spectrum filter(N);
        for (int i = 0; i < N; ++i)
            filter[i] = 0.35 + 0.6 * std::exp(-0.5 * std::pow((nmAt(i) - 560) / 120, 2));
        sets.push_back({"outside8",
                        1,
                        {peak(365, 6), whiteLed(570, 0.6), peak(800, 12), peak(470, 11),
                         peak(545, 18), peak(600, 8), peak(680, 12), peak(820, 5)},
                        filter,
                        amountsFor(8, 8, 23)});
    }
    return sets;
}

inline int numMixes(const std::vector<ChannelSet>& sets) {
    int n = 0;
    for (const ChannelSet& s : sets) n += static_cast<int>(s.amounts.size());
    return n;
}

inline std::vector<const double*> pointers(const ChannelSet& set) {
    std::vector<const double*> p;
    for (const Spectrum& s : set.channels) p.push_back(s.data());
    return p;
}

// The mixed spectrum as the Calculate pipeline forms it: Σ a·S, then times the filter.
inline Spectrum mixed(const ChannelSet& set, const std::vector<double>& a) {
    Spectrum s(N, 0.0);
    for (size_t c = 0; c < set.channels.size(); ++c) {
        for (int i = 0; i < N; ++i) s[i] += a[c] * set.channels[c][i];
    }
    if (!set.filter.empty()) {
        for (int i = 0; i < N; ++i) s[i] *= set.filter[i];
    }
    return s;
}

}  // namespace mix_test

#endif  // LUMIVAR_TESTS_ENGINE_MIXTESTSET_H
