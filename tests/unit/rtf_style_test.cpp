// The styles that the reader gives to text.
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {

using document_check::CharStyleAt;
using document_check::ParagraphStyleAt;

Document Read(const std::string& body) {
    Document document = ReadRtf("{\\rtf1\\deff0{\\fonttbl{\\f0 Zero;}{\\f7 Seven;}}"
                                "{\\colortbl;\\red255\\green128\\blue1;\\red0\\green0\\blue0;}" +
                                    body + "}",
                                1252);
    CHECK(document_check::FirstFault(document) == "");
    return document;
}

CharStyle LastCharStyle(const std::string& body) {
    const Document document = Read(body);
    REQUIRE(!document.text.empty());
    return CharStyleAt(document, static_cast<TextPos>(document.text.size()) - 1);
}

ParagraphStyle FirstParagraphStyle(const std::string& body) {
    return ParagraphStyleAt(Read(body), 0);
}

} // namespace

TEST_CASE("rtf reader: words that change characters") {
    struct {
        std::string body;
        void (*change)(CharStyle&);
    } const cases[] = {
        {"x", [](CharStyle&) {}},
        {"\\b x", [](CharStyle& s) { s.bold = true; }},
        {"\\b1 x", [](CharStyle& s) { s.bold = true; }},
        {"\\b\\i\\b0 x", [](CharStyle& s) { s.italic = true; }},
        {"\\ul x", [](CharStyle& s) { s.underline = true; }},
        {"\\uldb x", [](CharStyle& s) { s.underline = true; }},
        {"\\ulwave\\ulwave0 x", [](CharStyle&) {}},
        {"\\ulth\\ulnone x", [](CharStyle&) {}},
        {"\\strike x", [](CharStyle& s) { s.strikethrough = true; }},
        {"\\striked1 x", [](CharStyle& s) { s.strikethrough = true; }},
        {"\\striked1\\striked0 x", [](CharStyle&) {}},
        {"\\caps x", [](CharStyle& s) { s.capitals = Capitals::All; }},
        {"\\scaps x", [](CharStyle& s) { s.capitals = Capitals::Small; }},
        {"\\caps\\scaps x", [](CharStyle& s) { s.capitals = Capitals::Small; }},
        {"\\caps\\scaps0 x", [](CharStyle& s) { s.capitals = Capitals::All; }},
        {"\\scaps\\scaps0 x", [](CharStyle&) {}},
        {"\\caps\\plain x", [](CharStyle&) {}},
        {"\\super x", [](CharStyle& s) { s.script = Script::Superscript; }},
        {"\\sub x", [](CharStyle& s) { s.script = Script::Subscript; }},
        {"\\super\\nosupersub x", [](CharStyle&) {}},
        {"\\up6 x", [](CharStyle& s) { s.script = Script::Superscript; }},
        {"\\dn6 x", [](CharStyle& s) { s.script = Script::Subscript; }},
        {"\\up6\\up0 x", [](CharStyle&) {}},
        {"\\fs30 x", [](CharStyle& s) { s.halfPoints = 30; }},
        {"\\fs0 x", [](CharStyle&) {}},
        {"\\fs-5 x", [](CharStyle&) {}},
        {"\\fs99999 x", [](CharStyle& s) { s.halfPoints = maxRtfHalfPoints; }},
        {"\\f7 x", [](CharStyle& s) { s.font = 1; }},
        {"\\f7\\f0 x", [](CharStyle&) {}},
        {"\\f7\\f99 x", [](CharStyle&) {}},
        {"\\cf1 x",
         [](CharStyle& s) {
             s.foreground = 0x0180FF;
             s.autoForeground = false;
         }},
        {"\\cf2 x", [](CharStyle& s) { s.autoForeground = false; }},
        {"\\cf1\\cf0 x", [](CharStyle&) {}},
        {"\\cf3 x", [](CharStyle&) {}},
        {"\\cf-1 x", [](CharStyle&) {}},
        {"\\highlight1 x",
         [](CharStyle& s) {
             s.background = 0x0180FF;
             s.autoBackground = false;
         }},
        {"\\chcbpat2 x", [](CharStyle& s) { s.autoBackground = false; }},
        {"\\cb1\\highlight0 x", [](CharStyle&) {}},
        {"\\rtlch x", [](CharStyle& s) { s.rightToLeft = true; }},
        {"\\rtlch\\af7\\ab\\ltrch x", [](CharStyle&) {}},
        {"\\b\\i\\ul\\strike\\super\\fs40\\cf1\\f7\\rtlch\\plain x", [](CharStyle&) {}},
        {"{\\b a}x", [](CharStyle&) {}},
        {"{\\b{\\i a}x}", [](CharStyle& s) { s.bold = true; }},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CharStyle expected;
        c.change(expected);
        CHECK(LastCharStyle(c.body) == expected);
    }
}

TEST_CASE("rtf reader: words that change paragraphs") {
    struct {
        std::string body;
        void (*change)(ParagraphStyle&);
    } const cases[] = {
        {"x\\par", [](ParagraphStyle&) {}},
        {"\\qc x\\par", [](ParagraphStyle& s) { s.alignment = Alignment::Center; }},
        {"\\qr x\\par", [](ParagraphStyle& s) { s.alignment = Alignment::Right; }},
        {"\\qj x\\par", [](ParagraphStyle& s) { s.alignment = Alignment::Justified; }},
        {"\\qd x\\par", [](ParagraphStyle& s) { s.alignment = Alignment::Justified; }},
        {"\\qr\\ql x\\par", [](ParagraphStyle&) {}},
        {"x\\qc\\par", [](ParagraphStyle& s) { s.alignment = Alignment::Center; }},
        {"\\qc x", [](ParagraphStyle& s) { s.alignment = Alignment::Center; }},
        {"{\\qc x}\\par", [](ParagraphStyle&) {}},
        {"{\\qc x\\par}", [](ParagraphStyle& s) { s.alignment = Alignment::Center; }},
        {"\\qc\\pard x\\par", [](ParagraphStyle&) {}},
        {"\\li1\\ri2\\fi-3\\sb4\\sa5\\sl6 x\\par",
         [](ParagraphStyle& s) {
             s.leftIndent = 1;
             s.rightIndent = 2;
             s.firstLineIndent = -3;
             s.spaceBefore = 4;
             s.spaceAfter = 5;
             s.lineSpacing = 6;
         }},
        {"\\sl-240 x\\par", [](ParagraphStyle& s) { s.lineSpacing = -240; }},
        {"\\sl360\\slmult1 x\\par",
         [](ParagraphStyle& s) {
             s.lineSpacing = 360;
             s.lineSpacingIsMultiple = true;
         }},
        {"\\sl360\\slmult0 x\\par", [](ParagraphStyle& s) { s.lineSpacing = 360; }},
        {"\\rtlpar x\\par", [](ParagraphStyle& s) { s.rightToLeft = true; }},
        {"\\rtlpar\\ltrpar x\\par", [](ParagraphStyle&) {}},
        {"\\tx300\\tx100\\tx300\\tx-5\\tx0 x\\par",
         [](ParagraphStyle& s) {
             s.tabStops = {100, 300};
         }},
        {"\\li2147483647\\fi-2147483648\\sb-7 x\\par",
         [](ParagraphStyle& s) {
             s.leftIndent = maxRtfTwips;
             s.firstLineIndent = -maxRtfTwips;
         }},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        ParagraphStyle expected;
        c.change(expected);
        CHECK(FirstParagraphStyle(c.body) == expected);
    }
}

TEST_CASE("rtf reader: a run holds as long as its style, whatever the words") {
    CHECK(Read("\\b0 a\\i\\i0 b{\\plain c}\\par d").charRuns.size() == 1);
    const Document document = Read("a\\b b\\b0\\b c\\b0 d");
    REQUIRE(document.charRuns.size() == 3);
    CHECK(document.charRuns[1].start == 1);
    CHECK(document.charRuns[2].start == 3);
    CHECK(Read("\\qc a\\par\\pard\\qc b\\par").paragraphRuns.size() == 1);
    CHECK(Read("\\qc a\\par\\ql b\\par\\qc c\\par").paragraphRuns.size() == 3);
}

TEST_CASE("rtf reader: the default tab of the document") {
    CHECK(Read("a").defaultTab == 720);
    CHECK(Read("\\deftab400 a").defaultTab == 400);
    CHECK(Read("\\deftab0 a").defaultTab == 720);
    CHECK(Read("\\deftab-3 a").defaultTab == 720);
}
