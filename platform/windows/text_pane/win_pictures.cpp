#include "platform/windows/text_pane/win_pictures.h"

#include "platform/windows/line_layout/win_canvas.h"

#include <algorithm>
#include <cstdint>

namespace {
constexpr std::int64_t maxPixels = 64 * 1024 * 1024; // a file may declare more than memory holds
constexpr std::int64_t maxCachedPixels = 16 * 1024 * 1024;
constexpr std::size_t maxCachedSizes = 4096;

std::int64_t Pixels(Size size) {
    return std::int64_t(size.width) * size.height;
}

// 32 bits for each pixel, from the top down, blue first, colours multiplied by alpha.
HBITMAP MakeBitmap(Size size, void** bits) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, bits, nullptr, 0);
}

} // namespace

void WinPictures::Clear() {
    sizes_.clear();
    decoded_.clear();
}

// Null for what is no picture, or one larger than it may be.
ComPtr<IWICBitmapFrameDecode> WinPictures::Open(const Picture& picture) {
    if (picture.format == PictureFormat::Other) return {};
    if (!factory_ && FAILED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                             IID_PPV_ARGS(&factory_))))
        return {};
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame;
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(picture.bytes.data()));
    UINT width = 0, height = 0;
    const bool opened =
        SUCCEEDED(factory_->CreateStream(&stream)) &&
        SUCCEEDED(stream->InitializeFromMemory(bytes, static_cast<DWORD>(picture.bytes.size()))) &&
        SUCCEEDED(factory_->CreateDecoderFromStream(stream.Get(), nullptr,
                                                    WICDecodeMetadataCacheOnDemand, &decoder)) &&
        SUCCEEDED(decoder->GetFrame(0, &frame)) && SUCCEEDED(frame->GetSize(&width, &height));
    if (!opened || std::int64_t(width) * height > maxPixels) return {};
    return frame;
}

Size WinPictures::NaturalSize(const Picture& picture) {
    const auto known = sizes_.find(picture.position);
    if (known != sizes_.end()) return known->second;
    UINT width = 0, height = 0;
    if (const auto frame = Open(picture)) frame->GetSize(&width, &height);
    if (sizes_.size() >= maxCachedSizes) sizes_.clear();
    return sizes_[picture.position] = {static_cast<int>(width), static_cast<int>(height)};
}

WinBitmap WinPictures::Decode(const Picture& picture, Size size) {
    const auto frame = Open(picture);
    ComPtr<IWICBitmapScaler> scaler;
    ComPtr<IWICFormatConverter> converter;
    const auto width = static_cast<UINT>(size.width), height = static_cast<UINT>(size.height);
    const bool ready = frame && SUCCEEDED(factory_->CreateFormatConverter(&converter)) &&
                       SUCCEEDED(converter->Initialize(frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                                       WICBitmapDitherTypeNone, nullptr, 0,
                                                       WICBitmapPaletteTypeCustom)) &&
                       SUCCEEDED(factory_->CreateBitmapScaler(&scaler)) &&
                       SUCCEEDED(scaler->Initialize(converter.Get(), width, height,
                                                    WICBitmapInterpolationModeFant));
    if (!ready) return {};
    void* bits = nullptr;
    WinBitmap bitmap(MakeBitmap(size, &bits));
    if (!bitmap || FAILED(scaler->CopyPixels(nullptr, 4 * width, 4 * width * height,
                                             static_cast<BYTE*>(bits))))
        return {};
    return bitmap;
}

const WinPictures::Decoded& WinPictures::DecodedAt(const Picture& picture, Size size) {
    const auto found = std::ranges::find(decoded_, picture.position, &Decoded::position);
    if (found != decoded_.end()) {
        decoded_.splice(decoded_.begin(), decoded_, found);
        if (found->size != size && found->bitmap)
            *found = {picture.position, size, Decode(picture, size)};
        return *found;
    }
    decoded_.push_front({picture.position, size, Decode(picture, size)});
    std::int64_t held = 0;
    for (auto each = decoded_.begin(); each != decoded_.end();) {
        held += Pixels(each->size);
        each = held > maxCachedPixels && each != decoded_.begin() ? decoded_.erase(each)
                                                                  : std::next(each);
    }
    return decoded_.front();
}

bool WinPictures::Draw(Canvas& canvas, const Picture& picture, const Rect& box) {
    const Decoded& decoded = DecodedAt(picture, {box.width, box.height});
    if (!decoded.bitmap) return false;
    static_cast<WinCanvas&>(canvas).DrawBitmap(decoded.bitmap.get(), box);
    return true;
}
