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
