#include "formats/metafile/metafile_canvas.h"

#include "formats/metafile/metafile_limits.h"

#include <algorithm>
#include <cmath>

namespace {
double Share(double value, double from, double to) {
    const double share = to == from ? 0 : (value - from) / (to - from);
    return std::isfinite(share) ? std::clamp(share, -maxMetaPlace, maxMetaPlace) : 0;
}

} // namespace

MetaCanvas::MetaCanvas(const MetaBox& frame)
    : frame_(frame), pointsLeft_(maxMetaPoints), textLeft_(maxMetaTextUnits),
      pixelsLeft_(maxMetaPixels), coverLeft_(maxMetaCover) {}

MetaPoint MetaCanvas::Map(MetaPoint logical) const {
    const MetaPoint page = state_.world.Apply(logical);
    const auto device = [](double at, double origin, double extent, double viewOrigin,
                           double viewExtent) {
        return extent == 0 ? viewOrigin : (at - origin) / extent * viewExtent + viewOrigin;
    };
    const double x = device(page.x, state_.windowOrigin.x, state_.windowExtent.x,
                            state_.viewportOrigin.x, state_.viewportExtent.x);
    const double y = device(page.y, state_.windowOrigin.y, state_.windowExtent.y,
                            state_.viewportOrigin.y, state_.viewportExtent.y);
    return {Share(x, frame_.left, frame_.right), Share(y, frame_.top, frame_.bottom)};
}

MetaPoint MetaCanvas::Placed(MetaPoint logical) {
    const MetaPoint place = Map(logical);
    bounds_ = {std::min(bounds_.left, place.x), std::min(bounds_.top, place.y),
               std::max(bounds_.right, place.x), std::max(bounds_.bottom, place.y)};
    return place;
}

MetaPoint MetaCanvas::MappedVector(MetaPoint logical) const {
    const MetaPoint from = Map({0, 0}), to = Map(logical);
    return {to.x - from.x, to.y - from.y};
}

double MetaCanvas::MappedHeight(double logical) const {
    const MetaPoint vector = MappedVector({0, logical});
    return vector.y != 0 ? std::abs(vector.y) : std::abs(vector.x); // turned by a quarter
}

double MetaCanvas::CoverOf(const MetaBox& box) const {
    const MetaRect& clip = state_.clip;
    const double width = std::min(clip.right, box.right) - std::max(clip.left, box.left);
    const double height = std::min(clip.bottom, box.bottom) - std::max(clip.top, box.top);
    return std::max(0.0, width) * std::max(0.0, height);
}

bool MetaCanvas::AddCommand(MetaCommand::Kind kind, std::size_t index, double cover) {
    if (file_.commands.size() >= maxMetaCommands || coverLeft_ <= 0) return false;
    coverLeft_ -= cover;
    file_.commands.push_back({kind, state_.clip, index});
    return true;
}

void MetaCanvas::AddShape(const std::vector<MetaPoints>& contours, MetaContour end,
                          MetaPaint paint) {
    MetaShape shape;
    shape.isClosed = end == MetaContour::Closed;
    shape.isWinding = state_.isWinding;
    shape.hasPen = paint != MetaPaint::Fill && state_.pen.isVisible;
    shape.hasBrush = paint != MetaPaint::Stroke && state_.brush.isVisible;
    shape.isDashed = state_.pen.isDashed;
    shape.penWidth = std::min(1.0, MappedHeight(state_.pen.width));
    shape.pen = state_.pen.color;
    shape.brush = state_.brush.color;
    MetaBox box{1e300, 1e300, -1e300, -1e300};
    for (const MetaPoints& contour : contours) {
        if (contour.size() > pointsLeft_) return;
        pointsLeft_ -= contour.size();
        MetaPoints& places = shape.contours.emplace_back();
        for (const MetaPoint& point : contour) {
            const MetaPoint place = places.emplace_back(Placed(point));
            box = {std::min(box.left, place.x - shape.penWidth),
                   std::min(box.top, place.y - shape.penWidth),
                   std::max(box.right, place.x + shape.penWidth),
                   std::max(box.bottom, place.y + shape.penWidth)};
        }
    }
    if ((shape.hasPen || shape.hasBrush) &&
        AddCommand(MetaCommand::Kind::Shape, file_.shapes.size(), CoverOf(box)))
        file_.shapes.push_back(std::move(shape));
}

void MetaCanvas::Shape(std::vector<MetaPoints> contours, MetaContour end) {
    if (!isInPath_)
        return AddShape(contours, end,
                        end == MetaContour::Closed ? MetaPaint::FillAndStroke : MetaPaint::Stroke);
    for (MetaPoints& contour : contours) {
        if (contour.empty() || contour.size() >= pointsLeft_) continue;
        pointsLeft_ -= contour.size() + 1;
        if (end == MetaContour::Closed) contour.push_back(contour.front());
        path_.push_back(std::move(contour));
    }
}

void MetaCanvas::MoveTo(MetaPoint place) {
    state_.position = place;
    if (isInPath_ && pointsLeft_ > 0) {
        --pointsLeft_;
        path_.push_back({place});
    }
}

void MetaCanvas::LinesTo(MetaPoints points) {
    if (points.empty()) return;
    const MetaPoint last = points.back();
    if (isInPath_ && !path_.empty() && points.size() <= pointsLeft_) {
        pointsLeft_ -= points.size();
        path_.back().insert(path_.back().end(), points.begin(), points.end());
    } else if (!isInPath_) {
        points.insert(points.begin(), state_.position);
        Lines({std::move(points)});
    }
    state_.position = last;
}

void MetaCanvas::Text(MetaPoint place, std::u16string text, double width) {
    constexpr unsigned updatesPosition = 1, right = 2, center = 6, bottom = 8, baseline = 24;
    if (text.empty() || text.size() > textLeft_ || isInPath_) return;
    const bool isAtPosition = (state_.textAlign & updatesPosition) != 0;
    MetaText result;
    result.place = Placed(isAtPosition ? state_.position : place);
    result.width = std::abs(MappedVector({width, 0}).x);
    if (isAtPosition) state_.position.x += width;
    const MetaFont& font = state_.font;
    constexpr double usualHeight = 12;
    result.height = MappedHeight(font.height == 0 ? usualHeight : font.height);
    result.font = font.name;
    result.degrees = font.degrees;
    result.color = state_.textColor;
    result.background = state_.background;
    result.hasBackground = state_.isOpaque;
    result.isBold = font.isBold;
    result.isItalic = font.isItalic;
    result.isUnderlined = font.isUnderlined;
    result.isStruckOut = font.isStruckOut;
    if ((state_.textAlign & center) == center)
        result.horizontal = MetaText::Horizontal::Center;
    else if ((state_.textAlign & right) != 0)
        result.horizontal = MetaText::Horizontal::Right;
    if ((state_.textAlign & baseline) == baseline)
        result.vertical = MetaText::Vertical::Baseline;
    else if ((state_.textAlign & bottom) != 0)
        result.vertical = MetaText::Vertical::Bottom;
    textLeft_ -= text.size();
    // A letter is about as wide as it is high.
    const double letter = std::min(1.0, result.height);
    const double cover = static_cast<double>(text.size()) * letter * letter;
    result.text = std::move(text);
    if (AddCommand(MetaCommand::Kind::Text, file_.texts.size(), cover))
        file_.texts.push_back(result);
}

void MetaCanvas::Image(const MetaBox& place, MetaImage image, std::uint32_t rasterOperation) {
    constexpr std::uint32_t sourceAnd = 0x008800C6, sourcePaint = 0x00EE0086,
                            sourceInvert = 0x00660046, notSourceCopy = 0x00330008,
                            nothing = 0x00AA0029;
    if (image.pixels.empty()) return;
    switch (rasterOperation) {
    case sourceAnd: image.mode = MetaImage::Mode::And; break;
    case sourcePaint: image.mode = MetaImage::Mode::Or; break;
    case sourceInvert: image.mode = MetaImage::Mode::Xor; break;
    case notSourceCopy:
        for (std::uint32_t& pixel : image.pixels)
            pixel ^= 0xFFFFFF;
        break;
    case nothing: return;
    default: break;
    }
    const MetaPoint from = Placed({place.left, place.top}),
                    to = Placed({place.right, place.bottom});
    image.place = {from.x, from.y, to.x, to.y};
    const MetaBox box{std::min(from.x, to.x), std::min(from.y, to.y), std::max(from.x, to.x),
                      std::max(from.y, to.y)};
    if (AddCommand(MetaCommand::Kind::Image, file_.images.size(), CoverOf(box)))
        file_.images.push_back(std::move(image));
}

void MetaCanvas::Fill(const MetaBox& place, std::uint32_t rasterOperation) {
    constexpr std::uint32_t patternCopy = 0x00F00021, blackness = 0x00000042,
                            whiteness = 0x00FF0062;
    const MetaBrush brush = state_.brush;
    if (rasterOperation == blackness) state_.brush = {true, 0x000000};
    if (rasterOperation == whiteness) state_.brush = {true, 0xFFFFFF};
    if (rasterOperation == patternCopy || rasterOperation == blackness ||
        rasterOperation == whiteness)
        AddShape({{{place.left, place.top},
                   {place.right, place.top},
                   {place.right, place.bottom},
                   {place.left, place.bottom}}},
                 MetaContour::Closed, MetaPaint::Fill);
    state_.brush = brush;
}

void MetaCanvas::Pixel(MetaPoint place, Color color) {
    const MetaPen pen = state_.pen;
    state_.pen = {.color = color};
    AddShape({{place, place}}, MetaContour::Open, MetaPaint::Stroke);
    state_.pen = pen;
}
