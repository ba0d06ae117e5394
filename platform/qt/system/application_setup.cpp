#include "platform/qt/system/application_setup.h"

#include "platform/qt/base/qt_text.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <fontconfig/fontconfig.h>

#include <system_error>

// The QApplication constructor adds the program's folder to the library paths and searches them for
// the platform plug-in. But it leaves out a path that was known before and has been removed: so the
// folder is made known by the environment variable, and then removed.
void ExcludeProgramFolderFromPluginPaths() {
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

std::u16string StartupActivation() {
    for (const char* variable : {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"})
        if (qEnvironmentVariableIsSet(variable)) return FromQt(qEnvironmentVariable(variable));
    return {};
}

FontconfigLoader::FontconfigLoader() {
    try {
        thread_ = std::thread([] { FcInit(); });
    } catch (const std::system_error&) {
        // Without a thread Qt loads the configuration when it needs it.
    }
}

void FontconfigLoader::Finish() {
    if (thread_.joinable()) thread_.join();
}
