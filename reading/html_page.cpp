#include "reading/html_page.h"

void ResetPage(HtmlPage& page) {
    const int load = page.load;
    page = {};
    page.load = load;
}

PageTop PlaceToReturnTo(HtmlView& view) {
    if (!view.Top().LeadsSomewhere()) view.SettleTop();
    return view.Top();
}

void PushPlace(HtmlPage& page, const PageTop& top) {
    constexpr std::size_t maxTrailLength = 100;
    if (page.trail.size() == maxTrailLength) page.trail.erase(page.trail.begin());
    page.trail.push_back({page.path, top});
}
