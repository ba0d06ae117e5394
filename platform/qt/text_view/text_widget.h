// The widget of the text view: lays out, paints and moves about in one document. All that is laid
// out or scrolled counts in the screen's own pixels, what Qt is told or tells in the widget's.
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

    // Each from its start, caret at 0. A text alone is plain.
    void ShowText(Document document, bool plain);
    void ShowText(std::shared_ptr<const TextSource> text);
    const TextSource& Source() const { return *text_; }
    const Document& Text() const { return document_; } // its text may not be what is shown
    bool IsPlain() const { return context_.plain; }
    const ViewLook& Look() const { return look_; }
    void SetLook(const ViewLook& look);

    void Select(TextPos anchor, TextPos caret); // moved into the text
    TextPos SelStart() const { return std::min(anchor_, caret_); }
    TextPos SelEnd() const { return std::max(anchor_, caret_); }
    TextPos Caret() const { return caret_; } // one end of the selection

    // Laid out for the size that the widget has now, shown or not.
    TextScroller& Scroller();
    TextLayouts& Layouts();
    TextPos PositionAtPoint(QPoint point); // of the viewport; the nearest one
    TextPos CharacterAtPoint(QPoint point);
    QRect CaretRect(); // in the viewport; null when it is not in view
    // In the viewport; somewhere above or below it when it is not in view. Null in a hidden widget.
    QRect CharacterRect(TextPos position);
    void Reveal(TextPos position);                       // scrolls to it
    void RevealHorizontally(TextPos start, TextPos end); // as far as they are in one line
    void ShowScrolled();                                 // after the scroller was used

    QPoint ContextMenuPoint() const { return contextPoint_; } // of the last one asked for, global

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

    void ShowFromStart(const QString& toldBefore);
    const TextSpan& SeenBlocks();
    void TellSelection(TextPos anchorBefore, TextPos caretBefore);
    QString ToldBeginning() const;
    void TellOtherText(const QString& toldBefore);
    void TellSeenSoon();
    void TellSeen();
    void Fit();
    void Relayout();
    bool MeasureScreen();
    int BreakWidth(int viewWidth) const;
    int LineHeight() const; // of the view's own font
    int Pixels(int ofWidget) const { return int(ofWidget * pixelRatio_); }
    QRect InWidget(const QRect& box) const;
    int ViewWidth() const { return Pixels(viewport()->width()); }
    int ColumnX(int viewX) const;
    int RoomBeside() const;
    void ScrollToX(int x); // of the text, to the view's left edge
    std::optional<QRect> CaretInView();
    void UpdateScrollBars();
    void VerticalAction(int action);
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
    void AskForContextMenu(QPoint point); // of the viewport
    void ExtendByMouse(QPoint point);
    void SelectUnit(TextPos position, Granularity granularity);
    void AutoScroll();
    void ScrollByWheel(int angle);

    Document document_;
    std::shared_ptr<const TextSource> text_; // of the document, or another
    ViewLook look_;
    QPalette palette_; // the widget's, where the formats can observe it
    CharFormats formats_;
    PictureStore pictures_;
    QImage screen_{1, 1, QImage::Format_Mono}; // has the resolution of the screen's own pixels
    double pixelRatio_ = 1;                    // of them to the widget's
    int margin_ = 0;                           // between the view's edges and the text
    LayoutContext context_;
    TextLayouts layouts_;
    TextScroller scroller_;

    TextPos anchor_ = 0, caret_ = 0; // of the selection; equal when there is none
    std::optional<int> wantedX_;     // of the caret while it moves up and down
    Granularity granularity_ = Granularity::Character;
    TextSpan firstUnit_; // what a drag started with
    QPoint mouse_, contextPoint_;
    QElapsedTimer sinceDoubleClick_;
    QBasicTimer blink_, autoScroll_, tellSeen_;
    std::optional<TextSpan> seenBlocks_;
    bool caretOn_ = false;
    int wheelRest_ = 0; // lines of a turn less than a notch, times `notch`
};
