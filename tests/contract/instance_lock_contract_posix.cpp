#include "common/utf.h"
#include "platform/posix/posix_instance_lock.h"
#include "platform/posix/posix_paths.h"
#include "product.h"
#include "temporary_folder_posix.h"

#include <doctest/doctest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <set>

namespace {

// The lock folder of these tests.
class RuntimeFolder {
  public:
    RuntimeFolder() { setenv("XDG_RUNTIME_DIR", folder_.path.c_str(), 1); }
    ~RuntimeFolder() { unsetenv("XDG_RUNTIME_DIR"); }
    const std::string& Path() const { return folder_.path; }

  private:
    TemporaryFolder folder_;
};

// A process that takes the lock and then waits for its end.
class Holder {
  public:
    explicit Holder(const std::u16string& dataFile) {
        int ready[2];
        REQUIRE(pipe(ready) == 0);
        process_ = fork();
        REQUIRE(process_ >= 0);
        if (process_ == 0) {
            InstanceLock lock;
            const char answer = lock.Acquire(dataFile) ? 'y' : 'n';
            if (write(ready[1], &answer, 1) == 1) pause();
            _exit(0);
        }
        char answer = '?';
        CHECK(read(ready[0], &answer, 1) == 1);
        close(ready[0]);
        close(ready[1]);
        hasLock = answer == 'y';
    }
    ~Holder() { Kill(); }

    void Kill() {
        if (process_ <= 0) return;
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        process_ = 0;
    }

    bool hasLock = false;

  private:
    pid_t process_ = 0;
};

} // namespace

TEST_CASE("instance lock on POSIX: one at a time for a data file") {
    const RuntimeFolder runtime;
    const TemporaryFolder data;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    InstanceLock first;
    CHECK(first.Acquire(file));
    CHECK(first.Acquire(file)); // it has it already
    CHECK_FALSE(InstanceLock().Acquire(file));
    CHECK(InstanceLock().Acquire(PathFromNative(data.path + "/Other.dat")));
    CHECK_FALSE(Holder(file).hasLock);
    first = InstanceLock();
    CHECK(InstanceLock().Acquire(file));
    CHECK(std::filesystem::is_empty(data.path)); // nothing is needed beside the data file
}

TEST_CASE("instance lock on POSIX: it dies with its process") {
    const RuntimeFolder runtime;
    const TemporaryFolder data;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    Holder holder(file);
    CHECK(holder.hasLock);
    CHECK_FALSE(InstanceLock().Acquire(file));
    holder.Kill();
    CHECK(InstanceLock().Acquire(file));
}

TEST_CASE("instance lock on POSIX: the same file by another path") {
    const RuntimeFolder runtime;
    const TemporaryFolder data;
    std::filesystem::create_directory(data.path + "/real");
    std::filesystem::create_directory_symlink("real", data.path + "/link");
    InstanceLock lock;
    CHECK(lock.Acquire(PathFromNative(data.path + "/real/Norvaset.dat")));
    CHECK_FALSE(InstanceLock().Acquire(PathFromNative(data.path + "/link/Norvaset.dat")));
    CHECK_FALSE(InstanceLock().Acquire(PathFromNative(data.path + "/real/../link/Norvaset.dat")));
}

TEST_CASE("instance lock on POSIX: without a runtime folder of one's own") {
    namespace fs = std::filesystem;
    const TemporaryFolder shared, data;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    const std::string fallback = "/tmp/" PRODUCT_TITLE "-" + std::to_string(geteuid());
    const auto filesThere = [&] {
        std::set<fs::path> paths;
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(fallback, ignored))
            paths.insert(entry.path());
        return paths;
    };
    const std::set<fs::path> before = filesThere();

    REQUIRE(chmod(shared.path.c_str(), 0777) == 0);
    setenv("XDG_RUNTIME_DIR", shared.path.c_str(), 1); // others could put things there
    InstanceLock lock;
    CHECK(lock.Acquire(file));
    CHECK_FALSE(InstanceLock().Acquire(file));
    CHECK(fs::is_empty(shared.path));
    unsetenv("XDG_RUNTIME_DIR");
    CHECK_FALSE(InstanceLock().Acquire(file));

    for (const fs::path& path : filesThere()) {
        if (!before.contains(path)) fs::remove(path);
    }
}
