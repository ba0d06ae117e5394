// A page as the tree of its elements and texts.
//
// Nodes have numbers from 1 on, in the order in which they were made, which is not everywhere that
// of the document; so what is known of each node (its style, its box) fits into an array.
#pragma once

#include "formats/html/html_names.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

using HtmlNodeId = std::uint32_t;
constexpr HtmlNodeId noHtmlNode = 0;
constexpr HtmlNodeId htmlDocumentNode = 1;

enum class HtmlNodeKind : std::uint8_t {
    Document,
    Doctype,
    Element,
    Text, // never empty
    Comment,
    Fragment // what stands in a `template`: that element's only child, with no place on the page
};

enum class HtmlNamespace : std::uint8_t { Html, Svg, MathMl };

enum class HtmlAttributeNamespace : std::uint8_t { None, XLink, Xml, Xmlns };

// No two of an element have the same name and namespace. "xlink:href" of SVG is `href` in XLink,
// "xml:lang" of an HTML element is `XmlLang` in none.
struct HtmlAttribute {
    HtmlName name = HtmlName::None;
    HtmlAttributeNamespace nameSpace = HtmlAttributeNamespace::None;
    std::uint32_t length = 0;
    const char16_t* units = nullptr;

    std::u16string_view Value() const { return {units, length}; }
};

// Places in `HtmlTree::Source`. Both 0: nothing there, the element was implied.
struct HtmlSourceSpan {
    std::uint32_t begin = 0, end = 0;
};

struct HtmlNode {
    HtmlNodeId parent = noHtmlNode, firstChild = noHtmlNode, lastChild = noHtmlNode,
               previousSibling = noHtmlNode, nextSibling = noHtmlNode;
    HtmlName name = HtmlName::None; // of an element
    HtmlNodeKind kind = HtmlNodeKind::Document;
    HtmlNamespace nameSpace = HtmlNamespace::Html;
    // Of an element its start tag, of any other node all of it. A text that stands in pieces has
    // the first one's begin and the last one's end. A formatting element that the parser opened
    // again, as for "<b>a<p>b", has the tag of the first.
    HtmlSourceSpan source;
    HtmlSourceSpan endTag; // nothing where it was left out
    union {
        const HtmlAttribute* attributes = nullptr; // of an element
        const char16_t* units;                     // of a text or a comment
    };
    std::uint32_t length = 0; // of either

    bool IsElement() const { return kind == HtmlNodeKind::Element; }
    bool IsText() const { return kind == HtmlNodeKind::Text; }
    bool Is(HtmlName htmlElement) const {
        return IsElement() && nameSpace == HtmlNamespace::Html && name == htmlElement;
    }

    std::u16string_view Text() const {
        return IsElement() ? std::u16string_view() : std::u16string_view(units, length);
    }
    std::span<const HtmlAttribute> Attributes() const {
        return IsElement() ? std::span(attributes, length) : std::span<const HtmlAttribute>();
    }
    // Of no namespace; nullptr when there is none.
    const HtmlAttribute* Attribute(HtmlName attribute) const {
        for (const HtmlAttribute& one : Attributes())
            if (one.name == attribute && one.nameSpace == HtmlAttributeNamespace::None) return &one;
        return nullptr;
    }
};

struct HtmlDoctype {
    std::u16string name, publicId, systemId;
};

enum class HtmlQuirks : std::uint8_t { None, Limited, Full };

// Where the texts of a tree live; what was handed out stays in place.
class HtmlArena {
  public:
    char16_t* Units(std::size_t count);
    HtmlAttribute* Attributes(std::size_t count);

  private:
    void* Take(std::size_t bytes);

    std::vector<std::unique_ptr<std::byte[]>> chunks_;
    std::size_t left_ = 0; // bytes of the last chunk
};

// Texts and attribute values are views of the source or of the arena: they live as long as the
// tree, and moving it leaves them in place.
class HtmlTree {
  public:
    HtmlTree();
    HtmlTree(HtmlTree&&) noexcept = default;
    HtmlTree& operator=(HtmlTree&&) noexcept = default;

    const HtmlNode& operator[](HtmlNodeId id) const { return nodes_[id]; }
    std::size_t NodeCount() const { return nodes_.size() - 1; } // the largest id
    HtmlNodeId RootElement() const;                             // `html`
    HtmlNodeId Head() const;
    HtmlNodeId Body() const; // or `frameset`
    // The next node in document order within `top`: noHtmlNode at its end. The second leaves out
    // what is in `id`.
    HtmlNodeId Next(HtmlNodeId id, HtmlNodeId top = htmlDocumentNode) const;
    HtmlNodeId NextAfter(HtmlNodeId id, HtmlNodeId top = htmlDocumentNode) const;

    const HtmlNames& Names() const { return names_; }
    std::u16string_view Name(HtmlName name) const { return names_.TextOf(name); }

    // The decoded page, every line end a u'\n'.
    const std::u16string& Source() const { return *source_; }
    const HtmlDoctype& Doctype() const { return doctype_; }
    HtmlQuirks Quirks() const { return quirks_; }

    // Whether its text is kept as it is seen, from left to right, as old Hebrew pages are.
    bool IsVisualOrder() const { return visualOrder_; }
    void SetVisualOrder() { visualOrder_ = true; }

  private:
    friend class HtmlTreeWriter;

    std::vector<HtmlNode> nodes_; // the first stands for no node
    HtmlNames names_;
    HtmlArena arena_;
    std::unique_ptr<std::u16string> source_;
    HtmlDoctype doctype_;
    HtmlQuirks quirks_ = HtmlQuirks::None;
    bool visualOrder_ = false;
};
