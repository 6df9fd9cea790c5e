#include "PlotData.h"

#include <algorithm>

#include "Grid.h"

SpectraToPlot spectraToPlot(const std::vector<double>& result, const std::vector<double>& matching,
                            int n, int analysisType, int inputUnitsIndex) {
    SpectraToPlot p;
    const bool filterOrColor =
        analysisType == 4 || analysisType == 5 || analysisType == 7 || analysisType == 8;
    p.photons = inputUnitsIndex == 3 && !filterOrColor;
    auto convert = [&](const std::vector<double>& in, std::vector<double>* out, double* max) {
        out->assign(n, 0.0);
        for (int i = 0; i < n && i < static_cast<int>(in.size()); ++i) {
            double v = std::max(0.0, in[i]);
            if (p.photons) v = Vantrel::convert_to_Photons_Sec_from_Watts_nm(v, grid::nm(i));
            (*out)[i] = v;
            *max = std::max(*max, v);
        }
    };
    convert(result, &p.main, &p.mainMax);
    if (!matching.empty()) convert(matching, &p.matching, &p.matchingMax);
    return p;
}

CiePoints ciePointsToPlot(double x, double y, double x10, double y10,
                          const std::vector<SpectrumPoint>& singles, bool withSingles,
                          const std::vector<std::array<double, 5>>& saved, bool tenDegree) {
    CiePoints points;
    const double px = tenDegree ? x10 : x, py = tenDegree ? y10 : y;
    if (!(px >= 0.0001 && py >= 0.0001)) return points;
    if (withSingles) {
        for (const SpectrumPoint& s : singles) {
            // An LED with no visible light (an IR LED) has no chromaticity.
            const double sx = tenDegree ? s.x10 : s.x, sy = tenDegree ? s.y10 : s.y;
            if (!(sx >= 0.0001 && sy >= 0.0001)) continue;
            points.x.push_back(sx);
            points.y.push_back(sy);
        }
    }
    for (const std::array<double, 5>& p : saved) {
        points.x.push_back(tenDegree ? p[3] : p[0]);
        points.y.push_back(tenDegree ? p[4] : p[1]);
    }
    points.x.push_back(px);
    points.y.push_back(py);
    return points;
}
