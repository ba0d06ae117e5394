#include "platform/windows/win_log_font.h"

#include <algorithm>
#include <cmath>

LOGFONTW LogFontOf(const ViewFont& font, int dpi) {
    constexpr double pointsPerInch = 72;
    LOGFONTW described = {};
    described.lfHeight = -static_cast<LONG>(std::lround(font.size * dpi / pointsPerInch));
    described.lfWeight = font.bold ? FW_BOLD : FW_NORMAL;
    described.lfItalic = font.italic;
    described.lfUnderline = font.underline;
    described.lfStrikeOut = font.strikethrough;
    described.lfCharSet = static_cast<BYTE>(font.charset);
    const std::size_t length = std::min<std::size_t>(font.name.size(), LF_FACESIZE - 1);
    std::copy_n(font.name.begin(), length, described.lfFaceName);
    return described;
}
