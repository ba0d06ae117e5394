#include "platform/windows/line_layout/script_families.h"

#include <algorithm>
#include <iterator>

namespace {

struct ScriptFamilies {
    char32_t first, last;
    int subset;
    std::wstring_view families; // divided by commas
};

constexpr std::wstring_view letters = L"Segoe UI,Arial",
                            han = L"Microsoft YaHei,Microsoft JhengHei,Yu Gothic UI,MS UI Gothic,"
                                  L"Malgun Gothic,SimSun",
                            kana = L"Yu Gothic UI,Meiryo UI,MS UI Gothic,Microsoft YaHei",
                            hangul = L"Malgun Gothic,Gulim", indic = L"Nirmala UI",
                            symbols = L"Segoe UI Symbol,Segoe UI Emoji,Cambria Math",
                            emoji = L"Segoe UI Emoji,Segoe UI Symbol",
                            historic = L"Segoe UI Historic,Segoe UI Symbol";

constexpr int beyondBmp = 57; // the bit of all characters beyond the basic plane

// Ascending. The families are those that come with Windows 8.1 and later.
constexpr ScriptFamilies scripts[] = {
    {0x00A0, 0x00FF, 1, letters},
    {0x0100, 0x017F, 2, letters},
    {0x0180, 0x024F, 3, letters},
    {0x0250, 0x02AF, 4, letters},
    {0x02B0, 0x02FF, 5, letters},
    {0x0370, 0x03FF, 7, letters},
    {0x0400, 0x052F, 9, letters},
    {0x0530, 0x058F, 10, L"Segoe UI,Sylfaen"},
    {0x0590, 0x05FF, 11, letters},
    {0x0600, 0x06FF, 13, letters},
    {0x0700, 0x074F, 71, L"Segoe UI Historic,Estrangelo Edessa"},
    {0x0750, 0x077F, 13, letters},
    {0x0780, 0x07BF, 72, L"MV Boli"},
    {0x07C0, 0x07FF, 14, L"Ebrima"},
    {0x08A0, 0x08FF, 13, letters},
    {0x0900, 0x097F, 15, indic},
    {0x0980, 0x09FF, 16, indic},
    {0x0A00, 0x0A7F, 17, indic},
    {0x0A80, 0x0AFF, 18, indic},
    {0x0B00, 0x0B7F, 19, indic},
    {0x0B80, 0x0BFF, 20, indic},
    {0x0C00, 0x0C7F, 21, indic},
    {0x0C80, 0x0CFF, 22, indic},
    {0x0D00, 0x0D7F, 23, indic},
    {0x0D80, 0x0DFF, 73, indic},
    {0x0E00, 0x0E7F, 24, L"Leelawadee UI,Tahoma"},
    {0x0E80, 0x0EFF, 25, L"Leelawadee UI"},
    {0x0F00, 0x0FFF, 70, L"Microsoft Himalaya"},
    {0x1000, 0x109F, 74, L"Myanmar Text"},
    {0x10A0, 0x10FF, 26, L"Segoe UI,Sylfaen"},
    {0x1100, 0x11FF, 28, hangul},
    {0x1200, 0x139F, 75, L"Ebrima"},
    {0x13A0, 0x13FF, 76, L"Gadugi"},
    {0x1400, 0x167F, 77, L"Gadugi"},
    {0x1680, 0x169F, 78, historic},
    {0x16A0, 0x16FF, 79, historic},
    {0x1780, 0x17FF, 80, L"Leelawadee UI"},
    {0x1800, 0x18AF, 81, L"Mongolian Baiti"},
    {0x1950, 0x197F, 94, L"Microsoft Tai Le"},
    {0x1980, 0x19DF, 95, L"Microsoft New Tai Lue"},
    {0x19E0, 0x19FF, 80, L"Leelawadee UI"},
    {0x1A00, 0x1A1F, 96, L"Leelawadee UI"},
    {0x1D00, 0x1DBF, 4, letters},
    {0x1E00, 0x1EFF, 29, letters},
    {0x1F00, 0x1FFF, 30, letters},
    {0x2000, 0x206F, 31, symbols},
    {0x2070, 0x209F, 32, symbols},
    {0x20A0, 0x20CF, 33, symbols},
    {0x2100, 0x214F, 35, symbols},
    {0x2150, 0x218F, 36, symbols},
    {0x2190, 0x21FF, 37, symbols},
    {0x2200, 0x22FF, 38, symbols},
    {0x2300, 0x23FF, 39, symbols},
    {0x2400, 0x243F, 40, symbols},
    {0x2440, 0x245F, 41, symbols},
    {0x2460, 0x24FF, 42, symbols},
    {0x2500, 0x257F, 43, symbols},
    {0x2580, 0x259F, 44, symbols},
    {0x25A0, 0x25FF, 45, symbols},
    {0x2600, 0x26FF, 46, symbols},
    {0x2700, 0x27BF, 47, symbols},
    {0x27C0, 0x27EF, 38, symbols},
    {0x27F0, 0x27FF, 37, symbols},
    {0x2800, 0x28FF, 82, symbols},
    {0x2900, 0x297F, 37, symbols},
    {0x2980, 0x2AFF, 38, symbols},
    {0x2B00, 0x2BFF, 37, symbols},
    {0x2C00, 0x2C5F, 97, historic},
    {0x2C60, 0x2C7F, 29, letters},
    {0x2D30, 0x2D7F, 98, L"Ebrima"},
    {0x2DE0, 0x2DFF, 9, letters},
    {0x2E80, 0x303F, 48, han},
    {0x3040, 0x30FF, 49, kana},
    {0x3100, 0x312F, 51, L"Microsoft JhengHei,Microsoft YaHei"},
    {0x3130, 0x318F, 52, hangul},
    {0x3190, 0x33FF, 54, kana},
    {0x3400, 0x9FFF, 59, han},
    {0xA000, 0xA4CF, 83, L"Microsoft Yi Baiti"},
    {0xA500, 0xA63F, 12, L"Ebrima"},
    {0xA640, 0xA69F, 9, letters},
    {0xA700, 0xA71F, 5, letters},
    {0xA720, 0xA7FF, 29, letters},
    {0xA840, 0xA87F, 53, L"Microsoft PhagsPa"},
    {0xA980, 0xA9DF, -1, L"Javanese Text"},
    {0xAA60, 0xAA7F, 74, L"Myanmar Text"},
    {0xAC00, 0xD7FF, 56, hangul},
    {0xF900, 0xFAFF, 61, han},
    {0xFB00, 0xFB4F, 62, letters},
    {0xFB50, 0xFDFF, 63, letters},
    {0xFE30, 0xFE4F, 65, han},
    {0xFE70, 0xFEFE, 67, letters},
    {0xFF00, 0xFFEF, 68, han},
    {0x10000, 0x10FFF, beyondBmp, historic},
    {0x12000, 0x1247F, 110, historic},
    {0x13000, 0x1342F, beyondBmp, historic},
    {0x1D100, 0x1D1FF, 88, L"Segoe UI Symbol"},
    {0x1D400, 0x1D7FF, 89, L"Cambria Math,Segoe UI Symbol"},
    {0x1F000, 0x1FAFF, beyondBmp, emoji},
    {0x20000, 0x3FFFF, 59, L"SimSun-ExtB,MingLiU-ExtB,Yu Gothic UI,Microsoft JhengHei"},
};

const ScriptFamilies* ScriptOf(char32_t character) {
    const auto* const script = std::lower_bound(
        std::begin(scripts), std::end(scripts), character,
        [](const ScriptFamilies& each, char32_t wanted) { return each.last < wanted; });
    return script != std::end(scripts) && character >= script->first ? script : nullptr;
}

} // namespace

std::vector<std::wstring> FamiliesForScript(char32_t character) {
    std::vector<std::wstring> families;
    const ScriptFamilies* const script = ScriptOf(character);
    for (std::wstring_view rest = script ? script->families : symbols; !rest.empty();) {
        const std::size_t comma = std::min(rest.find(L','), rest.size());
        families.emplace_back(rest.substr(0, comma));
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return families;
}

int UnicodeSubsetOf(char32_t character) {
    const ScriptFamilies* const script = ScriptOf(character);
    return script ? script->subset : -1;
}
