// A control of a dialog of our own.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>

// Class atoms of dialog templates.
enum class ControlClass : WORD {
    Button = 0x80,
    Edit = 0x81,
    Static = 0x82,
    ListBox = 0x83,
    ComboBox = 0x85
};

struct DialogControl {
    ControlClass type = ControlClass::Static;
    WORD id = 0;
    std::wstring caption;
    DWORD style = 0;                                // besides WS_CHILD and WS_VISIBLE
    short left = 0, top = 0, width = 0, height = 0; // dialog units
};
