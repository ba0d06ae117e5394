#include "data_file_faults.h"

#include "platform/posix/posix_files.h"
#include "platform/posix/posix_paths.h"
#include "temporary_folder_posix.h"
#include "without_privileges.h"

#include <doctest/doctest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace fs = std::filesystem;

namespace {

// Something else takes the place of the file, which is beside it until the end.
template <typename Make>
auto InItsPlace(Make make) {
    return [make](const fs::path& file) -> EndOfFault {
        const fs::path aside = file.string() + ".aside";
        fs::rename(file, aside);
        make(file);
        return [file, aside] {
            fs::remove_all(file);
            fs::rename(aside, file);
        };
    };
}

EndOfFault Unreadable(const fs::path& file) {
    REQUIRE(chmod(file.c_str(), 0) == 0);
    return [file] { REQUIRE(chmod(file.c_str(), 0600) == 0); };
}

// As another program leaves it that writes a new file and then sets its rights.
EndOfFault ReplacedUnreadable(const fs::path& file) {
    const fs::path made = file.string() + ".made";
    fs::copy_file(file, made);
    fs::rename(made, file);
    return Unreadable(file);
}

EndOfFault FolderReadOnly(const fs::path& file) {
    const fs::path folder = file.parent_path();
    REQUIRE(chmod(folder.c_str(), 0555) == 0);
    return [folder] { REQUIRE(chmod(folder.c_str(), 0755) == 0); };
}

EndOfFault NoSpace(const fs::path&) {
    rlimit old{};
    REQUIRE(getrlimit(RLIMIT_FSIZE, &old) == 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit none{0, old.rlim_max};
    REQUIRE(setrlimit(RLIMIT_FSIZE, &none) == 0);
    return [old, handler] {
        REQUIRE(setrlimit(RLIMIT_FSIZE, &old) == 0);
        std::signal(SIGXFSZ, handler);
    };
}

EndOfFault ReadOnly(const fs::path& file) {
    REQUIRE(chmod(file.c_str(), 0400) == 0);
    return [file] {
        CHECK((fs::status(file).permissions() & fs::perms::owner_write) == fs::perms::none);
    };
}

} // namespace

std::unique_ptr<Files> FilesOfSystem() {
    return std::make_unique<PosixFiles>();
}

std::u16string PathOfSystem(const fs::path& path) {
    return PathFromNative(path.native());
}

std::vector<Fault> FaultsOfSystem() {
    const auto folder = [](const fs::path& file) { fs::create_directory(file); };
    const auto pipe = [](const fs::path& file) { REQUIRE(mkfifo(file.c_str(), 0600) == 0); };
    const auto out = [](const fs::path& file) { fs::create_symlink("not mounted/file", file); };
    const auto loop = [](const fs::path& file) { fs::create_symlink(file.filename(), file); };
    return {
        {"no right to read", ReplacedUnreadable, Reported::CannotRead, Reported::CannotRead},
        {"a folder in its place", InItsPlace(folder), Reported::CannotRead, Reported::CannotRead},
        {"a pipe in its place", InItsPlace(pipe), Reported::CannotRead, Reported::CannotRead},
        {"a link to itself in its place", InItsPlace(loop), Reported::CannotRead,
         Reported::CannotRead},
        {"a link out of reach in its place", InItsPlace(out), Reported::CannotRead,
         Reported::CannotRead},
        {"a read-only file", ReadOnly, Reported::Nothing, Reported::Nothing},
        {"no space", NoSpace, Reported::CannotWrite, Reported::CannotWrite},
    };
}

TEST_CASE("data file on POSIX: nothing that can be read is lost, whatever happens to the file") {
    const TemporaryFolder folder;
    REQUIRE(chmod(folder.path.c_str(), 0777) == 0);
    const WithoutPrivileges nobody;
    CheckDataFileFaults(folder.path);
}

TEST_CASE("data file on POSIX: a folder that becomes read-only while the program runs") {
    // At the start it would mean a data file elsewhere.
    const TemporaryFolder folder;
    REQUIRE(chmod(folder.path.c_str(), 0777) == 0);
    const WithoutPrivileges nobody;
    const Fault fault{"read-only folder", FolderReadOnly, Reported::Nothing, Reported::CannotWrite};
    for (const bool endsWhileItRuns : {true, false})
        CheckFaultThatComes(fault, fs::path(folder.path) / (endsWhileItRuns ? "a" : "b"),
                            endsWhileItRuns);
}
