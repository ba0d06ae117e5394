// The text view on Qt, which lays out what is seen, held against the slow layout of the whole text:
// the same lines at the same places, whatever is done to it.
//
// More of it by hand: NORVASET_VIEW_BOOKS=first-last runs these books instead of the usual ones.
#include "tests/contract/qt/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>

namespace {
void HoldBook(int number) {
    CAPTURE(number);
    Random random{unsigned(number)};
    RandomBook book = MakeBook(random, number);
    const int steps = book.isLong ? 12 : 40;
    Held held(random, std::move(book));
    held.CheckAll();
    for (int step = 0; step < steps; ++step) {
        CAPTURE(step);
        held.Step();
        CAPTURE(held.Done());
        held.CheckPlace();
        if (step % 4 == 3) held.CheckAll();
    }
}
} // namespace

TEST_CASE("qt text view: what it shows is what the layout of the whole text shows") {
    int first = 0, last = 24;
    if (const char* books = std::getenv("NORVASET_VIEW_BOOKS"))
        std::sscanf(books, "%d-%d", &first, &last);
    for (int number = first; number <= last; ++number)
        HoldBook(number);
}
