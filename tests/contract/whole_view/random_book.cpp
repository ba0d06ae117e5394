#include "tests/contract/whole_view/random_book.h"

#include <QBuffer>
#include <QImage>

#include <vector>

namespace {
using Random = std::mt19937;
using Words = std::vector<std::u16string>;

int Below(Random& random, int bound) {
    return int(random() % unsigned(bound));
}

bool OneIn(Random& random, int times) {
    return Below(random, times) == 0;
}

const Words latin = {u"a",
                     u"of",
                     u"word",
                     u"office fluffy",
                     u"longer-word,",
                     u"quay.",
                     u"e\u0301t\u00E9",
                     u"soft\u00ADhyphen",
                     u"no\u00A0break",
                     u"12,5"};
const Words hebrew = {u"\u05E9\u05DC\u05D5\u05DD", u"\u05E2\u05D5\u05DC\u05DD", u"\u05D0",
                      u"\u05D1\u05B0\u05BC\u05E8", u"\u05D0\u05D1\u05D2\u05D3\u05D4"};
const Words arabic = {u"\u0645\u0631\u062D\u0628\u0627", u"\u0643\u062A\u0627\u0628",
                      u"\u0644\u0627"};
const Words mixed = {u"abc",           u"\u05E9\u05DC\u05D5\u05DD",
                     u"123",           u"(\u0645\u0631)",
                     u"x\u05D0y",      u"\u0661\u0662",
                     u"\u202Bab\u202C"};
const Words asian = {u"\u4E2D\u6587\u5B57", u"\u65E5\u672C\u8A9E\u3002", u"\uD55C\uAD6D\uC5B4",
                     u"\u3042"};
const Words odd = {u"\U0001F600",    u"\U0001F469\u200D\U0001F469\u200D\U0001F467",
                   u"\u200B",        u"\u0301",
                   u"\uFFFD",        u"\U0001D11E",
                   u"a\u0308\u0323", u"\u2060",
                   u"\uFEFF",        u"\u0E01\u0E33"};
const Words* const kinds[] = {&latin, &hebrew, &arabic, &mixed, &asian, &odd};

const Words& SomeWords(Random& random) {
    return OneIn(random, 2) ? latin : *kinds[random() % std::size(kinds)];
}

std::u16string Blank(Random& random, int tabs) {
    if (tabs > 0 && OneIn(random, tabs)) return u"\t";
    return OneIn(random, 12) ? u"   " : u" ";
}

// Some words of one kind, with tabs as often as one in `tabs` blanks.
std::u16string Line(Random& random, int mostWords, int tabs) {
    const Words& words = SomeWords(random);
    std::u16string line = OneIn(random, 6) ? Blank(random, tabs) : u"";
    for (int i = Below(random, mostWords + 1); i > 0; --i) {
        line += words[random() % words.size()];
        if (i > 1 || OneIn(random, 6)) line += Blank(random, tabs);
    }
    return line;
}

std::u16string Lines(Random& random, int count, int mostWords, int tabs) {
    static const std::u16string ends[] = {u"\n", u"\r\n", u"\r", u"\n\n", u"\r\n\r\n", u"\v"};
    std::u16string text;
    for (int i = 0; i < count; ++i) {
        text += Line(random, mostWords, tabs);
        if (i + 1 < count || OneIn(random, 2)) text += ends[random() % std::size(ends)];
    }
    return text;
}

std::u16string OneLine(Random& random) {
    static const std::u16string parts[] = {u"x",       u"word ",      u"\u05D0", u"\u4E2D",
                                           u"e\u0301", u"\U0001F600", u"ab\t",   u"\uFFFD"};
    const std::u16string& part = parts[random() % std::size(parts)];
    std::u16string text = Line(random, 10, 0) + u"\n";
    const std::size_t length = 20'000 + random() % 40'000;
    while (text.size() < length)
        text += part;
    return text + u"\nend";
}

std::string Utf8(const std::u16string& text) {
    return QString::fromStdU16String(text).toStdString();
}

std::string PngBytes(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::green);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "png");
    return bytes.toStdString();
}

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

    // No run begins behind the text.
    void Finish(std::vector<StyleRun>& runs) const {
        while (runs.size() > 1 && runs.back().start >= Size())
            runs.pop_back();
    }

    void Run(int mostWords) {
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
        made_.text += Line(random_, mostWords, OneIn(random_, 3) ? 4 : 0);
        if (OneIn(random_, 10)) made_.text += u'\v';
        if (pictures_ && OneIn(random_, 4)) AddPicture();
    }

    void AddPicture() {
        Picture picture;
        picture.position = Size();
        picture.format = OneIn(random_, 3) ? PictureFormat::Other : PictureFormat::Png;
        const int width = 1 + Below(random_, 200),
                  height = 1 + Below(random_, OneIn(random_, 4) ? 900 : 60);
        if (picture.format == PictureFormat::Png) picture.bytes = PngBytes(width, height);
        if (OneIn(random_, 2)) {
            picture.widthTwips = width * 15;
            picture.heightTwips = height * 15;
        }
        made_.text += u'\uFFFC';
        made_.pictures.push_back(picture);
    }

    void Runs(int mostWords) {
        for (int i = Below(random_, 4); i >= 0; --i)
            Run(mostWords);
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
            style.tabStops.push_back(stop += 1 + Below(random_, 2000));
        return style;
    }

    void Paragraph(char16_t terminator, int mostWords = 30) {
        const TextPos start = Size();
        if (!OneIn(random_, 5)) Runs(mostWords);
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

RandomBook MakeBook(std::mt19937& random, int number) {
    RandomBook book;
    switch (number % 8) {
    case 0: book.bytes = Utf8(Lines(random, 1 + Below(random, 60), 12, 0)); break;
    case 1: book.bytes = Utf8(Lines(random, 1 + Below(random, 20), 80, 6)); break;
    case 2: book.bytes = Utf8(Lines(random, Below(random, 3), 3, 0)); break;
    case 3:
        book.bytes = Utf8(OneLine(random));
        book.isLong = true;
        break;
    case 4: return RichBook(random, false, false).Make();
    case 5: return RichBook(random, true, false).Make();
    default: return RichBook(random, OneIn(random, 2), true).Make();
    }
    return book;
}
