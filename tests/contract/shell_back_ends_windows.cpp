#include "platform/windows/system/win_shell.h"
#include "tests/contract/shell_contract.h"
#include "windows_registered.h"
#include "windows_start_recorder.h"

namespace {

class WinShellUnderTest final : public ShellUnderTest {
  public:
    WinShellUnderTest() {
        scheme_.IsScheme();
        extension_.IsKind(L"norvasettest.song");
        REQUIRE(WinFiles().Replace(File(), "la la", WriteTime::Now));
    }
    Shell& Port() override { return shell_; }
    std::u16string Program() override { return starts_.Program(); }
    std::u16string Folder() override { return starts_.Folder(); }
    std::u16string Address() override { return u"norvasettest:+4912"; }
    std::u16string File() override { return Folder() + u"\\a song.norvasettest"; }
    bool Exists(const std::u16string& path) override { return WinFiles().FileExists(path); }
    void Settle() override {
        int rounds = 0;
        Becomes([&] { return ++rounds > 2; });
    }
    std::vector<std::u16string> NextStart() override { return starts_.NextStart(); }

  private:
    StartRecorder starts_;
    Registered scheme_{L"norvasettest", starts_.Program()};
    Registered kind_{L"norvasettest.song", starts_.Program()};
    Registered extension_{L".norvasettest", starts_.Program()};
    WinShell shell_;
};

} // namespace

std::vector<BackEnd<ShellUnderTest>> ShellBackEnds() {
    return {MakeBackEnd<ShellUnderTest, WinShellUnderTest>("windows")};
}
