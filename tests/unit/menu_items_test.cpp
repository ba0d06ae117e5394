#include "app/menu_tree.h"
#include "common/key_names.h"
#include "common/keys.h"
#include "common/menu_items.h"
#include "common/utf.h"
#include "tests/unit/golden.h"

#include <doctest/doctest.h>

TEST_CASE("shortcuts: a key and its shift mask become its display text") {
    const std::pair<const char16_t*, const char16_t*> table[] = {
        {u"70.2", u"Ctrl+F"},
        {u"112.0", u"F1"},
        {u"17.2", u"Ctrl"},
        {u"107.6", u"Alt+Ctrl+Num +"},
        {u"16.1", u"Shift"},
        {u"18.4", u"Alt"},
        {u"65.7", u"Alt+Ctrl+Shift+A"},
        {u"48.0", u"0"},
        {u"105.0", u"Num 9"},
        {u"123.4", u"Alt+F12"},
        {u"222.1", u"Shift+Apostrophe"},
        {u"3.0", u"Cancel"},
        {u"93.0", u"App"},
        {u"46.2", u"Ctrl+Del"},
    };
    for (const auto& [keyAndShift, text] : table)
        CHECK(GetShortcutText(keyAndShift) == text);
    CHECK(ShortcutText({'F', CtrlKey}) == u"Ctrl+F");
    CHECK(ShortcutText({F1Key, 0}) == u"F1");
}

TEST_CASE("shortcuts: the text of a caption is replaced, never appended") {
    MenuItem item;
    item.caption = u"Set &TXT Editor...\t[notepad.exe]";
    SetMenuShortcutText(item, u"");
    CHECK(item.caption == u"Set &TXT Editor...");
    SetMenuShortcutText(item, u"F1");
    SetMenuShortcutText(item, u"F2");
    CHECK(item.caption == u"Set &TXT Editor...\tF2");
    CHECK(BaseCaption(item) == u"Set &TXT Editor...");
    CHECK(PlainCaption(item) == u"Set TXT Editor...");
    CHECK(DialogTitle(item) == u"Set TXT Editor");
}

TEST_CASE("menu items: an added item takes what it is given") {
    MenuArray array{"list", {MenuItem{}}, {}};
    const MenuItem& item = AddMenuItem(array, u"Find",
                                       {.shortcut = u"70.2",
                                        .tag = u"tag",
                                        .helpContextId = 7,
                                        .checked = true,
                                        .visible = false});
    CHECK(array.Count() == 2);
    CHECK(item.caption == u"Find\tCtrl+F");
    CHECK(item.tag == u"tag");
    CHECK(item.helpContextId == 7);
    CHECK(item.checked);
    CHECK_FALSE(item.visible);
}

TEST_CASE("menu items: an added item is literal when the first of its array is") {
    MenuArray array{"list", {}, {}};
    AddMenuItem(array, u"&One");
    CHECK_FALSE(array[0].literal);
    array[0].literal = true;
    AddMenuItem(array, u"&Two");
    CHECK(array[1].literal);
    array.items.clear();
    AddMenuItem(array, u"&One");
    CHECK_FALSE(array[0].literal);
}

TEST_CASE("menu items: a radio group has one checked item") {
    MenuArray group{"group", {MenuItem{}, MenuItem{}, MenuItem{}}, {}};
    CheckRadioItem(2, group);
    CheckRadioItem(0, group);
    CheckRadioItem(1, group);
    CHECK_FALSE(group[0].checked);
    CHECK(group[1].checked);
    CHECK_FALSE(group[2].checked);
    CHECK(group[0].radio);
    CHECK(CheckedItem(group) == 1);
}

TEST_CASE("menu tree: before start-up every list holds its one element") {
    MenuTree menu;
    for (const MenuArray* list : {&menu.mFileList, &menu.mFileRemoveList, &menu.mBookmarkList,
                                  &menu.mBookmarkDeleteList, &menu.mUserDeleteList}) {
        REQUIRE(list->Count() == 1);
        CHECK(list->items[0].caption == u"...");
    }
    REQUIRE(menu.mProfileList.Count() == 1);
    CHECK(menu.mProfileList[0].caption == u"&Default");
}

TEST_CASE("menu tree: a separator follows the heading of each remove submenu") {
    MenuTree menu;
    for (const MenuArray* heading : {&menu.mFileRemovePlaceholder, &menu.mBookmarkDeletePlaceholder,
                                     &menu.mUserDeletePlaceholder}) {
        REQUIRE(heading->Count() == 2);
        CHECK(heading->items[0].caption == u"Click on item to remove from the list:");
        CHECK(heading->items[1].IsSeparator());
    }
}

namespace {
int Position(const std::vector<MenuArray*>& arrays, const MenuArray& wanted) {
    int position = 0;
    for (const MenuArray* array : arrays) {
        if (array == &wanted) return position;
        position += array->Count();
    }
    return -1;
}
} // namespace

TEST_CASE("menu tree: the lists and radio groups stand at their positions") {
    MenuTree menu;
    const auto top = menu.TopLevel();
    CHECK(Position(top, menu.mFile) == 0);
    CHECK(Position(top, menu.mHelp) == 6);
    CHECK(Position(menu.mFile.children, menu.mFileList) == 6);
    CHECK(Position(menu.mFile.children, menu.mFileRemove) == 4);
    CHECK(Position(menu.mFileRemove.children, menu.mFileRemoveList) == 2);
    CHECK(Position(menu.mBookmark.children, menu.mBookmarkList) == 9);
    CHECK(Position(menu.mBookmark.children, menu.mBookmarkDelete) == 7);
    CHECK(Position(menu.mBookmarkDelete.children, menu.mBookmarkDeleteList) == 2);
    CHECK(Position(menu.mUser.children, menu.mUserDelete) == 1);
    CHECK(Position(menu.mUserDelete.children, menu.mUserDeleteList) == 2);
    CHECK(Position(menu.mView.children, menu.mViewAlign) == 8);
    CHECK(Position(menu.mOptions.children, menu.mOptionsTitle) == 0);
}

namespace {
// A line for each item; those of an array with several, or that grows, are numbered.
void Describe(const MenuArray& array, int depth, std::string& lines) {
    const bool grows = array.items[0].literal;
    for (int i = 0; i < array.Count(); ++i) {
        lines += std::string(static_cast<std::size_t>(4 * depth), ' ') + array.name;
        if (grows || array.Count() > 1) lines += "(" + std::to_string(i) + ")";
        lines += ": " + Utf16ToUtf8(array[static_cast<std::size_t>(i)].caption) + "\n";
    }
    for (const MenuArray* child : array.children)
        Describe(*child, depth + 1, lines);
}
} // namespace

TEST_CASE("menu tree: names, captions and order are the golden ones") {
    MenuTree menu;
    std::string lines;
    for (const MenuArray* top : menu.TopLevel())
        Describe(*top, 0, lines);
    CheckGolden("menu.txt", lines);
}

TEST_CASE("menu items: a dash of the user's own is no separator") {
    MenuTree menu;
    CHECK(menu.mFileSeparator[0].IsSeparator());
    for (MenuArray* array : {&menu.mProfileList, &menu.mUserDeleteList, &menu.mBookmarkList,
                             &menu.mBookmarkDeleteList, &menu.mFileList, &menu.mFileRemoveList}) {
        AddMenuItem(*array, u"-");
        CHECK_FALSE(array->items.back().IsSeparator());
    }
}
