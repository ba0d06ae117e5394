// URLs of pages: local files, and anchors in the same page.
#pragma once

#include <string>
#include <string_view>

std::wstring UrlOfPath(const std::wstring& path); // "" for an invalid or too long path
// The path of a file: URL (or of a plain path) without fragment; "" for other URLs.
std::wstring PathOfUrl(std::wstring_view url);

// "server" of \\server\share\book.htm and of its file: address; "" for a drive's.
std::wstring_view HostOfPath(std::wstring_view path);

bool HasNoLocation(std::wstring_view url); // about:, data:

// Whether loading the URL contacts no other host than `bookHost`, the one that the book was opened
// from: local files, and URLs without a location.
bool IsLocal(std::wstring_view url, std::wstring_view bookHost);

// Whether `url` differs from the page's only by its fragment, and has one.
bool IsAnchorInPage(std::wstring_view url, std::wstring_view pageUrl);
