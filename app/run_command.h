// One command at a time, and what waits for its end.
#pragma once

#include <functional>
#include <string>
#include <vector>

struct MainForm;

// Runs a command unless another one is running (it may be waiting for a dialog); then it is left
// out. No exception leaves it: the user is told when memory runs out.
void RunCommand(MainForm&, const std::function<void()>& command);

// Now, or after the command that is running:
void OpenAfterCommand(MainForm&, const std::vector<std::u16string>& paths);
void OpenWaitingBooks(MainForm&);
void ShowWaitingMessages(MainForm&);
// What happened to the page while a command ran is handled when that is done: without it the book
// would never be brought to its place.
void HandlePageEvents(MainForm&);
