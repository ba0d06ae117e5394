// What the port of the desktop's shell promises, on every back end.
#include "tests/contract/shell_contract.h"

#include <doctest/doctest.h>

#include <future>

namespace {
using Arguments = std::vector<std::u16string>;

constexpr int aWhile = 20'000; // milliseconds; longer than a busy machine takes

// What a second start gets, which waits beside the event loop of the first one.
HandOver AskBeside(ShellUnderTest& first, const std::u16string& file, const std::u16string& book) {
    const auto second = ShellBackEnds().front().make();
    auto answer = std::async(std::launch::async,
                             [&] { return second->Port().HandOverBook(file, book, aWhile); });
    while (answer.wait_for(std::chrono::milliseconds(1)) != std::future_status::ready)
        first.Settle();
    return answer.get();
}
} // namespace

TEST_CASE("shell contract: an argument reaches a program as it is") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        for (const std::u16string& argument :
             {std::u16string(u"/books/Walden.txt"), std::u16string(u"C:\\my books\\War and Peace"),
              std::u16string(), std::u16string(u" "), std::u16string(u"\\"),
              std::u16string(u"ends in a backslash\\"), std::u16string(u"a\"b c\\\"d\\\\\"e \\ f"),
              std::u16string(u"tab\tnew line\nend"),
              std::u16string(u"%PATH% $HOME $(echo x) `y` & | < > ^ ' * ? ;"),
              std::u16string(u"\u0411\u0443\u043B \u05E9\u05DC \U0001D11E"),
              std::u16string(u"--option=\"x\""), std::u16string(30'000, u'x')}) {
            test.Port().OpenWith(test.Program(), argument);
            CHECK((test.NextStart() == Arguments{argument}));
        }
    });
}

// What must not start anything is followed by what does: the first start recorded is that one.
TEST_CASE("shell contract: a program that is not there is not started") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        test.Port().OpenWith(test.Folder() + u"/none", u"x");
        test.Port().OpenWith(test.Folder(), u"x");
        test.Port().OpenWith(u"", u"x");
        test.Port().OpenWith(test.Program(), u"there");
        CHECK((test.NextStart() == Arguments{u"there"}));
    });
}

TEST_CASE("shell contract: an address goes to its program, and none that could run something") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        for (const std::u16string& address :
             {std::u16string(u"javascript:alert(1)"), std::u16string(u"file://") + test.File(),
              test.File(), test.Program(), std::u16string(), std::u16string(u"no scheme"),
              test.Address() + u" and a space", test.Address() + u"\"", std::u16string(u"--help")})
            test.Port().OpenAddress(address);
        test.Port().OpenAddress(test.Address());
        CHECK((test.NextStart() == Arguments{test.Address()}));
    });
}

TEST_CASE("shell contract: a file goes to the program for its kind, by its full path only") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        test.Port().OpenFile(u"");
        test.Port().OpenFile(u"song");
        test.Port().OpenFile(u"--help");
        test.Port().OpenFile(test.File());
        CHECK((test.NextStart() == Arguments{test.File()}));
    });
}

TEST_CASE("shell contract: the default editor exists") {
    OnEach(ShellBackEnds(),
           [](ShellUnderTest& test) { CHECK(test.Exists(test.Port().DefaultTextEditor())); });
}

TEST_CASE("shell contract: a data file is claimed once") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        const std::u16string file = test.Folder() + u"/Norvaset.dat";
        CHECK(test.Port().ClaimDataFile(file).IsGranted());
        CHECK(test.Port().ClaimDataFile(file).IsGranted()); // it has it already
        for (const BackEnd<ShellUnderTest>& backEnd : ShellBackEnds()) {
            const auto other = backEnd.make();
            const InstanceClaim claim = other->Port().ClaimDataFile(file);
            CHECK(claim.result == InstanceClaim::Result::Own);
            CHECK(claim.holder.empty());
        }
    });
}

TEST_CASE("shell contract: a later start's book reaches the one that has the data file") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        const std::u16string file = test.Folder() + u"/Norvaset.dat";
        std::vector<std::u16string> books;
        test.Port().onStartRequest = [&](const StartRequest& request) {
            books.push_back(request.book);
        };
        REQUIRE(test.Port().ClaimDataFile(file).IsGranted());
        const std::u16string book =
            test.Folder() + u"/\u0411\u0443\u043A\u0432\u0430 = \U0001D11E.txt";
        CHECK(AskBeside(test, file, book) == HandOver::Taken);
        CHECK(AskBeside(test, file, u"") == HandOver::Taken);
        const std::u16string undecipherable = test.Folder() + u"/who?.txt"; // for the message
        CHECK(AskBeside(test, file, undecipherable) == HandOver::Taken);
        test.Settle();
        CHECK((books == std::vector<std::u16string>{book, u"", undecipherable}));
    });
}

TEST_CASE("shell contract: nobody is there without a claim, or with nobody who listens") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        const std::u16string file = test.Folder() + u"/Norvaset.dat";
        CHECK(test.Port().HandOverBook(file, u"", aWhile) == HandOver::NobodyThere);
        REQUIRE(test.Port().ClaimDataFile(file).IsGranted());
        CHECK(AskBeside(test, file, u"") == HandOver::Refused);
        const std::u16string other = test.Folder() + u"/Other.dat";
        CHECK(AskBeside(test, other, u"") == HandOver::NobodyThere);
    });
}

TEST_CASE("shell contract: what was given up does not happen later") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        const std::u16string file = test.Folder() + u"/Norvaset.dat";
        int requests = 0;
        test.Port().onStartRequest = [&](const StartRequest&) { ++requests; };
        REQUIRE(test.Port().ClaimDataFile(file).IsGranted());
        const auto second = ShellBackEnds().front().make();
        auto answer = std::async(std::launch::async,
                                 [&] { return second->Port().HandOverBook(file, u"", 50); });
        CHECK(answer.get() == HandOver::NoAnswer); // no event loop runs here
        test.Settle();
        CHECK(requests == 0);
    });
}

TEST_CASE("shell contract: a handler may take itself away") {
    OnEach(ShellBackEnds(), [](ShellUnderTest& test) {
        const std::u16string file = test.Folder() + u"/Norvaset.dat";
        int requests = 0;
        test.Port().onStartRequest = [&](const StartRequest&) {
            test.Port().onStartRequest = nullptr;
            ++requests;
        };
        REQUIRE(test.Port().ClaimDataFile(file).IsGranted());
        CHECK(AskBeside(test, file, u"") == HandOver::Taken);
        test.Settle();
        CHECK(AskBeside(test, file, u"") == HandOver::Refused);
        CHECK(requests == 1);
    });
}
