// What the port of the clipboard promises, on every back end.
#include "tests/contract/clipboard_contract.h"

#include <doctest/doctest.h>

TEST_CASE("clipboard contract: holds Unicode text of any length") {
    OnEach(ClipboardBackEnds(), [](ClipboardUnderTest& test) {
        const std::u16string texts[] = {u"Ab\u00E9\u0416\t\u05D0 \U0001D11E", u"x", u"",
                                        std::u16string(1'000'000, u'\u044F')};
        for (const std::u16string& text : texts) {
            test.Port().SetText(text);
            CHECK((test.Text() == text));
        }
    });
}

TEST_CASE("clipboard contract: lines end as in the system's programs") {
    OnEach(ClipboardBackEnds(), [](ClipboardUnderTest& test) {
        const std::u16string end = test.LineEnd();
        test.Port().SetText(u"\none\n\ntwo\n");
        CHECK((test.Text() == end + u"one" + end + end + u"two" + end));
    });
}

TEST_CASE("clipboard contract: replaces all that was copied before, by text only") {
    OnEach(ClipboardBackEnds(), [](ClipboardUnderTest& test) {
        test.CopyOther();
        CHECK_FALSE(test.HoldsTextOnly());
        test.Port().SetText(u"x");
        CHECK(test.HoldsTextOnly());
        CHECK(test.Text() == u"x");
    });
}
