#include "platform/qt/system/command_line.h"

#include "platform/qt/file_url.h"

#include <filesystem>
#include <system_error>

namespace {

// Without "." and "..", unless ".." follows a symbolic link and the result would be another file.
std::filesystem::path Normalized(const std::filesystem::path& path) {
    std::filesystem::path normal = path.lexically_normal();
    std::error_code error;
    if (normal == path || !std::filesystem::exists(path, error)) return normal;
    return std::filesystem::equivalent(normal, path, error) ? normal : path;
}

} // namespace

std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder) {
    std::string path;
    for (const std::string& argument : arguments) {
        path += path.empty() ? "" : " ";
        path += argument;
    }
    if (path.starts_with("file:/"))
        path = ParseFileUrl(path)->path; // desktops pass this machine's files only
    if (path.empty()) return {};
    return Normalized(std::filesystem::path(currentFolder) / path).string();
}
