#include "view/html/page_files.h"

#include "formats/html/html_address.h"
#include "formats/html/html_data_address.h"

PageFiles::PageFiles(const Files& files, const LoadedPage& page) : files_(files), page_(page) {
    const std::u16string& path = page.Path();
    folder_ = path.substr(0, path.find_last_of(files.Separator()) + 1);
}

std::u16string PageFiles::PathOf(std::u16string_view address) const {
    std::u16string path = ResolveHtmlAddress(page_.Path(), page_.BaseAddress(), address).path;
    if (path.empty() || folder_.empty()) return {};
    // Of a path that leads out of the folder nothing is asked: a server's name would be looked for.
    if (!path.starts_with(folder_) || !files_.IsInFolder(path, folder_)) return {};
    return path;
}

std::string PageFiles::Read(std::u16string_view address, std::uint64_t limit) const {
    if (IsHtmlDataAddress(address)) {
        std::string data = HtmlDataOf(address, std::size_t(limit) + 1);
        return data.size() > limit ? std::string() : data;
    }
    std::string bytes;
    const std::u16string path = PathOf(address);
    if (path.empty() || files_.Read(path, limit, bytes) != ReadStatus::Ok) return {};
    return bytes;
}

std::string PageFiles::ReadStart(std::u16string_view address, std::size_t count) const {
    if (IsHtmlDataAddress(address)) return HtmlDataOf(address, count);
    std::string bytes;
    const std::u16string path = PathOf(address);
    if (path.empty() || files_.ReadStart(path, count, bytes) != ReadStatus::Ok) return {};
    return bytes;
}
