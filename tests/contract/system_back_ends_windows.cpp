// Clipboard, timer, file watch, registry, locale and version information on Windows, and in memory.
#include "platform/windows/base/text.h"
#include "platform/windows/files/win_file_watch.h"
#include "platform/windows/files/win_files.h"
#include "platform/windows/system/win_clipboard.h"
#include "platform/windows/system/win_locale.h"
#include "platform/windows/system/win_registry.h"
#include "platform/windows/system/win_version_info.h"
#include "platform/windows/window/win_timer.h"
#include "tests/contract/system_back_ends_none.h"
#include "tests/contract/temporary_folder_windows.h"
#include "tests/contract/version_info_contract.h"
#include "tests/contract/windows_clipboard_text.h"
#include "tests/contract/windows_helper.h"
#include "tests/contract/windows_message_pump.h"
#include "tests/contract/windows_test_key.h"

#include <algorithm>

namespace {

class WinClipboardUnderTest final : public ClipboardUnderTest {
  public:
    Clipboard& Port() override { return clipboard_; }
    std::u16string Text() override { return ClipboardText(); }
    std::u16string LineEnd() override { return u"\r\n"; }
    void CopyOther() override {
        REQUIRE(OpenClipboard(nullptr));
        EmptyClipboard();
        SetClipboardData(RegisterClipboardFormatW(L"Norvaset contract"),
                         GlobalAlloc(GMEM_MOVEABLE, 8));
        CloseClipboard();
    }
    // The system makes the other text formats of the Unicode text.
    bool HoldsTextOnly() override {
        constexpr UINT ofText[] = {CF_UNICODETEXT, CF_TEXT, CF_OEMTEXT, CF_LOCALE};
        bool textOnly = IsClipboardFormatAvailable(CF_UNICODETEXT);
        REQUIRE(OpenClipboard(nullptr));
        for (UINT format = EnumClipboardFormats(0); format; format = EnumClipboardFormats(format))
            textOnly = textOnly && std::ranges::find(ofText, format) != std::end(ofText);
        CloseClipboard();
        return textOnly;
    }

  private:
    WinClipboard clipboard_;
};

class WinTimerUnderTest final : public TimerUnderTest {
  public:
    Timer& Port() override { return timer_; }
    bool Becomes(const std::function<bool()>& condition) override { return ::Becomes(condition); }
    void WaitTicks(int interval, int times) override {
        WinTimer reference(nullptr);
        int ticks = 0;
        reference.Start(interval, [&] { ++ticks; });
        REQUIRE(::Becomes([&] { return ticks >= times; }));
    }
    // Every modal dialog disables its owner.
    void WhileDialogIsOpen(const std::function<void()>& check) override {
        EnableWindow(window_.Handle(), FALSE);
        check();
        EnableWindow(window_.Handle(), TRUE);
    }

  private:
    WinWindow window_;
    WinTimer timer_{window_.Handle()};
};

class WinFileWatchUnderTest final : public FileWatchUnderTest {
  public:
    FileWatch& Port() override { return watch_; }
    FileWatch& OtherPort() override { return other_; }
    std::u16string Path(const std::u16string& name) override {
        return FromWide(folder_.path) + u"\\" + name;
    }
    void Write(const std::u16string& path, std::string_view bytes) override {
        const WinHandle file(CreateFileW(ToWide(path).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                         nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        REQUIRE(WriteFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written,
                          nullptr));
    }
    void Replace(const std::u16string& path, std::string_view bytes) override {
        Write(path + u"~", bytes);
        REQUIRE(MoveFileExW(ToWide(path + u"~").c_str(), ToWide(path).c_str(),
                            MOVEFILE_REPLACE_EXISTING));
    }
    void Remove(const std::u16string& path) override { REQUIRE(DeleteFileW(ToWide(path).c_str())); }
    bool Becomes(const std::function<bool()>& condition) override { return ::Becomes(condition); }

  private:
    TemporaryFolder folder_;
    WinFileWatch watch_, other_;
};

class WinRegistryUnderTest final : public RegistryUnderTest {
  public:
    Registry& Port() override { return registry_; }
    std::u16string Key() override { return testKey; }

  private:
    TestKey key_;
    WinRegistry registry_;
};

class WinLocaleUnderTest final : public LocaleUnderTest {
  public:
    Locale& Port() override { return locale_; }
    // With a day before it, which is cut off again: some languages have another form then.
    std::u16string MonthInDate(int month, NameLength length) override {
        const SYSTEMTIME date = {2026, static_cast<WORD>(month), 0, 15, 0, 0, 0, 0};
        return InDate(date, length == NameLength::Long ? L"dd MMMM" : L"dd MMM").substr(3);
    }
    std::u16string DayInDate(int weekday, NameLength length) override {
        const SYSTEMTIME date = {2026, 2, 0, static_cast<WORD>(weekday), 0, 0, 0, 0};
        return InDate(date, length == NameLength::Long ? L"dddd" : L"ddd"); // the 1st is a Sunday
    }

  private:
    static std::u16string InDate(const SYSTEMTIME& date, const wchar_t* format) {
        wchar_t shown[80] = {};
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &date, format, shown, 80, nullptr);
        return FromWide(shown);
    }
    WinLocale locale_;
};

class WinVersionInfoUnderTest final : public VersionInfoUnderTest {
  public:
    WinVersionInfoUnderTest() {
        REQUIRE(WinFiles().Replace(Folder() + u"\\text", "text", WriteTime::Now));
    }
    VersionInfo& Port() override { return versionInfo_; }
    std::u16string DescribedProgram() override { return FromWide(HelperPath()); }
    std::u16string Description() override {
        return u"\u041F\u043E\u043C\u043E\u0449\u043D\u0438\u043A "
               u"\u201C\u043F\u0440\u043E\u0432\u0435\u0440\u043A\u0438\u201D \u00A9 2026";
    }
    std::u16string Folder() override { return FromWide(folder_.path); }

  private:
    TemporaryFolder folder_;
    WinVersionInfo versionInfo_;
};

} // namespace

std::vector<BackEnd<ClipboardUnderTest>> ClipboardBackEnds() {
    return {MakeBackEnd<ClipboardUnderTest, NoneClipboardUnderTest>("none"),
            MakeBackEnd<ClipboardUnderTest, WinClipboardUnderTest>("windows")};
}

std::vector<BackEnd<TimerUnderTest>> TimerBackEnds() {
    return {MakeBackEnd<TimerUnderTest, NoneTimerUnderTest>("none"),
            MakeBackEnd<TimerUnderTest, WinTimerUnderTest>("windows")};
}

std::vector<BackEnd<FileWatchUnderTest>> FileWatchBackEnds() {
    return {MakeBackEnd<FileWatchUnderTest, NoneFileWatchUnderTest>("none"),
            MakeBackEnd<FileWatchUnderTest, WinFileWatchUnderTest>("windows")};
}

std::vector<BackEnd<RegistryUnderTest>> RegistryBackEnds() {
    return {MakeBackEnd<RegistryUnderTest, NoneRegistryUnderTest>("none"),
            MakeBackEnd<RegistryUnderTest, WinRegistryUnderTest>("windows")};
}

std::vector<BackEnd<LocaleUnderTest>> LocaleBackEnds() {
    return {MakeBackEnd<LocaleUnderTest, NoneLocaleUnderTest>("none"),
            MakeBackEnd<LocaleUnderTest, WinLocaleUnderTest>("windows")};
}

std::vector<BackEnd<VersionInfoUnderTest>> VersionInfoBackEnds() {
    return {MakeBackEnd<VersionInfoUnderTest, WinVersionInfoUnderTest>("windows")};
}
