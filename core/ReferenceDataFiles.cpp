#include "ReferenceDataFiles.h"

#include <cstdio>
#include <memory>
#include <vector>

#include "GamutClass.h"
#include "Vantrel.h"

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
