// From native events to handlers.
#pragma once

#include <functional>

struct MainForm;

// Gives the ports the form's handlers.
void ConnectEvents(MainForm&);
// The same for what later starts of the program ask for, which can come from the claim on.
void ConnectLaterStarts(MainForm&);

// Runs a command unless another one is running (it may be waiting for a dialog); then it is left
// out. No exception leaves it: the user is told when memory runs out.
void RunCommand(MainForm&, const std::function<void()>& command);
