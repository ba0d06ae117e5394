// The text view on Qt, which lays out what is seen, held against the slow layout of the whole text:
// the same lines at the same places, whatever is done to it.
//
// More of it by hand: NORVASET_VIEW_BOOKS=first-last runs these books instead of the usual ones.
#include "tests/contract/qt_text_view_bench.h"
#include "tests/contract/whole_view/random_book.h"
#include "tests/contract/whole_view/whole_view.h"

#include "common/line_ends.h"
#include "formats/plain_text_source.h"
#include "formats/rtf_reader.h"

#include <doctest/doctest.h>

#include <QScrollBar>
#include <QWheelEvent>

#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace {
using Random = std::mt19937;

int Below(Random& random, int bound) {
    return int(random() % unsigned(std::max(1, bound)));
}

bool OneIn(Random& random, int times) {
    return Below(random, times) == 0;
}

// Outlines of huge characters are filled from where the painting begins: their edges may be of
// another shade.
bool LooksLike(const QImage& one, const QImage& other) {
    constexpr int shades = 24; // of 256
    if (one.size() != other.size()) return false;
    const auto differ = [&](QRgb a, QRgb b) {
        return std::abs(qRed(a) - qRed(b)) > shades || std::abs(qGreen(a) - qGreen(b)) > shades ||
               std::abs(qBlue(a) - qBlue(b)) > shades;
    };
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x)
            if (differ(one.pixel(x, y), other.pixel(x, y))) return false;
    return true;
}

class Held {
  public:
    Held(Random& random, RandomBook book) : random_(random), book_(std::move(book)) {
        const double dots = bench_.Widget().logicalDpiX() * Ratio() / 0.0254;
        screen_.setDotsPerMeterX(qRound(dots));
        screen_.setDotsPerMeterY(qRound(dots));
        whole_.setting.device = &screen_;
        whole_.setting.pixelsPerTwip = bench_.Widget().logicalDpiX() * Ratio() / 1440;
        Resize();
        Load(0);
    }

    std::string done_; // the last step

    void Step() {
        done_ = "other";
        moved_ = false;
        switch (Below(random_, book_.isLong ? 10 : 14)) {
        case 0: return Scroll();
        case 1: return Wheel();
        case 2: return Click();
        case 3: return SelectSome();
        case 10: return Resize();
        case 11: return ChangeLook();
        case 12: return Load(1 + Below(random_, 2));
        default: return Press();
        }
    }

    // The cheap part of it after every step.
    void CheckPlace() {
        REQUIRE(View().TextLength() == Size());
        REQUIRE(Widget().Caret() == whole_.caret);
        REQUIRE(View().SelStart() == std::min(whole_.anchor, whole_.caret));
        REQUIRE(View().SelStart() + View().SelLength() == std::max(whole_.anchor, whole_.caret));
        const WholeParagraph& around = Whole().ParagraphOf(Whole().LineOf(whole_.caret));
        const TextPos at = std::min(whole_.caret, around.end) - around.start;
        INFO("caret ", whole_.caret, " of ", around.start, " to ", around.end, ", lines from",
             whole_.Describe(Whole().LineOf(whole_.caret)));
        if (moved_ && !around.hidden && at > 0) REQUIRE(around.text->isValidCursorPosition(at));
        const TextHeight top = Widget().Scroller().Top();
        REQUIRE(BlockTop(top.block) + top.y == whole_.Top());
        REQUIRE(View().FirstVisibleChar() == whole_.FirstVisible());
    }

    void CheckAll() {
        CheckPlace();
        CheckSeenLines();
        CheckLinesAnywhere();
        CheckCopy();
        CheckPaint();
    }

  private:
    QtTextView& View() { return bench_.view; }
    TextWidget& Widget() { return bench_.Widget(); }
    double Ratio() { return bench_.Widget().devicePixelRatioF(); }
    TextPos Size() const { return TextPos(whole_.setting.text.size()); }
    TextPos Somewhere() { return Below(random_, Size() + 1); }
    const WholeText& Whole() const { return whole_.Whole(); }

    int BlockTop(TextPos start) const {
        for (const WholeBlock& block : Whole().blocks)
            if (block.start == start) return block.top;
        FAIL("no block starts at ", start);
        return 0;
    }

    void Load(int change) {
        if (change == 2) {
            const bool wasLong = book_.isLong;
            book_ = MakeBook(random_, Below(random_, 8));
            if (book_.isLong && !wasLong) book_ = MakeBook(random_, 0);
        }
        whole_.setting.look.fontForAll = false;
        whole_.setting.look.alignment.reset();
        whole_.setting.plain = book_.plain;
        if (book_.plain) {
            const int codePage = change == 1 ? 1255 : 0; // else it is found to be UTF-8
            std::string bytes = book_.bytes;
            if (change == 1) bytes += "\xE0"; // no longer UTF-8
            const auto text = std::make_shared<PlainTextSource>(
                std::make_shared<BytesReader>(bytes), codePage, 1252, 500 + random_() % 3000);
            whole_.setting.text = text->Range(0, text->Length());
            document_ = Document();
            if (OneIn(random_, 2))
                View().LoadText(text);
            else
                View().LoadPlainText(DecodePlainText(bytes, codePage, 1252).text);
        } else {
            document_ = book_.document;
            whole_.setting.text = document_.text;
            View().LoadDocument(document_);
        }
        whole_.setting.document = &document_;
        whole_.Load();
    }

    // After a step that may change the view's size; tells the model what there is room for.
    void Fit() {
        Widget().Scroller();
        const QSize all = Widget().maximumViewportSize();
        const int width = int(all.width() * Ratio());
        margin_ = std::max(int(6 * Ratio()), width / 40);
        const int room = std::max(1, width - 2 * margin_);
        const double right = whole_.setting.look.rightMargin * whole_.setting.pixelsPerTwip;
        const int breakWidth = right > 0 ? int(std::clamp(right, 1.0, double(1 << 24))) : room;
        const int height = std::max(1, int(all.height() * Ratio()));
        const bool same = breakWidth == whole_.setting.breakWidth && height == whole_.viewHeight &&
                          std::min(room, breakWidth) == whole_.setting.viewWidth;
        whole_.setting.breakWidth = breakWidth;
        whole_.setting.viewWidth = std::min(room, breakWidth);
        whole_.viewHeight = height;
        whole_.lineHeight =
            std::max(1, QFontMetrics(WholeFont(whole_.setting.look.font), &screen_).height());
        if (!whole_.setting.document) return;
        whole_.Relayout();
        if (!same) whole_.SettleAtEnd();
    }

    void Resize() {
        const bool narrow = OneIn(random_, 6);
        View().SetBounds({0, 0, narrow ? 20 + Below(random_, 60) : 100 + Below(random_, 700),
                          OneIn(random_, 6) ? 10 + Below(random_, 40) : 80 + Below(random_, 500)});
        Fit();
    }

    void ChangeLook() {
        ViewLook& look = whole_.setting.look;
        switch (Below(random_, 5)) {
        case 0:
            look.font.size = OneIn(random_, 8) ? 60 + Below(random_, 200) : 6 + Below(random_, 20);
            look.font.name = OneIn(random_, 2) ? u"Noto Serif" : u"DejaVu Sans";
            look.font.italic = OneIn(random_, 3);
            View().SetFont(look.font);
            break;
        case 1:
            look.fontForAll = true;
            View().ApplyFontToAll();
            break;
        case 2:
            look.alignment = Alignment(Below(random_, 4));
            View().SetAlignment(*look.alignment);
            break;
        default:
            look.rightMargin = OneIn(random_, 2) ? 0 : OneIn(random_, 2) ? 491520 : 3000;
            View().SetRightMargin(look.rightMargin);
        }
        Fit();
    }

    void Scroll() {
        const TextPos position = Somewhere();
        const int pixels = Below(random_, 600) - 300;
        switch (Below(random_, 3)) {
        case 0: View().ScrollLineToTop(position); return whole_.ShowLine(position);
        case 1: Widget().Scroller().ScrollBy(pixels); return whole_.ScrollBy(pixels);
        default: Widget().Scroller().ScrollToChar(position); return whole_.ScrollToChar(position);
        }
    }

    void Wheel() {
        const int notches = Below(random_, 7) - 3;
        QWheelEvent event(QPointF(5, 5), Widget().mapToGlobal(QPointF(5, 5)), QPoint(),
                          QPoint(0, 120 * notches), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QCoreApplication::sendEvent(Widget().viewport(), &event);
        if (notches != 0) whole_.ScrollLines(-3 * notches);
    }

    void Click() {
        const QPoint point(Below(random_, Widget().viewport()->width()),
                           Below(random_, Widget().viewport()->height()));
        const bool extend = OneIn(random_, 3);
        bench_.Mouse(QEvent::MouseButtonPress, point, extend ? Qt::ShiftModifier : Qt::NoModifier);
        bench_.Mouse(QEvent::MouseButtonRelease, point);
        const int x = int(point.x() * Ratio()) - margin_ + Widget().horizontalScrollBar()->value();
        const int y = whole_.Top() + int(point.y() * Ratio());
        Follow(whole_.LineNear(x, y), x, extend);
        whole_.wantedX.reset();
    }

    // The caret goes where the view has put it, which must be a place meant by the point.
    void Follow(const WholeLine& line, int x, bool extend) {
        const TextPos position = Widget().Caret();
        const bool mayBe = whole_.MayBe(line, x, position);
        INFO("from ", x, " to ", position, mayBe ? "" : whole_.Describe(line));
        REQUIRE(mayBe);
        whole_.caret = position;
        if (!extend) whole_.anchor = position;
    }

    void SelectSome() {
        const TextPos from = Somewhere();
        const TextPos length =
            std::min(Size() - from, Below(random_, OneIn(random_, 4) ? 5000 : 200));
        View().Select(from, length);
        whole_.anchor = from;
        whole_.caret = from + length;
        whole_.wantedX.reset();
    }

    void Press() {
        static constexpr int keys[] = {Qt::Key_Left,   Qt::Key_Right,    Qt::Key_Up,   Qt::Key_Down,
                                       Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                       Qt::Key_Space,  Qt::Key_PageDown};
        const int key = keys[random_() % std::size(keys)];
        const bool vertical = key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp ||
                              key == Qt::Key_PageDown;
        const bool control = !vertical && key != Qt::Key_Space && OneIn(random_, 4);
        const bool shift = OneIn(random_, 4);
        done_ = "key " + std::to_string(key) + (control ? ", control" : "") +
                (shift ? ", shift" : "") + ", caret " + std::to_string(whole_.caret) + " in" +
                whole_.Describe(Whole().LineOf(whole_.caret));
        const auto modifiers = (control ? Qt::ControlModifier : Qt::NoModifier) |
                               (shift ? Qt::ShiftModifier : Qt::NoModifier);
        const TextPos start = View().SelStart(), end = start + View().SelLength();
        REQUIRE(bench_.Press(key, modifiers));
        if (key == Qt::Key_Space) return whole_.ScrollPage(!shift);
        if (vertical) return GoVertically(key, shift);
        moved_ = true;
        whole_.wantedX.reset();
        const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
        if (sideways && !control && !shift && start != end) {
            whole_.caret = whole_.anchor = key == Qt::Key_Left ? start : end;
            moved_ = false; // the selection may have been within a character
        } else {
            const auto target = whole_.KeyTarget(key, control);
            whole_.caret = target.value_or(Widget().Caret());
            if (!shift) whole_.anchor = whole_.caret;
        }
        whole_.ShowCaret(false);
    }

    void GoVertically(int key, bool extend) {
        if (!whole_.wantedX) whole_.wantedX = whole_.CaretBox(whole_.caret).x();
        const int x = *whole_.wantedX;
        const bool page = key == Qt::Key_PageUp || key == Qt::Key_PageDown;
        const bool down = key == Qt::Key_PageDown || key == Qt::Key_Down;
        const WholeLine* line = nullptr;
        if (page)
            line = whole_.TurnPage(down);
        else
            line = down ? &whole_.LineBelow(x) : &whole_.LineAbove(x);
        const bool stays = !page && line->start == Whole().LineOf(whole_.caret).start;
        if (!line)
            whole_.caret = down ? Size() : 0;
        else if (!stays)
            Follow(*line, x, extend);
        if (!extend) whole_.anchor = whole_.caret;
        whole_.ShowCaret(page);
    }

    void CheckSeenLines() {
        const int top = whole_.Top();
        for (const WholeLine& line : Whole().lines)
            if (line.bottom > top && line.top < top + whole_.viewHeight) CheckLine(line);
    }

    void CheckLine(const WholeLine& line) {
        CAPTURE(line.start);
        TextLayouts& layouts = Widget().Layouts();
        const auto layout = layouts.At(line.start);
        const LineRef ref = LineOf(*layout, line.start);
        const int blockTop = BlockTop(layout->block.start);
        REQUIRE(LineStart(*layout, ref) == line.start);
        REQUIRE(LineEnd(*layout, ref) == line.end);
        REQUIRE(layout->paragraphs[ref.paragraph].LastPlace(ref.line) == whole_.LastPlace(line));
        REQUIRE(blockTop + LineTop(*layout, ref) == line.top);
        REQUIRE(blockTop + LineBottom(*layout, ref) == line.bottom);
        if (Whole().ParagraphOf(line).hidden) return;
        const TextPos step = 1 + (line.end - line.start) / 60;
        for (TextPos at = line.start; at <= whole_.LastPlace(line); at += step)
            CheckCharacter(*layout, blockTop, line, at);
    }

    void CheckCharacter(const BlockLayout& layout, int blockTop, const WholeLine& line,
                        TextPos at) {
        CAPTURE(at);
        const QRect expected = whole_.CaretBox(at);
        REQUIRE((CaretBox(layout, at).translated(0, blockTop) == expected));
        if (line.inkBottom <= line.inkTop + 1) return;
        const int x = expected.x(), y = (line.inkTop + line.inkBottom) / 2 - blockTop;
        const QRect& cell = Whole().ParagraphOf(line).cell;
        if (!cell.isNull() && (x < cell.left() || x > cell.right())) return; // too narrow for it
        const TextPos back = PositionAt(layout, QPoint(x, y));
        const bool mayBe = whole_.MayBe(line, x, back);
        INFO("from ", x, " back at ", back, mayBe ? "" : whole_.Describe(line));
        REQUIRE(mayBe);
    }

    void CheckLinesAnywhere() {
        for (int i = 0; i < 10; ++i) {
            const TextPos position = Somewhere();
            CAPTURE(position);
            const WholeLine& line = Whole().LineOf(position);
            const LineSpan span = View().LineAround(position);
            REQUIRE(span.start == line.start);
            REQUIRE(span.length == line.end - line.start);
        }
    }

    void CheckCopy() {
        const TextPos from = View().SelStart(), length = View().SelLength();
        const std::u16string expected =
            whole_.setting.text.substr(std::size_t(from), std::size_t(length));
        REQUIRE((View().TextRange(from, length) == expected));
        if (book_.plain && !SplitsPair(from) && !SplitsPair(from + length))
            REQUIRE((ReadRtf(View().SelectionAsRtf(), 1252).text == expected));
    }

    bool SplitsPair(TextPos position) const {
        return position > 0 && position < Size() &&
               QChar::isLowSurrogate(whole_.setting.text[std::size_t(position)]);
    }

    // A part that is painted by itself looks as in the whole; and what is selected is covered
    // without gaps.
    void CheckPaint() {
        const QColor selected(Qt::magenta);
        QPalette palette = Widget().palette();
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            palette.setColor(group, QPalette::Highlight, selected);
            palette.setColor(group, QPalette::HighlightedText, selected);
        }
        Widget().setPalette(palette);
        const QImage all =
            Widget().viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
        const QRect view = Widget().viewport()->rect();
        const QRect part(Below(random_, view.width()), Below(random_, view.height()),
                         1 + Below(random_, view.width()), 1 + Below(random_, view.height()));
        if (Ratio() == std::floor(Ratio()) && !book_.overlaps) {
            const QRect inside = part & view;
            const QImage some =
                Widget().viewport()->grab(inside).toImage().convertToFormat(QImage::Format_RGB32);
            const QRect crop(inside.topLeft() * int(Ratio()), inside.size() * int(Ratio()));
            REQUIRE(LooksLike(some, all.copy(crop)));
        }
        if (!book_.overlaps && document_.pictures.empty()) CheckSelection(all, selected.rgb());
    }

    void CheckSelection(const QImage& image, QRgb selected) {
        const int top = whole_.Top(), left = margin_ - Widget().horizontalScrollBar()->value();
        const TextPos start = View().SelStart(), end = start + View().SelLength();
        for (const WholeLine& line : Whole().lines) {
            const int from = std::max(0, line.inkTop - top);
            const int to = std::min(image.height(), line.inkBottom - top);
            const WholeParagraph& paragraph = Whole().ParagraphOf(line);
            if (from >= to || paragraph.hidden || !whole_.GoesOneWay(line)) continue;
            const TextPos step = 1 + (line.end - line.start) / 40;
            for (TextPos at = line.start; at < line.end; at += step) {
                const int next = paragraph.text->nextCursorPosition(at - paragraph.start);
                const double x = Whole().X(line, at),
                             behind = Whole().X(line, paragraph.start + next);
                const int column = left + int(std::floor((x + behind) / 2));
                if (std::abs(behind - x) < 3 || column < 0 || column >= image.width()) continue;
                if (IsBlankAtEnd(line, at)) continue;
                INFO("line ", line.start, ", character ", at, ", column ", column);
                const bool isSelected = at >= start && at < end;
                for (int y = from; y < to; ++y)
                    REQUIRE((image.pixel(column, y) == selected) == isSelected);
            }
        }
    }

    bool IsBlankAtEnd(const WholeLine& line, TextPos at) const {
        for (TextPos i = at; i < line.end; ++i)
            if (!QChar(whole_.setting.text[std::size_t(i)]).isSpace()) return false;
        return true;
    }

    Random& random_;
    RandomBook book_;
    Document document_;
    QtViewBench bench_;
    WholeView whole_;
    QImage screen_{1, 1, QImage::Format_Mono};
    int margin_ = 0;
    bool moved_ = false; // the caret, by a key
};

void HoldBook(int number) {
    CAPTURE(number);
    Random random{unsigned(number)};
    RandomBook book = MakeBook(random, number);
    const int steps = book.isLong ? 12 : 40;
    Held held(random, std::move(book));
    held.CheckAll();
    for (int step = 0; step < steps; ++step) {
        CAPTURE(step);
        held.Step();
        CAPTURE(held.done_);
        held.CheckPlace();
        if (step % 4 == 3) held.CheckAll();
    }
}
} // namespace

TEST_CASE("qt text view: what it shows is what the layout of the whole text shows") {
    int first = 0, last = 24;
    if (const char* books = std::getenv("NORVASET_VIEW_BOOKS"))
        std::sscanf(books, "%d-%d", &first, &last);
    for (int number = first; number <= last; ++number)
        HoldBook(number);
}
