#include "view/page/page_fragment.h"

#include "common/find_text.h"

#include <algorithm>

namespace {
template <typename Placed>
void Move(std::vector<Placed>& all, std::size_t first, double x, double y) {
    for (std::size_t i = first; i < all.size(); ++i) {
        all[i].left += x;
        all[i].top += y;
    }
}

void AddToBaseline(const PageFragment& fragment, double top, double& baseline) {
    for (const PlacedLines& lines : fragment.lines)
        baseline = std::max(baseline, top + lines.layout.lines.back().baseline);
    for (const PlacedPart& part : fragment.parts)
        AddToBaseline(*part.fragment, top + part.top, baseline);
}

void AddFirstBaseline(const PageFragment& fragment, double top, double& baseline) {
    const auto add = [&](double each) {
        baseline = baseline < 0 ? each : std::min(baseline, each);
    };
    for (const PlacedLines& lines : fragment.lines)
        add(top + lines.layout.lines.front().baseline);
    for (const PlacedPart& part : fragment.parts)
        AddFirstBaseline(*part.fragment, top + part.top, baseline);
}

bool IsBlank(const InlineContent& content, const InlineLine& line) {
    const std::u16string_view text = content.text.text;
    const auto units = text.substr(std::size_t(line.start), std::size_t(line.end - line.start));
    return units.find_first_not_of(u" \t\u00A0\u2028\u2060") == units.npos;
}
} // namespace

FragmentMark EndOf(const PageFragment& fragment) {
    return {fragment.boxes.size(), fragment.pictures.size(), fragment.lines.size(),
            fragment.parts.size()};
}

void MoveSince(const FragmentMark& mark, double x, double y, PageFragment& fragment) {
    Move(fragment.boxes, mark.boxes, x, y);
    Move(fragment.pictures, mark.pictures, x, y);
    Move(fragment.parts, mark.parts, x, y);
    for (std::size_t i = mark.lines; i < fragment.lines.size(); ++i)
        for (InlineLine& line : fragment.lines[i].layout.lines) {
            line.left += x;
            line.top += y;
            line.baseline += y;
        }
}

double LastBaseline(const PageFragment& fragment) {
    double baseline = -1;
    AddToBaseline(fragment, 0, baseline);
    return baseline;
}

double FirstBaseline(const PageFragment& fragment) {
    double baseline = -1;
    AddFirstBaseline(fragment, 0, baseline);
    return baseline;
}

PageFragmentPtr Stretched(const PageFragmentPtr& block, double height, double shift) {
    if (height <= block->height) return block;
    auto stretched = std::make_shared<PageFragment>();
    stretched->width = block->width;
    stretched->height = height;
    stretched->boxes = block->boxes;
    for (PlacedBox& placed : stretched->boxes)
        placed.height = height - placed.top;
    for (PlacedPart part : block->parts) {
        part.top += shift;
        stretched->parts.push_back(std::move(part));
    }
    return stretched;
}

bool HasWords(const PageFragment& fragment) {
    const auto hasWord = [](const PlacedLines& lines) {
        const std::u16string& text = lines.content->text.text;
        return std::any_of(text.begin(), text.end(), IsWordUnit);
    };
    return !fragment.pictures.empty() ||
           std::any_of(fragment.lines.begin(), fragment.lines.end(), hasWord) ||
           std::any_of(fragment.parts.begin(), fragment.parts.end(),
                       [](const PlacedPart& part) { return HasWords(*part.fragment); });
}

double VisibleBottom(const PageFragment& fragment) {
    double bottom = 0;
    for (const PlacedBox& box : fragment.boxes)
        bottom = std::max(bottom, box.top + box.height);
    for (const PlacedImage& picture : fragment.pictures)
        bottom = std::max(bottom, picture.top + picture.height);
    for (const PlacedLines& lines : fragment.lines)
        for (const InlineLine& line : lines.layout.lines)
            if (!IsBlank(*lines.content, line)) bottom = std::max(bottom, line.top + line.height);
    for (const PlacedPart& part : fragment.parts)
        bottom = std::max(bottom, part.top + part.fragment->height);
    return bottom;
}

double RightEdge(const PageFragment& fragment, double left) {
    double right = 0;
    for (const PlacedBox& box : fragment.boxes)
        right = std::max(right, left + box.left + box.width);
    for (const PlacedImage& picture : fragment.pictures)
        right = std::max(right, left + picture.left + picture.width);
    for (const PlacedLines& lines : fragment.lines)
        for (const InlineLine& line : lines.layout.lines)
            right =
                std::max(right, left + line.left +
                                    lines.layout.pieces[line.piece].lines->Line(line.line).width);
    for (const PlacedPart& part : fragment.parts)
        right = std::max(right, RightEdge(*part.fragment, left + part.left));
    return right;
}
