// Thousands separators, numbers typed with a decimal comma, and percentages kept at 100.
#include <gtest/gtest.h>

#include <string>

#include "AddCommas.h"
#include "ScaleTo100.h"
#include "TextToNumber.h"

TEST(AddCommas, InsertsSeparatorsWithoutLookingAtTheText) {
    const AddCommas commas;
    const struct {
        std::string in, out;
    } cases[] = {{"999", "999"},           {"1000", "1,000"},        {"123456", "123,456"},
                 {"-123456", "-,123,456"}, {"1234567", "1,234,567"}, {"", ""}};
    for (const auto& c : cases) EXPECT_EQ(commas.getStr(c.in), c.out) << c.in;
    EXPECT_EQ(commas.getStr(999), "999");
    EXPECT_EQ(commas.getStr(1000), "1,000");
    EXPECT_EQ(commas.getStr(-123456L), "-,123,456");  // kept as it stands
    EXPECT_EQ(commas.getStr(12345678901ULL), "12,345,678,901");
}

TEST(AddCommas, RoundsTheWholePartByItself) {
    const AddCommas commas;
    EXPECT_EQ(commas.getStr(1234.56, 1), "1,235.6");
    EXPECT_EQ(commas.getStr(1.5, 1), "2.5");
    EXPECT_EQ(commas.getStr(1.25, 1), "1.2");
    EXPECT_EQ(commas.getStr(1234.56, -3), "1,235");
    EXPECT_EQ(commas.getStr(1234567.0), "1,234,567");
}

TEST(AddCommas, SwitchesToExponentsAboveTheLimitAndSwapsSeparators) {
    AddCommas commas;
    EXPECT_EQ(commas.getStr(2000000.0, 1000000.0), "2.00e+06");
    EXPECT_EQ(commas.getStr(999999.0, 1000000.0), "999,999");
    EXPECT_EQ(commas.getStr(2000000.0, -1.0), "2,000,000");  // a negative limit never applies
    commas.setNumDecimalsForEFormat(-4);
    EXPECT_EQ(commas.getStr(2500000.0, 2, 1000000.0), "2e+06");
    commas.useDot();
    EXPECT_EQ(commas.getStr(1000), "1.000");
    EXPECT_EQ(commas.getStr(1234.56, 1), "1.235,6");
    commas.useComma();
    EXPECT_EQ(commas.getStr(1000), "1,000");
}

TEST(TextToNumber, ReadsADecimalCommaAsAPoint) {
    const TextToNumber reader;
    EXPECT_DOUBLE_EQ(reader.getValue("1,5"), 1.5);
    EXPECT_DOUBLE_EQ(reader.getValue(std::string("-2.25e3")), -2250.0);
    EXPECT_DOUBLE_EQ(reader.getValue("abc"), 0.0);
    EXPECT_DOUBLE_EQ(reader.getValue(static_cast<const char*>(nullptr)), 0.0);
}

TEST(ScaleTo100, OtherActiveValuesTakeUpTheRest) {
    const ScaleTo100 scaler;
    double values[4] = {40.0, 30.0, 30.0, 50.0};
    const bool active[4] = {true, true, true, false};
    EXPECT_TRUE(scaler.scaleValues(4, 0, active, values, 0.5));
    EXPECT_DOUBLE_EQ(values[0], 40.0);  // the changed entry stays
    EXPECT_NEAR(values[1] + values[2], 60.0, 1e-12);
    EXPECT_NEAR(values[1], values[2], 1e-12);  // in proportion
    EXPECT_EQ(values[3], 50.0);                // inactive entries are left alone

    double close[3] = {99.8, 5.0, 5.0};  // within half the tolerance of 100: nothing moves
    const bool all[3] = {true, true, true};
    scaler.scaleValues(3, 0, all, close, 0.5);
    EXPECT_EQ(close[1], 5.0);
}
