// One rich-edit control: its messages under names of ours. Positions are the control's own, which
// count everything that it holds, a paragraph break as one.
#pragma once

#include "platform/text_view.h"
#include "platform/windows/base/win32.h"

#include <richedit.h>

#include <functional>
#include <string>
#include <string_view>

const wchar_t* RichEditClass(); // null where the system has no such control

class RichEdit {
  public:
    // A hidden, empty child of `parent`; without a handle when the system cannot make one.
    explicit RichEdit(HWND parent);
    ~RichEdit();
    RichEdit(const RichEdit&) = delete;
    RichEdit& operator=(const RichEdit&) = delete;

    HWND Handle() const { return window_; }

    // Into an empty control.
    void StreamPlain(std::u16string_view text); // by ToControlText
    void StreamRtf(std::string_view rtf);

    TextPos Length() const;
    std::u16string Text() const;

    CHARRANGE Selection() const;
    void Select(CHARRANGE range); // may scroll to the caret

    LONG LineFromChar(TextPos position) const;
    TextPos LineStart(LONG line) const;
    TextPos NextLineStart(LONG line, TextPos start) const; // or the end of the text
    LONG FirstVisibleLine() const;
    void ScrollLines(LONG lines); // as far as there are any
    POINT ScrollPoint() const;
    void ScrollToPoint(POINT point);
    void ScrollIntoView(TextPos position); // scrolls no further than it takes; not without its OLE
    POINT PosFromChar(TextPos position) const; // of the client area
    LONG ClientWidth() const;

    void SetDefaultFormat(const CHARFORMAT2W& format); // of the plain text to come
    void FormatSelectedParagraphs(const PARAFORMAT2& format);
    void SetBackColor(Color color);
    void SetBounds(const Rect& bounds); // in its parent; the text keeps a margin at the sides
    void SetRightMargin(int twips);     // 0 wraps at the control's edge

  private:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Stream(WPARAM format, const std::function<std::string_view()>& nextPortion);

    HWND window_ = nullptr;
};

// Keeps a visible control from painting while it lives.
class RedrawPause {
  public:
    explicit RedrawPause(RichEdit& control);
    ~RedrawPause();
    RedrawPause(const RedrawPause&) = delete;
    RedrawPause& operator=(const RedrawPause&) = delete;

  private:
    RichEdit& control_;
    bool visible_;
};
