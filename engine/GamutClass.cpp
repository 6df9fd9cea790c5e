// GamutClass: standard RGB gamuts (primaries from their defining standards) and Pointer's
// gamut of real surface colours (M. R. Pointer, Color Res. Appl. 5, 1980).
#include "GamutClass.h"

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "Vantrel.h"

namespace {
// Values of a user gamut must lie strictly inside this range to count.
constexpr double USER_MIN_VALUE = 5e-05;
constexpr double USER_MAX_VALUE = 1.0;

// clang-format off
constexpr double SRGB[] = {0.64, 0.33, 0.3, 0.6, 0.15, 0.06};
constexpr double ADOBE_RGB_98[] = {0.64, 0.33, 0.21, 0.71, 0.15, 0.06};
constexpr double NTSC_1953[] = {0.67, 0.33, 0.21, 0.71, 0.14, 0.08};
constexpr double SMPTE_C[] = {0.63, 0.34, 0.31, 0.595, 0.155, 0.07};
constexpr double CIE_1931[] = {0.7347, 0.2653, 0.2738, 0.7174, 0.1666, 0.0089};
constexpr double BT2020[] = {0.708, 0.292, 0.17, 0.797, 0.131, 0.046};
constexpr double APPLE[] = {0.625, 0.34, 0.28, 0.595, 0.15, 0.07};
constexpr double PROPHOTO[] = {0.7347, 0.2653, 0.1596, 0.8404, 0.0366, 0.0001};
constexpr double DCI_P3[] = {0.68, 0.32, 0.265, 0.69, 0.15, 0.06};
constexpr double BT709[] = {0.64, 0.33, 0.3, 0.6, 0.15, 0.06};
constexpr double USER_START[] = {0, 0, 0, 0, 0, 0};
constexpr double POINTER[] = {
    0.659, 0.316, 0.637, 0.298, 0.588, 0.28,  0.538, 0.258, 0.508, 0.226, 0.451, 0.199,
    0.393, 0.165, 0.324, 0.127, 0.252, 0.104, 0.188, 0.084, 0.161, 0.094, 0.145, 0.106,
    0.145, 0.129, 0.138, 0.141, 0.129, 0.168, 0.141, 0.195, 0.142, 0.214, 0.159, 0.245,
    0.157, 0.266, 0.162, 0.295, 0.151, 0.33,  0.151, 0.389, 0.177, 0.454, 0.202, 0.53,
    0.242, 0.576, 0.288, 0.584, 0.332, 0.573, 0.371, 0.558, 0.409, 0.546, 0.444, 0.515,
    0.482, 0.491, 0.523, 0.462, 0.557, 0.427, 0.594, 0.391, 0.634, 0.351};
// clang-format on
constexpr int NUM_POINTER = static_cast<int>(sizeof(POINTER) / sizeof(POINTER[0]) / 2);

// Dash patterns in pixels.
constexpr char DASH_2[] = {2, 2};
constexpr char DASH_4[] = {4, 4};
constexpr char DASH_8[] = {8, 8};
constexpr char DASH_16[] = {16, 16};
constexpr char DASH_4_8[] = {4, 4, 8, 8};
constexpr char DASH_4_16[] = {4, 4, 16, 16};
constexpr char DASH_APPLE[] = {16, 4, 4, 4, 4, 4};
constexpr char DASH_PROPHOTO[] = {16, 4, 4, 4, 4, 4, 4, 4};
constexpr char DASH_USER[] = {1};

std::vector<std::string> splitList(std::string text, const std::string& separator) {
    std::replace(text.begin(), text.end(), ',', '.');
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        parts.push_back(text.substr(start, end - start));
        if (end == std::string::npos) break;
        start = end + separator.size();
    }
    return parts;
}

std::string trim(const std::string& s) {
    const std::size_t first = s.find_first_not_of(" \t\r\n");
    if (first == std::string::npos) return std::string();
    const std::size_t last = s.find_last_not_of(" \t\r\n");
    return s.substr(first, last - first + 1);
}

// The value of a whole entry, or 0 (never valid) when it is not a number.
double toNumber(const std::string& text) {
    if (text.empty()) return 0.0;
    char* end = nullptr;
    const double v = std::strtod(text.c_str(), &end);
    return (end != nullptr && *end == '\0') ? v : 0.0;
}

bool isUserValue(double v) { return v > USER_MIN_VALUE && v < USER_MAX_VALUE; }
}  // namespace

GamutClass::GamutClass() : vantrel(new Vantrel()) {
    define(0, "sRGB", 3, SRGB, 2, DASH_2);
    define(1, "Abode RGB 98", 3, ADOBE_RGB_98, 2, DASH_4);
    define(2, "NTSC (1953)", 3, NTSC_1953, 2, DASH_8);
    define(3, "NTSC (1987) SMPTE C", 3, SMPTE_C, 2, DASH_16);
    define(4, "CIE (1931)", 3, CIE_1931, 4, DASH_4_8);
    define(5, "UHDTV (ITU-R BT.2020)", 3, BT2020, 4, DASH_4_16);
    define(6, "Apple", 3, APPLE, 6, DASH_APPLE);
    define(7, "ProPhoto (ROMM RGB)", 3, PROPHOTO, 8, DASH_PROPHOTO);
    define(8, "DCI-P3", 3, DCI_P3, 2, DASH_2);
    define(9, "Pointer's (maximum)", NUM_POINTER, POINTER, 2, DASH_4);
    define(10, "Rec. 709 (BT.709)", 3, BT709, 2, DASH_8);
    define(USER_GAMUT, "User defined", 3, USER_START, 1, DASH_USER);
}

GamutClass::~GamutClass() = default;

void GamutClass::define(int index, const char* name, int n, const double* xy, int numDashes,
                        const char* dashes) {
    Gamut& g = gamuts[index];
    g.name = name;
    g.numPoints = n;
    for (int k = 0; k < n; ++k) {
        g.x[k] = xy[2 * k];
        g.y[k] = xy[2 * k + 1];
    }
    g.numDashes = numDashes;
    std::copy(dashes, dashes + numDashes, g.dashes);

    g.xMin = g.xMax = g.x[0];
    g.yMin = g.yMax = g.y[0];
    g.cx = g.cy = 0;
    for (int k = 0; k < n; ++k) {
        g.cx += g.x[k];
        g.cy += g.y[k];
        g.xMin = std::min(g.xMin, g.x[k]);
        g.xMax = std::max(g.xMax, g.x[k]);
        g.yMin = std::min(g.yMin, g.y[k]);
        g.yMax = std::max(g.yMax, g.y[k]);
    }
    g.cx /= n;
    g.cy /= n;
}

const GamutClass::Gamut& GamutClass::at(int gamut) const {
    return gamuts[(gamut < 0 || gamut >= NUM_GAMUTS) ? 0 : gamut];
}

const char* GamutClass::getGamutName(int gamut) const { return at(gamut).name.c_str(); }

int GamutClass::getNumPointsInGamut(int gamut) const { return at(gamut).numPoints; }

bool GamutClass::getGamutPoint(int gamut, int point, double* x, double* y) const {
    const Gamut& g = at(gamut);
    if (point < 0 || point >= g.numPoints) return false;
    *x = g.x[point];
    *y = g.y[point];
    return true;
}

void GamutClass::getGamutPoints(int gamut, double* x, double* y) const {
    const Gamut& g = at(gamut);
    std::copy(g.x, g.x + g.numPoints, x);
    std::copy(g.y, g.y + g.numPoints, y);
}

int GamutClass::getNumDahsesInGamutLine(int gamut) const { return at(gamut).numDashes; }

void GamutClass::getGamutLineStyleParameters(int gamut, char* dashes) const {
    const Gamut& g = at(gamut);
    std::copy(g.dashes, g.dashes + g.numDashes, dashes);
}

void GamutClass::getGamutCentroid(int gamut, double* x, double* y) const {
    *x = at(gamut).cx;
    *y = at(gamut).cy;
}

bool GamutClass::isPointInStandardGamut(int gamut, double x, double y) const {
    const Gamut& g = at(gamut);
    if (g.numPoints < 3) return true;
    if (g.numPoints == 3) {
        return vantrel->pointInTriangle(x, y, g.x[0], g.y[0], g.x[1], g.y[1], g.x[2], g.y[2]);
    }
    if (x < g.xMin || x > g.xMax || y < g.yMin || y > g.yMax) return false;
    for (int k = 0; k < g.numPoints; ++k) {
        const int next = (k + 1) % g.numPoints;
        if (vantrel->pointInTriangle(x, y, g.cx, g.cy, g.x[k], g.y[k], g.x[next], g.y[next])) {
            return true;
        }
    }
    return false;
}

bool GamutClass::isPointInGamut(int n, const double* xs, const double* ys, double x,
                                double y) const {
    return vantrel->isPointInGamut(n, xs, ys, x, y);
}

bool GamutClass::getNumbersForUserGamuts(const std::string& xs, const std::string& ys, int* count,
                                         int* pointCounts, int* firstPoints, std::string* xOut,
                                         std::string* yOut) const {
    *count = 0;
    const std::string separator = getUserGamutSeperationSym();
    const std::vector<std::string> xParts = splitList(xs, separator);
    const std::vector<std::string> yParts = splitList(ys, separator);
    if (xParts.size() != yParts.size()) return false;

    const int n = static_cast<int>(xParts.size());
    int runStart = -1;
    for (int i = 0; i <= n; ++i) {
        bool valid = false;
        std::string xText, yText;
        if (i < n) {
            xText = trim(xParts[i]);
            yText = trim(yParts[i]);
            valid = isUserValue(toNumber(xText)) && isUserValue(toNumber(yText));
        }
        if (valid) {
            if (runStart < 0) runStart = i;
            continue;
        }
        if (runStart >= 0 && i - runStart >= 2) {
            const int g = (*count)++;
            if (pointCounts != nullptr) pointCounts[g] = i - runStart;
            if (firstPoints != nullptr) firstPoints[g] = runStart;
            if (xOut != nullptr) xOut[g].clear();
            if (yOut != nullptr) yOut[g].clear();
            for (int k = runStart; k < i; ++k) {
                const char* sep = (k > runStart) ? separator.c_str() : "";
                if (xOut != nullptr) xOut[g] += sep + trim(xParts[k]);
                if (yOut != nullptr) yOut[g] += sep + trim(yParts[k]);
            }
        }
        runStart = -1;
    }
    return true;
}

void GamutClass::setMaxNumPtsInUserGamut(int n) {
    maxUserPoints = (n >= MIN_USER_POINTS && n <= MAX_USER_POINTS) ? n : DEFAULT_USER_POINTS;
}
