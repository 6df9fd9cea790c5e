// Fillers for the engine's reference tables.
//
// The published tables (data/VantrelTables.h) keep their own grids; this file puts them on the
// engine's grids and derives the Planck tables from the observers. Tables given every 1 or 2 nm
// are sampled at the grid points, coarser tables are interpolated linearly between their rows,
// and every table is 0 outside its published range unless noted.
#include "VantrelData.h"

#include <cmath>
#include <cstddef>

#include "Grid.h"
#include "Vantrel.h"
#include "data/VantrelTables.h"

namespace tables = lumivar_tables;

namespace {

constexpr int NO_LIMIT_NM = -1;

constexpr int gridNm(int i) { return static_cast<int>(grid::nm(i)); }

// Value of `column` at `nm` in a table whose column 0 holds a regular wavelength grid: the row
// itself on the table's grid, linear between rows, 0 outside the table.
template <std::size_t R, std::size_t C>
double sampleLinear(const double (&table)[R][C], std::size_t column, int nm) {
    static_assert(R >= 2, "a table needs at least two rows");
    const int firstNm = static_cast<int>(std::lround(table[0][0]));
    const int stepNm = static_cast<int>(std::lround(table[1][0] - table[0][0]));
    const int lastNm = firstNm + stepNm * static_cast<int>(R - 1);
    if (nm < firstNm || nm > lastNm) return 0.0;
    const std::size_t row = static_cast<std::size_t>((nm - firstNm) / stepNm);
    const int rest = (nm - firstNm) % stepNm;
    if (rest == 0) return table[row][column];
    const double fraction = static_cast<double>(rest) / stepNm;
    return table[row][column] + fraction * (table[row + 1][column] - table[row][column]);
}

// One column on grid A, optionally limited to [fromNm, toNm] with zeros outside.
template <std::size_t R, std::size_t C>
void toGridA(const double (&table)[R][C], std::size_t column, double* out, int fromNm = NO_LIMIT_NM,
             int toNm = NO_LIMIT_NM) {
    for (int i = 0; i < VantrelData::NUM_GRID; ++i) {
        const int nm = gridNm(i);
        const bool inside =
            (fromNm == NO_LIMIT_NM || nm >= fromNm) && (toNm == NO_LIMIT_NM || nm <= toNm);
        out[i] = inside ? sampleLinear(table, column, nm) : 0.0;
    }
}

// Columns 1 to 3 (x̄, ȳ, z̄) of a colour-matching-function table on grid A.
template <std::size_t R>
void observerToGridA(const double (&table)[R][4], double* xbar, double* ybar, double* zbar,
                     int fromNm = NO_LIMIT_NM, int toNm = NO_LIMIT_NM) {
    toGridA(table, 1, xbar, fromNm, toNm);
    toGridA(table, 2, ybar, fromNm, toNm);
    toGridA(table, 3, zbar, fromNm, toNm);
}

// One column of a table published on grid B (380 to 760 nm, 5 nm), copied as it stands.
template <std::size_t R, std::size_t C>
void copyGridB(const double (&table)[R][C], std::size_t column, double* out) {
    static_assert(R == VantrelData::NUM_TLCI, "not a grid B table");
    for (std::size_t r = 0; r < R; ++r) out[r] = table[r][column];
}

// A film layer's digitised log10 sensitivity, interpolated linearly in wavelength inside its
// digitised range (0 outside), then taken to linear sensitivity and multiplied by `gain`.
template <std::size_t R>
void filmLayerToGridA(const double (&layer)[R][2], double gain, double* out) {
    std::size_t k = 0;
    for (int i = 0; i < VantrelData::NUM_GRID; ++i) {
        const double nm = gridNm(i);
        if (nm < layer[0][0] || nm > layer[R - 1][0]) {
            out[i] = 0.0;
            continue;
        }
        while (k + 2 < R && layer[k + 1][0] < nm) ++k;
        const double fraction = (nm - layer[k][0]) / (layer[k + 1][0] - layer[k][0]);
        const double logS = layer[k][1] + fraction * (layer[k + 1][1] - layer[k][1]);
        out[i] = gain * std::pow(10.0, logS);
    }
}

// Fills rows[first + k] from columns 1 + k of a reflectance table, k = 0 .. count-1.
template <std::size_t R, std::size_t C>
void reflectancesToGridA(const double (&table)[R][C], double** rows, int first, int count) {
    for (int k = 0; k < count; ++k) {
        toGridA(table, static_cast<std::size_t>(1 + k), rows[first + k]);
    }
}

// Temperatures of the 26-row Planck table: fixed anchors at rows 0, 1, 13, 22, 23, 24 and 25,
// the rows between rising geometrically and rounded to 10 K. The last row is urd = 1 mired.
constexpr double CCT_TABLE_KELVIN[VantrelData::NUM_CCT_TABLE] = {
    1000,  1040,  1100, 1170, 1240, 1310, 1390, 1470, 1560, 1650, 1750, 1850, 1960,  // rows 0-12
    2080,  2430,  2830, 3300, 3850, 4500, 5250, 6120, 7140, 8330,                    // rows 13-22
    12000, 25000, 1e6};                                                              // rows 23-25

// Planck's law on grid A as the CCT table uses it: c2 = 14388 µm·K, λ in nm, urd in mired.
constexpr double C2_CCT_TABLE = 14.388;  // c2 / (1 nm · 1e6 K)

// Black-body line: c2 in m·K, λ in m; the 1e-30 only keeps the values near 1.
constexpr double C2 = 0.01438769;
constexpr double BLACK_BODY_SCALE = 1e-30;
constexpr double BLACK_BODY_FIRST_K = 1000.0;
constexpr double BLACK_BODY_STEP_K = 10.0;

// CIE 1931 ȳ at 830 nm continued geometrically to this value at 1050 nm.
constexpr double EYE_IR_AT1050NM = 4.27534e-12;

void blackBodyLine(const double* xbar, const double* ybar, const double* zbar, int* count4000K,
                   int* count5000K, double* x, double* y) {
    for (int k = 0; k < VantrelData::NUM_BLACK_BODY_LINE; ++k) {
        const double kelvin = BLACK_BODY_FIRST_K + BLACK_BODY_STEP_K * k;
        double X = 0.0, Y = 0.0, Z = 0.0;
        for (int i = 0; i < VantrelData::NUM_GRID; ++i) {
            const double m = grid::metres(i);
            const double s = BLACK_BODY_SCALE / (std::pow(m, 5) * (std::exp(C2 / kelvin / m) - 1));
            // The engine's end-point rule: every point once, plus half of each end point.
            const double w = (i == 0 || i == VantrelData::NUM_GRID - 1) ? 1.5 * s : s;
            X += xbar[i] * w;
            Y += ybar[i] * w;
            Z += zbar[i] * w;
        }
        const double sum = X + Y + Z;
        x[k] = X / sum;
        y[k] = Y / sum;
    }
    *count4000K = static_cast<int>((4000.0 - BLACK_BODY_FIRST_K) / BLACK_BODY_STEP_K) + 1;
    *count5000K = static_cast<int>((5000.0 - BLACK_BODY_FIRST_K) / BLACK_BODY_STEP_K) + 1;
}

// Appends a 1 nm colour-matching-function table ending at 830 nm as grid C rows; a table that
// starts after 360 nm repeats its first row down to 360 nm.
template <std::size_t R>
void appendLocus(const double (&table)[R][4], int* count, double* X, double* Y, double* Z) {
    static_assert(R <= VantrelData::NUM_LOCUS, "locus table too long");
    constexpr int repeatFirst = VantrelData::NUM_LOCUS - static_cast<int>(R);
    for (int j = 0; j < VantrelData::NUM_LOCUS; ++j) {
        const std::size_t row = static_cast<std::size_t>(j < repeatFirst ? 0 : j - repeatFirst);
        X[*count + j] = table[row][1];
        Y[*count + j] = table[row][2];
        Z[*count + j] = table[row][3];
    }
    *count += VantrelData::NUM_LOCUS;
}

}  // namespace

void VantrelData::define_cie_1931_2deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const {
    observerToGridA(tables::CIE1931_CMF1NM, xbar, ybar, zbar);
}

void VantrelData::define_cie_1960_10deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const {
    observerToGridA(tables::CIE1964_CMF1NM, xbar, ybar, zbar, 380, 780);
}

void VantrelData::define_cie_2015_2deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const {
    observerToGridA(tables::CIE2015_CMF2DEG1NM, xbar, ybar, zbar);
}

void VantrelData::define_cie_2015_10deg_XYZ_bar(double* xbar, double* ybar, double* zbar) const {
    observerToGridA(tables::CIE2015_CMF10DEG1NM, xbar, ybar, zbar);
}

void VantrelData::define_scotopic_XYZ_bar(double* vPrime) const {
    toGridA(tables::CIE1951_SCOTOPIC1NM, 1, vPrime);
}

void VantrelData::getDaylightCoefficients(double* S0, double* S1, double* S2) const {
    toGridA(tables::CIE_DAYLIGHT10NM, 1, S0);
    toGridA(tables::CIE_DAYLIGHT10NM, 2, S1);
    toGridA(tables::CIE_DAYLIGHT10NM, 3, S2);
}

void VantrelData::getDaylightCoefficients_TLCI(double* S0, double* S1, double* S2) const {
    copyGridB(tables::EBU3355_DAYLIGHT5NM, 1, S0);
    copyGridB(tables::EBU3355_DAYLIGHT5NM, 2, S1);
    copyGridB(tables::EBU3355_DAYLIGHT5NM, 3, S2);
    // EBU Tech 3355 prints S2(385 nm) = 2.05 (cubic mid-point); Lumivar's TLCI results were
    // made with 2.1, the CIE linear mid-point of 3.0 and 1.2, so that value is kept here.
    S2[1] = 2.1;
}

void VantrelData::get_xyz_bar_TLCI(double* xbar, double* ybar, double* zbar) const {
    copyGridB(tables::CIE1931_CMF5NM, 1, xbar);
    copyGridB(tables::CIE1931_CMF5NM, 2, ybar);
    copyGridB(tables::CIE1931_CMF5NM, 3, zbar);
}

void VantrelData::defineEBUvalues(double* rbar, double* gbar, double* bbar) const {
    copyGridB(tables::EBU3355_CAMERA5NM, 1, rbar);
    copyGridB(tables::EBU3355_CAMERA5NM, 2, gbar);
    copyGridB(tables::EBU3355_CAMERA5NM, 3, bbar);
}

void VantrelData::defineCHvalues(double** patches) const {
    for (int p = 0; p < NUM_COLOR_CHECKER; ++p) {
        copyGridB(tables::EBU3355_COLOR_CHECKER5NM, static_cast<std::size_t>(1 + p), patches[p]);
    }
}

void VantrelData::defineTCSvalues(double** rows) const {
    reflectancesToGridA(tables::CIE133_TCS5NM, rows, 1, 14);
    reflectancesToGridA(tables::JIS_TCS15_5NM, rows, 15, 1);
}

void VantrelData::defineVSvalues(double** rows) const {
    reflectancesToGridA(tables::CQS90_VS5NM, rows, 1, NUM_VS);
}

void VantrelData::defineCESvalues(int* types, double** rows) const {
    reflectancesToGridA(tables::TM30_CES99_EVEN_NM, rows, 0, NUM_CES);
    defineColorNameIndicies(types);
}

void VantrelData::defineColorNameIndicies(int* types) const {
    for (int k = 0; k < NUM_CES; ++k) types[k] = tables::TM30_CES99_TYPES[k];
}

const char* VantrelData::getCESColorTypeStr(int type) const {
    switch (type) {
        case 1:
            return "Nature";
        case 2:
            return "Skin";
        case 3:
            return "Textiles";
        case 4:
            return "Paints";
        case 5:
            return "Plastic";
        case 6:
            return "Printed";
        case 7:
            return "Color system";
        default:
            return "unknown";
    }
}

void VantrelData::define_FCI_colors(int n, double** colors) const {
    constexpr int rows = tables::FCI4_COLOURS5NM_ROWS;
    double wl[rows];
    double value[rows];
    for (int r = 0; r < rows; ++r) wl[r] = tables::FCI4_COLOURS5NM[r][0];
    const int count = n < NUM_FCI ? n : NUM_FCI;
    for (int c = 0; c < count; ++c) {
        for (int r = 0; r < rows; ++r) value[r] = tables::FCI4_COLOURS5NM[r][1 + c];
        // Area-preserving: the 379-381 nm cell is half covered by data starting at 380 nm.
        Vantrel::resampleSpectrum(rows, wl, value, grid::FIRST_NM, grid::LAST_NM, grid::STEP_NM,
                                  nullptr, colors[c]);
    }
}

void VantrelData::define_Q100_Q50_COI(double* q100, double* q50) const {
    toGridA(tables::COI_BLOOD5NM, 1, q100);
    toGridA(tables::COI_BLOOD5NM, 2, q50);
}

void VantrelData::defineCircadianConstants(double* V, double* S, double* Mc) const {
    toGridA(tables::LRC2012_CIRCADIAN2NM, 3, V);   // V(λ) with macular filtering
    toGridA(tables::LRC2012_CIRCADIAN2NM, 4, S);   // S-cone with macular filtering
    toGridA(tables::LRC2012_CIRCADIAN2NM, 5, Mc);  // melanopsin with lens filtering
}

void VantrelData::define_Well_Buillding_Melanopic_and_Visual_curves(double* melanopic,
                                                                    double* visual) const {
    toGridA(tables::WELL_V1_MELANOPIC5NM, 1, melanopic);
    toGridA(tables::WELL_V1_MELANOPIC5NM, 2, visual);
}

void VantrelData::defineEMLcurves(double* melanopic, double* visual) const {
    define_Well_Buillding_Melanopic_and_Visual_curves(melanopic, visual);
    for (int i = 0; i < NUM_GRID; ++i) {
        melanopic[i] = std::round(melanopic[i] * 1e6) / 1e6;
        visual[i] = std::round(visual[i] * 1e6) / 1e6;
    }
}

// Stand-in film curves (see the data files): layer gains as applied to the original tables.
void VantrelData::make_kodak_daylight_colors(double* R, double* G, double* B) const {
    filmLayerToGridA(tables::KODAK5207_RED, 1.0, R);
    filmLayerToGridA(tables::KODAK5207_GREEN, 0.927, G);
    filmLayerToGridA(tables::KODAK5207_BLUE, 1.03, B);
}

void VantrelData::make_kodak_3200K_colors(double* R, double* G, double* B) const {
    filmLayerToGridA(tables::KODAK5219_RED, 1.0, R);
    filmLayerToGridA(tables::KODAK5219_GREEN, 1.01, G);
    filmLayerToGridA(tables::KODAK5219_BLUE, 1.24, B);
}

// Lumivar's own extrapolation of the eye curve into the infrared: CIE 1931 ȳ to 830 nm, then a
// geometric fall from ȳ(830) that reaches EYE_IR_AT1050NM at 1050 nm.
void VantrelData::defineEyeSensitivityCurveIR(double* curve) const {
    double xbar[NUM_GRID], zbar[NUM_GRID];
    define_cie_1931_2deg_XYZ_bar(xbar, curve, zbar);
    const int last = NUM_GRID - 1;
    const int steps = NUM_GRID_IR - NUM_GRID;
    for (int k = 1; k <= steps; ++k) {
        const double t = static_cast<double>(k) / steps;  // exactly 1 at 1050 nm
        curve[last + k] = std::pow(curve[last], 1.0 - t) * std::pow(EYE_IR_AT1050NM, t);
    }
}

void VantrelData::defineCCTdata(int type, double* urd, double* u, double* v) const {
    double xbar[NUM_GRID], ybar[NUM_GRID], zbar[NUM_GRID];
    if (type == 3) {
        define_cie_2015_10deg_XYZ_bar(xbar, ybar, zbar);
    } else {
        define_cie_1931_2deg_XYZ_bar(xbar, ybar, zbar);
    }
    for (int r = 0; r < NUM_CCT_TABLE; ++r) {
        urd[r] = 1e6 / CCT_TABLE_KELVIN[r];
        double X = 0.0, Y = 0.0, Z = 0.0;
        for (int i = 0; i < NUM_GRID; ++i) {
            const double nm = gridNm(i);
            const double w = (1.0 / std::pow(nm, 5)) / (std::exp(C2_CCT_TABLE / nm * urd[r]) - 1);
            X += xbar[i] * w;
            Y += ybar[i] * w;
            Z += zbar[i] * w;
        }
        const double d = X + 15.0 * Y + 3.0 * Z;
        u[r] = 4.0 * X / d;
        v[r] = 6.0 * Y / d;
    }
}

void VantrelData::defineBlackBodyline(int* count4000K, int* count5000K, double* x,
                                      double* y) const {
    double xbar[NUM_GRID], ybar[NUM_GRID], zbar[NUM_GRID];
    define_cie_1931_2deg_XYZ_bar(xbar, ybar, zbar);
    blackBodyLine(xbar, ybar, zbar, count4000K, count5000K, x, y);
}

void VantrelData::defineBlackBodyline_2015_10Deg(int* count4000K, int* count5000K, double* x,
                                                 double* y) const {
    double xbar[NUM_GRID], ybar[NUM_GRID], zbar[NUM_GRID];
    define_cie_2015_10deg_XYZ_bar(xbar, ybar, zbar);
    blackBodyLine(xbar, ybar, zbar, count4000K, count5000K, x, y);
}

void VantrelData::getHorseShoeData_xy(int* count, double* X, double* Y, double* Z) const {
    appendLocus(tables::CIE1931_CMF1NM, count, X, Y, Z);
}

void VantrelData::getHorseShoeData_2015_10deg_xy(int* count, double* X, double* Y,
                                                 double* Z) const {
    appendLocus(tables::CIE2015_CMF10DEG1NM, count, X, Y, Z);  // 360-389 nm repeat 390 nm
}
