// Messages to the user. Those of the start wait for the window, on which they belong.
#pragma once

#include "platform/dialogs.h"

#include <string>
#include <vector>

struct Messages {
    Dialogs& dialogs;
    std::u16string productTitle;
    bool windowShown = false;
    std::vector<Message> waiting{}; // in the order in which they came up
};

// A message with an exclamation mark, and a Help button that opens the help at `topic`.
Message BookMessage(const Messages&, const std::u16string& text, const char* topic = "mFileOpen");
// Shows it, or keeps it until the window has been shown; comes back at once then.
void ShowBookMessage(Messages&, const std::u16string& text, const char* topic = "mFileOpen");

// A message with an OK button alone, at once.
enum class MessageTitle { Product, ProductMessage }; // the program's name alone, or with "Message"
void ShowPlainMessage(const Messages&, MessageIcon, MessageTitle, const std::u16string& text);

// Says what will be lost and asks whether to go on; Cancel is the default answer.
bool ConfirmLoss(const Messages&, const std::u16string& whatWillBeLost);

// Of a file that is no text but `format`: asks whether to show it all the same; Cancel is the
// default.
bool ConfirmForeignFile(const Messages&, const std::u16string& path, const std::u16string& format);
