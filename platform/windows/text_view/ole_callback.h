// What the rich-edit control may do with OLE: keep the pictures of a text, and nothing else.
#pragma once

#include "platform/windows/base/win32.h"

// Lets `richEdit` hold pictures. It takes in no other objects, no drops and no pastes.
void AllowPicturesOnly(HWND richEdit);
