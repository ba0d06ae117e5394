// Programs by their desktop entries (freedesktop.org: Desktop Entry 1.5, MIME Applications 1.0).
#pragma once

#include <QString>

#include <string>
#include <string_view>

// The name in the first group of a desktop entry file, in the language of `locale` ("de_DE", "de",
// ...) if there is one, else the unlocalized name. "" when the file has no name. All texts are
// UTF-8.
std::string DesktopEntryName(std::string_view file, std::string_view locale);

// Both in the user's language; "" when no desktop entry says it.
QString ProgramName(const QString& program, const QString& mediaType); // that opens these files
QString DefaultProgramName(const QString& mediaType); // of what the desktop opens them with
