#include "platform/windows/line_layout/uniscribe.h"

#include "platform/windows/base/system_library.h"

const Uniscribe* LoadUniscribe() {
    static Uniscribe loaded;
    static const bool complete = [] {
        const HMODULE library = LoadSystemLibrary(L"usp10.dll");
        return FindFunction(library, "ScriptItemize", loaded.itemize) &&
               FindFunction(library, "ScriptLayout", loaded.layout) &&
               FindFunction(library, "ScriptBreak", loaded.breakText) &&
               FindFunction(library, "ScriptShape", loaded.shape) &&
               FindFunction(library, "ScriptPlace", loaded.place) &&
               FindFunction(library, "ScriptTextOut", loaded.textOut) &&
               FindFunction(library, "ScriptGetFontProperties", loaded.fontProperties) &&
               FindFunction(library, "ScriptGetProperties", loaded.scriptProperties) &&
               FindFunction(library, "ScriptFreeCache", loaded.freeCache);
    }();
    return complete ? &loaded : nullptr;
}
