// The rules for foreign content: SVG and MathML within a page.
#include "formats/html/html_foreign.h"

#include "formats/html/html_limits.h"
#include "formats/html/html_tree_builder.h"
#include "formats/html/html_units.h"

#include <algorithm>

using enum HtmlName;

namespace {

bool IsTextIntegrationPoint(const HtmlNode& node) {
    return node.nameSpace == HtmlNamespace::MathMl &&
           (node.name == Mi || node.name == Mo || node.name == Mn || node.name == Ms ||
            node.name == Mtext);
}

bool IsHtmlIntegrationPoint(const HtmlNode& node) {
    if (node.nameSpace == HtmlNamespace::Svg)
        return node.name == ForeignObject || node.name == Desc || node.name == Title;
    if (node.nameSpace != HtmlNamespace::MathMl || node.name != AnnotationXml) return false;
    const HtmlAttribute* const encoding = node.Attribute(Encoding);
    return encoding != nullptr && (EqualsAsciiLower(encoding->Value(), u"text/html") ||
                                   EqualsAsciiLower(encoding->Value(), u"application/xhtml+xml"));
}

// A tag that foreign content never has: the page continues there.
bool IsBreakout(const HtmlToken& token) {
    switch (token.name) {
    case B:
    case Big:
    case Blockquote:
    case Body:
    case Br:
    case Center:
    case Code:
    case Dd:
    case Div:
    case Dl:
    case Dt:
    case Em:
    case Embed:
    case H1:
    case H2:
    case H3:
    case H4:
    case H5:
    case H6:
    case Head:
    case Hr:
    case I:
    case Img:
    case Li:
    case Listing:
    case Menu:
    case Meta:
    case Nobr:
    case Ol:
    case P:
    case Pre:
    case Ruby:
    case S:
    case Small:
    case Span:
    case Strong:
    case Strike:
    case Sub:
    case Sup:
    case Table:
    case Tt:
    case U:
    case Ul:
    case Var: return true;
    case Font:
        return token.Attribute(Color) != nullptr || token.Attribute(Face) != nullptr ||
               token.Attribute(Size) != nullptr;
    default: return false;
    }
}

} // namespace

bool HtmlTreeBuilder::IsForeign(const HtmlToken& token) const {
    if (open_.Count() == 0 || token.kind == HtmlTokenKind::EndOfFile) return false;
    const HtmlNode& node = writer_[open_.Current()];
    if (node.nameSpace == HtmlNamespace::Html) return false;
    const bool isStart = token.kind == HtmlTokenKind::StartTag;
    const bool isText = token.kind == HtmlTokenKind::Characters;
    if (IsTextIntegrationPoint(node) &&
        (isText || (isStart && token.name != Mglyph && token.name != Malignmark)))
        return false;
    if (node.nameSpace == HtmlNamespace::MathMl && node.name == AnnotationXml && token.IsStart(Svg))
        return false;
    return !(IsHtmlIntegrationPoint(node) && (isStart || isText));
}

void HtmlTreeBuilder::InForeignContent(HtmlToken& token) {
    switch (token.kind) {
    case HtmlTokenKind::Characters:
        if (token.text.front() == u'\0') {
            for (std::size_t i = 0; i < token.text.size(); ++i)
                InsertText(u"\uFFFD", token.source);
            return;
        }
        InsertText(token.text, token.source);
        if (HtmlSpaceLength(token.text) < token.text.size()) framesetOk_ = false;
        return;
    case HtmlTokenKind::Comment: return InsertComment(token);
    case HtmlTokenKind::StartTag: return ForeignStartTag(token);
    case HtmlTokenKind::EndTag: return ForeignEndTag(token);
    default: return;
    }
}

// Back to where a tag of HTML may stand.
void HtmlTreeBuilder::PopForeign() {
    const auto mayStandIn = [](const HtmlNode& node) {
        return node.nameSpace == HtmlNamespace::Html || IsTextIntegrationPoint(node) ||
               IsHtmlIntegrationPoint(node);
    };
    while (!mayStandIn(writer_[open_.Current()]))
        Pop();
}

void HtmlTreeBuilder::ForeignStartTag(HtmlToken& token) {
    if (!IsBreakout(token)) return InsertForeign(token, writer_[open_.Current()].nameSpace);
    PopForeign();
    ProcessIn(mode_, token);
}

void HtmlTreeBuilder::ForeignEndTag(HtmlToken& token) {
    if (token.name == P || token.name == Br) {
        PopForeign();
        return ProcessIn(mode_, token);
    }
    const std::u16string_view name = writer_.Names().TextOf(token.name);
    const int last = std::max(1, open_.Count() - static_cast<int>(maxHtmlReach));
    for (int i = open_.Count() - 1; i >= last; --i) {
        ++steps_;
        const HtmlNode& node = writer_[open_[i]];
        if (node.nameSpace == HtmlNamespace::Html) return ProcessIn(mode_, token);
        if (!EqualsAsciiLower(writer_.Names().TextOf(node.name), name)) continue;
        NoteEndTag(open_[i], token);
        return open_.PopTo(i);
    }
}

void HtmlTreeBuilder::AdjustAttributes(HtmlToken& token, HtmlNamespace nameSpace) {
    HtmlNames& names = writer_.Names();
    for (HtmlAttribute& attribute : token.attributes) {
        std::u16string_view name = names.TextOf(attribute.name);
        if (nameSpace == HtmlNamespace::Svg)
            name = SvgAttributeName(name);
        else if (name == u"definitionurl")
            name = names.TextOf(DefinitionUrl);
        const ForeignAttributeName split = SplitForeignAttribute(name);
        attribute.nameSpace = split.nameSpace;
        attribute.name = names.Intern(split.local);
    }
}

void HtmlTreeBuilder::InsertForeign(HtmlToken& token, HtmlNamespace nameSpace) {
    AdjustAttributes(token, nameSpace);
    HtmlNames& names = writer_.Names();
    if (nameSpace == HtmlNamespace::Svg)
        token.name = names.Intern(SvgElementName(names.TextOf(token.name)));
    PushInserted(writer_.NewElement(token.name, nameSpace, token.attributes, token.source));
    if (token.selfClosing) Pop();
}
