// Drive figures in the names of measurement files.
#include "SpectrumFileName.h"

#include <gtest/gtest.h>

namespace {

TEST(SpectrumFileName, VoltsMilliampsAndWattsComeOutOfTheName) {
    struct Case {
        const char* name;
        double volts, milliamps, watts, electrical;
        const char* title;
    };
    const Case cases[] = {
        {"LED_3.1V_350mA_25C", 3.1, 350, 0, 1.085, "LED_^^25C"},
        {"Cree 2.95V 700mA", 2.95, 700, 0, 2.065, "Cree ^ ^"},
        {"white_035V_1000mA", 0.35, 1000, 0, 0.35, "white_^^"},  // "035" is 0.35
        {"COB_1.5W_", 0, 0, 1.5, 1.5, "COB_^"},
        {"Violet 405nm 3V", 3, 0, 0, 0, "Violet 405nm ^"},  // the "V" of Violet has no number
        {"no drive here", 0, 0, 0, 0, "no drive here"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const TestDrive d = parseSpecFilename(c.name);
        EXPECT_DOUBLE_EQ(d.volts, c.volts);
        EXPECT_DOUBLE_EQ(d.milliamps, c.milliamps);
        EXPECT_DOUBLE_EQ(d.watts, c.watts);
        EXPECT_NEAR(d.electricalWatts(), c.electrical, 1e-12);
        EXPECT_EQ(d.title, c.title);
    }
}

}  // namespace
