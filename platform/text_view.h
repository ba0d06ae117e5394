// The port of the text view: one read-only, styled text with a caret, a selection and scrolling by
// lines.
#pragma once

#include "common/file_limits.h"
#include "common/heading.h"
#include "common/text_source.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

struct ViewFont {
    std::u16string name;
    double size = 0; // points; 0 means the view's own default
    int charset = 0; // Windows font character set number
    bool bold = false, italic = false, underline = false, strikethrough = false;
    bool operator==(const ViewFont&) const = default;
};

struct PrintAnswer {
    enum class Result { Printed, Cancelled, Failed };
    Result result = Result::Cancelled;
    std::u16string reason; // of a failure, as the system says it; may be empty
};

struct LineSpan {
    TextPos start = 0, length = 0; // length without the paragraph break
};

// What stands in the middle of a view without a text.
struct Placeholder {
    std::u16string text; // "" for nothing at all
    std::u16string link; // below it, "" for none
};

// Positions outside the text are moved to its nearest end by every function. No function fails:
// a view that cannot do something shows what it can.
class TextView {
  public:
    virtual ~TextView() = default;

    // Content. All three forget selection and scrolling: caret at 0, first line on top.
    // Plain text may hold any line ends ("\r\n", "\n", "\r"): each becomes one paragraph break.
    virtual void LoadPlainText(std::u16string text) = 0;
    // Plain text that is read as it is needed; never null. A view that needs the whole takes it.
    virtual void LoadText(std::shared_ptr<const TextSource> text) {
        LoadPlainText(text->Range(0, text->Length()));
    }
    // The largest file, in bytes, whose text `LoadText` shows.
    virtual std::uint64_t MaxTextSize() const { return maxFileInMemory; }
    // RTF bytes; text without a code page of its own is read in `systemCodePage`. What can be read
    // of broken input is shown.
    virtual void LoadRichText(std::string bytes, int systemCodePage) = 0;
    virtual TextPos TextLength() const = 0;
    virtual std::u16string TextRange(TextPos start, TextPos length) const = 0;

    // Caret and selection. `Select` scrolls nothing; a length of 0 is a bare caret.
    virtual void Select(TextPos start, TextPos length) = 0;
    virtual TextPos SelStart() const = 0;
    virtual TextPos SelLength() const = 0;
    // Whether `SelStart` counts from a line's end while the font's charset is a right-to-left one.
    // A view of our own counts logically; some rich-edit controls do not.
    virtual bool MirrorsRightToLeft() const = 0;

    // The first place of `what` that begins at or after `start`, and ends at or before the text's
    // end; `notFound` when there is none. Selects nothing. A view whose search can take long keeps
    // the window drawn meanwhile and returns `findGivenUp` when the user presses Escape or closes
    // the window; other keys and the mouse do nothing then.
    virtual TextPos Find(std::u16string_view what, TextPos start, FindOptions) const = 0;
    // The chapter headings in the text's order, `maxHeadings` at most. A search like `Find`: what
    // was found by then when it is given up.
    virtual std::vector<Heading> Headings() const = 0;
    // Hands over the text loaded now, which stays as long as `visit` runs. One that takes long asks
    // `shouldContinue` now and then: the window stays drawn meanwhile as during a search, and is
    // given up by the same.
    using TextVisitor =
        std::function<void(const TextSource&, const std::function<bool()>& shouldContinue)>;
    virtual void VisitText(const TextVisitor& visit) const = 0;
    // The selection as RTF source, pure ASCII.
    virtual std::string SelectionAsRtf() const = 0;

    // Lines as they are shown now, found by a character in them. The line asked for is exact at the
    // top even before the window is first shown, and stays the top line when the size changes.
    virtual TextPos FirstVisibleChar() const = 0; // first character of the top visible line
    virtual LineSpan LineAround(TextPos position) const = 0;
    virtual void ScrollLineToTop(TextPos position) = 0;
    // How far the view is scrolled: 0 at the start, 100 when the end is in view.
    virtual int Percent() const = 0;
    virtual void ScrollToPercent(int percent) = 0; // 0 to 100
    // Scrolls down by device pixels; false when the end was in view already.
    virtual bool ScrollDown(int pixels) = 0;
    // Where lines are wider than the view: brings the stretch into view horizontally, as far as it
    // is in the line of `start`; of one wider than the view the beginning. What is in view already
    // stays where it is, and where the line's beginning can be seen, too, it is.
    virtual void ScrollIntoViewHorizontally(TextPos start, TextPos length) = 0;

    // Look. `SetFont` sets the font that a text without one of its own is shown in;
    // `ApplyFontToAll` gives that font to the whole text loaded now, over what the file says, until
    // the next load.
    virtual void SetFont(const ViewFont&) = 0;
    virtual void ApplyFontToAll() = 0;
    // Automatic colour on: the text keeps the colours its file gives it. Off: `SetTextColor`'s for
    // all.
    virtual bool AutoColor() const = 0;
    virtual void SetAutoColor(bool) = 0;
    virtual Color TextColor() const = 0;
    virtual void SetTextColor(Color) = 0;
    virtual Color BackColor() const = 0;
    virtual void SetBackColor(Color) = 0;
    // Alignment of every paragraph, over what the file says, until the next load.
    virtual void SetAlignment(Alignment) = 0;
    // In twips; 0 wraps at the view's edge, else lines break at this width.
    virtual void SetRightMargin(int twips) = 0;
    // Wrapped lines have at most so many average letters of the text's font, and stand in a column
    // in the middle of the view; tables and pictures may take all of its width. 0: as wide as the
    // view.
    virtual void SetMaxLineLength(int letters) = 0;
    // Whether lines that a plain text broke for their width alone are shown as paragraphs, where
    // lines wrap. The text and all positions in it stay as they are.
    virtual void SetUnwrapped(bool) = 0;

    // Asks for the printer and the pages by the system's dialog, and prints the text in its font
    // and colours on white, with `title` at the head of the pages and their numbers at the foot.
    // Shows how far it is meanwhile, with a way to cancel; other input does nothing then.
    virtual PrintAnswer Print(const std::u16string& title) = 0;

    virtual void SetBounds(const Rect&) = 0; // in the container panel
    virtual void SetVisible(bool) = 0;
    virtual void SetCursorShape(CursorShape) = 0;
    virtual void FocusView() = 0;
    // What the text is called where it is read aloud. For a view that is accessible.
    virtual void SetName(std::u16string_view) {}
    // To screen readers only: what has changed on the screen and in no character or place.
    virtual void Announce(std::u16string_view) {}

    virtual void SetPlaceholder(const Placeholder&) = 0;
    std::function<void()> onPlaceholderLink; // it was clicked

    // A context menu is asked for, at the pointer or from the keyboard.
    std::function<void()> onContextMenu;
    // Another program asks for a copy of the selection, on a system where one can. The view copies
    // nothing by itself, not by a key either.
    std::function<void()> onCopy;
    // While rich text is loaded: the bytes of a picture that it has in a file of its own, by the
    // name in the text; "" when it is not to be shown.
    std::function<std::string(const std::u16string& name)> onPictureFile;
    // Files dropped on the view, as full paths, in the order of the drop; a character that the
    // system's names can hold but UTF-16 cannot arrives as "?".
    std::function<void(const std::vector<std::u16string>&)> onFilesDropped;
};
