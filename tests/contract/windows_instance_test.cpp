#include "platform/windows/win_instance_name.h"
#include "platform/windows/win_shell.h"
#include "windows_helper_run.h"

#include <doctest/doctest.h>

TEST_CASE("windows instance: one at a time for a data file") {
    const TemporaryFolder data;
    const std::u16string file = FromWide(data.path) + u"\\Norvaset.dat";
    {
        WinShell first;
        CHECK(first.BecomeOnlyInstance(file));
        CHECK(first.BecomeOnlyInstance(file)); // it has it already
        CHECK_FALSE(WinShell().BecomeOnlyInstance(file));
        CHECK(WinShell().BecomeOnlyInstance(FromWide(data.path) + u"\\Other.dat"));
        CHECK(HelperProcess(HelperHolds, ToWide(file)).answer == L"no");
    }
    CHECK(WinShell().BecomeOnlyInstance(file));
    CHECK(NamesInFolder(data.path).empty()); // nothing is needed beside the data file
}

TEST_CASE("windows instance: the lock dies with a killed process") {
    const TemporaryFolder data;
    const std::wstring file = data.path + L"\\Norvaset.dat";
    HelperProcess holder(HelperHolds, file);
    CHECK(holder.answer == L"yes");
    CHECK_FALSE(WinShell().BecomeOnlyInstance(FromWide(file)));
    holder.Kill();
    CHECK(WinShell().BecomeOnlyInstance(FromWide(file)));
}

TEST_CASE("windows instance: one name for a file by any spelling") {
    const TemporaryFolder data;
    const std::wstring name = InstanceLockName(data.path + L"\\Norvaset.dat");
    CHECK(name.starts_with(L"Local\\"));
    CHECK(name.find(L'\\', 6) == name.npos);
    CHECK(name.size() < MAX_PATH);
    CHECK((InstanceLockName(data.path + L"\\NORVASET.DAT") == name));
    CHECK((InstanceLockName(data.path + L"/none/../norvaset.dat") == name));
    CHECK((InstanceLockName(L"\\\\?\\" + data.path + L"\\Norvaset.dat") == name));
    CHECK((InstanceLockName(data.path + L"\\Norvaset.da") != name));
    CHECK((InstanceLockName(L"") != name));
    CHECK((InstanceLockName(data.path + L"\\" + std::wstring(500, L'x')).size() == name.size()));
}
