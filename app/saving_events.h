// When the form saves: at its end, and by the clock.
#pragma once

struct MainForm;

// Saves reading state and window placement.
void Form_Unload(MainForm&);

void toSave_Timer(MainForm&); // each second; saves the reading state on every 60th tick
