// Any bytes as the file of a picture: what its header says, an icon's largest picture, and what a
// renderer gets of a drawing.
#include "formats/pictures/picture_header.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_source.h"
#include "tests/fuzz/require.h"

namespace {
void CheckHeader(std::string_view bytes) {
    const PictureHeader header = ReadPictureHeader(bytes);
    if (header.format == PictureFormat::Other) return;
    Require(header.width > 0 && header.height > 0);
    Require(std::int64_t{header.width} * header.height <= maxPicturePixels);
    Require(header.orientation >= 1 && header.orientation <= 8);
    const Rect& frame = header.frame;
    Require(frame.left + frame.width <= header.width && frame.top + frame.height <= header.height);
}

void CheckDrawing(std::string_view bytes) {
    const SvgSize size = SizeOfSvg(bytes);
    Require(size.width >= 0 && size.width <= maxSvgSide && size.height <= maxSvgSide);
    const std::string safe = SafeSvg(bytes);
    Require(safe.size() <= 4 * maxSvgUnits);
    Require(safe.find("<!") == safe.npos && safe.find("<?") == safe.npos);
    Require(safe.find("<script") == safe.npos && safe.find("@import") == safe.npos);
    constexpr std::string_view link = "href=\"";
    for (std::size_t at = safe.find(link); at != safe.npos; at = safe.find(link, at + 1)) {
        const std::string_view to = std::string_view(safe).substr(at + link.size());
        // In a text these letters may stand, but no quotation mark.
        Require(to.starts_with('#') || to.starts_with("data:"));
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    CheckHeader(bytes);
    const std::string icon = LargestIcon(bytes);
    Require(icon.size() <= size + 22);
    CheckDrawing(bytes);
    return 0;
}
