// What a metafile's records set, and do not draw.
#include "formats/metafile/metafile_canvas.h"
#include "formats/metafile/metafile_limits.h"

#include <algorithm>

namespace {
constexpr std::uint32_t stockFlag = 0x8000'0000;

// [MS-EMF] StockObject; those left out are fonts and palettes.
MetaObject StockObject(std::uint32_t number) {
    constexpr Color grays[] = {0xFFFFFF, 0xC0C0C0, 0x808080, 0x404040, 0x000000};
    if (number < 5) return MetaBrush{true, grays[number]};
    switch (number) {
    case 5: return MetaBrush{false, 0};
    case 6: return MetaPen{.color = 0xFFFFFF};
    case 7: return MetaPen{};
    case 8: return MetaPen{.isVisible = false};
    default: return number <= 17 && number != 15 ? MetaObject(MetaFont{}) : MetaObject();
    }
}
} // namespace

MetaTransform Combined(const MetaTransform& first, const MetaTransform& second) {
    const MetaPoint origin = second.Apply({first.dx, first.dy});
    return {second.xx * first.xx + second.yx * first.xy,
            second.xy * first.xx + second.yy * first.xy,
            second.xx * first.yx + second.yx * first.yy,
            second.xy * first.yx + second.yy * first.yy,
            origin.x,
            origin.y};
}

void MetaCanvas::Save() {
    if (saved_.size() < maxMetaSavedStates) saved_.push_back(state_);
}

void MetaCanvas::Restore(int which) {
    const auto count = static_cast<std::int64_t>(saved_.size());
    const std::int64_t index = which < 0 ? count + which : std::int64_t{which} - 1;
    if (index < 0 || index >= count) return;
    state_ = saved_[static_cast<std::size_t>(index)];
    saved_.resize(static_cast<std::size_t>(index));
}

void MetaCanvas::AddObject(MetaObject object) {
    const auto free = std::find_if(objects_.begin(), objects_.end(),
                                   [](const MetaObject& o) { return o.index() == 0; });
    SetObject(static_cast<std::uint32_t>(free - objects_.begin()), std::move(object));
}

void MetaCanvas::SetObject(std::uint32_t number, MetaObject object) {
    if (number >= maxMetaObjects) return;
    if (number >= objects_.size()) objects_.resize(number + 1);
    objects_[number] = std::move(object);
}

void MetaCanvas::DeleteObject(std::uint32_t number) {
    if (number < objects_.size()) objects_[number] = {};
}

void MetaCanvas::SelectObject(std::uint32_t number) {
    const MetaObject object = (number & stockFlag) != 0  ? StockObject(number & ~stockFlag)
                              : number < objects_.size() ? objects_[number]
                                                         : MetaObject();
    if (const auto* pen = std::get_if<MetaPen>(&object)) state_.pen = *pen;
    if (const auto* brush = std::get_if<MetaBrush>(&object)) state_.brush = *brush;
    if (const auto* font = std::get_if<MetaFont>(&object)) state_.font = *font;
}

void MetaCanvas::ClipTo(const MetaBox& place) {
    const MetaPoint a = Map({place.left, place.top}), b = Map({place.right, place.bottom});
    MetaRect& clip = state_.clip;
    clip.left = std::max(clip.left, std::min(a.x, b.x));
    clip.top = std::max(clip.top, std::min(a.y, b.y));
    clip.right = std::min(clip.right, std::max(a.x, b.x));
    clip.bottom = std::min(clip.bottom, std::max(a.y, b.y));
}

void MetaCanvas::BeginPath() {
    isInPath_ = true;
    path_.clear();
    MoveTo(state_.position);
}

void MetaCanvas::CloseFigure() {
    if (!isInPath_ || path_.empty() || path_.back().empty() || pointsLeft_ == 0) return;
    --pointsLeft_;
    path_.back().push_back(path_.back().front());
}

void MetaCanvas::PaintPath(MetaPaint paint) {
    isInPath_ = false;
    std::erase_if(path_, [](const MetaPoints& contour) { return contour.size() < 2; });
    if (!path_.empty()) AddShape(path_, MetaContour::Open, paint);
    path_.clear();
}
