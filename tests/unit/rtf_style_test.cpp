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
             s.tabStops = {{100}, {300}};
         }},
        {"\\tqr\\tldot\\tx8000\\tqr\\tx2000\\tx9000 x\\par",
         [](ParagraphStyle& s) {
             s.tabStops = {
                 {2000, TabAlignment::Right}, {8000, TabAlignment::Right, TabLeader::Dots}, {9000}};
         }},
        {"\\tlhyph\\tqc\\tx10\\tlul\\tqdec\\tx20\\tlmdot\\tx30\\tlth\\tx40\\tleq\\tx50 x\\par",
         [](ParagraphStyle& s) {
             s.tabStops = {{10, TabAlignment::Center, TabLeader::Hyphens},
                           {20, TabAlignment::Decimal, TabLeader::Underscores},
                           {30, TabAlignment::Left, TabLeader::MiddleDots},
                           {40, TabAlignment::Left, TabLeader::Underscores},
                           {50, TabAlignment::Left, TabLeader::EqualSigns}};
         }},
        {"\\tqr\\pard\\tx10\\tx20\\tqc\\tx20 x\\par",
         [](ParagraphStyle& s) {
             s.tabStops = {{10}, {20, TabAlignment::Center}};
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

namespace {
ParagraphBorder Line(std::uint16_t width, std::uint16_t space = 0) {
    ParagraphBorder border;
    border.width = width;
    border.space = space;
    return border;
}

constexpr Color orange = 0x0180FF; // of the table above
} // namespace

TEST_CASE("rtf reader: borders of a paragraph, each with its words") {
    struct {
        const char* body;
        void (*change)(ParagraphBorders&);
    } const cases[] = {
        {"\\brdrb\\brdrs\\brdrw20\\brsp40 x\\par",
         [](ParagraphBorders& b) { b.bottom = Line(20, 40); }},
        {"\\brdrt\\brdrdb x\\par", [](ParagraphBorders& b) { b.top = Line(15); }},
        {"\\brdrt\\brdrth x\\par", [](ParagraphBorders& b) { b.top = Line(30); }},
        {"\\brdrl\\brdrs\\brdrr\\brdrdot\\brdrw5 x\\par",
         [](ParagraphBorders& b) {
             b.left = Line(15);
             b.right = Line(5);
         }},
        {"\\box\\brdrs\\brdrw10\\brsp20 x\\par",
         [](ParagraphBorders& b) { b.left = b.top = b.right = b.bottom = Line(10, 20); }},
        {"\\box\\brdrs\\brdrl\\brdrnone x\\par",
         [](ParagraphBorders& b) { b.top = b.right = b.bottom = Line(15); }},
        {"\\brdrbtw\\brdrs\\brdrcf1 x\\par",
         [](ParagraphBorders& b) {
             b.between = Line(15);
             b.between.color = orange;
             b.between.autoColor = false;
         }},
        {"\\brdrb\\brdrs\\brdrw9999\\brsp9999 x\\par",
         [](ParagraphBorders& b) { b.bottom = Line(255, 620); }},
        {"\\brdrb\\brdrnone\\brdrw9\\brsp9 x\\par", [](ParagraphBorders&) {}},
        {"\\brdrb\\brdrs\\pard\\brdrw9 x\\par", [](ParagraphBorders&) {}},
        {"\\brdrbar\\brdrs\\brdrw9 x\\par", [](ParagraphBorders&) {}},
        {"{\\brdrb\\brdrs}x\\par", [](ParagraphBorders&) {}},
        {"\\trowd\\clbrdrb\\brdrs\\cellx900\\pard x\\par", [](ParagraphBorders&) {}},
    };
    for (const auto& test : cases) {
        CAPTURE(test.body);
        ParagraphBorders expected;
        test.change(expected);
        CHECK((FirstParagraphStyle(test.body).borders == expected));
    }
}

TEST_CASE("rtf reader: borders of paragraphs and of cells keep apart") {
    const Document document =
        Read("\\trowd\\clbrdrt\\brdrs\\cellx900\\pard\\intbl\\brdrb\\brdrs x\\cell\\row");
    REQUIRE(document.rows.size() == 1);
    CHECK(document.rows[0].cells[0].borderTop);
    CHECK_FALSE(document.rows[0].cells[0].borderBottom);
    CHECK(ParagraphStyleAt(document, 0).borders.bottom.width == 15);
    CHECK(ParagraphStyleAt(document, 0).borders.top.width == 0);
}

TEST_CASE("rtf reader: the shading of a paragraph is the mixture of its colours") {
    struct {
        const char* body;
        bool isAutomatic;
        Color color;
    } const cases[] = {
        {"x\\par", true, 0},
        {"\\cbpat1 x\\par", false, orange},
        {"\\cbpat1\\cbpat0 x\\par", true, 0},
        {"\\cbpat1\\pard x\\par", true, 0},
        {"\\shading10000 x\\par", false, 0x000000},
        {"\\shading2000 x\\par", false, 0xCCCCCC},
        {"\\shading10000\\cfpat1\\cbpat2 x\\par", false, orange},
        {"\\cbpat1\\shading0 x\\par", false, orange},
    };
    for (const auto& test : cases) {
        CAPTURE(test.body);
        const ParagraphStyle style = FirstParagraphStyle(test.body);
        CHECK(style.autoBackground == test.isAutomatic);
        CHECK(style.background == test.color);
    }
}

TEST_CASE("rtf reader: a drop cap is the first letter of the next paragraph, as large as it is") {
    // As word processors write it: a paragraph of its own, lowered to its lines.
    Document document = Read("{\\pard\\dropcapli3\\dropcapt1\\sl-800\\fs116\\dn10 I\\par}"
                             "\\pard\\qj\\fs24 t was dark.\\par");
    CHECK(document.text == u"It was dark.\n");
    CHECK(CharStyleAt(document, 0).halfPoints == 116);
    CHECK(CharStyleAt(document, 0).script == Script::Normal);
    CHECK(CharStyleAt(document, 1).halfPoints == 24);
    CHECK(ParagraphStyleAt(document, 0).alignment == Alignment::Justified);
    CHECK(ParagraphStyleAt(document, 0).lineSpacing == 0);

    document = Read("\\pard\\dropcapli3\\fs24 I\\par\\pard t was.\\par"); // no size of its own
    CHECK(CharStyleAt(document, 0).halfPoints == 72);
    CHECK(CharStyleAt(document, 1).halfPoints == 24);

    CHECK(Read("\\dropcapli3 I").text == u"I");
    CHECK(Read("\\dropcapli3\\par\\pard x\\par").text == u"\nx\n");
    CHECK(Read("\\dropcapli0 I\\par x\\par").text == u"I\nx\n");
    const std::string words = "A paragraph that is much too long for a drop cap";
    CHECK(Read("\\dropcapli2 " + words + "\\par x").text.size() == words.size() + 2);
}
