#include "ResultFields.h"

#include <cmath>
#include <cstdlib>

#include "AppConstants.h"
#include "ValueFormat.h"

SpectrumCalculator::SpectrumCalculator() { engine10.setCIE_XYZ_bar_type(3); }

// Gamut, FCI, COI, Class A, FSI, melanopic figures, film terms and SSI of the first engine, in
// the order the window computes them after calcAll.
void SpectrumCalculator::otherIndices(const double* spectrum, SpectrumResults& r) {
    const int test = engine.getIndexOfTestColors(), ref = engine.getIndexOfReferenceColors();
    const int rows[2] = {test, ref};
    for (int k = 0; k < 2; ++k) {
        r.criAreaUpVp[k] = engine.get_cri_gamut_area_upvp(rows[k]);
        r.cqsAreaUpVp[k] = engine.get_cqs_gamut_area_upvp(rows[k]);
        r.criAreaUV[k] = engine.get_cri_gamut_area_uv(rows[k]);
        r.cqsAreaUV[k] = engine.get_cqs_gamut_area_uv(rows[k]);
    }
    r.gamutCRI = engine.get_gamut_CRI_upvp();
    r.gamutCQS = engine.get_gamut_CQS_upvp();
    r.gamutD65 = engine.get_gamut_D65_upvp();
    r.gaiE = engine.get_GAI_upvp();
    engine.calcFCI(spectrum);
    r.fci = engine.getFCI();
    engine.calculateFullSpectrumIndicies(spectrum);
    r.fsi = engine.getFSI();
    r.fsci = engine.getFSCI();
    r.coi = engine.getCOI(spectrum);
    r.classA = engine.meetsASSIST2ColorMetric() && engine.meetsLRCWhite(r.cct, r.x, r.y);
    r.wbmr = engine.getWellBuildingMelanopicRatio(spectrum);
    r.eml = 100.0 * engine.getNormalizedEML(spectrum);
    engine.calc_kodak_3200K_values(spectrum, &r.film3200K[0], &r.film3200K[1], &r.film3200K[2]);
    engine.calc_kodak_daylight_values(spectrum, &r.filmDaylight[0], &r.filmDaylight[1],
                                      &r.filmDaylight[2]);
    // SSI against a Planck reference at the source's CCT, inside the range a black body takes.
    if (r.cct >= Vantrel::MIN_CCT && r.cct <= Vantrel::MAX_CCT) {
        double reference[Vantrel::NUM_GRID_POINTS];
        Vantrel::getBlackBody(reference, r.cct);
        r.ssiDefined = engine.getSSIValues(spectrum, reference, &r.ssi);
    }
}

SpectrumResults SpectrumCalculator::calculate(const double* spectrum, double csLux) {
    SpectrumResults r;
    engine.calcAll(spectrum, false, true, true);
    r.lumens = engine.getLumens();
    r.wattsVis = engine.getWattsVis();
    r.cct = engine.getCCT();
    r.x = engine.getXcoord();
    r.y = engine.getYcoord();
    r.up = engine.getUcoord_1976();
    r.vp = engine.getVcoord_1976();
    r.duv = engine.getDeltaUVPlanck();
    r.dupvp = engine.getDeltaUpVpPlanck();
    r.domWL = engine.getDomWL();
    r.purity = engine.getPurity();
    engine.getXYZ(&r.X, &r.Y, &r.Z);
    r.scotopicLumens = engine.getScotopicLumens(spectrum);
    engine.returnRvalues(r.R);
    engine.returnQvalues(r.Q);

    // The centroid reads the grid extended to 1050 nm; beyond 830 nm this spectrum is dark.
    double extended[Vantrel::NUM_GRID_POINTS_IR] = {};
    double wavelengths[Vantrel::NUM_GRID_POINTS];
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        extended[i] = spectrum[i];
        wavelengths[i] = 360.0 + 2.0 * i;
    }
    r.centroidWL = Vantrel::getPeakCentroid(extended);
    r.fwhm = Vantrel::getFWHM(0, Vantrel::NUM_GRID_POINTS, wavelengths, spectrum);

    r.tlciQa = engine.getQa_TLCI_2012(spectrum, nullptr, r.cct);
    r.tlciD = Vantrel::getD_TLCI_2012(r.cct, r.duv);
    engine.calculate_TM30(r.duv, r.cct, spectrum);
    r.tm30Error = engine.get_TM30Error();
    r.Rf = engine.get_TM30_Rf();
    r.Rg = engine.get_TM30_Rg();
    r.RfSkin = engine.get_TM30_Rf_skin();
    engine.getTM30RfByHue(r.RfByHue);
    engine.getTM30HueShifts(r.hueShift);
    engine.getTM30ChromaShiftsAsPercent(r.chromaShiftPct);
    otherIndices(spectrum, r);
    if (csLux > 0) {
        r.hasCircadian = true;
        r.circadianValid = engine.getCircadian_CLA(spectrum, csLux, &r.cla, &r.cs);
    }

    engine10.calcAll(spectrum, false, true);
    r.cct10 = engine10.getCCT();
    r.x10 = engine10.getXcoord();
    r.y10 = engine10.getYcoord();
    r.up10 = engine10.getUcoord_1976();
    r.vp10 = engine10.getVcoord_1976();
    r.duv10 = engine10.getDeltaUVPlanck();
    r.dupvp10 = engine10.getDeltaUpVpPlanck();
    r.lumens10 = engine10.getLumens();
    return r;
}

namespace {
ResultField undefinedField(const char* name) { return {name, UNDEFINED_TERM, false, 0.0}; }

// A value that is not a finite number has no meaning to show.
ResultField field(const char* name, double value, const std::string& text) {
    if (!std::isfinite(value)) return undefinedField(name);
    return {name, text, true, value};
}

ResultField valueField(const char* name, double value) {
    return field(name, value, ValueFormat::getValueAsString(value));
}

ResultField fixedField(const char* name, double value, int decimals) {
    return field(name, value, ValueFormat::format("%.*lf", decimals, value));
}

// A distance smaller than the last shown decimal is shown without its sign, so that no
// negative zero appears.
ResultField distanceField(const char* name, double value, int decimals, double limit) {
    const double shown = std::fabs(value) < limit ? std::fabs(value) : value;
    return field(name, value, ValueFormat::format("%.*lf", decimals, shown));
}

ResultField cctField(const char* name, double cct, double duv) {
    char buf[16];
    Vantrel::getCCTstring(buf, cct, duv);
    if (std::string(buf) == UNDEFINED_TERM) return undefinedField(name);
    return field(name, cct, buf);
}

// A rendering index as the window shows it: rounded half away from zero, "%d".
ResultField indexField(const std::string& name, double value) {
    return field(name.c_str(), value, ValueFormat::format("%d", ValueFormat::round(value)));
}

// Ra through the engine's text, which judges the CCT (1000 to 25000 K).
ResultField criField(double ra, double cct) {
    char buf[16];
    Vantrel::getCRIstring(buf, cct, ValueFormat::round(ra));
    if (std::string(buf) == UNDEFINED_TERM) return undefinedField("CRI (Ra)");
    return field("CRI (Ra)", ra, buf);
}

// The TM-30 fields; a refused run shows none of its (stale) tables.
void appendTM30(const SpectrumResults& r, std::vector<ResultField>& f) {
    const int bins = Vantrel::TM30_NUM_BINS;
    std::vector<ResultField> tm30;
    tm30.push_back(indexField("Rf", r.Rf));
    tm30.push_back(indexField("Rg", r.Rg));
    tm30.push_back(indexField("Rf,skin", r.RfSkin));
    for (int j = 0; j < bins; ++j) {
        tm30.push_back(indexField("Rfh," + std::to_string(j + 1), r.RfByHue[j]));
    }
    for (int j = 0; j < bins; ++j) {
        const std::string name = "Rhs,h" + std::to_string(j + 1);
        tm30.push_back(
            field(name.c_str(), r.hueShift[j], ValueFormat::format("%.2lf", r.hueShift[j])));
    }
    for (int j = 0; j < bins; ++j) {
        const std::string name = "Rcs,h" + std::to_string(j + 1);
        tm30.push_back(field(name.c_str(), r.chromaShiftPct[j],
                             ValueFormat::format("%d%%", ValueFormat::round(r.chromaShiftPct[j]))));
    }
    for (ResultField& t : tm30) {
        if (r.tm30Error) t = undefinedField(t.name.c_str());
        f.push_back(t);
    }
}

// Green over red response of a film: "%.2lf", or "NAN" without a red response.
ResultField filmField(const char* name, const double* bgr) {
    if (!(bgr[2] > 1e-10)) return {name, "NAN", false, 0.0};
    return fixedField(name, bgr[1] / bgr[2], 2);
}

void appendOtherIndices(const SpectrumResults& r, std::vector<ResultField>& f) {
    f.push_back(fixedField("Gamut CRI", r.gamutCRI, 3));
    f.push_back(fixedField("Gamut CQS", r.gamutCQS, 3));
    f.push_back(fixedField("Gamut D65", r.gamutD65, 3));
    f.push_back(indexField("GAI E", r.gaiE));
    f.push_back(indexField("FCI", r.fci));
    // COI is defined for sources from 3300 K to 5300 K.
    const bool coiDefined = r.cct > 3299.9 && r.cct < 5300.1;
    f.push_back(coiDefined ? fixedField("COI", r.coi, 1) : undefinedField("COI"));
    f.push_back({"Class A", r.classA ? "Yes" : "No", true, r.classA ? 1.0 : 0.0});
    f.push_back(r.fsi > -0.001 ? fixedField("FSI", r.fsi, 2) : undefinedField("FSI"));
    f.push_back(r.fsci > -0.001 ? fixedField("FSCI", r.fsci, 2) : undefinedField("FSCI"));
    f.push_back(fixedField("WBMR", r.wbmr, 3));
    f.push_back(fixedField("EML @ 100 lx", r.eml, 1));
    f.push_back(filmField("W (G/R)", r.film3200K));
    f.push_back(filmField("D (G/R)", r.filmDaylight));
    f.push_back(r.ssiDefined ? field("SSI", r.ssi, ValueFormat::format("%d", r.ssi))
                             : undefinedField("SSI"));
    const struct {
        const char* name;
        double value;
    } areas[] = {{"CRI gamut area u'v' test", r.criAreaUpVp[0]},
                 {"CRI gamut area u'v' ref", r.criAreaUpVp[1]},
                 {"CQS gamut area u'v' test", r.cqsAreaUpVp[0]},
                 {"CQS gamut area u'v' ref", r.cqsAreaUpVp[1]},
                 {"CRI gamut area uv test", r.criAreaUV[0]},
                 {"CRI gamut area uv ref", r.criAreaUV[1]},
                 {"CQS gamut area uv test", r.cqsAreaUV[0]},
                 {"CQS gamut area uv ref", r.cqsAreaUV[1]}};
    for (const auto& a : areas) f.push_back(fixedField(a.name, a.value, 4));
    if (r.hasCircadian) {
        // As the circadian window prints them: CLA "%.0lf", CS in percent "%.1lf".
        f.push_back(r.circadianValid ? fixedField("CLA", r.cla, 0) : undefinedField("CLA"));
        f.push_back(r.circadianValid ? fixedField("CS", 100.0 * r.cs, 1) : undefinedField("CS"));
    }
}

// Mired from the CCT as the CCT field shows it; texts such as "<1000" give no value.
ResultField miredField(const ResultField& cctShown) {
    const double shown = cctShown.defined ? std::strtod(cctShown.text.c_str(), nullptr) : 0.0;
    if (!(shown > 1.0)) return undefinedField("Mired");
    return field("Mired", 1e6 / cctShown.value, ValueFormat::format("%.0lf", 1e6 / shown));
}
}  // namespace

std::vector<ResultField> mainResultFields(const SpectrumResults& r, int numDecimals) {
    const double smallest = std::pow(10.0, -numDecimals);
    std::vector<ResultField> f;
    f.reserve(140);
    f.push_back(valueField("Lumens", r.lumens));
    f.push_back(valueField("Vis watt", r.wattsVis));
    f.push_back(r.wattsVis > 0 ? valueField("LER", r.lumens / r.wattsVis) : undefinedField("LER"));
    f.push_back(cctField("CCT", r.cct, r.duv));
    f.push_back(miredField(f.back()));
    f.push_back(fixedField("x", r.x, numDecimals));
    f.push_back(fixedField("y", r.y, numDecimals));
    f.push_back(fixedField("u'", r.up, numDecimals));
    f.push_back(fixedField("v'", r.vp, numDecimals));
    f.push_back(distanceField("Duv", r.duv, numDecimals, smallest));
    f.push_back(distanceField("Du'v'", r.dupvp, numDecimals, smallest));
    const bool hasDomWL = r.domWL > 0;
    f.push_back(hasDomWL ? fixedField("dom WL", r.domWL, 1) : undefinedField("dom WL"));
    f.push_back(hasDomWL ? fixedField("Purity (%)", 100.0 * r.purity, 1)
                         : undefinedField("Purity (%)"));
    f.push_back(valueField("X", r.X));
    f.push_back(valueField("Y", r.Y));
    f.push_back(valueField("Z", r.Z));
    f.push_back(valueField("Lumens (S)", r.scotopicLumens));
    f.push_back(r.lumens != 0 ? fixedField("S/P ratio", r.scotopicLumens / r.lumens, 2)
                              : undefinedField("S/P ratio"));
    f.push_back(cctField("CCT (F,10)", r.cct10, r.duv10));
    f.push_back(fixedField("x (F,10)", r.x10, numDecimals));
    f.push_back(fixedField("y (F,10)", r.y10, numDecimals));
    f.push_back(fixedField("u' (F,10)", r.up10, numDecimals));
    f.push_back(fixedField("v' (F,10)", r.vp10, numDecimals));
    f.push_back(distanceField("Duv (F,10)", r.duv10, numDecimals, 1e-4));
    f.push_back(distanceField("Du'v' (F,10)", r.dupvp10, numDecimals, 1e-4));
    f.push_back(valueField("Lumens (F,10)", r.lumens10));
    f.push_back(criField(r.R[0], r.cct));
    for (int k = 1; k < Vantrel::NUM_SAMPLES; ++k) {
        f.push_back(indexField("R" + std::to_string(k), r.R[k]));
    }
    f.push_back(indexField("CQS (Qa)", r.Q[0]));
    for (int k = 1; k < Vantrel::NUM_SAMPLES; ++k) {
        f.push_back(indexField("Q" + std::to_string(k), r.Q[k]));
    }
    f.push_back(r.centroidWL > 1 ? fixedField("cent WL", r.centroidWL, 1)
                                 : undefinedField("cent WL"));
    f.push_back(r.fwhm > 0 ? fixedField("FWHM", r.fwhm, 1) : undefinedField("FWHM"));
    appendTM30(r, f);
    // TLCI Qa is shown as trunc(Qa + 0.5); a negative Qa (no patch in gamut) has no value.
    const bool tlciValid = r.tlciQa >= 0;
    f.push_back(tlciValid ? field("TLCI Qa", r.tlciQa,
                                  ValueFormat::format("%d", static_cast<int>(r.tlciQa + 0.5)))
                          : undefinedField("TLCI Qa"));
    f.push_back(tlciValid ? fixedField("TLCI d", r.tlciD, 1) : undefinedField("TLCI d"));
    appendOtherIndices(r, f);
    return f;
}
