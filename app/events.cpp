#include "app/events.h"

#include "app/auto_scroll.h"
#include "app/book_state.h"
#include "app/changed_book.h"
#include "app/empty_view.h"
#include "app/help_menu.h"
#include "app/keys.h"
#include "app/links.h"
#include "app/main_form.h"
#include "app/saving_events.h"
#include "app/view_events.h"
#include "books/book_pictures.h"
#include "common/flag_scope.h"
#include "reading/zoom.h"

#include <new>
#include <optional>
#include <utility>

namespace {
// What happened to the page while a command ran is handled when that is done: without it the book
// would never be brought to its place.
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
    if (form.handling) return;
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

// A message needs memory, too: where there is none even for that, nothing is shown.
void ReportFailure(MainForm& form, const char16_t* text) noexcept {
    try {
        ShowBookMessage(form.messages, text);
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
            ReportFailure(form, u"There is not enough memory for this.");
        } catch (...) {
            ReportFailure(form, u"The command could not be completed.");
        }
    }
    ShowWaitingMessages(form);
    HandlePageEvents(form);
    OpenWaitingBooks(form);
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
        HandlePageEvents(form);
    };
    html.onZoomed = [&form] {
        form.page.zoomed = true;
        HandlePageEvents(form);
    };
    html.onGone = [&form] {
        form.page.gone = true;
        HandlePageEvents(form);
    };
    html.onCommand = [&form](PageCommand command) {
        RunCommand(form, [&] { wbMain_Command(form, command); });
    };
    html.onLink = [&form](const std::u16string& url, const std::u16string& path) {
        RunCommand(form, [&] { wbMain_Link(form, url, path); });
    };
    html.onJump = [&form](const PageTop& from) { wbMain_Jump(form, from); };
    html.onFilesDropped = [&form](const std::vector<std::u16string>& paths) {
        OpenAfterCommand(form, paths);
    };
}
} // namespace

void ConnectLaterStarts(MainForm& form) {
    form.ports.shell->onStartRequest = [&form](const StartRequest& request) {
        if (form.messages.windowShown) form.ports.window->BringToFront(request.activation);
        if (!request.book.empty()) OpenAfterCommand(form, {request.book});
    };
}

namespace {
void ConnectWindow(MainForm& form) {
    WindowEvents events;
    events.onShown = [&form] {
        form.messages.windowShown = true;
        ShowWaitingMessages(form);
    };
    events.onResize = [&form] { fwMain_Resize(form); };
    events.onUnload = [&form] { Form_Unload(form); };
    events.onKeyDown = [&form](int key, int shift) {
        const bool zoomed = CountZoomKey(form.page, form.menu.mViewFont[0], key, shift);
        RunCommand(form, [&] {
            if (zoomed) SaveBookState(form, 0);
            Form_KeyDown(form, key, shift);
        });
    };
    events.onKeyUp = [&form](int key, int shift) {
        RunCommand(form, [&] { Form_KeyUp(form, key, shift); });
    };
    events.onMouse = [&form] { EndAutoScroll(form); };
    events.onZoom = [&form](int steps) { RunCommand(form, [&] { fwMain_Zoom(form, steps); }); };
    form.ports.window->SetEvents(events);
}

void ConnectMenus(MainForm& form) {
    MenuEvents events;
    events.onOpening = [&form](MenuArray& menu) { RunHandler(form, menu, 0); };
    events.onClick = [&form](MenuArray& array, int index) { RunHandler(form, array, index); };
    form.ports.menuBar->Attach(form.menu.TopLevel(), events);
}

void ConnectTextView(MainForm& form) {
    TextView& view = *form.ports.textView;
    view.onPlaceholderLink = [&form] { RunCommand(form, [&form] { OpenWelcomeBook(form); }); };
    view.onContextMenu = [&form] { RunCommand(form, [&form] { rtMain_ContextMenu(form); }); };
    view.onCopy = [&form] { RunCommand(form, [&form] { ChooseCopy(form); }); };
    view.onPictureFile = [&form](const std::u16string& name) {
        return ReadBookPicture(*form.ports.files, form.history.Record(0).Path(), name);
    };
    view.onFilesDropped = [&form](const std::vector<std::u16string>& paths) {
        OpenAfterCommand(form, paths);
    };
}
} // namespace

void ConnectEvents(MainForm& form) {
    ConnectWindow(form);
    ConnectMenus(form);
    ConnectTextView(form);
    if (form.ports.htmlView) ConnectHtmlView(form);

    // Not a command of its own: it comes while one waits for its message.
    form.ports.dialogs->onHelp = [&form](const std::string& topic) { OpenHelp(form, topic); };

    // No command either: it is remembered while one runs.
    form.ports.fileWatch->onChanged = [&form] { fsBook_Changed(form); };
}
