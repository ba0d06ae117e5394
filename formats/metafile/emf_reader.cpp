// Metafiles of EMF, record by record.
#include "formats/metafile/emf_records.h"
#include "formats/metafile/metafile_limits.h"

namespace {
constexpr std::size_t recordHeader = 8, headerSize = 88;

void ReadRecords(MetaCanvas& canvas, const MetaBytes& file) {
    std::size_t at = 0;
    for (std::size_t i = 0; i < maxMetaRecords && at + recordHeader <= file.Size(); ++i) {
        const auto type = static_cast<EmfType>(file.U32(at));
        const std::size_t size = file.U32(at + 4);
        if (size < recordHeader || size > file.Size() - at || type == EmfType::EndOfFile) return;
        const EmfRecord record(file.Part(at, size));
        if (!ReadEmfState(canvas, file, record, type) && !ReadEmfObject(canvas, record, type))
            ReadEmfDrawing(canvas, record, type);
        at += size;
    }
}

// In pixels of the device that the picture was recorded for.
MetaBox FrameOf(MetaBytes bytes) {
    const double width = bytes.S32(80), height = bytes.S32(84); // of the device, millimetres
    const double perX = width > 0 ? bytes.S32(72) / (width * 100) : 0;
    const double perY = height > 0 ? bytes.S32(76) / (height * 100) : 0;
    const MetaBox frame{bytes.S32(24) * perX, bytes.S32(28) * perY, bytes.S32(32) * perX,
                        bytes.S32(36) * perY};
    if (frame.right > frame.left && frame.bottom > frame.top) return frame;
    return {double(bytes.S32(8)), double(bytes.S32(12)), bytes.S32(16) + 1.0, bytes.S32(20) + 1.0};
}
} // namespace

Metafile ReadEmf(std::string_view data) {
    const MetaBytes bytes(data);
    if (bytes.Size() < headerSize || static_cast<EmfType>(bytes.U32(0)) != EmfType::Header)
        return {};
    MetaCanvas canvas(FrameOf(bytes));
    ReadRecords(canvas, bytes);
    return canvas.Release();
}
