// The mix evaluator's values, shown in the main window's formats, read exactly as the window's
// own calculation of the mixed spectrum: every output field, both decimal settings, both gamut
// planes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "MixEvaluator.h"
#include "ResultFields.h"
#include "engine/MixTestSet.h"

namespace {
using mix_test::ChannelSet;

// The window's results with every value the evaluator gives replaced by the evaluator's; fields
// that need more than the evaluator gives (FCI, film, the 10° engine, ...) stay the window's.
SpectrumResults withEvaluatorValues(SpectrumResults r, const MixMetrics& m) {
    r.lumens = m.screen.lumens;
    r.wattsVis = m.screen.wattsVis;
    r.cct = m.screen.cct;
    r.x = m.screen.x;
    r.y = m.screen.y;
    r.up = m.screen.up;
    r.vp = m.screen.vp;
    r.duv = m.screen.duv;
    r.dupvp = m.duvUpVp;
    Vantrel::get_XYZ_from_xylm(r.x, r.y, r.lumens, &r.X, &r.Y, &r.Z);
    for (int k = 0; k < Vantrel::NUM_SAMPLES; ++k) {
        r.R[k] = m.R[k];
        r.Q[k] = m.Q[k];
    }
    for (int p = 0; p < 2; ++p) {
        r.gamutCRI[p] = m.gamutCRI[p];
        r.gamutCQS[p] = m.gamutCQS[p];
        r.gamutD65[p] = m.gamutD65[p];
        r.gaiE[p] = m.gai[p];
    }
    r.tm30Error = m.tm30Error;
    r.Rf = m.Rf;
    r.Rg = m.Rg;
    r.RfSkin = m.RfSkin;
    for (int j = 0; j < Vantrel::TM30_NUM_BINS; ++j) {
        r.RfByHue[j] = m.RfByHue[j];
        r.hueShift[j] = m.hueShift[j];
        r.chromaShiftPct[j] = m.chromaShiftPct[j];
    }
    r.tlciQa = m.tlciQa;
    r.tlciD = Vantrel::getD_TLCI_2012(m.screen.cct, m.screen.duv);
    return r;
}
}  // namespace

TEST(MixEvaluatorFields, EveryWindowFieldReadsTheSameAsTheMixedSpectrumCalculated) {
    MixRequest request;
    request.tlci = true;
    FieldFormat formats[3];
    formats[1].numDecimals = 6;
    formats[2].gamutInUV = true;
    int mixes = 0;
    for (const ChannelSet& set : mix_test::channelSets()) {
        MixEvaluator ev(mix_test::pointers(set), set.filter.empty() ? nullptr : set.filter.data(),
                        set.observer);
        SpectrumCalculator calculator;
        calculator.setObserver(set.observer);
        for (size_t m = 0; m < set.amounts.size(); ++m, ++mixes) {
            const mix_test::Spectrum s = mix_test::mixed(set, set.amounts[m]);
            const SpectrumResults window = calculator.calculate(s.data());
            MixMetrics mix;
            ev.evaluate(set.amounts[m].data(), request, &mix);
            const SpectrumResults evaluated = withEvaluatorValues(window, mix);
            for (const FieldFormat& format : formats) {
                const std::vector<ResultField> a = outputFieldValues(window, {}, format);
                const std::vector<ResultField> b = outputFieldValues(evaluated, {}, format);
                ASSERT_EQ(a.size(), b.size());
                for (size_t f = 0; f < a.size(); ++f) {
                    EXPECT_EQ(a[f].text, b[f].text)
                        << set.name << " mix " << m << " field " << f << " " << a[f].name;
                }
            }
        }
    }
    EXPECT_GE(mixes, 30);
}
