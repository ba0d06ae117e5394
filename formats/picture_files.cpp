#include "formats/picture_files.h"

#include <map>

namespace {
// One file may be shown at many places, and each has its own bytes.
constexpr std::size_t maxPictureFileBytes = std::size_t{128} << 20;
} // namespace

PictureFormat FormatOfPicture(std::string_view bytes) {
    constexpr std::size_t enhancedMark = 40;
    if (bytes.starts_with("\x89PNG\r\n\x1A\n")) return PictureFormat::Png;
    if (bytes.starts_with("\xFF\xD8\xFF")) return PictureFormat::Jpeg;
    if (bytes.starts_with("\xD7\xCD\xC6\x9A")) return PictureFormat::Wmf;
    if (bytes.size() > enhancedMark && bytes.substr(enhancedMark).starts_with(" EMF"))
        return PictureFormat::Emf;
    return PictureFormat::Other;
}

void ReadPictureFiles(Document& document,
                      const std::function<std::string(const std::u16string&)>& read) {
    std::map<std::u16string, std::string> files;
    std::size_t total = 0;
    for (Picture& picture : document.pictures) {
        if (picture.file.empty()) continue;
        const auto [file, isNew] = files.try_emplace(picture.file);
        if (isNew) file->second = read(picture.file);
        picture.format = FormatOfPicture(file->second);
        const bool fits = file->second.size() <= maxPictureFileBytes - total;
        if (!fits) picture.format = PictureFormat::Other;
        if (picture.format == PictureFormat::Other) continue;
        picture.bytes = file->second;
        total += picture.bytes.size();
        picture.file.clear();
    }
}
