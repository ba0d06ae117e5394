// A file of another format, opened by mistake.
#include "test_form.h"

#include "app/file_menu.h"
#include "app/open_book.h"

#include <doctest/doctest.h>

#include <vector>

namespace {
constexpr std::string_view pdf = "%PDF-1.7\n%\xE2\xE3\xCF\xD3\n1 0 obj\n";
const std::vector<std::u16string> bookAlone = {u"/b/a.txt"};
const std::vector<std::u16string> both = {u"/b/paper.txt", u"/b/a.txt"};

struct Foreign : TestForm {
    Foreign() {
        PutBook(u"/b/a.txt");
        PutBook(u"/b/paper.txt", pdf);
        Dialogs().messageAnswer = DialogResult::Cancel;
    }
    void StartWithBook() {
        REQUIRE(Start());
        OpenBook(form, u"/b/a.txt");
    }
    void CheckAsked(std::size_t times = 1) {
        REQUIRE(Dialogs().messages.size() == times);
        const Message& message = Dialogs().messages.back();
        CHECK(message.text.starts_with(u"/b/paper.txt\r\nis a PDF document.\r\n"));
        CHECK(message.title == u"Norvaset Message");
        CHECK(message.buttons == MessageButtons::OkCancel);
        CHECK(message.cancelIsDefault);
        CHECK(message.helpTopic == "mFileOpen");
    }
};
} // namespace

TEST_CASE("foreign file: refused, it leaves everything as it is") {
    Foreign test;
    test.StartWithBook();
    const std::string before = test.DataFile();
    const int loads = test.View().loads;
    const RequestedKind kinds[] = {std::nullopt, BookKind::Text, BookKind::RichText,
                                   BookKind::Html};
    std::size_t asked = 0;
    for (const RequestedKind kind : kinds) {
        OpenBook(test.form, u"/b/paper.txt", kind);
        test.CheckAsked(++asked);
    }
    CHECK(test.DataFile() == before);
    CHECK(test.View().loads == loads);
    CHECK(test.Order() == bookAlone);
    CHECK(test.Window().title == u"Norvaset [Default] - /b/a.txt");
}

TEST_CASE("foreign file: shown when the reader says so, and not asked about again") {
    Foreign test;
    test.StartWithBook();
    test.Dialogs().messageAnswer = DialogResult::Ok;
    OpenBook(test.form, u"/b/paper.txt");
    test.CheckAsked();
    CHECK(test.Order() == both);
    CHECK(test.View().TextRange(0, 4) == u"%PDF");
    OpenBook(test.form, u"/b/a.txt");
    OpenBook(test.form, u"/b/paper.txt");
    test.CheckAsked();
    CHECK(test.Order() == both);
}

TEST_CASE("foreign file: dropped, and brought by a later start") {
    Foreign test;
    test.StartWithBook();
    test.View().onFilesDropped({u"/b/paper.txt"});
    test.CheckAsked();
    test.Shell().onStartRequest({u"/b/paper.txt", u""});
    test.CheckAsked(2);
    CHECK(test.Order() == bookAlone);
}

TEST_CASE("foreign file: given at the start, the question waits for the window") {
    Foreign first;
    first.StartWithBook();
    first.Close();
    TestForm refused(first);
    refused.form.ports.launch.commandLine = u"/b/paper.txt";
    refused.Dialogs().messageAnswer = DialogResult::Cancel;
    REQUIRE(Form_Load(refused.form));
    CHECK(refused.Dialogs().messages.empty());
    CHECK(refused.Window().title == u"Norvaset [Default] - /b/a.txt");
    refused.Window().ComeUp();
    CHECK(refused.Dialogs().messages.size() == 1);
    CHECK(refused.Order() == bookAlone);
    refused.Close();

    TestForm shown(refused);
    shown.form.ports.launch.commandLine = u"/b/paper.txt";
    REQUIRE(shown.Start());
    CHECK(shown.Dialogs().messages.size() == 1);
    CHECK(shown.Order() == both);
    shown.Close();

    TestForm next(shown);
    REQUIRE(next.Start());
    CHECK(next.Dialogs().messages.empty());
    CHECK(next.Window().title == u"Norvaset [Default] - /b/paper.txt");
}
