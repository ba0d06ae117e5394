#include "app/events.h"

#include "app/main_form.h"
#include "app/start_up.h"
#include "books/book_file.h"
#include "books/html_book.h"
#include "books/html_links.h"
#include "books/open_book.h"
#include "books/save_state.h"
#include "common/flag_scope.h"
#include "reading/edit.h"
#include "reading/keyboard.h"
#include "reading/zoom.h"
#include "shell/help.h"

#include <new>
#include <optional>
#include <utility>

namespace {
// What happened to the page while a command ran is taken in when that is done: without it the book
// would never be brought to its place.
void TakePageEvents(MainForm& form) {
    if (form.handling) return;
    if (const auto url = std::exchange(form.page.arrivedUrl, std::nullopt))
        RunCommand(form, [&] { wbMain_DocumentComplete(form, *url); });
    if (std::exchange(form.page.zoomed, false)) RunCommand(form, [&] { wbMain_Zoomed(form); });
    if (std::exchange(form.page.gone, false)) RunCommand(form, [&] { wbMain_Gone(form); });
}

void TakeWaitingMessages(MainForm& form) {
    const StartMessages& messages = form.startMessages;
    if (form.handling || !messages.windowShown || messages.waiting.empty()) return;
    RunCommand(form, [&] { ShowWaitingMessages(form); });
}

// A message takes memory, too: where there is none even for that, nothing is said.
void TellFailure(MainForm& form, const char16_t* text) noexcept {
    try {
        ShowBookMessage(form, text);
    } catch (...) { // the program goes on
    }
}
} // namespace

void RunCommand(MainForm& form, const std::function<void()>& command) {
    if (form.handling || form.closed) return;
    {
        const FlagScope handling(form.handling);
        try {
            command();
        } catch (const std::bad_alloc&) {
            TellFailure(form, u"There is not enough memory for this.");
        } catch (...) {
            TellFailure(form, u"The command could not be completed.");
        }
    }
    TakeWaitingMessages(form);
    TakePageEvents(form);
}

namespace {
void RunHandler(MainForm& form, const MenuArray& array, int index) {
    if (const MenuHandler handler = HandlerOf(array))
        RunCommand(form, [&] { handler(form, index); });
}

void ConnectHtmlView(MainForm& form) {
    HtmlView& html = *form.ports.htmlView;
    html.onLoaded = [&form](int load, const std::u16string& url) {
        if (load != form.page.load) return; // of a page left meanwhile
        form.page.arrivedUrl = url;
        TakePageEvents(form);
    };
    html.onZoomed = [&form] {
        form.page.zoomed = true;
        TakePageEvents(form);
    };
    html.onGone = [&form] {
        form.page.gone = true;
        TakePageEvents(form);
    };
    html.onCommand = [&form](PageCommand command) {
        RunCommand(form, [&] { wbMain_Command(form, command); });
    };
    html.onLink = [&form](const std::u16string& url, const std::u16string& path) {
        RunCommand(form, [&] { wbMain_Link(form, url, path); });
    };
    html.onJump = [&form](int fromTop) { wbMain_Jump(form, fromTop); };
    html.onFilesDropped = [&form](const std::vector<std::u16string>& paths) {
        RunCommand(form, [&] { rtMain_FilesDropped(form, paths); });
    };
}
} // namespace

void ConnectEvents(MainForm& form) {
    WindowEvents events;
    events.onShown = [&form] {
        form.startMessages.windowShown = true;
        TakeWaitingMessages(form);
    };
    events.onResize = [&form] { fwMain_Resize(form); };
    events.onUnload = [&form] { Form_Unload(form); };
    events.onKeyDown = [&form](int key, int shift) {
        const bool zoomed = CountZoomKey(form, key, shift);
        RunCommand(form, [&] {
            if (zoomed) SaveBookState(form, 0);
            Form_KeyDown(form, key, shift);
        });
    };
    events.onKeyUp = [&form](int key, int shift) {
        RunCommand(form, [&] { Form_KeyUp(form, key, shift); });
    };
    events.onZoom = [&form](int steps) { RunCommand(form, [&] { fwMain_Zoom(form, steps); }); };
    form.ports.window->SetEvents(events);

    MenuEvents menuEvents;
    menuEvents.onOpening = [&form](MenuArray& menu) { RunHandler(form, menu, 0); };
    menuEvents.onClick = [&form](MenuArray& array, int index) { RunHandler(form, array, index); };
    form.ports.menuBar->Attach(form.menu.TopLevel(), menuEvents);

    // Not a command of its own: it comes while one waits for its message.
    form.ports.dialogs->onHelp = [&form](const std::string& topic) { OpenHelp(form, topic); };

    form.ports.textView->onContextMenu = [&form] {
        RunCommand(form, [&] { rtMain_ContextMenu(form); });
    };
    form.ports.textView->onCopy = [&form] { RunCommand(form, [&form] { rtMain_Copy(form); }); };
    form.ports.textView->onFilesDropped = [&form](const std::vector<std::u16string>& paths) {
        RunCommand(form, [&] { rtMain_FilesDropped(form, paths); });
    };
    if (form.ports.htmlView) ConnectHtmlView(form);
}
