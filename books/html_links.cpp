#include "books/html_links.h"

#include "app/main_form.h"
#include "books/book_file.h"
#include "books/book_kind.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/direction_controls.h"
#include "common/web_address.h"
#include "formats/media_file.h"
#include "reading/zoom.h"
#include "shell/confirm.h"

#include <utility>

namespace {
constexpr std::size_t maxTrailLength = 100;

std::vector<PagePlace> TrailFromHere(const MainForm& form, int top) {
    std::vector<PagePlace> trail = form.page.trail;
    if (trail.size() == maxTrailLength) trail.erase(trail.begin());
    trail.push_back({form.page.path, top});
    return trail;
}

void OpenOnTrail(MainForm& form, const std::u16string& path, int kind,
                 std::vector<PagePlace> trail) {
    if (!SettleZoom(form)) return;
    SaveBookState(form, 0);
    OpenBook(form, path, kind == HtmlBook ? kind : -1);
    form.page.trail = std::move(trail);
}

bool ConfirmProgram(MainForm& form, const std::u16string& where) {
    constexpr std::size_t maxShownLength = 300;
    return ConfirmLoss(form, u"This link leads to another program:\r\n" +
                                 WithoutDirectionControls(where.substr(0, maxShownLength)));
}

void FollowOut(MainForm& form, const std::u16string& url) {
    const std::u16string address = WithPlainMailFields(EncodedAddress(url));
    if (IsWebOrMailAddress(address)) return form.ports.shell->OpenAddress(address);
    if (IsProgramAddress(address) && ConfirmProgram(form, address))
        form.ports.shell->OpenAddress(address);
}

// The desktop would run a program or a script, whoever put it beside the book: only what is looked
// at or listened to is handed on, and only when the user says so.
void OpenBeside(MainForm& form, const std::u16string& path) {
    std::string firstBytes;
    if (form.ports.files->ReadStart(path, mediaStart, firstBytes) != ReadStatus::Ok)
        return ShowBookMessage(form, path + u"\r\nThis file cannot be read.");
    if (!IsMediaFile(path, firstBytes))
        return ShowBookMessage(form, path + u"\r\nA page's link opens books, pictures, sounds, "
                                            u"films and PDF files, and this is none.");
    if (ConfirmProgram(form, path)) form.ports.shell->OpenFile(path);
}
} // namespace

void wbMain_Link(MainForm& form, const std::u16string& url, const std::u16string& path) {
    if (path.empty()) return FollowOut(form, url);
    const int kind = KindOfBook(path, "");
    if (kind == OtherBook) return OpenBeside(form, path);
    OpenOnTrail(form, path, kind, TrailFromHere(form, form.ports.htmlView->ScrollTop()));
}

void wbMain_Jump(MainForm& form, int fromTop) {
    if (IsPageShown(form)) form.page.trail = TrailFromHere(form, fromTop);
}

void GoBackAlongLinks(MainForm& form) {
    std::vector<PagePlace> trail = form.page.trail;
    if (trail.empty()) return;
    const PagePlace place = trail.back();
    trail.pop_back();
    if (!IsPageShown(form) || place.path != form.page.path)
        return OpenOnTrail(form, place.path, HtmlBook,
                           std::move(trail)); // its record has the place
    form.page.trail = std::move(trail);
    form.ports.htmlView->ScrollTo(0, place.top);
}
