#include "app/run_command.h"

#include "app/main_form.h"
#include "app/view_events.h"
#include "common/flag_scope.h"

#include <new>
#include <optional>
#include <utility>

namespace {
// A message needs memory, too: where there is none even for that, nothing is shown.
void ReportFailure(MainForm& form, const char16_t* text) noexcept {
    try {
        ShowBookMessage(form.messages, text);
    } catch (...) { // the program goes on
    }
}
} // namespace

void HandlePageEvents(MainForm& form) {
    if (form.handling) return;
    if (const auto url = std::exchange(form.page.arrivedUrl, std::nullopt))
        RunCommand(form, [&] { wbMain_DocumentComplete(form, *url); });
    if (std::exchange(form.page.zoomed, false)) RunCommand(form, [&] { wbMain_Zoomed(form); });
    if (std::exchange(form.page.gone, false)) RunCommand(form, [&] { wbMain_Gone(form); });
}

// While a command waits for a dialog its user is at something else: what comes by a later start or
// a drop is opened after it, all of it, as each was asked for.
void OpenWaitingBooks(MainForm& form) {
    if (form.handling || !form.messages.windowShown) return; // without it nobody can be asked
    for (const auto& paths : std::exchange(form.waitingBooks, {}))
        RunCommand(form, [&] { rtMain_FilesDropped(form, paths); });
}

void OpenAfterCommand(MainForm& form, const std::vector<std::u16string>& paths) {
    form.waitingBooks.push_back(paths);
    OpenWaitingBooks(form);
}

void ShowWaitingMessages(MainForm& form) {
    if (form.handling || !form.messages.windowShown || form.messages.waiting.empty()) return;
    RunCommand(form, [&] {
        for (const Message& message : std::exchange(form.messages.waiting, {})) {
            if (form.closed) return; // with the message before
            form.ports.dialogs->ShowMessage(message);
        }
    });
}

void RunCommand(MainForm& form, const std::function<void()>& command) {
    if (form.handling || form.closed) return;
    {
        const FlagScope handling(form.handling);
        try {
            command();
        } catch (const std::bad_alloc&) {
            ReportFailure(form, u"There is not enough memory for this.");
        } catch (...) {
            ReportFailure(form, u"The command could not be completed.");
        }
    }
    ShowWaitingMessages(form);
    HandlePageEvents(form);
    OpenWaitingBooks(form);
}
