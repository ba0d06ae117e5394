#include "common/flag_scope.h"

#include <doctest/doctest.h>

TEST_CASE("flag scope: the flag is what it was before") {
    bool flag = false;
    {
        const FlagScope outer(flag);
        {
            const FlagScope inner(flag);
            CHECK(flag);
        }
        CHECK(flag);
    }
    CHECK_FALSE(flag);
}
