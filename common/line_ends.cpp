#include "common/line_ends.h"

void UnifyLineEnds(std::u16string& text) {
    std::size_t to = text.find(u'\r');
    if (to == std::u16string::npos) return;
    for (std::size_t from = to; from < text.size(); ++from) {
        char16_t unit = text[from];
        if (unit == u'\r') {
            if (from + 1 < text.size() && text[from + 1] == u'\n') ++from;
            unit = u'\n';
        }
        text[to++] = unit;
    }
    text.resize(to);
}
