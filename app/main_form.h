// The main form: it owns every port, every menu item and all state of the running program.
#pragma once

#include "app/data_trouble.h"
#include "app/menu_tree.h"
#include "books/html_book.h"
#include "common/ini_file.h"
#include "platform/ports.h"
#include "shell/date_texts.h"
#include "shell/layout.h"
#include "shell/start_messages.h"

#include <memory>
#include <string>
#include <vector>

struct MainForm {
    explicit MainForm(Ports);

    Ports ports;
    MenuTree menu;

    std::u16string productTitle;
    std::u16string DataFilePath;
    std::u16string HelpFilePath;
    std::unique_ptr<IniFile> dataFile; // at DataFilePath; set by start-up
    // The lists as the data file held them when they were last read or written here.
    ListLines profilesInFile, historyInFile;
    ToldTrouble toldTrouble;
    std::u16string besideOfOther; // the data file beside the program, when it is another user's

    ViewFont viewFont;        // the present font of the text view, between record and view
    Color textColor = 0;      // the text colour in force, also while a file's own colours show
    std::u16string shownPath; // of the book in the view; "" for none
    int shownCodePage = 0;    // of the plain text in the view; 0 for Unicode and rich text
    int chosenCodePage = 0;   // by the reader for the shown book; 0: as its letters say
    HtmlPage page;            // of the shown book, when that is an HTML book
    std::u16string findText;  // the last text searched for, "" for none yet
    FindOptions findOptions;
    std::vector<std::u16string> findHistory; // of the shown book, newest first
    int newBookmark = -1; // defined just now: stands out when the Bookmark menu opens next
    DateNames dateNames;
    WindowPlacement placement;
    int resizeNesting = 0;
    std::u16string toSaveTag; // the autosave's tick counter, as text
    StartMessages startMessages;

    bool ProfileSwitching = false; // start-up's first switch into a profile
    bool ProfileChanging = false;  // a switch into a profile is running
    bool Refreshing = false;       // the shown book is being reloaded
    bool OpeningBook = false;      // a book from outside the list is being shown
    bool LoadingBook = false;      // the history click handler is running

    bool started = false;  // false in a second instance, which saves nothing
    bool closed = false;   // the window has gone: nothing may wait or ask any more
    bool handling = false; // a command is running, perhaps waiting for a dialog
};
