#include "app/print_book.h"

#include "app/main_form.h"
#include "app/shown_book.h"
#include "shell/window_title.h"

void PrintBook(MainForm& form) {
    if (!IsBookShown(form)) return;
    if (IsPageShown(form) && !HasPageBody(form)) return;
    const BookRecord record = IsShownBookListed(form) ? form.history.Record(0) : BookRecord();
    const auto title =
        AccessibleBookName(TitledBookOf(record, form.book.path), form.ports.files->Separator());
    const PrintAnswer answer =
        IsPageShown(form) ? form.ports.htmlView->Print(title) : form.ports.textView->Print(title);
    if (answer.result != PrintAnswer::Result::Failed || form.closed) return;
    std::u16string text = u"The book could not be printed.";
    if (!answer.reason.empty()) text += u"\r\n" + answer.reason;
    ShowPlainMessage(form.messages, MessageIcon::Exclamation, MessageTitle::ProductMessage, text);
}
