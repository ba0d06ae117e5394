#include "shell/update/update_check.h"

#include "common/text.h"
#include "formats/rtf/rtf_escape.h"
#include "shell/update/product_web.h"
#include "shell/update/version_text.h"

#include <array>
#include <charconv>

namespace {
constexpr std::string_view before = "{\"version\":\"", after = "\"}\n";
constexpr int maxNumber = 65'535; // what a version resource can hold

// The number at the start of the text, which it is taken from; -1 when there is none. A number is
// written in one way only.
int ReadNumber(std::string_view& text) {
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(end - text.data());
    if (error != std::errc() || number < 0 || number > maxNumber || text[0] == '-') return -1;
    if (text[0] == '0' && length > 1) return -1;
    text.remove_prefix(length);
    return number;
}
} // namespace

std::u16string UpdateAddress(const ProgramVersion& version, const std::u16string& executableName) {
    return ProductAddress(version) + executableName + u".js";
}

std::optional<VersionNumbers> ParseUpdateFile(std::string_view bytes) {
    if (!bytes.starts_with(before) || !bytes.ends_with(after)) return std::nullopt;
    bytes.remove_prefix(before.size());
    std::array<int, 3> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = ReadNumber(bytes);
        const std::string_view follows = i + 1 < numbers.size() ? "." : after;
        if (numbers[i] < 0 || !bytes.starts_with(follows)) return std::nullopt;
        bytes.remove_prefix(follows.size());
    }
    if (!bytes.empty()) return std::nullopt;
    return VersionNumbers{numbers[0], numbers[1], numbers[2]};
}

UpdateResult CompareVersions(const ProgramVersion& own, std::string_view updateFile) {
    const auto newest = ParseUpdateFile(updateFile);
    if (!newest) return {};
    ProgramVersion version;
    version.major = newest->major;
    version.minor = newest->minor;
    version.revision = newest->revision;
    const bool isNewer = *newest > VersionNumbers{own.major, own.minor, own.revision};
    return {isNewer ? UpdateResult::Status::NewerVersion : UpdateResult::Status::UpToDate,
            VersionText(version, VersionFormat::Full), *newest};
}

std::vector<std::u16string> DownloadAddresses(const ProgramVersion& version,
                                              const std::u16string& executableName,
                                              const std::vector<std::u16string>& packages,
                                              const VersionNumbers& newest) {
    const std::u16string product = ProductAddress(version);
    if (packages.empty()) return {product + executableName + u"_Setup.exe"};
    const std::u16string number = NumberText(newest.major) + u"." + NumberText(newest.minor) +
                                  u"." + NumberText(newest.revision);
    std::vector<std::u16string> addresses;
    addresses.reserve(packages.size());
    for (const std::u16string& package : packages)
        addresses.push_back(product + Replace(package, u"*", number));
    return addresses;
}

std::string UpdateOffer(std::u16string_view newVersion,
                        const std::vector<std::u16string>& addresses) {
    std::string rtf = "{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue255;}\\f0\\fs16 Version ";
    AppendRtfText(rtf, newVersion);
    rtf += " is now available to download:";
    for (const std::u16string& address : addresses) {
        rtf += "\\par \\cf1{\\ul ";
        AppendRtfText(rtf, address);
        rtf += "}";
    }
    return rtf += "}";
}
