// The contract tests of the HTML view on the real engine, offscreen.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/qt/html_view/qt_html_view.h"
#include "tests/contract/qt/html_bench_qt.h"

#include <doctest/doctest.h>

#include <QApplication>
#include <QLabel>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <sstream>

namespace {
int ParentOf(int process) {
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string stat((std::istreambuf_iterator<char>(file)), {});
    std::istringstream rest(stat.substr(std::min(stat.size(), stat.rfind(')') + 1)));
    char state = 0;
    int parent = 0;
    rest >> state >> parent;
    return parent;
}

class QtBench final : public QtHtmlBench {
  public:
    QtBench() { ShowIn(view_); }
    HtmlView& View() override { return view_; }

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
