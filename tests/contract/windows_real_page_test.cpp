// The system's own browser control, where there is one: on Windows, not under Wine. A page with
// everything that must not happen in it stands in a folder of the test's own.
#include <winsock2.h>

#include "tests/contract/windows_html_view_fixture.h"
#include "tests/contract/windows_listener.h"

#include <filesystem>
#include <fstream>

namespace {

constexpr ULONGLONG maxLoadTime = 20000; // milliseconds

bool HasEngine() {
    const HMODULE engine = LoadLibraryExW(L"mshtml.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (engine) FreeLibrary(engine);
    return engine != nullptr;
}

void HandleMessagesUntil(const std::function<bool()>& done) {
    const ULONGLONG end = GetTickCount64() + maxLoadTime;
    while (!done() && GetTickCount64() < end) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 50, QS_ALLINPUT);
        HandlePostedMessages();
    }
}

struct Folder {
    std::filesystem::path path = std::filesystem::temp_directory_path() / L"norvaset real page #1%";
    Folder() { std::filesystem::create_directories(path); }
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    std::u16string Write(const wchar_t* name, const std::string& text) const {
        std::ofstream(path / name, std::ios::binary) << text;
        return (path / name).u16string();
    }
};

struct RealView {
    HWND parent;
    WinHtmlView view;
    std::vector<int> loaded;
    std::vector<std::u16string> links;

    RealView()
        : parent(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 640, 480, nullptr,
                                 nullptr, nullptr, nullptr)),
          view(parent) {
        ShowWindow(parent, SW_SHOWNOACTIVATE);
        view.SetBounds({0, 0, 600, 400});
        view.SetVisible(true);
        view.onLoaded = [this](int page, const std::u16string&) { loaded.push_back(page); };
        view.onLink = [this](const std::u16string& url, const std::u16string&) {
            links.push_back(url);
        };
    }
    void Load(const std::u16string& path, int page) {
        view.Navigate(path, page);
        HandleMessagesUntil([&] { return !loaded.empty() && loaded.back() == page; });
    }
};

struct OleForTest {
    OleForTest() { OleInitialize(nullptr); }
    ~OleForTest() { OleUninitialize(); }
};

std::string Paragraphs(int count) {
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "<p>line " + std::to_string(i) + "</p>\n";
    return text;
}

} // namespace

TEST_CASE("real page: a missing engine leaves a text and the failure values") {
    if (HasEngine()) return;
    const OleForTest ole;
    const Folder folder;
    RealView real;
    real.view.Navigate(folder.Write(L"a.htm", "<p>text"), 1);
    HandlePostedMessages();
    CHECK(real.loaded.empty());
    CHECK_FALSE(real.view.HasBody());
    CHECK(real.view.TextsOf({{0, 4}}).empty());
    real.view.Clear();
}

TEST_CASE("real page: is loaded, read, marked, searched, scrolled and zoomed") {
    if (!HasEngine()) {
        MESSAGE("skipped: no browser engine on this system");
        return;
    }
    const OleForTest ole;
    const Folder folder;
    for (const char* start : {"<!DOCTYPE html><html><head>", "<html><head>",
                              "<!DOCTYPE html><html><head>"
                              "<meta http-equiv=X-UA-Compatible content='IE=edge'>"}) {
        CAPTURE(start);
        RealView real;
        real.Load(folder.Write(L"a b.htm", start + ("<meta charset=windows-1251><title>A &amp; "
                                                    "b</title></head><body>" +
                                                    Paragraphs(300) + "</body></html>")),
                  1);
        REQUIRE(real.loaded.size() == 1);
        CHECK(real.view.Title() == u"A & b");
        CHECK(real.view.Charset() == "windows-1251");
        CHECK(real.view.HasText());
        real.view.ScrollTo(0, 1200);
        CHECK(real.view.ScrollTop() == 1200);
        real.view.ScrollTo(0, 0);
        const auto match = real.view.FindAfterSelection(u"line 150", {.wholeWord = true});
        REQUIRE(match);
        CHECK(real.view.TextsOf({match->span}) == std::vector<std::u16string>{u"line 150"});
        real.view.Select(match->span);
        CHECK(real.view.Selection().span == match->span);
        CHECK(real.view.SelectedText() == u"line 150");
        CHECK(real.view.Selection().top >= 0);
        CHECK(real.view.Selection().top < real.view.ViewHeight());
        real.view.ScrollSpanToTop(match->span);
        CHECK(std::abs(real.view.Selection().top - real.view.TopMargin()) <= 1);
        CHECK(std::abs(real.view.StartAtTop() - match->span.start) <= 10);
        CHECK_FALSE(real.view.FindAfterSelection(u"line 149", {}));
        const int before = real.view.ViewHeight();
        const TextPos top = real.view.StartAtTop();
        real.view.SendZoomKey(true);
        HandlePostedMessages();
        CHECK(real.view.ViewHeight() < before);
        CHECK(real.view.StartAtTop() == top);
    }
}

TEST_CASE("real page: runs nothing, fetches nothing and goes nowhere") {
    if (!HasEngine()) {
        MESSAGE("skipped: no browser engine on this system");
        return;
    }
    const OleForTest ole;
    const Folder folder;
    const Listener listener;
    const std::string server = listener.Address();
    folder.Write(L"other.htm", "<title>Other</title><p>other");
    RealView real;
    real.Load(folder.Write(L"bad.htm", "<!DOCTYPE html><html><head><title>Still</title>"
                                       "<meta http-equiv=refresh content='0;url=other.htm'>"
                                       "<link rel=stylesheet href='" +
                                           server +
                                           "b.css'><script>document.title='run'</script></head>"
                                           "<body onload=\"document.title='run'\" background='" +
                                           server + "c.png'><img src='" + server +
                                           "a.png'><iframe src='" + server +
                                           "f.htm'></iframe><script src='" + server +
                                           "s.js'></script><bgsound src='" + server +
                                           "d.wav'><p>text</p></body></html>"),
              1);
    REQUIRE(real.loaded.size() == 1);
    HandleMessagesUntil([end = GetTickCount64() + 1000] { return GetTickCount64() > end; });
    CHECK(real.view.Title() == u"Still");
    CHECK(real.loaded.size() == 1);
    CHECK(real.links.empty());
    CHECK_FALSE(listener.WasContacted());
}
