// The contract tests of the HTML view on the real engine, offscreen.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/qt/html_view/qt_html_view.h"
#include "platform/qt/window/qt_window.h"
#include "tests/contract/html_view_contract.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QWindow>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

namespace {
int QtKey(int code) {
    switch (code) {
    case 9: return Qt::Key_Tab;
    case 13: return Qt::Key_Return;
    case 34: return Qt::Key_PageDown;
    case PlusKey: return Qt::Key_Plus;
    default: return code; // letters and digits
    }
}

int ParentOf(int process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string stat((std::istreambuf_iterator<char>(file)), {});
    std::istringstream rest(stat.substr(std::min(stat.size(), stat.rfind(')') + 1)));
    char state = 0;
    int parent = 0;
    rest >> state >> parent;
    return parent;
}

class QtBench final : public HtmlViewBench {
  public:
    QtBench() {
        WindowEvents events;
        events.onKeyDown = [this](int code, int shift) { keysDown.emplace_back(code, shift); };
        window_.SetEvents(std::move(events));
        window_.Open();
        window_.resize(700, 600);
        window_.SetPanelBounds({0, 0, 604, 404});
        view_.SetBounds({0, 0, 600, 400});
        view_.SetVisible(true);
        view_.FocusView();
    }

    HtmlView& View() override { return view_; }
    void LetEventsCome() override {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents, 10);
    }
    void CloseWindow() override { window_.Close(); }
    double PixelRatio() override { return window_.devicePixelRatioF(); }

    void Press(int keyCode, int shift) override {
        const auto modifiers = shift & CtrlKey ? Qt::ControlModifier : Qt::NoModifier;
        const QString text = keyCode == 13 ? QStringLiteral("\r") : QString();
        for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, QtKey(keyCode), modifiers, text);
            QCoreApplication::sendEvent(window_.windowHandle(), &event);
        }
    }

    void KillEngine() override { SendToEngine(SIGKILL); }
    void HangEngine(bool hangs) override { SendToEngine(hangs ? SIGSTOP : SIGCONT); }
    bool SaysHang() override {
        const auto labels = window_.findChildren<QLabel*>();
        return std::ranges::any_of(labels, [](const QLabel* label) {
            return label->isVisible() && label->text().contains(QLatin1String("does not answer"));
        });
    }

  private:
    // The renderers, which are children of the engine's zygote processes.
    static void SendToEngine(int signal) {
        const int self = static_cast<int>(QCoreApplication::applicationPid());
        for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
            const int process = std::atoi(entry.path().filename().c_str());
            const int parent = process > 0 ? ParentOf(process) : 0;
            if (parent > 0 && parent != self && ParentOf(parent) == self) kill(process, signal);
        }
    }

    QtWindow window_;
    QtHtmlView view_{window_};
};
} // namespace

std::vector<HtmlViewBackEnd> HtmlViewBackEnds() {
    return {{"qt", [] { return std::make_unique<QtBench>(); }}};
}

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    return doctest::Context(argc, argv).run();
}
