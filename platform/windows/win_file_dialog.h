// The system's dialog that opens a file.
#pragma once

#include "platform/dialogs.h"
#include "platform/windows/win32.h"

OpenFileAnswer AskFile(HWND owner, const OpenFileRequest&);
