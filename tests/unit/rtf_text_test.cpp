// What of a file is text, and in which characters.
#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {

struct TextCase {
    std::string_view rtf, text;
};

std::string ReadText(std::string_view rtf, int systemCodePage = 1252) {
    const Document document = ReadRtf(rtf, systemCodePage);
    CHECK(document_check::FirstFault(document) == "");
    return Utf16ToUtf8(document.text);
}

template <std::size_t count>
void CheckTexts(const TextCase (&cases)[count]) {
    for (const auto& c : cases) {
        CAPTURE(c.rtf);
        CHECK(ReadText(c.rtf) == c.text);
    }
}

} // namespace

TEST_CASE("rtf reader: recognises rich text by its start") {
    for (const std::string_view good : {"{\\rtf1}", "{\\rtf", "{\\RTF1}", " \r\n\t{\\rtf1}",
                                        "\xEF\xBB\xBF{\\rtf1}", "\xEF\xBB\xBF\n{\\Rtf1}"}) {
        CAPTURE(good);
        CHECK(LooksLikeRtf(good));
    }
    for (const std::string_view bad : {"", "{", "{\\rt", "\\rtf1", "x{\\rtf1}", "{ \\rtf1}",
                                       "{{\\rtf1}}", "\xEF\xBB{\\rtf1}", "   "}) {
        CAPTURE(bad);
        CHECK_FALSE(LooksLikeRtf(bad));
    }
}

TEST_CASE("rtf reader: what is text") {
    CheckTexts({
        {"{\\rtf1 A\\par}", "A\n"},
        {"{\\rtf1 A}", "A"},
        {"{\\rtf1 A\\par B}", "A\nB"},
        {"{\\rtf1\r\nA\r\nB\\par\r\n}", "AB\n"},
        {"\xEF\xBB\xBF {\\rtf1 A}", "A"},
        {"\xEF\xBB\xBF{\\rtf1\\ansi with \\'e9}", "with é"},
        {"{\\rtf1 A}B{C}", "A"},
        {"{\\rtf1 A", "A"},
        {"{\\rtf1 A{\\b B", "AB"},
        {"{\\rtf1 A}}}B", "A"},
        {"{\\rtf1 a\\{b\\}c\\\\d}", "a{b}c\\d"},
        {"{\\rtf1 a\\line b\\lbr3 c\\tab d\te}", "a\vb\vc\td\te"},
        {"{\\rtf1 a\\\nb\\\r\nc}", "a\nb\nc"},
        {"{\\rtf1 a\\page b\\sect\\par c\\page\\page d}", "a\nb\n\nc\nd"},
        {"{\\rtf1 \\emdash\\endash\\emspace\\enspace\\qmspace x}", "—–\u2003\u2002\u2005x"},
        {"{\\rtf1 \\lquote\\rquote\\ldblquote\\rdblquote\\bullet}", "‘’“”•"},
        {"{\\rtf1 \\~\\-\\_\\zwj\\zwnj\\zwbo\\zwnbo\\ltrmark\\rtlmark}",
         "\u00A0\u00AD\u2011\u200D\u200C\u200B\u2060\u200E\u200F"},
        {"{\\rtf1 a{\\ptabldot\\pindtabqr}b}", "a\tb"},
        {"{\\rtf1 a\\unknown1 b\\|c\\:d}", "abcd"},
        {"{\\rtf1 a{\\v hidden\\par}b\\v c\\v0 d\\v e\\plain f}", "abdf"},
        {"{\\rtf1 a\\bin3 }}}b}", "ab"},
        {"{\\rtf1 a{\\*\\unknown\\bin300 \x01}\x02}b\\par}", "ab\n"},
        {"not rich text", ""},
        {"", ""},
    });
}

TEST_CASE("rtf reader: what is not shown") {
    CheckTexts({
        {"{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red1;}{\\stylesheet{\\s0 Normal;}}A}", "A"},
        {"{\\rtf1{\\info{\\title T}{\\author A}}{\\*\\generator G;}{\\header h\\par}{\\footer f}A}",
         "A"},
        {"{\\rtf1 a{\\*\\unknown x{y}\\par}b}", "ab"},
        {"{\\rtf1 a{\\*\\b x}b}", "ab"},
        {"{\\rtf1 a{\\*\\unknown\\bin2 }}x}b}", "ab"},
        {"{\\rtf1 a{\\xe index}{\\tc contents}{\\*\\bkmkstart m}b{\\*\\bkmkend m}}", "ab"},
        {"{\\rtf1 a{\\*\\atnid x}{\\annotation note}b}", "ab"},
        {"{\\rtf1{\\*\\pn\\pnlvlblt{\\pntxtb b}}{\\pntext\\f0\\'b7\\tab}a}", "·\ta"},
        {"{\\rtf1{\\listtext\\pard 1.\\tab}a}", "1.\ta"},
        {"{\\rtf1{\\upr{ansi}{\\*\\ud{\\u1050?}}}a}", "Кa"},
        {"{\\rtf1{\\object\\objemb{\\*\\objdata 00}{\\result{shown}}lost}a}", "showna"},
        {"{\\rtf1{\\shp{\\*\\shpinst{\\sp{\\sn x}{\\sv y}}{\\shptxt in\\par}}{\\shprslt out}}a}",
         "in\va"},
    });
}

TEST_CASE("rtf reader: unicode characters and what stands for them elsewhere") {
    CheckTexts({
        {"{\\rtf1\\u8364?x}", "€x"},
        {"{\\rtf1\\u8364 ?x}", "€x"},
        {"{\\rtf1\\u-4064?x}", "\uF020x"},
        {"{\\rtf1\\u8364\\'80x}", "€x"},
        {"{\\rtf1\\uc0\\u8364 x}", "€x"},
        {"{\\rtf1\\uc2\\u8364\\'a2\\'e3x}", "€x"},
        {"{\\rtf1\\uc2\\u8364 ab{\\uc0\\u8364 c}\\u8364 de}", "€€c€"},
        {"{\\rtf1{\\uc0\\u8364 a}\\u8364 bc}", "€a€c"},
        {"{\\rtf1\\uc3\\u8364 a}b", "€"},
        {"{\\rtf1\\uc3{\\u8364 a}b}", "€b"},
        {"{\\rtf1\\u8212\\emdash x}", "—x"},
        {"{\\rtf1\\u8212\\b x}", "—"},
        {"{\\rtf1\\uc1\\u1050\\u1050?x}", "ККx"},
        {"{\\rtf1\\u8364\\bin3 abcx}", "€x"},
        {"{\\rtf1\\u-10179?\\u-8704?x}", "😀x"},
        {"{\\rtf1\\u55357?\\u56832?x}", "😀x"},
        {"{\\rtf1\\u128512?x}", "😀x"},
        {"{\\rtf1\\u-10179?x}", "\uFFFDx"},
        {"{\\rtf1\\u-10179?\\par x}", "\uFFFD\nx"},
        {"{\\rtf1 x\\u-10179?}", "x\uFFFD"},
        {"{\\rtf1\\u-8704?x}", "\uFFFDx"},
        {"{\\rtf1\\u-10179?\\u-10179?\\u-8704?x}", "\uFFFD😀x"},
        {"{\\rtf1\\u0?\\u7?\\u31?x}", "x"},
        {"{\\rtf1\\u10?\\u13?\\u11?\\u9?x}", "\v\v\v\tx"},
        {"{\\rtf1 a\\uc0\\u8232 b\\u8233 c}", "a\vb\vc"},
        {"{\\rtf1\\u-4?x}", "\uFFFDx"},
        {"{\\rtf1\\u99999999?x}", "\uFFFDx"},
        {"{\\rtf1\\uc-5\\u8364 x}", "€x"},
    });
}

TEST_CASE("rtf reader: code pages of the document") {
    CheckTexts({
        {"{\\rtf1\\ansi\\ansicpg1251\\'cf\\'f0}", "Пр"},
        {"{\\rtf1\\ansi\\ansicpg1251 \xCF\xF0}", "Пр"},
        {"{\\rtf1\\mac\\'8e}", "é"},
        {"{\\rtf1\\pc\\'82}", "é"},
        {"{\\rtf1\\pca\\'d0}", "ð"},
        {"{\\rtf1\\ansi\\'e9}", "é"},
        {"{\\rtf1\\ansi\\ansicpg0\\'e9}", "é"},
        {"{\\rtf1\\ansi\\ansicpg4711\\'e9}", "é"},
        {"{\\rtf1\\ansicpg65001\\'c3\\'a9 \xC3\xA9\xE2\x82\xAC}", "é é€"},
        {"{\\rtf1\\ansicpg65001 \xC3x\xE2\x82}", "\uFFFDx\uFFFD\uFFFD"},
    });
    const std::string font = "{\\rtf1\\ansicpg65001{\\fonttbl{\\f0\\fcharset0 A;}}\\f0";
    CHECK(ReadText(font + "\\'d0\\'9f\\'d1\\'80}") == "Пр");
    CHECK(ReadText(font + "caf\\'e9}") == "café");
    CHECK(ReadText("{\\rtf1\\'cf}", 1251) == "П");
    CHECK(ReadText("{\\rtf1\\ansi\\'cf}", 1251) == "П");
    CHECK(ReadText("{\\rtf1\\ansi\\ansicpg1252\\'cf}", 1251) == "Ï");
}

TEST_CASE("rtf reader: code pages of fonts") {
    CheckTexts({
        {"{\\rtf1\\ansicpg1252{\\fonttbl{\\f0\\fcharset204 A;}{\\f1 B;}}\\f0\\'cf\\f1\\'cf}", "ПÏ"},
        {"{\\rtf1\\ansicpg1252\\deff3{\\fonttbl{\\f3\\fcharset204 A;}}\\'cf{\\f9\\'cf}}", "ПП"},
        {"{\\rtf1\\ansicpg1251{\\fonttbl{\\f0\\fcharset0 A;}}\\f0\\'cf}", "Ï"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset128\\cpg1251 A;}}\\f0\\'cf}", "П"},
        {"{\\rtf1{\\fonttbl{\\f0\\cpg1251\\fcharset128 A;}}\\f0\\'cf}", "П"},
        {"{\\rtf1{\\fonttbl\\f0\\fcharset204 A;\\f1\\fcharset161 B;}\\f0\\'cf\\f1\\'cf}", "ПΟ"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}}{\\f0\\'cf}\\plain\\'cf}", "ПП"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset204 A;}{\\f1 B;}}\\f1{\\f0\\'cf}\\'cf}", "ПÏ"},
    });
}

TEST_CASE("rtf reader: a file that names no code page is read in the likeliest") {
    CheckTexts({
        {"{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0\\'cf\\'f0\\'e8\\'e2\\'e5\\'f2, "
         "\\'ec\\'e8\\'f0! \\'ca\\'e0\\'ea \\'e4\\'e5\\'eb\\'e0?\\par}",
         "Привет, мир! Как дела?\n"},
        {"{\\rtf1\\ansi caf\\'e9 \\'97 \\'93na\\'efve\\'94 \\'95\\par}", "café — “naïve” •\n"},
        {"{\\rtf1\\ansi \\'b7 one\\par\\'b7 two\\par}", "· one\n· two\n"},
    });
}

TEST_CASE("rtf reader: fonts of old systems name their script") {
    CheckTexts({
        {"{\\rtf1{\\fonttbl{\\f0 Times New Roman Cyr;}{\\f1 Arial CE;}}\\f0\\'cf\\f1\\'e8}", "Пč"},
        {"{\\rtf1{\\fonttbl{\\f0 Courier New Greek;}{\\f1 Arial TUR;}{\\f2 A Baltic;}}"
         "\\f0\\'e1\\f1\\'fd\\f2\\'eb}",
         "αıė"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset161 Arial CE;}{\\f1 CE;}}\\f0\\'e1\\f1\\'e8}", "αè"},
    });
}

TEST_CASE("rtf reader: characters of several bytes in all their spellings") {
    CheckTexts({
        {"{\\rtf1\\ansicpg932\\'83\\'65\\'83\\'58}", "テス"},
        {"{\\rtf1\\ansicpg932\\'83e\\'83X}", "テス"},
        {"{\\rtf1\\ansicpg932\\'83\r\ne\\'83\r\nX}", "テス"},
        {"{\\rtf1\\ansicpg932 \x83\x65\x83\x58}", "テス"},
        {"{\\rtf1\\ansicpg932 a\x83\\'65"
         "b\\'83\x58"
         "c}",
         "aテbスc"},
        {"{\\rtf1\\ansicpg932\\'83\\\\}", "ソ"},
        {"{\\rtf1\\ansicpg932\\'83\\'5c}", "ソ"},
        {"{\\rtf1\\ansicpg932\\'b1\\'b2}", "ｱｲ"},
        {"{\\rtf1\\ansicpg932\\'83\\par x}", "\uFFFD\nx"},
        {"{\\rtf1\\ansicpg932\\'83}", "\uFFFD"},
        {"{\\rtf1\\ansicpg932\\'83\\u8364?e}", "\uFFFD€e"},
        {"{\\rtf1\\ansicpg949\\'b8\\'bc\\'c0\\'ba}", "맑은"},
        {"{\\rtf1\\ansicpg936\\'d6\\'d0\\'b9\\'fa}", "中国"},
        {"{\\rtf1\\ansicpg54936\\'81\\'30\\'81\\'30 x}", "\u0080 x"},
        {"{\\rtf1\\ansicpg950\\'a4\\'a4\\'a4\\'e5}", "中文"},
        {"{\\rtf1\\ansicpg51932\\'8f\\'b0\\'a1\\'a4\\'a2}", "丂あ"},
        {"{\\rtf1\\ansicpg51950\\'8e\\'a2\\'a1\\'a1\\'c4\\'e3}", "乂中"},
        {"{\\rtf1\\ansicpg50220 a\\'e9}", "aé"}, // a page for whole texts only
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset134 A;}{\\f1\\fcharset204 B;}}\\f0\\'d6\\f1\\'d0}",
         "\uFFFDР"},
    });
}

TEST_CASE("rtf reader: properties and groups between the bytes of a character") {
    CheckTexts({
        {"{\\rtf1\\ansicpg932{\\'83}e}", "テ"},
        {"{\\rtf1\\ansicpg932{\\'8c}{\\'e1}\\'94\\loch\\b\\'79}", "吾輩"},
        {"{\\rtf1\\ansicpg932\\'94{\\*\\unknown x\\par}\\'4c}", "猫"},
        {"{\\rtf1\\ansicpg54936\\'81{\\'30}\\b\\'81{{\\'30}}}", "\u0080"},
        {"{\\rtf1\\ansicpg65001\\'e2{\\'82}\\i\\'ac}", "€"},
        {"{\\rtf1{\\fonttbl{\\f0\\fcharset128 A;}{\\f1\\fcharset128 B;}}\\f0\\'8c\\f1\\'e1}", "吾"},
        {"{\\rtf1\\ansicpg932{\\'83}\\tab e}", "\uFFFD\te"},
        {"{\\rtf1\\ansicpg932{\\'83}\\par e}", "\uFFFD\ne"},
        {"{\\rtf1\\ansicpg932 a\\'83{\\footnote\\'65}\\'65}", "a\uFFFDe\ne\n"},
        {"{\\rtf1\\ansicpg932\\'83{\\pict\\pngblip 41}e}", "\uFFFD\uFFFCe"},
        {"{\\rtf1\\ansicpg932{\\fonttbl{\\f1\\fcharset2 Symbol;}}\\'83\\f1 a}", "\uFFFDα"},
        {"{\\rtf1\\ansicpg932{\\field{\\*\\fldinst QUOTE x}{\\fldrslt\\'83}}e}", "\uFFFDe"},
    });
}

TEST_CASE("rtf reader: properties and groups between the halves of a pair") {
    CheckTexts({
        {"{\\rtf1\\u-10179\\'3f\\uc0\\u-8704 x}", "😀x"},
        {"{\\rtf1{\\fonttbl{\\f1 B;}}\\u-10179?\\f1\\b\\u-8704?x}", "😀x"},
        {"{\\rtf1{\\u-10179?}{\\u-8704?}x}", "😀x"},
        {"{\\rtf1{\\uc1\\u-10179?}\\pard\\qc{\\i\\uc0\\u-8704}x}", "😀x"},
        {"{\\rtf1\\u-10179?{\\*\\unknown ab{c}\\tab}\\u-8704?x}", "😀x"},
        {"{\\rtf1{\\u-10187?}\\loch\\af0\\hich{\\u-8936?}}", "𝔘"},
        {"{\\rtf1{\\u-10179?}x\\u-8704?}", "\uFFFDx\uFFFD"},
        {"{\\rtf1{\\u-10179?}\\tab\\u-8704?}", "\uFFFD\t\uFFFD"},
        {"{\\rtf1{\\u-10179?}}", "\uFFFD"},
        {"{\\rtf1 a{\\footnote\\u-10179?}\\u-8704?}", "a\uFFFD\n\uFFFD\n"},
        {"{\\rtf1{\\field{\\*\\fldinst\\u-10179?}{\\fldrslt\\u-8704?x}}}", "\uFFFDx"},
    });
}

TEST_CASE("rtf reader: fonts of symbols") {
    const std::string start = "{\\rtf1{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}"
                              "{\\f2\\fcharset2 Wingdings;}{\\f3\\fcharset2 Other;}"
                              "{\\f4\\fcharset0 Symbol;}{\\f5\\fcharset2 Webdings;}"
                              "{\\f6\\ftech Symbol;}}";
    struct {
        std::string_view body, text;
    } const cases[] = {
        {"{\\f1 abW \\'b7\\'a5}a", "αβΩ •∞a"},
        {"{\\f1\\u-3913?\\u8226?\\u61537?}\\u-3913?", "••α\uF0B7"},
        {"{\\f1\\'ff\\'7f\\'20~}", "\uF0FF\uF07F ∼"},
        {"{\\f1 \\{\\\\\\}}", "{∴}"},
        {"{\\f2 nl\\'a7\\'fcX}a", "■●▪✓✠a"},
        {"{\\f2 MC\\'8c\\'80}", "💣👍➊⓪"},
        {"{\\f2 \\'d8\\'a8\\'fe}", "➢🞎☑"},
        {"{\\f5 4<=an\\'7f\\'ff}", "⏵⏹⏺✔⬤\uF07F🕊"},
        {"{\\f3 a\\'b7}", "a·"},
        {"{\\f4 a\\'b7}", "a·"},
        {"{\\f6 a\\'b7}", "α•"}, // an old writer names no charset
        {"{\\pntext\\f1\\'b7\\tab}a", "•\ta"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(ReadText(start + std::string(c.body) + "}") == c.text);
    }
}

TEST_CASE("rtf reader: a sign of a symbol font is in the font of the text around it") {
    const Document document =
        ReadRtf("{\\rtf1\\deff2{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}{\\f2 B;}}"
                "{\\f1 a}\\f0 b\\f1 c\\u8226?\\'ff\\b d\\plain e\\f1\\plain f}",
                1252);
    REQUIRE(document.text == u"\u03B1b\u03C7\u2022\uF0FF\u03B4ef");
    const std::u16string expected[] = {u"B", u"A", u"A", u"A", u"Symbol", u"A", u"B", u"B"};
    for (TextPos i = 0; i < 8; ++i) {
        CAPTURE(i);
        CHECK(document.fonts[document_check::CharStyleAt(document, i).font] == expected[i]);
    }
}

TEST_CASE("rtf reader: a symbol font as the default one names no font of text") {
    const Document document = ReadRtf("{\\rtf1\\deff0{\\fonttbl{\\f0\\fcharset2 Symbol;}}a}", 1252);
    CHECK(document.text == u"\u03B1");
    CHECK(document.fonts[0] == u"");
    CHECK(document_check::CharStyleAt(document, 0).font == 0);
}

TEST_CASE("rtf reader: font names are read in the font's own characters") {
    const Document document =
        ReadRtf("{\\rtf1\\ansi\\deff1{\\fonttbl{\\f0\\fcharset204 \\'cf{\\*\\falt x};}"
                "{\\f1 {\\*\\panose 02}Main;}{\\f2\\u1050?  ;}{\\f3 Main;}{\\f4 no end}}"
                "\\f0 a\\f1 b\\f2 c\\f3 d\\f4 e}",
                1252);
    const std::vector<std::u16string> names{u"Main", u"П", u"К", u"no end"};
    CHECK(document.fonts == names);
    const std::u16string expected[] = {u"П", u"Main", u"К", u"Main", u"no end"};
    for (TextPos i = 0; i < 5; ++i)
        CHECK(document.fonts[document_check::CharStyleAt(document, i).font] == expected[i]);
}

TEST_CASE("rtf reader: the default font may be named after the table") {
    const Document document = ReadRtf("{\\rtf1{\\fonttbl{\\f4 Four;}{\\f5 Five;}}\\deff5 a}", 1252);
    CHECK(document.fonts[document_check::CharStyleAt(document, 0).font] == u"Five");
}

TEST_CASE("rtf reader: text that a program wrote as UTF-8 without escaping it") {
    CheckTexts({
        {"{\\rtf1\\ansi\\ansicpg1252 caf\xC3\xA9 \xE2\x80\x9Cq\xE2\x80\x9D \\'e9}", "café “q” é"},
        {"{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset204 A;}}\\f0 \xD0\xB9\\'e9}", "йй"},
        // One byte that is none: then none is.
        {"{\\rtf1\\ansi\\ansicpg1252 caf\xC3\xA9 \xE9}", "cafÃ© é"},
        // Two characters of a Chinese page that look like it by chance, and more than that.
        {"{\\rtf1\\ansi\\ansicpg936 \xD0\xA1\xD2\xBB}", "小一"},
        {"{\\rtf1\\ansi\\ansicpg936 "
         "\xD0\xBF\xD1\x80\xD0\xB8\xD0\xB2\xD0\xB5\xD1\x82\xD1\x8B\xD0\xB9}",
         "приветый"},
        // A first byte that is escaped, and its second one.
        {"{\\rtf1\\ansi\\ansicpg932 \\'83A}", "ア"},
    });
}

TEST_CASE("rtf reader: Western letters in a font that is said to be Japanese") {
    const std::string head = "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0\\fcharset128 Times;}}\\f0 ";
    CHECK(ReadText(head + "caf\\'e9 au lait\\par}") == "caf\u00E9 au lait\n");
    CHECK(ReadText(head + "caf\\'e9}") == "caf\u00E9");
    CHECK(ReadText(head + "\\'93\\'fa\\'96\\'7b}") == "\u65E5\u672C");
}
