#include "formats/html/html_open_elements.h"

#include <algorithm>

namespace {

using enum HtmlName;

constexpr unsigned Bit(HtmlBoundary boundary) {
    return 1u << unsigned(boundary);
}

constexpr unsigned anyScope =
    Bit(HtmlBoundary::Scope) | Bit(HtmlBoundary::ListScope) | Bit(HtmlBoundary::ButtonScope);
constexpr unsigned special = Bit(HtmlBoundary::Special) | Bit(HtmlBoundary::ListSpecial);

using BoundaryTable = std::array<std::uint8_t, std::size_t(FirstOfDocument)>;

template <std::size_t count>
constexpr void AddBits(BoundaryTable& table, const HtmlName (&names)[count], unsigned bits) {
    for (const HtmlName name : names)
        table[std::size_t(name)] = static_cast<std::uint8_t>(table[std::size_t(name)] | bits);
}

// The categories of the standard's section "The stack of open elements".
constexpr BoundaryTable MakeBoundaries() {
    BoundaryTable table{};
    AddBits(table, {Applet, Caption, Html, Table, Td, Th, Marquee, Object, Select, Template},
            anyScope);
    AddBits(table, {Ol, Ul}, Bit(HtmlBoundary::ListScope));
    AddBits(table, {Button}, Bit(HtmlBoundary::ButtonScope));
    AddBits(table, {Html, Table, Template}, Bit(HtmlBoundary::TableScope));
    AddBits(table,
            {Td, Th, Tr, Tbody, Thead, Tfoot, Caption, Colgroup, Table, Template, Head, Body,
             Frameset, Html},
            Bit(HtmlBoundary::Mode));
    AddBits(table, {Address, Div, P}, Bit(HtmlBoundary::Special));
    AddBits(table,
            {Applet,  Area,      Article, Aside,    Base,     Basefont, Bgsound,    Blockquote,
             Body,    Br,        Button,  Caption,  Center,   Col,      Colgroup,   Dd,
             Details, Dir,       Dl,      Dt,       Embed,    Fieldset, Figcaption, Figure,
             Footer,  Form,      Frame,   Frameset, H1,       H2,       H3,         H4,
             H5,      H6,        Head,    Header,   Hgroup,   Hr,       Html,       Iframe,
             Img,     Input,     Keygen,  Li,       Link,     Listing,  Main,       Marquee,
             Menu,    Meta,      Nav,     Noembed,  Noframes, Noscript, Object,     Ol,
             Param,   Plaintext, Pre,     Script,   Search,   Section,  Select,     Source,
             Style,   Summary,   Table,   Tbody,    Td,       Template, Textarea,   Tfoot,
             Th,      Thead,     Title,   Tr,       Track,    Ul,       Wbr,        Xmp},
            special);
    return table;
}

constexpr BoundaryTable boundaries = MakeBoundaries();

bool IsForeignBoundary(const HtmlNode& node) {
    if (node.nameSpace == HtmlNamespace::Svg)
        return node.name == ForeignObject || node.name == Desc || node.name == Title;
    return node.name == Mi || node.name == Mo || node.name == Mn || node.name == Ms ||
           node.name == Mtext || node.name == AnnotationXml;
}

unsigned BoundariesOf(const HtmlNode& node) {
    if (node.nameSpace != HtmlNamespace::Html)
        return IsForeignBoundary(node) ? anyScope | special : 0;
    return node.name < FirstOfDocument ? boundaries[std::size_t(node.name)] : 0;
}

} // namespace

bool IsSpecialHtmlElement(const HtmlNode& node) {
    return (BoundariesOf(node) & Bit(HtmlBoundary::Special)) != 0;
}

int& HtmlOpenElements::LastIndexOf(HtmlName name) {
    const auto place = std::size_t(name);
    if (place >= lastOfName_.size()) lastOfName_.resize(place + place / 2 + 1, none);
    return lastOfName_[place];
}

int HtmlOpenElements::LastOf(HtmlName htmlElement) const {
    const auto place = std::size_t(htmlElement);
    return place < lastOfName_.size() ? lastOfName_[place] : none;
}

int HtmlOpenElements::Nearest(HtmlBoundary boundary) const {
    return entries_.empty() ? none : entries_.back().nearest[std::size_t(boundary)];
}

void HtmlOpenElements::Push(HtmlNodeId id) {
    ++steps_;
    const HtmlNode& node = tree_[id];
    Entry entry{.id = id, .previousOfName = none, .nearest = {}};
    if (entries_.empty())
        entry.nearest.fill(none);
    else
        entry.nearest = entries_.back().nearest;
    const unsigned bits = BoundariesOf(node);
    for (unsigned i = 0; i < entry.nearest.size(); ++i)
        if ((bits >> i & 1) != 0) entry.nearest[i] = Count();
    if (node.nameSpace == HtmlNamespace::Html) {
        int& last = LastIndexOf(node.name);
        entry.previousOfName = last;
        last = Count();
    }
    if (id >= isOpen_.size()) isOpen_.resize(id + id / 2 + 1);
    isOpen_[id] = true;
    entries_.push_back(entry);
}

void HtmlOpenElements::Pop() {
    const Entry& entry = entries_.back();
    const HtmlNode& node = tree_[entry.id];
    if (node.nameSpace == HtmlNamespace::Html) LastIndexOf(node.name) = entry.previousOfName;
    isOpen_[entry.id] = false;
    entries_.pop_back();
}

void HtmlOpenElements::PopTo(int count) {
    while (Count() > count)
        Pop();
}

std::vector<HtmlNodeId> HtmlOpenElements::TakeFrom(int index) {
    std::vector<HtmlNodeId> taken;
    for (int i = index; i < Count(); ++i)
        taken.push_back((*this)[i]);
    PopTo(index);
    return taken;
}

void HtmlOpenElements::Remove(HtmlNodeId id) {
    const int index = IndexOf(id, entries_.size());
    if (index == none) return;
    const std::vector<HtmlNodeId> above = TakeFrom(index);
    for (std::size_t i = 1; i < above.size(); ++i)
        Push(above[i]);
}

int HtmlOpenElements::IndexOf(HtmlNodeId id, std::size_t reach) const {
    if (!Contains(id)) return none;
    const int last = std::max(0, Count() - static_cast<int>(std::min(reach, entries_.size())));
    for (int i = Count() - 1; i >= last; --i, ++steps_)
        if ((*this)[i] == id) return i;
    return none;
}
