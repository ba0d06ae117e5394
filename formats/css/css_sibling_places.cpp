#include "formats/css/css_sibling_places.h"

const CssSiblingPlace& CssSiblingPlaces::Of(HtmlNodeId element) {
    if (places_.empty()) {
        places_.resize(tree_.NodeCount() + 1);
        ofName_.resize(tree_.Names().Count());
    }
    if (places_[element].child == 0) Count(tree_[element].parent);
    return places_[element];
}

void CssSiblingPlaces::Count(HtmlNodeId parent) {
    std::uint32_t place = 0;
    for (HtmlNodeId id = tree_[parent].firstChild; id; id = tree_[id].nextSibling) {
        if (!tree_[id].IsElement()) continue;
        places_[id].child = ++place;
        places_[id].ofType = ++ofName_[std::size_t(tree_[id].name)];
    }
    const std::uint32_t count = place;
    for (HtmlNodeId id = tree_[parent].firstChild; id; id = tree_[id].nextSibling) {
        if (!tree_[id].IsElement()) continue;
        places_[id].lastChild = count + 1 - places_[id].child;
        places_[id].lastOfType = ofName_[std::size_t(tree_[id].name)] + 1 - places_[id].ofType;
    }
    for (HtmlNodeId id = tree_[parent].firstChild; id; id = tree_[id].nextSibling)
        if (tree_[id].IsElement()) ofName_[std::size_t(tree_[id].name)] = 0;
}
