#include "platform/windows/help/help_row.h"

#include <algorithm>

void HelpRow::Add(const std::wstring& text, bool bold) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t space = std::min(text.find(L' ', start), text.size());
        const std::size_t end = std::min(space + 1, text.size());
        pieces_.push_back({text.substr(start, end - start), bold, space < text.size(), false});
        start = end;
    }
}

void HelpRow::EndLine() {
    if (!pieces_.empty()) pieces_.back().mustBreakAfter = true;
}

// Calls `visit` with each piece and its position, and returns the height. A word may consist of
// several pieces, which stay together.
template <typename Visitor>
int HelpRow::LayOut(HDC context, const Fonts& fonts, int width, Visitor visit) const {
    const auto widthOf = [&](const Piece& piece) {
        SelectObject(context, piece.bold ? fonts.bold : fonts.regular);
        SIZE extent = {};
        GetTextExtentPoint32W(context, piece.text.c_str(), static_cast<int>(piece.text.size()),
                              &extent);
        return static_cast<int>(extent.cx);
    };
    const HGDIOBJ previous = SelectObject(context, fonts.bold);
    TEXTMETRICW metrics = {};
    GetTextMetricsW(context, &metrics);
    int x = 0, y = 0;
    for (auto word = pieces_.begin(); word != pieces_.end();) {
        const auto last = std::find_if(word, pieces_.end(), [](const Piece& piece) {
            return piece.mayBreakAfter || piece.mustBreakAfter;
        });
        const auto end = last == pieces_.end() ? last : last + 1;
        int wordWidth = 0;
        for (auto piece = word; piece != end; ++piece)
            wordWidth += widthOf(*piece);
        if (x > 0 && x + wordWidth > width) {
            x = 0;
            y += metrics.tmHeight;
        }
        for (; word != end; ++word) {
            const int pieceWidth = widthOf(*word);
            visit(*word, x, y);
            x += pieceWidth;
        }
        if (last != pieces_.end() && last->mustBreakAfter) {
            x = 0;
            y += metrics.tmHeight;
        }
    }
    SelectObject(context, previous);
    return x > 0 ? y + metrics.tmHeight : y;
}

int HelpRow::Height(HDC context, const Fonts& fonts, int width) const {
    return LayOut(context, fonts, width, [](const Piece&, int, int) {});
}

void HelpRow::Draw(HDC context, const Fonts& fonts, const RECT& place) const {
    LayOut(context, fonts, place.right - place.left, [&](const Piece& piece, int x, int y) {
        ExtTextOutW(context, place.left + x, place.top + y, ETO_CLIPPED, &place, piece.text.c_str(),
                    static_cast<UINT>(piece.text.size()), nullptr);
    });
}
