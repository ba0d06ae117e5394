// Where characters are and what they look like, at the interfaces of UI Automation.
#include "tests/contract/windows_text_accessibility_fixture.h"
#include "view/shown_lines.h"

#include <algorithm>
#include <array>
#include <vector>

TEST_CASE("windows text accessibility: boxes are where the characters are on the screen") {
    Reader reader(180, 120);
    reader.view.LoadPlainText(RandomText(3));
    POINT corner = {};
    ClientToScreen(reader.view.Handle(), &corner);
    RECT inside = {};
    GetClientRect(reader.view.Handle(), &inside);
    const Rect room{0, 0, inside.right, inside.bottom};
    const auto boxesOf = [&](const Range& range) {
        SAFEARRAY* numbers = nullptr;
        REQUIRE(range->GetBoundingRectangles(&numbers) == S_OK);
        std::vector<Rect> boxes;
        LONG last = -1;
        SafeArrayGetUBound(numbers, 1, &last);
        std::array<double, 4> box = {};
        for (LONG i = 0; i <= last; ++i) {
            SafeArrayGetElement(numbers, &i, &box[static_cast<std::size_t>(i % 4)]);
            if (i % 4 < 3) continue;
            boxes.push_back({static_cast<int>(box[0]) - corner.x,
                             static_cast<int>(box[1]) - corner.y, static_cast<int>(box[2]),
                             static_cast<int>(box[3])});
        }
        SafeArrayDestroy(numbers);
        return boxes;
    };
    const Range range = reader.Document();
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Character) == S_OK);
    int seen = 0;
    do {
        Rect expected = reader.view.Pane().CharacterRect(reader.StartOf(range));
        expected.width = std::max(1, expected.width);
        const bool isSeen = Intersect(expected, room);
        const std::vector<Rect> boxes = boxesOf(range);
        REQUIRE(boxes.size() == (isSeen ? 1u : 0u));
        if (isSeen) {
            // What of it is in the window.
            CHECK(boxes.front().left == std::max(expected.left, room.left));
            CHECK(boxes.front().top == std::max(expected.top, room.top));
            CHECK(Right(boxes.front()) == std::min(Right(expected), Right(room)));
            CHECK(Bottom(boxes.front()) == std::min(Bottom(expected), Bottom(room)));
        }
        seen += isSeen;
    } while (MovedBy(range, TextUnit_Character, 1) == 1);
    CHECK(seen > 20);

    const std::vector<Rect> lines = boxesOf(reader.Document());
    CHECK(lines.size() > 3);
    for (std::size_t i = 1; i < lines.size(); ++i)
        CHECK(lines[i].top > lines[i - 1].top);
    CHECK(boxesOf(reader.At(2, 2)).empty());
}

TEST_CASE("windows text accessibility: what is in view, and what is at a point") {
    Reader reader;
    std::u16string text;
    for (int i = 0; i < 500; ++i)
        text += u"some line\n";
    reader.view.LoadPlainText(text);
    reader.view.ScrollLineToTop(1000);
    const Range shown =
        reader.Only([&](SAFEARRAY** all) { return reader.element->GetVisibleRanges(all); });
    CHECK(reader.StartOf(shown) == 1000);
    CHECK(reader.EndOf(shown) > 1050);
    CHECK(reader.EndOf(shown) < 2000);

    const Rect box = reader.view.Pane().CharacterRect(1013);
    POINT point = {box.left + 1, box.top + box.height / 2};
    ClientToScreen(reader.view.Handle(), &point);
    Range at;
    CHECK(reader.element->RangeFromPoint({double(point.x), double(point.y)}, &at) == S_OK);
    CHECK(reader.StartOf(at) == 1013);
    CHECK(reader.EndOf(at) == 1013);

    CHECK(reader.At(3000, 3004)->ScrollIntoView(TRUE) == S_OK);
    CHECK(reader.view.FirstVisibleChar() == 3000);
    CHECK(reader.At(100, 104)->ScrollIntoView(FALSE) == S_OK);
    CHECK(reader.view.FirstVisibleChar() == 100);
}

TEST_CASE("windows text accessibility: attributes of a rich text") {
    Reader reader;
    reader.view.LoadRichText("{\\rtf1{\\fonttbl{\\f0 Arial;}}{\\colortbl;\\red255\\green0\\blue0;}"
                             "\\f0\\fs40 big {\\b\\i\\ul\\strike\\cf1 loud}{\\super 2}\\par"
                             "\\qc centred\\par}",
                             1252);
    reader.view.SetAutoColor(true);
    const auto value = [&](TextPos from, TextPos to, TEXTATTRIBUTEID id) {
        auto given = std::make_unique<Variant>();
        CHECK(reader.At(from, to)->GetAttributeValue(id, given->Put()) == S_OK);
        return given;
    };
    CHECK(TextOf(&value(0, 3, uia::fontName)->Get()) == L"Arial");
    CHECK(V_R8(&value(0, 3, uia::fontSize)->Get()) == 20.0);
    CHECK(V_I4(&value(0, 3, uia::fontWeight)->Get()) == 400);
    CHECK(V_I4(&value(4, 8, uia::fontWeight)->Get()) == 700);
    CHECK(V_BOOL(&value(0, 3, uia::isItalic)->Get()) == VARIANT_FALSE);
    CHECK(V_BOOL(&value(4, 8, uia::isItalic)->Get()) == VARIANT_TRUE);
    CHECK(V_I4(&value(4, 8, uia::underlineStyle)->Get()) == 1);
    CHECK(V_I4(&value(4, 8, uia::strikethroughStyle)->Get()) == 1);
    CHECK(V_I4(&value(0, 3, uia::strikethroughStyle)->Get()) == 0);
    CHECK(V_I4(&value(4, 8, uia::foregroundColor)->Get()) == 0x0000FF);
    CHECK(V_I4(&value(4, 8, uia::backgroundColor)->Get()) ==
          static_cast<LONG>(reader.view.BackColor()));
    CHECK(V_BOOL(&value(8, 9, uia::isSuperscript)->Get()) == VARIANT_TRUE);
    CHECK(V_I4(&value(0, 3, uia::horizontalTextAlignment)->Get()) == 0);
    CHECK(V_I4(&value(12, 14, uia::horizontalTextAlignment)->Get()) == 1);
    CHECK(V_BOOL(&value(0, 3, uia::isReadOnly)->Get()) == VARIANT_TRUE);
    // An object of the system's stands for a value that changes, and for none.
    CHECK(V_VT(&value(0, 8, uia::fontWeight)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 14, uia::horizontalTextAlignment)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 3, 40000)->Get()) == VT_UNKNOWN);
    CHECK(V_VT(&value(0, 8, uia::fontName)->Get()) == VT_BSTR);

    const Range format = reader.At(5, 5);
    CHECK(format->ExpandToEnclosingUnit(TextUnit_Format) == S_OK);
    CHECK(TextIn(format) == u"loud");
}

TEST_CASE("windows text accessibility: cells of a table are read one by one") {
    Reader reader;
    reader.view.LoadRichText("{\\rtf1 before\\par\\trowd\\cellx2000\\cellx4000\\intbl one\\cell "
                             "two\\cell\\row after}",
                             1252);
    const Range range = reader.Document();
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Paragraph) == S_OK);
    std::vector<std::u16string> paragraphs{TextIn(range)};
    while (paragraphs.size() < 10 && MovedBy(range, TextUnit_Paragraph, 1) == 1)
        paragraphs.push_back(TextIn(range));
    CHECK(paragraphs == std::vector<std::u16string>{u"before\n", u"one\t", u"two\t\n", u"after"});
}
