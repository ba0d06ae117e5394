#include "common/utf.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_reader.h"
#include "tests/document_check.h"

#include <doctest/doctest.h>

namespace {

Document Read(const std::string& body) {
    std::string rtf = "{\\rtf1{\\colortbl;\\red255;}";
    rtf += body;
    rtf += '}';
    Document document = ReadRtf(rtf, 1252);
    CAPTURE(body);
    CHECK(document_check::FirstFault(document) == "");
    return document;
}

// The text with its cell ends as "|".
std::string TextOf(const Document& document) {
    std::string text = Utf16ToUtf8(document.text);
    std::replace(text.begin(), text.end(), '\a', '|');
    return text;
}

// "text" with its rows in brackets.
std::string Rows(const std::string& body) {
    const Document document = Read(body);
    std::string text = TextOf(document);
    for (auto row = document.rows.rbegin(); row != document.rows.rend(); ++row) {
        text.insert(static_cast<std::size_t>(row->end), 1, ']');
        text.insert(static_cast<std::size_t>(row->start), 1, '[');
    }
    return text;
}

const std::string twoCells = "\\trowd\\cellx1000\\cellx3000";

} // namespace

TEST_CASE("rtf tables: which text becomes rows and cells") {
    struct {
        std::string body, text;
    } const cases[] = {
        {"a\\par" + twoCells + "\\intbl b\\cell c\\cell\\row\\pard d\\par", "a\n[b|c|\n]d\n"},
        {twoCells + "\\intbl b\\par c\\cell\\cell\\row", "[b\nc||\n]"},
        {twoCells + "\\intbl b\\cell c\\cell\\row d\\cell e\\cell\\row", "[b|c|\n][d|e|\n]"},
        // The definition may follow the cells, too, as some word processors repeat it there.
        {"\\pard\\intbl b\\cell c\\cell{" + twoCells + "\\row}\\pard d", "[b|c|\n]d"},
        {twoCells + "b\\cell c\\cell\\row\\pard d\\par", "[b|c|\n]d\n"},
        {twoCells + "\\intbl b\\cell c\\row d", "[b|c|\n]d"},
        {twoCells + "\\intbl b\\row", "[b|\n]"},
        {twoCells + "\\row", ""},
        {twoCells + "\\intbl b\\cell c\\cell\\pard d\\par", "b\tc\nd\n"},
        {twoCells + "\\intbl b\\cell c\\cell\\pard d", "b\tc\nd"},
        {twoCells + "\\intbl b\\cell c\\cell", "b\tc\n"},
        {twoCells + "\\intbl b\\cell c", "b\nc"},
        {twoCells + "\\intbl b\\par\\pard c\\par d\\cell\\row", "b\nc\n[d|\n]"},
        {"\\cell\\row", "[|\n]"},
        {"\\row\\row a", "a"},
        {twoCells + "{\\v\\intbl b\\cell\\par c\\cell\\row}", "[||\n]"},
        {"\\trowd\\cellx1\\clmrg\\cellx2\\cellx3\\intbl a\\cell\\cell b\\cell\\row", "[a|b|\n]"},
        {"\\trowd\\cellx1\\clmrg\\cellx2\\intbl a\\cell b\\cell\\row", "[a\nb|\n]"},
        {"\\trowd\\cellx1\\intbl\\itap2 a\\nestcell b\\nestcell{\\*\\nesttableprops\\trowd"
         "\\cellx9\\nestrow}{\\nonesttables\\par}\\itap1 c\\cell\\row",
         "[a\tb\nc|\n]"},
        {"{\\footnote a\\cell b\\cell\\row c}", "a\tb\t\nc\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(Rows(c.body) == c.text);
    }
}

TEST_CASE("rtf tables: what the words say about a row") {
    const Document document =
        Read("\\trowd\\trgaph70\\trleft-100\\rtlrow\\clbrdrt\\brdrw10\\brdrs\\clbrdrl\\brdrnone"
             "\\clcbpat1\\cellx1000\\clbrdrr\\brdrdot\\clbrdrb\\brdrdb\\clvmrg\\cellx900"
             "\\intbl a\\cell b\\cell c\\cell\\row");
    REQUIRE(document.rows.size() == 1);
    const TableRow& row = document.rows[0];
    CHECK(row.leftEdge == -100);
    CHECK(row.cellGap == 70);
    CHECK(row.rightToLeft);
    REQUIRE(row.cells.size() == 3);
    const TableCell& first = row.cells[0];
    CHECK(first.rightEdge == 1100);
    CHECK(first.borderTop);
    CHECK_FALSE(first.borderLeft);
    CHECK_FALSE(first.borderRight);
    CHECK_FALSE(first.borderBottom);
    CHECK_FALSE(first.autoBackground);
    CHECK(first.background == 0xFF);
    CHECK_FALSE(first.mergedAbove);
    const TableCell& second = row.cells[1];
    CHECK(second.rightEdge == 1100); // says 1000, which is left of the first
    CHECK(second.borderRight);
    CHECK(second.borderBottom);
    CHECK_FALSE(second.borderTop);
    CHECK(second.mergedAbove);
    CHECK(second.autoBackground);
    CHECK(row.cells[2].rightEdge > second.rightEdge); // has no \cellx
}

TEST_CASE("rtf tables: borders of paragraphs are no borders of cells") {
    const Document document = Read("\\trowd\\cellx1\\cellx2\\clbrdrt\\brdrs\\cellx3"
                                   "\\pard\\intbl\\brdrb\\brdrs a\\cell b\\cell c\\cell\\row");
    REQUIRE(document.rows.size() == 1);
    CHECK_FALSE(document.rows[0].cells[0].borderTop);
    CHECK_FALSE(document.rows[0].cells[1].borderTop);
    CHECK(document.rows[0].cells[2].borderTop);
    CHECK_FALSE(document.rows[0].cells[2].borderBottom);
}

// The borders of each cell, row by row.
std::string Borders(const std::string& body) {
    std::string text;
    for (const TableRow& row : Read(body).rows) {
        for (const TableCell& cell : row.cells) {
            if (cell.borderLeft) text += 'L';
            if (cell.borderTop) text += 'T';
            if (cell.borderRight) text += 'R';
            if (cell.borderBottom) text += 'B';
            text += '|';
        }
        text += '\n';
    }
    return text;
}

TEST_CASE("rtf tables: a row's borders hold for its cells that say nothing") {
    const std::string row = "\\cellx1\\cellx2\\pard\\intbl a\\cell b\\cell\\row";
    const std::string box =
        "\\trowd\\trbrdrt\\brdrs\\trbrdrl\\brdrs\\trbrdrb\\brdrs\\trbrdrr\\brdrs";
    struct {
        std::string body, borders;
    } const cases[] = {
        {box + row, "LTRB|LTRB|\n"}, // inner ones unspecified
        {box + "\\trbrdrv\\brdrnone" + row, "LTB|TRB|\n"},
        {box + "\\trbrdrv\\brdrs" + row, "LTRB|LTRB|\n"},
        {box + "\\trbrdrv\\brdrnone\\trbrdrh\\brdrnone" + row + row + row,
         "LT|TR|\nL|R|\nLB|RB|\n"},
        {"\\trowd\\trbrdrh\\brdrs" + row + row, "B|B|\nT|T|\n"},
        {"\\trowd\\trbrdrh\\brdrs" + row + "\\pard x\\par" + row, "||\n||\n"},
        {box + "\\clbrdrt\\brdrnone\\clbrdrb\\brdrtbl" + row + row, "LR|LTRB|\nLR|LTRB|\n"},
        {"\\trowd\\trbrdrv\\brdrs\\clmgf\\cellx1\\clmrg\\cellx2\\cellx3\\intbl a\\cell\\cell "
         "b\\cell\\row",
         "R|L|\n"},
        {box + "\\trowd" + row, "||\n"},
    };
    for (const auto& c : cases) {
        CAPTURE(c.body);
        CHECK(Borders(c.body) == c.borders);
    }
}

TEST_CASE("rtf tables: merged cells are one as wide as all of them") {
    const Document document =
        Read("\\trowd\\clmgf\\cellx1000\\clmrg\\cellx2000\\clmrg\\clbrdrr"
             "\\brdrs\\cellx3000\\cellx4000\\intbl a\\cell\\cell\\cell b\\cell"
             "\\row");
    REQUIRE(document.rows.size() == 1);
    REQUIRE(document.rows[0].cells.size() == 2);
    CHECK(document.rows[0].cells[0].columnSpan == 3);
    CHECK(document.rows[0].cells[0].rightEdge == 3000);
    CHECK(document.rows[0].cells[0].borderRight);
    CHECK(document.rows[0].cells[1].columnSpan == 1);
    CHECK(document.rows[0].cells[1].rightEdge == 4000);
}

TEST_CASE("rtf tables: a row beyond the limit is text with tabs") {
    std::string body = "\\intbl";
    for (std::size_t i = 0; i < maxRtfRows; ++i)
        body += "\\cell\\row";
    const Document document = Read(body + " a\\cell b\\cell\\row c");
    CHECK(document.rows.size() == maxRtfRows);
    CHECK(TextOf(document).ends_with("|\na\tb\nc"));
}

TEST_CASE("rtf tables: each cell's paragraphs have their own style") {
    const Document document =
        Read(twoCells + "\\pard\\intbl\\qc a\\cell\\pard\\intbl\\qr b\\cell\\row\\pard c\\par");
    CHECK(document_check::ParagraphStyleAt(document, 1).alignment == Alignment::Center);
    CHECK(document_check::ParagraphStyleAt(document, 3).alignment == Alignment::Right);
    CHECK(document_check::ParagraphStyleAt(document, 6).alignment == Alignment::Left);
}

TEST_CASE(
    "rtf tables: more cells than a row can have join the last one, which spans no more columns") {
    std::string definition = "\\trowd", cells;
    for (std::size_t i = 0; i < maxRtfRowCells; ++i)
        definition += "\\cellx" + std::to_string(10 * (i + 1));
    for (std::size_t i = 0; i < maxRtfRowCells + 3; ++i)
        cells += "\\intbl x\\cell";
    const Document undefined = Read(cells + "\\row"); // with no definition at all
    REQUIRE(undefined.rows.size() == 1);
    CHECK(undefined.rows.front().cells.size() == maxRtfRowCells);
    CHECK(TextOf(undefined).ends_with("|x\nx\nx\nx|\n"));
    const Document document = Read(definition + cells + "\\row");
    REQUIRE(document.rows.size() == 1);
    const TableRow& row = document.rows.front();
    REQUIRE(row.cells.size() == maxRtfRowCells);
    CHECK(row.cells.back().columnSpan == 1);
    CHECK(row.cells.back().rightEdge == static_cast<std::int32_t>(10 * maxRtfRowCells));
    CHECK(row.cells.back().end - row.cells.back().start == 8); // "x\nx\nx\nx\a"
}

TEST_CASE("rtf reader: the vertical alignment of a cell") {
    const Document document = Read("\\trowd\\clvertalc\\cellx900\\clvertalb\\cellx1800\\clvertalt"
                                   "\\cellx2700\\cellx3600\\intbl a\\cell b\\cell c\\cell d\\cell"
                                   "\\row");
    REQUIRE(document.rows.size() == 1);
    const auto& cells = document.rows[0].cells;
    REQUIRE(cells.size() == 4);
    CHECK(cells[0].verticalAlignment == VerticalAlignment::Center);
    CHECK(cells[1].verticalAlignment == VerticalAlignment::Bottom);
    CHECK(cells[2].verticalAlignment == VerticalAlignment::Top);
    CHECK(cells[3].verticalAlignment == VerticalAlignment::Top);
}
