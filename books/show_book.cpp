// Showing the book of a history item: file and record become what is on the screen.
#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_record.h"
#include "books/book_script.h"
#include "books/history_list.h"
#include "books/html_book.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "common/text.h"
#include "formats/plain_text_source.h"
#include "reading/bookmarks.h"
#include "reading/caret.h"
#include "reading/find.h"
#include "reading/formatting.h"
#include "reading/hourglass.h"
#include "reading/zoom.h"
#include "shell/layout.h"
#include "shell/window_title.h"

#include <algorithm>
#include <utility>

namespace {
// The font a record asks for; hand-edited values are kept within what a font can be.
ViewFont FontOf(const MainForm& form, const BookRecord& record) {
    constexpr int maxSize = 1638; // points, the most that a rich-edit control takes
    ViewFont font = form.ports.window->DefaultViewFont();
    const int size = record.Number(Field::FontSize);
    if (!record[Field::FontName].empty()) font.name = record[Field::FontName];
    if (size > 0) font.size = std::min(size, maxSize);
    font.charset = std::clamp(record.Number(Field::Charset), 0, 255);
    font.bold = record.Flag(Field::Bold);
    font.italic = record.Flag(Field::Italic);
    font.underline = record.Flag(Field::Underline);
    font.strikethrough = record.Flag(Field::Strikethru);
    return font;
}

Color ColorOf(const std::u16string& field, Color fallback) {
    return field.empty() ? fallback : static_cast<Color>(WholeNumber(field)) & 0xFFFFFF;
}

// The plain text of a book, nothing of a rich one; its charset is known then, and so is the script
// of the font.
std::shared_ptr<PlainTextSource> TextOf(MainForm& form, const BookRecord& record,
                                        const BookContent& content) {
    form.chosenCodePage = ChosenCodePage(form, record);
    form.shownCodePage = 0;
    if (!content.plainText) return nullptr;
    auto text = std::make_shared<PlainTextSource>(content.plainText, form.chosenCodePage,
                                                  form.ports.locale->AnsiCodePage());
    form.shownCodePage = text->CodePage();
    if (form.chosenCodePage == 0 && form.shownCodePage != 0)
        form.viewFont.charset = ScriptCharset(form.shownCodePage, form.viewFont.charset);
    return text;
}

void ShowInTextView(MainForm& form, const BookRecord& record, BookContent content) {
    TextView& view = *form.ports.textView;
    form.viewFont = FontOf(form, record);
    auto text = TextOf(form, record, content);
    LeavePage(form);
    view.SetVisible(true);
    const Hourglass hourglass(view);
    view.SetBackColor(ColorOf(record[Field::BackColor], defaultBackColor));
    view.SetFont(form.viewFont);
    ApplyFont(form, true);
    SetWordWrap(form, record.Flag(Field::Wrap));
    if (text)
        view.LoadText(std::move(text));
    else
        view.LoadRichText(std::move(content.richText), form.ports.locale->AnsiCodePage());
    ApplyTextColor(form, ColorOf(record[Field::ForeColor], defaultTextColor), true);
    ApplyAlignment(form, record.Number(Field::Align), true);
    ScrollCaretToTop(view, record.Number(Field::LastPos));
    LayOutForm(form);
    KeepGuessedScript(form);
}

void MakeFirst(MainForm& form, int index) {
    const bool keepsOldState = form.ProfileSwitching || form.Refreshing || form.OpeningBook;
    if (!keepsOldState) SaveBookState(form, 0);
    MoveHistoryItemToTop(form, index);
    SyncRemoveMenu(form, HistoryCount(form) - 1);
}

// The book to show, opened before anything changes: of one that cannot be read the user
// is told and the book on the screen stays.
std::optional<BookContent> ReadBookToShow(MainForm& form, int index) {
    const BookRecord record = BookRecord::Parse(form.menu.mFileList[index].tag);
    const bool html = record.Number(Field::Filter) == HtmlBook;
    if (html && !CanShowPages(form)) {
        TellOfNoHtmlView(form, record.Path());
        return std::nullopt;
    }
    const Hourglass hourglass(*form.ports.textView);
    std::optional<BookContent> content;
    if (!html)
        content = ReadBookFile(form, record.Path());
    else if (ExamineBookFile(form, record.Path()))
        content = BookContent(); // the engine reads a page by itself; here it is seen that it can
    if (!content) SetHistoryCaption(form, index);
    return content;
}
} // namespace

void mFileList_Click(MainForm& form, int index) {
    if (index == 0 && IsBookShown(form)) return;
    auto content = ReadBookToShow(form, index);
    if (!content || !SettleZoom(form)) return;

    const FlagScope loading(form.LoadingBook);
    if (index >= 1) MakeFirst(form, index);
    form.ports.textView->LoadPlainText(u"");
    if (!form.ProfileChanging && !form.Refreshing) SaveHistoryList(form);
    MenuTree& menu = form.menu;
    menu.mFileList[0].checked = false; // so that a book that memory does not hold keeps its record
    const std::u16string pathBefore = std::exchange(form.shownPath, u"");
    menu.mBookmark[0].enabled = true;
    const BookRecord record = BookRecord::Parse(menu.mFileList[0].tag);
    menu.mFileEdit[0].tag = record[Field::Filter];
    if (record.Number(Field::Filter) == HtmlBook)
        ShowInHtmlView(form, record, ColorOf(record[Field::BackColor], defaultBackColor));
    else
        ShowInTextView(form, record, std::move(*content));
    menu.mFileList[0].checked = true;
    form.shownPath = record.Path();
    if (form.shownPath != pathBefore) menu.mBookmarkLast[0].tag = u""; // a place in that book
    UpdateWindowTitle(form);
    LoadFindHistory(form);
    LoadBookmarks(form, record[Field::Marks]);
    form.ports.menuBar->Refresh();
}
