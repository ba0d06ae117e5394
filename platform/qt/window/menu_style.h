// The style of menus, where Qt's styles differ from what the program's menus need.
#pragma once

#include <QProxyStyle>

// Long menus scroll, disabled items cannot be selected, and headings (disabled and bold) are not
// greyed out.
class MenuStyle final : public QProxyStyle {
  public:
    int styleHint(StyleHint, const QStyleOption*, const QWidget*, QStyleHintReturn*) const override;
    void drawControl(ControlElement, const QStyleOption*, QPainter*, const QWidget*) const override;
};
