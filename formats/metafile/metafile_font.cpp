#include "formats/metafile/metafile_font.h"

MetaFont MetaFontOf(const MetaFontNumbers& numbers, const MetaBytes& record, std::size_t flagsAt) {
    constexpr double lineOfEm = 1.17; // of the usual fonts
    constexpr std::uint32_t bold = 600;
    MetaFont font;
    font.height = numbers.height < 0 ? -numbers.height : numbers.height / lineOfEm;
    font.degrees = numbers.escapement / 10;
    font.isBold = numbers.weight >= bold;
    font.isItalic = record.U8(flagsAt) != 0;
    font.isUnderlined = record.U8(flagsAt + 1) != 0;
    font.isStruckOut = record.U8(flagsAt + 2) != 0;
    font.charset = static_cast<int>(record.U8(flagsAt + 3));
    return font;
}
