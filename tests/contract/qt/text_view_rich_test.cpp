// Rich text, tables and pictures in the text view.
#include "tests/contract/qt/text_view_bench.h"

#include "formats/document.h"
#include "view/text_styles.h"

#include <doctest/doctest.h>

#include <QBuffer>
#include <QImage>

#include <limits>
#include <string>

namespace {
// A table of two columns: the first cell of a row has one paragraph, the second two.
Document TableDocument(int rows, std::u16string_view before = u"Above.\n") {
    Document document;
    document.text = before;
    for (int i = 0; i < rows; ++i) {
        TableRow row;
        row.start = TextPos(document.text.size());
        row.cellGap = 108;
        const std::u16string_view texts[] = {u"left\a", u"right\nsecond\a"};
        for (const auto text : texts) {
            TableCell cell;
            cell.start = TextPos(document.text.size());
            document.text += text;
            cell.end = TextPos(document.text.size());
            cell.rightEdge = 2000 * (1 + TextPos(row.cells.size()));
            cell.borderTop = cell.borderBottom = cell.borderLeft = cell.borderRight = true;
            row.cells.push_back(cell);
        }
        document.text += u'\n';
        row.end = TextPos(document.text.size());
        document.rows.push_back(row);
    }
    document.text += u"Below.";
    return document;
}

std::string Png(int width, int height, QColor color, QImage::Format format = QImage::Format_RGB32) {
    QImage image(width, height, format);
    image.fill(color);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes.toStdString();
}

Document PictureDocument(Picture picture) {
    Document document;
    document.text = u"a\uFFFCb";
    picture.position = 1;
    document.pictures.push_back(std::move(picture));
    return document;
}

QRect CaretAt(QtViewBench& bench, TextPos position) {
    bench.view.Select(position, 0);
    return bench.Widget().CaretRect();
}

int CountPixels(QtViewBench& bench, QColor color) {
    const QImage image = bench.Widget().viewport()->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == color;
    return count;
}

Document TwoStyles() {
    Document document;
    document.text = u"plain coloured";
    CharStyle coloured;
    coloured.foreground = 0x0000FF; // red
    coloured.autoForeground = false;
    coloured.halfPoints = 80;
    coloured.background = 0x00FFFF; // yellow
    coloured.autoBackground = false;
    document.charStyles.push_back(coloured);
    document.charRuns.push_back({6, 1});
    return document;
}
} // namespace

TEST_CASE("qt text view: the cells of a row stand side by side") {
    QtViewBench bench;
    bench.view.LoadDocument(TableDocument(1));
    const QRect left = CaretAt(bench, 7), right = CaretAt(bench, 12), second = CaretAt(bench, 18);
    CHECK(left.y() == right.y());
    CHECK(left.x() < right.x());
    CHECK(second.x() == right.x());
    CHECK(second.y() > right.y());
    CHECK(CaretAt(bench, bench.view.TextLength()).y() > second.y());
    CHECK(bench.view.LineAround(8).start == 7);
    CHECK(bench.view.LineAround(8).length == 4);
    CHECK(bench.view.LineAround(13).length == 5);
}

TEST_CASE("qt text view: a row wider than the view is made narrower as a whole") {
    Document wide = TableDocument(1);
    wide.rows[0].cells[0].rightEdge = 20'000;
    wide.rows[0].cells[1].rightEdge = 40'000;
    QtViewBench bench(300);
    bench.view.LoadDocument(wide);
    const QRect right = CaretAt(bench, 12);
    CHECK(right.x() > 100);
    CHECK(right.x() < 200);
}

TEST_CASE("qt text view: a right-to-left row begins at the right") {
    Document document = TableDocument(1);
    document.rows[0].rightToLeft = true;
    QtViewBench bench;
    bench.view.LoadDocument(document);
    CHECK(CaretAt(bench, 7).x() > CaretAt(bench, 12).x());
    CHECK(CaretAt(bench, 7).x() < 500);
}

TEST_CASE("qt text view: clicks and keys stay within their cell") {
    QtViewBench bench;
    bench.view.LoadDocument(TableDocument(2));
    const QRect below = CaretAt(bench, 7).translated(0, CaretAt(bench, 7).height());
    CHECK(bench.Widget().Pane().PositionAtPoint(ToPoint(below.center())) ==
          7); // beside the second paragraph
    struct {
        TextPos from;
        int key;
        TextPos to;
    } const cases[] = {
        {12, Qt::Key_Down, 18},  {18, Qt::Key_Up, 12},   {18, Qt::Key_Down, 31},
        {7, Qt::Key_Down, 26},   {26, Qt::Key_Up, 7},    {7, Qt::Key_Up, 1},
        {11, Qt::Key_Right, 12}, {12, Qt::Key_Left, 11}, {24, Qt::Key_Right, 26},
        {26, Qt::Key_Left, 24},
    };
    for (const auto& c : cases) {
        INFO("from ", c.from, " by key ", c.key);
        bench.view.Select(c.from, 0);
        bench.Press(c.key);
        CHECK(bench.view.SelStart() == c.to);
    }
}

TEST_CASE("qt text view: a long table scrolls by its lines") {
    QtViewBench bench(500, 200);
    bench.view.LoadDocument(TableDocument(500));
    for (TextPos position = 0; position < bench.view.TextLength(); position += 37) {
        bench.view.ScrollLineToTop(position);
        const TextPos top = bench.view.FirstVisibleChar();
        CHECK(top == bench.view.LineAround(position).start);
        bench.view.ScrollLineToTop(top);
        CHECK(bench.view.FirstVisibleChar() == top);
    }
    bench.view.ScrollLineToTop(0);
    TextPos last = -1;
    for (int i = 0; i < 1500 && bench.view.FirstVisibleChar() != last; ++i) {
        last = bench.view.FirstVisibleChar();
        bench.Widget().Pane().Scroller().ScrollPage(true, 17);
    }
    bench.Widget().grab();
    CHECK_FALSE(CaretAt(bench, bench.view.TextLength()).isNull());
}

TEST_CASE("qt text view: a row too long to stand side by side is shown as paragraphs") {
    Document document = TableDocument(1);
    const std::u16string filler = RepeatedText(u"filler ", 10'000);
    document.text.insert(8, filler);
    const TextPos more = TextPos(filler.size());
    document.rows[0].end += more;
    document.rows[0].cells[0].end += more;
    document.rows[0].cells[1].start += more;
    document.rows[0].cells[1].end += more;
    QtViewBench bench;
    bench.view.LoadDocument(document);
    for (const TextPos position : {7, 30'000, 60'000, bench.view.TextLength() - 10}) {
        bench.view.ScrollLineToTop(position);
        CHECK(bench.view.FirstVisibleChar() == bench.view.LineAround(position).start);
    }
    CHECK(bench.view.LayoutsMade() < 40);
}

TEST_CASE("qt text view: the text of a merged cell is not shown") {
    Document document = TableDocument(2);
    document.rows[1].cells[0].mergedAbove = true;
    QtViewBench bench;
    bench.view.LoadDocument(document);
    CHECK(bench.view.LineAround(28).length == 0);
    CHECK(bench.view.TextRange(26, 4) == u"left");
}

TEST_CASE("qt text view: a picture has the size that its file specifies") {
    Picture picture{0, PictureFormat::Png, 1440, 720, Png(40, 20, Qt::magenta), {}};
    QtViewBench bench;
    bench.view.LoadDocument(PictureDocument(picture));
    const int width = CaretAt(bench, 2).x() - CaretAt(bench, 1).x();
    const int inch = bench.Widget().logicalDpiX();
    CHECK(std::abs(width - inch) <= 1);
    CHECK(CountPixels(bench, Qt::magenta) == inch * (inch / 2));
    CHECK(bench.Widget().Pane().PositionAtPoint(
              ToPoint(CaretAt(bench, 1).center() + QPoint(10, 0))) == 1);
    CHECK(bench.Widget().Pane().PositionAtPoint(
              ToPoint(CaretAt(bench, 2).center() - QPoint(10, 0))) == 2);
}

TEST_CASE("qt text view: pictures of no given size, too wide, broken or huge") {
    const std::string png = Png(40, 20, Qt::magenta);
    const std::string bomb = Png(9000, 8000, Qt::magenta, QImage::Format_Mono); // 72 megapixels
    struct {
        const char* what;
        Picture picture;
        int width;
        bool visible;
    } const cases[] = {
        {"no size", {0, PictureFormat::Png, 0, 0, png, {}}, 40, true},
        {"too wide", {0, PictureFormat::Png, 30'000, 300, png, {}}, 286, true},
        {"other", {0, PictureFormat::Other, 720, 720, "", {}}, 48, false},
        {"broken", {0, PictureFormat::Png, 720, 720, "no picture", {}}, 48, false},
        {"wrong kind", {0, PictureFormat::Jpeg, 720, 720, png, {}}, 48, false},
        {"cut", {0, PictureFormat::Png, 720, 720, png.substr(0, 50), {}}, 48, false},
        {"huge", {0, PictureFormat::Png, 720, 720, bomb, {}}, 48, false},
        {"huge, no size", {0, PictureFormat::Png, 0, 0, bomb, {}}, 32, false},
    };
    for (const auto& c : cases) {
        CAPTURE(c.what);
        QtViewBench bench(300, 400);
        bench.view.SetBounds({0, 0, 600 - bench.Widget().maximumViewportSize().width(), 400});
        bench.view.LoadDocument(PictureDocument(c.picture)); // in a view 300 pixels wide
        CHECK(bench.Widget().Pane().Layouts().At(0)->paragraphs[0].pictures[0].size.width ==
              c.width);
        CHECK((CountPixels(bench, Qt::magenta) > 0) == c.visible);
    }
}

TEST_CASE("qt text view: the file's colours, or one for all") {
    QtViewBench bench(500, 100);
    bench.view.LoadDocument(TwoStyles());
    bench.view.SetTextColor(0xFF0000); // blue
    CHECK(CountPixels(bench, Qt::red) == 0);
    CHECK(CountPixels(bench, Qt::blue) > 10);
    CHECK(CountPixels(bench, Qt::yellow) > 0);
    bench.view.SetAutoColor(true);
    CHECK(CountPixels(bench, Qt::red) > 10);
    CHECK(CountPixels(bench, Qt::blue) == 0);
}

TEST_CASE("qt text view: the font for all holds over the file's until the next load") {
    QtViewBench bench;
    const ViewFont small{u"", 8};
    bench.view.SetFont(small);
    bench.view.LoadDocument(TwoStyles());
    const int own = CaretAt(bench, 8).height();
    bench.view.ApplyFontToAll();
    const int all = CaretAt(bench, 8).height();
    CHECK(all < own);
    bench.view.SetFont({u"", 30});
    CHECK(CaretAt(bench, 8).height() > all);
    bench.view.SetFont(small);
    bench.view.LoadDocument(TwoStyles());
    CHECK(CaretAt(bench, 8).height() == own);
}

TEST_CASE("qt text view: of a file with thousands of fonts a bounded number is looked for") {
    Document document;
    document.fonts = {u"Serif"};
    document.charStyles.clear();
    for (std::uint16_t i = 1; i <= 3000; ++i) {
        document.fonts.push_back(u"Font" + QString::number(i).toStdU16String());
        document.charStyles.emplace_back().font = i;
    }
    const ViewStyle style;
    const SystemStyle system;
    QtLineLayout layout;
    TextStyles styles(document, style, system, layout);
    QStringList families;
    for (std::uint32_t i = 0; i < 3000; ++i) {
        document.charRuns = {{0, i}};
        families += QString::fromStdU16String(styles.At(0).style.font.family);
    }
    CHECK(families.front() == "Font1");
    CHECK(families.back() == "Serif");
    families.removeDuplicates();
    CHECK(families.size() <= 250);
}

TEST_CASE("qt text view: the alignment set holds until the next load") {
    Document document;
    document.text = u"text";
    document.paragraphStyles[0].alignment = Alignment::Right;
    QtViewBench bench;
    bench.view.LoadDocument(document);
    const int right = CaretAt(bench, 0).x();
    bench.view.SetAlignment(Alignment::Left);
    const int left = CaretAt(bench, 0).x();
    bench.view.SetAlignment(Alignment::Center);
    CHECK(std::abs(CaretAt(bench, 0).x() - (left + right) / 2) <= 1);
    bench.view.LoadDocument(document);
    CHECK(CaretAt(bench, 0).x() == right);
    CHECK(left < right);
}

TEST_CASE("qt text view: right-to-left paragraphs begin at the right, unless an alignment is set") {
    QtViewBench bench;
    bench.view.LoadPlainText(u"\u05D0\u05D1\nab");
    CHECK(CaretAt(bench, 0).x() > 400);
    CHECK(CaretAt(bench, 3).x() < 20);
    bench.view.SetAlignment(Alignment::Left);
    CHECK(CaretAt(bench, 2).x() < 20);
    CHECK(CaretAt(bench, 0).x() > CaretAt(bench, 2).x());
    bench.view.SetAlignment(Alignment::Right);
    CHECK(CaretAt(bench, 5).x() > 400);
}

TEST_CASE("qt text view: a hanging first line has a tab stop where the others begin") {
    Document document;
    document.text = u"1.\titem " + RepeatedText(u"long ", 60);
    document.paragraphStyles[0].leftIndent = 720;
    document.paragraphStyles[0].firstLineIndent = -360;
    QtViewBench bench;
    bench.view.LoadDocument(document);
    const LineSpan first = bench.view.LineAround(0);
    CHECK(CaretAt(bench, 3).x() == CaretAt(bench, first.start + first.length).x());
    CHECK(CaretAt(bench, 0).x() < CaretAt(bench, 3).x());
    CHECK(CaretAt(bench, first.length - 1).x() < 500);
}

TEST_CASE("qt text view: absurd measures of a file do no harm") {
    Document document;
    document.text = u"some text of two words\nand\tmore\n";
    ParagraphStyle& style = document.paragraphStyles[0];
    for (const std::int32_t value : {std::numeric_limits<std::int32_t>::min(), -1, 1, 31'680,
                                     std::numeric_limits<std::int32_t>::max()}) {
        style.leftIndent = style.rightIndent = style.firstLineIndent = value;
        style.spaceBefore = style.spaceAfter = style.lineSpacing = value;
        style.tabStops = {{value, TabAlignment::Right, TabLeader::Dots}};
        document.defaultTab = value;
        document.charStyles[0].halfPoints = std::uint16_t(value);
        QtViewBench bench(200, 200);
        bench.view.LoadDocument(document);
        bench.view.ScrollLineToTop(25);
        CHECK(bench.view.FirstVisibleChar() == bench.view.LineAround(25).start);
        bench.Widget().grab();
        bench.Press(Qt::Key_PageDown);
        bench.Press(Qt::Key_End, Qt::ControlModifier);
        CHECK(bench.view.SelStart() == bench.view.TextLength());
    }
}

// More fonts than Qt caches: ASan or valgrind reports one that is used after Qt has deleted it.
TEST_CASE("qt text view: paragraphs of hundreds of fonts") {
    QtViewBench bench(200, 400);
    std::string rtf = "{\\rtf1\\ansi{\\fonttbl{\\f0 DejaVu Serif;}{\\f1 Noto Sans;}}";
    for (int i = 0; i < 600; ++i)
        rtf += "{\\f" + std::to_string(i % 2) + "\\fs" + std::to_string(8 + i % 151) +
               (i % 3 ? "" : "\\i") + (i % 7 ? "" : "\\super") + " a\\u1488?\\u20013?}" +
               (i % 20 ? "" : "\\par ");
    bench.view.LoadRichText(rtf + "}", 1252);
    for (TextPos at = 0; at < bench.view.TextLength(); at += 20) {
        const LineSpan line = bench.view.LineAround(at);
        REQUIRE(line.start <= at);
        REQUIRE(line.start + line.length >= at);
    }
}
