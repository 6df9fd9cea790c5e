#include "ReferenceDataFiles.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <vector>

#include "FileText.h"
#include "GamutClass.h"
#include "Grid.h"
#include "ValueFormat.h"
#include "Vantrel.h"
#include "VantrelData.h"

namespace {
using File = std::unique_ptr<FILE, int (*)(FILE*)>;

File openForWriting(const std::string& path) {
    return File(std::fopen(path.c_str(), "w"), &std::fclose);
}
}  // namespace

bool writeHorseShoeData(const std::string& path) {
    File file = openForWriting(path);
    if (!file) return false;
    const int n = Vantrel::NUM_LOCUS_POINTS;
    std::vector<std::vector<double>> columns(12, std::vector<double>(n));
    Vantrel engine;
    engine.getHorseShoeData_xy(columns[0].data(), columns[1].data());
    engine.getHorseShoeData_uv(columns[2].data(), columns[3].data());
    engine.getHorseShoeData_upvp(columns[4].data(), columns[5].data());
    engine.getHorseShoeData_2015_10deg_xy(columns[6].data(), columns[7].data());
    engine.getHorseShoeData_2015_10deg_uv(columns[8].data(), columns[9].data());
    engine.getHorseShoeData_2015_10deg_upvp(columns[10].data(), columns[11].data());
    std::fprintf(file.get(),
                 "x (1931 2 deg)\ty (1931 2 deg)\tu (1931 2 deg)\tv (1931 2 deg)\tu' (1931 2 "
                 "deg)\tv' (1931 2 deg)\tx (2015 10 deg)\ty (2015 10 deg)\tu (2015 10 deg)\tv "
                 "(2015 10 deg)\tu' (2015 10 deg)\tv' (2015 10 deg)\n");
    for (int i = 0; i < n; ++i) {
        for (const std::vector<double>& column : columns)
            std::fprintf(file.get(), "%.6lf\t", column[i]);
        std::fprintf(file.get(), "\n");
    }
    return std::fflush(file.get()) == 0 && !std::ferror(file.get());
}

bool writeGamutData(const std::string& path) {
    File file = openForWriting(path);
    if (!file) return false;
    const GamutClass gamuts;
    for (int g = 0; g < gamuts.getNumberOfStandardGamuts(); ++g) {
        const int n = gamuts.getNumPointsInGamut(g);
        std::vector<double> x(n), y(n);
        gamuts.getGamutPoints(g, x.data(), y.data());
        std::fprintf(file.get(), "%s\nx\ty\n", gamuts.getGamutName(g));
        for (int i = 0; i < n; ++i) std::fprintf(file.get(), "%.4lf\t%.4lf\n", x[i], y[i]);
        std::fprintf(file.get(), "\n");
    }
    return std::fflush(file.get()) == 0 && !std::ferror(file.get());
}

namespace {
constexpr int NUM_CES_TYPES = 7;  // nature to colour system

// A reflectance of 380 to 760 nm in 5 nm steps on the 2 nm grid: linear between the points,
// the end values held beyond them.
std::vector<double> onTwoNanometreGrid(const std::vector<double>& fiveNm) {
    std::vector<double> out(Vantrel::NUM_GRID_POINTS);
    const double last = static_cast<double>(fiveNm.size() - 1);
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double at = std::clamp((grid::nm(i) - 380.0) / 5.0, 0.0, last);
        const std::size_t k = std::min(static_cast<std::size_t>(at), fiveNm.size() - 2);
        const double f = at - static_cast<double>(k);
        out[i] = fiveNm[k] + f * (fiveNm[k + 1] - fiveNm[k]);
    }
    return out;
}

// The reflectances of a reference set, one row per colour on the 2 nm grid.
std::vector<std::vector<double>> referenceRows(ReferenceColours which, std::vector<int>* types) {
    const Vantrel engine;
    std::vector<std::vector<double>> rows;
    std::vector<double*> pointers;
    const auto allocate = [&](int n) {
        rows.assign(n, std::vector<double>(Vantrel::NUM_GRID_POINTS, 0.0));
        pointers.clear();
        for (std::vector<double>& row : rows) pointers.push_back(row.data());
    };
    switch (which) {
        case ReferenceColours::CRI_SAMPLES:
        case ReferenceColours::CQS_SAMPLES:
            // Rows 1 to 15; row 0 is not a sample.
            allocate(Vantrel::NUM_SAMPLES);
            if (which == ReferenceColours::CRI_SAMPLES) {
                engine.getTCSdata(pointers.data());
            } else {
                engine.getVSdata(pointers.data());
            }
            rows.erase(rows.begin());
            break;
        case ReferenceColours::COLOR_CHECKER: {
            // The chart's table runs from 380 to 760 nm in 5 nm steps.
            std::vector<std::vector<double>> chart(VantrelData::NUM_COLOR_CHECKER,
                                                   std::vector<double>(VantrelData::NUM_TLCI));
            for (std::vector<double>& row : chart) pointers.push_back(row.data());
            engine.getColorCheckerData(pointers.data());
            for (const std::vector<double>& row : chart) rows.push_back(onTwoNanometreGrid(row));
            break;
        }
        case ReferenceColours::CES:
            allocate(Vantrel::NUM_CES);
            if (types != nullptr) types->assign(Vantrel::NUM_CES, 0);
            std::vector<int> ignored(Vantrel::NUM_CES);
            engine.defineCESvalues(types != nullptr ? types->data() : ignored.data(),
                                   pointers.data());
            break;
    }
    return rows;
}
}  // namespace

std::string cesDataText() {
    std::vector<int> types;
    const std::vector<std::vector<double>> rows = referenceRows(ReferenceColours::CES, &types);
    const VantrelData data;
    std::string text;
    for (int t = 1; t <= NUM_CES_TYPES; ++t) {
        text += ValueFormat::format("%d - %s\n", t, data.getCESColorTypeStr(t));
    }
    text += "Sample type\t";
    for (int type : types) text += ValueFormat::format("%d\t", type);
    text += "\nWavelength (nm)\t";
    for (std::size_t k = 0; k < rows.size(); ++k)
        text += ValueFormat::format("CES%02d\t", int(k) + 1);
    text += "\n";
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        text += ValueFormat::format("%.0lf\t", grid::nm(i));
        for (const std::vector<double>& row : rows) text += ValueFormat::format("%.6le\t", row[i]);
        text += "\n";
    }
    return text;
}

bool writeCESData(const std::string& path) { return writeFileAtomically(path, cesDataText()); }

std::vector<ledTypeStruct> referenceColourEntries(ReferenceColours which) {
    const std::vector<std::vector<double>> rows = referenceRows(which, nullptr);
    const char* prefix = which == ReferenceColours::CRI_SAMPLES     ? "R"
                         : which == ReferenceColours::CQS_SAMPLES   ? "Q"
                         : which == ReferenceColours::COLOR_CHECKER ? "CC"
                                                                    : "CES";
    std::vector<ledTypeStruct> entries(rows.size());
    for (std::size_t k = 0; k < rows.size(); ++k) {
        ledTypeStruct& e = entries[k];
        e = ledTypeStruct();
        const std::string name = ValueFormat::format(
            which == ReferenceColours::CES ? "%s%02d" : "%s%d", prefix, int(k) + 1);
        std::snprintf(e.name, sizeof(e.name), "%s", name.c_str());
        std::copy(rows[k].begin(), rows[k].end(), e.spectrum);
    }
    return entries;
}
