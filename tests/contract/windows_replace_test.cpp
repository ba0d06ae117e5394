#include "platform/windows/base/text.h"
#include "platform/windows/files/win_files.h"
#include "windows_helper_run.h"

#include <doctest/doctest.h>

TEST_CASE("windows files: a kill at any moment leaves the old content or the new") {
    constexpr DWORD kills = 24, stepOfDelay = 3; // milliseconds: a replacement takes about as long
    const TemporaryFolder folder;
    const std::wstring path = folder.path + L"\\Norvaset.dat";
    WinFiles files;
    bool sawTemporary = false;
    for (DWORD i = 0; i < kills; ++i) {
        {
            HelperProcess writer(HelperReplaces, path);
            Sleep(i * stepOfDelay);
            writer.Kill();
        }
        std::string bytes;
        REQUIRE(files.Read(FromWide(path), 1u << 20, bytes) == ReadStatus::Ok);
        CHECK(bytes.size() == HelperBytes);
        CHECK(bytes.find_first_not_of(bytes.front()) == bytes.npos);
        sawTemporary = sawTemporary || NamesInFolder(folder.path).size() > 1;
    }
    CHECK(sawTemporary); // or no kill came in the middle of anything
    CHECK(WinFiles().Replace(FromWide(path), "own", WriteTime::Now));
    CHECK((NamesInFolder(folder.path) == std::vector<std::wstring>{L"Norvaset.dat"}));
}
