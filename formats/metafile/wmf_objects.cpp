// The state of a WMF's device, and its pens, brushes and fonts.
#include "formats/metafile/metafile_font.h"
#include "formats/metafile/metafile_text.h"
#include "formats/metafile/wmf_records.h"

#include <cstdlib>

bool ReadWmfState(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function) {
    MetaState& state = canvas.State();
    using enum WmfFunction;
    switch (function) {
    case SaveDc: canvas.Save(); return true;
    case RestoreDc: canvas.Restore(record.S16(0)); return true;
    case SetBkMode: state.isOpaque = record.U16(0) == 2; return true;
    case SetPolyFillMode: state.isWinding = record.U16(0) == 2; return true;
    case SetTextAlign: state.textAlign = record.U16(0); return true;
    case SetBkColor: state.background = record.ColorAt(0); return true;
    case SetTextColor: state.textColor = record.ColorAt(0); return true;
    case SetWindowOrg: state.windowOrigin = record.PointAt(0); return true;
    case SetWindowExt: state.windowExtent = record.PointAt(0); return true;
    case OffsetWindowOrg:
        state.windowOrigin.x += record.Number(1);
        state.windowOrigin.y += record.Number(0);
        return true;
    case ScaleWindowExt:
        if (record.Number(2) != 0) state.windowExtent.x *= record.Number(3) / record.Number(2);
        if (record.Number(0) != 0) state.windowExtent.y *= record.Number(1) / record.Number(0);
        return true;
    case SelectClipRegion: canvas.ClipToAll(); return true;
    case IntersectClipRect: canvas.ClipTo(record.BoxAt(0)); return true;
    default: return false;
    }
}

namespace {
MetaFont ReadFont(const WmfRecord& record) {
    MetaFont font = MetaFontOf({record.Number(0), record.Number(2), record.U16(8)}, record, 10);
    const std::string_view name = record.Part(18, 32);
    font.name = TextOfMetaBytes(name.substr(0, name.find('\0')), 1);
    return font;
}
} // namespace

bool ReadWmfObject(MetaCanvas& canvas, const WmfRecord& record, WmfFunction function) {
    constexpr std::uint32_t noPen = 5, dashes = 4, noBrush = 1;
    using enum WmfFunction;
    switch (function) {
    case CreatePenIndirect: {
        const std::uint32_t style = record.U16(0) & 0xF;
        canvas.AddObject(MetaPen{style != noPen, style >= 1 && style <= dashes,
                                 std::abs(record.Number(1)), record.ColorAt(3)});
        return true;
    }
    case CreateBrushIndirect:
        canvas.AddObject(MetaBrush{record.U16(0) != noBrush, record.ColorAt(1)});
        return true;
    case CreateFontIndirect: canvas.AddObject(ReadFont(record)); return true;
    case CreatePatternBrush:
    case DibCreatePatternBrush: canvas.AddObject(MetaBrush{true, 0x808080}); return true;
    case CreatePalette:
    case CreateRegion: canvas.AddObject(MetaPen{}); return true; // takes a place
    case SelectObject: canvas.SelectObject(record.U16(0)); return true;
    case DeleteObject: canvas.DeleteObject(record.U16(0)); return true;
    default: return false;
    }
}
