#include "platform/windows/win_version_functions.h"

#include "platform/windows/win_system_library.h"

#include <optional>

namespace {

std::optional<WinVersionFunctions> Load() {
    const HMODULE library = LoadSystemLibrary(L"version.dll");
    WinVersionFunctions functions = {};
    const bool complete = FindFunction(library, "GetFileVersionInfoSizeW", functions.Size) &&
                          FindFunction(library, "GetFileVersionInfoW", functions.Read) &&
                          FindFunction(library, "VerQueryValueW", functions.Query);
    return complete ? std::optional(functions) : std::nullopt;
}

} // namespace

const WinVersionFunctions* LoadVersionFunctions() {
    static const std::optional<WinVersionFunctions> functions = Load();
    return functions ? &*functions : nullptr;
}
