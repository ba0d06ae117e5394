#include "numbered_state.h"
#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "tests/contract/temporary_folder_posix.h"

#include <doctest/doctest.h>

#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <new>
#include <random>
#include <thread>

namespace {

using Time = std::chrono::steady_clock;

// The number of the last state that the writer knows to be on disk, seen by both processes.
class SharedNumber {
  public:
    SharedNumber()
        : memory_(mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                       MAP_SHARED | MAP_ANONYMOUS, -1, 0)) {
        REQUIRE(memory_ != MAP_FAILED);
        new (memory_) std::atomic<int>(0);
    }
    ~SharedNumber() { munmap(memory_, sizeof(std::atomic<int>)); }
    std::atomic<int>& Value() { return *static_cast<std::atomic<int>*>(memory_); }

  private:
    void* memory_;
};

[[noreturn]] void WriteForever(const std::u16string& path, std::atomic<int>& written) {
    PosixFiles files;
    IniFile file(files, path, 1252, NotDecoded);
    for (;;) {
        const int next = written + 1;
        WriteState(file, next);
        written = next;
    }
}

long FilesIn(const std::string& folder) {
    return std::distance(std::filesystem::directory_iterator(folder), {});
}

} // namespace

TEST_CASE("killed at any moment, the data file holds one whole state") {
    constexpr int kills = 200;
    const TemporaryFolder folder;
    const std::u16string path = PathFromNative(folder.path + "/Norvaset.dat");
    SharedNumber written;
    PosixFiles files;
    REQUIRE(files.Replace(path, StateBytes(0), WriteTime::Now));

    const auto start = Time::now();
    REQUIRE(files.Replace(path, StateBytes(0), WriteTime::Now));
    const double oneWrite = std::chrono::duration<double>(Time::now() - start).count();
    std::mt19937 random(std::random_device{}());
    std::uniform_real_distribution<double> delay(0, 4 * oneWrite);

    int interrupted = 0;
    for (int i = 0; i < kills; ++i) {
        const pid_t writer = fork();
        REQUIRE(writer >= 0);
        if (writer == 0) WriteForever(path, written.Value());
        // No event to wait for: the random moment is what is tested.
        std::this_thread::sleep_for(std::chrono::duration<double>(delay(random)));
        kill(writer, SIGKILL);
        REQUIRE(waitpid(writer, nullptr, 0) == writer);

        std::string bytes;
        REQUIRE(files.Read(path, 1u << 30, bytes) == ReadStatus::Ok);
        const int known = written.Value();
        const bool isNext = bytes == StateBytes(known + 1);
        REQUIRE((isNext || bytes == StateBytes(known)));
        if (isNext) written.Value() = known + 1;
        const long count = FilesIn(folder.path);
        CHECK(count <= 2); // the leftover of the writer before was removed
        if (count == 2) ++interrupted;
    }
    MESSAGE(kills, " kills, ", interrupted, " of them within a write, ", int(written.Value()),
            " states written");
    CHECK(interrupted > 0);
    CHECK(written.Value() > 0);

    PosixFiles fresh;
    CHECK(fresh.Replace(path, "last", WriteTime::Now));
    CHECK(FilesIn(folder.path) == 1);
}
