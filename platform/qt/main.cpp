#include "app/main_form.h"
#include "app/saving_events.h"
#include "app/start_up.h"
#include "platform/qt/color_scheme/color_scheme.h"
#include "platform/qt/qt_ports.h"
#include "platform/qt/system/application_setup.h"
#include "platform/qt/system/command_line.h"
#include "platform/qt/system/guarded_application.h"

#include <QApplication>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace {
MainForm* runningForm = nullptr;

// Qt calls exit() when the X server closes the connection, which is all that a program notices of
// the end of some sessions. main() has not returned then, and its objects are alive.
void SaveAtExit() {
    if (runningForm) SaveAfterDisplayLoss(*runningForm);
}

int Run(MainForm& form) {
    runningForm = &form;
    std::atexit(SaveAtExit);
    const int result = QApplication::exec();
    runningForm = nullptr;
    return result;
}
} // namespace

int main(int argc, char** argv) {
    // Before anything that needs a display.
    if (const auto answer = OptionAnswer({argv + std::min(argc, 1), argv + argc}))
        return std::fputs(answer->c_str(), stdout) < 0 || std::fflush(stdout) != 0;
    // A global menu bar of the desktop costs start-up time to ask for, and would fetch long menus
    // as a whole.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeMenuBar);
    ExcludeProgramFolderFromPluginPaths();
    const std::u16string activation = StartupActivation();
    FontconfigLoader fontconfig;
    const GuardedApplication application(argc, argv);
    fontconfig.Finish();
    // In a Flatpak the desktop entry is called after the application's id.
    QGuiApplication::setDesktopFileName(
        qEnvironmentVariable("FLATPAK_ID", QStringLiteral("norvaset")));
    const ColorScheme colorScheme;
    MainForm form(MakeQtPorts(argc, argv, activation));
    return Form_Load(form) ? Run(form) : 0;
}
