// Addresses of pages: which of them are files here, and which are places in the same page.
#pragma once

#include <string>
#include <string_view>

std::wstring UrlOfPath(const std::wstring& path); // "" when the path is none or too long
// The path of a file: address (or of a plain path) without its fragment; "" for any other address.
std::wstring PathOfUrl(std::wstring_view url);

// "server" of \\server\share\book.htm and of its file: address; "" for a drive's.
std::wstring_view HostOfPath(std::wstring_view path);

bool HasNoLocation(std::wstring_view url); // about:blank, data: and their like

// Whether loading the address asks no other machine: files of this machine, and of `bookHost` for a
// book that was opened there; and addresses without any place.
bool IsLocal(std::wstring_view url, std::wstring_view bookHost);

// Whether following `url` stays in the page that is shown from `pageUrl`: it has a fragment, and
// the rest is the same.
bool IsAnchorInPage(std::wstring_view url, std::wstring_view pageUrl);
