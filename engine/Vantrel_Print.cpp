// Dump of the engine's tables to tab-separated files in the current folder, for checking them
// against their published sources in a spreadsheet.
#include <cstdio>

#include "Grid.h"
#include "Vantrel.h"
#include "VantrelState.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

double nm(int i) { return grid::nm(i); }

// Writes a header and one row per grid point of the given columns.
bool writeGridColumns(const char* path, const char* header, const double* const* columns,
                      int numColumns) {
    FILE* f = std::fopen(path, "w");
    if (f == nullptr) return false;
    std::fprintf(f, "%s\n", header);
    for (int i = 0; i < N; ++i) {
        std::fprintf(f, "%.0lf", nm(i));
        for (int c = 0; c < numColumns; ++c) std::fprintf(f, "\t%.10g", columns[c][i]);
        std::fprintf(f, "\n");
    }
    return std::fclose(f) == 0;
}
}  // namespace

bool Vantrel::printCoefficients() {
    const Reference& t = *ref;
    bool ok = true;

    const char* observerFiles[3] = {"XYZ_coeff_1931_2deg.xls", "XYZ_coeff_1960_10deg.xls",
                                    "XYZ_coeff_2015_10deg.xls"};
    const int observerIndex[3] = {0, 1, 3};
    for (int k = 0; k < 3; ++k) {
        const int o = observerIndex[k];
        const double* cols[3] = {t.xbar[o], t.ybar[o], t.zbar[o]};
        ok &= writeGridColumns(observerFiles[k], "nm\txbar\tybar\tzbar", cols, 3);
    }

    {
        FILE* f = std::fopen("TCS_VS_coeff.xls", "w");
        if (f == nullptr) {
            ok = false;
        } else {
            std::fprintf(f, "nm");
            for (int k = 1; k < NUM_SAMPLES; ++k) std::fprintf(f, "\tTCS%02d", k);
            for (int k = 1; k < NUM_SAMPLES; ++k) std::fprintf(f, "\tVS%d", k);
            std::fprintf(f, "\n");
            for (int i = 0; i < N; ++i) {
                std::fprintf(f, "%.0lf", nm(i));
                for (int k = 1; k < NUM_SAMPLES; ++k) std::fprintf(f, "\t%.10g", t.tcs[k][i]);
                for (int k = 1; k < NUM_SAMPLES; ++k) std::fprintf(f, "\t%.10g", t.vs[k][i]);
                std::fprintf(f, "\n");
            }
            ok &= std::fclose(f) == 0;
        }
    }

    // Table 0 serves the 1931 2° observer (and 1964 and 2015 2°), table 1 the 2015 10° one.
    const char* cctFiles[2] = {"CCT_coeff_1931.xls", "CCT_coeff_2015.xls"};
    for (int k = 0; k < 2; ++k) {
        FILE* f = std::fopen(cctFiles[k], "w");
        if (f == nullptr) {
            ok = false;
            continue;
        }
        std::fprintf(f, "urd\tu\tv\n");
        for (int r = 0; r < VantrelData::NUM_CCT_TABLE; ++r) {
            std::fprintf(f, "%.10g\t%.15g\t%.15g\n", t.cctUrd[k][r], t.cctU[k][r], t.cctV[k][r]);
        }
        ok &= std::fclose(f) == 0;
    }

    const double* daylight[3] = {t.S0, t.S1, t.S2};
    ok &= writeGridColumns("daylight_coeff.xls", "nm\tS0\tS1\tS2", daylight, 3);
    const double* well[2] = {t.wellMelanopic, t.wellVisual};
    ok &= writeGridColumns("Well_building_coeff.xls", "nm\tmelanopic\tvisual", well, 2);
    return ok;
}
