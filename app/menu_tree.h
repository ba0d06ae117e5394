// The menu tree: every menu item of the program by its name, built from one table (menu_table.cpp).
#pragma once

#include "common/menu_model.h"

#include <vector>

struct MainForm;

struct MenuTree {
    MenuTree();
    MenuTree(const MenuTree&) = delete;
    MenuTree& operator=(const MenuTree&) = delete;

    std::vector<MenuArray*> TopLevel();

    MenuArray mFile, mFileOpen, mFileEdit, mFileSeparator1, mFileNonFound, mFileRemove,
        mFileRemovePlaceholder, mFileRemoveList, mFileSeparator, mFileList, mFileSeparator3,
        mFileExit;
    MenuArray mEdit, mEditCopy, mEditCopyRTF, mEditSeparator1, mEditAll, mEditSeparator2, mEditFind,
        mEditNext, mEditSeparator3, mEditTitle;
    MenuArray mView, mViewRefresh, mViewSeparator1, mViewBackground, mViewFont, mViewSeparator2,
        mViewFontSize, mViewSeparator3, mViewAlign, mViewSeparator4, mViewWordWrap;
    MenuArray mViewSeparator5, mViewColumn, mViewUnwrap; // in the context menu of a text alone
    MenuArray mBookmark, mBookmarkNew, mBookmarkSeparator1, mBookmarkNext, mBookmarkPrev,
        mBookmarkLast, mBookmarkSeparator2, mBookmarkClearAll, mBookmarkDelete,
        mBookmarkDeletePlaceholder, mBookmarkDeleteList, mBookmarkSeparator, mBookmarkList;
    MenuArray mUser, mUserNew, mUserDelete, mUserDeletePlaceholder, mUserDeleteList, mUserSeparator,
        mProfileList;
    MenuArray mOptions, mOptionsTitle, mOptionsSeparator1, mOptionsFileColor, mOptionsSeparator2,
        mOptionsEditor;
    MenuArray mHelp, mHelpTopics, mHelpSeparator1, mHelpUpdate, mHelpWeb, mHelpMail,
        mHelpSeparator2, mHelpAbout;
};

// A command: a click on item `index` of an array, or (for a top-level menu) its opening.
using MenuHandler = void (*)(MainForm&, int index);

// Null for an array without a command.
MenuHandler HandlerOf(const MenuArray&);
