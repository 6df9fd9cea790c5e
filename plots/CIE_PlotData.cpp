// The locus edge tables of the colour fill: for every 1/10000 of the vertical coordinate, the
// left and right edge of the spectrum locus. The inside test of each pixel is then two
// comparisons instead of a polygon test.
#include <algorithm>
#include <cstdlib>
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
