// Pens, brushes and fonts.
#include "formats/metafile/emf_records.h"
#include "formats/metafile/metafile_font.h"
#include "formats/metafile/metafile_text.h"

#include <cstdlib>

namespace {
MetaFont ReadFont(const EmfRecord& record) {
    constexpr std::size_t nameAt = 40, nameUnits = 32;
    MetaFont font = MetaFontOf({record.Number(12), record.Number(20), record.U32(28)}, record, 32);
    for (std::size_t i = 0; i < nameUnits && record.U16(nameAt + 2 * i) != 0; ++i)
        font.name += static_cast<char16_t>(record.U16(nameAt + 2 * i));
    font.name = ShownMetaText(std::move(font.name));
    return font;
}
} // namespace

bool ReadEmfObject(MetaCanvas& canvas, const EmfRecord& record, EmfType type) {
    constexpr std::uint32_t noPen = 5, noBrush = 1;
    const std::uint32_t number = record.U32(8);
    const auto isDashed = [](std::uint32_t style) {
        return (style & 0xF) >= 1 && (style & 0xF) < noPen;
    };
    using enum EmfType;
    switch (type) {
    case SelectObject: canvas.SelectObject(number); return true;
    case DeleteObject: canvas.DeleteObject(number); return true;
    case CreatePen: {
        const std::uint32_t style = record.U32(12);
        canvas.SetObject(number, MetaPen{(style & 0xF) != noPen, isDashed(style),
                                         std::abs(record.Number(16)), record.ColorAt(24)});
        return true;
    }
    case ExtCreatePen: {
        constexpr std::uint32_t geometric = 0x10000; // others are a pixel wide
        const std::uint32_t style = record.U32(28);
        const double width = (style & geometric) != 0 ? record.Number(32) : 0;
        canvas.SetObject(number, MetaPen{(style & 0xF) != noPen, isDashed(style), std::abs(width),
                                         record.ColorAt(40)});
        return true;
    }
    case CreateBrush:
        canvas.SetObject(number, MetaBrush{record.U32(12) != noBrush, record.ColorAt(16)});
        return true;
    case CreateMonoBrush:
    case CreatePatternBrush: canvas.SetObject(number, MetaBrush{true, 0x808080}); return true;
    case CreateFont: canvas.SetObject(number, ReadFont(record)); return true;
    default: return false;
    }
}
