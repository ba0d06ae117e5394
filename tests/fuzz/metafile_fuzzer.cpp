// Any bytes as a metafile: the commands are sound, whatever paints them.
#include "formats/metafile/metafile.h"
#include "formats/metafile/metafile_limits.h"
#include "tests/fuzz/require.h"

#include <cmath>

namespace {
void CheckPlace(double x, double y) {
    Require(std::abs(x) <= maxMetaPlace && std::abs(y) <= maxMetaPlace);
}

void Check(const Metafile& file) {
    Require(file.commands.size() <= maxMetaCommands);
    std::size_t points = 0, pixels = 0;
    for (const MetaCommand& command : file.commands) {
        const std::size_t sizes[] = {file.shapes.size(), file.texts.size(), file.images.size()};
        Require(command.index < sizes[static_cast<std::size_t>(command.kind)]);
        Require(command.clip.left >= 0 && command.clip.right <= 1 && command.clip.top >= 0 &&
                command.clip.bottom <= 1);
    }
    for (const MetaShape& shape : file.shapes)
        for (const auto& contour : shape.contours) {
            points += contour.size();
            for (const MetaPoint& point : contour)
                CheckPlace(point.x, point.y);
        }
    for (const MetaText& text : file.texts) {
        CheckPlace(text.place.x, text.place.y);
        Require(std::isfinite(text.height) && std::isfinite(text.width));
    }
    for (const MetaImage& image : file.images) {
        CheckPlace(image.place.left, image.place.top);
        CheckPlace(image.place.right, image.place.bottom);
        pixels += image.pixels.size();
        Require(image.pixels.size() ==
                static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height));
    }
    Require(points <= maxMetaPoints && pixels <= maxMetaPixels);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    Check(ReadWmf(bytes));
    Check(ReadEmf(bytes));
    return 0;
}
