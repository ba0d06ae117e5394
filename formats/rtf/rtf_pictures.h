// A picture of rich text (RTF 1.9.1, \pict): its format, its sizes and its bytes.
#pragma once

#include "formats/document.h"
#include "formats/rtf/rtf_words.h"

#include <string_view>

class RtfPictureReader {
  public:
    void Begin();
    void Apply(const RtfWordEntry& entry, std::int32_t parameter);
    void AddHex(std::string_view digits); // other characters between them are passed over
    void AddBytes(std::string_view bytes);
    Picture Release(); // its position is to be set

  private:
    struct Extent {
        std::int32_t size = 0; // of the image: pixels, or hundredths of a millimetre for a metafile
        std::int32_t goal = 0; // twips
        std::int32_t percent = 100;
    };
    bool AcceptsBytes() const;
    std::int32_t ShownTwips(const Extent& extent) const;

    Picture picture_;
    Extent width_, height_;
    bool isBitmap_ = false; // without the header of a file
    int halfByte_ = -1;     // the first digit of a pair
    std::size_t totalBytes_ = 0;
};
