// The widget of one page: leaves to the window what is the window's, and has a menu of its own.
#pragma once

#include <QWebEngineView>

#include <functional>
#include <memory>

class QMenu;

class PageWidget : public QWebEngineView {
  public:
    PageWidget(QWebEnginePage*, QWidget* parent);
    ~PageWidget() override;

    void SetDeaf(bool deaf) { deaf_ = deaf; } // keys do not reach the page

    std::function<void(int steps)> onZoomKey;   // 0: back to normal
    std::function<void()> onTouched;            // a key or a button went up
    std::function<void(QPoint)> onContextPress; // before the menu shows
    std::function<void(int command)> onCommand; // a PageCommand
    std::function<bool()> hasSelection, hasText;

  protected:
    void childEvent(QChildEvent*) override;
    void contextMenuEvent(QContextMenuEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;

  private:
    bool KeyEvent(const QKeyEvent&); // whether the page must not have it
    void AddCommand(const QString& caption, int command, bool enabled);

    std::unique_ptr<QMenu> menu_; // the one shown last
    bool deaf_ = false;
};
