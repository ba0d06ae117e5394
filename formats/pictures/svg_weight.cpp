#include "formats/pictures/svg_weight.h"

#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_tree.h"

#include <algorithm>
#include <string_view>
#include <unordered_map>

namespace {
constexpr std::uint64_t tooMuch = maxSvgShapes + 1;

class SvgWeights {
  public:
    SvgWeights(const HtmlTree& tree, HtmlNodeId svg) : tree_(tree) {
        for (HtmlNodeId id = svg; id != noHtmlNode; id = tree_.Next(id, svg))
            if (const std::u16string_view name = SvgAttribute(tree_, id, u"id"); !name.empty())
                named_.try_emplace(name, id);
    }

    // As deep as the tree, times the repeated parts within repeated ones.
    std::uint64_t Of(HtmlNodeId id, int depth) {
        if (depth > maxSvgUseDepth) return tooMuch;
        const auto [known, isNew] = weights_.try_emplace(id, tooMuch); // until it is done
        if (!isNew) return known->second;
        std::uint64_t weight = 1;
        for (HtmlNodeId child = tree_[id].firstChild; child != noHtmlNode;
             child = tree_[child].nextSibling)
            if (tree_[child].IsElement()) weight += Of(child, depth);
        if (tree_.Name(tree_[id].name) == u"use") weight += OfTarget(id, depth);
        return weights_[id] = std::min(weight, tooMuch);
    }

  private:
    std::uint64_t OfTarget(HtmlNodeId use, int depth) {
        const std::u16string_view reference = SvgReference(tree_, use);
        if (!reference.starts_with(u'#')) return 0;
        const auto target = named_.find(reference.substr(1));
        return target == named_.end() ? 0 : Of(target->second, depth + 1);
    }

    const HtmlTree& tree_;
    std::unordered_map<std::u16string_view, HtmlNodeId> named_;
    std::unordered_map<HtmlNodeId, std::uint64_t> weights_;
};
} // namespace

std::uint64_t ShapesOfSvg(const HtmlTree& tree, HtmlNodeId svg) {
    return SvgWeights(tree, svg).Of(svg, 0);
}
