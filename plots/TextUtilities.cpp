#include "TextUtilities.h"

#include <vector>

namespace {
// The context's font; a fresh context on an image has none, and then FOX's normal font serves.
FXFont* contextFont(FXDCWindow* dc) {
    return dc->getFont() ? dc->getFont() : dc->getApp()->getNormalFont();
}

// A font like `like` at the given size in tenths of a point and weight: straight, default
// encoding, normal width.
FXFont* makeFont(FXApp* app, FXFont* like, unsigned size, unsigned weight) {
    FXFontDesc desc;
    like->getFontDesc(desc);
    const FXString face = desc.face[0] ? FXString(desc.face) : like->getName();
    FXFont* font =
        new FXFont(app, face, size / 10, weight, FXFont::Straight, 0, FXFont::NonExpanded, 0);
    font->create();
    return font;
}

unsigned descSize(FXFont* font) {
    FXFontDesc desc;
    font->getFontDesc(desc);
    return desc.size;
}

unsigned descWeight(FXFont* font) {
    FXFontDesc desc;
    font->getFontDesc(desc);
    return desc.weight;
}
}  // namespace

unsigned TextUtilities::getSubscriptSuperFontSize(unsigned size) {
    int s = static_cast<int>(size * 3 / 4);
    if (s == static_cast<int>(size)) s = static_cast<int>(size) - 2;
    if (s < 6) return size;
    return static_cast<unsigned>(s);
}

double TextUtilities::getCharacterShiftFactor(TEXT_POSITION position) {
    switch (position) {
        case TEXT_SUPERSCRIPT:
            return -1.0;
        case TEXT_SUPERSCRIPT_2:
            return -1.5;
        case TEXT_SUBSCRIPT:
            return 1.0;
        case TEXT_SUBSCRIPT_2:
            return 1.5;
        default:
            return 0.0;
    }
}

int TextUtilities::getEntireTextWidth(FXFont* normal, FXFont* small, int n, const FXString* pieces,
                                      const TEXT_POSITION* positions, int* subDepth,
                                      int* superDepth) {
    *subDepth = 0;
    *superDepth = 0;
    int width = 0;
    for (int k = 0; k < n; ++k) {
        width += (positions[k] != TEXT_NORMAL ? small : normal)->getTextWidth(pieces[k]);
        switch (positions[k]) {
            case TEXT_SUBSCRIPT_2:
                *subDepth = 2;
                break;
            case TEXT_SUBSCRIPT:
                if (*subDepth == 0) *subDepth = 1;
                break;
            case TEXT_SUPERSCRIPT_2:
                *superDepth = 2;
                break;
            case TEXT_SUPERSCRIPT:
                if (*superDepth == 0) *superDepth = 1;
                break;
            default:
                break;
        }
    }
    return width;
}

void TextUtilities::drawText(FXDCWindow* dc, FXFont* normal, FXFont* small, int n,
                             const FXString* pieces, const TEXT_POSITION* positions, int x, int y) {
    int pen = x;
    for (int k = 0; k < n; ++k) {
        FXFont* font = positions[k] != TEXT_NORMAL ? small : normal;
        dc->setFont(font);
        const int h = font->getTextHeight(pieces[k]);
        const int shifted = static_cast<int>(y + getCharacterShiftFactor(positions[k]) * h / 2.0);
        dc->drawText(pen, shifted, pieces[k]);
        pen += font->getTextWidth(pieces[k]);
    }
}

void TextUtilities::drawText(FXDCWindow* dc, FXApp* app, unsigned, int n, const FXString* pieces,
                             const TEXT_POSITION* positions, int x, int y, int width,
                             ALIGNMENT alignment) {
    FXFont* old = dc->getFont();
    FXFont* like = contextFont(dc);
    FXFont* normal = makeFont(app, like, like->getSize(), descWeight(like));
    FXFont* small =
        makeFont(app, like, getSubscriptSuperFontSize(descSize(like)), descWeight(like));
    int subDepth = 0, superDepth = 0;
    const int textWidth =
        getEntireTextWidth(normal, small, n, pieces, positions, &subDepth, &superDepth);
    int start = x;
    if (alignment == ALIGN_CENTER)
        start = x + width / 2 - textWidth / 2;
    else if (alignment == ALIGN_RIGHT)
        start = width - textWidth;  // deliberate: x plays no part here
    if (start < 0) start = 0;
    if (y < 0) y = 0;
    drawText(dc, normal, small, n, pieces, positions, start, y);
    if (old) dc->setFont(old);
    delete normal;
    delete small;
}

void TextUtilities::drawText(FXDCWindow* dc, FXApp* app, unsigned unused, int n,
                             const FXString* pieces, const TEXT_POSITION* positions, int x, int y) {
    drawText(dc, app, unused, n, pieces, positions, x, y, 0, ALIGN_LEFT);
}

void TextUtilities::drawText(FXDCWindow* dc, FXApp* app, FXFont* normal, FXFont* small, int n,
                             const FXString* pieces, const TEXT_POSITION* positions,
                             unsigned background, unsigned foreground, int x, int y,
                             TEXT_ROTATION rotation, int width, ALIGNMENT alignment) {
    int subDepth = 0, superDepth = 0;
    const int textWidth =
        getEntireTextWidth(normal, small, n, pieces, positions, &subDepth, &superDepth);
    const int h = normal->getTextHeight("0");
    int imageHeight, baseline;
    if (subDepth > 0 || superDepth > 0) {
        // Room for the raised and lowered pieces: half a line per level.
        const double factor = 1.0 + (subDepth + superDepth) * 0.5;
        const double height = factor * h + h / 4.0;
        imageHeight = static_cast<int>(height);
        baseline = static_cast<int>(height / factor);
    } else {
        imageHeight = h + h / 4;
        baseline = imageHeight * 3 / 4;
    }
    if (textWidth < 1 || imageHeight < 1) return;

    if (rotation == ROTATE_MINUS_90 || rotation == ROTATE_90) {
        if (alignment == ALIGN_CENTER) {
            // Deliberate: half the width and half the text are both taken off y; axis titles
            // are placed with this.
            y = y - width / 2 - textWidth / 2;
            if (width > 0 && textWidth > width) y = 0;
        } else if (alignment == ALIGN_RIGHT) {
            y = y - width;
        }
        if (y < 0) y = 0;
    } else {
        if (alignment == ALIGN_CENTER)
            x += width / 2 - textWidth / 2;
        else if (alignment == ALIGN_RIGHT)
            x = x + width - textWidth;  // this form does add x
        if (x < 0) x = 0;
    }

    // The image owns the buffer: rotate() may replace it, and deleting the image frees it.
    FXColor* pixels = nullptr;
    FXMALLOC(&pixels, FXColor, textWidth * imageHeight);
    for (int k = 0; k < textWidth * imageHeight; ++k) pixels[k] = background;
    FXImage* image = new FXImage(app, pixels, IMAGE_KEEP | IMAGE_OWNED, textWidth, imageHeight);
    image->create();
    {
        FXDCWindow imageDc(image);
        imageDc.setForeground(foreground);
        imageDc.setBackground(background);
        drawText(&imageDc, normal, small, n, pieces, positions, 0, baseline);
    }
    image->restore();
    switch (rotation) {
        case ROTATE_MINUS_90:
            image->rotate(-90);
            break;
        case ROTATE_90:
            image->rotate(90);
            break;
        case ROTATE_180:
            image->rotate(180);
            break;
        default:
            break;
    }
    image->render();
    dc->drawImage(image, x, y);
    delete image;
}

void TextUtilities::drawText(FXDCWindow* dc, FXApp* app, int n, const FXString* pieces,
                             const TEXT_POSITION* positions, unsigned background,
                             unsigned foreground, int x, int y, TEXT_ROTATION rotation, int width,
                             ALIGNMENT alignment) {
    FXFont* like = contextFont(dc);
    FXFont* normal = makeFont(app, like, like->getSize(), FXFont::Normal);
    FXFont* small =
        makeFont(app, like, getSubscriptSuperFontSize(descSize(like)), descWeight(like));
    drawText(dc, app, normal, small, n, pieces, positions, background, foreground, x, y, rotation,
             width, alignment);
    delete normal;
    delete small;
}

void TextUtilities::drawRotatedText(FXDCWindow* dc, FXApp* app, const FXString& text,
                                    unsigned background, unsigned foreground, int x, int y,
                                    TEXT_ROTATION rotation) {
    FXFont* font = contextFont(dc);
    const TEXT_POSITION position = TEXT_NORMAL;
    drawText(dc, app, font, font, 1, &text, &position, background, foreground, x, y, rotation, -1,
             ALIGN_LEFT);
}

void TextUtilities::parseStringForExponents(int maxPieces, const FXString& text, int* numPieces,
                                            TEXT_POSITION* positions, FXString* pieces,
                                            bool* hasExponent) {
    *hasExponent = false;
    const int carets = text.contains('^');
    if (carets == 0 || carets > maxPieces - 1) {
        pieces[0] = text;
        positions[0] = TEXT_NORMAL;
        *numPieces = 1;
        return;
    }
    for (int k = 0; k < maxPieces; ++k) {
        pieces[k] = FXString::null;
        positions[k] = TEXT_NORMAL;
    }
    const int length = text.length();
    int lastCaret = length;
    int k = 0;
    // Pieces past maxPieces (one per raised digit) start empty as well.
    auto advance = [&]() {
        ++k;
        if (k >= maxPieces) {
            pieces[k] = FXString::null;
            positions[k] = TEXT_NORMAL;
        }
    };
    for (int i = 0; i < length; ++i) {
        const char ch = text[i];
        if (ch == '^') {
            lastCaret = i;
            advance();
        } else if (i <= lastCaret || ch < '0' || ch > '9') {
            pieces[k] += ch;
            positions[k] = TEXT_NORMAL;
        } else {
            // Deliberate: a digit anywhere behind a caret is raised, also after letters, and
            // raises the piece it joins ("m^2s3" raises "s3"); unit labels are written so.
            pieces[k] += ch;
            positions[k] = TEXT_SUPERSCRIPT;
            *hasExponent = true;
            if (i != length - 1) advance();
        }
    }
    *numPieces = k + 1;
}

bool TextUtilities::drawTextToBox(FXDCWindow* dc, const FXString& input, int x, int y, int width,
                                  int height, int marginX, int marginY) {
    FXString text(input);
    text.trim();
    if (text.empty()) return true;
    FXFont* font = contextFont(dc);
    dc->setFont(font);

    std::vector<FXString> words;
    for (int start = 0; start < text.length();) {
        int end = text.find(' ', start);
        if (end < 0) end = text.length();
        if (end > start) words.push_back(text.mid(start, end - start));
        start = end + 1;
    }
    for (const FXString& word : words)
        if (font->getTextWidth(word) > width) return false;

    const int pitch = font->getTextHeight(text);
    const int lineX = x + marginX;
    int lineY = y + marginY;
    FXString line;
    for (size_t k = 0; k < words.size(); ++k) {
        line += words[k] + " ";
        const FXString trial = k + 1 < words.size() ? line + words[k + 1] : line;
        if (font->getTextWidth(trial) <= width - 2 * marginX && !words[k].contains('\n')) {
            dc->drawText(lineX, lineY, line);  // the open line as it stands so far
            continue;
        }
        if (lineY > height - marginY) return false;
        dc->drawText(lineX, lineY, line);
        lineY += pitch;
        line = FXString::null;
    }
    return true;
}
