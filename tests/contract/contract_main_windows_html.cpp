// The contract tests of the HTML view on the Windows view, whose control is the stand-in. It reads
// pages of plain paragraphs; what else a page may be, windows_real_page_test.cpp tries where there
// is an engine.
#define DOCTEST_CONFIG_IMPLEMENT
#include "platform/windows/html_view/safety/addresses.h"
#include "platform/windows/html_view/win_html_view.h"
#include "tests/contract/html_view_contract.h"
#include "tests/contract/stand_in/stand_in.h"

#include <fstream>
#include <iterator>

namespace {

std::string Between(const std::string& text, const std::string& start, const std::string& end) {
    const std::size_t from = text.find(start);
    if (from == std::string::npos) return {};
    return text.substr(from + start.size(), text.find(end, from) - from - start.size());
}

void ReplaceAll(std::string& text, const std::string& what, const std::string& by) {
    for (std::size_t at = text.find(what); !what.empty() && at != std::string::npos;
         at = text.find(what, at + by.size()))
        text.replace(at, what.size(), by);
}

// Paragraphs and a title; nothing else is needed here.
StandInPage ReadPage(const std::wstring& url) {
    std::ifstream file(std::filesystem::path(PathOfUrl(url)), std::ios::binary);
    std::string source((std::istreambuf_iterator<char>(file)), {});
    std::string title = Between(source, "<title>", "</title>");
    ReplaceAll(source, title, "");
    ReplaceAll(source, Between(source, "<style>", "</style>"), "");
    ReplaceAll(title, "&amp;", "&");
    ReplaceAll(source, "\n", "");
    ReplaceAll(source, "</p>", "\n");
    std::string text;
    bool inTag = false;
    for (const char unit : source) {
        if (unit == '<') inTag = true;
        if (!inTag) text += unit;
        if (unit == '>') inTag = false;
    }
    while (text.ends_with('\n'))
        text.pop_back();
    StandInPage page;
    page.text = std::wstring(text.begin(), text.end());
    page.title = std::wstring(title.begin(), title.end());
    return page;
}

class StandInBench final : public HtmlViewBench {
  public:
    StandInBench() {
        engine_.readPage = ReadPage;
        view_.onZoomKey = [this](int code, int shift) { keysDown.emplace_back(code, shift); };
        view_.SetBounds({0, 0, 600, 400});
        view_.SetVisible(true);
    }
    ~StandInBench() override { CloseWindow(); }

    HtmlView& View() override { return view_; }
    void ProcessEvents() override {
        if (engine_.IsLoading()) engine_.FinishLoading();
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    void Press(int, int) override {}
    void CloseWindow() override { DestroyWindow(parent_); }
    void KillEngine() override { engine_.Quit(); }
    double PixelRatio() override { return 1; }

  private:
    StandIn engine_;
    HWND parent_ = CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 700, 600, nullptr,
                                   nullptr, nullptr, nullptr);
    WinHtmlView view_{parent_, [this](IUnknown** control) { return engine_.Make(control); }};
};

} // namespace

std::vector<HtmlViewBackEnd> HtmlViewBackEnds() {
    return {{"windows on the stand-in", [] { return std::make_unique<StandInBench>(); }}};
}

int main(int argc, char** argv) {
    doctest::Context context(argc, argv);
    context.addFilter("test-suite", plainPagesSuite);
    return context.run();
}
