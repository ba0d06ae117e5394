// The product on the web: its page, its feedback mail, the addresses built from its version
// information.
#pragma once

#include "platform/version_info.h"

#include <string>

struct MainForm;

// Entry 0 of the comments is the web site, without "/" at its end; entry 1, which may be missing, a
// whole "mailto:" address.
std::u16string CommentsEntry(const ProgramVersion&, std::size_t index); // "" when missing

std::u16string ProductAddress(const ProgramVersion&); // ends in "/"

// Hands a web or mail address to the desktop; any other is left alone.
void OpenWebAddress(MainForm&, const std::u16string& address);

void mHelpWeb_Click(MainForm&, int);
void mHelpMail_Click(MainForm&, int);
