// The widget of one page: leaves to the window what is the window's, and has a menu of its own.
#pragma once

#include "platform/html_view.h"

#include <QWebEngineView>

#include <functional>
#include <memory>

class QMenu;

class PageWidget : public QWebEngineView {
  public:
    PageWidget(QWebEnginePage*, QWidget* parent);
    ~PageWidget() override;

    void SetHasSelection(bool);               // what the menu offers that is open
    void SetDeaf(bool deaf) { deaf_ = deaf; } // keys do not reach the page

    std::function<void(int steps)> onZoomKey;   // 0: back to normal
    std::function<void()> onTouched;            // a key or a button went up
    std::function<void(QPoint)> onContextPress; // before the menu of a click shows
    std::function<void(PageCommand)> onCommand;
    std::function<bool()> hasSelection, hasText;

  protected:
    void childEvent(QChildEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;

  private:
    bool KeyEvent(const QKeyEvent&); // whether the page must not have it
    QAction* AddCommand(const QString& caption, PageCommand command, bool enabled);

    std::unique_ptr<QMenu> menu_; // the one shown last
    QAction* copy_ = nullptr;     // in it
    bool deaf_ = false;
    bool pressedRight_ =
        false; // the mouse asks for the menu, not a key: that leaves the caret alone
};
