#include "platform/windows/line_layout/win_pictures.h"

#include "formats/pictures/picture_header.h"
#include "platform/windows/line_layout/metafile_image.h"
#include "platform/windows/line_layout/win_canvas.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr std::size_t maxBitmapBytes = 64 * 1024 * 1024, maxCachedBytes = 2 * maxBitmapBytes;
constexpr std::size_t maxCachedSizes = 4'096;

std::size_t BytesOf(Size size) {
    return 4 * static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

// One that is larger than several screens is decoded smaller and stretched: else it takes seconds,
// and nothing is kept beside it.
Size KeptSize(Size size) {
    const double share = static_cast<double>(maxBitmapBytes) / static_cast<double>(BytesOf(size));
    if (share >= 1) return size;
    const double scale = std::sqrt(share);
    const auto scaled = [&](int pixels) { return std::max(1, static_cast<int>(pixels * scale)); };
    return {scaled(size.width), scaled(size.height)};
}

} // namespace

void WinPictures::Clear() {
    sizes_.clear();
    bitmaps_.clear();
    bytes_ = 0;
}

bool WinPictures::CanDecode(PictureFormat format) const {
    if (format == PictureFormat::Wmf || format == PictureFormat::Emf) return true;
    const auto [known, isNew] = decodable_.try_emplace(format, false);
    if (isNew) known->second = CanDecodePicture(format);
    return known->second;
}

bool WinPictures::IsKept(TextPos position, Size size) const {
    const auto known = bitmaps_.find(position);
    return known != bitmaps_.end() && (!known->second.bitmap || known->second.size == size);
}

Size WinPictures::NaturalSize(const Picture& picture) {
    const auto known = sizes_.find(picture.position);
    if (known != sizes_.end()) return known->second;
    if (sizes_.size() >= maxCachedSizes) sizes_.clear();
    return sizes_[picture.position] = ReadPictureSize(picture);
}

// What does not fit beside the others takes the place of all of them: a view shows few at a time.
const WinPictures::Scaled& WinPictures::At(const Picture& picture, Size size) {
    const auto known = bitmaps_.find(picture.position);
    if (IsKept(picture.position, size)) return known->second;
    if (known != bitmaps_.end()) {
        if (known->second.bitmap) bytes_ -= BytesOf(known->second.pixels);
        bitmaps_.erase(known);
    }
    const Size pixels = KeptSize(size);
    if (bytes_ + BytesOf(pixels) > maxCachedBytes) {
        bitmaps_.clear();
        bytes_ = 0;
    }
    Scaled& scaled = bitmaps_[picture.position];
    scaled.bitmap =
        IsMetafile(picture) ? MetafileImage(picture, pixels) : DecodePicture(picture, pixels);
    scaled.size = size;
    scaled.pixels = pixels;
    if (scaled.bitmap) bytes_ += BytesOf(pixels);
    return scaled;
}

bool WinPictures::Draw(Canvas& canvas, const Picture& picture, const Rect& box) {
    if (box.width <= 0 || box.height <= 0) return false;
    if (1LL * box.width * box.height > maxPicturePixels) return false;
    const Scaled& scaled = At(picture, {box.width, box.height});
    if (!scaled.bitmap) return false;
    return static_cast<WinCanvas&>(canvas).DrawBitmap(scaled.bitmap.get(), scaled.pixels, box);
}
