// Text ranges.
#define CINTERFACE
#include "tests/contract/stand_in/stand_in_document.h"

#include <algorithm>
#include <cwctype>

namespace {

class Range : public CObject {
  public:
    Range(StandIn& world, StandInContent& shared, int from, int to);

    StandInContent& content;
    int start, end;
    Facet<IHTMLTxtRange> text;
    Facet<IHTMLTextRangeMetrics> metrics;

    int Within(long position) const {
        return static_cast<int>(std::clamp(position, 0L, static_cast<long>(content.Length())));
    }
};

Range& Of(IHTMLTxtRange* self) {
    return ObjectOf<Range>(self);
}

std::wstring TextOf(const Range& range) {
    return range.content.page.text.substr(range.start, range.end - range.start);
}

BSTR WithLongBreaks(const std::wstring& text) {
    std::wstring result;
    for (const wchar_t unit : text)
        result += unit == L'\n' ? L"\r\n" : std::wstring(1, unit);
    return SysAllocString(result.c_str());
}

std::wstring Lower(std::wstring text) {
    for (wchar_t& unit : text)
        unit = static_cast<wchar_t>(std::towlower(unit));
    return text;
}

bool IsWord(const std::wstring& text, std::size_t start, std::size_t length) {
    const auto isLetter = [&](std::size_t at) {
        return at < text.size() && std::iswalnum(text[at]);
    };
    return !(start > 0 && isLetter(start - 1)) && !isLetter(start + length);
}

// Makes the range the first place in it.
bool Find(Range& range, const std::wstring& wanted, long flags) {
    const bool sameCase = flags & 4, wholeWord = flags & 2;
    const std::wstring& whole = range.content.page.text;
    const std::wstring text = sameCase ? whole : Lower(whole);
    const std::wstring what = sameCase ? wanted : Lower(wanted);
    std::size_t at = text.find(what, range.start);
    while (at != std::wstring::npos && wholeWord && !IsWord(text, at, what.size()))
        at = text.find(what, at + 1);
    if (at == std::wstring::npos || static_cast<int>(at + what.size()) > range.end) return false;
    range.start = static_cast<int>(at);
    range.end = static_cast<int>(at + what.size());
    return true;
}

std::string Call(const char* name, const wchar_t* unit, long count) {
    return std::string(name) + " " + Narrow(unit) + " " + std::to_string(count);
}

void AddReading(TableOf<IHTMLTxtRange>& table) {
    table.get_text = [](IHTMLTxtRange* self, BSTR* text) -> HRESULT {
        return Of(self).World().Answer("range.text",
                                       [&] { *text = WithLongBreaks(TextOf(Of(self))); });
    };
    table.get_htmlText = [](IHTMLTxtRange* self, BSTR* text) -> HRESULT {
        return Of(self).World().Answer("range.htmlText", [&] {
            const std::wstring inside = TextOf(Of(self));
            *text = SysAllocString(inside.empty() ? L"" : (L"<P>" + inside + L"</P>").c_str());
        });
    };
    table.duplicate = [](IHTMLTxtRange* self, IHTMLTxtRange** copy) -> HRESULT {
        Range& range = Of(self);
        return range.World().Count(
            [&] { *copy = MakeRange(range.World(), range.content, range.start, range.end); });
    };
    table.inRange = [](IHTMLTxtRange* self, IHTMLTxtRange* other, VARIANT_BOOL* inside) -> HRESULT {
        return Of(self).World().Answer("range.inRange", [&] {
            const bool is = Of(self).start <= Of(other).start && Of(other).end <= Of(self).end;
            *inside = is ? VARIANT_TRUE : VARIANT_FALSE;
        });
    };
    table.isEqual = [](IHTMLTxtRange* self, IHTMLTxtRange* other, VARIANT_BOOL* equal) -> HRESULT {
        return Of(self).World().Count([&] {
            const bool is = Of(self).start == Of(other).start && Of(other).end == Of(self).end;
            *equal = is ? VARIANT_TRUE : VARIANT_FALSE;
        });
    };
}

void AddMoving(TableOf<IHTMLTxtRange>& table) {
    table.collapse = [](IHTMLTxtRange* self, VARIANT_BOOL toStart) -> HRESULT {
        Range& range = Of(self);
        return range.World().Count(
            [&] { (toStart ? range.end : range.start) = toStart ? range.start : range.end; });
    };
    table.move = [](IHTMLTxtRange* self, BSTR unit, long count, long* moved) -> HRESULT {
        Range& range = Of(self);
        return range.World().Answer(Call("range.move", unit, count), [&] {
            const int before = range.start;
            range.start = range.end = range.Within(before + count);
            *moved = range.start - before;
        });
    };
    table.moveEnd = [](IHTMLTxtRange* self, BSTR unit, long count, long* moved) -> HRESULT {
        Range& range = Of(self);
        return range.World().Answer(Call("range.moveEnd", unit, count), [&] {
            const int before = range.end;
            range.end = range.Within(before + count);
            *moved = range.end - before;
        });
    };
    table.moveToPoint = [](IHTMLTxtRange* self, long x, long y) -> HRESULT {
        Range& range = Of(self);
        const std::string call = "range.moveToPoint " + std::to_string(x) + " " + std::to_string(y);
        return range.World().Answer(call, [&] {
            const StandInContent& content = range.content;
            range.start = range.end = content.At(x + content.scrollLeft, y + content.scrollTop);
        });
    };
    table.setEndPoint = [](IHTMLTxtRange* self,
                           BSTR how, // NOLINT(readability-non-const-parameter): of the interface
                           IHTMLTxtRange* other) -> HRESULT {
        return Of(self).World().Answer("range.setEndPoint " + Narrow(how),
                                       [&] { Of(self).start = Of(other).end; });
    };
}

void AddActing(TableOf<IHTMLTxtRange>& table) {
    table.select = [](IHTMLTxtRange* self) -> HRESULT {
        Range& range = Of(self);
        return range.World().Answer("range.select", [&] {
            range.content.selectionStart = range.start;
            range.content.selectionEnd = range.end;
        });
    };
    table.findText = [](IHTMLTxtRange* self,
                        BSTR what, // NOLINT(readability-non-const-parameter): of the interface
                        long, long flags, VARIANT_BOOL* found) -> HRESULT {
        const std::string call =
            "range.findText " + Narrow(what) + " flags " + std::to_string(flags);
        return Of(self).World().Answer(call, [&] {
            *found = Find(Of(self), what ? what : L"", flags) ? VARIANT_TRUE : VARIANT_FALSE;
        });
    };
}

TableOf<IHTMLTxtRange>& TextTable() {
    static TableOf<IHTMLTxtRange> table = [] {
        auto made = EmptyTable<IHTMLTxtRange>();
        AddReading(made);
        AddMoving(made);
        AddActing(made);
        return made;
    }();
    return table;
}

TableOf<IHTMLTextRangeMetrics>& MetricsTable() {
    static TableOf<IHTMLTextRangeMetrics> table = [] {
        auto made = EmptyTable<IHTMLTextRangeMetrics>();
        made.get_offsetTop = [](IHTMLTextRangeMetrics* self, long* top) -> HRESULT {
            Range& range = ObjectOf<Range>(self);
            return range.World().Answer("range.offsetTop", [&] {
                *top = range.content.TopOf(range.start) - range.content.scrollTop;
            });
        };
        made.get_offsetLeft = [](IHTMLTextRangeMetrics* self, long* left) -> HRESULT {
            Range& range = ObjectOf<Range>(self);
            return range.World().Answer("range.offsetLeft", [&] {
                *left = range.content.LeftOf(range.start) - range.content.scrollLeft;
            });
        };
        made.get_boundingHeight = [](IHTMLTextRangeMetrics* self, long* height) -> HRESULT {
            Range& range = ObjectOf<Range>(self);
            return range.World().Count([&] {
                const int lines = 1 + range.content.LineFromChar(range.end) -
                                  range.content.LineFromChar(range.start);
                *height = lines * StandIn::LineHeight;
            });
        };
        return made;
    }();
    return table;
}

Range::Range(StandIn& world, StandInContent& shared, int from, int to)
    : CObject(world), content(shared), start(from), end(to), text(this, TextTable()),
      metrics(this, MetricsTable()) {
    Offer(IID_IUnknown, &text);
    Offer(IID_IDispatch, &text);
    Offer(IID_IHTMLTxtRange, &text);
    Offer(IID_IHTMLTextRangeMetrics, &metrics);
}

} // namespace

IHTMLTxtRange* MakeRange(StandIn& world, StandInContent& content, int start, int end) {
    return &(new Range(world, content, start, end))->text;
}
