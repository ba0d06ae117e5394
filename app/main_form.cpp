#include "app/main_form.h"

#include <utility>

MainForm::MainForm(Ports given)
    : ports(std::move(given)), messages{.dialogs = *ports.dialogs,
                                        .productTitle = ports.versionInfo->OwnVersion().title},
      history{.list = menu.mFileList,
              .removeList = menu.mFileRemoveList,
              .removeMenu = menu.mFileRemove[0],
              .separator = menu.mFileSeparator[0],
              .files = *ports.files,
              .clock = *ports.clock},
      bookmarks{.list = menu.mBookmarkList,
                .deleteList = menu.mBookmarkDeleteList,
                .separator = menu.mBookmarkSeparator[0],
                .menu = menu.mBookmark[0],
                .last = menu.mBookmarkLast[0]} {}
