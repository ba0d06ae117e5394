#include "platform/windows/win_ports.h"

#include "platform/shared/either_html_view.h"
#include "platform/windows/dialogs/win_dialogs.h"
#include "platform/windows/files/win_file_watch.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/help/win_help_window.h"
#include "platform/windows/html_pane/win_page_view.h"
#include "platform/windows/html_view/win_html_view.h"
#include "platform/windows/system/launch.h"
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/system/win_clock.h"
#include "platform/windows/system/win_locale.h"
#include "platform/windows/system/win_registry.h"
#include "platform/windows/system/win_shell.h"
#include "platform/windows/system/win_version_info.h"
#include "platform/windows/text_pane/win_text_view.h"
#include "platform/windows/web/win_update_check.h"
#include "platform/windows/window/win_menu_bar.h"
#include "platform/windows/window/win_status_bar.h"
#include "platform/windows/window/win_timer.h"
#include "platform/windows/window/win_window.h"

namespace {

std::unique_ptr<HtmlView> MakeHtmlView(WinWindow& window, const Files& files) {
    const auto report = [&window](int keyCode, int shift) { window.ReportKeyDown(keyCode, shift); };
    auto browser = std::make_unique<WinHtmlView>(window.ViewArea());
    auto own = std::make_unique<WinPageView>(window.ViewArea(), files);
    window.normalizeKey = [html = browser.get(), page = own.get()](MSG& message) {
        html->Normalize(message);
        page->Normalize(message);
    };
    window.translateKey = [html = browser.get()](const MSG& message) {
        return html->TranslateKey(message);
    };
    browser->onZoomKey = report;
    own->onZoomKey = report;
    return std::make_unique<EitherHtmlView>(std::move(browser), std::move(own));
}

} // namespace

Ports MakeWinPorts() {
    auto window = std::make_unique<WinWindow>();
    auto textView = std::make_unique<WinTextView>(window->ViewArea());
    window->onFilesDropped = [view = textView.get()](const std::vector<std::u16string>& paths) {
        if (view->onFilesDropped) view->onFilesDropped(paths);
    };
    Ports ports;
    ports.launch = ThisLaunch();
    ports.menuBar = std::make_unique<WinMenuBar>(
        window->Handle(), [view = textView.get()] { return view->ContextMenuPoint(); });
    ports.statusBar = std::make_unique<WinStatusBar>(window->Handle());
    ports.textView = std::move(textView);
    ports.files = std::make_unique<WinFiles>();
    ports.htmlView = MakeHtmlView(*window, *ports.files);
    ports.clipboard = std::make_unique<WinClipboard>();
    ports.dialogs = std::make_unique<WinDialogs>(window->Handle());
    ports.helpWindow = std::make_unique<WinHelpWindow>();
    ports.saveTimer = std::make_unique<WinTimer>(window->Handle());
    ports.scrollTimer = std::make_unique<WinTimer>(window->Handle());
    ports.changeTimer = std::make_unique<WinTimer>(window->Handle());
    ports.shell = std::make_unique<WinShell>();
    ports.registry = std::make_unique<WinRegistry>();
    ports.fileWatch = std::make_unique<WinFileWatch>();
    ports.versionInfo = std::make_unique<WinVersionInfo>();
    ports.updateCheck = std::make_unique<WinUpdateCheck>(
        [main = window.get()](MSG& message) { return main->PreTranslateMessage(message); });
    ports.locale = std::make_unique<WinLocale>();
    ports.clock = std::make_unique<WinClock>();
    ports.window = std::move(window);
    return ports;
}
