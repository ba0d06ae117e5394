#include "app/empty_view.h"

#include "app/main_form.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "datafile/location.h"
#include "shell/help/help_contents.h"

namespace {
// Beside the program, or in the folder of an installation; "" where there is none.
std::u16string WelcomeBook(const MainForm& form) {
    const Launch& launch = form.ports.launch;
    const Files& files = *form.ports.files;
    const std::u16string path = FindHelpFile(
        files, launch.programFolder + files.Separator() + u"Welcome.txt", launch.sharedFolder);
    return files.FileExists(path) ? path : u"";
}

bool OffersWelcomeBook(const MainForm& form) {
    return !IsBookShown(form) && form.history.Count() == 0 && !WelcomeBook(form).empty();
}
} // namespace

void UpdateEmptyView(MainForm& form) {
    TextView& view = *form.ports.textView;
    if (IsBookShown(form)) return view.SetPlaceholder({});
    Placeholder placeholder{u"Open a book with Ctrl+O, or drop it here.", u""};
    if (OffersWelcomeBook(form)) placeholder.link = u"Read the welcome book (Enter)";
    view.SetPlaceholder(placeholder);
    const bool isEmpty = view.TextLength() == 0; // not after the shown book left the list
    const std::u16string link = placeholder.link.empty() ? u"" : u' ' + placeholder.link;
    view.SetName(isEmpty ? placeholder.text + link : u"");
}

void OpenWelcomeBook(MainForm& form) {
    if (OffersWelcomeBook(form)) OpenBook(form, WelcomeBook(form));
}
