// Which addresses may be fetched.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct WebTarget {
    std::wstring address; // all of it
    std::wstring host;    // IPv6 with its brackets
    std::wstring path;    // with the query, without the fragment; never empty
    std::uint16_t port = 0;
    bool secure = false; // https
    bool isThisComputer = false;
};

// None unless it is https, or http to this computer, without user name and password.
std::optional<WebTarget> ParseWebTarget(std::wstring_view address);

// The target of a Location header. None also for a redirection from https to http.
std::optional<WebTarget> RedirectedTarget(const WebTarget& from, const std::wstring& location);
