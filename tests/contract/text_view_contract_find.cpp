// What every text view must do: finding, and copying as rich text.
#include "tests/contract/text_view_contract.h"

#include <algorithm>
#include <limits>

namespace {
struct FindCase {
    const char16_t *text, *what;
    TextPos start;
    FindOptions options;
    TextPos found;
};

constexpr FindOptions word{true, false}, exact{false, true};

const FindCase findCases[] = {
    // At both ends, before and after the last match.
    {u"lamp and lamp", u"lamp", 0, {}, 0},
    {u"lamp and lamp", u"lamp", 1, {}, 9},
    {u"lamp and lamp", u"lamp", 9, {}, 9},
    {u"lamp and lamp", u"lamp", 10, {}, -1},
    {u"lamp and lamp", u"lamp", 13, {}, -1},
    {u"lamp", u"lamps", 0, {}, -1},
    {u"lamp", u"", 0, {}, -1},
    {u"", u"lamp", 0, {}, -1},
    // Positions outside are the nearest end.
    {u"lamp", u"lamp", -7, {}, 0},
    {u"lamp", u"p", std::numeric_limits<TextPos>::max(), {}, -1},
    // Whole words, upper and lower case.
    {u"lamplight, clamp: lamp", u"lamp", 0, word, 18},
    {u"lamplight", u"lamp", 0, word, -1},
    {u"Lamp LAMP lamp", u"lamp", 1, {}, 5},
    {u"Lamp LAMP lamp", u"lamp", 0, exact, 10},
    {u"lamps LAMP lamp", u"lamp", 0, {true, true}, 11},
    // Across a line end.
    {u"one\ntwo", u"e\nt", 0, {}, 2},
    // Cyrillic, Greek, Hebrew, Arabic; a final sigma is a sigma.
    {u"\u041C\u0438\u0440 \u043C\u0438\u0440\u0443 \u043C\u0438\u0440", u"\u043C\u0438\u0440", 1,
     word, 9},
    {u"\u039B\u039F\u0393\u039F\u03A3", u"\u03BB\u03CC\u03B3\u03BF\u03C2", 0, {}, -1},
    {u"\u039B\u039F\u0393\u039F\u03A3", u"\u03BB\u03BF\u03B3\u03BF\u03C2", 0, {}, 0},
    {u"\u05E9\u05DC\u05D5\u05DD \u05E2\u05D5\u05DC\u05DD", u"\u05DC\u05DD", 0, {}, 7},
    {u"\u0643\u062A\u0627\u0628\u0647 \u0643\u062A\u0627\u0628", u"\u0643\u062A\u0627\u0628", 0,
     word, 6},
    // Outside the basic plane.
    {u"a \U0001D11E b \U00020000", u"\U00020000", 0, {}, 7},
    {u"\U0001D11F\U0001D11E", u"\U0001D11E", 0, exact, 2},
};

// What the view shows of RTF source, without the paragraph break that some readers put at the end.
std::u16string Shown(TextView& view, std::string rtf) {
    view.LoadRichText(std::move(rtf), 1252);
    std::u16string text = view.TextRange(0, view.TextLength());
    if (text.ends_with(u'\n')) text.pop_back();
    return text;
}
} // namespace

TEST_CASE("text view: finding") {
    OnEachBackEnd([](TextView& view) {
        for (const FindCase& test : findCases) {
            CAPTURE(&test - findCases);
            view.LoadPlainText(test.text);
            CHECK(view.Find(test.what, test.start, test.options) == test.found);
        }
    });
}

TEST_CASE("text view: finding selects and scrolls nothing") {
    OnEachBackEnd([](TextView& view) {
        std::u16string text;
        for (int i = 0; i < 200; ++i)
            text += u"line\n";
        view.LoadPlainText(text + u"last");
        view.Select(2, 5);
        CHECK(view.Find(u"LAST", 0, {}) == 1000);
        CHECK(view.SelStart() == 2);
        CHECK(view.SelLength() == 5);
        CHECK(view.FirstVisibleChar() == 0);
    });
}

TEST_CASE("text view: a selection as rich text reads as the same text") {
    const std::u16string text = u"Tom {and} \\Jerry\\\tcaf\u00E9 \u041C\u0438\u0440\n\n"
                                u"\u05E9\u05DC\u05D5\u05DD \U0001D11E end";
    OnEachBackEnd([&](TextView& view) {
        const TextPos size = static_cast<TextPos>(text.size());
        const TextPos stretches[][2] = {{0, size}, {4, 7}, {10, 21}, {size - 6, 6}, {3, 0}};
        for (const auto& stretch : stretches) {
            const TextPos start = stretch[0], length = stretch[1];
            CAPTURE(start);
            view.LoadPlainText(text);
            view.Select(start, length);
            const std::string rtf = view.SelectionAsRtf();
            CHECK(rtf.starts_with("{\\rtf1"));
            CHECK(std::ranges::all_of(rtf, [](unsigned char byte) { return byte < 0x80; }));
            CHECK(Shown(view, rtf) == text.substr(std::size_t(start), std::size_t(length)));
        }
    });
}

TEST_CASE("text view: a selection as rich text has the look that the reader gave the whole text") {
    const std::string book = "{\\rtf1\\deff0{\\fonttbl{\\f0 Book Face;}}{\\colortbl;\\red255;}"
                             "\\qr\\fs40\\b\\cf1 one two}";
    OnEachBackEnd([&](TextView& view) {
        const auto copied = [&view](const char* words) {
            view.Select(4, 3);
            return view.SelectionAsRtf().find(words) != std::string::npos;
        };
        view.SetFont({u"My Face", 15.5, 0, false, true});
        view.SetTextColor(0x0201FE); // red 254, green 1, blue 2
        view.SetAutoColor(true);
        view.LoadRichText(book, 1252);
        for (const char* words : {"Book Face;", "\\fs40", "\\b\\", "\\red255", "\\qr "})
            CHECK(copied(words));
        CHECK_FALSE(copied("My Face"));

        view.ApplyFontToAll();
        view.SetAutoColor(false);
        view.SetAlignment(Alignment::Center);
        for (const char* words :
             {"My Face;", "\\fs31", "\\i", "\\red254\\green1\\blue2;", "\\cf1", "\\qc"})
            CHECK(copied(words));
        for (const char* words : {"Book Face", "\\fs40", "\\b\\", "\\red255", "\\qr "})
            CHECK_FALSE(copied(words));

        view.LoadPlainText(u"one two three");
        view.SetAlignment(Alignment::Right);
        for (const char* words : {"My Face;", "\\fs31", "\\i", "\\red254\\green1", "\\qr"})
            CHECK(copied(words));
        view.SetAutoColor(true);
        CHECK_FALSE(copied("\\cf"));
    });
}

TEST_CASE("text view: hands over its text") {
    OnEachBackEnd([](TextView& view) {
        const std::u16string text = u"One lamp.\nTwo lamps.\n";
        view.LoadPlainText(text);
        std::u16string seen;
        bool shouldContinue = false;
        view.VisitText([&](const TextSource& source, const std::function<bool()>& asked) {
            seen = source.Range(0, source.Length());
            shouldContinue = asked();
        });
        CHECK(seen == text);
        CHECK(shouldContinue);
        view.LoadRichText("{\\rtf1 rich\\par text}", 1252);
        view.VisitText([&](const TextSource& source, const auto&) {
            seen = source.Range(0, source.Length());
        });
        CHECK(seen == view.TextRange(0, view.TextLength()));
    });
}
