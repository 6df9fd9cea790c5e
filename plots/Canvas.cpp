#include "Canvas.h"

namespace {

// A subscript is three quarters of the font, lowered by a third of the font size.
constexpr double SUBSCRIPT_SCALE = 0.75;
constexpr double SUBSCRIPT_DROP = 1.0 / 3.0;

}  // namespace

double textWithSubscriptWidth(Canvas& canvas, const std::string& text, const std::string& subscript,
                              double size, bool bold, const std::string& after) {
    return canvas.measureText(text, size, bold).width +
           canvas.measureText(subscript, size * SUBSCRIPT_SCALE, bold).width +
           canvas.measureText(after, size, bold).width;
}

double drawTextWithSubscript(Canvas& canvas, double x, double y, const std::string& text,
                             const std::string& subscript, const TextStyle& style, ArgbWord color,
                             const std::string& after) {
    const double w1 = canvas.measureText(text, style.size, style.bold).width;
    const double small = style.size * SUBSCRIPT_SCALE;
    const double w2 = canvas.measureText(subscript, small, style.bold).width;
    const double w3 = canvas.measureText(after, style.size, style.bold).width;
    const double total = w1 + w2 + w3;
    double start = 0;  // offset of the first piece along the writing direction
    if (style.align == TextAlign::CENTER) start = -total / 2;
    if (style.align == TextAlign::RIGHT) start = -total;
    TextStyle piece = style;
    piece.align = TextAlign::LEFT;
    TextStyle smallPiece = piece;
    smallPiece.size = small;
    const double drop = style.size * SUBSCRIPT_DROP;
    if (style.rotated) {
        // Written upward: the writing direction is -y, "down" against the line is +x.
        canvas.drawText(x, y - start, text, piece, color);
        canvas.drawText(x + drop, y - start - w1, subscript, smallPiece, color);
        canvas.drawText(x, y - start - w1 - w2, after, piece, color);
    } else {
        canvas.drawText(x + start, y, text, piece, color);
        canvas.drawText(x + start + w1, y + drop, subscript, smallPiece, color);
        canvas.drawText(x + start + w1 + w2, y, after, piece, color);
    }
    return total;
}
