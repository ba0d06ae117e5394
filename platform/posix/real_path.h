// Where links lead. Inline: the module with the browser's engine needs it, and links no back end.
#pragma once

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>

// The real path of what lies in `folder`, a real path itself, or below it; none for anything else.
inline std::optional<std::filesystem::path> RealPathBelow(const std::filesystem::path& folder,
                                                          const std::filesystem::path& path) {
    std::error_code error;
    auto real = std::filesystem::canonical(path, error);
    if (error || folder.empty()) return std::nullopt;
    const auto [folderRest, rest] = std::ranges::mismatch(folder, real);
    if (folderRest != folder.end() || rest == real.end()) return std::nullopt;
    return real;
}
