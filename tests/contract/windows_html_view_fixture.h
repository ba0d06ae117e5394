// The HTML view of Windows on the stand-in for its control, in a window that stays unseen.
#pragma once

#include "platform/windows/html_view/win_html_view.h"
#include "tests/contract/stand_in/stand_in.h"

#include <doctest/doctest.h>

#include <memory>

inline void HandlePostedMessages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&message);
}

struct ShownView {
    static constexpr int Width = 400, Height = 300;

    StandIn engine;
    HWND parent;
    std::unique_ptr<WinHtmlView> view;
    std::vector<int> loaded;
    std::u16string url;
    std::vector<PageCommand> commands;
    std::vector<std::pair<std::u16string, std::u16string>> links; // url, path
    std::vector<std::vector<std::u16string>> drops;
    std::vector<std::pair<int, int>> keys;
    int gone = 0;

    ShownView()
        : parent(CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, Width, Height,
                                 nullptr, nullptr, nullptr, nullptr)),
          view(std::make_unique<WinHtmlView>(
              parent, [this](IUnknown** control) { return engine.Make(control); })) {
        view->SetBounds({0, 0, Width, Height});
        view->onLoaded = [this](int page, const std::u16string& address) {
            loaded.push_back(page);
            url = address;
        };
        view->onCommand = [this](PageCommand command) { commands.push_back(command); };
        view->onLink = [this](const std::u16string& to, const std::u16string& path) {
            links.emplace_back(to, path);
        };
        view->onFilesDropped = [this](const auto& paths) { drops.push_back(paths); };
        view->onZoomKey = [this](int key, int shift) { keys.emplace_back(key, shift); };
        view->onGone = [this] { ++gone; };
    }
    ~ShownView() {
        view.reset();
        DestroyWindow(parent);
    }

    StandInPage& Book() { return engine.pages[L"file:///C:/books/a.htm"]; }

    void Open(const std::wstring& text, int page = 1) {
        Book().text = text;
        Load(page);
    }
    void Load(int page = 1) {
        view->Navigate(u"C:\\books\\a.htm", page);
        engine.FinishLoading();
        HandlePostedMessages();
    }
};

// Lines "line 0", "line 1", ...
inline std::wstring Lines(int count) {
    std::wstring text;
    for (int i = 0; i < count; ++i)
        text += (i > 0 ? L"\nline " : L"line ") + std::to_wstring(i);
    return text;
}
