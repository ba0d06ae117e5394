// Start-up, shutdown and autosave: the load, unload and timer events of the form.
#pragma once

struct MainForm;

// Sets up everything in its fixed order, opens the last or the given book and shows the window.
// False when another instance runs: nothing was read or written, and this one has to end.
bool Form_Load(MainForm&);

// Saves reading state and window placement.
void Form_Unload(MainForm&);

void toSave_Timer(MainForm&); // each second; saves the reading state on every 60th tick
