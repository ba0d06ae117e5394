#include "app/events.h"

#include "app/auto_scroll.h"
#include "app/book_state.h"
#include "app/changed_book.h"
#include "app/empty_view.h"
#include "app/help_menu.h"
#include "app/keys.h"
#include "app/links.h"
#include "app/main_form.h"
#include "app/run_command.h"
#include "app/saving_events.h"
#include "app/view_events.h"
#include "books/book_pictures.h"
#include "reading/zoom.h"

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
        OpenWaitingBooks(form);
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
