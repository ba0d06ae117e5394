// The rich-edit control's OLE callback: pictures only.
#pragma once

#include "platform/windows/base/win32.h"

// Accepts pictures in streamed text, but no other objects, no drops and no pastes.
void AllowPicturesOnly(HWND richEdit);
