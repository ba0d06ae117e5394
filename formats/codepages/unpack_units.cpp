#include "formats/codepages/code_page_shapes.h"

std::vector<char16_t> UnpackUnits(const std::uint8_t* packed, std::size_t size) {
    std::vector<char16_t> units;
    int last = 0; // that is not undefined
    const std::uint8_t* const end = packed + size;
    while (packed < end) {
        const int code = *packed++;
        if (code < 0x40) {
            units.push_back(static_cast<char16_t>(last += code + 2));
        } else if (code < 0x60) {
            for (int rest = code - 0x3F; rest > 0; --rest)
                units.push_back(static_cast<char16_t>(++last));
        } else if (code < 0x68) {
            units.resize(units.size() + (code - 0x5Fu), undefinedUnit);
        } else if (code < 0x70) {
            units.resize(units.size() + (code - 0x68u) * 0x100 + *packed++ + 1, undefinedUnit);
        } else if (code < 0xF0) {
            last += (code - 0x70) * 0x100 + *packed++ - 0x4000;
            units.push_back(static_cast<char16_t>(last));
        } else {
            last = packed[0] * 0x100 + packed[1];
            packed += 2;
            units.push_back(static_cast<char16_t>(last));
        }
    }
    return units;
}
