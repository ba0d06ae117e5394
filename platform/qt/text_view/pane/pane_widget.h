// A widget for a pane: scroll bars, painting, keys and mouse. The pane's lengths are device pixels;
// what is passed to and from Qt is in device-independent ones.
#pragma once

#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/pictures/qt_pictures.h"
#include "view/view_pane.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>

#include <array>
#include <functional>
#include <string>
#include <vector>

class PaneWidget : public QAbstractScrollArea, protected PaneWindow {
  public:
    explicit PaneWidget(QWidget* parent);

    QPoint ContextMenuPoint() const { return contextPoint_; } // global, of the last request
    QRect CaretRect();                                        // null if out of view

    std::function<void()> onContextMenu;
    std::function<void(const std::vector<std::u16string>&)> onFilesDropped;
    void SetCursorShape(Qt::CursorShape shape); // but over a link

  protected:
    void SetPane(ViewPane& pane); // once, by the constructor of the derived class
    LineLayout& Lines() { return lines_; }
    PictureStore& Pictures() { return pictures_; }
    virtual bool OnPress(Point) { return false; } // before the pane; true: it was handled

    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void changeEvent(QEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

    void OnTextChanging() override {}
    void OnTextChanged() override {}
    void OnSelectionChanged(TextPos, TextPos) override {}
    void OnVisibleTextChanged() override {}

    Point ToPane(QPoint point) const { return {ToPixels(point.x()), ToPixels(point.y())}; }
    QRect ToWidget(const Rect& box) const;

  private:
    Size Room() const override;
    double Dpi() const override;
    bool HasFocus() const override { return hasFocus(); }
    int BlinkInterval() const override;
    void Redraw() override;
    void RedrawPart(const Rect& part) override;
    void SetHorizontalBar(bool shown) override;
    void ShowVertical(const ScrollRange& range) override;
    void ShowHorizontal(const ScrollRange& range) override;
    void StartTimer(PaneTimer timer, int milliseconds) override;
    void StopTimer(PaneTimer timer) override;
    std::chrono::milliseconds SteadyTime() const override;

    QBasicTimer& TimerOf(PaneTimer timer) { return timers_[std::size_t(timer)]; }
    void UpdateSystemStyle();
    void UpdatePointer(Point point);
    void OnVerticalAction(int action);
    int ToPixels(int ofWidget) const { return int(ofWidget * devicePixelRatioF()); }
    bool MenuKey(int key, Qt::KeyboardModifiers modifiers);
    void RequestContextMenu(QPoint point); // in the viewport
    void ScrollByWheel(int angle);

    QtLineLayout lines_;
    QtPictures pictures_;
    ViewPane* pane_ = nullptr;

    QPoint mouse_, contextPoint_;
    Qt::CursorShape pointer_ = Qt::IBeamCursor;
    QElapsedTimer sinceDoubleClick_;
    std::array<QBasicTimer, paneTimers> timers_;
    int wheelRemainder_ = 0; // lines, times the angle of a wheel step
};
