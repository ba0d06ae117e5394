// The main window on Qt: frame, menu bar, and below it the inner area, which the core lays out.
#pragma once

#include "common/reachable_place.h"
#include "platform/qt/system/exit_signals.h"
#include "platform/window.h"

#include <QMargins>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class MenuBarFocus;
class QFrame;
class QMenuBar;

class QtWindow final : public QWidget, public Window {
  public:
    QtWindow();
    ~QtWindow() override;

    QWidget* InnerArea() const { return inner_; } // parent of the status bar
    QWidget* ViewArea() const { return views_; }  // parent of both views, inside the panel's frame
    void SetMenuBar(QMenuBar*);
    void RestoreViewFocus(); // if the menu bar has the focus
    void LayOut(); // places menu bar and inner area; calls onResize if the inner area has changed

    // While this widget or a child of it has the focus, the keypad's zoom keys are reported as
    // those of the main block.
    void AddPageWidget(QWidget* page) { pageWidgets_.push_back(page); }
    void SendKeyDown(int code, int shift); // a synthesized key press

    // On the bars and the scroll bar, which take no drops themselves.
    std::function<void(const std::vector<std::u16string>& paths)> onFilesDropped;

    // On a signal or at logout: cancels open menus and dialogs, then closes the window as its user
    // would.
    void CloseFromSystem();

    void SetEvents(WindowEvents) override;
    void Open() override;
    void Close() override;
    void BringToFront(const std::u16string& activation) override;
    void Alert() override;
    WindowState State() const override;
    void SetState(WindowState) override;
    Rect Bounds() const override;
    void Move(const Rect&) override;
    bool IsFullScreen() const override { return fullScreen_ && isFullScreen(); }
    void SetFullScreen(bool) override;
    int InnerWidth() const override;
    int InnerHeight() const override;
    double TwipsPerPixelX() const override;
    double TwipsPerPixelY() const override;
    void SetTitle(std::u16string_view) override;
    void ApplySystemFont() override;
    double TextWidth(std::u16string_view) const override;
    void SetPanelBounds(const Rect&) override;
    ViewFont DefaultViewFont() const override;

  protected:
    void moveEvent(QMoveEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void changeEvent(QEvent*) override;
    void closeEvent(QCloseEvent*) override;
    void wheelEvent(QWheelEvent*) override;
    void dragEnterEvent(QDragEnterEvent*) override;
    void dropEvent(QDropEvent*) override;
    bool eventFilter(QObject*, QEvent*) override;

  private:
    void SetDefaultGeometry();
    void Reactivate();
    bool HandleKey(const QKeyEvent&);
    int KeyCodeOf(const QKeyEvent&) const;
    bool IsMenuBarUsed() const;
    void ShowMenuBar();
    void HideUnusedMenuBar();
    QMargins FrameMargins() const;
    Rect FrameBounds() const;
    void SetClientGeometry(const QMargins& frame);
    void AdjustForFrame();
    void ScheduleAdjustForFrame();
    void StartSettling();
    void SettleAtSizeOfCompositor();
    void Settle();
    void NotifyResize();

    QWidget* inner_;
    QFrame* panel_;
    QWidget* views_;
    QMenuBar* menuBar_ = nullptr;
    std::unique_ptr<MenuBarFocus> menuBarFocus_;
    std::vector<QWidget*> pageWidgets_; // that zoom by the keys of a page
    WindowEvents events_;
    // Returned by Bounds() until the window manager has settled the geometry: meanwhile the
    // reported one is partly outdated and partly without the frame.
    std::optional<Rect> requested_;
    Rect reachable_; // requested_, moved to where the user can reach it
    // Requested for the current frame margins and for the previous ones.
    QSize clientSize_, previousClientSize_;
    QMargins assumedFrame_; // frame margins that clientSize_ was computed with
    // Once settled, if reachable_ differs from what was requested.
    std::optional<ShownInstead> shownInstead_;
    QPoint assumedCorner_; // used where the window system reports no positions (Wayland)
    QTimer settleTimer_;
    bool fullScreen_ = false; // by us; one that the window manager made is as if maximised
    QTimer menuBarTimer_;     // runs while the menu bar is shown over a full screen
    struct {
        int code = 0, shift = 0;
    } pressedKey_;          // the last key press
    int zoomRemainder_ = 0; // less than a wheel step, in eighths of a degree
    bool unloaded_ = false;
    ExitSignals exitSignals_;
};
