// The system's shaping of text in all scripts, usp10.dll.
//
// Uniscribe with GDI, and not DirectWrite: a view asks for carets and hits all the time, and needs
// lines of which each part has its own font and colour. DirectWrite's analyzer below its finished
// layout answers in fractions of a pixel, draws by a target of its own beside the front's GDI, and
// is slow where it is imitated; what it has more, colour emoji, is not worth two ways to draw.
#pragma once

#include "platform/windows/base/win32.h"

#include <usp10.h>

struct Uniscribe {
    decltype(&::ScriptItemize) itemize = nullptr;
    decltype(&::ScriptLayout) layout = nullptr;
    decltype(&::ScriptBreak) breakText = nullptr;
    decltype(&::ScriptShape) shape = nullptr;
    decltype(&::ScriptPlace) place = nullptr;
    decltype(&::ScriptTextOut) textOut = nullptr;
    decltype(&::ScriptGetFontProperties) fontProperties = nullptr;
    decltype(&::ScriptGetProperties) scriptProperties = nullptr;
    decltype(&::ScriptFreeCache) freeCache = nullptr;
};

// Every Windows has all of it. Null if not: then text has lines and no glyphs.
const Uniscribe* LoadUniscribe();
