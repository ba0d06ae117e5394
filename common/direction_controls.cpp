#include "common/direction_controls.h"

std::u16string WithoutDirectionControls(std::u16string text) {
    std::erase_if(text, [](char16_t unit) {
        return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x206F);
    });
    return text;
}
