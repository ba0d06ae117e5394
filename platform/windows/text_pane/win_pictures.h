// The pictures of a document, decoded on demand by the system's imaging component and cached.
#pragma once

#include "platform/windows/base/com_ptr.h"
#include "view/picture_store.h"

#include <wincodec.h>

#include <list>
#include <map>
#include <memory>
#include <type_traits>

struct WinBitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using WinBitmap = std::unique_ptr<std::remove_pointer_t<HBITMAP>, WinBitmapDeleter>;

class WinPictures : public PictureStore {
  public:
    void Clear() override;
    Size NaturalSize(const Picture& picture) override;
    bool Draw(Canvas& canvas, const Picture& picture, const Rect& box) override;

  private:
    struct Decoded {
        TextPos position = 0;
        Size size;
        WinBitmap bitmap; // null: it cannot be decoded
    };

    ComPtr<IWICBitmapFrameDecode> Open(const Picture& picture);
    const Decoded& DecodedAt(const Picture& picture, Size size);
    WinBitmap Decode(const Picture& picture, Size size);

    ComPtr<IWICImagingFactory> factory_; // made with the first picture
    std::map<TextPos, Size> sizes_;
    std::list<Decoded> decoded_; // the latest used first
};
