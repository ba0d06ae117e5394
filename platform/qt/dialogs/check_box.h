// A check box whose access key counts at once.
#pragma once

#include <QCheckBox>
#include <QEvent>

// Qt's own shows itself pressed for a moment first, and what is confirmed sooner than that goes
// without it.
class CheckBox final : public QCheckBox {
  public:
    using QCheckBox::QCheckBox;

  protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::Shortcut) return QCheckBox::event(event);
        setFocus(Qt::ShortcutFocusReason);
        click();
        return true;
    }
};
