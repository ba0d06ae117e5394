// The files of a drop.
#pragma once

#include "platform/windows/win32.h"

#include <shellapi.h>

#include <string>
#include <vector>

std::vector<std::u16string> DroppedFiles(HDROP);     // full paths in their order
std::vector<std::u16string> TakeDroppedFiles(HDROP); // and ends the drop
