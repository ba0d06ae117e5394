#include "formats/media_file.h"

#include "common/text.h"

#include <algorithm>

using namespace std::string_view_literals;

namespace {
struct MediaKind {
    std::u16string_view extension;
    std::size_t offset;
    std::string_view bytes;
};

constexpr MediaKind kinds[] = {
    {u"jpg", 0, "\xFF\xD8\xFF"sv},
    {u"jpeg", 0, "\xFF\xD8\xFF"sv},
    {u"png", 0, "\x89PNG\r\n"sv},
    {u"gif", 0, "GIF8"sv},
    {u"bmp", 0, "BM"sv},
    {u"tif", 0, "II*\0"sv},
    {u"tif", 0, "MM\0*"sv},
    {u"tiff", 0, "II*\0"sv},
    {u"tiff", 0, "MM\0*"sv},
    {u"webp", 8, "WEBP"sv},
    {u"mp3", 0, "ID3"sv},
    {u"mp3", 0, "\xFF\xFB"sv}, // a frame, without a tag before it
    {u"mp3", 0, "\xFF\xFA"sv},
    {u"mp3", 0, "\xFF\xF3"sv},
    {u"mp3", 0, "\xFF\xF2"sv},
    {u"wav", 8, "WAVE"sv},
    {u"ogg", 0, "OggS"sv},
    {u"oga", 0, "OggS"sv},
    {u"ogv", 0, "OggS"sv},
    {u"opus", 0, "OggS"sv},
    {u"flac", 0, "fLaC"sv},
    {u"mid", 0, "MThd"sv},
    {u"midi", 0, "MThd"sv},
    {u"m4a", 4, "ftyp"sv},
    {u"m4b", 4, "ftyp"sv},
    {u"mp4", 4, "ftyp"sv},
    {u"m4v", 4, "ftyp"sv},
    {u"mov", 4, "ftyp"sv},
    {u"avi", 8, "AVI "sv},
    {u"webm", 0, "\x1A\x45\xDF\xA3"sv},
    {u"mkv", 0, "\x1A\x45\xDF\xA3"sv},
    {u"pdf", 0, "%PDF-"sv},
};
} // namespace

bool IsMediaFile(std::u16string_view path, std::string_view firstBytes) {
    const auto dot = path.rfind(u'.');
    if (dot == std::u16string_view::npos) return false;
    const std::u16string_view extension = path.substr(dot + 1);
    return std::ranges::any_of(kinds, [&](const MediaKind& kind) {
        return EqualIgnoringCase(extension, kind.extension) && firstBytes.size() > kind.offset &&
               firstBytes.substr(kind.offset).starts_with(kind.bytes);
    });
}
