// The check for a newer version.
#pragma once

#include "platform/version_info.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Where the newest version is published; see docs/update-file.md.
std::u16string UpdateAddress(const ProgramVersion&, const std::u16string& executableName);

struct VersionNumbers {
    int major = 0, minor = 0, revision = 0;
    // NOLINTNEXTLINE(modernize-use-nullptr): in what the compiler makes
    auto operator<=>(const VersionNumbers&) const = default;
};

// Nothing for anything but exactly {"version":"1.2.3"} and one line feed.
std::optional<VersionNumbers> ParseUpdateFile(std::string_view bytes);

struct UpdateResult {
    enum class Status { Unknown, UpToDate, NewerVersion };
    Status status = Status::Unknown;
    std::u16string newVersion; // digits and dots
    VersionNumbers newest;
};

UpdateResult CompareVersions(const ProgramVersion& own, std::string_view updateFile);

// What the newest version is downloaded by: these packages, or the setup program where there are
// none (`UpdateCheck::Packages`).
std::vector<std::u16string> DownloadAddresses(const ProgramVersion&,
                                              const std::u16string& executableName,
                                              const std::vector<std::u16string>& packages,
                                              const VersionNumbers& newest);

// The offer as rich text: the new version, and each address as a link.
std::string UpdateOffer(std::u16string_view newVersion,
                        const std::vector<std::u16string>& addresses);
