#include "app/saving_events.h"

#include "app/book_state.h"
#include "app/changed_book.h"
#include "app/data_file.h"
#include "app/main_form.h"
#include "app/moved_books.h"
#include "app/shown_book.h"
#include "common/flag_scope.h"

#include <utility>

namespace {
// It may wait for the page, while timers and other events come: no command may begin then.
void SettleLastPage(MainForm& form) {
    const FlagScope handling(form.handling);
    if (HasPageBody(form)) form.ports.htmlView->PrepareToClose();
    SettlePage(form);
}
} // namespace

void Form_Unload(MainForm& form) {
    if (!form.started || form.closed) return;
    form.ports.shell->onStartRequest = nullptr; // a later start waits for the end of this one
    SettleLastPage(form);
    IniBatch oneWrite(*form.dataFile);
    SaveBookState(form, 0);
    SaveWindowPlacement(form.placement, *form.dataFile, CurrentProfile(form), *form.ports.window);
    oneWrite.Commit();
    form.closed = true; // nothing may begin while the last message waits
    RetryWritingDataFile(form);
}

void SaveAfterDisplayLoss(MainForm& form) noexcept {
    if (!form.started || form.closed) return;
    form.closed = true;
    try {
        SaveBookState(form, 0);
    } catch (...) { // the program is about to end
    }
}

namespace {
// Not as soon as it is shown: the desktop takes its time, and who only looks for a book opens many.
void TellDesktopOfBook(MainForm& form) {
    if (!IsBookShown(form) || !std::exchange(form.book.isNew, false)) return;
    form.ports.shell->AddRecentDocument(form.book.path);
}
} // namespace

void toSave_Timer(MainForm& form) {
    constexpr int saveInterval = 60; // seconds
    AdoptLateDataFile(form);
    WatchDataFile(form);
    constexpr int looksEachSecond = 5; // at the disk
    LookForMovedBooks(form, looksEachSecond);
    CheckBookFile(form);
    TellDesktopOfBook(form);
    form.autosaveTick = (form.autosaveTick + 1) % saveInterval;
    if (form.autosaveTick == 0) SaveBookState(form, 0);
}
