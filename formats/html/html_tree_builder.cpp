#include "formats/html/html_tree_builder.h"

#include "formats/html/html_finish.h"
#include "formats/html/html_limits.h"
#include "formats/html/html_units.h"

#include <algorithm>
#include <utility>

HtmlTreeBuilder::HtmlTreeBuilder(HtmlTree& tree, std::u16string source)
    : writer_(tree, std::move(source)),
      tokenizer_(writer_.Names(), writer_.Arena(), writer_.Source()), open_(tree),
      formatting_(tree), maxClones_(minHtmlClones + writer_.Source().size() / htmlUnitsPerClone) {}

void HtmlTreeBuilder::Build() {
    while (!stopped_) {
        const HtmlNodeId current = open_.Current();
        tokenizer_.AllowCData(current != noHtmlNode &&
                              writer_[current].nameSpace != HtmlNamespace::Html);
        Process(tokenizer_.Next());
    }
    FillSelectedContent(writer_);
    LimitHtmlDepth(writer_);
}

void HtmlTreeBuilder::Process(HtmlToken& token) {
    if (writer_.IsFull() && IsSkippedWhenFull(token)) return;
    if (token.kind != HtmlTokenKind::Characters) {
        skipsLineFeed_ = false;
        Dispatch(token);
        return;
    }
    if (std::exchange(skipsLineFeed_, false) && token.text.front() == u'\n')
        token.text.remove_prefix(1);
    ProcessCharacters(token);
}

// The end tag of a script or a title still ends it.
bool HtmlTreeBuilder::IsSkippedWhenFull(const HtmlToken& token) const {
    switch (token.kind) {
    case HtmlTokenKind::Characters:
    case HtmlTokenKind::EndOfFile: return false;
    case HtmlTokenKind::EndTag: return mode_ != Mode::Text;
    default: return true;
    }
}

// Blanks are handled apart from other characters where they are no content.
bool HtmlTreeBuilder::SplitsSpaces() const {
    switch (mode_) {
    case Mode::InBody:
    case Mode::Text:
    case Mode::InTable:
    case Mode::InTableText:
    case Mode::InCaption:
    case Mode::InTableBody:
    case Mode::InRow:
    case Mode::InCell:
    case Mode::InTemplate: return false;
    default: return true;
    }
}

bool HtmlTreeBuilder::IsSpace(const HtmlToken& token) const {
    return token.kind == HtmlTokenKind::Characters && HtmlSpaceLength(token.text) > 0;
}

void HtmlTreeBuilder::ProcessCharacters(HtmlToken& token) {
    std::u16string_view rest = token.text;
    while (!rest.empty()) {
        std::size_t length = rest.size();
        if (SplitsSpaces()) {
            length = HtmlSpaceLength(rest);
            if (length == 0)
                length = std::size_t(std::ranges::find_if(rest, IsHtmlSpace) - rest.begin());
        }
        token.text = rest.substr(0, length);
        Dispatch(token);
        rest.remove_prefix(length);
    }
}

void HtmlTreeBuilder::Dispatch(HtmlToken& token) {
    if (IsForeign(token))
        InForeignContent(token);
    else
        ProcessIn(mode_, token);
}

void HtmlTreeBuilder::Reprocess(Mode mode, HtmlToken& token) {
    mode_ = mode;
    Dispatch(token);
}

void HtmlTreeBuilder::ProcessIn(Mode mode, HtmlToken& token) {
    switch (mode) {
    case Mode::Initial: return InitialMode(token);
    case Mode::BeforeHtml: return BeforeHtmlMode(token);
    case Mode::BeforeHead: return BeforeHeadMode(token);
    case Mode::InHead: return InHeadMode(token);
    case Mode::InHeadNoscript: return InHeadNoscriptMode(token);
    case Mode::AfterHead: return AfterHeadMode(token);
    case Mode::InBody: return InBodyMode(token);
    case Mode::Text: return TextMode(token);
    case Mode::InTable: return InTableMode(token);
    case Mode::InTableText: return InTableTextMode(token);
    case Mode::InCaption: return InCaptionMode(token);
    case Mode::InColumnGroup: return InColumnGroupMode(token);
    case Mode::InTableBody: return InTableBodyMode(token);
    case Mode::InRow: return InRowMode(token);
    case Mode::InCell: return InCellMode(token);
    case Mode::InTemplate: return InTemplateMode(token);
    case Mode::AfterBody: return AfterBodyMode(token);
    case Mode::InFrameset: return InFramesetMode(token);
    case Mode::AfterFrameset: return AfterFramesetMode(token);
    case Mode::AfterAfterBody: return AfterAfterBodyMode(token);
    case Mode::AfterAfterFrameset: return AfterAfterFramesetMode(token);
    }
}
