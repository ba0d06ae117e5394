#include "common/char_refs.h"
#include "common/text.h"
#include "formats/spare_routines.h"
#include "platform/none/none_text_view.h"
#include "reading/caret.h"

#include <doctest/doctest.h>

TEST_CASE("text routines: InRange with bounds in order and not") {
    CHECK(InRange(3, 1, 5, true));
    CHECK(InRange(1, 1, 1, true));
    CHECK_FALSE(InRange(6, 1, 5, false));
    CHECK_FALSE(InRange(0, 0, -1, true));
    CHECK(InRange(0, 0, -1, false));
}

TEST_CASE("text routines: MaxOf") {
    CHECK(MaxOf(-4, 2) == 2);
    CHECK(MaxOf(7, 2) == 7);
}

TEST_CASE("text routines: IndexInArray") {
    const std::vector<std::u16string> names{u"Anna", u"Bo", u"", u"bo"};
    CHECK(IndexInArray(u"Bo", names) == 1);
    CHECK(IndexInArray(u"bo", names) == 3);
    CHECK(IndexInArray(u"BO", names, CompareMode::IgnoreCase) == 1);
    CHECK(IndexInArray(u"", names) == -1);
    CHECK(IndexInArray(u"Cy", names) == -1);
}

TEST_CASE("text routines: characters outside ASCII become references") {
    CHECK(EncodeNonAscii(u"") == u"");
    CHECK(EncodeNonAscii(u"\u00E9") == u"&#233;");
    CHECK(EncodeNonAscii(u"\U0001F4D6") == u"&#55357;&#56534;");
    CHECK(EncodeNonAscii(u"ab\u20AC\u20AC", 10) == u"ab&#8364;");
    CHECK(EncodePageText("\xCF\xF0", 1251, 1252, 0) == u"&#1055;&#1088;");
    CHECK(EncodePageText("\xE9", 0, 1252, 0) == u"&#233;");
}

TEST_CASE("text routines: references become characters") {
    const std::pair<const char16_t*, const char16_t*> table[] = {
        {u"&#233;t&#xE9;", u"\u00E9t\u00E9"},
        {u"&#55357;&#56534;", u"\U0001F4D6"},
        {u"&#128214;", u"\U0001F4D6"},
        {u"a &#61; b", u"a = b"},
        {u"&#;&#x;&#12", u"&#;&#x;&#12"},
        {u"&#0;", u"&#0;"},
        {u"&#99999999999;", u"&#99999999999;"},
        {u"&amp;", u"&amp;"},
        {u"&&#65;", u"&A"},
        {u"", u""},
    };
    for (const auto& [stored, shown] : table)
        CHECK(DecodeCharRefs(stored) == shown);
    CHECK(StringToCodeUnits(u"A\u20AC") == std::vector<std::int32_t>{65, 8364});
    CHECK(StringToBytes(u"\u20AC") == std::vector<std::uint8_t>{0xAC, 0x20});
}

TEST_CASE("caret: a line already at the top stays there") {
    NoneTextView view;
    view.LoadPlainText(u"one\ntwo\nthree");
    ScrollCaretToTop(view, 5);
    CHECK(view.SelStart() == 5);
    CHECK(FirstVisibleChar(view) == 4);
    ScrollCaretToTop(view);
    CHECK(FirstVisibleChar(view) == 4);
}

TEST_CASE("caret: what is selected far to the right is scrolled into view across, too") {
    NoneTextView view;
    view.LoadPlainText(u"one\n" + std::u16string(1000, u'x') + u"\ntwo");
    view.SetRightMargin(491520); // not wrapped
    view.SetBounds({0, 0, 400, 300});
    view.Select(904, 3);
    ScrollCaretToTop(view);
    CHECK(FirstVisibleChar(view) == 4);
    CHECK(view.X(904) >= 0);
    CHECK(view.X(907) <= 400);
}

TEST_CASE("caret: mirrored within its line for right-to-left charsets only") {
    NoneTextView view;
    view.LoadPlainText(u"first\n\u05D0\u05D1\u05D2\u05D3\u05D4 end");
    view.mirrorsRightToLeft = true;
    view.Select(8, 0); // two units into a line of nine that starts at 6
    for (const int charset : {177, 178, 179})
        CHECK(LogicalCaretPos(view, charset) == 6 + 9 - 2);
    for (const int charset : {0, 204, 176, 180})
        CHECK(LogicalCaretPos(view, charset) == 8);
    view.Select(8, 2);
    CHECK(LogicalCaretPos(view, 177) == 6 + 9 - 4);
    CHECK(SelectedTextLogical(view, 0) == u"\u05D2\u05D3");
    CHECK(SelectedTextLogical(view, 177) == view.TextRange(11, 2));
    view.mirrorsRightToLeft = false;
    CHECK(LogicalCaretPos(view, 177) == 8);
    CHECK(SelectedTextLogical(view, 177) == u"\u05D2\u05D3");
}
