// A rich-edit control. Positions are the control's own; a paragraph break counts one.
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
    // Creates a hidden, empty child of `parent`; the handle is null on failure.
    explicit RichEdit(HWND parent);
    ~RichEdit();
    RichEdit(const RichEdit&) = delete;
    RichEdit& operator=(const RichEdit&) = delete;

    HWND Handle() const { return window_; }

    // For an empty control.
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
    void ScrollLines(LONG lines); // stops at the ends
    POINT ScrollPoint() const;
    void ScrollToPoint(POINT point);
    void ScrollIntoView(TextPos position);     // minimally; needs the control's ITextDocument
    POINT PosFromChar(TextPos position) const; // client coordinates
    LONG ClientWidth() const;

    void SetDefaultFormat(const CHARFORMAT2W& format); // of plain text streamed in later
    void FormatSelectedParagraphs(const PARAFORMAT2& format);
    void SetBackColor(Color color);
    void SetBounds(const Rect& bounds); // leaves a margin at both sides of the text
    void SetRightMargin(int twips);     // 0 wraps at the control's edge

  private:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    void Stream(WPARAM format, const std::function<std::string_view()>& nextPortion);

    HWND window_ = nullptr;
};

// Suspends painting of a visible control (WM_SETREDRAW).
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
