#include "app/shown_book.h"

#include "app/main_form.h"
#include "reading/zoom.h"

const std::u16string& CurrentProfile(const MainForm& form) {
    return form.menu.mUser[0].tag;
}

BookSettings SettingsOf(const MainForm& form, const std::u16string& recordKey) {
    return {*form.dataFile, BookSection(form.history, CurrentProfile(form), recordKey)};
}

BookSettings SettingsOf(const MainForm& form, const BookRecord& record) {
    return SettingsOf(form, record[Field::Path]);
}

bool IsBookShown(const MainForm& form) {
    const MenuItem& first = form.menu.mFileList[0];
    return first.checked && !first.tag.empty();
}

bool IsShownBookListed(const MainForm& form) {
    return IsBookShown(form) && GetBookPath(form.history, 0) == form.book.path;
}

void ForgetShownBook(MainForm& form) {
    form.menu.mFileList[0].checked = false;
}

bool CanShowPages(const MainForm& form) {
    return form.ports.htmlView && form.ports.htmlView->IsAvailable();
}

bool IsPageShown(const MainForm& form) {
    return form.page.IsShown();
}

bool HasPageBody(const MainForm& form) {
    return form.page.HasBody(form.ports.htmlView.get());
}

void Announce(MainForm& form, std::u16string_view text) {
    if (IsPageShown(form))
        form.ports.htmlView->Announce(text);
    else
        form.ports.textView->Announce(text);
}

bool SettlePage(MainForm& form) {
    if (HasPageBody(form)) SettleZoom(*form.ports.htmlView, form.menu.mViewFont[0]);
    if (HasPageBody(form)) form.ports.htmlView->SettleTop();
    return !form.closed;
}

std::uint64_t MaxPlainText(const MainForm& form) {
    return form.ports.textView->MaxTextSize();
}
