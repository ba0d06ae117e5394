#include "platform/windows/line_layout/picture_decoder.h"

#include "formats/pictures/picture_header.h"
#include "platform/windows/base/com_ptr.h"

#include <wincodec.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace {

constexpr long long maxPixels = maxPicturePixels; // a file may declare a size that exceeds memory

// Of the SDK of Windows 10; MinGW's headers do not have it.
constexpr GUID webPContainer = {
    0xE094B0E2, 0x67F2, 0x45B3, {0xB0, 0xEA, 0x11, 0x53, 0x37, 0xCA, 0x7C, 0xF3}};

// Null for what is not decoded.
const GUID* ContainerOf(PictureFormat format) {
    switch (format) {
    case PictureFormat::Png: return &GUID_ContainerFormatPng;
    case PictureFormat::Jpeg: return &GUID_ContainerFormatJpeg;
    case PictureFormat::Gif: return &GUID_ContainerFormatGif;
    case PictureFormat::WebP: return &webPContainer;
    case PictureFormat::Bmp: return &GUID_ContainerFormatBmp;
    case PictureFormat::Ico: return &GUID_ContainerFormatIco;
    case PictureFormat::Svg:
    case PictureFormat::Wmf:
    case PictureFormat::Emf:
    case PictureFormat::Other: break;
    }
    return nullptr;
}

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
    const GUID* const container = ContainerOf(picture.format);
    auto* const bytes = reinterpret_cast<BYTE*>(const_cast<char*>(picture.bytes.data()));
    return SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_PPV_ARGS(&open.factory))) &&
           SUCCEEDED(open.factory->CreateStream(&open.stream)) &&
           SUCCEEDED(open.stream->InitializeFromMemory(bytes,
                                                       static_cast<DWORD>(picture.bytes.size()))) &&
           SUCCEEDED(open.factory->CreateDecoder(*container, nullptr, &open.decoder)) &&
           SUCCEEDED(open.decoder->Initialize(open.stream.Get(), WICDecodeMetadataCacheOnDemand));
}

OpenPicture Open(const Picture& picture) {
    OpenPicture open;
    if (!ContainerOf(picture.format) || picture.bytes.empty()) return open;
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

// From a picture as it lies in its file to one as its orientation of Exif has it. (Wine's own
// rotator does not turn.)
void TurnUpright(std::uint8_t orientation, const std::vector<DWORD>& lying, Size size,
                 DWORD* upright) {
    const bool isTurned = orientation >= 5;
    const bool fromRight =
        orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
    const bool fromBelow =
        orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
    const int width = isTurned ? size.height : size.width; // in the file
    const int height = isTurned ? size.width : size.height;
    for (int y = 0; y < size.height; ++y)
        for (int x = 0; x < size.width; ++x) {
            const int column = isTurned ? y : x, row = isTurned ? x : y;
            const int from = (fromBelow ? height - 1 - row : row) * width +
                             (fromRight ? width - 1 - column : column);
            *upright++ = lying[static_cast<std::size_t>(from)];
        }
}

// A frame of a GIF is as large as what is drawn of it: where that is in the whole, when the whole
// is scaled. Of other formats all of it.
Rect FrameIn(const Picture& picture, Size whole) {
    const Rect all{0, 0, whole.width, whole.height};
    if (picture.format != PictureFormat::Gif) return all;
    const PictureHeader header = ReadPictureHeader(picture.bytes);
    if (header.format != PictureFormat::Gif) return all;
    const auto scaled = [](int at, int to, int from) {
        return static_cast<int>(1LL * at * to / from);
    };
    const int left = scaled(header.frame.left, whole.width, header.width);
    const int top = scaled(header.frame.top, whole.height, header.height);
    const int right = scaled(header.frame.left + header.frame.width, whole.width, header.width);
    const int bottom = scaled(header.frame.top + header.frame.height, whole.height, header.height);
    return {left, top, std::max(1, right - left), std::max(1, bottom - top)};
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

bool CanDecodePicture(PictureFormat format) {
    const GUID* const container = ContainerOf(format);
    ComPtr<IWICImagingFactory> factory;
    ComPtr<IWICBitmapDecoder> decoder;
    return container &&
           SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_PPV_ARGS(&factory))) &&
           SUCCEEDED(factory->CreateDecoder(*container, nullptr, &decoder));
}

WinBitmap DecodePicture(const Picture& picture, Size scaledTo) {
    const OpenPicture open = Open(picture);
    if (!open.frame || !IsWithinLimit(scaledTo)) return nullptr;
    const Rect place = FrameIn(picture, scaledTo);
    if (Right(place) > scaledTo.width || Bottom(place) > scaledTo.height) return nullptr;
    const bool lies = picture.orientation >= 5; // on its side
    const Size file = lies ? Size{place.height, place.width} : Size{place.width, place.height};
    const auto width = static_cast<UINT>(file.width), height = static_cast<UINT>(file.height);
    ComPtr<IWICFormatConverter> converter;
    ComPtr<IWICBitmapScaler> scaler;
    if (FAILED(open.factory->CreateFormatConverter(&converter)) ||
        FAILED(converter->Initialize(open.frame.Get(), GUID_WICPixelFormat32bppPBGRA,
                                     WICBitmapDitherTypeNone, nullptr, 0,
                                     WICBitmapPaletteTypeCustom)) ||
        FAILED(open.factory->CreateBitmapScaler(&scaler)) ||
        FAILED(scaler->Initialize(converter.Get(), width, height, WICBitmapInterpolationModeFant)))
        return nullptr;
    void* bits = nullptr;
    WinBitmap bitmap = MakeBitmap(scaledTo, bits); // transparent all over
    if (!bitmap) return nullptr;
    auto* const pixels = static_cast<DWORD*>(bits);
    if (picture.orientation != uprightPicture) {
        std::vector<DWORD> lying(std::size_t{width} * height);
        if (FAILED(scaler->CopyPixels(nullptr, width * 4, width * height * 4,
                                      reinterpret_cast<BYTE*>(lying.data()))))
            return nullptr;
        TurnUpright(picture.orientation, lying, scaledTo, pixels);
        return bitmap;
    }
    const auto stride = static_cast<UINT>(scaledTo.width);
    DWORD* const first = pixels + static_cast<UINT>(place.top) * stride + place.left;
    const UINT size = ((height - 1) * stride + width) * 4;
    return SUCCEEDED(scaler->CopyPixels(nullptr, stride * 4, size, reinterpret_cast<BYTE*>(first)))
               ? std::move(bitmap)
               : nullptr;
}
