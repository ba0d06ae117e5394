#include "formats/rtf/rtf_reader.h"

#include "formats/rtf/rtf_parser.h"

#include <limits>

namespace {

// The file from its opening brace on.
std::string_view SkipStart(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    const std::size_t start = bytes.find_first_not_of(" \t\r\n\v\f");
    bytes.remove_prefix(start == bytes.npos ? bytes.size() : start);
    return bytes;
}

} // namespace

bool LooksLikeRtf(std::string_view bytes) {
    constexpr std::string_view signature = "{\\rtf";
    const std::string_view start = SkipStart(bytes).substr(0, signature.size());
    if (start.size() < signature.size()) return false;
    for (std::size_t i = 0; i < signature.size(); ++i) {
        const bool isUpper = start[i] >= 'A' && start[i] <= 'Z';
        if ((isUpper ? start[i] - 'A' + 'a' : start[i]) != signature[i]) return false;
    }
    return true;
}

Document ReadRtf(std::string_view bytes, int systemCodePage) {
    // Positions are 32 bits, and no byte makes more than one character.
    constexpr auto maxSize = static_cast<std::size_t>(std::numeric_limits<TextPos>::max());
    return RtfParser(SkipStart(bytes).substr(0, maxSize), systemCodePage).Parse();
}
