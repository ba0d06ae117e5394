// Reads pictures by the system's imaging component (WIC).
#pragma once

#include "formats/document.h"
#include "platform/windows/base/win32.h"
#include "view/geometry.h"

#include <memory>
#include <type_traits>

struct WinBitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using WinBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, WinBitmapDeleter>;

// Whether the system has a decoder of it; of WebP not every Windows has one. COM must be
// initialised, here and below.
bool CanDecodePicture(PictureFormat);

// In pixels of the file, from its header; empty if it cannot be read, or
// is larger than memory should be given to.
Size ReadPictureSize(const Picture&);

// An empty bitmap of 32 bits with alpha, premultiplied, the first row on top; null if there is no
// memory for it.
WinBitmap MakeBitmap(Size, void*& bits);

// As such a bitmap, turned upright; null if it cannot be decoded.
WinBitmap DecodePicture(const Picture&, Size scaledTo);
