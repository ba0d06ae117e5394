#include "app/page_engine.h"

#include "app/main_form.h"
#include "app/open_book.h"
#include "app/page_places.h"
#include "app/shown_book.h"

#include <utility>

void ChangePageEngine(MainForm& form) {
    if (!IsPageShown(form) || !IsShownBookListed(form)) return;
    if (!form.ports.htmlView->HasBothEngines()) return;
    BookFile file = OpenShownBookFile(form);
    if (file.problem) return ReloadBook(form, std::move(file)); // which says what is the matter
    if (!SettlePage(form)) return;
    if (HasPageBody(form)) KeepPageSelection(form);
    if (form.closed) return; // while the page was asked
    const PageEngine engine = form.ports.htmlView->Engine();
    SavePageEngine(SettingsOf(form, form.history.Record(0)),
                   engine == PageEngine::Browser ? PageEngine::Own : PageEngine::Browser);
    ReloadBook(form, std::move(file));
}
