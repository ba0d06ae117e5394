// The widget of the text view. Layout and scrolling are in device pixels; what is passed to and
// from Qt is in device-independent ones.
#pragma once

#include "platform/qt/text_view/caret_moves.h"
#include "platform/qt/text_view/text_scroller.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QElapsedTimer>
#include <QImage>

#include <functional>
#include <optional>

class TextWidget : public QAbstractScrollArea {
  public:
    explicit TextWidget(QWidget* parent);

    // Both start at the top with the caret at 0. A TextSource is plain text.
    void ShowText(Document document, bool plain);
    void ShowText(std::shared_ptr<const TextSource> text);
    const TextSource& Source() const { return *text_; }
    const Document& Text() const { return document_; } // its text may not be the one displayed
    bool IsPlain() const { return context_.plain; }
    const ViewStyle& CurrentStyle() const { return viewStyle_; }
    void SetViewStyle(const ViewStyle& style);

    void Select(TextPos anchor, TextPos caret); // clamped to the text
    TextPos SelStart() const { return std::min(anchor_, caret_); }
    TextPos SelEnd() const { return std::max(anchor_, caret_); }
    TextPos Caret() const { return caret_; } // one end of the selection

    // These are up to date with the widget's current size, even if it is hidden.
    TextScroller& Scroller();
    TextLayouts& Layouts();
    TextPos PositionAtPoint(QPoint point); // the nearest position; the point is in the viewport
    TextPos CharacterAtPoint(QPoint point);
    QRect CaretRect(); // in the viewport; null if out of view
    // In the viewport; above or below it if the character is out of view. Null if the widget is
    // hidden.
    QRect CharacterRect(TextPos position);
    void Reveal(TextPos position);
    void RevealHorizontally(TextPos start, TextPos end); // as far as both are in one line
    void OnScrolled();                                   // call it after using the scroller

    QPoint ContextMenuPoint() const { return contextPoint_; } // global, of the last request

    std::function<void()> onContextMenu;
    std::function<void(const std::vector<std::u16string>&)> onFilesDropped;

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
    enum class Granularity { Character, Word, Paragraph };

    void ResetView(const QString& oldText);
    const TextSpan& VisibleSpan();
    void NotifySelectionChanged(TextPos anchorBefore, TextPos caretBefore);
    QString AccessibleBeginning() const;
    void NotifyTextChanged(const QString& oldText);
    void ScheduleVisibleDataChanged();
    void NotifyVisibleDataChanged();
    void UpdateLayoutSize();
    void Relayout();
    bool UpdateResolution();
    int BreakWidth(int viewWidth) const;
    int LineHeight() const; // of the view's font
    int Pixels(int ofWidget) const { return int(ofWidget * pixelRatio_); }
    QRect ToWidget(const QRect& box) const;
    int ViewWidth() const { return Pixels(viewport()->width()); }
    int ToTextX(int viewX) const;
    int SideMargin() const;
    void ScrollToX(int x); // scrolls x of the text to the view's left edge
    std::optional<QRect> CaretInView();
    void UpdateScrollBars();
    void OnVerticalAction(int action);
    void RestartBlinking();
    QColor CaretColor() const;

    bool ScrollKey(int key, Qt::KeyboardModifiers modifiers);
    bool MenuKey(int key, Qt::KeyboardModifiers modifiers);
    bool CaretKey(int key, Qt::KeyboardModifiers modifiers);
    std::optional<TextPos> KeyTarget(int key, bool control);
    TextPos VerticalTarget(int key);
    TextPos PageTarget(bool down);
    void MoveCaret(TextPos position, bool extend);

    TextSpan UnitAround(TextPos position);
    void RequestContextMenu(QPoint point); // in the viewport
    void ExtendByMouse(QPoint point);
    void SelectUnit(TextPos position, Granularity granularity);
    void AutoScroll();
    void ScrollByWheel(int angle);

    Document document_;
    std::shared_ptr<const TextSource> text_; // the document's text, or a TextSource
    ViewStyle viewStyle_;
    QPalette palette_; // a copy that the formats can refer to
    CharFormats formats_;
    PictureStore pictures_;
    QImage screen_{1, 1, QImage::Format_Mono}; // a paint device of the screen's resolution
    double pixelRatio_ = 1;                    // device pixels per device-independent pixel
    int margin_ = 0;                           // around the text, in pixels
    LayoutContext context_;
    TextLayouts layouts_;
    TextScroller scroller_;

    TextPos anchor_ = 0, caret_ = 0; // equal if nothing is selected
    std::optional<int> preferredX_;  // of the caret during vertical movement
    Granularity granularity_ = Granularity::Character;
    TextSpan dragStart_; // the unit that a drag started with
    QPoint mouse_, contextPoint_;
    QElapsedTimer sinceDoubleClick_;
    QBasicTimer blink_, autoScroll_, visibleDataTimer_;
    std::optional<TextSpan> visibleSpan_;
    bool caretOn_ = false;
    int wheelRemainder_ = 0; // lines, times the angle of a wheel step
};
