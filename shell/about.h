// The About box.
#pragma once

#include "platform/version_info.h"

#include <string>

struct MainForm;

// The lines of the box; `extraText` is one more of them unless it is "".
std::u16string AboutText(const ProgramVersion&, const std::u16string& extraText = {});

void ShowAboutBox(MainForm&, const std::u16string& extraText = {});

void mHelpAbout_Click(MainForm&, int);
