// Keyboard focus around menus, where Qt leaves it with the menu bar or loses it.
#pragma once

#include <QObject>
#include <QPointer>

class QKeyEvent;
class QMenuBar;
class QWidget;
class QWindow;

// Qt's menu bar keeps the focus after its menu was closed by Escape; and if Alt and a letter opened
// that menu from the bar, Escape returns the focus to the bar for good.
class MenuBarFocus : public QObject {
  public:
    explicit MenuBarFocus(QMenuBar&); // must outlive this object

    // Whether the menu bar uses the key. A key press that it cannot use returns the focus to the
    // view, which then receives the key. Key releases are never reserved for the bar.
    bool HandleKey(const QKeyEvent&);

    void RestoreFocus() const; // to the view, if the bar has the focus

  private:
    QMenuBar& bar_;
    QPointer<QWidget> lastFocus_; // the last widget outside the bar that had the focus
};

// Connect it to focusWindowChanged; null is a window of another program. While a menu is open, Qt
// ignores that another window of ours gets the focus, and does not catch up later: its shortcuts
// would not work and no focus would show. So that window becomes the active one here, and menus of
// other windows are closed, as on Windows.
void ActivateFocusedWindow(QWindow*);
