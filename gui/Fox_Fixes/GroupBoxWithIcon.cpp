#include "GroupBoxWithIcon.h"

FXDEFMAP(GroupBoxWithIcon)
GroupBoxWithIconMap[] = {
    FXMAPFUNC(SEL_PAINT, 0, GroupBoxWithIcon::onPaint),
    FXMAPFUNC(SEL_COMMAND, FXWindow::ID_SETVALUE, GroupBoxWithIcon::onCmdSetValue),
    FXMAPFUNC(SEL_COMMAND, FXWindow::ID_SETSTRINGVALUE, GroupBoxWithIcon::onCmdSetStringValue),
    FXMAPFUNC(SEL_COMMAND, FXWindow::ID_GETSTRINGVALUE, GroupBoxWithIcon::onCmdGetStringValue),
};

FXIMPLEMENT(GroupBoxWithIcon, FXGroupBox, GroupBoxWithIconMap, ARRAYNUMBER(GroupBoxWithIconMap))

namespace {
const FXint ICON_GAP = 4;  // between icon and text
// The frame bits of the options; FOX keeps its own mask private.
const FXuint FRAME_STYLE_BITS = FRAME_SUNKEN | FRAME_RAISED | FRAME_THICK;
}

GroupBoxWithIcon::GroupBoxWithIcon(FXComposite* p, const FXString& text, FXIcon* ic, FXuint opts,
                                   FXint x, FXint y, FXint w, FXint h, FXint pl, FXint pr, FXint pt,
                                   FXint pb, FXint hs, FXint vs)
    : FXGroupBox(p, text, opts, x, y, w, h, pl, pr, pt, pb, hs, vs), icon(ic) {}

void GroupBoxWithIcon::create() {
    FXGroupBox::create();
    if (icon) icon->create();
}

FXint GroupBoxWithIcon::titleLineHeight() const {
    const FXint textHeight = label.empty() ? 0 : font->getFontHeight();
    const FXint iconHeight = icon ? icon->getHeight() : 0;
    return FXMAX(textHeight, iconHeight);
}

FXint GroupBoxWithIcon::titleWidth() const {
    FXint w = label.empty() ? 0 : font->getTextWidth(label);
    if (icon) w += icon->getWidth() + (label.empty() ? 0 : ICON_GAP);
    return w;
}

void GroupBoxWithIcon::layout() {
    // The children start below the title line, as in FOX's group box.
    const FXint savedPadTop = padtop;
    if (titleLineHeight() > 0) padtop += titleLineHeight() + 4 - border;
    FXPacker::layout();
    padtop = savedPadTop;
    flags &= ~FLAG_DIRTY;
}

FXint GroupBoxWithIcon::getDefaultWidth() {
    const FXint children = FXPacker::getDefaultWidth();
    const FXint title = titleWidth() > 0 ? titleWidth() + 16 : 0;
    return FXMAX(children, title);
}

FXint GroupBoxWithIcon::getDefaultHeight() {
    const FXint th = titleLineHeight();
    return FXPacker::getDefaultHeight() + (th > 0 ? th + 4 - border : 0);
}

void GroupBoxWithIcon::setIcon(FXIcon* ic) {
    if (icon == ic) return;
    icon = ic;
    recalc();
    update();
}

void GroupBoxWithIcon::setIconPosition(FXuint position) {
    const FXuint side = position == ICON_AFTER_TEXT ? ICON_AFTER_TEXT : ICON_BEFORE_TEXT;
    if (side == iconPosition) return;
    iconPosition = side;
    update();
}

long GroupBoxWithIcon::onPaint(FXObject*, FXSelector, void* ptr) {
    FXEvent* event = static_cast<FXEvent*>(ptr);
    FXDCWindow dc(this, event);
    dc.setForeground(backColor);
    dc.fillRectangle(event->rect.x, event->rect.y, event->rect.w, event->rect.h);

    const FXint th = titleLineHeight();
    const FXint yy = th > 0 ? 2 + th / 2 : 0;  // the frame runs through the title's middle
    switch (options & FRAME_STYLE_BITS) {
        case FRAME_LINE:
            drawBorderRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_SUNKEN:
            drawSunkenRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_RAISED:
            drawRaisedRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_GROOVE:
            drawGrooveRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_RIDGE:
            drawRidgeRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_SUNKEN | FRAME_THICK:
            drawDoubleSunkenRectangle(dc, 0, yy, width, height - yy);
            break;
        case FRAME_RAISED | FRAME_THICK:
            drawDoubleRaisedRectangle(dc, 0, yy, width, height - yy);
            break;
    }
    if (th <= 0) return 1;

    FXint tw = titleWidth();
    FXint xx = 4;
    if (options & GROUPBOX_TITLE_RIGHT)
        xx = width - tw - 12;
    else if (options & GROUPBOX_TITLE_CENTER)
        xx = (width - tw) / 2 - 4;
    if (xx < 4) xx = 4;
    if (tw + 16 > width) tw = width - 16;
    if (tw <= 0) return 1;
    dc.setForeground(backColor);
    dc.fillRectangle(xx, yy - 1, tw + 8, 3);  // a gap in the frame for the title
    dc.setClipRectangle(xx + 4, 0, tw, th + 4);

    FXint x = xx + 4;
    const bool iconFirst = iconPosition != ICON_AFTER_TEXT;
    const FXint textWidth = label.empty() ? 0 : font->getTextWidth(label);
    FXint iconX = x;
    if (icon && iconFirst) x += icon->getWidth() + (label.empty() ? 0 : ICON_GAP);
    if (icon && !iconFirst) iconX = x + textWidth + (label.empty() ? 0 : ICON_GAP);
    if (icon) {
        const FXint iy = 2 + (th - icon->getHeight()) / 2;
        if (isEnabled())
            dc.drawIcon(icon, iconX, iy);
        else
            dc.drawIconSunken(icon, iconX, iy);
    }
    if (!label.empty()) {
        dc.setFont(font);
        const FXint baseline = 2 + (th - font->getFontHeight()) / 2 + font->getFontAscent();
        if (isEnabled()) {
            dc.setForeground(textColor);
            dc.drawText(x, baseline, label);
        } else {
            dc.setForeground(hiliteColor);
            dc.drawText(x + 1, baseline + 1, label);
            dc.setForeground(shadowColor);
            dc.drawText(x, baseline, label);
        }
    }
    return 1;
}

long GroupBoxWithIcon::onCmdSetValue(FXObject*, FXSelector, void* ptr) {
    setText(FXString(static_cast<const FXchar*>(ptr)));
    return 1;
}

long GroupBoxWithIcon::onCmdSetStringValue(FXObject*, FXSelector, void* ptr) {
    setText(*static_cast<FXString*>(ptr));
    return 1;
}

long GroupBoxWithIcon::onCmdGetStringValue(FXObject*, FXSelector, void* ptr) {
    *static_cast<FXString*>(ptr) = getText();
    return 1;
}
