// How menus behave and look where Qt's styles do otherwise than the program's menus need.
#pragma once

#include <QProxyStyle>

// Long menus scroll, disabled items cannot be selected, and headings (disabled and bold) are not
// greyed.
class MenuStyle final : public QProxyStyle {
  public:
    int styleHint(StyleHint, const QStyleOption*, const QWidget*, QStyleHintReturn*) const override;
    void drawControl(ControlElement, const QStyleOption*, QPainter*, const QWidget*) const override;
};
