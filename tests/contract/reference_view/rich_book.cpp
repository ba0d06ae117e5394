#include "tests/contract/reference_view/random_book.h"

#include "tests/contract/reference_view/random_words.h"

#include <vector>

namespace {
class RichBook {
  public:
    RichBook(Random& random, bool tables, bool pictures)
        : random_(random), tables_(tables), pictures_(pictures) {
        made_.fonts = {u"", u"DejaVu Serif", u"Noto Sans", u"DejaVu Sans Mono"};
        made_.defaultTab = OneIn(random, 2) ? 720 : 300 + Below(random, 1000);
        overlaps_ = OneIn(random, 3);
    }

    RandomBook Make() {
        for (int i = 4 + Below(random_, 20); i > 0; --i) {
            if (tables_ && OneIn(random_, 3))
                Table();
            else
                Paragraph(u'\n');
        }
        if (OneIn(random_, 2)) Runs(6);
        RandomBook book;
        book.plain = false;
        Finish(made_.charRuns);
        Finish(made_.paragraphRuns);
        book.document = std::move(made_);
        book.overlaps = overlaps_;
        return book;
    }

  private:
    TextPos Size() const { return TextPos(made_.text.size()); }

    template <class Style>
    void Start(std::vector<StyleRun>& runs, std::vector<Style>& styles, TextPos at, Style style) {
        styles.push_back(std::move(style));
        const StyleRun run{at, std::uint32_t(styles.size() - 1)};
        if (runs.back().start == at)
            runs.back() = run;
        else
            runs.push_back(run);
    }

    // No run starts after the text.
    void Finish(std::vector<StyleRun>& runs) const {
        while (runs.size() > 1 && runs.back().start >= Size())
            runs.pop_back();
    }

    void Run(int maxWords) {
        CharStyle style;
        style.font = std::uint16_t(Below(random_, 4));
        style.halfPoints = std::uint16_t(OneIn(random_, 12)  ? 120 + Below(random_, 200)
                                         : OneIn(random_, 2) ? 24
                                                             : 12 + Below(random_, 50));
        style.bold = OneIn(random_, 4);
        style.italic = OneIn(random_, 4);
        style.underline = OneIn(random_, 6);
        style.script = Script(OneIn(random_, 5) ? Below(random_, 3) : 0);
        style.capitals = Capitals(OneIn(random_, 5) ? Below(random_, 3) : 0);
        Start(made_.charRuns, made_.charStyles, Size(), style);
        made_.text += RandomLine(random_, maxWords, OneIn(random_, 3) ? 4 : 0);
        if (OneIn(random_, 10)) made_.text += u'\v';
        if (pictures_ && OneIn(random_, 4)) AddPicture();
    }

    void AddPicture() {
        Picture picture;
        picture.position = Size();
        picture.format = OneIn(random_, 3) ? PictureFormat::Other : PictureFormat::Png;
        const int width = 1 + Below(random_, 200),
                  height = 1 + Below(random_, OneIn(random_, 4) ? 900 : 60);
        if (picture.format == PictureFormat::Png) picture.bytes = "png";
        if (OneIn(random_, 2)) {
            picture.widthTwips = width * 15;
            picture.heightTwips = height * 15;
        }
        made_.text += u'\uFFFC';
        made_.pictures.push_back(picture);
    }

    void Runs(int maxWords) {
        for (int i = Below(random_, 4); i >= 0; --i)
            Run(maxWords);
    }

    ParagraphStyle SomeStyle() {
        ParagraphStyle style;
        style.alignment = Alignment(Below(random_, 4));
        style.rightToLeft = OneIn(random_, 4);
        if (OneIn(random_, 2)) {
            style.leftIndent = Below(random_, 2000) - 200;
            style.rightIndent = Below(random_, 1000);
            style.firstLineIndent = Below(random_, 2000) - 1000;
        }
        if (OneIn(random_, 3)) {
            style.spaceBefore = Below(random_, 400);
            style.spaceAfter = Below(random_, 400);
        }
        if (OneIn(random_, 3)) {
            style.lineSpacingIsMultiple = OneIn(random_, 2);
            style.lineSpacing =
                style.lineSpacingIsMultiple ? 240 + Below(random_, 300) : Below(random_, 900);
            if (overlaps_ && OneIn(random_, 2)) style.lineSpacing = -style.lineSpacing / 2;
        }
        for (int i = Below(random_, 4), stop = 0; i > 0; --i)
            style.tabStops.push_back({stop += 1 + Below(random_, 2000)});
        return style;
    }

    void Paragraph(char16_t terminator, int maxWords = 30) {
        const TextPos start = Size();
        if (!OneIn(random_, 5)) Runs(maxWords);
        made_.text += terminator;
        Start(made_.paragraphRuns, made_.paragraphStyles, start, SomeStyle());
    }

    void Table() {
        std::vector<std::int32_t> edges;
        for (int i = 1 + Below(random_, 4), edge = 0; i > 0; --i)
            edges.push_back(edge += 200 + Below(random_, OneIn(random_, 8) ? 9000 : 2500));
        const std::int32_t left = Below(random_, 400) - 200;
        const bool rightToLeft = OneIn(random_, 5);
        for (int rows = 1 + Below(random_, 5); rows > 0; --rows) {
            TableRow row;
            row.start = Size();
            row.leftEdge = left;
            row.cellGap = Below(random_, 200);
            row.rightToLeft = rightToLeft;
            for (const std::int32_t edge : edges)
                AddCell(row, edge);
            made_.text += u'\n';
            row.end = Size();
            Start(made_.paragraphRuns, made_.paragraphStyles, row.end - 1, ParagraphStyle());
            made_.rows.push_back(row);
        }
    }

    void AddCell(TableRow& row, std::int32_t edge) {
        TableCell cell;
        cell.start = Size();
        cell.rightEdge = edge;
        cell.mergedAbove = OneIn(random_, 4);
        cell.borderTop = cell.borderBottom = OneIn(random_, 2);
        cell.borderLeft = cell.borderRight = OneIn(random_, 2);
        cell.autoBackground = !OneIn(random_, 5);
        cell.background = 0xD0E0F0;
        if (!cell.mergedAbove)
            for (int i = Below(random_, 3); i > 0; --i)
                Paragraph(u'\n', 8);
        Paragraph(u'\a', cell.mergedAbove ? 1 : 8);
        cell.end = Size();
        row.cells.push_back(cell);
    }

    Random& random_;
    bool tables_, pictures_, overlaps_ = false;
    Document made_;
};
} // namespace

RandomBook MakeRichBook(Random& random, bool tables, bool pictures) {
    return RichBook(random, tables, pictures).Make();
}
