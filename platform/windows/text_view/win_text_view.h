// The text view on a rich-edit control. Each load fills a new, hidden control that then replaces
// the old one: faster than emptying a full one. Filling is deferred until the layout is needed or
// the message loop runs, so that loading a text and setting its style cost one layout.
#pragma once

#include "platform/text_view.h"
#include "platform/windows/portable/text_map.h"
#include "platform/windows/text_view/text_input.h"
#include "platform/windows/text_view/text_style.h"
#include "platform/windows/window/win_drops.h"

#include <memory>
#include <optional>

class WinTextView : public TextView {
  public:
    explicit WinTextView(HWND parent); // which outlives the view
    ~WinTextView() override;
    WinTextView(const WinTextView&) = delete;
    WinTextView& operator=(const WinTextView&) = delete;

    HWND Handle() const { return Control().Handle(); } // of the current control
    POINT ContextMenuPoint() const {
        return contextPoint_;
    } // of the last request, screen coordinates

    void LoadPlainText(std::u16string text) override;
    void LoadRichText(std::string bytes, int systemCodePage) override;
    TextPos TextLength() const override;
    std::u16string TextRange(TextPos start, TextPos length) const override;

    void Select(TextPos start, TextPos length) override;
    TextPos SelStart() const override;
    TextPos SelLength() const override;
    bool MirrorsRightToLeft() const override { return false; } // EM_EXGETSEL counts logically
    TextPos Find(std::u16string_view what, TextPos start, FindOptions) const override;
    std::string SelectionAsRtf() const override;

    TextPos FirstVisibleChar() const override;
    LineSpan LineAround(TextPos position) const override;
    void ScrollLineToTop(TextPos position) override;
    void ScrollIntoViewHorizontally(TextPos start, TextPos length) override;

    void SetFont(const ViewFont&) override;
    void ApplyFontToAll() override;
    bool AutoColor() const override { return style_.autoColor; }
    void SetAutoColor(bool on) override;
    Color TextColor() const override { return style_.textColor; }
    void SetTextColor(Color color) override;
    Color BackColor() const override { return style_.backColor; }
    void SetBackColor(Color color) override;
    void SetAlignment(Alignment alignment) override;
    void SetRightMargin(int twips) override;

    void SetBounds(const Rect& bounds) override;
    void SetVisible(bool visible) override;
    void SetPointer(Pointer pointer) override;
    void FocusView() override;

  private:
    // The top line, valid until the user scrolls.
    struct Top {
        TextPos position = 0;  // any character of it
        bool requested = true; // by ScrollLineToTop; else found by reading the control
        bool reached = true;   // the control could scroll there
        LONG line = 0;         // the control's first visible line then
        POINT scrolled = {};
    };

    void Load(Document document, bool plain);
    RichEdit& Control() const; // filled
    void Fill() const;
    void FillControl() const;
    void StreamDocument() const;
    void ShowInPlaceOf(const RichEdit* old) const;
    void Refill();
    void PreserveScroll(const std::function<void()>& change) const;

    bool IsScrollUnchanged() const;
    Top CurrentTop() const;
    void ShowTop(TextPos position, bool requested) const;
    bool NeedsSpaceBelow(LONG line) const;
    void ScrollLinesTo(LONG line) const;
    bool ScrollTo(LONG line) const;
    void ScrollToPointIn(LONG line, POINT point) const;
    void SetSpaceBelow(int twips) const;
    TextPos Clamp(TextPos position) const;
    std::pair<LONG, LONG> SpanInLine(TextPos start, TextPos length) const;

    HWND parent_;
    Document document_;
    bool plain_ = true;
    ViewStyle style_;
    Rect bounds_{0, 0, 640, 400}; // an empty view would be slow to lay out
    bool visible_ = false;
    POINT contextPoint_ = {};
    TextInputEvents input_;
    WinDrops drops_{onFilesDropped};

    // The control is filled on demand, also by const functions that need a layout.
    mutable std::unique_ptr<RichEdit> control_;
    mutable bool filled_ = false; // else it still shows the previous text
    mutable TextMap map_;
    mutable Top top_;
    mutable int spaceBelow_ =
        0; // twips after the last paragraph, so that its lines can be scrolled to the top
    TextPos selStart_ = 0, selEnd_ = 0; // applied when it is filled
};
