// Colours of computed styles.
#pragma once

#include "common/geometry.h"

#include <optional>
#include <string>

// Of "rgb(1, 2, 3)", "rgba(1, 2, 3, 0.5)" or "#010203". None for "transparent" and for
// anything else.
std::optional<Color> ParseCssColor(const std::wstring& text);
