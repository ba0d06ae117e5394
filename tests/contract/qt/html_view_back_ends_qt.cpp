// Our own view of pages, which needs no engine.
#include "platform/posix/posix_files.h"
#include "platform/qt/html_view/qt_page_view.h"
#include "tests/contract/qt/html_bench_qt.h"

namespace {
class OwnHtmlBench final : public QtHtmlBench {
  public:
    OwnHtmlBench() {
        window_.AddPageWidget(view_.Widget());
        view_.onZoomKey = [this](int code, int shift) { window_.SendKeyDown(code, shift); };
        ShowIn(view_);
    }
    HtmlView& View() override { return view_; }
    bool HasEngine() override { return false; }
    void KillEngine() override {}
    void CloseWindow() override { // by an event after those that are on their way
        QCoreApplication::processEvents();
        QtHtmlBench::CloseWindow();
    }

  private:
    PosixFiles files_;
    QtPageView view_{window_.ViewArea(), files_};
};
} // namespace

std::vector<HtmlViewBackEnd> HtmlViewBackEnds() {
    return {{"own", [] { return std::make_unique<OwnHtmlBench>(); }}};
}
