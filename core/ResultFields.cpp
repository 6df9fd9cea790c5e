#include "ResultFields.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstdlib>

#include "AppConstants.h"
#include "Grid.h"
#include "ValueFormat.h"

SpectrumCalculator::SpectrumCalculator() { engine10.setCIE_XYZ_bar_type(3); }

// Gamut, FCI, COI, Class A, FSI, melanopic figures, film terms and SSI of the first engine, in
// the order the window computes them after calcAll.
void SpectrumCalculator::otherIndices(const double* spectrum, const CalculationOptions& options,
                                      SpectrumResults& r) {
    const int ssiReference = options.ssiReference;
    const int test = engine.getIndexOfTestColors(), ref = engine.getIndexOfReferenceColors();
    const int rows[2] = {test, ref};
    for (int k = 0; k < 2; ++k) {
        r.criAreaUpVp[k] = engine.get_cri_gamut_area_upvp(rows[k]);
        r.cqsAreaUpVp[k] = engine.get_cqs_gamut_area_upvp(rows[k]);
        r.criAreaUV[k] = engine.get_cri_gamut_area_uv(rows[k]);
        r.cqsAreaUV[k] = engine.get_cqs_gamut_area_uv(rows[k]);
    }
    r.gamutCRI[0] = engine.get_gamut_CRI_upvp();
    r.gamutCQS[0] = engine.get_gamut_CQS_upvp();
    r.gamutD65[0] = engine.get_gamut_D65_upvp();
    r.gaiE[0] = engine.get_GAI_upvp();
    r.gamutCRI[1] = engine.get_gamut_CRI_uv();
    r.gamutCQS[1] = engine.get_gamut_CQS_uv();
    r.gamutD65[1] = engine.get_gamut_D65_uv();
    r.gaiE[1] = engine.get_GAI_uv();
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
    // SSI against a reference at the source's CCT, inside the range that reference covers:
    // a Planck radiator from 1000 K, or the CIE daylight series from 4000 to 25000 K.
    double reference[Vantrel::NUM_GRID_POINTS_IR] = {};
    if (ssiReference == 1) {
        if (r.cct >= 4000.0 && r.cct <= 25000.0) {
            engine.getSyntheticDaylight(reference, r.cct);
            r.ssiDefined = true;
        }
    } else if (ssiReference == 2) {
        // The user's own reference, whatever the source's CCT; without one there is no SSI.
        if (options.ssiUserReference != nullptr) {
            std::copy(options.ssiUserReference, options.ssiUserReference + Vantrel::NUM_GRID_POINTS,
                      reference);
            r.ssiDefined = true;
        }
    } else if (r.cct >= Vantrel::MIN_CCT && r.cct <= Vantrel::MAX_CCT) {
        Vantrel::getBlackBody(reference, r.cct);
        r.ssiDefined = true;
    }
    if (r.ssiDefined) r.ssiDefined = engine.getSSIValues(spectrum, reference, &r.ssi);
}

// Photon flux with half weights at the ends of the summed range, the band power for the
// 400 to 700 nm limit, and the count of all photons.
void SpectrumCalculator::photonSums(const double* spectrum, const CalculationOptions& options,
                                    SpectrumResults& r) const {
    const int n = options.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    const int first = options.limitUmolTo400_700 ? 20 : 0;
    const int last = options.limitUmolTo400_700 ? 170 : n - 1;
    double photonFlux = 0, wattsBand = 0, totalPhotons = 0;
    for (int i = 0; i < n; ++i) {
        const double nm = grid::nm(i);
        // Photons per second per metre of wavelength, summed over 2e-9 m steps.
        const double photons = Vantrel::convert_to_Photons_Sec_from_Watts_nm(spectrum[i] * 1e9, nm);
        totalPhotons += photons * 2e-9;
        if (i < first || i > last) continue;
        const double w = (i == first || i == last) ? 0.5 : 1.0;
        photonFlux += w * photons * 2e-9;
        wattsBand += w * spectrum[i] * 2e-9 * 1e9;
    }
    r.photonsPerSecond = totalPhotons;
    r.umolPerSecond = photonFlux * 1.66053892103219e-18;
    double watts = options.includeIR ? r.totalWatts : r.wattsVis;
    if (options.limitUmolTo400_700) watts = wattsBand;
    r.umolPerJouleSpec = watts > 0 ? r.umolPerSecond / watts : 0.0;
}

namespace {
// X+Y+Z of the spectrum in the engine's observer.
double sumXYZ(const Vantrel& engine, const double* spectrum) {
    double X = 0, Y = 0, Z = 0, x = 0, y = 0;
    engine.cie_XYZ(2, spectrum, nullptr, &X, &Y, &Z, &x, &y);
    return X + Y + Z;
}
}  // namespace

SpectrumResults SpectrumCalculator::calculate(const double* spectrum,
                                              const CalculationOptions& options) {
    SpectrumResults r;
    r.includeIR = options.includeIR;
    for (const Vantrel* e : {&engine, &engine10}) {
        const double sum = sumXYZ(*e, spectrum);
        if (!Vantrel::hasChromaticity(sum, 0.0, 0.0)) r.hasChromaticity = false;
        if (!std::isfinite(sum)) r.overflow = true;
    }
    engine.calcAll(spectrum, false, true, true);
    r.lumens = engine.getLumens();
    r.wattsVis = engine.getWattsVis();
    // Every further figure divides by the chromaticity or by the normalized spectrum.
    if (!r.hasChromaticity) return r;
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

    // The centroid reads the grid extended to 1050 nm; without IR that part is dark.
    const int n = options.includeIR ? Vantrel::NUM_GRID_POINTS_IR : Vantrel::NUM_GRID_POINTS;
    double extended[Vantrel::NUM_GRID_POINTS_IR] = {};
    double wavelengths[Vantrel::NUM_GRID_POINTS_IR];
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS_IR; ++i) {
        if (i < n) extended[i] = spectrum[i];
        wavelengths[i] = grid::nm(i);
    }
    r.centroidWL = Vantrel::getPeakCentroid(extended);
    r.fwhm = Vantrel::getFWHM(0, n, wavelengths, extended);
    if (options.includeIR) {
        r.totalWatts = Vantrel::getSpectralWatts(n, spectrum, 2.0);
        r.extendedLumens = engine.getEquivalenceLm(n, spectrum, 2.0);
    }

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
    otherIndices(spectrum, options, r);
    photonSums(spectrum, options, r);
    if (options.csLux > 0) {
        r.hasCircadian = true;
        r.circadianValid = engine.getCircadian_CLA(spectrum, options.csLux, &r.cla, &r.cs);
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
ResultField undefinedField(const std::string& name) { return {name, UNDEFINED_TERM, false, 0.0}; }

// A value that rounds to zero in its text shows no minus sign: "-0.00" would suggest a
// direction that the shown digits do not have.
std::string withoutNegativeZero(const std::string& text) {
    if (text.empty() || text[0] != '-') return text;
    for (char c : text) {
        if (c >= '1' && c <= '9') return text;
        if (c == 'e' || c == 'E') break;  // the exponent of a zero mantissa does not count
    }
    return text.substr(1);
}

// A value that is not a finite number has no meaning to show.
ResultField field(const std::string& name, double value, const std::string& text) {
    if (!std::isfinite(value)) return undefinedField(name);
    return {name, withoutNegativeZero(text), true, value};
}

ResultField valueField(const std::string& name, double value) {
    return field(name, value, ValueFormat::getValueAsString(value));
}

ResultField fixedField(const std::string& name, double value, int decimals) {
    return field(name, value, ValueFormat::format("%.*lf", decimals, value));
}

// A distance smaller than the last shown decimal is shown without its sign, so that no
// negative zero appears.
ResultField distanceField(const std::string& name, double value, int decimals, double limit) {
    const double shown = std::fabs(value) < limit ? std::fabs(value) : value;
    return field(name, value, ValueFormat::format("%.*lf", decimals, shown));
}

ResultField cctField(const std::string& name, double cct, double duv) {
    char buf[16];
    Vantrel::getCCTstring(buf, cct, duv);
    if (std::string(buf) == UNDEFINED_TERM) return undefinedField(name);
    return field(name, cct, buf);
}

// An index as the window shows it: rounded half away from zero, "%d".
ResultField indexField(const std::string& name, double value) {
    if (!std::isfinite(value)) return undefinedField(name);
    return field(name, value, ValueFormat::format("%d", ValueFormat::round(value)));
}

// Ra through the engine's text, which judges the CCT (1000 to 25000 K).
ResultField criField(const std::string& name, double ra, double cct) {
    char buf[16];
    Vantrel::getCRIstring(buf, cct, ValueFormat::round(ra));
    if (std::string(buf) == UNDEFINED_TERM) return undefinedField(name);
    return field(name, ra, buf);
}

// Green over red response of a film: "%.2lf", or "NAN" without a red response.
ResultField filmField(const std::string& name, const double* bgr) {
    if (!(bgr[2] > 1e-10)) return {name, "NAN", false, 0.0};
    return fixedField(name, bgr[1] / bgr[2], 2);
}

// Mired from the CCT as the CCT field shows it; texts such as "<1000" give no value.
ResultField miredField(const std::string& name, const ResultField& cctShown) {
    const double shown = cctShown.defined ? std::strtod(cctShown.text.c_str(), nullptr) : 0.0;
    if (!(shown > 1.0)) return undefinedField(name);
    return field(name, 1e6 / cctShown.value, ValueFormat::format("%.0lf", 1e6 / shown));
}

// Field numbers of the runs and single fields the formatter fills.
enum FieldNumber {
    F_LUMENS = 0,
    F_VIS_WATT,
    F_CCT,
    F_CRI,
    F_LER,
    F_LPW,
    F_ELEC_W,
    F_EXT_LM,
    F_R1 = 8,
    F_X = 23,
    F_Y,
    F_UP,
    F_VP,
    F_DUV,
    F_DUPVP,
    F_UMOL_J_WP,
    F_FCI,
    F_UMOL_S,
    F_UMOL_J_SPEC,
    F_CQS = 33,
    F_GAMUT_D65,
    F_GAMUT_CRI,
    F_GAMUT_CQS,
    F_GA_CRI,
    F_GA_CQS,
    F_GAI_E,
    F_Q1 = 40,
    F_MIRED = 55,
    F_RMS,
    F_MAX_DE,
    F_BLUE_WATTS,
    F_PHOS_WATTS,
    F_TOTAL_W,
    F_TLCI_QA,
    F_TLCI_D,
    F_CLASS_A,
    F_COI,
    F_RF = 65,
    F_RG,
    F_RF_SKIN,
    F_RFH1,
    F_RHS1 = 84,
    F_RCS1 = 100,
    F_CCT10 = 116,
    F_X10,
    F_Y10,
    F_UP10,
    F_VP10,
    F_DUV10,
    F_DUPVP10,
    F_LUMENS10,
    F_PURITY = 124,
    F_DOM_WL,
    F_CENT_WL,
    F_FWHM,
    F_XX,
    F_YY,
    F_ZZ,
    F_AREAS = 131,
    F_FSI = 139,
    F_FSCI,
    F_LUMENS_S,
    F_SP_RATIO,
    F_PHOTONS,
    F_WBMR,
    F_EML,
    F_SSI,
    F_INPUT_MA,
    F_INPUT_VOLTAGE,
    F_FILM_W,
    F_FILM_D
};

class FieldWriter {
  public:
    explicit FieldWriter(std::vector<ResultField>& fields) : f(fields) {}
    void set(int index, const ResultField& value) {
        f[index] = value;
        f[index].name = outputFieldName(index);
    }
    void value(int index, double v) { set(index, valueField("", v)); }
    void fixed(int index, double v, int decimals) { set(index, fixedField("", v, decimals)); }
    void index(int index, double v) { set(index, indexField("", v)); }
    void undefined(int index) { set(index, undefinedField("")); }
    const ResultField& operator[](int index) const { return f[index]; }

  private:
    std::vector<ResultField>& f;
};

void writePhotometry(const SpectrumResults& r, const FieldFormat& format, FieldWriter& f) {
    f.value(F_LUMENS, r.lumens);
    f.value(F_VIS_WATT, r.wattsVis * format.wattsFactor);
    if (r.wattsVis > 0) {
        f.value(F_LER, r.lumens / r.wattsVis);
    } else {
        f.undefined(F_LER);
    }
    if (r.includeIR) {
        f.value(F_TOTAL_W, r.totalWatts * format.wattsFactor);
        f.value(F_EXT_LM, r.extendedLumens);
    } else {
        f.undefined(F_TOTAL_W);
        f.undefined(F_EXT_LM);
    }
    f.value(F_UMOL_S, r.umolPerSecond);
    f.value(F_UMOL_J_SPEC, r.umolPerJouleSpec);
    f.set(F_PHOTONS,
          field("", r.photonsPerSecond, ValueFormat::format("%.3le", r.photonsPerSecond)));
    f.value(F_LUMENS_S, r.scotopicLumens);
    if (r.lumens != 0) {
        f.fixed(F_SP_RATIO, r.scotopicLumens / r.lumens, 2);
    } else {
        f.undefined(F_SP_RATIO);
    }
    f.value(F_XX, r.X);
    f.value(F_YY, r.Y);
    f.value(F_ZZ, r.Z);
}

void writeChromaticity(const SpectrumResults& r, const FieldFormat& format, FieldWriter& f) {
    const int d = format.numDecimals;
    const double smallest = std::pow(10.0, -d);
    f.set(F_CCT, cctField("", r.cct, r.duv));
    f.set(F_MIRED, miredField("", f[F_CCT]));
    f.fixed(F_X, r.x, d);
    f.fixed(F_Y, r.y, d);
    f.fixed(F_UP, r.up, d);
    f.fixed(F_VP, r.vp, d);
    f.set(F_DUV, distanceField("", r.duv, d, smallest));
    f.set(F_DUPVP, distanceField("", r.dupvp, d, smallest));
    if (r.domWL > 0) {
        f.fixed(F_DOM_WL, r.domWL, 1);
        f.fixed(F_PURITY, 100.0 * r.purity, 1);
    } else {
        f.undefined(F_DOM_WL);
        f.undefined(F_PURITY);
    }
    if (r.centroidWL > 1) {
        f.fixed(F_CENT_WL, r.centroidWL, 1);
    } else {
        f.undefined(F_CENT_WL);
    }
    if (r.fwhm > 0) {
        f.fixed(F_FWHM, r.fwhm, 1);
    } else {
        f.undefined(F_FWHM);
    }
    f.set(F_CCT10, cctField("", r.cct10, r.duv10));
    f.fixed(F_X10, r.x10, d);
    f.fixed(F_Y10, r.y10, d);
    f.fixed(F_UP10, r.up10, d);
    f.fixed(F_VP10, r.vp10, d);
    f.set(F_DUV10, distanceField("", r.duv10, d, 1e-4));
    f.set(F_DUPVP10, distanceField("", r.dupvp10, d, 1e-4));
    f.value(F_LUMENS10, r.lumens10);
}

void writeRendering(const SpectrumResults& r, FieldWriter& f) {
    f.set(F_CRI, criField("", r.R[0], r.cct));
    // R1 to R15 belong to the same CIE 13.3 calculation as Ra: outside the CCT range where the
    // engine gives Ra (its reference illuminants end at 25000 K) they have no value either.
    const bool rDefined = f[F_CRI].defined;
    f.index(F_CQS, r.Q[0]);
    for (int k = 1; k < Vantrel::NUM_SAMPLES; ++k) {
        if (rDefined) {
            f.index(F_R1 + k - 1, r.R[k]);
        } else {
            f.undefined(F_R1 + k - 1);
        }
        f.index(F_Q1 + k - 1, r.Q[k]);
    }
    // TM-30: a refused run shows none of its (stale) tables.
    for (int j = 0; j < 3 + 3 * Vantrel::TM30_NUM_BINS; ++j) f.undefined(F_RF + j);
    if (!r.tm30Error) {
        f.index(F_RF, r.Rf);
        f.index(F_RG, r.Rg);
        f.index(F_RF_SKIN, r.RfSkin);
        for (int j = 0; j < Vantrel::TM30_NUM_BINS; ++j) {
            f.index(F_RFH1 + j, r.RfByHue[j]);
            f.fixed(F_RHS1 + j, r.hueShift[j], 2);
            f.set(F_RCS1 + j,
                  field("", r.chromaShiftPct[j],
                        ValueFormat::format("%d%%", ValueFormat::round(r.chromaShiftPct[j]))));
        }
    }
    // TLCI Qa is shown as trunc(Qa + 0.5); a negative Qa (no patch in gamut) has no value.
    if (r.tlciQa >= 0 && r.tlciQa < INT_MAX) {
        f.set(F_TLCI_QA,
              field("", r.tlciQa, ValueFormat::format("%d", static_cast<int>(r.tlciQa + 0.5))));
        f.fixed(F_TLCI_D, r.tlciD, 1);
    } else {
        f.undefined(F_TLCI_QA);
        f.undefined(F_TLCI_D);
    }
}

void writeOtherIndices(const SpectrumResults& r, const FieldFormat& format, FieldWriter& f) {
    const int plane = format.gamutInUV ? 1 : 0;
    f.fixed(F_GAMUT_CRI, r.gamutCRI[plane], 3);
    f.fixed(F_GAMUT_CQS, r.gamutCQS[plane], 3);
    f.fixed(F_GAMUT_D65, r.gamutD65[plane], 3);
    f.index(F_GAI_E, r.gaiE[plane]);
    // GA CRI and GA CQS: the test gamut area in the chosen plane times 100000.
    f.index(F_GA_CRI, 100000.0 * (format.gamutInUV ? r.criAreaUV[0] : r.criAreaUpVp[0]));
    f.index(F_GA_CQS, 100000.0 * (format.gamutInUV ? r.cqsAreaUV[0] : r.cqsAreaUpVp[0]));
    const double areas[8] = {r.criAreaUpVp[0], r.criAreaUpVp[1], r.cqsAreaUpVp[0], r.cqsAreaUpVp[1],
                             r.criAreaUV[0],   r.criAreaUV[1],   r.cqsAreaUV[0],   r.cqsAreaUV[1]};
    for (int k = 0; k < 8; ++k) f.fixed(F_AREAS + k, areas[k], 4);
    f.index(F_FCI, r.fci);
    // COI is defined for sources from 3300 K to 5300 K.
    if (r.cct > 3299.9 && r.cct < 5300.1) {
        f.fixed(F_COI, r.coi, 1);
    } else {
        f.undefined(F_COI);
    }
    f.set(F_CLASS_A, {"", r.classA ? "Yes" : "No", true, r.classA ? 1.0 : 0.0});
    if (r.fsi > -0.001) {
        f.fixed(F_FSI, r.fsi, 2);
    } else {
        f.undefined(F_FSI);
    }
    if (r.fsci > -0.001) {
        f.fixed(F_FSCI, r.fsci, 2);
    } else {
        f.undefined(F_FSCI);
    }
    f.fixed(F_WBMR, r.wbmr, 3);
    f.fixed(F_EML, r.eml, 1);
    f.set(F_FILM_W, filmField("", r.film3200K));
    f.set(F_FILM_D, filmField("", r.filmDaylight));
    if (r.ssiDefined) {
        f.set(F_SSI, field("", r.ssi, ValueFormat::format("%d", r.ssi)));
    } else {
        f.undefined(F_SSI);
    }
}

void writeMix(const SpectrumResults& r, const MixResults& mix, const FieldFormat& format,
              FieldWriter& f) {
    f.undefined(F_LPW);
    f.undefined(F_ELEC_W);
    f.undefined(F_UMOL_J_WP);
    if (mix.wallPlugKnown && mix.electricalWatts > 1e-6) {
        f.value(F_LPW, r.lumens / mix.electricalWatts);
        f.value(F_ELEC_W, mix.electricalWatts);
        f.value(F_UMOL_J_WP, r.umolPerSecond / mix.electricalWatts);
    }
    f.undefined(F_BLUE_WATTS);
    f.undefined(F_PHOS_WATTS);
    if (mix.bluePeakRun && mix.bluePeakRemoved) {
        const double total = r.includeIR ? r.totalWatts : r.wattsVis;
        f.value(F_PHOS_WATTS, mix.phosphorWatts * format.wattsFactor);
        const double blue = total - mix.phosphorWatts;
        if (blue >= 0) f.value(F_BLUE_WATTS, blue * format.wattsFactor);
    }
    if (mix.rmsValid) {
        f.fixed(F_RMS, mix.rms, 2);
    } else {
        f.undefined(F_RMS);
    }
    if (mix.binningOn) {
        f.fixed(F_MAX_DE, mix.maxDeltaE, 1);
    } else {
        f.undefined(F_MAX_DE);
    }
    // The drive current and voltage come from lamp designs, not from a calculation.
    f.undefined(F_INPUT_MA);
    f.undefined(F_INPUT_VOLTAGE);
}
}  // namespace

std::vector<ResultField> outputFieldValues(const SpectrumResults& r, const MixResults& mix,
                                           const FieldFormat& format) {
    std::vector<ResultField> fields(NUM_OUTPUT_FIELDS);
    FieldWriter f(fields);
    writePhotometry(r, format, f);
    writeChromaticity(r, format, f);
    writeRendering(r, f);
    writeOtherIndices(r, format, f);
    writeMix(r, mix, format, f);
    return fields;
}

bool fieldHasMeaningForSpectrumFile(int index) {
    switch (index) {
        case F_LPW:
        case F_ELEC_W:
        case F_EXT_LM:
        case F_UMOL_J_WP:
        case F_RMS:
        case F_MAX_DE:
        case F_BLUE_WATTS:
        case F_PHOS_WATTS:
        case F_TOTAL_W:
        case F_INPUT_MA:
        case F_INPUT_VOLTAGE:
            return false;
        default:
            return index >= 0 && index < NUM_OUTPUT_FIELDS;
    }
}

bool fieldHasMeaningForDesign(int index) {
    switch (index) {
        case F_MAX_DE:
        case F_INPUT_MA:
        case F_INPUT_VOLTAGE:
        case F_RMS:
            return false;
        default:
            return index >= 0 && index < NUM_OUTPUT_FIELDS;
    }
}

namespace {
// "BGR (W): b/g/r (g/b)" with the responses in percent of red, for the film that suits the CCT.
std::string filmBlock(const SpectrumResults& r) {
    const bool tungsten = r.cct < 4001.0;
    const double* bgr = tungsten ? r.film3200K : r.filmDaylight;
    if (!(bgr[0] > 1e-10 && bgr[1] > 1e-10 && bgr[2] > 1e-10)) return "\nBGR : N/A";
    return ValueFormat::format(
        tungsten ? "\nBGR (W): %.0lf/%.0lf/%.0lf (%.2lf)" : "\nBGR (D): %.0lf/%.0lf/%.0lf (%.2lf)",
        bgr[0] / bgr[2] * 100.0, bgr[1] / bgr[2] * 100.0, 100.0, bgr[1] / bgr[0]);
}

void setDecimalMark(std::string& s, bool comma) {
    for (char& c : s) {
        if (comma && c == '.') c = ',';
        if (!comma && c == ',') c = '.';
    }
}
}  // namespace

PhotometryStrings photometryStrings(const SpectrumResults& r,
                                    const std::vector<ResultField>& fields, bool commaDecimals) {
    PhotometryStrings p;
    const char* cct = fields[F_CCT].text.c_str();
    const char* cct10 = fields[F_CCT10].text.c_str();
    const char* cri = fields[F_CRI].text.c_str();
    const char* dupvp10 = fields[F_DUPVP10].text.c_str();
    const int r9 = ValueFormat::round(r.R[9]);
    const int qa = ValueFormat::round(r.Q[0]);
    p.cri = ValueFormat::format("%s K / %s CRI / %d R9 / %.4lf Duv", cct, cri, r9, r.duv);
    p.cri10 =
        ValueFormat::format("%s K / %s CRI / %d R9 / %s Du'v' (F10)", cct10, cri, r9, dupvp10);
    p.cqs = ValueFormat::format("%s K / %d CQS / %.4lf Duv", cct, qa, r.duv);
    p.cqs10 = ValueFormat::format("%s K / %d CQS / %s Du'v' (F10)", cct10, qa, dupvp10);
    p.filmBlock = filmBlock(r);
    for (std::string* s : {&p.cri, &p.cri10, &p.cqs, &p.cqs10, &p.filmBlock}) {
        setDecimalMark(*s, commaDecimals);
    }
    return p;
}
