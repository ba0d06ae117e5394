// Metafiles of WMF, record by record.
#include "formats/metafile/metafile_limits.h"
#include "formats/metafile/wmf_records.h"

namespace {
constexpr std::uint32_t placeableKey = 0x9AC6CDD7;
constexpr std::size_t placeableSize = 22, headerSize = 18, recordHeader = 6;

WmfFunction FunctionAt(const MetaBytes& file, std::size_t record) {
    return static_cast<WmfFunction>(file.U16(record + 4));
}

void ReadRecords(MetaCanvas& canvas, const MetaBytes& file, std::size_t at) {
    for (std::size_t i = 0; i < maxMetaRecords && at + recordHeader <= file.Size(); ++i) {
        const std::size_t size = std::size_t{file.U32(at)} * 2;
        const WmfFunction function = FunctionAt(file, at);
        if (size < recordHeader || size > file.Size() - at || function == WmfFunction::EndOfFile)
            return;
        const WmfRecord record(file.Part(at + recordHeader, size - recordHeader));
        if (!ReadWmfState(canvas, record, function) && !ReadWmfObject(canvas, record, function))
            ReadWmfDrawing(canvas, record, function);
        at += size;
    }
}

// Whether a record gives the extent of the picture.
bool HasWindowExtent(MetaBytes bytes, std::size_t at) {
    while (at + recordHeader <= bytes.Size()) {
        const std::size_t size = std::size_t{bytes.U32(at)} * 2;
        if (size < recordHeader || size > bytes.Size() - at) return false;
        if (FunctionAt(bytes, at) == WmfFunction::SetWindowExt) return true;
        at += size;
    }
    return false;
}

MetaCanvas Played(MetaBytes bytes, std::size_t at, const MetaBox& window) {
    MetaCanvas canvas({0, 0, 1, 1});
    canvas.State().windowOrigin = {window.left, window.top};
    canvas.State().windowExtent = {window.right - window.left, window.bottom - window.top};
    ReadRecords(canvas, bytes, at);
    return canvas;
}
} // namespace

Metafile ReadWmf(std::string_view data) {
    const MetaBytes bytes(data);
    const bool isPlaceable = bytes.U32(0) == placeableKey;
    const std::size_t at = isPlaceable ? placeableSize + headerSize : headerSize;
    if (isPlaceable)
        return Played(bytes, at,
                      {double(bytes.S16(6)), double(bytes.S16(8)), double(bytes.S16(10)),
                       double(bytes.S16(12))})
            .Release();
    MetaCanvas canvas = Played(bytes, at, {0, 0, 1, 1});
    const MetaBox& bounds = canvas.Bounds();
    if (HasWindowExtent(bytes, at) || bounds.left >= bounds.right || bounds.top >= bounds.bottom)
        return canvas.Release();
    return Played(bytes, at, bounds).Release(); // all that is drawn is the picture
}
