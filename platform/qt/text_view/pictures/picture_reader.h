// Decodes a picture by Qt's image formats.
#pragma once

#include "formats/document.h"

#include <QBuffer>
#include <QImageReader>

class PictureReader {
  public:
    explicit PictureReader(const Picture& picture); // observed
    static QByteArray NameOf(PictureFormat format); // as Qt has it; empty for none that it reads

    QSize Size() const; // pixels of the file; invalid if it cannot be read
    // Turned upright. It has the size given only where that spares work; null if it cannot be
    // decoded.
    QImage Read(QSize size);

  private:
    bool IsReadable() const;

    const Picture& picture_;
    QByteArray bytes_;
    QBuffer buffer_;
    QImageReader reader_;
    QSize size_;
};
