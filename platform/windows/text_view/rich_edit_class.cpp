#include "platform/windows/text_view/rich_edit_class.h"

#include "platform/windows/win32.h"

namespace {
// From the system's own folder only, so that no file beside a book or the program is taken for it.
bool LoadSystemLibrary(const wchar_t* name) {
    return LoadLibraryExW(name, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32) != nullptr;
}

const wchar_t* LoadRichEdit() {
    if (LoadSystemLibrary(L"msftedit.dll")) return L"RICHEDIT50W";
    if (LoadSystemLibrary(L"riched20.dll")) return L"RichEdit20W";
    return nullptr;
}
} // namespace

const wchar_t* RichEditClass() {
    static const wchar_t* const name = LoadRichEdit();
    return name;
}
