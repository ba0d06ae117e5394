// Any bytes as the file of a picture: what its header says, an icon's largest picture, and what a
// renderer gets of a drawing.
#include "formats/pictures/picture_header.h"
#include "formats/pictures/svg_limits.h"
#include "formats/pictures/svg_source.h"
#include "tests/fuzz/require.h"

#include <algorithm>

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
    // Quotation marks stand around values alone, so each second part between them is one.
    std::string_view rest = safe;
    for (std::size_t mark = rest.find('"'); mark != rest.npos; mark = rest.find('"')) {
        const std::string_view name = rest.substr(0, mark);
        rest.remove_prefix(mark + 1);
        if (name.ends_with("href=")) Require(rest.starts_with('#') || rest.starts_with("data:"));
        rest.remove_prefix(std::min(rest.find('"'), rest.size() - 1) + 1);
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
