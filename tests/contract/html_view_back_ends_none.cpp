// The HTML view of our own in a window that is only remembered, on real files.
#include "platform/posix/posix_files.h"
#include "tests/contract/html_view_contract.h"
#include "tests/unit/page_pane_bench.h"

namespace {
class NoneHtmlBench : public HtmlViewBench {
  public:
    NoneHtmlBench() : view_(files_) {
        view_.onKey = [this](int code, int shift) { keysDown.emplace_back(code, shift); };
    }
    HtmlView& View() override { return view_; }
    void ProcessEvents() override { view_.ProcessEvents(); }
    void Press(int keyCode, int shift) override { view_.Press(keyCode, shift); }
    void CloseWindow() override { // by an event after those that are on their way
        for (int i = 0; i < 10; ++i)
            ProcessEvents();
    }
    bool HasEngine() override { return false; }
    void KillEngine() override {}
    double PixelRatio() override { return 1; }

  private:
    PosixFiles files_;
    PagePaneBench view_;
};
} // namespace

std::vector<HtmlViewBackEnd> HtmlViewBackEnds() {
    return {{"none", [] { return std::make_unique<NoneHtmlBench>(); }}};
}
