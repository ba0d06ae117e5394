// Pictures, links and footnotes that the reader finds in a text.
#include "common/utf.h"
#include "formats/metafile/metafile.h"
#include "formats/picture_files.h"
#include "formats/rtf/rtf_fields.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {

Document Read(const std::string& body) {
    Document document = ReadRtf("{\\rtf1 " + body + "}", 1252);
    CAPTURE(body);
    CHECK(document_check::FirstFault(document) == "");
    return document;
}

} // namespace

TEST_CASE("rtf pictures: kinds, bytes and sizes") {
    struct {
        std::string words;
        PictureFormat format;
        std::string bytes;
        std::int32_t width, height;
    } const cases[] = {
        {"\\pngblip 8950", PictureFormat::Png, "\x89P", 0, 0},
        {"\\pngblip\n8 9\n5\n0", PictureFormat::Png, "\x89P", 0, 0},
        {"\\pngblip 89505", PictureFormat::Png, "\x89P", 0, 0},
        {"\\jpegblip\\bin4 {\\}}", PictureFormat::Jpeg, "{\\}}", 0, 0},
        {"\\jpegblip{\\*\\blipuid 00ff}41", PictureFormat::Jpeg, "A", 0, 0},
        {"\\pngblip", PictureFormat::Other, "", 0, 0},
        {"\\wmetafile8\\picw2540\\pich1270 0102", PictureFormat::Wmf, "\1\2", 1440, 720},
        {"\\wmetafile8\\picw1\\pich1\\picwgoal30\\pichgoal40 01", PictureFormat::Wmf, "\1", 30, 40},
        {"\\emfblip 01", PictureFormat::Emf, "\1", 0, 0},
        {"\\macpict 01", PictureFormat::Other, "", 0, 0},
        {"\\picwgoal100\\pichgoal200\\picscalex50\\picscaley200\\pngblip 41", PictureFormat::Png,
         "A", 50, 400},
        {"\\picw100\\pich200\\pngblip 41", PictureFormat::Png, "A", 0, 0},
        {"\\picwgoal2147483647\\picscalex2147483647\\pichgoal-9\\pngblip 41", PictureFormat::Png,
         "A", maxRtfTwips, 0},
        {"\\picwgoal100\\picscalex0\\picscaley-5\\pichgoal9\\pngblip 41", PictureFormat::Png, "A",
         100, 9},
    };
    for (const auto& c : cases) {
        CAPTURE(c.words);
        const Document document = Read(std::string("a{\\pict") + c.words + "}b");
        CHECK(Utf16ToUtf8(document.text) == "a\uFFFCb");
        REQUIRE(document.pictures.size() == 1);
        const Picture& picture = document.pictures[0];
        CHECK(picture.position == 1);
        CHECK(picture.format == c.format);
        CHECK(picture.bytes == c.bytes);
        CHECK(picture.widthTwips == c.width);
        CHECK(picture.heightTwips == c.height);
    }
}

TEST_CASE("rtf pictures: which of several is shown") {
    struct {
        std::string body;
        std::size_t pictures;
    } const cases[] = {
        {"{\\*\\shppict{\\pict\\pngblip 41}}{\\nonshppict{\\pict\\wmetafile8 00}}", 1},
        {"{\\nonshppict{\\pict\\pngblip 41}}", 1},
        {"{\\object{\\*\\objdata 00}{\\result{\\pict\\pngblip 41}}}", 1},
        {"{\\object{\\pict\\pngblip 41}}", 0},
        {"{\\v{\\pict\\pngblip 41}}", 0},
        {"{\\*\\unknown{\\pict\\pngblip 41}}", 0},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv{\\pict\\pngblip 41}}}}{\\shprslt{\\pict 41}}}",
         1},
        {"{\\shp{\\*\\shpinst{\\sp{\\sn fillBlip}{\\sv{\\pict\\pngblip 41}}}}}", 0},
        {"{\\*\\listpicture{\\pict\\pngblip 41}}", 0},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        const Document document = Read(c.body);
        CHECK(document.pictures.size() == c.pictures);
        CHECK(document.text.size() == c.pictures);
    }
}

TEST_CASE("rtf pictures: an unfinished one shows what there is") {
    const Document document = ReadRtf("{\\rtf1 a{\\pict\\jpegblip 4142", 1252);
    REQUIRE(document.pictures.size() == 1);
    CHECK(document.pictures[0].bytes == "AB");
    const Document binary = ReadRtf("{\\rtf1 a{\\pict\\jpegblip\\bin99 AB", 1252);
    REQUIRE(binary.pictures.size() == 1);
    CHECK(binary.pictures[0].bytes == "AB");
}

TEST_CASE("rtf fields: the address of a link") {
    struct {
        std::u16string_view instruction, address;
    } const cases[] = {
        {u"HYPERLINK \"http://a.b/c\"", u"http://a.b/c"},
        {u" hyperlink  \"http://a.b/c\" ", u"http://a.b/c"},
        {u"HYPERLINK http://a.b/c", u"http://a.b/c"},
        {u"HYPERLINK \"a\" \\l \"place\"", u"a#place"},
        {u"HYPERLINK \\l \"place\"", u"#place"},
        {u"HYPERLINK \\l place", u"#place"},
        {u"HYPERLINK \\o \"a tip\" \"a\" \\t \"_blank\" \\n", u"a"},
        {u"HYPERLINK \"C:\\\\a b\\\\\\\"c\\\"\"", u"C:\\a b\\\"c\""},
        {u"HYPERLINK \"a", u"a"},
        {u"HYPERLINK \"a\\", u"a\\"},
        {u"HYPERLINK \\l", u""},
        {u"HYPERLINK", u""},
        {u"", u""},
        {u"PAGE \\* MERGEFORMAT", u""},
        {u"INCLUDEPICTURE \"a\"", u""},
    };
    for (const auto& c : cases) {
        CAPTURE(Utf16ToUtf8(c.instruction));
        CHECK(LinkOfField(c.instruction) == c.address);
    }
    for (const std::u16string_view address : {u"http://a", u"#place", u"a \"b\" \\c", u"а#б"})
        CHECK(LinkOfField(FieldOfLink(address)) == address);
}

TEST_CASE("rtf fields: a link holds for its result, other fields show theirs") {
    const Document document =
        Read("a{\\field{\\*\\fldinst{HYPERLINK \"u\"}}{\\fldrslt{\\b b}\\plain c}}d"
             "{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}"
             "{\\field{\\*\\fldinst HYPERLINK \"v\" \\\\l \"w\"}{\\fldrslt e}}f");
    CHECK(document.text == u"abcd7ef");
    const std::u16string links[] = {u"", u"u", u"u", u"", u"", u"v#w", u""};
    for (TextPos i = 0; i < 7; ++i)
        CHECK(document_check::LinkAt(document, i) == links[i]);
}

TEST_CASE("rtf fields: without a result, what the instruction says") {
    const struct {
        std::string instruction, text;
    } cases[] = {
        {"SYMBOL 183 \\\\f \"Symbol\" \\\\s 10 \\\\h", "•"},
        {"SYMBOL 61623 \\\\f Symbol", "•"},
        {"symbol 0xE0 \\\\f \"Wingdings\"", "→"},
        {"SYMBOL 8364 \\\\u", "€"},
        {"SYMBOL 128512 \\\\u \\\\f \"Any\"", "😀"},
        {"SYMBOL 233", "é"},
        {"SYMBOL 7", ""},
        {"SYMBOL 183 \\\\f \"Other Symbols\"", "·"},
        {"SYMBOL", ""},
        {"EQ \\\\* jc2 \\\\* \"Font:MS Mincho\" \\\\* hps10 \\\\o\\\\ad(\\\\s\\\\up "
         "9(\\u12395?\\u12411?),\\u26085?"
         "\\u26412?)",
         "日本"},
        {"EQ \\\\o(a;b)", "b"},
        {"EQ \\\\f(1,2) + \\\\r(3,x) = \\\\s\\\\do5(y)", "1/2 + √x = y"},
        {"EQ \\\\b \\\\bc\\\\[ (\\\\f(a\\\\,b,c))", "a,b/c"},
        {"EQ \\\\z(a,b) \\\\A(a,b) \\\\a(c) \\\\Z(d)", "a b a b c d"},
        {"EQ \\\\o(", ""},
        {"EQ ))\\\\", "))"},
        {"QUOTE \"a b\"", "a b"},
        {"MACROBUTTON NoMacro [Type here]", "[Type here]"},
        {"GOTOBUTTON place see there ", "see there"},
        {"GOTOBUTTON place", ""},
        {"PAGE", ""},
        {"HYPERLINK \"u\"", ""},
    };
    for (const auto& c : cases) {
        CAPTURE(c.instruction);
        const std::string field = "{\\field{\\*\\fldinst{" + c.instruction + "}}";
        CHECK(Utf16ToUtf8(Read("x" + field + "{\\fldrslt}}y").text) == "x" + c.text + "y");
        CHECK(Utf16ToUtf8(Read("x" + field + "}y").text) == "x" + c.text + "y");
        CHECK(Utf16ToUtf8(Read("x" + field + "{\\fldrslt{\\b z}}}y").text) == "xzy");
    }
}

TEST_CASE("rtf fields: those of forms show their state") {
    const struct {
        std::string instruction, form, text;
    } cases[] = {
        {"FORMCHECKBOX", "\\fftype1\\ffres1", "☒"},
        {"FORMCHECKBOX", "\\fftype1\\ffres0\\ffdefres1", "☐"},
        {"FORMCHECKBOX", "\\fftype1\\ffres25\\ffdefres1{\\*\\ffname Check}", "☒"},
        {"FORMCHECKBOX", "\\fftype1", "☐"},
        {"FORMDROPDOWN", "\\fftype2\\ffres1{\\*\\ffl One}{\\*\\ffl Two}", "Two"},
        {"FORMDROPDOWN", "\\fftype2\\ffres25{\\*\\ffl One}{\\*\\ffl Two}", "One"},
        {"FORMDROPDOWN", "\\fftype2\\ffres-1{\\*\\ffl One}", ""},
        {"FORMTEXT", "\\fftype0{\\*\\ffname T}{\\*\\ffdeftext words}", "words"},
        {"PAGE", "\\ffres1{\\*\\ffl One}", ""},
    };
    for (const auto& c : cases) {
        CAPTURE(c.form);
        const std::string field =
            "{\\field{\\*\\fldinst{" + c.instruction + " {\\*\\formfield{" + c.form + "}}}}";
        CHECK(Utf16ToUtf8(Read("x" + field + "{\\fldrslt}}y").text) == "x" + c.text + "y");
        CHECK(Utf16ToUtf8(Read("x" + field + "{\\fldrslt z}}y").text) == "xzy");
    }
    // The entries of a list are counted.
    std::string entries;
    for (std::size_t i = 0; i <= maxRtfFormEntries; ++i)
        entries += "{\\*\\ffl " + std::to_string(i) + "}";
    const auto chosen = [&](std::size_t index) {
        return Utf16ToUtf8(Read("{\\field{\\*\\fldinst{FORMDROPDOWN {\\*\\formfield{\\ffdefres" +
                                std::to_string(index) + entries + "}}}}}")
                               .text);
    };
    CHECK(chosen(maxRtfFormEntries - 1) == std::to_string(maxRtfFormEntries - 1));
    CHECK(chosen(maxRtfFormEntries).empty());
    // What one field says is nothing to the next.
    CHECK(Read("{\\field{\\*\\fldinst FORMTEXT{\\*\\formfield{\\*\\ffdeftext a}}}}"
               "{\\field{\\*\\fldinst FORMTEXT}}")
              .text == u"a");
}

TEST_CASE("rtf fields: a sign in place of a result has the style around the field") {
    const Document document =
        Read("a{\\b{\\field{\\*\\fldinst SYMBOL 183 \\\\f Symbol}{\\fldrslt }}}b");
    REQUIRE(document.text == u"a\u2022b");
    CHECK(document_check::CharStyleAt(document, 1).bold);
    CHECK_FALSE(document_check::CharStyleAt(document, 2).bold);
}

TEST_CASE("rtf fields: nested ones without a result") {
    const std::string sign = "{\\field{\\*\\fldinst SYMBOL 183 \\\\f Symbol}{\\fldrslt}}";
    CHECK(Read("a{\\field{\\*\\fldinst QUOTE c}{\\fldrslt " + sign + "}}b").text == u"a\u2022b");
    CHECK(Read("a{\\v " + sign + "}{\\*\\unknown " + sign + "}b").text == u"ab");
    std::string deep;
    for (int i = 0; i < 600; ++i)
        deep += "{\\field{\\*\\fldinst QUOTE c}{\\fldrslt ";
    CHECK(Read(deep).text.size() <= 1);
}

TEST_CASE("rtf fields: links that follow each other to one place are one") {
    const std::string link = "{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt a}}";
    CHECK(Read(link + link).links.size() == 1);
}

TEST_CASE("rtf fields: a field in a field") {
    const Document document =
        Read("{\\field{\\*\\fldinst HYPERLINK \"u\"}{\\fldrslt a{\\field{\\*\\fldinst PAGE}"
             "{\\fldrslt 7}}b}}c");
    CHECK(document.text == u"a7bc");
    CHECK(document_check::LinkAt(document, 1) == u"u");
    CHECK(document_check::LinkAt(document, 2) == u"u");
    CHECK(document_check::LinkAt(document, 3) == u"");
}

TEST_CASE("rtf notes: stand after the text, with their numbers") {
    struct {
        std::string body, text;
    } const cases[] = {
        {"a{\\super\\chftn{\\footnote\\pard\\plain{\\super\\chftn} one}}b\\par c\\par",
         "a1b\nc\n1 one\n"},
        {"a\\chftn{\\footnote\\chftn x\\par y}b\\chftn{\\footnote\\chftn z\\par}",
         "a1b2\n1x\ny\n2z\n"},
        {"a*{\\footnote * x}b", "a*b\n* x\n"},
        {"{\\trowd\\cellx9\\intbl a\\chftn{\\footnote\\chftn x}\\cell\\row}", "a1\a\n1x\n"},
        {"a{\\*\\footnote x}b", "ab\nx\n"},
        {"a{\\footnote", "a"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(Utf16ToUtf8(Read(c.body).text) == c.text);
    }
}

TEST_CASE("rtf notes: keep their styles and pictures") {
    const Document document =
        Read("\\qc a\\par{\\footnote\\pard\\qr\\b b{\\pict\\pngblip 41}\\par}");
    CHECK(document.text == u"a\nb\uFFFC\n");
    CHECK(document_check::CharStyleAt(document, 2).bold);
    CHECK_FALSE(document_check::CharStyleAt(document, 1).bold);
    CHECK(document_check::ParagraphStyleAt(document, 1).alignment == Alignment::Center);
    CHECK(document_check::ParagraphStyleAt(document, 4).alignment == Alignment::Right);
    REQUIRE(document.pictures.size() == 1);
    CHECK(document.pictures[0].position == 3);
}

TEST_CASE("rtf shapes: text boxes of old word processors are shown where they are anchored") {
    const std::string box =
        "{\\*\\do\\dobxpage\\dobypara\\dptxbx\\dptxlrtb{\\dptxbxtext\\pard in{\\b "
        "side}\\par two\\par}\\dpx10\\dpxsize20}";
    CHECK(Read("a" + box + "b\\par c").text == u"ainside\vtwo\vb\nc");
    CHECK(Read("{\\shp{\\*\\shpinst{\\shptxt new}}{\\shprslt" + box + "}}").text == u"new");
    CHECK(Read("a{\\*\\do\\dpline\\dpx1}b").text == u"ab");
    CHECK(
        Read("a{\\shp{\\*\\shpinst{\\sp{\\sn gtextUNICODE}{\\sv Title}}{\\sp{\\sn gtextFont}{\\sv "
             "F}}}}b")
            .text == u"aTitleb");
}

TEST_CASE("rtf fields: a picture in a file is named, and shown where the field has no result") {
    const Document document = Read("a{\\field{\\*\\fldinst INCLUDEPICTURE \\\\c png "
                                   "\"pictures\\\\\\\\map.png\" \\\\d}{\\fldrslt}}b");
    CHECK(document.text == u"a\uFFFCb");
    REQUIRE(document.pictures.size() == 1);
    CHECK(document.pictures[0].file == u"pictures\\map.png");
    CHECK(document.pictures[0].bytes.empty());

    const Document stored = Read("{\\field{\\*\\fldinst INCLUDEPICTURE \"map.png\"}"
                                 "{\\fldrslt{\\pict\\pngblip 41}}}");
    REQUIRE(stored.pictures.size() == 1);
    CHECK(stored.pictures[0].bytes == "A");
    CHECK(Read("{\\field{\\*\\fldinst INCLUDEPICTURE}{\\fldrslt}}").pictures.empty());
}

TEST_CASE("rtf pictures: in a file beside the book, with a character that stands for it") {
    const Document document =
        Read("a{{\\NeXTGraphic my pic.png \\width6400 \\height4800 \\noorient\n}\\'ac}b");
    CHECK(document.text == u"a\uFFFCb");
    REQUIRE(document.pictures.size() == 1);
    CHECK(document.pictures[0].file == u"my pic.png");
    CHECK(document.pictures[0].widthTwips == 6400);
    CHECK(document.pictures[0].heightTwips == 4800);
    CHECK(Read("a{\\v{\\NeXTGraphic b.png}\\'ac}c").text == u"ac");
    CHECK(Read("a{{\\NeXTGraphic}\\'ac}b").text == u"ab");
}

TEST_CASE("picture files: read once for each name, and by what they are") {
    Document document = Read("{\\field{\\*\\fldinst INCLUDEPICTURE a.gif}}"
                             "{\\field{\\*\\fldinst INCLUDEPICTURE a.gif}}"
                             "{\\field{\\*\\fldinst INCLUDEPICTURE b.png}}"
                             "{\\field{\\*\\fldinst INCLUDEPICTURE c.png}}");
    REQUIRE(document.pictures.size() == 4);
    int asked = 0;
    ReadPictureFiles(document, [&asked](const std::u16string& name) -> std::string {
        ++asked;
        if (name == u"a.gif") return "\xFF\xD8\xFF jpeg by another name";
        return name == u"b.png" ? "no picture" : "";
    });
    CHECK(asked == 3);
    CHECK(document.pictures[0].format == PictureFormat::Jpeg);
    CHECK(document.pictures[1].bytes == document.pictures[0].bytes);
    CHECK(document.pictures[2].bytes.empty());
    CHECK(document_check::FirstFault(document) == "");
}

TEST_CASE("rtf pictures: a bitmap without a file's header is shown") {
    // 2 x 1 pixels of 24 bits, the line padded to 8 bytes: red and blue.
    const std::string bitmap = "2800000002000000010000000100180000000000000000000000000000000000"
                               "00000000000000000000ffff00000000";
    const Document document = Read("{\\pict\\dibitmap0\\picw2\\pich1 " + bitmap + "}");
    REQUIRE(document.pictures.size() == 1);
    const Picture& picture = document.pictures[0];
    CHECK(picture.format == PictureFormat::Wmf);
    CHECK(picture.widthTwips == 30);
    CHECK(picture.heightTwips == 15);
    const Metafile metafile = ReadWmf(picture.bytes);
    REQUIRE(metafile.images.size() == 1);
    CHECK(metafile.images[0].width == 2);
    CHECK(metafile.images[0].height == 1);
    for (const char* const broken : {"", "28000000", "0000000001", "280000000200000000000000"})
        CHECK(Read(std::string("{\\pict\\dibitmap0 ") + broken + std::string(60, '0') + "}")
                  .pictures[0]
                  .format == PictureFormat::Other);
}
