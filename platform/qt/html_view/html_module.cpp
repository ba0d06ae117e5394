#include "platform/qt/html_view/html_module.h"

#include <QCoreApplication>
#include <QFile>
#include <QLibrary>
#include <QOpenGLContext>

#include <sched.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

QT_BEGIN_NAMESPACE
extern Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext*);
QT_END_NAMESPACE

namespace {
// Beside the program, as it is built, or where it is installed.
QString ModulePath() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const char* place : {"/libnorvaset-html.so", "/../lib/norvaset/libnorvaset-html.so"})
        if (const QString path = folder + QLatin1String(place); QFile::exists(path)) return path;
    return {};
}

// The engine shuts its processes in with a user namespace, and ends the whole program where the
// system gives none. Root needs none, having no sandbox at all.
bool HasUserNamespaces() {
    if (geteuid() == 0) return true;
    const long child =
        syscall(SYS_clone, CLONE_NEWUSER | SIGCHLD, nullptr, nullptr, nullptr, nullptr);
    if (child == 0) _exit(0);
    return child > 0 && waitpid(static_cast<pid_t>(child), nullptr, 0) == child;
}

// The engine asks this context for its format, even where it draws without OpenGL; the attribute
// that would make one at start-up costs every start some 45 ms. It is never created, so no driver
// is loaded; and never deleted, as the engine ends after all else.
void ProvideShareContext() {
    if (QOpenGLContext::globalShareContext()) return;
    qt_gl_set_global_share_context(new QOpenGLContext);
}
} // namespace

bool HtmlModuleCanLoad() {
    static const bool guarded = HasUserNamespaces();
    return guarded && !ModulePath().isEmpty();
}

MakeHtmlView* LoadHtmlModule() {
    if (!HtmlModuleCanLoad()) return nullptr;
    ProvideShareContext();
    QLibrary module(ModulePath());
    const auto make = module.resolve(makeHtmlViewName);
    if (!make) qWarning("%s", qUtf8Printable(module.errorString()));
    return reinterpret_cast<MakeHtmlView*>(make);
}
