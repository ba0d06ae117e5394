// Fonts, colours and alignment as text attributes of the accessible interface.
#include "platform/qt/text_view/accessibility/accessible_text.h"
#include "tests/contract/qt/text_view_bench.h"

#include <doctest/doctest.h>

namespace {
struct Attributes {
    QString text;
    int start = 0, end = 0;

    // Parsed as Qt's AT-SPI bridge does; "" if there is no such attribute.
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

Attributes AttributesAt(QtViewBench& bench, int offset) {
    Attributes attributes;
    attributes.text = QAccessible::queryAccessibleInterface(&bench.Widget())
                          ->textInterface()
                          ->attributes(offset, &attributes.start, &attributes.end);
    return attributes;
}
} // namespace

TEST_CASE("accessible attributes: of a plain text are the view's, by paragraph") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"one\n\u05D0\u05D1\u05D2");
    bench.view.SetFont({u"DejaVu Serif", 12.5, 0, true, false, false, true});
    bench.view.SetTextColor(0x0000FF);
    bench.view.SetBackColor(0xFFFF00);
    const Attributes attributes = AttributesAt(bench, 1);
    CHECK(attributes.start == 0);
    CHECK(attributes.end == 4);
    CHECK(attributes[u"font-family"] == "DejaVu Serif");
    CHECK(attributes[u"font-size"] == "12.5pt");
    CHECK(attributes[u"font-weight"] == "bold");
    CHECK(attributes[u"font-style"] == "normal");
    CHECK(attributes[u"text-underline-type"] == "");
    CHECK(attributes[u"text-line-through-type"] == "single");
    CHECK(attributes[u"color"] == "rgb(255,0,0)");
    CHECK(attributes[u"background-color"] == "rgb(0,255,255)");
    CHECK(attributes[u"text-align"] == "left");
    CHECK(attributes[u"writing-mode"] == "lr");
    const Attributes other = AttributesAt(bench, 4);
    CHECK(other.start == 4);
    CHECK(other.end == 7);
    CHECK(other[u"text-align"] == "right");
    CHECK(other[u"writing-mode"] == "rl");
    CHECK(AttributesAt(bench, 7).text == other.text); // a valid caret position
    CHECK(AttributesAt(bench, 8).text.isEmpty());
    CHECK(AttributesAt(bench, 8).start == -1);
    bench.view.SetAlignment(Alignment::Justified);
    CHECK(AttributesAt(bench, 0)[u"text-align"] == "justify");
    bench.view.LoadPlainText(u"");
    CHECK(AttributesAt(bench, 0)[u"font-family"] == "DejaVu Serif");
}

TEST_CASE("accessible attributes: of a rich text are its own, by run") {
    QtViewBench bench;
    bench.view.SetAutoColor(true);
    bench.view.LoadRichText("{\\rtf1{\\fonttbl{\\f0 DejaVu Sans;}{\\f1 DejaVu Serif;}}"
                            "{\\colortbl;\\red255\\green0\\blue0;}"
                            "plain {\\b\\i\\f1\\fs40 both}{\\ul\\cf1 red}{\\super up}\\par"
                            "\\qc middle\\par\\trowd\\cellx3000\\intbl\\qr cell\\cell\\row}",
                            1252);
    const Attributes plain = AttributesAt(bench, 0), both = AttributesAt(bench, 6),
                     red = AttributesAt(bench, 10), up = AttributesAt(bench, 13),
                     middle = AttributesAt(bench, 16), cell = AttributesAt(bench, 23);
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
    CHECK(AttributesAt(bench, 7)[u"font-family"] == "DejaVu Sans Mono");
    CHECK(AttributesAt(bench, 7)[u"font-weight"] == "normal");
}

TEST_CASE("accessible attributes: a font name cannot break the notation") {
    QtViewBench bench;
    for (const std::u16string name : {u"Odd;Name:x=1,2", u";;", u":", u"a;b"}) {
        bench.view.LoadPlainText(u"text");
        bench.view.SetFont({name, 12, 0});
        CHECK_FALSE(AttributesAt(bench, 0)[u"font-size"].isEmpty());
    }
    bench.view.SetFont({u"Odd;Name:x=1,2", 12, 0});
    CHECK(AttributesAt(bench, 0)[u"font-family"] == "Odd Name x 1 2");
}
