// The template of a dialog in memory.
#pragma once

#include "platform/windows/dialogs/win_dialog.h"

// A DLGTEMPLATEEX, as DialogBoxIndirectW takes it.
std::vector<WORD> DialogTemplate(const std::wstring& title, short width, short height,
                                 const std::vector<DialogControl>&);
