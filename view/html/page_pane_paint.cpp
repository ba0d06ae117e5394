// Painting of a page.
#include "view/html/page_pane.h"
#include "view/html/print_html.h"
#include "view/page/page_painter.h"

#include <algorithm>

namespace {
constexpr Color defaultBackground = 0xFFFFFF;
// Zones of a frame that are drawn though they take no height, or nearly none: what hangs out of
// them is seen.
constexpr std::size_t maxFlatZones = 64;
constexpr double flat = 1; // device pixels
} // namespace

Color PagePane::BackColor() const {
    return shown_ ? shown_->CanvasColor() : defaultBackground;
}

void PagePane::Paint(Canvas& canvas, const Rect& clip) {
    if (!UpdateLayout()) return;
    Arrive();
    const SelectionColors& selection =
        window_.HasFocus() ? system_.selection : system_.inactiveSelection;
    const PagePlaces places(*page_, *shown_);
    PagePaint paint{shown_->Boxes(), options_.scale, shown_->TextColor(), clip, {}, {}, selection};
    pictures_->StartFrame();
    paint.drawPicture = [this](Canvas& on, PageBoxId box, const Rect& where) {
        return pictures_->Draw(on, pictures_->PictureOf(shown_->Boxes()[box]), where);
    };
    if (SelStart() < SelEnd())
        paint.selectedUnits = [&](const InlineContent& content) {
            return places.SelectedUnits(content, SelStart(), SelEnd());
        };
    PageFlow& flow = shown_->Flow();
    std::vector<std::pair<PageFragmentPtr, double>> visible;
    double y = -scroller_.Position().y;
    for (std::size_t zone = scroller_.Position().zone; zone < flow.ZoneCount() && y < Bottom(clip);
         ++zone) {
        if (visible.size() > maxFlatZones && flow.HeightOf(zone) < flat) {
            y += flow.HeightOf(zone);
            continue;
        }
        PageFragmentPtr fragment = flow.LayOut(zone);
        const double height = fragment->height;
        widest_ = std::max(widest_, RightEdge(*fragment));
        if (y + height >= clip.top) visible.emplace_back(std::move(fragment), y);
        y += height;
    }
    UpdateScrollBars();
    for (const auto& [fragment, top] : visible)
        PaintFragment(canvas, paint, *fragment, -scrollX_, top);
    const PageViewport view = CurrentViewport();
    if (window_.HasFocus()) links_.PaintFocus(canvas, view, system_.link);
    label_.Paint(canvas, lines_, system_, view, scroller_);
    if (pictures_->AreLeftOut()) StartMeasuring();
}

PrintEnd PagePane::Print(const std::u16string& title, const PageRanges& pageRanges,
                         LineLayout& lines, PictureStore& pictures, PrintDevice& device) const {
    const auto sheets = PageSheets(*page_, *pageFiles_, {.isPrint = true});
    return PrintHtml({*page_, *pageFiles_, sheets, zoom_, title, pageRanges}, lines, pictures,
                     device);
}
