// The pictures of a document, as the system decodes them.
#pragma once

#include "formats/document.h"
#include "platform/canvas.h"
#include "view/geometry.h"

class PictureStore {
  public:
    virtual ~PictureStore() = default;
    virtual void Clear() = 0; // when the document has changed
    // Whether the system has what decodes this format.
    virtual bool CanDecode(PictureFormat format) const = 0;
    // In pixels of the file, from its header; empty if it cannot be read.
    virtual Size NaturalSize(const Picture& picture) = 0;
    // Whether the picture of this position was drawn at this size and is kept: then Draw decodes
    // nothing, and needs no bytes. Also for one that is known not to be decodable.
    virtual bool IsKept(TextPos position, Size size) const = 0;
    // Turned as it says, and scaled to the box. False, and nothing drawn, if it cannot be decoded.
    virtual bool Draw(Canvas& canvas, const Picture& picture, const Rect& box) = 0;
};

// The picture at a character position, or null.
const Picture* PictureAt(const Document& document, TextPos position);
