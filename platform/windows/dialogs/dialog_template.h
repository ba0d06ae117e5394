// The template of a dialog in memory.
#pragma once

#include "platform/windows/dialogs/dialog_control.h"

#include <vector>

// A DLGTEMPLATEEX for DialogBoxIndirectW. Not a DIALOGEX of a resource script: that names a face
// and a size, while these dialogs come in the user's message font; and the program's resources are
// not in the test programs, which show the same dialogs.
std::vector<WORD> DialogTemplate(const std::wstring& title, short width, short height,
                                 const std::vector<DialogControl>&);
