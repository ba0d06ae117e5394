#include "common/text.h"
#include "common/utf.h"
#include "files_contract.h"
#include "platform/posix/posix_clock.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "temporary_folder_posix.h"
#include "without_privileges.h"

#include <doctest/doctest.h>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace fs = std::filesystem;

namespace {

constexpr std::uint64_t noLimit = 1u << 30;

class PosixUnderTest : public FilesUnderTest {
  public:
    Files& Port() override { return files_; }
    std::u16string Root() override { return PathFromNative(folder_.path); }
    void MakeReadOnly(const std::u16string& file) override {
        REQUIRE(chmod(Native(file).c_str(), 0444) == 0);
    }
    bool IsReadOnly(const std::u16string& file) override {
        return (Status(file).st_mode & 0222) == 0;
    }
    std::vector<std::u16string> NamesIn(const std::u16string& folder) override {
        std::vector<std::u16string> names;
        for (const auto& entry : fs::directory_iterator(Native(folder))) {
            names.push_back(PathFromNative(entry.path().filename().native()));
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    static std::string Native(const std::u16string& path) { return Utf16ToUtf8(path); }
    std::string NativeFile(const std::string& name) const { return folder_.path + "/" + name; }
    static struct stat Status(const std::u16string& path) {
        struct stat status {};
        REQUIRE(lstat(Native(path).c_str(), &status) == 0);
        return status;
    }

  private:
    TemporaryFolder folder_;
    PosixFiles files_;
};

void MakeLink(const std::string& target, const std::string& link) {
    REQUIRE(symlink(target.c_str(), link.c_str()) == 0);
}

} // namespace

TEST_CASE("files on POSIX") {
    PosixUnderTest test;
    CheckFilesContract(test);
}

TEST_CASE("files on POSIX: modes and owners") {
    PosixUnderTest test;
    const std::u16string file = test.Path(u"a.dat");
    REQUIRE(test.Port().Replace(file, "1", WriteTime::Now));
    CHECK((test.Status(file).st_mode & 07777) == 0600); // what one reads is one's own affair
    for (const mode_t mode : {0644u, 0664u, 0400u, 0755u}) {
        REQUIRE(chmod(test.Native(file).c_str(), mode) == 0);
        CHECK(test.Port().Replace(file, "2", WriteTime::Now));
        CHECK((test.Status(file).st_mode & 07777) == mode);
    }
    if (geteuid() != 0) return;
    REQUIRE(chown(test.Native(file).c_str(), 1234, 5678) == 0);
    CHECK(test.Port().Replace(file, "3", WriteTime::Now));
    CHECK(test.Status(file).st_uid == 1234);
    CHECK(test.Status(file).st_gid == 5678);
}

TEST_CASE("files on POSIX: a new file is for those who may write into its folder") {
    PosixUnderTest test;
    const struct {
        mode_t folder, file;
    } cases[] = {{0700, 0600},  {0755, 0600}, {0770, 0660},
                 {02775, 0660}, {0777, 0666}, {01777, 0660}};
    for (const auto& c : cases) {
        const std::u16string folder = test.Path(u"d" + NumberText(c.folder));
        REQUIRE(test.Port().CreateFolder(folder));
        REQUIRE(chmod(test.Native(folder).c_str(), c.folder) == 0);
        CHECK(test.Port().FolderIsPublic(folder) == (c.folder == 01777));
        REQUIRE(test.Port().Replace(folder + u"/a", "1", WriteTime::Now));
        CHECK((test.Status(folder + u"/a").st_mode & 07777) == c.file);
    }
    if (geteuid() != 0) return;
    const std::u16string folder = test.Path(u"d" + NumberText(02775));
    REQUIRE(chown(test.Native(folder).c_str(), 0, 5678) == 0);
    REQUIRE(test.Port().Replace(folder + u"/b", "1", WriteTime::Now));
    CHECK(test.Status(folder + u"/b").st_gid == 5678);
}

TEST_CASE("files on POSIX: another user's file") {
    if (geteuid() != 0) return;
    PosixUnderTest test;
    REQUIRE(chmod(test.Native(test.Root()).c_str(), 0777) == 0);
    const std::u16string file = test.Path(u"a"), shared = test.Path(u"b"), none = test.Path(u"c");
    REQUIRE(test.Port().Replace(file, "theirs", WriteTime::Now));
    REQUIRE(chmod(test.Native(file).c_str(), 0644) == 0);
    REQUIRE(test.Port().Replace(shared, "ours", WriteTime::Now));
    REQUIRE(chmod(test.Native(shared).c_str(), 0666) == 0);
    CHECK(test.Port().MayReplace(file));
    {
        const WithoutPrivileges nobody;
        CHECK_FALSE(test.Port().MayReplace(file));
        CHECK_FALSE(test.Port().Replace(file, "mine", WriteTime::Now));
        CHECK(test.BytesOf(file) == "theirs");
        CHECK(test.Port().MayReplace(shared));
        CHECK(test.Port().Replace(shared, "ours too", WriteTime::Now));
        CHECK(test.Port().MayReplace(none));
    }
    CHECK((test.Status(shared).st_mode & 0777) == 0666);
    REQUIRE(chmod(test.Native(test.Root()).c_str(), 01777) == 0);
    REQUIRE(chown(test.Native(shared).c_str(), 0, 0) == 0);
    const WithoutPrivileges nobody;
    CHECK_FALSE(test.Port().MayReplace(shared)); // in such a folder only its owner may
}

TEST_CASE("files on POSIX: what is no regular file is neither read nor replaced") {
    PosixUnderTest test;
    REQUIRE(mkfifo(test.NativeFile("pipe").c_str(), 0600) == 0);
    MakeLink("/dev/zero", test.NativeFile("device"));
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    test.NativeFile("socket").copy(address.sun_path, sizeof address.sun_path - 1);
    REQUIRE(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0);
    for (const char16_t* name : {u"pipe", u"device", u"socket"}) {
        std::string bytes = "as it was";
        CHECK(test.Port().Read(test.Path(name), noLimit, bytes) == ReadStatus::NotAFile);
        CHECK(bytes == "as it was");
        CHECK_FALSE(test.Port().Replace(test.Path(name), "x", WriteTime::Now));
        CHECK(test.Port().FileExists(test.Path(name))); // it is there, and no folder
    }
    close(listener);
    CHECK(test.NamesIn(test.Root()).size() == 3);
}

TEST_CASE("files on POSIX: a link stays a link") {
    PosixUnderTest test;
    REQUIRE(test.Port().CreateFolder(test.Path(u"real")));
    const std::u16string real = test.Path(u"real/a.dat"), link = test.Path(u"link");
    REQUIRE(test.Port().Replace(real, "1", WriteTime::Now));
    MakeLink("second", test.NativeFile("link"));
    MakeLink(test.NativeFile("real/a.dat"), test.NativeFile("second"));
    CHECK(test.Port().SameFile(link, real));
    CHECK(test.Port().IsInFolder(link, test.Path(u"real"))); // where it leads
    MakeLink(test.NativeFile("real"), test.NativeFile("folder"));
    CHECK(test.Port().IsInFolder(real, test.Path(u"folder")));
    REQUIRE(test.Port().CreateFolder(test.Path(u"books")));
    MakeLink(test.NativeFile("real/a.dat"), test.NativeFile("books/picture"));
    CHECK_FALSE(test.Port().IsInFolder(test.Path(u"books/picture"), test.Path(u"books")));
    CHECK(test.Port().Replace(link, "2", WriteTime::Now));
    CHECK(test.BytesOf(real) == "2");
    CHECK(S_ISLNK(test.Status(link).st_mode));

    MakeLink("real/new.dat", test.NativeFile("dangling"));
    CHECK(test.Port().Replace(test.Path(u"dangling"), "3", WriteTime::Now));
    CHECK(test.BytesOf(test.Path(u"real/new.dat")) == "3");
    MakeLink("loop", test.NativeFile("loop"));
    CHECK_FALSE(test.Port().Replace(test.Path(u"loop"), "4", WriteTime::Now));
    CHECK_FALSE(test.Port().FileExists(test.Path(u"loop")));
}

TEST_CASE("files on POSIX: rights") {
    PosixUnderTest test;
    REQUIRE(chmod(test.Native(test.Root()).c_str(), 0777) == 0);
    const WithoutPrivileges nobody;
    const std::u16string secret = test.Path(u"secret"), folder = test.Path(u"folder");
    const std::u16string inside = test.Path(u"folder/a.dat");
    REQUIRE(test.Port().Replace(secret, "1", WriteTime::Now));
    REQUIRE(chmod(test.Native(secret).c_str(), 0) == 0);
    std::string bytes;
    CHECK(test.Port().Read(secret, noLimit, bytes) == ReadStatus::Denied);
    REQUIRE(test.Port().CreateFolder(folder));
    REQUIRE(test.Port().Replace(inside, "old", WriteTime::Now));
    REQUIRE(chmod(test.Native(folder).c_str(), 0555) == 0);
    CHECK_FALSE(test.Port().FolderIsWritable(folder));
    CHECK_FALSE(test.Port().Replace(inside, "new", WriteTime::Now));
    CHECK_FALSE(test.Port().CreateFolder(test.Path(u"folder/sub")));
    CHECK(test.BytesOf(inside) == "old");
    CHECK(test.NamesIn(folder).size() == 1);
    chmod(test.Native(folder).c_str(), 0755);
}

TEST_CASE("files on POSIX: names that are no text") {
    PosixUnderTest test;
    std::ofstream(test.NativeFile("caf\xE9.txt")) << "x";
    std::ofstream(test.NativeFile("caf?.txt")) << "x";
    CHECK(PathFromNative("caf\xE9\xFF.txt") == u"caf??.txt");
    CHECK(PathFromNative("café.txt") == u"café.txt");
    for (const std::u16string& path :
         {test.Path(PathFromNative("caf\xE9.txt")), test.Path(u"caf\xD800")}) {
        CHECK_FALSE(test.Port().FileExists(path));
        CHECK_FALSE(test.Port().Replace(path, "y", WriteTime::Now));
    }
    CHECK(test.NamesIn(test.Root()).size() == 2);
}

TEST_CASE("files on POSIX: a killed writer's file is removed, nobody else's") {
    PosixUnderTest test;
    const pid_t child = fork();
    REQUIRE(child >= 0);
    if (child == 0) _exit(0);
    REQUIRE(waitpid(child, nullptr, 0) == child); // now its id belongs to nobody
    const auto leave = [&](const std::string& name) {
        std::ofstream(test.NativeFile(name)) << "x";
    };
    const std::string gone = std::to_string(child), alive = std::to_string(getppid());
    leave("a.dat." + gone + ".new");
    leave("a.dat." + std::to_string(getpid()) + ".new");
    const std::vector<std::string> others = {"a.dat." + alive + ".new",
                                             "b.dat." + gone + ".new",
                                             "a.dat..new",
                                             "a.dat.new",
                                             "a.dat.12x.new",
                                             "a.dat.-1.new",
                                             "a.dat.0.new",
                                             "a.dat." + gone + ".new.txt",
                                             "xa.dat." + gone + ".new",
                                             "a.dat.99999999999999999999.new"};
    for (const std::string& name : others)
        leave(name);
    CHECK(test.Port().Replace(test.Path(u"a.dat"), "1", WriteTime::Now));
    CHECK(test.NamesIn(test.Root()).size() == others.size() + 1);
    for (const std::string& name : others)
        CHECK(fs::exists(test.NativeFile(name)));
}

TEST_CASE("files on POSIX: a file whose size is no guide") {
    std::string bytes;
    PosixFiles files;
    // Of size 0 as the system says, and yet not empty.
    CHECK(files.Read(u"/proc/self/status", noLimit, bytes) == ReadStatus::Ok);
    CHECK(bytes.size() > 100);
    CHECK(files.Read(u"/proc/self/status", 100, bytes) == ReadStatus::TooLarge);
}

TEST_CASE("clock on POSIX") {
    const std::time_t before = std::time(nullptr);
    const DateTime now = PosixClock().Now();
    const std::time_t after = std::time(nullptr);
    const auto time = TimeFromLocal(now);
    REQUIRE(time);
    CHECK(*time >= before);
    CHECK(*time <= after);
    for (const DateTime& none : {DateTime{2023, 2, 30, 0, 0, 0}, DateTime{2023, 13, 1, 0, 0, 0},
                                 DateTime{2023, 1, 1, 24, 0, 0}, DateTime{2023, 1, 0, 0, 0, 0}}) {
        CHECK_FALSE(TimeFromLocal(none));
    }
}
