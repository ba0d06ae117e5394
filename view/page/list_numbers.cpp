#include "view/page/list_numbers.h"

#include "formats/html/html_integer.h"
#include "view/page/child_nodes.h"

// Items are counted in the element that they stand in.
int ListNumbers::Next(HtmlNodeId item) {
    const HtmlNodeId list = tree_[item].parent;
    const auto [next, isFirst] = next_.try_emplace(list);
    const bool reversed = tree_[list].Attribute(HtmlName::Reversed) != nullptr;
    if (isFirst) {
        const int first = reversed ? CountItems(list) : 1;
        next->second = HtmlInteger(tree_[list], HtmlName::Start).value_or(first);
    }
    const int number = HtmlInteger(tree_[item], HtmlName::Value).value_or(next->second);
    next->second = reversed ? number - 1 : number + 1;
    return number;
}

int ListNumbers::CountItems(HtmlNodeId list) const {
    int items = 0;
    ForChildren(tree_, list, [&](HtmlNodeId child) {
        if (tree_[child].IsElement() && styles_.Of(child).box->display == CssDisplay::ListItem)
            ++items;
    });
    return items;
}
