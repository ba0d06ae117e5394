#include "books/page_view.h"

namespace {
constexpr std::u16string_view pageViewKey = u"PageView";
}

PageEngine LoadPageEngine(IniFile& file, const std::u16string& section) {
    return IniReadNumber(file, section, pageViewKey) == 1 ? PageEngine::Own : PageEngine::Browser;
}

void SavePageEngine(IniFile& file, const std::u16string& section, PageEngine engine) {
    IniWriteNumber(file, section, pageViewKey, engine == PageEngine::Own ? 1 : 0);
}
