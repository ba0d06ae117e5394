// All ports of one back end, as the form receives them.
#pragma once

#include "platform/clipboard.h"
#include "platform/clock.h"
#include "platform/dialogs.h"
#include "platform/file_watch.h"
#include "platform/files.h"
#include "platform/help_window.h"
#include "platform/html_view.h"
#include "platform/launch.h"
#include "platform/locale.h"
#include "platform/menu_bar.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/status_bar.h"
#include "platform/text_view.h"
#include "platform/timer.h"
#include "platform/update_check.h"
#include "platform/version_info.h"
#include "platform/window.h"

#include <memory>

struct Ports {
    Launch launch;
    std::unique_ptr<Files> files; // used by others
    std::unique_ptr<Window> window;
    std::unique_ptr<MenuBar> menuBar;
    std::unique_ptr<StatusBar> statusBar;
    std::unique_ptr<TextView> textView;
    std::unique_ptr<HtmlView> htmlView; // may be null: this front has no HTML engine
    std::unique_ptr<Dialogs> dialogs;
    std::unique_ptr<HelpWindow> helpWindow;
    std::unique_ptr<Clipboard> clipboard;
    std::unique_ptr<Timer> saveTimer, scrollTimer, changeTimer;
    std::unique_ptr<Shell> shell;
    std::unique_ptr<Registry> registry;
    std::unique_ptr<FileWatch> fileWatch;
    std::unique_ptr<VersionInfo> versionInfo;
    std::unique_ptr<UpdateCheck> updateCheck;
    std::unique_ptr<Locale> locale;
    std::unique_ptr<Clock> clock;
};
