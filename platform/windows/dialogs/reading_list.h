// A list in the system's font dialog, in which a line of the book stands beside the name of each
// charset. The system's template has no place for it: it makes one between the controls and, where
// they are at the bottom, the buttons.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/base/win32.h"

// Besides those of the system's font dialog.
constexpr WORD ReadingLabel = 0x7000, ReadingList = 0x7001;

// `above` is the last control before the list in the order of the Tab key.
void AddReadingList(HWND dialog, int above, const FontRequest&);

int SelectedReading(HWND dialog); // -1 for none, or without a list
void SelectReading(HWND dialog, int reading);
