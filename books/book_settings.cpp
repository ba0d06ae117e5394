#include "books/book_settings.h"

#include "reading/find.h"

namespace {
constexpr std::u16string_view unwrapKey = u"Unwrap", pageViewKey = u"PageView",
                              searchesKey = u"HistFind";

bool IsOn(const BookSettings& settings, std::u16string_view key) {
    return IniReadNumber(settings.file, settings.section, key) == 1;
}

void SetOn(const BookSettings& settings, std::u16string_view key, bool on) {
    IniWriteNumber(settings.file, settings.section, key, on ? 1 : 0);
}
} // namespace

bool LoadUnwrapped(const BookSettings& settings) {
    return IsOn(settings, unwrapKey);
}

void SaveUnwrapped(const BookSettings& settings, bool on) {
    SetOn(settings, unwrapKey, on);
}

PageEngine LoadPageEngine(const BookSettings& settings) {
    return IsOn(settings, pageViewKey) ? PageEngine::Own : PageEngine::Browser;
}

void SavePageEngine(const BookSettings& settings, PageEngine engine) {
    SetOn(settings, pageViewKey, engine == PageEngine::Own);
}

std::vector<std::u16string> LoadSearches(const BookSettings& settings) {
    return ParseSearches(settings.Read(searchesKey));
}

void SaveSearches(const BookSettings& settings, const std::vector<std::u16string>& searches) {
    settings.Write(searchesKey, StoredSearches(searches));
}
