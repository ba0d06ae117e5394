// The main form: it owns every port, every menu item and all state of the running program.
#pragma once

#include "app/menu_tree.h"
#include "books/book_script.h"
#include "books/history.h"
#include "books/kept_places.h"
#include "books/moved_books.h"
#include "datafile/ini_file.h"
#include "datafile/reported_trouble.h"
#include "platform/ports.h"
#include "reading/auto_scroll.h"
#include "reading/bookmarks.h"
#include "reading/find.h"
#include "reading/find_places.h"
#include "reading/formatting.h"
#include "reading/html_page.h"
#include "shell/messages.h"
#include "shell/placement.h"

#include <memory>
#include <string>
#include <vector>

// The book in the view.
struct ShownBook {
    std::u16string path;                // "" for none
    bool plain = false;                 // a plain text
    int codePage = 0;                   // of a plain text; 0 for Unicode and rich text
    ChosenCharset chosen;               // by the reader for this book; none: as its bytes suggest
    bool isNew = false;                 // opened, and the desktop does not know yet
    std::optional<FileVersion> changed; // its file, as it was last seen, of a change not shown yet
};

// A caret or a selection, while its text is read again.
struct KeptSelection {
    KnownPlace start, end;
};

// What is kept of the places in the shown text.
struct TextPlaces {
    std::optional<FileVersion> file; // that the text was read from; none for a page
    KeptPlaces kept, stored;         // as they are, and as the data file has them
    KeptWords last;                  // around the place of Last Unmarked Position
    std::optional<KeptSelection> selection;
};

// A folder of which a book has been found elsewhere, while the others are looked for there.
struct MovedFolder {
    FolderMove folder;
    int next = 0; // history index of the one to look for next
};

struct MainForm {
    explicit MainForm(Ports);

    Ports ports;
    MenuTree menu;
    Messages messages;

    std::u16string DataFilePath;
    std::u16string HelpFilePath;
    std::unique_ptr<IniFile> dataFile; // at DataFilePath; set by start-up
    ReportedTrouble reportedTrouble;
    ListLines profilesInFile; // the list as the data file held it when it was last read or written

    History history;
    Bookmarks bookmarks;
    ShownBook book;
    TextPlaces places;
    std::optional<MovedFolder> moved;
    HtmlPage page;     // of the shown book, when that is an HTML book
    TextFormat format; // of the text view
    FindState find;
    AutoScroll autoScroll;
    WindowPlacement placement;
    int autosaveTick = 0; // seconds since the reading state was saved, 0 to 59

    // Paths of later starts and drops that came while a command runs, those of each together; and
    // of a book for the start about which the user is to be asked.
    std::vector<std::vector<std::u16string>> waitingBooks;

    bool ProfileSwitching = false; // a profile is being entered from the data file
    bool ProfileChanging = false;  // a switch into a profile is running
    bool Refreshing = false;       // the shown book is being reloaded
    bool OpeningBook = false;      // a book from outside the list is being shown
    bool LoadingBook = false;      // a book is being shown

    bool started = false;  // false in a second instance, which saves nothing
    bool closed = false;   // the window has gone: nothing may wait or ask any more
    bool handling = false; // a command is running, perhaps waiting for a dialog
    bool resizing = false; // the window's change is being followed, which may change it again
};
