// Device-independent bitmaps in metafiles ([MS-WMF], DeviceIndependentBitmap).
#pragma once

#include "formats/metafile/metafile.h"
#include "formats/metafile/metafile_bytes.h"

// The pixels; a picture without any when the format is not one of BI_RGB and BI_BITFIELDS, or when
// it has more than `maxPixels`. `header` may be followed by what is not its own.
MetaImage ReadBitmap(MetaBytes header, MetaBytes bits, std::size_t maxPixels);

// In pixels, as a record gives it: it may be anything.
struct BitmapPart {
    double left = 0, top = 0, width = 0, height = 0;
};

// Leaves the part. An empty one or one that is not in the picture leaves the whole.
void CropBitmap(MetaImage& image, const BitmapPart& part);

// Bytes from the header to the pixels, where they follow each other.
std::size_t BitmapHeaderSize(MetaBytes header);
