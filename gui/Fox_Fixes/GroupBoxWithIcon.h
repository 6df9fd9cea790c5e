// A group box whose title carries an icon beside its text, as FOX's own group box looks
// otherwise: the frame runs through the middle of the title line, which sits left, centred or
// right by GROUPBOX_TITLE_*. The icon isn't owned; the window that made it keeps it.
#ifndef LUMIVAR_GUI_GROUPBOXWITHICON_H
#define LUMIVAR_GUI_GROUPBOXWITHICON_H

#include <fx.h>

class GroupBoxWithIcon : public FXGroupBox {
    FXDECLARE(GroupBoxWithIcon)
  public:
    GroupBoxWithIcon(FXComposite* p, const FXString& text, FXIcon* icon = nullptr,
                     FXuint opts = GROUPBOX_NORMAL, FXint x = 0, FXint y = 0, FXint w = 0,
                     FXint h = 0, FXint pl = DEFAULT_SPACING, FXint pr = DEFAULT_SPACING,
                     FXint pt = DEFAULT_SPACING, FXint pb = DEFAULT_SPACING,
                     FXint hs = DEFAULT_SPACING, FXint vs = DEFAULT_SPACING);

    long onPaint(FXObject*, FXSelector, void*);
    // The title text: ID_SETVALUE takes a const FXchar*, the string forms an FXString*.
    long onCmdSetValue(FXObject*, FXSelector, void*);
    long onCmdSetStringValue(FXObject*, FXSelector, void*);
    long onCmdGetStringValue(FXObject*, FXSelector, void*);

    virtual void create();
    virtual void layout();
    virtual FXint getDefaultWidth();
    virtual FXint getDefaultHeight();

    void setIcon(FXIcon* icon);
    FXIcon* getIcon() const { return icon; }
    // ICON_BEFORE_TEXT (at first) or ICON_AFTER_TEXT; any other value counts as before.
    void setIconPosition(FXuint position);
    FXuint getIconPosition() const { return iconPosition; }
    // setGroupBoxStyle, getGroupBoxStyle (GROUPBOX_TITLE_*) and setTextColor are FOX's.
    using FXGroupBox::getGroupBoxStyle;
    using FXGroupBox::setGroupBoxStyle;
    using FXGroupBox::setTextColor;

  protected:
    GroupBoxWithIcon() {}

  private:
    // Height of the title line (text or icon, the taller) and width of its content.
    FXint titleLineHeight() const;
    FXint titleWidth() const;

    FXIcon* icon = nullptr;                  // drawn at the title, not owned
    FXuint iconPosition = ICON_BEFORE_TEXT;  // side of the text the icon stands on
};

#endif  // LUMIVAR_GUI_GROUPBOXWITHICON_H
