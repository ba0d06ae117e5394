#include "formats/document_headings.h"

#include "common/utf.h"
#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"

#include <doctest/doctest.h>

namespace {
using Found = std::vector<std::pair<int, std::string>>; // level and text

std::string Rtf(const std::string& body, const std::string& styles = "") {
    return "{\\rtf1\\ansi{\\fonttbl{\\f0 Serif;}}" + styles + body + "}";
}

Found HeadingsIn(const std::string& rtf) {
    Found found;
    for (const Heading& heading : HeadingsOf(ReadRtf(rtf, 1252)))
        found.emplace_back(heading.level, Utf16ToUtf8(heading.text));
    return found;
}

const char* const styles = "{\\stylesheet{\\s0 Normal;}{\\s1\\outlinelevel0\\b\\fs32 Caput;}"
                           "{\\s2\\b heading 2;}{\\*\\cs10 heading 3;}{\\s7 {Heading} 4;}{\\s9 "
                           "Headings of hell;}}";
} // namespace

TEST_CASE("document headings: rich text says them by outline level") {
    CHECK(HeadingsIn(Rtf("\\pard\\outlinelevel0 One\\par\\pard Text\\par"
                         "\\pard\\outlinelevel2 Two\\par\\pard\\outlinelevel9 No\\par")) ==
          Found{{1, "One"}, {3, "Two"}});
}

TEST_CASE("document headings: or by a style that has one, or is called a heading") {
    CHECK(
        HeadingsIn(Rtf("\\pard\\s1 One\\par\\pard\\s2 Two\\par\\pard Text\\par\\pard\\s7 Four\\par"
                       "\\pard\\s9 None\\par\\pard\\s0 None\\par\\pard\\s10 None\\par",
                       styles)) == Found{{1, "One"}, {2, "Two"}, {4, "Four"}});
}

TEST_CASE("document headings: nothing of the style sheet is text") {
    const Document document = ReadRtf(Rtf("\\pard Text\\par", styles), 1252);
    CHECK(document.text == u"Text\n");
}

TEST_CASE("document headings: places, cells and empty paragraphs") {
    const Document document =
        ReadRtf(Rtf("\\pard Before\\par\\pard\\outlinelevel0\\par One\\par Again\\line more\\par"
                    "\\trowd\\cellx3000\\cellx6000\\pard\\intbl\\outlinelevel1 Left\\cell "
                    "\\pard\\intbl Right\\cell\\row"),
                1252);
    const std::vector<Heading> found = HeadingsOf(document);
    REQUIRE(found.size() == 3);
    CHECK(found[0] == Heading{8, 1, u"One"});
    CHECK(found[1].text == u"Again more");
    CHECK(found[2].text == u"Left");
}

TEST_CASE("document headings: without any, its words decide") {
    CHECK(
        HeadingsIn(Rtf("\\pard Text\\par CHAPTER I\\par Text\\par XII. The End\\par More\\par")) ==
        Found{{2, "CHAPTER I"}, {2, "XII. The End"}});
}

TEST_CASE("document headings: a copy keeps them") {
    const Document document = ReadRtf(Rtf("\\pard\\outlinelevel1 One\\par\\pard Text\\par"), 1252);
    CHECK(HeadingsOf(ReadRtf(WriteRtf(document, 0, -1, {}), 1252)) == HeadingsOf(document));
}
