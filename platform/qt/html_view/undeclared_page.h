// Pages that do not say their charset, decoded as the other HTML views decode them: the engine's
// own detector knows fewer charsets, and is often wrong about a short page.
#pragma once

#include <optional>
#include <string>

struct UndeclaredPage {
    std::string bytes;   // in `sentAs`, for the engine
    std::string sentAs;  // UTF-8, or ISO-8859-8 for Hebrew in visual order, which has no other
    std::string charset; // the name of that of the file
};

// Nothing for a page that has a byte-order mark, declares its charset or is ASCII alone, and when
// the file cannot be read: the engine shows these by itself.
std::optional<UndeclaredPage> ReadUndeclaredPage(const std::string& path, int systemCodePage);
