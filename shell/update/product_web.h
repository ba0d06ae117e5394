// The product on the web: its page, its feedback mail, the addresses built from its version
// information.
#pragma once

#include "platform/version_info.h"

#include <string>

// Entry 0 of the comments is the web site, without "/" at its end; entry 1, which may be missing, a
// whole "mailto:" address.
std::u16string CommentsEntry(const ProgramVersion&, std::size_t index); // "" when missing

std::u16string ProductAddress(const ProgramVersion&); // ends in "/"

// A mail to the program's authors, about this version; "" when the entry is missing.
std::u16string FeedbackAddress(const ProgramVersion&);
