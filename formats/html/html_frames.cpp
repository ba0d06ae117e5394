#include "formats/html/html_frames.h"

#include "formats/html/html_escape.h"

namespace {
constexpr int maxFrames = 1000;

std::u16string_view ValueOf(const HtmlNode& element, HtmlName name) {
    const HtmlAttribute* attribute = element.Attribute(name);
    return attribute ? attribute->Value() : std::u16string_view();
}

// The page's own title and base address hold for the links.
std::u16string HeadOf(const HtmlTree& page) {
    std::u16string head;
    const HtmlNodeId top = page.Head();
    for (HtmlNodeId id = top; id != noHtmlNode; id = page.Next(id, top)) {
        if (page[id].Is(HtmlName::Base)) {
            head += u"<base href=\"";
            AppendHtmlAttribute(head, ValueOf(page[id], HtmlName::Href));
            head += u"\">";
        }
        if (!page[id].Is(HtmlName::Title)) continue;
        head += u"<title>";
        for (HtmlNodeId text = page[id].firstChild; text != noHtmlNode;
             text = page[text].nextSibling)
            AppendHtmlText(head, page[text].Text());
        head += u"</title>";
    }
    return head;
}
} // namespace

std::optional<std::u16string> LinksOfFrames(const HtmlTree& page) {
    const HtmlNodeId top = page.Body();
    if (top == noHtmlNode || !page[top].Is(HtmlName::Frameset)) return std::nullopt;
    std::u16string source = u"<!DOCTYPE html>" + HeadOf(page) + u"<body>";
    int frames = 0;
    for (HtmlNodeId id = top; id != noHtmlNode && frames < maxFrames; id = page.Next(id, top)) {
        const std::u16string_view address = ValueOf(page[id], HtmlName::Src);
        if (!page[id].Is(HtmlName::Frame) || address.empty()) continue;
        std::u16string_view text = ValueOf(page[id], HtmlName::Title);
        if (text.empty()) text = ValueOf(page[id], HtmlName::Name);
        if (text.empty()) text = address;
        source += u"<p><a href=\"";
        AppendHtmlAttribute(source, address);
        source += u"\">";
        AppendHtmlText(source, text);
        source += u"</a></p>\n";
        ++frames;
    }
    return source;
}
