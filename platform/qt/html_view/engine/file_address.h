// Addresses of local files. By bytes: a path need not be valid in any encoding.
#pragma once

#include <QUrl>

#include <optional>
#include <string>

QUrl FileAddress(const std::string& path);
std::optional<std::string> LocalPathOf(const QUrl&); // none for what is no file of this machine
