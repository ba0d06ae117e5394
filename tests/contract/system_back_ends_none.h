// Clipboard, timer, file watch, registry and locale in memory, for the suites that run on them
// beside a front's.
#pragma once

#include "platform/none/none_ports.h"
#include "tests/contract/clipboard_contract.h"
#include "tests/contract/file_watch_contract.h"
#include "tests/contract/locale_contract.h"
#include "tests/contract/registry_contract.h"
#include "tests/contract/timer_contract.h"

#include <ctime>
#include <iomanip>
#include <sstream>

class NoneClipboardUnderTest final : public ClipboardUnderTest {
  public:
    Clipboard& Port() override { return clipboard_; }
    std::u16string Text() override { return clipboard_.text; }
    std::u16string LineEnd() override { return u"\n"; }
    void CopyOther() override { clipboard_.text = u"other"; }
    bool HoldsTextOnly() override { return clipboard_.text != u"other"; }

  private:
    NoneClipboard clipboard_;
};

class NoneTimerUnderTest final : public TimerUnderTest {
  public:
    Timer& Port() override { return timer_; }
    bool Becomes(const std::function<bool()>& condition) override {
        for (int i = 0; i < 100 && !condition(); ++i)
            timer_.Tick();
        return condition();
    }
    void WaitTicks(int, int times) override { timer_.Tick(times); }
    void WhileDialogIsOpen(const std::function<void()>&) override {}

  private:
    NoneTimer timer_;
};

class NoneFileWatchUnderTest final : public FileWatchUnderTest {
  public:
    FileWatch& Port() override { return watch_; }
    FileWatch& OtherPort() override { return other_; }
    std::u16string Path(const std::u16string& name) override { return u"/b/" + name; }
    void Write(const std::u16string& path, std::string_view bytes) override {
        files_.AddFile(path, bytes);
    }
    void Replace(const std::u16string& path, std::string_view bytes) override {
        REQUIRE(files_.Replace(path, bytes, WriteTime::Now));
    }
    void Remove(const std::u16string& path) override { files_.Remove(path); }
    bool Becomes(const std::function<bool()>& condition) override {
        watch_.Deliver();
        other_.Deliver();
        return condition();
    }

  private:
    NoneClock clock_;
    NoneFiles files_{clock_};
    NoneFileWatch watch_{files_.changes}, other_{files_.changes};
};

class NoneRegistryUnderTest final : public RegistryUnderTest {
  public:
    Registry& Port() override { return registry_; }
    std::u16string Key() override { return u"SOFTWARE\\Norvaset contract test"; }

  private:
    NoneRegistry registry_;
};

// Its names are those of the "C" locale.
class NoneLocaleUnderTest final : public LocaleUnderTest {
  public:
    Locale& Port() override { return locale_; }
    std::u16string MonthInDate(int month, NameLength length) override {
        std::tm date = {};
        date.tm_mon = month - 1;
        return InDate(date, length == NameLength::Long ? "%B" : "%b");
    }
    std::u16string DayInDate(int weekday, NameLength length) override {
        std::tm date = {};
        date.tm_wday = weekday - 1;
        return InDate(date, length == NameLength::Long ? "%A" : "%a");
    }

  private:
    static std::u16string InDate(const std::tm& date, const char* format) {
        std::ostringstream shown;
        shown.imbue(std::locale::classic());
        shown << std::put_time(&date, format);
        const std::string text = shown.str();
        return {text.begin(), text.end()};
    }
    NoneLocale locale_;
};
