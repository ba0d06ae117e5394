#include "shell/update/update_check.h"

#include "common/utf.h"
#include "test_form.h"

#include <doctest/doctest.h>

namespace {
struct Checking : TestForm { // its version is 2.5.12
    Checking() {
        Version().version.comments = u"https://web.example, mailto:us@web.example";
        Start();
    }
    void Check(FetchStatus status, const std::string& bytes = {}) {
        Update().answer = {status, bytes};
        Menus().Click(Menu().mHelpUpdate);
    }
};

std::string File(const char* version) {
    return std::string("{\"version\":\"") + version + "\"}\n";
}
} // namespace

TEST_CASE("update check: the file's address") {
    Checking test;
    test.form.ports.launch.executableName = u"Reader";
    test.Check(FetchStatus::Failed);
    CHECK(test.Update().fetched ==
          std::vector<std::u16string>{u"https://web.example/Products/Norvaset/Reader.js"});
}

TEST_CASE("update check: nothing is fetched unless asked") {
    Checking test;
    test.Timer().Tick(3600);
    test.Menus().Open(test.Menu().mHelp);
    test.Close();
    CHECK(test.Update().fetched.empty());
}

TEST_CASE("update check: a failure is reported as an error") {
    Checking test;
    for (const std::string& bytes : {std::string(), File("9.9"), std::string("<html>")})
        test.Check(FetchStatus::Ok, bytes);
    test.Check(FetchStatus::Failed);
    REQUIRE(test.Dialogs().messages.size() == 4);
    for (const Message& message : test.Dialogs().messages) {
        CHECK(message.text == u"Remote resource is not accessible now.\r\nPlease try later.");
        CHECK(message.title == u"Norvaset");
        CHECK(message.icon == MessageIcon::Critical);
    }
    CHECK(test.Dialogs().richMessages.empty());
    CHECK(test.Shell().opened.empty());
}

TEST_CASE("update check: the newest version says so") {
    Checking test;
    for (const char* version : {"2.5.12", "2.5.11", "2.4.900", "0.0.0", "1.65535.65535"})
        test.Check(FetchStatus::Ok, File(version));
    REQUIRE(test.Dialogs().messages.size() == 5);
    for (const Message& message : test.Dialogs().messages) {
        CHECK(message.text == u"Your copy of the application is up to date.");
        CHECK(message.title == u"Norvaset");
        CHECK(message.icon == MessageIcon::Information);
    }
}

TEST_CASE("update check: a newer version is offered, and opened when chosen") {
    Checking test;
    for (const int pressed : {0, 1, 2}) {
        test.Dialogs().richMessageAnswer = pressed;
        test.Check(FetchStatus::Ok, File("2.10.0"));
    }
    CHECK(test.Dialogs().messages.empty());
    REQUIRE(test.Dialogs().richMessages.size() == 3);
    const auto& offer = test.Dialogs().richMessages[0];
    CHECK(offer.title == u"Norvaset");
    CHECK(offer.buttons == std::vector<std::u16string>{u"Cancel", u"Download"});
    CHECK(offer.rtf ==
          "{\\rtf1\\ansi{\\colortbl;\\red0\\green0\\blue255;}\\f0\\fs16 Version 2.10 is "
          "now available to download:\\par \\cf1{\\ul "
          "https://web.example/Products/Norvaset/Norvaset_Setup.exe}}");
    CHECK(test.Shell().opened ==
          std::vector<std::u16string>{u"https://web.example/Products/Norvaset/Norvaset_Setup.exe"});
}

TEST_CASE("update check: where packages install it, these are offered, and all are opened") {
    const std::u16string product = u"https://web.example/Products/Norvaset/";
    const struct {
        std::vector<std::u16string> packages;
        std::vector<std::u16string> addresses;
    } cases[] = {
        {{}, {product + u"Norvaset_Setup.exe"}},
        {{u""}, {product}},
        {{u"norvaset_*_amd64.deb", u"norvaset-html_*_amd64.deb"},
         {product + u"norvaset_3.0.7_amd64.deb", product + u"norvaset-html_3.0.7_amd64.deb"}},
    };
    for (const auto& c : cases) {
        Checking test;
        test.Update().packages = c.packages;
        test.Dialogs().richMessageAnswer = 2;
        test.Check(FetchStatus::Ok, File("3.0.7"));
        CHECK(test.Shell().opened == c.addresses);
        REQUIRE(test.Dialogs().richMessages.size() == 1);
        for (const std::u16string& address : c.addresses)
            CHECK(test.Dialogs().richMessages[0].rtf.find("\\cf1{\\ul " + Utf16ToUtf8(address) +
                                                          "}") != std::string::npos);
    }
}

TEST_CASE("update check: a program that is ending asks and tells nothing") {
    Checking test;
    test.Check(FetchStatus::Abandoned);
    CHECK(test.Dialogs().messages.empty());
    CHECK(test.Dialogs().richMessages.empty());
}

TEST_CASE("update check: the pointer shows the wait, and no other command starts meanwhile") {
    Checking test;
    test.Update().whileFetching = [&test] {
        CHECK(test.View().ShownCursor() == CursorShape::Wait);
        test.Menus().Click(test.Menu().mHelpAbout);
        test.Menus().Click(test.Menu().mHelpUpdate);
        CHECK(test.Dialogs().messages.empty());
    };
    test.Check(FetchStatus::Failed);
    CHECK(test.Update().fetched.size() == 1);
    CHECK(test.View().ShownCursor() == CursorShape::Default);
    CHECK(test.Dialogs().messages.size() == 1);
}

TEST_CASE("update check: the file is exactly itself") {
    CHECK(ParseUpdateFile(File("0.0.0")) == VersionNumbers{0, 0, 0});
    CHECK(ParseUpdateFile(File("1.20.300")) == VersionNumbers{1, 20, 300});
    CHECK(ParseUpdateFile(File("65535.65535.65535")) == VersionNumbers{65535, 65535, 65535});
    const std::string good = File("1.2.3");
    for (std::size_t length = 0; length < good.size(); ++length)
        CHECK_FALSE(ParseUpdateFile(good.substr(0, length)));
    for (const char* version : {"",
                                "1",
                                "1.2",
                                "1.2.3.4",
                                "1.2.",
                                ".2.3",
                                "1..3",
                                "01.2.3",
                                "1.02.3",
                                "1.2.00",
                                "-1.2.3",
                                "1.-2.3",
                                "+1.2.3",
                                " 1.2.3",
                                "1.2.3 ",
                                "1. 2.3",
                                "65536.2.3",
                                "1.99999999999999999999.3",
                                "1.2.a",
                                "1.2.3a",
                                "0x1.2.3",
                                "1,2,3",
                                "1.2.\xD9\xA3",
                                "1.2.{\\b}",
                                "1.2.3\"}\n\"",
                                "1e1.2.3"})
        CHECK_FALSE_MESSAGE(ParseUpdateFile(File(version)), version);
    const std::string bad[] = {good + "\n",
                               good + " ",
                               " " + good,
                               good + good,
                               "\xEF\xBB\xBF" + good,
                               good.substr(0, good.size() - 1) + "\r\n",
                               "{\"version\": \"1.2.3\"}\n",
                               "{\"Version\":\"1.2.3\"}\n",
                               "{\"version\":\"}\n",
                               "1.2.3\n",
                               std::string("{\"version\":\"1.2.3\0\"}\n", 21)};
    for (const std::string& bytes : bad)
        CHECK_FALSE_MESSAGE(ParseUpdateFile(bytes), bytes);
}
