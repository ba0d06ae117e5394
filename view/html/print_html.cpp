#include "view/html/print_html.h"

#include "common/contrast.h"
#include "view/html/page_cuts.h"
#include "view/html/paper_lines.h"
#include "view/html/shown_page.h"
#include "view/page/flow_leaf.h"
#include "view/page/page_painter.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double cssPerInch = 96, frameSize = 8; // points
constexpr double smallestScale = 0.5;
constexpr Color paper = 0xFFFFFF;

// Where sheets begin and end around a zone, by the styles of its boxes.
struct ZoneBreaks {
    bool beginsPage = false, endsPage = false, staysWithNext = false;
};

ZoneBreaks BreaksOf(const PageBoxes& boxes, PageBoxId first, PageBoxId lastLeaf) {
    ZoneBreaks breaks;
    for (PageBoxId box = first;; ++box) {
        breaks.beginsPage |= boxes[box].style->breakBefore == CssBreak::Page;
        if (IsFlowLeaf(boxes, box)) break;
    }
    const PageBoxId end = boxes[lastLeaf].end;
    for (PageBoxId box = lastLeaf; box != noPageBox && boxes[box].end == end;
         box = boxes[box].parent) {
        breaks.endsPage |= boxes[box].style->breakAfter == CssBreak::Page;
        breaks.staysWithNext |= boxes[box].style->breakAfter == CssBreak::Avoid;
    }
    return breaks;
}

class PrintedZone final : public PrintedBlock {
  public:
    PrintedZone(PageFragmentPtr fragment, ZoneBreaks breaks, int percent, int pageHeight,
                const PagePaint& paint)
        : fragment_(std::move(fragment)), breaks_(breaks), percent_(percent), paint_(paint),
          spans_(SolidSpans(*fragment_, pageHeight)), heads_(TableHeads(*fragment_, pageHeight)) {}

    int Height() const override { return int(std::ceil(fragment_->height)); }
    int Percent() const override { return percent_; }
    bool BeginsPage() const override { return breaks_.beginsPage; }
    bool EndsPage() const override { return breaks_.endsPage; }
    bool StaysWithNext() const override { return breaks_.staysWithNext; }

    // At the top of a page something is cut in any case where nothing fits: what is kept together
    // before table cells and floats, these before pictures, and lines last.
    int CutAbove(int from, int limit, int pageHeight) const override {
        using enum SolidSpan::Kind;
        int cut = CutBetween(spans_, Kept, from, limit);
        if (StartOfPage(from) >= cut) cut = from; // a heading does not stay for space
        if (limit - from < pageHeight) return cut;
        if (cut == from) cut = CutBetween(spans_, Part, from, limit);
        if (cut == from) cut = CutBetween(spans_, Picture, from, limit);
        if (cut == from) cut = CutBetween(spans_, Line, from, limit);
        return cut;
    }

    int StartOfPage(int from) const override {
        int next = Height();
        for (const SolidSpan& span : spans_)
            if (span.bottom > from + 1) next = std::min(next, std::max(from, span.top));
        return next;
    }

    Stretch RepeatedAt(int from) const override {
        for (const TableHead& head : heads_)
            if (from >= head.bottom && from < head.tableBottom) return {head.top, head.bottom};
        return {};
    }

    void Paint(Canvas& canvas, Point origin, const Rect& clip) const override {
        PagePaint paint = paint_;
        paint.clip = clip;
        PaintFragment(canvas, paint, *fragment_, origin.x, origin.y);
    }

  private:
    PageFragmentPtr fragment_;
    ZoneBreaks breaks_;
    int percent_;
    const PagePaint& paint_;
    std::vector<SolidSpan> spans_;
    std::vector<TableHead> heads_;
};

class HtmlPrinter {
  public:
    HtmlPrinter(const PrintedPage& page, LineLayout& lines, PictureStore& pictures,
                PrintDevice& device)
        : page_(page), lines_(lines), device_(device), pictures_(page.page, page.files, pictures) {
        lines.SetResolution(device.Dpi());
    }

    PrintEnd Run() {
        TextStyle small;
        small.font.points = frameSize;
        const PrintFrame frame(page_.title, small, lines_, device_);
        room_ = frame.Room();
        LayOut(1);
        const auto widest = Widest();
        if (!widest) return PrintEnd::GivenUp;
        if (*widest > room_.width + 1) LayOut(std::max(smallestScale, room_.width / *widest));
        PagePaint paint{shown_->Boxes(),
                        shown_->Options().scale,
                        ReadableOn(paper, shown_->TextColor()),
                        {},
                        {},
                        {},
                        {}};
        paint.backgrounds = false;
        paint.drawPicture = [this](Canvas& on, PageBoxId box, const Rect& where) {
            return pictures_.Draw(on, pictures_.PictureOf(shown_->Boxes()[box]), where);
        };
        std::size_t zone = 0;
        const auto next = [&]() -> std::shared_ptr<const PrintedBlock> {
            PageFlow& flow = shown_->Flow();
            if (zone == flow.ZoneCount()) return nullptr;
            const int percent = int(100 * zone / flow.ZoneCount());
            const PageBoxId first = zone == 0 ? rootPageBox : flow.Zone(zone - 1).end;
            const ZoneBreaks breaks = BreaksOf(shown_->Boxes(), first, flow.Zone(zone).lastLeaf);
            return std::make_shared<PrintedZone>(flow.LayOut(zone++), breaks, percent, room_.height,
                                                 paint);
        };
        return PrintFlow(next, frame, page_.pageRanges, device_);
    }

  private:
    void LayOut(double share) {
        PageRenderOptions options;
        options.dpi = device_.Dpi();
        options.scale = options.dpi / cssPerInch * page_.zoom / 100 * share;
        options.viewport = {room_.width, room_.height};
        options.onPaper = true;
        shown_.emplace(page_.page, page_.sheets, pictures_, lines_, options);
    }

    // Nothing when the job was given up meanwhile.
    std::optional<double> Widest() {
        double widest = 0;
        PageFlow& flow = shown_->Flow();
        for (std::size_t zone = 0; zone < flow.ZoneCount(); ++zone) {
            if (!device_.OnProgress(0)) return std::nullopt;
            widest = std::max(widest, RightEdge(*flow.LayOut(zone)));
        }
        return widest;
    }

    const PrintedPage& page_;
    PaperLines lines_;
    PrintDevice& device_;
    PagePictures pictures_;
    Rect room_;
    std::optional<ShownPage> shown_;
};
} // namespace

PrintEnd PrintHtml(const PrintedPage& page, LineLayout& lines, PictureStore& pictures,
                   PrintDevice& device) {
    return HtmlPrinter(page, lines, pictures, device).Run();
}
