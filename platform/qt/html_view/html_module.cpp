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
// Beside the program as built, or in the installation.
QString ModulePath() {
    const QString folder = QCoreApplication::applicationDirPath();
    for (const char* location : {"/libnorvaset-html.so", "/../lib/norvaset/libnorvaset-html.so"})
        if (QString path = folder + QLatin1String(location); QFile::exists(path)) return path;
    return {};
}

// Chromium's sandbox needs a user namespace, and aborts the program where none can be created. Root
// runs without the sandbox.
bool HasUserNamespaces() {
    if (geteuid() == 0) return true;
    const long child =
        syscall(SYS_clone, CLONE_NEWUSER | SIGCHLD, nullptr, nullptr, nullptr, nullptr);
    if (child == 0) _exit(0);
    return child > 0 && waitpid(static_cast<pid_t>(child), nullptr, 0) == child;
}

// The engine reads the format of the global share context even if it renders without OpenGL, and
// the attribute AA_ShareOpenGLContexts would cost every start-up 45 ms. So the context is provided
// here without create(), which loads no driver; it is never deleted, because the engine shuts down
// last.
void ProvideShareContext() {
    if (QOpenGLContext::globalShareContext()) return;
    qt_gl_set_global_share_context(new QOpenGLContext);
}
} // namespace

bool IsHtmlModuleAvailable() {
    static const bool canSandbox = HasUserNamespaces();
    return canSandbox && !ModulePath().isEmpty();
}

MakeHtmlView* LoadHtmlModule() {
    if (!IsHtmlModuleAvailable()) return nullptr;
    ProvideShareContext();
    QLibrary module(ModulePath());
    const auto make = module.resolve(makeHtmlViewName);
    if (!make) qWarning("%s", qUtf8Printable(module.errorString()));
    return reinterpret_cast<MakeHtmlView*>(make);
}
