#include "platform/qt/system/command_line.h"

#include <doctest/doctest.h>

TEST_CASE("command line: an option is one of three words, alone") {
    CHECK(OptionAnswer({"--help"})->starts_with("Usage: "));
    CHECK(OptionAnswer({"-h"}) == OptionAnswer({"--help"}));
    CHECK(OptionAnswer({"--version"})->starts_with("Norvaset "));
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{},
                                                      {"--help", "me.txt"},
                                                      {"--HELP"},
                                                      {"-help"},
                                                      {"./--help"},
                                                      {"-v"},
                                                      {"--version="},
                                                      {"a.txt", "--version"},
                                                      {""}}) {
        CHECK_FALSE(OptionAnswer(arguments));
    }
}

TEST_CASE("command line: the path of the book") {
    struct Row {
        std::vector<std::string> arguments;
        const char* path;
    };
    const Row rows[] = {
        {{}, ""},
        {{""}, ""},
        {{"/books/a.txt"}, "/books/a.txt"},
        {{"a.txt"}, "/home/reader/a.txt"},
        {{"./sub/../a.txt"}, "/home/reader/a.txt"},
        {{"../a.txt"}, "/home/a.txt"},
        {{"/books/War", "and", "Peace.txt"}, "/books/War and Peace.txt"},
        {{"file:///books/War%20and%20Peace.txt"}, "/books/War and Peace.txt"},
        {{"file://localhost/books/a.txt"}, "/books/a.txt"},
        {{"file:/books/a.txt"}, "/books/a.txt"},
        {{"file:///books/%d7%a1.txt"}, "/books/\xD7\xA1.txt"},
        {{"file:///books/100%.txt"}, "/books/100%.txt"},
        {{"file:///books/%4"}, "/books/%4"},
        {{"file:///books/%zz"}, "/books/%zz"},
        {{"file://host"}, "/home/reader/file:/host"},
        {{"file://host/books/a.txt"}, "/home/reader/file:/host/books/a.txt"},
        {{"files.txt"}, "/home/reader/files.txt"},
        {{"/books/100%25.txt"}, "/books/100%25.txt"},
        {{"/books/\xFF.txt"}, "/books/\xFF.txt"},
    };
    for (const Row& row : rows) {
        CAPTURE(row.path);
        CHECK(BookPathBytes(row.arguments, "/home/reader") == row.path);
    }
}
