// Spectra the tests build or load, on the engine's 2 nm grid from 360 nm: published CIE
// illuminants from tests/data, Planck radiators and Gaussian bands.
#ifndef LUMIVAR_TESTS_TESTUTIL_TESTSPECTRA_H
#define LUMIVAR_TESTS_TESTUTIL_TESTSPECTRA_H

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "Grid.h"
#include "Vantrel.h"

namespace testutil {

// A CIE illuminant table of tests/data/cie_illuminants ("#" comment lines, an optional header,
// then nm and value) resampled to the visible grid; empty when the file is missing or unusable.
inline std::vector<double> loadCIEIlluminant(const std::string& file) {
    std::ifstream in(std::string(LUMIVAR_TEST_DATA_DIR) + "/cie_illuminants/" + file);
    std::vector<double> wl, value;
    std::string line;
    while (std::getline(in, line)) {
        double nm, v;
        if (line.empty() || line[0] == '#' || !(std::istringstream(line) >> nm >> v)) continue;
        wl.push_back(nm);
        value.push_back(v);
    }
    std::vector<double> out(Vantrel::NUM_GRID_POINTS);
    if (!Vantrel::resampleSpectrum(static_cast<int>(wl.size()), wl.data(), value.data(),
                                   grid::FIRST_NM, grid::LAST_NM, grid::STEP_NM, nullptr,
                                   out.data())) {
        out.clear();
    }
    return out;
}

// Planck's radiator at T kelvin, as the engine makes it.
inline std::vector<double> planckSpectrum(double T, int points = Vantrel::NUM_GRID_POINTS) {
    std::vector<double> s(points);
    Vantrel::getBlackBody(s.data(), T, points);
    return s;
}

// A Gaussian band of the given centre and standard deviation (nm), height at the centre.
inline std::vector<double> gaussianSpectrum(double centreNm, double sigmaNm, double height = 1.0,
                                            int points = Vantrel::NUM_GRID_POINTS) {
    std::vector<double> s(points);
    for (int i = 0; i < points; ++i) {
        const double d = (grid::nm(i) - centreNm) / sigmaNm;
        s[i] = height * std::exp(-0.5 * d * d);
    }
    return s;
}

// A warm white (a blue peak over a broad phosphor band, never quite dark) as the text of a 2 nm
// table, "nm<TAB>value" a line, as a user pastes it.
inline std::string warmWhiteTableText() {
    std::string text;
    char row[64];
    for (int i = 0; i < Vantrel::NUM_GRID_POINTS; ++i) {
        const double nm = grid::nm(i);
        const double v = 0.2 * std::exp(-0.5 * std::pow((nm - 450.0) / 10.0, 2)) +
                         0.6 * std::exp(-0.5 * std::pow((nm - 600.0) / 60.0, 2)) + 0.001;
        std::snprintf(row, sizeof row, "%.0f\t%.6g\n", nm, v);
        text += row;
    }
    return text;
}

}  // namespace testutil

#endif  // LUMIVAR_TESTS_TESTUTIL_TESTSPECTRA_H
