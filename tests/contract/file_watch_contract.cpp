// What the port of the file watch promises, on every back end.
#include "tests/contract/file_watch_contract.h"

#include <doctest/doctest.h>

#include <utility>

namespace {
// The calls that come.
struct Calls {
    explicit Calls(FileWatch& watch) : port(watch) {
        port.onChanged = [this] { ++count; };
    }
    ~Calls() { port.onChanged = nullptr; }
    Calls(const Calls&) = delete;
    Calls& operator=(const Calls&) = delete;

    FileWatch& port;
    int count = 0;
};

// Until all that has happened so far has been told: by a watch that began later.
void WaitForOthers(FileWatchUnderTest& test) {
    const auto path = test.Path(u"last.txt");
    Calls last(test.OtherPort());
    test.OtherPort().Watch(path);
    test.Write(path, "last");
    REQUIRE(test.Becomes([&] { return last.count > 0; }));
    test.OtherPort().Stop();
}
} // namespace

TEST_CASE("file watch contract: a file that is written, replaced, removed and made again") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"b\u00F6ok.txt");
        test.Write(path, "one");
        Calls calls(test.Port());
        test.Port().Watch(path);
        CHECK(test.Port().SeesAllChanges());
        const auto isReported = [&] {
            const int before = std::exchange(calls.count, 0);
            CAPTURE(before);
            return test.Becomes([&] { return calls.count > 0; });
        };
        for (int round = 0; round < 2; ++round) { // also the file that took the place
            test.Write(path, "two, written in place");
            CHECK(calls.count == 0); // never from within
            CHECK(isReported());
            WaitForOthers(test);
            calls.count = 0;
            test.Replace(path, "three");
            CHECK(isReported());
            WaitForOthers(test);
            calls.count = 0;
        }
        test.Remove(path);
        CHECK(isReported());
        WaitForOthers(test);
        calls.count = 0;
        test.Write(path, "four");
        CHECK(isReported());
        CHECK(test.Port().SeesAllChanges());
    });
}

TEST_CASE("file watch contract: nothing is reported of other files, and nothing after the end") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"book.txt"), other = test.Path(u"book.txt.dat");
        test.Write(path, "one");
        Calls calls(test.Port());
        test.Port().Watch(path);
        test.Write(other, "neighbour");
        test.Replace(other, "neighbour, new");
        WaitForOthers(test);
        CHECK(calls.count == 0);
        test.Port().Watch(other);
        test.Write(path, "two");
        WaitForOthers(test);
        CHECK(calls.count == 0);
        test.Write(other, "watched by now");
        CHECK(test.Becomes([&] { return calls.count > 0; }));
        test.Port().Stop();
        CHECK_FALSE(test.Port().SeesAllChanges());
        calls.count = 0;
        test.Write(other, "watched no more");
        WaitForOthers(test);
        CHECK(calls.count == 0);
        test.Port().Stop();
    });
}

TEST_CASE("file watch contract: one that is not there yet, and one that cannot be") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"later.txt");
        Calls calls(test.Port());
        test.Port().Watch(path);
        CHECK(test.Port().SeesAllChanges());
        test.Write(path, "here");
        CHECK(test.Becomes([&] { return calls.count > 0; }));
        test.Port().Watch(u"");
        CHECK_FALSE(test.Port().SeesAllChanges());
    });
}

TEST_CASE("file watch contract: a handler may watch another file, or stop") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"book.txt"), next = test.Path(u"next.txt");
        int calls = 0;
        test.Port().onChanged = [&] {
            if (++calls == 1)
                test.Port().Watch(next);
            else
                test.Port().Stop();
        };
        test.Port().Watch(path);
        test.Write(path, "one");
        CHECK(test.Becomes([&] { return calls == 1; }));
        test.Write(next, "two");
        CHECK(test.Becomes([&] { return calls == 2; }));
        test.Write(next, "three");
        WaitForOthers(test);
        CHECK(calls == 2);
        test.Port().onChanged = nullptr;
    });
}

TEST_CASE("file watch contract: what a link leads to") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"real.txt");
        test.Write(path, "one");
        const auto link = test.LinkTo(path);
        if (link.empty()) return;
        Calls calls(test.Port());
        test.Port().Watch(link);
        test.Write(path, "two");
        CHECK(test.Becomes([&] { return calls.count > 0; }));
        WaitForOthers(test);
        calls.count = 0;
        test.Replace(path, "three");
        CHECK(test.Becomes([&] { return calls.count > 0; }));
    });
}

TEST_CASE("file watch contract: it knows when the folder has another name") {
    OnEach(FileWatchBackEnds(), [](FileWatchUnderTest& test) {
        const auto path = test.Path(u"book.txt");
        test.Write(path, "one");
        Calls calls(test.Port());
        test.Port().Watch(path);
        if (!test.RenameFolder()) return;
        CHECK(test.Becomes([&] { return !test.Port().SeesAllChanges(); }));
        CHECK(calls.count > 0);
    });
}
