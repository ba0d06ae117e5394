#include "files_contract.h"
#include "platform/none/none_clock.h"
#include "platform/none/none_files.h"

#include <doctest/doctest.h>

namespace {

class NoneUnderTest : public FilesUnderTest {
  public:
    NoneUnderTest() { files_.AddFolder(root_); }
    Files& Port() override { return files_; }
    std::u16string Root() override { return root_; }
    void MakeReadOnly(const std::u16string& file) override { files_.Find(file)->readOnly = true; }
    bool IsReadOnly(const std::u16string& file) override { return files_.Find(file)->readOnly; }
    std::vector<std::u16string> NamesIn(const std::u16string& folder) override {
        return files_.NamesIn(folder);
    }

  private:
    std::u16string root_ = u"/root";
    NoneClock clock_;
    NoneFiles files_{clock_};
};

} // namespace

TEST_CASE("files in memory") {
    NoneUnderTest test;
    CheckFilesContract(test);
}

TEST_CASE("files in memory: failures on demand, and a record of what was asked") {
    NoneClock clock;
    NoneFiles files(clock);
    files.AddFile(u"/a/b", "old");
    files.failReplace = true;
    CHECK_FALSE(files.Replace(u"/a/b", "new", WriteTime::Keep));
    CHECK(files.Bytes(u"/a/b") == "old");
    files.failReplace = false;
    files.readOnlyFolders.insert(u"/a");
    CHECK_FALSE(files.FolderIsWritable(u"/a"));
    CHECK_FALSE(files.Replace(u"/a/b", "new", WriteTime::Now));
    CHECK_FALSE(files.CreateFolder(u"/a/c"));
    files.readFailure[u"/a/b"] = ReadStatus::Denied;
    std::string bytes;
    CHECK(files.Read(u"/a/b", 10, bytes) == ReadStatus::Denied);

    REQUIRE(files.replaceCalls.size() == 2);
    CHECK(files.replaceCalls[0].time == WriteTime::Keep);
    CHECK(files.replaceCalls[1].bytes == "new");
    CHECK_FALSE(files.replaceCalls[1].done);
    CHECK(files.readCalls == std::vector<std::u16string>{u"/a/b"});
}

TEST_CASE("a clock turned by hand") {
    NoneClock clock;
    clock.now = {2023, 12, 31, 23, 59, 59};
    clock.Advance(std::chrono::seconds(1));
    CHECK(clock.Now() == DateTime{2024, 1, 1, 0, 0, 0});
    clock.Advance(std::chrono::days(59) + std::chrono::minutes(1));
    CHECK(clock.Now() == DateTime{2024, 2, 29, 0, 1, 0});
}
