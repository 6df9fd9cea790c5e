// Number display rules and the result fields of the main window.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "ResultFields.h"
#include "ValueFormat.h"

namespace {
const ResultField& byName(const std::vector<ResultField>& fields, const std::string& name) {
    for (const ResultField& f : fields) {
        if (f.name == name) return f;
    }
    static const ResultField missing{"missing", "", false, 0};
    ADD_FAILURE() << "no field " << name;
    return missing;
}

FieldFormat sixDecimals() {
    FieldFormat format;
    format.numDecimals = 6;
    return format;
}

// A warm white near 2856 K on the locus, as the engine would report it.
SpectrumResults warmWhite() {
    SpectrumResults r;
    r.lumens = 1234.5678;
    r.wattsVis = 5.4321;
    r.cct = 2856.44;
    r.x = 0.447571;
    r.y = 0.407449;
    r.up = 0.255967;
    r.vp = 0.524302;
    r.duv = -0.00003;
    r.dupvp = -0.000045;
    r.domWL = 583.26;
    r.purity = 0.5301;
    r.X = 1356.1;
    r.Y = 1234.5678;
    r.Z = 439.2;
    r.scotopicLumens = 1685.0;
    r.cct10 = 2830.2;
    r.x10 = 0.4511;
    r.y10 = 0.4059;
    r.up10 = 0.2590;
    r.vp10 = 0.5242;
    r.duv10 = 0.00004;
    r.dupvp10 = -0.00006;
    r.lumens10 = 1300.0;
    return r;
}
}  // namespace

TEST(ValueFormat, DecimalsShrinkAsValuesGrow) {
    const struct {
        double v;
        const char* text;
    } cases[] = {{0.005, "5.0e-03"}, {0.01, "1.0e-02"}, {0.0101, "0.010"},   {0.5, "0.500"},
                 {5.4321, "5.43"},   {54.321, "54.3"},  {1234.5678, "1235"}, {-3.0, "-3.0e+00"}};
    for (const auto& c : cases) EXPECT_EQ(ValueFormat::getValueAsString(c.v), c.text) << c.v;
}

TEST(ValueFormat, RoundGoesHalfAwayFromZero) {
    EXPECT_EQ(ValueFormat::round(2.5), 3);
    EXPECT_EQ(ValueFormat::round(-2.5), -3);
    EXPECT_EQ(ValueFormat::round(2.49), 2);
    EXPECT_EQ(ValueFormat::round(-0.4), 0);
    EXPECT_EQ(ValueFormat::round(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(ValueFormat, RoundToDecimalsAddsHalfAStep) {
    // The added half step is deliberate: 1.24 at one decimal gives 1.25.
    EXPECT_NEAR(ValueFormat::roundToDecimals(1, 1.24), 1.25, 1e-12);
    EXPECT_NEAR(ValueFormat::roundToDecimals(1, -1.24), -1.25, 1e-12);
    EXPECT_NEAR(ValueFormat::roundToDecimals(2, 3.14159), 3.145, 1e-12);
    EXPECT_EQ(ValueFormat::roundToDecimals(-1, 3.14159), 3.14159);
}

TEST(ResultFields, WarmWhiteShowsTheWindowFormats) {
    const std::vector<ResultField> f = outputFieldValues(warmWhite());
    const struct {
        const char* name;
        const char* text;
    } cases[] = {{"Lumens", "1235"},       {"Vis watt", "5.43"},     {"LER", "227"},
                 {"CCT", "2856"},          {"Mired", "350"},         {"x", "0.4476"},
                 {"y", "0.4074"},          {"Duv", "0.0000"},        {"Du'v'", "0.0000"},
                 {"dom WL", "583.3"},      {"Purity (%)", "53.0"},   {"S/P ratio", "1.36"},
                 {"CCT (F,10)", "2830"},   {"Duv (F,10)", "0.0000"}, {"Du'v' (F,10)", "0.0001"},
                 {"Lumens (F,10)", "1300"}};
    for (const auto& c : cases) EXPECT_EQ(byName(f, c.name).text, c.text) << c.name;
    EXPECT_DOUBLE_EQ(byName(f, "Duv").value, -0.00003);  // the sign stays in the value
    EXPECT_DOUBLE_EQ(byName(f, "Mired").value, 1e6 / 2856.44);
}

TEST(ResultFields, NegativeDistancesKeepTheirSignWhenVisible) {
    SpectrumResults r = warmWhite();
    r.duv = -0.0123;
    r.duv10 = -0.00012;
    const std::vector<ResultField> f = outputFieldValues(r, {}, sixDecimals());
    EXPECT_EQ(byName(f, "Duv").text, "-0.012300");
    EXPECT_EQ(byName(f, "Duv (F,10)").text, "-0.000120");
    EXPECT_EQ(byName(f, "x").text, "0.447571");
}

TEST(ResultFields, ValuesWithoutMeaningShowNA) {
    SpectrumResults r = warmWhite();
    r.duv = 0.06;    // too far from the locus for a CCT
    r.domWL = -1.0;  // a purple
    r.purity = -1.0;
    r.lumens = 0.0;
    r.wattsVis = 0.0;
    r.cct10 = 998.0;  // "<1000": no mired from it
    r.Z = std::numeric_limits<double>::infinity();
    const std::vector<ResultField> f = outputFieldValues(r);
    for (const char* name :
         {"CCT", "Mired", "dom WL", "Purity (%)", "S/P ratio", "LER", "Z", "COI", "SSI"}) {
        EXPECT_EQ(byName(f, name).text, "N/A") << name;
        EXPECT_FALSE(byName(f, name).defined) << name;
    }
    EXPECT_EQ(byName(f, "CCT (F,10)").text, "<1000");
}

TEST(ResultFields, RefusedTm30AndFailedTlciShowNA) {
    SpectrumResults r = warmWhite();
    r.Rf = 84.6;
    r.chromaShiftPct[0] = -12.5;
    r.hueShift[3] = 0.123;
    r.tlciQa = 79.5;
    r.tlciD = 0.04;
    std::vector<ResultField> f = outputFieldValues(r);
    EXPECT_EQ(byName(f, "Rf").text, "85");
    EXPECT_EQ(byName(f, "Rcs,h1").text, "-13%");  // half away from zero
    EXPECT_EQ(byName(f, "Rhs,h4").text, "0.12");
    EXPECT_EQ(byName(f, "TLCI Qa").text, "80");  // trunc(Qa + 0.5)
    EXPECT_EQ(byName(f, "TLCI d").text, "0.0");

    r.tm30Error = true;
    r.tlciQa = Vantrel::TLCI_FAILED;
    f = outputFieldValues(r);
    for (const char* name :
         {"Rf", "Rg", "Rf,skin", "Rfh,1", "Rhs,h16", "Rcs,h8", "TLCI Qa", "TLCI d"}) {
        EXPECT_EQ(byName(f, name).text, "N/A") << name;
    }
}

TEST(ResultFields, CoiIsShownFrom3300To5300KelvinOnly) {
    SpectrumResults r = warmWhite();
    r.coi = 4.26;
    for (double cct : {3299.9, 5300.1}) {
        r.cct = cct;
        EXPECT_EQ(byName(outputFieldValues(r), "COI").text, "N/A") << cct;
    }
    r.cct = 3300.0;
    EXPECT_EQ(byName(outputFieldValues(r), "COI").text, "4.3");
    r.film3200K[2] = 0.0;  // no red response
    EXPECT_EQ(byName(outputFieldValues(r), "W (G/R)").text, "NAN");
}

TEST(ResultFields, EveryFieldSitsAtItsNumberWithItsLabel) {
    const std::vector<ResultField> f = outputFieldValues(warmWhite());
    ASSERT_EQ(f.size(), static_cast<size_t>(NUM_OUTPUT_FIELDS));
    for (int i = 0; i < NUM_OUTPUT_FIELDS; ++i) {
        EXPECT_EQ(f[i].name, outputFieldName(i)) << i;
        EXPECT_FALSE(f[i].text.empty()) << f[i].name;
    }
    EXPECT_EQ(f[1].text, "5.43");
    EXPECT_EQ(f[23].text, "0.4476");
    EXPECT_EQ(f[147].text, "N/A") << "Input mA comes from lamp designs only";
}

TEST(ResultFields, MixFieldsNeedTheirInputs) {
    SpectrumResults r = warmWhite();
    r.umolPerSecond = 20.0;
    FieldFormat milliwatts;
    milliwatts.wattsFactor = 1000.0;
    std::vector<ResultField> f = outputFieldValues(r, {}, milliwatts);
    for (const char* name : {"LPW", "Elec. W", "umol/J (wp)", "RMS", "max dE*", "Blue watts",
                             "Phos watts", "Total W", "Ext. lm"}) {
        EXPECT_EQ(byName(f, name).text, "N/A") << name;
    }
    EXPECT_EQ(byName(f, "Vis watt").text, "5432");

    MixResults mix;
    mix.wallPlugKnown = true;
    mix.electricalWatts = 10.0;
    mix.bluePeakRun = mix.bluePeakRemoved = true;
    mix.phosphorWatts = 4.0;
    mix.rmsValid = true;
    mix.rms = 0.1234;
    r.includeIR = true;
    r.totalWatts = 6.0;
    f = outputFieldValues(r, mix, milliwatts);
    EXPECT_EQ(byName(f, "LPW").text, "123");  // 1234.57 lm / 10 W
    EXPECT_EQ(byName(f, "Elec. W").text, "10.0");
    EXPECT_EQ(byName(f, "umol/J (wp)").text, "2.00");
    EXPECT_EQ(byName(f, "Phos watts").text, "4000");
    EXPECT_EQ(byName(f, "Blue watts").text, "2000");  // all 6 W minus the phosphor's 4 W
    EXPECT_EQ(byName(f, "Total W").text, "6000");
    EXPECT_EQ(byName(f, "RMS").text, "0.12");

    mix.phosphorWatts = 7.0;  // more than there is: no blue left to show
    EXPECT_EQ(byName(outputFieldValues(r, mix), "Blue watts").text, "N/A");
}

TEST(ResultFields, GamutFieldsFollowTheChosenPlane) {
    SpectrumResults r = warmWhite();
    r.gamutCRI[0] = 1.1111;
    r.gamutCRI[1] = 2.2222;
    r.criAreaUpVp[0] = 0.0061234;
    r.criAreaUV[0] = 0.0041234;
    FieldFormat uv;
    uv.gamutInUV = true;
    EXPECT_EQ(byName(outputFieldValues(r), "Gamut CRI").text, "1.111");
    EXPECT_EQ(byName(outputFieldValues(r), "GA CRI").text, "612");
    EXPECT_EQ(byName(outputFieldValues(r, {}, uv), "Gamut CRI").text, "2.222");
    EXPECT_EQ(byName(outputFieldValues(r, {}, uv), "GA CRI").text, "412");
    EXPECT_EQ(byName(outputFieldValues(r, {}, uv), "CRI gamut area u'v' test").text, "0.0061");
}

TEST(ResultFields, PhotometryStringsUseTheShownTextsAndTheDecimalMark) {
    SpectrumResults r = warmWhite();
    r.R[0] = 82.4;
    r.R[9] = 11.6;
    r.Q[0] = 80.5;
    r.film3200K[0] = 50.0;
    r.film3200K[1] = 80.0;
    r.film3200K[2] = 100.0;
    const std::vector<ResultField> f = outputFieldValues(r);
    PhotometryStrings p = photometryStrings(r, f, false);
    EXPECT_EQ(p.cri, "2856 K / 82 CRI / 12 R9 / -0.0000 Duv");
    EXPECT_EQ(p.cqs, "2856 K / 81 CQS / -0.0000 Duv");
    EXPECT_EQ(p.cri10, "2830 K / 82 CRI / 12 R9 / 0.0001 Du'v' (F10)");
    EXPECT_EQ(p.filmBlock, "\nBGR (W): 50/80/100 (1.60)");
    p = photometryStrings(r, f, true);
    EXPECT_EQ(p.cqs10, "2830 K / 81 CQS / 0,0001 Du'v' (F10)");
    EXPECT_EQ(p.filmBlock, "\nBGR (W): 50/80/100 (1,60)");
    r.cct = 5000.0;  // the daylight film, which has no response here
    EXPECT_EQ(photometryStrings(r, f, false).filmBlock, "\nBGR : N/A");
}

TEST(ResultFields, ValuesThatRoundToZeroShowNoMinusSign) {
    SpectrumResults r = warmWhite();
    for (int j = 0; j < Vantrel::TM30_NUM_BINS; ++j) r.hueShift[j] = -0.004;
    r.hueShift[1] = -0.006;  // shows -0.01: a visible value keeps its sign
    r.x10 = -0.00001;
    r.tlciD = -0.04;
    r.tlciQa = 90;
    r.wbmr = -0.0004;
    const std::vector<ResultField> f = outputFieldValues(r);
    EXPECT_EQ(byName(f, "Rhs,h1").text, "0.00");
    EXPECT_EQ(byName(f, "Rhs,h2").text, "-0.01");
    EXPECT_EQ(byName(f, "x (F,10)").text, "0.0000");
    EXPECT_EQ(byName(f, "TLCI d").text, "0.0");
    EXPECT_EQ(byName(f, "WBMR").text, "0.000");
    for (const ResultField& field : f) {
        const bool negativeZero = field.text.rfind("-0", 0) == 0 &&
                                  field.text.find_first_of("123456789") == std::string::npos;
        EXPECT_FALSE(negativeZero) << field.name << " " << field.text;
    }
}

TEST(ResultFields, RValuesShowNAWhereRaDoes) {
    // Beyond 25000 K the engine gives no Ra; a black body at the top of the temperature range
    // still has R1 to R15 of about 100, which must not stand beside an "N/A" Ra.
    double spectrum[Vantrel::NUM_GRID_POINTS_IR] = {};
    Vantrel::getBlackBody(spectrum, 950000.0, Vantrel::NUM_GRID_POINTS);
    Vantrel::scaleSpectrum(spectrum, 1.0, Vantrel::NUM_GRID_POINTS);
    SpectrumCalculator calculator;
    const SpectrumResults hot = calculator.calculate(spectrum);
    ASSERT_GT(hot.cct, 25000.0);
    std::vector<ResultField> f = outputFieldValues(hot);
    EXPECT_EQ(byName(f, "CRI (Ra)").text, "N/A");
    for (int k = 1; k <= 15; ++k) {
        const std::string name = "R" + std::to_string(k);
        EXPECT_EQ(byName(f, name).text, "N/A") << name;
        EXPECT_FALSE(byName(f, name).defined) << name;
    }
    EXPECT_NE(byName(f, "Q1").text, "N/A") << "CQS has its own range";

    // At 25000 K both are shown.
    SpectrumResults edge = warmWhite();
    edge.cct = 25000.0;
    edge.R[0] = 97.6;
    edge.R[9] = 88.4;
    f = outputFieldValues(edge);
    EXPECT_EQ(byName(f, "CRI (Ra)").text, "98");
    EXPECT_EQ(byName(f, "R9").text, "88");
}
