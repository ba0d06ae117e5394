#include "platform/windows/dialogs/rich_edit_class.h"

#include "platform/windows/base/system_library.h"

namespace {
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
