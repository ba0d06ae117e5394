#include "app/main_window.h"

#include "app/empty_view.h"
#include "app/main_form.h"
#include "app/shown_book.h"
#include "common/menu_items.h"
#include "formats/codepages/charsets.h"
#include "shell/layout.h"
#include "shell/window_title.h"

void LayOutForm(MainForm& form) {
    Ports& ports = form.ports;
    LayOutWindow(*ports.window, *ports.statusBar, *ports.textView, ports.htmlView.get());
}

void UpdateWindowTitle(MainForm& form) {
    const Ports& ports = form.ports;
    const std::u16string &product = form.messages.productTitle, &profile = CurrentProfile(form);
    UpdateEmptyView(form);
    if (!IsBookShown(form)) {
        return ports.window->SetTitle(WindowTitle(product, profile, nullptr, TitleMode::Path));
    }
    // A title bar may show the system's own script only; a title in another one gives way to the
    // path.
    const int codePage = CharsetToCodePage(form.format.font.charset);
    const bool usesTitle =
        CheckedItem(form.menu.mOptionsTitle) == 1 && codePage == ports.locale->AnsiCodePage();
    const TitleMode mode = usesTitle ? TitleMode::BookTitle : TitleMode::Path;
    const BookRecord record = IsShownBookListed(form) ? form.history.Record(0) : BookRecord();
    const TitledBook book = TitledBookOf(record, form.book.path);
    ports.textView->SetName(AccessibleBookName(book, ports.files->Separator()));
    ports.window->SetTitle(WindowTitle(product, profile, &book, mode));
}
