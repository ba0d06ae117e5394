// Numbers and bullets of paragraphs that a writer describes but does not write out.
#include "common/utf.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_numbering.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {

std::string ReadText(const std::string& body) {
    const Document document =
        ReadRtf("{\\rtf1{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}}" + body + "}", 1252);
    CHECK(document_check::FirstFault(document) == "");
    return Utf16ToUtf8(document.text);
}

} // namespace

TEST_CASE("rtf numbering: paragraphs without their number get one") {
    const struct {
        std::string body, text;
    } cases[] = {
        {"\\pard{\\*\\pn\\pnlvlblt\\pnf1\\pnindent360{\\pntxtb\\'b7}}a\\par b\\par\\pard c",
         "•\ta\n•\tb\nc"},
        {"{\\*\\pn\\pnlvlblt{\\pntxtb -}}a", "-\ta"},
        {"{\\*\\pn\\pnlvlblt}a", "•\ta"},
        {"{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'ff}}a", "•\ta"},
        {"\\pard{\\*\\pn\\pnlvlbody\\pndec\\pnstart3{\\pntxta .}}a\\par b\\par", "3.\ta\n4.\tb\n"},
        {"{\\*\\pn\\pnlvlbody\\pnlcltr{\\pntxtb (}{\\pntxta )}}a\\par b", "(a)\ta\n(b)\tb"},
        {"{\\*\\pn\\pnucrm}a\\par b", "I\ta\nII\tb"},
        {"{\\*\\pn\\pnlvl2}a", "1\ta"},
        // The numbers go on after a definition that repeats the last, and begin again after text.
        {"\\pard{\\*\\pn\\pndec}a\\par\\pard{\\*\\pn\\pndec}b\\par\\pard c\\par{\\*\\pn\\pndec}d",
         "1\ta\n2\tb\nc\n1\td"},
        {"{\\*\\pn\\pndec}a\\par\\par b", "1\ta\n\n1\tb"},
        {"{\\*\\pn\\pndec}{\\v x}{\\b a}", "1\ta"},
        {"\\trowd\\cellx9\\intbl{\\*\\pn\\pndec}a\\cell\\row", "1\ta\a\n"},
        // Written as blanks only.
        {"{\\listtext  \\tab}\\pard{\\*\\pn\\pnlvlbody\\pndec{\\pntxta .}}{\\b a}\\par", "1.\ta\n"},
        {"{\\listtext  \\tab}\\pard{\\b a}", " \ta"},
        {"a\\par{\\b\\listtext\\tab}\\par b", "a\n\nb"},
        {"a{\\listtext  \\tab}{\\*\\pn\\pndec}b", "a \tb"},
        // Written out, or of no paragraph.
        {"\\pard{\\pntext\\f1\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf1{\\pntxtb\\'b7}}a\\par"
         "{\\pntext\\f1\\'b7\\tab}b",
         "•\ta\n•\tb"},
        {"{\\*\\pn\\pnlvlbody\\pndec}{\\pntext 1.\\tab}a\\par{\\listtext 2.\\tab}b",
         "1.\ta\n2.\tb"},
        {"{\\*\\pn\\pnlvlcont\\pndec}a", "a"},
        {"{\\*\\pnseclvl1\\pndec{\\pntxta .}}a", "a"},
        {"{\\*\\pn}a", "a"},
        {"a{\\*\\pn\\pndec}b", "ab"},
        {"{\\*\\pn\\pndec}", ""},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(ReadText(c.body) == c.text);
    }
}

TEST_CASE("rtf numbering: numbers of each kind") {
    const struct {
        RtfNumberKind kind;
        std::int32_t number;
        std::u16string text;
    } cases[] = {
        {RtfNumberKind::Decimal, 0, u"0"},
        {RtfNumberKind::UpperRoman, 1994, u"MCMXCIV"},
        {RtfNumberKind::LowerRoman, 3999, u"mmmcmxcix"},
        {RtfNumberKind::LowerRoman, 4000, u"4000"},
        {RtfNumberKind::UpperLetter, 26, u"Z"},
        {RtfNumberKind::LowerLetter, 27, u"aa"},
        {RtfNumberKind::LowerLetter, 0, u"0"},
        {RtfNumberKind::Bullet, 7, u""},
    };
    for (const auto& c : cases)
        CHECK(NumberText({c.kind, 1, u"", u""}, c.number) == c.text);
}

TEST_CASE("rtf numbering: at most so many, of such a length") {
    std::string rtf = "{\\*\\pn\\pndec\\pnstart2147483647{\\pntxtb " +
                      std::string(2 * maxRtfNumberTextLength, '(') + "}}";
    const std::size_t count = maxRtfNumberedParagraphs + 5;
    for (std::size_t i = 0; i < count; ++i)
        rtf += "\nx\\par";
    const std::string text = ReadText(rtf);
    CHECK(text.starts_with(std::string(maxRtfNumberTextLength, '(') + "999999\tx\n"));
    CHECK(text.ends_with("(999999\tx\nx\nx\nx\nx\nx\n"));
}

namespace {

// Two levels of numbers, one of bullets and one without a text of its own; \ls2 starts over.
const std::string lists =
    "{\\*\\listtable{\\list\\listtemplateid1\\listhybrid"
    "{\\listlevel\\levelnfc0\\levelnfcn0\\levelfollow0\\levelstartat1"
    "{\\leveltext\\leveltemplateid5\\'02\\'00.;}{\\levelnumbers\\'01;}\\fi-360\\li720}"
    "{\\listlevel\\levelnfc4\\levelfollow1\\levelstartat3"
    "{\\leveltext\\'04\\'00.\\'01);}{\\levelnumbers\\'01\\'03;}\\fi-360\\li1440}"
    "{\\listlevel\\levelnfc23{\\leveltext\\'01\\u-3913 ?;}{\\levelnumbers;}\\f1\\fi-180\\li2160}"
    "{\\listname ;}\\listid77}"
    "{\\list{\\listlevel\\levelnfc1\\levelfollow2{\\leveltext\\'05Kap "
    "\\'00;}{\\levelnumbers\\'05;}}"
    "{\\listlevel\\levelnfc2\\levellegal1\\levelnorestart1{\\leveltext\\'03\\'00.\\'01;}}"
    "{\\listlevel\\levelnfc22{\\leveltext\\'01\\'02;}}"
    "{\\*\\listpicture{\\pict\\pngblip 00}}\\listid-8}}"
    "{\\*\\listoverridetable"
    "{\\listoverride\\listid77\\listoverridecount0\\ls1}"
    "{\\listoverride\\listid77\\listoverridecount1{\\lfolevel\\listoverridestartat"
    "\\levelstartat10}\\ls2}"
    "{\\listoverride\\listid-8\\listoverridecount0\\ls3}"
    "{\\listoverride\\listid77\\listoverridecount1{\\lfolevel\\listoverrideformat"
    "{\\listlevel\\levelnfc2\\levelstartat1{\\leveltext\\'03(\\'00);}}}\\ls4}"
    "{\\listoverride\\listid99\\ls5}}";

} // namespace

TEST_CASE("rtf numbering: paragraphs get the numbers of their lists") {
    const struct {
        std::string body, text;
    } cases[] = {
        {"\\pard\\ls1\\ilvl0 a\\par b\\par\\pard c\\par\\pard\\ls1 d\\par",
         "1.\ta\n2.\tb\nc\n3.\td\n"},
        {"\\pard\\ls1\\ilvl0 a\\par\\ilvl1 b\\par c\\par\\ilvl0 d\\par\\ilvl1 e\\par",
         "1.\ta\n1.c) b\n1.d) c\n2.\td\n2.c) e\n"},
        {"\\pard\\ls1\\ilvl2 a\\par", "•\ta\n"},
        {"\\pard\\ls1\\ilvl8 a\\par", "•\ta\n"},
        {"\\pard\\ls1\\ilvl1 a\\par\\ilvl0 b\\par", "1.c) a\n1.\tb\n"},
        {"\\pard\\ls1 a\\par\\ls2 b\\par c\\par\\ls1 d\\par", "1.\ta\n10.\tb\n11.\tc\n12.\td\n"},
        {"\\pard\\ls4 a\\par b\\par", "(i)\ta\n(ii)\tb\n"},
        {"\\pard\\ls3 a\\par\\ilvl1 b\\par\\ilvl0 c\\par\\ilvl1 d\\par\\ilvl2 e\\par",
         "Kap Ia\n1.1\tb\nKap IIc\n2.2\td\n01\te\n"},
        {"\\trowd\\cellx9\\intbl\\ls1 a\\cell\\row\\pard\\ls1 b", "1.\ta\a\n2.\tb"},
        {"\\pard\\ls1\\par a\\line b\\page c\\par d", "\n1.\ta\vb\nc\n2.\td"},
        // Written out, or in an unknown list.
        {"\\pard{\\listtext 1.\\tab}\\ls1 a\\par{\\listtext\\pard\\plain 2.\\tab}b\\par c\\par",
         "1.\ta\n2.\tb\n3.\tc\n"},
        {"{\\listtext\\pard\\plain 1.\\tab}\\pard\\ls1 a\\par", "1.\ta\n"},
        {"{\\listtext  \\tab}\\pard\\ls1 a\\par", "1.\ta\n"},
        {"\\pard\\ls1{\\*\\pn\\pnlvlbody\\ls1\\pndec{\\pntxta )}}a\\par", "1.\ta\n"},
        {"\\pard\\ls5 a\\par\\ls6 b\\par\\ls0 c", "a\nb\nc"},
        {"\\pard\\ls1 a{\\footnote b\\par c}\\par d", "1.\ta\n2.\td\nb\nc\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(ReadText(lists + c.body) == c.text);
    }
}

TEST_CASE("rtf numbering: signs of lists in symbol fonts") {
    const struct {
        std::string level, text;
    } cases[] = {
        {"{\\leveltext\\'01\\'b7;}\\f1", "•\ta"},
        {"{\\leveltext\\'01\\u61607 ?;}\\f2", "▪\ta"}, // U+F0A7
        {"{\\leveltext\\'01\\'fc;}\\f2", "✓\ta"},
        {"{\\leveltext\\'01o;}\\f0", "o\ta"},
        {"{\\leveltext\\'01\\u8211 -;}", "–\ta"},
        {"{\\leveltext\\'01\\u-3913 ?;}", "•\ta"},
        {"{\\leveltext\\'00;}", "•\ta"},
        {"{\\leveltext\\'02\\'05.;}", "a"},
    };
    for (const auto& c : cases) {
        const Document document = ReadRtf(
            "{\\rtf1{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}{\\f2\\fcharset2 Wingdings;}}"
            "{\\*\\listtable{\\list{\\listlevel\\levelnfc23" +
                c.level +
                "}\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}\\ls1 a}",
            1252);
        CAPTURE(c.level);
        CHECK(Utf16ToUtf8(document.text) == c.text);
    }
}

TEST_CASE("rtf numbering: indents of a list, where the paragraph has none") {
    const Document document =
        ReadRtf("{\\rtf1" + lists + "\\pard\\ls1 a\\par\\ilvl1 b\\par\\li500 c\\par\\pard d", 1252);
    const auto leftAt = [&](TextPos at) {
        return document_check::ParagraphStyleAt(document, at).leftIndent;
    };
    CHECK(Utf16ToUtf8(document.text) == "1.\ta\n1.c) b\n1.d) c\nd");
    CHECK(leftAt(0) == 720);
    CHECK(document_check::ParagraphStyleAt(document, 0).firstLineIndent == -360);
    CHECK(leftAt(6) == 1440);
    CHECK(leftAt(13) == 500);
    CHECK(leftAt(20) == 0);
}

TEST_CASE("rtf numbering: lists mean no harm") {
    std::string levels, text = "{\\leveltext\\'ff";
    for (int i = 0; i < 2000; ++i)
        text += "\\'00";
    for (int i = 0; i < 20; ++i)
        levels += "{\\listlevel\\levelnfc1\\levelstartat2147483647" + text + ";}}";
    const std::string body = "{\\*\\listtable{\\list" + levels +
                             "\\listid1}}{\\*\\listoverridetable{\\listoverride\\listid1\\ls1}}"
                             "\\ls1\\ilvl-3 a\\par\\ilvl2147483647 b";
    const std::string read = ReadText(body);
    CHECK(read.size() < 3 * maxRtfListNumberLength);
    CHECK(read.ends_with("\tb"));
    for (const char* const broken :
         {"\\leveltext x", "{\\list}", "{\\listlevel}", "{\\lfolevel{\\listlevel}}",
          "{\\*\\listoverridetable{\\listoverride\\ls1}}\\ls1", "{\\listtable{\\listlevel}"})
        CHECK(ReadText(std::string(broken) + "\\par").size() <= 1);
}
