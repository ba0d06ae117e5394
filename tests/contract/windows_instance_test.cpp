#include "platform/windows/files/win_instance_lock.h"
#include "platform/windows/system/win_shell.h"
#include "windows_helper_run.h"

#include <doctest/doctest.h>

using Result = InstanceClaim::Result;

namespace {

Result Claim(const std::wstring& dataFile) {
    return WinInstanceLock().Acquire(FromWide(dataFile)).result;
}

// As a holder of another name leaves it.
WinHandle LockedByAnother(const std::wstring& lockFile, std::wstring_view holder) {
    WinHandle file(CreateFileW(lockFile.c_str(), GENERIC_READ | GENERIC_WRITE,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               CREATE_ALWAYS, FILE_ATTRIBUTE_HIDDEN, nullptr));
    REQUIRE(file.IsOpen());
    DWORD written = 0;
    REQUIRE(WriteFile(file.Get(), holder.data(),
                      static_cast<DWORD>(holder.size() * sizeof(wchar_t)), &written, nullptr));
    OVERLAPPED place = {};
    place.Offset = 0x40000000;
    REQUIRE(LockFileEx(file.Get(), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                       &place));
    return file;
}

} // namespace

TEST_CASE("windows instance: one at a time for a data file") {
    const TemporaryFolder data;
    const std::wstring file = data.path + L"\\Norvaset.dat";
    {
        WinShell first;
        CHECK(first.ClaimDataFile(FromWide(file)).IsGranted());
        CHECK(first.ClaimDataFile(FromWide(file)).IsGranted()); // it has it already
        CHECK(Claim(file) == Result::Own);
        CHECK(Claim(data.path + L"\\Other.dat") == Result::Granted);
        CHECK(HelperProcess(HelperHolds, file).answer == L"no");
    }
    CHECK(NamesInFolder(data.path).empty()); // nothing stays beside the data file
    CHECK(Claim(file) == Result::Granted);
}

TEST_CASE("windows instance: the lock dies with a killed process") {
    const TemporaryFolder data;
    const std::wstring file = data.path + L"\\Norvaset.dat";
    HelperProcess holder(HelperHolds, file);
    CHECK(holder.answer == L"yes");
    CHECK(Claim(file) == Result::Own);
    holder.Kill();
    CHECK(Claim(file) == Result::Granted);
    CHECK(NamesInFolder(data.path).empty()); // nor what a killed one has left
}

TEST_CASE("windows instance: the same file by any spelling") {
    const TemporaryFolder data;
    WinInstanceLock lock;
    REQUIRE(lock.Acquire(FromWide(data.path) + u"\\Norvaset.dat").IsGranted());
    for (const wchar_t* name : {L"\\NORVASET.DAT", L"/none/../norvaset.dat"})
        CHECK(Claim(data.path + name) == Result::Own);
    CHECK(Claim(L"\\\\?\\" + data.path + L"\\Norvaset.dat") == Result::Own);
    CHECK(Claim(L"") == Result::Granted);
}

TEST_CASE("windows instance: another user's, or on another machine, is told with its names") {
    const TemporaryFolder data;
    const std::wstring file = data.path + L"\\Norvaset.dat";
    {
        const WinHandle held = LockedByAnother(file + L".lock", L"anna\ndesk");
        const InstanceClaim claim = WinInstanceLock().Acquire(FromWide(file));
        CHECK(claim.result == Result::SomebodyElse);
        CHECK(claim.holder == u"anna on desk");
    }
    CHECK(Claim(file) == Result::Granted); // what was left of it does no harm
}

TEST_CASE("windows instance: a program that looks at the lock file locks nobody out") {
    const TemporaryFolder data;
    const std::wstring file = data.path + L"\\Norvaset.dat", name = file + L".lock";
    const WinHandle scanner(CreateFileW(name.c_str(), GENERIC_READ,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
    REQUIRE(scanner.IsOpen());
    CHECK(Claim(file) == Result::Granted);
}
