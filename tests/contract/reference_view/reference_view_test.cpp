// The text view, which lays out visible blocks only, compared with the reference layout of the
// whole text after random input, on the program's back ends of line layout.
//
// NORVASET_VIEW_BOOKS=first-last runs these books instead of the default ones.
#include "tests/contract/line_layout_contract.h"
#include "tests/contract/reference_view/reference_comparison.h"

#include <doctest/doctest.h>

#include <cstdio>
#include <cstdlib>

namespace {
void CompareBook(LineLayout& lines, int number) {
    CAPTURE(number);
    Random random{unsigned(number)};
    RandomBook book = MakeBook(random, number);
    const int steps = book.isLong ? 12 : 40;
    ReferenceComparison comparison(lines, random, std::move(book));
    comparison.CheckAll();
    for (int step = 0; step < steps; ++step) {
        CAPTURE(step);
        comparison.Step();
        CAPTURE(comparison.Done());
        comparison.CheckPlace();
        if (step % 4 == 3) comparison.CheckAll();
    }
}
} // namespace

TEST_CASE("text view: it shows the same as the reference layout of the whole text") {
    OnEachLineLayout([](LineLayout& lines) {
        int first = 0, last = 24;
        if (const char* books = std::getenv("NORVASET_VIEW_BOOKS"))
            std::sscanf(books, "%d-%d", &first, &last);
        for (int number = first; number <= last; ++number)
            CompareBook(lines, number);
    });
}
