// Messages of the start: the window comes first, on which they belong.
#pragma once

#include "platform/dialogs.h"

#include <vector>

struct MainForm;

struct StartMessages {
    bool windowShown = false;
    std::vector<Message> waiting; // in the order in which they came up
};

// Shows the message, or keeps it until the window has been shown; comes back at once then.
void ShowMessageOverWindow(MainForm&, const Message&);

void ShowWaitingMessages(MainForm&); // one after the other
