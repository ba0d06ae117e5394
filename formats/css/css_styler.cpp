#include "formats/css/css_styler.h"

#include "formats/css/css_default_sheet.h"
#include "formats/css/css_length.h"
#include "formats/css/css_limits.h"
#include "formats/css/css_parser.h"

#include <algorithm>

namespace {

constexpr std::uint32_t noneNumber = 0, initialNumber = 1;

template <typename T>
void Append(std::string& key, const T& value) {
    key.append(reinterpret_cast<const char*>(&value), sizeof value);
}

CssInheritedStyle InitialInherited(const CssMedium& medium) {
    CssInheritedStyle style;
    style.fontSize = medium.fontSize;
    return style;
}

} // namespace

CssStyler::CssStyler(const HtmlTree& tree, const CssRuleIndex& index, const CssMedium& medium)
    : tree_(tree), index_(index), matcher_(tree, index), hintsReader_(tree) {
    reading_.medium = context_.medium = medium;
    reading_.quirks = context_.quirks = tree.Quirks() == HtmlQuirks::Full;
    context_.familiesNumber = [this](const CssFontFamilies& list) {
        return page_.families_.NumberOf(list);
    };
    context_.contentNumber = [this](const CssContent& list) {
        page_.showsCounters_ |= std::ranges::any_of(list, [](const CssContentItem& item) {
            return item.kind >= CssContentItem::Kind::Counter;
        });
        return page_.contents_.NumberOf(list);
    };
    context_.countersNumber = [this](const CssCounterChanges& list) {
        return page_.counters_.NumberOf(list);
    };
    context_.gridTracks = [this](const CssGridTracks& tracks) {
        return &page_.gridTracks_.Find(tracks);
    };
    context_.gridAreas = [this](const CssGridAreas& areas) {
        return &page_.gridAreas_.Find(areas);
    };
    context_.gridName = [this](const CssGridName& name) { return &page_.gridNames_.Find(name); };
    context_.rareStyle = [this](const CssRareStyle& style) {
        return page_.rare_.Find(style).value;
    };
    CssStyleParts initial{InitialInherited(medium), {}};
    CssStyleParts none = initial;
    none.box.display = CssDisplay::None;
    Add(none);
    Add(initial);
}

CssPageStyles CssStyler::Style(bool sheetsDependOnViewport) {
    page_.numbers_.assign(tree_.NodeCount() + 1, noneNumber);
    HtmlNodeId id = tree_[htmlDocumentNode].firstChild;
    while (id) {
        HtmlNodeId next = noHtmlNode;
        if (tree_[id].IsElement()) {
            const HtmlNodeId parent = tree_[id].parent;
            StyleElement(id, parent == htmlDocumentNode ? initialNumber : page_.numbers_[parent]);
            const bool isShown = page_.Of(id).box->display != CssDisplay::None;
            if (isShown) next = tree_[id].firstChild;
            if (!next) matcher_.Close();
        }
        while (!next && id != htmlDocumentNode) {
            next = tree_[id].nextSibling;
            if (next) break;
            id = tree_[id].parent;
            if (id != htmlDocumentNode) matcher_.Close();
        }
        id = next;
    }
    page_.steps_ = matcher_.Steps();
    page_.dependsOnViewport_ = sheetsDependOnViewport || context_.usedViewport;
    page_.inheritsBackgrounds_ = context_.usedOuterBackground;
    return std::move(page_);
}

void CssStyler::StyleElement(HtmlNodeId element, std::uint32_t parent) {
    matcher_.Open(element);
    hints_.declarations.clear();
    hints_.families.clear();
    hintsReader_.Read(element, hints_);
    const HtmlAttribute* style = tree_[element].Attribute(HtmlName::Style);
    context_.isRoot = tree_[element].parent == htmlDocumentNode;
    const std::uint32_t number =
        NumberOfKey(parent, CssPseudoElement::None, style ? style->Value() : std::u16string_view());
    page_.numbers_[element] = number;
    if (context_.isRoot) {
        const CssInheritedStyle& root = *page_.styles_[number].inherited;
        context_.rootFontSize = root.fontSize;
        context_.rootLineHeight = CssLineHeightPixels(root.lineHeight, root.fontSize);
    }
    context_.isRoot = false;
    if (page_.styles_[number].box->display == CssDisplay::None) return;
    hints_.declarations.clear();
    StyleGenerated(element, CssPseudoElement::Before);
    StyleGenerated(element, CssPseudoElement::After);
    StyleFirst(element, CssPseudoElement::FirstLetter, page_.firstLetters_);
    StyleFirst(element, CssPseudoElement::FirstLine, page_.firstLines_);
}

bool CssStyler::HasRules(CssPseudoElement which) const {
    return std::ranges::any_of(matcher_.Rules(), [&](std::uint32_t rule) {
        return index_.Rule(rule).pseudoElement == which;
    });
}

void CssStyler::StyleFirst(HtmlNodeId element, CssPseudoElement which,
                           std::unordered_map<HtmlNodeId, std::uint32_t>& styles) {
    if (!HasRules(which)) return;
    switch (page_.Of(element).box->display) {
    case CssDisplay::Block:
    case CssDisplay::InlineBlock:
    case CssDisplay::ListItem:
    case CssDisplay::TableCell:
    case CssDisplay::TableCaption: break;
    default: return; // it has no first line
    }
    styles[element] = NumberOfKey(page_.numbers_[element], which, {});
}

void CssStyler::StyleGenerated(HtmlNodeId element, CssPseudoElement which) {
    if (!HasRules(which)) return;
    const std::uint32_t number = NumberOfKey(page_.numbers_[element], which, {});
    const CssBoxStyle& box = *page_.styles_[number].box;
    if (box.content == 0 || box.display == CssDisplay::None) return;
    page_.generated_[element][which == CssPseudoElement::After] = number;
}

void CssStyler::MakeKey(std::uint32_t parent, CssPseudoElement which,
                        std::u16string_view attribute) {
    key_.clear();
    Append(key_, parent);
    key_ += static_cast<char>(which);
    key_ += context_.isRoot ? 'r' : '-';
    for (const std::uint32_t rule : matcher_.Rules())
        if (index_.Rule(rule).pseudoElement == which) Append(key_, rule);
    Append(key_, noCssNumber);
    for (const CssDeclaration& hint : hints_.declarations) {
        Append(key_, hint.property);
        Append(key_, hint.value);
    }
    key_ += ';';
    for (const CssFontFamilies& families : hints_.families) {
        const std::u16string names = CssKeyOf(families);
        key_.append(reinterpret_cast<const char*>(names.data()), names.size() * sizeof names[0]);
    }
    key_ += ';';
    key_.append(reinterpret_cast<const char*>(attribute.data()),
                attribute.size() * sizeof attribute[0]);
}

std::uint32_t CssStyler::NumberOfKey(std::uint32_t parent, CssPseudoElement which,
                                     std::u16string_view attribute) {
    MakeKey(parent, which, attribute);
    const auto known = numberOfKey_.find(key_);
    if (known != numberOfKey_.end()) return known->second;
    const std::uint32_t number = Compute(parent, which, attribute);
    if (key_.size() > maxCssKeyLength) return number;
    if (numberOfKey_.size() >= maxCssKeptStyles) numberOfKey_.clear();
    numberOfKey_.emplace(key_, number);
    return number;
}

void CssStyler::ApplyRules(CssCascade& cascade, CssPseudoElement which, CssImportance importance,
                           CssOrigin origin) {
    for (const std::uint32_t number : matcher_.Rules()) {
        const CssIndexedRule& rule = index_.Rule(number);
        if (rule.pseudoElement != which || rule.Origin() != origin) continue;
        cascade.Apply(DeclarationsOf(*rule.sheet, *rule.rule), rule.sheet->block, importance);
    }
}

std::uint32_t CssStyler::Compute(std::uint32_t parent, CssPseudoElement which,
                                 std::u16string_view attribute) {
    matcher_.AddSteps(attribute.size());
    const bool isRead = attribute.size() <= maxCssKeyLength || !matcher_.IsExhausted();
    const CssBlock own = isRead && !attribute.empty()
                             ? ReadCssBlock(attribute.substr(0, maxCssAttributeUnits), reading_)
                             : CssBlock{};
    const CssStyle outer = page_.styles_[parent];
    variables_ = VariablesOf(which, own, outer.inherited->variables);
    read_.clear();
    CssCascade cascade(*this);
    ApplyRules(cascade, which, CssImportance::Normal, CssOrigin::UserAgent);
    cascade.EndUserAgent();
    cascade.Apply(hints_.declarations, hints_, CssImportance::Normal);
    ApplyRules(cascade, which, CssImportance::Normal, CssOrigin::Author);
    cascade.Apply(own.declarations, own, CssImportance::Normal);
    ApplyRules(cascade, which, CssImportance::Important, CssOrigin::Author);
    cascade.Apply(own.declarations, own, CssImportance::Important);
    ApplyRules(cascade, which, CssImportance::Important, CssOrigin::UserAgent);
    CssStyleParts parts = ComputeCssStyle(cascade, *outer.inherited, *outer.box, context_);
    parts.inherited.variables = variables_;
    return Add(parts);
}

std::uint32_t CssStyler::Add(const CssStyleParts& parts) {
    const auto inherited = page_.inherited_.Find(parts.inherited);
    const auto box = page_.boxes_.Find(parts.box);
    const std::uint64_t key = std::uint64_t(inherited.number) << 32 | box.number;
    const auto [place, isNew] =
        numberOfParts_.emplace(key, static_cast<std::uint32_t>(page_.styles_.size()));
    if (isNew) page_.styles_.push_back({inherited.value, box.value});
    return place->second;
}

void CssPageStyles::SetBackground(HtmlNodeId element, CssColor color) {
    CssStyle style = Of(element);
    CssBoxStyle box = *style.box;
    box.background = color;
    style.box = boxes_.Find(box).value;
    numbers_[element] = static_cast<std::uint32_t>(styles_.size());
    styles_.push_back(style);
}

CssPageStyles StylePage(const HtmlTree& tree, std::span<const CssSheet> sheets,
                        const CssMedium& medium) {
    CssRuleIndex index(tree);
    index.Add(DefaultCssSheet(), CssOrigin::UserAgent);
    if (tree.Quirks() == HtmlQuirks::Full) index.Add(QuirksCssSheet(), CssOrigin::UserAgent);
    bool dependsOnViewport = false;
    for (const CssSheet& sheet : sheets) {
        index.Add(sheet, CssOrigin::Author);
        dependsOnViewport |= sheet.dependsOnViewport;
    }
    return CssStyler(tree, index, medium).Style(dependsOnViewport);
}
