#include "shell/window_title.h"

#include "app/main_form.h"
#include "books/book_record.h"
#include "books/charsets.h"
#include "books/history_list.h"
#include "common/direction_controls.h"
#include "common/menu_items.h"
#include "common/text.h"
#include "reading/text_routines.h"

namespace {
// A title bar may show the system's own script only; a caption in another one gives way to the
// path.
bool ShowsFileName(const MainForm& form, const BookRecord& record) {
    const bool fileNameWanted = CheckedItem(form.menu.mOptionsTitle) == 0;
    const int codePage = CharsetToCodePage(form.viewFont.charset);
    return !IsShownBookListed(form) || record[Field::Title].empty() || fileNameWanted ||
           codePage != form.ports.locale->AnsiCodePage();
}

// Title or file name: what one would say of the book.
std::u16string SpokenName(const MainForm& form, const BookRecord& record) {
    const std::u16string title = DecodeCharRefs(TrimBlanks(record[Field::Title]));
    const std::u16string path = record.Path();
    return title.empty() ? path.substr(path.rfind(form.ports.files->Separator()) + 1) : title;
}
} // namespace

void UpdateWindowTitle(MainForm& form) {
    std::u16string spoken, title = form.productTitle + u" [" + form.menu.mUser[0].tag + u"]";
    if (IsBookShown(form)) {
        const BookRecord record = BookRecord::Parse(form.menu.mFileList[0].tag);
        title += u" - ";
        title += ShowsFileName(form, record) ? form.shownPath
                                             : DecodeCharRefs(TrimBlanks(record[Field::Title]));
        spoken = SpokenName(form, record);
    }
    form.ports.textView->SetName(spoken);
    form.ports.window->SetTitle(WithoutDirectionControls(title));
}
