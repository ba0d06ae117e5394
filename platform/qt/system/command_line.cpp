#include "platform/qt/system/command_line.h"

#include "platform/qt/base/file_url.h"
#include "product.h"

#include <filesystem>
#include <system_error>

#define AS_TEXT(number) #number
#define VERSION_TEXT(major, minor, revision) AS_TEXT(major) "." AS_TEXT(minor) "." AS_TEXT(revision)

namespace {

constexpr const char* help =
    "Usage: Norvaset [BOOK]\n" PRODUCT_DESCRIPTION ". Without BOOK it opens the last one.\n"
    "\n"
    "  BOOK        a path or a file: address; several arguments are one path with\n"
    "              blanks in it\n"
    "  -h, --help  print this and exit\n"
    "  --version   print the version and exit\n"
    "\n"
    "While the program runs, a second start hands BOOK over to it and ends.\n";

constexpr const char* version = PRODUCT_TITLE
    " " VERSION_TEXT(PRODUCT_VERSION_MAJOR, PRODUCT_VERSION_MINOR, PRODUCT_VERSION_REVISION) "\n";

// Without "." and "..", unless ".." follows a symbolic link and the result would be another file.
std::filesystem::path Normalized(const std::filesystem::path& path) {
    std::filesystem::path normal = path.lexically_normal();
    std::error_code error;
    if (normal == path || !std::filesystem::exists(path, error)) return normal;
    return std::filesystem::equivalent(normal, path, error) ? normal : path;
}

} // namespace

std::optional<std::string> OptionAnswer(const std::vector<std::string>& arguments) {
    if (arguments.size() != 1) return std::nullopt;
    if (arguments[0] == "--help" || arguments[0] == "-h") return help;
    if (arguments[0] == "--version") return version;
    return std::nullopt;
}

std::string BookPathBytes(const std::vector<std::string>& arguments,
                          const std::string& currentFolder) {
    std::string path;
    for (const std::string& argument : arguments) {
        path += path.empty() ? "" : " ";
        path += argument;
    }
    // An address on another machine stays as it is, and no file is found by it.
    if (const auto local = LocalPathOf(path)) path = *local;
    if (path.empty()) return {};
    return Normalized(std::filesystem::path(currentFolder) / path).string();
}
