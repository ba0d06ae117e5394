// The pictures of a document, decoded on demand by the system and cached.
#pragma once

#include "platform/windows/line_layout/picture_decoder.h"
#include "view/picture_store.h"

#include <map>

class WinPictures : public PictureStore {
  public:
    void Clear() override;
    Size NaturalSize(const Picture&) override;
    bool Draw(Canvas&, const Picture&, const Rect& box) override; // the canvas is a WinCanvas

  private:
    struct Scaled {
        WinBitmap bitmap; // null: it cannot be decoded
        Size size;
    };
    const Scaled& At(const Picture&, Size);

    std::map<TextPos, Size> sizes_;
    std::map<TextPos, Scaled> bitmaps_;
    std::size_t bytes_ = 0; // of the bitmaps
};
