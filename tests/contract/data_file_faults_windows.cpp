#include "data_file_faults.h"

#include "platform/windows/base/text.h"
#include "platform/windows/base/win_handle.h"
#include "platform/windows/files/win_files.h"
#include "temporary_folder_windows.h"

#include <doctest/doctest.h>

namespace fs = std::filesystem;

namespace {

// As a backup, a sync client or a virus scanner holds it.
template <DWORD access, DWORD sharing>
EndOfFault Held(const fs::path& file) {
    auto held = std::make_shared<WinHandle>(CreateFileW(
        file.c_str(), access, sharing, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    REQUIRE(held->IsOpen());
    return [held] { held->Close(); };
}

// Another program has just written a new one, and holds it still.
EndOfFault ReplacedAndHeld(const fs::path& file) {
    const fs::path made = file.wstring() + L".made";
    fs::copy_file(file, made);
    REQUIRE(MoveFileExW(made.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING));
    return Held<GENERIC_READ | GENERIC_WRITE, 0>(file);
}

EndOfFault FolderInItsPlace(const fs::path& file) {
    const fs::path aside = file.wstring() + L".aside";
    fs::rename(file, aside);
    fs::create_directory(file);
    return [file, aside] {
        fs::remove(file);
        fs::rename(aside, file);
    };
}

EndOfFault ReadOnly(const fs::path& file) {
    REQUIRE(SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY));
    return [file] { CHECK((GetFileAttributesW(file.c_str()) & FILE_ATTRIBUTE_READONLY) != 0); };
}

} // namespace

std::unique_ptr<Files> FilesOfSystem() {
    return std::make_unique<WinFiles>();
}

std::u16string PathOfSystem(const fs::path& path) {
    return FromWide(path.wstring());
}

std::vector<Fault> FaultsOfSystem() {
    return {
        {"held without sharing", ReplacedAndHeld, Reported::CannotRead, Reported::CannotRead},
        {"held for reading only", Held<GENERIC_READ, FILE_SHARE_READ>, Reported::CannotWrite,
         Reported::CannotWrite},
        {"a folder in its place", FolderInItsPlace, Reported::CannotRead, Reported::CannotRead},
        {"a read-only file", ReadOnly, Reported::Nothing, Reported::Nothing},
    };
}

TEST_CASE("windows data file: nothing that can be read is lost, whatever happens to the file") {
    const TemporaryFolder folder;
    CheckDataFileFaults(folder.path);
}
