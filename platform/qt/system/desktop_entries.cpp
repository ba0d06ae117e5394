#include "platform/qt/system/desktop_entries.h"

#include "common/text.h"

#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>

namespace {

constexpr qint64 maxFileSize = 1 << 20; // bytes; entries have a few thousand, caches some 100,000

QByteArray Contents(const QString& path) {
    QFile file(path);
    return !path.isEmpty() && file.open(QIODevice::ReadOnly) ? file.read(maxFileSize)
                                                             : QByteArray();
}

std::string_view View(const QByteArray& bytes) {
    return {bytes.data(), static_cast<std::size_t>(bytes.size())};
}

std::string_view NextLine(std::string_view& text) {
    const std::size_t end = text.find('\n');
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return Trim(line);
}

// Calls `visit` with each key and value of a group.
template <typename Visitor>
void VisitGroup(std::string_view file, std::string_view group, const Visitor& visit) {
    bool inGroup = false;
    while (!file.empty()) {
        const std::string_view line = NextLine(file);
        if (line.starts_with("[")) {
            if (inGroup) return;
            inGroup = line == group;
            continue;
        }
        const std::size_t equals = line.find('=');
        if (inGroup && equals != std::string_view::npos)
            visit(Trim(line.substr(0, equals)), Trim(line.substr(equals + 1)));
    }
}

QString Value(const QByteArray& file, std::string_view group, std::string_view wanted) {
    QString found;
    VisitGroup(View(file), group, [&](std::string_view key, std::string_view value) {
        if (key == wanted) found = QString::fromUtf8(value.data(), qsizetype(value.size()));
    });
    return found;
}

// 0: not a name; 1: unlocalized; 2: the language of `locale`; 3: its language and country.
int MatchRank(std::string_view key, std::string_view locale) {
    if (key == "Name") return 1;
    if (!key.starts_with("Name[") || !key.ends_with("]")) return 0;
    const std::string_view language = key.substr(5, key.size() - 6);
    if (language == locale) return 3;
    return language == locale.substr(0, locale.find('_')) ? 2 : 0;
}

QByteArray Entry(const QString& fileName) {
    return Contents(QStandardPaths::locate(QStandardPaths::ApplicationsLocation, fileName));
}

QString NameIn(const QByteArray& entry) {
    const std::string locale = QLocale::system().name().toStdString();
    return QString::fromStdString(DesktopEntryName(View(entry), locale));
}

// By the program alone; what else its command line has does not matter.
bool Starts(const QByteArray& entry, const QString& program) {
    const QStringList words = QProcess::splitCommand(Value(entry, "[Desktop Entry]", "Exec"));
    if (words.isEmpty()) return false;
    const QFileInfo started(words.constFirst()), asked(program);
    if (started.isRelative()) return started.fileName() == asked.fileName();
    const QString real = started.canonicalFilePath(); // "" for a file that is not there
    return started.filePath() == program || (!real.isEmpty() && real == asked.canonicalFilePath());
}

// The lists of the desktops that run, if they have any, go before that of all.
QStringList FilesOf(const QString& folder, const QString& name) {
    QStringList files;
    const QString desktops = qEnvironmentVariable("XDG_CURRENT_DESKTOP").toLower();
    for (const QString& desktop : desktops.split(QLatin1Char(':'), Qt::SkipEmptyParts))
        files += folder + QLatin1Char('/') + desktop + QLatin1Char('-') + name;
    return files += folder + QLatin1Char('/') + name;
}

// In the order in which they are asked.
QStringList ListsOfDefaults() {
    QStringList files;
    for (const auto place :
         {QStandardPaths::GenericConfigLocation, QStandardPaths::ApplicationsLocation})
        for (const QString& folder : QStandardPaths::standardLocations(place))
            files += FilesOf(folder, QStringLiteral("mimeapps.list"));
    return files;
}

QStringList Listed(const QStringList& files, std::string_view group, const QString& mediaType) {
    QStringList entries;
    for (const QString& file : files)
        entries += Value(Contents(file), group, mediaType.toStdString())
                       .split(QLatin1Char(';'), Qt::SkipEmptyParts);
    return entries;
}

// The entries of the programs that say that they open it.
QStringList Registered(const QString& mediaType) {
    QStringList caches;
    for (const QString& folder :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation))
        caches += folder + QStringLiteral("/mimeinfo.cache");
    return Listed(caches, "[MIME Cache]", mediaType);
}

QString FirstName(const QStringList& entries) {
    for (const QString& entry : entries)
        if (const QString name = NameIn(Entry(entry)); !name.isEmpty()) return name;
    return {};
}

} // namespace

std::string DesktopEntryName(std::string_view file, std::string_view locale) {
    std::string name;
    int bestRank = 0;
    VisitGroup(file, "[Desktop Entry]", [&](std::string_view key, std::string_view value) {
        if (const int rank = MatchRank(key, locale); rank > bestRank) {
            bestRank = rank;
            name = value;
        }
    });
    return name;
}

QString ProgramName(const QString& program, const QString& mediaType) {
    const QString file = QFileInfo(program).fileName();
    if (file.isEmpty()) return {};
    if (const QString name = NameIn(Entry(file + QStringLiteral(".desktop"))); !name.isEmpty())
        return name;
    for (const QString& entry : Registered(mediaType))
        if (const QByteArray bytes = Entry(entry); Starts(bytes, program)) return NameIn(bytes);
    return {};
}

QString DefaultProgramName(const QString& mediaType) {
    const QStringList lists = ListsOfDefaults();
    for (const char* group : {"[Default Applications]", "[Added Associations]"})
        if (const QString name = FirstName(Listed(lists, group, mediaType)); !name.isEmpty())
            return name;
    return FirstName(Registered(mediaType));
}
