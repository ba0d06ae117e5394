#include "platform/qt/system/plugin_paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

// The application object adds the program's folder to the paths, and looks for the first plug-ins
// with it. But of the paths known before, it takes off those that were removed from them.
void KeepPluginsFromProgramFolder() {
    constexpr const char* variable = "QT_PLUGIN_PATH";
    const QString folder =
        QFileInfo(QFile::symLinkTarget(QStringLiteral("/proc/self/exe"))).canonicalPath();
    const bool wasSet = qEnvironmentVariableIsSet(variable);
    const QByteArray before = qgetenv(variable);
    QByteArray known = QFile::encodeName(folder);
    if (!before.isEmpty()) known += QDir::listSeparator().toLatin1() + before;
    qputenv(variable, known);
    QStringList paths = QCoreApplication::libraryPaths();
    if (wasSet)
        qputenv(variable, before);
    else
        qunsetenv(variable);
    paths.removeAll(folder);
    QCoreApplication::setLibraryPaths(paths);
}
