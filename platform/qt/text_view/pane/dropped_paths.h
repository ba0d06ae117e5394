// Files of a drop.
#pragma once

#include <QByteArray>
#include <QDropEvent>

#include <string>
#include <vector>

// The local files of a "text/uri-list", in order. Bytes of a path that are not valid UTF-8 become
// u'?'.
std::vector<std::u16string> DroppedPaths(const QByteArray& uriList);

// Accepts a drag of files, over a widget; and a drop if there are local files in it, as a copy.
void AcceptFileDrag(QDropEvent&);
std::vector<std::u16string> AcceptFileDrop(QDropEvent&);
