// Words with annotations above them, which stand in their line like a letter.
#include "view/page/lines_reader.h"

#include "common/text_words.h"
#include "common/utf.h"
#include "formats/html/html_units.h"

namespace {
// Nodes that are looked at for the letter beside one.
constexpr int maxNodes = 16;

// Of a character of two units it is an ideograph in nearly all rubies.
bool CanBreak(char16_t before, char16_t after) {
    const auto whole = [](char16_t unit) { return IsSurrogate(unit) ? u'\u4E00' : unit; };
    const char16_t both[] = {whole(before), whole(after)};
    return LineBreaks({both, 2})[1];
}
} // namespace

bool LinesReader::IsRubyAt(HtmlNodeId id) const {
    return nextBox_ != noPageBox && boxes_[nextBox_].kind == PageBoxKind::Ruby &&
           boxes_[nextBox_].first == id;
}

// The first unit that is no space, of texts up to a node; 0 for none.
char16_t LinesReader::FirstUnit(HtmlNodeId from, HtmlNodeId after) const {
    int nodes = 0;
    for (HtmlNodeId id = from; id != noHtmlNode && id != after && nodes < maxNodes; ++nodes) {
        if (tree_[id].IsText())
            for (const char16_t unit : tree_[id].Text())
                return unit;
        id = tree_.Next(id);
    }
    return 0;
}

char16_t LinesReader::LastUnit(HtmlNodeId from, HtmlNodeId after) const {
    char16_t last = 0;
    for (HtmlNodeId id = from; id != noHtmlNode && id != after; id = tree_.Next(id)) {
        if (!tree_[id].IsText()) continue;
        for (const char16_t unit : tree_[id].Text())
            if (!IsHtmlSpace(unit)) last = unit;
    }
    return last;
}

// Lines break beside it as they would beside its base.
void LinesReader::AddRuby() {
    const PageBox& ruby = boxes_[nextBox_];
    const HtmlNodeId annotation = boxes_[boxes_[boxes_.FirstChild(nextBox_)].nextSibling].first;
    const std::u16string& text = writer_.Content().text.text;
    const char16_t first = FirstUnit(ruby.first, annotation);
    const char16_t last = LastUnit(ruby.first, annotation);
    const char16_t next = FirstUnit(ruby.after, lines_.after);
    // What stands for another box is joined, or not, by that one.
    const bool isAfterBox = !text.empty() && (text.back() == u'\uFFFC' || text.back() == u'\u2060');
    const bool joinsBefore = !text.empty() && !isAfterBox && first && !CanBreak(text.back(), first);
    const bool joinsAfter = last && next && !IsHtmlSpace(next) && !CanBreak(last, next);
    const TextPos at = writer_.AddObject(*lines_.text, noHtmlNode, joinsBefore, joinsAfter);
    places_.push_back({at, nextBox_, true});
    nextBox_ = ruby.nextSibling;
}
