// Mixes of fixed channels evaluated from per-channel sums; see MixEvaluator.h.
#include "MixEvaluator.h"

#include <cmath>
#include <cstring>

#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int NS = Vantrel::NUM_SAMPLES;
constexpr int NC = Vantrel::NUM_CES;
constexpr int OBSERVER_1964_10 = 1;  // TM-30 works on the 10° observer whatever is chosen
// Lumens from Y (683 lm/W times the 2 nm step), as calcCCT.
constexpr double LUMENS_PER_Y = 1366.0;
// get_xy_XYZ gives no chromaticity at or below this X + Y + Z.
constexpr double DARK_XYZ_SUM = 1e-9;

// Σ amounts[c]·value(c) for three components.
template <typename Value>
void mixTriple(int k, const double* amounts, Value value, double* out) {
    out[0] = out[1] = out[2] = 0.0;
    for (int c = 0; c < k; ++c) {
        const double* v = value(c);
        out[0] += amounts[c] * v[0];
        out[1] += amounts[c] * v[1];
        out[2] += amounts[c] * v[2];
    }
}
}  // namespace

MixEvaluator::MixEvaluator(const std::vector<const double*>& channelSpectra, const double* filter,
                           int observer)
    : k(static_cast<int>(channelSpectra.size())), spectra(k, std::vector<double>(N)), channels(k) {
    engine.setCIE_XYZ_bar_type(observer);
    for (int c = 0; c < k; ++c) {
        for (int i = 0; i < N; ++i)
            spectra[c][i] = channelSpectra[c][i] * (filter != nullptr ? filter[i] : 1.0);
        precompute(spectra[c].data(), &channels[c]);
    }
}

// Each value is what the engine integrates for a spectrum, taken for the channel alone: by
// linearity the mix's value is the amounts' weighted sum of these.
void MixEvaluator::precompute(const double* s, Channel* ch) const {
    const Vantrel::Reference& t = *engine.ref;
    double x, y;
    engine.cie_XYZ(2, s, nullptr, &ch->XYZ[0], &ch->XYZ[1], &ch->XYZ[2], &x, &y);
    double watts = 0;
    for (int i = 0; i < N; ++i) watts += (2e-9 * s[i]) * 1e9;
    ch->watts = watts - 0.5 * (s[0] + s[N - 1]);
    for (int j = 1; j < NS; ++j) {
        double* a = ch->tcsXYZ[j];
        double* b = ch->vsXYZ[j];
        engine.cie_XYZ(3, s, t.tcs[j], &a[0], &a[1], &a[2], &x, &y);
        engine.cie_XYZ(3, s, t.vs[j], &b[0], &b[1], &b[2], &x, &y);
    }
    const double* cmf[3] = {t.xbar[OBSERVER_1964_10], t.ybar[OBSERVER_1964_10],
                            t.zbar[OBSERVER_1964_10]};
    for (int c = 0; c < 3; ++c) {
        ch->XYZ10[c] = Vantrel::sum2Products(s, cmf[c]);
        for (int j = 0; j < NC; ++j)
            ch->cesXYZ10[j][c] = Vantrel::sum3Products(s, cmf[c], t.ces[j]);
    }
}

bool MixEvaluator::amountsValid(const double* amounts) const {
    bool any = false;
    for (int c = 0; c < k; ++c) {
        if (!(amounts[c] >= 0.0) || !std::isfinite(amounts[c])) return false;
        any = any || amounts[c] > 0.0;
    }
    return any;
}

void MixEvaluator::mixedSpectrum(const double* amounts, double* s) const {
    for (int i = 0; i < N; ++i) s[i] = 0.0;
    for (int c = 0; c < k; ++c) {
        const double* channel = spectra[c].data();
        for (int i = 0; i < N; ++i) s[i] += amounts[c] * channel[i];
    }
}

// calcCCT of the mix, then the Duv of the screen.
bool MixEvaluator::headline(const double* amounts, bool fastCCT, MixScreen* s) {
    Vantrel& e = engine;
    double XYZ[3];
    mixTriple(
        k, amounts, [&](int c) { return channels[c].XYZ; }, XYZ);
    if (!(XYZ[0] + XYZ[1] + XYZ[2] > DARK_XYZ_SUM)) return false;
    e.sX[0][0] = XYZ[0];
    e.sY[0][0] = XYZ[1];
    e.sZ[0][0] = XYZ[2];
    Vantrel::get_xy_XYZ(XYZ[0], XYZ[1], XYZ[2], &e.sx[0][0], &e.sy[0][0]);
    Vantrel::cie_1960_uvcd(e.sx[0][0], e.sy[0][0], &e.su[0][0], &e.sv[0][0], &e.sc[0][0],
                           &e.sd[0][0]);
    e.getCCTdata(e.su[0][0], e.sv[0][0], &e.cct, fastCCT);
    e.lumens = LUMENS_PER_Y * XYZ[1];
    e.xcoord = e.sx[0][0];
    e.ycoord = e.sy[0][0];

    double watts = 0;
    for (int c = 0; c < k; ++c) watts += amounts[c] * channels[c].watts;
    s->valid = true;
    s->x = e.xcoord;
    s->y = e.ycoord;
    s->up = e.su[0][0];
    s->vp = 1.5 * e.sv[0][0];
    s->cct = e.cct;
    s->lumens = e.lumens;
    s->wattsVis = watts;
    return true;
}

MixScreen MixEvaluator::screen(const double* amounts, bool fastCCT) {
    MixScreen s;
    if (!amountsValid(amounts) || !headline(amounts, fastCCT, &s)) return MixScreen();
    if (fastCCT) {
        s.duv = engine.getDuvFromCCTxy_100Kto40kK(s.cct, s.x, s.y);
    } else {
        engine.calDeltaBlackBody(s.cct, s.x, s.y, false);
        s.duv = engine.deltaUVPlanck;
    }
    return s;
}

void MixEvaluator::testRows(const double* amounts, double Y, bool doQ) {
    Vantrel& e = engine;
    const double scale = 100.0 / Y;
    double XYZ[3];
    mixTriple(
        k, amounts, [&](int c) { return channels[c].XYZ; }, XYZ);
    e.sX[0][0] = scale * XYZ[0];
    e.sY[0][0] = scale * XYZ[1];
    e.sZ[0][0] = scale * XYZ[2];
    Vantrel::get_xy_XYZ(e.sX[0][0], e.sY[0][0], e.sZ[0][0], &e.sx[0][0], &e.sy[0][0]);
    for (int j = 1; j < NS; ++j) {
        mixTriple(
            k, amounts, [&](int c) { return channels[c].tcsXYZ[j]; }, XYZ);
        e.sX[0][j] = scale * XYZ[0];
        e.sY[0][j] = scale * XYZ[1];
        e.sZ[0][j] = scale * XYZ[2];
        Vantrel::get_xy_XYZ(e.sX[0][j], e.sY[0][j], e.sZ[0][j], &e.sx[0][j], &e.sy[0][j]);
        Vantrel::cie_1960_uvcd(e.sx[0][j], e.sy[0][j], &e.su[0][j], &e.sv[0][j], &e.sc[0][j],
                               &e.sd[0][j]);
    }
    for (int c = 0; c < 3; ++c)
        e.whiteXYZ[0][c] = c == 0 ? e.sX[0][0] : c == 1 ? e.sY[0][0] : e.sZ[0][0];
    if (!doQ) return;
    e.qX[0][0] = e.sX[0][0];
    e.qY[0][0] = e.sY[0][0];
    e.qZ[0][0] = e.sZ[0][0];
    for (int j = 1; j < NS; ++j) {
        mixTriple(
            k, amounts, [&](int c) { return channels[c].vsXYZ[j]; }, XYZ);
        e.qX[0][j] = scale * XYZ[0];
        e.qY[0][j] = scale * XYZ[1];
        e.qZ[0][j] = scale * XYZ[2];
    }
}

// The test row of TM-30 from the sums (k = 100/Y10 applied last, as prepareIllumination and
// sampleXYZ apply it), the reference row through the engine.
void MixEvaluator::tm30(const double* amounts, MixMetrics* out) {
    Vantrel& e = engine;
    const MixScreen& s = out->screen;
    out->tm30Error = !e.beginTM30(s.duv, NC);
    if (out->tm30Error) return;
    double XYZ10[3];
    mixTriple(
        k, amounts, [&](int c) { return channels[c].XYZ10; }, XYZ10);
    const double scale = 100.0 / XYZ10[1];
    e.tm30White[0][0] = scale * XYZ10[0];
    e.tm30White[0][1] = 100.0;
    e.tm30White[0][2] = scale * XYZ10[2];
    auto* xyz = reinterpret_cast<double(*)[2][3]>(e.tm30XYZ.data());
    for (int j = 0; j < NC; ++j) {
        double sum[3];
        mixTriple(
            k, amounts, [&](int c) { return channels[c].cesXYZ10[j]; }, sum);
        for (int c = 0; c < 3; ++c) xyz[j][0][c] = scale * sum[c];
    }
    double reference[N];
    e.getTM30ReferenceSpectrum(s.cct, reference);
    e.tm30Row(1, reference, NC, nullptr);
    e.finishTM30(NC, false);
    out->Rf = e.tm30Rf;
    out->Rg = e.tm30Rg;
    out->RfSkin = e.tm30RfSkin;
    e.getTM30RfByHue(out->RfByHue);
    e.getTM30HueShifts(out->hueShift);
    e.getTM30ChromaShiftsAsPercent(out->chromaShiftPct);
}

void MixEvaluator::setUndefined(MixMetrics* out) const {
    *out = MixMetrics();
    for (double& r : out->R) r = Vantrel::R_VALUE_NAN;
    for (double& q : out->Q) q = Vantrel::NO_VALUE;
    for (int p = 0; p < 2; ++p) {
        out->gamutCRI[p] = out->gamutCQS[p] = Vantrel::NO_VALUE;
        out->gamutD65[p] = out->gai[p] = Vantrel::NO_VALUE;
    }
}

void MixEvaluator::evaluate(const double* amounts, const MixRequest& request, MixMetrics* out) {
    setUndefined(out);
    if (!amountsValid(amounts) || !headline(amounts, request.fastCCT, &out->screen)) {
        out->screen = MixScreen();
        return;
    }
    Vantrel& e = engine;
    // color(): the test rows from the sums, the reference row and the rest through the engine.
    const bool doR = request.cri || request.cqs;
    if (doR) {
        testRows(amounts, e.sY[0][0], request.cqs);
        e.referenceRow(request.cqs);
        e.colorFromSamples(out->screen.wattsVis, request.cqs, request.cri, false);
    }
    e.calDeltaBlackBody(e.cct, e.xcoord, e.ycoord, false);
    out->screen.duv = e.deltaUVPlanck;
    out->duvUpVp = e.deltaUpVpPlanck;
    if (request.cri) {
        e.returnRvalues(out->R);
        out->gamutCRI[0] = e.gamutCRI_upvp;
        out->gamutCRI[1] = e.gamutCRI_uv;
        out->gamutD65[0] = e.gamutD65_upvp;
        out->gamutD65[1] = e.gamutD65_uv;
        out->gai[0] = e.gai_upvp;
        out->gai[1] = e.gai_uv;
    }
    if (request.cqs) {
        e.returnQvalues(out->Q);
        out->gamutCQS[0] = e.gamutCQS_upvp;
        out->gamutCQS[1] = e.gamutCQS_uv;
    }
    if (request.tm30) tm30(amounts, out);
    if (request.tlci) {
        double mixed[N];
        mixedSpectrum(amounts, mixed);
        out->tlciQa = e.getQa_TLCI_2012(mixed, nullptr, e.cct);
    }
}
