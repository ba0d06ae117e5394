#include "shell/help/help_page.h"

#include "common/text.h"

#include <cstddef>
#include <limits>

namespace {
enum StyleIndex : std::uint32_t { Body, Bold, TitleStyle, HeadingStyle };

CharStyle StyleOf(std::uint16_t halfPoints, bool bold) {
    CharStyle style;
    style.halfPoints = halfPoints;
    style.bold = bold;
    return style;
}

ParagraphStyle Spaced(std::int32_t before, std::int32_t after, std::int32_t hanging = 0) {
    ParagraphStyle style;
    style.spaceBefore = before;
    style.spaceAfter = after;
    style.leftIndent = hanging;
    style.firstLineIndent = -hanging;
    if (hanging > 0) style.tabStops = {{hanging}};
    return style;
}

TextPos Length(const Document& page) {
    return static_cast<TextPos>(page.text.size());
}
} // namespace

HelpPageWriter::HelpPageWriter(const HelpTitles& titles) : titles_(&titles) {
    page_.charStyles = {StyleOf(22, false), StyleOf(22, true), StyleOf(34, true),
                        StyleOf(26, true)};
    // In the order of HelpParagraph; twips.
    page_.paragraphStyles = {Spaced(0, 160),     Spaced(200, 40),    Spaced(60, 100),
                             Spaced(0, 60, 360), Spaced(0, 60, 360), Spaced(0, 60, 2800)};
    page_.charRuns.clear();
    page_.paragraphRuns.clear();
}

void HelpPageWriter::Add(HelpParagraph kind, std::u16string_view text, std::u16string_view label) {
    page_.paragraphRuns.push_back({Length(page_), static_cast<std::uint32_t>(kind)});
    switch (kind) {
    case HelpParagraph::Title: AddRun(text, TitleStyle); break;
    case HelpParagraph::Heading: AddRun(text, HeadingStyle); break;
    case HelpParagraph::Text: AddMarked(text, Body); break;
    case HelpParagraph::Item:
        AddRun(u"\u2022\t", Body);
        AddMarked(text, Body);
        break;
    case HelpParagraph::Numbered:
    case HelpParagraph::Key:
        AddRun(label, kind == HelpParagraph::Key ? Bold : Body);
        AddRun(u"\t", Body);
        AddMarked(text, Body);
        break;
    }
    page_.text += u'\n';
}

void HelpPageWriter::AddMarked(std::u16string_view text, std::uint32_t style) {
    for (;;) {
        const std::size_t open = text.find(u'*');
        const std::size_t close = open == text.npos ? open : text.find(u'*', open + 1);
        if (close == text.npos) return AddLinked(text, style);
        AddLinked(text.substr(0, open), style);
        AddRun(text.substr(open + 1, close - open - 1), Bold);
        text.remove_prefix(close + 1);
    }
}

void HelpPageWriter::AddLinked(std::u16string_view text, std::uint32_t style) {
    for (std::size_t from = 0;;) {
        const std::size_t open = text.find(u'"', from);
        const std::size_t close = open == text.npos ? open : text.find(u'"', open + 1);
        if (close == text.npos) return AddRun(text, style);
        from = open + 1;
        const auto title = titles_->find(text.substr(open + 1, close - open - 1));
        if (title == titles_->end()) continue;
        AddRun(text.substr(0, open + 1), style);
        AddLink(title->first, title->second, style);
        text.remove_prefix(close);
        from = 1; // after its closing quotation mark
    }
}

void HelpPageWriter::AddLink(std::u16string_view text, int page, std::uint32_t style) {
    CharStyle link = page_.charStyles[style];
    if (page_.links.size() >= std::numeric_limits<decltype(link.link)>::max())
        return AddRun(text, style);
    page_.links.push_back(NumberText(page));
    link.link = static_cast<std::uint16_t>(page_.links.size());
    page_.charStyles.push_back(link);
    AddRun(text, static_cast<std::uint32_t>(page_.charStyles.size() - 1));
}

void HelpPageWriter::AddRun(std::u16string_view text, std::uint32_t style) {
    if (text.empty()) return;
    if (page_.charRuns.empty() || page_.charRuns.back().style != style)
        page_.charRuns.push_back({Length(page_), style});
    page_.text += text;
}
