// The text view as a client of UI Automation sees it, through the system's own library.
#include "platform/windows/base/com_values.h"
#include "platform/windows/base/system_library.h"
#include "platform/windows/base/wine.h"
#include "platform/windows/text_pane/win_text_view.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/contract/windows_text_view_bench.h"

#include <doctest/doctest.h>

#include <ole2.h>

#include <atomic>
#include <memory>
#include <thread>

namespace {
struct OleOfTest {
    OleOfTest() { OleInitialize(nullptr); }
    ~OleOfTest() { OleUninitialize(); }
    OleOfTest(const OleOfTest&) = delete;
    OleOfTest& operator=(const OleOfTest&) = delete;
};

// The library's functions for clients, by handles.
struct Client {
    HRESULT(WINAPI* nodeOf)(HWND, void** node) = nullptr;
    HRESULT(WINAPI* valueOf)(void* node, PROPERTYID, VARIANT*) = nullptr;
    HRESULT(WINAPI* patternOf)(void* node, PATTERNID, void** pattern) = nullptr;
    HRESULT(WINAPI* documentOf)(void* pattern, void** range) = nullptr;
    HRESULT(WINAPI* textOf)(void* range, int most, BSTR*) = nullptr;
    BOOL(WINAPI* releaseNode)(void*) = nullptr;
    BOOL(WINAPI* releasePattern)(void*) = nullptr;
    BOOL(WINAPI* releaseRange)(void*) = nullptr;

    Client() {
        const HMODULE library = LoadSystemLibrary(L"uiautomationcore.dll");
        FindFunction(library, "UiaNodeFromHandle", nodeOf);
        FindFunction(library, "UiaGetPropertyValue", valueOf);
        FindFunction(library, "UiaGetPatternProvider", patternOf);
        FindFunction(library, "TextPattern_get_DocumentRange", documentOf);
        FindFunction(library, "TextRange_GetText", textOf);
        FindFunction(library, "UiaNodeRelease", releaseNode);
        FindFunction(library, "UiaPatternRelease", releasePattern);
        FindFunction(library, "UiaTextRangeRelease", releaseRange);
    }
};

struct Read {
    std::wstring name, text;
    LONG type = 0;
    std::atomic<bool> done = false;
};

void ReadName(const Client& client, void* node, Read& read) {
    Variant name, type;
    client.valueOf(node, uia::name, name.Put());
    client.valueOf(node, uia::controlType, type.Put());
    read.name = TextOf(&name.Get());
    read.type = V_VT(&type.Get()) == VT_I4 ? V_I4(&type.Get()) : 0;
}

void ReadText(const Client& client, void* node, Read& read) {
    void *pattern = nullptr, *range = nullptr;
    Bstr text;
    if (client.patternOf(node, uia::textPattern, &pattern) != S_OK) return;
    if (client.documentOf(pattern, &range) == S_OK) {
        client.textOf(range, -1, text.Put());
        read.text = text.View();
        client.releaseRange(range);
    }
    client.releasePattern(pattern);
}

// A client that asks the thread which it is on waits for itself.
void StartReading(HWND window, std::shared_ptr<Read> read) {
    std::thread([window, read] {
        CoInitializeEx(nullptr, COINIT_MULTITHREADED);
        const Client client;
        void* node = nullptr;
        if (client.nodeOf && client.nodeOf(window, &node) == S_OK) {
            ReadName(client, node, *read);
            if (!RunsUnderWine())
                ReadText(client, node, *read); // Wine ends programs that ask for it
            client.releaseNode(node);
        }
        CoUninitialize();
        read->done = true;
    }).detach();
}
} // namespace

TEST_CASE("windows text accessibility: a client reads it, as far as the system has one") {
    const OleOfTest ole;
    WinTextView view(HiddenWindow());
    view.SetName(u"The title of a book");
    view.LoadPlainText(u"A line of it");
    const auto read = std::make_shared<Read>();
    StartReading(view.Handle(), read);
    REQUIRE(Becomes([&] { return read->done.load(); }));
    CHECK(read->name == L"The title of a book");
    CHECK(read->type == uia::document);
    if (RunsUnderWine())
        MESSAGE("the text of a client: skipped, Wine's have no text pattern");
    else
        CHECK(read->text == L"A line of it");
    view.Select(2, 4); // tells those who listen
    view.LoadPlainText(u"Another");
}
