#include "common/list_merge.h"

#include <doctest/doctest.h>

TEST_CASE("list merge: ours, with what only the other one has changed or added") {
    const struct {
        const char* what;
        ListLines base, ours, theirs, merged;
    } cases[] = {
        {"nothing changed", {u"a=1"}, {u"a=1"}, {u"a=1"}, {u"a=1"}},
        {"only ours changed",
         {u"a=1", u"b=1"},
         {u"b=2", u"a=1"},
         {u"a=1", u"b=1"},
         {u"b=2", u"a=1"}},
        {"a line of theirs comes after the first",
         {u"a=1", u"b=1"},
         {u"b=1", u"a=1"},
         {u"c=3", u"a=1", u"b=1"},
         {u"b=1", u"c=3", u"a=1"}},
        {"both added one", {}, {u"a=1"}, {u"b=2", u"c=3"}, {u"a=1", u"b=2", u"c=3"}},
        {"both added the same", {}, {u"a=1"}, {u"a=2"}, {u"a=1"}},
        {"theirs changed, ours did not",
         {u"a=1", u"b=1"},
         {u"a=1", u"b=1"},
         {u"a=9", u"b=1"},
         {u"a=9", u"b=1"}},
        {"both changed", {u"a=1"}, {u"a=2"}, {u"a=3"}, {u"a=2"}},
        {"ours took one out",
         {u"a=1", u"b=1"},
         {u"a=1"},
         {u"a=1", u"b=1", u"c=1"},
         {u"a=1", u"c=1"}},
        {"theirs took one out: it stays",
         {u"a=1", u"b=1"},
         {u"a=1", u"b=1"},
         {u"a=1"},
         {u"a=1", u"b=1"}},
        {"ours is empty", {u"a=1"}, {}, {u"a=1", u"b=1"}, {u"b=1"}},
        {"theirs is empty", {u"a=1"}, {u"a=1"}, {}, {u"a=1"}},
        {"a line twice", {}, {u"a=1"}, {u"b=1", u"b=2"}, {u"a=1", u"b=1"}},
        {"names with =, as whole lines they differ", {}, {u"x=1"}, {u"x=2"}, {u"x=1"}},
    };
    for (const auto& c : cases) {
        CAPTURE(c.what);
        CHECK(MergedList(c.base, c.ours, c.theirs, KeyOfLine) == c.merged);
    }
    CHECK(MergedList({}, {u"x=1"}, {u"x=2"}, WholeLine) == ListLines{u"x=1", u"x=2"});
}
