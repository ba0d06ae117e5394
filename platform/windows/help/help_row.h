// One row of the help window's list: a line, or the title of a finding and below it its excerpt.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

// A text broken into lines that fit a width, with some of it bold.
class HelpRow {
  public:
    struct Fonts {
        HFONT regular = nullptr, bold = nullptr;
    };

    void Add(const std::wstring& text, bool bold);
    void EndLine();

    int Height(HDC, const Fonts&, int width) const; // pixels
    void Draw(HDC, const Fonts&, const RECT& place) const;

  private:
    struct Piece { // no line is broken within it
        std::wstring text;
        bool bold = false;
        bool mayBreakAfter = false, mustBreakAfter = false;
    };

    template <typename Visitor>
    int LayOut(HDC, const Fonts&, int width, Visitor) const;

    std::vector<Piece> pieces_;
};
