// The context menu of a page, and its commands as the engine numbers them (mshtmcid.h).
#pragma once

#include "platform/html_view.h"
#include "platform/windows/base/win32.h"

#include <optional>

std::optional<PageCommand> ToPageCommand(int number); // nothing for any other of the engine's
int CommandId(PageCommand);

// What the user chose at `place` on the screen.
std::optional<PageCommand> TrackPageMenu(HWND owner, POINT place, bool hasText, bool hasSelection);
