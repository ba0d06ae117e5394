#include "app/links.h"

#include "app/book_state.h"
#include "app/main_form.h"
#include "app/open_book.h"
#include "app/shown_book.h"
#include "common/direction_controls.h"
#include "common/web_address.h"
#include "formats/media_file.h"

#include <utility>

namespace {
void OpenOnTrail(MainForm& form, const std::u16string& path, RequestedKind kind,
                 std::vector<PagePlace> trail) {
    if (!SettlePage(form)) return;
    SaveBookState(form, 0);
    OpenBook(form, path, kind);
    form.page.trail = std::move(trail);
}

bool ConfirmProgram(MainForm& form, const std::u16string& where) {
    constexpr std::size_t maxShownLength = 300;
    return ConfirmLoss(form.messages,
                       u"This link leads to another program:\r\n" +
                           WithoutDirectionControls(where.substr(0, maxShownLength)));
}

void OpenExternalLink(MainForm& form, const std::u16string& url) {
    const std::u16string address = WithPlainMailFields(EncodedAddress(url));
    if (IsWebOrMailAddress(address)) return form.ports.shell->OpenAddress(address);
    if (IsProgramAddress(address) && ConfirmProgram(form, address))
        form.ports.shell->OpenAddress(address);
}

// The desktop would run a program or a script, whoever put it beside the book: only what is looked
// at or listened to is handed on, and only when the user says so.
void OpenMediaFile(MainForm& form, const std::u16string& path) {
    std::string firstBytes;
    if (form.ports.files->ReadStart(path, mediaStart, firstBytes) != ReadStatus::Ok)
        return ShowBookMessage(form.messages, path + u"\r\nThis file cannot be read.");
    if (!IsMediaFile(path, firstBytes))
        return ShowBookMessage(form.messages,
                               path + u"\r\nA page's link opens books, pictures, sounds, "
                                      u"films and PDF files, and this is none.");
    if (ConfirmProgram(form, path)) form.ports.shell->OpenFile(path);
}

// The chapters of a book may be files of their own: one that was never opened is shown as the page
// is that leads to it.
void InheritPageEngine(MainForm& form, const std::u16string& path) {
    if (FindInHistory(form.history, path) >= 0 || !IsShownBookListed(form)) return;
    const PageEngine engine = LoadPageEngine(SettingsOf(form, form.history.Record(0)));
    if (engine == PageEngine::Own) SavePageEngine(SettingsOf(form, PathToKey(path)), engine);
}
} // namespace

void wbMain_Link(MainForm& form, const std::u16string& url, const std::u16string& path) {
    if (path.empty()) return OpenExternalLink(form, url);
    const BookKind kind = KindOfName(path);
    if (kind == BookKind::Other) return OpenMediaFile(form, path);
    if (kind == BookKind::Html) InheritPageEngine(form, path);
    HtmlPage from = form.page;
    PushPlace(from, PlaceToReturnTo(*form.ports.htmlView));
    OpenOnTrail(form, path, kind == BookKind::Html ? RequestedKind(kind) : std::nullopt,
                std::move(from.trail));
}

void wbMain_Jump(MainForm& form, const PageTop& from) {
    if (IsPageShown(form)) PushPlace(form.page, from);
}

void GoBackAlongLinks(MainForm& form) {
    std::vector<PagePlace> trail = form.page.trail;
    if (trail.empty()) return;
    const PagePlace place = trail.back();
    trail.pop_back();
    if (!IsPageShown(form) || place.path != form.page.path) // its record has the place
        return OpenOnTrail(form, place.path, BookKind::Html, std::move(trail));
    form.page.trail = std::move(trail);
    form.ports.htmlView->BringToTop(place.top);
}
