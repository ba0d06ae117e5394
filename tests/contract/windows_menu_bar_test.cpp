// The menus on Windows: real ones, opened and chosen from by messages.
#include "platform/windows/window/win_menu_bar.h"
#include "platform/windows/window/win_timer.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/unit/allocations.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace {

MenuArray Array(std::initializer_list<const char16_t*> captions) {
    MenuArray array;
    for (const char16_t* caption : captions)
        array.items.emplace_back().caption = caption;
    return array;
}

struct NativeItem {
    std::wstring text;
    UINT type = 0, state = 0;
    HMENU submenu = nullptr;
};

NativeItem ItemAt(HMENU menu, int position) {
    wchar_t text[512] = {};
    MENUITEMINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_STRING | MIIM_SUBMENU;
    info.dwTypeData = text;
    info.cch = 512;
    GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info);
    return {text, info.fType, info.fState, info.hSubMenu};
}

bool InMenu() {
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof thread;
    GetGUIThreadInfo(GetCurrentThreadId(), &thread);
    return (thread.flags & GUI_INMENUMODE) != 0;
}

struct Bench {
    WinWindow window;
    std::vector<std::string> log;
    WinMenuBar bar{window.Handle(), [] { return POINT{120, 130}; }};

    void Attach(const std::vector<MenuArray*>& top) {
        MenuEvents events;
        events.onOpening = [this](MenuArray& array) { log.push_back("opening " + array.name); };
        events.onClick = [this](MenuArray& array, int index) {
            log.push_back(array.name + ' ' + std::to_string(index));
        };
        bar.Attach(top, events);
        window.Open();
    }
    HMENU Bar() const { return GetMenu(window.Handle()); }
    // As the system does before it shows a menu.
    HMENU Opened(int position) const {
        const HMENU menu = GetSubMenu(Bar(), position);
        Opening(menu);
        return menu;
    }
    void Opening(HMENU menu) const {
        SendMessageW(window.Handle(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    }
    void Choose(HMENU menu, int position) const {
        SendMessageW(window.Handle(), WM_MENUCOMMAND, static_cast<WPARAM>(position),
                     reinterpret_cast<LPARAM>(menu));
    }
    // Handles messages, those of an open menu too, while keys are pressed in it one after another.
    void PressInMenu(std::vector<WPARAM> keys) {
        WinTimer typist(nullptr);
        std::size_t next = 0;
        typist.Start(30, [&] {
            if (InMenu() && next < keys.size())
                PostMessageW(window.Handle(), WM_KEYDOWN, keys[next++], 0);
        });
        CHECK(Becomes([&] { return next == keys.size() && !InMenu(); }));
    }
};

} // namespace

TEST_CASE("windows menu bar: a menu shows what the model says when it opens") {
    Bench bench;
    MenuArray file = Array({u"&File"}), list = Array({u"old"}), line = Array({u"-"});
    MenuArray remove = Array({u"&Remove"}), removeList = Array({u"x"});
    remove.children = {&removeList};
    file.children = {&list, &line, &remove};
    bench.Attach({&file});
    CHECK(GetMenuItemCount(GetSubMenu(bench.Bar(), 0)) == 0); // nothing before it is needed

    list = Array({u"Heading", u"a && b & c\tnote", u"gone", u"grey", u"Слово 書"});
    list.name = "list";
    list[0].heading = list[1].literal = list[1].checked = list[4].checked = list[4].radio = true;
    list[2].visible = list[3].enabled = false;
    list[4].isDefault = true;
    const HMENU menu = bench.Opened(0);
    REQUIRE(GetMenuItemCount(menu) == 6);
    CHECK(ItemAt(menu, 0).state == (MFS_DEFAULT | MF_DISABLED));
    CHECK(ItemAt(menu, 1).text == L"a &&&& b && c\tnote");
    CHECK(ItemAt(menu, 1).state == MFS_CHECKED);
    CHECK(ItemAt(menu, 2).state == MFS_GRAYED);
    CHECK(ItemAt(menu, 3).text == L"Слово 書");
    CHECK(ItemAt(menu, 3).type == MFT_RADIOCHECK);
    CHECK(ItemAt(menu, 3).state == (MFS_CHECKED | MFS_DEFAULT));
    CHECK(ItemAt(menu, 4).type == MFT_SEPARATOR);
    const HMENU submenu = ItemAt(menu, 5).submenu;
    REQUIRE(submenu != nullptr);
    bench.Opening(submenu);
    CHECK(ItemAt(submenu, 0).text == L"x");

    bench.log.clear();
    bench.Choose(menu, 3); // of the native items; the hidden one has none
    bench.Choose(menu, 0); // a heading
    bench.Choose(menu, 2); // grey
    bench.Choose(menu, 99);
    CHECK(bench.log == std::vector<std::string>{"list 4"});
}

TEST_CASE("windows menu bar: only a top-level menu tells that it opens") {
    Bench bench;
    MenuArray file = Array({u"&File"}), remove = Array({u"&Remove"}), list = Array({u"x"});
    file.name = "file";
    remove.children = {&list};
    file.children = {&remove};
    bench.Attach({&file});
    const HMENU menu = bench.Opened(0);
    bench.Opening(GetSubMenu(menu, 0));
    CHECK(bench.log == std::vector<std::string>{"opening file"});
}

TEST_CASE("windows menu bar: the titles follow the model") {
    Bench bench;
    MenuArray file = Array({u"&File"}), edit = Array({u"&Edit"}), help = Array({u"&Help"});
    bench.Attach({&file, &edit, &help});
    REQUIRE(GetMenuItemCount(bench.Bar()) == 3);
    edit[0].visible = false;
    help[0].enabled = false;
    bench.bar.Refresh();
    REQUIRE(GetMenuItemCount(bench.Bar()) == 2);
    CHECK(ItemAt(bench.Bar(), 1).text == L"&Help");
    CHECK((ItemAt(bench.Bar(), 1).state & MFS_GRAYED) == MFS_GRAYED);
    edit[0].visible = help[0].enabled = true;
    edit[0].caption = u"E&dit";
    bench.bar.Refresh();
    REQUIRE(GetMenuItemCount(bench.Bar()) == 3);
    CHECK(ItemAt(bench.Bar(), 1).text == L"E&dit");
    CHECK(ItemAt(bench.Bar(), 2).state == MFS_ENABLED);
}

TEST_CASE("windows menu bar: every item of a long list can be chosen") {
    Bench bench;
    MenuArray file = Array({u"&File"}), list;
    list.name = "list";
    for (int i = 0; i < 70'000; ++i) // more than there are numbers of native commands
        list.items.emplace_back().caption = u"a book of a long name";
    file.children = {&list};
    bench.Attach({&file});
    HMENU menu = nullptr;
    const auto costOfOpening = [&](std::size_t items) {
        list.items.resize(items);
        const AllocationCounter counter;
        menu = bench.Opened(0);
        return counter.Counts().count;
    };
    const std::size_t whole = costOfOpening(5000), half = costOfOpening(2500);
    CHECK(half >= 2500); // a caption each
    CHECK(whole <= 2 * half + 100);
    REQUIRE(GetMenuItemCount(menu) == 2500);
    bench.log.clear();
    bench.Choose(menu, 2499);
    CHECK(bench.log == std::vector<std::string>{"list 2499"});
    list.items.resize(10);
    bench.Choose(menu, 2499); // gone since the menu opened
    CHECK(bench.log.size() == 1);
}

TEST_CASE("windows menu bar: a menu shown by a command opens after it, and its keys choose") {
    Bench bench;
    MenuArray file = Array({u"&File"}), marks = Array({u"one", u"two", u"three"});
    file.name = "file";
    marks.name = "marks";
    file.children = {&marks};
    bench.Attach({&file});
    bench.bar.ShowMenu(file);
    bench.bar.ShowMenu(file); // once is enough
    CHECK(bench.log.empty());
    bench.PressInMenu({VK_DOWN, VK_RETURN});
    CHECK(Becomes([&] { return bench.log.size() == 2; }));
    CHECK(bench.log == std::vector<std::string>{"opening file", "marks 1"});
}

TEST_CASE("windows menu bar: one Escape leaves a menu shown by a command") {
    Bench bench;
    MenuArray file = Array({u"&File"}), edit = Array({u"&Edit"}), list = Array({u"one", u"two"});
    MenuArray remove = Array({u"&Remove"}), removeList = Array({u"x"});
    remove.children = {&removeList};
    file.children = edit.children = {&remove, &list};
    bench.Attach({&file, &edit});
    bench.bar.ShowMenu(file);
    bench.PressInMenu({VK_DOWN, VK_ESCAPE});
    bench.bar.ShowMenu(file);
    bench.PressInMenu({VK_LEFT, VK_RIGHT, VK_ESCAPE}); // the menu beside it, and back
}

TEST_CASE("windows menu bar: a context menu opens after its request and tells what was chosen") {
    Bench bench;
    MenuArray file = Array({u"&File"}), heading = Array({u"Go to:", u"-"});
    MenuArray marks = Array({u"one", u"two"});
    marks.name = "marks";
    heading[0].heading = true;
    bench.Attach({&file});
    bench.bar.ShowContextMenu({&heading, &marks});
    CHECK_FALSE(InMenu());
    bench.PressInMenu({VK_UP, VK_RETURN});
    CHECK(Becomes([&] { return !bench.log.empty(); }));
    CHECK(bench.log == std::vector<std::string>{"marks 1"});
}

TEST_CASE("windows menu bar: no menu opens over a dialog, nor a grey one") {
    Bench bench;
    MenuArray file = Array({u"&File"}), list = Array({u"one"});
    file.children = {&list};
    bench.Attach({&file});
    EnableWindow(bench.window.Handle(), FALSE);
    bench.bar.ShowMenu(file);
    bench.bar.ShowContextMenu({&list});
    bool handled = false;
    WinTimer after(nullptr);
    after.Start(30, [&] { handled = true; });
    CHECK(Becomes([&] { return handled; }));
    EnableWindow(bench.window.Handle(), TRUE);
    file[0].enabled = false;
    bench.bar.Refresh();
    bench.bar.ShowMenu(file);
    handled = false;
    CHECK(Becomes([&] { return handled; }));
    CHECK(bench.log.empty());
}

TEST_CASE("windows menu bar: the key of an access letter chooses, whatever it types") {
    Bench bench;
    MenuArray file = Array({u"&File"}), edit = Array({u"&Edit"}), list = Array({u"one", u"t&wo"});
    file.children = edit.children = {&list};
    bench.Attach({&file, &edit});
    const auto answer = [&](wchar_t character, HMENU menu) {
        return SendMessageW(bench.window.Handle(), WM_MENUCHAR, MAKEWPARAM(character, MF_POPUP),
                            reinterpret_cast<LPARAM>(menu));
    };
    CHECK(answer(L'e', bench.Bar()) == MAKELRESULT(1, MNC_EXECUTE));
    CHECK(answer(L'w', bench.Opened(0)) == MAKELRESULT(1, MNC_EXECUTE));
    CHECK(HIWORD(answer(L'q', bench.Bar())) == MNC_IGNORE);
}

TEST_CASE("windows menu bar: access keys are read from captions") {
    MenuItem item;
    for (const auto& [caption, key] :
         {std::pair(u"&File", L'F'), std::pair(u"a && &b", L'B'), std::pair(u"none", L'\0'),
          std::pair(u"end &", L'\0'), std::pair(u"&слово", L'С')}) {
        item.caption = caption;
        CHECK(AccessKey(item) == key);
    }
    item.literal = true;
    item.caption = u"a &path";
    CHECK(AccessKey(item) == 0);
}
