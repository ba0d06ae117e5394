#include "tree_dump.h"

#include "common/utf.h"

#include <algorithm>
#include <vector>

namespace {

class Dump {
  public:
    explicit Dump(const HtmlTree& tree) : tree_(tree) {}

    std::string Run() {
        Children(htmlDocumentNode, 0);
        return Utf16ToUtf8(lines_);
    }

  private:
    void Line(int depth, const std::u16string& text) {
        lines_ += u"| " + std::u16string(std::size_t(depth) * 2, u' ') + text + u"\n";
    }

    void Children(HtmlNodeId parent, int depth) {
        for (HtmlNodeId id = tree_[parent].firstChild; id != noHtmlNode; id = tree_[id].nextSibling)
            Node(id, depth);
    }

    void Node(HtmlNodeId id, int depth) {
        const HtmlNode& node = tree_[id];
        switch (node.kind) {
        case HtmlNodeKind::Document: return;
        case HtmlNodeKind::Text: return Line(depth, u"\"" + std::u16string(node.Text()) + u"\"");
        case HtmlNodeKind::Comment:
            return Line(depth, u"<!-- " + std::u16string(node.Text()) + u" -->");
        case HtmlNodeKind::Doctype: return Line(depth, Doctype());
        case HtmlNodeKind::Fragment: Line(depth, u"content"); break;
        case HtmlNodeKind::Element:
            Line(depth, u"<" + NameSpace(node) + std::u16string(tree_.Name(node.name)) + u">");
            Attributes(node, depth + 1);
        }
        Children(id, depth + 1);
    }

    std::u16string Doctype() const {
        const HtmlDoctype& doctype = tree_.Doctype();
        std::u16string line = u"<!DOCTYPE " + doctype.name;
        if (!doctype.publicId.empty() || !doctype.systemId.empty())
            line += u" \"" + doctype.publicId + u"\" \"" + doctype.systemId + u"\"";
        return line + u">";
    }

    static std::u16string NameSpace(const HtmlNode& node) {
        return node.nameSpace == HtmlNamespace::Svg      ? u"svg "
               : node.nameSpace == HtmlNamespace::MathMl ? u"math "
                                                         : u"";
    }

    void Attributes(const HtmlNode& node, int depth) {
        constexpr const char16_t* prefixes[] = {u"", u"xlink ", u"xml ", u"xmlns "};
        std::vector<std::u16string> lines;
        for (const HtmlAttribute& attribute : node.Attributes())
            lines.push_back(prefixes[int(attribute.nameSpace)] +
                            std::u16string(tree_.Name(attribute.name)) + u"=\"" +
                            std::u16string(attribute.Value()) + u"\"");
        std::ranges::sort(lines);
        for (const std::u16string& line : lines)
            Line(depth, line);
    }

    const HtmlTree& tree_;
    std::u16string lines_;
};

} // namespace

std::string DumpTree(const HtmlTree& tree) {
    return Dump(tree).Run();
}
