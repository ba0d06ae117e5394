// The pictures of a document, decoded on demand by the system and cached.
#pragma once

#include "platform/windows/line_layout/picture_decoder.h"
#include "view/picture_store.h"

#include <map>

class WinPictures : public PictureStore {
  public:
    void Clear() override;
    bool CanDecode(PictureFormat) const override;
    Size NaturalSize(const Picture&) override;
    bool IsKept(TextPos position, Size size) const override;
    bool Draw(Canvas&, const Picture&, const Rect& box) override; // the canvas is a WinCanvas

  private:
    struct Scaled {
        WinBitmap bitmap;  // null: it cannot be decoded
        Size size, pixels; // as it was asked for; of the bitmap
    };
    const Scaled& At(const Picture&, Size);

    mutable std::map<PictureFormat, bool> decodable_; // that were asked for
    std::map<TextPos, Size> sizes_;
    std::map<TextPos, Scaled> bitmaps_;
    std::size_t bytes_ = 0; // of the bitmaps
};
