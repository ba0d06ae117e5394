#include "platform/qt/window/text_extent.h"

int TextExtent::Width(std::u16string_view text) {
    int sum = 0;
    for (const char16_t unit : text) {
        int& width = widths_[unit];
        if (width == unknown) width = metrics_.horizontalAdvance(QChar(unit));
        sum += width;
    }
    return sum;
}
