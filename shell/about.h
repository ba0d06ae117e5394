// The About box.
#pragma once

#include "platform/dialogs.h"
#include "platform/version_info.h"

#include <string>

// The lines of the box; `extraText` is one more of them unless it is "".
std::u16string AboutText(const ProgramVersion&, const std::u16string& extraText = {});

void ShowAboutBox(Dialogs&, const ProgramVersion&, const std::u16string& extraText = {});
