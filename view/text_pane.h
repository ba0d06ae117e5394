// A text on the screen: what is shown of it, its caret and selection, and what keys and mouse do to
// them. The window around it is the front's. Layout and scrolling are in device pixels.
#pragma once

#include "view/caret_moves.h"
#include "view/drag_selection.h"
#include "view/heading_index.h"
#include "view/placeholder.h"
#include "view/readable_pane.h"
#include "view/text_scroller.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class TextPane : public ReadablePane {
  public:
    // The arguments must outlive this object. Nothing is asked of the window before it is shown a
    // text or asked something.
    TextPane(PaneWindow& window, LineLayout& lines, PictureStore& pictures);

    // Both start at the top with the caret at 0. A TextSource is plain text.
    void ShowText(Document document, bool plain);
    void ShowText(std::shared_ptr<const TextSource> text);
    const TextSource& Source() const override { return *text_; } // of the file, however shown
    // With the same positions, in the lines that it is displayed in.
    const TextSource& ShownSource() const { return *context_.text; }
    const Document& Text() const { return document_; } // its text may not be the one displayed
    bool IsPlain() const { return context_.plain; }
    const ViewStyle& Style() const { return viewStyle_; }
    void SetStyle(const ViewStyle& style);
    const SystemStyle& System() const { return system_; }
    void SetSystemStyle(const SystemStyle& style) override;

    std::function<void(const std::u16string& address)> onLink; // was clicked; none: links are text

    void Select(TextPos anchor, TextPos caret) override;
    TextPos Anchor() const override { return anchor_; }
    TextPos Caret() const override { return caret_; }

    // These are up to date with the window's current size, even if it is hidden.
    TextScroller& Scroller();
    TextLayouts& Layouts();
    TextPos PositionAtPoint(Point point); // the nearest position
    TextPos CharacterAtPoint(Point point) override;
    std::u16string LinkAt(TextPos position) const; // the address of the link there, "" for none
    std::u16string LinkAt(Point point);
    std::optional<Rect> CaretRect() override;
    Rect CharacterRect(TextPos position) override;
    void Reveal(TextPos position) override;
    void ScrollLineToTop(TextPos position) override;
    void RevealHorizontally(TextPos start, TextPos end); // as far as both are in one line
    void OnScrolled();                                   // call it after using the scroller

    // What the user does. `extend` keeps the selection's other end.
    bool Press(PaneKey key, bool extend, bool control) override;
    void Click(Point point, int count, bool extend) override;
    void DragTo(Point point) override;
    void EndDrag() override;
    bool IsLink(Point point) override;
    void PrepareContextMenu(Point point) override;
    void SelectAll() override { Select(0, text_->Length()); }
    void ScrollLines(int lines) override;
    void ScrollPage(bool down) override;
    int VerticalValue() override { return Scroller().TopAsPosition(); }
    void ScrollToValue(int value) override { ScrollTo(value); }
    void ScrollTo(TextPos position); // by the vertical scroll bar
    void ScrollBy(Point pixels) override;
    void ScrollToX(int x) override;
    int ToTextX(int viewX) const { return viewX - margin_ + scrollX_; }
    int Width() const { return width_; } // as last laid out
    int Percent();                       // how far it is scrolled
    void ScrollToPercent(int percent);
    void ShowScrollLabel() override;
    // All of them; `shouldContinue` is asked again and again and ends the search when it says no.
    const std::vector<Heading>& Headings(const std::function<bool()>& shouldContinue);
    void OnTimer(PaneTimer timer) override;
    void OnFocusChanged() override;
    void OnResized() override { UpdateLayoutSize(); }

    bool HasCellMarks() const override { return !IsPlain(); }
    TextSpan VisibleText() override;
    std::vector<Rect> VisibleBoxes(TextSpan span) override;
    TextSpan ReadingParagraph(TextPos position) override;
    TextSpan ReadingLine(TextPos position) override;
    TextSpan StyleSpan(TextPos position) override;
    TextPos ReadingPageEnd(TextPos position) override;
    TextPos ReadingPageStart(TextPos position) override;
    CharacterFormat CharacterFormatAt(TextPos position) override;
    ParagraphFormat ParagraphFormatAt(TextPos position) override;

    // Shown while the text is empty.
    void SetPlaceholder(const Placeholder& placeholder);
    bool IsPlaceholderLink(Point point) const; // as it was last painted

    Color BackColor() const override { return viewStyle_.backColor; }
    void Paint(Canvas& canvas, const Rect& clip) override;
    int LineHeight() override; // of the view's font

  private:
    void ResetView();
    void UpdateLayoutSize();
    void Relayout();
    void ChooseShownText();
    bool UpdateResolution();
    int BreakWidth(int room) const;
    int ColumnWidth(int room);
    int SideMargin();
    void ScrollRightTo(int x);
    void UpdateScrollBars();
    void ShowHorizontal();
    void PaintCaret(Canvas& canvas);
    void PaintLabel(Canvas& canvas);
    void HideScrollLabel();
    void FindMoreHeadings();
    void RestartBlinking();
    const TextSpan& VisibleSpan();

    std::optional<TextPos> KeyTarget(PaneKey key, bool control);
    TextPos VerticalTarget(PaneKey key);
    TextPos PageTarget(bool down);
    void MoveCaret(TextPos position, bool extend);
    TextSpan UnitAround(TextPos position);
    void ExtendTo(Point point);
    void AutoScroll();

    PaneWindow& window_;
    LineLayout& lines_;
    PictureStore& pictures_;
    Document document_;
    std::shared_ptr<const TextSource> text_;      // the document's text, or a TextSource
    std::shared_ptr<const TextSource> unwrapped_; // the same as it is shown, where that differs
    ViewStyle viewStyle_;
    SystemStyle system_;
    TextStyles styles_;
    LayoutContext context_;
    TextLayouts layouts_;
    TextScroller scroller_;
    int margin_ = 0;                // on both sides of the text
    int width_ = 1;                 // of the window's room
    std::optional<int> fullColumn_; // the width of the longest lines; none: not measured yet
    std::optional<std::vector<std::u16string>> pageLines_; // likewise
    int scrollX_ = 0, maxScrollX_ = 0;
    bool horizontalBar_ = false;

    TextPos anchor_ = 0, caret_ = 0; // equal if nothing is selected
    std::optional<int> preferredX_;  // of the caret during vertical movement
    DragSelection drag_;
    std::u16string pressedLink_;
    bool caretOn_ = false;
    HeadingIndex headings_;
    bool labelShown_ = false;
    std::optional<TextSpan> visibleSpan_;
    Placeholder placeholder_;
    Rect placeholderLink_; // empty: none is painted
};
