// The window class of the system's rich-edit control.
#pragma once

const wchar_t* RichEditClass(); // null where the system has no such control
