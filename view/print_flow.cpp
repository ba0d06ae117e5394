#include "view/print_flow.h"

#include "view/one_line.h"

#include <algorithm>
#include <cmath>
#include <deque>
#include <vector>

namespace {
constexpr Color black = 0x000000;

// A block, or the part of it that stands on a page.
struct PlacedBlock {
    std::shared_ptr<const PrintedBlock> block;
    int from = 0, to = 0;                // of the block's height
    int top = 0;                         // on the page, below the head
    PrintedBlock::Stretch repeated = {}; // above it
};

class PageCutter {
  public:
    PageCutter(const NextPrintedBlock& next, int height)
        : source_(next), height_(height), next_(next()) {}

    bool IsAtEnd() const { return !next_; }
    int Percent() const { return next_ ? next_->Percent() : 100; }

    std::vector<PlacedBlock> Next() {
        std::vector<PlacedBlock> parts = Fill();
        SkipSpace();
        return parts;
    }

  private:
    std::vector<PlacedBlock> Fill() {
        std::vector<PlacedBlock> parts;
        int top = 0;
        while (next_) {
            if (from_ == 0 && next_->BeginsPage() && HasHeight(parts)) return parts;
            const auto repeated =
                parts.empty() ? next_->RepeatedAt(from_) : PrintedBlock::Stretch{};
            top += repeated.Height();
            const int to = EndOnPage(top, parts.empty());
            if (to == from_ && !parts.empty() && next_->Height() > 0) return WithoutHeadings(parts);
            parts.push_back({next_, from_, to, top, repeated});
            top += to - from_;
            from_ = to;
            if (to < next_->Height()) return parts;
            const bool isLast = next_->EndsPage();
            Advance();
            if (isLast && HasHeight(parts)) return parts;
        }
        return parts;
    }

    static bool HasHeight(const std::vector<PlacedBlock>& parts) {
        return !parts.empty() && parts.back().top + parts.back().to - parts.back().from > 0;
    }

    // Those at the end go to the next page, with what they belong to, unless there is nothing else.
    std::vector<PlacedBlock> WithoutHeadings(std::vector<PlacedBlock> parts) {
        std::size_t count = parts.size();
        while (count > 0 && parts[count - 1].from == 0 && parts[count - 1].block->StaysWithNext())
            --count;
        if (count == 0 || count == parts.size()) return parts;
        returned_.push_front(next_);
        for (; parts.size() > count; parts.pop_back())
            returned_.push_front(parts.back().block);
        Advance();
        return parts;
    }

    void Advance() {
        from_ = 0;
        if (returned_.empty()) {
            next_ = source_();
        } else {
            next_ = returned_.front();
            returned_.pop_front();
        }
    }

    int EndOnPage(int top, bool first) const {
        const int room = height_ - top;
        if (next_->Height() - from_ <= room) return next_->Height();
        const int cut = next_->CutAbove(from_, from_ + room, first ? room : height_);
        return cut == from_ && first ? from_ + room : cut;
    }

    // A page does not begin with space, and there is none of space alone.
    void SkipSpace() {
        while (next_) {
            from_ = next_->StartOfPage(from_);
            if (from_ < next_->Height() || next_->Height() == 0) return;
            Advance();
        }
    }

    const NextPrintedBlock& source_;
    std::deque<std::shared_ptr<const PrintedBlock>> returned_; // before the source's next one
    int height_;
    std::shared_ptr<const PrintedBlock> next_;
    int from_ = 0; // of the next block's height
};

bool PrintPage(const std::vector<PlacedBlock>& parts, int number, const PrintFrame& frame,
               PrintDevice& device) {
    Canvas* const canvas = device.BeginPage();
    if (!canvas) return false;
    const Size page = device.Page();
    device.ClipTo({0, 0, page.width, page.height});
    frame.Draw(*canvas, number);
    const int head = frame.Room().top;
    const auto paint = [&](const PrintedBlock& block, int from, int to, int top) {
        const Rect clip{0, head + top, page.width, to - from};
        device.ClipTo(clip);
        block.Paint(*canvas, {0, clip.top - from}, clip);
    };
    for (const PlacedBlock& part : parts) {
        const auto& repeated = part.repeated;
        if (repeated.Height() > 0)
            paint(*part.block, repeated.top, repeated.bottom, part.top - repeated.Height());
        paint(*part.block, part.from, part.to, part.top);
    }
    return device.EndPage();
}
} // namespace

PrintFrame::PrintFrame(std::u16string title, const TextStyle& style, LineLayout& lines,
                       PrintDevice& device)
    : title_(std::move(title)), lines_(lines), device_(device), style_(lines.Prepare(style)),
      metrics_(lines.Metrics(*style_)) {}

int PrintFrame::LineHeight() const {
    return int(std::ceil(metrics_.Height()));
}

Rect PrintFrame::Room() const {
    const int edge = 2 * LineHeight(); // with the space to what is between
    const Size page = device_.Page();
    return {0, edge, std::max(1, page.width), std::max(1, page.height - 2 * edge)};
}

void PrintFrame::Draw(Canvas& canvas, int number) const {
    DrawCentred(canvas, title_, 0);
    const std::string digits = std::to_string(number);
    DrawCentred(canvas, {digits.begin(), digits.end()}, device_.Page().height - LineHeight());
}

void PrintFrame::DrawCentred(Canvas& canvas, const std::u16string& text, int top) const {
    const Size page = device_.Page();
    const auto line = LayOutOneLine(lines_, style_, text, page.width);
    const int left = (page.width - int(std::ceil(line->Line(0).width))) / 2;
    line->Draw(canvas, 0, left, top + int(std::lround(metrics_.ascent)),
               {.text = black, .clip = {0, top, page.width, LineHeight()}});
}

PrintEnd PrintFlow(const NextPrintedBlock& next, const PrintFrame& frame,
                   const PageRanges& pageRanges, PrintDevice& device) {
    PageCutter pages(next, frame.Room().height);
    for (int number = 1; (number == 1 || !pages.IsAtEnd()) && number <= pageRanges.last; ++number) {
        if (!device.OnProgress(pages.Percent())) return PrintEnd::GivenUp;
        const std::vector<PlacedBlock> parts = pages.Next();
        if (pageRanges.contains && !pageRanges.contains(number)) continue;
        if (!PrintPage(parts, number, frame, device)) return PrintEnd::Failed;
    }
    return PrintEnd::Done;
}
