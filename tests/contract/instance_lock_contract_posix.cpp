#include "platform/posix/posix_instance_lock.h"
#include "platform/posix/posix_paths.h"
#include "temporary_folder_posix.h"
#include "without_privileges.h"

#include <doctest/doctest.h>

#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>

namespace fs = std::filesystem;

namespace {

using Result = InstanceClaim::Result;

// A process, of another user where one is given, that takes the lock and then waits for its end.
class Holder {
  public:
    explicit Holder(const std::u16string& dataFile, uid_t user = 0) {
        int ready[2];
        REQUIRE(pipe(ready) == 0);
        process_ = fork();
        REQUIRE(process_ >= 0);
        if (process_ == 0) {
            if (user != 0 && setreuid(user, user) != 0) _exit(1);
            if (user != 0) setenv("USER", "anna", 1);
            InstanceLock lock;
            const char answer = lock.Acquire(dataFile).IsGranted() ? 'y' : 'n';
            if (write(ready[1], &answer, 1) == 1) pause();
            _exit(0);
        }
        char answer = '?';
        close(ready[1]);
        CHECK(read(ready[0], &answer, 1) == 1);
        close(ready[0]);
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

Result Claim(const std::u16string& dataFile) {
    return InstanceLock().Acquire(dataFile).result;
}

} // namespace

TEST_CASE("instance lock on POSIX: one at a time for a data file") {
    const TemporaryFolder data;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    {
        InstanceLock first;
        CHECK(first.Acquire(file).IsGranted());
        CHECK(first.Acquire(file).IsGranted()); // it has it already
        CHECK(Claim(file) == Result::Own);
        CHECK(Claim(PathFromNative(data.path + "/Other.dat")) == Result::Granted);
        CHECK_FALSE(Holder(file).hasLock);
    }
    CHECK(fs::is_empty(data.path)); // nothing stays beside the data file
    CHECK(Claim(file) == Result::Granted);
}

TEST_CASE("instance lock on POSIX: it belongs to the file and to no session") {
    const TemporaryFolder data, one, other;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    setenv("XDG_RUNTIME_DIR", one.path.c_str(), 1);
    InstanceLock first;
    CHECK(first.Acquire(file).IsGranted());
    for (const char* session : {other.path.c_str(), "", "/nonexistent"}) {
        setenv("XDG_RUNTIME_DIR", session, 1);
        CHECK(Claim(file) == Result::Own);
    }
    unsetenv("XDG_RUNTIME_DIR");
    CHECK(Claim(file) == Result::Own);
}

TEST_CASE("instance lock on POSIX: it dies with its process") {
    const TemporaryFolder data;
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    Holder holder(file);
    CHECK(holder.hasLock);
    CHECK(Claim(file) == Result::Own);
    holder.Kill();
    CHECK(Claim(file) == Result::Granted);
    CHECK(fs::is_empty(data.path)); // nor what a killed one has left
}

TEST_CASE("instance lock on POSIX: the same file by another path") {
    const TemporaryFolder data;
    fs::create_directory(data.path + "/real");
    fs::create_directory_symlink("real", data.path + "/link");
    fs::create_symlink("real/Norvaset.dat", data.path + "/Norvaset.dat");
    InstanceLock lock;
    CHECK(lock.Acquire(PathFromNative(data.path + "/real/Norvaset.dat")).IsGranted());
    for (const char* way : {"/link/Norvaset.dat", "/real/../link/Norvaset.dat", "/Norvaset.dat"})
        CHECK(Claim(PathFromNative(data.path + way)) == Result::Own);
}

TEST_CASE("instance lock on POSIX: another user's is reported with their name") {
    if (geteuid() != 0) return;
    const TemporaryFolder data;
    REQUIRE(chmod(data.path.c_str(), 0777) == 0);
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    const Holder holder(file, 65534);
    REQUIRE(holder.hasLock);
    InstanceLock lock;
    const InstanceClaim claim = lock.Acquire(file);
    CHECK(claim.result == Result::SomebodyElse);
    CHECK(claim.holder.starts_with(u"anna on "));
    CHECK(claim.holder.find(u'\n') == claim.holder.npos);
}

TEST_CASE("instance lock on POSIX: in a folder for one user nobody else can take it") {
    if (geteuid() != 0) return;
    const TemporaryFolder data;
    REQUIRE(chmod(data.path.c_str(), 0755) == 0);
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    InstanceLock lock;
    {
        const WithoutPrivileges nobody;
        InstanceLock stranger;
        stranger.Acquire(file);
        CHECK(fs::is_empty(data.path));
    }
    CHECK(lock.Acquire(file).IsGranted());
    const WithoutPrivileges nobody;
    // The file is there and for its owner alone: not even a lock for reading can be had.
    CHECK(InstanceLock().Acquire(file).IsGranted()); // there is nothing that could be locked
    CHECK(fs::exists(data.path + "/Norvaset.dat.lock"));
}

TEST_CASE("instance lock on POSIX: what is no lock file is left alone") {
    const TemporaryFolder data;
    const std::string lockFile = data.path + "/Norvaset.dat.lock", other = data.path + "/other";
    const std::u16string file = PathFromNative(data.path + "/Norvaset.dat");
    std::ofstream(other) << "not ours";
    fs::create_symlink(other, lockFile);
    CHECK(Claim(file) == Result::Granted);
    CHECK(fs::file_size(other) == 8);
    fs::remove(lockFile);
    REQUIRE(mkfifo(lockFile.c_str(), 0600) == 0);
    CHECK(Claim(file) == Result::Granted); // and does not wait for the other end of a pipe
    fs::remove(lockFile);
    fs::create_directory(lockFile);
    CHECK(Claim(file) == Result::Granted);
}
