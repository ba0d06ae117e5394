// The files of a drop.
#pragma once

#include <QByteArray>

#include <string>
#include <vector>

// The local files of a "text/uri-list", in its order. A byte of a path that is no part of valid
// UTF-8 becomes u'?'.
std::vector<std::u16string> DroppedPaths(const QByteArray& uriList);
