// Paints metafiles by GDI, from our own reading of them: the system's would play a stranger's
// records unbounded.
#pragma once

#include "platform/windows/line_layout/picture_decoder.h"

bool IsMetafile(const Picture&);

// As it is on white paper, in 32 bits with alpha; null when there is nothing to show.
WinBitmap MetafileImage(const Picture&, Size);
