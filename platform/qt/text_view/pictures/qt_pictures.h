// The pictures of a document, decoded on demand by Qt and cached.
#pragma once

#include "view/picture_store.h"

#include <QCache>
#include <QPixmap>

class QtPictures : public PictureStore {
  public:
    QtPictures();
    void Clear() override;
    bool CanDecode(PictureFormat format) const override;
    Size NaturalSize(const Picture& picture) override;
    bool IsKept(TextPos position, Size size) const override;
    bool Draw(Canvas& canvas, const Picture& picture, const Rect& box) override;

  private:
    struct Kept {
        QPixmap pixmap; // null: it cannot be decoded
        QSize size;     // asked for; the pixmap has it, or is stretched when it is drawn
    };
    const Kept& At(const Picture& picture, QSize size);

    QCache<TextPos, Kept> kept_;
    QCache<TextPos, Size> sizes_;
};
