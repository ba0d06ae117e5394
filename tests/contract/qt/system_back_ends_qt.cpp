// Clipboard, timer, file watch, registry, locale and version information on Qt, and in memory.
#include "common/utf.h"
#include "platform/posix/posix_paths.h"
#include "platform/qt/base/qt_text.h"
#include "platform/qt/system/qt_clipboard.h"
#include "platform/qt/system/qt_file_watch.h"
#include "platform/qt/system/qt_locale.h"
#include "platform/qt/system/qt_registry.h"
#include "platform/qt/system/qt_timer.h"
#include "platform/qt/system/qt_version_info.h"
#include "tests/contract/qt/event_loop.h"
#include "tests/contract/system_back_ends_none.h"
#include "tests/contract/temporary_folder_posix.h"
#include "tests/contract/version_info_contract.h"

#include <QClipboard>
#include <QDate>
#include <QDialog>
#include <QGuiApplication>
#include <QLocale>
#include <QMimeData>
#include <QTimer>

#include <fstream>

namespace {
class QtClipboardUnderTest final : public ClipboardUnderTest {
  public:
    Clipboard& Port() override { return clipboard_; }
    std::u16string Text() override { return FromQt(QGuiApplication::clipboard()->text()); }
    std::u16string LineEnd() override { return u"\n"; }
    void CopyOther() override {
        auto* data = new QMimeData; // owned by the clipboard
        data->setData(QStringLiteral("application/x-norvaset-contract"), "other");
        data->setText(QStringLiteral("other"));
        QGuiApplication::clipboard()->setMimeData(data);
    }
    bool HoldsTextOnly() override {
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        return data->formats() == QStringList{QStringLiteral("text/plain")};
    }

  private:
    QtClipboard clipboard_;
};

class QtTimerUnderTest final : public TimerUnderTest {
  public:
    Timer& Port() override { return timer_; }
    bool Becomes(const std::function<bool()>& condition) override { return ::Becomes(condition); }
    void WaitTicks(int interval, int times) override {
        QTimer reference;
        int ticks = 0;
        reference.callOnTimeout([&] { ++ticks; });
        reference.start(interval);
        ::Becomes([&] { return ticks >= times; });
    }
    void WhileDialogIsOpen(const std::function<void()>& check) override {
        QDialog dialog;
        dialog.setModal(true);
        dialog.show();
        check();
    }

  private:
    QtTimer timer_;
};

class QtFileWatchUnderTest final : public FileWatchUnderTest {
  public:
    QtFileWatchUnderTest() { std::filesystem::create_directory(Folder()); }
    FileWatch& Port() override { return watch_; }
    FileWatch& OtherPort() override { return other_; }
    std::u16string Path(const std::u16string& name) override {
        return PathFromNative(Folder()) + u'/' + name;
    }
    void Write(const std::u16string& path, std::string_view bytes) override {
        std::ofstream(Utf16ToUtf8(path), std::ios::binary) << bytes;
    }
    void Replace(const std::u16string& path, std::string_view bytes) override {
        Write(path + u"~", bytes);
        std::filesystem::rename(Utf16ToUtf8(path + u"~"), Utf16ToUtf8(path));
    }
    void Remove(const std::u16string& path) override { std::filesystem::remove(Utf16ToUtf8(path)); }
    bool Becomes(const std::function<bool()>& condition) override { return ::Becomes(condition); }
    std::u16string LinkTo(const std::u16string& path) override {
        std::filesystem::create_directory(folder_.path + "/elsewhere");
        const std::string link = folder_.path + "/elsewhere/link.txt";
        std::filesystem::create_symlink(Utf16ToUtf8(path), link);
        return PathFromNative(link);
    }
    bool RenameFolder() override {
        std::filesystem::rename(Folder(), folder_.path + "/renamed");
        return true;
    }

  private:
    std::string Folder() const { return folder_.path + "/books"; }
    TemporaryFolder folder_;
    QtFileWatch watch_, other_;
};

class QtRegistryUnderTest final : public RegistryUnderTest {
  public:
    Registry& Port() override { return registry_; }
    std::u16string Key() override { return u"SOFTWARE\\Norvaset contract test"; }

  private:
    QtRegistry registry_;
};

class QtLocaleUnderTest final : public LocaleUnderTest {
  public:
    Locale& Port() override { return locale_; }
    std::u16string MonthInDate(int month, NameLength length) override {
        return InDate(QDate(2026, month, 15), length == NameLength::Long ? "MMMM" : "MMM");
    }
    std::u16string DayInDate(int weekday, NameLength length) override {
        return InDate(QDate(2026, 2, weekday),
                      length == NameLength::Long ? "dddd" : "ddd"); // the 1st is a Sunday
    }

  private:
    static std::u16string InDate(QDate date, const char* format) {
        return FromQt(QLocale::system().toString(date, QLatin1String(format)));
    }
    QtLocale locale_;
};

// A desktop entry in the user's data folder.
class QtVersionInfoUnderTest final : public VersionInfoUnderTest {
  public:
    QtVersionInfoUnderTest() : before_(qgetenv("XDG_DATA_HOME")) {
        std::filesystem::create_directories(folder_.path + "/applications");
        std::ofstream(folder_.path + "/applications/described.desktop")
            << "[Desktop Entry]\nType=Application\nName=\u041F\u043E\u043C\u043E\u0449\u043D\u0438"
               "\u043A \u00A9\n";
        std::ofstream(folder_.path + "/text") << "text";
        qputenv("XDG_DATA_HOME", QByteArray::fromStdString(folder_.path));
    }
    ~QtVersionInfoUnderTest() override { qputenv("XDG_DATA_HOME", before_); } // "" counts as unset
    VersionInfo& Port() override { return versionInfo_; }
    std::u16string DescribedProgram() override { return u"/usr/bin/described"; }
    std::u16string Description() override {
        return u"\u041F\u043E\u043C\u043E\u0449\u043D\u0438\u043A \u00A9";
    }
    std::u16string Folder() override { return FromQt(QString::fromStdString(folder_.path)); }

  private:
    const QByteArray before_;
    TemporaryFolder folder_;
    QtVersionInfo versionInfo_;
};
} // namespace

std::vector<BackEnd<ClipboardUnderTest>> ClipboardBackEnds() {
    return {MakeBackEnd<ClipboardUnderTest, NoneClipboardUnderTest>("none"),
            MakeBackEnd<ClipboardUnderTest, QtClipboardUnderTest>("qt")};
}

std::vector<BackEnd<TimerUnderTest>> TimerBackEnds() {
    return {MakeBackEnd<TimerUnderTest, NoneTimerUnderTest>("none"),
            MakeBackEnd<TimerUnderTest, QtTimerUnderTest>("qt")};
}

std::vector<BackEnd<FileWatchUnderTest>> FileWatchBackEnds() {
    return {MakeBackEnd<FileWatchUnderTest, NoneFileWatchUnderTest>("none"),
            MakeBackEnd<FileWatchUnderTest, QtFileWatchUnderTest>("qt")};
}

std::vector<BackEnd<RegistryUnderTest>> RegistryBackEnds() {
    return {MakeBackEnd<RegistryUnderTest, NoneRegistryUnderTest>("none"),
            MakeBackEnd<RegistryUnderTest, QtRegistryUnderTest>("qt")};
}

std::vector<BackEnd<LocaleUnderTest>> LocaleBackEnds() {
    return {MakeBackEnd<LocaleUnderTest, NoneLocaleUnderTest>("none"),
            MakeBackEnd<LocaleUnderTest, QtLocaleUnderTest>("qt")};
}

std::vector<BackEnd<VersionInfoUnderTest>> VersionInfoBackEnds() {
    return {MakeBackEnd<VersionInfoUnderTest, QtVersionInfoUnderTest>("qt")};
}
