#include "app/main_form.h"
#include "app/start_up.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/system/font_setup.h"
#include "platform/qt/system/plugin_paths.h"

#include <QApplication>

int main(int argc, char** argv) {
    // The bar is drawn by the program itself: asking the desktop for a global one costs start-up
    // time, and such a bar would read long menus in full.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    KeepPluginsFromProgramFolder();
    FontSetup fonts;
    const QApplication application(argc, argv);
    fonts.Finish();
    QGuiApplication::setDesktopFileName(QStringLiteral("norvaset"));
    MainForm form(MakeQtPorts(argc, argv));
    return Form_Load(form) ? QApplication::exec() : 0;
}
