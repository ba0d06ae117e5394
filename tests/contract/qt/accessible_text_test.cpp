// The text interface of the text view, compared with a simple model of the whole text.
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "tests/contract/qt/text_view_bench.h"

#include "formats/document.h"

#include <doctest/doctest.h>

#include <QTextBoundaryFinder>

#include <algorithm>
#include <random>

namespace {
using Boundary = QAccessible::TextBoundaryType;
using Starts = std::vector<TextPos>; // of units; the last element is the text's length

struct Unit {
    QString text;
    TextPos start = 0, end = 0;
    bool operator==(const Unit&) const = default;
};
const Unit nothing{{}, -1, -1};

std::ostream& operator<<(std::ostream& out, const Unit& unit) {
    return out << unit.start << ".." << unit.end << " \"" << unit.text.toStdString() << '"';
}

struct AccessibleBench : QtViewBench {
    using QtViewBench::QtViewBench;

    QAccessibleInterface& Object() { return *QAccessible::queryAccessibleInterface(&Widget()); }
    QAccessibleTextInterface& Text() { return *Object().textInterface(); }
    Unit At(int offset, Boundary type) {
        Unit unit;
        unit.text = Text().textAtOffset(offset, type, &unit.start, &unit.end);
        return unit;
    }
    Unit Before(int offset, Boundary type) {
        Unit unit;
        unit.text = Text().textBeforeOffset(offset, type, &unit.start, &unit.end);
        return unit;
    }
    Unit After(int offset, Boundary type) {
        Unit unit;
        unit.text = Text().textAfterOffset(offset, type, &unit.start, &unit.end);
        return unit;
    }
};

std::u16string RandomText(std::mt19937& random, int length) {
    static const std::u16string pieces[] = {u"a",
                                            u"word ",
                                            u"it's ",
                                            u"longer-word, ",
                                            u"The end. ",
                                            u"What? ",
                                            u"\u201CSo!\u201D ",
                                            u" ",
                                            u"\t",
                                            u"\v",
                                            u"\n",
                                            u"\n\n",
                                            u"\u05D0\u05D1 ",
                                            u"12.5 ",
                                            u"\u0645\u0631\u062D\u0628\u0627 ",
                                            u"\U0001F600",
                                            u"\U0001F468\u200D\U0001F469\u200D\U0001F467",
                                            u"\U0001F1EB\U0001F1EE",
                                            u"e\u0301",
                                            u"\u4E2D\u6587\u3002",
                                            u"\uFFFD",
                                            u"\u00AD"};
    std::u16string text;
    while (int(text.size()) < length)
        text += pieces[random() % std::size(pieces)];
    return text;
}

// The model, computed for the whole text at once.
QString TextOf(std::u16string_view units) {
    QString text = QStringView(units).toString();
    return text.replace(u'\v', u'\n').replace(u'\a', u'\t');
}

Starts FoundStarts(const QString& text, QTextBoundaryFinder::BoundaryType type,
                   const Starts& paragraphs) {
    QTextBoundaryFinder finder(type, text);
    Starts starts = paragraphs;
    for (qsizetype at = finder.toNextBoundary(); at >= 0 && at < text.size();
         at = finder.toNextBoundary())
        if (type != QTextBoundaryFinder::Word || !text[at].isSpace()) starts.push_back(TextPos(at));
    // Qt parts a flag that follows another pictograph.
    static const QString flag = QStringLiteral("\U0001F1EB\U0001F1EE");
    std::erase_if(starts, [&](TextPos at) { return at > 1 && text.mid(at - 2, 4) == flag; });
    std::ranges::sort(starts);
    starts.erase(std::unique(starts.begin(), starts.end()), starts.end());
    return starts;
}

Starts ParagraphStarts(const std::u16string& text) {
    Starts starts{0};
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] == u'\n' && at + 1 < text.size()) starts.push_back(TextPos(at) + 1);
    starts.push_back(TextPos(text.size()));
    return starts;
}

Starts LineStarts(std::u16string text, const Starts& paragraphs, QtViewBench& bench) {
    std::ranges::replace(text, u'\v', u'\u2028');
    Starts starts;
    for (std::size_t i = 0; i + 1 < paragraphs.size(); ++i) {
        const bool ended = text[paragraphs[i + 1] - 1] == u'\n';
        const auto lines = WholeLayout(text, paragraphs[i], paragraphs[i + 1] - (ended ? 1 : 0),
                                       bench.TextWidth(), bench.Widget().viewport());
        starts.insert(starts.end(), lines.begin(), lines.end());
    }
    starts.push_back(TextPos(text.size()));
    return starts;
}

Unit UnitOf(const QString& text, const Starts& starts, std::size_t index) {
    return {text.mid(starts[index], starts[index + 1] - starts[index]), starts[index],
            starts[index + 1]};
}

void CheckStretches(AccessibleBench& bench, const QString& text, Boundary type,
                    const Starts& starts) {
    CAPTURE(type);
    std::size_t index = 0;
    for (TextPos at = 0; at < text.size(); ++at) {
        if (at == starts[index + 1]) ++index;
        CAPTURE(at);
        REQUIRE(bench.At(at, type) == UnitOf(text, starts, index));
        REQUIRE(bench.Before(at, type) == (index == 0 ? nothing : UnitOf(text, starts, index - 1)));
        REQUIRE(bench.After(at, type) ==
                (index + 2 == starts.size() ? nothing : UnitOf(text, starts, index + 1)));
    }
}
} // namespace

TEST_CASE("accessible text: units are those of the whole text") {
    std::mt19937 random(20261); // NOLINT: reproducible
    for (int round = 0; round < 40; ++round) {
        const std::u16string units = RandomText(random, 1 + int(random() % 400));
        AccessibleBench bench(80 + int(random() % 600), 200);
        bench.view.LoadPlainText(units);
        const QString text = TextOf(units);
        CAPTURE(text.toStdString());
        REQUIRE(bench.Text().characterCount() == text.size());
        REQUIRE(bench.Text().text(0, int(text.size())) == text);
        const Starts paragraphs = ParagraphStarts(units);
        CheckStretches(bench, text, QAccessible::ParagraphBoundary, paragraphs);
        CheckStretches(bench, text, QAccessible::LineBoundary,
                       LineStarts(units, paragraphs, bench));
        CheckStretches(bench, text, QAccessible::CharBoundary,
                       FoundStarts(text, QTextBoundaryFinder::Grapheme, paragraphs));
        CheckStretches(bench, text, QAccessible::WordBoundary,
                       FoundStarts(text, QTextBoundaryFinder::Word, paragraphs));
        CheckStretches(bench, text, QAccessible::SentenceBoundary,
                       FoundStarts(text, QTextBoundaryFinder::Sentence, paragraphs));
    }
}

TEST_CASE("accessible text: a random range is returned unchanged") {
    std::mt19937 random(20262); // NOLINT
    AccessibleBench bench;
    const std::u16string units = RandomText(random, 5000);
    bench.view.LoadPlainText(units);
    const QString text = TextOf(units);
    for (int i = 0; i < 1000; ++i) {
        const int a = int(random() % units.size()), b = int(random() % units.size());
        REQUIRE(bench.Text().text(a, b) == text.mid(std::min(a, b), std::abs(a - b)));
    }
    CHECK(bench.Text().text(0, -1) == text); // -1 is the text's length
    CHECK(bench.Text().text(4990, 100'000) == text.mid(4990));
    CHECK(bench.Text().text(-7, 3) == text.left(3));
    CHECK(bench.Text().text(100'000, 200'000).isEmpty());
}

TEST_CASE("accessible text: a range that starts with a byte order mark is complete") {
    AccessibleBench bench;
    for (const char16_t mark : {u'\uFEFF', u'\uFFFE'}) {
        const std::u16string units = std::u16string(u"ab") + mark + u"cd";
        bench.view.LoadPlainText(units);
        CHECK(bench.Text().text(2, 5) == TextOf(units).mid(2));
    }
}

TEST_CASE("accessible text: at the end of a text, in an empty one, and outside") {
    const Boundary all[] = {QAccessible::CharBoundary, QAccessible::WordBoundary,
                            QAccessible::SentenceBoundary, QAccessible::LineBoundary,
                            QAccessible::ParagraphBoundary};
    AccessibleBench bench;
    for (const Boundary type : all) {
        CAPTURE(type);
        bench.view.LoadPlainText(u"");
        for (const int offset : {0, -1, -2})
            CHECK(bench.At(offset, type) == Unit{{}, 0, 0});
        CHECK(bench.Before(0, type) == nothing);
        CHECK(bench.After(0, type) == nothing);

        bench.view.LoadPlainText(u"one\ntwo");
        const bool character = type == QAccessible::CharBoundary;
        CHECK(bench.At(7, type) == (character ? Unit{{}, 7, 7} : Unit{"two", 4, 7}));
        CHECK(bench.At(-1, type) == bench.At(7, type));
        CHECK(bench.Before(7, type) == (character ? Unit{"o", 6, 7} : Unit{"one\n", 0, 4}));
        bench.view.Select(5, 0);
        CHECK(bench.At(-2, type) == bench.At(5, type));
        for (const int outside : {8, 1'000'000, -3}) {
            CHECK(bench.At(outside, type) == nothing);
            CHECK(bench.Before(outside, type) == nothing);
            CHECK(bench.After(outside, type) == nothing);
        }

        bench.view.LoadPlainText(u"one\n"); // the caret can stand below it
        CHECK(bench.At(4, type) == Unit{{}, 4, 4});
        CHECK(bench.Before(4, type) == (character ? Unit{"\n", 3, 4} : Unit{"one\n", 0, 4}));
    }
}

TEST_CASE("accessible text: the words, sentences and lines of an over-long paragraph tile it") {
    AccessibleBench bench(500, 400);
    const std::u16string part = u"It was said; \u05D0\u05D1 and \U0001F600. Then ";
    const std::u16string units = RepeatedText(part, 4000);
    bench.view.LoadPlainText(units);
    for (const Boundary type :
         {QAccessible::CharBoundary, QAccessible::WordBoundary, QAccessible::SentenceBoundary,
          QAccessible::LineBoundary, QAccessible::ParagraphBoundary}) {
        const TextPos from = pieceLength - 300; // across the boundary of two pieces
        TextPos at = type == QAccessible::ParagraphBoundary ? 0 : bench.At(from, type).start;
        for (const TextPos end = at + 600; at < end;) {
            const Unit unit = bench.At(at, type);
            REQUIRE(unit.start == at);
            REQUIRE(unit.end > at);
            REQUIRE(unit.end - at <= 2 * pieceLength);
            REQUIRE(unit.text == TextOf(units).mid(at, unit.end - at));
            at = unit.end;
        }
    }
}

TEST_CASE("accessible text: cells of a table have paragraphs and lines of their own") {
    AccessibleBench bench(500, 400);
    bench.view.LoadRichText("{\\rtf1 Above.\\par\\trowd\\cellx3000\\cellx6000\\intbl one two\\cell"
                            "\\intbl three\\par four\\cell\\row\\pard Below.}",
                            1252);
    const QString text = bench.Text().text(0, -1);
    REQUIRE(text == "Above.\none two\tthree\nfour\t\nBelow.");
    for (const Boundary type : {QAccessible::LineBoundary, QAccessible::ParagraphBoundary}) {
        QStringList texts;
        for (TextPos at = 0; at < text.size();) {
            const Unit unit = bench.At(at, type);
            REQUIRE(unit.start == at);
            for (TextPos inside = at; inside < unit.end; ++inside)
                REQUIRE(bench.At(inside, type) == unit);
            texts << unit.text;
            at = unit.end;
        }
        CHECK(texts == QStringList{"Above.\n", "one two\t", "three\n", "four\t\n", "Below."});
    }
    CHECK(bench.At(8, QAccessible::WordBoundary) == Unit{"one ", 7, 11});
    CHECK(bench.At(13, QAccessible::WordBoundary) == Unit{"two\t", 11, 15});
    // Adjacent on the screen.
    const QRect left = bench.Text().characterRect(7), right = bench.Text().characterRect(15);
    CHECK(left.top() == right.top());
    CHECK(left.right() < right.left());
    CHECK(bench.Text().offsetAtPoint(right.center()) == 15);
}

TEST_CASE("accessible text: characterRect and offsetAtPoint agree") {
    const std::u16string texts[] = {u"Some words that take more than one line of the view.\nNext.",
                                    u"\u05D0\u05D1\u05D2 \u05D3\u05D4 abc \u05D5\u05D6\n\u05D7",
                                    u"a\U0001F600b e\u0301 \U0001F468\u200D\U0001F469 end"};
    for (const std::u16string& units : texts)
        for (const int width : {600, 120}) {
            AccessibleBench bench(width, 400);
            bench.view.LoadPlainText(units);
            for (TextPos at = 0; at < TextPos(units.size());) {
                CAPTURE(at);
                const Unit unit = bench.At(at, QAccessible::CharBoundary);
                const QRect box = bench.Text().characterRect(at);
                CHECK(box.height() > 5);
                if (!unit.text[0].isSpace()) {
                    CHECK(box.width() > 2);
                    CHECK(bench.Text().offsetAtPoint(box.center()) == at);
                }
                at = unit.end;
            }
        }
}

TEST_CASE("accessible text: a character out of view is reported above or below it") {
    AccessibleBench bench(400, 300);
    bench.view.LoadPlainText(RepeatedText(u"A line of the book.\n", 2000));
    bench.view.ScrollLineToTop(20'000);
    const QRect view = bench.Object().rect();
    int visible = 0, before = INT_MIN;
    for (const TextPos at : {0, 10'000, 19'900, 20'000, 20'040, 20'500, 30'000, 40'000}) {
        CAPTURE(at);
        const QRect box = bench.Text().characterRect(at);
        CHECK(box.top() >= before);
        before = box.top();
        if (at < 20'000) CHECK(box.bottom() < view.top());
        if (at > 20'400) CHECK(box.top() > view.bottom());
        visible += view.contains(box);
    }
    CHECK(visible == 2);
    CHECK(bench.Text().characterRect(40'001).isNull());
    CHECK(bench.Text().offsetAtPoint(view.center()) > 20'000);
    CHECK(bench.Text().offsetAtPoint(view.topLeft()) == 20'000);
    CHECK(bench.Text().offsetAtPoint(view.topLeft() - QPoint(1, 1)) == -1);
    // Also after scrolling without a paint event.
    bench.view.ScrollLineToTop(0);
    CHECK(view.contains(bench.Text().characterRect(0)));
    bench.view.SetBounds({0, 0, 400, 1200});
    CHECK(bench.Object().rect().contains(bench.Text().characterRect(20 * 20)));
    bench.view.SetVisible(false);
    CHECK(bench.Text().characterRect(0).isNull());
}

TEST_CASE("accessible text: caret and selection can be read and set, and come into view") {
    AccessibleBench bench(400, 300);
    QAccessibleTextInterface& text = bench.Text();
    bench.view.LoadPlainText(RepeatedText(u"A line of the b\U0001F600k.\n", 2000));
    int start = 7, end = 7;
    CHECK(text.selectionCount() == 0);
    text.selection(0, &start, &end);
    CHECK(start == 0);
    CHECK(end == 0);

    text.setCursorPosition(20'000);
    CHECK(text.cursorPosition() == 20'000);
    CHECK(bench.view.SelLength() == 0);
    CHECK_FALSE(bench.Widget().CaretRect().isNull());
    text.setCursorPosition(20'016); // between two surrogates
    CHECK(text.cursorPosition() == 20'015);
    text.setCursorPosition(1'000'000);
    CHECK(text.cursorPosition() == text.characterCount());
    text.setCursorPosition(-5);
    CHECK(text.cursorPosition() == 0);

    text.setSelection(0, 100, 130);
    CHECK(bench.view.SelStart() == 100);
    CHECK(bench.view.SelLength() == 30);
    CHECK(text.cursorPosition() == 130);
    text.setSelection(0, 30'000, 29'990); // reversed: the caret is at its start
    CHECK(text.cursorPosition() == 29'990);
    CHECK_FALSE(bench.Widget().CaretRect().isNull());
    text.selection(0, &start, &end);
    CHECK(start == 29'990);
    CHECK(end == 30'000);
    CHECK(text.selectionCount() == 1);
    text.setSelection(1, 0, 5); // only selection 0 exists
    text.removeSelection(1);
    CHECK(bench.view.SelLength() == 10);
    text.removeSelection(0);
    CHECK(text.selectionCount() == 0);
    CHECK(text.cursorPosition() == 29'990);
    text.addSelection(0, -1);
    CHECK(bench.view.SelLength() == text.characterCount());

    text.scrollToSubstring(10'000, 10'030);
    CHECK(bench.view.SelLength() == text.characterCount()); // scrolls only
    CHECK(bench.Object().rect().contains(text.characterRect(10'000)));
    CHECK(bench.Object().rect().contains(text.characterRect(10'030)));
}

TEST_CASE("accessible text: a picture is one character where it is drawn") {
    AccessibleBench bench;
    Document document;
    document.text = u"a\uFFFCb";
    Picture picture;
    picture.position = 1;
    picture.widthTwips = picture.heightTwips = 1440;
    document.pictures.push_back(picture);
    bench.view.LoadDocument(document);
    CHECK(bench.At(1, QAccessible::CharBoundary) == Unit{QString(QChar(0xFFFC)), 1, 2});
    const QRect box = bench.Text().characterRect(1);
    CHECK(box.size() == QSize(96, 96));
    CHECK(bench.Text().offsetAtPoint(box.center()) == 1);
}

TEST_CASE("accessible text: role, name and children") {
    AccessibleBench bench(300, 200);
    bench.view.LoadPlainText(u"word \u05D0 very-long-line " + std::u16string(200, u'x'));
    bench.view.SetName(u"A Book");
    QAccessibleInterface& object = bench.Object();
    CHECK(object.role() == QAccessible::Document);
    CHECK(object.text(QAccessible::Name) == "A Book");
    const QAccessible::State state = object.state();
    CHECK(state.readOnly);
    CHECK(state.multiLine);
    CHECK(state.selectableText);
    CHECK(state.focusable);
    CHECK_FALSE(state.editable);
    CHECK(object.rect().size() == QSize(300, 200));
    REQUIRE(object.childCount() == 1); // the container of the scroll bar
    CHECK(object.indexOfChild(object.child(0)) == 0);
    CHECK(object.child(0)->child(0)->role() == QAccessible::ScrollBar);
    CHECK(object.child(0)->parent() == &object);
    CHECK(object.child(1) == nullptr);
    CHECK(object.child(-1) == nullptr);
    bench.view.SetRightMargin(30'000);
    bench.Widget().grab();
    CHECK(object.childCount() == 2);

    bench.Widget().setFocusPolicy(Qt::NoFocus); // a message, read when its dialog opens
    bench.view.SetName(u"");
    bench.view.LoadPlainText(u"\nSomething happened.\n");
    CHECK(object.role() == QAccessible::StaticText);
    CHECK(object.text(QAccessible::Name) == "Something happened.");
}
