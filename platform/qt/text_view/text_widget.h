// The widget of the text view: a window for a text pane. The pane's lengths are device pixels; what
// is passed to and from Qt is in device-independent ones.
#pragma once

#include "platform/qt/text_view/line_layout/qt_line_layout.h"
#include "platform/qt/text_view/qt_pictures.h"
#include "view/text_pane.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>

#include <array>
#include <functional>

class TextWidget : public QAbstractScrollArea, private PaneWindow {
  public:
    explicit TextWidget(QWidget* parent);

    TextPane& Pane() { return pane_; }
    // Points and boxes in the viewport.
    TextPos CharacterAtPoint(QPoint point);
    QRect CaretRect();                     // null if out of view
    QRect CharacterRect(TextPos position); // null if the widget is hidden; see TextPane
    QPoint ContextMenuPoint() const { return contextPoint_; } // global, of the last request

    std::function<void()> onContextMenu;
    std::function<void(const std::vector<std::u16string>&)> onFilesDropped;
    std::function<void()> onPlaceholderLink;
    void SetPointer(Qt::CursorShape shape); // but over a link

  protected:
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
    void OnTextChanging() override;
    void OnTextChanged() override;
    void OnSelectionChanged(TextPos anchorBefore, TextPos caretBefore) override;
    void OnVisibleTextChanged() override;

    QBasicTimer& TimerOf(PaneTimer timer) { return timers_[std::size_t(timer)]; }
    void UpdateSystemStyle();
    void UpdatePointer(Point point);
    void OnVerticalAction(int action);
    int ToPixels(int ofWidget) const { return int(ofWidget * devicePixelRatioF()); }
    Point ToPane(QPoint point) const { return {ToPixels(point.x()), ToPixels(point.y())}; }
    QRect ToWidget(const Rect& box) const;
    QString AccessibleBeginning();
    void NotifyVisibleDataChanged();
    bool MenuKey(int key, Qt::KeyboardModifiers modifiers);
    void RequestContextMenu(QPoint point); // in the viewport
    void ScrollByWheel(int angle);

    QtLineLayout lines_;
    QtPictures pictures_;
    TextPane pane_;

    QPoint mouse_, contextPoint_;
    Qt::CursorShape pointer_ = Qt::IBeamCursor;
    QElapsedTimer sinceDoubleClick_;
    std::array<QBasicTimer, paneTimers> timers_;
    QBasicTimer visibleDataTimer_;
    int wheelRemainder_ = 0; // lines, times the angle of a wheel step
    QString oldBeginning_;   // of the text before it changes
};
