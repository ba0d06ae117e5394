// When the form saves: at its end, and by the clock.
#pragma once

struct MainForm;

// Saves reading state and window placement.
void Form_Unload(MainForm&);

// Saves the reading state. The window can no longer be used, and nothing is asked or reported.
void SaveAfterDisplayLoss(MainForm&) noexcept;

void toSave_Timer(MainForm&); // each second; saves the reading state on every 60th tick
