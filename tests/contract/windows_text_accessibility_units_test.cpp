// Reading by units (characters, words, lines, pages), at the interfaces of UI Automation.
#include "tests/contract/windows_text_accessibility_fixture.h"
#include "view/shown_lines.h"

#include <array>

namespace {
constexpr std::array units = {TextUnit_Character, TextUnit_Format,    TextUnit_Word,
                              TextUnit_Line,      TextUnit_Paragraph, TextUnit_Document};

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
