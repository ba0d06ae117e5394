// What the program writes into the registry about itself.
#pragma once

#include "platform/registry.h"
#include "platform/version_info.h"

#include <string>

// Its folder and its version, for an installer. What this user may not write stays as it is.
void RegisterProgram(Registry&, const ProgramVersion&, const std::u16string& programFolder);

// The value of a registry entry under the local machine's root is written only when it differs.
// Returns the system's error code, 0 on success.
int RegWriteValue(Registry&, const std::u16string& key, const std::u16string& name,
                  const std::u16string& text);
