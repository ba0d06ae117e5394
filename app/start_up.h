// Start-up: the load event of the form.
#pragma once

struct MainForm;

// Sets up everything in its fixed order, opens the last or the given book and shows the window.
// False when another instance runs: nothing was read or written, and this one has to end.
bool Form_Load(MainForm&);
