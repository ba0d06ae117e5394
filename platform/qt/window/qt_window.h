// The main window on Qt: frame and menu bar, and inside them the inner area that the core lays out.
#pragma once

#include "common/reachable_place.h"
#include "platform/qt/system/exit_signals.h"
#include "platform/window.h"

#include <QMargins>
#include <QTimer>
#include <QWidget>

#include <memory>
#include <optional>

class BarKeyboard;
class QFrame;
class QMenuBar;

class QtWindow final : public QWidget, public Window {
  public:
    QtWindow();
    ~QtWindow() override;

    QWidget* InnerArea() const { return inner_; } // parent of the status bar
    QWidget* ViewArea() const { return views_; }  // parent of both views, inside the panel's border
    void AdoptMenuBar(QMenuBar*);
    void TakeKeyboardFromBar(); // for the view that had it
    void LayOut(); // places menu bar and inner area; reports when the inner area changed

    // While this widget or one in it has the keyboard, the keypad's zoom keys are told as those of
    // the main block.
    void AdoptPage(QWidget* page) { page_ = page; }
    void TellKeyDown(int code, int shift); // a key that the program presses itself

    // The system wants the program to end: open menus and dialogs are cancelled, then the window
    // closes as by its user.
    void CloseFromSystem();

    void SetEvents(WindowEvents) override;
    void Open() override;
    void Close() override;
    WindowState State() const override;
    void SetState(WindowState) override;
    Rect Bounds() const override;
    void Move(const Rect&) override;
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
    bool eventFilter(QObject*, QEvent*) override;

  private:
    void TakeDefaultPlace();
    void TakeKeyboardBack();
    bool KeyEvent(const QKeyEvent&);
    int CodeOf(const QKeyEvent&) const;
    QMargins FrameMargins() const;
    Rect RealBounds() const;
    void MoveInside(const QMargins& frame);
    void AllowForFrame();
    void AllowForFrameSoon();
    void Settle();
    void ReportResize();

    QWidget* inner_;
    QFrame* panel_;
    QWidget* views_;
    QMenuBar* menuBar_ = nullptr;
    std::unique_ptr<BarKeyboard> barKeyboard_;
    QWidget* page_ = nullptr;
    WindowEvents events_;
    // The rectangle asked for stands for the window's own until the window manager has had its say:
    // what the window system tells in between is partly old and partly without the frame.
    std::optional<Rect> asked_;
    Rect shown_;                  // where it is shown
    QSize inside_, insideBefore_; // asked of the window system, for this frame and for the last one
    QMargins framed_; // the frame that the window's size allows for while `asked_` stands
    std::optional<ShownInstead> instead_; // of what was asked for, from then on
    QPoint corner_; // where the window would be, for a window system that doesn't say (Wayland)
    QTimer settling_;
    struct {
        int code = 0, shift = 0;
    } heldKey_;        // the key that went down last
    int zoomRest_ = 0; // a turn of the wheel of less than a notch, in eighths of a degree
    bool unloaded_ = false;
    ExitSignals exitSignals_;
};
