// A check box that toggles at once when its mnemonic is pressed.
#pragma once

#include <QCheckBox>
#include <QEvent>

// QCheckBox::animateClick() toggles after a delay, and a dialog accepted before that would miss the
// change.
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
