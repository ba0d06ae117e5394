// What the tokenizer hands to the tree construction.
#pragma once

#include "formats/html/html_tree.h"

#include <string_view>
#include <vector>

enum class HtmlTokenKind : std::uint8_t {
    Doctype,
    StartTag,
    EndTag,
    Comment,
    Characters, // U+0000 in tokens of their own
    EndOfFile
};

struct HtmlDoctypeToken {
    HtmlDoctype ids;
    bool hasName = false, hasPublicId = false, hasSystemId = false;
    bool forceQuirks = false;
};

struct HtmlToken {
    HtmlTokenKind kind = HtmlTokenKind::EndOfFile;
    HtmlName name = HtmlName::None; // of a tag
    bool selfClosing = false;
    HtmlSourceSpan source;
    std::u16string_view text;              // of characters or a comment; lives as long as the tree
    std::vector<HtmlAttribute> attributes; // of a tag, the first of each name
    HtmlDoctypeToken doctype;

    bool IsStart(HtmlName tag) const { return kind == HtmlTokenKind::StartTag && name == tag; }
    bool IsEnd(HtmlName tag) const { return kind == HtmlTokenKind::EndTag && name == tag; }
    const HtmlAttribute* Attribute(HtmlName attribute) const {
        for (const HtmlAttribute& one : attributes)
            if (one.name == attribute) return &one;
        return nullptr;
    }
};
