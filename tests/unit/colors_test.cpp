#include "common/colors.h"
#include "formats/spare_routines.h"

#include <doctest/doctest.h>

TEST_CASE("colours: components in the order of their bytes") {
    ColorComponents components;
    CHECK(ColorToComponentsText(255 * 65536 + 128 * 256, components) == u"255,128,0");
    CHECK(components.first == 255);
    CHECK(components.second == 128);
    CHECK(components.third == 0);
    CHECK(ColorToComponentsText(-1, components) == u"");
    CHECK(ColorToComponentsText(1 << 24, components) == u"");
    CHECK(components.first == 255);
    CHECK(SwapColorOrder(0x112233) == 0x332211);
}
