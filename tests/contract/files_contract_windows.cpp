#include "files_contract.h"
#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/base/wine.h"
#include "platform/windows/files/file_times.h"
#include "platform/windows/files/paths.h"
#include "platform/windows/files/win_files.h"
#include "temporary_folder_windows.h"

#include <doctest/doctest.h>

#include <winioctl.h>

namespace {

constexpr std::uint64_t noLimit = 1u << 30;

class WinUnderTest : public FilesUnderTest {
  public:
    Files& Port() override { return files_; }
    std::u16string Root() override { return FromWide(folder_.path); }
    void MakeReadOnly(const std::u16string& file) override {
        REQUIRE(SetFileAttributesW(ToWide(file).c_str(), FILE_ATTRIBUTE_READONLY));
    }
    bool IsReadOnly(const std::u16string& file) override {
        return (Attributes(file) & FILE_ATTRIBUTE_READONLY) != 0;
    }
    std::vector<std::u16string> NamesIn(const std::u16string& folder) override {
        std::vector<std::u16string> names;
        for (const std::wstring& name : NamesInFolder(ToWide(folder)))
            names.push_back(FromWide(name));
        return names;
    }
    // Not every Windows puts a file in the place of one that is being read.
    void ReplaceAsAnotherProgram(const std::u16string& file, std::string_view bytes) override {
        REQUIRE(MoveFileW(ToWide(file).c_str(), ToWide(file + u".old").c_str()));
        REQUIRE(files_.Replace(file, bytes, WriteTime::Now));
    }
    bool KnowsCreationTimes() override { return !RunsUnderWine(); }

    static DWORD Attributes(const std::u16string& file) {
        const DWORD attributes = GetFileAttributesW(ToWide(file).c_str());
        REQUIRE(attributes != INVALID_FILE_ATTRIBUTES);
        return attributes;
    }

  private:
    TemporaryFolder folder_;
    WinFiles files_;
};

WinHandle OpenAs(const std::u16string& path, DWORD access, DWORD sharing) {
    return WinHandle(CreateFileW(ToWide(path).c_str(), access, sharing, nullptr, OPEN_EXISTING,
                                 FILE_ATTRIBUTE_NORMAL, nullptr));
}

void Leave(const std::u16string& path) {
    const WinHandle file(CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_READONLY, nullptr));
    REQUIRE(file.IsOpen());
}

} // namespace

TEST_CASE("windows files: the contract") {
    WinUnderTest test;
    CheckFilesContract(test);
}

TEST_CASE("windows files: a device, a pipe or a mailslot is neither read nor replaced") {
    WinUnderTest test;
    const WinHandle pipe(CreateNamedPipeW(L"\\\\.\\pipe\\norvaset contract", PIPE_ACCESS_DUPLEX,
                                          PIPE_TYPE_BYTE, 1, 0, 0, 0, nullptr));
    REQUIRE(pipe.IsOpen());
    for (const std::u16string& path : std::initializer_list<std::u16string>{
             u"\\\\.\\pipe\\norvaset contract", u"//./pipe/norvaset contract",
             u"\\\\?\\pipe\\norvaset contract", u"\\\\localhost\\pipe\\norvaset contract",
             u"\\\\?\\unc\\localhost\\PIPE\\norvaset contract", u"NUL", u"nul", u"CON", u"CONIN$",
             u"COM1", u"\\\\.\\C:", u"\\\\.\\PhysicalDrive0", u"\\\\?\\GLOBALROOT\\Device\\Null"}) {
        CAPTURE(std::string(path.begin(), path.end()));
        std::string bytes = "as it was";
        CHECK(test.Port().Read(path, noLimit, bytes) == ReadStatus::NotAFile);
        CHECK(test.Port().ReadStart(path, 10, bytes) == ReadStatus::NotAFile);
        CHECK(bytes == "as it was");
        CHECK_FALSE(test.Port().FileExists(path));
        CHECK_FALSE(test.Port().FolderExists(path));
        CHECK_FALSE(test.Port().Replace(path, "x", WriteTime::Now));
        CHECK_FALSE(test.Port().CreateFolder(path));
    }
    for (const char16_t* name : {u"NUL", u"con", u"COM1.txt"}) { // a device before Windows 11
        std::string bytes;
        CHECK(test.Port().Read(test.Path(name), noLimit, bytes) != ReadStatus::Ok);
    }
}

TEST_CASE("windows files: the same place by other spellings") {
    WinUnderTest test;
    const std::u16string file = test.Path(u"a.txt");
    REQUIRE(test.Port().Replace(file, "x", WriteTime::Now));
    std::u16string slashes = file;
    std::replace(slashes.begin(), slashes.end(), u'\\', u'/');
    const std::u16string others[] = {slashes, test.Path(u"A.TXT"), u"\\\\?\\" + file,
                                     test.Path(u"none\\..\\a.txt"), test.Path(u"a.txt. ")};
    for (const std::u16string& other : others) {
        CHECK(test.Port().FileExists(other));
        CHECK(test.Port().SameFile(file, other));
        CHECK(test.BytesOf(other) == "x");
    }
    CHECK(test.Port().Replace(slashes, "y", WriteTime::Now));
    CHECK(test.BytesOf(file) == "y");
}

TEST_CASE("windows files: a path of any length") {
    WinUnderTest test;
    std::u16string folder = test.Root();
    const std::u16string part(100, u'Ж');
    while (folder.size() < 600)
        folder += u"\\" + part;
    CHECK(test.Port().CreateFolder(folder));
    CHECK(test.Port().FolderExists(folder));
    CHECK(test.Port().FolderIsWritable(folder));
    const std::u16string file = folder + u"/книга.txt";
    CHECK(test.Port().Replace(file, "1", WriteTime::Now));
    CHECK(test.Port().Replace(file, "2", WriteTime::Keep));
    CHECK(test.Port().FileExists(file));
    CHECK(test.BytesOf(file) == "2");
    CHECK(test.Port().SetTime(file, {2001, 2, 3, 4, 5, 6}, FileTime::LastWrite));
    CHECK(test.Port().Time(file, FileTime::LastWrite) == DateTime{2001, 2, 3, 4, 5, 6});
    std::string bytes;
    CHECK(test.Port().Read(file + std::u16string(40'000, u'x'), noLimit, bytes) ==
          ReadStatus::NotFound);
}

TEST_CASE("windows paths: what the system is given") {
    const std::u16string tail(300, u'x');
    const std::wstring wideTail(300, L'x');
    struct Row {
        std::u16string path;
        std::wstring native; // "" for none
    };
    const Row rows[] = {
        {u"C:\\a.txt", L"C:\\a.txt"},
        {u"c:/a/../b.txt", L"c:\\b.txt"},
        {u"C:\\" + tail, L"\\\\?\\C:\\" + wideTail},
        {u"//server/share/" + tail, L"\\\\?\\UNC\\server\\share\\" + wideTail},
        {u"\\\\server\\share\\a.txt", L"\\\\server\\share\\a.txt"},
        {u"\\\\?\\C:\\a. ", L"\\\\?\\C:\\a. "},
        {u"\\\\?\\Volume{0}\\a", L"\\\\?\\Volume{0}\\a"},
        {u"\\\\server\\pipe\\a", L""},
        {u"\\\\.\\pipe\\a", L""},
        {u"\\\\?\\C:\\a?b", L""},
        {u"C:\\a?b", L""},
        {std::u16string(u"C:\\a\0b", 6), L""},
        {u"", L""},
    };
    for (const Row& row : rows) {
        CAPTURE(std::string(row.path.begin(), row.path.end()));
        CHECK((NativePath(row.path).value_or(L"") == row.native));
    }
}

TEST_CASE("windows files: another program has the book open") {
    WinUnderTest test;
    const std::u16string file = test.Path(u"a.txt");
    REQUIRE(test.Port().Replace(file, "old", WriteTime::Now));
    constexpr DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    {
        const WinHandle writer = OpenAs(file, GENERIC_READ | GENERIC_WRITE, all);
        REQUIRE(writer.IsOpen());
        CHECK(test.BytesOf(file) == "old");
    }
    const WinHandle alone = OpenAs(file, GENERIC_READ | GENERIC_WRITE, 0);
    REQUIRE(alone.IsOpen());
    std::string bytes = "as it was";
    CHECK(test.Port().Read(file, noLimit, bytes) == ReadStatus::Denied);
    CHECK(bytes == "as it was");
    CHECK(test.Port().FileExists(file));
    CHECK(test.Port().Version(file));
    CHECK_FALSE(test.Port().Replace(file, "new", WriteTime::Now));
    CHECK(test.NamesIn(test.Root()).size() == 1); // and no temporary file
}

TEST_CASE("windows files: what another program may do while a book is being read") {
    WinUnderTest test;
    const std::u16string file = test.Path(u"a.txt"), renamed = test.Path(u"b.txt");
    REQUIRE(test.Port().Replace(file, "0123456789", WriteTime::Now));
    ReadStatus status = ReadStatus::Failed;
    const std::unique_ptr<FileReader> reader = test.Port().Open(file, status);
    REQUIRE(reader);
    const auto part = [&](std::uint64_t offset) {
        char bytes[4] = {};
        return std::string(bytes, reader->ReadAt(offset, bytes, sizeof bytes));
    };
    {
        const WinHandle writer = OpenAs(file, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ);
        REQUIRE(writer.IsOpen());
        DWORD written = 0;
        CHECK(WriteFile(writer.Get(), "abcd", 4, &written, nullptr));
        CHECK(part(2) == "cd45");
        CHECK(SetFilePointer(writer.Get(), 6, nullptr, FILE_BEGIN) == 6);
        CHECK(SetEndOfFile(writer.Get()));
        CHECK(part(4) == "45");
        CHECK(part(6).empty());
    }
    CHECK(MoveFileW(ToWide(file).c_str(), ToWide(renamed).c_str()));
    CHECK(part(0) == "abcd");
    CHECK(DeleteFileW(ToWide(renamed).c_str()));
    CHECK(part(0) == "abcd");
    CHECK(reader->Size() == 10);
    CHECK_FALSE(test.Port().Open(u"NUL", status));
    CHECK(status == ReadStatus::NotAFile);
}

TEST_CASE("windows files: a place far after 4 GB is read where it is") {
    WinUnderTest test;
    const std::u16string path = test.Path(u"large");
    constexpr std::uint64_t place = (std::uint64_t{5} << 30) + 3;
    {
        const WinHandle file(CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, 0, nullptr,
                                         CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr));
        REQUIRE(file.IsOpen());
        DWORD done = 0; // only a few bytes of it are on the disk where the file system can
        DeviceIoControl(file.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &done, nullptr);
        LARGE_INTEGER end = {};
        end.QuadPart = place;
        REQUIRE(SetFilePointerEx(file.Get(), end, nullptr, FILE_BEGIN));
        REQUIRE(WriteFile(file.Get(), "end", 3, &done, nullptr));
    }
    ReadStatus status = ReadStatus::Failed;
    const std::unique_ptr<FileReader> reader = test.Port().Open(path, status);
    REQUIRE(reader);
    CHECK(reader->Size() == place + 3);
    char bytes[8] = {};
    CHECK(reader->ReadAt(place, bytes, sizeof bytes) == 3);
    CHECK(std::string(bytes, 3) == "end");
    CHECK(reader->ReadAt(3, bytes, sizeof bytes) == 8);
    CHECK(std::string(bytes, 3) == std::string(3, '\0'));
}

TEST_CASE("windows files: attributes of all kinds are kept, and the time of creation") {
    WinUnderTest test;
    const std::u16string file = test.Path(u"a.dat");
    REQUIRE(test.Port().Replace(file, "old", WriteTime::Now));
    constexpr DWORD marks = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_READONLY;
    REQUIRE(SetFileAttributesW(ToWide(file).c_str(), marks));
    const auto creation = test.Port().Time(file, FileTime::Creation);
    CHECK(test.Port().Replace(file, "new", WriteTime::Now));
    CHECK((test.Attributes(file) & marks) == marks);
    CHECK(test.BytesOf(file) == "new");
    CHECK(test.Port().Time(file, FileTime::Creation) == creation);
}

TEST_CASE("windows files: names that are no text") {
    WinUnderTest test;
    const std::u16string file = test.Path(std::u16string(u"caf\xD800.txt"));
    // The system keeps any units in a name; Wine keeps names that are text only.
    if (!test.Port().Replace(file, "x", WriteTime::Now)) {
        MESSAGE("skipped: this system's names are text");
        CHECK(test.NamesIn(test.Root()).empty());
        CHECK_FALSE(test.Port().FileExists(file));
        return;
    }
    CHECK(test.Port().FileExists(file));
    CHECK(test.BytesOf(file) == "x");
    CHECK_FALSE(test.Port().FileExists(test.Path(u"caf\uFFFD.txt")));
}

TEST_CASE("windows files: a link stays a link") {
    WinUnderTest test;
    const std::u16string real = test.Path(u"real.dat"), link = test.Path(u"link");
    REQUIRE(test.Port().Replace(real, "1", WriteTime::Now));
    constexpr DWORD unprivileged = 2; // SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE
    // Wine says that it has made one, and has not.
    if (!CreateSymbolicLinkW(ToWide(link).c_str(), ToWide(real).c_str(), unprivileged) ||
        GetFileAttributesW(ToWide(link).c_str()) == INVALID_FILE_ATTRIBUTES) {
        MESSAGE("skipped: no links can be made here");
        return;
    }
    CHECK(test.Port().SameFile(link, real));
    CHECK(test.Port().Replace(link, "2", WriteTime::Now));
    CHECK(test.BytesOf(real) == "2");
    CHECK((test.Attributes(link) & FILE_ATTRIBUTE_REPARSE_POINT) != 0);
}

TEST_CASE("windows files: a killed writer's file is removed, nobody else's") {
    WinUnderTest test;
    const DWORD self = GetCurrentProcessId();
    const auto name = [&](const std::u16string& start, const std::wstring& number) {
        return test.Path(start + u"." + FromWide(number) + u".new");
    };
    const std::wstring gone = L"4294967292"; // a number that no process has
    Leave(name(u"a.dat", gone));
    Leave(name(u"A.DAT", std::to_wstring(self)));
    wchar_t program[MAX_PATH] = {};
    REQUIRE(GetModuleFileNameW(nullptr, program, MAX_PATH) != 0);
    STARTUPINFOW start = {};
    start.cb = sizeof start;
    PROCESS_INFORMATION other = {};
    REQUIRE(CreateProcessW(program, nullptr, nullptr, nullptr, FALSE, CREATE_SUSPENDED, nullptr,
                           nullptr, &start, &other));
    const WinHandle process(other.hProcess), thread(other.hThread);
    const std::vector<std::u16string> others = {name(u"a.dat", std::to_wstring(other.dwProcessId)),
                                                name(u"b.dat", gone),
                                                name(u"a.dat", L""),
                                                name(u"a.dat", L"12x"),
                                                name(u"a.dat", L"0"),
                                                name(u"a.dat", gone + L".txt"),
                                                name(u"xa.dat", gone),
                                                name(u"a.dat", L"99999999999999999999")};
    for (const std::u16string& path : others)
        Leave(path);
    CHECK(test.Port().Replace(test.Path(u"a.dat"), "1", WriteTime::Now));
    CHECK(test.NamesIn(test.Root()).size() == others.size() + 1);
    for (const std::u16string& path : others)
        CHECK(test.Port().FileExists(path));
    TerminateProcess(process.Get(), 0);
    WaitForSingleObject(process.Get(), INFINITE);
}

TEST_CASE("windows file times: local time and back") {
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    const auto local = LocalTime(now);
    REQUIRE(local);
    const auto back = FileTimeFromLocal(*local);
    REQUIRE(back);
    CHECK(ToUnixNanoseconds(now) - ToUnixNanoseconds(*back) < 1'000'000'000);
    CHECK(ToUnixNanoseconds({0xD53E8000, 0x019DB1DE}) == 0); // 1970
    for (const DateTime& none :
         {DateTime{2023, 2, 30, 0, 0, 0}, DateTime{2023, 13, 1, 0, 0, 0},
          DateTime{2023, 1, 1, 24, 0, 0}, DateTime{2023, 1, 0, 0, 0, 0},
          DateTime{1600, 1, 1, 0, 0, 0}, DateTime{70'000, 1, 1, 0, 0, 0}, DateTime{-1}}) {
        CHECK_FALSE(FileTimeFromLocal(none));
    }
}
