// The pictures of a document: decoded when first shown, kept while memory allows.
#pragma once

#include "formats/document.h"

#include <QCache>
#include <QPixmap>
#include <QSize>

class PictureStore {
  public:
    explicit PictureStore(const Document& document); // observed
    void Forget();                                   // the document has changed

    // The picture whose character is at `position`, or null.
    const Picture* At(TextPos position) const;
    // In pixels of the file, read from its first bytes; empty when they cannot be read.
    QSize NaturalSize(const Picture& picture);
    // Scaled to `size`; null when it cannot be decoded.
    QPixmap Pixmap(const Picture& picture, QSize size);

  private:
    const Document& document_;
    QCache<TextPos, QPixmap> pixmaps_; // a null pixmap: was tried and cannot be decoded
    QCache<TextPos, QSize> sizes_;
};
