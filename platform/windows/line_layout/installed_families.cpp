#include "platform/windows/line_layout/installed_families.h"

#include <algorithm>
#include <bit>

namespace {

int SubsetCount(const InstalledFamily& family) {
    int count = 0;
    for (const DWORD subsets : family.signature.fsUsb)
        count += std::popcount(subsets);
    return count;
}

std::vector<InstalledFamily> EnumerateFamilies() {
    std::vector<InstalledFamily> families;
    const auto report = [](const LOGFONTW* font, const TEXTMETRICW* metrics, DWORD type,
                           LPARAM list) -> int {
        auto& found = *reinterpret_cast<std::vector<InstalledFamily>*>(list);
        const bool vertical = font->lfFaceName[0] == L'@'; // for text that runs downwards
        // Some families are a bold face of another one.
        const bool plain = font->lfWeight <= FW_MEDIUM && !font->lfItalic;
        if (type != TRUETYPE_FONTTYPE || vertical || !plain) return 1;
        if (!found.empty() && found.back().name == font->lfFaceName) return 1;
        // The system gives the longer structure for such fonts.
        const auto* const extended = reinterpret_cast<const NEWTEXTMETRICEXW*>(metrics);
        found.push_back({font->lfFaceName, extended->ntmFontSig});
        return 1;
    };
    LOGFONTW any = {};
    any.lfCharSet = DEFAULT_CHARSET;
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &any, report, reinterpret_cast<LPARAM>(&families), 0);
    ReleaseDC(nullptr, screen);
    return families;
}

} // namespace

const std::vector<InstalledFamily>& InstalledFamilies() {
    static const std::vector<InstalledFamily> families = EnumerateFamilies();
    return families;
}

const std::vector<InstalledFamily>& BroadFamiliesFirst() {
    static const std::vector<InstalledFamily> families = [] {
        std::vector<InstalledFamily> sorted = InstalledFamilies();
        std::stable_sort(sorted.begin(), sorted.end(),
                         [](const InstalledFamily& a, const InstalledFamily& b) {
                             return SubsetCount(a) > SubsetCount(b);
                         });
        return sorted;
    }();
    return families;
}

bool IsInstalledFamily(const std::wstring& family) {
    LOGFONTW asked = {};
    asked.lfCharSet = DEFAULT_CHARSET;
    if (family.empty() || family.size() >= LF_FACESIZE) return false; // an empty one is any
    family.copy(asked.lfFaceName, LF_FACESIZE - 1);
    bool found = false;
    const auto report = [](const LOGFONTW*, const TEXTMETRICW*, DWORD type, LPARAM result) -> int {
        const bool hasOutlines = (type & RASTER_FONTTYPE) == 0;
        *reinterpret_cast<bool*>(result) |= hasOutlines;
        return hasOutlines ? 0 : 1;
    };
    const HDC screen = GetDC(nullptr);
    EnumFontFamiliesExW(screen, &asked, report, reinterpret_cast<LPARAM>(&found), 0);
    ReleaseDC(nullptr, screen);
    return found;
}

// Each text is "FILE,Family" or "FILE,Family,factor,factor", or a file alone, whose family stands
// in none.
std::vector<std::wstring> LinkedFamilies(const std::wstring& family) {
    constexpr wchar_t key[] =
        L"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\FontLink\\SystemLink";
    std::vector<std::wstring> families;
    DWORD bytes = 0;
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key, family.c_str(), RRF_RT_REG_MULTI_SZ, nullptr, nullptr,
                     &bytes) != ERROR_SUCCESS)
        return families;
    std::wstring texts(bytes / sizeof(wchar_t) + 1, L'\0');
    if (RegGetValueW(HKEY_LOCAL_MACHINE, key, family.c_str(), RRF_RT_REG_MULTI_SZ, nullptr,
                     texts.data(), &bytes) != ERROR_SUCCESS)
        return families;
    for (const wchar_t* text = texts.c_str(); *text; text += wcslen(text) + 1) {
        const std::wstring_view entry = text;
        const std::size_t comma = entry.find(L',');
        if (comma == entry.npos) continue;
        const std::wstring_view name = entry.substr(comma + 1);
        families.emplace_back(name.substr(0, std::min(name.find(L','), name.size())));
    }
    return families;
}
