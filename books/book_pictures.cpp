#include "books/book_pictures.h"

#include <string_view>

namespace {
constexpr std::uint64_t maxPictureFile = std::uint64_t{32} << 20;

// The parts of a name relative to the book, joined for this system; "" when it leads elsewhere or
// may mean something else: an address, a drive, a stream of a file, another computer.
std::u16string RelativePath(std::u16string_view name, char16_t separator) {
    std::u16string path;
    if (name.find(u':') != name.npos || name.starts_with(u'/') || name.starts_with(u'\\'))
        return {};
    while (!name.empty()) {
        const std::size_t end = name.find_first_of(u"/\\");
        const std::u16string_view part = name.substr(0, end);
        name.remove_prefix(end == name.npos ? name.size() : end + 1);
        if (part == u"..") return {};
        if (part.empty() || part == u".") continue;
        if (!path.empty()) path += separator;
        path += part;
    }
    return path;
}
} // namespace

std::string ReadBookPicture(const Files& files, const std::u16string& bookPath,
                            const std::u16string& name) {
    const std::u16string relative = RelativePath(name, files.Separator());
    const std::size_t folderEnd = bookPath.rfind(files.Separator());
    if (relative.empty() || folderEnd == bookPath.npos) return {};
    const std::u16string folder = bookPath.substr(0, folderEnd);
    const std::u16string path = folder + files.Separator() + relative;
    std::string bytes;
    if (!files.IsInFolder(path, folder)) return {};
    return files.Read(path, maxPictureFile, bytes) == ReadStatus::Ok ? bytes : std::string();
}
