// The program's version as text.
#pragma once

#include "platform/version_info.h"

#include <string>

// Padded: "2.05.0012", minor of two digits and a revision of four. Full: "3.12.7", as the numbers
// are, but "00" for a minor of 0. Either leaves out a revision of 0.
enum class VersionFormat { Padded, Full };
std::u16string VersionText(const ProgramVersion&, VersionFormat);
