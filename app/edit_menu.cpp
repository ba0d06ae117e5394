#include "app/edit_menu.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/main_window.h"
#include "app/shown_book.h"
#include "common/char_refs.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/caret.h"

#include <algorithm>

void mEdit_Click(MainForm& form, int) {
    MenuTree& menu = form.menu;
    const bool page = IsPageShown(form);
    menu.mEditCopyRTF[0].caption = page ? u"C&opy as HTML" : u"C&opy as RTF";
    menu.mEditAll[0].enabled = page ? HasPageBody(form) && form.ports.htmlView->HasText()
                                    : form.ports.textView->TextLength() > 0;
    const bool selected =
        page ? HasPageBody(form) && form.ports.htmlView->Selection().span.length > 0
             : form.ports.textView->SelLength() > 0;
    menu.mEditCopy[0].enabled = menu.mEditCopyRTF[0].enabled = selected;
    menu.mEditTitle[0].enabled = selected && IsShownBookListed(form);
    menu.mEditFind[0].enabled = menu.mEditAll[0].enabled;
    menu.mEditNext[0].enabled = menu.mEditAll[0].enabled && !form.find.text.empty();
}

namespace {
// What the page does not answer leaves the clipboard as it is.
void CopyFromPage(MainForm& form, const std::u16string& text) {
    if (!text.empty()) form.ports.clipboard->SetText(text);
}

constexpr TextPos maxCopyLength = 128'000'000; // units: the clipboard holds it in memory, twice
constexpr TextPos maxCaptionLength = 4096;

// Else the user is told, and the clipboard stays as it is.
bool CanCopy(MainForm& form) {
    if (form.ports.textView->SelLength() <= maxCopyLength) return true;
    ShowPlainMessage(form.messages, MessageIcon::Exclamation, MessageTitle::ProductMessage,
                     u"The selection is too long to be copied:\r\nup to 128 million characters can "
                     u"be.");
    return false;
}
} // namespace

void mEditCopy_Click(MainForm& form, int) {
    if (IsPageShown(form)) return CopyFromPage(form, form.ports.htmlView->SelectedText());
    if (!CanCopy(form)) return;
    std::u16string text = SelectedTextLogical(*form.ports.textView, form.format.font.charset);
    std::ranges::replace(text, u'\v', u'\n');
    std::ranges::replace(text, u'\x07', u'\t'); // the end of a table's cell
    std::erase(text, u'\uFFFC');                // a picture
    form.ports.clipboard->SetText(text);
}

void mEditCopyRTF_Click(MainForm& form, int) {
    if (IsPageShown(form)) return CopyFromPage(form, form.ports.htmlView->SelectionAsHtml());
    if (!CanCopy(form)) return;
    const std::string source = form.ports.textView->SelectionAsRtf();
    form.ports.clipboard->SetText(std::u16string(source.begin(), source.end()));
}

void mEditAll_Click(MainForm& form, int) {
    if (IsPageShown(form)) return form.ports.htmlView->SelectAll();
    form.ports.textView->Select(0, form.ports.textView->TextLength());
}

void mEditFind_Click(MainForm& form, int) {
    const auto selected = IsPageShown(form)
                              ? SelectedSearch(*form.ports.htmlView)
                              : SelectedSearch(*form.ports.textView, form.format.font.charset);
    if (form.closed) return; // while the page was asked
    if (!selected.empty()) form.find.text = selected;
    constexpr double dialogFontSize = 8; // points: the book's face and script, small
    FindRequest request;
    request.title = DialogTitle(form.menu.mEditFind[0]);
    request.font = form.format.font;
    request.font.size = dialogFontSize;
    request.text = form.find.text;
    request.wholeWord = form.find.options.wholeWord;
    request.matchCase = form.find.options.matchCase;
    request.history = form.find.history;
    const FindAnswer answer = form.ports.dialogs->AskFind(request);
    if (answer.result != DialogResult::Ok) return;
    form.find.text = answer.text;
    form.find.options = {answer.wholeWord, answer.matchCase};
    if (!form.find.text.empty()) mEditNext_Click(form, 0);
}

void mEditNext_Click(MainForm& form, int) {
    if (form.find.text.empty()) return mEditFind_Click(form, 0);
    RememberSearch(form.find);
    const bool found = IsPageShown(form)
                           ? FindNext(*form.ports.htmlView, form.find)
                           : FindNext(*form.ports.textView, form.find, form.format.font.charset);
    if (!found && !form.closed) form.ports.window->Alert();
}

void mEditTitle_Click(MainForm& form, int) {
    const TextView& view = *form.ports.textView;
    const bool page = IsPageShown(form);
    const TextPos length = std::min(view.SelLength(), maxCaptionLength);
    const auto selected = page ? form.ports.htmlView->SelectedText().substr(0, maxCaptionLength)
                               : view.TextRange(view.SelStart(), length);
    const auto caption = OneLine(selected);
    if (page && TrimBlanks(caption).empty()) return;
    BookRecord record = form.history.Record(0);
    record[Field::Title] = Replace(TrimBlanks(EncodeNonAscii(caption)), u"=", u"&#61;");
    form.history.SetRecord(0, record);
    SaveBookState(form, 0);
    SetHistoryCaption(form.history, 0);
    UpdateWindowTitle(form);
}
