// What the text view tells screen readers, at the interfaces of UI Automation.
#include "platform/windows/text_pane/win_text_view.h"

#include "platform/windows/base/com_values.h"
#include "platform/windows/base/text.h"
#include "tests/contract/windows_text_view_bench.h"
#include "view/shown_lines.h"

#include <doctest/doctest.h>

#include <ole2.h>

#include <array>
#include <random>

namespace {
constexpr auto start = TextPatternRangeEndpoint_Start, end = TextPatternRangeEndpoint_End;
constexpr std::array units = {TextUnit_Character, TextUnit_Format,    TextUnit_Word,
                              TextUnit_Line,      TextUnit_Paragraph, TextUnit_Document};

class ShownPopup {
  public:
    ShownPopup()
        : window_(CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 30,
                                  40, 600, 400, nullptr, nullptr, nullptr, nullptr)) {
        ShowWindow(window_, SW_SHOWNA);
    }
    ~ShownPopup() { DestroyWindow(window_); }
    ShownPopup(const ShownPopup&) = delete;
    ShownPopup& operator=(const ShownPopup&) = delete;
    HWND Handle() const { return window_; }

  private:
    HWND window_;
};

using Range = ComPtr<ITextRangeProvider>;

std::u16string TextIn(const Range& range, int most = -1) {
    Bstr text;
    CHECK(range->GetText(most, text.Put()) == S_OK);
    return FromWide(text.View());
}

Range CloneOf(const Range& range) {
    Range clone;
    CHECK(range->Clone(&clone) == S_OK);
    return clone;
}

int Difference(const Range& a, TextPatternRangeEndpoint of, const Range& b,
               TextPatternRangeEndpoint to) {
    int difference = 0;
    CHECK(a->CompareEndpoints(of, b.Get(), to, &difference) == S_OK);
    return difference;
}

int MovedBy(const Range& range, TextUnit unit, int count) {
    int moved = 0;
    CHECK(range->Move(unit, count, &moved) == S_OK);
    return moved;
}

struct Reader {
    ShownPopup window;
    WinTextView view{window.Handle()};
    ComPtr<TextProvider> element = view.Accessible();

    explicit Reader(int width = 400, int height = 300) {
        view.SetBounds({10, 20, width, height});
        view.SetVisible(true);
    }
    Range Document() {
        Range range;
        CHECK(element->get_DocumentRange(&range) == S_OK);
        return range;
    }
    Range At(TextPos from, TextPos to) { // leaves the caret at the start
        view.Pane().Select(from, to);
        Range range = Selection();
        view.Pane().Select(0, 0);
        return range;
    }
    template <typename Ask>
    Range Only(Ask ask) {
        SAFEARRAY* all = nullptr;
        REQUIRE(ask(&all) == S_OK);
        REQUIRE(all != nullptr);
        LONG last = -1, first = 0;
        SafeArrayGetUBound(all, 1, &last);
        CHECK(last == 0);
        ComPtr<IUnknown> object;
        SafeArrayGetElement(all, &first, object.GetAddressOf());
        SafeArrayDestroy(all);
        return Query<ITextRangeProvider>(object);
    }
    Range Selection() {
        return Only([&](SAFEARRAY** all) { return element->GetSelection(all); });
    }
    TextPos StartOf(const Range& range) { return Difference(range, start, Document(), start); }
    TextPos EndOf(const Range& range) { return Difference(range, end, Document(), start); }
};

// With pairs of surrogates, marks, words of several scripts, tabs, long and empty lines.
std::u16string RandomText(unsigned seed) {
    static const std::array<std::u16string, 14> parts = {
        u"word",    u" ",          u"  ",
        u"e\u0301", u"\U0001D11E", u"\U0001F1E9\U0001F1EA",
        u"don't,",  u"\n",         u"\u05D0\u05D1",
        u"\t",      u"3.14",       u"\U0001F469\u200D\U0001F4BB",
        u"\n\n",    u"\u4E2D"};
    std::minstd_rand random(seed);
    std::u16string text;
    for (int i = 0; i < 120; ++i)
        text += parts[random() % parts.size()];
    return text;
}

std::vector<TextPos> Forward(Reader& reader, const Range& range, TextUnit unit) {
    std::vector<TextPos> starts{reader.StartOf(range)};
    while (starts.size() < 1000 && MovedBy(range, unit, 1) == 1)
        starts.push_back(reader.StartOf(range));
    return starts;
}

std::vector<TextPos> Backward(Reader& reader, const Range& range, TextUnit unit) {
    std::vector<TextPos> starts{reader.StartOf(range)};
    while (starts.size() < 1000 && MovedBy(range, unit, -1) == -1)
        starts.insert(starts.begin(), reader.StartOf(range));
    return starts;
}
} // namespace

TEST_CASE("windows text accessibility: the window is a document that is read only") {
    Reader reader;
    reader.view.SetName(u"War and \u0416");
    const auto value = [&](PROPERTYID id) {
        auto given = std::make_unique<Variant>();
        CHECK(reader.element->GetPropertyValue(id, given->Put()) == S_OK);
        return given;
    };
    CHECK(V_I4(&value(uia::controlType)->Get()) == uia::document);
    CHECK(TextOf(&value(uia::name)->Get()) == L"War and \u0416");
    CHECK(V_BOOL(&value(uia::isKeyboardFocusable)->Get()) == VARIANT_TRUE);
    CHECK(V_BOOL(&value(uia::valueIsReadOnly)->Get()) == VARIANT_TRUE);
    CHECK(V_VT(&value(uia::hasKeyboardFocus)->Get()) == VT_BOOL);
    CHECK(V_VT(&value(30000)->Get()) == VT_EMPTY);

    ComPtr<IUnknown> pattern;
    CHECK(reader.element->GetPatternProvider(uia::textPattern, &pattern) == S_OK);
    CHECK(Query<ITextProvider>(pattern));
    CHECK(Query<ITextProvider2>(pattern));
    ComPtr<IUnknown> other;
    CHECK(reader.element->GetPatternProvider(10000, &other) == S_OK);
    CHECK_FALSE(other);
    ComPtr<IRawElementProviderSimple> host;
    CHECK(reader.element->get_HostRawElementProvider(&host) == S_OK);
    CHECK(host);
}

TEST_CASE("windows text accessibility: the document's range has all of its text") {
    Reader reader;
    reader.view.LoadPlainText(u"One \U0001D11E line\nand another");
    CHECK(TextIn(reader.Document()) == u"One \U0001D11E line\nand another");
    CHECK(TextIn(reader.Document(), 3) == u"One");
    CHECK(TextIn(reader.Document(), 5) == u"One "); // a pair is not cut
    CHECK(TextIn(reader.Document(), 0).empty());
    reader.view.LoadPlainText(std::u16string(300'000, u'x'));
    CHECK(TextIn(reader.Document()).size() == 256 * 1024);
    reader.view.LoadPlainText(u"");
    CHECK(TextIn(reader.Document()).empty());
}

TEST_CASE("windows text accessibility: the selection is told and set") {
    Reader reader;
    reader.view.LoadPlainText(u"One line\nand another");
    reader.view.Select(4, 4);
    CHECK(TextIn(reader.Selection()) == u"line");
    reader.view.Pane().Select(3, 0); // backwards
    CHECK(TextIn(reader.Selection()) == u"One");
    BOOL active = TRUE;
    Range caret;
    CHECK(reader.element->GetCaretRange(&active, &caret) == S_OK);
    CHECK(reader.StartOf(caret) == 0);
    CHECK(reader.EndOf(caret) == 0);

    Range found;
    const Bstr what(L"ANOTHER");
    CHECK(reader.Document()->FindText(what.Get(), FALSE, TRUE, &found) == S_OK);
    REQUIRE(found);
    CHECK(found->Select() == S_OK);
    CHECK(reader.view.SelStart() == 13);
    CHECK(reader.view.SelLength() == 7);
    CHECK(found->AddToSelection() == uia::invalidOperation);
    SupportedTextSelection supported = SupportedTextSelection_None;
    CHECK(reader.element->get_SupportedTextSelection(&supported) == S_OK);
    CHECK(supported == SupportedTextSelection_Single);
}

TEST_CASE("windows text accessibility: a text is found in both directions, within the range") {
    Reader reader;
    const std::u16string gap(600'000, u'.'); // wider than what is looked at together
    reader.view.LoadPlainText(u"needle" + gap + u"Needle" + gap + u"needle");
    const Bstr what(L"needle");
    const auto find = [&](BOOL backward, BOOL ignoreCase, const Range& within) {
        Range found;
        CHECK(within->FindText(what.Get(), backward, ignoreCase, &found) == S_OK);
        return found ? reader.StartOf(found) : -1;
    };
    CHECK(find(FALSE, TRUE, reader.Document()) == 0);
    CHECK(find(TRUE, TRUE, reader.Document()) == 1'200'012);
    CHECK(find(FALSE, TRUE, reader.At(1, 1'200'017)) == 600'006);
    CHECK(find(TRUE, TRUE, reader.At(1, 1'200'017)) == 600'006);
    CHECK(find(FALSE, FALSE, reader.At(1, 1'200'017)) == -1);
    CHECK(find(TRUE, FALSE, reader.At(0, 1'200'017)) == 0);
}

TEST_CASE("windows text accessibility: units are read there and back, and leave nothing out") {
    Reader reader(180, 120);
    for (unsigned seed = 0; seed < 12; ++seed) {
        CAPTURE(seed);
        const std::u16string text = RandomText(seed);
        reader.view.LoadPlainText(text);
        for (const TextUnit unit : units) {
            CAPTURE(static_cast<int>(unit));
            const Range range = reader.Document();
            CHECK(range->ExpandToEnclosingUnit(unit) == S_OK);
            CHECK(reader.StartOf(range) == 0);
            std::u16string read = TextIn(range);
            const Range reading = CloneOf(range);
            while (read.size() < text.size() && MovedBy(reading, unit, 1) == 1)
                read += TextIn(reading);
            CHECK(read == text);
            const std::vector<TextPos> starts = Forward(reader, range, unit);
            CHECK(Backward(reader, range, unit) == starts);
            // All at once as one by one.
            const int count = static_cast<int>(starts.size()) - 1;
            CHECK(MovedBy(range, unit, count) == count);
            CHECK(reader.StartOf(range) == starts.back());
            CHECK(MovedBy(range, unit, -count) == -count);
            CHECK(reader.StartOf(range) == 0);
        }
    }
}

TEST_CASE("windows text accessibility: characters, words, lines and paragraphs") {
    Reader reader;
    reader.view.LoadPlainText(u"e\u0301a, two  words\n\nLast one");
    const Range range = reader.Document();
    const auto next = [&](TextUnit unit) {
        MovedBy(range, unit, 1);
        return TextIn(range);
    };
    const auto first = [&](TextUnit unit) {
        MovedBy(range, TextUnit_Document, -1);
        CHECK(range->MoveEndpointByRange(end, reader.Document().Get(), start) == S_OK);
        CHECK(range->ExpandToEnclosingUnit(unit) == S_OK);
        return TextIn(range);
    };
    CHECK(first(TextUnit_Character) == u"e\u0301");
    CHECK(next(TextUnit_Character) == u"a");
    CHECK(first(TextUnit_Word) == u"e\u0301a");
    CHECK(next(TextUnit_Word) == u", ");
    CHECK(next(TextUnit_Word) == u"two  ");
    CHECK(next(TextUnit_Word) == u"words\n");
    CHECK(first(TextUnit_Line) == u"e\u0301a, two  words\n");
    CHECK(next(TextUnit_Line) == u"\n");
    CHECK(next(TextUnit_Line) == u"Last one");
    CHECK(MovedBy(range, TextUnit_Line, 1) == 0);
    CHECK(first(TextUnit_Paragraph) == u"e\u0301a, two  words\n");
    CHECK(next(TextUnit_Paragraph) == u"\n");
    CHECK(first(TextUnit_Document).size() == 25);
}

TEST_CASE("windows text accessibility: an endpoint moves by units, and takes the other along") {
    Reader reader;
    reader.view.LoadPlainText(u"one two three");
    const Range range = reader.At(4, 7);
    int moved = 0;
    CHECK(range->MoveEndpointByUnit(end, TextUnit_Word, 1, &moved) == S_OK);
    CHECK(moved == 1);
    CHECK(TextIn(range) == u"two ");
    CHECK(range->MoveEndpointByUnit(start, TextUnit_Word, -5, &moved) == S_OK);
    CHECK(moved == -1);
    CHECK(TextIn(range) == u"one two ");
    CHECK(range->MoveEndpointByUnit(start, TextUnit_Word, 9, &moved) == S_OK);
    CHECK(moved == 3);
    CHECK(reader.StartOf(range) == 13);
    CHECK(reader.EndOf(range) == 13);
    BOOL same = TRUE;
    CHECK(range->Compare(reader.Document().Get(), &same) == S_OK);
    CHECK_FALSE(same);
    CHECK(range->Compare(CloneOf(range).Get(), &same) == S_OK);
    CHECK(same);
}

TEST_CASE("windows text accessibility: a page is a screen of lines") {
    Reader reader;
    std::u16string text;
    for (int i = 0; i < 500; ++i)
        text += u"some line\n";
    reader.view.LoadPlainText(text);
    const Range range = reader.Document();
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Page) == S_OK);
    const TextPos page = reader.EndOf(range);
    CHECK(page > 50);
    CHECK(page <= ShownSpan(reader.view.Pane()).end);
    CHECK(page >= ShownSpan(reader.view.Pane()).end - 10);
    for (int i = 1; i < 5; ++i) {
        CHECK(MovedBy(range, TextUnit_Page, 1) == 1);
        CHECK(reader.StartOf(range) == i * page);
    }
    CHECK(MovedBy(range, TextUnit_Page, -9) == -4);
    CHECK(reader.StartOf(range) == 0);
}

TEST_CASE("windows text accessibility: boxes are where the characters are on the screen") {
    Reader reader(180, 120);
    reader.view.LoadPlainText(RandomText(3));
    POINT corner = {};
    ClientToScreen(reader.view.Handle(), &corner);
    RECT inside = {};
    GetClientRect(reader.view.Handle(), &inside);
    const Rect room{0, 0, inside.right, inside.bottom};
    const auto boxesOf = [&](const Range& range) {
        SAFEARRAY* numbers = nullptr;
        REQUIRE(range->GetBoundingRectangles(&numbers) == S_OK);
        std::vector<Rect> boxes;
        LONG last = -1;
        SafeArrayGetUBound(numbers, 1, &last);
        std::array<double, 4> box = {};
        for (LONG i = 0; i <= last; ++i) {
            SafeArrayGetElement(numbers, &i, &box[static_cast<std::size_t>(i % 4)]);
            if (i % 4 < 3) continue;
            boxes.push_back({static_cast<int>(box[0]) - corner.x,
                             static_cast<int>(box[1]) - corner.y, static_cast<int>(box[2]),
                             static_cast<int>(box[3])});
        }
        SafeArrayDestroy(numbers);
        return boxes;
    };
    const Range range = reader.Document();
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Character) == S_OK);
    int seen = 0;
    do {
        Rect expected = reader.view.Pane().CharacterRect(reader.StartOf(range));
        expected.width = std::max(1, expected.width);
        const bool isSeen = Intersect(expected, room);
        const std::vector<Rect> boxes = boxesOf(range);
        REQUIRE(boxes.size() == (isSeen ? 1u : 0u));
        if (isSeen) {
            // What of it is in the window.
            CHECK(boxes.front().left == std::max(expected.left, room.left));
            CHECK(boxes.front().top == std::max(expected.top, room.top));
            CHECK(Right(boxes.front()) == std::min(Right(expected), Right(room)));
            CHECK(Bottom(boxes.front()) == std::min(Bottom(expected), Bottom(room)));
        }
        seen += isSeen;
    } while (MovedBy(range, TextUnit_Character, 1) == 1);
    CHECK(seen > 20);

    const std::vector<Rect> lines = boxesOf(reader.Document());
    CHECK(lines.size() > 3);
    for (std::size_t i = 1; i < lines.size(); ++i)
        CHECK(lines[i].top > lines[i - 1].top);
    CHECK(boxesOf(reader.At(2, 2)).empty());
}

TEST_CASE("windows text accessibility: what is in view, and what is at a point") {
    Reader reader;
    std::u16string text;
    for (int i = 0; i < 500; ++i)
        text += u"some line\n";
    reader.view.LoadPlainText(text);
    reader.view.ScrollLineToTop(1000);
    const Range shown =
        reader.Only([&](SAFEARRAY** all) { return reader.element->GetVisibleRanges(all); });
    CHECK(reader.StartOf(shown) == 1000);
    CHECK(reader.EndOf(shown) > 1050);
    CHECK(reader.EndOf(shown) < 2000);

    const Rect box = reader.view.Pane().CharacterRect(1013);
    POINT point = {box.left + 1, box.top + box.height / 2};
    ClientToScreen(reader.view.Handle(), &point);
    Range at;
    CHECK(reader.element->RangeFromPoint({double(point.x), double(point.y)}, &at) == S_OK);
    CHECK(reader.StartOf(at) == 1013);
    CHECK(reader.EndOf(at) == 1013);

    CHECK(reader.At(3000, 3004)->ScrollIntoView(TRUE) == S_OK);
    CHECK(reader.view.FirstVisibleChar() == 3000);
    CHECK(reader.At(100, 104)->ScrollIntoView(FALSE) == S_OK);
    CHECK(reader.view.FirstVisibleChar() == 100);
}

TEST_CASE("windows text accessibility: attributes of a rich text") {
    Reader reader;
    reader.view.LoadRichText("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0\\blue0;}"
                             "\\f0\\fs40 big {\\b\\i\\ul\\strike\\cf1 loud}{\\super 2}\\par"
                             "\\qc centred\\par}",
                             1252);
    reader.view.SetAutoColor(true);
    const auto value = [&](TextPos from, TextPos to, TEXTATTRIBUTEID id) {
        auto given = std::make_unique<Variant>();
        CHECK(reader.At(from, to)->GetAttributeValue(id, given->Put()) == S_OK);
        return given;
    };
    CHECK(TextOf(&value(0, 3, uia::fontName)->Get()) == L"Arial");
    CHECK(V_R8(&value(0, 3, uia::fontSize)->Get()) == 20.0);
    CHECK(V_I4(&value(0, 3, uia::fontWeight)->Get()) == 400);
    CHECK(V_I4(&value(4, 8, uia::fontWeight)->Get()) == 700);
    CHECK(V_BOOL(&value(0, 3, uia::isItalic)->Get()) == VARIANT_FALSE);
    CHECK(V_BOOL(&value(4, 8, uia::isItalic)->Get()) == VARIANT_TRUE);
    CHECK(V_I4(&value(4, 8, uia::underlineStyle)->Get()) == 1);
    CHECK(V_I4(&value(4, 8, uia::strikethroughStyle)->Get()) == 1);
    CHECK(V_I4(&value(0, 3, uia::strikethroughStyle)->Get()) == 0);
    CHECK(V_I4(&value(4, 8, uia::foregroundColor)->Get()) == 0x0000FF);
    CHECK(V_I4(&value(4, 8, uia::backgroundColor)->Get()) ==
          static_cast<LONG>(reader.view.BackColor()));
    CHECK(V_BOOL(&value(8, 9, uia::isSuperscript)->Get()) == VARIANT_TRUE);
    CHECK(V_I4(&value(0, 3, uia::horizontalTextAlignment)->Get()) == 0);
    CHECK(V_I4(&value(12, 14, uia::horizontalTextAlignment)->Get()) == 1);
    CHECK(V_BOOL(&value(0, 3, uia::isReadOnly)->Get()) == VARIANT_TRUE);
    // An object of the system's stands for a value that changes, and for none.
    CHECK(V_VT(&value(0, 8, uia::fontWeight)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 14, uia::horizontalTextAlignment)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 3, 40000)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 8, uia::fontName)->Get()) == VT_BSTR);

    const Range format = reader.At(5, 5);
    CHECK(format->ExpandToEnclosingUnit(TextUnit_Format) == S_OK);
    CHECK(TextIn(format) == u"loud");
}

TEST_CASE("windows text accessibility: cells of a table are read one by one") {
    Reader reader;
    reader.view.LoadRichText("{\\rtf1 before\\par\\trowd\\cellx2000\\cellx4000\\intbl one\\cell "
                             "two\\cell\\row after}",
                             1252);
    const Range range = reader.Document();
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Paragraph) == S_OK);
    std::vector<std::u16string> paragraphs{TextIn(range)};
    while (paragraphs.size() < 10 && MovedBy(range, TextUnit_Paragraph, 1) == 1)
        paragraphs.push_back(TextIn(range));
    CHECK(paragraphs == std::vector<std::u16string>{u"before\n", u"one\t", u"two\t\n", u"after"});
}

namespace {
// Long, and made when it is asked for; counts what it is asked for.
class LongText : public TextSource {
  public:
    TextPos Length() const override { return 1'500'000'000; }
    TextPiece PieceAt(TextPos position) const override {
        asked += static_cast<TextPos>(piece_.size());
        const auto length = static_cast<TextPos>(piece_.size());
        return {position / length * length, piece_};
    }
    TextPos FindWhile(std::u16string_view, TextPos, FindOptions,
                      const std::function<bool()>&) const override {
        return notFound;
    }
    mutable std::int64_t asked = 0;

  private:
    std::u16string piece_ = [] {
        std::u16string piece;
        while (piece.size() < 10'000)
            piece += u"some words\n\n";
        return piece.substr(0, 10'000);
    }();
};
} // namespace

TEST_CASE("windows text accessibility: a very long text is asked like a short one") {
    Reader reader;
    const auto text = std::make_shared<LongText>();
    reader.view.LoadText(text);
    const TextPos length = text->Length();
    text->asked = 0;
    const Range range = reader.Document();
    CHECK(TextIn(range).size() == 256 * 1024);
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Word) == S_OK);
    int moved = 0;
    CHECK(range->MoveEndpointByUnit(end, TextUnit_Character, INT_MAX, &moved) == S_OK);
    CHECK(reader.EndOf(range) == length);
    CHECK(range->MoveEndpointByUnit(end, TextUnit_Paragraph, -3, &moved) == S_OK);
    CHECK(moved == -3);
    CHECK(range->MoveEndpointByUnit(start, TextUnit_Word, 1'000'000'000, &moved) == S_OK);
    CHECK(moved > 10'000);
    CHECK(reader.StartOf(range) < 1'000'000);
    Range found;
    const Bstr what(L"nowhere");
    CHECK(reader.Document()->FindText(what.Get(), FALSE, TRUE, &found) == S_OK);
    CHECK_FALSE(found);
    Variant color;
    CHECK(reader.Document()->GetAttributeValue(uia::foregroundColor, color.Put()) == S_OK);
    CHECK(V_VT(&color.Get()) == VT_I4);
    Variant alignment;
    CHECK(reader.Document()->GetAttributeValue(uia::horizontalTextAlignment, alignment.Put()) ==
          S_OK);
    CHECK(text->asked < 10'000'000'000); // 10 KB each time it is asked at all
}

TEST_CASE("windows text accessibility: ranges survive another text, and the window's end") {
    ShownPopup window;
    auto view = std::make_unique<WinTextView>(window.Handle());
    view->LoadPlainText(u"a longer text");
    const ComPtr<TextProvider> element = view->Accessible();
    Range range;
    CHECK(element->get_DocumentRange(&range) == S_OK);
    view->LoadPlainText(u"short");
    CHECK(TextIn(range) == u"short");

    view.reset();
    Bstr text;
    CHECK(range->GetText(-1, text.Put()) == uia::elementNotAvailable);
    SAFEARRAY* none = nullptr;
    CHECK(range->GetBoundingRectangles(&none) == uia::elementNotAvailable);
    CHECK(range->Select() == uia::elementNotAvailable);
    int moved = 1;
    CHECK(range->Move(TextUnit_Word, 1, &moved) == uia::elementNotAvailable);
    CHECK(moved == 0);
    Range other;
    CHECK(range->Clone(&other) == uia::elementNotAvailable);
    CHECK(element->get_DocumentRange(&other) == uia::elementNotAvailable);
    CHECK(element->GetSelection(&none) == uia::elementNotAvailable);
    Variant name;
    CHECK(element->GetPropertyValue(uia::name, name.Put()) == uia::elementNotAvailable);
}

TEST_CASE("windows text accessibility: the parent's end is the window's") {
    auto window = std::make_unique<ShownPopup>();
    WinTextView view(window->Handle());
    const ComPtr<TextProvider> element = view.Accessible();
    window.reset();
    Range range;
    CHECK(element->get_DocumentRange(&range) == uia::elementNotAvailable);
}
