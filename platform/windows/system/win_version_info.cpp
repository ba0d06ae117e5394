#include "platform/windows/system/win_version_info.h"

#include "platform/windows/base/system_library.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win32.h"
#include "platform/windows/files/paths.h"
#include "product.h"

#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace {

// version.dll is loaded when it is first asked for: it is not one of the known DLLs, so the loader
// would take one beside the program at the start.
struct VersionFunctions {
    decltype(&::GetFileVersionInfoSizeW) Size;
    decltype(&::GetFileVersionInfoW) Read;
    decltype(&::VerQueryValueW) Query;
};

std::optional<VersionFunctions> LoadFunctions() {
    const HMODULE library = LoadSystemLibrary(L"version.dll");
    VersionFunctions functions = {};
    const bool complete = FindFunction(library, "GetFileVersionInfoSizeW", functions.Size) &&
                          FindFunction(library, "GetFileVersionInfoW", functions.Read) &&
                          FindFunction(library, "VerQueryValueW", functions.Query);
    return complete ? std::optional(functions) : std::nullopt;
}

// Null where the system has none.
const VersionFunctions* VersionLibrary() {
    static const std::optional<VersionFunctions> functions = LoadFunctions();
    return functions ? &*functions : nullptr;
}

// The version resource of a file; empty for none.
std::vector<std::byte> VersionBlock(const std::u16string& path) {
    const VersionFunctions* const version = VersionLibrary();
    const auto native = NativePath(path);
    if (!version || !native) return {};
    DWORD ignored = 0;
    const DWORD size = version->Size(native->c_str(), &ignored);
    std::vector<std::byte> block(size);
    if (size != 0 && !version->Read(native->c_str(), 0, size, block.data())) block.clear();
    return block;
}

// An entry of the block with its length in units of `T`; null when it does not exist.
template <typename T>
const T* Entry(const std::vector<std::byte>& block, const std::wstring& name, UINT& length) {
    void* place = nullptr;
    length = 0;
    if (block.empty()) return nullptr; // else version.dll is loaded
    if (!VersionLibrary()->Query(block.data(), name.c_str(), &place, &length)) return nullptr;
    return static_cast<const T*>(place);
}

std::u16string FileVersion(const std::vector<std::byte>& block) {
    UINT length = 0;
    const auto* fixed = Entry<VS_FIXEDFILEINFO>(block, L"\\", length);
    if (!fixed || length < sizeof *fixed) return {};
    char text[32] = {};
    std::snprintf(text, sizeof text, "%u.%02u.%u.%04u", HIWORD(fixed->dwFileVersionMS),
                  LOWORD(fixed->dwFileVersionMS), HIWORD(fixed->dwFileVersionLS),
                  LOWORD(fixed->dwFileVersionLS));
    const std::string_view digits = text;
    return std::u16string(digits.begin(), digits.end());
}

// The first language of the texts with its code page, eight hexadecimal digits; "" for none.
std::wstring Translation(const std::vector<std::byte>& block) {
    UINT length = 0;
    const auto* pair = Entry<WORD>(block, L"\\VarFileInfo\\Translation", length);
    if (!pair || length < 2 * sizeof(WORD)) return {};
    char digits[16] = {};
    std::snprintf(digits, sizeof digits, "%04X%04X", pair[0], pair[1]);
    const std::string_view text = digits;
    return std::wstring(text.begin(), text.end());
}

std::u16string TextEntry(const std::vector<std::byte>& block, const std::wstring& name) {
    UINT length = 0; // in characters, with the NUL if there is one
    const auto* text = Entry<wchar_t>(block, name, length);
    if (!text) return {};
    const std::wstring_view units(text, length);
    return FromWide(units.substr(0, units.find(L'\0')));
}

// From the program's own resource, else `built` (UTF-8).
std::u16string OwnText(const char16_t* key, std::string_view built) {
    std::u16string text = GetFileVersionString(FromWide(ProgramPath()), key);
    if (!text.empty()) return text;
    std::wstring wide(built.size(), L'\0'); // UTF-16 never needs more units
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(CP_UTF8, 0, built.data(), static_cast<int>(built.size()), wide.data(),
                            static_cast<int>(wide.size()))));
    return FromWide(wide);
}

} // namespace

std::u16string GetFileVersionString(const std::u16string& path, const std::u16string& key) {
    const std::vector<std::byte> block = VersionBlock(path);
    if (key == u"FileVersion") return FileVersion(block);
    const std::wstring translation = Translation(block);
    if (translation.empty()) return {};
    if (key == u"Language") return FromWide(translation.substr(0, 4));
    return TextEntry(block, L"\\StringFileInfo\\" + translation + L"\\" + ToWide(key));
}

ProgramVersion WinVersionInfo::OwnVersion() const {
    ProgramVersion version;
    version.company = OwnText(u"CompanyName", PRODUCT_COMPANY);
    version.title = OwnText(u"ProductName", PRODUCT_TITLE);
    version.description = OwnText(u"FileDescription", PRODUCT_DESCRIPTION);
    version.comments = OwnText(u"Comments", PRODUCT_COMMENTS);
    version.copyright = OwnText(u"LegalCopyright", PRODUCT_COPYRIGHT);
    version.trademarks = OwnText(u"LegalTrademarks", PRODUCT_TRADEMARKS);
    version.major = PRODUCT_VERSION_MAJOR; // as in the resource
    version.minor = PRODUCT_VERSION_MINOR;
    version.revision = PRODUCT_VERSION_REVISION;
    return version;
}

std::u16string WinVersionInfo::FileDescription(const std::u16string& program,
                                               std::u16string_view /*ending*/) const {
    return GetFileVersionString(program, u"FileDescription");
}
