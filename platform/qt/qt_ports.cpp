#include "platform/qt/qt_ports.h"

#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/dialogs/qt_dialogs.h"
#include "platform/qt/help/qt_help_window.h"
#include "platform/qt/html_view/qt_html_view.h"
#include "platform/qt/html_view/qt_page_view.h"
#include "platform/qt/system/command_line.h"
#include "platform/qt/system/qt_clipboard.h"
#include "platform/qt/system/qt_file_watch.h"
#include "platform/qt/system/qt_locale.h"
#include "platform/qt/system/qt_registry.h"
#include "platform/qt/system/qt_shell.h"
#include "platform/qt/system/qt_timer.h"
#include "platform/qt/system/qt_version_info.h"
#include "platform/qt/text_view/qt_text_view.h"
#include "platform/qt/web_fetch/qt_update_check.h"
#include "platform/qt/window/qt_menu_bar.h"
#include "platform/qt/window/qt_status_bar.h"
#include "platform/qt/window/qt_window.h"
#include "platform/shared/call_handler.h"
#include "platform/shared/either_html_view.h"
#include "product.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <algorithm>

namespace {

// A folder of the same installation prefix.
QString Installed(const QString& folder) {
    return QDir::cleanPath(QCoreApplication::applicationDirPath() + QStringLiteral("/../") +
                           folder);
}

Launch ThisLaunch(int argc, char** argv) {
    const QString userData = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    const std::string book =
        BookPathBytes(arguments, QFile::encodeName(QDir::currentPath()).toStdString());
    Launch launch;
    launch.programFolder = FromQt(QCoreApplication::applicationDirPath());
    launch.executableName = FromQt(QFileInfo(QCoreApplication::applicationFilePath()).fileName());
    launch.userDataFolder = FromQt(userData + QStringLiteral("/" PRODUCT_TITLE));
    launch.sharedFolder = FromQt(Installed(QStringLiteral("share/norvaset")));
    launch.commandLine = PathFromNative(book);
    launch.rootFolder = FromQt(QDir::homePath());
    launch.programsFolder = u"/usr/bin";
    return launch;
}

std::unique_ptr<HtmlView> MakeHtmlView(QtWindow& window, const Files& files) {
    auto own = std::make_unique<QtPageView>(window.ViewArea(), files);
    window.AddPageWidget(own->Widget());
    own->onZoomKey = [&window](int keyCode, int shift) { window.SendKeyDown(keyCode, shift); };
    return std::make_unique<EitherHtmlView>(std::make_unique<QtHtmlView>(window), std::move(own));
}

} // namespace

Ports MakeQtPorts(int argc, char** argv, const std::u16string& activation) {
    auto window = std::make_unique<QtWindow>();
    auto textView = std::make_unique<QtTextView>(window->ViewArea());
    window->onFilesDropped = [view = textView.get()](const auto& paths) {
        CallHandler(view->onFilesDropped, paths);
    };
    Ports ports;
    ports.launch = ThisLaunch(argc, argv);
    ports.menuBar = std::make_unique<QtMenuBar>(
        *window, [view = textView.get()] { return view->ContextMenuPoint(); });
    ports.statusBar = std::make_unique<QtStatusBar>(window->InnerArea());
    ports.textView = std::move(textView);
    ports.files = std::make_unique<PosixFiles>();
    ports.htmlView = MakeHtmlView(*window, *ports.files);
    ports.clipboard = std::make_unique<QtClipboard>();
    ports.dialogs = std::make_unique<QtDialogs>(window.get());
    ports.helpWindow = std::make_unique<QtHelpWindow>();
    ports.saveTimer = std::make_unique<QtTimer>();
    ports.scrollTimer = std::make_unique<QtTimer>();
    ports.changeTimer = std::make_unique<QtTimer>();
    ports.shell = std::make_unique<QtShell>(activation);
    ports.registry = std::make_unique<QtRegistry>();
    ports.fileWatch = std::make_unique<QtFileWatch>();
    ports.versionInfo = std::make_unique<QtVersionInfo>();
    ports.updateCheck = std::make_unique<QtUpdateCheck>(QStringList{
        QCoreApplication::applicationDirPath(), Installed(QStringLiteral("lib/norvaset"))});
    ports.locale = std::make_unique<QtLocale>();
    ports.clock = std::make_unique<PosixClock>();
    ports.window = std::move(window);
    return ports;
}
