// The desktop's list of recent documents, in its own file.
#include "platform/qt/system/recent_documents.h"
#include "tests/contract/temporary_folder_posix.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

#include <doctest/doctest.h>

#include <filesystem>
#include <fstream>

namespace {
struct List {
    TemporaryFolder folder;
    const QString path = QString::fromStdString(folder.path) + "/recently-used.xbel";

    bool Add(const QString& book, const QString& type = "text/plain") const {
        return AddToRecentList(path, book, type);
    }
    QByteArray Bytes() const {
        QFile file(path);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }
    // As any reader of XML sees it: the addresses of the documents.
    QStringList Addresses() const {
        QStringList addresses;
        QXmlStreamReader reader(Bytes());
        while (!reader.atEnd())
            if (reader.readNext() == QXmlStreamReader::StartElement &&
                reader.name() == QLatin1String("bookmark"))
                addresses += reader.attributes().value("href").toString();
        CHECK(reader.errorString().toStdString() == "");
        return addresses;
    }
};
} // namespace

TEST_CASE("qt recent documents: a book is added with its kind and this program") {
    const List list;
    REQUIRE(AddToRecentList(QString::fromStdString(list.folder.path) + "/new/list", "/b/a.txt",
                            "text/plain"));
    REQUIRE(list.Add("/books/Война & мир 100%.txt"));
    const QByteArray bytes = list.Bytes();
    CHECK(bytes.contains("href=\"file:///books/%D0%92%D0%BE%D0%B9%D0%BD%D0%B0%20&amp;%20"
                         "%D0%BC%D0%B8%D1%80%20100%25.txt\""));
    CHECK(bytes.contains("type=\"text/plain\""));
    CHECK(bytes.contains("name=\"Norvaset\""));
    CHECK(QFileInfo(list.path).permissions() ==
          (QFile::ReadOwner | QFile::WriteOwner | QFile::ReadUser | QFile::WriteUser));
}

TEST_CASE("qt recent documents: what others wrote stays, and a book is there once") {
    const List list;
    std::ofstream(list.path.toStdString()) << R"(<?xml version="1.0" encoding="UTF-8"?>
<xbel version="1.0"
      xmlns:bookmark="http://www.freedesktop.org/standards/desktop-bookmarks"
      xmlns:mime="http://www.freedesktop.org/standards/shared-mime-info"
>
  <bookmark href="file:///other.pdf" added="2026-01-01T00:00:00Z"
            modified="2026-01-01T00:00:00Z" visited="2026-01-01T00:00:00Z">
    <info>
      <metadata owner="http://freedesktop.org">
        <mime:mime-type type="application/pdf"/>
        <bookmark:applications>
          <bookmark:application name="Viewer" exec="&apos;viewer %u&apos;"
                                modified="2026-01-01T00:00:00Z" count="3"/>
        </bookmark:applications>
      </metadata>
    </info>
  </bookmark>
</xbel>)";
    for (const char* book : {"/b/a.txt", "/b/c.htm", "/b/a.txt"})
        REQUIRE(list.Add(book));
    CHECK(list.Addresses() ==
          QStringList{"file:///other.pdf", "file:///b/a.txt", "file:///b/c.htm"});
    CHECK(list.Bytes().contains("viewer %u"));
    CHECK(list.Bytes().contains("count=\"2\""));
}

TEST_CASE("qt recent documents: a list that cannot be read is left alone") {
    const List list;
    std::ofstream(list.path.toStdString()) << "<xbel><bookmark";
    CHECK_FALSE(list.Add("/b/a.txt"));
    CHECK(list.Bytes() == "<xbel><bookmark");
    CHECK_FALSE(list.Add("relative.txt"));
}

TEST_CASE("qt recent documents: the switches of the desktops") {
    const struct {
        const char* file;
        const char* on;
        const char* off;
    } switches[] = {
        {"kdeglobals", "[RecentDocuments]\nUseRecent=true\n",
         "[RecentDocuments]\nUseRecent=false\n"},
        {"gtk-3.0/settings.ini", "[Settings]\ngtk-recent-files-enabled = 1\n",
         "[Settings]\ngtk-recent-files-enabled = 0\n"},
        {"gtk-4.0/settings.ini", "[Settings]\n", "[Settings]\ngtk-recent-files-enabled=false\n"},
    };
    for (const auto& c : switches)
        for (const bool on : {true, false}) {
            CAPTURE(std::string(c.file));
            const TemporaryFolder folder;
            const QString config = QString::fromStdString(folder.path);
            CHECK(KeepsRecentDocuments(config));
            const std::filesystem::path path = folder.path + "/" + c.file;
            std::filesystem::create_directories(path.parent_path());
            std::ofstream(path) << (on ? c.on : c.off);
            CHECK(KeepsRecentDocuments(config) == on);
        }
}
