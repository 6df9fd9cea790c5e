// TLCI-2012 (EBU Tech 3355): Qa, reference luminaire, gamut verdicts, hue sectors and the trace.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "TestSpectra.h"
#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;
constexpr int N5 = VantrelData::NUM_TLCI;
constexpr int PATCHES = 24;
constexpr int SCORED = 18;
constexpr int SECTORS = 12;
constexpr int UNKNOWN = -1000;
constexpr double EXACT = 1e-9;
constexpr double SPECTRUM_TOL = 1e-12;
const std::string DATA_DIR = std::string(LUMIVAR_TEST_DATA_DIR) + "/";

using Spectrum = std::vector<double>;

// Sum of Gaussians (height, centre nm, sigma nm) on the 2 nm grid.
Spectrum gaussians(const std::vector<std::vector<double>>& peaks) {
    Spectrum s(N, 0.0);
    for (int i = 0; i < N; ++i) {
        for (const auto& p : peaks) {
            const double d = (360.0 + 2.0 * i - p[1]) / p[2];
            s[i] += p[0] * std::exp(-0.5 * d * d);
        }
    }
    return s;
}

Spectrum planck(double T) { return testutil::planckSpectrum(T); }

Spectrum illuminant(const std::string& file) { return testutil::loadCIEIlluminant(file); }

// "gauss:h,nm,sigma;..." or a file name.
Spectrum spectrumOf(const std::string& name) {
    if (name.compare(0, 6, "gauss:") != 0) return illuminant(name);
    std::vector<std::vector<double>> peaks;
    std::istringstream all(name.substr(6));
    std::string peak;
    while (std::getline(all, peak, ';')) {
        std::vector<double> p(3);
        std::sscanf(peak.c_str(), "%lf,%lf,%lf", &p[0], &p[1], &p[2]);
        peaks.push_back(p);
    }
    return gaussians(peaks);
}

struct QaRun {
    double qa = 0;
    double rgb[3][2][PATCHES] = {};
    double reference[N5] = {};
    int sectors[SECTORS][3] = {};
    bool inGamut[PATCHES] = {};
    std::string trace;
};

QaRun run(const Spectrum& test, const Spectrum* reference, double cct) {
    QaRun r;
    double* rows[3][2];
    for (int c = 0; c < 3; ++c) rows[c][0] = r.rgb[c][0], rows[c][1] = r.rgb[c][1];
    int* sectorRows[SECTORS];
    for (int k = 0; k < SECTORS; ++k) sectorRows[k] = r.sectors[k];
    FILE* f = std::tmpfile();
    Vantrel v;
    r.qa = v.getQa_TLCI_2012(test.data(), reference ? reference->data() : nullptr, cct, rows[0],
                             rows[1], rows[2], r.reference, sectorRows, r.inGamut, f);
    std::rewind(f);
    char buf[4096];
    for (size_t n; (n = std::fread(buf, 1, sizeof buf, f)) > 0;) r.trace.append(buf, n);
    std::fclose(f);
    return r;
}

std::vector<std::string> split(const std::string& s, char by) {
    std::vector<std::string> parts;
    std::string part;
    std::istringstream in(s);
    while (std::getline(in, part, by)) parts.push_back(part);
    if (!s.empty() && s.back() == by) parts.emplace_back();
    return parts;
}

// The 18 colour rows of a trace, split into cells.
std::vector<std::vector<std::string>> colourRows(const std::string& trace) {
    std::vector<std::vector<std::string>> rows;
    const auto lines = split(trace, '\n');
    size_t i = 0;
    while (i < lines.size() && lines[i].compare(0, 6, "color\t") != 0) ++i;
    for (++i; i < lines.size() && !lines[i].empty(); ++i) rows.push_back(split(lines[i], '\t'));
    return rows;
}

double lastCell(const std::vector<std::string>& row) { return std::stod(row.back()); }
}  // namespace

TEST(TLCIQa, TestEqualToItsReferenceScores100WithNoColourDifference) {
    for (const Spectrum& s :
         {planck(3200), illuminant("cie_F2_5nm.txt"), gaussians({{1, 450, 10}, {0.8, 560, 60}})}) {
        const QaRun r = run(s, &s, 0);
        EXPECT_NEAR(r.qa, 100.0, EXACT);
        const auto rows = colourRows(r.trace);
        ASSERT_EQ(rows.size(), static_cast<size_t>(SCORED));
        for (const auto& row : rows) EXPECT_EQ(lastCell(row), 0.0) << "dE of colour " << row[0];
        for (int c = 0; c < 3; ++c) {
            for (int p = 0; p < PATCHES; ++p) EXPECT_EQ(r.rgb[c][0][p], r.rgb[c][1][p]) << p;
        }
        for (const auto& sector : r.sectors) {
            for (int v : sector) EXPECT_TRUE(v == 0 || v == UNKNOWN) << v;
        }
    }
}

TEST(TLCIQa, ReproducesPublishedValues) {
    std::ifstream in(DATA_DIR + "tlci_published.tsv");
    ASSERT_TRUE(in) << "test table missing";
    std::string line;
    int rows = 0;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#' || line.compare(0, 8, "spectrum") == 0) continue;
        std::istringstream row(line);
        std::string name;
        double qa, tol;
        ASSERT_TRUE(row >> name >> qa >> tol) << line;
        const Spectrum s = spectrumOf(name);
        Vantrel v;
        v.calcAll(s.data(), false, false);
        EXPECT_NEAR(v.getQa_TLCI_2012(s.data(), nullptr, v.getCCT()), qa, tol) << name;
        ++rows;
    }
    EXPECT_EQ(rows, 6);
}

TEST(TLCIReference, PlanckBelow3400DaylightAbove5000AndAMixBetween) {
    VantrelData data;
    double S0[N5], S1[N5], S2[N5], d5000[N5], p3400[N5];
    data.getDaylightCoefficients_TLCI(S0, S1, S2);
    Vantrel::getSyntheticDaylight_TLCI(S0, S1, S2, d5000, 5000);
    Vantrel::blackBody_TLCI(3400, p3400);
    const Spectrum test = planck(4000);
    const struct {
        double cct, daylightShare;
    } cases[] = {{3400, 0}, {4200, 0.5}, {4600, 0.75}, {5000, 1}};
    for (const auto& c : cases) {
        const QaRun r = run(test, nullptr, c.cct);
        for (int i = 0; i < N5; ++i) {
            const double want = c.daylightShare * d5000[i] / d5000[36] +
                                (1 - c.daylightShare) * p3400[i] / p3400[36];
            ASSERT_NEAR(r.reference[i], want, SPECTRUM_TOL) << c.cct << " K, index " << i;
        }
    }
    // Outside the mix the reference is the CIE formula's own, relative to 560 nm.
    double own[N5];
    for (double cct : {2800.0, 6500.0}) {
        if (cct < 3400) {
            Vantrel::blackBody_TLCI(cct, own);
        } else {
            Vantrel::getSyntheticDaylight_TLCI(S0, S1, S2, own, cct);
        }
        const QaRun r = run(test, nullptr, cct);
        for (int i = 0; i < N5; ++i) ASSERT_NEAR(r.reference[i], own[i] / own[36], SPECTRUM_TOL);
    }
}

TEST(TLCIGamut, AReferenceThatCannotShowAnyPatchFailsTheScoreAndEverySector) {
    // A single line cannot: the white balance turns every patch under it into a grey. A signed
    // pair of lines leaves the balanced camera signals far outside 0..1.
    const Spectrum reference = gaussians({{1, 520, 4}, {-1, 560, 4}});
    const QaRun r = run(planck(5000), &reference, 0);
    EXPECT_EQ(r.qa, Vantrel::TLCI_FAILED);
    for (int p = 0; p < PATCHES; ++p) EXPECT_EQ(r.inGamut[p], p >= SCORED) << p;
    for (const auto& sector : r.sectors) {
        for (int v : sector) EXPECT_EQ(v, UNKNOWN);
    }
}

TEST(TLCIGamut, OnlyTheReferenceDecides) {
    // Blue and orange lines throw the yellow patch (15) out of gamut as a reference, but as the
    // test luminaire they only clip it: the patch is still scored.
    const int yellow = 15;
    const Spectrum lines = gaussians({{1, 400, 4}, {1, 600, 4}});
    const Spectrum white = planck(5000);
    const QaRun asReference = run(white, &lines, 0);
    const QaRun asTest = run(lines, &white, 0);
    for (int p = 0; p < PATCHES; ++p) {
        EXPECT_EQ(asReference.inGamut[p], p != yellow) << p;
        EXPECT_TRUE(asTest.inGamut[p]) << p;
    }
}

TEST(TLCISectors, FiguresFollowTheTracedDifferences) {
    // Sector figures rebuilt from the traced dL/SL, dC/SC, dH/SH and sector names: mean per
    // sector, times 6/3.16, gaps between filled sectors take the mean of both, truncated, beyond
    // ±15 unknown, sign turned.
    const Spectrum poor = gaussians({{1, 450, 15}, {1, 580, 15}});
    const QaRun r = run(poor, nullptr, 6900);
    const auto rows = colourRows(r.trace);
    const auto lines = split(r.trace, '\n');
    double sum[SECTORS][3] = {};
    int n[SECTORS] = {};
    for (int p = 0; p < SCORED; ++p) {
        const auto cells = split(lines[lines.size() - SCORED - 1 + p], '\t');
        ASSERT_TRUE(r.inGamut[p]);
        int k = 0;
        char name[4];
        for (; k < SECTORS; ++k) {
            Vantrel::getTLCI_2012_hue_name_4_char(k, name);
            if (cells[1] == std::string(name, 3)) break;
        }
        ASSERT_LT(k, SECTORS) << cells[1];
        ++n[k];
        for (int c = 0; c < 3; ++c) sum[k][c] += std::stod(rows[p][rows[p].size() - 4 + c]);
    }
    int beyond = 0, inRange = 0;
    for (int k = 0; k < SECTORS; ++k) {
        const int a = (k + SECTORS - 1) % SECTORS, b = (k + 1) % SECTORS;
        for (int c = 0; c < 3; ++c) {
            double v = 1000.0;
            if (n[k] > 0) v = 6.0 * sum[k][c] / n[k] / 3.16;
            if (n[k] == 0 && n[a] > 0 && n[b] > 0) {
                v = 3.0 * (sum[a][c] / n[a] + sum[b][c] / n[b]) / 3.16;
            }
            const int t = static_cast<int>(v);
            beyond += std::abs(t) > 15;
            inRange += std::abs(t) <= 15 && t != 0;
            EXPECT_EQ(r.sectors[k][c], std::abs(t) > 15 ? UNKNOWN : -t) << k << "," << c;
        }
    }
    // The poor two-band source reaches both branches.
    EXPECT_GT(beyond, 0);
    EXPECT_GT(inRange, 0);
}

TEST(TLCISectors, HueSectorIsCentredOnTheDisplayRed) {
    int red = 0;
    EXPECT_EQ(Vantrel::getHueSector_TLCI_2012(1, 0, 0, &red), 0);
    EXPECT_EQ(red, 103);  // trunc(atan(0.5 / -0.11457)) + 180
    const struct {
        double r, g, b;
        int sector;
    } cases[] = {{1, 1, 0, 2},  {0, 1, 0, 4},      {0, 1, 1, 6}, {0, 0, 1, 8},
                 {1, 0, 1, 10}, {0.5, 0.5, 0.5, 9}};  // grey: hue 0, (0 + 15 - 103) mod 360
    for (const auto& c : cases) {
        int reference = red;
        EXPECT_EQ(Vantrel::getHueSector_TLCI_2012(c.r, c.g, c.b, &reference), c.sector)
            << c.r << " " << c.g << " " << c.b;
        EXPECT_EQ(reference, red);
    }
}

TEST(TLCISectors, AColourWithoutANumberFallsInTheGreySector) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    int reference = 103;
    EXPECT_EQ(Vantrel::getHueSector_TLCI_2012(nan, 0.5, 0.5, &reference), 9);
    EXPECT_EQ(Vantrel::getHueSector_TLCI_2012(0.5, 0.5, nan, &reference), 9);
    EXPECT_EQ(reference, 103);
}

TEST(TLCISectors, HueNames) {
    const char* names[] = {"R", "R/Y", "Y", "Y/G", "G", "G/C", "C", "C/B", "B", "B/M", "M", "M/R"};
    char name[4];
    for (int k = 0; k < SECTORS; ++k) {
        Vantrel::getTLCI_2012_hue_name_4_char(k, name);
        EXPECT_STREQ(name, names[k]);
    }
    for (int k : {-1, 12}) {
        std::memset(name, 'x', sizeof name);
        Vantrel::getTLCI_2012_hue_name_4_char(k, name);
        for (char ch : name) EXPECT_EQ(ch, '\0') << k;
    }
}

TEST(TLCIColourOffset, DuvUnitsWithTheAllowanceBetween4000And5000) {
    const struct {
        double cct, duv, d;
    } cases[] = {{4500, 0, -0.45},    {4500, 0.00541, 1.45}, {4200, -0.00541, -1.18},
                 {4000, 0.00541, 1},  {5000, -0.01082, -2},  {3000, 0.002705, 0.5},
                 {6500, -0.00541, -1}};
    for (const auto& c : cases) {
        EXPECT_NEAR(Vantrel::getD_TLCI_2012(c.cct, c.duv), c.d, EXACT) << c.cct << " " << c.duv;
    }
}

TEST(TLCITrace, HeadersRowsAndColumnsLineUp) {
    const QaRun r = run(illuminant("cie_F2_5nm.txt"), nullptr, 4225);
    const auto lines = split(r.trace, '\n');
    ASSERT_GT(lines.size(), 110u);
    EXPECT_EQ(lines[0],
              "nm\tspectrum[t]\tspectrum[r]\t\tt = test spectrum\t\tr = reference spectrum");
    for (int i = 0; i < N5; ++i) {
        const auto cells = split(lines[1 + i], '\t');
        ASSERT_EQ(cells.size(), 3u) << lines[1 + i];
        EXPECT_EQ(std::stoi(cells[0]), 380 + 5 * i);
    }
    EXPECT_EQ(lines[78], "");
    EXPECT_EQ(lines[79], "White point\tXw\tYw\tZw\tRm[t]\tGm[t]\tBm[t]\tRm[r]\tGm[r]\tBm[r]");
    EXPECT_EQ(split(lines[80], '\t').size(), 10u);
    EXPECT_EQ(lines[81], "");
    const auto header = split(lines[82], '\t');
    EXPECT_EQ(header.size(), 73u);  // colour, 6 stages x 6, 10 XYZ/xy, 26 CIEDE2000 fields
    EXPECT_EQ(header.front(), "color");
    EXPECT_EQ(header[37], "X[t]");
    EXPECT_EQ(header.back(), "dE*");
    const auto rows = colourRows(r.trace);
    ASSERT_EQ(rows.size(), static_cast<size_t>(SCORED));
    for (int p = 0; p < SCORED; ++p) {
        EXPECT_EQ(rows[p].size(), header.size()) << "colour " << p + 1;
        EXPECT_EQ(rows[p][0], std::to_string(p + 1));
    }
    const size_t qa = 83 + SCORED + 2;
    EXPECT_EQ(lines[qa - 2] + lines[qa - 1], "");
    char expected[64];
    std::snprintf(expected, sizeof expected, "Qa =\t%.6le", r.qa);
    EXPECT_EQ(lines[qa], expected);
    EXPECT_EQ(lines[qa + 2], "Color\tSector\tdE*\tQ");
    EXPECT_EQ(lines.size(), qa + 3 + SCORED + 1);  // the trace ends with a newline
}
