// A text view on the screen, and what a screen reader asks of it by UI Automation.
#pragma once

#include "platform/windows/base/com_values.h"
#include "platform/windows/base/text.h"
#include "platform/windows/text_pane/win_text_view.h"

#include <doctest/doctest.h>

#include <array>
#include <random>
#include <string>

constexpr auto start = TextPatternRangeEndpoint_Start, end = TextPatternRangeEndpoint_End;

class ShownPopup {
  public:
    ShownPopup()
        : window_(CreateWindowExW(WS_EX_TOPMOST | WS_EX_NOACTIVATE, L"STATIC", L"", WS_POPUP, 30,
                                  40, 600, 400, nullptr, nullptr, nullptr, nullptr)) {
        ShowWindow(window_, SW_SHOWNA);
    }
    ~ShownPopup() { DestroyWindow(window_); }
    ShownPopup(const ShownPopup&) = delete;
    ShownPopup& operator=(const ShownPopup&) = delete;
    HWND Handle() const { return window_; }

  private:
    HWND window_;
};

using Range = ComPtr<ITextRangeProvider>;

inline std::u16string TextIn(const Range& range, int most = -1) {
    Bstr text;
    CHECK(range->GetText(most, text.Put()) == S_OK);
    return FromWide(text.View());
}

inline Range CloneOf(const Range& range) {
    Range clone;
    CHECK(range->Clone(&clone) == S_OK);
    return clone;
}

inline int Difference(const Range& a, TextPatternRangeEndpoint of, const Range& b,
                      TextPatternRangeEndpoint to) {
    int difference = 0;
    CHECK(a->CompareEndpoints(of, b.Get(), to, &difference) == S_OK);
    return difference;
}

inline int MovedBy(const Range& range, TextUnit unit, int count) {
    int moved = 0;
    CHECK(range->Move(unit, count, &moved) == S_OK);
    return moved;
}

struct Reader {
    ShownPopup window;
    WinTextView view{window.Handle()};
    ComPtr<TextProvider> element = view.Accessible();

    explicit Reader(int width = 400, int height = 300) {
        view.SetBounds({10, 20, width, height});
        view.SetVisible(true);
    }
    Range Document() {
        Range range;
        CHECK(element->get_DocumentRange(&range) == S_OK);
        return range;
    }
    Range At(TextPos from, TextPos to) { // leaves the caret at the start
        view.Pane().Select(from, to);
        Range range = Selection();
        view.Pane().Select(0, 0);
        return range;
    }
    template <typename Ask>
    Range Only(Ask ask) {
        SAFEARRAY* all = nullptr;
        REQUIRE(ask(&all) == S_OK);
        REQUIRE(all != nullptr);
        LONG last = -1, first = 0;
        SafeArrayGetUBound(all, 1, &last);
        CHECK(last == 0);
        ComPtr<IUnknown> object;
        SafeArrayGetElement(all, &first, object.GetAddressOf());
        SafeArrayDestroy(all);
        return Query<ITextRangeProvider>(object);
    }
    Range Selection() {
        return Only([&](SAFEARRAY** all) { return element->GetSelection(all); });
    }
    TextPos StartOf(const Range& range) { return Difference(range, start, Document(), start); }
    TextPos EndOf(const Range& range) { return Difference(range, end, Document(), start); }
};

// With pairs of surrogates, marks, words of several scripts, tabs, long and empty lines.
inline std::u16string RandomText(unsigned seed) {
    static const std::array<std::u16string, 14> parts = {
        u"word",    u" ",          u"  ",
        u"e\u0301", u"\U0001D11E", u"\U0001F1E9\U0001F1EA",
        u"don't,",  u"\n",         u"\u05D0\u05D1",
        u"\t",      u"3.14",       u"\U0001F469\u200D\U0001F4BB",
        u"\n\n",    u"\u4E2D"};
    std::minstd_rand random(seed);
    std::u16string text;
    for (int i = 0; i < 120; ++i)
        text += parts[random() % parts.size()];
    return text;
}
