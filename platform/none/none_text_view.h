// The headless text view: lines of a fixed number of columns, and a memory of what it was asked.
#pragma once

#include "formats/document.h"
#include "view/view_style.h"

class NoneTextView : public TextView {
  public:
    // A character cell of 8 by 16 pixels.
    static constexpr int CellWidth = 8, CellHeight = 16;

    void LoadPlainText(std::u16string text) override;
    void LoadRichText(std::string bytes, int systemCodePage) override;
    TextPos TextLength() const override;
    std::u16string TextRange(TextPos start, TextPos length) const override;

    void Select(TextPos start, TextPos length) override;
    TextPos SelStart() const override { return selStart_; }
    TextPos SelLength() const override { return selLength_; }
    bool MirrorsRightToLeft() const override { return mirrorsRightToLeft; }
    TextPos Find(std::u16string_view what, TextPos start, FindOptions) const override;
    std::vector<Heading> Headings() const override { return headings; }
    void VisitText(const TextVisitor& visit) const override;
    std::string SelectionAsRtf() const override;

    TextPos FirstVisibleChar() const override {
        ++topQueries;
        return LineAround(anchor_).start;
    }
    LineSpan LineAround(TextPos position) const override;
    void ScrollLineToTop(TextPos position) override;
    int Percent() const override;
    void ScrollToPercent(int percent) override;
    bool ScrollDown(int pixels) override; // a line for each
    void ScrollIntoViewHorizontally(TextPos start, TextPos length) override;
    PrintAnswer Print(const std::u16string& title) override {
        printed.push_back(title);
        return printAnswer;
    }

    void SetFont(const ViewFont& font) override { style_.font = font; }
    void ApplyFontToAll() override;
    bool AutoColor() const override { return style_.autoColor; }
    void SetAutoColor(bool on) override { style_.autoColor = on; }
    Color TextColor() const override { return style_.textColor; }
    void SetTextColor(Color color) override { style_.textColor = color; }
    Color BackColor() const override { return style_.backColor; }
    void SetBackColor(Color color) override { style_.backColor = color; }
    void SetAlignment(Alignment alignment) override { style_.alignment = alignment; }
    void SetRightMargin(int twips) override { style_.rightMargin = twips; }
    void SetMaxLineLength(int letters) override { style_.maxLineLength = letters; }
    void SetUnwrapped(bool on) override { style_.unwrapped = on; }

    void SetBounds(const Rect& bounds) override { bounds_ = bounds; }
    void SetVisible(bool visible) override { visible_ = visible; }
    void SetCursorShape(CursorShape shape) override { cursor_ = shape; }
    void FocusView() override {}
    void SetName(std::u16string_view name) override { name_ = name; }
    void Announce(std::u16string_view text) override { announced.emplace_back(text); }

    void SetPlaceholder(const Placeholder& given) override { placeholder = given; }
    Placeholder placeholder;

    // As a test wants it.
    bool mirrorsRightToLeft = false;
    std::vector<Heading> headings;
    PrintAnswer printAnswer{PrintAnswer::Result::Printed, {}};
    std::function<void()> whileFinding;              // when set, a search is given up after it
    mutable std::vector<CursorShape> cursorsOfFinds; // shown during each search
    mutable int visits = 0;                          // how often the text was handed over
    mutable int topQueries = 0;                      // each takes a layout

    // What was asked, for tests.
    int loads = 0, scrolls = 0, fontApplications = 0;
    std::vector<std::u16string> printed; // their titles
    std::vector<std::u16string> announced;
    const ViewFont& Font() const { return style_.font; }
    Alignment ShownAlignment() const { return style_.alignment.value_or(Alignment::Left); }
    int RightMargin() const { return style_.rightMargin; }
    int MaxLineLength() const { return style_.maxLineLength; }
    bool Unwrapped() const { return style_.unwrapped; }
    int X(TextPos position) const; // of a character in the view, in pixels
    const Rect& Bounds() const { return bounds_; }
    bool Visible() const { return visible_; }
    const std::u16string& Name() const { return name_; }
    CursorShape ShownCursor() const { return cursor_; }

  private:
    void Load(Document document, bool isPlain);
    TextPos Clamp(TextPos position) const;
    TextPos Columns() const;

    Document document_;
    bool isPlain_ = true;
    ViewStyle style_;
    std::u16string name_;
    TextPos selStart_ = 0, selLength_ = 0;
    TextPos anchor_ = 0; // a character of the top line
    bool visible_ = true;
    int scrolledX_ = 0; // pixels
    Rect bounds_{0, 0, 640, 400};
    CursorShape cursor_ = CursorShape::Default;
};
