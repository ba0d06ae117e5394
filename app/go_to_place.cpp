#include "app/go_to_place.h"

#include "app/main_form.h"
#include "app/shown_book.h"
#include "reading/hourglass.h"

namespace {
PlaceAnswer Ask(const MainForm& form, int percent, std::vector<Heading> headings, TextPos top) {
    PlaceRequest request;
    request.title = u"Go To";
    request.percent = percent;
    request.heading = HeadingAbove(headings, top);
    request.headings = std::move(headings);
    return form.ports.dialogs->AskPlace(request);
}

void GoInPage(MainForm& form) {
    HtmlView& html = *form.ports.htmlView;
    const std::vector<Heading> headings = html.Headings();
    const TextPos top = headings.empty() ? 0 : html.StartAtTop();
    if (form.closed) return; // while the page was asked
    const PlaceAnswer answer = Ask(form, html.Percent(), headings, top);
    if (answer.result != DialogResult::Ok || !HasPageBody(form)) return;
    if (answer.heading < 0) return html.ScrollToPercent(answer.percent);
    const TextPos place = headings[static_cast<std::size_t>(answer.heading)].position;
    html.Select({place, 0});
    html.ScrollSpanToTop({place, 0});
}

// The caret goes along, so that the keys go on from there.
void GoInText(MainForm& form) {
    TextView& view = *form.ports.textView;
    std::vector<Heading> headings;
    {
        const Hourglass hourglass(view);
        headings = view.Headings();
    }
    if (form.closed) return; // while they were looked for
    const PlaceAnswer answer = Ask(form, view.Percent(), headings, view.FirstVisibleChar());
    if (answer.result != DialogResult::Ok) return;
    if (answer.heading < 0) {
        view.ScrollToPercent(answer.percent);
        return view.Select(view.FirstVisibleChar(), 0);
    }
    const TextPos place = headings[static_cast<std::size_t>(answer.heading)].position;
    view.Select(place, 0);
    view.ScrollLineToTop(place);
}
} // namespace

void GoToPlace(MainForm& form) {
    if (!IsBookShown(form)) return;
    if (!IsPageShown(form)) return GoInText(form);
    if (HasPageBody(form)) GoInPage(form);
}
