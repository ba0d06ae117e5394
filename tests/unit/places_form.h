// A form with a book in which each place has words that stand nowhere else.
#pragma once

#include "test_form.h"

#include "app/open_book.h"
#include "app/view_menu.h"
#include "common/utf.h"
#include "tests/unit/text_edits.h"

// A book with a page of its own for each place: words that stand nowhere else.
inline std::u16string BookText(unsigned seed = 1) {
    std::mt19937 random(seed);
    std::u16string text;
    while (text.size() < 20'000)
        text += RandomBook(random, 20);
    return text;
}

struct Places : TestForm {
    Places() {
        PutBook(path, Utf16ToUtf8(text));
        Start();
        OpenBook(form, path);
    }
    explicit Places(Places& earlier) : TestForm(earlier), text(earlier.text) {}

    void Put(const std::u16string& changed) { Files().EditInPlace(path, Utf16ToUtf8(changed)); }
    void Define(TextPos start) {
        View().Select(start, 10);
        Menus().Open(Menu().mBookmark);
        Menus().Click(Menu().mBookmarkNew);
    }
    void Refresh() { mViewRefresh_Click(form, 0); }
    std::u16string Section() {
        const std::string bytes = DataFile();
        const std::size_t at = bytes.find("[Default\\/b/book.txt]");
        return at == bytes.npos ? u"" : Utf8ToUtf16(bytes.substr(at));
    }
    std::u16string TextAt(TextPos position, TextPos length = 20) {
        return View().TextRange(position, length);
    }
    // Seconds go by. What the system says comes at their end, and starts a new one.
    void Wait(int seconds = 1) {
        for (int i = 0; i < seconds; ++i) {
            ChangeTimer().Tick();
            Timer().Tick();
            FileWatch().Deliver();
        }
    }
    TextPos Mark(int index) {
        return ParseMark(Menu().mBookmarkList[static_cast<std::size_t>(index)].tag)->start;
    }

    static constexpr const char16_t* path = u"/b/book.txt";
    std::u16string text = BookText();
};

inline const std::u16string added =
    u"A chapter that was not there before. Nobody had missed it.\n\n";
