// The data the main window's plots receive.
#include <gtest/gtest.h>

#include <cmath>

#include "PlotData.h"

TEST(PlotData, SpectraLoseNegativesAndTurnToPhotonsExceptFiltersAndColours) {
    const std::vector<double> result = {1.0, -2.0, 3.0};
    SpectraToPlot p = spectraToPlot(result, {}, 3, 0, 0);
    EXPECT_EQ(p.main, (std::vector<double>{1.0, 0.0, 3.0}));
    EXPECT_EQ(p.mainMax, 3.0);
    EXPECT_TRUE(p.matching.empty());
    EXPECT_EQ(p.matchingMax, -1.0);

    p = spectraToPlot(result, {0.5, 0.5, 0.5}, 3, 1, 3);
    ASSERT_TRUE(p.photons);
    EXPECT_DOUBLE_EQ(p.main[2], Vantrel::convert_to_Photons_Sec_from_Watts_nm(3.0, 364.0));
    EXPECT_DOUBLE_EQ(p.matching[0], Vantrel::convert_to_Photons_Sec_from_Watts_nm(0.5, 360.0));
    for (int filterOrColor : {4, 5, 7, 8}) {
        EXPECT_FALSE(spectraToPlot(result, {}, 3, filterOrColor, 3).photons) << filterOrColor;
    }
}

TEST(PlotData, TheMixAndTheSavedPointsComeBeforeTheResult) {
    const std::vector<SpectrumPoint> singles = {{3, 0.2, 0.7, 0.21, 0.69}};
    const std::vector<std::array<double, 5>> saved = {{0.45, 0.41, 2700, 0.46, 0.40}};
    CiePoints p = ciePointsToPlot(0.38, 0.38, 0.39, 0.37, singles, true, saved, false);
    EXPECT_EQ(p.x, (std::vector<double>{0.2, 0.45, 0.38}));
    p = ciePointsToPlot(0.38, 0.38, 0.39, 0.37, singles, false, saved, true);
    EXPECT_EQ(p.y, (std::vector<double>{0.40, 0.37}));
    // An IR LED alone has no chromaticity and is left out.
    const std::vector<SpectrumPoint> withIR = {{9, std::nan(""), std::nan(""), 0, 0}, singles[0]};
    EXPECT_EQ(ciePointsToPlot(0.38, 0.38, 0, 0, withIR, true, {}, false).x.size(), 2u);
    // No result, no points: saved points alone are not drawn.
    EXPECT_TRUE(ciePointsToPlot(0.0, 0.38, 0, 0, singles, true, saved, false).x.empty());
}
