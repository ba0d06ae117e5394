#include "formats/rtf/rtf_pictures.h"

#include "formats/rtf/rtf_bitmap.h"
#include "formats/rtf/rtf_limits.h"
#include "formats/rtf/rtf_tokenizer.h"

#include <algorithm>
#include <utility>

void RtfPictureReader::Begin() {
    picture_ = {};
    width_ = height_ = {};
    halfByte_ = -1;
    isBitmap_ = false;
}

void RtfPictureReader::Apply(const RtfWordEntry& entry, std::int32_t parameter) {
    switch (entry.word) {
    case RtfWord::PictureKind:
        picture_.format = static_cast<PictureFormat>(entry.value);
        isBitmap_ = false;
        break;
    case RtfWord::PictureIsBitmap:
        picture_.format = PictureFormat::Wmf; // which it becomes
        isBitmap_ = true;
        break;
    case RtfWord::PictureWidth: width_.size = parameter; break;
    case RtfWord::PictureHeight: height_.size = parameter; break;
    case RtfWord::PictureGoalWidth: width_.goal = parameter; break;
    case RtfWord::PictureGoalHeight: height_.goal = parameter; break;
    case RtfWord::PictureScaleX: width_.percent = parameter; break;
    case RtfWord::PictureScaleY: height_.percent = parameter; break;
    default: break;
    }
}

bool RtfPictureReader::AcceptsBytes() const {
    return picture_.format != PictureFormat::Other && totalBytes_ < maxRtfPictureBytes;
}

void RtfPictureReader::AddHex(std::string_view digits) {
    if (!AcceptsBytes()) return;
    std::string& bytes = picture_.bytes;
    const std::size_t start = bytes.size();
    bytes.resize(start + digits.size() / 2 + 1);
    char* out = bytes.data() + start;
    for (const char c : digits) {
        const int value = HexDigit(static_cast<unsigned char>(c));
        if (value < 0) continue;
        if (halfByte_ >= 0) *out++ = static_cast<char>(halfByte_ << 4 | value);
        halfByte_ = halfByte_ >= 0 ? -1 : value;
    }
    bytes.resize(static_cast<std::size_t>(out - bytes.data()));
    totalBytes_ += bytes.size() - start;
}

void RtfPictureReader::AddBytes(std::string_view bytes) {
    if (!AcceptsBytes()) return;
    picture_.bytes += bytes;
    totalBytes_ += bytes.size();
}

constexpr std::int32_t twipsPerPixel = 15;

std::int32_t RtfPictureReader::ShownTwips(const Extent& extent) const {
    std::int64_t twips = extent.goal;
    // A bitmap's own size is its reader's business, a metafile's is in hundredths of a millimetre.
    const bool isBitmap =
        picture_.format == PictureFormat::Png || picture_.format == PictureFormat::Jpeg;
    if (twips == 0 && isBitmap_) twips = extent.size * std::int64_t{twipsPerPixel};
    if (twips == 0 && !isBitmap) twips = extent.size * std::int64_t{1440} / 2540;
    if (extent.percent > 0) twips = twips * extent.percent / 100;
    return static_cast<std::int32_t>(std::clamp<std::int64_t>(twips, 0, maxRtfTwips));
}

Picture RtfPictureReader::Release() {
    if (isBitmap_) picture_.bytes = MetafileOfBitmap(picture_.bytes);
    picture_.widthTwips = ShownTwips(width_);
    picture_.heightTwips = ShownTwips(height_);
    if (picture_.format == PictureFormat::Other) picture_.bytes.clear(); // its kind came late
    if (picture_.bytes.empty()) picture_.format = PictureFormat::Other;
    picture_.bytes.shrink_to_fit();
    return std::exchange(picture_, {});
}
