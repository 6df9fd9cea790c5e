// MixEvaluator against the engine run on the mixed spectrum, its bad inputs, and its use from
// two threads at once.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <thread>
#include <vector>

#include "MixEvaluator.h"
#include "MixTestSet.h"

namespace {
using mix_test::ChannelSet;
using mix_test::Spectrum;
constexpr int NS = Vantrel::NUM_SAMPLES;
constexpr int NB = Vantrel::TM30_NUM_BINS;

// The same quantities summed in another order (channel sums instead of a summed spectrum):
// a few units in the last place, far below this.
constexpr double REL_TOL = 1e-9;
// Values that are differences of numbers near 100 (R, hue shifts) keep an absolute error of a
// few 1e-14 where they pass through zero.
constexpr double ABS_TOL = 1e-11;

bool close(double a, double b) {
    if (a == b) return true;
    return std::fabs(a - b) <= REL_TOL * std::max(std::fabs(a), std::fabs(b)) + ABS_TOL;
}

// What the engine gives for the mixed spectrum, in the evaluator's record.
MixMetrics engineResults(const ChannelSet& set, const std::vector<double>& a, bool fast) {
    const Spectrum s = mix_test::mixed(set, a);
    Vantrel v;
    v.setCIE_XYZ_bar_type(set.observer);
    v.calcAll(s.data(), fast, false);
    MixMetrics r;
    r.screen = {
        true,       v.getXcoord(),        v.getYcoord(), v.getUcoord_1976(), v.getVcoord_1976(),
        v.getCCT(), v.getDeltaUVPlanck(), v.getLumens(), v.getWattsVis()};
    r.duvUpVp = v.getDeltaUpVpPlanck();
    v.returnRvalues(r.R);
    v.returnQvalues(r.Q);
    r.gamutCRI[0] = v.get_gamut_CRI_upvp();
    r.gamutCRI[1] = v.get_gamut_CRI_uv();
    r.gamutCQS[0] = v.get_gamut_CQS_upvp();
    r.gamutCQS[1] = v.get_gamut_CQS_uv();
    r.gamutD65[0] = v.get_gamut_D65_upvp();
    r.gamutD65[1] = v.get_gamut_D65_uv();
    r.gai[0] = v.get_GAI_upvp();
    r.gai[1] = v.get_GAI_uv();
    r.tlciQa = v.getQa_TLCI_2012(s.data(), nullptr, v.getCCT());
    v.calculate_TM30(v.getDeltaUVPlanck(), v.getCCT(), s.data());
    r.tm30Error = v.get_TM30Error();
    r.Rf = v.get_TM30_Rf();
    r.Rg = v.get_TM30_Rg();
    r.RfSkin = v.get_TM30_Rf_skin();
    v.getTM30RfByHue(r.RfByHue);
    v.getTM30HueShifts(r.hueShift);
    v.getTM30ChromaShiftsAsPercent(r.chromaShiftPct);
    return r;
}

// Every value of two records, named, for one failure line per difference.
std::vector<std::pair<std::string, std::pair<double, double>>> pairs(const MixMetrics& a,
                                                                     const MixMetrics& b) {
    std::vector<std::pair<std::string, std::pair<double, double>>> out;
    auto add = [&](const std::string& name, double x, double y) { out.push_back({name, {x, y}}); };
    add("x", a.screen.x, b.screen.x);
    add("y", a.screen.y, b.screen.y);
    add("up", a.screen.up, b.screen.up);
    add("vp", a.screen.vp, b.screen.vp);
    add("CCT", a.screen.cct, b.screen.cct);
    add("Duv", a.screen.duv, b.screen.duv);
    add("Du'v'", a.duvUpVp, b.duvUpVp);
    add("lumens", a.screen.lumens, b.screen.lumens);
    add("watts", a.screen.wattsVis, b.screen.wattsVis);
    for (int k = 0; k < NS; ++k) add("R" + std::to_string(k), a.R[k], b.R[k]);
    for (int k = 0; k < NS; ++k) add("Q" + std::to_string(k), a.Q[k], b.Q[k]);
    for (int p = 0; p < 2; ++p) {
        const std::string plane = p == 0 ? "[u'v']" : "[uv]";
        add("gamutCRI" + plane, a.gamutCRI[p], b.gamutCRI[p]);
        add("gamutCQS" + plane, a.gamutCQS[p], b.gamutCQS[p]);
        add("gamutD65" + plane, a.gamutD65[p], b.gamutD65[p]);
        add("GAI" + plane, a.gai[p], b.gai[p]);
    }
    add("TM-30 refused", a.tm30Error, b.tm30Error);
    add("Rf", a.Rf, b.Rf);
    add("Rg", a.Rg, b.Rg);
    add("Rf,skin", a.RfSkin, b.RfSkin);
    for (int j = 0; j < NB; ++j) {
        add("Rf,h" + std::to_string(j), a.RfByHue[j], b.RfByHue[j]);
        add("Rhs,h" + std::to_string(j), a.hueShift[j], b.hueShift[j]);
        add("Rcs,h" + std::to_string(j), a.chromaShiftPct[j], b.chromaShiftPct[j]);
    }
    add("TLCI", a.tlciQa, b.tlciQa);
    return out;
}

MixRequest everything(bool fast) {
    MixRequest request;
    request.fastCCT = fast;
    request.tlci = true;
    return request;
}

bool hasNaN(const MixMetrics& r) {
    for (const auto& p : pairs(r, r)) {
        if (std::isnan(p.second.first)) return true;
    }
    return false;
}
}  // namespace

TEST(MixEvaluator, EveryMixMatchesTheEngineOnItsMixedSpectrum) {
    const std::vector<ChannelSet> sets = mix_test::channelSets();
    ASSERT_GE(mix_test::numMixes(sets), 30);
    int refused = 0, atCctLimit = 0;
    for (const ChannelSet& set : sets) {
        MixEvaluator ev(mix_test::pointers(set), set.filter.empty() ? nullptr : set.filter.data(),
                        set.observer);
        for (size_t m = 0; m < set.amounts.size(); ++m) {
            for (bool fast : {false, true}) {
                const MixMetrics expected = engineResults(set, set.amounts[m], fast);
                MixMetrics got;
                ev.evaluate(set.amounts[m].data(), everything(fast), &got);
                EXPECT_TRUE(got.screen.valid);
                for (const auto& p : pairs(got, expected)) {
                    EXPECT_TRUE(close(p.second.first, p.second.second))
                        << set.name << " mix " << m << (fast ? " fast " : " exact ") << p.first
                        << ": evaluator " << p.second.first << ", engine " << p.second.second;
                }
                refused += expected.tm30Error;
                atCctLimit += expected.screen.cct == Vantrel::MIN_CCT;
            }
        }
    }
    // The set reaches the refusals and the search limits it is meant to reach.
    EXPECT_GE(refused, 4);
    EXPECT_GE(atCctLimit, 2);
}

TEST(MixEvaluator, TheScreenMatchesTheEngineFastAndExact) {
    for (const ChannelSet& set : mix_test::channelSets()) {
        MixEvaluator ev(mix_test::pointers(set), set.filter.empty() ? nullptr : set.filter.data(),
                        set.observer);
        for (const std::vector<double>& a : set.amounts) {
            const Spectrum s = mix_test::mixed(set, a);
            Vantrel v;
            v.setCIE_XYZ_bar_type(set.observer);
            // Fast: the polynomial locus and the fast Duv of combination runs.
            v.calcCCT(s.data(), true);
            const MixScreen fast = ev.screen(a.data(), true);
            EXPECT_TRUE(close(fast.cct, v.getCCT())) << set.name;
            EXPECT_TRUE(close(
                fast.duv, v.getDuvFromCCTxy_100Kto40kK(v.getCCT(), v.getXcoord(), v.getYcoord())))
                << set.name;
            // Exact: what calcAll gives.
            v.calcAll(s.data(), false, false);
            const MixScreen exact = ev.screen(a.data(), false);
            const double expected[] = {v.getXcoord(),      v.getYcoord(),  v.getUcoord_1976(),
                                       v.getVcoord_1976(), v.getCCT(),     v.getDeltaUVPlanck(),
                                       v.getLumens(),      v.getWattsVis()};
            const double got[] = {exact.x,   exact.y,   exact.up,     exact.vp,
                                  exact.cct, exact.duv, exact.lumens, exact.wattsVis};
            for (int k = 0; k < 8; ++k)
                EXPECT_TRUE(close(got[k], expected[k])) << set.name << " value " << k;
        }
    }
}

TEST(MixEvaluator, BadAmountsGiveTheUndefinedStatesAndNoNaN) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    // Channel 2 has no visible energy (all of it beyond 830 nm is off the grid: zeros).
    const std::vector<Spectrum> channels = {mix_test::peak(450, 10), mix_test::peak(600, 30),
                                            Spectrum(mix_test::N, 0.0)};
    const std::vector<const double*> p = {channels[0].data(), channels[1].data(),
                                          channels[2].data()};
    MixEvaluator ev(p);
    const struct {
        const char* what;
        std::vector<double> amounts;
    } cases[] = {
        {"negative", {1.0, -0.5, 0.0}}, {"NaN", {nan, 1.0, 0.0}},      {"infinite", {inf, 1.0, 0}},
        {"all zero", {0.0, 0.0, 0.0}},  {"dark channel", {0, 0, 3.0}}, {"tiny", {1e-30, 0, 0}},
    };
    for (const auto& c : cases) {
        MixMetrics r;
        ev.evaluate(c.amounts.data(), everything(false), &r);
        EXPECT_FALSE(r.screen.valid) << c.what;
        EXPECT_FALSE(hasNaN(r)) << c.what;
        EXPECT_EQ(r.screen.cct, Vantrel::NO_VALUE) << c.what;
        EXPECT_EQ(r.screen.duv, Vantrel::NO_VALUE) << c.what;
        EXPECT_EQ(r.R[0], Vantrel::R_VALUE_NAN) << c.what;
        EXPECT_EQ(r.Q[0], Vantrel::NO_VALUE) << c.what;
        EXPECT_TRUE(r.tm30Error) << c.what;
        EXPECT_EQ(r.Rf, Vantrel::TM30_REFUSED) << c.what;
        EXPECT_EQ(r.tlciQa, Vantrel::TLCI_FAILED) << c.what;
        EXPECT_FALSE(ev.screen(c.amounts.data(), true).valid) << c.what;
    }
    // A dark channel beside a lit one is simply no contribution.
    const std::vector<double> withDark = {1.0, 0.5, 7.0}, without = {1.0, 0.5, 0.0};
    MixMetrics a, b;
    ev.evaluate(withDark.data(), everything(false), &a);
    ev.evaluate(without.data(), everything(false), &b);
    EXPECT_TRUE(a.screen.valid);
    for (const auto& q : pairs(a, b)) EXPECT_EQ(q.second.first, q.second.second) << q.first;
}

TEST(MixEvaluator, EvaluatorsOnTwoThreadsGiveTheResultsOfOneThread) {
    const std::vector<ChannelSet> sets = mix_test::channelSets();
    auto runAll = [&sets] {
        std::vector<MixMetrics> out;
        for (const ChannelSet& set : sets) {
            MixEvaluator ev(mix_test::pointers(set),
                            set.filter.empty() ? nullptr : set.filter.data(), set.observer);
            for (const std::vector<double>& a : set.amounts) {
                out.emplace_back();
                ev.evaluate(a.data(), everything(false), &out.back());
            }
        }
        return out;
    };
    const std::vector<MixMetrics> expected = runAll();
    std::vector<MixMetrics> got[2];
    std::thread first([&] { got[0] = runAll(); });
    std::thread second([&] { got[1] = runAll(); });
    first.join();
    second.join();
    for (const std::vector<MixMetrics>& g : got) {
        ASSERT_EQ(g.size(), expected.size());
        for (size_t m = 0; m < g.size(); ++m) {
            for (const auto& q : pairs(g[m], expected[m]))
                EXPECT_EQ(q.second.first, q.second.second) << "mix " << m << " " << q.first;
        }
    }
}
