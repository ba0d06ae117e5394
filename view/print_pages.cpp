#include "view/print_pages.h"

#include "common/contrast.h"
#include "view/one_line.h"
#include "view/text_layouts.h"
#include "view/text_painter.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr double twipsPerInch = 1440, smallShare = 0.8; // of the font's size, at head and foot
constexpr Color black = 0x000000, white = 0xFFFFFF;

// A block, or the part of it that stands on a page.
struct PlacedPart {
    TextLayouts::Layout layout;
    int from = 0, to = 0; // of the block's height
    int top = 0;          // on the page, below the head
};

// The lowest place at or above `limit` where no line is cut; `from` when there is none.
int CutAbove(const BlockLayout& layout, int from, int limit) {
    int cut = limit;
    for (bool moved = true; moved && cut > from;) {
        moved = false;
        for (std::size_t i = 0; i < layout.paragraphs.size(); ++i)
            for (int line = 0; line < layout.paragraphs[i].LineCount(); ++line) {
                const LineRef ref{i, line};
                if (LineTop(layout, ref) >= cut || LineBottom(layout, ref) <= cut) continue;
                cut = LineTop(layout, ref);
                moved = true;
            }
    }
    return std::max(cut, from);
}

class PageLayout {
  public:
    PageLayout(TextLayouts& layouts, int height)
        : layouts_(layouts), height_(height), next_(layouts.At(0)) {}

    bool IsAtEnd() const { return !next_; }
    TextPos Position() const { return next_ ? next_->block.start : 0; }

    std::vector<PlacedPart> Next() {
        std::vector<PlacedPart> parts;
        int top = 0;
        while (next_) {
            const int to = EndOnPage(top, parts.empty());
            if (to == from_ && !parts.empty()) return parts;
            parts.push_back({next_, from_, to, top});
            top += to - from_;
            from_ = to;
            if (to < next_->height) return parts;
            next_ = layouts_.After(next_);
            from_ = 0;
        }
        return parts;
    }

  private:
    // A table row stands on one page where one can hold it, and a line that is higher than a page
    // is cut.
    int EndOnPage(int top, bool first) const {
        const int room = height_ - top, rest = next_->height - from_;
        if (rest <= room) return next_->height;
        const bool wholeRow = !next_->cells.empty() && from_ == 0 && rest <= height_;
        if (wholeRow && !first) return from_;
        const int cut = CutAbove(*next_, from_, from_ + room);
        return cut == from_ && first ? from_ + room : cut;
    }

    TextLayouts& layouts_;
    int height_;
    TextLayouts::Layout next_;
    int from_ = 0; // of the next block's height
};

class PagePrinter {
  public:
    PagePrinter(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                PrintDevice& device)
        : text_(text), lines_(lines), device_(device), style_(OnPaper(text.style)),
          system_(text.system),
          styles_(text.document, style_, system_, lines), context_{text.document, style_, styles_,
                                                                   pictures, lines},
          layouts_(context_) {
        system_.text = black;
        if (!IsReadable(system_.link, white)) system_.link = black;
        lines.SetResolution(device.Dpi());
        context_.text = &text.text;
        context_.plain = text.plain;
        context_.viewWidth = context_.breakWidth = std::max(1, device.Page().width);
        context_.pixelsPerTwip = device.Dpi() / twipsPerInch;
        styles_.Reset();
        TextStyle small = StyleOf(style_.font, system_);
        small.font.points *= smallShare;
        small.underline = small.strikethrough = false;
        small_ = lines.Prepare(small);
        smallMetrics_ = lines.Metrics(*small_);
    }

    PrintEnd Run() {
        const int edge = 2 * SmallHeight(); // of head and foot, each with the space to the text
        PageLayout pages(layouts_, std::max(1, device_.Page().height - 2 * edge));
        const TextPos length = std::max(1, text_.text.Length());
        for (int number = 1; !pages.IsAtEnd() && number <= text_.lastWanted; ++number) {
            const auto percent = static_cast<int>(std::int64_t{100} * pages.Position() / length);
            if (!device_.GoesOn(percent)) return PrintEnd::GivenUp;
            const std::vector<PlacedPart> parts = pages.Next();
            if (text_.isWanted && !text_.isWanted(number)) continue;
            if (!Print(parts, number, edge)) return PrintEnd::Failed;
        }
        return PrintEnd::Done;
    }

  private:
    int SmallHeight() const { return int(std::ceil(smallMetrics_.Height())); }

    bool Print(const std::vector<PlacedPart>& parts, int number, int edge) {
        Canvas* const canvas = device_.BeginPage();
        if (!canvas) return false;
        const Size page = device_.Page();
        device_.ClipTo({0, 0, page.width, page.height});
        PrintCentred(*canvas, text_.title, 0);
        const std::string digits = std::to_string(number);
        PrintCentred(*canvas, {digits.begin(), digits.end()}, page.height - SmallHeight());
        const TextPaint paint{context_, PlainTextColor(style_, system_), black, white, 0, 0};
        for (const PlacedPart& part : parts) {
            const Rect clip{0, edge + part.top, page.width, part.to - part.from};
            device_.ClipTo(clip);
            const Point origin{0, clip.top - part.from};
            PaintBackground(*canvas, *part.layout, origin);
            PaintBlock(*canvas, paint, *part.layout, origin, clip);
        }
        return device_.EndPage();
    }

    void PrintCentred(Canvas& canvas, const std::u16string& text, int top) {
        const Size page = device_.Page();
        const auto line = LayOutOneLine(lines_, small_, text, page.width);
        const int left = (page.width - int(std::ceil(line->Line(0).width))) / 2;
        line->Draw(canvas, 0, left, top + int(std::lround(smallMetrics_.ascent)),
                   {.text = black, .clip = {0, top, page.width, SmallHeight()}});
    }

    const PrintedText& text_;
    LineLayout& lines_;
    PrintDevice& device_;
    ViewStyle style_;
    SystemStyle system_;
    TextStyles styles_;
    LayoutContext context_;
    TextLayouts layouts_;
    StyleHandle small_;
    FontMetrics smallMetrics_;
};

} // namespace

ViewStyle OnPaper(ViewStyle style) {
    style.backColor = white;
    if (!IsReadable(style.textColor, white)) style.textColor = black;
    style.rightMargin = 0; // no paper is wider
    return style;
}

PrintEnd PrintPages(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                    PrintDevice& device) {
    return PagePrinter(text, lines, pictures, device).Run();
}
