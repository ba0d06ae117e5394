#include "formats/css/css_rare_style.h"
#include "view/page/page_layouter.h"

#include <algorithm>
#include <cmath>

namespace {
// CSS pixels; of a picture that cannot be read and has no size.
constexpr int missingPicture = 24;
} // namespace

// Within the limits of both sides, in the shape that it has (CSS 2.1, 10.4).
Size PageLayouter::LimitPicture(const CssBoxStyle& style, double containing, double width,
                                double height) const {
    constexpr double any = 1e9;
    const double maxWidth = measure_.LimitWidth(style, containing, any),
                 maxHeight = measure_.LimitHeight(style, any),
                 minWidth = measure_.LimitWidth(style, containing, 0),
                 minHeight = measure_.LimitHeight(style, 0);
    const double smaller = std::min({1.0, maxWidth / width, maxHeight / height});
    const double larger =
        std::max({1.0, minWidth / (width * smaller), minHeight / (height * smaller)});
    return {int(std::lround(std::min(maxWidth, width * smaller * larger))),
            int(std::lround(std::min(maxHeight, height * smaller * larger)))};
}

Size PageLayouter::PictureContentSize(PageBoxId id, const CssBoxStyle& style, double containing) {
    const PageBox& box = boxes_[id];
    Size natural = content_.PictureSize(id);
    if (natural.IsEmpty())
        if (const auto alternative = content_.AlternativeOf(id))
            return AlternativeSize(id, containing, *alternative);
    const double scale = measure_.Scale();
    double width = measure_.GivenWidth(style, containing);
    double height = measure_.GivenHeight(style);
    if (natural.IsEmpty() && box.generated) return {};
    const double naturalWidth = (natural.IsEmpty() ? missingPicture : natural.width) * scale;
    const double naturalHeight = (natural.IsEmpty() ? missingPicture : natural.height) * scale;
    const double ratio =
        style.rare->aspectRatio > 0 ? 1 / style.rare->aspectRatio : naturalHeight / naturalWidth;
    if (width < 0 && height < 0)
        return LimitPicture(style, containing, naturalWidth, naturalWidth * ratio);
    if (width < 0) {
        const double asked = height / ratio;
        width = measure_.LimitWidth(style, containing, asked);
        if (width != asked) height = width * ratio;
    }
    if (height < 0) height = measure_.LimitHeight(style, width * ratio);
    return {int(std::lround(width)), int(std::lround(height))};
}

// What stands for a picture is as wide as its text, unless the picture has a size of its own.
Size PageLayouter::AlternativeSize(PageBoxId id, double containing,
                                   const InlineContent& alternative) {
    const CssBoxStyle& style = *boxes_[id].style;
    double width = measure_.GivenWidth(style, containing);
    if (width < 0) {
        const WidthExtent extent = ExtentOf(lines_, alternative);
        width =
            containing > 0 ? std::min(extent.max, std::max(extent.min, containing)) : extent.max;
        width = measure_.LimitWidth(style, containing, width);
    }
    double height = measure_.GivenHeight(style);
    if (height < 0) {
        FloatContext none;
        height = LayOutInline(lines_, alternative, {0, width}, 0, none).bottom;
    }
    return {int(std::lround(width)), int(std::lround(height))};
}

void PageLayouter::AddAlternative(PageBoxId id, double left, double top, Size size,
                                  std::shared_ptr<const InlineContent> alternative,
                                  PageFragment& fragment) {
    FloatContext none;
    InlineLayout layout = LayOutInline(lines_, *alternative, {left, left + size.width}, top, none);
    std::erase_if(layout.lines, [&](const InlineLine& line) {
        return line.top > top && line.top + line.height > top + size.height;
    });
    if (!layout.lines.empty())
        fragment.lines.push_back({id, std::move(alternative), std::move(layout)});
}

// Where in its content box it is drawn.
PlacedImage PageLayouter::PlacedWithin(PageBoxId id, double left, double top, Size size) {
    PlacedImage image{id, left, top, double(size.width), double(size.height)};
    const Size natural = content_.PictureSize(id);
    if (boxes_[id].style->rare->objectFit == CssObjectFit::Fill || natural.IsEmpty()) return image;
    const double share = std::min(image.width / natural.width, image.height / natural.height);
    const double width = std::round(natural.width * share),
                 height = std::round(natural.height * share);
    image.left += std::floor((image.width - width) / 2);
    image.top += std::floor((image.height - height) / 2);
    image.width = width;
    image.height = height;
    return image;
}

PageFragmentPtr PageLayouter::LayOutPicture(PageBoxId id, double containing) {
    const PageBox& box = boxes_[id];
    const Size size = PictureContentSize(id, *box.style, containing);
    const BoxInsets insets = measure_.Insets(*box.style, containing);
    auto fragment = std::make_shared<PageFragment>();
    fragment->width = size.width + measure_.SideInsets(*box.style, containing);
    fragment->height = insets.Top() + size.height + insets.Bottom();
    if (HasVisibleBox(box))
        fragment->boxes.push_back({id, 0, 0, fragment->width, fragment->height, false, false});
    const double left = measure_.InsetLeft(*box.style, containing);
    auto alternative = content_.PictureSize(id).IsEmpty() ? content_.AlternativeOf(id) : nullptr;
    if (!alternative) {
        fragment->pictures.push_back(PlacedWithin(id, left, insets.Top(), size));
        return fragment;
    }
    const bool hasSize =
        measure_.GivenWidth(*box.style, containing) > 0 && measure_.GivenHeight(*box.style) > 0;
    if (hasSize && !alternative->text.text.empty())
        fragment->pictures.push_back(
            {id, left, insets.Top(), double(size.width), double(size.height), true});
    AddAlternative(id, left, insets.Top(), size, std::move(alternative), *fragment);
    return fragment;
}
