#include "formats/rtf/rtf_reader.h"
#include "formats/rtf/rtf_writer.h"
#include "tests/document_check.h"
#include "tests/unit/golden.h"
#include "tests/unit/test_folders.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <random>

namespace {

using document_check::FirstDifference;
using document_check::FirstFault;

// A document of random styles, rows, pictures and links, the same for the same seed.
class DocumentMaker {
  public:
    explicit DocumentMaker(unsigned seed) : random_(seed) {
        made_.fonts = {u"Default", u"Шрифт", u"A {b} \\c", u""};
        made_.links = {u"http://example.org/?a=\"b\"", u"#place", u"C:\\книги"};
        made_.defaultTab = Below(2000) + 1;
    }

    Document Make() {
        const int blocks = Below(12);
        for (int i = 0; i < blocks; ++i) {
            if (Below(3) == 0)
                AddRow();
            else
                AddParagraph(u'\n');
        }
        if (Below(2) == 0) {
            AddRun();
            EndStyle();
        }
        return made_;
    }

  private:
    int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool Maybe() { return Below(3) == 0; }
    TextPos Size() const { return static_cast<TextPos>(made_.text.size()); }

    template <typename Style>
    static void StartStyle(std::vector<StyleRun>& runs, std::vector<Style>& styles, TextPos start,
                           const Style& style) {
        if (styles[runs.back().style] == style) return;
        styles.push_back(style);
        const auto index = static_cast<std::uint32_t>(styles.size() - 1);
        if (runs.back().start == start)
            runs.back().style = index;
        else
            runs.push_back({start, index});
    }

    void AddRun() {
        CharStyle style;
        style.font = static_cast<std::uint16_t>(Below(4));
        style.halfPoints = static_cast<std::uint16_t>(Below(100) + 1);
        style.bold = Maybe();
        style.italic = Maybe();
        style.underline = Maybe();
        style.strikethrough = Maybe();
        style.rightToLeft = Maybe();
        style.script = static_cast<Script>(Below(3));
        style.capitals = static_cast<Capitals>(Below(3));
        style.link = static_cast<std::uint16_t>(Maybe() ? Below(4) : 0);
        style.autoForeground = !Maybe();
        if (!style.autoForeground) style.foreground = random_() & 0xFFFFFF;
        style.autoBackground = !Maybe();
        if (!style.autoBackground) style.background = random_() & 0xFFFFFF;
        StartStyle(made_.charRuns, made_.charStyles, Size(), style);
        AddText();
    }

    void AddText() {
        static constexpr std::u16string_view pieces[] = {
            u"word ",   u"  ",
            u"{\\}",    u"\t",
            u"\v",      u"\u00A0\u00AD\u2011",
            u"пись?мо", u"😀",
            u"\\'41",   u"\uFFFD\u0080ÿ",
            u"-1 ",     u"0;",
            u"\u2003",
        };
        for (int i = Below(4); i >= 0; --i)
            made_.text += pieces[static_cast<std::size_t>(Below(13))];
        if (Maybe()) AddPicture();
    }

    void AddPicture() {
        Picture& picture = made_.pictures.emplace_back();
        picture.position = Size();
        picture.format = static_cast<PictureFormat>(Below(5));
        picture.widthTwips = Below(3000);
        picture.heightTwips = Below(3000);
        if (picture.format != PictureFormat::Other)
            for (int i = Below(200); i >= 0; --i)
                picture.bytes += static_cast<char>(Below(256));
        made_.text += u'\uFFFC';
    }

    ParagraphBorder MakeBorder() {
        ParagraphBorder border;
        border.width = static_cast<std::uint16_t>(Below(255) + 1);
        border.space = static_cast<std::uint16_t>(Below(600));
        border.autoColor = !Maybe();
        if (!border.autoColor) border.color = random_() & 0xFFFFFF;
        return border;
    }

    void EndStyle() {
        ParagraphStyle style;
        style.alignment = static_cast<Alignment>(Below(4));
        style.rightToLeft = Maybe();
        style.leftIndent = Below(3000) - 1000;
        style.rightIndent = Below(3000) - 1000;
        style.firstLineIndent = Below(3000) - 1000;
        style.spaceBefore = Below(1000);
        style.spaceAfter = Below(1000);
        style.lineSpacing = Maybe() ? Below(1000) - 500 : 0;
        style.lineSpacingIsMultiple = Maybe();
        for (int i = Below(4), stop = 0; i > 0; --i)
            style.tabStops.push_back({stop += Below(900) + 1, static_cast<TabAlignment>(Below(4)),
                                      static_cast<TabLeader>(Below(6))});
        ParagraphBorders& borders = style.borders;
        for (ParagraphBorder* border :
             {&borders.left, &borders.top, &borders.right, &borders.bottom, &borders.between})
            if (Maybe()) *border = MakeBorder();
        style.autoBackground = !Maybe();
        if (!style.autoBackground) style.background = random_() & 0xFFFFFF;
        StartStyle(made_.paragraphRuns, made_.paragraphStyles, paragraphStart_, style);
    }

    void AddParagraph(char16_t terminator) {
        for (int i = Below(4); i > 0; --i)
            AddRun();
        made_.text += terminator;
        EndStyle();
        paragraphStart_ = Size();
    }

    void AddRow() {
        TableRow row;
        row.start = Size();
        row.leftEdge = Below(500) - 200;
        row.cellGap = Below(200);
        row.rightToLeft = Maybe();
        std::int32_t right = 0;
        for (int i = Below(5); i >= 0; --i) {
            TableCell cell;
            cell.start = Size();
            for (int paragraphs = Below(3); paragraphs > 0; --paragraphs)
                AddParagraph(u'\n');
            AddParagraph(u'\a');
            cell.end = Size();
            cell.rightEdge = right += Below(3000);
            cell.columnSpan = static_cast<std::uint16_t>(Maybe() ? Below(4) + 1 : 1);
            cell.mergedAbove = Maybe();
            cell.verticalAlignment = static_cast<VerticalAlignment>(Below(3));
            cell.borderLeft = Maybe();
            cell.borderTop = Maybe();
            cell.borderRight = Maybe();
            cell.borderBottom = Maybe();
            cell.autoBackground = !Maybe();
            if (!cell.autoBackground) cell.background = random_() & 0xFFFFFF;
            row.cells.push_back(cell);
        }
        AddRun();
        made_.text.resize(static_cast<std::size_t>(row.cells.back().end));
        while (!made_.pictures.empty() && made_.pictures.back().position >= Size())
            made_.pictures.pop_back();
        made_.text += u'\n';
        EndStyle();
        paragraphStart_ = row.end = Size();
        made_.rows.push_back(row);
    }

    std::minstd_rand random_;
    Document made_;
    TextPos paragraphStart_ = 0;
};

Document ReadAgain(const Document& document, TextPos start = 0, TextPos length = -1) {
    const std::string rtf = WriteRtf(document, start, length);
    CHECK(std::all_of(rtf.begin(), rtf.end(),
                      [](char c) { return c == '\n' || (c >= 32 && c < 127); }));
    Document again = ReadRtf(rtf, 1251);
    CHECK(FirstFault(again) == "");
    return again;
}

Document Read(const std::string& body) {
    return ReadRtf("{\\rtf1 " + body + "}", 1252);
}

} // namespace

TEST_CASE("rtf writer: generated documents read as they were") {
    for (unsigned seed = 1; seed <= 3000; ++seed) {
        const Document document = DocumentMaker(seed).Make();
        CAPTURE(seed);
        REQUIRE(FirstFault(document) == "");
        REQUIRE(FirstDifference(document, ReadAgain(document)) == "");
    }
}

TEST_CASE("rtf writer: real files read as they were") {
    const std::filesystem::path folder = RealBooks() / "rtf";
    if (!std::filesystem::exists(folder)) {
        MESSAGE("skipped: no real books here");
        return;
    }
    std::size_t count = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() != ".rtf") continue;
        CAPTURE(entry.path().string());
        const Document document = ReadRtf(ReadWholeFile(entry.path().string()), 1252);
        CHECK(FirstFault(document) == "");
        CHECK(FirstDifference(document, ReadAgain(document)) == "");
        ++count;
    }
    CHECK(count > 20);
}

TEST_CASE("rtf writer: a stretch of a text") {
    const Document document = Read("one\\par\\qc\\b two\\b0 three\\par four");
    CHECK(ReadAgain(document, 0, 0).text == u"");
    CHECK(ReadAgain(document, 0, 4).text == u"one\n");
    CHECK(ReadAgain(document, 1, 5).text == u"ne\ntw");
    CHECK(ReadAgain(document, 8, 100).text == u"hree\nfour");
    CHECK(ReadAgain(document, -5, 2).text == u"on");
    CHECK(ReadAgain(document, 100, 2).text == u"");
    CHECK(ReadAgain(document, 13).text == u"four");
    // A part of a paragraph has its style.
    const Document part = ReadAgain(document, 5, 3);
    CHECK(part.text == u"wot");
    CHECK(document_check::ParagraphStyleAt(part, 0).alignment == Alignment::Center);
    CHECK(document_check::CharStyleAt(part, 0).bold);
    CHECK_FALSE(document_check::CharStyleAt(part, 2).bold);
}

TEST_CASE("rtf writer: a picture at the border of a stretch, where a style begins") {
    const Document document = Read("a{\\b{\\pict\\pngblip\\picwgoal100 89504e470d0a1a0a}b}");
    REQUIRE(document.text == u"a\uFFFCb");
    REQUIRE(document.pictures.size() == 1);
    CHECK(FirstDifference(document, ReadAgain(document)) == "");
    const Document before = ReadAgain(document, 0, 1), at = ReadAgain(document, 1, 1),
                   after = ReadAgain(document, 2, 1);
    CHECK(before.text == u"a");
    CHECK(before.pictures.empty());
    CHECK(at.text == u"\uFFFC");
    CHECK(at.pictures.size() == 1);
    CHECK(after.text == u"b");
    CHECK(after.pictures.empty());
}

TEST_CASE("rtf writer: whole rows are a table, parts of rows are paragraphs") {
    const std::string row = "\\trowd\\cellx100\\cellx200\\intbl a\\par b\\cell c\\cell\\row";
    const Document document = Read(row + row + "\\pard d\\par");
    REQUIRE(document.text == u"a\nb\ac\a\na\nb\ac\a\nd\n");
    struct {
        TextPos start, length;
        std::u16string text;
        std::size_t rows;
    } const cases[] = {
        {0, 7, u"a\nb\ac\a\n", 1},
        {0, -1, document.text, 2},
        {0, 6, u"a\nb\nc\n", 0},
        {2, 5, u"b\nc\n", 0},
        {2, 12, u"b\nc\na\nb\ac\a\n", 1},
        {0, 9, u"a\nb\ac\a\na\n", 1},
        {6, 8, u"a\nb\ac\a\n", 1},
        {5, 2, u"\n", 0},
        {14, 2, u"d\n", 0},
    };
    for (const auto& c : cases) {
        CAPTURE(c.start);
        CAPTURE(c.length);
        const Document part = ReadAgain(document, c.start, c.length);
        CHECK(part.text == c.text);
        CHECK(part.rows.size() == c.rows);
    }
}

TEST_CASE("rtf writer: the end of a row is no paragraph, wherever the row stands") {
    const Document document = Read("\\trowd\\cellx100\\intbl\\cell\\row\\pard d");
    REQUIRE(document.text == u"\a\nd");
    CHECK(ReadAgain(document, 1, 2).text == u"d");
}

TEST_CASE("rtf writer: names only the fonts and colours of the stretch") {
    const Document document = ReadRtf("{\\rtf1\\deff0{\\fonttbl{\\f0 Zero;}{\\f1 One;}{\\f2 Two;}}"
                                      "{\\colortbl;\\red1;\\red2;}{\\f1\\cf1 a}{\\f2\\cf2 b}}",
                                      1252);
    const std::string rtf = WriteRtf(document, 1, 1);
    CHECK(rtf.find("Zero") != rtf.npos);
    CHECK(rtf.find("Two") != rtf.npos);
    CHECK(rtf.find("One") == rtf.npos);
    CHECK(rtf.find("\\red2") != rtf.npos);
    CHECK(rtf.find("\\red1") == rtf.npos);
}

TEST_CASE("rtf writer: signs of symbol fonts come back in the same fonts") {
    const Document document =
        ReadRtf("{\\rtf1{\\fonttbl{\\f0 A;}{\\f1\\fcharset2 Symbol;}{\\f2\\fcharset2 Wingdings;}}"
                "a{\\f1 b\\'b7\\'ff}{\\f2 CP\\'ff}c}",
                1252);
    const Document again = ReadAgain(document, 0, -1);
    CHECK(again.text == u"a\u03B2\u2022\uF0FF\U0001F44D\U0001F3F1\uF0FFc");
    CHECK(again.text == document.text);
    for (TextPos i = 0; i < TextPos(document.text.size()); ++i)
        CHECK(again.fonts[document_check::CharStyleAt(again, i).font] ==
              document.fonts[document_check::CharStyleAt(document, i).font]);
}

TEST_CASE("rtf writer: what is set for the whole text is written over what the document says") {
    const Document document =
        ReadRtf("{\\rtf1\\deff0{\\fonttbl{\\f0 ;}{\\f1 One;}}{\\colortbl;\\red9;}"
                "\\f1\\fs40\\b\\qr a\\f0\\cf1\\chcbpat1 b\\i c}",
                1252);
    const auto again = [&](const StyleOverrides& overrides) {
        return ReadRtf(WriteRtf(document, 0, -1, overrides), 1252);
    };
    const auto style = [](const Document& read, TextPos at) {
        return document_check::CharStyleAt(read, at);
    };

    StyleOverrides overrides;
    overrides.fontName = u"Mine";
    Document read = again(overrides); // only where the document names no font
    CHECK(read.fonts[style(read, 0).font] == u"One");
    CHECK(read.fonts[style(read, 1).font] == u"Mine");
    CHECK(style(read, 0).halfPoints == 40);

    CharStyle font;
    font.halfPoints = 31;
    font.italic = true;
    overrides.font = font;
    overrides.textColor = 0x123456;
    overrides.alignment = Alignment::Center;
    read = again(overrides);
    for (const TextPos at : {0, 1, 2}) {
        CHECK(read.fonts[style(read, at).font] == u"Mine");
        CHECK(style(read, at).halfPoints == 31);
        CHECK(style(read, at).italic);
        CHECK_FALSE(style(read, at).bold);
        CHECK(style(read, at).foreground == 0x123456);
        CHECK(style(read, at).autoBackground == (at == 0)); // its own stays
    }
    CHECK(read.paragraphStyles[read.paragraphRuns.back().style].alignment == Alignment::Center);
    CHECK(WriteRtf(document, 0, -1, {}) == WriteRtf(document));
}
