// file: URLs (RFC 8089), by bytes: a path need not be valid in any encoding, so QUrl, which decodes
// to UTF-16, would lose some.
#pragma once

#include <optional>
#include <string>
#include <string_view>

struct FileUrl {
    std::string host; // in lower case; usually ""
    std::string path; // percent-decoded; "" if the URL has none
};
// None for any other scheme. A "%" without two hexadecimal digits stands for itself.
std::optional<FileUrl> ParseFileUrl(std::string_view url);

// None unless it is a file of this machine.
std::optional<std::string> LocalPathOf(std::string_view url);
