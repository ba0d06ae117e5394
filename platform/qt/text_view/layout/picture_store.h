// The pictures of a document, decoded on demand and cached.
#pragma once

#include "formats/document.h"

#include <QCache>
#include <QPixmap>
#include <QSize>

class PictureStore {
  public:
    explicit PictureStore(const Document& document); // must outlive this object
    void Clear();                                    // when the document has changed

    // The picture at a character position, or null.
    const Picture* At(TextPos position) const;
    // In pixels of the file, from its header; empty if it cannot be read.
    QSize NaturalSize(const Picture& picture);
    // Scaled to `size`; null if it cannot be decoded.
    QPixmap Pixmap(const Picture& picture, QSize size);

  private:
    const Document& document_;
    QCache<TextPos, QPixmap> pixmaps_; // a null pixmap marks one that cannot be decoded
    QCache<TextPos, QSize> sizes_;
};
