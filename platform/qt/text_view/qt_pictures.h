// The pictures of a document, decoded on demand by Qt and cached.
#pragma once

#include "view/picture_store.h"

#include <QCache>
#include <QPixmap>

class QtPictures : public PictureStore {
  public:
    QtPictures();
    void Clear() override;
    Size NaturalSize(const Picture& picture) override;
    bool Draw(Canvas& canvas, const Picture& picture, const Rect& box) override;

  private:
    QPixmap Pixmap(const Picture& picture, QSize size); // null if it cannot be decoded

    QCache<TextPos, QPixmap> pixmaps_; // a null pixmap marks one that cannot be decoded
    QCache<TextPos, Size> sizes_;
};
