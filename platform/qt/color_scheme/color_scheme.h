// Windows and dialogs follow the desktop's dark or light scheme, from the start and when it
// changes.
#pragma once

#include <QDBusMessage>
#include <QObject>

// The scheme comes from the desktop's portal; without one everything stays as Qt has it, which
// knows the colours of some desktops by itself.
class ColorScheme : public QObject {
    Q_OBJECT

  public:
    ColorScheme();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    Q_SLOT void OnSettingChanged(const QDBusMessage& changed);
    void Ask();
    void Apply(bool dark);

    bool dark_ = false; // by us
};
