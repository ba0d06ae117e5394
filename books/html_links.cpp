#include "books/html_links.h"

#include "app/main_form.h"
#include "books/book_kind.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/text.h"
#include "common/web_address.h"
#include "reading/zoom.h"
#include "shell/confirm.h"

#include <utility>

namespace {
constexpr std::size_t longestTrail = 100;

std::vector<PagePlace> TrailFromHere(const MainForm& form, int top) {
    std::vector<PagePlace> trail = form.page.trail;
    if (trail.size() == longestTrail) trail.erase(trail.begin());
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

void FollowOut(MainForm& form, const std::u16string& url) {
    if (IsWebOrMailAddress(url)) return form.ports.shell->OpenAddress(url);
    constexpr std::size_t longestShown = 300;
    if (!IsProgramAddress(url)) return;
    if (ConfirmLoss(form, u"This link leads to another program:\r\n" + url.substr(0, longestShown)))
        form.ports.shell->OpenAddress(url);
}
} // namespace

void wbMain_Link(MainForm& form, const std::u16string& url, const std::u16string& path) {
    if (path.empty()) return FollowOut(form, url);
    const int kind = KindOfBook(path, "");
    if (kind == OtherBook) return; // a picture or an archive is no book
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
