// The port of the HTML view: one page in a browser engine.
#pragma once

#include "common/geometry.h"
#include "platform/text_view.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Characters of a page are counted in the text of its body, in UTF-16 units from 0:
// - Text nodes in document order. These elements count nothing with all that is in them, not even
//   a break: script, style, template, noscript, noframes, title, select, textarea, iframe, object,
//   audio, video, canvas, svg, math, and any with the attribute `hidden`. Names decide, not
//   computed styles: a place stays the same whatever the style sheet, the width and the zoom.
//   Pictures and fields count nothing.
// - A run of blanks, tabs, line feeds, form feeds and carriage returns counts as one U+0020, also
//   across elements, and as nothing at the text's start, at its end and beside a break. Inside
//   `pre` each counts by itself. U+00A0 is a character like any other.
// - `br` is one U+000A. Start and end of a block element are one U+000A between the text before and
//   after, however many meet; none at the text's start, at its end and beside another U+000A.
//   Block elements: address article aside blockquote center dd details dialog dir div dl dt
//   fieldset figcaption figure footer form frameset h1 h2 h3 h4 h5 h6 header hgroup hr legend li
//   main menu nav ol p pre section summary table caption thead tbody tfoot tr td th ul.
// tests/contract/page_text_cases.h has examples. An engine with text ranges of its own may count
// breaks its way, but all functions agree.
using PageSpan = CharSpan;

// Lengths in CSS pixels. `top` is where the span's first line begins, from the top edge of the
// view: negative when it is scrolled out above.
struct PageSelection {
    PageSpan span; // a length of 0 is a bare caret; without one: {0, 0}
    int top = 0;
};

// Far from the view the heights may be estimates.
struct PageMatch {
    PageSpan span;
    int left = 0, top = 0; // of its first character, from the left and top edges of the view
    int searchTop = 0;     // top of the line that the search began in, from the same edge
};

// What stands at the top of the view, to be brought there again, in whatever size and layout. The
// first line is the first one of which a quarter or more is seen.
struct PageTop {
    int offset = -1;    // as `ScrollTop`; -1 while what is above has not been measured
    TextPos start = -1; // the first character of the first line; -1 when not known
    int above = 0;      // of that line, above its place at the top; negative below a gap
    // The text on both sides of `start`, `maxAround` units at most, and the length of all of it.
    std::u16string before = {}, after = {};
    TextPos length = 0;

    bool LeadsSomewhere() const { return offset >= 0 || start > 0; }

    // Where to scroll to, by the line that `start` is in now: to the offset, where that is the same
    // place but for rounding, else so that the line is seen as a whole.
    int OffsetAt(int lineOffset, int lineHeight) const {
        constexpr int slack = 2;
        const int place = lineOffset + std::min(above, std::max(lineHeight - 1, 0));
        if (offset < 0) return place;
        return std::abs(place - offset) <= slack ? offset : lineOffset + std::min(above, 0);
    }

    static constexpr TextPos maxAround = 512;
};

// Of a page's body, by the page itself.
struct PageColors {
    Color text = 0x000000, background = 0xFFFFFF;
};

// What shows a page: a browser's engine, or the program by itself. Layouts differ, so a place in
// pixels is one of the engine that it was taken in; one in characters is not.
enum class PageEngine { Browser, Own };

// The commands of the view's own context menu. A browser's engine prints by itself, and the event
// only tells of it.
enum class PageCommand { Copy, SelectAll, Print, Find, Open, ChangeEngine };

constexpr int maxPageWait = 3000; // milliseconds

// The engine may live in another process, so there are three kinds of functions.
// Orders return at once and are carried out in the order given; no event comes from within one.
// Kept values are answered at once, never from a wait: also while a page loads, while the window
// closes, and after the engine has gone (then they are the last ones known).
// Questions may wait for the page, `maxPageWait` at most, and then answer their failure value.
// While one waits, events keep coming; `PrepareToClose`, `onGone` and a second question (it fails)
// end the wait at once. Without a body every call returns its failure value at once, and
// so it does while the page is known to hang. That is said in the page's place; its values are
// kept, and when it answers again it comes back and carries out what was ordered meanwhile.
//
// The page is local and passive: its scripts do not run, nothing is fetched from other machines, no
// window or dialog opens, and it goes nowhere but by `Navigate`. A link into the same page scrolls;
// any other link that the user follows is `onLink`; a redirection is left out.
//
// The engine is loaded by the first `Navigate`, not before.
//
// Keys pressed in the view are events of the window, as with the text view: it receives them first,
// by `onKeyDown` and `onKeyUp`. The view then does the scrolling and the selecting, and zooms one
// step for Ctrl with `PlusKey` or `MinusKey` and back to normal for Ctrl with "0" (those of the
// numeric keypad arrive as these); the line at the top stays there. It does not act on any other
// key with Ctrl or on function keys, so that no command comes twice. Ctrl and the wheel are the
// window's `onZoom`; the view does not zoom then.
class HtmlView {
  public:
    virtual ~HtmlView() = default;

    // Whether pages can be shown at all, as far as that is known without loading the engine; no
    // longer when `Navigate` could not load it.
    virtual bool IsAvailable() const { return true; }
    // Whether there is a choice, as far as that is known.
    virtual bool HasBothEngines() const { return false; }

    // Orders for the page. `Navigate` gives up the page before: no event of it comes any more, and
    // there is no body until `onLoaded`, which brings `page` back, the caller's number for this
    // load. A file that cannot be shown may have no `onLoaded` at all. Zoom keys not yet reported
    // are dropped.
    virtual void Navigate(const std::u16string& path, int page) = 0;
    // For pages navigated to afterwards, where there is a choice then; initially `Browser`.
    virtual void SetEngine(PageEngine) {}
    // Whether the context menu has `ChangeEngine`, as an item that is checked for a browser's.
    virtual void OfferEngineChange(bool) {}
    // For pages navigated to afterwards: whether `BringToTop` or `Select` follows `onLoaded`;
    // initially so. Keys pressed while such a page loads go on from there. Any other page they move
    // at once, as far as it has come.
    virtual void ExpectPlace(bool) {}
    // For the page navigated to next: what `SetBackColor` gives it after `onLoaded`. It may be
    // drawn in that before, so that nobody sees it change its colour.
    virtual void ExpectBackColor(Color) {}
    virtual void Clear() = 0; // no page; frees what the last one took. No event comes of it

    virtual void ScrollTo(int left, int top) = 0; // offsets of the body; as far as the page goes
    // From where it is, as far as the page goes.
    virtual void ScrollDown(int pixels) { ScrollTo(0, ScrollTop() + pixels); }
    // Brings the line in which the span begins to the top of the view (the body's top margin above
    // it), and the left edge to the left.
    virtual void ScrollSpanToTop(const PageSpan&) = 0;
    // Brings the line of `start` there, and where `offset` is that very place, to the pixel; where
    // it is another one, the line is seen as a whole. Without a `start`, to `offset` alone; without
    // an `offset`, as much of the line is above as was. It stays there while a new window gets its
    // size.
    virtual void BringToTop(const PageTop& top) {
        if (top.start >= 0 && top.offset < 0) return ScrollSpanToTop({top.start, 0});
        ScrollTo(0, std::max(top.offset, 0));
    }
    virtual void Select(const PageSpan&) = 0; // and scrolls as little as it takes to show its start
    virtual void SelectAll() = 0;
    virtual void SetBackColor(Color) = 0; // of the body's style
    // Of the body's style, too: of text that the page gives no other colour. Nothing: the page's
    // own.
    virtual void SetTextColor(std::optional<Color>) = 0;
    // One keystroke of Ctrl and "+" (larger) or "-": the page zooms one step, which orders given
    // afterwards find done. The line at the top stays there. The window's `onKeyDown` receives
    // `PlusKey` or `MinusKey` with Ctrl, once for each call and after it has returned. Steps that
    // come while the page is laid out for those before are carried out as one.
    virtual void SendZoomKey(bool larger) = 0;

    virtual void ScrollToPercent(int percent) = 0; // 0 to 100
    // By the system's dialog, as the text view does it. A browser's engine prints by itself as the
    // context menu's command does, says itself what went wrong, and returns `Cancelled`.
    virtual PrintAnswer Print(const std::u16string& title) = 0;

    // Kept values of the page.
    virtual PageEngine Engine() const { return PageEngine::Browser; } // of the last `Navigate`
    virtual bool HasBody() const = 0;         // from just before `onLoaded` on
    virtual bool HasText() const = 0;         // any character, by the count above
    virtual std::string Charset() const = 0;  // as the engine names it, "" without a page
    virtual std::u16string Title() const = 0; // of the document, "" when it has none
    virtual PageColors OwnColors() const = 0; // before any order; black on white where not known
    // The body's vertical offset. After `ScrollTo` it is what was asked for until the page says how
    // far it went, so that it never returns the place before. An estimate while what is above has
    // not been measured.
    virtual int ScrollTop() const = 0;
    // With that place, of one moment. Until the page has gone where it was sent, what was asked
    // for. Until it is scrolled, `start` stays the character that was brought to the top.
    virtual PageTop Top() const { return {.offset = ScrollTop()}; }
    // The size that `ScrollTop` counts in, as the sum of zoom keys from normal. Both change
    // together, when a size is settled: the page is laid out in it and back at its line. Until then
    // they are the place before, however many keys were pressed.
    virtual int ZoomSteps() const = 0;
    virtual int ViewHeight() const = 0; // CSS pixels of the page that are seen at a time
    virtual int Percent() const = 0;    // how far it is scrolled: 100 when its end is in view
    virtual int TopMargin() const = 0;  // of the body with its border: above the first line
    virtual PageSelection Selection() const = 0;

    // The window is closing. Ends the wait of a question, and where the page lives in another
    // process, waits until it has done what was ordered (`maxPageWait` at most), so that the kept
    // values are its last ones. No event of the user comes meanwhile. Questions may fail from then
    // on.
    virtual void PrepareToClose() {}

    // Questions.
    // Waits until what is above has been measured, so that `Top` becomes exact: for a place that is
    // kept for good. Where that takes too long `Top` stays without an offset.
    virtual void SettleTop() {}
    // The texts of spans, in order and as many; a span outside the text gives what is inside. The
    // failure value is an empty list.
    virtual std::vector<std::u16string> TextsOf(const std::vector<PageSpan>&) = 0;
    virtual std::u16string SelectedText() = 0;    // "" on failure
    virtual std::u16string SelectionAsHtml() = 0; // the source of what is selected; "" on failure
    // The first place of `what` after the selection, up to the text's end; nothing on failure,
    // too.
    virtual std::optional<PageMatch> FindAfterSelection(std::u16string_view what, FindOptions) = 0;
    // The character at the left end of the view's first line, just below the top margin; -1 on
    // failure.
    virtual TextPos StartAtTop() = 0;

    // The page's h1 to h6 that have a text, in its order, `maxHeadings` at most. Empty on failure.
    virtual std::vector<Heading> Headings() = 0;

    virtual void SetBounds(const Rect&) = 0; // in the container panel
    virtual void SetVisible(bool) = 0;       // hidden at first
    virtual void FocusView() = 0;
    // To screen readers only, as the text view's; for a view that can.
    virtual void Announce(std::u16string_view) {}

    // The document of `page` is complete, laid out at normal size and scrolled to its start. `url`
    // is its address as the engine has it. Comes once for a page, never for a frame in it.
    std::function<void(int page, const std::u16string& url)> onLoaded;
    // The size asked for last is settled.
    std::function<void()> onZoomed;
    // The engine has died, or the page with it; never called for a page given up. The next
    // `Navigate` starts again.
    std::function<void()> onGone;
    // The user chose a command of the view's context menu; nothing else happens but for printing. A
    // right click outside the selection first puts the caret there, as a press of the left button
    // does.
    std::function<void(PageCommand)> onCommand;
    // The user followed a link that leads out of the page. `path` is the full path of a local file,
    // "" for any other address.
    std::function<void(const std::u16string& url, const std::u16string& path)> onLink;
    // The user followed a link into the same page; `from` was its `Top` before, settled where it
    // would lead nowhere. Never while an order or a question of this view runs.
    std::function<void(const PageTop& from)> onJump;
    // As the text view's.
    std::function<void(const std::vector<std::u16string>& paths)> onFilesDropped;
};
