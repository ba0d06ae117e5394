#include "shell/start_messages.h"

#include "app/main_form.h"

#include <utility>

void ShowMessageOverWindow(MainForm& form, const Message& message) {
    if (form.startMessages.windowShown)
        form.ports.dialogs->ShowMessage(message);
    else
        form.startMessages.waiting.push_back(message);
}

void ShowWaitingMessages(MainForm& form) {
    for (const Message& message : std::exchange(form.startMessages.waiting, {})) {
        if (form.closed) return; // with the message before
        form.ports.dialogs->ShowMessage(message);
    }
}
