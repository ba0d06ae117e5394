// Desktop entry files (freedesktop.org, version 1.5): what an installed program calls itself.
#pragma once

#include <string>
#include <string_view>

// The name in the first group of the file, in the language of `locale` ("de_DE", "de", ...) if it
// has one, else in its plain form. "" when the file has no name. All texts are UTF-8.
std::string DesktopEntryName(std::string_view file, std::string_view locale);
