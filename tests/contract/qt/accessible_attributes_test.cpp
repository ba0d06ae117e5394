// How the text view on Qt tells a screen reader of fonts, colours and alignment.
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

namespace {
struct Look {
    QString text;
    int start = 0, end = 0;

    // As those who are told take it apart; "" when there is no such attribute.
    QString operator[](QStringView name) const {
        QString value;
        for (const QString& part : text.split(u';', Qt::SkipEmptyParts)) {
            const QStringList items = part.split(u':', Qt::SkipEmptyParts);
            REQUIRE(items.size() == 2);
            if (items[0] == name) value = items[1];
        }
        return value;
    }
};

Look LookAt(QtViewBench& bench, int offset) {
    Look look;
    look.text = QAccessible::queryAccessibleInterface(&bench.Widget())
                    ->textInterface()
                    ->attributes(offset, &look.start, &look.end);
    return look;
}
} // namespace

TEST_CASE("accessible looks: a plain text has those of the view, paragraph by paragraph") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"one\n\u05D0\u05D1\u05D2");
    bench.view.SetFont({u"DejaVu Serif", 12.5, 0, true, false, false, true});
    bench.view.SetTextColor(0x0000FF);
    bench.view.SetBackColor(0xFFFF00);
    const Look look = LookAt(bench, 1);
    CHECK(look.start == 0);
    CHECK(look.end == 4);
    CHECK(look[u"font-family"] == "DejaVu Serif");
    CHECK(look[u"font-size"] == "12.5pt");
    CHECK(look[u"font-weight"] == "bold");
    CHECK(look[u"font-style"] == "normal");
    CHECK(look[u"text-underline-type"] == "");
    CHECK(look[u"text-line-through-type"] == "single");
    CHECK(look[u"color"] == "rgb(255,0,0)");
    CHECK(look[u"background-color"] == "rgb(0,255,255)");
    CHECK(look[u"text-align"] == "left");
    CHECK(look[u"writing-mode"] == "lr");
    const Look other = LookAt(bench, 4);
    CHECK(other.start == 4);
    CHECK(other.end == 7);
    CHECK(other[u"text-align"] == "right");
    CHECK(other[u"writing-mode"] == "rl");
    CHECK(LookAt(bench, 7).text == other.text); // the caret can stand there
    CHECK(LookAt(bench, 8).text.isEmpty());
    CHECK(LookAt(bench, 8).start == -1);
    bench.view.SetAlignment(Alignment::Justified);
    CHECK(LookAt(bench, 0)[u"text-align"] == "justify");
    bench.view.LoadPlainText(u"");
    CHECK(LookAt(bench, 0)[u"font-family"] == "DejaVu Serif");
}

TEST_CASE("accessible looks: a rich text has its own, run by run") {
    QtViewBench bench;
    bench.view.SetAutoColor(true);
    bench.view.LoadRichText("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}{\\f1 DejaVu Serif;}}"
                            "{\\colortbl;\\red255\\green0\\blue0;}"
                            "plain {\\b\\i\\f1\\fs40 both}{\\ul\\cf1 red}{\\super up}\\par"
                            "\\qc middle\\par\\trowd\\cellx3000\\intbl\\qr cell\\cell\\row}",
                            1252);
    const Look plain = LookAt(bench, 0), both = LookAt(bench, 6), red = LookAt(bench, 10),
               up = LookAt(bench, 13), middle = LookAt(bench, 16), cell = LookAt(bench, 23);
    CHECK(plain.start == 0);
    CHECK(plain.end == 6);
    CHECK(plain[u"font-family"] == "DejaVu Sans");
    CHECK(plain[u"font-weight"] == "normal");
    CHECK(both.start == 6);
    CHECK(both.end == 10);
    CHECK(both[u"font-family"] == "DejaVu Serif");
    CHECK(both[u"font-size"] == "20pt");
    CHECK(both[u"font-weight"] == "bold");
    CHECK(both[u"font-style"] == "italic");
    CHECK(red[u"text-underline-type"] == "single");
    CHECK(red[u"color"] == "rgb(255,0,0)");
    CHECK(up[u"text-position"] == "super");
    CHECK(middle[u"text-align"] == "center");
    CHECK(middle.start == 16);
    CHECK(middle.end == 23);
    CHECK(cell[u"text-align"] == "right");
    bench.view.SetFont({u"DejaVu Sans Mono", 9, 0});
    bench.view.ApplyFontToAll();
    CHECK(LookAt(bench, 7)[u"font-family"] == "DejaVu Sans Mono");
    CHECK(LookAt(bench, 7)[u"font-weight"] == "normal");
}

TEST_CASE("accessible looks: no name of a font breaks the notation") {
    QtViewBench bench;
    for (const std::u16string name : {u"Odd;Name:x=1,2", u";;", u":", u"a;b"}) {
        bench.view.LoadPlainText(u"text");
        bench.view.SetFont({name, 12, 0});
        CHECK_FALSE(LookAt(bench, 0)[u"font-size"].isEmpty());
    }
    bench.view.SetFont({u"Odd;Name:x=1,2", 12, 0}); // Qt itself ends a name at a comma
    CHECK(LookAt(bench, 0)[u"font-family"] == "Odd Name x 1");
}
