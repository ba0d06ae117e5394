// Where the addresses of a page lead (WHATWG's URL Standard, as far as the files of a book go).
#pragma once

#include <string>
#include <string_view>

struct HtmlAddress {
    std::u16string url; // whole, with its fragment
    // The full path of a local file, as the page's own is written; "" for any other address.
    std::u16string path;
    std::u16string fragment; // decoded, without its "#"
    bool hasFragment = false;
};

// "file:///home/me/a%20book.htm". A path with a drive or a server is one of Windows.
std::u16string HtmlFileUrl(std::u16string_view path);

// `reference` as it is written in an attribute of the page at `pagePath`. `base` is the page's own
// `base` address as it is written, or "".
HtmlAddress ResolveHtmlAddress(std::u16string_view pagePath, std::u16string_view base,
                               std::u16string_view reference);
