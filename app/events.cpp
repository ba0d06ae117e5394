#include "app/events.h"

#include "app/main_form.h"
#include "app/start_up.h"
#include "books/book_file.h"
#include "books/open_book.h"
#include "reading/edit.h"
#include "reading/keyboard.h"
#include "shell/help.h"

#include <exception>
#include <new>

void RunCommand(MainForm& form, const std::function<void()>& command) {
    if (form.handling) return;
    form.handling = true;
    try {
        command();
    } catch (const std::bad_alloc&) {
        ShowBookMessage(form, u"There is not enough memory for this.");
    } catch (const std::exception&) {
        ShowBookMessage(form, u"The command could not be completed.");
    }
    form.handling = false;
}

namespace {
void RunHandler(MainForm& form, const MenuArray& array, int index) {
    if (const MenuHandler handler = HandlerOf(array))
        RunCommand(form, [&] { handler(form, index); });
}
} // namespace

void ConnectEvents(MainForm& form) {
    WindowEvents events;
    events.onResize = [&form] { fwMain_Resize(form); };
    events.onUnload = [&form] { Form_Unload(form); };
    events.onKeyDown = [&form](int key, int shift) {
        RunCommand(form, [&] { Form_KeyDown(form, key, shift); });
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
    form.ports.textView->onFilesDropped = [&form](const std::vector<std::u16string>& paths) {
        RunCommand(form, [&] { rtMain_FilesDropped(form, paths); });
    };
}
