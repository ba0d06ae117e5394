#include "platform/posix/posix_paths.h"

#include "common/utf.h"

#include <unistd.h>

#include <climits>

std::u16string PathFromNative(std::string_view bytes) {
    return Utf8ToUtf16(bytes, u'?');
}

std::optional<std::string> NativePath(const std::u16string& path) {
    const std::string bytes = Utf16ToUtf8(path);
    if (bytes.empty() || bytes.find('\0') != bytes.npos || bytes.find('?') != bytes.npos ||
        bytes.find("\uFFFD") != bytes.npos) {
        return std::nullopt;
    }
    return bytes;
}

std::string FolderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    if (slash == path.npos) return ".";
    return slash == 0 ? "/" : path.substr(0, slash);
}

std::string NameOf(const std::string& path) {
    return path.substr(path.rfind('/') + 1);
}

std::optional<std::string> FollowLinks(std::string path) {
    constexpr int maxChainLength = 40; // as the system itself allows
    for (int i = 0; i < maxChainLength; ++i) {
        char target[PATH_MAX];
        const ssize_t length = readlink(path.c_str(), target, sizeof target);
        if (length <= 0 || length == sizeof target) return path; // no link
        const std::string next(target, static_cast<std::size_t>(length));
        if (next.front() == '/')
            path = next;
        else
            path = FolderOf(path).append("/").append(next);
    }
    return std::nullopt;
}
