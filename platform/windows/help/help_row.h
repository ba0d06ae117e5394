// One row of the help window's list: a title, or a result's title with its excerpt below.
#pragma once

#include "platform/windows/base/win32.h"

#include <string>
#include <vector>

// A text wrapped to a width, partly bold.
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
    struct Piece { // not broken
        std::wstring text;
        bool bold = false;
        bool mayBreakAfter = false, mustBreakAfter = false;
    };

    template <typename Visitor>
    int LayOut(HDC, const Fonts&, int width, Visitor) const;

    std::vector<Piece> pieces_;
};
