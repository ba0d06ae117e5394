#include "reading/find.h"

#include "common/char_refs.h"
#include "common/text.h"
#include "formats/codepages/code_pages.h"
#include "formats/html/html_labels.h"
#include "formats/plain/visual_lines.h"
#include "reading/caret.h"
#include "reading/hourglass.h"
#include "reading/stored_text.h"

#include <algorithm>

namespace {
constexpr std::size_t maxSearches = 20;
constexpr TextPos maxSearchLength = 64 * 1024; // taken from the selection

// Where the view counts a right-to-left line from its other end, the highlight moves onto the
// match.
void SelectLogically(TextView& view, int charset) {
    if (!CountsMirrored(view, charset)) return;
    const TextPos length = view.SelLength();
    view.Select(std::max<TextPos>(LogicalCaretPos(view, charset) - 1, 0), length);
}

// A page in visual order is not reordered: it has words as people type them, in logical order, and
// as they were copied from it.
std::optional<PageMatch> FindOnPage(HtmlView& view, const FindState& find) {
    const auto match = view.FindAfterSelection(find.text, find.options);
    if (!IsVisualOrder(HtmlLabelCodePage(view.Charset()))) return match;
    const std::u16string visual = InVisualOrder(find.text);
    if (visual == find.text) return match;
    const auto turned = view.FindAfterSelection(visual, find.options);
    const bool isTurnedFirst = turned && (!match || turned->span.start < match->span.start);
    return isTurnedFirst ? turned : match;
}
} // namespace

void RememberSearch(FindState& find) {
    std::erase(find.history, find.text);
    find.history.insert(find.history.begin(), find.text);
    if (find.history.size() > maxSearches) find.history.resize(maxSearches);
}

std::u16string StoredSearches(const std::vector<std::u16string>& history) {
    std::vector<std::u16string> stored;
    stored.reserve(history.size());
    for (const std::u16string& search : history)
        stored.push_back(StoredText(search, StoredBlanks::AsReferences));
    return Join(stored, u"|");
}

std::vector<std::u16string> ParseSearches(std::u16string_view stored) {
    std::vector<std::u16string> history;
    for (const std::u16string& search : Split(stored, u"|"))
        if (!search.empty() && history.size() < maxSearches)
            history.push_back(DecodeCharRefs(search));
    return history;
}

std::u16string SelectedSearch(const TextView& view, int charset) {
    return view.SelLength() > maxSearchLength ? u"" : SelectedTextLogical(view, charset);
}

std::u16string SelectedSearch(HtmlView& view) {
    return view.Selection().span.length > maxSearchLength ? u"" : view.SelectedText();
}

bool FindNext(TextView& view, const FindState& find, int charset) {
    TextPos found = notFound;
    {
        const Hourglass hourglass(view);
        const TextPos start = LogicalCaretPos(view, charset) + view.SelLength();
        found = view.Find(find.text, start, find.options);
        if (found == notFound) found = view.Find(find.text, 0, find.options);
    }
    if (found < 0) return found != notFound;
    view.Select(found, static_cast<TextPos>(find.text.size()));
    SelectLogically(view, charset);
    ScrollCaretToTop(view);
    return true;
}

bool FindNext(HtmlView& view, const FindState& find) {
    const auto match = FindOnPage(view, find);
    if (!match) return false;
    view.ScrollTo(match->left, match->top - match->searchTop);
    view.Select(match->span); // shows it, where the distance alone does not lead there
    return true;
}
