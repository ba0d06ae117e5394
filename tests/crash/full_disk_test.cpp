#include "numbered_state.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "tests/contract/temporary_folder_posix.h"

#include <doctest/doctest.h>

#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <fstream>
#include <vector>

namespace {

// No file of this process grows beyond so many bytes while it lives.
class FileSizeLimit {
  public:
    explicit FileSizeLimit(rlim_t bytes) {
        previousHandler_ = signal(SIGXFSZ, SIG_IGN);
        REQUIRE(getrlimit(RLIMIT_FSIZE, &previous_) == 0);
        const rlimit limit{bytes, previous_.rlim_max};
        REQUIRE(setrlimit(RLIMIT_FSIZE, &limit) == 0);
    }
    ~FileSizeLimit() {
        setrlimit(RLIMIT_FSIZE, &previous_);
        signal(SIGXFSZ, previousHandler_);
    }

  private:
    rlimit previous_{};
    void (*previousHandler_)(int) = nullptr;
};

// A file system in memory of so many bytes, seen by this process only; may not be allowed.
class SmallDisk {
  public:
    SmallDisk(const std::string& folder, std::size_t bytes) : folder_(folder) {
        const std::string size = "size=" + std::to_string(bytes);
        isMounted = unshare(CLONE_NEWNS) == 0 &&
                    mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
                    mount("tmpfs", folder.c_str(), "tmpfs", 0, size.c_str()) == 0;
    }
    ~SmallDisk() {
        if (isMounted) umount(folder_.c_str());
    }

    bool isMounted = false;

  private:
    std::string folder_;
};

struct Store {
    std::string folder;
    std::u16string path = PathFromNative(folder + "/Norvaset.dat");
    PosixFiles files{};
    IniFile ini{files, path, 1252, NotDecoded};

    std::string Bytes() const {
        std::string bytes;
        CHECK(files.Read(path, 1u << 30, bytes) == ReadStatus::Ok);
        return bytes;
    }
    std::u16string Key() { return IniReadString(ini, stateSection, u"key7"); }
};

void CheckNothingIsWritten(Store& store) {
    CHECK_FALSE(store.files.Replace(store.path, StateBytes(2), WriteTime::Now));
    WriteState(store.ini, 2);
    SUBCASE("each key by itself") {
        IniWriteString(store.ini, stateSection, u"key7", u"2");
    }
    SUBCASE("keeping the time") {
        IniWriteString(store.ini, stateSection, u"key7", u"2", WriteTime::Keep);
    }
    CHECK((store.Bytes() == StateBytes(1)));
    CHECK(store.ini.Trouble() == IniTrouble::NotWritten);
    CHECK(store.Key() != StateValue(1)); // it is kept, to be written later
}

void CheckWritingWorks(Store& store) {
    WriteState(store.ini, 3);
    CHECK((store.Bytes() == StateBytes(3)));
    CHECK(store.Key() == StateValue(3));
}

std::vector<std::string> NamesIn(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    return names;
}

void CheckFullDisk(std::size_t free) {
    const TemporaryFolder folder;
    constexpr std::size_t size = 1 << 20;
    const SmallDisk disk(folder.path, size);
    if (!disk.isMounted) {
        MESSAGE("skipped: this user may not mount a file system");
        return;
    }
    Store store{folder.path};
    REQUIRE(store.files.Replace(store.path, StateBytes(1), WriteTime::Now));
    {
        std::ofstream filler(folder.path + "/filler", std::ios::binary);
        filler << std::string(size - StateBytes(1).size() - free, 'x');
    }
    CheckNothingIsWritten(store);
    CHECK(NamesIn(folder.path).size() == 2);
    std::filesystem::remove(folder.path + "/filler");
    CheckWritingWorks(store);
    CHECK(NamesIn(folder.path) == std::vector<std::string>{"Norvaset.dat"});
}

} // namespace

TEST_CASE("over a file size limit nothing is written and nothing is lost") {
    const TemporaryFolder folder;
    Store store{folder.path};
    REQUIRE(store.files.Replace(store.path, StateBytes(1), WriteTime::Now));
    {
        const FileSizeLimit limit(64 * 1024);
        CheckNothingIsWritten(store);
    }
    CHECK(NamesIn(folder.path) == std::vector<std::string>{"Norvaset.dat"});
    CheckWritingWorks(store);
}

TEST_CASE("on a full disk nothing is written and nothing is lost") {
    SUBCASE("no room at all") {
        CheckFullDisk(0);
    }
    SUBCASE("room for the start of the new content") {
        CheckFullDisk(100'000);
    }
}
