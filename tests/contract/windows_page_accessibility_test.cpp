// What a page of our own view says to screen readers, at the interfaces of UI Automation.
#include "platform/windows/base/com_values.h"
#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/html_pane/win_page_view.h"
#include "tests/contract/temporary_folder_windows.h"
#include "tests/contract/windows_text_accessibility_fixture.h"

#include <doctest/doctest.h>

#include <ole2.h>

#include <filesystem>
#include <fstream>

namespace {
using Element = ComPtr<IRawElementProviderFragment>;

struct PageReader {
    TemporaryFolder folder;
    ShownPopup window;
    WinFiles files;
    WinPageView view{window.Handle(), files};
    ComPtr<TextProvider> element = view.Accessible();
    int loads = 0;
    std::vector<std::u16string> links;

    explicit PageReader(const std::string& body) {
        view.onLoaded = [this](int, const std::u16string&) { ++loads; };
        view.onLink = [this](const std::u16string& url, const std::u16string&) {
            links.push_back(url);
        };
        view.SetBounds({0, 0, 500, 300});
        view.SetVisible(true);
        Show(body);
    }
    void Show(const std::string& body) {
        const std::wstring path = folder.path + L"\\page.htm";
        std::ofstream file(std::filesystem::path(path), std::ios::binary | std::ios::trunc);
        file << "<!DOCTYPE html><meta charset=utf-8><title>Lanterns</title>" << body;
        file.close();
        const int before = loads;
        view.Navigate(FromWide(path), 1);
        const ULONGLONG end = GetTickCount64() + 10'000;
        while (loads == before && GetTickCount64() < end)
            LetMessagesCome();
        REQUIRE(loads == before + 1);
    }
    static void LetMessagesCome() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    Range Document() {
        Range range;
        CHECK(element->get_DocumentRange(&range) == S_OK);
        return range;
    }
    Range At(const wchar_t* what) {
        const Bstr text(what);
        Range found;
        CHECK(Document()->FindText(text.Get(), FALSE, FALSE, &found) == S_OK);
        REQUIRE(found);
        return found;
    }
    Element Root() { return Query<IRawElementProviderFragment>(element); }
};

Element Go(const Element& from, NavigateDirection direction) {
    Element found;
    CHECK(from->Navigate(direction, &found) == S_OK);
    return found;
}

std::unique_ptr<Variant> ValueOf(const Element& element, PROPERTYID id) {
    auto value = std::make_unique<Variant>();
    const auto simple = Query<IRawElementProviderSimple>(element);
    REQUIRE(simple);
    CHECK(simple->GetPropertyValue(id, value->Put()) == S_OK);
    return value;
}

LONG TypeOf(const Element& element) {
    return V_I4(&ValueOf(element, uia::controlType)->Get());
}

std::wstring NameOf(const Element& element) {
    return TextOf(&ValueOf(element, uia::name)->Get());
}

LONG StyleOf(const Range& range) {
    Variant value;
    CHECK(range->GetAttributeValue(uia::styleId, value.Put()) == S_OK);
    return V_VT(&value.Get()) == VT_I4 ? V_I4(&value.Get()) : 0;
}
} // namespace

TEST_CASE("windows page accessibility: a document called by its title, read by units") {
    PageReader page("<h1>The quay</h1><p>Nine <i>letters</i>. And more.<p>Last");
    Variant name;
    CHECK(page.element->GetPropertyValue(uia::name, name.Put()) == S_OK);
    CHECK(TextOf(&name.Get()) == L"Lanterns");
    CHECK(TextIn(page.Document()) == u"The quay\nNine letters. And more.\nLast");
    const Range range = page.At(L"Nine");
    CHECK(range->ExpandToEnclosingUnit(TextUnit_Line) == S_OK);
    CHECK(TextIn(range) == u"Nine letters. And more.\n");
    CHECK(MovedBy(range, TextUnit_Word, 1) == 1);
    CHECK(TextIn(range) == u"letters");
    CHECK(MovedBy(range, TextUnit_Paragraph, 1) == 1);
    CHECK(TextIn(range) == u"Last");
    CHECK(page.At(L"more")->Select() == S_OK);
    CHECK(page.view.SelectedText() == u"more");
    SAFEARRAY* boxes = nullptr;
    CHECK(page.At(L"more")->GetBoundingRectangles(&boxes) == S_OK);
    LONG last = -1;
    SafeArrayGetUBound(boxes, 1, &last);
    CHECK(last == 3);
    SafeArrayDestroy(boxes);
}

TEST_CASE("windows page accessibility: headings and lists are styles, which can be looked for") {
    PageReader page("<h2>Head</h2><p>text <b>bold</b><h3>Below</h3><ul><li>one</ul><ol><li>two</ol>"
                    "<h2>Again</h2>");
    CHECK(StyleOf(page.At(L"Head")) == uia::headingStyle + 2);
    CHECK(StyleOf(page.At(L"Below")) == uia::headingStyle + 3);
    CHECK(StyleOf(page.At(L"text")) == uia::normalStyle);
    CHECK(StyleOf(page.At(L"one")) == uia::bulletedListStyle);
    CHECK(StyleOf(page.At(L"two")) == uia::numberedListStyle);
    CHECK(StyleOf(page.Document()) == 0); // mixed
    const auto find = [&](LONG style, BOOL backward) -> std::u16string {
        const Variant value(style);
        Range found;
        CHECK(page.Document()->FindAttribute(uia::styleId, value.Get(), backward, &found) == S_OK);
        return found ? TextIn(found) : u"none";
    };
    CHECK(find(uia::headingStyle + 2, FALSE) == u"Head\n");
    CHECK(find(uia::headingStyle + 2, TRUE) == u"Again");
    CHECK(find(uia::headingStyle + 3, FALSE) == u"Below\n");
    CHECK(find(uia::headingStyle + 1, FALSE) == u"none");
}

TEST_CASE("windows page accessibility: links, lists, tables and pictures are elements") {
    PageReader page(
        "<h1>The quay</h1><p>See <a href='other.htm'>the other</a>.<ul><li>one<li>two</ul>"
        "<table><tr><td>a<td>b</table><img src='x.png' alt='A lantern'>");
    const Element heading = Go(page.Root(), NavigateDirection_FirstChild);
    REQUIRE(heading);
    CHECK(TypeOf(heading) == uia::text);
    CHECK(NameOf(heading) == L"The quay");
    CHECK(V_I4(&ValueOf(heading, uia::headingLevel)->Get()) == uia::noHeadingLevel + 1);
    CHECK_FALSE(Query<IInvokeProvider>(heading));
    CHECK_FALSE(Go(heading, NavigateDirection_PreviousSibling));
    const Element link = Go(heading, NavigateDirection_NextSibling);
    REQUIRE(link);
    CHECK(TypeOf(link) == uia::hyperlink);
    CHECK(NameOf(link) == L"the other");
    CHECK(TextOf(&ValueOf(link, uia::helpText)->Get()) == L"other.htm");
    CHECK(V_BOOL(&ValueOf(link, uia::isOffscreen)->Get()) == VARIANT_FALSE);
    UiaRect box = {};
    CHECK(link->get_BoundingRectangle(&box) == S_OK);
    CHECK(box.width > 10);
    ComPtr<IRawElementProviderFragmentRoot> root;
    CHECK(link->get_FragmentRoot(&root) == S_OK);
    Element there;
    CHECK(root->ElementProviderFromPoint(box.left + 2, box.top + 2, &there) == S_OK);
    REQUIRE(there);
    CHECK(NameOf(there) == L"the other");

    ComPtr<IUnknown> pattern;
    CHECK(Query<IRawElementProviderSimple>(link)->GetPatternProvider(uia::invokePattern,
                                                                     &pattern) == S_OK);
    REQUIRE(pattern);
    CHECK(Query<IInvokeProvider>(pattern)->Invoke() == S_OK);
    for (int i = 0; i < 3; ++i)
        PageReader::LetMessagesCome();
    REQUIRE(page.links.size() == 1);
    CHECK(page.links[0].ends_with(u"other.htm"));

    const Element list = Go(link, NavigateDirection_NextSibling);
    CHECK(TypeOf(list) == uia::list);
    const Element two = Go(list, NavigateDirection_LastChild);
    CHECK(TypeOf(two) == uia::listItem);
    CHECK(NameOf(two) == L"two");
    CHECK(TypeOf(Go(two, NavigateDirection_Parent)) == uia::list);
    const Element table = Go(list, NavigateDirection_NextSibling);
    CHECK(TypeOf(table) == uia::table);
    const Element cell = Go(Go(table, NavigateDirection_FirstChild), NavigateDirection_LastChild);
    CHECK(NameOf(cell) == L"b");
    const Element picture = Go(page.Root(), NavigateDirection_LastChild);
    CHECK(TypeOf(picture) == uia::image);
    CHECK(NameOf(picture) == L"A lantern");
    CHECK(TypeOf(Go(picture, NavigateDirection_Parent)) == uia::document);
}

TEST_CASE("windows page accessibility: ranges lead to elements and back") {
    PageReader page("<p>See <a href='other.htm'>the other</a> page");
    ComPtr<IRawElementProviderSimple> around;
    CHECK(page.At(L"other")->GetEnclosingElement(&around) == S_OK);
    const auto link = Query<IRawElementProviderFragment>(around);
    REQUIRE(link);
    CHECK(TypeOf(link) == uia::hyperlink);
    Range range;
    CHECK(page.element->RangeFromChild(around.Get(), &range) == S_OK);
    CHECK(TextIn(range) == u"the other");
    CHECK(page.At(L"page")->GetEnclosingElement(&around) == S_OK);
    CHECK(TypeOf(Query<IRawElementProviderFragment>(around)) == uia::document);

    SAFEARRAY* children = nullptr;
    REQUIRE(page.Document()->GetChildren(&children) == S_OK);
    LONG last = -1, first = 0;
    SafeArrayGetUBound(children, 1, &last);
    REQUIRE(last == 0);
    ComPtr<IUnknown> child;
    SafeArrayGetElement(children, &first, child.GetAddressOf());
    SafeArrayDestroy(children);
    CHECK(NameOf(Query<IRawElementProviderFragment>(child)) == L"the other");
    REQUIRE(page.At(L"See")->GetChildren(&children) == S_OK);
    SafeArrayGetUBound(children, 1, &last);
    CHECK(last == -1);
    SafeArrayDestroy(children);
}

TEST_CASE("windows page accessibility: elements of a page before are none any more") {
    PageReader page("<h1>One</h1>");
    const Element before = Go(page.Root(), NavigateDirection_FirstChild);
    REQUIRE(before);
    page.Show("<p>No heading");
    Variant name;
    CHECK(Query<IRawElementProviderSimple>(before)->GetPropertyValue(uia::name, name.Put()) ==
          uia::elementNotAvailable);
    Element found;
    CHECK(before->Navigate(NavigateDirection_Parent, &found) == uia::elementNotAvailable);
    CHECK_FALSE(Go(page.Root(), NavigateDirection_FirstChild));
}

TEST_CASE("windows page accessibility: a link that Tab leads to has the focus within the page") {
    PageReader page("<p><a href='a.htm'>first</a> and <a href='b.htm'>second</a>");
    const auto root = Query<IRawElementProviderFragmentRoot>(page.element);
    REQUIRE(root);
    Element focused;
    CHECK(root->GetFocus(&focused) == S_OK);
    CHECK_FALSE(focused);
    SendMessageW(page.view.Handle(), WM_KEYDOWN, VK_TAB, 0);
    CHECK(root->GetFocus(&focused) == S_OK);
    REQUIRE(focused);
    CHECK(NameOf(focused) == L"first");
}

TEST_CASE("windows page accessibility: the window's end is the elements'") {
    Element heading;
    ComPtr<TextProvider> element;
    {
        PageReader page("<h1>One</h1>");
        element = page.element;
        heading = Go(page.Root(), NavigateDirection_FirstChild);
    }
    REQUIRE(heading);
    Element found;
    CHECK(heading->Navigate(NavigateDirection_Parent, &found) == uia::elementNotAvailable);
    UiaRect box = {};
    CHECK(heading->get_BoundingRectangle(&box) == uia::elementNotAvailable);
    Range range;
    CHECK(element->get_DocumentRange(&range) == uia::elementNotAvailable);
}
