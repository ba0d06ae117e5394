#include "platform/qt/system/command_line.h"

#include <filesystem>
#include <string_view>
#include <system_error>

namespace {

int HexDigit(char character) {
    if (character >= '0' && character <= '9') return character - '0';
    const char lower = static_cast<char>(character | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

std::string DecodePercents(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool escaped = text[i] == '%' && i + 2 < text.size() && HexDigit(text[i + 1]) >= 0 &&
                             HexDigit(text[i + 2]) >= 0;
        bytes += escaped ? static_cast<char>(HexDigit(text[i + 1]) * 16 + HexDigit(text[i + 2]))
                         : text[i];
        i += escaped ? 2 : 0;
    }
    return bytes;
}

// The path in a "file:" address (RFC 8089): its host, if any, is this one.
std::string PathOfAddress(std::string_view address) {
    address.remove_prefix(std::string_view("file:").size());
    if (address.starts_with("//")) {
        const std::size_t path = address.find('/', 2);
        address = path == std::string_view::npos ? std::string_view() : address.substr(path);
    }
    return DecodePercents(address);
}

// Without "." and "..", unless that would lead elsewhere because a folder on the way is a link.
std::filesystem::path Shortened(const std::filesystem::path& path) {
    std::filesystem::path plain = path.lexically_normal();
    std::error_code error;
    if (plain == path || !std::filesystem::exists(path, error)) return plain;
    return std::filesystem::equivalent(plain, path, error) ? plain : path;
}

} // namespace

std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder) {
    std::string path;
    for (const std::string& argument : arguments) {
        path += path.empty() ? "" : " ";
        path += argument;
    }
    if (path.starts_with("file:/")) path = PathOfAddress(path);
    if (path.empty()) return {};
    return Shortened(std::filesystem::path(currentFolder) / path).string();
}
