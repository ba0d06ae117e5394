#include "reading/find.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/history_list.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"
#include "reading/hourglass.h"
#include "reading/text_routines.h"

#include <algorithm>

namespace {
constexpr std::size_t maxSearches = 20;
constexpr TextPos maxSearchLength = 64 * 1024; // taken from the selection
constexpr double dialogFontSize = 8;           // points: the book's face and script, small

// "|" separates searches, so one inside a search is stored as a reference, as is what a line cannot
// hold, and quotes, which around the value would not be part of it.
std::u16string Stored(const std::u16string& search) {
    constexpr std::u16string_view special = u"|&\"'";
    std::u16string stored;
    for (const char16_t unit : search) {
        const bool plain = unit > u' ' && special.find(unit) == special.npos;
        stored += plain ? std::u16string(1, unit) : u"&#" + NumberText(unit) + u";";
    }
    return stored;
}

void Remember(MainForm& form, const std::u16string& search) {
    auto& history = form.findHistory;
    std::erase(history, search);
    history.insert(history.begin(), search);
    if (history.size() > maxSearches) history.resize(maxSearches);
}

// Where the view counts a right-to-left line from its other end, the highlight moves onto the
// match.
void SelectLogically(TextView& view, int charset) {
    if (!CountsMirrored(view, charset)) return;
    const TextPos length = view.SelLength();
    view.Select(std::max<TextPos>(LogicalCaretPos(view, charset) - 1, 0), length);
}
} // namespace

void LoadFindHistory(MainForm& form) {
    form.findHistory.clear();
    const std::u16string key(RecordKey(form.menu.mFileList[0].tag));
    const auto stored = IniReadString(*form.dataFile, BookSection(form, key), u"HistFind");
    for (const std::u16string& search : Split(stored, u"|"))
        if (!search.empty() && form.findHistory.size() < maxSearches)
            form.findHistory.push_back(DecodeCharRefs(search));
}

void SaveFindHistory(MainForm& form, const std::u16string& recordKey) {
    if (recordKey.empty() || form.findHistory.empty()) return;
    std::vector<std::u16string> stored;
    for (const std::u16string& search : form.findHistory)
        stored.push_back(Stored(search));
    IniWriteString(*form.dataFile, BookSection(form, recordKey), u"HistFind", Join(stored, u"|"));
}

namespace {
// What a search starts from; nothing when more is selected than anybody looks for.
std::u16string SelectedText(MainForm& form) {
    const TextView& view = *form.ports.textView;
    HtmlView* page = IsPageShown(form) ? form.ports.htmlView.get() : nullptr;
    const TextPos length = page ? page->Selection().span.length : view.SelLength();
    if (length > maxSearchLength) return u"";
    return page ? page->SelectedText() : SelectedTextLogical(view, form.viewFont.charset);
}

// To the end of the page only, and nothing is said when there is no further place.
void FindNextInPage(MainForm& form) {
    HtmlView& html = *form.ports.htmlView;
    const auto match = html.FindBehindSelection(form.findText, form.findOptions);
    if (!match) return;
    html.ScrollTo(match->left, match->top - match->searchTop);
    html.Select(match->span); // shows it, where the distance alone does not lead there
}

// To the end of the text, then from its start.
TextPos FindAround(MainForm& form, TextPos start) {
    TextView& view = *form.ports.textView;
    const Hourglass hourglass(view);
    const TextPos found = view.Find(form.findText, start, form.findOptions);
    return found == notFound ? view.Find(form.findText, 0, form.findOptions) : found;
}
} // namespace

void mEditFind_Click(MainForm& form, int) {
    const std::u16string selected = SelectedText(form);
    if (form.closed) return; // while the page was asked
    if (!selected.empty()) form.findText = selected;
    FindRequest request;
    request.title = DialogTitle(form.menu.mEditFind[0]);
    request.font = form.viewFont;
    request.font.size = dialogFontSize;
    request.text = form.findText;
    request.wholeWord = form.findOptions.wholeWord;
    request.matchCase = form.findOptions.matchCase;
    request.history = form.findHistory;
    const FindAnswer answer = form.ports.dialogs->AskFind(request);
    if (answer.result != DialogResult::Ok) return;
    form.findText = answer.text;
    form.findOptions = {answer.wholeWord, answer.matchCase};
    if (!form.findText.empty()) mEditNext_Click(form, 0);
}

void mEditNext_Click(MainForm& form, int) {
    if (form.findText.empty()) return mEditFind_Click(form, 0);
    Remember(form, form.findText);
    if (IsPageShown(form)) return FindNextInPage(form);
    TextView& view = *form.ports.textView;
    const int charset = form.viewFont.charset;
    const TextPos start = LogicalCaretPos(view, charset) + view.SelLength();
    const TextPos found = FindAround(form, start);
    if (found < 0 || form.closed) return; // closed while a long search went on
    view.Select(found, static_cast<TextPos>(form.findText.size()));
    SelectLogically(view, charset);
    ScrollCaretToTop(view);
}
