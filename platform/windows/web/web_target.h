// Which addresses may be asked for a file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct WebTarget {
    std::wstring address; // all of it
    std::wstring host;    // one of IPv6 with its brackets
    std::wstring path;    // with the query, without the fragment; never empty
    std::uint16_t port = 0;
    bool secure = false; // https
    bool isThisComputer = false;
};

// Nothing for what is not allowed: only https is, and http to this computer; no user and password.
std::optional<WebTarget> ParseWebTarget(std::wstring_view address);

// Where an answer's Location leads. Nothing also for a way from https to http.
std::optional<WebTarget> RedirectedTarget(const WebTarget& from, const std::wstring& location);
