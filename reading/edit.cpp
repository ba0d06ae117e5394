#include "reading/edit.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/history_list.h"
#include "books/save_state.h"
#include "common/text.h"
#include "reading/bookmarks.h"
#include "reading/caret.h"
#include "reading/text_routines.h"
#include "shell/window_title.h"

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
    menu.mEditNext[0].enabled = menu.mEditAll[0].enabled && !form.findText.empty();
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
    Message message;
    message.text =
        u"The selection is too long to be copied:\r\nup to 128 million characters can be.";
    message.title = form.productTitle + u" Message";
    message.icon = MessageIcon::Exclamation;
    form.ports.dialogs->ShowMessage(message);
    return false;
}
} // namespace

void mEditCopy_Click(MainForm& form, int) {
    if (IsPageShown(form)) return CopyFromPage(form, form.ports.htmlView->SelectedText());
    if (!CanCopy(form)) return;
    std::u16string text = SelectedTextLogical(*form.ports.textView, form.viewFont.charset);
    std::ranges::replace(text, u'\v', u'\n');
    std::ranges::replace(text, u'\x07', u'\t'); // the end of a table's cell
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

void mEditTitle_Click(MainForm& form, int) {
    const TextView& view = *form.ports.textView;
    const bool page = IsPageShown(form);
    const TextPos length = std::min(view.SelLength(), maxCaptionLength);
    const auto selected = page ? form.ports.htmlView->SelectedText().substr(0, maxCaptionLength)
                               : view.TextRange(view.SelStart(), length);
    const auto caption = OneLine(selected);
    if (page && TrimBlanks(caption).empty()) return;
    BookRecord record = BookRecord::Parse(form.menu.mFileList[0].tag);
    record[Field::Title] = Replace(TrimBlanks(EncodeNonAscii(caption)), u"=", u"&#61;");
    form.menu.mFileList[0].tag = record.ToText();
    SaveBookState(form, 0);
    SetHistoryCaption(form, 0);
    UpdateWindowTitle(form);
}

void rtMain_ContextMenu(MainForm& form) {
    MenuTree& menu = form.menu;
    mEdit_Click(form, 0);
    mBookmark_Click(form, 0);
    form.ports.menuBar->ShowContextMenu({&menu.mEditCopy, &menu.mEditCopyRTF, &menu.mEditSeparator1,
                                         &menu.mEditAll, &menu.mEditSeparator2, &menu.mEditFind,
                                         &menu.mEditNext, &menu.mEditSeparator3, &menu.mEditTitle,
                                         &menu.mBookmarkNew});
}
