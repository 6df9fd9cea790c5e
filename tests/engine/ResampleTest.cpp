// Area-preserving resampling of spectra onto the program's grid.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "Vantrel.h"

namespace {
constexpr int N = Vantrel::NUM_GRID_POINTS;

struct Table {
    std::vector<double> wl, value;
};

Table evenTable(double first, double last, double step, double (*f)(double)) {
    Table t;
    for (double nm = first; nm <= last + 1e-9; nm += step) {
        t.wl.push_back(nm);
        t.value.push_back(f(nm));
    }
    return t;
}

double constant(double) { return 3.0; }
double gaussian550(double nm) { return std::exp(-0.5 * std::pow((nm - 550.0) / 20.0, 2)); }
}  // namespace

TEST(Resample, ConstantStaysConstantInsideTheRangeAndFallsToZeroOutside) {
    // 400 to 700 nm at 5 nm. The first input cell is half wide (it starts at the first
    // wavelength), so the 400 nm output cell is half covered; the last value adds no area.
    const Table t = evenTable(400, 700, 5, constant);
    std::vector<double> out(N);
    ASSERT_TRUE(Vantrel::resampleSpectrum(static_cast<int>(t.wl.size()), t.wl.data(),
                                          t.value.data(), 360, 830, 2.0, nullptr, out.data()));
    const int i400 = 20, i696 = 168;
    for (int i = 0; i < i400; ++i) EXPECT_EQ(out[i], 0.0) << 360 + 2 * i;
    EXPECT_NEAR(out[i400], 1.5, 1e-12);
    for (int i = i400 + 1; i <= i696; ++i) EXPECT_NEAR(out[i], 3.0, 1e-12) << 360 + 2 * i;
    for (int i = 171; i < N; ++i) EXPECT_EQ(out[i], 0.0) << 360 + 2 * i;
}

TEST(Resample, AreaIsPreservedForAPeakInsideTheRange) {
    // 1 nm input: area under the resampled curve equals the input's (both as cell sums).
    const Table t = evenTable(380, 780, 1, gaussian550);
    std::vector<double> out(N);
    ASSERT_TRUE(Vantrel::resampleSpectrum(static_cast<int>(t.wl.size()), t.wl.data(),
                                          t.value.data(), 360, 830, 2.0, nullptr, out.data()));
    double in = 0, resampled = 0;
    for (double v : t.value) in += v * 1.0;
    for (double v : out) resampled += v * 2.0;
    EXPECT_NEAR(resampled, in, 1e-9 * in);
    EXPECT_NEAR(out[95], 1.0, 2e-3);  // 550 nm: the cell mean of the peak
}

TEST(Resample, RefusesTooFewPointsOrATinyStep) {
    const Table t = evenTable(400, 700, 5, constant);
    const int n = static_cast<int>(t.wl.size());
    std::vector<double> out(N);
    // 4 output points: 360 to 366 nm.
    EXPECT_FALSE(Vantrel::resampleSpectrum(n, t.wl.data(), t.value.data(), 360, 366, 2.0, nullptr,
                                           out.data()));
    EXPECT_TRUE(Vantrel::resampleSpectrum(n, t.wl.data(), t.value.data(), 360, 368, 2.0, nullptr,
                                          out.data()));
    EXPECT_FALSE(Vantrel::resampleSpectrum(2, t.wl.data(), t.value.data(), 360, 830, 2.0, nullptr,
                                           out.data()));
    EXPECT_FALSE(Vantrel::resampleSpectrum(n, t.wl.data(), t.value.data(), 360, 830, 0.0005,
                                           nullptr, out.data()));
}
