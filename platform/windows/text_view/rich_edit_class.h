// The system's rich-edit control, loaded when it is first needed.
#pragma once

// The name of its window class; null when the system has none.
const wchar_t* RichEditClass();
