#include "files_contract.h"

#include <doctest/doctest.h>

#include <initializer_list>

namespace {

constexpr std::uint64_t noLimit = 1u << 30;
constexpr DateTime longAgo{1999, 12, 31, 23, 59, 58};

void CheckQuestions(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"a.txt"), folder = test.Path(u"folder");
    REQUIRE(files.Replace(file, "x", WriteTime::Now));
    REQUIRE(files.CreateFolder(folder));
    CHECK(files.FileExists(file));
    CHECK_FALSE(files.FolderExists(file));
    CHECK_FALSE(files.FolderIsWritable(file));
    CHECK_FALSE(files.FileExists(folder));
    CHECK(files.FolderExists(folder));
    CHECK(files.FolderIsWritable(folder));
    for (const std::u16string& path :
         {std::u16string(), test.Path(u"none"), test.Path(u"?"), test.Path(u"\uFFFD"),
          test.Path(u"a?txt"), test.Path(std::u16string(1, u'\0')), test.Path(u"none/a.txt")}) {
        CHECK_FALSE(files.FileExists(path));
        CHECK_FALSE(files.FolderExists(path));
        CHECK_FALSE(files.FolderIsWritable(path));
        CHECK_FALSE(files.FolderIsPublic(path));
        CHECK_FALSE(files.Version(path));
        CHECK_FALSE(files.Time(path, FileTime::LastWrite));
        CHECK_FALSE(files.SetTime(path, longAgo, FileTime::LastWrite));
        CHECK_FALSE(files.SameFile(path, path));
        std::string bytes = "as it was";
        CHECK(files.Read(path, noLimit, bytes) == ReadStatus::NotFound);
        CHECK(bytes == "as it was");
    }
    CHECK(files.SameFile(file, file));
    CHECK_FALSE(files.SameFile(file, folder));
    CHECK(files.IsInFolder(file, test.Root()));
    CHECK_FALSE(files.IsInFolder(file, folder));
    CHECK_FALSE(files.IsInFolder(test.Path(u"missing"), test.Root()));
}

void CheckFolders(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string deep = test.Path(u"one") + files.Separator() + u"two";
    CHECK(files.CreateFolder(deep));
    CHECK(files.CreateFolder(deep));
    CHECK(files.FolderExists(test.Path(u"one")));
    CHECK(files.FolderExists(deep));
    REQUIRE(files.Replace(test.Path(u"file"), "", WriteTime::Now));
    CHECK_FALSE(files.CreateFolder(test.Path(u"file")));
    CHECK_FALSE(files.CreateFolder(test.Path(u"file") + files.Separator() + u"sub"));
    CHECK_FALSE(files.CreateFolder(u""));
    CHECK_FALSE(files.CreateFolder(test.Path(u"a?b")));
}

void CheckReading(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"all bytes");
    std::string content;
    for (int i = 0; i < 100'000; ++i)
        content += static_cast<char>(i);
    REQUIRE(files.Replace(file, content, WriteTime::Now));
    std::string bytes = "as it was";
    CHECK(files.Read(file, content.size() - 1, bytes) == ReadStatus::TooLarge);
    CHECK(files.Read(test.Root(), noLimit, bytes) == ReadStatus::NotAFile);
    CHECK(bytes == "as it was");
    CHECK(files.Read(file, content.size(), bytes) == ReadStatus::Ok);
    CHECK((bytes == content));
    REQUIRE(files.Replace(file, "", WriteTime::Now));
    CHECK(files.Read(file, 0, bytes) == ReadStatus::Ok);
    CHECK(bytes.empty());
}

std::string ReadPart(const FileReader& file, std::uint64_t offset, std::size_t count) {
    std::string bytes(count, '\0');
    bytes.resize(file.ReadAt(offset, bytes.data(), count));
    return bytes;
}

void CheckOpening(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"parts");
    ReadStatus status = ReadStatus::Failed;
    REQUIRE(files.Replace(file, "0123456789", WriteTime::Now));
    const std::unique_ptr<FileReader> reader = files.Open(file, status);
    CHECK(status == ReadStatus::Ok);
    REQUIRE(reader);
    CHECK(reader->Size() == 10);
    CHECK(ReadPart(*reader, 0, 4) == "0123");
    CHECK(ReadPart(*reader, 7, 99) == "789");
    CHECK(ReadPart(*reader, 10, 1).empty());
    CHECK(ReadPart(*reader, ~std::uint64_t{0} >> 1, 1).empty());
    CHECK(ReadPart(*reader, 3, 0).empty());

    test.ReplaceAsAnotherProgram(file, "other"); // the reader keeps to the file it was given
    CHECK(ReadPart(*reader, 2, 3) == "234");
    for (const std::u16string& path : {test.Root(), test.Path(u"none"), test.Path(u"?")}) {
        CHECK_FALSE(files.Open(path, status));
        CHECK(status == (path == test.Root() ? ReadStatus::NotAFile : ReadStatus::NotFound));
    }
}

void CheckReplacing(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"Книга “1”.dat");
    for (const std::size_t size : {std::size_t(10), std::size_t(3'000'000), std::size_t(0)}) {
        CHECK(files.Replace(file, std::string(size, 'x'), WriteTime::Now));
        std::string bytes;
        CHECK(files.Read(file, noLimit, bytes) == ReadStatus::Ok);
        CHECK((bytes == std::string(size, 'x')));
    }
    CHECK(test.NamesIn(test.Root()) == std::vector<std::u16string>{u"Книга “1”.dat"});

    CHECK(files.MayReplace(file));
    CHECK(files.MayReplace(test.Path(u"none")));
    CHECK_FALSE(files.MayReplace(test.Path(u"none") + files.Separator() + u"a"));
    CHECK_FALSE(files.MayReplace(test.Path(u"a?b")));
    CHECK_FALSE(files.MayReplace(u""));
    CHECK_FALSE(files.Replace(test.Path(u"none") + files.Separator() + u"a", "x", WriteTime::Now));
    CHECK_FALSE(files.Replace(test.Path(u"a?b"), "x", WriteTime::Now));
    CHECK_FALSE(files.Replace(u"", "x", WriteTime::Now));
    REQUIRE(files.CreateFolder(test.Path(u"folder")));
    CHECK_FALSE(files.Replace(test.Path(u"folder"), "x", WriteTime::Now));
    CHECK(test.NamesIn(test.Root()).size() == 2);
}

void CheckAttributes(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"a.dat");
    CHECK(files.Replace(file, "old", WriteTime::Keep)); // there is no time to keep yet
    CHECK_FALSE(test.IsReadOnly(file));
    test.MakeReadOnly(file);
    REQUIRE(files.SetTime(file, longAgo, FileTime::LastWrite));
    const auto before = files.Version(file);

    CHECK(files.MayReplace(file));
    CHECK(files.Replace(file, "new", WriteTime::Keep));
    CHECK(test.IsReadOnly(file));
    CHECK(files.Time(file, FileTime::LastWrite) == longAgo);
    CHECK(files.Version(file)->lastWrite == before->lastWrite);

    CHECK(files.Replace(file, "newer", WriteTime::Now));
    CHECK(test.IsReadOnly(file));
    CHECK(files.Time(file, FileTime::LastWrite) != longAgo);
    std::string bytes;
    CHECK(files.Read(file, noLimit, bytes) == ReadStatus::Ok);
    CHECK(bytes == "newer");
}

void CheckVersions(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"a.dat"), other = test.Path(u"b.dat");
    REQUIRE(files.Replace(file, "1", WriteTime::Now));
    const auto first = files.Version(file);
    CHECK(first);
    CHECK(files.Version(file) == first);
    REQUIRE(files.Replace(other, "1", WriteTime::Now));
    CHECK(files.Version(other) != first);
    CHECK_FALSE(files.SameFile(file, other));
    REQUIRE(files.Replace(file, "22", WriteTime::Keep)); // seen even though the time is the same
    const auto second = files.Version(file);
    CHECK(second != first);
    CHECK(second->size == 2);
    REQUIRE(files.SetTime(file, longAgo, FileTime::LastWrite));
    CHECK(files.Version(file) != second);
}

void CheckFileTimes(FilesUnderTest& test) {
    Files& files = test.Port();
    const std::u16string file = test.Path(u"a.dat");
    REQUIRE(files.Replace(file, "1", WriteTime::Now));
    const DateTime summer{2020, 7, 1, 12, 0, 0};
    CHECK(files.SetTime(file, longAgo, FileTime::LastWrite));
    CHECK(files.SetTime(file, summer, FileTime::LastAccess));
    CHECK(files.Time(file, FileTime::LastWrite) == longAgo);
    CHECK(files.Time(file, FileTime::LastAccess) == summer);
    const auto creation = files.Time(file, FileTime::Creation);
    if (creation && test.KnowsCreationTimes()) CHECK(creation->year > 2020);
    std::string bytes;
    CHECK(files.Read(file, noLimit, bytes) == ReadStatus::Ok);
    CHECK(bytes == "1");
}

} // namespace

void CheckFilesContract(FilesUnderTest& test) {
    SUBCASE("questions about what is there and what is not") {
        CheckQuestions(test);
    }
    SUBCASE("making folders") {
        CheckFolders(test);
    }
    SUBCASE("reading") {
        CheckReading(test);
    }
    SUBCASE("opening") {
        CheckOpening(test);
    }
    SUBCASE("replacing") {
        CheckReplacing(test);
    }
    SUBCASE("replacing keeps attributes") {
        CheckAttributes(test);
    }
    SUBCASE("versions") {
        CheckVersions(test);
    }
    SUBCASE("stamps") {
        CheckFileTimes(test);
    }
}
