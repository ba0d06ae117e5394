// Colours of computed styles.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// 0x00RRGGBB of "rgb(1, 2, 3)", "rgba(1, 2, 3, 0.5)" or "#010203". None for "transparent" and for
// anything else.
std::optional<std::uint32_t> ParseCssColor(const std::wstring& text);
