// The locus edge tables of the colour fill: for every 1/10000 of the vertical coordinate, the
// left and right edge of the spectrum locus. The inside test of each pixel is then two
// comparisons instead of a polygon test.
#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <mutex>
#include <vector>

#include "CIE_Plot.h"

namespace {

// The locus of a diagram type in its own coordinates, NUM_LOCUS points.
void locusOfType(int type, double* a, double* b) {
    Vantrel v;
    switch (type) {
        case 1:
            v.getHorseShoeData_uv(a, b);
            break;
        case 2:
            v.getHorseShoeData_upvp(a, b);
            break;
        case 3:
            v.getHorseShoeData_2015_10deg_xy(a, b);
            break;
        case 4:
            v.getHorseShoeData_2015_10deg_upvp(a, b);
            break;
        default:
            v.getHorseShoeData_xy(a, b);
            break;
    }
}

// Pixels of one line on a width x height raster with rows counted upward from y = 0, as a
// Bresenham line: every pixel hit is added to its row.
void rasterSegment(int x0, int y0, int x1, int y1, int width, int height,
                   std::vector<std::vector<int>>& hits) {
    const int dx = std::abs(x1 - x0), sx = x0 < x1 ? 1 : -1;
    const int dy = -std::abs(y1 - y0), sy = y0 < y1 ? 1 : -1;
    int err = dx + dy;
    for (;;) {
        if (x0 >= 0 && x0 < width && y0 >= 0 && y0 < height) hits[y0].push_back(x0);
        if (x0 == x1 && y0 == y1) break;
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x0 += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y0 += sy;
        }
    }
}

void makeFillTable(int type, CIE_Plot::FillTable* table) {
    std::fill(std::begin(table->start), std::end(table->start), 0);
    std::fill(std::begin(table->end), std::end(table->end), 0);

    double xLimit, yLimit;
    Vantrel::getMinMaxForDiagram(type, &xLimit, &yLimit);
    const int width = static_cast<int>(xLimit * 10000 + 0.5);
    const int height = CIE_Plot::getTableRows(type);

    constexpr int N = Vantrel::NUM_LOCUS_POINTS;
    double a[N + 1], b[N + 1];
    locusOfType(type, a, b);
    a[N] = a[0];
    b[N] = b[0];

    // The locus polygon drawn black on white, one row per 1/10000, ends truncated.
    std::vector<std::vector<int>> hits(height);
    for (int i = 0; i < N; ++i) {
        rasterSegment(static_cast<int>(a[i] * 10000), static_cast<int>(b[i] * 10000),
                      static_cast<int>(a[i + 1] * 10000), static_cast<int>(b[i + 1] * 10000), width,
                      height, hits);
    }

    // Walking right: the first black pixel is the left edge; after a white one, the next black
    // pixel is the right edge.
    for (int row = 0; row < height; ++row) {
        std::vector<int>& h = hits[row];
        if (h.empty()) continue;
        std::sort(h.begin(), h.end());
        h.erase(std::unique(h.begin(), h.end()), h.end());
        table->start[row] = h[0];
        for (size_t k = 1; k < h.size(); ++k) {
            if (h[k] != h[k - 1] + 1) {
                table->end[row] = h[k];
                break;
            }
        }
    }

    // A row missed between two complete rows takes their mean (steep locus pieces).
    for (int row = 1; row < height - 1; ++row) {
        const bool missing = table->start[row] == 0 || table->end[row] == 0;
        const bool neighbours = table->start[row - 1] != 0 && table->end[row - 1] != 0 &&
                                table->start[row + 1] != 0 && table->end[row + 1] != 0;
        if (missing && neighbours) {
            table->start[row] = (table->start[row - 1] + table->start[row + 1]) / 2;
            table->end[row] = (table->end[row - 1] + table->end[row + 1]) / 2;
        }
    }
}

}  // namespace

int CIE_Plot::getTableRows(int type) {
    double xLimit, yLimit;
    Vantrel::getMinMaxForDiagram(type, &xLimit, &yLimit);
    return std::min(MAX_TABLE_ROWS, static_cast<int>(yLimit * 10000 + 0.5));
}

const CIE_Plot::FillTable& CIE_Plot::getFillTable(int type) {
    static FillTable tables[NUM_DIAGRAM_TYPES];
    static std::once_flag once[NUM_DIAGRAM_TYPES];
    if (type < 0 || type >= NUM_DIAGRAM_TYPES) type = 0;
    std::call_once(once[type], [type] { makeFillTable(type, &tables[type]); });
    return tables[type];
}

namespace {
// ANSI_NEMA_ANSLG C78.377 chromaticity quadrangles of solid-state lighting products, CIE 1931
// x,y, corners in the order (low CCT, upper Duv), (high CCT, upper), (high CCT, lower),
// (low CCT, lower). Each quadrangle keeps its own corners as published, so corners shared with
// a neighbour may differ in the last digit.
//
// C78.377-2008, quadrangle corner table, 2700 K to 6500 K.
const int NOMINAL_2008[] = {2700, 3000, 3500, 4000, 4500, 5000, 5700, 6500};
const double QUADS_2008[][4][2] = {
    {{0.4813, 0.4319}, {0.4562, 0.4260}, {0.4373, 0.3893}, {0.4593, 0.3944}},
    {{0.4562, 0.4260}, {0.4299, 0.4165}, {0.4147, 0.3814}, {0.4373, 0.3893}},
    {{0.4299, 0.4165}, {0.3996, 0.4015}, {0.3889, 0.3690}, {0.4147, 0.3814}},
    {{0.4006, 0.4044}, {0.3736, 0.3874}, {0.3670, 0.3578}, {0.3898, 0.3716}},
    {{0.3736, 0.3874}, {0.3548, 0.3736}, {0.3512, 0.3465}, {0.3670, 0.3578}},
    {{0.3551, 0.3760}, {0.3376, 0.3616}, {0.3366, 0.3369}, {0.3515, 0.3487}},
    {{0.3376, 0.3616}, {0.3207, 0.3462}, {0.3222, 0.3243}, {0.3366, 0.3369}},
    {{0.3205, 0.3481}, {0.3028, 0.3304}, {0.3068, 0.3113}, {0.3221, 0.3261}},
};
// C78.377-2011, 2700 K to 6500 K. The 2015 edition keeps these eight and adds 2200 K and 2500 K
// (target CCT 2238 +- 102 K and 2460 +- 120 K, Duv 0 +- 0.006, published centres (0.5018,
// 0.4153) and (0.4806, 0.4141)); their corners are the Planck-offset points at those CCT and
// Duv limits, computed with the CIE 1931 observer as the 2008 table was (which they reproduce
// to the 4th decimal), and the 2500 K high-CCT corners meet the 2700 K low-CCT corners.
const int NOMINAL_2015[] = {2200, 2500, 2700, 3000, 3500, 4000, 4500, 5000, 5700, 6500};
const double QUADS_2015[][4][2] = {
    {{0.5259, 0.4342}, {0.5045, 0.4344}, {0.4799, 0.3967}, {0.4993, 0.3967}},
    {{0.5045, 0.4344}, {0.4813, 0.4319}, {0.4593, 0.3944}, {0.4799, 0.3967}},
    {{0.4813, 0.4319}, {0.4562, 0.4260}, {0.4373, 0.3893}, {0.4593, 0.3944}},
    {{0.4562, 0.4260}, {0.4303, 0.4173}, {0.4150, 0.3821}, {0.4373, 0.3893}},
    {{0.4303, 0.4173}, {0.4003, 0.4035}, {0.3895, 0.3709}, {0.4150, 0.3821}},
    {{0.4003, 0.4035}, {0.3737, 0.3880}, {0.3671, 0.3583}, {0.3895, 0.3709}},
    {{0.3737, 0.3882}, {0.3550, 0.3754}, {0.3514, 0.3482}, {0.3672, 0.3585}},
    {{0.3550, 0.3753}, {0.3375, 0.3619}, {0.3366, 0.3373}, {0.3515, 0.3481}},
    {{0.3375, 0.3619}, {0.3205, 0.3476}, {0.3221, 0.3256}, {0.3366, 0.3374}},
    {{0.3205, 0.3477}, {0.3026, 0.3311}, {0.3067, 0.3119}, {0.3221, 0.3255}},
};
constexpr int FIRST_2011 = 2;  // the 2011 edition is the 2015 table from 2700 K
}  // namespace

int CIE_Plot::getAnsiQuadrangles(int edition, const double (**corners)[4][2], const int** nominal) {
    switch (edition) {
        case 2008:
            *corners = QUADS_2008;
            *nominal = NOMINAL_2008;
            return static_cast<int>(std::size(QUADS_2008));
        case 2011:
            *corners = QUADS_2015 + FIRST_2011;
            *nominal = NOMINAL_2015 + FIRST_2011;
            return static_cast<int>(std::size(QUADS_2015)) - FIRST_2011;
        case 2015:
            *corners = QUADS_2015;
            *nominal = NOMINAL_2015;
            return static_cast<int>(std::size(QUADS_2015));
        default:
            return 0;
    }
}
