// The one table of the menus. A row of an array that a row before has named adds an element to it.
#include "app/menu_tree.h"

#include "app/bookmark_menu.h"
#include "app/edit_menu.h"
#include "app/file_menu.h"
#include "app/help_menu.h"
#include "app/options_menu.h"
#include "app/profile_menu.h"
#include "app/view_menu.h"

#include <algorithm>

namespace {
enum class Kind {
    Top,     // a top-level menu; its handler runs before it opens
    Item,    // a command of the menu above
    Sub,     // a submenu of the menu above
    SubItem, // an item of the submenu above
    Context, // in no menu of the bar, but in the context menu of a text
};

struct Row {
    Kind kind;
    MenuArray MenuTree::*array;
    const char* name;
    const char16_t* caption;
    MenuHandler handler = nullptr;
    bool literal = false;
};

#define ROW(kind, name, ...)                                                                       \
    { Kind::kind, &MenuTree::name, #name, __VA_ARGS__ }

constexpr const char16_t* removeHeading = u"Click on item to remove from the list:";

const Row rows[] = {
    ROW(Top, mFile, u"&File", mFile_Click),
    ROW(Item, mFileOpen, u"&Open File...", mFileOpen_Click),
    ROW(Item, mFileEdit, u"Open in &Editor...", mFileEdit_Click),
    ROW(Item, mFileSeparator1, u"-"),
    ROW(Item, mFileNonFound, u"Remove &non-found Files", mFileNonFound_Click),
    ROW(Sub, mFileRemove, u"&Remove"),
    ROW(SubItem, mFileRemovePlaceholder, removeHeading),
    ROW(SubItem, mFileRemovePlaceholder, u"-"),
    ROW(SubItem, mFileRemoveList, u"...", mFileRemoveList_Click, true),
    ROW(Item, mFileSeparator, u"-"),
    ROW(Item, mFileList, u"...", mFileList_Click, true),
    ROW(Item, mFileSeparator3, u"-"),
    ROW(Item, mFileExit, u"E&xit", mFileExit_Click),

    ROW(Top, mEdit, u"&Edit", mEdit_Click),
    ROW(Item, mEditCopy, u"&Copy", mEditCopy_Click),
    ROW(Item, mEditCopyRTF, u"C&opy as RTF", mEditCopyRTF_Click),
    ROW(Item, mEditSeparator1, u"-"),
    ROW(Item, mEditAll, u"Select &All", mEditAll_Click),
    ROW(Item, mEditSeparator2, u"-"),
    ROW(Item, mEditFind, u"&Find...", mEditFind_Click),
    ROW(Item, mEditNext, u"Find &Next", mEditNext_Click),
    ROW(Item, mEditSeparator3, u"-"),
    ROW(Item, mEditTitle, u"Set &Selection as Caption", mEditTitle_Click),

    ROW(Top, mView, u"&View", mView_Click),
    ROW(Item, mViewRefresh, u"R&efresh", mViewRefresh_Click),
    ROW(Item, mViewSeparator1, u"-"),
    ROW(Item, mViewBackground, u"&Background Color...", mViewBackground_Click),
    ROW(Item, mViewFont, u"&Font...", mViewFont_Click),
    ROW(Item, mViewSeparator2, u"-"),
    ROW(Item, mViewFontSize, u"Font Size +", mViewFontSize_Click),
    ROW(Item, mViewFontSize, u"Font Size \u2013", mViewFontSize_Click),
    ROW(Item, mViewSeparator3, u"-"),
    ROW(Item, mViewAlign, u"Align &Left", mViewAlign_Click),
    ROW(Item, mViewAlign, u"Align &Right", mViewAlign_Click),
    ROW(Item, mViewAlign, u"&Center", mViewAlign_Click),
    ROW(Item, mViewSeparator4, u"-"),
    ROW(Item, mViewWordWrap, u"Word &Wrap", mViewWordWrap_Click),
    ROW(Context, mViewSeparator5, u"-"),
    ROW(Context, mViewColumn, u"Narrow Co&lumn", mViewColumn_Click),
    ROW(Context, mViewUnwrap, u"&Unwrap Lines", mViewUnwrap_Click),

    ROW(Top, mBookmark, u"&Bookmark", mBookmark_Click),
    ROW(Item, mBookmarkNew, u"Defi&ne", mBookmarkNew_Click),
    ROW(Item, mBookmarkSeparator1, u"-"),
    ROW(Item, mBookmarkNext, u"Ne&xt", mBookmarkNext_Click),
    ROW(Item, mBookmarkPrev, u"&Previous", mBookmarkPrev_Click),
    ROW(Item, mBookmarkLast, u"&Last Unmarked Position", mBookmarkLast_Click),
    ROW(Item, mBookmarkSeparator2, u"-"),
    ROW(Item, mBookmarkClearAll, u"Clear &All", mBookmarkClearAll_Click),
    ROW(Sub, mBookmarkDelete, u"&Delete"),
    ROW(SubItem, mBookmarkDeletePlaceholder, removeHeading),
    ROW(SubItem, mBookmarkDeletePlaceholder, u"-"),
    ROW(SubItem, mBookmarkDeleteList, u"...", mBookmarkDeleteList_Click, true),
    ROW(Item, mBookmarkSeparator, u"-"),
    ROW(Item, mBookmarkList, u"...", mBookmarkList_Click, true),

    ROW(Top, mUser, u"&Profile", mUser_Click),
    ROW(Item, mUserNew, u"Add &New...", mUserNew_Click),
    ROW(Sub, mUserDelete, u"&Remove"),
    ROW(SubItem, mUserDeletePlaceholder, removeHeading),
    ROW(SubItem, mUserDeletePlaceholder, u"-"),
    ROW(SubItem, mUserDeleteList, u"...", mUserDeleteList_Click, true),
    ROW(Item, mUserSeparator, u"-"),
    ROW(Item, mProfileList, u"&Default", mProfileList_Click, true),

    ROW(Top, mOptions, u"&Options"),
    ROW(Item, mOptionsTitle, u"&Filename in Window Title", mOptionsTitle_Click),
    ROW(Item, mOptionsTitle, u"&Caption in Window Title", mOptionsTitle_Click),
    ROW(Item, mOptionsSeparator1, u"-"),
    ROW(Item, mOptionsFileColor, u"&Use Text Color of RTF files", mOptionsFileColor_Click),
    ROW(Item, mOptionsSeparator2, u"-"),
    ROW(Item, mOptionsEditor, u"Set &TXT Editor...", mOptionsEditor_Click),
    ROW(Item, mOptionsEditor, u"Set &RTF Editor...", mOptionsEditor_Click),
    ROW(Item, mOptionsEditor, u"Set &HTM Editor...", mOptionsEditor_Click),

    ROW(Top, mHelp, u"&Help"),
    ROW(Item, mHelpTopics, u"&Help Topics...", mHelpTopics_Click),
    ROW(Item, mHelpSeparator1, u"-"),
    ROW(Item, mHelpUpdate, u"Check for &Update...", mHelpUpdate_Click),
    ROW(Item, mHelpWeb, u"Visit the Web&page...", mHelpWeb_Click),
    ROW(Item, mHelpMail, u"Feed&back...", mHelpMail_Click),
    ROW(Item, mHelpSeparator2, u"-"),
    ROW(Item, mHelpAbout, u"&About...", mHelpAbout_Click),
};

// A command that does not exist yet is shown greyed.
bool CanBeChosen(const Row& row) {
    return row.handler || row.kind == Kind::Top || row.kind == Kind::Sub;
}
} // namespace

MenuTree::MenuTree() {
    MenuArray *top = &mFile, *sub = &mFileRemove; // the first ones of the table
    for (const Row& row : rows) {
        MenuArray& array = this->*row.array;
        if (array.items.empty()) {
            array.name = row.name;
            if (row.kind == Kind::Item || row.kind == Kind::Sub) top->children.push_back(&array);
            if (row.kind == Kind::SubItem) sub->children.push_back(&array);
            if (row.kind == Kind::Top) top = &array;
            if (row.kind == Kind::Sub) sub = &array;
        }
        MenuItem& item = array.items.emplace_back();
        item.caption = row.caption;
        item.literal = row.literal;
        item.enabled = CanBeChosen(row);
    }
    mViewWordWrap[0].checked = true; // the text view starts with wrapped lines
}

std::vector<MenuArray*> MenuTree::TopLevel() {
    return {&mFile, &mEdit, &mView, &mBookmark, &mUser, &mOptions, &mHelp};
}

MenuHandler HandlerOf(const MenuArray& array) {
    const auto row = std::ranges::find(rows, array.name, &Row::name);
    return row == std::end(rows) ? nullptr : row->handler;
}
