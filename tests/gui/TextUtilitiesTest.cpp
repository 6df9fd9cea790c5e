// Label pieces, font sizes and placement of plot text.
#include <gtest/gtest.h>

#include <memory>

#include "GuiTestWindow.h"
#include "TextUtilities.h"

namespace {
using TU = TextUtilities;

const FXColor WHITE = FXRGB(255, 255, 255);
const FXColor BLACK = FXRGB(0, 0, 0);

struct Parsed {
    int numPieces = -1;
    TU::TEXT_POSITION positions[12] = {};
    FXString pieces[12];
    bool hasExponent = true;
};

Parsed parse(const char* text, int maxPieces = 8) {
    Parsed p;
    TU::parseStringForExponents(maxPieces, text, &p.numPieces, p.positions, p.pieces,
                                &p.hasExponent);
    return p;
}

// A white canvas to draw on, read back through ink().
struct Canvas {
    std::unique_ptr<FXImage> image;
    Canvas(int w, int h) {
        FXColor* pixels = nullptr;
        FXMALLOC(&pixels, FXColor, w * h);
        for (int k = 0; k < w * h; ++k) pixels[k] = WHITE;
        image.reset(new FXImage(guiTestApp(), pixels, IMAGE_KEEP | IMAGE_OWNED, w, h));
        image->create();
    }
    // Bounding box of the non-white pixels; false when there are none.
    bool ink(int* left, int* top, int* right, int* bottom) {
        image->restore();
        *left = *top = 1 << 20;
        *right = *bottom = -1;
        for (int y = 0; y < image->getHeight(); ++y)
            for (int x = 0; x < image->getWidth(); ++x)
                if (image->getPixel(x, y) != WHITE) {
                    *left = FXMIN(*left, x);
                    *right = FXMAX(*right, x);
                    *top = FXMIN(*top, y);
                    *bottom = FXMAX(*bottom, y);
                }
        return *right >= 0;
    }
};
}  // namespace

TEST(TextUtilities, UnitLabelsBreakIntoRaisedDigits) {
    Parsed p = parse("cm^2");
    ASSERT_EQ(p.numPieces, 2);
    EXPECT_EQ(p.pieces[0], FXString("cm"));
    EXPECT_EQ(p.positions[0], TU::TEXT_NORMAL);
    EXPECT_EQ(p.pieces[1], FXString("2"));
    EXPECT_EQ(p.positions[1], TU::TEXT_SUPERSCRIPT);
    EXPECT_TRUE(p.hasExponent);

    p = parse("x^2^3");  // an empty piece stands between the raised digits
    ASSERT_EQ(p.numPieces, 4);
    EXPECT_EQ(p.pieces[1], FXString("2"));
    EXPECT_EQ(p.pieces[2], FXString(""));
    EXPECT_EQ(p.pieces[3], FXString("3"));
    EXPECT_EQ(p.positions[3], TU::TEXT_SUPERSCRIPT);

    p = parse("a^b");
    ASSERT_EQ(p.numPieces, 2);
    EXPECT_EQ(p.pieces[1], FXString("b"));
    EXPECT_EQ(p.positions[1], TU::TEXT_NORMAL);
    EXPECT_FALSE(p.hasExponent);

    p = parse("m^2s3");  // a digit after a letter is still raised, with the piece it joins
    ASSERT_EQ(p.numPieces, 3);
    EXPECT_EQ(p.pieces[1], FXString("2"));
    EXPECT_EQ(p.pieces[2], FXString("s3"));
    EXPECT_EQ(p.positions[2], TU::TEXT_SUPERSCRIPT);

    p = parse("W/m^20", 4);  // two raised digits, each a piece
    ASSERT_EQ(p.numPieces, 3);
    EXPECT_EQ(p.pieces[1], FXString("2"));
    EXPECT_EQ(p.pieces[2], FXString("0"));
}

TEST(TextUtilities, TextWithoutCaretsOrWithTooManyStaysWhole) {
    Parsed p = parse("lumens");
    EXPECT_EQ(p.numPieces, 1);
    EXPECT_EQ(p.pieces[0], FXString("lumens"));
    EXPECT_FALSE(p.hasExponent);
    p = parse("a^1^2", 2);
    EXPECT_EQ(p.numPieces, 1);
    EXPECT_EQ(p.pieces[0], FXString("a^1^2"));
    EXPECT_EQ(p.positions[0], TU::TEXT_NORMAL);
}

TEST(TextUtilities, SmallFontIsThreeQuartersButNotBelowSixTenths) {
    const struct {
        unsigned size, small;
    } cases[] = {{90, 67}, {100, 75}, {80, 60}, {8, 6}, {7, 7}, {5, 5}, {0, 0}};
    for (const auto& c : cases) EXPECT_EQ(TU::getSubscriptSuperFontSize(c.size), c.small) << c.size;
    const struct {
        int position;
        double factor;
    } shifts[] = {{0, 0.0}, {1, -1.0}, {2, -1.5}, {-1, 1.0}, {-2, 1.5}, {3, 0.0}, {-7, 0.0}};
    for (const auto& s : shifts)
        EXPECT_EQ(TU::getCharacterShiftFactor(static_cast<TU::TEXT_POSITION>(s.position)),
                  s.factor);
}

TEST(TextUtilities, WidthAddsThePiecesAndNotesTheDeepestLevels) {
    FXFont* normal = guiTestApp()->getNormalFont();
    FXFont small(guiTestApp(), normal->getName(), 6);
    small.create();
    const FXString pieces[] = {"x", "2", "i", "j"};
    const TU::TEXT_POSITION positions[] = {TU::TEXT_NORMAL, TU::TEXT_SUPERSCRIPT,
                                           TU::TEXT_SUBSCRIPT_2, TU::TEXT_SUBSCRIPT};
    int sub = -1, super = -1;
    const int width = TU::getEntireTextWidth(normal, &small, 4, pieces, positions, &sub, &super);
    EXPECT_EQ(width, normal->getTextWidth("x") + small.getTextWidth("2") + small.getTextWidth("i") +
                         small.getTextWidth("j"));
    EXPECT_EQ(sub, 2);  // a later -1 does not undo the -2
    EXPECT_EQ(super, 1);
}

TEST(TextUtilities, WordsWrapIntoABoxOrReportThatTheyDoNot) {
    FXFont* font = guiTestApp()->getNormalFont();
    const int lineHeight = font->getFontHeight();
    int l, t, r, b;
    {
        Canvas canvas(300, 200);
        FXDCWindow dc(canvas.image.get());
        dc.setForeground(BLACK);
        EXPECT_TRUE(TU::drawTextToBox(&dc, "Correlated colour temperature of the lamp", 0, 0, 300,
                                      200, 5, lineHeight));
        EXPECT_TRUE(TU::drawTextToBox(&dc, "   ", 0, 0, 300, 200, 5, 5));
        dc.end();
        ASSERT_TRUE(canvas.ink(&l, &t, &r, &b));
        EXPECT_GE(l, 5);
    }
    {
        // A word wider than the box: nothing is drawn.
        Canvas canvas(300, 200);
        FXDCWindow dc(canvas.image.get());
        dc.setForeground(BLACK);
        EXPECT_FALSE(TU::drawTextToBox(&dc, "a Chromaticity b", 0, 0,
                                       font->getTextWidth("Chromaticity") - 1, 200, 0, 10));
        dc.end();
        EXPECT_FALSE(canvas.ink(&l, &t, &r, &b));
    }
    {
        // Too many lines for the height: what fitted stays.
        Canvas canvas(300, 200);
        FXDCWindow dc(canvas.image.get());
        dc.setForeground(BLACK);
        const int narrow = font->getTextWidth("colour ") + 2;
        EXPECT_FALSE(TU::drawTextToBox(&dc, "colour colour colour colour colour colour", 0, 0,
                                       narrow, 2 * lineHeight, 0, lineHeight));
        dc.end();
        EXPECT_TRUE(canvas.ink(&l, &t, &r, &b));
    }
}

TEST(TextUtilities, RightAlignmentOfTheFontFormLeavesXOut) {
    Canvas canvas(300, 60);
    {
        FXDCWindow dc(canvas.image.get());
        dc.setForeground(BLACK);
        dc.setFont(guiTestApp()->getNormalFont());
        const FXString pieces[] = {"Wm", "2"};
        const TU::TEXT_POSITION positions[] = {TU::TEXT_NORMAL, TU::TEXT_SUPERSCRIPT};
        TU::drawText(&dc, guiTestApp(), 0u, 2, pieces, positions, 150, 30, 100, TU::ALIGN_RIGHT);
        EXPECT_EQ(dc.getFont(), guiTestApp()->getNormalFont());  // the context's font is kept
    }
    int l, t, r, b;
    ASSERT_TRUE(canvas.ink(&l, &t, &r, &b));
    EXPECT_LE(r, 100);  // ends at width, not at x + width
    EXPECT_GT(r, 80);
}

TEST(TextUtilities, RotatedTextStandsUpright) {
    const FXString text = "Wavelength (nm)";
    int l, t, r, b;
    for (const auto rotation : {TU::ROTATE_MINUS_90, TU::ROTATE_90}) {
        Canvas canvas(120, 220);
        {
            FXDCWindow dc(canvas.image.get());
            dc.setFont(guiTestApp()->getNormalFont());
            TU::drawRotatedText(&dc, guiTestApp(), text, WHITE, BLACK, 10, 20, rotation);
        }
        ASSERT_TRUE(canvas.ink(&l, &t, &r, &b));
        EXPECT_GT(b - t, 2 * (r - l)) << rotation;
        EXPECT_GE(l, 10);
        EXPECT_GE(t, 20);
    }
    Canvas canvas(220, 120);
    {
        FXDCWindow dc(canvas.image.get());
        dc.setFont(guiTestApp()->getNormalFont());
        TU::drawRotatedText(&dc, guiTestApp(), text, WHITE, BLACK, 10, 20, TU::ROTATE_180);
    }
    ASSERT_TRUE(canvas.ink(&l, &t, &r, &b));
    EXPECT_GT(r - l, 2 * (b - t));
}
