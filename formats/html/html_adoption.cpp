// The adoption agency algorithm: what a formatting element means that is closed where it was not
// opened, as in "<b>a<p>b</b>c</p>".
#include "formats/html/html_limits.h"
#include "formats/html/html_tree_builder.h"

#include <algorithm>

void HtmlTreeBuilder::Adopt(HtmlToken& token) {
    const HtmlNodeId current = open_.Current();
    if (CurrentName() == token.name && formatting_.IndexOf(current) == HtmlFormatting::none) {
        NoteEndTag(current, token);
        return Pop();
    }
    constexpr int maxRounds = 8; // the standard's
    for (int round = 0; round < maxRounds; ++round)
        if (!AdoptOnce(token)) return;
}

// Whether there may be more to do.
bool HtmlTreeBuilder::AdoptOnce(HtmlToken& token) {
    const std::size_t listed = formatting_.LastOf(token.name);
    if (listed == HtmlFormatting::none) {
        AnyOtherEndTag(token);
        return false;
    }
    const HtmlNodeId element = formatting_[listed];
    if (!open_.Contains(element)) {
        formatting_.RemoveAt(listed);
        return false;
    }
    const int index = open_.IndexOf(element, maxHtmlReach);
    steps_ += std::size_t(index == HtmlOpenElements::none ? maxHtmlReach : open_.Count() - index);
    if (index == HtmlOpenElements::none || !HasClones()) {
        formatting_.RemoveAt(listed);
        return false;
    }
    if (index < open_.Nearest(HtmlBoundary::Scope)) return false;

    int furthest = index + 1;
    while (furthest < open_.Count() && !IsSpecialHtmlElement(writer_[open_[furthest]]))
        ++furthest;
    NoteEndTag(element, token);
    if (furthest == open_.Count()) {
        open_.PopTo(index);
        formatting_.RemoveAt(listed);
        return false;
    }

    // `above` is the stack from the formatting element on.
    const HtmlNodeId ancestor = open_[index - 1];
    std::vector<HtmlNodeId> above = open_.TakeFrom(index);
    const auto block = std::size_t(furthest - index);
    const HtmlNodeId furthestBlock = above[block];
    std::size_t bookmark = listed;
    const HtmlNodeId last = MoveInner(above, block, bookmark);
    writer_.Remove(last);
    writer_.Insert(last, PlaceFor(ancestor));

    const HtmlNodeId clone = Clone(element);
    writer_.MoveChildren(furthestBlock, clone);
    writer_.Insert(clone, {furthestBlock});
    formatting_.Move(formatting_.IndexOf(element), bookmark, clone);

    above.erase(above.begin());
    above.insert(std::ranges::find(above, furthestBlock) + 1, clone);
    for (const HtmlNodeId id : above)
        open_.Push(id);
    return true;
}

// The formatting elements between: clones of them take the furthest block, each inside the next.
// Returns the outermost. Those that are gone are taken out of `above`.
HtmlNodeId HtmlTreeBuilder::MoveInner(std::vector<HtmlNodeId>& above, std::size_t furthest,
                                      std::size_t& bookmark) {
    constexpr int maxClones = 3; // the standard's
    const HtmlNodeId block = above[furthest];
    HtmlNodeId last = block;
    int count = 0;
    for (std::size_t i = furthest - 1; i > 0; --i) {
        ++count;
        std::size_t listed = formatting_.IndexOf(above[i]);
        if (count > maxClones && listed != HtmlFormatting::none) {
            formatting_.RemoveAt(listed);
            if (listed < bookmark) --bookmark;
            listed = HtmlFormatting::none;
        }
        if (listed == HtmlFormatting::none) {
            above.erase(above.begin() + static_cast<std::ptrdiff_t>(i));
            continue;
        }
        const HtmlNodeId clone = Clone(above[i]);
        formatting_[listed] = above[i] = clone;
        if (last == block) bookmark = listed + 1;
        writer_.Remove(last);
        writer_.Insert(last, {clone});
        last = clone;
    }
    return last;
}
