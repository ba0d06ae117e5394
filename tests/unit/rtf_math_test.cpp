// Formulas of rich text, shown as one line.
#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {
Document Read(const std::string& formula) {
    Document document =
        ReadRtf("{\\rtf1\\uc1 x={\\mmath\\mnoaln{\\*\\moMath" + formula + "}};}", 1252);
    CAPTURE(formula);
    CHECK(document_check::FirstFault(document) == "");
    return document;
}
} // namespace

TEST_CASE("rtf formulas: the text of all parts in order, with the signs that are not in it") {
    struct {
        std::string formula, text;
    } const cases[] = {
        {"{\\mr\\mscr0\\msty2\\i\\f34 a}{\\mr +}", "a+"},
        {"{\\mf{\\mfPr{\\mctrlPr\\i\\f34 }{\\mtype skw}}{\\mnum{\\mr a}}{\\mden{\\mr b}}}", "a/b"},
        {"{\\mf{\\mnum{\\mr a+b}}{\\mden{\\mr 2}{\\mr c}}}", "(a+b)/(2c)"},
        {"{\\mf{\\mnum{\\mr\\u-10187?\\u-9138?}}{\\mden{\\mr\\u960?}}}", "\xF0\x9D\x91\x8E/π"},
        {"{\\mrad{\\mradPr{\\mdegHide on}}{\\mdeg}{\\me{\\mr y}}}", "√y"},
        {"{\\md{\\mdPr{\\mctrlPr}}{\\me{\\mr a}}}", "(a)"},
        {"{\\md{\\mdPr{\\mbegChr [}{\\mendChr ]}}{\\me{\\mr a}}}", "[a]"},
        {"{\\md{\\mdPr{\\mbegChr \\{}{\\mendChr }}{\\me{\\mr a}}}", "{a"},
        {"{\\md{\\me{\\md{\\mdPr{\\mbegChr |}{\\mendChr |}}{\\me{\\mr a}}}}}", "(|a|)"},
        {"{\\mnary{\\mnaryPr{\\mchr \\u8721?}{\\mlimLoc undOvr}}{\\msub{\\mr i}}{\\msup{\\mr n}}"
         "{\\me{\\mr i}}}",
         "∑ini"},
        {"{\\mnary{\\msub}{\\msup}{\\me{\\mr f}}}", "∫f"},
        {"{\\macc{\\maccPr{\\mchr \\u775?}}{\\me{\\mr x}}}", "x\u0307"},
        {"{\\mnary{\\mnaryPr{\\mchr \\u-4?}}a}{\\mnary{\\mnaryPr{\\mchr \\u7?}}b}", "\uFFFDab"},
        {"{\\mfunc{\\mfName{\\mr sin}}{\\me{\\mr x}}}", "sin x"},
        {"{\\mr a}{\\mmathPict{\\pict\\pngblip 41}}", "a"},
        {"{\\md{\\mdPr{\\mbegChr", ";)"},
    };
    for (const auto& c : cases)
        CHECK(Utf16ToUtf8(Read(c.formula).text).substr(2, c.text.size()) == c.text);
}

TEST_CASE("rtf formulas: the whole of a zone, also where it is marked as for newer readers only") {
    const Document document = ReadRtf("{\\rtf1 a {\\*\\mmath {\\*\\moMathPara{\\moMathParaPr{\\mjc "
                                      "left}}{\\*\\moMath{\\mr b}}}{\\mmathPict c}} d}",
                                      1252);
    CHECK(document.text == u"a b d");
}

TEST_CASE("rtf formulas: powers and indices stand above and below") {
    const Document document = Read("{\\msSubSup{\\me{\\mr x}}{\\msub{\\mr i}}{\\msup{\\mr 2}}}");
    REQUIRE(document.text == u"x=xi2;");
    const Script expected[] = {Script::Normal,    Script::Normal,      Script::Normal,
                               Script::Subscript, Script::Superscript, Script::Normal};
    for (TextPos i = 0; i < 6; ++i)
        CHECK(document_check::CharStyleAt(document, i).script == expected[i]);
}
