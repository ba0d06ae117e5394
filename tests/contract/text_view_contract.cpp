// What every text view must do.
#include "tests/contract/text_view_contract.h"

#include "common/line_ends.h"
#include "formats/plain/plain_text_source.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <limits>

namespace {
std::u16string Repeated(std::u16string_view part, int times) {
    std::u16string text;
    for (int i = 0; i < times; ++i)
        text += part;
    return text;
}

std::u16string All(const TextView& view) {
    return view.TextRange(0, view.TextLength());
}

struct NamedText {
    const char* name;
    std::u16string text;
};

const std::vector<NamedText>& Texts() {
    static const std::vector<NamedText> texts{
        {"empty", u""},
        {"one break", u"\n"},
        {"short, no break at the end", u"one\n\nthree"},
        {"short, break at the end", u"one\ntwo\n"},
        {"wrapped lines", Repeated(Repeated(u"some words in a row ", 40) + u"\n", 60)},
        {"one long word", Repeated(u"x", 5000)},
        {"tabs and blanks", Repeated(u"\ta  b \t c\n   \n", 100)},
        {"Hebrew",
         Repeated(Repeated(u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD ", 40) + u"\n", 30)},
        {"Arabic and Latin",
         Repeated(u"\u0645\u0631\u062D\u0628\u0627 hello 123 \u0643\u062A\u0627\u0628\n", 100)},
        {"surrogate pairs", Repeated(Repeated(u"\U0001D11E\U00020000", 90) + u"\n", 20)},
        {"undecodable", Repeated(u"\uFFFD", 3000)},
    };
    return texts;
}

constexpr int widths[] = {900, 400, 123, 60};
constexpr int margins[] = {0, 2000, 491520}; // twips

// A view of each back end with each text at each width and margin.
void OnEachLayout(const std::function<void(TextView&, const std::u16string&)>& check) {
    OnEachBackEnd([&](TextView& view) {
        for (const NamedText& sample : Texts()) {
            view.LoadPlainText(sample.text);
            for (const int width : widths)
                for (const int margin : margins) {
                    INFO(std::string(sample.name), ", width ", width, ", margin ", margin);
                    view.SetBounds({0, 0, width, 300});
                    view.SetRightMargin(margin);
                    check(view, sample.text);
                }
        }
    });
}

std::vector<TextPos> SomePositions(const std::u16string& text) {
    const TextPos size = TextPos(text.size());
    std::vector<TextPos> positions{0, size / 3, size / 2, size - size / 7, size - 1, size};
    positions[4] = std::max(0, positions[4]);
    return positions;
}
} // namespace

TEST_CASE("text view: every line end becomes one paragraph break") {
    struct {
        std::u16string given, expected;
    } const cases[] = {
        {u"", u""},
        {u"a\r\nb", u"a\nb"},
        {u"a\rb\nc", u"a\nb\nc"},
        {u"\r\n\r\n", u"\n\n"},
        {u"\r\r\n\n", u"\n\n\n"},
        {u"\n\r", u"\n\n"},
        {u"end\r", u"end\n"},
    };
    OnEachBackEnd([&](TextView& view) {
        for (const auto& [given, expected] : cases) {
            view.LoadPlainText(given);
            CHECK(view.TextLength() == TextPos(expected.size()));
            CHECK(All(view) == expected);
        }
    });
}

TEST_CASE("text view: a text that is read as it is needed answers like one in memory") {
    std::string bytes;
    for (int i = 0; i < 3000; ++i)
        bytes += "line " + std::to_string(i) + " caf\xC3\xA9 \xF0\x9D\x84\x9E\r\n";
    std::u16string text = DecodePlainText(bytes, 0, 1252).text;
    UnifyLineEnds(text);
    OnEachBackEnd([&](TextView& view) {
        view.LoadPlainText(u"another");
        view.Select(2, 3);
        const auto file = std::make_shared<BytesReader>(bytes);
        view.LoadText(std::make_shared<PlainTextSource>(file, 0, 1252, 100));
        CHECK(view.MaxTextSize() >= bytes.size());
        CHECK(view.TextLength() == TextPos(text.size()));
        CHECK((All(view) == text));
        CHECK(view.SelStart() == 0);
        CHECK(view.SelLength() == 0);
        CHECK(view.FirstVisibleChar() == 0);
        const TextPos at = TextPos(text.find(u"line 2000"));
        CHECK(view.Find(u"LINE 2000", 0, {true, false}) == at);
        view.ScrollLineToTop(at + 3);
        CHECK(view.FirstVisibleChar() == at);
        CHECK(view.LineAround(at + 3).start == at);
        view.Select(at, 9);
        CHECK(view.SelectionAsRtf().find("line 2000") != std::string::npos);
    });
}

TEST_CASE("text view: rich text is shown as far as it can be read") {
    OnEachBackEnd([](TextView& view) {
        view.LoadRichText("{\\rtf1\\ansi one {\\b two}\\par three\\u8364?}", 1252);
        CHECK(view.TextRange(0, 14) == u"one two\nthree\u20AC");
        view.ScrollLineToTop(10);
        CHECK(view.FirstVisibleChar() == 8);
        for (const char* broken :
             {"", "{\\rtf1", "{\\rtf1 {{{ text", "}}}", "{\\rtf1 \\pict\\bin999 x"}) {
            CAPTURE(broken);
            view.LoadRichText(broken, 1252);
            view.ScrollLineToTop(view.TextLength());
            CHECK(view.FirstVisibleChar() <= view.TextLength());
        }
    });
}

TEST_CASE("text view: positions outside the text are moved to its nearest end") {
    constexpr TextPos far = std::numeric_limits<TextPos>::max();
    OnEachBackEnd([&](TextView& view) {
        view.LoadPlainText(u"one\ntwo");
        CHECK(view.TextRange(-5, 3) == u"one");
        CHECK(view.TextRange(4, far) == u"two");
        CHECK(view.TextRange(far, far) == u"");
        CHECK(view.TextRange(2, -1) == u"");
        struct {
            TextPos start, length, selStart, selLength;
        } const selections[] = {{2, 3, 2, 3},     {-4, 2, 0, 2}, {5, far, 5, 2},
                                {far, far, 7, 0}, {3, -2, 3, 0}, {7, 0, 7, 0}};
        for (const auto& s : selections) {
            view.Select(s.start, s.length);
            CHECK(view.SelStart() == s.selStart);
            CHECK(view.SelLength() == s.selLength);
        }
        CHECK(view.LineAround(-1).start == 0);
        CHECK(view.LineAround(far).start == 4);
        view.ScrollLineToTop(far);
        CHECK(view.FirstVisibleChar() == 4);
        view.ScrollLineToTop(-far);
        CHECK(view.FirstVisibleChar() == 0);
    });
}

TEST_CASE("text view: loading forgets selection and scrolling, selecting scrolls nothing") {
    OnEachBackEnd([](TextView& view) {
        view.LoadPlainText(Repeated(u"line\n", 500));
        view.ScrollLineToTop(1000);
        view.Select(3, 40);
        CHECK(view.FirstVisibleChar() == 1000);
        view.LoadPlainText(Repeated(u"other\n", 500));
        CHECK(view.SelStart() == 0);
        CHECK(view.SelLength() == 0);
        CHECK(view.FirstVisibleChar() == 0);
    });
}

TEST_CASE("text view: lines tile the text and never tear a surrogate pair") {
    OnEachLayout([](TextView& view, const std::u16string& text) {
        TextPos start = 0;
        int lines = 0;
        while (start <= view.TextLength() && ++lines < 20000) {
            const LineSpan line = view.LineAround(start);
            REQUIRE(line.start == start);
            REQUIRE(line.length >= 0);
            const TextPos end = start + line.length;
            REQUIRE(end <= view.TextLength());
            CHECK(text.substr(start, line.length).find(u'\n') == std::u16string::npos);
            if (end == view.TextLength()) break;
            const bool low = text[end] >= 0xDC00 && text[end] < 0xE000;
            CHECK_FALSE(low);
            const LineSpan same = view.LineAround(line.length > 0 ? end - 1 : end);
            CHECK(same.start == start);
            CHECK(same.length == line.length);
            start = text[end] == u'\n' ? end + 1 : end;
        }
        CHECK(start <= view.TextLength());
    });
}

TEST_CASE("text view: a text that ends with a break has an empty last line") {
    OnEachBackEnd([](TextView& view) {
        view.LoadPlainText(u"one\n");
        CHECK(view.LineAround(3).start == 0);
        CHECK(view.LineAround(3).length == 3);
        CHECK(view.LineAround(4).start == 4);
        CHECK(view.LineAround(4).length == 0);
    });
}

TEST_CASE("text view: no line breaks within a margin wider than the text") {
    OnEachBackEnd([](TextView& view) {
        view.LoadPlainText(Repeated(u"wide ", 200) + u"\nnext");
        CHECK(view.LineAround(0).length < 1000);
        view.SetRightMargin(491520);
        CHECK(view.LineAround(500).start == 0);
        CHECK(view.LineAround(500).length == 1000);
        view.SetRightMargin(0);
        CHECK(view.LineAround(0).length < 1000);
    });
}

TEST_CASE("text view: the line asked for is at the top, before the view is shown") {
    OnEachLayout([](TextView& view, const std::u16string& text) {
        for (const TextPos position : SomePositions(text)) {
            CAPTURE(position);
            view.ScrollLineToTop(position);
            const TextPos top = view.FirstVisibleChar();
            CHECK(top == view.LineAround(position).start);
            view.ScrollLineToTop(top);
            CHECK(view.FirstVisibleChar() == top);
        }
    });
}

TEST_CASE("text view: the top line stays when the size or the look changes") {
    OnEachBackEnd([](TextView& view) {
        for (const NamedText& sample : Texts()) {
            INFO(std::string(sample.name));
            view.SetBounds({0, 0, 400, 300});
            view.SetRightMargin(0);
            view.LoadPlainText(sample.text);
            view.SetVisible(true);
            for (const TextPos position : SomePositions(sample.text)) {
                const TextPos asked = view.LineAround(position).start;
                view.ScrollLineToTop(asked);
                for (const int width : widths) {
                    view.SetBounds({0, 0, width, width / 2});
                    CHECK(view.FirstVisibleChar() == view.LineAround(asked).start);
                }
                view.SetFont({u"", 17});
                CHECK(view.FirstVisibleChar() == view.LineAround(asked).start);
                view.SetAlignment(Alignment::Center);
                CHECK(view.FirstVisibleChar() == view.LineAround(asked).start);
                view.SetRightMargin(491520);
                CHECK(view.FirstVisibleChar() == view.LineAround(asked).start);
                view.SetRightMargin(0);
                view.SetFont({});
                view.SetBounds({0, 0, 400, 300});
                CHECK(view.FirstVisibleChar() == asked);
            }
        }
    });
}

TEST_CASE("text view: colours are kept") {
    OnEachBackEnd([](TextView& view) {
        view.SetTextColor(0x123456);
        view.SetBackColor(0xFEDCBA);
        view.SetAutoColor(true);
        view.LoadPlainText(u"text");
        CHECK(view.AutoColor());
        CHECK(view.TextColor() == 0x123456);
        CHECK(view.BackColor() == 0xFEDCBA);
        view.SetAutoColor(false);
        CHECK_FALSE(view.AutoColor());
    });
}
