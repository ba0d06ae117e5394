// Finds a font family for a character that the chosen font does not have, as other programs of the
// system show it: by the system's font linking, then by the families that the system has for a
// script, then by what the installed fonts say of themselves.
#pragma once

#include "platform/windows/line_layout/shaping_font.h"

#include <map>
#include <unordered_map>
#include <vector>

class FontFallback {
  public:
    explicit FontFallback(MeasuringContext&);

    // "" when no font has the character. `family` is the chosen font's.
    const std::wstring& FamilyFor(char32_t character, const std::wstring& family);

  private:
    struct Chosen {
        std::vector<std::wstring> linked;
        std::unordered_map<char32_t, std::wstring> found;
    };
    Chosen& ChosenFamily(const std::wstring& family);
    std::wstring Search(char32_t character, const Chosen&);
    std::wstring SearchInstalled(char32_t character);
    bool Has(const std::wstring& family, char32_t character);

    MeasuringContext& context_;
    std::map<std::wstring, Chosen> chosen_;
    std::map<std::wstring, ShapingFontPtr> probes_; // null: not installed
};
