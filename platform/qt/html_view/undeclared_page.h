// Pages that do not say their charset, decoded as the other HTML views decode them: the engine's
// own detector knows fewer charsets, and is often wrong about a short page.
#pragma once

#include <optional>
#include <string>

struct UndeclaredPage {
    std::string utf8, charset; // its text, and the name of the charset of its bytes
};

// Nothing for a page that has a byte-order mark, declares its charset or is ASCII alone, and when
// the file cannot be read: the engine shows these by itself.
std::optional<UndeclaredPage> ReadUndeclaredPage(const std::string& path, int systemCodePage);
