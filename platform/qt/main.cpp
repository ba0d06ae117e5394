#include "app/main_form.h"
#include "app/start_up.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/system/application_setup.h"

#include <QApplication>

int main(int argc, char** argv) {
    // A global menu bar of the desktop costs start-up time to ask for, and would fetch long menus
    // as a whole.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    ExcludeProgramFolderFromPluginPaths();
    const std::u16string activation = StartupActivation();
    FontconfigLoader fontconfig;
    const QApplication application(argc, argv);
    fontconfig.Finish();
    QGuiApplication::setDesktopFileName(QStringLiteral("norvaset"));
    MainForm form(MakeQtPorts(argc, argv, activation));
    return Form_Load(form) ? QApplication::exec() : 0;
}
