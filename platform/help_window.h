// The port of the help window: beside the main window, which keeps working meanwhile.
#pragma once

#include "common/geometry.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

struct HelpSpan {
    TextPos start = 0, length = 0;
};

struct HelpFinding {
    int page = 0;
    HelpSpan place;                // in the text of that page
    std::u16string title, excerpt; // of the page; one line each
    std::vector<HelpSpan> marks;   // in the excerpt: the words found, ascending
};

// What the window shows. The functions can be called for as long as this or a copy of it lives, do
// not throw anything but for lack of memory, and do not reach the form.
struct HelpContents {
    std::u16string windowTitle;
    std::vector<std::u16string> titles; // of the pages, in their order
    // A page as RTF, pure ASCII, in the font table's nameless font and without colours: the window
    // gives it face and colours. Its characters are counted as the text view's are. A link in it
    // has the number of the page that it leads to for its address.
    std::function<std::string(int page)> page;
    // The pages for what is typed into the search field so far, best first; none for "".
    std::function<std::vector<HelpFinding>(std::u16string_view typed)> search;
};

// A list of the pages or, while something is typed into the field above it, of what was found; and
// beside the list the page chosen, with the place found selected and in view. A link in the page is
// followed by a click, or by Enter where the caret is in it. Escape closes the
// window, and closing the main window does, too. Its keys are its own: none reaches the form.
class HelpWindow {
  public:
    virtual ~HelpWindow() = default;
    // Opens the window at a page. A window that is open is brought to the front and shows it. Works
    // while a message box waits: the window can then be used beside it.
    virtual void Show(const HelpContents&, int page) = 0;
    // Brings an open window to the front as it is; false when none is open.
    virtual bool Raise() = 0;
};
