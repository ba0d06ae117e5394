// The desktop's list of recent documents: recently-used.xbel, which file managers and other
// programs' dialogs show (freedesktop.org, Desktop Bookmarks).
#pragma once

#include <QObject>

class RecentDocuments : public QObject {
  public:
    // Adds a file, by its full path, once the desktop has been asked whether its user wants that.
    // Waits for nothing.
    void Add(const QString& path);
};

// The switches of KDE and of GTK, which are in files.
bool KeepsRecentDocuments(const QString& configFolder);

// Adds a file to the list in this file, or brings what it says of it up to date. A list that
// cannot be read is left alone.
bool AddToRecentList(const QString& list, const QString& path, const QString& mediaType);
