#include "view/print_pages.h"

#include "common/contrast.h"
#include "view/text_layouts.h"
#include "view/text_painter.h"
#include "view/text_pane.h"

#include <algorithm>
#include <utility>

namespace {

constexpr double twipsPerInch = 1440, smallShare = 0.8; // of the font's size, at head and foot
constexpr Color black = 0x000000, white = 0xFFFFFF;

// Where no line is cut.
int CutBetweenLines(const BlockLayout& layout, int from, int limit) {
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

class PrintedTextBlock final : public PrintedBlock {
  public:
    PrintedTextBlock(TextLayouts::Layout layout, const TextPaint& paint, TextPos length)
        : layout_(std::move(layout)), paint_(paint), length_(length) {}

    int Height() const override { return layout_->height; }
    int Percent() const override { return int(std::int64_t{100} * layout_->block.start / length_); }

    // A table row stands on one page where one can hold it, and a line that is higher than a page
    // is cut.
    int CutAbove(int from, int limit, int pageHeight) const override {
        const bool wholeRow = !layout_->cells.empty() && from == 0 && layout_->height <= pageHeight;
        return wholeRow ? from : CutBetweenLines(*layout_, from, limit);
    }

    void Paint(Canvas& canvas, Point origin, const Rect& clip) const override {
        PaintBackground(canvas, *layout_, origin);
        PaintBlock(canvas, paint_, *layout_, origin, clip);
    }

  private:
    TextLayouts::Layout layout_;
    const TextPaint& paint_;
    TextPos length_;
};

class TextPrinter {
  public:
    TextPrinter(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                PrintDevice& device)
        : text_(text), lines_(lines), device_(device), style_(OnPaper(text.style)),
          system_(text.system),
          styles_(text.document, style_, system_, lines), context_{text.document, style_, styles_,
                                                                   pictures, lines},
          layouts_(context_) {
        system_.text = black;
        system_.link = ReadableOn(white, system_.link);
        lines.SetResolution(device.Dpi());
        context_.text = &text.text;
        context_.plain = text.plain;
        context_.viewWidth = context_.columnWidth = context_.breakWidth =
            std::max(1, device.Page().width);
        context_.pixelsPerTwip = device.Dpi() / twipsPerInch;
        styles_.Reset();
    }

    PrintEnd Run() {
        TextStyle small = StyleOf(style_.font, system_);
        small.font.points *= smallShare;
        small.underline = small.strikethrough = false;
        const PrintFrame frame(text_.title, small, lines_, device_);
        const TextPaint paint{context_, PlainTextColor(style_, system_), black, white, 0, 0};
        const TextPos length = std::max(1, text_.text.Length());
        TextLayouts::Layout last;
        const auto next = [&]() -> std::shared_ptr<const PrintedBlock> {
            last = last ? layouts_.After(last) : layouts_.At(0);
            return last ? std::make_shared<PrintedTextBlock>(last, paint, length) : nullptr;
        };
        return PrintFlow(next, frame, text_.pageRanges, device_);
    }

  private:
    const PrintedText& text_;
    LineLayout& lines_;
    PrintDevice& device_;
    ViewStyle style_;
    SystemStyle system_;
    TextStyles styles_;
    LayoutContext context_;
    TextLayouts layouts_;
};

} // namespace

PrintedText PrintedTextOf(const TextPane& pane, const std::u16string& title,
                          const PageRanges& pageRanges) {
    return {pane.ShownSource(), pane.Text(), pane.IsPlain(), pane.Style(),
            pane.System(),      title,       pageRanges};
}

ViewStyle OnPaper(ViewStyle style) {
    style.backColor = white;
    style.textColor = ReadableOn(white, style.textColor);
    style.rightMargin = 0; // no paper is wider
    return style;
}

PrintEnd PrintPages(const PrintedText& text, LineLayout& lines, PictureStore& pictures,
                    PrintDevice& device) {
    return TextPrinter(text, lines, pictures, device).Run();
}
