// The text view on the system's rich-edit control. Each text gets a control of its own: a fresh one
// is filled unseen and takes the old one's place, which costs less than to empty the old one. That
// is put off until something is requested of it, or the message loop runs, so that loading a text
// and giving it a style costs one layout.
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
    explicit WinTextView(HWND parent); // which lives longer
    ~WinTextView() override;
    WinTextView(const WinTextView&) = delete;
    WinTextView& operator=(const WinTextView&) = delete;

    HWND Handle() const { return Control().Handle(); }       // of the text shown now
    POINT ContextMenuPoint() const { return contextPoint_; } // of the last one, on the screen

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
    // The line at the top, for as long as nobody scrolls.
    struct Top {
        TextPos position = 0;  // a character of it
        bool requested = true; // for by ScrollLineToTop; else found there
        bool reached = true;   // by the control
        LONG line = 0;         // what the control had at the top then
        POINT scrolled = {};
    };

    void Load(Document document, bool plain);
    RichEdit& Control() const; // with the text in it
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
    TextStyle style_;
    Rect bounds_{0, 0, 640, 400}; // a view of no width would cost dear to lay out
    bool visible_ = false;
    POINT contextPoint_ = {};
    mutable TextInputEvents input_;
    WinDrops drops_{onFilesDropped};

    // Of the text as it is shown.
    mutable std::unique_ptr<RichEdit> control_;
    mutable bool filled_ = false; // else it still shows what was there before
    mutable TextMap map_;
    mutable Top top_;
    mutable int spaceBelow_ = 0; // twips after the text, so that its last lines can be at the top
    TextPos selStart_ = 0, selEnd_ = 0; // once it is filled
};
