// The keyboard between the menu bar and the views. Qt's bar keeps it when its menu is left by
// Escape; and once Alt and a letter have opened a menu from there, Escape gives it back to the bar
// itself, for good.
#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QMenuBar;
class QWidget;

class BarKeyboard : public QObject {
  public:
    explicit BarKeyboard(QMenuBar&); // which lives longer

    // Whether the key is the bar's. One that means nothing to the bar takes the keyboard back to
    // the view that had it, which then gets the key. Keys that go up are never the bar's alone.
    bool Takes(const QKeyEvent&);

    void GiveBack() const; // to the view, where the bar has it

  private:
    QMenuBar& bar_;
    QPointer<QWidget> view_; // had the keyboard last, of all but the bar
};
