// URLs of files by the two schemes that pages of books have: file: and one of our own.
#pragma once

#include <QUrl>

#include <optional>
#include <string>

constexpr char pageScheme[] = "norvaset-page";

void RegisterPageScheme(); // before the engine starts

// The same file by the other scheme; any other URL as it is.
QUrl WithPageScheme(QUrl file);
QUrl WithFileScheme(QUrl page);

// None unless it is a local file, by either scheme.
std::optional<std::string> LocalPathOf(const QUrl& url);
