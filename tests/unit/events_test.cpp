// What a command that fails leaves after.
#include "test_form.h"

#include "app/run_command.h"

#include <doctest/doctest.h>

#include <new>
#include <stdexcept>

TEST_CASE("commands: one that fails is reported, and the next one runs") {
    TestForm test;
    REQUIRE(test.Start());
    RunCommand(test.form, [] { throw std::bad_alloc(); });
    RunCommand(test.form, [] { throw std::runtime_error("x"); });
    RunCommand(test.form, [] { throw 1; });
    REQUIRE(test.Dialogs().messages.size() == 3);
    CHECK(test.Dialogs().messages[0].text == u"There is not enough memory for this.");
    CHECK(test.Dialogs().messages[1].text == u"The command could not be completed.");
    CHECK(test.Dialogs().messages[2].text == u"The command could not be completed.");
    CHECK_FALSE(test.form.handling);
    int runs = 0;
    RunCommand(test.form, [&] { ++runs; });
    CHECK(runs == 1);
}

TEST_CASE("commands: a failure that cannot even be reported holds back neither commands nor the "
          "autosave") {
    TestForm test;
    test.PutBook(u"/b/a.txt", NumberedLines(300));
    test.form.ports.launch.commandLine = u"/b/a.txt";
    REQUIRE(test.Start());
    test.Dialogs().whileOpen = [] { throw std::bad_alloc(); };
    RunCommand(test.form, [] { throw std::bad_alloc(); });
    CHECK_FALSE(test.form.handling);
    const std::string before = test.DataFile();
    test.View().ScrollLineToTop(300);
    test.Timer().Tick(60);
    CHECK(test.DataFile() != before);
}

TEST_CASE("commands: a write of the data file that fails within one ends no program") {
    TestForm test;
    REQUIRE(test.Start());
    RunCommand(test.form, [&] {
        IniBatch batch(*test.form.dataFile);
        IniWriteString(*test.form.dataFile, u"s", u"a", u"1");
        throw std::bad_alloc(); // the batch goes on the way, and writes nothing
    });
    CHECK(test.DataFile().find("[s]") == std::string::npos);
    test.Close();
    CHECK(test.DataFile().find("[s]\r\na=1") != std::string::npos);
}
