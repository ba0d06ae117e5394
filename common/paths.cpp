#include "common/paths.h"

#include <algorithm>

std::u16string_view FolderOf(std::u16string_view path, char16_t separator) {
    const std::size_t end = path.rfind(separator);
    return end == path.npos ? path.substr(0, 0) : path.substr(0, std::max<std::size_t>(end, 1));
}

std::u16string_view FileNameOf(std::u16string_view path, char16_t separator) {
    return path.substr(path.rfind(separator) + 1);
}

bool IsPosixPath(std::u16string_view path) {
    return path.starts_with(u'/');
}

bool IsPathSeparator(char16_t unit, bool posix) {
    return unit == u'/' || (unit == u'\\' && !posix);
}

std::u16string_view FolderOf(std::u16string_view path) {
    const bool posix = IsPosixPath(path);
    std::size_t end = path.size();
    while (end > 0 && !IsPathSeparator(path[end - 1], posix))
        --end;
    return end == 0 ? path : path.substr(0, end - 1);
}

bool IsNetworkPath(std::u16string_view path) {
    return path.starts_with(u"\\\\") || path.starts_with(u"//");
}
