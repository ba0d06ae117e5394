#include "view/page/page_counters.h"

#include "view/page/list_marker.h"

#include <limits>

namespace {
// Of all texts of a page. Numbers of counters in counters are as long as the page is deep.
constexpr std::size_t maxUnits = 1 << 20;

int Sum(int value, int change) {
    const long long sum = static_cast<long long>(value) + change;
    const bool fits =
        sum >= std::numeric_limits<int>::min() && sum <= std::numeric_limits<int>::max();
    return fits ? int(sum) : value;
}
} // namespace

PageCounters::PageCounters(const HtmlTree& tree, const CssPageStyles& styles)
    : tree_(tree), styles_(styles) {
    if (!styles.ShowsCounters()) return;
    const HtmlNodeId root = tree.RootElement();
    for (HtmlNodeId id = root; id != noHtmlNode;) {
        const bool isShown = tree[id].IsElement() && styles.Of(id).box->display != CssDisplay::None;
        if (isShown) Enter(id);
        if (isShown && tree[id].firstChild != noHtmlNode) {
            id = tree[id].firstChild;
            continue;
        }
        if (isShown) Leave(id);
        while (id != root && tree[id].nextSibling == noHtmlNode)
            Leave(id = tree[id].parent);
        if (id == root) break;
        id = tree[id].nextSibling;
    }
    counters_.clear();
}

std::u16string_view PageCounters::TextOf(HtmlNodeId node, GeneratedPlace place,
                                         const CssContentItem& item) const {
    const auto& texts = texts_[place == GeneratedPlace::After];
    const auto found = texts.find({node, &item});
    return found == texts.end() ? std::u16string_view() : found->second;
}

void PageCounters::Enter(HtmlNodeId element) {
    Change(*styles_.Of(element).box, tree_[element].parent);
    AddTexts(element, styles_.Before(element), GeneratedPlace::Before);
}

void PageCounters::Leave(HtmlNodeId element) {
    AddTexts(element, styles_.After(element), GeneratedPlace::After);
    for (; !opened_.empty() && opened_.back().scope == element; opened_.pop_back()) {
        ++steps_;
        Instances& instances = opened_.back().counter->second;
        instances.pop_back();
        if (instances.empty()) counters_.erase(opened_.back().counter);
    }
}

void PageCounters::Begin(Counters::iterator counter, HtmlNodeId scope, int value) {
    ++steps_;
    counter->second.push_back({scope, value});
    opened_.push_back({scope, counter});
}

// A counter that an element begins is there for what is in it and for its siblings after.
void PageCounters::Change(const CssBoxStyle& style, HtmlNodeId scope) {
    for (const CssCounterChange& reset : styles_.Counters(style.counterReset)) {
        const auto counter = counters_.try_emplace(reset.name).first;
        Instances& instances = counter->second;
        if (!instances.empty() && instances.back().scope == scope)
            instances.back().value = reset.value;
        else
            Begin(counter, scope, reset.value);
    }
    for (const CssCounterChange& increment : styles_.Counters(style.counterIncrement)) {
        const auto counter = counters_.try_emplace(increment.name).first;
        if (counter->second.empty()) Begin(counter, scope, 0);
        int& value = counter->second.back().value;
        value = Sum(value, increment.value);
    }
}

void PageCounters::AddTexts(HtmlNodeId element, CssStyle style, GeneratedPlace place) {
    if (!style.box) return;
    Change(*style.box, element);
    for (const CssContentItem& item : styles_.Content(style.box->content)) {
        if (item.kind < CssContentItem::Kind::Counter || units_ >= maxUnits) continue;
        std::u16string text = TextOf(item);
        units_ += text.size();
        texts_[place == GeneratedPlace::After][{element, &item}] = std::move(text);
    }
}

std::u16string PageCounters::TextOf(const CssContentItem& item) const {
    const auto type = CssListStyleType(item.numberStyle);
    const auto found = counters_.find(item.text);
    if (found == counters_.end() || found->second.empty()) return CounterText(type, 0);
    const Instances& instances = found->second;
    if (item.kind == CssContentItem::Kind::Counter)
        return CounterText(type, instances.back().value);
    std::u16string text;
    for (const Instance& instance : instances)
        text += (text.empty() ? u"" : item.separator) + CounterText(type, instance.value);
    return text;
}
