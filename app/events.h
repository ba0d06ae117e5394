// From native events to handlers.
#pragma once

struct MainForm;

// Gives the ports the form's handlers.
void ConnectEvents(MainForm&);
// The same for what later starts of the program ask for, which can come from the claim on.
void ConnectLaterStarts(MainForm&);
