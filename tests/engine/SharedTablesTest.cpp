// Engines share their reference tables: built once, read by every engine on every thread. These
// tests catch a table that is written after it is built (one engine's observer leaking into
// another's results) and engines that are not safe to build and run on two threads at once.
#include <gtest/gtest.h>

#include <cmath>
#include <thread>
#include <vector>

#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

// Everything a batch run reads of one spectrum, for comparison bit for bit.
struct Snapshot {
    double cct, duv, domWL, Ra, R9, Qa, Rf, Rg, tlci, x, y;
    bool operator==(const Snapshot& o) const {
        return cct == o.cct && duv == o.duv && domWL == o.domWL && Ra == o.Ra && R9 == o.R9 &&
               Qa == o.Qa && Rf == o.Rf && Rg == o.Rg && tlci == o.tlci && x == o.x && y == o.y;
    }
};

std::vector<double> gaussianPair(double nm1, double nm2, double ratio) {
    std::vector<double> s(N);
    for (int i = 0; i < N; ++i) {
        const double nm = 360.0 + 2.0 * i;
        const double a = (nm - nm1) / 12.0, b = (nm - nm2) / 45.0;
        s[i] = ratio * std::exp(-0.5 * a * a) + std::exp(-0.5 * b * b);
    }
    return s;
}

Snapshot snapshot(Vantrel& v, const std::vector<double>& s) {
    v.calcAll(s.data(), false, false);
    double R[Vantrel::NUM_SAMPLES], Q[Vantrel::NUM_SAMPLES];
    v.returnRvalues(R);
    v.returnQvalues(Q);
    const double cct = v.getCCT(), duv = v.getDeltaUVPlanck();
    const double tlci = v.getQa_TLCI_2012(s.data(), nullptr, cct);
    v.calculate_TM30(duv, cct, s.data());
    return {cct,  duv,           v.getDomWL(), R[0], R[9], Q[0], v.get_TM30_Rf(), v.get_TM30_Rg(),
            tlci, v.getXcoord(), v.getYcoord()};
}

// Observer and spectrum of each case; every observer has its own locus and CCT tables.
struct Case {
    int observer;
    double blueNm, phosphorNm, ratio;
};
const Case CASES[] = {
    {0, 450, 570, 0.6}, {1, 445, 600, 0.3}, {2, 460, 560, 0.9},
    {3, 450, 620, 0.2}, {0, 430, 540, 1.5}, {3, 470, 590, 0.5},
};

std::vector<Snapshot> runCases(bool switchObserverBetween) {
    Vantrel v;
    std::vector<Snapshot> out;
    for (const Case& c : CASES) {
        if (switchObserverBetween) v.setCIE_XYZ_bar_type((c.observer + 1) % 4);
        v.setCIE_XYZ_bar_type(c.observer);
        out.push_back(snapshot(v, gaussianPair(c.blueNm, c.phosphorNm, c.ratio)));
    }
    return out;
}
}  // namespace

TEST(VantrelSharedTables, AnObserverChosenOnOneEngineDoesNotReachAnother) {
    Vantrel first, second;
    first.setCIE_XYZ_bar_type(3);
    const std::vector<double> s = gaussianPair(450, 570, 0.6);
    const Snapshot before = snapshot(second, s);
    first.calcAll(s.data(), false, false);
    second.setCIE_XYZ_bar_type(0);
    EXPECT_TRUE(snapshot(second, s) == before);
    // And the engine on the 10° observer really reads its own tables.
    EXPECT_NE(snapshot(first, s).cct, before.cct);
}

TEST(VantrelSharedTables, SwitchingObserversBackAndForthGivesTheSameResults) {
    const std::vector<Snapshot> plain = runCases(false);
    const std::vector<Snapshot> switched = runCases(true);
    ASSERT_EQ(plain.size(), switched.size());
    for (size_t k = 0; k < plain.size(); ++k) EXPECT_TRUE(plain[k] == switched[k]) << "case " << k;
}

TEST(VantrelSharedTables, EnginesBuiltOnTwoThreadsAtOnceGiveTheResultsOfOneThread) {
    const std::vector<Snapshot> expected = runCases(false);
    constexpr int THREADS = 2;
    constexpr int ROUNDS = 3;  // each round builds fresh engines while the other thread runs
    std::vector<std::vector<Snapshot>> got(THREADS * ROUNDS);
    std::vector<std::thread> workers;
    for (int t = 0; t < THREADS; ++t) {
        workers.emplace_back([t, &got] {
            for (int r = 0; r < ROUNDS; ++r) got[t * ROUNDS + r] = runCases(r % 2 == 1);
        });
    }
    for (std::thread& w : workers) w.join();
    for (size_t k = 0; k < got.size(); ++k) {
        ASSERT_EQ(got[k].size(), expected.size());
        for (size_t c = 0; c < expected.size(); ++c)
            EXPECT_TRUE(got[k][c] == expected[c]) << "run " << k << " case " << c;
    }
}
