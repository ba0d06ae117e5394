// The folder that a file dialog begins in.
#pragma once

#include "platform/files.h"

#include <string>

// The folder part of `path`; `fallback` when it has none, `root` when the folder is gone.
std::u16string InitialFolder(const Files&, std::u16string path, const std::u16string& fallback,
                             const std::u16string& root);
