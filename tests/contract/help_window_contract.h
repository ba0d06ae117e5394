// The back ends of the help window that this build's contract tests run on.
#pragma once

#include "platform/help_window.h"
#include "tests/contract/back_ends.h"

#include <string>
#include <vector>

// What a user sees and does.
class HelpWindowUnderTest {
  public:
    enum class Part { None, Search, List, Page };
    enum class Key { Tab, Down, Enter, Escape };

    virtual ~HelpWindowUnderTest() = default;
    virtual HelpWindow& Port() = 0;

    virtual bool IsOpen() = 0;
    virtual std::u16string Title() = 0;
    virtual int RowCount() = 0; // of the list
    virtual int Row() = 0;      // the selected one; -1 for none
    virtual void ChooseRow(int row) = 0;
    virtual std::u16string SearchText() = 0;
    virtual void Type(const std::u16string& text) = 0; // in place of what is in the search field
    virtual std::u16string PageText() = 0;             // lines end in "\n"
    virtual std::u16string SelectedText() = 0;         // of the page
    virtual void Minimize() = 0;
    virtual bool IsMinimized() = 0;
    virtual void Close() = 0; // as its close button does

    virtual void Press(Key) = 0;
    virtual Part Focus() = 0; // after events that were sent have been handled
};

// Defined once in each test program.
std::vector<BackEnd<HelpWindowUnderTest>> HelpWindowBackEnds();
