#include "platform/windows/line_layout/picture_decoder.h"

#include "platform/windows/base/com_ptr.h"

#include <wincodec.h>

namespace {

constexpr long long maxPixels = 64 * 1024 * 1024; // a file may declare a size that exceeds memory

bool IsWithinLimit(Size size) {
    return !size.IsEmpty() && 1LL * size.width * size.height <= maxPixels;
}

// A picture of the format that the document says, and of no other that the system can read. It
// refers to the bytes.
struct OpenPicture {
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICStream> stream;
    ComPtr<IWICBitmapDecoder> decoder;
    ComPtr<IWICBitmapFrameDecode> frame; // null if it cannot be read
    Size size;
};

bool OpenDecoder(const Picture& picture, OpenPicture& open) {
    const bool png = picture.format == PictureFormat::Png;
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(picture.bytes.data()));
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_PPV_ARGS(&open.factory))) &&
           SUCCEEDED(open.factory->CreateStream(&open.stream)) &&
           SUCCEEDED(open.stream->InitializeFromMemory(bytes,
                                                       static_cast<DWORD>(picture.bytes.size()))) &&
           SUCCEEDED(open.factory->CreateDecoder(
               png ? GUID_ContainerFormatPng : GUID_ContainerFormatJpeg, nullptr, &open.decoder)) &&
           SUCCEEDED(open.decoder->Initialize(open.stream.Get(), WICDecodeMetadataCacheOnDemand));
}

OpenPicture Open(const Picture& picture) {
    OpenPicture open;
    const bool isImage =
        picture.format == PictureFormat::Png || picture.format == PictureFormat::Jpeg;
    if (!isImage || picture.bytes.empty()) return open;
    ComPtr<IWICBitmapFrameDecode> frame;
    UINT width = 0, height = 0;
    if (!OpenDecoder(picture, open) || FAILED(open.decoder->GetFrame(0, &frame)) ||
        FAILED(frame->GetSize(&width, &height)))
        return open;
    if (width > maxPixels || height > maxPixels) return open;
    open.size = {static_cast<int>(width), static_cast<int>(height)};
    if (IsWithinLimit(open.size)) open.frame = frame;
    return open;
}

} // namespace

WinBitmap MakeBitmap(Size size, void*& bits) {
    BITMAPINFO info = {};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = size.width;
    info.bmiHeader.biHeight = -size.height; // the first row on top
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    return WinBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
}

Size ReadPictureSize(const Picture& picture) {
    const OpenPicture open = Open(picture);
    return open.frame ? open.size : Size{};
}

WinBitmap DecodePicture(const Picture& picture, Size scaledTo) {
    const OpenPicture open = Open(picture);
    if (!open.frame || !IsWithinLimit(scaledTo)) return nullptr;
    ComPtr<IWICFormatConverter> converter;
    ComPtr<IWICBitmapScaler> scaler;
    const auto width = static_cast<UINT>(scaledTo.width),
               height = static_cast<UINT>(scaledTo.height);
    if (FAILED(open.factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(open.frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                     WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom)) ||
        FAILED(open.factory->CreateBitmapScaler(&scaler)) ||
        FAILED(scaler->Initialize(converter.Get(), width, height, WICBitmapInterpolationModeFant)))
        return nullptr;
    void* bits = nullptr;
    WinBitmap bitmap = MakeBitmap(scaledTo, bits);
    if (!bitmap || FAILED(scaler->CopyPixels(nullptr, width * 4, width * height * 4,
                                             static_cast<BYTE*>(bits))))
        return nullptr;
    return bitmap;
}
