// What the text view tells screen readers, at the interfaces of UI Automation.
#include "tests/contract/windows_text_accessibility_fixture.h"
#include "tests/contract/windows_text_view_bench.h"

#include <ole2.h>

TEST_CASE("windows text accessibility: the window is a document that is read only") {
    Reader reader;
    reader.view.SetName(u"War and \u0416");
    const auto value = [&](PROPERTYID id) {
        auto given = std::make_unique<Variant>();
        CHECK(reader.element->GetPropertyValue(id, given->Put()) == S_OK);
        return given;
    };
    CHECK(V_I4(&value(uia::controlType)->Get()) == uia::document);
    CHECK(TextOf(&value(uia::name)->Get()) == L"War and \u0416");
    CHECK(V_BOOL(&value(uia::isKeyboardFocusable)->Get()) == VARIANT_TRUE);
    CHECK(V_BOOL(&value(uia::valueIsReadOnly)->Get()) == VARIANT_TRUE);
    CHECK(V_VT(&value(uia::hasKeyboardFocus)->Get()) == VT_BOOL);
    CHECK(V_VT(&value(30000)->Get()) == VT_EMPTY);

    ComPtr<IUnknown> pattern;
    CHECK(reader.element->GetPatternProvider(uia::textPattern, &pattern) == S_OK);
    CHECK(Query<ITextProvider>(pattern));
    CHECK(Query<ITextProvider2>(pattern));
    ComPtr<IUnknown> other;
    CHECK(reader.element->GetPatternProvider(10000, &other) == S_OK);
    CHECK_FALSE(other);
    ComPtr<IRawElementProviderSimple> host;
    CHECK(reader.element->get_HostRawElementProvider(&host) == S_OK);
    CHECK(host);
}

TEST_CASE("windows text accessibility: the document's range has all of its text") {
    Reader reader;
    reader.view.LoadPlainText(u"One \U0001D11E line\nand another");
    CHECK(TextIn(reader.Document()) == u"One \U0001D11E line\nand another");
    CHECK(TextIn(reader.Document(), 3) == u"One");
    CHECK(TextIn(reader.Document(), 5) == u"One "); // a pair is not cut
    CHECK(TextIn(reader.Document(), 0).empty());
    reader.view.LoadPlainText(std::u16string(300'000, u'x'));
    CHECK(TextIn(reader.Document()).size() == 256 * 1024);
    reader.view.LoadPlainText(u"");
    CHECK(TextIn(reader.Document()).empty());
}

TEST_CASE("windows text accessibility: the selection is told and set") {
    Reader reader;
    reader.view.LoadPlainText(u"One line\nand another");
    reader.view.Select(4, 4);
    CHECK(TextIn(reader.Selection()) == u"line");
    reader.view.Pane().Select(3, 0); // backwards
    CHECK(TextIn(reader.Selection()) == u"One");
    BOOL active = TRUE;
    Range caret;
    CHECK(reader.element->GetCaretRange(&active, &caret) == S_OK);
    CHECK(reader.StartOf(caret) == 0);
    CHECK(reader.EndOf(caret) == 0);

    Range found;
    const Bstr what(L"ANOTHER");
    CHECK(reader.Document()->FindText(what.Get(), FALSE, TRUE, &found) == S_OK);
    REQUIRE(found);
    CHECK(found->Select() == S_OK);
    CHECK(reader.view.SelStart() == 13);
    CHECK(reader.view.SelLength() == 7);
    CHECK(found->AddToSelection() == uia::invalidOperation);
    SupportedTextSelection supported = SupportedTextSelection_None;
    CHECK(reader.element->get_SupportedTextSelection(&supported) == S_OK);
    CHECK(supported == SupportedTextSelection_Single);
}

TEST_CASE("windows text accessibility: a text is found in both directions, within the range") {
    Reader reader;
    const std::u16string gap(600'000, u'.'); // wider than what is looked at together
    reader.view.LoadPlainText(u"needle" + gap + u"Needle" + gap + u"needle");
    const Bstr what(L"needle");
    const auto find = [&](BOOL backward, BOOL ignoreCase, const Range& within) {
        Range found;
        CHECK(within->FindText(what.Get(), backward, ignoreCase, &found) == S_OK);
        return found ? reader.StartOf(found) : -1;
    };
    CHECK(find(FALSE, TRUE, reader.Document()) == 0);
    CHECK(find(TRUE, TRUE, reader.Document()) == 1'200'012);
    CHECK(find(FALSE, TRUE, reader.At(1, 1'200'017)) == 600'006);
    CHECK(find(TRUE, TRUE, reader.At(1, 1'200'017)) == 600'006);
    CHECK(find(FALSE, FALSE, reader.At(1, 1'200'017)) == -1);
    CHECK(find(TRUE, FALSE, reader.At(0, 1'200'017)) == 0);
}

TEST_CASE("windows text accessibility: ranges survive another text, and the window's end") {
    ShownPopup window;
    auto view = std::make_unique<WinTextView>(window.Handle());
    view->LoadPlainText(u"a longer text");
    const ComPtr<TextProvider> element = view->Accessible();
    Range range;
    CHECK(element->get_DocumentRange(&range) == S_OK);
    view->LoadPlainText(u"short");
    CHECK(TextIn(range) == u"short");

    view.reset();
    Bstr text;
    CHECK(range->GetText(-1, text.Put()) == uia::elementNotAvailable);
    SAFEARRAY* none = nullptr;
    CHECK(range->GetBoundingRectangles(&none) == uia::elementNotAvailable);
    CHECK(range->Select() == uia::elementNotAvailable);
    int moved = 1;
    CHECK(range->Move(TextUnit_Word, 1, &moved) == uia::elementNotAvailable);
    CHECK(moved == 0);
    Range other;
    CHECK(range->Clone(&other) == uia::elementNotAvailable);
    CHECK(element->get_DocumentRange(&other) == uia::elementNotAvailable);
    CHECK(element->GetSelection(&none) == uia::elementNotAvailable);
    Variant name;
    CHECK(element->GetPropertyValue(uia::name, name.Put()) == uia::elementNotAvailable);
}

TEST_CASE("windows text accessibility: the parent's end is the window's") {
    auto window = std::make_unique<ShownPopup>();
    WinTextView view(window->Handle());
    const ComPtr<TextProvider> element = view.Accessible();
    window.reset();
    Range range;
    CHECK(element->get_DocumentRange(&range) == uia::elementNotAvailable);
}
