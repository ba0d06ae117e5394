// The widget of one page: passes the window's keys on to it, and has its own context menu. Keys
// that are pressed while the page loads are held for it.
#pragma once

#include "platform/html_view.h"

#include <QWebEngineView>

#include <functional>
#include <memory>
#include <vector>

class QKeyEvent;
class QMenu;

class PageWidget : public QWebEngineView {
  public:
    PageWidget(QWebEnginePage*, QWidget* parent);
    ~PageWidget() override;

    void SetHasSelection(bool); // updates the open context menu
    void SetKeysBlocked(bool);  // keys do not reach the page, nor do those held
    void SendHeldKeys();        // and all later ones at once

    std::function<void(int steps)> onZoomKey;   // 0 resets the zoom
    std::function<void()> onInputReleased;      // a key or mouse button was released
    std::function<void(QPoint)> onContextClick; // before the context menu of a click opens
    std::function<void(PageCommand)> onCommand;
    std::function<bool()> hasSelection, hasText, offersEngineChange;

  protected:
    void childEvent(QChildEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    bool event(QEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;

  private:
    bool FilterInput(QEvent&); // whether the event is withheld from the page
    bool HoldKey(const QKeyEvent&);
    bool FilterKey(const QKeyEvent&);
    QAction* AddCommand(const QString& caption, PageCommand command, bool enabled);

    std::unique_ptr<QMenu> menu_; // the last one shown
    QAction* copy_ = nullptr;     // in menu_
    bool keysBlocked_ = false, holdsKeys_ = true;
    std::vector<std::unique_ptr<QKeyEvent>> heldKeys_;
    // The context menu is requested by the mouse, which moves the caret, not by a key.
    bool rightPressed_ = false;
};
